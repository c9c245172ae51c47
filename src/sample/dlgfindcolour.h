#pragma once

#include "colour/rgbcolour.h"
#include "tables/colournamesearch.h"

#include <QDialog>

class CColourNameModel;
class CColourTable;
class QLabel;
class QLineEdit;
class QModelIndex;
class QPushButton;
class QTableView;

// "Find Colour…": a window of our own that lists the entries of a library
// table whose names contain the letters typed, ignoring case and accents,
// with swatch and values. Choosing one (double-click, Enter or "Use as
// Sample") signals its colour; the window stays open for the next.
class CDlgFindColour : public QDialog
{
    Q_OBJECT

public:
    CDlgFindColour(const QString &tableName, const CColourTable &table, int rgbFormat,
                   QWidget *parent = nullptr);

    // Searches another table (the page chose a different one), keeping the text.
    void setTable(const QString &tableName, const CColourTable &table);
    // Signals the colour of the row (the current one when row < 0).
    void choose(int row = -1);

    QLineEdit *searchField() const { return m_search; }
    QTableView *resultsView() const { return m_view; }
    CColourNameModel *model() const { return m_model; }
    QLabel *tableLabel() const { return m_tableLabel; }
    QLabel *countLabel() const { return m_countLabel; }
    QPushButton *useButton() const { return m_useButton; }

protected:
    // The arrow and page keys in the field move through the list, so that
    // typing, choosing and Enter need no change of focus.
    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void colourChosen(const QString &name, const RgbColour &colour);
    void displayHelpSignal(const QString &page);

private:
    void buildResultsView();
    QLayout *buildButtonRow();
    void search();
    void showCount(int hits);

    CColourNameSearch m_names;
    CColourNameModel *m_model = nullptr;
    QLabel *m_tableLabel = nullptr;
    QLineEdit *m_search = nullptr;
    QTableView *m_view = nullptr;
    QLabel *m_countLabel = nullptr;
    QPushButton *m_useButton = nullptr;
};
