#pragma once

#include "screen/screencapture.h"

#include <QList>

class QScreen;

// Reads the screens straight from the X server: each screen's root window
// grabbed and put where the screen stands in the desktop, at device pixels.
// Under a Wayland compositor this comes back black or empty, so it is only
// chosen for X11 sessions.
class CX11ScreenCapture : public CScreenCapture
{
    Q_OBJECT

public:
    explicit CX11ScreenCapture(QObject *parent = nullptr);

    void start() override;
    // The screens composed into one picture; null when none could be read.
    static QImage grabScreens(const QList<QScreen *> &screens);
};
