#include "colour/apcacontrast.h"

#include <QtTest>

namespace {

RgbColour hex(uint rgb)
{
    return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0};
}

} // namespace

class TestApcaContrast : public QObject
{
    Q_OBJECT

private slots:
    void referencePairs_data();
    void referencePairs();
    void identicalColoursHaveNoContrast();
    void guidanceLevels_data();
    void guidanceLevels();
    void lcTextKeepsSign();
};

void TestApcaContrast::referencePairs_data()
{
    QTest::addColumn<uint>("text");
    QTest::addColumn<uint>("background");
    QTest::addColumn<double>("lc");
    // The test values that APCA's own documentation lists for checking an
    // implementation of 0.0.98G-4g (README of the apca-w3 package, "Test
    // values"): text colour, background colour, Lc.
    QTest::newRow("#888888 on #ffffff") << 0x888888u << 0xffffffu << 63.056469930209424;
    QTest::newRow("#ffffff on #888888") << 0xffffffu << 0x888888u << -68.54146436644962;
    QTest::newRow("#000000 on #aaaaaa") << 0x000000u << 0xaaaaaau << 58.146262578561334;
    QTest::newRow("#aaaaaa on #000000") << 0xaaaaaau << 0x000000u << -56.24113336839742;
    QTest::newRow("#112233 on #ddeeff") << 0x112233u << 0xddeeffu << 91.66830811481631;
    QTest::newRow("#ddeeff on #112233") << 0xddeeffu << 0x112233u << -93.06770049484275;
    QTest::newRow("#112233 on #444444") << 0x112233u << 0x444444u << 8.32326136957393;
    QTest::newRow("#444444 on #112233") << 0x444444u << 0x112233u << -7.526878460278154;
}

void TestApcaContrast::referencePairs()
{
    QFETCH(uint, text);
    QFETCH(uint, background);
    QFETCH(double, lc);
    const double got = ApcaContrast::lightnessContrast(hex(text), hex(background));
    QVERIFY2(qAbs(got - lc) < 1e-9, qPrintable(QString::number(got, 'g', 17)));
}

void TestApcaContrast::identicalColoursHaveNoContrast()
{
    QCOMPARE(ApcaContrast::lightnessContrast(hex(0x336699), hex(0x336699)), 0.0);
    // Near-identical light colours fall under the low clip too.
    QCOMPARE(ApcaContrast::lightnessContrast(hex(0xfefefe), hex(0xffffff)), 0.0);
}

void TestApcaContrast::guidanceLevels_data()
{
    QTest::addColumn<double>("lc");
    QTest::addColumn<int>("level");
    QTest::newRow("106") << 106.0 << 90;
    QTest::newRow("90 exactly") << 90.0 << 90;
    QTest::newRow("89.9") << 89.9 << 75;
    QTest::newRow("-68.5 (light on dark)") << -68.5 << 60;
    QTest::newRow("45") << 45.0 << 45;
    QTest::newRow("30") << 30.0 << 30;
    QTest::newRow("-15") << -15.0 << 15;
    QTest::newRow("8.3") << 8.3 << 0;
}

void TestApcaContrast::guidanceLevels()
{
    QFETCH(double, lc);
    QFETCH(int, level);
    QCOMPARE(ApcaContrast::level(lc), level);
    const QString guidance = ApcaContrast::guidance(lc);
    if (level > 0)
        QVERIFY(guidance.startsWith(QStringLiteral("Lc %1:").arg(level)));
    else
        QVERIFY(guidance.startsWith(QStringLiteral("Below Lc 15")));
}

void TestApcaContrast::lcTextKeepsSign()
{
    QCOMPARE(ApcaContrast::lcText(63.056469930209424), QStringLiteral("Lc 63.1"));
    QCOMPARE(ApcaContrast::lcText(-68.54146436644962), QStringLiteral("Lc -68.5"));
}

QTEST_APPLESS_MAIN(TestApcaContrast)
#include "tst_apcacontrast.moc"
