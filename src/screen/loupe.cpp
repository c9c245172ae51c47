#include "screen/loupe.h"

#include "colour/colourformat.h"
#include "colour/imageregionaverage.h"
#include "colour/matchscore.h"
#include "colour/pickgeometry.h"
#include "tables/colourmatcher.h"

#include <QPainter>

namespace {

const int kSide = CLoupe::kSpan * CLoupe::kZoom;

} // namespace

CLoupe::CLoupe(const QImage &capture, QWidget *parent)
    : QWidget(parent)
    , m_capture(capture)
{
    setFixedSize(kSide, kSide + kTextHeight);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
}

void CLoupe::setPickSize(int size)
{
    m_pickSize = qBound(1, size, 9);
    showPixel(m_pixel);
}

void CLoupe::showPixel(const QPoint &pixel)
{
    m_pixel = pixel;
    m_pickRect = clickPickRect(pixel, 1.0, m_pickSize, m_capture.size());
    RgbColour colour;
    if (averageImageRegion(m_capture, m_pickRect, m_rgbAverage, &colour)) {
        m_hex = colourName(colour.red, colour.green, colour.blue);
        nameNearest(colour);
    } else {
        m_hex.clear();
        m_name.clear();
        m_nearest.clear();
    }
    update();
}

void CLoupe::nameNearest(const RgbColour &colour)
{
    const QVector<CMatchResult> best =
        m_matcher ? m_matcher->best(colour, 1) : QVector<CMatchResult>();
    if (best.isEmpty()) {
        m_nearest.clear();
        m_name = tr("No library table to name it from");
        return;
    }
    const CMatchResult &entry = best.first();
    m_nearest = entry.name;
    m_name = tr("%1  \u0394E %2  %3")
                 .arg(entry.name)
                 .arg(double(entry.deltaE), 0, 'f', 1)
                 .arg(verdictShortText(verdict(entry.deltaE)));
}

QRect CLoupe::outlineRect() const
{
    const int first = m_pixel.x() - kSpan / 2;
    const int top = m_pixel.y() - kSpan / 2;
    return QRect((m_pickRect.x() - first) * kZoom, (m_pickRect.y() - top) * kZoom,
                 m_pickRect.width() * kZoom, m_pickRect.height() * kZoom);
}

void CLoupe::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintMagnified(painter);
    const QRect text(0, kSide, width(), kTextHeight);
    painter.fillRect(text, QColor(32, 32, 32));
    painter.setPen(Qt::white);
    const QRect inner = text.adjusted(6, 2, -6, -2);
    const QString nameLine =
        painter.fontMetrics().elidedText(m_name, Qt::ElideRight, inner.width());
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("%1\n%2").arg(m_hex, nameLine));
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// Nearest-neighbour enlargement: every screen pixel a crisp kZoom square.
void CLoupe::paintMagnified(QPainter &painter) const
{
    painter.fillRect(QRect(0, 0, kSide, kSide), Qt::black);
    const QRect around(m_pixel.x() - kSpan / 2, m_pixel.y() - kSpan / 2, kSpan, kSpan);
    const QRect shown = around & m_capture.rect();
    if (!shown.isEmpty()) {
        const QRect target((shown.x() - around.x()) * kZoom, (shown.y() - around.y()) * kZoom,
                           shown.width() * kZoom, shown.height() * kZoom);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter.drawImage(target, m_capture, shown);
    }
    // The square in black with a white inner line: visible on any colour.
    const QRect outline = outlineRect();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 2));
    painter.drawRect(outline.adjusted(-1, -1, 0, 0));
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(outline.adjusted(0, 0, -1, -1));
}
