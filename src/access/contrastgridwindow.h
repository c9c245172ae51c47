#pragma once

#include "palette/palettecolour.h"

#include <QVector>
#include <QWidget>

class CContrastGridModel;
class QPushButton;
class QTableView;

// "Vellora - Contrast Grid": every pair of the data set's colours, each
// cell painted as its pair (row colour as background, column colour as
// text) and marked AAA, AA, large only or fail; "Copy as Text" puts the
// grid on the clipboard as tab-separated text with the marks.
class CContrastGridWindow : public QWidget
{
    Q_OBJECT

public:
    explicit CContrastGridWindow(QWidget *parent = nullptr);

    void setColours(const QVector<PaletteColour> &colours);
    // The grid as "Copy as Text" puts it on the clipboard.
    QString text() const;
    void copyText() const;

    CContrastGridModel *model() const { return m_model; }
    QTableView *view() const { return m_view; }
    QPushButton *copyButton() const { return m_copy; }

private:
    CContrastGridModel *m_model = nullptr;
    QTableView *m_view = nullptr;
    QPushButton *m_copy = nullptr;
};
