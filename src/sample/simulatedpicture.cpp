#include "sample/simulatedpicture.h"

#include "colour/colourvision.h"

#include <QBrush>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <thread>
#include <vector>

namespace {

// Rows of a buffer that pay for starting another thread; a band is never
// shorter.
const int kRowsPerBand = 128;
// More bands than cores only add threads waiting for a core.
const int kMostBands = 4;

// What a band draws: the picture's pixels in source, at factor, into the
// screen rectangle whose top left corner is origin.
struct Drawing
{
    const QImage *image;
    QRect source;
    double factor;
    const ColourVision *vision;
    QBrush checker;
    QPoint origin;
};

// Rows first .. last - 1 of the area (width pixels wide) whose first pixel
// is at bits: drawn through a painter of their own, then simulated while
// they are still in the cache. Only the pointer is shared between threads.
void drawBand(const Drawing &d, uchar *bits, int bytesPerLine, int width, int first, int last)
{
    QImage band(bits + qsizetype(first) * bytesPerLine, width, last - first, bytesPerLine,
                QImage::Format_RGB32);
    {
        QPainter painter(&band);
        painter.translate(-d.origin.x(), -(d.origin.y() + first));
        painter.scale(d.factor, d.factor);
        // As the plain view: crisp pixels zoomed in, blended zoomed out.
        painter.setRenderHint(QPainter::SmoothPixmapTransform, d.factor < 1.0);
        if (d.image->hasAlphaChannel())
            painter.fillRect(d.source, d.checker);
        painter.drawImage(d.source.topLeft(), *d.image, d.source);
    }
    for (int y = 0; y < band.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(bits + qsizetype(first + y) * bytesPerLine);
        d.vision->simulatePixels(line, line, width);
    }
}

void drawArea(const Drawing &d, uchar *bits, int bytesPerLine, const QSize &size)
{
    const int cores = int(std::max(1u, std::thread::hardware_concurrency()));
    const int bands = std::clamp(size.height() / kRowsPerBand, 1, std::min(cores, kMostBands));
    std::vector<std::thread> helpers;
    for (int b = 1; b < bands; ++b) {
        helpers.emplace_back(drawBand, d, bits, bytesPerLine, size.width(),
                             size.height() * b / bands, size.height() * (b + 1) / bands);
    }
    drawBand(d, bits, bytesPerLine, size.width(), 0, size.height() / bands);
    for (std::thread &helper : helpers)
        helper.join();
}

} // namespace

QRect SimulatedPicture::targetRect(const QRect &source, double factor)
{
    const int left = int(std::floor(source.left() * factor));
    const int top = int(std::floor(source.top() * factor));
    const int right = int(std::ceil((source.right() + 1) * factor));
    const int bottom = int(std::ceil((source.bottom() + 1) * factor));
    return QRect(QPoint(left, top), QPoint(right - 1, bottom - 1));
}

QRect SimulatedPicture::sourceRect(const QRect &target, double factor, const QSize &imageSize)
{
    const QPoint first(int(std::floor(target.left() / factor)) - 1,
                       int(std::floor(target.top() / factor)) - 1);
    const QPoint last(int(std::ceil((target.right() + 1) / factor)),
                      int(std::ceil((target.bottom() + 1) / factor)));
    return QRect(first, last).intersected(QRect(QPoint(0, 0), imageSize));
}

QRect SimulatedPicture::zoomedRect(const QSize &imageSize, double factor)
{
    // Rounded as the view sizes its picture.
    return QRect(0, 0, qRound(imageSize.width() * factor), qRound(imageSize.height() * factor));
}

QImage SimulatedPicture::render(const QImage &image, const QRect &source, double factor,
                                const ColourVision &vision, const QBrush &checker)
{
    const QRect target = targetRect(source, factor);
    QImage buffer(target.size(), QImage::Format_RGB32);
    if (buffer.isNull() || source.isEmpty())
        return buffer;
    const Drawing drawing{&image, source, factor, &vision, checker, target.topLeft()};
    drawArea(drawing, buffer.bits(), int(buffer.bytesPerLine()), buffer.size());
    return buffer;
}

void SimulatedPicture::renderInto(QImage &buffer, const QPoint &at, const QImage &image,
                                  const QRect &target, double factor, const ColourVision &vision,
                                  const QBrush &checker)
{
    const QRect area = target.intersected(zoomedRect(image.size(), factor));
    const QRect into = QRect(at + area.topLeft() - target.topLeft(), area.size());
    if (area.isEmpty() || buffer.format() != QImage::Format_RGB32 ||
        !buffer.rect().contains(into))
        return;
    const int bytesPerLine = int(buffer.bytesPerLine());
    uchar *bits = buffer.bits() + qsizetype(into.top()) * bytesPerLine + into.left() * 4;
    const Drawing drawing{&image, sourceRect(area, factor, image.size()), factor, &vision,
                          checker, area.topLeft()};
    drawArea(drawing, bits, bytesPerLine, area.size());
}
