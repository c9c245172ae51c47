#include "common/appcontext.h"

#include <QApplication>
#include <QtTest>

// Windows scale to the screen's resolution by a whole factor in every
// build: Qt 6 turns scaling on by itself but lets fractional factors pass
// through, which would draw the picture's pixels and the pick box at
// uneven sizes on a 1.25 or 1.5 screen where a Qt 5 build shows them sharp.
class TestDisplayScaling : public QObject
{
    Q_OBJECT

private slots:
    void roundsTheScaleFactor();
    void scalesToTheScreen();
};

void TestDisplayScaling::roundsTheScaleFactor()
{
    QCOMPARE(QGuiApplication::highDpiScaleFactorRoundingPolicy(),
             Qt::HighDpiScaleFactorRoundingPolicy::Round);
}

void TestDisplayScaling::scalesToTheScreen()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Qt 6 scales always; Qt 5 only when asked.
    QVERIFY(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling));
#endif
    const qreal ratio = qApp->devicePixelRatio();
    QCOMPARE(ratio, qreal(qRound(ratio)));
}

// The settings take effect only before the application object exists, so
// this test makes its own, as main does.
int main(int argc, char *argv[])
{
    AppContext::setDisplayScaling();
    QApplication application(argc, argv);
    TestDisplayScaling test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_displayscaling.moc"
