#include "screen/capturebackend.h"
#include "screen/portalscreencapture.h"
#include "screen/screencapture.h"
#include "screen/x11screencapture.h"

#include <QProcessEnvironment>
#include <QtTest>

// Which capture the session gets: the session decides, never Qt's platform
// (on a Wayland desktop Qt often runs on XWayland, where X grabs are black).
class TestCaptureBackend : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sessionChoosesTheBackend_data();
    void sessionChoosesTheBackend();
    void createFollowsThisProcessesSession_data();
    void createFollowsThisProcessesSession();
    void requestPathFollowsTheTokenAndUniqueName();
    void onlyTemporaryFilesAreRemoved_data();
    void onlyTemporaryFilesAreRemoved();
};

void TestCaptureBackend::initTestCase()
{
    // The portal capture connects to the session bus: never the real one.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/vellora-test-bus");
}

void TestCaptureBackend::sessionChoosesTheBackend_data()
{
    QTest::addColumn<QString>("waylandDisplay");
    QTest::addColumn<QString>("sessionType");
    QTest::addColumn<QString>("platform");
    QTest::addColumn<int>("expected");
    QTest::newRow("X11 session, Qt on xcb") << "" << "x11" << "xcb" << int(CCaptureBackend::X11);
    QTest::newRow("Wayland session, Qt on wayland")
        << "wayland-0" << "wayland" << "wayland" << int(CCaptureBackend::Portal);
    QTest::newRow("Wayland session, Qt on xcb (XWayland)")
        << "wayland-0" << "wayland" << "xcb" << int(CCaptureBackend::Portal);
    QTest::newRow("only WAYLAND_DISPLAY, Qt on xcb")
        << "wayland-1" << "" << "xcb" << int(CCaptureBackend::Portal);
    QTest::newRow("only XDG_SESSION_TYPE, Qt on xcb")
        << "" << "wayland" << "xcb" << int(CCaptureBackend::Portal);
    QTest::newRow("session type in capitals") << "" << "Wayland" << "xcb" << int(CCaptureBackend::Portal);
    QTest::newRow("tty session, Qt on xcb") << "" << "tty" << "xcb" << int(CCaptureBackend::X11);
    QTest::newRow("nothing said") << "" << "" << "xcb" << int(CCaptureBackend::X11);
}

void TestCaptureBackend::sessionChoosesTheBackend()
{
    QFETCH(QString, waylandDisplay);
    QFETCH(QString, sessionType);
    QFETCH(QString, platform);
    QFETCH(int, expected);
    QProcessEnvironment environment;
    if (!waylandDisplay.isEmpty())
        environment.insert(QStringLiteral("WAYLAND_DISPLAY"), waylandDisplay);
    if (!sessionType.isEmpty())
        environment.insert(QStringLiteral("XDG_SESSION_TYPE"), sessionType);
    QCOMPARE(int(CCaptureBackend::choose(environment, platform)), expected);
}

void TestCaptureBackend::createFollowsThisProcessesSession_data()
{
    QTest::addColumn<QByteArray>("waylandDisplay");
    QTest::addColumn<QByteArray>("sessionType");
    QTest::addColumn<bool>("portal");
    QTest::newRow("X11") << QByteArray() << QByteArray("x11") << false;
    QTest::newRow("Wayland") << QByteArray("wayland-0") << QByteArray("wayland") << true;
    QTest::newRow("Wayland display only") << QByteArray("wayland-0") << QByteArray() << true;
}

void TestCaptureBackend::createFollowsThisProcessesSession()
{
    QFETCH(QByteArray, waylandDisplay);
    QFETCH(QByteArray, sessionType);
    QFETCH(bool, portal);
    if (waylandDisplay.isEmpty())
        qunsetenv("WAYLAND_DISPLAY");
    else
        qputenv("WAYLAND_DISPLAY", waylandDisplay);
    if (sessionType.isEmpty())
        qunsetenv("XDG_SESSION_TYPE");
    else
        qputenv("XDG_SESSION_TYPE", sessionType);
    const std::unique_ptr<CScreenCapture> capture = CCaptureBackend::create();
    QCOMPARE(qobject_cast<CPortalScreenCapture *>(capture.get()) != nullptr, portal);
    QCOMPARE(qobject_cast<CX11ScreenCapture *>(capture.get()) != nullptr, !portal);
}

void TestCaptureBackend::requestPathFollowsTheTokenAndUniqueName()
{
    QCOMPARE(CPortalScreenCapture::requestPath(QStringLiteral(":1.42"), QStringLiteral("vellora7_1")),
             QStringLiteral("/org/freedesktop/portal/desktop/request/1_42/vellora7_1"));
    QCOMPARE(CPortalScreenCapture::requestPath(QStringLiteral(":10.3.5"), QStringLiteral("t")),
             QStringLiteral("/org/freedesktop/portal/desktop/request/10_3_5/t"));
}

void TestCaptureBackend::onlyTemporaryFilesAreRemoved_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("temporary");
    QTest::newRow("wlroots' fixed file") << "/tmp/out.png" << true;
    QTest::newRow("below /tmp") << "/tmp/portal/screenshot.png" << true;
    QTest::newRow("Qt's temporary folder") << QDir::tempPath() + "/a.png" << true;
    QTest::newRow("pictures folder") << QDir::homePath() + "/Pictures/Screenshot.png" << false;
    QTest::newRow("a folder named like it") << "/tmpfiles/a.png" << false;
}

void TestCaptureBackend::onlyTemporaryFilesAreRemoved()
{
    QFETCH(QString, path);
    QFETCH(bool, temporary);
    QCOMPARE(CPortalScreenCapture::isTemporaryFile(path), temporary);
}

QTEST_MAIN(TestCaptureBackend)
#include "tst_capturebackend.moc"
