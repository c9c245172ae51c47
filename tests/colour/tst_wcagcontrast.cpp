#include "colour/wcagcontrast.h"

#include <QtTest>

namespace {

RgbColour hex(uint rgb)
{
    return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0};
}

} // namespace

class TestWcagContrast : public QObject
{
    Q_OBJECT

private slots:
    void publishedRatios_data();
    void publishedRatios();
    void ratioIgnoresOrder();
    void relativeLuminanceOfPrimaries_data();
    void relativeLuminanceOfPrimaries();
    void verdicts_data();
    void verdicts();
    void ratioJustBelowThresholdFails();
    void ratioTextTruncatesNeverRoundsUp_data();
    void ratioTextTruncatesNeverRoundsUp();
    void outOfRangeComponentsAreClamped();
};

void TestWcagContrast::publishedRatios_data()
{
    QTest::addColumn<uint>("foreground");
    QTest::addColumn<uint>("background");
    QTest::addColumn<double>("published");
    QTest::addColumn<QString>("shown");
    // WCAG 2.2, definition of "contrast ratio": ratios range from 1:1 to 21:1.
    QTest::newRow("black on white 21:1 (WCAG 2.2 definition)") << 0x000000u << 0xffffffu << 21.0
                                                                << QStringLiteral("21.00");
    QTest::newRow("white on white 1:1 (WCAG 2.2 definition)") << 0xffffffu << 0xffffffu << 1.0
                                                               << QStringLiteral("1.00");
    // The grey most often quoted as just failing AA: 4.48:1 rounded (WebAIM
    // contrast checker; unrounded 4.478, so shown truncated as 4.47).
    QTest::newRow("#777777 on white 4.48:1") << 0x777777u << 0xffffffu << 4.48
                                             << QStringLiteral("4.47");
    // The lightest grey that passes AA on white, quoted as 4.54:1 (WebAIM).
    QTest::newRow("#767676 on white 4.54:1") << 0x767676u << 0xffffffu << 4.54
                                             << QStringLiteral("4.54");
}

void TestWcagContrast::publishedRatios()
{
    QFETCH(uint, foreground);
    QFETCH(uint, background);
    QFETCH(double, published);
    QFETCH(QString, shown);
    const double ratio = WcagContrast::ratio(hex(foreground), hex(background));
    // Published figures are rounded to two decimals.
    QVERIFY2(qAbs(ratio - published) <= 0.005, qPrintable(QString::number(ratio, 'f', 6)));
    QCOMPARE(WcagContrast::ratioText(ratio), shown);
}

void TestWcagContrast::ratioIgnoresOrder()
{
    const RgbColour a = hex(0x336699);
    const RgbColour b = hex(0xffcc00);
    QCOMPARE(WcagContrast::ratio(a, b), WcagContrast::ratio(b, a));
    QVERIFY(WcagContrast::ratio(a, b) > 1.0);
}

void TestWcagContrast::relativeLuminanceOfPrimaries_data()
{
    QTest::addColumn<uint>("colour");
    QTest::addColumn<double>("luminance");
    // WCAG 2.2, definition of "relative luminance": L = 0.2126 R + 0.7152 G
    // + 0.0722 B of the linearised components, so a full primary is its weight.
    QTest::newRow("red") << 0xff0000u << 0.2126;
    QTest::newRow("green") << 0x00ff00u << 0.7152;
    QTest::newRow("blue") << 0x0000ffu << 0.0722;
    // 10/255 = 0.0392 is below 0.04045: the linear segment, 0.0392 / 12.92.
    QTest::newRow("dark grey on the linear segment") << 0x0a0a0au << (10.0 / 255.0) / 12.92;
}

void TestWcagContrast::relativeLuminanceOfPrimaries()
{
    QFETCH(uint, colour);
    QFETCH(double, luminance);
    QVERIFY(qAbs(WcagContrast::relativeLuminance(hex(colour)) - luminance) < 1e-12);
}

void TestWcagContrast::verdicts_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("passes"); // one letter per criterion, in enum order
    // Thresholds of WCAG 2.2: 1.4.3 4.5 / 3, 1.4.6 7 / 4.5, 1.4.11 3.
    QTest::newRow("21") << 21.0 << QStringLiteral("yyyyy");
    QTest::newRow("exactly 7") << 7.0 << QStringLiteral("yyyyy");
    QTest::newRow("6.99") << 6.99 << QStringLiteral("yynyy");
    QTest::newRow("exactly 4.5") << 4.5 << QStringLiteral("yynyy");
    QTest::newRow("4.478 (#777777 on white)") << 4.478 << QStringLiteral("nynny");
    QTest::newRow("exactly 3") << 3.0 << QStringLiteral("nynny");
    QTest::newRow("2.999") << 2.999 << QStringLiteral("nnnnn");
    QTest::newRow("1") << 1.0 << QStringLiteral("nnnnn");
}

void TestWcagContrast::verdicts()
{
    QFETCH(double, ratio);
    QFETCH(QString, passes);
    QString got;
    for (int c = 0; c < WcagContrast::CriterionCount; ++c)
        got += WcagContrast::passes(ratio, WcagContrast::Criterion(c)) ? 'y' : 'n';
    QCOMPARE(got, passes);
}

void TestWcagContrast::ratioJustBelowThresholdFails()
{
    QVERIFY(!WcagContrast::passes(4.499, WcagContrast::MinimumNormal));
    QVERIFY(!WcagContrast::passes(std::nextafter(4.5, 0.0), WcagContrast::MinimumNormal));
    QVERIFY(WcagContrast::passes(4.5, WcagContrast::MinimumNormal));
    // Shown, the failing ratio never reads as the threshold.
    QCOMPARE(WcagContrast::ratioText(std::nextafter(4.5, 0.0)), QStringLiteral("4.49"));
}

void TestWcagContrast::ratioTextTruncatesNeverRoundsUp_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("text");
    QTest::newRow("4.999") << 4.999 << QStringLiteral("4.99");
    QTest::newRow("2.995") << 2.9951 << QStringLiteral("2.99");
    QTest::newRow("6.9999999") << 6.9999999 << QStringLiteral("6.99");
    QTest::newRow("12.3456") << 12.3456 << QStringLiteral("12.34");
}

void TestWcagContrast::ratioTextTruncatesNeverRoundsUp()
{
    QFETCH(double, ratio);
    QFETCH(QString, text);
    QCOMPARE(WcagContrast::ratioText(ratio), text);
}

void TestWcagContrast::outOfRangeComponentsAreClamped()
{
    QCOMPARE(WcagContrast::relativeLuminance({2.0, 2.0, 2.0}), 1.0);
    QCOMPARE(WcagContrast::relativeLuminance({-1.0, -1.0, -1.0}), 0.0);
}

QTEST_APPLESS_MAIN(TestWcagContrast)
#include "tst_wcagcontrast.moc"
