#pragma once

// The few spellings that Qt 5.15 and Qt 6 do not share. Everything else in
// the code uses what both versions offer, so the version test lives here
// alone and each caller stays free of it.

#include <QImageReader>
#include <QMouseEvent>
#include <QPointF>
#include <QRect>
#include <QTextStream>
#include <QtGlobal>

#include <utility>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QStringConverter>
#endif

namespace VersionCompat {

// The event of a widget's enterEvent: Qt 6 passes the position with it.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
using EnterEvent = QEnterEvent;
#else
using EnterEvent = QEvent;
#endif

// Where a mouse event happened on the screen, in device-independent pixels
// with the fraction a high-resolution screen gives.
inline QPointF globalPosition(const QMouseEvent *event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition();
#else
    return event->screenPos();
#endif
}

// Makes a text stream read and write UTF-8 (Qt 6's default; Qt 5 would use
// the locale's encoding).
inline void setUtf8(QTextStream &stream)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    stream.setEncoding(QStringConverter::Utf8);
#else
    stream.setCodec("UTF-8");
#endif
}

// Lets `reader` decode pictures of up to `bytes`. Qt 6 refuses more than
// 128 MiB by default (a 6000 x 6000 photograph); Qt 5 has no limit of its
// own, and the caller checks its own before decoding.
inline void setAllocationLimit(QImageReader &reader, qint64 bytes)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    reader.setAllocationLimit(int((bytes + (1 << 20) - 1) >> 20));
#else
    Q_UNUSED(reader)
    Q_UNUSED(bytes)
#endif
}

// The rectangle between two corners given in either order, both corners
// inside it, as QRect::normalized() gives it in Qt 5. Qt 6's normalized()
// moves both swapped edges one pixel inwards, which would shrink a band
// dragged or typed from right to left by a row and a column.
inline QRect normalised(const QRect &rect)
{
    int x1 = rect.left();
    int x2 = rect.right();
    int y1 = rect.top();
    int y2 = rect.bottom();
    if (x2 < x1 - 1)
        std::swap(x1, x2);
    if (y2 < y1 - 1)
        std::swap(y1, y2);
    QRect out;
    out.setCoords(x1, y1, x2, y2);
    return out;
}

} // namespace VersionCompat
