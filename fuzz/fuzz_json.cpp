// Feeds arbitrary bytes to the reader of JSON colour lists (.json), a file a user
// imports or converts.
#include "palette/jsonpalette.h"

#include "palettefuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    return fuzzPaletteReader<CJsonPalette>(data, size);
}
