#pragma once

#include <QProcessEnvironment>
#include <QString>

#include <memory>

class CScreenCapture;

// Which capture "Pick from Screen" uses, decided by the desktop session and
// not by Qt's platform: on a Wayland desktop Qt often runs through XWayland
// ("xcb"), and there a root window grab is black or fails, so any Wayland
// session (WAYLAND_DISPLAY set, or XDG_SESSION_TYPE "wayland") goes through
// the portal.
class CCaptureBackend
{
public:
    enum Kind { X11, Portal };

    // `platformName` is Qt's platform; it is taken to make clear it plays no part.
    static Kind choose(const QProcessEnvironment &environment, const QString &platformName);
    static QString name(Kind kind);
    // The capture for this process's session, on the session bus for the portal.
    static std::unique_ptr<CScreenCapture> create();
};
