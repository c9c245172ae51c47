#pragma once

#include <QObject>
#include <QSslConfiguration>
#include <QString>

class CDlgUpdateProgress;
class QNetworkAccessManager;
class QNetworkReply;
class QWidget;

// Asks the vendor's update service which version is current and shows the
// answer. One checker per check: nothing is remembered in between.
class CUpdateCheck : public QObject
{
    Q_OBJECT

public:
    // The service the application asks.
    static QString vendorAddress();
    // Where, below the service's address, the version is published.
    static QString versionPath();
    // Replies larger than this are refused as broken.
    static constexpr qint64 kMaxReplyBytes = 64 * 1024;

    // `baseAddress` is "https://host[:port]"; any other scheme is refused.
    explicit CUpdateCheck(const QString &baseAddress, QObject *parent = nullptr);
    ~CUpdateCheck() override;

    // The TLS settings for the request. Certificates are always verified;
    // this only chooses which authorities are trusted.
    void setSslConfiguration(const QSslConfiguration &configuration);

    // Asks the service while a progress dialog runs, then shows the result
    // dialog; returns when that is closed or the user cancelled the wait.
    void checkForUpdate(QWidget *parent);

    // The result of the last reply.
    QString errorText() const { return m_errorText; }
    int major() const { return m_major; }
    int minor() const { return m_minor; }
    int revision() const { return m_revision; }
    QString urlLinux() const { return m_urlLinux; }
    QString urlLinuxDsp() const { return m_urlLinuxDsp; }
    bool hasResult() const { return m_resultStored; }
    bool wasCancelled() const { return m_cancelled; }

    // A version's score: major x 100 + minor x 10 + revision. A reply is a
    // newer version when its score is above the running version's.
    static int versionScore(int major, int minor, int revision);
    static int currentScore();
    // The score of the last reply.
    int remoteScore() const;

    // The text of the result dialog for the stored result (rich text, with
    // the service's address escaped) and whether it announces a newer version.
    QString resultText() const;
    bool isNewerVersion() const;

public slots:
    void slotHttpFinished(QNetworkReply *reply);

private:
    QNetworkReply *sendRequest();
    void watchSize(QNetworkReply *reply);
    void waitForReply(QNetworkReply *reply, CDlgUpdateProgress *progress);
    void waitForResult(CDlgUpdateProgress *progress);
    void storeFailure(const QString &text);
    void readVersion(const QByteArray &body);

    QNetworkAccessManager *m_manager = nullptr;
    QString m_errorText;
    qint32 m_major = -1;
    qint32 m_minor = 0;
    qint32 m_revision = 0;
    QString m_urlLinux;
    QString m_urlLinuxDsp;
    bool m_waiting = false;
    QString m_baseAddress;
    QSslConfiguration m_sslConfiguration;
    bool m_resultStored = false;
    bool m_cancelled = false;
    bool m_tooLarge = false;
};
