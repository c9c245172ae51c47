#pragma once

#include <array>

// The published simulation matrices of colour vision deficiencies, for the
// three kinds of cone and the severities 0.1 .. 1.0 in steps of 0.1.
class CvdMatrices
{
public:
    enum Deficiency
    {
        Protan,
        Deutan,
        Tritan
    };
    // Row by row: out[i] = sum over j of m[3 * i + j] * in[j], in linear RGB.
    using Matrix = std::array<double, 9>;

    // tenths: the severity times ten, 1 .. 10 (outside is clamped).
    static const Matrix &matrix(Deficiency deficiency, int tenths);
};
