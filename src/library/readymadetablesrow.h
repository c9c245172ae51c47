#pragma once

#include <QVector>
#include <QWidget>

class QPushButton;

// The Import page's row of ready-made tables: the caption "Ready-made
// Tables" over a button per table compiled into the program. Its owner does
// the import when a button says which table was chosen.
class CReadyMadeTablesRow : public QWidget
{
    Q_OBJECT

public:
    explicit CReadyMadeTablesRow(QWidget *parent = nullptr);

    // The button of the index-th table of CReadyMadeTables::all().
    QPushButton *button(int index) const { return m_buttons.value(index); }
    int buttonCount() const { return m_buttons.size(); }

signals:
    // The index-th table's button was pressed.
    void tableChosen(int index);

private:
    QVector<QPushButton *> m_buttons;
};
