#include "colour/colourformat.h"
#include "colour/rgbdisplayformat.h"

#include <QtTest>

class TestColourFormat : public QObject
{
    Q_OBJECT

private slots:
    void componentText_data();
    void componentText();
    void componentsComeInRedGreenBlueOrder();
    void forceDecimalOverridesFormat();
    void unknownFormatShowsHex();
    void labTexts_data();
    void labTexts();
    void labIsNotPreRounded();
    void colourNameIsLowerCaseHash_data();
    void colourNameIsLowerCaseHash();
};

void TestColourFormat::componentText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("expected");

    QTest::newRow("integer 0.5 is 127") << 0.5 << int(RgbFormatInteger) << 2 << "127";
    QTest::newRow("integer 1.0 is 255") << 1.0 << int(RgbFormatInteger) << 2 << "255";
    QTest::newRow("integer 0.999 truncates to 254") << 0.999 << int(RgbFormatInteger) << 2 << "254";
    QTest::newRow("integer 0.0 unpadded") << 0.0 << int(RgbFormatInteger) << 2 << "0";
    QTest::newRow("hex 0.5 is 0x7f") << 0.5 << int(RgbFormatHex) << 2 << "0x7f";
    QTest::newRow("hex 1.0 is 0xff") << 1.0 << int(RgbFormatHex) << 2 << "0xff";
    QTest::newRow("hex 0.0 is 0x00") << 0.0 << int(RgbFormatHex) << 2 << "0x00";
    QTest::newRow("hex pads to two digits") << 0.04 << int(RgbFormatHex) << 2 << "0x0a";
    QTest::newRow("decimal 0.12345 rounds then shows 0.12")
        << 0.12345 << int(RgbFormatDecimal) << 2 << "0.12";
    QTest::newRow("decimal pre-rounding carries") << 0.0049996 << int(RgbFormatDecimal) << 2
                                                  << "0.01";
    QTest::newRow("decimal four places") << 0.123456 << int(RgbFormatDecimal) << 4 << "0.1235";
    QTest::newRow("decimal keeps trailing zeros") << 0.5 << int(RgbFormatDecimal) << 4 << "0.5000";
    QTest::newRow("decimal one") << 1.0 << int(RgbFormatDecimal) << 2 << "1.00";
}

void TestColourFormat::componentText()
{
    QFETCH(double, value);
    QFETCH(int, format);
    QFETCH(int, decimals);
    QFETCH(QString, expected);
    const QStringList texts = formatRgb(value, value, value, decimals, false, format);
    QCOMPARE(texts, QStringList({expected, expected, expected}));
}

void TestColourFormat::componentsComeInRedGreenBlueOrder()
{
    QCOMPARE(formatRgb(1.0, 0.5, 0.0, 2, false, RgbFormatInteger),
             QStringList({"255", "127", "0"}));
    QCOMPARE(formatRgb(0.1, 0.2, 0.3, 2, false, RgbFormatDecimal),
             QStringList({"0.10", "0.20", "0.30"}));
}

void TestColourFormat::forceDecimalOverridesFormat()
{
    for (int format : {int(RgbFormatInteger), int(RgbFormatDecimal), int(RgbFormatHex), 9})
        QCOMPARE(formatRgb(0.5, 0.123456, 1.0, 4, true, format),
                 QStringList({"0.5000", "0.1235", "1.0000"}));
}

void TestColourFormat::unknownFormatShowsHex()
{
    QCOMPARE(formatRgb(0.5, 1.0, 0.0, 2, false, 3), QStringList({"0x7f", "0xff", "0x00"}));
    QCOMPARE(formatRgb(0.5, 1.0, 0.0, 2, false, -1), QStringList({"0x7f", "0xff", "0x00"}));
}

void TestColourFormat::labTexts_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("red, 2 decimals") << 1.0 << 0.0 << 0.0 << 2
                                     << QStringList({"53.23", "80.11", "67.22"});
    QTest::newRow("steel blue, 4 decimals") << 0.2 << 0.4 << 0.6 << 4
                                            << QStringList({"42.0100", "-0.1447", "-32.8515"});
    QTest::newRow("white, 2 decimals") << 1.0 << 1.0 << 1.0 << 2
                                       << QStringList({"100.00", "0.01", "-0.01"});
}

void TestColourFormat::labTexts()
{
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    QFETCH(int, decimals);
    QFETCH(QStringList, expected);
    QCOMPARE(formatLab(red, green, blue, decimals), expected);
}

void TestColourFormat::labIsNotPreRounded()
{
    // L of pure red is 53.232882; four-decimal pre-rounding would show 53.232900.
    QCOMPARE(formatLab(1.0, 0.0, 0.0, 6).first(), QStringLiteral("53.232882"));
}

void TestColourFormat::colourNameIsLowerCaseHash_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<QString>("name");
    QTest::newRow("black") << 0.0 << 0.0 << 0.0 << "#000000";
    QTest::newRow("white") << 1.0 << 1.0 << 1.0 << "#ffffff";
    QTest::newRow("lower-case digits") << 170.0 / 255 << 187.0 / 255 << 204.0 / 255 << "#aabbcc";
    QTest::newRow("limegreen") << 50.0 / 255 << 205.0 / 255 << 50.0 / 255 << "#32cd32";
}

void TestColourFormat::colourNameIsLowerCaseHash()
{
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    QFETCH(QString, name);
    QCOMPARE(colourName(red, green, blue), name);
}

QTEST_GUILESS_MAIN(TestColourFormat)
#include "tst_colourformat.moc"
