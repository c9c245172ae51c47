#include "cli/clicontrastformatter.h"

#include "colour/apcacontrast.h"
#include "colour/wcagcontrast.h"
#include "palette/palette.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <cmath>

QString CCliContrastFormatter::tsvHeader()
{
    QStringList cells{QStringLiteral("foreground"), QStringLiteral("background"),
                      QStringLiteral("ratio")};
    for (int c = 0; c < WcagContrast::CriterionCount; ++c)
        cells << WcagContrast::criterionKey(WcagContrast::Criterion(c));
    cells << QStringLiteral("lc");
    return cells.join(QLatin1Char('\t'));
}

QString CCliContrastFormatter::tsvRow(const RgbColour &foreground, const RgbColour &background)
{
    const double ratio = WcagContrast::ratio(foreground, background);
    QStringList cells{CPalette::hex(foreground), CPalette::hex(background),
                      WcagContrast::ratioText(ratio)};
    for (int c = 0; c < WcagContrast::CriterionCount; ++c) {
        cells << (WcagContrast::passes(ratio, WcagContrast::Criterion(c)) ? QStringLiteral("pass")
                                                                           : QStringLiteral("fail"));
    }
    cells << QString::number(ApcaContrast::lightnessContrast(foreground, background), 'f', 1);
    return cells.join(QLatin1Char('\t'));
}

QByteArray CCliContrastFormatter::jsonObject(const RgbColour &foreground,
                                             const RgbColour &background, int line)
{
    const double ratio = WcagContrast::ratio(foreground, background);
    const double lc = ApcaContrast::lightnessContrast(foreground, background);
    QJsonObject object{{QStringLiteral("foreground"), CPalette::hex(foreground)},
                       {QStringLiteral("background"), CPalette::hex(background)},
                       {QStringLiteral("ratio"), WcagContrast::truncatedRatio(ratio)}};
    if (line > 0)
        object.insert(QStringLiteral("line"), line);
    for (int c = 0; c < WcagContrast::CriterionCount; ++c) {
        const auto criterion = WcagContrast::Criterion(c);
        object.insert(WcagContrast::criterionKey(criterion), WcagContrast::passes(ratio, criterion));
    }
    object.insert(QStringLiteral("lc"), std::round(lc * 10.0) / 10.0);
    object.insert(QStringLiteral("apca_level"), ApcaContrast::level(lc));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}
