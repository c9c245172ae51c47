#include "colour/colourformat.h"
#include "colour/matchscore.h"
#include "sample/colourtexts.h"
#include "sample/widesttexts.h"

#include <QFontMetrics>
#include <QLabel>
#include <QtTest>

#include <memory>

// The widest texts are at least as wide as every text they stand for, in
// the font the page's labels use.
class TestWidestTexts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void widestOfNothingIsEmpty();
    void widestLineOfATextCounts();
    void firstOfEquallyWideTextsIsKept();
    void sampleValueIsAtLeastEveryValue_data();
    void sampleValueIsAtLeastEveryValue();
    void rgbLineIsAtLeastEveryColoursLine_data();
    void rgbLineIsAtLeastEveryColoursLine();
    void labLineIsAtLeastEveryColoursLine();
    void matchTextIsAtLeastEveryScore();

private:
    int width(const QString &text) const { return CWidestTexts::width(text, *m_metrics); }

    std::unique_ptr<QLabel> m_label;
    std::unique_ptr<QFontMetrics> m_metrics;
};

void TestWidestTexts::initTestCase()
{
    m_label = std::make_unique<QLabel>();
    m_metrics = std::make_unique<QFontMetrics>(m_label->fontMetrics());
}

void TestWidestTexts::widestOfNothingIsEmpty()
{
    QCOMPARE(CWidestTexts::widest({}, *m_metrics), QString());
}

void TestWidestTexts::widestLineOfATextCounts()
{
    const QString twoLines = QStringLiteral("i\nWWWWWWWW");
    QCOMPARE(width(twoLines), m_metrics->horizontalAdvance(QStringLiteral("WWWWWWWW")));
    QCOMPARE(CWidestTexts::widest({QStringLiteral("iiiiiiiiii"), twoLines}, *m_metrics), twoLines);
}

void TestWidestTexts::firstOfEquallyWideTextsIsKept()
{
    QCOMPARE(CWidestTexts::widest({QStringLiteral("ab"), QStringLiteral("ab")}, *m_metrics),
             QStringLiteral("ab"));
    QCOMPARE(CWidestTexts::widest({QStringLiteral("x")}, *m_metrics), QStringLiteral("x"));
}

void TestWidestTexts::sampleValueIsAtLeastEveryValue_data()
{
    QTest::addColumn<int>("rgbFormat");
    QTest::newRow("integer") << 0;
    QTest::newRow("decimal") << 1;
    QTest::newRow("hex") << 2;
}

void TestWidestTexts::sampleValueIsAtLeastEveryValue()
{
    QFETCH(int, rgbFormat);
    const int widest = width(CWidestTexts::sampleValue(*m_metrics));
    for (int byte = 0; byte < 256; ++byte) {
        const double level = byte / 255.0;
        for (const QString &text : formatRgb(level, level, level, 2, false, rgbFormat))
            QVERIFY2(width(text) <= widest, qPrintable(text));
    }
    const int levels = 32;
    for (int r = 0; r < levels; ++r)
        for (int g = 0; g < levels; ++g)
            for (int b = 0; b < levels; ++b) {
                const double step = levels - 1;
                for (const QString &text : formatLab(r / step, g / step, b / step, 2))
                    QVERIFY2(width(text) <= widest, qPrintable(text));
            }
}

void TestWidestTexts::rgbLineIsAtLeastEveryColoursLine_data()
{
    sampleValueIsAtLeastEveryValue_data();
}

void TestWidestTexts::rgbLineIsAtLeastEveryColoursLine()
{
    QFETCH(int, rgbFormat);
    const int widest = width(CWidestTexts::rgbLine(*m_metrics));
    for (int byte = 0; byte < 256; ++byte) {
        // Each channel through every byte, the others at a wide and a narrow one.
        for (int other : {0, 88, 255}) {
            const RgbColour colour{byte / 255.0, other / 255.0, (255 - byte) / 255.0};
            const QString line = CColourTexts::rgbLine(colour, rgbFormat);
            QVERIFY2(width(line) <= widest, qPrintable(line));
        }
    }
}

void TestWidestTexts::labLineIsAtLeastEveryColoursLine()
{
    const int widest = width(CWidestTexts::labLine(*m_metrics));
    const int levels = 32;
    for (int r = 0; r < levels; ++r)
        for (int g = 0; g < levels; ++g)
            for (int b = 0; b < levels; ++b) {
                const double step = levels - 1;
                const QString line = CColourTexts::labLine({r / step, g / step, b / step});
                QVERIFY2(width(line) <= widest, qPrintable(line));
            }
}

void TestWidestTexts::matchTextIsAtLeastEveryScore()
{
    const int widest = width(CWidestTexts::matchText(*m_metrics));
    for (int tenth = -10; tenth <= 1200; ++tenth) {
        for (bool percent : {true, false}) {
            const QString text = ::matchText(tenth / 10.0f, percent);
            QVERIFY2(width(text) <= widest, qPrintable(text));
        }
    }
}

QTEST_MAIN(TestWidestTexts)
#include "tst_widesttexts.moc"
