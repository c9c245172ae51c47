// A second (and third) Vellora adding colours to one library table, for the
// concurrent writers test: loads the table once, then adds
// "<prefix> <i>" count times through the guarded writer, as Add Colour to
// Colour Library does, and prints the number of colours it could not add.
//
//   librarywriter TABLE PREFIX COUNT
#include "tables/libcolourtable.h"
#include "tables/librarytablewriter.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList args = application.arguments();
    if (args.size() != 4)
        return 1;
    const QString path = args.at(1);
    const int count = args.at(3).toInt();
    CLibColourTable table;
    if (table.load(path).status != CColourTable::Loaded)
        return 2;
    int failed = 0;
    for (int i = 0; i < count; ++i) {
        const CColourTableEntry entry(QStringLiteral("%1 %2").arg(args.at(2)).arg(i), 0.01 * (i % 100),
                                      0.5, 0.25);
        if (CLibraryTableWriter::addEntry(table, entry) != CLibraryTableWriter::Written)
            ++failed;
    }
    std::printf("failed %d\n", failed);
    return failed == 0 ? 0 : 3;
}
