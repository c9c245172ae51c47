#pragma once

#include <QImage>
#include <QRect>
#include <QtGlobal>

#include <memory>

class ColourVision;
class QBrush;
class QPainter;

// The simulated picture of the part of the view in sight, kept between
// repaints. Repaints that change nothing (the pick box moving, the marks
// redrawn, the window uncovered) then cost a copy instead of scaling and
// simulating the picture again. The buffer is in the view's own coordinates:
// it belongs to one picture (its cache key: a new or changed picture has
// another), one zoom and one simulation, and is dropped when any of them
// changes. After a scroll the part still in sight is kept and only the part
// that came into sight is drawn.
class CSimulatedViewCache
{
public:
    // Paints the view's rectangle `exposed` with the picture shown at factor
    // as seen with vision; `visible` is the part of the view in sight,
    // which is what a repaint that misses the buffer draws and keeps.
    void paint(QPainter &painter, const QImage &image, const QRect &exposed, const QRect &visible,
               double factor, const std::shared_ptr<const ColourVision> &vision,
               const QBrush &checker);
    void clear();

    // The view's rectangle the buffer holds (empty when none).
    QRect cachedRect() const { return m_rect; }
    // Screen pixels drawn and simulated so far, to tell what was reused.
    qint64 drawnPixels() const { return m_drawnPixels; }

private:
    bool holds(const QImage &image, double factor, const ColourVision *vision) const;
    void cover(const QRect &wanted, const QImage &image, double factor, const QBrush &checker);
    static void moveKept(const uchar *source, qsizetype sourceBytesPerLine, QImage &buffer,
                         const QPoint &to, const QSize &size);

    QImage m_buffer;
    QRect m_rect;
    qint64 m_imageKey = 0;
    double m_factor = 0.0;
    // Kept alive so that a new setting can never take the old one's address.
    std::shared_ptr<const ColourVision> m_vision;
    qint64 m_drawnPixels = 0;
};
