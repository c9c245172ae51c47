#include "screen/screenoverlay.h"

#include "colour/pickgeometry.h"
#include "colour/qtversioncompat.h"
#include "sample/keyboardpick.h"
#include "screen/loupe.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>

#include <cmath>

namespace {

const int kLoupeOffset = 24;

} // namespace

CScreenOverlay::CScreenOverlay(const QImage &capture, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_capture(capture)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(tr("Pick from Screen"));
    m_loupe = new CLoupe(m_capture, this);
    resize(m_capture.size());
    moveTo(QPoint(m_capture.width() / 2, m_capture.height() / 2));
}

CScreenOverlay::~CScreenOverlay() = default;

void CScreenOverlay::setPickSize(int size)
{
    m_loupe->setPickSize(size);
}

void CScreenOverlay::setRgbAverage(bool rgb)
{
    m_loupe->setRgbAverage(rgb);
    m_loupe->showPixel(m_pixel);
}

void CScreenOverlay::setMatcher(const CColourMatcher *matcher)
{
    m_loupe->setMatcher(matcher);
    m_loupe->showPixel(m_pixel);
}

void CScreenOverlay::showOverDesktop(const QRect &desktop, bool singleScreen)
{
    setGeometry(desktop);
    if (singleScreen)
        showFullScreen();
    else
        show();
    raise();
    activateWindow();
    setFocus(Qt::OtherFocusReason);
    moveTo(pixelAt(mapFromGlobal(QCursor::pos())));
}

QPoint CScreenOverlay::pixelAt(const QPoint &widgetPoint) const
{
    if (width() <= 0 || height() <= 0)
        return QPoint();
    const double sx = double(m_capture.width()) / width();
    const double sy = double(m_capture.height()) / height();
    return QPoint(int(std::floor(widgetPoint.x() * sx)), int(std::floor(widgetPoint.y() * sy)));
}

QRect CScreenOverlay::widgetRectOf(const QRect &pixels) const
{
    const double sx = m_capture.width() > 0 ? double(width()) / m_capture.width() : 1.0;
    const double sy = m_capture.height() > 0 ? double(height()) / m_capture.height() : 1.0;
    return QRect(QPoint(int(std::floor(pixels.left() * sx)), int(std::floor(pixels.top() * sy))),
                 QPoint(int(std::ceil((pixels.right() + 1) * sx)) - 1,
                        int(std::ceil((pixels.bottom() + 1) * sy)) - 1));
}

QRect CScreenOverlay::bandPixels() const
{
    return m_dragging ? VersionCompat::normalised(QRect(m_originPixel, m_pixel)) : QRect();
}

void CScreenOverlay::moveTo(const QPoint &pixel)
{
    const QRect oldBand = m_dragging ? widgetRectOf(bandPixels()) : QRect();
    m_pixel = CKeyboardPick::clamped(pixel, m_capture.size());
    m_loupe->showPixel(m_pixel);
    placeLoupe();
    if (m_dragging)
        update(oldBand.united(widgetRectOf(bandPixels())).adjusted(-2, -2, 2, 2));
}

// Below right of the cursor, or on the other side where the screen ends.
void CScreenOverlay::placeLoupe()
{
    const QRect cursor = widgetRectOf(QRect(m_pixel, QSize(1, 1)));
    int x = cursor.right() + kLoupeOffset;
    int y = cursor.bottom() + kLoupeOffset;
    if (x + m_loupe->width() > width())
        x = cursor.left() - kLoupeOffset - m_loupe->width();
    if (y + m_loupe->height() > height())
        y = cursor.top() - kLoupeOffset - m_loupe->height();
    m_loupe->move(std::max(x, 0), std::max(y, 0));
}

void CScreenOverlay::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QRect area = event->rect();
    if (size() == m_capture.size()) {
        painter.drawImage(area.topLeft(), m_capture, area);
    } else {
        // Only the part exposed, scaled from the capture's own pixels.
        const double sx = double(m_capture.width()) / width();
        const double sy = double(m_capture.height()) / height();
        painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter.drawImage(QRectF(area), m_capture,
                          QRectF(area.x() * sx, area.y() * sy, area.width() * sx, area.height() * sy));
    }
    if (m_dragging) {
        painter.setPen(QPen(Qt::white, 1, Qt::DashLine));
        painter.setBrush(QColor(255, 255, 255, 40));
        painter.drawRect(widgetRectOf(bandPixels()).adjusted(0, 0, -1, -1));
    }
    paintHint(painter);
}

void CScreenOverlay::paintHint(QPainter &painter) const
{
    const QString hint = tr("Click to pick, drag to pick an area, arrow keys move, "
                            "Enter picks, Esc cancels");
    const QRect box = painter.fontMetrics().boundingRect(hint).adjusted(-8, -4, 8, 4);
    const QRect place(QPoint((width() - box.width()) / 2, 8), box.size());
    painter.fillRect(place, QColor(32, 32, 32, 220));
    painter.setPen(Qt::white);
    painter.drawText(place, Qt::AlignCenter, hint);
}

void CScreenOverlay::mouseMoveEvent(QMouseEvent *event)
{
    if (m_pressed && !m_dragging
        && (event->pos() - m_pressPoint).manhattanLength() >= QApplication::startDragDistance())
        m_dragging = true;
    moveTo(pixelAt(event->pos()));
}

void CScreenOverlay::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_done)
        return;
    m_pressed = true;
    m_dragging = false;
    m_pressPoint = event->pos();
    moveTo(pixelAt(event->pos()));
    m_originPixel = m_pixel;
}

void CScreenOverlay::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_pressed || m_done)
        return;
    moveTo(pixelAt(event->pos()));
    m_pressed = false;
    m_done = true;
    // The band as the page's rubber band would hold it at actual size.
    const QRect rect = m_dragging ? bandPickRect(bandPixels(), 1.0, m_capture.size())
                                  : m_loupe->pickRect();
    m_dragging = false;
    emit picked(rect);
}

void CScreenOverlay::keyPressEvent(QKeyEvent *event)
{
    if (m_done)
        return;
    if (event->key() == Qt::Key_Escape) {
        m_done = true;
        emit cancelled();
    } else if (CKeyboardPick::move(event->key(), event->modifiers(), m_capture.size(), &m_pixel)) {
        moveTo(m_pixel);
    } else if (CKeyboardPick::isPickKey(event->key()) && !m_pressed) {
        m_done = true;
        emit picked(m_loupe->pickRect());
    } else {
        QWidget::keyPressEvent(event);
    }
}
