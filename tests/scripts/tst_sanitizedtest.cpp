#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// scripts/sanitized-test.sh runs each test of the sanitized build. It gives
// a test a second run only when LeakSanitizer's own tracer crashed before it
// could check anything; every real finding and every failed test function
// fails at once, and a test that passes or fails plainly keeps its status.
// The "tests" here are small shell commands that count their runs in a file
// and print what the sanitizers and QtTest print.
class TestSanitizedTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void statusAndRuns_data();
    void statusAndRuns();
    void outputOfTheTestIsShown();
    void argumentsReachTheTestUnchanged();

private:
    struct Outcome
    {
        int status = -1;
        int runs = 0;
        QString output;
    };
    Outcome run(const QString &firstRun, const QString &laterRuns);

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

const char kTracerCrash[] =
    "Tracer caught signal 11: addr=0x8d8 pc=0x7f7bb14e80f0 sp=0x7f7ba9bfed10\n"
    "==16084==LeakSanitizer has encountered a fatal error.\n";
const char kLeakReport[] =
    "==1==ERROR: LeakSanitizer: detected memory leaks\n"
    "Direct leak of 24 byte(s) in 1 object(s) allocated from:\n";
const char kAddressError[] = "==1==ERROR: AddressSanitizer: heap-use-after-free on address 0x6\n";
const char kUndefined[] = "src/x.cpp:3:5: runtime error: signed integer overflow\n";
const char kFailedFunction[] = "FAIL!  : TestX::works() Compared values are not the same\n";
const char kPassed[] = "Totals: 3 passed, 0 failed, 0 skipped, 0 blacklisted, 5ms\n";

// A shell command that prints `text` to standard error and exits with `status`.
QString says(const QByteArray &text, int status)
{
    QString quoted = QString::fromLatin1(text);
    quoted.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QStringLiteral("printf '%s' '%1' >&2; exit %2").arg(quoted).arg(status);
}

} // namespace

void TestSanitizedTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

TestSanitizedTest::Outcome TestSanitizedTest::run(const QString &firstRun, const QString &laterRuns)
{
    // The test counts its runs in a file and behaves as `firstRun` the first
    // time, as `laterRuns` after that.
    const QString counter = m_dir->filePath(QStringLiteral("runs"));
    const QString test = QStringLiteral(
                             "n=$(cat '%1' 2>/dev/null || echo 0); n=$((n+1)); echo $n > '%1'; "
                             "if [ $n -eq 1 ]; then %2; else %3; fi")
                             .arg(counter, firstRun, laterRuns);
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(VELLORA_SANITIZED_TEST_SCRIPT),
                  {QStringLiteral("bash"), QStringLiteral("-c"), test});
    Outcome outcome;
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit)
        return outcome;
    outcome.status = process.exitCode();
    outcome.output = QString::fromUtf8(process.readAll());
    QFile runs(counter);
    if (runs.open(QIODevice::ReadOnly))
        outcome.runs = runs.readAll().trimmed().toInt();
    return outcome;
}

void TestSanitizedTest::statusAndRuns_data()
{
    QTest::addColumn<QString>("firstRun");
    QTest::addColumn<QString>("laterRuns");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("runs");

    const QString crash = says(kTracerCrash, 1);
    QTest::newRow("passes") << says(kPassed, 0) << says(kPassed, 0) << 0 << 1;
    QTest::newRow("fails plainly") << says("no such file\n", 3) << says(kPassed, 0) << 3 << 1;
    QTest::newRow("tracer crash, then passes") << crash << says(kPassed, 0) << 0 << 2;
    QTest::newRow("tracer crash twice") << crash << crash << 1 << 2;
    QTest::newRow("tracer crash, then a leak") << crash << says(kLeakReport, 23) << 23 << 2;
    QTest::newRow("leak report") << says(kLeakReport, 23) << says(kPassed, 0) << 23 << 1;
    QTest::newRow("leak report and tracer crash")
        << says(QByteArray(kLeakReport).append(kTracerCrash), 1) << says(kPassed, 0) << 1
        << 1;
    QTest::newRow("address error and tracer crash")
        << says(QByteArray(kAddressError).append(kTracerCrash), 1) << says(kPassed, 0) << 1
        << 1;
    QTest::newRow("undefined behaviour and tracer crash")
        << says(QByteArray(kUndefined).append(kTracerCrash), 1) << says(kPassed, 0) << 1
        << 1;
    QTest::newRow("failed function and tracer crash")
        << says(QByteArray(kFailedFunction).append(kTracerCrash), 1) << says(kPassed, 0)
        << 1 << 1;
    QTest::newRow("tracer text but the test passed")
        << says(kTracerCrash, 0) << says(kPassed, 0) << 0 << 1;
}

void TestSanitizedTest::statusAndRuns()
{
    QFETCH(QString, firstRun);
    QFETCH(QString, laterRuns);
    QFETCH(int, status);
    QFETCH(int, runs);

    const Outcome outcome = run(firstRun, laterRuns);
    QCOMPARE(outcome.status, status);
    QCOMPARE(outcome.runs, runs);
    QCOMPARE(outcome.output.contains(QLatin1String("running the test once more")), runs == 2);
}

void TestSanitizedTest::outputOfTheTestIsShown()
{
    // Both runs' words reach ctest's log, so whoever reads a failure sees
    // what the sanitizer said the first time too.
    const Outcome outcome = run(says(kTracerCrash, 1), says(kLeakReport, 23));
    QVERIFY(outcome.output.contains(QLatin1String("Tracer caught signal 11")));
    QVERIFY(outcome.output.contains(QLatin1String("detected memory leaks")));
    QVERIFY(outcome.output.indexOf(QLatin1String("Tracer caught"))
            < outcome.output.indexOf(QLatin1String("detected memory leaks")));
}

void TestSanitizedTest::argumentsReachTheTestUnchanged()
{
    const QString out = m_dir->filePath(QStringLiteral("args"));
    QProcess process;
    process.start(QStringLiteral(VELLORA_SANITIZED_TEST_SCRIPT),
                  {QStringLiteral("bash"), QStringLiteral("-c"),
                   QStringLiteral("printf '[%s]' \"$@\" > '%1'").arg(out), QStringLiteral("zero"),
                   QStringLiteral("two words"), QStringLiteral("-v2"), QString()});
    QVERIFY(process.waitForFinished(30000));
    QCOMPARE(process.exitCode(), 0);
    QFile file(out);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), QStringLiteral("[two words][-v2][]"));
}

QTEST_GUILESS_MAIN(TestSanitizedTest)
#include "tst_sanitizedtest.moc"
