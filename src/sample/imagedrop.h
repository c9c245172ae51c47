#pragma once

#include <QString>

class QMimeData;

// What a drop onto the main window offers as a picture: the first local
// file among its URLs (file:// URLs included). Everything else is refused
// with the same message an unreadable image gets, naming what was dropped.
class CImageDrop
{
public:
    // The local file path, or empty when the drop holds none.
    static QString localFile(const QMimeData *mime);
    // A short text naming a drop that is not a file, for the message.
    static QString describe(const QMimeData *mime);
};
