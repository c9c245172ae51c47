// Feeds arbitrary bytes to the reader of Quillon ".config" colour lists, the
// parser behind the library's Import tab and vellora-cli import-config.
#include "tables/libcolourtable.h"
#include "tables/quillonimport.h"

#include <QBuffer>
#include <QByteArray>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;
    CLibColourTable table;
    if (CQuillonImport::parseFile(buffer, table) == 0) {
        // What a successful import does next: sort and serialise.
        table.sort();
        table.serialise();
    }
    return 0;
}
