#pragma once

#include "colour/qtversioncompat.h"

#include <QLabel>
#include <QPoint>
#include <QRect>
#include <QVector>

#include <memory>

class CColourImageWindowView;
class ColourVision;
class CMultipleSelect;
class CSimulatedViewCache;
class QRubberBand;

// The picture on the sampling page. Its size is the zoomed size of the image;
// a widget point maps to image pixel (truncate(x / f), truncate(y / f)). It
// paints only what is exposed, straight from the view's source image, so a
// photograph of many megapixels is never copied or scaled as a whole.
class CImageWidget : public QLabel
{
    Q_OBJECT

public:
    // A multiple-selection mark in image pixels: two frames, one inside the
    // other, and the entry's number beside them.
    struct SelectionMark
    {
        int number = 0;
        QRect inner;
        QRect outer;
        QRect textBox;
    };

    explicit CImageWidget(CColourImageWindowView *view);
    ~CImageWidget() override;

    void setImageSize(const QSize &size);
    QSize imageSize() const { return m_imageSize; }
    QSize sizeHint() const override;

    void setZoomIndex(int index) { m_zoomIndex = index; }
    int zoomIndex() const { return m_zoomIndex; }
    void setPickSize(int size);
    int pickSize() const { return m_pickSize; }
    int lineWidth() const { return m_lineWidth; }
    void setRubberBandMode(bool on);
    bool isRubberBandMode() const { return m_rubberBandMode; }
    void setBoxSuppressed(bool suppressed);
    void setMouseInside(bool inside);
    // The picture is painted as seen with this vision (null or normal: as
    // stored); picks keep reading the stored pixels.
    void setColourVision(std::shared_ptr<const ColourVision> vision);
    QLabel *pickBox() const { return m_pickBox; }
    QPoint keyboardPixel() const { return m_keyPixel; }
    QRubberBand *rubberBand() const { return m_rubberBand; }

    // Redraws the marks of the in-use rows; the picture itself is untouched.
    void drawSelectionMarks(const QVector<CMultipleSelect *> &entries);
    const QVector<SelectionMark> &selectionMarks() const { return m_marks; }

    // The image pixel under a widget point at a zoom factor.
    static QPoint imagePoint(const QPoint &widgetPoint, double factor);

signals:
    // A pick of the image pixels in `imageRect` (may be empty: nothing to
    // read there).
    void picked(const QRect &imageRect);
    // The cursor position texts; empty when the cursor left the picture.
    void statusMessage(const QString &text);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(VersionCompat::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    // Arrows move the pick box a pixel (Shift: ten), Space or Enter picks.
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QPoint widgetPoint(const QMouseEvent *event) const;
    double viewFactor() const;
    void showCursorPosition(const QPoint &point);
    void movePickBox(const QPoint &point);
    void updatePickBoxVisibility();
    void showKeyboardPosition();
    void startRubberBand(const QPoint &point);
    void pick(const QRect &imageRect);
    QRect exposedImageRect(const QRect &widgetRect) const;
    void paintPicture(QPainter &painter, const QRect &exposed);
    void paintMarks(QPainter &painter) const;
    void paintMarkFrame(QPainter &painter, const QRect &imageRect) const;
    struct Span
    {
        int start;
        int end;
    };
    int toWidget(int imageCoordinate) const;
    Span widgetSpan(int first, int last) const;
    SelectionMark markFor(int number, const QRect &rect) const;

    CColourImageWindowView *m_view = nullptr;
    std::shared_ptr<const ColourVision> m_vision;
    // The simulated picture in sight, kept between repaints.
    std::unique_ptr<CSimulatedViewCache> m_simulated;
    int m_zoomIndex = 7;
    QLabel *m_pickBox = nullptr;
    int m_pickSize = 1;
    int m_lineWidth = 1;
    bool m_boxSuppressed = true;
    bool m_mouseInside = false;
    bool m_rubberBandMode = false;
    bool m_dragging = false;
    QRubberBand *m_rubberBand = nullptr;
    QPoint m_origin;
    QSize m_imageSize;
    QVector<SelectionMark> m_marks;
    // The image pixel the keyboard picks: where the mouse last was, moved by
    // the arrow keys. While the keys drive it the box shows there.
    QPoint m_keyPixel;
    bool m_keyboardActive = false;
    QPoint m_lastMouseGlobal;
};
