#pragma once

#include "colour/labcolour.h"

#include <QRgb>

// Adds the L*a*b* of a row of packed 8-bit pixels (alpha ignored) to a sum,
// each pixel converted as the Lab averaging converts it (the linearisation
// looked up, the quick cube root). Pictures without repeated colours (noise,
// grain) convert every pixel, so the row is handed to the widest vector
// instructions the processor offers, chosen once at run time: AVX2 with FMA
// (eight pixels at a time, the cube root worked out without a table), or
// the plain code. Both agree within a few units in the last place per pixel
// and differ otherwise only in the order of the sum, so their sums of a
// whole picture agree within 1e-9 of its mean.
class LabRowSum
{
public:
    enum class Path
    {
        Plain,
        Avx2,
    };

    // The path rows take: the vector one when the processor has it, unless
    // forced to the plain code.
    static Path chosen();
    static bool available(Path path);
    // For tests: every row by the plain code (true) or as chosen (false).
    static void forcePlain(bool plain);

    static void add(const QRgb *row, int width, LabColour &sum);
    // One path; the caller checks that it is available.
    static void add(Path path, const QRgb *row, int width, LabColour &sum);
};
