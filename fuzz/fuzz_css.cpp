// Feeds arbitrary bytes to the reader of style sheets (.css), a file a user
// imports or converts.
#include "palette/csspalette.h"

#include "palettefuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    return fuzzPaletteReader<CCssPalette>(data, size);
}
