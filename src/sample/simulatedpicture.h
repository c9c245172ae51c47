#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

class ColourVision;
class QBrush;

// Draws part of a picture as seen with a colour vision deficiency: the part
// is drawn first into a buffer of screen pixels exactly as the plain view
// draws it (nearest-neighbour when zoomed in, smooth when zoomed out, a
// checkerboard under transparent pictures), then the buffer is simulated
// through the vision's tables. Below 100 % that simulates the picture
// already scaled down, never the larger source region. Large buffers are
// cut into bands of rows, drawn and simulated on the cores side by side:
// each band is independent of the others.
class SimulatedPicture
{
public:
    // The screen rectangle that source covers at factor (screen pixels per
    // picture pixel).
    static QRect targetRect(const QRect &source, double factor);
    // The picture pixels under the screen rectangle target at factor, with a
    // pixel to spare on each side so that smooth scaling blends across the
    // edges of separately drawn parts; clipped to the picture.
    static QRect sourceRect(const QRect &target, double factor, const QSize &imageSize);
    // The picture shown at factor covers this screen rectangle.
    static QRect zoomedRect(const QSize &imageSize, double factor);

    // The buffer for the picture's pixels in source (already clipped to it),
    // to be put on screen at targetRect(source, factor).
    static QImage render(const QImage &image, const QRect &source, double factor,
                         const ColourVision &vision, const QBrush &checker);
    // Draws the screen rectangle target (within zoomedRect()) into buffer,
    // an RGB32 image, with its top left corner at `at`.
    static void renderInto(QImage &buffer, const QPoint &at, const QImage &image,
                           const QRect &target, double factor, const ColourVision &vision,
                           const QBrush &checker);
};
