#include "tables/colourlibrary.h"

#include "support/fixturefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

class TestColourLibrary : public QObject
{
    Q_OBJECT

private:
    static QStringList listedNames(const QString &folder);
    static bool touch(const QString &path) { return FixtureFile::write(path, "#table\n"); }

private slots:
    void tablesListSortedIgnoringCase();
    void folderNamedLikeATableIsNotListed();
    void dottedTableNameKeepsAllButLastExtension();
    void otherExtensionsAndHiddenFilesAreNotListed();
    void itemPathIsCanonical();
    void emptyOrMissingFolderListsNothing();
    void tablePathForName_data();
    void tablePathForName();
    void usableTableName_data();
    void usableTableName();
};

QStringList TestColourLibrary::listedNames(const QString &folder)
{
    QStringList names;
    for (const LibraryTableItem &item : listLibraryTables(folder))
        names << item.name;
    return names;
}

void TestColourLibrary::tablesListSortedIgnoringCase()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(touch(dir.filePath("b.clrtable")));
    QVERIFY(touch(dir.filePath("A.clrtable")));
    QVERIFY(touch(dir.filePath("c.CLRTABLE")));
    QCOMPARE(listedNames(dir.path()), (QStringList{"A", "b", "c"}));
}

void TestColourLibrary::folderNamedLikeATableIsNotListed()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(QDir(dir.path()).mkpath("x.clrtable"));
    QVERIFY(touch(dir.filePath("y.clrtable")));
    QCOMPARE(listedNames(dir.path()), QStringList{"y"});
}

void TestColourLibrary::dottedTableNameKeepsAllButLastExtension()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(touch(dir.filePath("Summer.2020.clrtable")));
    QCOMPARE(listedNames(dir.path()), QStringList{"Summer.2020"});
}

void TestColourLibrary::otherExtensionsAndHiddenFilesAreNotListed()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(touch(dir.filePath("notes.txt")));
    QVERIFY(touch(dir.filePath("table.clrtable.bak")));
    QVERIFY(touch(dir.filePath(".hidden.clrtable")));
    QVERIFY(touch(dir.filePath("Real.clrtable")));
    QCOMPARE(listedNames(dir.path()), QStringList{"Real"});
}

void TestColourLibrary::itemPathIsCanonical()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(QDir(dir.path()).mkpath("library"));
    QVERIFY(touch(dir.filePath("library/Reds.clrtable")));
    QVERIFY(QFile::link(dir.filePath("library"), dir.filePath("linked")));

    const QList<LibraryTableItem> items = listLibraryTables(dir.filePath("linked/../library/."));
    QCOMPARE(items.size(), 1);
    const QString canonical = QFileInfo(dir.filePath("library/Reds.clrtable")).canonicalFilePath();
    QCOMPARE(items.at(0).canonicalPath, canonical);

    const QList<LibraryTableItem> viaLink = listLibraryTables(dir.filePath("linked"));
    QCOMPARE(viaLink.size(), 1);
    QCOMPARE(viaLink.at(0).canonicalPath, canonical);
}

void TestColourLibrary::emptyOrMissingFolderListsNothing()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(listLibraryTables(dir.path()).isEmpty());
    QVERIFY(listLibraryTables(dir.filePath("missing")).isEmpty());
    // An empty folder setting must not list the working folder.
    const QString previous = QDir::currentPath();
    QVERIFY(touch(dir.filePath("Here.clrtable")));
    QVERIFY(QDir::setCurrent(dir.path()));
    const bool emptyForEmptySetting = listLibraryTables(QString()).isEmpty();
    QDir::setCurrent(previous);
    QVERIFY(emptyForEmptySetting);
}

void TestColourLibrary::tablePathForName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected"); // relative to the library folder
    QTest::newRow("bare name") << "Reds" << "Reds.clrtable";
    QTest::newRow("name with spaces") << "Deep Blues" << "Deep Blues.clrtable";
    QTest::newRow("extension given loses it") << "Reds.clrtable" << "Reds";
    QTest::newRow("dot in name") << "Paint.2020" << "Paint";
    QTest::newRow("two dots") << "a.b.c" << "a.b";
}

void TestColourLibrary::tablePathForName()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QCOMPARE(libraryTablePath("/lib/Colour Library", name), "/lib/Colour Library/" + expected);
}

void TestColourLibrary::usableTableName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("usable");
    QTest::newRow("plain") << QStringLiteral("Reds") << true;
    QTest::newRow("with blanks") << QStringLiteral("Spring reds") << true;
    QTest::newRow("dot inside") << QStringLiteral("Paint.2020") << true;
    QTest::newRow("leading dot hides the file") << QStringLiteral(".hidden") << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("slash") << QStringLiteral("a/b") << false;
    QTest::newRow("parent folder") << QStringLiteral("../escape") << false;
    QTest::newRow("one dot") << QStringLiteral(".") << false;
    QTest::newRow("two dots") << QStringLiteral("..") << false;
    QTest::newRow("three dots") << QStringLiteral("...") << false;
}

void TestColourLibrary::usableTableName()
{
    QFETCH(QString, name);
    QFETCH(bool, usable);
    QCOMPARE(isUsableTableName(name), usable);
}

QTEST_GUILESS_MAIN(TestColourLibrary)
#include "tst_colourlibrary.moc"
