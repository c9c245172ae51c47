// Feeds arbitrary bytes to the reader of GIMP palettes (.gpl), a file a user
// imports or converts.
#include "palette/gplpalette.h"

#include "palettefuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    return fuzzPaletteReader<CGplPalette>(data, size);
}
