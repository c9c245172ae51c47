#include "common/tablemessages.h"
#include "tables/colourtable.h"
#include "tables/libcolourtable.h"

#include "support/fixturefile.h"
#include "support/modalanswerer.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class TestTableMessages : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    static void fillTable(CColourTable &table);
    static QString libraryWithTables(QTemporaryDir &dir, const QStringList &files);

private slots:
    void initTestCase();

    void loadingGoodTableShowsNoMessage();
    void unopenableFileShowsOpenError();
    void badLineShowsTableNameAndLineNumber();

    void saveOfNewFileAsksNothing();
    void saveOverExistingFileAsksAndNoKeepsFile();
    void saveOverExistingFileAsksAndYesWrites();
    void saveWithoutAskingOverwrites();
    void saveCreatesMissingFolders();
    void saveFailureShowsWriteError();
    void saveIntoFolderInPlaceOfFileKeepsFolder();

    void fillLibraryComboListsTablesWithPaths();
    void fillLibraryComboReplacesOldItems();
    void fillLibraryComboRestoresCursor();
    void coreLoadShowsNoCursorButTheWidgetLayerWrapsIt();
    void rememberedTableIsSelected();
    void lastOfSeveralEqualPathsWins();
    void unknownRememberedTableSelectsFirst();
    void refreshWhileRememberedTableIsCurrentStillSignalsChange();
    void emptyLibrarySelectsNothing();
};

void TestTableMessages::fillTable(CColourTable &table)
{
    table.setHeader("#saved");
    table.add(std::make_unique<CColourTableEntry>("Red, warm", 1.0, 0.2, 0.1));
    table.add(std::make_unique<CColourTableEntry>("Sea", 0.1, 0.4, 0.6));
}

QString TestTableMessages::libraryWithTables(QTemporaryDir &dir, const QStringList &files)
{
    for (const QString &file : files)
        FixtureFile::write(dir.filePath(file), "0.1, 0.2, 0.3, A\n");
    return dir.path();
}

void TestTableMessages::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

void TestTableMessages::loadingGoodTableShowsNoMessage()
{
    QVERIFY(FixtureFile::write(path("good.clrtable"), "#Good\n0.1, 0.2, 0.3, Fine\n"));
    CLibColourTable table;
    ModalAnswerer answer("OK", {}, 300);
    QVERIFY(CTableMessages::loadWithMessages(nullptr, table, "good", path("good.clrtable")));
    QVERIFY(!answer.wasAnswered());
    QCOMPARE(table.count(), 1);
}

void TestTableMessages::unopenableFileShowsOpenError()
{
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>("Kept", 0.0, 0.0, 0.0));
    const QString missing = path("missing.clrtable");
    ModalAnswerer answer("OK");
    QVERIFY(!CTableMessages::loadWithMessages(nullptr, table, "missing", missing));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QString("Vellora"));
    QCOMPARE(answer.text(), "Error while attempting to open colour table file:\n" + missing);
    QCOMPARE(table.count(), 1);
}

void TestTableMessages::badLineShowsTableNameAndLineNumber()
{
    QVERIFY(FixtureFile::write(path("bad.clrtable"), "#c\n\n0.1, 0.2, 0.3, ok\n1, 2\n"));
    CLibColourTable table;
    ModalAnswerer answer("OK");
    QVERIFY(!CTableMessages::loadWithMessages(nullptr, table, "My Reds", path("bad.clrtable")));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QString("Vellora"));
    QCOMPARE(answer.text(), QString("Unable to load colour table:\nMy Reds\n\nError in line 4"));
    QCOMPARE(table.count(), 0);
}

void TestTableMessages::saveOfNewFileAsksNothing()
{
    CColourTable table;
    fillTable(table);
    ModalAnswerer answer("No", {}, 300);
    QVERIFY(CTableMessages::save(nullptr, table, path("fresh.clrtable"), false));
    QVERIFY(!answer.wasAnswered());
    QCOMPARE(FixtureFile::read(path("fresh.clrtable")),
             QByteArray("#saved\n1.0000, 0.2000, 0.1000, Red; warm\n0.1000, 0.4000, 0.6000, Sea\n"));
}

void TestTableMessages::saveOverExistingFileAsksAndNoKeepsFile()
{
    const QString target = path("existing-no.clrtable");
    QVERIFY(FixtureFile::write(target, "#old content\n"));
    CColourTable table;
    fillTable(table);
    ModalAnswerer answer("No");
    QVERIFY(!CTableMessages::save(nullptr, table, target, false));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QString("Vellora"));
    QCOMPARE(answer.text(), "The file:\n" + target + "\nalready exists.\nWould you like to overwrite it?");
    QCOMPARE(FixtureFile::read(target), QByteArray("#old content\n"));
}

void TestTableMessages::saveOverExistingFileAsksAndYesWrites()
{
    const QString target = path("existing-yes.clrtable");
    QVERIFY(FixtureFile::write(target, "#old content\n"));
    CColourTable table;
    fillTable(table);
    ModalAnswerer answer("Yes");
    QVERIFY(CTableMessages::save(nullptr, table, target, false));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), "The file:\n" + target + "\nalready exists.\nWould you like to overwrite it?");
    QCOMPARE(FixtureFile::read(target), table.serialise());
}

void TestTableMessages::saveWithoutAskingOverwrites()
{
    const QString target = path("existing-silent.clrtable");
    QVERIFY(FixtureFile::write(target, "#old content\n"));
    CColourTable table;
    fillTable(table);
    ModalAnswerer answer("No", {}, 300);
    QVERIFY(CTableMessages::save(nullptr, table, target, true));
    QVERIFY(!answer.wasAnswered());
    QCOMPARE(FixtureFile::read(target), table.serialise());
}

void TestTableMessages::saveCreatesMissingFolders()
{
    const QString target = path("a/b/c/data.csv");
    CColourTable table;
    fillTable(table);
    QVERIFY(CTableMessages::save(nullptr, table, target, false));
    QCOMPARE(FixtureFile::read(target), table.serialise());
}

void TestTableMessages::saveFailureShowsWriteError()
{
    QVERIFY(FixtureFile::write(path("notafolder"), "plain file\n"));
    const QString target = path("notafolder/data.txt");
    CColourTable table;
    fillTable(table);
    ModalAnswerer answer("OK");
    QVERIFY(!CTableMessages::save(nullptr, table, target, false));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QString("Vellora"));
    QCOMPARE(answer.text(), "Error, writing to file: " + target + ".");
    QCOMPARE(FixtureFile::read(path("notafolder")), QByteArray("plain file\n"));
    QCOMPARE(table.count(), 2);
}

void TestTableMessages::saveIntoFolderInPlaceOfFileKeepsFolder()
{
    const QString target = path("folder.txt");
    QVERIFY(FixtureFile::write(target + "/inside", "x"));
    CColourTable table;
    fillTable(table);
    // It exists, so the question comes first; then the write fails. The
    // second answerer starts only once the question is on screen.
    std::unique_ptr<ModalAnswerer> failure;
    ModalAnswerer question("Yes", [&failure](QWidget *) { failure.reset(new ModalAnswerer("OK")); });
    QVERIFY(!CTableMessages::save(nullptr, table, target, false));
    QVERIFY(question.wasAnswered());
    QVERIFY(failure && failure->wasAnswered());
    QCOMPARE(failure->title(), QString("Vellora"));
    QCOMPARE(failure->text(), "Error, writing to file: " + target + ".");
    QVERIFY(QFileInfo(target).isDir());
    QCOMPARE(FixtureFile::read(target + "/inside"), QByteArray("x"));
}

void TestTableMessages::fillLibraryComboListsTablesWithPaths()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString folder = libraryWithTables(dir, {"b.clrtable", "A.clrtable", "Summer.2020.clrtable"});
    QVERIFY(QDir(folder).mkpath("x.clrtable"));
    QComboBox combo;
    CTableMessages::fillLibraryCombo(folder, &combo);
    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.itemText(0), QString("A"));
    QCOMPARE(combo.itemText(1), QString("b"));
    QCOMPARE(combo.itemText(2), QString("Summer.2020"));
    QCOMPARE(combo.itemData(1).toString(), QFileInfo(dir.filePath("b.clrtable")).canonicalFilePath());
    QVERIFY(combo.itemIcon(0).isNull());
}

void TestTableMessages::fillLibraryComboReplacesOldItems()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QComboBox combo;
    combo.addItem("stale", "/nowhere");
    CTableMessages::fillLibraryCombo(libraryWithTables(dir, {"Only.clrtable"}), &combo);
    QCOMPARE(combo.count(), 1);
    QCOMPARE(combo.itemText(0), QString("Only"));
}

namespace {

// Notes the override cursor at the moment load() empties the table.
class CursorWatchingTable : public CColourTable
{
public:
    void clear() override
    {
        if (const QCursor *cursor = QGuiApplication::overrideCursor())
            shapes.append(cursor->shape());
        else
            shapes.append(-1);
        CColourTable::clear();
    }
    QList<int> shapes;
};

} // namespace

void TestTableMessages::coreLoadShowsNoCursorButTheWidgetLayerWrapsIt()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = QDir(libraryWithTables(dir, {"One.clrtable"})).filePath("One.clrtable");
    CursorWatchingTable table;
    QCOMPARE(table.load(path).status, int(CColourTable::Loaded));
    QCOMPARE(table.shapes, QList<int>{-1});
    table.shapes.clear();
    QCOMPARE(CTableMessages::loadWithWaitCursor(table, path).status, int(CColourTable::Loaded));
    QCOMPARE(table.shapes, QList<int>{int(Qt::WaitCursor)});
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestTableMessages::fillLibraryComboRestoresCursor()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QComboBox combo;
    QVERIFY(!QGuiApplication::overrideCursor());
    CTableMessages::fillLibraryCombo(libraryWithTables(dir, {"One.clrtable"}), &combo);
    QVERIFY(!QGuiApplication::overrideCursor());
    CColourTable table;
    QCOMPARE(table.load(dir.filePath("One.clrtable")).status, int(CColourTable::Loaded));
    QVERIFY(!QGuiApplication::overrideCursor());

    // A failed load restores it too, and a cursor set by someone else stays.
    QVERIFY(FixtureFile::write(dir.filePath("Bad.clrtable"), "broken\n"));
    QGuiApplication::setOverrideCursor(QCursor(Qt::CrossCursor));
    QCOMPARE(table.load(dir.filePath("Bad.clrtable")).status, int(CColourTable::BadLine));
    CTableMessages::fillLibraryCombo(dir.path(), &combo);
    QVERIFY(QGuiApplication::overrideCursor());
    const Qt::CursorShape shape = QGuiApplication::overrideCursor()->shape();
    QGuiApplication::restoreOverrideCursor();
    QCOMPARE(shape, Qt::CrossCursor);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestTableMessages::rememberedTableIsSelected()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QComboBox combo;
    CTableMessages::fillLibraryCombo(libraryWithTables(dir, {"a.clrtable", "b.clrtable", "c.clrtable"}),
                                     &combo);
    const QString remembered = QFileInfo(dir.filePath("b.clrtable")).canonicalFilePath();
    QCOMPARE(CTableMessages::selectLibraryTable(&combo, remembered), 1);
    QCOMPARE(combo.currentText(), QString("b"));
}

void TestTableMessages::lastOfSeveralEqualPathsWins()
{
    QComboBox combo;
    combo.addItem("first", "/lib/same.clrtable");
    combo.addItem("other", "/lib/other.clrtable");
    combo.addItem("second", "/lib/same.clrtable");
    QCOMPARE(CTableMessages::selectLibraryTable(&combo, "/lib/same.clrtable"), 2);
    QCOMPARE(combo.currentIndex(), 2);
}

void TestTableMessages::unknownRememberedTableSelectsFirst()
{
    QComboBox combo;
    combo.addItem("one", "/lib/one.clrtable");
    combo.addItem("two", "/lib/two.clrtable");
    combo.setCurrentIndex(1);
    QCOMPARE(CTableMessages::selectLibraryTable(&combo, "/lib/gone.clrtable"), 0);
    QCOMPARE(combo.currentIndex(), 0);
}

void TestTableMessages::refreshWhileRememberedTableIsCurrentStillSignalsChange()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString folder = libraryWithTables(dir, {"Reds.clrtable", "Blues.clrtable"});
    const QString remembered = QFileInfo(dir.filePath("Blues.clrtable")).canonicalFilePath();
    QComboBox combo;
    CTableMessages::fillLibraryCombo(folder, &combo);
    QCOMPARE(combo.currentIndex(), 0); // the first item added became current
    QCOMPARE(combo.itemText(0), QString("Blues"));

    QSignalSpy spy(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
    QCOMPARE(CTableMessages::selectLibraryTable(&combo, remembered), 0);
    QVERIFY(!spy.isEmpty());
    QCOMPARE(spy.last().at(0).toInt(), 0);

    spy.clear();
    CTableMessages::selectLibraryTable(&combo, remembered);
    QVERIFY(!spy.isEmpty());
    QCOMPARE(spy.last().at(0).toInt(), 0);
    QCOMPARE(combo.currentText(), QString("Blues"));
}

void TestTableMessages::emptyLibrarySelectsNothing()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QComboBox combo;
    CTableMessages::fillLibraryCombo(dir.path(), &combo);
    QSignalSpy spy(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
    QCOMPARE(CTableMessages::selectLibraryTable(&combo, "/lib/any.clrtable"), -1);
    QCOMPARE(combo.currentIndex(), -1);
    QVERIFY(spy.isEmpty());
}

QTEST_MAIN(TestTableMessages)
#include "tst_tablemessages.moc"
