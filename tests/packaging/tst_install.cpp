#include "common/appcontext.h"
#include "help/helpbrowser.h"
#include "help/helpwindow.h"
#include "help/tipdialog.h"

#include "support/guitestfixture.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QHelpContentModel>
#include <QHelpEngine>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

// `cmake --install` into a temporary DESTDIR with the prefix a package uses:
// every file in its place, bin/vellora a relative link to the program in its
// private folder (which finds its manual and tips there), the desktop entry
// and the AppStream metadata passing Debian's validators, the installed
// vellora-cli working, and the manual opening from a read-only copy.
class TestInstall : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void installHoldsEveryFileAndNothingElse();
    void programsAreExecutableAndDataIsNot();
    void iconsHaveTheirSizes();
    void binVelloraIsARelativeLinkToTheProgram();
    void aProgramStartedThroughTheLinkFindsItsFilesBesideItsRealPlace();
    void installedProgramAnswersThroughTheLink();
    void installedCliRunsFromTheTemporaryFolder();
    void desktopEntryValidatesWithoutAWarning();
    void desktopEntryOpensPicturesWithVellora();
    void metadataValidates();
    void metadataNamesTheReleaseTheBinariesAndTheLicence();
    void helpWindowOpensTheManualFromAReadOnlyCopy();

private:
    QString installed(const QString &relative) const;
    static QStringList expectedFiles();

    GuiTestFixture *m_home = nullptr;
    QTemporaryDir m_destdir;
    QString m_usr;
};

namespace {

struct Run
{
    int status = -1;
    QString out;
    QString err;
};

Run run(const QString &program, const QStringList &arguments, const QString &folder = QString(),
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!folder.isEmpty())
        process.setWorkingDirectory(folder);
    process.start(program, arguments);
    Run result;
    if (!process.waitForStarted(10000) || !process.waitForFinished(120000)) {
        result.err = program + QStringLiteral(": ") + process.errorString();
        return result;
    }
    result.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QString readText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString readLinkText(const QString &path)
{
    char buffer[4096];
    const ssize_t length = ::readlink(QFile::encodeName(path).constData(), buffer, sizeof buffer);
    return length < 0 ? QString() : QFile::decodeName(QByteArray(buffer, int(length)));
}

// Names, sizes and contents of every file below folder.
QStringList snapshot(const QString &folder)
{
    QStringList entries;
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        QByteArray hash;
        if (file.open(QIODevice::ReadOnly))
            hash = QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256).toHex();
        entries << path + QLatin1Char(' ') + QString::number(it.fileInfo().size())
                       + QLatin1Char(' ') + QString::fromLatin1(hash);
    }
    entries.sort();
    return entries;
}

const char kAppId[] = VELLORA_APP_ID;

} // namespace

QString TestInstall::installed(const QString &relative) const
{
    return m_usr + QLatin1Char('/') + relative;
}

QStringList TestInstall::expectedFiles()
{
    const QString id = QLatin1String(kAppId);
    QStringList files = {
        QStringLiteral("bin/vellora"),
        QStringLiteral("bin/vellora-cli"),
        QStringLiteral("lib/vellora/vellora"),
        QStringLiteral("lib/vellora/") + AppContext::helpCollectionName(),
        QStringLiteral("lib/vellora/vellora.qch"),
        QStringLiteral("lib/vellora/tips.txt"),
        QStringLiteral("share/applications/") + id + QStringLiteral(".desktop"),
        QStringLiteral("share/metainfo/") + id + QStringLiteral(".metainfo.xml"),
        QStringLiteral("share/icons/hicolor/scalable/apps/") + id + QStringLiteral(".svg"),
        QStringLiteral("share/man/man1/vellora.1.gz"),
        QStringLiteral("share/man/man1/vellora-cli.1.gz"),
        QStringLiteral("share/doc/vellora/README.md"),
        QStringLiteral("share/doc/vellora/LICENSE"),
        QStringLiteral("share/doc/vellora/copyright"),
        QStringLiteral("share/doc/vellora/changelog.gz"),
    };
    for (int size : {16, 24, 32, 48, 64, 128, 256})
        files << QStringLiteral("share/icons/hicolor/%1x%1/apps/%2.png").arg(size).arg(id);
    files.sort();
    return files;
}

void TestInstall::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(m_home->isValid());
    QVERIFY(m_destdir.isValid());
    m_usr = m_destdir.path() + QStringLiteral("/usr");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), m_destdir.path());
    const Run install =
        run(QStringLiteral(VELLORA_CMAKE), {"--install", VELLORA_BUILD_DIR, "--prefix", "/usr"},
            QString(), environment);
    QVERIFY2(install.status == 0, qPrintable(install.out + install.err));
}

void TestInstall::cleanupTestCase()
{
    delete m_home;
}

void TestInstall::installHoldsEveryFileAndNothingElse()
{
    QStringList found;
    QDirIterator it(m_usr, QDir::Files | QDir::System | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        found << QDir(m_usr).relativeFilePath(it.next());
    found.sort();
    QCOMPARE(found, expectedFiles());
    for (const QString &file : found)
        QVERIFY2(QFileInfo(installed(file)).size() > 0, qPrintable(file));
    // The compiled manual is the one the build made, not a stale copy.
    QCOMPARE(QFileInfo(installed("lib/vellora/tips.txt")).size(),
             QFileInfo(QStringLiteral(VELLORA_BUILD_DIR "/tips.txt")).size());
}

void TestInstall::programsAreExecutableAndDataIsNot()
{
    for (const QString &file : expectedFiles()) {
        const QFileInfo info(installed(file));
        const bool program =
            file.startsWith(QLatin1String("bin/")) || file == QLatin1String("lib/vellora/vellora");
        QVERIFY2(info.isExecutable() == program, qPrintable(file));
        QVERIFY2(info.permission(QFile::ReadOther), qPrintable(file));
    }
}

void TestInstall::iconsHaveTheirSizes()
{
    for (int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage icon(installed(QStringLiteral("share/icons/hicolor/%1x%1/apps/%2.png")
                                        .arg(size)
                                        .arg(QLatin1String(kAppId))));
        QCOMPARE(icon.size(), QSize(size, size));
        // Drawn, not blank: the corners are clear and the middle is not.
        QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(icon.pixel(size / 2, size / 2)), 255);
    }
    // One argument rather than a concatenation: GCC's overflow check
    // misreads the string builder's three parts here.
    const QString svg = readText(installed(
        QStringLiteral("share/icons/hicolor/scalable/apps/%1.svg").arg(QLatin1String(kAppId))));
    QVERIFY(svg.startsWith(QStringLiteral("<svg")));
}

void TestInstall::binVelloraIsARelativeLinkToTheProgram()
{
    const QString link = installed(QStringLiteral("bin/vellora"));
    QVERIFY(QFileInfo(link).isSymLink());
    const QString target = readLinkText(link);
    QCOMPARE(target, QStringLiteral("../lib/vellora/vellora"));
    QCOMPARE(QFileInfo(link).canonicalFilePath(),
             QFileInfo(installed(QStringLiteral("lib/vellora/vellora"))).canonicalFilePath());
    // The command-line tool is a program of its own, not a link.
    QVERIFY(!QFileInfo(installed(QStringLiteral("bin/vellora-cli"))).isSymLink());
}

void TestInstall::aProgramStartedThroughTheLinkFindsItsFilesBesideItsRealPlace()
{
    // The probe goes beside the installed program and is linked from bin/
    // exactly as bin/vellora is, then reports where it looks for its files.
    const QString program = installed(QStringLiteral("lib/vellora/installprobe"));
    const QString link = installed(QStringLiteral("bin/installprobe"));
    QVERIFY(QFile::copy(QStringLiteral(VELLORA_PROBE_PATH), program));
    QVERIFY(QFile::setPermissions(program, QFile::permissions(QStringLiteral(VELLORA_PROBE_PATH))));
    const QString target = readLinkText(installed(QStringLiteral("bin/vellora")))
                               .replace(QRegularExpression(QStringLiteral("vellora$")),
                                        QStringLiteral("installprobe"));
    QVERIFY(QFile::link(target, link));
    const Run probe = run(link, {}, m_destdir.path());
    QFile::remove(link);
    QFile::remove(program);
    QCOMPARE(probe.status, 0);
    const QString folder = QFileInfo(installed(QStringLiteral("lib/vellora"))).canonicalFilePath();
    const QStringList lines = probe.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0), folder);
    const int tips = CTipDialog::readTips(installed(QStringLiteral("lib/vellora/tips.txt"))).size();
    QVERIFY(tips > 1);
    QCOMPARE(lines.at(1), folder + QStringLiteral("/tips.txt ") + QString::number(tips));
    QCOMPARE(lines.at(2), folder + QLatin1Char('/') + AppContext::helpCollectionName()
                              + QStringLiteral(" found"));
}

void TestInstall::installedProgramAnswersThroughTheLink()
{
    const Run version = run(installed(QStringLiteral("bin/vellora")), {"--version"});
    QCOMPARE(version.status, 0);
    QCOMPARE(version.out, QStringLiteral("Vellora %1\n").arg(AppContext::versionText()));
}

void TestInstall::installedCliRunsFromTheTemporaryFolder()
{
    const QStringList arguments = {"lab", "1", "0.5", "0"};
    const Run built = run(QStringLiteral(VELLORA_CLI_PATH), arguments);
    const Run cli = run(installed(QStringLiteral("bin/vellora-cli")), arguments, m_destdir.path());
    QCOMPARE(cli.status, 0);
    QVERIFY(!cli.out.isEmpty());
    QCOMPARE(cli.out, built.out);
    const Run version = run(installed(QStringLiteral("bin/vellora-cli")), {"--version"});
    QCOMPARE(version.status, 0);
    QVERIFY2(version.out.contains(AppContext::versionText()), qPrintable(version.out));
}

void TestInstall::desktopEntryValidatesWithoutAWarning()
{
    const QString entry =
        installed(QStringLiteral("share/applications/%1.desktop").arg(QLatin1String(kAppId)));
    const Run check = run(QStringLiteral("desktop-file-validate"), {entry});
    QVERIFY2(check.status == 0,
             qPrintable(check.err
                        + QStringLiteral("(desktop-file-validate comes with desktop-file-utils: "
                                         "run ./scripts/install-deps.sh)")));
    // Warnings and hints are printed but do not fail the validator.
    QVERIFY2(check.out.trimmed().isEmpty() && check.err.trimmed().isEmpty(),
             qPrintable(check.out + check.err));
}

void TestInstall::desktopEntryOpensPicturesWithVellora()
{
    const QStringList lines =
        readText(
            installed(QStringLiteral("share/applications/%1.desktop").arg(QLatin1String(kAppId))))
            .split(QLatin1Char('\n'));
    QVERIFY(lines.contains(QStringLiteral("Exec=vellora %f")));
    QVERIFY(lines.contains(QStringLiteral("Icon=") + QLatin1String(kAppId)));
    QVERIFY(lines.contains(QStringLiteral("GenericName=Colour Picker")));
    QVERIFY(lines.contains(QStringLiteral("Categories=Graphics;2DGraphics;RasterGraphics;")));
    QVERIFY(lines.contains(QStringLiteral("MimeType=image/png;image/jpeg;image/tiff;image/gif;")));
    // The command it runs is the installed one.
    QVERIFY(QFileInfo::exists(installed(QStringLiteral("bin/vellora"))));
}

void TestInstall::metadataValidates()
{
    const QString metadata =
        installed(QStringLiteral("share/metainfo/%1.metainfo.xml").arg(QLatin1String(kAppId)));
    const Run check = run(QStringLiteral("appstreamcli"), {"validate", "--no-net", metadata});
    QVERIFY2(check.status == 0,
             qPrintable(check.out + check.err
                        + QStringLiteral(
                            "(appstreamcli comes with appstream: run ./scripts/install-deps.sh)")));
    // Errors and warnings are lines starting "E:" and "W:"; info is fine.
    const QRegularExpression problem(QStringLiteral("^[EW]: "),
                                     QRegularExpression::MultilineOption);
    QVERIFY2(!problem.match(check.out).hasMatch(), qPrintable(check.out));
}

void TestInstall::metadataNamesTheReleaseTheBinariesAndTheLicence()
{
    const QString xml = readText(
        installed(QStringLiteral("share/metainfo/%1.metainfo.xml").arg(QLatin1String(kAppId))));
    QVERIFY(xml.contains(
        QStringLiteral("<release version=\"%1\" date=\"").arg(AppContext::versionText())));
    QVERIFY(xml.contains(QStringLiteral("<binary>vellora</binary>")));
    QVERIFY(xml.contains(QStringLiteral("<binary>vellora-cli</binary>")));
    QVERIFY(xml.contains(QStringLiteral("<project_license>GPL-3.0-or-later</project_license>")));
    QVERIFY(xml.contains(QStringLiteral("<launchable type=\"desktop-id\">%1.desktop</launchable>")
                             .arg(QLatin1String(kAppId))));
    // The screenshots are the manual's own pictures.
    const QRegularExpression image(QStringLiteral("<image>[^<]*/([^/<]+\\.png)</image>"));
    auto it = image.globalMatch(xml);
    int count = 0;
    while (it.hasNext()) {
        const QString name = it.next().captured(1);
        QVERIFY2(QFileInfo::exists(QStringLiteral(VELLORA_SOURCE_DIR "/docs/images/") + name),
                 qPrintable(name));
        ++count;
    }
    QVERIFY(count > 0);
}

void TestInstall::helpWindowOpensTheManualFromAReadOnlyCopy()
{
    // As installed, the collection belongs to root: copy it read-only, since
    // tests may run as root (who could write anyway) also compare the files
    // before and after.
    QTemporaryDir copy;
    QVERIFY(copy.isValid());
    const QString folder = copy.filePath(QStringLiteral("vellora"));
    QVERIFY(QDir().mkpath(folder));
    for (const QString &name : {AppContext::helpCollectionName(), QStringLiteral("vellora.qch")}) {
        QVERIFY(QFile::copy(installed(QStringLiteral("lib/vellora/") + name), folder + "/" + name));
        QVERIFY(QFile::setPermissions(folder + "/" + name,
                                      QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    }
    const QFile::Permissions readOnlyFolder = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup
                                              | QFile::ExeGroup | QFile::ReadOther
                                              | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(folder, readOnlyFolder));
    // Writable again at the end, so that the copy can be removed.
    const auto restore = qScopeGuard([&folder, readOnlyFolder]() {
        QFile::setPermissions(folder, readOnlyFolder | QFile::WriteOwner);
    });
    const QStringList before = snapshot(folder);

    CHelpWindow *window = CHelpWindow::showHelp(AppContext::productName(), QString(),
                                                QRect(0, 0, 800, 600), 200, 600, folder);
    QVERIFY(window);
    QTRY_VERIFY_WITH_TIMEOUT(window->helpEngine()->contentModel()->rowCount() > 0, 10000);
    QVERIFY(!window->browser()->toPlainText().trimmed().isEmpty());
    window->openPage(QStringLiteral("shortcuts.html"));
    QVERIFY(window->browser()->toPlainText().contains(QStringLiteral("Keyboard shortcuts")));
    CHelpWindow::deleteInstance();

    QCOMPARE(snapshot(folder), before);
}

QTEST_MAIN(TestInstall)
#include "tst_install.moc"
