#include "cli/cliarguments.h"
#include "cli/clisamplecommand.h"
#include "cli/clistatus.h"

#include <QtTest>

namespace {

using Request = CCliSampleCommand::Request;

// Values no option of these tests would produce, so that any write to the
// request shows.
const QPoint kUntouchedPoint(12345, -6789);
const QRect kUntouchedBand(QPoint(-31, -41), QPoint(59, 26));
const int kUntouchedSize = -3;

Request untouchedRequest()
{
    Request request;
    request.point = kUntouchedPoint;
    request.band = kUntouchedBand;
    request.pickSize = kUntouchedSize;
    request.useRgb = false;
    return request;
}

// Parses the words as `sample` does; the parse must succeed, the options
// themselves are only checked by readPick and readRequest.
CCliArguments parsedArguments(const QStringList &words)
{
    CCliArguments args;
    const CCliStatus status = CCliSampleCommand::parse(words, &args);
    if (status.failed())
        qWarning("unexpected parse failure: %s", qPrintable(status.message()));
    return args;
}

} // namespace

// The sample command's options, read without any image: a refused option
// must report the error and leave the request alone, never read values the
// parse did not produce.
class TestCliSampleCommand : public QObject
{
    Q_OBJECT

private slots:
    void refusedPickLeavesTheRequestUnchanged_data();
    void refusedPickLeavesTheRequestUnchanged();
    void sizeFourWithAPointIsRefusedBeforeThePointIsRead();
    void badBandLeavesTheBandUnchanged();
    void goodPointAndSizeAreRead();
    void goodBandIsReadNormalised();
    void unknownAverageLeavesTheRuleUnchanged();
};

void TestCliSampleCommand::refusedPickLeavesTheRequestUnchanged_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("code");
    QTest::newRow("size 4") << QStringList{"a.png", "--point", "1,1", "--size", "4"}
                            << int(CCliStatus::UsageError);
    QTest::newRow("size word") << QStringList{"a.png", "--point", "1,1", "--size", "big"}
                               << int(CCliStatus::UsageError);
    QTest::newRow("point with one number") << QStringList{"a.png", "--point", "5"}
                                           << int(CCliStatus::BadInput);
    QTest::newRow("point with words") << QStringList{"a.png", "--point", "x,y"}
                                      << int(CCliStatus::BadInput);
    QTest::newRow("empty point") << QStringList{"a.png", "--point", ""}
                                 << int(CCliStatus::BadInput);
    QTest::newRow("huge point") << QStringList{"a.png", "--point", "1,99999999999"}
                                << int(CCliStatus::BadInput);
    QTest::newRow("band with three numbers") << QStringList{"a.png", "--band", "1,2,3"}
                                             << int(CCliStatus::BadInput);
    QTest::newRow("band with a word last") << QStringList{"a.png", "--band", "1,2,3,d"}
                                           << int(CCliStatus::BadInput);
    QTest::newRow("empty band") << QStringList{"a.png", "--band", ""} << int(CCliStatus::BadInput);
}

void TestCliSampleCommand::refusedPickLeavesTheRequestUnchanged()
{
    QFETCH(QStringList, words);
    QFETCH(int, code);
    const CCliArguments args = parsedArguments(words);
    Request request = untouchedRequest();
    const CCliStatus status = CCliSampleCommand::readPick(args, &request);
    QVERIFY(status.failed());
    QCOMPARE(status.code(), code);
    QVERIFY(!status.message().isEmpty());
    QCOMPARE(request.point, kUntouchedPoint);
    QCOMPARE(request.band, kUntouchedBand);
}

void TestCliSampleCommand::sizeFourWithAPointIsRefusedBeforeThePointIsRead()
{
    const CCliArguments args = parsedArguments({"a.png", "--point", "1,1", "--size", "4"});
    Request request = untouchedRequest();
    const CCliStatus status = CCliSampleCommand::readRequest(args, &request);
    QCOMPARE(status.code(), int(CCliStatus::UsageError));
    QCOMPARE(status.message(), QStringLiteral("option --size must be one of 1|3|5|7|9, not \"4\""));
    QCOMPARE(request.pickSize, kUntouchedSize);
    QCOMPARE(request.point, kUntouchedPoint);
    QVERIFY(!request.useBand);
}

void TestCliSampleCommand::badBandLeavesTheBandUnchanged()
{
    // The first three numbers are good: none of them may reach the request.
    const CCliArguments args = parsedArguments({"a.png", "--band", "10,20,30,forty"});
    Request request = untouchedRequest();
    const CCliStatus status = CCliSampleCommand::readRequest(args, &request);
    QCOMPARE(status.code(), int(CCliStatus::BadInput));
    QCOMPARE(status.message(),
             QStringLiteral("--band X0,Y0,X1,Y1 needs 4 whole numbers from -1000000000 to "
                            "1000000000 separated by commas, not \"10,20,30,forty\""));
    QVERIFY(request.useBand);
    QCOMPARE(request.band, kUntouchedBand);
}

void TestCliSampleCommand::goodPointAndSizeAreRead()
{
    const CCliArguments args = parsedArguments({"a.png", "--point", "7,-11", "--size", "9"});
    Request request = untouchedRequest();
    const CCliStatus status = CCliSampleCommand::readRequest(args, &request);
    QVERIFY2(!status.failed(), qPrintable(status.message()));
    QCOMPARE(request.imagePath, QStringLiteral("a.png"));
    QCOMPARE(request.point, QPoint(7, -11));
    QCOMPARE(request.pickSize, 9);
    QVERIFY(request.useRgb);
    QVERIFY(!request.useBand);
    QCOMPARE(request.band, kUntouchedBand);
}

void TestCliSampleCommand::goodBandIsReadNormalised()
{
    const CCliArguments args = parsedArguments({"a.png", "--band", "30,40,10,20"});
    Request request = untouchedRequest();
    const CCliStatus status = CCliSampleCommand::readPick(args, &request);
    QVERIFY2(!status.failed(), qPrintable(status.message()));
    QVERIFY(request.useBand);
    QCOMPARE(request.band, QRect(QPoint(10, 20), QPoint(30, 40)));
    QCOMPARE(request.point, kUntouchedPoint);
}

void TestCliSampleCommand::unknownAverageLeavesTheRuleUnchanged()
{
    const CCliArguments args = parsedArguments({"a.png", "--point", "1,1", "--average", "median"});
    Request request = untouchedRequest();
    const CCliStatus status = CCliSampleCommand::readRequest(args, &request);
    QCOMPARE(status.code(), int(CCliStatus::UsageError));
    QVERIFY(!request.useRgb);
    QCOMPARE(request.point, kUntouchedPoint);
}

QTEST_GUILESS_MAIN(TestCliSampleCommand)
#include "tst_clisamplecommand.moc"
