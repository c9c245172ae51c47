#include "colour/matchscore.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

float justBelow(float v)
{
    return std::nextafter(v, -1000.0f);
}

const float kNaN = std::numeric_limits<float>::quiet_NaN();

// Marks every text looked up in the "QObject" context, and only those.
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *sourceText, const char * = nullptr,
                      int = -1) const override
    {
        if (qstrcmp(context, "QObject") != 0)
            return QString();
        return QStringLiteral("<") + QString::fromUtf8(sourceText);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestMatchScore : public QObject
{
    Q_OBJECT

private slots:
    void percentByBand_data();
    void percentByBand();
    void percentIsContinuousAtOneTwoThree_data();
    void percentIsContinuousAtOneTwoThree();
    void percentJumpsAtSixAndTwelve();
    void percentOfNaNIsNaN();
    void verdictBands_data();
    void verdictBands();
    void shortTexts();
    void longTexts();
    void verdictOutOfRangeIsEmpty();
    void matchText_data();
    void matchText();
    void matchTextOfNaN();
    void textsAreTranslatedInQObjectContext();
};

void TestMatchScore::percentByBand_data()
{
    QTest::addColumn<float>("deltaE");
    QTest::addColumn<double>("percent");
    QTest::newRow("0 is 100") << 0.0f << 100.0;
    QTest::newRow("0.5") << 0.5f << 99.5;
    QTest::newRow("0.99 is 99.01") << 0.99f << 99.01;
    QTest::newRow("1.0 is 99") << 1.0f << 99.0;
    QTest::newRow("1.5") << 1.5f << 97.0;
    QTest::newRow("2.0 is 95") << 2.0f << 95.0;
    QTest::newRow("2.5 is 92.5") << 2.5f << 92.5;
    QTest::newRow("3.0 is 90") << 3.0f << 90.0;
    QTest::newRow("4.5") << 4.5f << 85.005;
    QTest::newRow("5.999 is 80.0133") << 5.999f << 80.01333;
    QTest::newRow("6 is 80") << 6.0f << 80.0;
    QTest::newRow("10 is 66.68") << 10.0f << 66.68;
    QTest::newRow("11.999") << 11.999f << 60.02333;
    QTest::newRow("12 is 60") << 12.0f << 60.0;
    QTest::newRow("50") << 50.0f << 34.16;
    QTest::newRow("100 is 0.16") << 100.0f << 0.16;
    QTest::newRow("just over 100 clamps to 0.16") << 100.001f << 0.16;
    QTest::newRow("150 clamps to 0.16") << 150.0f << 0.16;
    QTest::newRow("-1 is 100") << -1.0f << 100.0;
    QTest::newRow("just below 0 is 100") << -0.0001f << 100.0;
}

void TestMatchScore::percentByBand()
{
    QFETCH(float, deltaE);
    QFETCH(double, percent);
    const float got = matchPercent(deltaE);
    QVERIFY2(std::fabs(got - percent) < 1e-4, qPrintable(QString::number(got, 'g', 9)));
}

void TestMatchScore::percentIsContinuousAtOneTwoThree_data()
{
    QTest::addColumn<float>("boundary");
    QTest::addColumn<double>("percent");
    QTest::newRow("1") << 1.0f << 99.0;
    QTest::newRow("2") << 2.0f << 95.0;
    QTest::newRow("3") << 3.0f << 90.0;
}

void TestMatchScore::percentIsContinuousAtOneTwoThree()
{
    QFETCH(float, boundary);
    QFETCH(double, percent);
    QVERIFY(std::fabs(matchPercent(boundary) - percent) < 1e-5);
    QVERIFY(std::fabs(matchPercent(justBelow(boundary)) - percent) < 1e-4);
    QVERIFY(matchPercent(justBelow(boundary)) >= matchPercent(boundary));
}

void TestMatchScore::percentJumpsAtSixAndTwelve()
{
    // The slope 3.33 falls short of 10/3, so the bands do not quite meet.
    QVERIFY(std::fabs(matchPercent(justBelow(6.0f)) - 80.01f) < 1e-4);
    QCOMPARE(matchPercent(6.0f), 80.0f);
    QVERIFY(std::fabs(matchPercent(justBelow(12.0f)) - 60.02f) < 1e-4);
    QCOMPARE(matchPercent(12.0f), 60.0f);
}

void TestMatchScore::percentOfNaNIsNaN()
{
    QVERIFY(std::isnan(matchPercent(kNaN)));
}

void TestMatchScore::verdictBands_data()
{
    QTest::addColumn<float>("deltaE");
    QTest::addColumn<int>("verdict");
    QTest::newRow("-1") << -1.0f << 0;
    QTest::newRow("0") << 0.0f << 0;
    QTest::newRow("just below 1") << justBelow(1.0f) << 0;
    QTest::newRow("1") << 1.0f << 1;
    QTest::newRow("just below 2") << justBelow(2.0f) << 1;
    QTest::newRow("2") << 2.0f << 2;
    QTest::newRow("9.99") << 9.99f << 2;
    QTest::newRow("just below 10") << justBelow(10.0f) << 2;
    QTest::newRow("10") << 10.0f << 3;
    QTest::newRow("150") << 150.0f << 3;
    QTest::newRow("NaN") << kNaN << 3;
}

void TestMatchScore::verdictBands()
{
    QFETCH(float, deltaE);
    QFETCH(int, verdict);
    QCOMPARE(::verdict(deltaE), verdict);
}

void TestMatchScore::shortTexts()
{
    QCOMPARE(verdictShortText(0), QStringLiteral("Visually identical"));
    QCOMPARE(verdictShortText(1), QStringLiteral("Visually similar"));
    QCOMPARE(verdictShortText(2), QStringLiteral("Noticably different"));
    QCOMPARE(verdictShortText(3), QStringLiteral("Significantly Different"));
}

void TestMatchScore::longTexts()
{
    QCOMPARE(verdictLongText(0),
             QStringLiteral("Visually identical - colours appear identical to the human eye"));
    QCOMPARE(verdictLongText(1),
             QStringLiteral("Visually similar - colour differences only perceptible through "
                            "close observation"));
    QCOMPARE(verdictLongText(2),
             QStringLiteral("Noticably different - colour differences are apparent at a glance"));
    QCOMPARE(verdictLongText(3),
             QStringLiteral("Significantly Different - colours are clearly different"));
}

void TestMatchScore::verdictOutOfRangeIsEmpty()
{
    QVERIFY(verdictShortText(-1).isEmpty());
    QVERIFY(verdictShortText(4).isEmpty());
    QVERIFY(verdictLongText(4).isEmpty());
}

void TestMatchScore::matchText_data()
{
    QTest::addColumn<float>("deltaE");
    QTest::addColumn<bool>("asPercent");
    QTest::addColumn<QString>("text");
    const QString delta = QString(QChar(0x0394)) + "E:";
    QTest::newRow("0 percent") << 0.0f << true << "Visually identical\n100% match";
    QTest::newRow("0 delta") << 0.0f << false << "Visually identical\n" + delta + "0.0";
    QTest::newRow("0.99 percent") << 0.99f << true << "Visually identical\n99% match";
    QTest::newRow("0.99 delta") << 0.99f << false << "Visually identical\n" + delta + "1.0";
    QTest::newRow("1.0 percent") << 1.0f << true << "Visually similar\n99% match";
    QTest::newRow("1.0 delta") << 1.0f << false << "Visually similar\n" + delta + "1.0";
    QTest::newRow("2.5 delta") << 2.5f << false << "Noticably different\n" + delta + "2.5";
    QTest::newRow("5.999 percent") << 5.999f << true << "Noticably different\n80% match";
    QTest::newRow("9.99 delta shows 10.0 but stays noticable")
        << 9.99f << false << "Noticably different\n" + delta + "10.0";
    QTest::newRow("10 percent") << 10.0f << true << "Significantly Different\n67% match";
    QTest::newRow("10 delta") << 10.0f << false << "Significantly Different\n" + delta + "10.0";
    QTest::newRow("150 delta clamps") << 150.0f << false
                                      << "Significantly Different\n" + delta + "100.0";
    QTest::newRow("150 percent") << 150.0f << true << "Significantly Different\n0% match";
    QTest::newRow("-1 delta clamps") << -1.0f << false << "Visually identical\n" + delta + "0.0";
    QTest::newRow("-1 percent") << -1.0f << true << "Visually identical\n100% match";
}

void TestMatchScore::matchText()
{
    QFETCH(float, deltaE);
    QFETCH(bool, asPercent);
    QFETCH(QString, text);
    QCOMPARE(::matchText(deltaE, asPercent), text);
}

void TestMatchScore::matchTextOfNaN()
{
    const QString delta = QString(QChar(0x0394)) + "E:";
    QCOMPARE(::matchText(kNaN, false), "Significantly Different\n" + delta + "nan");
    QCOMPARE(::matchText(kNaN, true), QStringLiteral("Significantly Different\nnan% match"));
}

void TestMatchScore::textsAreTranslatedInQObjectContext()
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const QString shortText = verdictShortText(1);
    const QString longText = verdictLongText(3);
    const QString percentText = ::matchText(0.0f, true);
    const QString deltaText = ::matchText(150.0f, false);
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(shortText, QStringLiteral("<Visually similar"));
    QCOMPARE(longText, QStringLiteral("<Significantly Different - colours are clearly different"));
    // The template, the verdict and the value text each go through translation.
    QCOMPARE(percentText, QStringLiteral("<<Visually identical\n<100% match"));
    QCOMPARE(deltaText,
             "<<Significantly Different\n<" + QString(QChar(0x0394)) + "E:100.0");
    QCOMPARE(verdictShortText(1), QStringLiteral("Visually similar"));
}

QTEST_GUILESS_MAIN(TestMatchScore)
#include "tst_matchscore.moc"
