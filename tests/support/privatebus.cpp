#include "support/privatebus.h"

#include <QDir>
#include <QFile>

namespace {

const int kStartTimeoutMs = 10000;

QByteArray configuration(const QString &socket)
{
    return QByteArrayLiteral(
               "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
               " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
               "<busconfig>\n"
               "  <type>session</type>\n"
               "  <listen>unix:path=")
           + socket.toUtf8()
           + QByteArrayLiteral("</listen>\n"
                               "  <auth>EXTERNAL</auth>\n"
                               "  <policy context=\"default\">\n"
                               "    <allow send_destination=\"*\" eavesdrop=\"true\"/>\n"
                               "    <allow eavesdrop=\"true\"/>\n"
                               "    <allow own=\"*\"/>\n"
                               "  </policy>\n"
                               "</busconfig>\n");
}

} // namespace

PrivateBus::~PrivateBus()
{
    if (m_daemon.state() != QProcess::NotRunning) {
        m_daemon.terminate();
        if (!m_daemon.waitForFinished(5000)) {
            m_daemon.kill();
            m_daemon.waitForFinished(5000);
        }
    }
}

bool PrivateBus::start()
{
    if (!m_folder.isValid()) {
        m_error = QStringLiteral("no temporary folder");
        return false;
    }
    const QString config = QDir(m_folder.path()).filePath(QStringLiteral("bus.conf"));
    QFile file(config);
    if (!file.open(QIODevice::WriteOnly)
        || file.write(configuration(QDir(m_folder.path()).filePath(QStringLiteral("bus"))))
               < 0) {
        m_error = QStringLiteral("cannot write %1").arg(config);
        return false;
    }
    file.close();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + config, QStringLiteral("--nofork"),
                    QStringLiteral("--print-address")});
    if (!m_daemon.waitForStarted(kStartTimeoutMs)) {
        m_error = QStringLiteral("dbus-daemon did not start (is it installed?)");
        return false;
    }
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(kStartTimeoutMs)) {
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    if (m_address.isEmpty())
        m_error = QStringLiteral("dbus-daemon printed no address");
    return !m_address.isEmpty();
}
