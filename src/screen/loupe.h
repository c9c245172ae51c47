#pragma once

#include "colour/rgbcolour.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

class CColourMatcher;

// The magnifier of "Pick from Screen": the pixels around the cursor's pixel
// enlarged kZoom times without smoothing, the pick square outlined, and under
// them the pick's colour as hex and the nearest entry of the page's library
// table with its Delta E and verdict. The pick square and its average are
// the ones a click on that pixel would read.
class CLoupe : public QWidget
{
    Q_OBJECT

public:
    static const int kZoom = 12;
    static const int kSpan = 19; // pixels across, odd so one is in the middle
    static const int kTextHeight = 44;

    // `capture` must outlive the loupe (the overlay owns both).
    explicit CLoupe(const QImage &capture, QWidget *parent = nullptr);

    void setPickSize(int size);
    int pickSize() const { return m_pickSize; }
    void setRgbAverage(bool rgb) { m_rgbAverage = rgb; }
    // May be null: no library to name colours from.
    void setMatcher(const CColourMatcher *matcher) { m_matcher = matcher; }

    // Shows the surroundings of an image pixel and names its pick.
    void showPixel(const QPoint &pixel);
    QPoint pixel() const { return m_pixel; }
    // The image pixels the pick square covers (as a click reads them).
    QRect pickRect() const { return m_pickRect; }
    // Where the square's outline is drawn inside the loupe.
    QRect outlineRect() const;
    QString hexText() const { return m_hex; }
    // "name  ΔE 1.2  verdict", or a note that there is no library entry.
    QString nameText() const { return m_name; }
    QString nearestName() const { return m_nearest; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintMagnified(class QPainter &painter) const;
    void nameNearest(const RgbColour &colour);

    const QImage &m_capture;
    const CColourMatcher *m_matcher = nullptr;
    int m_pickSize = 1;
    bool m_rgbAverage = true;
    QPoint m_pixel;
    QRect m_pickRect;
    QString m_hex;
    QString m_name;
    QString m_nearest;
};
