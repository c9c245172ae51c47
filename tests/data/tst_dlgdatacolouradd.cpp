#include "app/appsettings.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "data/dlgdatacolouradd.h"
#include "tables/datacolourtable.h"

#include "support/guitestfixture.h"
#include "support/modalanswerer.h"
#include "support/modalsequence.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The add-colour dialog: what it shows for the colour and the data set, its
// two checks on the name, the destination it reports and its help.
class TestDlgDataColourAdd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void titleAndTitleBarOnly();
    void swatchShowsTheColourInABlackFrame();
    void colourTextsFollowTheDisplayFormat_data();
    void colourTextsFollowTheDisplayFormat();
    void labTextHasTwoDecimals();
    void fieldsAreLabelled();
    void emptyPageOffersOnlyExistingOrNewFile();
    void setWithAFileShowsItsPathAndAddsToIt();
    void untitledSetOffersAddToUntitledFile();
    void blankNameIsRefused();
    void nameIsTrimmedAndTheChoiceReported();
    void duplicateNameAsksAndYesAddsTheDuplicate();
    void duplicateNameAnsweredNoKeepsTheDialogOpen();
    void duplicateTestIsCaseSensitive();
    void duplicateNotCheckedForAnotherFile();
    void cancelRejects();
    void helpButtonAsksForTheAddColourPage();
    void helpKeyAsksForTheAddColourPage();

private:
    std::unique_ptr<CDlgDataColourAdd> makeDialog(double red = 1.0, double green = 0.5,
                                                  double blue = 0.0);
    QStringList labelTexts(QWidget *dialog) const;
    void clickOk();

    GuiTestFixture m_fixture;
    CAppSettings *m_settings = nullptr;
    CDataColourTable m_table;
    std::unique_ptr<CDlgDataColourAdd> m_dialog;
};

void TestDlgDataColourAdd::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    m_settings = new CAppSettings;
}

void TestDlgDataColourAdd::cleanupTestCase()
{
    m_dialog.reset();
    delete m_settings;
}

void TestDlgDataColourAdd::init()
{
    m_fixture.reset();
    m_dialog.reset();
    m_table.clear();
    m_table.setUntitled(false);
    m_settings->rgbFormat = 0;
}

std::unique_ptr<CDlgDataColourAdd> TestDlgDataColourAdd::makeDialog(double red, double green,
                                                                    double blue)
{
    auto dialog = std::make_unique<CDlgDataColourAdd>(nullptr, m_settings, &m_table, red, green, blue);
    dialog->show();
    if (!QTest::qWaitForWindowExposed(dialog.get()))
        return nullptr;
    return dialog;
}

QStringList TestDlgDataColourAdd::labelTexts(QWidget *dialog) const
{
    QStringList texts;
    for (QLabel *label : dialog->findChildren<QLabel *>())
        texts << label->text();
    return texts;
}

void TestDlgDataColourAdd::clickOk()
{
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
}

void TestDlgDataColourAdd::titleAndTitleBarOnly()
{
    m_dialog = makeDialog();
    QVERIFY(m_dialog);
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Vellora - Add Colour Data"));
    const Qt::WindowFlags flags = m_dialog->windowFlags();
    QVERIFY(flags & Qt::Dialog);
    QVERIFY(flags & Qt::WindowTitleHint);
    QVERIFY(!(flags & Qt::WindowContextHelpButtonHint));
    QCOMPARE(m_dialog->okButton()->text(), QStringLiteral("&OK"));
    QCOMPARE(m_dialog->helpButton()->text(), QStringLiteral("&Help"));
    QCOMPARE(m_dialog->cancelButton()->text(), QStringLiteral("&Cancel"));
}

void TestDlgDataColourAdd::swatchShowsTheColourInABlackFrame()
{
    m_dialog = makeDialog(1.0, 0.5, 0.0);
    QLabel *swatch = m_dialog->swatchLabel();
    QCOMPARE(swatch->size(), QSize(34, 51));
    QCOMPARE(swatch->styleSheet(), QStringLiteral("background-color:#ff8000;"));
    QCOMPARE(swatch->parentWidget()->styleSheet(), QStringLiteral("border:1px solid black"));
    const QImage shown = swatch->grab().toImage();
    QCOMPARE(QColor(shown.pixel(shown.rect().center())).name(), QStringLiteral("#ff8000"));
}

void TestDlgDataColourAdd::colourTextsFollowTheDisplayFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("integer") << 0 << "R:255, G:127, B:31";
    QTest::newRow("decimal") << 1 << "R:1.00, G:0.50, B:0.12";
    QTest::newRow("hex") << 2 << "R:0xff, G:0x7f, B:0x1f";
}

void TestDlgDataColourAdd::colourTextsFollowTheDisplayFormat()
{
    QFETCH(int, format);
    QFETCH(QString, text);
    m_settings->rgbFormat = format;
    m_dialog = makeDialog(1.0, 0.5, 0.12345);
    QVERIFY(labelTexts(m_dialog.get()).contains(text));
}

void TestDlgDataColourAdd::labTextHasTwoDecimals()
{
    m_dialog = makeDialog(1.0, 0.0, 0.0);
    QVERIFY(labelTexts(m_dialog.get()).contains(QStringLiteral("L:53.23, a:80.11, b:67.22")));
    m_dialog = makeDialog(1.0, 1.0, 1.0);
    QVERIFY(labelTexts(m_dialog.get()).contains(QStringLiteral("L:100.00, a:0.01, b:-0.01")));
}

void TestDlgDataColourAdd::fieldsAreLabelled()
{
    m_dialog = makeDialog();
    const QStringList texts = labelTexts(m_dialog.get());
    QVERIFY(texts.contains(QStringLiteral("Colour Name:")));
    QVERIFY(texts.contains(QStringLiteral("Data File:")));
    QCOMPARE(m_dialog->choiceButton(CDlgDataColourAdd::OpenAndAdd)->text(),
             QStringLiteral("Open and add to an existing file"));
    QCOMPARE(m_dialog->choiceButton(CDlgDataColourAdd::AddToNew)->text(),
             QStringLiteral("Add to a new file"));
}

void TestDlgDataColourAdd::emptyPageOffersOnlyExistingOrNewFile()
{
    m_dialog = makeDialog();
    QRadioButton *current = m_dialog->choiceButton(CDlgDataColourAdd::AddToCurrent);
    QRadioButton *open = m_dialog->choiceButton(CDlgDataColourAdd::OpenAndAdd);
    QCOMPARE(m_dialog->dataFileLabel()->text(), QStringLiteral("None"));
    QVERIFY(open->isChecked());
    QVERIFY(!current->isEnabled());
    DialogActions::clickRadio(current);
    QVERIFY(!current->isChecked());
    QVERIFY(open->isChecked());
    QTest::keyClicks(m_dialog->nameEdit(), QStringLiteral("Sky"));
    clickOk();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->choice(), CDlgDataColourAdd::OpenAndAdd);
}

void TestDlgDataColourAdd::setWithAFileShowsItsPathAndAddsToIt()
{
    m_table.setFilePath(QStringLiteral("/data/sets/colours.txt"));
    m_dialog = makeDialog();
    QCOMPARE(m_dialog->dataFileLabel()->text(), QStringLiteral("/data/sets/colours.txt"));
    QRadioButton *current = m_dialog->choiceButton(CDlgDataColourAdd::AddToCurrent);
    QVERIFY(current->isEnabled());
    QVERIFY(current->isChecked());
    QCOMPARE(current->text(), QStringLiteral("Add to current data file"));
}

void TestDlgDataColourAdd::untitledSetOffersAddToUntitledFile()
{
    m_table.setUntitled(true);
    m_dialog = makeDialog();
    QRadioButton *current = m_dialog->choiceButton(CDlgDataColourAdd::AddToCurrent);
    QCOMPARE(current->text(), QStringLiteral("Add to untitled file"));
    QVERIFY(current->isChecked());
    QCOMPARE(m_dialog->dataFileLabel()->text(), QStringLiteral("Untitled data file"));
}

void TestDlgDataColourAdd::blankNameIsRefused()
{
    m_table.setUntitled(true);
    m_dialog = makeDialog();
    QTest::keyClicks(m_dialog->nameEdit(), QStringLiteral("   "));
    ModalAnswerer answer(QStringLiteral("OK"));
    clickOk();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("Please enter a colour name"));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), 0);
}

void TestDlgDataColourAdd::nameIsTrimmedAndTheChoiceReported()
{
    m_table.setUntitled(true);
    m_dialog = makeDialog();
    QTest::keyClicks(m_dialog->nameEdit(), QStringLiteral("  Teal  "));
    DialogActions::clickRadio(m_dialog->choiceButton(CDlgDataColourAdd::AddToNew));
    clickOk();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->name(), QStringLiteral("Teal"));
    QCOMPARE(m_dialog->choice(), CDlgDataColourAdd::AddToNew);
}

void TestDlgDataColourAdd::duplicateNameAsksAndYesAddsTheDuplicate()
{
    CChartDataWindow page(nullptr);
    page.processCommand(CmdNewData);
    page.model()->appendEntry(
        std::make_unique<CColourTableEntry>(QStringLiteral("Red"), 1.0, 0.0, 0.0));
    ModalSequence answers({{QStringLiteral("OK"), DialogActions::typeText(QStringLiteral("Red"))},
                           {QStringLiteral("Yes"), {}}});
    QVERIFY(page.addColour(0.9, 0.1, 0.1));
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(1),
             QStringLiteral("The data set already contains a colour called:<br />\"Red\"<br />Are "
                            "you sure that you would like to use the same name?"));
    QCOMPARE(page.model()->rowCount(), 2);
    QCOMPARE(page.dataTable()->at(0)->name, QStringLiteral("Red"));
    QCOMPARE(page.dataTable()->at(1)->name, QStringLiteral("Red"));
    QCOMPARE(page.dataTable()->at(1)->red, 0.9);
}

void TestDlgDataColourAdd::duplicateNameAnsweredNoKeepsTheDialogOpen()
{
    m_table.setUntitled(true);
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Red"), 1.0, 0.0, 0.0));
    m_dialog = makeDialog();
    QTest::keyClicks(m_dialog->nameEdit(), QStringLiteral("Red"));
    ModalAnswerer answer(QStringLiteral("No"));
    clickOk();
    QVERIFY(answer.wasAnswered());
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), 0);
    QCOMPARE(m_dialog->nameEdit()->text(), QStringLiteral("Red"));
}

void TestDlgDataColourAdd::duplicateTestIsCaseSensitive()
{
    m_table.setUntitled(true);
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Red"), 1.0, 0.0, 0.0));
    m_dialog = makeDialog();
    QTest::keyClicks(m_dialog->nameEdit(), QStringLiteral("red"));
    ModalAnswerer unexpected(QStringLiteral("No"), ModalAnswerer::Action(), 200);
    clickOk();
    // A question runs modally inside the click, and "No" would have kept the
    // dialog open: accepted means nothing was asked.
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCoreApplication::processEvents();
    QVERIFY(!unexpected.wasAnswered());
}

void TestDlgDataColourAdd::duplicateNotCheckedForAnotherFile()
{
    m_table.setUntitled(true);
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Red"), 1.0, 0.0, 0.0));
    m_dialog = makeDialog();
    QTest::keyClicks(m_dialog->nameEdit(), QStringLiteral("Red"));
    DialogActions::clickRadio(m_dialog->choiceButton(CDlgDataColourAdd::OpenAndAdd));
    ModalAnswerer unexpected(QStringLiteral("No"), ModalAnswerer::Action(), 200);
    clickOk();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->choice(), CDlgDataColourAdd::OpenAndAdd);
    QCoreApplication::processEvents();
    QVERIFY(!unexpected.wasAnswered());
}

void TestDlgDataColourAdd::cancelRejects()
{
    m_table.setUntitled(true);
    m_dialog = makeDialog();
    QTest::keyClicks(m_dialog->nameEdit(), QStringLiteral("Lime"));
    QTest::mouseClick(m_dialog->cancelButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->name(), QString());
}

void TestDlgDataColourAdd::helpButtonAsksForTheAddColourPage()
{
    m_dialog = makeDialog();
    QSignalSpy help(m_dialog.get(), &CDlgDataColourAdd::displayHelpSignal);
    QTest::mouseClick(m_dialog->helpButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("data.html#dataAddColour"));
    QVERIFY(m_dialog->isVisible());
}

void TestDlgDataColourAdd::helpKeyAsksForTheAddColourPage()
{
    m_dialog = makeDialog();
    m_dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    QSignalSpy help(m_dialog.get(), &CDlgDataColourAdd::displayHelpSignal);
    const QKeySequence key(QKeySequence::HelpContents);
    QVERIFY(!key.isEmpty());
    QTest::keySequence(m_dialog->nameEdit(), key);
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("data.html#dataAddColour"));
}

QTEST_MAIN(TestDlgDataColourAdd)
#include "tst_dlgdatacolouradd.moc"
