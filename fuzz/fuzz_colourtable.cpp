// Feeds arbitrary bytes to the colour table reader, the parser behind every
// library table and data set a user opens.
#include "tables/colourtable.h"

#include <QTemporaryFile>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QTemporaryFile file;
    if (!file.open())
        return 0;
    file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    file.flush();
    CColourTable table;
    table.load(file.fileName());
    return 0;
}
