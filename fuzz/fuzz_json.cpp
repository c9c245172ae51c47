// Feeds arbitrary bytes to the reader of JSON colour lists (.json), a file a user
// imports or converts. A reader that succeeds must also write back what it
// read without trouble.
#include "palette/jsonpalette.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data),
                                                     static_cast<int>(size));
    const CPaletteReadResult result = CJsonPalette::read(bytes);
    if (result.isOk())
        CJsonPalette::write(result.palette());
    else
        result.message(QStringLiteral("fuzz"));
    return 0;
}
