#include "cli/clicommands.h"

#include <QCoreApplication>

namespace {

// Qt's own warnings (an image plugin's complaint, a colour out of range) are
// not for the user of a script: every failure is reported as one line of
// ours instead.
void ignoreQtMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

int main(int argc, char *argv[])
{
    qInstallMessageHandler(ignoreQtMessages);
    QCoreApplication application(argc, argv);
    return CCliCommands::run(QCoreApplication::arguments().mid(1));
}
