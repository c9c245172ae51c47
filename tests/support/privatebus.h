#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

// A D-Bus session bus of the test's own: dbus-daemon started with a
// configuration written here (a socket in a temporary folder, everything
// allowed), never the desktop's session bus. Stopped when the object goes.
class PrivateBus
{
public:
    PrivateBus() = default;
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    // False, with the reason in error(), when the daemon does not start.
    bool start();
    // The address clients connect to.
    QString address() const { return m_address; }
    QString error() const { return m_error; }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QString m_error;
};
