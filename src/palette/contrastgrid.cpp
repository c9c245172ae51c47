#include "palette/contrastgrid.h"

#include "colour/wcagcontrast.h"
#include "palette/palette.h"

#include <QStringList>

#include <algorithm>

namespace {

QString cellText(const QString &name)
{
    QString text = name;
    for (QChar &c : text) {
        if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            c = QLatin1Char(' ');
    }
    return text;
}

} // namespace

ContrastGrid::ContrastGrid(const QVector<PaletteColour> &colours) : m_colours(colours)
{
    m_luminances.reserve(colours.size());
    for (const PaletteColour &colour : colours)
        m_luminances << WcagContrast::relativeLuminance(colour.rgb);
}

double ContrastGrid::ratio(int row, int column) const
{
    // The very arithmetic of WcagContrast::ratio, on luminances kept.
    const double a = m_luminances.at(row);
    const double b = m_luminances.at(column);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

ContrastGrid::Mark ContrastGrid::mark(double ratio)
{
    if (WcagContrast::passes(ratio, WcagContrast::EnhancedNormal))
        return AAA;
    if (WcagContrast::passes(ratio, WcagContrast::MinimumNormal))
        return AA;
    if (WcagContrast::passes(ratio, WcagContrast::MinimumLarge))
        return LargeOnly;
    return Fail;
}

QString ContrastGrid::markText(Mark mark)
{
    switch (mark) {
    case AAA:
        return QStringLiteral("AAA");
    case AA:
        return QStringLiteral("AA");
    case LargeOnly:
        return QStringLiteral("large only");
    case Fail:
        break;
    }
    return QStringLiteral("fail");
}

QString ContrastGrid::tsv(bool marks) const
{
    QStringList header{QStringLiteral("colour"), QStringLiteral("name")};
    for (const PaletteColour &colour : m_colours)
        header << CPalette::hex(colour.rgb);
    QStringList lines{header.join(QLatin1Char('\t'))};
    for (int row = 0; row < size(); ++row) {
        QStringList cells{CPalette::hex(m_colours.at(row).rgb), cellText(m_colours.at(row).name)};
        for (int column = 0; column < size(); ++column) {
            const double r = ratio(row, column);
            QString cell = WcagContrast::ratioText(r);
            if (marks)
                cell += QLatin1Char(' ') + markText(mark(r));
            cells << cell;
        }
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}
