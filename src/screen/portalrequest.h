#pragma once

#include <QDBusAbstractInterface>
#include <QVariantMap>

// One request object of the desktop portal (org.freedesktop.portal.Request
// at the path the portal announced): its Response signal, relayed as a Qt
// signal by Qt D-Bus as soon as someone connects to it.
class CPortalRequest : public QDBusAbstractInterface
{
    Q_OBJECT

public:
    static const char *const kService;

    CPortalRequest(const QString &path, const QDBusConnection &bus, QObject *parent = nullptr);

    // Asks the portal to drop the request (after we gave up waiting).
    void close();

signals:
    // 0 success, 1 the user cancelled, 2 anything else; the results of a
    // screenshot hold its file's "uri".
    void Response(uint response, const QVariantMap &results);
};
