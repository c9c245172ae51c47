#include "access/simulatedpicture.h"

#include "colour/colourvision.h"

#include <QPainter>

#include <cmath>
#include <thread>

namespace {

// Rows of the buffer simulated on a second thread when there are enough of
// them to pay for starting one.
const int kRowsForTwoThreads = 256;

// Rows first .. last - 1 of a buffer whose pixels start at bits (taken once
// on the calling thread: scanLine() would touch the image's bookkeeping
// from both threads).
void simulateRows(const ColourVision &vision, uchar *bits, qsizetype bytesPerLine, int width,
                  int first, int last)
{
    for (int y = first; y < last; ++y) {
        auto *line = reinterpret_cast<QRgb *>(bits + y * bytesPerLine);
        vision.simulatePixels(line, line, width);
    }
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

QImage SimulatedPicture::render(const QImage &image, const QRect &source, double factor,
                                const ColourVision &vision, const QBrush &checker)
{
    const QRect target = targetRect(source, factor);
    QImage buffer(target.size(), QImage::Format_RGB32);
    if (buffer.isNull())
        return buffer;
    {
        QPainter painter(&buffer);
        painter.translate(-target.topLeft());
        painter.scale(factor, factor);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, factor < 1.0);
        if (image.hasAlphaChannel())
            painter.fillRect(source, checker);
        painter.drawImage(source.topLeft(), image, source);
    }
    const int rows = buffer.height();
    uchar *bits = buffer.bits();
    const qsizetype bytesPerLine = buffer.bytesPerLine();
    const int width = buffer.width();
    if (rows < kRowsForTwoThreads) {
        simulateRows(vision, bits, bytesPerLine, width, 0, rows);
        return buffer;
    }
    // Two halves on two threads: each row is independent of the others.
    std::thread helper(simulateRows, std::cref(vision), bits, bytesPerLine, width, rows / 2, rows);
    simulateRows(vision, bits, bytesPerLine, width, 0, rows / 2);
    helper.join();
    return buffer;
}

void SimulatedPicture::paint(QPainter &painter, const QImage &image, const QRect &source,
                             double factor, const ColourVision &vision, const QBrush &checker)
{
    const QImage buffer = render(image, source, factor, vision, checker);
    if (!buffer.isNull())
        painter.drawImage(targetRect(source, factor).topLeft(), buffer);
}
