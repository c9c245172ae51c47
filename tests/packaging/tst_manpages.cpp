#include "common/appcontext.h"
#include "app/commandline.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

// The manual pages against the programs' own help: every command, option
// and exit status `vellora-cli --help` names has its place in vellora-cli(1),
// and every option of `vellora --help` is in vellora(1). A command or option
// added to a program without its page fails here.
class TestManPages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void cliHelpIsReadInFull();
    void everyCliCommandHasItsEntry_data();
    void everyCliCommandHasItsEntry();
    void everyCliOptionIsDescribed_data();
    void everyCliOptionIsDescribed();
    void everyExitStatusIsListed();
    void everyProgramOptionIsDescribed_data();
    void everyProgramOptionIsDescribed();
    void pagesNameTheVersion();

private:
    static QString page(const QString &name);
    static QString section(const QString &page, const QString &heading);
    static QStringList cliCommands(const QString &help);
    static QStringList options(const QString &help);
    static QMap<QString, QString> helpExitStatuses(const QString &help);
    static bool describes(const QString &text, const QString &option);

    QString m_cliHelp;
};

namespace {

QString cliHelp()
{
    QProcess process;
    process.start(QStringLiteral(VELLORA_CLI_PATH), {QStringLiteral("--help")});
    if (!process.waitForFinished(30000) || process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The roff source as a reader sees its words: font changes dropped,
// escaped dashes and spaces plain.
QString plain(QString roff)
{
    roff.remove(QRegularExpression(QStringLiteral("\\\\f[BIRP]")));
    roff.replace(QStringLiteral("\\-"), QStringLiteral("-"));
    roff.replace(QStringLiteral("\\ "), QStringLiteral(" "));
    return roff;
}

} // namespace

void TestManPages::initTestCase()
{
    m_cliHelp = cliHelp();
    QVERIFY(!m_cliHelp.isEmpty());
}

QString TestManPages::page(const QString &name)
{
    QFile file(QStringLiteral(VELLORA_PACKAGING_DIR "/") + name);
    return file.open(QIODevice::ReadOnly) ? plain(QString::fromUtf8(file.readAll())) : QString();
}

QString TestManPages::section(const QString &text, const QString &heading)
{
    const int start = text.indexOf(QStringLiteral("\n.SH ") + heading + QLatin1Char('\n'));
    if (start < 0)
        return QString();
    const int end = text.indexOf(QStringLiteral("\n.SH "), start + 1);
    return text.mid(start, end < 0 ? -1 : end - start);
}

QStringList TestManPages::cliCommands(const QString &help)
{
    // The lines of "Commands:" that start with a name two blanks in.
    const int start = help.indexOf(QStringLiteral("\nCommands:\n"));
    const int end = help.indexOf(QStringLiteral("\n\n"), start + 1);
    QStringList commands;
    const QRegularExpression entry(QStringLiteral("^  ([a-z][a-z-]*)( |$)"),
                                   QRegularExpression::MultilineOption);
    auto it = entry.globalMatch(help.mid(start, end - start));
    while (it.hasNext()) {
        const QString name = it.next().captured(1);
        if (!commands.contains(name))
            commands << name;
    }
    return commands;
}

QStringList TestManPages::options(const QString &help)
{
    QStringList found;
    auto it = QRegularExpression(QStringLiteral("(?<![\\w-])(--?[a-z][a-z-]*)")).globalMatch(help);
    while (it.hasNext()) {
        const QString option = it.next().captured(1);
        if (option.startsWith(QLatin1String("--")) && !found.contains(option))
            found << option;
    }
    return found;
}

QMap<QString, QString> TestManPages::helpExitStatuses(const QString &help)
{
    // "Exit status: 0 success, 1 usage error, ..." up to the end.
    QMap<QString, QString> statuses;
    QString text = help.mid(help.indexOf(QStringLiteral("Exit status:")) + 12).simplified();
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    for (const QString &part : text.split(QLatin1Char(','))) {
        const QString entry = part.trimmed();
        statuses.insert(entry.section(QLatin1Char(' '), 0, 0), entry.section(QLatin1Char(' '), 1));
    }
    return statuses;
}

bool TestManPages::describes(const QString &text, const QString &option)
{
    const QRegularExpression word(QStringLiteral("(?<![\\w-])") + QRegularExpression::escape(option)
                                  + QStringLiteral("(?![\\w-])"));
    return word.match(text).hasMatch();
}

void TestManPages::cliHelpIsReadInFull()
{
    // The reading below must see the whole help, or the rows would vanish
    // and the tests pass for nothing.
    QVERIFY(cliCommands(m_cliHelp).size() >= 9);
    QVERIFY(cliCommands(m_cliHelp).contains(QStringLiteral("import-config")));
    QVERIFY(options(m_cliHelp).size() >= 20);
    QVERIFY(helpExitStatuses(m_cliHelp).size() >= 4);
}

void TestManPages::everyCliCommandHasItsEntry_data()
{
    QTest::addColumn<QString>("command");
    for (const QString &command : cliCommands(cliHelp()))
        QTest::newRow(qPrintable(command)) << command;
}

void TestManPages::everyCliCommandHasItsEntry()
{
    QFETCH(QString, command);
    // An entry of COMMANDS is a tag line ".B command ..." after ".TP".
    const QString commands =
        section(page(QStringLiteral("vellora-cli.1")), QStringLiteral("COMMANDS"));
    QVERIFY(!commands.isEmpty());
    const QRegularExpression tag(QStringLiteral("\\n\\.TP\\n\\.B ")
                                 + QRegularExpression::escape(command) + QStringLiteral("( |\\n)"));
    QVERIFY2(tag.match(commands).hasMatch(),
             qPrintable(command + " has no entry in vellora-cli.1"));
}

void TestManPages::everyCliOptionIsDescribed_data()
{
    QTest::addColumn<QString>("option");
    for (const QString &option : options(cliHelp()))
        QTest::newRow(qPrintable(option)) << option;
}

void TestManPages::everyCliOptionIsDescribed()
{
    QFETCH(QString, option);
    const QString text = page(QStringLiteral("vellora-cli.1"));
    const QString described =
        section(text, QStringLiteral("COMMANDS")) + section(text, QStringLiteral("OPTIONS"));
    QVERIFY2(describes(described, option), qPrintable(option + " is missing from vellora-cli.1"));
}

void TestManPages::everyExitStatusIsListed()
{
    const QString statuses =
        section(page(QStringLiteral("vellora-cli.1")), QStringLiteral("EXIT STATUS"));
    QMap<QString, QString> listed;
    const QRegularExpression entry(QStringLiteral("\\n\\.TP\\n\\.B (\\d+)\\n([^\\n]+)"));
    auto it = entry.globalMatch(statuses);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        listed.insert(match.captured(1), match.captured(2).trimmed());
    }
    QCOMPARE(listed, helpExitStatuses(m_cliHelp));
}

void TestManPages::everyProgramOptionIsDescribed_data()
{
    QTest::addColumn<QString>("option");
    for (const QString &option : options(CCommandLine::helpText()))
        QTest::newRow(qPrintable(option)) << option;
}

void TestManPages::everyProgramOptionIsDescribed()
{
    QFETCH(QString, option);
    const QString options = section(page(QStringLiteral("vellora.1")), QStringLiteral("OPTIONS"));
    QVERIFY2(describes(options, option), qPrintable(option + " is missing from vellora.1"));
}

void TestManPages::pagesNameTheVersion()
{
    for (const QString &name : {QStringLiteral("vellora.1"), QStringLiteral("vellora-cli.1")}) {
        const QString title = page(name).section(QLatin1Char('\n'), 0, 0);
        QVERIFY2(title.startsWith(QStringLiteral(".TH ")), qPrintable(title));
        QVERIFY2(title.contains(QStringLiteral("\"Vellora %1\"").arg(AppContext::versionText())),
                 qPrintable(title));
    }
}

QTEST_MAIN(TestManPages)
#include "tst_manpages.moc"
