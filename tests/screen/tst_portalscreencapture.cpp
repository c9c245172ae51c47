#include "common/appcontext.h"
#include "app/mainwindow.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "screen/portalscreencapture.h"
#include "screen/screenoverlay.h"
#include "screen/screenpicker.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"
#include "support/privatebus.h"
#include "support/samplefixture.h"

#include <QAction>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTimer>
#include <QUrl>
#include <QtTest>

#include <cmath>
#include <memory>

namespace {

const char kService[] = "org.freedesktop.portal.Desktop";
const char kPath[] = "/org/freedesktop/portal/desktop";

// A request object as the portal exports it, so that Close can be called.
class CRequestStandIn : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    bool closed = false;

public slots:
    void Close() { closed = true; }
};

// The screenshot part of the desktop portal as xdg-desktop-portal does it:
// Screenshot returns the request's path (from the sender and handle_token)
// and the outcome comes later as that request's Response signal.
class CPortalStandIn : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Screenshot")

public:
    enum Mode { AnswerLater, AnswerBeforeReturning, Refuse, GiveUp, NeverAnswer };

    explicit CPortalStandIn(const QDBusConnection &bus)
        : m_bus(bus)
    {
    }

    Mode mode = AnswerLater;
    QString pictureFile;
    QString token;
    QString sender;
    CRequestStandIn *request = nullptr;

public slots:
    QDBusObjectPath Screenshot(const QString &parentWindow, const QVariantMap &options,
                               const QDBusMessage &message)
    {
        Q_UNUSED(parentWindow)
        token = options.value(QStringLiteral("handle_token")).toString();
        sender = message.service();
        QString who = sender.mid(1);
        who.replace(QLatin1Char('.'), QLatin1Char('_'));
        const QString path = QStringLiteral("%1/request/%2/%3").arg(QLatin1String(kPath), who, token);
        request = new CRequestStandIn;
        request->setParent(this);
        m_bus.registerObject(path, request, QDBusConnection::ExportAllSlots);
        if (mode == AnswerBeforeReturning)
            respond(path);
        else if (mode != NeverAnswer)
            QTimer::singleShot(20, this, [this, path]() { respond(path); });
        return QDBusObjectPath(path);
    }

private:
    void respond(const QString &path)
    {
        uint code = 0;
        QVariantMap results;
        if (mode == Refuse)
            code = 1;
        else if (mode == GiveUp)
            code = 2;
        else
            results.insert(QStringLiteral("uri"), QUrl::fromLocalFile(pictureFile).toString());
        QDBusMessage signal = QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.Request"),
                                                         QStringLiteral("Response"));
        signal << code << results;
        m_bus.send(signal);
    }

    QDBusConnection m_bus;
};

} // namespace

// The portal capture against a stand-in portal on a bus of the test's own.
class TestPortalScreenCapture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void pictureThePortalWroteIsPickedFrom();
    void answerBeforeTheCallReturnsIsNotMissed();
    void fileOutsideATemporaryFolderIsKept();
    void noPictureSaysWhyAndChangesNothing_data();
    void noPictureSaysWhyAndChangesNothing();

private:
    static QImage picture();
    CScreenPicker *picker() const { return m_window->findChild<CScreenPicker *>(); }
    std::unique_ptr<CPortalScreenCapture> newCapture(int timeoutMs = 5000) const;

    GuiTestFixture m_fixture;
    PrivateBus m_bus;
    std::unique_ptr<QDBusConnection> m_portalBus;
    std::unique_ptr<QDBusConnection> m_clientBus;
    std::unique_ptr<CPortalStandIn> m_portal;
    std::unique_ptr<CMainWindow> m_window;
};

QImage TestPortalScreenCapture::picture()
{
    QImage image(800, 600, QImage::Format_RGB32);
    image.fill(qRgb(12, 120, 200));
    for (int y = 300; y < 600; ++y)
        for (int x = 0; x < 800; ++x)
            image.setPixel(x, y, qRgb(240, 200, 10));
    return image;
}

void TestPortalScreenCapture::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    QVERIFY2(m_bus.start(), qPrintable(m_bus.error()));
    // Anything that asks for the session bus gets ours.
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8());
    m_portalBus = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(m_bus.address(), QStringLiteral("stand-in portal")));
    m_clientBus = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(m_bus.address(), QStringLiteral("vellora")));
    QVERIFY(m_portalBus->isConnected());
    QVERIFY(m_clientBus->isConnected());
    m_portal = std::make_unique<CPortalStandIn>(*m_portalBus);
    QVERIFY(m_portalBus->registerObject(QLatin1String(kPath), m_portal.get(),
                                        QDBusConnection::ExportAllSlots));
}

void TestPortalScreenCapture::init()
{
    m_fixture.reset();
    QVERIFY(m_portalBus->registerService(QLatin1String(kService)));
    m_portal->mode = CPortalStandIn::AnswerLater;
    m_portal->pictureFile = m_fixture.filePath(QStringLiteral("screenshot.png"));
    QVERIFY(ImageWriter::write(picture(), m_portal->pictureFile));
    m_window = SampleFixture::openImageWindow(ImageWriter::gradient(60, 40),
                                              m_fixture.filePath(QStringLiteral("opened.png")));
    QVERIFY(m_window);
    picker()->setSettleDelay(0);
}

void TestPortalScreenCapture::cleanup()
{
    m_window.reset();
    m_portalBus->unregisterService(QLatin1String(kService));
}

void TestPortalScreenCapture::cleanupTestCase()
{
    m_portal.reset();
    m_clientBus.reset();
    m_portalBus.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("vellora"));
    QDBusConnection::disconnectFromBus(QStringLiteral("stand-in portal"));
}

std::unique_ptr<CPortalScreenCapture> TestPortalScreenCapture::newCapture(int timeoutMs) const
{
    auto capture = std::make_unique<CPortalScreenCapture>(*m_clientBus);
    capture->setTimeout(timeoutMs);
    return capture;
}

void TestPortalScreenCapture::pictureThePortalWroteIsPickedFrom()
{
    picker()->setCapture(newCapture());
    picker()->action()->trigger();
    QTRY_VERIFY(picker()->overlay() != nullptr);
    QCOMPARE(m_portal->sender, m_clientBus->baseService());
    QVERIFY(!m_portal->token.isEmpty());
    QCOMPARE(picker()->overlay()->capture(), picture());
    // The file lay in a temporary folder: read, then removed.
    QVERIFY(!QFile::exists(m_portal->pictureFile));
    QVERIFY(QTest::qWaitForWindowExposed(picker()->overlay()));
    SampleFixture::leftClick(picker()->overlay(), QPoint(100, 400));
    QTRY_VERIFY(m_window->isVisible());
    CColourImageWindow *page = m_window->samplingPage();
    QCOMPARE(page->title(), QStringLiteral("Screen capture - "));
    QCOMPARE(page->view()->sourceImage(), picture());
    QVERIFY(page->isSamplePresent());
    QVERIFY(std::abs(page->sample().red - 240 / 255.0) < 1e-9);
    QVERIFY(std::abs(page->sample().green - 200 / 255.0) < 1e-9);
    QVERIFY(std::abs(page->sample().blue - 10 / 255.0) < 1e-9);
}

void TestPortalScreenCapture::answerBeforeTheCallReturnsIsNotMissed()
{
    m_portal->mode = CPortalStandIn::AnswerBeforeReturning;
    const std::unique_ptr<CPortalScreenCapture> capture = newCapture();
    QSignalSpy captured(capture.get(), &CScreenCapture::captured);
    QSignalSpy failed(capture.get(), &CScreenCapture::failed);
    capture->start();
    QVERIFY(captured.wait(5000));
    QCOMPARE(failed.count(), 0);
    QCOMPARE(captured.first().first().value<QImage>(), picture());
}

void TestPortalScreenCapture::fileOutsideATemporaryFolderIsKept()
{
    QDir here(QDir::currentPath());
    QVERIFY(!CPortalScreenCapture::isTemporaryFile(here.filePath(QStringLiteral("x.png"))));
    m_portal->pictureFile = here.filePath(QStringLiteral("portal-screenshot-kept.png"));
    QVERIFY(ImageWriter::write(picture(), m_portal->pictureFile));
    const std::unique_ptr<CPortalScreenCapture> capture = newCapture();
    QSignalSpy captured(capture.get(), &CScreenCapture::captured);
    capture->start();
    QVERIFY(captured.wait(5000));
    QVERIFY(QFile::exists(m_portal->pictureFile));
    QVERIFY(QFile::remove(m_portal->pictureFile));
}

void TestPortalScreenCapture::noPictureSaysWhyAndChangesNothing_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("portal");
    QTest::addColumn<QString>("reason");
    QTest::newRow("refused") << int(CPortalStandIn::Refuse) << true
                             << "the screenshot was refused.";
    QTest::newRow("portal gave up") << int(CPortalStandIn::GiveUp) << true
                                    << "the screenshot portal could not take the screenshot.";
    QTest::newRow("never answers") << int(CPortalStandIn::NeverAnswer) << true
                                   << "the screenshot portal did not answer within 0.4 seconds.";
    QTest::newRow("no portal") << int(CPortalStandIn::AnswerLater) << false
                               << "no screenshot portal (xdg-desktop-portal) runs on this desktop.";
}

void TestPortalScreenCapture::noPictureSaysWhyAndChangesNothing()
{
    QFETCH(int, mode);
    QFETCH(bool, portal);
    QFETCH(QString, reason);
    m_portal->mode = CPortalStandIn::Mode(mode);
    if (!portal)
        QVERIFY(m_portalBus->unregisterService(QLatin1String(kService)));
    picker()->setCapture(newCapture(400));
    CColourImageWindow *page = m_window->samplingPage();
    const QString title = m_window->windowTitle();
    const QImage image = page->view()->sourceImage();
    QSignalSpy ended(picker(), &CScreenPicker::finishedWithoutPick);

    ModalAnswerer answer(QStringLiteral("OK"), ModalAnswerer::Action(), 10000);
    picker()->action()->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(answer.wasAnswered(), 10000);
    QCOMPARE(answer.title(), QStringLiteral("Pick from Screen"));
    QCOMPARE(answer.text(), QStringLiteral("The screen could not be captured: %1\n"
                                           "Nothing has been changed.")
                                .arg(reason));
    QCOMPARE(ended.count(), 1);
    QVERIFY(m_window->isVisible());
    QVERIFY(picker()->overlay() == nullptr);
    QCOMPARE(m_window->windowTitle(), title);
    QCOMPARE(page->view()->sourceImage(), image);
    QVERIFY(!page->isSamplePresent());
    if (mode == CPortalStandIn::NeverAnswer)
        QTRY_VERIFY(m_portal->request && m_portal->request->closed);
}

QTEST_MAIN(TestPortalScreenCapture)
#include "tst_portalscreencapture.moc"
