#pragma once

#include "cli/clistatus.h"
#include "palette/palette.h"

#include <QString>

// contrast --grid TABLE: the WCAG ratio of every pair of a file's colours
// (any format the tool reads), as a matrix. TSV: a header of the colours'
// hex values, then a row per colour led by its hex value and name. JSON:
// {"colours":[{"hex":...,"name":...}], "ratios":[[...], ...]}.
class CCliContrastGrid
{
public:
    static CCliStatus run(const QString &path, bool json);

    static QString tsv(const CPalette &palette);
    static QByteArray json(const CPalette &palette);
};
