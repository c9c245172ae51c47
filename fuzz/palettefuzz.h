#pragma once

// The body every palette reader's fuzz target shares: read arbitrary bytes,
// and write back what a successful read gave, or build the message of a
// failed one, so that both paths run under the sanitizers.
#include "palette/palettereadresult.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>

template <typename Format>
int fuzzPaletteReader(const uint8_t *data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data),
                                                     static_cast<int>(size));
    const CPaletteReadResult result = Format::read(bytes);
    if (result.isOk())
        Format::write(result.palette());
    else
        result.message(QStringLiteral("fuzz"));
    return 0;
}
