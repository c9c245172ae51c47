#include "app/appcontext.h"
#include "app/application.h"
#include "app/mainwindow.h"

#include <QIcon>

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

// The tip of the day is not in this release yet. This is where it will be
// offered, over the main window and titled from `titleBase`, when the
// General/showStartTip setting asks for it.
void offerTipOfTheDay(CMainWindow *parent, const QString &titleBase)
{
    Q_UNUSED(parent);
    Q_UNUSED(titleBase);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    CApplication application(argc, argv);
    AppContext::setApplicationIdentity();
    AppContext::initResources();
    AppContext::setWidgetPrefix(QStringLiteral(":/resources/widgets/"));
    QApplication::setWindowIcon(applicationIcon());

    CMainWindow mainWindow(AppContext::versionTitle());
    mainWindow.show();
    offerTipOfTheDay(&mainWindow, AppContext::productName());
    return application.exec();
}
