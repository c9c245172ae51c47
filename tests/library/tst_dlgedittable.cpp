#include "common/appcontext.h"
#include "library/dlgedittable.h"
#include "tables/libcolourtable.h"

#include "support/filesizelimit.h"
#include "support/fixturefile.h"
#include "support/modalsequence.h"
#include "support/guitestfixture.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTextEdit>
#include <QtTest>

#include <memory>

// Editing one library table: the note round trip, renaming and deleting
// entries, and when OK and Cancel write or ask.
class TestDlgEditTable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void titleNameAndButtons();
    void gridRowsShowSwatchNameAndTwoButtons();
    void noteLinesAreShownWithoutTheirHash();
    void okWithNothingChangedClosesWithoutWriting();
    void editingOnlyTheNoteWritesTheEntriesSortedIgnoringCase();
    void noteEndingInBlankLinesIsSavedWithOneHashLineForEach();
    void hashBlankHelloShowsALeadingBlankAndIsSavedAsHashHello();
    void renameThroughTheRowButtonWritesTheNewName();
    void renameToTheSameNameChangesNothing();
    void renameKeepsCommasAsTyped();
    void renamingToAnotherEntrysNameLeavesTwoOfThatName();
    void cancellingAfterARenameAsksAndNoKeepsTheDialogAndTheRename();
    void cancellingAfterARenameAndYesLeavesTheFile();
    void cancelWithNothingChangedClosesAtOnce();
    void escapeAfterANoteEditAsks();
    void deletingTheLastEntryLeavesAnEmptyGridAndOkWritesNoEntries();
    void deleteOutsideTheTableDoesNothing();
    void failedWriteOnOkKeepsTheOldFileShowsTheErrorAndStillAccepts();
    void helpButtonAsksForTheEditPage();
    void okOntoATableChangedOnDiskAsksNamingItAndNoKeepsTheDialogAndWritesNothing();
    void okOntoATableChangedOnDiskAndYesOverwritesTheChange();

private:
    // Writes content as Greens.clrtable, loads it and sorts it as the
    // Maintenance page does, then opens the dialog on it.
    bool openOn(const QByteArray &content);
    void typeAtNoteEnd(const QString &text);
    void clickRowButton(int row, int column);
    // Renames an entry through its row button, typing newName in the prompt.
    void renameRow(int row, const QString &newName);
    QStringList gridNames() const;
    QByteArray fileBytes() const { return FixtureFile::read(m_path); }

    GuiTestFixture *m_home = nullptr;
    QString m_path;
    std::unique_ptr<CLibColourTable> m_table;
    std::unique_ptr<CDlgEditTable> m_dialog;
};

namespace {
const QByteArray kGreens("# Greens of the north\n0.1, 0.5, 0.1, moss\n0.2, 0.8, 0.2, Lime\n"
                         "0.0, 0.4, 0.0, forest\n");
} // namespace

void TestDlgEditTable::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(m_home->isValid());
    m_path = m_home->home() + QStringLiteral("/Greens.clrtable");
}

void TestDlgEditTable::cleanupTestCase()
{
    delete m_home;
}

void TestDlgEditTable::init()
{
    QFile::remove(m_path);
}

void TestDlgEditTable::cleanup()
{
    m_dialog.reset();
    m_table.reset();
}

bool TestDlgEditTable::openOn(const QByteArray &content)
{
    if (!FixtureFile::write(m_path, content))
        return false;
    m_table = std::make_unique<CLibColourTable>();
    if (m_table->load(m_path).status != CColourTable::Loaded)
        return false;
    m_table->sort();
    m_dialog = std::make_unique<CDlgEditTable>(nullptr, QStringLiteral("Greens"), m_path,
                                               m_table.get());
    if (m_dialog->windowModality() != Qt::WindowModal)
        return false;
    // Shown without modality so that only the boxes it opens are modal.
    m_dialog->setWindowModality(Qt::NonModal);
    m_dialog->show();
    return QTest::qWaitForWindowExposed(m_dialog.get());
}

void TestDlgEditTable::typeAtNoteEnd(const QString &text)
{
    QTextEdit *note = m_dialog->noteEdit();
    note->setFocus();
    QTest::keyClick(note, Qt::Key_End, Qt::ControlModifier);
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            QTest::keyClick(note, Qt::Key_Return);
        else
            QTest::keyClicks(note, QString(c));
    }
}

void TestDlgEditTable::clickRowButton(int row, int column)
{
    auto *button = qobject_cast<QPushButton *>(m_dialog->grid()->cellWidget(row, column));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

void TestDlgEditTable::renameRow(int row, const QString &newName)
{
    ModalAnswerer answer(QStringLiteral("OK"), DialogActions::typeText(newName));
    clickRowButton(row, 2);
    QVERIFY(answer.wasAnswered());
}

QStringList TestDlgEditTable::gridNames() const
{
    QStringList names;
    for (int row = 0; row < m_dialog->grid()->rowCount(); ++row)
        names << qobject_cast<QLabel *>(m_dialog->grid()->cellWidget(row, 1))->text();
    return names;
}

void TestDlgEditTable::titleNameAndButtons()
{
    QVERIFY(openOn(kGreens));
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Vellora - Edit Colour Table"));
    QStringList labels;
    for (QLabel *label : m_dialog->findChildren<QLabel *>())
        labels << label->text();
    QVERIFY(labels.contains(QStringLiteral("Editing:Greens")));
    QVERIFY(labels.contains(QStringLiteral("Note:")));
    QCOMPARE(m_dialog->okButton()->text(), QStringLiteral("&OK"));
    QVERIFY(m_dialog->okButton()->isDefault());
    QCOMPARE(m_dialog->cancelButton()->text(), QStringLiteral("&Cancel"));
    QCOMPARE(m_dialog->helpButton()->text(), QStringLiteral("&Help"));
    QCOMPARE(m_dialog->grid()->columnCount(), 4);
    QCOMPARE(m_dialog->grid()->columnWidth(0), 34);
    QVERIFY(m_dialog->grid()->horizontalHeader()->isHidden());
    QVERIFY(m_dialog->grid()->verticalHeader()->isHidden());
    QCOMPARE(m_dialog->grid()->selectionMode(), QAbstractItemView::NoSelection);
}

void TestDlgEditTable::gridRowsShowSwatchNameAndTwoButtons()
{
    QVERIFY(openOn(kGreens));
    QCOMPARE(gridNames(), QStringList({"forest", "Lime", "moss"}));
    auto *swatch = qobject_cast<QLabel *>(m_dialog->grid()->cellWidget(1, 0));
    QVERIFY(swatch);
    QCOMPARE(swatch->styleSheet(), QStringLiteral("background-color:#33cc33;"));
    auto *rename = qobject_cast<QPushButton *>(m_dialog->grid()->cellWidget(1, 2));
    auto *remove = qobject_cast<QPushButton *>(m_dialog->grid()->cellWidget(1, 3));
    QVERIFY(rename && remove);
    QCOMPARE(rename->toolTip(), QStringLiteral("Rename entry"));
    QCOMPARE(remove->toolTip(), QStringLiteral("Delete entry"));
    QVERIFY(!rename->icon().isNull());
    QVERIFY(!remove->icon().isNull());
}

void TestDlgEditTable::noteLinesAreShownWithoutTheirHash()
{
    QVERIFY(openOn("#First line\n0.1, 0.1, 0.1, a\n  #Second\n"));
    QCOMPARE(m_dialog->noteEdit()->toPlainText(), QStringLiteral("First line\nSecond"));
    QVERIFY(!m_dialog->noteEdit()->document()->isModified());
}

void TestDlgEditTable::okWithNothingChangedClosesWithoutWriting()
{
    // Unsorted and oddly spaced: any write would change these bytes.
    const QByteArray content("0.5,0.5,0.5,  b\n# note\n0.1, 0.1, 0.1, A\n");
    QVERIFY(openOn(content));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!m_dialog->isChanged());
    QCOMPARE(fileBytes(), content);
}

void TestDlgEditTable::editingOnlyTheNoteWritesTheEntriesSortedIgnoringCase()
{
    QVERIFY(openOn(kGreens));
    typeAtNoteEnd(QStringLiteral(" and south"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(m_dialog->isChanged());
    QCOMPARE(fileBytes(), QByteArray("#Greens of the north and south\n\n"
                                     "0.0000, 0.4000, 0.0000, forest\n"
                                     "0.2000, 0.8000, 0.2000, Lime\n"
                                     "0.1000, 0.5000, 0.1000, moss\n"));
}

void TestDlgEditTable::noteEndingInBlankLinesIsSavedWithOneHashLineForEach()
{
    QVERIFY(openOn("# Note\n0.1, 0.1, 0.1, a\n"));
    typeAtNoteEnd(QStringLiteral("\n\n"));
    QCOMPARE(m_dialog->noteEdit()->toPlainText(), QStringLiteral(" Note\n\n"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(fileBytes(), QByteArray("#Note\n#\n#\n\n0.1000, 0.1000, 0.1000, a\n"));
}

void TestDlgEditTable::hashBlankHelloShowsALeadingBlankAndIsSavedAsHashHello()
{
    QVERIFY(openOn("# Hello\n0.1, 0.1, 0.1, a\n"));
    QCOMPARE(m_dialog->noteEdit()->toPlainText(), QStringLiteral(" Hello"));
    typeAtNoteEnd(QStringLiteral("\nWorld"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(fileBytes(), QByteArray("#Hello\n#World\n\n0.1000, 0.1000, 0.1000, a\n"));
}

void TestDlgEditTable::renameThroughTheRowButtonWritesTheNewName()
{
    QVERIFY(openOn(kGreens));
    {
        ModalAnswerer answer(QStringLiteral("OK"), [](QWidget *dialog) {
            auto *edit = dialog->findChild<QLineEdit *>();
            if (edit && edit->text() == QLatin1String("Lime")) {
                edit->clear();
                QTest::keyClicks(edit, QStringLiteral("  Apple  "));
            }
        });
        clickRowButton(1, 2);
        QVERIFY(answer.wasAnswered());
        QCOMPARE(answer.title(), QStringLiteral("Vellora - Rename Item"));
    }
    QCOMPARE(gridNames(), QStringList({"forest", "Apple", "moss"}));
    QVERIFY(m_dialog->isChanged());
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(fileBytes(), QByteArray("# Greens of the north\n"
                                     "0.2000, 0.8000, 0.2000, Apple\n"
                                     "0.0000, 0.4000, 0.0000, forest\n"
                                     "0.1000, 0.5000, 0.1000, moss\n"));
}

void TestDlgEditTable::renameToTheSameNameChangesNothing()
{
    QVERIFY(openOn(kGreens));
    {
        ModalAnswerer answer(QStringLiteral("OK"));
        clickRowButton(0, 2);
        QVERIFY(answer.wasAnswered());
    }
    QVERIFY(!m_dialog->isChanged());
    // Nothing changed, so Cancel closes without asking.
    QTest::mouseClick(m_dialog->cancelButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(fileBytes(), kGreens);
}

void TestDlgEditTable::renameKeepsCommasAsTyped()
{
    QVERIFY(openOn(kGreens));
    m_dialog->grid()->setFocus();
    renameRow(2, QStringLiteral("Moss, deep"));
    QCOMPARE(m_table->at(2)->name, QStringLiteral("Moss, deep"));
}

void TestDlgEditTable::renamingToAnotherEntrysNameLeavesTwoOfThatName()
{
    QVERIFY(openOn(kGreens));
    renameRow(0, QStringLiteral("Lime"));
    QCOMPARE(gridNames(), QStringList({"Lime", "Lime", "moss"}));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(fileBytes(), QByteArray("# Greens of the north\n"
                                     "0.0000, 0.4000, 0.0000, Lime\n"
                                     "0.2000, 0.8000, 0.2000, Lime\n"
                                     "0.1000, 0.5000, 0.1000, moss\n"));
}

void TestDlgEditTable::cancellingAfterARenameAsksAndNoKeepsTheDialogAndTheRename()
{
    QVERIFY(openOn(kGreens));
    renameRow(2, QStringLiteral("Fern"));
    ModalAnswerer question(QStringLiteral("No"));
    QTest::mouseClick(m_dialog->cancelButton(), Qt::LeftButton);
    QVERIFY(question.wasAnswered());
    QCOMPARE(question.title(), QStringLiteral("Vellora"));
    QCOMPARE(question.text(), QStringLiteral("You have made changes to the colour table.\nAre you "
                                             "sure that you want to  exit without saving?"));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(gridNames(), QStringList({"forest", "Lime", "Fern"}));
    QCOMPARE(fileBytes(), kGreens);
}

void TestDlgEditTable::cancellingAfterARenameAndYesLeavesTheFile()
{
    QVERIFY(openOn(kGreens));
    renameRow(2, QStringLiteral("Fern"));
    ModalAnswerer question(QStringLiteral("Yes"));
    QTest::mouseClick(m_dialog->cancelButton(), Qt::LeftButton);
    QVERIFY(question.wasAnswered());
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(fileBytes(), kGreens);
}

void TestDlgEditTable::cancelWithNothingChangedClosesAtOnce()
{
    QVERIFY(openOn(kGreens));
    ModalAnswerer none(QStringLiteral("No"), ModalAnswerer::Action(), 300);
    QTest::mouseClick(m_dialog->cancelButton(), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    // A question would have been asked inside the click itself.
    QCoreApplication::processEvents();
    QVERIFY(!none.wasAnswered());
}

void TestDlgEditTable::escapeAfterANoteEditAsks()
{
    QVERIFY(openOn(kGreens));
    typeAtNoteEnd(QStringLiteral("!"));
    ModalAnswerer question(QStringLiteral("No"));
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(question.wasAnswered());
    QVERIFY(question.text().startsWith(QStringLiteral("You have made changes")));
    QVERIFY(m_dialog->isVisible());
    QVERIFY(m_dialog->isChanged());
}

void TestDlgEditTable::deletingTheLastEntryLeavesAnEmptyGridAndOkWritesNoEntries()
{
    QVERIFY(openOn("# Only one\n0.3, 0.6, 0.3, Sage\n"));
    QCOMPARE(m_dialog->grid()->rowCount(), 1);
    clickRowButton(0, 3);
    QCOMPARE(m_dialog->grid()->rowCount(), 0);
    QCOMPARE(m_table->count(), 0);
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(fileBytes(), QByteArray("# Only one\n"));
}

void TestDlgEditTable::deleteOutsideTheTableDoesNothing()
{
    QVERIFY(openOn(kGreens));
    m_dialog->deleteEntry(3);
    m_dialog->deleteEntry(-1);
    QCOMPARE(m_table->count(), 3);
    QVERIFY(!m_dialog->isChanged());
    clickRowButton(1, 3);
    QCOMPARE(gridNames(), QStringList({"forest", "moss"}));
    QVERIFY(m_dialog->isChanged());
}

void TestDlgEditTable::failedWriteOnOkKeepsTheOldFileShowsTheErrorAndStillAccepts()
{
    QByteArray content("# Long note\n");
    for (int i = 0; i < 40; ++i)
        content += QByteArray("0.5, 0.5, 0.5, A rather long colour name ") + QByteArray::number(i) + '\n';
    QVERIFY(openOn(content));
    typeAtNoteEnd(QStringLiteral(" changed"));
    ModalAnswerer error(QStringLiteral("OK"));
    {
        FileSizeLimit limit(256);
        QVERIFY(limit.isActive());
        QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    }
    QVERIFY(error.wasAnswered());
    QCOMPARE(error.title(), QStringLiteral("Vellora"));
    QCOMPARE(error.text(), QStringLiteral("Error, writing to file: %1.").arg(m_path));
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(fileBytes(), content);
    QCOMPARE(QDir(m_home->home()).entryList({"Greens*"}, QDir::Files | QDir::Hidden),
             QStringList({"Greens.clrtable"}));
}

void TestDlgEditTable::okOntoATableChangedOnDiskAsksNamingItAndNoKeepsTheDialogAndWritesNothing()
{
    QVERIFY(openOn(kGreens));
    typeAtNoteEnd(QStringLiteral(" and south"));
    const QByteArray theirs = kGreens + "0.3, 0.6, 0.3, Fern\n";
    QVERIFY(FixtureFile::write(m_path, theirs));
    ModalAnswerer answer(QStringLiteral("No"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QVERIFY2(answer.text().contains(QStringLiteral("\"Greens\"")), qPrintable(answer.text()));
    QVERIFY2(answer.text().contains(QStringLiteral("Overwrite that change")),
             qPrintable(answer.text()));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), 0);
    QCOMPARE(fileBytes(), theirs);
    QCOMPARE(gridNames(), QStringList({"forest", "Lime", "moss"}));
}

void TestDlgEditTable::okOntoATableChangedOnDiskAndYesOverwritesTheChange()
{
    QVERIFY(openOn(kGreens));
    typeAtNoteEnd(QStringLiteral(" and south"));
    QVERIFY(FixtureFile::write(m_path, kGreens + "0.3, 0.6, 0.3, Fern\n"));
    ModalAnswerer answer(QStringLiteral("Yes"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(fileBytes().startsWith("#Greens of the north and south\n"));
    QVERIFY(!fileBytes().contains("Fern"));
}

void TestDlgEditTable::helpButtonAsksForTheEditPage()
{
    QVERIFY(openOn(kGreens));
    QSignalSpy help(m_dialog.get(), &CDlgEditTable::displayHelpSignal);
    QTest::mouseClick(m_dialog->helpButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("library.html#libEditColourTable"));
    QVERIFY(m_dialog->isVisible());
}

QTEST_MAIN(TestDlgEditTable)
#include "tst_dlgedittable.moc"
