#include "app/startupsequence.h"

#include "app/appcontext.h"
#include "app/mainwindow.h"
#include "help/tipdialog.h"

void CStartupSequence::run(CMainWindow *window, const QString &picture)
{
    window->show();
    // An unreadable picture gets its message before the tip, over the window.
    if (!picture.isEmpty())
        window->openImage(picture);
    // The dialog itself checks whether the user still wants it at start-up.
    CTipDialog::showAtStartup(window, AppContext::productName(), window->settings());
}
