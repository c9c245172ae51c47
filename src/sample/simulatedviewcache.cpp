#include "sample/simulatedviewcache.h"

#include "sample/simulatedpicture.h"
#include "colour/colourvision.h"

#include <QPainter>
#include <QRegion>

#include <cstring>

void CSimulatedViewCache::clear()
{
    m_buffer = QImage();
    m_rect = QRect();
    m_imageKey = 0;
    m_factor = 0.0;
    m_vision.reset();
}

bool CSimulatedViewCache::holds(const QImage &image, double factor,
                                const ColourVision *vision) const
{
    return !m_rect.isEmpty() && m_imageKey == image.cacheKey() && m_factor == factor &&
           m_vision.get() == vision;
}

void CSimulatedViewCache::paint(QPainter &painter, const QImage &image, const QRect &exposed,
                                const QRect &visible, double factor,
                                const std::shared_ptr<const ColourVision> &vision,
                                const QBrush &checker)
{
    const QRect zoomed = SimulatedPicture::zoomedRect(image.size(), factor);
    const QRect shown = exposed.intersected(zoomed);
    if (shown.isEmpty() || !vision)
        return;
    if (!holds(image, factor, vision.get())) {
        clear();
        m_imageKey = image.cacheKey();
        m_factor = factor;
        m_vision = vision;
    }
    if (!m_rect.contains(shown))
        cover(visible.united(shown).intersected(zoomed), image, factor, checker);
    if (m_rect.contains(shown))
        painter.drawImage(shown.topLeft(), m_buffer, shown.translated(-m_rect.topLeft()));
}

// A buffer for `wanted`: what the old one holds of it is kept, the rest is
// drawn. After a scroll the buffer keeps its size and its pixels move
// within it, as the screen's do.
void CSimulatedViewCache::cover(const QRect &wanted, const QImage &image, double factor,
                                const QBrush &checker)
{
    const QRect kept = m_rect.intersected(wanted);
    const bool reuse = wanted.size() == m_buffer.size() && !kept.isEmpty();
    const QImage old = reuse ? QImage() : m_buffer;
    QImage next = reuse ? m_buffer : QImage(wanted.size(), QImage::Format_RGB32);
    // With the old buffer's only other holder gone, bits() below copies
    // nothing.
    m_buffer = QImage();
    if (next.isNull()) {
        m_rect = QRect();
        return;
    }
    const QImage &from = reuse ? next : old;
    if (!kept.isEmpty()) {
        moveKept(from.constBits() + from.bytesPerLine() * (kept.top() - m_rect.top()) +
                     (kept.left() - m_rect.left()) * 4,
                 from.bytesPerLine(), next, kept.topLeft() - wanted.topLeft(), kept.size());
    }
    for (const QRect &part : QRegion(wanted).subtracted(QRegion(kept))) {
        SimulatedPicture::renderInto(next, part.topLeft() - wanted.topLeft(), image, part, factor,
                                     *m_vision, checker);
        m_drawnPixels += qint64(part.width()) * part.height();
    }
    m_buffer = next;
    m_rect = wanted;
}

// Copies a block of size pixels starting at source to `to` in buffer, rows
// in the order that never overwrites a row still to be read when both are
// the same buffer.
void CSimulatedViewCache::moveKept(const uchar *source, qsizetype sourceBytesPerLine,
                                   QImage &buffer, const QPoint &to, const QSize &size)
{
    const qsizetype bytesPerLine = buffer.bytesPerLine();
    uchar *target = buffer.bits() + to.y() * bytesPerLine + to.x() * 4;
    if (target == source)
        return;
    const bool downwards = quintptr(target) > quintptr(source);
    for (int i = 0; i < size.height(); ++i) {
        const int row = downwards ? size.height() - 1 - i : i;
        std::memmove(target + row * bytesPerLine, source + row * sourceBytesPerLine,
                     size_t(size.width()) * 4);
    }
}
