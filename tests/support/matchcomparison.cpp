#include "support/matchcomparison.h"

#include <algorithm>
#include <cstring>

namespace MatchComparison {

QString firstDifference(const QVector<CMatchResult> &full, const QVector<CMatchResult> &best,
                        int keep)
{
    const int expected = std::min(keep, full.size());
    if (best.size() != expected)
        return QStringLiteral("%1 records instead of %2").arg(best.size()).arg(expected);
    for (int i = 0; i < expected; ++i) {
        const CMatchResult &f = full.at(i);
        const CMatchResult &b = best.at(i);
        const bool sameDeltaE = std::memcmp(&f.deltaE, &b.deltaE, sizeof f.deltaE) == 0;
        if (f.name != b.name || !sameDeltaE || f.red != b.red || f.green != b.green
            || f.blue != b.blue) {
            return QStringLiteral("row %1: %2 (%3) instead of %4 (%5)")
                .arg(i)
                .arg(b.name)
                .arg(double(b.deltaE))
                .arg(f.name)
                .arg(double(f.deltaE));
        }
    }
    return QString();
}

} // namespace MatchComparison
