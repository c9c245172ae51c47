#pragma once

#include "colour/rgbcolour.h"

#include <QTableWidget>

class CAppSettings;
class CColourTable;
struct CMatchResult;

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

    // Scores every entry of `table` against `sample` and shows the rows the
    // row rule keeps, replacing what was shown.
    void showMatches(const CColourTable &table, const RgbColour &sample);
    // Removes every row and its contents.
    void clearResults();

private:
    void showRow(const CMatchResult &record);
    void setInterpretationToolTip();

    const CAppSettings *m_settings = nullptr;
};
