#include "app/appcontext.h"
#include "app/application.h"
#include "app/mainwindow.h"

#include <QIcon>

namespace {

QIcon *createApplicationIcon()
{
    auto *icon = new QIcon(QStringLiteral(":/resources/icons/VelloraIcon48x48.png"));
    icon->addFile(QStringLiteral(":/resources/icons/VelloraIcon32x32.png"), QSize(), QIcon::Normal,
                  QIcon::Off);
    icon->addFile(QStringLiteral(":/resources/icons/VelloraIcon16x16.png"), QSize(), QIcon::Normal,
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
    const QString versionTitle = AppContext::versionTitle();
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    auto *application = new CApplication(argc, argv);
    AppContext::initResources();
    AppContext::setWidgetPrefix(QStringLiteral(":/resources/widgets/"));
    QIcon *icon = createApplicationIcon();
    QApplication::setWindowIcon(*icon);

    auto *mainWindow = new CMainWindow(versionTitle);
    mainWindow->show();
    offerTipOfTheDay(mainWindow, AppContext::productName());
    const int code = application->exec();

    delete mainWindow;
    delete icon;
    delete application;
    return code;
}
