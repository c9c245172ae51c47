#include "screen/capturebackend.h"

#include "screen/portalscreencapture.h"
#include "screen/x11screencapture.h"

#include <QDBusConnection>
#include <QGuiApplication>

CCaptureBackend::Kind CCaptureBackend::choose(const QProcessEnvironment &environment,
                                              const QString &platformName)
{
    Q_UNUSED(platformName)
    const bool wayland =
        !environment.value(QStringLiteral("WAYLAND_DISPLAY")).isEmpty()
        || environment.value(QStringLiteral("XDG_SESSION_TYPE")).compare(QLatin1String("wayland"),
                                                                         Qt::CaseInsensitive)
               == 0;
    return wayland ? Portal : X11;
}

QString CCaptureBackend::name(Kind kind)
{
    return kind == Portal ? QStringLiteral("portal") : QStringLiteral("x11");
}

std::unique_ptr<CScreenCapture> CCaptureBackend::create()
{
    if (choose(QProcessEnvironment::systemEnvironment(), QGuiApplication::platformName()) == Portal)
        return std::make_unique<CPortalScreenCapture>(QDBusConnection::sessionBus());
    return std::make_unique<CX11ScreenCapture>();
}
