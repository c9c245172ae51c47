#pragma once

#include "tables/colourmatcher.h"

#include <QString>
#include <QVector>

// Compares the quick match of the matcher with the full computation it must
// equal, row for row.
namespace MatchComparison {

// Empty when the first keep rows of full (or all of them, if fewer) and best
// hold the same names, colours and bit-identical differences in the same
// order; otherwise what differs first.
QString firstDifference(const QVector<CMatchResult> &full, const QVector<CMatchResult> &best,
                        int keep);

} // namespace MatchComparison
