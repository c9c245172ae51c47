#include "screen/x11screencapture.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

#include <algorithm>
#include <cmath>

CX11ScreenCapture::CX11ScreenCapture(QObject *parent)
    : CScreenCapture(parent)
{
}

void CX11ScreenCapture::start()
{
    const QImage image = grabScreens(QGuiApplication::screens());
    if (image.isNull())
        emit failed(failureText(tr("the screen could not be read.")));
    else
        emit captured(image);
}

QImage CX11ScreenCapture::grabScreens(const QList<QScreen *> &screens)
{
    QRect desktop;
    qreal ratio = 1.0;
    for (QScreen *screen : screens) {
        desktop |= screen->geometry();
        ratio = std::max(ratio, screen->devicePixelRatio());
    }
    if (desktop.isEmpty())
        return QImage();
    // Geometries are in device-independent pixels; the picture keeps every
    // device pixel of the sharpest screen.
    const QSize size(int(std::ceil(desktop.width() * ratio)), int(std::ceil(desktop.height() * ratio)));
    QImage canvas(size, QImage::Format_RGB32);
    canvas.fill(Qt::black);
    QPainter painter(&canvas);
    bool any = false;
    for (QScreen *screen : screens) {
        const QPixmap grab = screen->grabWindow(0);
        if (grab.isNull())
            continue;
        const QRect g = screen->geometry().translated(-desktop.topLeft());
        const QRect target(int(std::lround(g.x() * ratio)), int(std::lround(g.y() * ratio)),
                           int(std::lround(g.width() * ratio)), int(std::lround(g.height() * ratio)));
        QImage pixels = grab.toImage();
        pixels.setDevicePixelRatio(1.0);
        painter.drawImage(target, pixels);
        any = true;
    }
    painter.end();
    return any ? canvas : QImage();
}
