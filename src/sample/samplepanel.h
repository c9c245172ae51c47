#pragma once

#include "colour/rgbcolour.h"

#include <QVector>
#include <QWidget>

class CColourContextMenu;
class QLabel;

// The sample as the sampling page shows it: the caption "RGB=Red,Green,Blue",
// a framed swatch and the R, G, B, L*, a*, b* values. Empty, everything but
// the space it takes is hidden.
class CSamplePanel : public QWidget
{
    Q_OBJECT

public:
    explicit CSamplePanel(QWidget *parent = nullptr);

    // Shows the colour with RGB in the given display format.
    void showColour(const RgbColour &colour, int rgbFormat);
    // Hides the swatch, the caption and the values (their texts stay).
    void showEmpty();
    // Rewrites the R, G, B values in another display format.
    void refreshRgb(const RgbColour &colour, int rgbFormat);

    // The swatch's pop-up menu: the shown colour as hex, rgb(), the RGB
    // text in the display format and the L*a*b* text, then whatever the
    // swatchMenuAboutToShow connections add. Null while empty.
    CColourContextMenu *buildSwatchMenu();
    RgbColour colour() const { return m_colour; }
    // Puts a widget of someone else's under the values (hidden widgets take
    // no room, so the panel looks as before until it shows).
    void addNote(QWidget *note);
    bool hasColour() const { return m_hasColour; }

    QLabel *caption() const { return m_caption; }
    QLabel *swatch() const { return m_swatch; }
    QWidget *swatchFrame() const { return m_swatchFrame; }
    // R, G, B, L*, a*, b* in that order.
    QLabel *value(int index) const { return m_values.at(index); }
    QLabel *valueCaption(int index) const { return m_captions.at(index); }

signals:
    // A colour is shown: a new pick or average became the sample.
    void colourShown(const RgbColour &colour);
    // The sample panel was emptied.
    void colourCleared();
    // The swatch's menu is built: connections may add their own entries.
    void swatchMenuAboutToShow(CColourContextMenu *menu);

private:
    QWidget *buildSwatch();
    QWidget *buildGrid();
    static void reserveWidth(QLabel *value, const QString &widest);
    void setShown(bool shown);
    void showSwatchMenu(const QPoint &pos);

    QLabel *m_caption = nullptr;
    QWidget *m_swatchFrame = nullptr;
    QLabel *m_swatch = nullptr;
    QVector<QLabel *> m_captions;
    QVector<QLabel *> m_values;
    RgbColour m_colour;
    int m_rgbFormat = 0;
    bool m_hasColour = false;
};
