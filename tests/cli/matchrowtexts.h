#pragma once

#include "tables/colourmatcher.h"

#include <QStringList>

// The columns vellora-cli prints for one match row (rank, name, hex, deltaE,
// percent, verdict), computed from the colour engine for comparison.
namespace MatchRowTexts {

QStringList cells(const CMatchResult &result, int rank);

} // namespace MatchRowTexts
