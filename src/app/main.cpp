#include "app/appcontext.h"
#include "app/application.h"
#include "app/mainwindow.h"
#include "help/tipdialog.h"

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

// Over the main window, once it is up; the dialog itself checks whether the
// user still wants it at start-up.
void offerTipOfTheDay(CMainWindow *parent, const QString &titleBase)
{
    CTipDialog::showAtStartup(parent, titleBase, parent->settings());
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
