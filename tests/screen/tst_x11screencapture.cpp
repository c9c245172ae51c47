#include "screen/screenoverlay.h"
#include "screen/screenpicker.h"
#include "screen/x11screencapture.h"

#include "support/guitestfixture.h"
#include "support/virtualdisplay.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QWidget>
#include <QtTest>

#include <cstdio>
#include <memory>

namespace {

// Four known colours in quadrants of 200 x 100.
class CQuadrants : public QWidget
{
public:
    CQuadrants()
        : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
    {
        setFixedSize(200, 100);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(0, 0, 100, 50, QColor(255, 0, 0));
        painter.fillRect(100, 0, 100, 50, QColor(0, 255, 0));
        painter.fillRect(0, 50, 100, 50, QColor(0, 0, 255));
        painter.fillRect(100, 50, 100, 50, QColor(17, 34, 51));
    }
};

} // namespace

// The X11 capture against a real X server: Xvfb, started by this test on a
// display number of its own, with no window manager, so windows stand
// exactly where they are put.
class TestX11ScreenCapture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void capturesTheScreenAtItsPixels();
    void pickerCapturesOnlyAfterItsWindowsAreGone();

private:
    GuiTestFixture m_fixture;
};

void TestX11ScreenCapture::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
    QCOMPARE(QGuiApplication::primaryScreen()->size(), QSize(640, 480));
}

void TestX11ScreenCapture::capturesTheScreenAtItsPixels()
{
    CQuadrants window;
    window.move(50, 40);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_VERIFY(window.geometry().topLeft() == QPoint(50, 40));
    QTest::qWait(100);

    CX11ScreenCapture capture;
    QSignalSpy captured(&capture, &CScreenCapture::captured);
    QSignalSpy failed(&capture, &CScreenCapture::failed);
    capture.start();
    QCOMPARE(failed.count(), 0);
    QCOMPARE(captured.count(), 1);
    const QImage image = captured.first().first().value<QImage>();
    QCOMPARE(image.size(), QSize(640, 480));
    QCOMPARE(image.pixel(50, 40), qRgb(255, 0, 0));
    QCOMPARE(image.pixel(149, 40), qRgb(255, 0, 0));
    QCOMPARE(image.pixel(150, 40), qRgb(0, 255, 0));
    QCOMPARE(image.pixel(249, 89), qRgb(0, 255, 0));
    QCOMPARE(image.pixel(50, 90), qRgb(0, 0, 255));
    QCOMPARE(image.pixel(150, 90), qRgb(17, 34, 51));
    QCOMPARE(image.pixel(249, 139), qRgb(17, 34, 51));
    // Outside the window: the black root window.
    QCOMPARE(image.pixel(49, 40), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(250, 139), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(50, 140), qRgb(0, 0, 0));
}

// The program's window is hidden first; the capture must not show it.
void TestX11ScreenCapture::pickerCapturesOnlyAfterItsWindowsAreGone()
{
    CQuadrants window;
    window.move(300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    CScreenPicker picker(&window);
    picker.setCapture(std::make_unique<CX11ScreenCapture>());
    picker.setSettleDelay(0);
    picker.start();
    QVERIFY(!window.isVisible());
    QTRY_VERIFY(picker.overlay() != nullptr);
    const QImage image = picker.overlay()->capture();
    QCOMPARE(image.size(), QSize(640, 480));
    QCOMPARE(image.pixel(350, 220), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(450, 280), qRgb(0, 0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(picker.overlay()));
    QTest::keyClick(picker.overlay(), Qt::Key_Escape);
    QTRY_VERIFY(window.isVisible());
}

// The X server is started before the application object so that Qt opens
// its display; the test's own environment asks for offscreen otherwise.
int main(int argc, char **argv)
{
    VirtualDisplay display;
    if (!display.start(640, 480)) {
        std::fprintf(stderr, "FAIL: %s\n", qPrintable(display.error()));
        return 1;
    }
    qputenv("DISPLAY", display.display().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("WAYLAND_DISPLAY");
    // On xcb Qt looks for the accessibility bus on the session bus: there is
    // none for this display, and the desktop's own is not the test's business.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/vellora-test-bus");
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "0");
    qputenv("NO_AT_BRIDGE", "1");
    int result = 0;
    {
        QApplication app(argc, argv);
        TestX11ScreenCapture test;
        result = QTest::qExec(&test, argc, argv);
    }
    return result;
}

#include "tst_x11screencapture.moc"
