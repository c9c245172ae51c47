#pragma once

#include <QImage>
#include <QScrollArea>

class CImageWidget;

// The scrolling image view of the sampling page: owns the opened picture and
// the zoom level, sizes the image widget for it and reports both changes.
class CColourImageWindowView : public QScrollArea
{
    Q_OBJECT

public:
    static const int kZoomLevels = 16;
    static const int kActualSizeIndex = 7;

    explicit CColourImageWindowView(QWidget *parent = nullptr);
    ~CColourImageWindowView() override;

    // The factor of a zoom index; indexes outside 0..15 read the nearest end.
    static double zoomFactor(int index);

    // Installs a newly opened image (imageChanged follows).
    void setImage(const QImage &image);
    // 6 zoom out, 7 zoom in, 8 actual size; anything else keeps the level.
    void zoomStep(int command);
    // Sizes the image widget and the scroll bars for the current level.
    void applyZoom();
    // Switches the image widget between click and rubber-band picking.
    void setRubberBandMode(bool on);

    CImageWidget *imageWidget() const { return m_imageWidget; }
    // The picture as opened (indexed colours already widened): what picks read.
    const QImage &sourceImage() const { return m_sourceImage; }
    // What the widget shows: the source image over a checkerboard. Built on
    // request only; the widget paints the same thing piece by piece.
    QImage displayImage() const;
    // A checkerboard of 10 x 10 cells, grey 220 where (x/10 + y/10) is even
    // and grey 180 where it is odd.
    static QImage checkerboard(const QSize &size);
    int zoomIndex() const { return m_zoomIndex; }
    double zoomFactor() const { return zoomFactor(m_zoomIndex); }

signals:
    // The zoom level was set (also when it stayed the same).
    void zoomChanged(int index);
    // A new picture is shown.
    void imageChanged();

private:
    void scaleScrollBar(class QScrollBar *bar, double factor);

    CImageWidget *m_imageWidget = nullptr;
    QImage m_sourceImage;
    int m_zoomIndex = kActualSizeIndex;
    int m_reserved = 0;
};
