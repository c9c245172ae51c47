#include "tables/colourtable.h"
#include "tables/webcolourstable.h"

#include "support/filesizelimit.h"
#include "support/fixturefile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

class TestWebColoursTable : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_path;
    QList<QByteArray> m_lines;
    QDateTime m_before;
    QDateTime m_after;
    static const WebColourRow *findRow(const char *name);

private slots:
    void initTestCase();

    void tableHas139RowsInAscendingHexOrder();
    void rowsEndWithEmptyRow();
    void deliberateDifferences_data();
    void deliberateDifferences();
    void onlyGreySpellingsArePresent();
    void namesAreUniqueAndKeysLowerCaseExceptRebeccaPurple();
    void fileStartsWithTwoCommentsAndEmptyLine();
    void generatedTimeIsTheTimeOfWriting();
    void sampleLines_data();
    void sampleLines();
    void everyRowIsWrittenFromItsHex();
    void aquaCyanKeepsItsSlash();
    void loadingGives139EntriesAndTwoHeaderLines();
    void unwritablePathReturnsFalse();
    void writeErrorKeepsOldFile();

    void onceWritesIntoLibraryFolder();
    void onceWritesNothingWhenAlreadyCreated();
    void onceWritesNothingWhenFileExists();
    void onceWritesNothingWithoutFolderSetting();
    void onceDoesNotCreateMissingFolder();
};

const WebColourRow *TestWebColoursTable::findRow(const char *name)
{
    for (const WebColourRow *row = webColourRows(); row->hex[0]; ++row) {
        if (qstrcmp(row->name, name) == 0)
            return row;
    }
    return nullptr;
}

void TestWebColoursTable::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_path = m_dir.filePath("WebColours.clrtable");
    m_before = QDateTime::currentDateTime();
    QVERIFY(writeWebColoursTable(m_path));
    m_after = QDateTime::currentDateTime();
    const QByteArray content = FixtureFile::read(m_path);
    QVERIFY(content.endsWith('\n'));
    m_lines = content.left(content.size() - 1).split('\n');
}

void TestWebColoursTable::tableHas139RowsInAscendingHexOrder()
{
    QCOMPARE(webColourCount(), 139);
    const WebColourRow *rows = webColourRows();
    QCOMPARE(QByteArray(rows[0].hex), QByteArray("000000"));
    QCOMPARE(QByteArray(rows[138].hex), QByteArray("FFFFFF"));
    for (int i = 1; i < 139; ++i)
        QVERIFY2(qstrcmp(rows[i - 1].hex, rows[i].hex) < 0, rows[i].name);
    for (int i = 0; i < 139; ++i)
        QVERIFY2(QRegularExpression("^[0-9A-F]{6}$").match(rows[i].hex).hasMatch(), rows[i].name);
}

void TestWebColoursTable::rowsEndWithEmptyRow()
{
    const WebColourRow &end = webColourRows()[webColourCount()];
    QCOMPARE(QByteArray(end.hex), QByteArray());
    QCOMPARE(QByteArray(end.name), QByteArray());
    QCOMPARE(QByteArray(end.key), QByteArray());
}

void TestWebColoursTable::deliberateDifferences_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<QByteArray>("key");
    QTest::newRow("aqua and cyan in one row") << QByteArray("Aqua/Cyan") << QByteArray("00FFFF")
                                              << QByteArray("aqua");
    QTest::newRow("fuchsia and magenta in one row")
        << QByteArray("Fuchsia/Magenta") << QByteArray("FF00FF") << QByteArray("fuchsia");
    QTest::newRow("azure is Szure") << QByteArray("Szure") << QByteArray("F0FFFF") << QByteArray("azure");
    QTest::newRow("pale green") << QByteArray("Pale Green") << QByteArray("98FD98")
                                << QByteArray("palegreen");
    QTest::newRow("pink") << QByteArray("Pink") << QByteArray("FFC0CD") << QByteArray("pink");
    QTest::newRow("rebecca purple") << QByteArray("Rebecca Purple") << QByteArray("663399")
                                    << QByteArray("rebeccaPurple");
    QTest::newRow("medium blue small b") << QByteArray("Medium blue") << QByteArray("0000CD")
                                         << QByteArray("mediumblue");
    QTest::newRow("limegreen one word") << QByteArray("Limegreen") << QByteArray("32CD32")
                                        << QByteArray("limegreen");
    QTest::newRow("firebrick one word") << QByteArray("Firebrick") << QByteArray("B22222")
                                        << QByteArray("firebrick");
    QTest::newRow("burlywood one word") << QByteArray("Burlywood") << QByteArray("DEB887")
                                        << QByteArray("burlywood");
    QTest::newRow("honeydew one word") << QByteArray("Honeydew") << QByteArray("F0FFF0")
                                       << QByteArray("honeydew");
    QTest::newRow("sea shell two words") << QByteArray("Sea Shell") << QByteArray("FFF5EE")
                                         << QByteArray("seashell");
    QTest::newRow("corn silk two words") << QByteArray("Corn Silk") << QByteArray("FFF8DC")
                                         << QByteArray("cornsilk");
    QTest::newRow("dark slate grey") << QByteArray("Dark Slate Grey") << QByteArray("2F4F4F")
                                     << QByteArray("darkslategrey");
    QTest::newRow("deep sky blue") << QByteArray("Deep Sky Blue") << QByteArray("00BFFF")
                                   << QByteArray("deepskyblue");
}

void TestWebColoursTable::deliberateDifferences()
{
    QFETCH(QByteArray, name);
    const WebColourRow *row = findRow(name.constData());
    QVERIFY(row);
    QTEST(QByteArray(row->hex), "hex");
    QTEST(QByteArray(row->key), "key");
}

void TestWebColoursTable::onlyGreySpellingsArePresent()
{
    int greys = 0;
    for (const WebColourRow *row = webColourRows(); row->hex[0]; ++row) {
        const QByteArray name(row->name);
        QVERIFY2(!name.toLower().contains("gray"), row->name);
        QVERIFY2(!name.contains("Cyan") || name == "Aqua/Cyan" || name == "Dark Cyan"
                     || name == "Light Cyan",
                 row->name);
        QVERIFY2(!name.contains("Magenta") || name == "Fuchsia/Magenta" || name == "Dark Magenta",
                 row->name);
        if (name.contains("Grey"))
            ++greys;
    }
    QCOMPARE(greys, 7);
    QVERIFY(findRow("Dim Grey") && findRow("Slate Grey") && findRow("Light Slate Grey")
            && findRow("Grey") && findRow("Dark Grey") && findRow("Light Grey"));
}

void TestWebColoursTable::namesAreUniqueAndKeysLowerCaseExceptRebeccaPurple()
{
    QSet<QByteArray> names;
    QSet<QByteArray> hexes;
    for (const WebColourRow *row = webColourRows(); row->hex[0]; ++row) {
        names.insert(row->name);
        hexes.insert(row->hex);
        const QByteArray key(row->key);
        if (key != "rebeccaPurple")
            QVERIFY2(key == key.toLower() && !key.contains(' '), row->key);
    }
    QCOMPARE(names.size(), 139);
    QCOMPARE(hexes.size(), 139);
}

void TestWebColoursTable::fileStartsWithTwoCommentsAndEmptyLine()
{
    QCOMPARE(m_lines.size(), 3 + 139);
    QCOMPARE(m_lines.at(0), QByteArray("#Sample colour table containing Web HTML colours"));
    QVERIFY2(QRegularExpression("^#Generated:\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d$")
                 .match(QString::fromLatin1(m_lines.at(1)))
                 .hasMatch(),
             m_lines.at(1).constData());
    QCOMPARE(m_lines.at(2), QByteArray());
    QCOMPARE(m_lines.at(3), QByteArray("0.0000, 0.0000, 0.0000, Black"));
}

void TestWebColoursTable::generatedTimeIsTheTimeOfWriting()
{
    const QString stamp = QString::fromLatin1(m_lines.at(1).mid(int(qstrlen("#Generated:"))));
    const QDateTime generated = QDateTime::fromString(stamp, "yyyy-MM-dd hh:mm:ss");
    QVERIFY(generated.isValid());
    const QDateTime from = m_before.addMSecs(-m_before.time().msec());
    QVERIFY2(generated >= from && generated <= m_after, qPrintable(stamp));
}

void TestWebColoursTable::sampleLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("navy") << QByteArray("0.0000, 0.0000, 0.5020, Navy");
    QTest::newRow("limegreen") << QByteArray("0.1961, 0.8039, 0.1961, Limegreen");
    QTest::newRow("white") << QByteArray("1.0000, 1.0000, 1.0000, White");
    QTest::newRow("pale green") << QByteArray("0.5961, 0.9922, 0.5961, Pale Green");
    QTest::newRow("pink") << QByteArray("1.0000, 0.7529, 0.8039, Pink");
    QTest::newRow("szure") << QByteArray("0.9412, 1.0000, 1.0000, Szure");
}

void TestWebColoursTable::sampleLines()
{
    QFETCH(QByteArray, line);
    QVERIFY2(m_lines.contains(line), line.constData());
}

void TestWebColoursTable::everyRowIsWrittenFromItsHex()
{
    int index = 3;
    for (const WebColourRow *row = webColourRows(); row->hex[0]; ++row, ++index) {
        const QByteArray hex(row->hex);
        QStringList parts;
        for (int c = 0; c < 3; ++c) {
            const double fraction = hex.mid(2 * c, 2).toInt(nullptr, 16) / 255.0;
            parts << QString::number(std::trunc(fraction * 10000.0 + 0.5) / 10000.0, 'f', 4);
        }
        const QByteArray expected = (parts.join(", ") + ", " + QString::fromUtf8(row->name)).toUtf8();
        QCOMPARE(m_lines.at(index), expected);
    }
    QCOMPARE(index, int(m_lines.size()));
}

void TestWebColoursTable::aquaCyanKeepsItsSlash()
{
    QVERIFY(m_lines.contains("0.0000, 1.0000, 1.0000, Aqua/Cyan"));
    QVERIFY(m_lines.contains("1.0000, 0.0000, 1.0000, Fuchsia/Magenta"));
}

void TestWebColoursTable::loadingGives139EntriesAndTwoHeaderLines()
{
    CColourTable table;
    QCOMPARE(table.load(m_path).status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 139);
    QCOMPARE(table.header(), QString::fromLatin1(m_lines.at(0) + "\n" + m_lines.at(1)));
    QVERIFY(table.containsName("Aqua/Cyan"));
    QCOMPARE(table.at(1)->name, QString("Navy"));
    QCOMPARE(table.at(1)->blue, 0.502);
}

void TestWebColoursTable::unwritablePathReturnsFalse()
{
    QVERIFY(FixtureFile::write(m_dir.filePath("plainfile"), "x"));
    QVERIFY(!writeWebColoursTable(m_dir.filePath("plainfile/WebColours.clrtable")));
    QVERIFY(QDir(m_dir.path()).mkpath("folder.clrtable"));
    QVERIFY(!writeWebColoursTable(m_dir.filePath("folder.clrtable")));
    QVERIFY(QFileInfo(m_dir.filePath("folder.clrtable")).isDir());
}

void TestWebColoursTable::writeErrorKeepsOldFile()
{
    const QString target = m_dir.filePath("keep/WebColours.clrtable");
    QVERIFY(FixtureFile::write(target, "#mine\n"));
    bool written = true;
    {
        FileSizeLimit limit(512);
        QVERIFY(limit.isActive());
        written = writeWebColoursTable(target);
    }
    QVERIFY(!written);
    QCOMPARE(FixtureFile::read(target), QByteArray("#mine\n"));
}

void TestWebColoursTable::onceWritesIntoLibraryFolder()
{
    QTemporaryDir library;
    QVERIFY(library.isValid());
    QVERIFY(writeWebColoursTableOnce(library.path(), false));
    CColourTable table;
    QCOMPARE(table.load(library.filePath(webColoursFileName())).status, int(CColourTable::Loaded));
    QCOMPARE(table.count(), 139);
}

void TestWebColoursTable::onceWritesNothingWhenAlreadyCreated()
{
    QTemporaryDir library;
    QVERIFY(library.isValid());
    QVERIFY(!writeWebColoursTableOnce(library.path(), true));
    QVERIFY(!QFileInfo::exists(library.filePath("WebColours.clrtable")));
    QVERIFY(QDir(library.path()).isEmpty());
}

void TestWebColoursTable::onceWritesNothingWhenFileExists()
{
    QTemporaryDir library;
    QVERIFY(library.isValid());
    const QString path = library.filePath("WebColours.clrtable");
    QVERIFY(FixtureFile::write(path, "#edited by the user\n"));
    // False: the caller's "created" flag is left as it was.
    QVERIFY(!writeWebColoursTableOnce(library.path(), false));
    QCOMPARE(FixtureFile::read(path), QByteArray("#edited by the user\n"));
}

void TestWebColoursTable::onceWritesNothingWithoutFolderSetting()
{
    QTemporaryDir cwd;
    QVERIFY(cwd.isValid());
    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(cwd.path()));
    const bool written = writeWebColoursTableOnce(QString(), false);
    QDir::setCurrent(previous);
    QVERIFY(!written);
    QVERIFY(QDir(cwd.path()).isEmpty());
}

void TestWebColoursTable::onceDoesNotCreateMissingFolder()
{
    QTemporaryDir parent;
    QVERIFY(parent.isValid());
    const QString library = parent.filePath("ChosenLibrary");
    QVERIFY(!writeWebColoursTableOnce(library, false));
    QVERIFY(!QFileInfo::exists(library));
}

QTEST_GUILESS_MAIN(TestWebColoursTable)
#include "tst_webcolourstable.moc"
