#include "config/dlgdisplayupdate.h"
#include "config/dlgupdateprogress.h"
#include "config/updatecheck.h"
#include "dialogwatcher.h"
#include "httpsserver.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSslSocket>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QtTest>

#include <memory>
#include <tuple>

namespace {
const QString kLatestText = QStringLiteral(
    "You are currently running <b>Vellora v1.0.0</b>\nthis is the latest version.");
const QString kErrorText = QStringLiteral(
    "An error occurred while checking for a newer version of Vellora.\n\nPlease try again later");

// What the user saw during one check.
struct Seen
{
    bool progressShown = false;
    QString progressTitle;
    QString progressLabel;
    Qt::WindowModality progressModal = Qt::NonModal;
    bool resultShown = false;
    QString resultTitle;
    QString resultMessage;
    QString resultPlainText;
    bool visitVisible = false;
};

// Records every update progress dialog that is shown, however briefly.
class ProgressSpy : public QObject
{
public:
    explicit ProgressSpy(Seen *seen) : m_seen(seen) { qApp->installEventFilter(this); }
    ~ProgressSpy() override { qApp->removeEventFilter(this); }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *progress = qobject_cast<CDlgUpdateProgress *>(object);
        if (progress && event->type() == QEvent::Show) {
            m_seen->progressShown = true;
            m_seen->progressTitle = progress->windowTitle();
            m_seen->progressLabel = progress->findChild<QLabel *>()->text();
            m_seen->progressModal = progress->windowModality();
        }
        return false;
    }

private:
    Seen *m_seen;
};

QString plainText(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}
} // namespace

class TestUpdateCheck : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void vendorAddressIsHttpsWithTheVersionPath();
    void requestIsAGetOfTheVersionPathWithTheUserAgent();
    void revisionOneIsANewVersionWithVisitNow();
    void sameVersionIsTheLatestVersion();
    void zeroTenZeroScoresAsTheCurrentVersion();
    void weightedScoreDecidesWhatIsNewer_data();
    void weightedScoreDecidesWhatIsNewer();
    void bodyThatIsNotJsonReadsAsZerosAndTheLatestVersion();
    void serverErrorShowsTheErrorText();
    void refusedConnectionShowsTheErrorTextAfterTheProgressDialog();
    void cancelWhileTheServerNeverAnswersEndsSilently();
    void untrustedCertificateShowsTheErrorText();
    void markupInTheDisplayAddressIsShownLiterally();
    void oversizedReplyIsAFailure_data();
    void oversizedReplyIsAFailure();
    void plainHttpAddressIsRefusedWithoutARequest();

private:
    // Runs a whole check against `address`, answering the result dialog
    // with "&Close" and recording what was shown.
    Seen runCheck(const QString &address, bool trustTestCertificate = true,
                  CUpdateCheck **checkOut = nullptr);
    std::unique_ptr<CUpdateCheck> m_lastCheck;

    QTemporaryDir m_certDir;
    QSslCertificate m_certificate;
    QSslKey m_key;
    std::unique_ptr<HttpsServer> m_server;
};

void TestUpdateCheck::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY2(QSslSocket::supportsSsl(), "Qt has no TLS support here");
    QVERIFY(m_certDir.isValid());
    QString error;
    QVERIFY2(makeSelfSignedCertificate(m_certDir.path(), &m_certificate, &m_key, &error),
             qPrintable(error));
}

Seen TestUpdateCheck::runCheck(const QString &address, bool trustTestCertificate,
                               CUpdateCheck **checkOut)
{
    Seen seen;
    ProgressSpy spy(&seen);
    DialogWatcher watcher([&seen](QWidget *modal) {
        auto *result = qobject_cast<CDlgDisplayUpdate *>(modal);
        if (!result)
            return false;
        seen.resultShown = true;
        seen.resultTitle = result->windowTitle();
        seen.resultMessage = result->message();
        seen.resultPlainText = plainText(result->messageLabel()->text());
        seen.visitVisible = result->visitButton()->isVisible();
        result->closeButton()->click();
        return true;
    });
    m_lastCheck = std::make_unique<CUpdateCheck>(address);
    if (trustTestCertificate) {
        QSslConfiguration ssl = QSslConfiguration::defaultConfiguration();
        ssl.setCaCertificates({m_certificate});
        m_lastCheck->setSslConfiguration(ssl);
    }
    QWidget parent;
    parent.show();
    m_lastCheck->checkForUpdate(&parent);
    if (checkOut)
        *checkOut = m_lastCheck.get();
    return seen;
}

void TestUpdateCheck::vendorAddressIsHttpsWithTheVersionPath()
{
    QVERIFY(CUpdateCheck::vendorAddress().startsWith(QStringLiteral("https://")));
    QCOMPARE(CUpdateCheck::versionPath(),
             QStringLiteral("/applications/Vellora/application_version.php"));
    const QUrl url(CUpdateCheck::vendorAddress() + CUpdateCheck::versionPath());
    QVERIFY(url.isValid());
    QCOMPARE(url.path(), CUpdateCheck::versionPath());
}

void TestUpdateCheck::requestIsAGetOfTheVersionPathWithTheUserAgent()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":1,"minor":0,"revision":0})");
    runCheck(server.baseAddress());
    const QList<QByteArray> lines = server.lastRequest().split('\n');
    QVERIFY(!lines.isEmpty());
    QCOMPARE(lines.first().trimmed(),
             QByteArray("GET /applications/Vellora/application_version.php HTTP/1.1"));
    bool agent = false;
    for (const QByteArray &line : lines)
        agent = agent || line.trimmed() == "User-Agent: Mozilla Firefox";
    QVERIFY2(agent, server.lastRequest().constData());
}

void TestUpdateCheck::revisionOneIsANewVersionWithVisitNow()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":1,"minor":0,"revision":1,)"
                       R"("url_linux":"https://dl.tessaline.test/vellora",)"
                       R"("url_linux_dsp":"dl.tessaline.test/vellora"})");
    CUpdateCheck *check = nullptr;
    const Seen seen = runCheck(server.baseAddress(), true, &check);
    QVERIFY(seen.progressShown);
    QVERIFY(seen.resultShown);
    QCOMPARE(seen.resultTitle, QStringLiteral("Vellora"));
    QCOMPARE(seen.resultMessage,
             QStringLiteral("<b>A new version of Vellora is available.</b>\n"
                            "You are currently running v1.0.0\nthe latest version is v1.0.1.\n"
                            "This may be download from:\ndl.tessaline.test/vellora\n"));
    QVERIFY(seen.visitVisible);
    QCOMPARE(check->urlLinux(), QStringLiteral("https://dl.tessaline.test/vellora"));
    QCOMPARE(check->revision(), 1);
}

void TestUpdateCheck::sameVersionIsTheLatestVersion()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":1,"minor":0,"revision":0})");
    const Seen seen = runCheck(server.baseAddress());
    QVERIFY(seen.resultShown);
    QCOMPARE(seen.resultMessage, kLatestText);
    QCOMPARE(seen.resultPlainText,
             QStringLiteral("You are currently running Vellora v1.0.0\nthis is the latest version."));
    QVERIFY(!seen.visitVisible);
}

void TestUpdateCheck::zeroTenZeroScoresAsTheCurrentVersion()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":0,"minor":10,"revision":0,"url_linux":"https://x.test/"})");
    CUpdateCheck *check = nullptr;
    const Seen seen = runCheck(server.baseAddress(), true, &check);
    QCOMPARE(check->minor(), 10);
    QCOMPARE(seen.resultMessage, kLatestText);
    QVERIFY(!seen.visitVisible);
}

// The score of each reply, and whether it is offered: among them replies a
// plain comparison of the three numbers would judge the other way round.
void TestUpdateCheck::weightedScoreDecidesWhatIsNewer_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("revision");
    QTest::addColumn<int>("score");
    QTest::addColumn<bool>("newer");
    QTest::addColumn<bool>("plainlyNewer");
    QTest::newRow("0.10.0") << 0 << 10 << 0 << 100 << false << false;
    QTest::newRow("0.11.0") << 0 << 11 << 0 << 110 << true << false;
    QTest::newRow("0.9.15") << 0 << 9 << 15 << 105 << true << false;
    QTest::newRow("0.0.101") << 0 << 0 << 101 << 101 << true << false;
    QTest::newRow("1.0.0") << 1 << 0 << 0 << 100 << false << false;
    QTest::newRow("1.0.1") << 1 << 0 << 1 << 101 << true << true;
    QTest::newRow("1.2.3") << 1 << 2 << 3 << 123 << true << true;
    QTest::newRow("2.0.0") << 2 << 0 << 0 << 200 << true << true;
}

void TestUpdateCheck::weightedScoreDecidesWhatIsNewer()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, revision);
    QFETCH(int, score);
    QFETCH(bool, newer);
    QFETCH(bool, plainlyNewer);
    QCOMPARE(CUpdateCheck::versionScore(major, minor, revision), score);
    QCOMPARE(CUpdateCheck::currentScore(), 100);
    // The rows where the two rules part are the point of this table.
    const bool plain = std::make_tuple(major, minor, revision) > std::make_tuple(1, 0, 0);
    QCOMPARE(plain, plainlyNewer);

    HttpsServer server(m_certificate, m_key);
    server.answer(200, QStringLiteral(R"({"major":%1,"minor":%2,"revision":%3,)"
                                      R"("url_linux_dsp":"dl.test/v"})")
                           .arg(major)
                           .arg(minor)
                           .arg(revision)
                           .toUtf8());
    CUpdateCheck *check = nullptr;
    const Seen seen = runCheck(server.baseAddress(), true, &check);
    QVERIFY(seen.resultShown);
    QCOMPARE(check->remoteScore(), score);
    QCOMPARE(check->isNewerVersion(), newer);
    QCOMPARE(seen.visitVisible, newer);
    if (newer) {
        QVERIFY2(seen.resultMessage.contains(QStringLiteral("the latest version is v%1.%2.%3.")
                                                 .arg(major)
                                                 .arg(minor)
                                                 .arg(revision)),
                 qPrintable(seen.resultMessage));
    } else {
        QCOMPARE(seen.resultMessage, kLatestText);
    }
}

void TestUpdateCheck::bodyThatIsNotJsonReadsAsZerosAndTheLatestVersion()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, "<html>maintenance</html>");
    CUpdateCheck *check = nullptr;
    const Seen seen = runCheck(server.baseAddress(), true, &check);
    QCOMPARE(check->major(), 0);
    QCOMPARE(check->minor(), 0);
    QCOMPARE(check->revision(), 0);
    QCOMPARE(seen.resultMessage, kLatestText);
}

void TestUpdateCheck::serverErrorShowsTheErrorText()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(500, R"({"major":9,"minor":0,"revision":0})");
    CUpdateCheck *check = nullptr;
    const Seen seen = runCheck(server.baseAddress(), true, &check);
    QCOMPARE(server.connections(), 1);
    QCOMPARE(check->major(), -1);
    QVERIFY(!check->errorText().isEmpty());
    QCOMPARE(seen.resultMessage, kErrorText);
    QCOMPARE(seen.resultPlainText, kErrorText);
    QVERIFY(!seen.visitVisible);
}

void TestUpdateCheck::refusedConnectionShowsTheErrorTextAfterTheProgressDialog()
{
    const Seen seen = runCheck(HttpsServer::closedAddress());
    QVERIFY(seen.progressShown);
    QCOMPARE(seen.progressTitle, QStringLiteral("Vellora v1.0.0"));
    QCOMPARE(seen.progressLabel, QStringLiteral("Checking for a newer version"));
    QCOMPARE(seen.progressModal, Qt::ApplicationModal);
    QVERIFY(seen.resultShown);
    QCOMPARE(seen.resultMessage, kErrorText);
}

void TestUpdateCheck::cancelWhileTheServerNeverAnswersEndsSilently()
{
    HttpsServer server(m_certificate, m_key);
    server.stayingSilent();
    int firstValue = -1;
    bool resultShown = false;
    DialogWatcher watcher([&](QWidget *modal) {
        if (qobject_cast<CDlgDisplayUpdate *>(modal)) {
            resultShown = true;
            static_cast<QDialog *>(modal)->reject();
            return true;
        }
        auto *progress = qobject_cast<CDlgUpdateProgress *>(modal);
        if (!progress)
            return false;
        if (firstValue < 0)
            firstValue = progress->value();
        // Let the bar run a few steps, as a user would watch it, then cancel.
        if (server.connections() == 0 || progress->value() < firstValue + 3)
            return false;
        QTest::mouseClick(progress->cancelButton(), Qt::LeftButton);
        return true;
    });
    CUpdateCheck check(server.baseAddress());
    QSslConfiguration ssl = QSslConfiguration::defaultConfiguration();
    ssl.setCaCertificates({m_certificate});
    check.setSslConfiguration(ssl);
    QWidget parent;
    parent.show();
    check.checkForUpdate(&parent);
    QVERIFY(watcher.isDone());
    QVERIFY(check.wasCancelled());
    QVERIFY(!check.hasResult());
    QVERIFY(!resultShown);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestUpdateCheck::untrustedCertificateShowsTheErrorText()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":1,"minor":0,"revision":1,"url_linux":"https://evil.test/"})");
    CUpdateCheck *check = nullptr;
    const Seen seen = runCheck(server.baseAddress(), false, &check);
    QCOMPARE(check->major(), -1);
    QCOMPARE(seen.resultMessage, kErrorText);
    QVERIFY(!seen.visitVisible);
}

void TestUpdateCheck::markupInTheDisplayAddressIsShownLiterally()
{
    const QString hostile =
        QStringLiteral("<a href=\"file:///etc/passwd\">free</a><img src=\"x\">&amp;");
    QJsonObject reply{{"major", 2}, {"minor", 0}, {"revision", 0},
                      {"url_linux", "https://dl.test/"}, {"url_linux_dsp", hostile}};
    HttpsServer server(m_certificate, m_key);
    server.answer(200, QJsonDocument(reply).toJson());
    const Seen seen = runCheck(server.baseAddress());
    QVERIFY(seen.resultShown);
    QVERIFY2(seen.resultPlainText.contains(hostile), qPrintable(seen.resultPlainText));
    QVERIFY(seen.resultPlainText.contains(QStringLiteral("the latest version is v2.0.0.")));
}

void TestUpdateCheck::oversizedReplyIsAFailure_data()
{
    QTest::addColumn<bool>("sendLength");
    QTest::newRow("announced length") << true;
    QTest::newRow("streamed until close") << false;
}

void TestUpdateCheck::oversizedReplyIsAFailure()
{
    QFETCH(bool, sendLength);
    // A valid version object padded past the limit with blanks.
    QByteArray body = R"({"major":1,"minor":0,"revision":1})";
    body += QByteArray(CUpdateCheck::kMaxReplyBytes, ' ');
    HttpsServer server(m_certificate, m_key);
    server.answer(200, body, sendLength);
    CUpdateCheck *check = nullptr;
    const Seen seen = runCheck(server.baseAddress(), true, &check);
    QCOMPARE(check->major(), -1);
    QCOMPARE(seen.resultMessage, kErrorText);
}

void TestUpdateCheck::plainHttpAddressIsRefusedWithoutARequest()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":1,"minor":0,"revision":1})");
    CUpdateCheck *check = nullptr;
    const Seen seen =
        runCheck(QStringLiteral("http://localhost:%1").arg(server.serverPort()), true, &check);
    QCOMPARE(server.connections(), 0);
    QCOMPARE(check->major(), -1);
    QCOMPARE(seen.resultMessage, kErrorText);
}

QTEST_MAIN(TestUpdateCheck)
#include "tst_updatecheck.moc"
