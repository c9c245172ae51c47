// Feeds arbitrary bytes to the reader of Adobe Swatch Exchange files (.ase), a file a user
// imports or converts.
#include "palette/asepalette.h"

#include "palettefuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    return fuzzPaletteReader<CAsePalette>(data, size);
}
