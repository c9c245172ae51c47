#pragma once

#include <QString>

#include <sys/types.h>

// A private X server (Xvfb) for the tests that need a real X display: it
// picks a free display number itself (-displayfd), so tests running side by
// side never meet, and it is stopped when the object goes. Start it before
// the application object, then point DISPLAY and QT_QPA_PLATFORM at it.
class VirtualDisplay
{
public:
    VirtualDisplay() = default;
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

    // Starts "Xvfb -displayfd" with one screen of that size at 24 bits and a
    // black root window; false (with the reason in error()) when it cannot.
    bool start(int width, int height);
    void stop();
    // ":N" once started.
    QString display() const { return m_display; }
    QString error() const { return m_error; }

private:
    pid_t m_pid = -1;
    QString m_display;
    QString m_error;
};
