#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "colour/matchscore.h"
#include "library/dlgedittable.h"
#include "library/libcolourtabledlg.h"
#include "library/libcolourtabletabgeneral.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"

#include "support/samplefixture.h"
#include "support/fixturefile.h"
#include "support/imagewriter.h"
#include "support/modalsequence.h"
#include "support/storedsettings.h"
#include "support/guitestfixture.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

#include <functional>
#include <memory>

using namespace SampleFixture;
using Step = ModalSequence::Step;

// A library table made from start to finish as a user does it: pick a
// colour, match it, make a new table, store the sample in it, write a note
// for it, and match again against it.
class TestLibraryEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void sampleStoredInANewTableMatchesItselfFirst();

private:
    static QImage twoOrangesImage();
    static QString cellText(QTableWidget *table, int row, int column);
    void maintain(CMainWindow &window, const std::function<void(CLibColourTableDlg *)> &inside);
    void addSample(CMainWindow &window, const QPoint &point, const QString &name);

    GuiTestFixture *m_home = nullptr;
};

void TestLibraryEndToEnd::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(m_home->isValid());
}

void TestLibraryEndToEnd::cleanupTestCase()
{
    delete m_home;
}

// Left half orange, right half a slightly different orange.
QImage TestLibraryEndToEnd::twoOrangesImage()
{
    QImage image(40, 20, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, x < 20 ? qRgb(255, 128, 0) : qRgb(250, 120, 10));
    return image;
}

QString TestLibraryEndToEnd::cellText(QTableWidget *table, int row, int column)
{
    QWidget *cell = table->cellWidget(row, column);
    if (auto *label = qobject_cast<QLabel *>(cell))
        return label->text();
    const QList<QLabel *> labels = cell ? cell->findChildren<QLabel *>() : QList<QLabel *>();
    return labels.isEmpty() ? QString() : labels.first()->text();
}

void TestLibraryEndToEnd::maintain(CMainWindow &window,
                                   const std::function<void(CLibColourTableDlg *)> &inside)
{
    bool seen = false;
    ModalAnswerer answer(QStringLiteral("Close"), [&seen, &inside](QWidget *dialog) {
        if (auto *maintenance = qobject_cast<CLibColourTableDlg *>(dialog)) {
            seen = true;
            inside(maintenance);
        }
    });
    window.samplingPage()->commandButton(CmdMaintainLibrary)->click();
    QVERIFY(answer.wasAnswered());
    QVERIFY(seen);
}

void TestLibraryEndToEnd::addSample(CMainWindow &window, const QPoint &point, const QString &name)
{
    CColourImageWindow *page = window.samplingPage();
    leftClick(page->imageWidget(), point);
    QVERIFY(page->commandButton(CmdAddToLibrary)->isEnabled());
    ModalAnswerer answer(QStringLiteral("OK"), DialogActions::typeText(name));
    page->commandButton(CmdAddToLibrary)->click();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Table Add Colour"));
}

void TestLibraryEndToEnd::sampleStoredInANewTableMatchesItselfFirst()
{
    const QString library = m_home->home() + QStringLiteral("/Library");
    QVERIFY(FixtureFile::write(library + QStringLiteral("/Base.clrtable"),
                               "1.0, 0.0, 0.0, Red\n0.0, 0.0, 1.0, Blue\n"));
    StoredSettings::setValue(QStringLiteral("ColourLibrary/directory"), library);
    StoredSettings::setValue(QStringLiteral("Sample/created"), true);
    const QString imagePath = m_home->home() + QStringLiteral("/oranges.png");
    auto window = openImageWindow(twoOrangesImage(), imagePath);
    QVERIFY(window);
    window->settings()->rgbDifference = false; // show the difference as Delta E
    CColourImageWindow *page = window->samplingPage();

    // Pick and match against the table there is.
    leftClick(page->imageWidget(), QPoint(5, 5));
    page->commandButton(CmdMatchColour)->click();
    QCOMPARE(cellText(page->resultsTable(), 0, 1), QStringLiteral("Red"));

    // A new table, made in the maintenance dialog, is listed at once.
    maintain(*window, [](CLibColourTableDlg *dialog) {
        ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Oranges"))},
                               Step{"OK", {}}});
        QTest::mouseClick(dialog->generalTab()->button(CLibColourTableTabGeneral::New),
                          Qt::LeftButton);
        QCOMPARE(answers.text(1), QStringLiteral("Added new colour table:\"Oranges\"."));
    });
    QComboBox *tables = page->libraryCombo();
    QCOMPARE(tables->findText(QStringLiteral("Oranges")), 1);
    tables->setCurrentIndex(1);

    // Both oranges go into it, the picked one last.
    addSample(*window, QPoint(30, 5), QStringLiteral("Near orange"));
    addSample(*window, QPoint(5, 5), QStringLiteral("My orange"));
    const QString tablePath = library + QStringLiteral("/Oranges.clrtable");
    QCOMPARE(FixtureFile::read(tablePath), QByteArray("0.9804, 0.4706, 0.0392, Near orange\n"
                                                      "1.0000, 0.5020, 0.0000, My orange\n"));

    // Reopen the dialog and give the table a note.
    maintain(*window, [](CLibColourTableDlg *dialog) {
        QComboBox *combo = dialog->generalTab()->tableCombo();
        combo->setCurrentIndex(combo->findText(QStringLiteral("Oranges")));
        ModalAnswerer edit(QStringLiteral("OK"), [](QWidget *editDialog) {
            auto *editor = qobject_cast<CDlgEditTable *>(editDialog);
            if (editor)
                QTest::keyClicks(editor->noteEdit(), QStringLiteral("  My own oranges "));
        });
        QTest::mouseClick(dialog->generalTab()->button(CLibColourTableTabGeneral::Edit),
                          Qt::LeftButton);
        QCOMPARE(edit.dialogClass(), QStringLiteral("CDlgEditTable"));
    });
    QCOMPARE(FixtureFile::read(tablePath), QByteArray("#My own oranges\n\n"
                                                      "1.0000, 0.5020, 0.0000, My orange\n"
                                                      "0.9804, 0.4706, 0.0392, Near orange\n"));

    // The list was reloaded with the table still chosen; a fresh match puts
    // the stored sample first, no difference at all.
    QCOMPARE(tables->currentText(), QStringLiteral("Oranges"));
    page->commandButton(CmdMatchColour)->click();
    QTableWidget *results = page->resultsTable();
    QCOMPARE(results->rowCount(), 2);
    QCOMPARE(cellText(results, 0, 1), QStringLiteral("My orange"));
    QCOMPARE(cellText(results, 0, 2), matchText(0.0f, false));
    QCOMPARE(cellText(results, 1, 1), QStringLiteral("Near orange"));
    QVERIFY(cellText(results, 1, 2) != matchText(0.0f, false));
}

QTEST_MAIN(TestLibraryEndToEnd)
#include "tst_libraryendtoend.moc"
