#pragma once

#include "sample/multipleselectionmodel.h"

#include <QObject>
#include <QVector>

class CAppSettings;
class CImageWidget;
class CMultipleSelect;
class QLabel;
class QToolButton;

// The multiple selection as the sampling page shows it: keeps the picks and
// mirrors them in the numbered rows, the "Maximum 8 Items" notice, the state
// of the clear button and the marks on the picture. What a change means for
// the sample is left to the page.
class CMultipleSelectionRows : public QObject
{
    Q_OBJECT

public:
    // `settings` (may be null) gives the rows' RGB display format.
    CMultipleSelectionRows(const CAppSettings *settings, const QVector<CMultipleSelect *> &rows,
                           QLabel *maximumNotice, QToolButton *clearButton,
                           CImageWidget *picture, QObject *parent = nullptr);

    // Adds a pick in the next free row; when all are taken, shows the notice
    // instead and returns false. The marks are drawn anew either way.
    bool add(const RgbColour &colour, const QRect &rect);
    // Removes the pick at `position`; the later ones move up a row and the
    // marks are drawn anew. False (and nothing drawn) when there is none.
    bool removeAt(int position);
    // Removes every pick; the marks stay until redrawMarks().
    void clear();
    // Draws the marks of the rows in use on the picture.
    void redrawMarks();
    // Renders every row again, after a change of the display format.
    void refresh() { showRows(0); }

    const CMultipleSelectionModel &selection() const { return m_selection; }
    const QVector<CMultipleSelect *> &rows() const { return m_rows; }

private:
    // The rows from `from` on show the entries at their positions; the
    // rest hide.
    void showRows(int from);

    const CAppSettings *m_settings = nullptr;
    CMultipleSelectionModel m_selection;
    QVector<CMultipleSelect *> m_rows;
    QLabel *m_maximumNotice = nullptr;
    QToolButton *m_clearButton = nullptr;
    CImageWidget *m_picture = nullptr;
};
