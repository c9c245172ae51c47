#pragma once

#include "colour/rgbcolour.h"
#include "tables/colourmatcher.h"

#include <QTableWidget>
#include <QVector>

class CAppSettings;
class CColourContextMenu;
class QLabel;

// The match results of the sampling page: one row per close library entry
// (swatch, name with its RGB and Lab lines, percent or ΔE with the verdict),
// and a tool tip that explains the verdicts once results are shown. It only
// shows: deciding whether a match may run, and saying why not, is its page's.
class CMatchResultsView : public QTableWidget
{
    Q_OBJECT

public:
    // `settings` (may be null) gives the RGB format, the row count and the
    // units; they are read at every match, so a changed setting shows at the
    // next one.
    explicit CMatchResultsView(const CAppSettings *settings, QWidget *parent = nullptr);

    // Scores the entries of the matcher's table against `sample` and shows
    // the rows the row rule keeps, replacing what was shown.
    void showMatches(const CColourMatcher &matcher, const RgbColour &sample);
    // Removes every row and its contents.
    void clearResults();

    // The entry behind a shown row (null for a row not shown), and the
    // sample it was matched against.
    const CMatchResult *rowEntry(int row) const;
    RgbColour matchedSample() const { return m_sample; }
    // The pop-up menu of a shown row: the entry's name, hex and L*a*b*
    // text, then whatever the rowMenuAboutToShow connections add. Null
    // for a row that is not shown.
    CColourContextMenu *buildRowMenu(int row);

signals:
    // A row's menu is built: connections may add their own entries.
    void rowMenuAboutToShow(CColourContextMenu *menu, int row);

private:
    void reserveWidestRow();
    void showRow(const CMatchResult &record);
    void addRow(const QString &swatchColour, const QString &name, const QString &details,
                const QString &verdict);
    void setInterpretationToolTip();
    void showRowMenu(const QPoint &pos);
    // Names wider than this wrap instead of widening the panel further.
    void fitNameLabel(QLabel *label) const;
    // Wide enough that every shown row's name, details and verdict show
    // whole: the page's panel grows with the table, the picture keeps the rest.
    void fitWidthToContents();
    void reserveRowHeight(int row);

    const CAppSettings *m_settings = nullptr;
    // The entries behind the rows shown, in row order.
    QVector<CMatchResult> m_rows;
    RgbColour m_sample;
};
