#include "sample/imagewidget.h"

#include "sample/simulatedpicture.h"
#include "sample/simulatedviewcache.h"
#include "colour/colourvision.h"
#include "colour/pickgeometry.h"
#include "sample/colourimagewindowview.h"
#include "sample/keyboardpick.h"
#include "sample/multipleselect.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRubberBand>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

const int kMarkFontPixelSize = 16;
const int kMarkTextGap = 2;

int truncated(double v)
{
    return static_cast<int>(std::trunc(v));
}

QFont markFont(const QFont &base)
{
    QFont font(base);
    font.setPixelSize(kMarkFontPixelSize);
    return font;
}

// A cell pattern two cells square, repeated by a texture brush: the
// checkerboard never exists at the size of the picture.
QBrush checkerBrush()
{
    static const QImage tile = CColourImageWindowView::checkerboard(QSize(20, 20));
    return QBrush(tile);
}

} // namespace

CImageWidget::CImageWidget(CColourImageWindowView *view)
    : QLabel(view), m_view(view), m_simulated(std::make_unique<CSimulatedViewCache>())
{
    setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    setMouseTracking(true);
    setBackgroundRole(QPalette::Base);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setScaledContents(true);
    setFocusPolicy(Qt::StrongFocus);

    m_pickBox = new QLabel(this);
    m_pickBox->hide();
    m_pickBox->setAttribute(Qt::WA_TranslucentBackground);
    m_pickBox->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_pickBox->setMouseTracking(true);
    m_pickBox->setFrameShape(QFrame::Box);

    m_rubberBand = new QRubberBand(QRubberBand::Rectangle, this);
    m_rubberBand->hide();
}

CImageWidget::~CImageWidget() = default;

void CImageWidget::setImageSize(const QSize &size)
{
    m_imageSize = size;
    // A new picture starts without marks, the keyboard at its first pixel.
    m_marks.clear();
    m_keyPixel = QPoint(0, 0);
    m_keyboardActive = false;
    updateGeometry();
    update();
}

// At actual size the widget takes the picture's own size.
QSize CImageWidget::sizeHint() const
{
    return m_imageSize;
}

void CImageWidget::setPickSize(int size)
{
    m_pickSize = size;
    m_lineWidth = size >= 7 ? 2 : 1;
}

void CImageWidget::setRubberBandMode(bool on)
{
    if (on) {
        unsetCursor();
        setBoxSuppressed(true);
        m_rubberBandMode = true;
    } else {
        setBoxSuppressed(false);
        m_rubberBandMode = false;
    }
}

void CImageWidget::setBoxSuppressed(bool suppressed)
{
    m_boxSuppressed = suppressed;
    updatePickBoxVisibility();
}

void CImageWidget::setMouseInside(bool inside)
{
    m_mouseInside = inside;
    updatePickBoxVisibility();
}

void CImageWidget::updatePickBoxVisibility()
{
    m_pickBox->setVisible(!m_boxSuppressed && (m_mouseInside || m_keyboardActive));
}

QPoint CImageWidget::imagePoint(const QPoint &widgetPoint, double factor)
{
    return QPoint(truncated(widgetPoint.x() / factor), truncated(widgetPoint.y() / factor));
}

// Positions come from the screen position of the event, rounded, so that
// every handler agrees on the point whatever the event's own local position.
QPoint CImageWidget::widgetPoint(const QMouseEvent *event) const
{
    const QPointF global = VersionCompat::globalPosition(event);
    return mapFromGlobal(QPoint(qRound(global.x()), qRound(global.y())));
}

double CImageWidget::viewFactor() const
{
    return m_view->zoomFactor();
}

void CImageWidget::mouseMoveEvent(QMouseEvent *event)
{
    QLabel::mouseMoveEvent(event);
    // Scrolling under a still cursor sends moves too: while the keys drive
    // the box, only a cursor that really moved takes it back.
    const QPoint global = VersionCompat::globalPosition(event).toPoint();
    if (m_keyboardActive && global == m_lastMouseGlobal)
        return;
    m_lastMouseGlobal = global;
    const QPoint p = widgetPoint(event);
    showCursorPosition(p);
    m_keyboardActive = false;
    m_keyPixel = CKeyboardPick::clamped(imagePoint(p, viewFactor()), m_view->sourceImage().size());
    if (m_rubberBandMode) {
        m_rubberBand->setGeometry(VersionCompat::normalised(QRect(m_origin, p)));
        return;
    }
    if (!m_boxSuppressed && m_mouseInside)
        movePickBox(p);
    else
        m_pickBox->hide();
}

void CImageWidget::showCursorPosition(const QPoint &point)
{
    // Only the text is clamped; a cursor exactly on the right or bottom edge
    // keeps its coordinate.
    int x = point.x() > width() ? width() - 1 : point.x();
    int y = point.y() > height() ? height() - 1 : point.y();
    x = std::max(x, 0);
    y = std::max(y, 0);
    const double f = viewFactor();
    const QPoint image = imagePoint(QPoint(x, y), f);
    QString text;
    if (m_rubberBandMode && m_dragging) {
        const QPoint start = imagePoint(m_origin, f);
        text = tr("Cursor Start XY:(%1,%2) Size WH:(%3,%4) Pos XY:(%5,%6)")
                   .arg(start.x())
                   .arg(start.y())
                   .arg(std::abs(image.x() - start.x()))
                   .arg(std::abs(image.y() - start.y()))
                   .arg(image.x())
                   .arg(image.y());
    } else {
        text = tr("Cursor Pos XY:(%1,%2)").arg(image.x()).arg(image.y());
    }
    emit statusMessage(text);
}

void CImageWidget::movePickBox(const QPoint &point)
{
    m_pickBox->setLineWidth(m_lineWidth);
    const double f = CColourImageWindowView::zoomFactor(m_zoomIndex);
    const int side = truncated(f * m_pickSize) + 2 * m_lineWidth;
    m_pickBox->setFixedSize(side, side);
    m_pickBox->show();
    m_pickBox->raise();
    m_pickBox->move(point.x() - side / 2, point.y() - side / 2);
}

void CImageWidget::enterEvent(VersionCompat::EnterEvent *event)
{
    QLabel::enterEvent(event);
    setMouseInside(true);
}

void CImageWidget::leaveEvent(QEvent *event)
{
    QLabel::leaveEvent(event);
    emit statusMessage(QString());
    m_keyboardActive = false;
    setMouseInside(false);
}

void CImageWidget::keyPressEvent(QKeyEvent *event)
{
    const QSize size = m_view->sourceImage().size();
    // Rubber bands are drawn with the mouse; there the keys scroll the view.
    if (m_rubberBandMode || size.isEmpty()) {
        QLabel::keyPressEvent(event);
        return;
    }
    if (CKeyboardPick::move(event->key(), event->modifiers(), size, &m_keyPixel)) {
        m_keyboardActive = true;
        showKeyboardPosition();
    } else if (CKeyboardPick::isPickKey(event->key())) {
        m_keyboardActive = true;
        showKeyboardPosition();
        // The square a click on that pixel at actual size reads.
        pick(clickPickRect(m_keyPixel, 1.0, m_pickSize, size));
    } else {
        QLabel::keyPressEvent(event);
        return;
    }
    event->accept();
}

void CImageWidget::focusOutEvent(QFocusEvent *event)
{
    QLabel::focusOutEvent(event);
    m_keyboardActive = false;
    updatePickBoxVisibility();
}

// The status text and the pick box as the mouse would show them over the
// keyboard's pixel, and the view scrolled to keep the box in sight.
void CImageWidget::showKeyboardPosition()
{
    emit statusMessage(tr("Cursor Pos XY:(%1,%2)").arg(m_keyPixel.x()).arg(m_keyPixel.y()));
    const double f = viewFactor();
    const QPoint centre(truncated((m_keyPixel.x() + 0.5) * f),
                        truncated((m_keyPixel.y() + 0.5) * f));
    if (!m_boxSuppressed)
        movePickBox(centre);
    const int margin = m_pickBox->width();
    m_view->ensureVisible(centre.x(), centre.y(), margin, margin);
}

void CImageWidget::setColourVision(std::shared_ptr<const ColourVision> vision)
{
    m_vision = std::move(vision);
    update();
}

void CImageWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QLabel::mousePressEvent(event);
        return;
    }
    const QPoint p = widgetPoint(event);
    if (m_rubberBandMode) {
        startRubberBand(p);
    } else {
        m_dragging = false;
        pick(clickPickRect(p, viewFactor(), m_pickSize, m_view->sourceImage().size()));
    }
    QLabel::mousePressEvent(event);
}

void CImageWidget::startRubberBand(const QPoint &point)
{
    m_origin = point;
    m_dragging = true;
    m_rubberBand->setGeometry(QRect(m_origin, QSize()));
    m_rubberBand->show();
}

// Release does not look at the button: any release while rubber-band picking
// is on reads the band's last rectangle.
void CImageWidget::mouseReleaseEvent(QMouseEvent *event)
{
    QLabel::mouseReleaseEvent(event);
    m_dragging = false;
    if (!m_rubberBandMode)
        return;
    const QRect band = VersionCompat::normalised(m_rubberBand->geometry());
    m_rubberBand->hide();
    pick(bandPickRect(band, viewFactor(), m_view->sourceImage().size()));
}

void CImageWidget::pick(const QRect &imageRect)
{
    emit picked(imageRect);
}

void CImageWidget::drawSelectionMarks(const QVector<CMultipleSelect *> &entries)
{
    m_marks.clear();
    if (!m_imageSize.isEmpty()) {
        for (int i = 0; i < entries.size(); ++i) {
            if (entries.at(i)->inUse())
                m_marks.append(markFor(i + 1, entries.at(i)->rect()));
        }
    }
    update();
}

CImageWidget::SelectionMark CImageWidget::markFor(int number, const QRect &rect) const
{
    const int W = m_imageSize.width();
    const int H = m_imageSize.height();
    // Near the edges the frame is pulled in (the width, not the right edge,
    // is compared with W - 3).
    const int left = rect.left() <= 1 ? 1 : rect.left() - 1;
    const int top = rect.top() <= 1 ? 1 : rect.top() - 1;
    const int right = rect.width() > W - 3 ? W - 3 : rect.right() + 1;
    const int bottom = rect.height() > H - 3 ? H - 3 : rect.bottom() + 1;

    SelectionMark mark;
    mark.number = number;
    mark.inner = QRect(QPoint(left, top), QPoint(right, bottom));
    mark.outer = mark.inner.adjusted(-1, -1, 1, 1);
    const QFontMetrics metrics(markFont(font()));
    const QString text = QString::number(number);
    const int textWidth = metrics.horizontalAdvance(text);
    const int outerEnd = mark.outer.left() + mark.outer.width();
    const int boxLeft = outerEnd < W / 2 ? outerEnd + kMarkTextGap
                                         : mark.outer.left() - kMarkTextGap - textWidth;
    const QRect box(boxLeft, mark.outer.top(), textWidth, mark.outer.height());
    mark.textBox = metrics.boundingRect(box, Qt::AlignLeft | Qt::AlignVCenter, text);
    return mark;
}

void CImageWidget::paintEvent(QPaintEvent *event)
{
    if (m_view->sourceImage().isNull() || exposedImageRect(event->rect()).isEmpty())
        return;
    QPainter painter(this);
    paintPicture(painter, event->rect());
    paintMarks(painter);
}

// The image pixels under a widget rectangle, with a pixel to spare on each
// side so that smooth scaling blends across the edges of separate repaints.
QRect CImageWidget::exposedImageRect(const QRect &widgetRect) const
{
    return SimulatedPicture::sourceRect(widgetRect, viewFactor(), m_view->sourceImage().size());
}

void CImageWidget::paintPicture(QPainter &painter, const QRect &exposed)
{
    const QImage &image = m_view->sourceImage();
    const double f = viewFactor();
    if (m_vision && !m_vision->isNormal()) {
        const QWidget *port = m_view->viewport();
        const QRect visible(mapFrom(port, QPoint(0, 0)), port->size());
        return m_simulated->paint(painter, image, exposed, visible, f, m_vision, checkerBrush());
    }
    const QRect source = exposedImageRect(exposed);
    painter.save();
    painter.scale(f, f);
    // Crisp pixels when zoomed in; when zoomed out, blending the sampled
    // pixels keeps fine detail from flickering in and out.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, f < 1.0);
    if (image.hasAlphaChannel())
        painter.fillRect(source, checkerBrush());
    painter.drawImage(source.topLeft(), image, source);
    painter.restore();
}

// Marks invert what is under them, as if drawn onto the picture at image
// resolution and scaled with it.
void CImageWidget::paintMarks(QPainter &painter) const
{
    if (m_marks.isEmpty())
        return;
    painter.save();
    painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    for (const SelectionMark &mark : m_marks) {
        paintMarkFrame(painter, mark.inner);
        paintMarkFrame(painter, mark.outer);
    }
    const double f = viewFactor();
    painter.scale(f, f);
    painter.setPen(QPen(Qt::white, 1));
    painter.setFont(markFont(font()));
    for (const SelectionMark &mark : m_marks)
        painter.drawText(mark.textBox, Qt::AlignLeft | Qt::AlignVCenter,
                         QString::number(mark.number));
    painter.restore();
}

// Where image coordinate x starts on the widget: the first widget pixel whose
// centre samples it, as the nearest-neighbour scaling of the picture does.
int CImageWidget::toWidget(int imageCoordinate) const
{
    return int(std::ceil(imageCoordinate * viewFactor() - 0.5));
}

// The widget pixels [start, end) that show image pixels first..last; never
// empty, so that a mark stays visible when zoomed out.
CImageWidget::Span CImageWidget::widgetSpan(int first, int last) const
{
    const int start = toWidget(first);
    return {start, std::max(toWidget(last + 1), start + 1)};
}

// One image pixel thick frame around imageRect, painted as four strips that
// never overlap, so that no pixel is inverted twice.
void CImageWidget::paintMarkFrame(QPainter &painter, const QRect &imageRect) const
{
    const QColor white(Qt::white);
    const Span cols = widgetSpan(imageRect.left(), imageRect.right());
    const Span rows = widgetSpan(imageRect.top(), imageRect.bottom());
    const int width = cols.end - cols.start;

    const int topEnd = std::min(widgetSpan(imageRect.top(), imageRect.top()).end, rows.end);
    painter.fillRect(QRect(cols.start, rows.start, width, topEnd - rows.start), white);
    const int bottomStart =
        std::max(widgetSpan(imageRect.bottom(), imageRect.bottom()).start, topEnd);
    if (bottomStart < rows.end)
        painter.fillRect(QRect(cols.start, bottomStart, width, rows.end - bottomStart), white);

    const int middleHeight = bottomStart - topEnd;
    if (middleHeight <= 0)
        return;
    const int leftEnd = std::min(widgetSpan(imageRect.left(), imageRect.left()).end, cols.end);
    painter.fillRect(QRect(cols.start, topEnd, leftEnd - cols.start, middleHeight), white);
    const int rightStart =
        std::max(widgetSpan(imageRect.right(), imageRect.right()).start, leftEnd);
    if (rightStart < cols.end)
        painter.fillRect(QRect(rightStart, topEnd, cols.end - rightStart, middleHeight), white);
}
