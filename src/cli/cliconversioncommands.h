#pragma once

#include "cli/cliarguments.h"
#include "cli/clistatus.h"

// The commands that convert numbers: lab, rgb, deltae and score. Each reads
// its numbers from the arguments or, given "-", from standard input.
class CCliConversionCommands
{
public:
    // R G B fractions -> L a b, ten decimals each.
    static CCliStatus lab(const QStringList &words);
    // L a b -> R G B fractions, four decimals (clamped and rounded).
    static CCliStatus rgb(const QStringList &words);
    // L1 a1 b1 L2 a2 b2 -> CIEDE2000, six decimals; single precision, as
    // matching computes it, unless --double.
    static CCliStatus deltae(const QStringList &words);
    // A Delta E -> the two lines of the match text (--units percent|deltae).
    static CCliStatus score(const QStringList &words);
};
