// The fault-injection test's program: Vellora's main window driven by a
// script (FaultSession), and the check of what a killed session left
// (FaultCheck). tests/fault/killtest.sh runs one, kills it, runs the other.
//
//   faultdriver session SEED DATA LIBRARY
//   faultdriver check JOURNAL KILL_MS DATA LIBRARY
#include "faultcheck.h"
#include "faultsession.h"

#include "common/appcontext.h"

#include "support/storedsettings.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    AppContext::setApplicationIdentity();
    AppContext::initResources();
    const QStringList args = application.arguments();
    if (args.value(1) == QLatin1String("session") && args.size() == 5) {
        // The sampling page's library is the table under test; the first
        // run's sample table would be a second one beside it.
        StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"),
                                 QFileInfo(args.at(4)).absolutePath());
        StoredSettings::setValue(QStringLiteral("ColourLibrary/selected"), args.at(4));
        StoredSettings::setValue(QStringLiteral("Sample/created"), true);
        FaultSession session(args.at(2).toUInt(), args.at(3), args.at(4));
        if (!session.start())
            return 2;
        return application.exec();
    }
    if (args.value(1) == QLatin1String("check") && args.size() == 6) {
        FaultCheck check(args.at(2), args.at(3).toLongLong(), args.at(4), args.at(5));
        const bool ok = check.run();
        std::printf("%s %s\n", ok ? "ok" : "LOST", qPrintable(check.summary()));
        for (const QString &problem : check.problems())
            std::printf("  %s\n", qPrintable(problem));
        return ok ? 0 : 3;
    }
    std::fprintf(stderr, "usage: faultdriver session SEED DATA LIBRARY | check JOURNAL KILL_MS "
                         "DATA LIBRARY\n");
    return 1;
}
