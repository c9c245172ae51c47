#include "support/virtualdisplay.h"

#include <QByteArray>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const int kStartTimeoutMs = 10000;

// The display number Xvfb writes to the pipe once it accepts clients.
QByteArray readDisplayNumber(int fd)
{
    QByteArray text;
    char buffer[32];
    while (!text.contains('\n')) {
        pollfd wait{fd, POLLIN, 0};
        if (poll(&wait, 1, kStartTimeoutMs) <= 0)
            break;
        const ssize_t got = read(fd, buffer, sizeof buffer);
        if (got <= 0)
            break;
        text.append(buffer, int(got));
    }
    return text.trimmed();
}

} // namespace

VirtualDisplay::~VirtualDisplay()
{
    stop();
}

bool VirtualDisplay::start(int width, int height)
{
    int fds[2];
    if (pipe(fds) != 0) {
        m_error = QStringLiteral("no pipe");
        return false;
    }
    const QByteArray fd = QByteArray::number(fds[1]);
    const QByteArray screen = QByteArray::number(width) + 'x' + QByteArray::number(height) + "x24";
    m_pid = fork();
    if (m_pid == 0) {
        close(fds[0]);
        // Gone with the test even when it crashes or is killed, and never
        // holding the test's output open.
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int null = open("/dev/null", O_RDWR);
        if (null >= 0) {
            dup2(null, STDIN_FILENO);
            dup2(null, STDOUT_FILENO);
            dup2(null, STDERR_FILENO);
        }
        execlp("Xvfb", "Xvfb", "-displayfd", fd.constData(), "-screen", "0", screen.constData(),
               "-nolisten", "tcp", "-br", "-noreset", static_cast<char *>(nullptr));
        _exit(127);
    }
    close(fds[1]);
    if (m_pid < 0) {
        close(fds[0]);
        m_error = QStringLiteral("fork failed");
        return false;
    }
    const QByteArray number = readDisplayNumber(fds[0]);
    close(fds[0]);
    if (number.isEmpty()) {
        m_error = QStringLiteral("Xvfb did not start (is it installed?)");
        stop();
        return false;
    }
    m_display = QLatin1Char(':') + QString::fromLatin1(number);
    return true;
}

void VirtualDisplay::stop()
{
    if (m_pid <= 0)
        return;
    kill(m_pid, SIGTERM);
    int status = 0;
    while (waitpid(m_pid, &status, 0) < 0 && errno == EINTR) {
    }
    m_pid = -1;
}
