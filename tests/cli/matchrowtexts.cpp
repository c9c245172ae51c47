#include "matchrowtexts.h"

#include "colour/colourformat.h"
#include "colour/matchscore.h"

namespace MatchRowTexts {

QStringList cells(const CMatchResult &r, int rank)
{
    return {QString::number(rank),
            r.name,
            colourName(r.red, r.green, r.blue),
            QString::number(double(r.deltaE), 'f', 4),
            QString::number(double(matchPercent(r.deltaE)), 'f', 4),
            verdictShortText(verdict(r.deltaE))};
}

} // namespace MatchRowTexts
