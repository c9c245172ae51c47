#include "screen/portalrequest.h"

const char *const CPortalRequest::kService = "org.freedesktop.portal.Desktop";

CPortalRequest::CPortalRequest(const QString &path, const QDBusConnection &bus, QObject *parent)
    : QDBusAbstractInterface(QLatin1String(kService), path, "org.freedesktop.portal.Request", bus,
                             parent)
{
}

void CPortalRequest::close()
{
    asyncCall(QStringLiteral("Close"));
}
