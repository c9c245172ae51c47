#include "common/appcontext.h"
#include "app/appsettings.h"
#include "library/dlglibcolourtableadd.h"
#include "tables/libcolourtable.h"

#include "support/modalanswerer.h"
#include "support/guitestfixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The name prompt of "Add Colour to Colour Library": what it shows and the
// two checks on the name.
class TestDlgLibColourTableAdd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void titleTableNameAndButtons();
    void swatchShowsTheColourInABlackFrame();
    void colourTextsHaveTwoDecimals();
    void nameOfOnlyBlanksIsRefusedAsEmpty();
    void commaInNameBecomesSemicolon();
    void duplicateMessageNamesTheCleanedName();
    void duplicateTestIsCaseSensitive();
    void refusedNameKeepsTheFieldAsTyped();
    void cancelRejects();
    void helpAsksForTheAddColourPage();

private:
    std::unique_ptr<CDlgLibColourTableAdd> makeDialog(const RgbColour &colour = {1.0, 0.5, 0.0});
    QStringList labelTexts() const;
    void typeName(const QString &name);
    // Presses OK expecting a refusal; returns the message box's text.
    QString okRefusedWith();

    GuiTestFixture *m_home = nullptr;
    CAppSettings *m_settings = nullptr;
    CLibColourTable m_table;
    std::unique_ptr<CDlgLibColourTableAdd> m_dialog;
};

void TestDlgLibColourTableAdd::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(m_home->isValid());
    m_settings = new CAppSettings;
}

void TestDlgLibColourTableAdd::cleanupTestCase()
{
    m_dialog.reset();
    delete m_settings;
    delete m_home;
}

void TestDlgLibColourTableAdd::init()
{
    m_dialog.reset();
    m_table.clear();
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Red"), 1.0, 0.0, 0.0));
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Red; dark"), 0.5, 0.0, 0.0));
    m_settings->rgbFormat = 0;
}

std::unique_ptr<CDlgLibColourTableAdd> TestDlgLibColourTableAdd::makeDialog(const RgbColour &colour)
{
    auto dialog = std::make_unique<CDlgLibColourTableAdd>(
        nullptr, QStringLiteral("/lib/Summer.2020.clrtable"), &m_table, colour, m_settings);
    // Shown without modality so that only the boxes it opens are modal.
    dialog->setWindowModality(Qt::NonModal);
    dialog->show();
    if (!QTest::qWaitForWindowExposed(dialog.get()))
        return nullptr;
    return dialog;
}

QStringList TestDlgLibColourTableAdd::labelTexts() const
{
    QStringList texts;
    for (QLabel *label : m_dialog->findChildren<QLabel *>())
        texts << label->text();
    return texts;
}

void TestDlgLibColourTableAdd::typeName(const QString &name)
{
    m_dialog->nameEdit()->clear();
    QTest::keyClicks(m_dialog->nameEdit(), name);
}

QString TestDlgLibColourTableAdd::okRefusedWith()
{
    ModalAnswerer answer(QStringLiteral("OK"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    if (!answer.wasAnswered() || answer.title() != QLatin1String("Vellora"))
        return QStringLiteral("<no box titled Vellora: %1>").arg(answer.title());
    return answer.text();
}

void TestDlgLibColourTableAdd::titleTableNameAndButtons()
{
    m_dialog = makeDialog();
    QVERIFY(m_dialog);
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Vellora - Table Add Colour"));
    QVERIFY(labelTexts().contains(QStringLiteral("Table: Summer.2020")));
    QVERIFY(labelTexts().contains(QStringLiteral("Name:")));
    QCOMPARE(m_dialog->helpButton()->text(), QStringLiteral("&Help"));
    QCOMPARE(m_dialog->okButton()->text(), QStringLiteral("&OK"));
    QVERIFY(m_dialog->okButton()->isDefault());
    QCOMPARE(m_dialog->cancelButton()->text(), QStringLiteral("&Cancel"));
}

void TestDlgLibColourTableAdd::swatchShowsTheColourInABlackFrame()
{
    m_dialog = makeDialog({1.0, 0.5, 0.0});
    QLabel *swatch = m_dialog->swatchLabel();
    QCOMPARE(swatch->size(), QSize(34, 51));
    QCOMPARE(swatch->styleSheet(), QStringLiteral("background-color:#ff8000;"));
    QCOMPARE(swatch->parentWidget()->styleSheet(), QStringLiteral("border:1px solid black"));
    const QImage shown = swatch->grab().toImage();
    QCOMPARE(QColor(shown.pixel(shown.rect().center())).name(), QStringLiteral("#ff8000"));
}

void TestDlgLibColourTableAdd::colourTextsHaveTwoDecimals()
{
    m_settings->rgbFormat = 1;
    m_dialog = makeDialog({1.0, 0.0, 0.0});
    QCOMPARE(m_dialog->rgbLabel()->text(), QStringLiteral("R:1.00, G:0.00, B:0.00"));
    QCOMPARE(m_dialog->labLabel()->text(), QStringLiteral("L:53.23, a:80.11, b:67.22"));
}

void TestDlgLibColourTableAdd::nameOfOnlyBlanksIsRefusedAsEmpty()
{
    m_dialog = makeDialog();
    typeName(QStringLiteral("    "));
    QCOMPARE(okRefusedWith(),
             QStringLiteral("Please enter a colour name to use for this library entry."));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), 0);
}

void TestDlgLibColourTableAdd::commaInNameBecomesSemicolon()
{
    m_table.clear();
    m_dialog = makeDialog();
    typeName(QStringLiteral("  Red, dark "));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->name(), QStringLiteral("Red; dark"));
}

void TestDlgLibColourTableAdd::duplicateMessageNamesTheCleanedName()
{
    m_dialog = makeDialog();
    typeName(QStringLiteral("Red, dark"));
    QCOMPARE(okRefusedWith(),
             QStringLiteral("The library already contains a colour called:<br />\"Red; "
                            "dark\"<br />Please enter a unique name for this entry."));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->name(), QStringLiteral("Red; dark"));
}

void TestDlgLibColourTableAdd::duplicateTestIsCaseSensitive()
{
    m_dialog = makeDialog();
    typeName(QStringLiteral("red"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->name(), QStringLiteral("red"));
}

void TestDlgLibColourTableAdd::refusedNameKeepsTheFieldAsTyped()
{
    m_dialog = makeDialog();
    typeName(QStringLiteral(" Red "));
    okRefusedWith();
    QCOMPARE(m_dialog->nameEdit()->text(), QStringLiteral(" Red "));
    typeName(QStringLiteral("Scarlet"));
    QTest::mouseClick(m_dialog->okButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->name(), QStringLiteral("Scarlet"));
}

void TestDlgLibColourTableAdd::cancelRejects()
{
    m_dialog = makeDialog();
    typeName(QStringLiteral("Scarlet"));
    QTest::mouseClick(m_dialog->cancelButton(), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_table.count(), 2);
}

void TestDlgLibColourTableAdd::helpAsksForTheAddColourPage()
{
    m_dialog = makeDialog();
    QSignalSpy help(m_dialog.get(), &CDlgLibColourTableAdd::displayHelpSignal);
    QTest::mouseClick(m_dialog->helpButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("library.html#libAddColour"));
    QVERIFY(m_dialog->isVisible());
}

QTEST_MAIN(TestDlgLibColourTableAdd)
#include "tst_dlglibcolourtableadd.moc"
