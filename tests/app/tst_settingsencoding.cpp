#include "app/appsettings.h"

#include "support/guitestfixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QtTest>

namespace {

// The settings file exactly as the Qt 5 build writes it: every character
// past ASCII as "\x" and its UTF-16 code in hex (a character outside the
// basic plane as its two halves), because Qt 5 writes ini files without an
// encoding. Qt 6 writes UTF-8 instead, and must still read these folders as
// the Qt 5 build does, or a user's chosen folders would be lost on upgrade.
const char kWrittenByQt5[] =
    "[ColourLibrary]\n"
    "directory=/home/ana/Farbt\\xf6ne\n"
    "selected=/home/ana/Farbt\\xf6ne/R\\xf6te.clrtable\n"
    "\n"
    "[Directory]\n"
    "recentFilesList=/home/ana/\\x56fe\\x7247/a.png, /home/ana/\\xd83c\\xdfa8.png\n"
    "workdir=/home/ana/\\xc9t\\xe9 2026\n";

QString settingsFile()
{
    return QSettings(QStringLiteral("Tessaline"), QStringLiteral("Vellora")).fileName();
}

QString library() { return QString::fromUtf8("/home/ana/Farbt\u00f6ne"); }
QString selected() { return QString::fromUtf8("/home/ana/Farbt\u00f6ne/R\u00f6te.clrtable"); }
QString work() { return QString::fromUtf8("/home/ana/\u00c9t\u00e9 2026"); }
QStringList recent()
{
    return {QString::fromUtf8("/home/ana/\u56fe\u7247/a.png"),
            QString::fromUtf8("/home/ana/\U0001F3A8.png")};
}

} // namespace

class TestSettingsEncoding : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void fileOfTheQt5BuildReadsTheSame();
    void foldersSurviveASave();
    void qt5WritesTheFileThisTestReads();

private:
    GuiTestFixture m_fixture;
};

void TestSettingsEncoding::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestSettingsEncoding::init()
{
    m_fixture.reset();
    const QString path = settingsFile();
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(kWrittenByQt5), qint64(sizeof(kWrittenByQt5) - 1));
}

void TestSettingsEncoding::fileOfTheQt5BuildReadsTheSame()
{
    CAppSettings settings;
    QCOMPARE(settings.libraryDir, library());
    QCOMPARE(settings.selectedTable, selected());
    QCOMPARE(settings.workDir, work());
    QCOMPARE(settings.recentFiles, recent());
}

void TestSettingsEncoding::foldersSurviveASave()
{
    {
        CAppSettings settings;
        settings.save(nullptr);
    }
    CAppSettings again;
    QCOMPARE(again.libraryDir, library());
    QCOMPARE(again.selectedTable, selected());
    QCOMPARE(again.workDir, work());
    QCOMPARE(again.recentFiles, recent());
}

// The file above is what Qt 5 really writes: the Qt 5 build checks it, so
// the Qt 6 build's reading is pinned against the true format.
void TestSettingsEncoding::qt5WritesTheFileThisTestReads()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QSKIP("Only the Qt 5 build writes the Qt 5 format");
#else
    QVERIFY(QFile::remove(settingsFile()));
    {
        QSettings store(QStringLiteral("Tessaline"), QStringLiteral("Vellora"));
        store.setValue(QStringLiteral("ColourLibrary/directory"), library());
        store.setValue(QStringLiteral("ColourLibrary/selected"), selected());
        store.setValue(QStringLiteral("Directory/recentFilesList"), recent());
        store.setValue(QStringLiteral("Directory/workdir"), work());
    }
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray(kWrittenByQt5));
#endif
}

QTEST_MAIN(TestSettingsEncoding)
#include "tst_settingsencoding.moc"
