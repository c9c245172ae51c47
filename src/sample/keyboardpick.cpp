#include "sample/keyboardpick.h"

#include <algorithm>

bool CKeyboardPick::move(int key, Qt::KeyboardModifiers modifiers, const QSize &imageSize,
                         QPoint *pixel)
{
    const int step = modifiers.testFlag(Qt::ShiftModifier) ? kShiftStep : 1;
    QPoint delta;
    switch (key) {
    case Qt::Key_Left:
        delta = QPoint(-step, 0);
        break;
    case Qt::Key_Right:
        delta = QPoint(step, 0);
        break;
    case Qt::Key_Up:
        delta = QPoint(0, -step);
        break;
    case Qt::Key_Down:
        delta = QPoint(0, step);
        break;
    default:
        return false;
    }
    *pixel = clamped(*pixel + delta, imageSize);
    return true;
}

bool CKeyboardPick::isPickKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

QPoint CKeyboardPick::clamped(const QPoint &pixel, const QSize &imageSize)
{
    return QPoint(std::max(0, std::min(pixel.x(), imageSize.width() - 1)),
                  std::max(0, std::min(pixel.y(), imageSize.height() - 1)));
}
