#pragma once

#include "palette/palettecolour.h"

#include <QString>
#include <QVector>

// The WCAG contrast ratio of every pair of a list of colours, with each
// pair's mark: "AAA" (7:1, any text), "AA" (4.5:1), "large only" (3:1: AA
// for large text and non-text only) or "fail". Luminances are worked out
// once per colour, so a cell costs two additions and a division: a grid of
// 200 colours is 40,000 cells read as they are shown.
class ContrastGrid
{
public:
    enum Mark
    {
        Fail,
        LargeOnly,
        AA,
        AAA
    };

    explicit ContrastGrid(const QVector<PaletteColour> &colours = {});

    int size() const { return m_colours.size(); }
    const PaletteColour &colour(int index) const { return m_colours.at(index); }
    double ratio(int row, int column) const;

    static Mark mark(double ratio);
    static QString markText(Mark mark);

    // A header of the colours' hex values, then a row per colour led by its
    // hex value and name, each cell the ratio shown truncated; marks=true
    // adds the mark after each ratio ("4.54 AA"). Tabs and line breaks of
    // names become spaces.
    QString tsv(bool marks = false) const;

private:
    QVector<PaletteColour> m_colours;
    QVector<double> m_luminances;
};
