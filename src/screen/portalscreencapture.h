#pragma once

#include "screen/screencapture.h"

#include <QDBusConnection>
#include <QPointer>
#include <QVariantMap>

class CPortalRequest;
class QDBusPendingCallWatcher;
class QTimer;

// Asks the XDG desktop portal for a screenshot (Wayland sessions, and any
// desktop that runs one). The portal answers later through a request
// object: its path follows from our handle token and our unique name on the
// bus, so the answer is listened for before the call goes out (a portal
// that answers at once is not missed). The picture arrives as a file named
// by its "uri", read at once; one left in a temporary folder is removed
// (some backends write every screenshot to the same file there).
class CPortalScreenCapture : public CScreenCapture
{
    Q_OBJECT

public:
    static const int kDefaultTimeoutMs = 60000;

    explicit CPortalScreenCapture(const QDBusConnection &bus, QObject *parent = nullptr);
    ~CPortalScreenCapture() override;

    // How long to wait for the user and the portal before giving up.
    void setTimeout(int milliseconds) { m_timeoutMs = milliseconds; }
    void start() override;

    // "/org/freedesktop/portal/desktop/request/SENDER/TOKEN", SENDER being the
    // unique name without its ':' and with '_' for each '.'.
    static QString requestPath(const QString &uniqueName, const QString &token);
    // Whether a file the portal wrote lies in a temporary folder.
    static bool isTemporaryFile(const QString &path);

private:
    void listen(const QString &path);
    void callAnswered(QDBusPendingCallWatcher *watcher);
    void responded(uint response, const QVariantMap &results);
    void readPicture(const QString &uri);
    void timedOut();
    void finish();
    void fail(const QString &reason);

    QDBusConnection m_bus;
    QPointer<CPortalRequest> m_request;
    QTimer *m_timer = nullptr;
    int m_timeoutMs = kDefaultTimeoutMs;
    bool m_busy = false;
};
