#pragma once

#include <QImage>
#include <QRect>

class ColourVision;
class QPainter;

// Paints part of a picture as seen with a colour vision deficiency, at paint
// time and only where the view is exposed: the exposed part is drawn first
// into a buffer of screen pixels exactly as the plain view draws it
// (nearest-neighbour when zoomed in, smooth when zoomed out, a checkerboard
// under transparent pictures), then the buffer is simulated through the
// vision's tables and put on screen. The work is bounded by the viewport,
// whatever the picture's size or the zoom.
class SimulatedPicture
{
public:
    // source: the picture's pixels to show (already clipped to it); factor:
    // screen pixels per picture pixel. The painter is untransformed.
    static void paint(QPainter &painter, const QImage &image, const QRect &source, double factor,
                      const ColourVision &vision, const QBrush &checker);

    // The screen rectangle that source covers at factor.
    static QRect targetRect(const QRect &source, double factor);
    // The buffer paint() would put on screen at targetRect(source, factor).
    static QImage render(const QImage &image, const QRect &source, double factor,
                         const ColourVision &vision, const QBrush &checker);
};
