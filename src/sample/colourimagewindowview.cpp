#include "sample/colourimagewindowview.h"

#include "colour/imageregionaverage.h"
#include "sample/imagewidget.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

const double kZoomTable[CColourImageWindowView::kZoomLevels] = {
    0.2, 0.25, 0.3, 0.4, 0.5, 0.6, 0.8, 1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0};

const int kZoomOut = 6;
const int kZoomIn = 7;
const int kZoomActual = 8;

} // namespace

CColourImageWindowView::CColourImageWindowView(QWidget *parent) : QScrollArea(parent)
{
    m_imageWidget = new CImageWidget(this);
    setBackgroundRole(QPalette::Dark);
    setWidget(m_imageWidget);
    setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    m_imageWidget->hide();
    setVisible(true);
    Q_UNUSED(m_reserved);
}

CColourImageWindowView::~CColourImageWindowView() = default;

double CColourImageWindowView::zoomFactor(int index)
{
    return kZoomTable[std::clamp(index, 0, kZoomLevels - 1)];
}

void CColourImageWindowView::setImage(const QImage &image)
{
    // Widened once here so that every pick, and every spread measured off
    // the GUI thread, reads plain 32-bit pixels straight from the picture
    // (no per-pixel reads, no copies of the region).
    if (hasPackedRgbPixels(image.format()))
        m_sourceImage = image;
    else if (image.format() == QImage::Format_Indexed8 || !image.hasAlphaChannel())
        m_sourceImage = image.convertToFormat(QImage::Format_RGB32);
    else
        m_sourceImage = image.convertToFormat(QImage::Format_ARGB32);
    m_imageWidget->setImageSize(m_sourceImage.size());
    m_imageWidget->show();
    m_imageWidget->setBoxSuppressed(false);
    emit imageChanged();
}

QImage CColourImageWindowView::displayImage() const
{
    if (m_sourceImage.isNull())
        return QImage();
    QImage display = checkerboard(m_sourceImage.size());
    QPainter painter(&display);
    painter.drawImage(0, 0, m_sourceImage);
    return display;
}

QImage CColourImageWindowView::checkerboard(const QSize &size)
{
    QImage board(size, QImage::Format_RGB32);
    QPainter painter(&board);
    for (int y = 0; y < size.height(); y += 10) {
        for (int x = 0; x < size.width(); x += 10) {
            const int grey = ((x / 10 + y / 10) % 2 == 0) ? 220 : 180;
            painter.fillRect(x, y, 10, 10, QColor(grey, grey, grey));
        }
    }
    return board;
}

void CColourImageWindowView::zoomStep(int command)
{
    if (command == kZoomActual)
        m_zoomIndex = kActualSizeIndex;
    else if (command == kZoomIn)
        m_zoomIndex = std::min(m_zoomIndex + 1, kZoomLevels - 1);
    else if (command == kZoomOut)
        m_zoomIndex = std::max(m_zoomIndex - 1, 0);
    m_imageWidget->setZoomIndex(m_zoomIndex);
    applyZoom();
}

void CColourImageWindowView::applyZoom()
{
    setWidgetResizable(false);
    emit zoomChanged(m_zoomIndex);
    const double f = zoomFactor();
    if (m_zoomIndex != kActualSizeIndex) {
        const QSize size = m_imageWidget->imageSize();
        // qRound rounds halves away from zero, as the sizes need.
        m_imageWidget->resize(qRound(size.width() * f), qRound(size.height() * f));
    } else {
        m_imageWidget->adjustSize();
    }
    scaleScrollBar(horizontalScrollBar(), f);
    scaleScrollBar(verticalScrollBar(), f);
}

// The absolute factor of the new level is applied, not the ratio between the
// old and the new one: that is how the view keeps its place when zooming.
void CColourImageWindowView::scaleScrollBar(QScrollBar *bar, double factor)
{
    const double value = factor * bar->value() + (factor - 1.0) * bar->pageStep() * 0.5;
    bar->setValue(static_cast<int>(std::trunc(value)));
}

void CColourImageWindowView::setRubberBandMode(bool on)
{
    m_imageWidget->setRubberBandMode(on);
}
