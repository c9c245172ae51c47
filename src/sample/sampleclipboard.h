#pragma once

#include "colour/rgbcolour.h"

#include <QObject>

class QImage;
class QWidget;

// Copy and paste on the sampling page: Ctrl+C and Ctrl+V, two keys the
// page's own commands leave free, active wherever the focus is on the page.
// Ctrl+C asks the page for its sample (copyRequested), since only the page
// knows whether there is one; Ctrl+V reads the clipboard here and hands a
// picture on, or a message saying there is none.
class CSampleClipboard : public QObject
{
    Q_OBJECT

public:
    // Adds the two keys to `page`.
    explicit CSampleClipboard(QWidget *page);

    // Puts the colour on the clipboard as "#rrggbb".
    static void copyColour(const RgbColour &colour);
    // Signals the clipboard's picture, or says that it holds none.
    void paste();

signals:
    void copyRequested();
    void imagePasted(const QImage &image);
    void statusMessage(const QString &text);
};
