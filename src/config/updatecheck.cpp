#include "config/updatecheck.h"

#include "common/appcontext.h"
#include "config/dlgdisplayupdate.h"
#include "config/dlgupdateprogress.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>
#include <QUrl>

namespace {
const int kCurrentRevision = 0;
// The waiting loop wakes at least this often, so the bar keeps moving while
// nothing else happens.
const int kWakeMs = 5;

} // namespace

int CUpdateCheck::versionScore(int major, int minor, int revision)
{
    // The places overlap on purpose: 0.10.0 scores as much as 1.0.0.
    return major * 100 + minor * 10 + revision;
}

int CUpdateCheck::currentScore()
{
    return versionScore(AppContext::versionMajor(), AppContext::versionMinor(), kCurrentRevision);
}

QString CUpdateCheck::vendorAddress()
{
    return QStringLiteral("https://updates.tessaline.com");
}

QString CUpdateCheck::versionPath()
{
    return QStringLiteral("/applications/Vellora/application_version.php");
}

CUpdateCheck::CUpdateCheck(const QString &baseAddress, QObject *parent)
    : QObject(parent), m_manager(new QNetworkAccessManager(this)), m_baseAddress(baseAddress),
      m_sslConfiguration(QSslConfiguration::defaultConfiguration())
{
    connect(m_manager, &QNetworkAccessManager::finished, this, &CUpdateCheck::slotHttpFinished);
}

CUpdateCheck::~CUpdateCheck() = default;

void CUpdateCheck::setSslConfiguration(const QSslConfiguration &configuration)
{
    m_sslConfiguration = configuration;
    // Whoever supplies the trust, the peer's certificate is checked.
    m_sslConfiguration.setPeerVerifyMode(QSslSocket::VerifyPeer);
}

void CUpdateCheck::checkForUpdate(QWidget *parent)
{
    m_waiting = true;
    m_resultStored = false;
    m_cancelled = false;
    CDlgUpdateProgress progress(parent, &m_waiting);
    progress.show();

    QPointer<QNetworkReply> reply = sendRequest();
    if (reply)
        waitForReply(reply, &progress);
    if (!m_waiting) {
        m_cancelled = true;
        if (reply) {
            disconnect(m_manager, nullptr, this, nullptr);
            reply->abort();
            reply->deleteLater();
        }
        return;
    }
    waitForResult(&progress);
    progress.done();

    CDlgDisplayUpdate result(parent, resultText(), m_urlLinux, isNewerVersion());
    result.exec();
}

QNetworkReply *CUpdateCheck::sendRequest()
{
    const QUrl url(m_baseAddress + versionPath());
    if (!url.isValid() || url.scheme().compare(QLatin1String("https"), Qt::CaseInsensitive) != 0) {
        // Only an encrypted, verified connection may tell us where to download.
        storeFailure(tr("Only https addresses are used for the update check"));
        return nullptr;
    }
    QNetworkRequest request(url);
    request.setRawHeader("User-Agent", "Mozilla Firefox");
    request.setSslConfiguration(m_sslConfiguration);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    QNetworkReply *reply = m_manager->get(request);
    watchSize(reply);
    return reply;
}

void CUpdateCheck::watchSize(QNetworkReply *reply)
{
    // A version reply is a few dozen bytes: stop anything far bigger as it
    // arrives instead of collecting it.
    auto check = [this, reply](qint64 received, qint64 total) {
        if (received > kMaxReplyBytes || total > kMaxReplyBytes) {
            m_tooLarge = true;
            reply->abort();
        }
    };
    connect(reply, &QNetworkReply::downloadProgress, this, check);
    connect(reply, &QNetworkReply::metaDataChanged, this, [reply, check]() {
        const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
        if (length.isValid())
            check(0, length.toLongLong());
    });
}

void CUpdateCheck::waitForReply(QNetworkReply *reply, CDlgUpdateProgress *progress)
{
    QTimer wake;
    wake.start(kWakeMs);
    QPointer<QNetworkReply> guard(reply);
    while (guard && !guard->isFinished() && m_waiting) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        progress->tick(QDateTime::currentMSecsSinceEpoch());
    }
}

void CUpdateCheck::waitForResult(CDlgUpdateProgress *progress)
{
    QTimer wake;
    wake.start(kWakeMs);
    while (!m_resultStored) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        progress->tick(QDateTime::currentMSecsSinceEpoch());
    }
}

void CUpdateCheck::slotHttpFinished(QNetworkReply *reply)
{
    if (m_tooLarge)
        storeFailure(tr("The reply of the update service is too large"));
    else if (reply->error() != QNetworkReply::NoError)
        storeFailure(reply->errorString());
    else
        readVersion(reply->read(kMaxReplyBytes + 1));
    reply->deleteLater();
}

void CUpdateCheck::storeFailure(const QString &text)
{
    m_errorText = text;
    m_major = -1;
    m_resultStored = true;
}

void CUpdateCheck::readVersion(const QByteArray &body)
{
    if (body.size() > kMaxReplyBytes) {
        storeFailure(tr("The reply of the update service is too large"));
        return;
    }
    const QJsonObject object = QJsonDocument::fromJson(body).object();
    m_errorText.clear();
    m_major = object.value(QLatin1String("major")).toInt();
    m_minor = object.value(QLatin1String("minor")).toInt();
    m_revision = object.value(QLatin1String("revision")).toInt();
    m_urlLinux = object.value(QLatin1String("url_linux")).toString();
    m_urlLinuxDsp = object.value(QLatin1String("url_linux_dsp")).toString();
    m_resultStored = true;
}

int CUpdateCheck::remoteScore() const
{
    return versionScore(m_major, m_minor, m_revision);
}

bool CUpdateCheck::isNewerVersion() const
{
    return m_major >= 0 && remoteScore() > currentScore();
}

QString CUpdateCheck::resultText() const
{
    const QString product = AppContext::productName();
    const int major = AppContext::versionMajor();
    const int minor = AppContext::versionMinor();
    if (m_major < 0)
        return tr("An error occurred while checking for a newer version of %1.\n\nPlease try again later")
            .arg(product);
    if (!isNewerVersion())
        return tr("You are currently running <b>%1 v%2.%3.%4</b>\nthis is the latest version.")
            .arg(product)
            .arg(major)
            .arg(minor)
            .arg(kCurrentRevision);
    return tr("<b>A new version of %1 is available.</b>").arg(product) + QLatin1Char('\n')
        + tr("You are currently running v%1.%2.%3\nthe latest version is v%4.%5.%6.\n")
              .arg(major)
              .arg(minor)
              .arg(kCurrentRevision)
              .arg(m_major)
              .arg(m_minor)
              .arg(m_revision)
        + tr("This may be download from:\n%1\n").arg(m_urlLinuxDsp.toHtmlEscaped());
}
