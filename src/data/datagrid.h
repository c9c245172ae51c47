#pragma once

#include <QWidget>

class CAppSettings;
class CColourContextMenu;
class CDataColourTable;
class CDataGridDelegate;
class CDataModel;
class QTableView;

// The data set's grid: a table view over CDataModel, painted and clicked
// through CDataGridDelegate.
class CDataGrid : public QWidget
{
    Q_OBJECT

public:
    CDataGrid(const CAppSettings *settings, CDataColourTable *table, QWidget *parent = nullptr);

    QTableView *view() const { return m_view; }
    CDataModel *model() const { return m_model; }
    CDataGridDelegate *delegate() const { return m_delegate; }

    // The width of a number column: the advance of "-000.0000  " in the
    // grid's font.
    int numberColumnWidth() const;
    // The width of the swatch and button columns: four font heights.
    int narrowColumnWidth() const;

    // The grid's pop-up menu: the hex and the name of the colour in row
    // (none for a row that does not exist), what contextMenuAboutToShow
    // connections add, then "Export Data Set…", then "Undo <change>" and
    // "Redo <change>" when the model's history has one.
    CColourContextMenu *buildContextMenu(int row);
    CDataColourTable *table() const { return m_table; }

signals:
    // The menu of a row (-1: below the rows) is built, before "Export Data
    // Set…": connections may add their own entries.
    void contextMenuAboutToShow(CColourContextMenu *menu, int row);
    // "Export Data Set…" was chosen.
    void exportRequested();

private:
    void setUpColumns();
    void addHistoryActions(CColourContextMenu *menu);
    void showContextMenu(const QPoint &pos);

    QTableView *m_view = nullptr;
    CDataModel *m_model = nullptr;
    CDataGridDelegate *m_delegate = nullptr;
    CDataColourTable *m_table = nullptr;
};
