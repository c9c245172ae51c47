#pragma once

#include "colour/rgbcolour.h"

#include <QObject>

class CLibrarySelector;
class CMatchResultsView;
class QMenu;
class QWidget;

// Matches the sampling page's sample against the selected library table into
// the results view, in the two ways the page asks for: the user's "Match
// Library Colour", which says in a message why it cannot match, and the quiet
// repeat after a change of settings, which says nothing and only repeats an
// earlier match. It also puts "Explain this match…" on every result row's
// menu. Messages and explanations open over `dialogParent`.
class CMatchRunner : public QObject
{
    Q_OBJECT

public:
    CMatchRunner(CLibrarySelector *library, CMatchResultsView *results, QWidget *dialogParent);

    // The user's match of `sample` (`present` false: there is none).
    void match(const RgbColour &sample, bool present);
    // Repeats an earlier match with `sample`; an empty table or no earlier
    // match leaves the shown results as they are.
    void repeat(const RgbColour &sample, bool present);
    // Another table or picture: there is no earlier match to repeat.
    void forget() { m_matched = false; }
    bool hasMatched() const { return m_matched; }

signals:
    // Rows were shown for the sample.
    void matched();

private:
    void showMatches(const RgbColour &sample);
    void addExplainAction(QMenu *menu, int row);
    void explainMatch(int row);

    CLibrarySelector *m_library = nullptr;
    CMatchResultsView *m_results = nullptr;
    QWidget *m_parent = nullptr;
    bool m_matched = false;
};
