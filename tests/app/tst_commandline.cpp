#include "app/commandline.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

// What `vellora` makes of its command line: a picture to open (a path,
// relative to the current folder, or a file:// URL), --help and --version
// printed without starting, and a one-line usage message with status 1 for
// anything else that starts with a dash.
class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void noArgumentsStartsWithoutAPicture();
    void picturesBecomeAbsoluteLocalPaths_data();
    void picturesBecomeAbsoluteLocalPaths();
    void helpAndVersionAnswerWhereverTheyStand_data();
    void helpAndVersionAnswerWhereverTheyStand();
    void unknownOptionsAreRefusedInOneLine_data();
    void unknownOptionsAreRefusedInOneLine();
    void helpNamesEveryOption();

    void programPrintsHelpAndVersionWithoutADisplay_data();
    void programPrintsHelpAndVersionWithoutADisplay();
    void programRefusesAnUnknownOptionWithStatusOne();

private:
    QTemporaryDir m_folder;
    QString m_startFolder;
};

void TestCommandLine::initTestCase()
{
    QVERIFY(m_folder.isValid());
    m_startFolder = QDir::currentPath();
    // Relative paths are taken from the current folder: make it a known one.
    QVERIFY(QDir::setCurrent(m_folder.path()));
}

void TestCommandLine::cleanupTestCase()
{
    QDir::setCurrent(m_startFolder);
}

void TestCommandLine::noArgumentsStartsWithoutAPicture()
{
    const CCommandLine line{QStringList()};
    QCOMPARE(line.action(), CCommandLine::Start);
    QVERIFY(line.picture().isEmpty());
    QVERIFY(line.message().isEmpty());
    QCOMPARE(line.exitStatus(), 0);
}

void TestCommandLine::picturesBecomeAbsoluteLocalPaths_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("relativeToFolder");
    const QString current = QDir::currentPath();
    const QString spaced = QStringLiteral("Mes photos/Cöte d'Azur été.png");
    QTest::newRow("relative") << QStringList{"leaf.png"} << "leaf.png";
    QTest::newRow("relative below") << QStringList{"sub/leaf.png"} << "sub/leaf.png";
    QTest::newRow("relative up") << QStringList{"sub/../leaf.png"} << "leaf.png";
    QTest::newRow("spaces and accents") << QStringList{spaced} << spaced;
    QTest::newRow("absolute") << QStringList{current + "/abs.jpg"} << "abs.jpg";
    QTest::newRow("file url")
        << QStringList{QUrl::fromLocalFile(current + "/" + spaced).toString(QUrl::FullyEncoded)}
        << spaced;
    QTest::newRow("file url, three slashes written out")
        << QStringList{"file://" + current + "/Mes%20photos/a%20b.gif"} << "Mes photos/a b.gif";
    QTest::newRow("after --, a name with a dash") << QStringList{"--", "-dash.tif"} << "-dash.tif";
    QTest::newRow("a lone dash is a name") << QStringList{"-"} << "-";
    QTest::newRow("beside the toolkit's options") << QStringList{
        "-style",   "fusion", "--platform", "xcb", "-reverse", "leaf.png", "-stylesheet=my.qss",
        "-display", ":1"} << "leaf.png";
}

void TestCommandLine::picturesBecomeAbsoluteLocalPaths()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, relativeToFolder);
    const CCommandLine line(arguments);
    QCOMPARE(line.action(), CCommandLine::Start);
    QCOMPARE(line.picture(), QDir::cleanPath(QDir::currentPath() + "/" + relativeToFolder));
    QVERIFY(QDir::isAbsolutePath(line.picture()));
}

void TestCommandLine::helpAndVersionAnswerWhereverTheyStand_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("action");
    QTest::newRow("--help") << QStringList{"--help"} << int(CCommandLine::ShowHelp);
    QTest::newRow("-h") << QStringList{"-h"} << int(CCommandLine::ShowHelp);
    QTest::newRow("--version") << QStringList{"--version"} << int(CCommandLine::ShowVersion);
    QTest::newRow("help after a picture")
        << QStringList{"a.png", "--help"} << int(CCommandLine::ShowHelp);
    QTest::newRow("help beside an unknown option")
        << QStringList{"--bogus", "--help"} << int(CCommandLine::ShowHelp);
    QTest::newRow("help before version")
        << QStringList{"--version", "--help"} << int(CCommandLine::ShowHelp);
    QTest::newRow("--help after -- is a file")
        << QStringList{"--", "--help"} << int(CCommandLine::Start);
}

void TestCommandLine::helpAndVersionAnswerWhereverTheyStand()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, action);
    const CCommandLine line(arguments);
    QCOMPARE(int(line.action()), action);
    QCOMPARE(line.exitStatus(), 0);
    if (action == CCommandLine::ShowHelp)
        QCOMPARE(line.message(), CCommandLine::helpText());
    else if (action == CCommandLine::ShowVersion)
        QCOMPARE(line.message(), QStringLiteral("Vellora 1.0.0\n"));
    else
        QCOMPARE(line.picture(), QDir::currentPath() + "/--help");
}

void TestCommandLine::unknownOptionsAreRefusedInOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("double dash") << QStringList{"--bogus"} << "unknown option --bogus";
    QTest::newRow("single dash") << QStringList{"-x"} << "unknown option -x";
    QTest::newRow("after a picture")
        << QStringList{"a.png", "--zoom=2"} << "unknown option --zoom=2";
    QTest::newRow("two pictures") << QStringList{"a.png", "b.png"} << "one picture at a time";
    QTest::newRow("a toolkit name with a value it does not take")
        << QStringList{"-reverse=yes"} << "unknown option -reverse=yes";
}

void TestCommandLine::unknownOptionsAreRefusedInOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const CCommandLine line(arguments);
    QCOMPARE(line.action(), CCommandLine::Refuse);
    QCOMPARE(line.exitStatus(), 1);
    QVERIFY(line.picture().isEmpty());
    QVERIFY2(line.message().startsWith("vellora: " + named + "; usage: vellora"),
             qPrintable(line.message()));
    QVERIFY(!line.message().contains('\n'));
}

void TestCommandLine::helpNamesEveryOption()
{
    const QString help = CCommandLine::helpText();
    QVERIFY(help.startsWith(QStringLiteral("Usage: vellora [PICTURE]\n")));
    for (const char *word : {"PICTURE", "file://", "--help", "--version"})
        QVERIFY2(help.contains(QLatin1String(word)), word);
}

namespace {

struct Run
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

// The real program, on no display at all (QT_QPA_PLATFORM names a platform
// that does not exist), so that only what answers before the toolkit
// starts can succeed.
Run runProgram(const QStringList &arguments, const QString &platform)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    // A runtime folder of its own, so that the toolkit has nothing to say
    // on standard error but our line.
    QTemporaryDir runtime;
    QFile::setPermissions(runtime.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VELLORA_APP_PATH), arguments);
    Run run;
    if (!process.waitForFinished(30000))
        return run;
    run.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

} // namespace

void TestCommandLine::programPrintsHelpAndVersionWithoutADisplay_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("expected");
    QTest::newRow("--help") << "--help" << CCommandLine::helpText();
    QTest::newRow("--version") << "--version"
                               << "Vellora 1.0.0\n";
}

void TestCommandLine::programPrintsHelpAndVersionWithoutADisplay()
{
    QFETCH(QString, argument);
    QFETCH(QString, expected);
    const Run run = runProgram({argument}, QStringLiteral("no-such-platform"));
    QCOMPARE(run.status, 0);
    QCOMPARE(QString::fromUtf8(run.out), expected);
    QVERIFY(run.err.isEmpty());
}

void TestCommandLine::programRefusesAnUnknownOptionWithStatusOne()
{
    // Refused before the toolkit starts: no display is needed, and the
    // toolkit's own options beside it are no reason to refuse.
    const Run run =
        runProgram({"-platform", "offscreen", "--bogus"}, QStringLiteral("no-such-platform"));
    QCOMPARE(run.status, 1);
    QVERIFY(run.out.isEmpty());
    QCOMPARE(run.err.count('\n'), 1);
    QVERIFY2(run.err.startsWith("vellora: unknown option --bogus; usage: vellora"),
             run.err.constData());
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
