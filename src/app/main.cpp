#include "common/appcontext.h"
#include "app/application.h"
#include "app/commandline.h"
#include "app/mainwindow.h"
#include "app/startupsequence.h"

#include <QIcon>

#include <cstdio>

namespace {

// The application icon in its three sizes.
QIcon applicationIcon()
{
    QIcon icon(QStringLiteral(":/resources/icons/VelloraIcon48x48.png"));
    icon.addFile(QStringLiteral(":/resources/icons/VelloraIcon32x32.png"), QSize(), QIcon::Normal,
                 QIcon::Off);
    icon.addFile(QStringLiteral(":/resources/icons/VelloraIcon16x16.png"), QSize(), QIcon::Normal,
                 QIcon::Off);
    return icon;
}

QStringList rawArguments(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

int print(const CCommandLine &line)
{
    std::FILE *stream = line.action() == CCommandLine::Refuse ? stderr : stdout;
    const QByteArray text = line.message().toLocal8Bit();
    std::fputs(text.constData(), stream);
    if (!text.endsWith('\n'))
        std::fputc('\n', stream);
    return line.exitStatus();
}

} // namespace

int main(int argc, char *argv[])
{
    // Help, version and refusals answer before the toolkit starts, so that
    // they work without a display.
    const CCommandLine line(rawArguments(argc, argv));
    if (line.action() != CCommandLine::Start)
        return print(line);

    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    CApplication application(argc, argv);
    AppContext::setApplicationIdentity();
    AppContext::initResources();
    AppContext::setWidgetPrefix(QStringLiteral(":/resources/widgets/"));
    QApplication::setWindowIcon(applicationIcon());
    // Lets the desktop match the window with the menu entry and its icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.tessaline.Vellora"));

    CMainWindow mainWindow(AppContext::versionTitle());
    CStartupSequence::run(&mainWindow, line.picture());
    return application.exec();
}
