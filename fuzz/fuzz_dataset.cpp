// Feeds arbitrary bytes to the data set reader (a .txt or .csv the user opens
// on the Data page), then works the loaded set the way the grid does: marker
// reads and writes on every row, a sort, a save into memory and a removal.
#include "tables/datacolourtable.h"

#include <QDir>
#include <QTemporaryFile>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/fuzz_dataset_XXXXXX.csv"));
    if (!file.open())
        return 0;
    file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    file.flush();
    CDataColourTable table;
    const CColourTable::LoadResult result = table.load(file.fileName());
    if (result.status != CColourTable::Loaded && table.count() != 0)
        std::abort(); // a failed load must leave an empty set
    for (int i = -1; i <= table.count(); ++i) {
        table.setMarkerA(i, table.markerA(i) + 1);
        table.setMarkerB(i, table.markerB(i) + 1);
    }
    if (table.count() > 0 && table.serialise().isEmpty())
        std::abort(); // entries always write at least one line
    table.sort();
    if (table.count() > 0) {
        // The entry is handed back to the caller, as the grid's delete does.
        if (!table.takeAt(table.count() / 2))
            std::abort();
    }
    if (table.removeAt(table.count() + 3))
        std::abort();
    return 0;
}
