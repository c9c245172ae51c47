#pragma once

#include "colour/rgbcolour.h"

#include <QObject>
#include <QRect>

class QLabel;
class QSignalMapper;
class QToolButton;
class QWidget;

// One row of the multiple selection: a numbered line with a swatch and a
// clear button, the picked rectangle in image pixels and the pick's average.
class CMultipleSelect : public QObject
{
    Q_OBJECT

public:
    // Builds the row (hidden) as a child of parent for the entry at
    // `position`; the clear button is mapped to that position in clearMapper.
    CMultipleSelect(int position, QWidget *parent, QSignalMapper *clearMapper);
    ~CMultipleSelect() override;

    QWidget *row() const { return m_row; }
    QLabel *swatch() const { return m_swatch; }
    QToolButton *clearButton() const { return m_clearButton; }

    QRect rect() const { return m_rect; }
    void setRect(const QRect &rect) { m_rect = rect; }
    bool inUse() const { return m_inUse; }
    // Marks the row used or free and shows or hides it.
    void setInUse(bool inUse);
    RgbColour colour() const { return m_colour; }
    // Stores the colour and renders the swatch and its tool tip with the
    // given RGB display format.
    void setColour(const RgbColour &colour, int rgbFormat);
    // Takes over another row's colour and rectangle.
    void copyFrom(const CMultipleSelect &other, int rgbFormat);

private:
    QWidget *m_row = nullptr;
    QLabel *m_swatch = nullptr;
    QToolButton *m_clearButton = nullptr;
    QRect m_rect;
    bool m_inUse = false;
    RgbColour m_colour;
};
