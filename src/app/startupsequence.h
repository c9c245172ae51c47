#pragma once

#include <QString>

class CMainWindow;

// What start-up does once the main window exists: shows it, opens the
// picture named on the command line (if any) exactly as "Open Image" opens
// a chosen file, then offers the tip of the day as on every start.
class CStartupSequence
{
public:
    static void run(CMainWindow *window, const QString &picture);
};
