#include "colour/colourformat.h"
#include "palette/colourcopytext.h"

#include <QtTest>

class TestColourCopyText : public QObject
{
    Q_OBJECT

private slots:
    void hexIsTheColoursName();
    void cssRgbUsesTheSameBytesAsHex_data();
    void cssRgbUsesTheSameBytesAsHex();
    void outOfRangeEntriesAreClampedForCopying();
};

void TestColourCopyText::hexIsTheColoursName()
{
    const RgbColour c{30 / 255.0, 144 / 255.0, 1.0};
    QCOMPARE(CColourCopyText::hex(c), QStringLiteral("#1e90ff"));
    QCOMPARE(CColourCopyText::hex(c), colourName(c.red, c.green, c.blue));
}

void TestColourCopyText::cssRgbUsesTheSameBytesAsHex_data()
{
    QTest::addColumn<double>("v");
    for (double v : {0.0, 0.0039, 0.0078, 0.5, 0.502, 0.999, 1.0})
        QTest::newRow(qPrintable(QString::number(v))) << v;
}

void TestColourCopyText::cssRgbUsesTheSameBytesAsHex()
{
    QFETCH(double, v);
    const RgbColour c{v, 1.0 - v, v / 2};
    const QString hex = CColourCopyText::hex(c);
    const QString expected = QStringLiteral("rgb(%1, %2, %3)")
                                 .arg(QStringView(hex).mid(1, 2).toInt(nullptr, 16))
                                 .arg(QStringView(hex).mid(3, 2).toInt(nullptr, 16))
                                 .arg(QStringView(hex).mid(5, 2).toInt(nullptr, 16));
    QCOMPARE(CColourCopyText::cssRgb(c), expected);
}

void TestColourCopyText::outOfRangeEntriesAreClampedForCopying()
{
    QCOMPARE(CColourCopyText::hex({1.2, -0.1, 0.5}), QStringLiteral("#ff0080"));
    QCOMPARE(CColourCopyText::cssRgb({1.2, -0.1, 0.5}), QStringLiteral("rgb(255, 0, 128)"));
}

QTEST_GUILESS_MAIN(TestColourCopyText)
#include "tst_colourcopytext.moc"
