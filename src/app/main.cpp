#include "app/appcontext.h"
#include "app/application.h"
#include "app/mainwindow.h"
#include "app/recoveryoffer.h"
#include "data/chartdatawindow.h"
#include "help/tipdialog.h"

#include <QIcon>
#include <QTabWidget>

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

// Over the main window, once it is up; the dialog itself checks whether the
// user still wants it at start-up.
void offerTipOfTheDay(CMainWindow *parent, const QString &titleBase)
{
    CTipDialog::showAtStartup(parent, titleBase, parent->settings());
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
    if (CRecoveryOffer::offerAtStartup(&mainWindow, mainWindow.dataPage()))
        mainWindow.tabWidget()->setCurrentWidget(mainWindow.dataPage());
    offerTipOfTheDay(&mainWindow, AppContext::productName());
    return application.exec();
}
