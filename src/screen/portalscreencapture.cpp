#include "screen/portalscreencapture.h"

#include "screen/portalrequest.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

namespace {

const char kPortalPath[] = "/org/freedesktop/portal/desktop";
const char kScreenshotInterface[] = "org.freedesktop.portal.Screenshot";

QString canonicalFolder(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(path) : canonical;
}

} // namespace

CPortalScreenCapture::CPortalScreenCapture(const QDBusConnection &bus, QObject *parent)
    : CScreenCapture(parent)
    , m_bus(bus)
    , m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &CPortalScreenCapture::timedOut);
}

CPortalScreenCapture::~CPortalScreenCapture() = default;

QString CPortalScreenCapture::requestPath(const QString &uniqueName, const QString &token)
{
    QString sender = uniqueName;
    if (sender.startsWith(QLatin1Char(':')))
        sender.remove(0, 1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("%1/request/%2/%3").arg(QLatin1String(kPortalPath), sender, token);
}

bool CPortalScreenCapture::isTemporaryFile(const QString &path)
{
    const QString folder = canonicalFolder(QFileInfo(path).absolutePath());
    const QStringList temporary = {QDir::tempPath(), QStringLiteral("/tmp"), QStringLiteral("/var/tmp")};
    for (const QString &candidate : temporary) {
        const QString root = canonicalFolder(candidate);
        if (folder == root || folder.startsWith(root + QLatin1Char('/')))
            return true;
    }
    return false;
}

void CPortalScreenCapture::start()
{
    if (m_busy)
        return;
    if (!m_bus.isConnected()) {
        fail(tr("there is no session bus, so no screenshot portal can be asked."));
        return;
    }
    m_busy = true;
    // Unique within the process: each request gets its own object path.
    static int serial = 0;
    const QString token = QStringLiteral("vellora%1_%2")
                              .arg(QCoreApplication::applicationPid())
                              .arg(++serial);
    // Subscribed before calling: the portal may answer before the call returns.
    listen(requestPath(m_bus.baseService(), token));

    QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(CPortalRequest::kService),
                                                       QLatin1String(kPortalPath),
                                                       QLatin1String(kScreenshotInterface),
                                                       QStringLiteral("Screenshot"));
    QVariantMap options;
    options.insert(QStringLiteral("handle_token"), token);
    options.insert(QStringLiteral("interactive"), false);
    options.insert(QStringLiteral("modal"), true);
    call << QString() << options;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, m_timeoutMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            &CPortalScreenCapture::callAnswered);
    m_timer->start(m_timeoutMs);
}

void CPortalScreenCapture::listen(const QString &path)
{
    if (m_request && m_request->path() == path)
        return;
    delete m_request;
    m_request = new CPortalRequest(path, m_bus, this);
    connect(m_request, &CPortalRequest::Response, this, &CPortalScreenCapture::responded);
}

void CPortalScreenCapture::callAnswered(QDBusPendingCallWatcher *watcher)
{
    watcher->deleteLater();
    if (!m_busy)
        return;
    const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
    if (reply.isError()) {
        const QString name = reply.error().name();
        if (name == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown")
            || name == QLatin1String("org.freedesktop.DBus.Error.UnknownInterface")
            || name == QLatin1String("org.freedesktop.DBus.Error.UnknownMethod")
            || name == QLatin1String("org.freedesktop.DBus.Error.UnknownObject"))
            fail(tr("no screenshot portal (xdg-desktop-portal) runs on this desktop."));
        else if (name == QLatin1String("org.freedesktop.DBus.Error.NoReply")
                 || name == QLatin1String("org.freedesktop.DBus.Error.Timeout"))
            timedOut();
        else
            fail(tr("the screenshot portal said: %1").arg(reply.error().message()));
        return;
    }
    // Older portals ignore the token and name another request object.
    listen(reply.value().path());
}

void CPortalScreenCapture::responded(uint response, const QVariantMap &results)
{
    if (!m_busy)
        return;
    if (response == 1)
        fail(tr("the screenshot was refused."));
    else if (response != 0)
        fail(tr("the screenshot portal could not take the screenshot."));
    else
        readPicture(results.value(QStringLiteral("uri")).toString());
}

void CPortalScreenCapture::readPicture(const QString &uri)
{
    const QUrl url(uri);
    const QString path = url.isLocalFile() ? url.toLocalFile() : QString();
    if (path.isEmpty()) {
        fail(tr("the screenshot portal named no picture file."));
        return;
    }
    QImage image(path);
    if (isTemporaryFile(path))
        QFile::remove(path);
    if (image.isNull()) {
        fail(tr("the screenshot file %1 could not be read.").arg(QDir::toNativeSeparators(path)));
        return;
    }
    finish();
    emit captured(image.convertToFormat(QImage::Format_RGB32));
}

void CPortalScreenCapture::timedOut()
{
    if (!m_busy)
        return;
    if (m_request)
        m_request->close();
    fail(tr("the screenshot portal did not answer within %1 seconds.")
             .arg(QString::number(m_timeoutMs / 1000.0)));
}

void CPortalScreenCapture::finish()
{
    m_busy = false;
    m_timer->stop();
    if (m_request) {
        m_request->disconnect(this);
        m_request->deleteLater();
    }
}

void CPortalScreenCapture::fail(const QString &reason)
{
    finish();
    emit failed(failureText(reason));
}
