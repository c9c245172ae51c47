#include "app/startupsequence.h"

#include "common/appcontext.h"
#include "app/mainwindow.h"
#include "app/recoveryoffer.h"
#include "data/chartdatawindow.h"
#include "help/tipdialog.h"

#include <QTabWidget>

void CStartupSequence::run(CMainWindow *window, const QString &picture)
{
    window->show();
    // A data set left unsaved by a Vellora that ended without closing comes
    // back first, so that the picture and the tip open over it.
    if (CRecoveryOffer::offerAtStartup(window, window->dataPage()))
        window->tabWidget()->setCurrentWidget(window->dataPage());
    // An unreadable picture gets its message before the tip, over the window.
    if (!picture.isEmpty())
        window->openImage(picture);
    // The dialog itself checks whether the user still wants it at start-up.
    CTipDialog::showAtStartup(window, AppContext::productName(), window->settings());
}
