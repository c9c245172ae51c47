#include "help/helpwindow.h"
#include "help/tipdialog.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTextStream>

// Started through a link the way bin/vellora is, prints where the program
// looks for its files (its own folder, the tips, the manual) and whether
// they are there, one per line: the install test compares them with the
// installed layout.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const QString tips = CTipDialog::defaultTipsPath();
    const QString manual = CHelpWindow::collectionPath(QCoreApplication::applicationDirPath());
    out << QCoreApplication::applicationDirPath() << '\n'
        << tips << ' ' << CTipDialog::readTips(tips).size() << '\n'
        << manual << ' ' << (QFileInfo(manual).isFile() ? "found" : "missing") << '\n';
    return 0;
}
