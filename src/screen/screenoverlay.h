#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QWidget>

class CColourMatcher;
class CLoupe;

// The frozen desktop of "Pick from Screen": the capture shown above every
// window, a loupe following the cursor. A click picks the pick square around
// the pixel, a drag picks a band, the arrow keys move the pixel (Shift: ten)
// and Space or Enter pick there, Esc gives up. The rectangle handed back is
// the one a click or band at the same pixels of the picture shown at actual
// size on the sampling page reads. The capture may have more pixels than the
// widget (high-DPI screens); points map to the capture's pixels.
class CScreenOverlay : public QWidget
{
    Q_OBJECT

public:
    explicit CScreenOverlay(const QImage &capture, QWidget *parent = nullptr);
    ~CScreenOverlay() override;

    const QImage &capture() const { return m_capture; }
    CLoupe *loupe() const { return m_loupe; }
    void setPickSize(int size);
    void setRgbAverage(bool rgb);
    void setMatcher(const CColourMatcher *matcher);

    // Covers the whole desktop and takes the keyboard.
    void showOverDesktop(const QRect &desktop, bool singleScreen);
    // The capture pixel under a point of the widget.
    QPoint pixelAt(const QPoint &widgetPoint) const;
    QPoint cursorPixel() const { return m_pixel; }
    bool isDragging() const { return m_dragging; }
    // The band being drawn, in capture pixels (empty when not dragging).
    QRect bandPixels() const;

signals:
    // The capture pixels to average (may be empty: nothing to read).
    void picked(const QRect &imageRect);
    void cancelled();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void moveTo(const QPoint &pixel);
    void placeLoupe();
    QRect widgetRectOf(const QRect &pixels) const;
    void paintHint(class QPainter &painter) const;

    const QImage m_capture;
    CLoupe *m_loupe = nullptr;
    QPoint m_pixel;
    QPoint m_pressPoint;
    QPoint m_originPixel;
    bool m_pressed = false;
    bool m_dragging = false;
    bool m_done = false;
};
