#pragma once

#include <QPoint>
#include <QSize>
#include <Qt>

// Picking from the keyboard on the image view: the arrow keys move the pick
// position one image pixel (ten with Shift), kept inside the picture, and
// Space, Return or Enter pick there as a click on that pixel would.
class CKeyboardPick
{
public:
    static const int kShiftStep = 10;

    // Moves pixel for an arrow key and returns true; other keys change
    // nothing and return false.
    static bool move(int key, Qt::KeyboardModifiers modifiers, const QSize &imageSize,
                     QPoint *pixel);
    static bool isPickKey(int key);
    // The pixel kept inside an image of that size.
    static QPoint clamped(const QPoint &pixel, const QSize &imageSize);
};
