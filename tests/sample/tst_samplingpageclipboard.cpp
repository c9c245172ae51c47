#include "app/appsettings.h"
#include "sample/colourcontextmenu.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/colourtexts.h"
#include "sample/libraryselector.h"
#include "sample/matchresultsview.h"
#include "sample/samplepanel.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/popupmenuchooser.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMimeData>
#include <QTableWidget>
#include <QtTest>

#include <memory>

// The sampling page's copy and paste: Ctrl+C and Ctrl+V, the sample
// swatch's menu and the menu of each match result row, driven with keys
// and right clicks, with the clipboard read back.
class TestSamplingPageClipboard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void ctrlCCopiesTheSampleAsHex();
    void ctrlCWithoutASampleLeavesTheClipboardAlone();
    void ctrlVWithAPictureSignalsThatPicture();
    void ctrlVWithoutAPictureSaysSoInTheStatusBar();
    void pastedPictureIsTitledPastedImageUntilAFileOpens();
    void swatchMenuOffersHexRgbDisplayTextAndLab();
    void swatchMenuFollowsTheConfiguredDisplayFormat();
    void emptySwatchShowsNoMenu();
    void matchRowMenuCopiesNameHexAndLab();
    void matchRowMenuTakesEntriesOthersAdd();
    void rightClickBelowTheRowsShowsNoMenu();

private:
    void activate();
    void matchAgainstTrio(const RgbColour &sample);
    QPoint rowCentre(int row) const;
    QString rowName(int row) const;
    RgbColour entryColour(const QString &name) const;

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<CColourImageWindow> m_page;
    const RgbColour m_blue{30 / 255.0, 144 / 255.0, 1.0};
};

void TestSamplingPageClipboard::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestSamplingPageClipboard::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_page = std::make_unique<CColourImageWindow>(m_settings.get());
    m_page->resize(900, 1100);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_page->showImage(m_fixture.filePath("picture.png"), ImageWriter::gradient(20, 20));
    QApplication::clipboard()->setText(QStringLiteral("untouched"));
}

void TestSamplingPageClipboard::cleanup()
{
    m_page.reset();
    m_settings.reset();
}

void TestSamplingPageClipboard::activate()
{
    QApplication::setActiveWindow(m_page.get());
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_page->view()->setFocus();
}

void TestSamplingPageClipboard::matchAgainstTrio(const RgbColour &sample)
{
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Dodger & blue"), m_blue.red,
                                                  m_blue.green, m_blue.blue));
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Black"), 0, 0, 0));
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("White"), 1, 1, 1));
    QVERIFY(table.write(QDir(m_settings->libraryDir).filePath(QStringLiteral("Trio.clrtable"))));
    m_page->librarySelector()->fillLibraryCombo();
    const int index = m_page->libraryCombo()->findText(QStringLiteral("Trio"));
    QVERIFY(index >= 0);
    m_page->libraryCombo()->setCurrentIndex(index);
    m_page->setSample(sample, false);
    m_page->runMatch(false);
    QCOMPARE(m_page->resultsTable()->rowCount(), 3);
}

QPoint TestSamplingPageClipboard::rowCentre(int row) const
{
    QTableWidget *table = m_page->resultsTable();
    return QPoint(table->columnViewportPosition(1) + 5,
                  table->rowViewportPosition(row) + table->rowHeight(row) / 2);
}

// The name the row shows: the first label of its name cell.
QString TestSamplingPageClipboard::rowName(int row) const
{
    QWidget *cell = m_page->resultsTable()->cellWidget(row, 1);
    const QList<QLabel *> labels = cell ? cell->findChildren<QLabel *>() : QList<QLabel *>();
    return labels.isEmpty() ? QString() : labels.first()->text();
}

// The colour as the table file holds it (four decimals).
RgbColour TestSamplingPageClipboard::entryColour(const QString &name) const
{
    for (const CColourTableEntry *e : m_page->libraryTable().entries()) {
        if (e->name == name)
            return {e->red, e->green, e->blue};
    }
    return {-1, -1, -1};
}

void TestSamplingPageClipboard::ctrlCCopiesTheSampleAsHex()
{
    m_page->setSample(m_blue, false);
    activate();
    QTest::keyClick(m_page->view(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("#1e90ff"));
}

void TestSamplingPageClipboard::ctrlCWithoutASampleLeavesTheClipboardAlone()
{
    QVERIFY(!m_page->isSamplePresent());
    activate();
    QTest::keyClick(m_page->view(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("untouched"));
}

void TestSamplingPageClipboard::ctrlVWithAPictureSignalsThatPicture()
{
    const QImage picture = ImageWriter::gradient(7, 5);
    QApplication::clipboard()->setImage(picture);
    QSignalSpy pasted(m_page.get(), &CColourImageWindow::imagePasted);
    activate();
    QTest::keyClick(m_page->view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(pasted.count(), 1);
    const QImage got = pasted.at(0).at(0).value<QImage>();
    QCOMPARE(got.size(), QSize(7, 5));
    QCOMPARE(got.pixel(6, 4), picture.pixel(6, 4));
}

void TestSamplingPageClipboard::ctrlVWithoutAPictureSaysSoInTheStatusBar()
{
    QSignalSpy pasted(m_page.get(), &CColourImageWindow::imagePasted);
    QSignalSpy status(m_page.get(), &CColourImageWindow::statusMessage);
    activate();
    QTest::keyClick(m_page->view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(pasted.count(), 0);
    QCOMPARE(status.count(), 1);
    QCOMPARE(status.at(0).at(0).toString(), QStringLiteral("The clipboard holds no picture."));
}

void TestSamplingPageClipboard::pastedPictureIsTitledPastedImageUntilAFileOpens()
{
    m_page->showPastedImage(ImageWriter::gradient(4, 4));
    QVERIFY(m_page->isPastedImage());
    QCOMPARE(m_page->title(), QStringLiteral("Pasted image - "));
    QVERIFY(m_page->imagePath().isEmpty());
    QCOMPARE(m_page->view()->sourceImage().size(), QSize(4, 4));
    const QString file = m_fixture.filePath("leaf.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(3, 3), file));
    m_page->showImage(file, ImageWriter::gradient(3, 3));
    QVERIFY(!m_page->isPastedImage());
    QVERIFY(m_page->title().startsWith(QStringLiteral("leaf.png - ")));
}

void TestSamplingPageClipboard::swatchMenuOffersHexRgbDisplayTextAndLab()
{
    m_settings->rgbFormat = 0;
    m_page->setSample(m_blue, false);
    PopupMenuChooser chooser(QStringLiteral("Copy rgb(30, 144, 255)"));
    PopupMenuChooser::rightClick(m_page->swatch());
    QVERIFY(chooser.wasChosen());
    QCOMPARE(chooser.entries(),
             QStringList({"Copy #1e90ff", "Copy rgb(30, 144, 255)", "Copy R:30, G:144, B:255",
                          "Copy " + CColourTexts::labLine(m_blue)}));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("rgb(30, 144, 255)"));

    PopupMenuChooser lab("Copy " + CColourTexts::labLine(m_blue));
    PopupMenuChooser::rightClick(m_page->swatch());
    QVERIFY(lab.wasChosen());
    QCOMPARE(QApplication::clipboard()->text(), CColourTexts::labLine(m_blue));
}

void TestSamplingPageClipboard::swatchMenuFollowsTheConfiguredDisplayFormat()
{
    m_settings->rgbFormat = 2;
    m_page->setSample(m_blue, false);
    PopupMenuChooser chooser(QStringLiteral("Copy R:0x1e, G:0x90, B:0xff"));
    PopupMenuChooser::rightClick(m_page->swatch());
    QVERIFY(chooser.wasChosen());
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("R:0x1e, G:0x90, B:0xff"));
}

void TestSamplingPageClipboard::emptySwatchShowsNoMenu()
{
    QVERIFY(!m_page->isSamplePresent());
    QVERIFY(!m_page->samplePanel()->buildSwatchMenu());
    PopupMenuChooser chooser(QString(), 300);
    PopupMenuChooser::rightClick(m_page->swatch());
    // A menu would have been shown inside the click itself.
    QCoreApplication::processEvents();
    QVERIFY(!chooser.wasShown());
}

void TestSamplingPageClipboard::matchRowMenuCopiesNameHexAndLab()
{
    matchAgainstTrio(m_blue);
    QWidget *viewport = m_page->resultsTable()->viewport();
    PopupMenuChooser name(QStringLiteral("Copy Name \"Dodger & blue\""));
    PopupMenuChooser::rightClick(viewport, rowCentre(0));
    QVERIFY(name.wasChosen());
    QCOMPARE(rowName(0), QStringLiteral("Dodger & blue"));
    const RgbColour stored = entryColour(QStringLiteral("Dodger & blue"));
    // The copy entries come first; what the page adds (Explain) follows them.
    QCOMPARE(name.entries().mid(0, 3),
             QStringList({"Copy Name \"Dodger & blue\"", "Copy #1e90ff",
                          "Copy " + CColourTexts::labLine(stored)}));
    QCOMPARE(name.entries().value(3), QStringLiteral("Explain this match\u2026"));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Dodger & blue"));

    PopupMenuChooser lab("Copy " + CColourTexts::labLine(stored));
    PopupMenuChooser::rightClick(viewport, rowCentre(0));
    QVERIFY(lab.wasChosen());
    QCOMPARE(QApplication::clipboard()->text(), CColourTexts::labLine(stored));

    // Each row copies its own entry.
    const QString second = rowName(1);
    const QString secondHex = second == QLatin1String("Black") ? "#000000" : "#ffffff";
    PopupMenuChooser hex("Copy " + secondHex);
    PopupMenuChooser::rightClick(viewport, rowCentre(1));
    QVERIFY(hex.wasChosen());
    QCOMPARE(hex.entries().first(), "Copy Name \"" + second + "\"");
    QCOMPARE(QApplication::clipboard()->text(), secondHex);
}

void TestSamplingPageClipboard::matchRowMenuTakesEntriesOthersAdd()
{
    matchAgainstTrio(m_blue);
    auto *results = qobject_cast<CMatchResultsView *>(m_page->resultsTable());
    QVERIFY(results);
    int menuRow = -1;
    connect(results, &CMatchResultsView::rowMenuAboutToShow, this,
            [&menuRow](CColourContextMenu *menu, int row) {
                menuRow = row;
                menu->addAction(QStringLiteral("Another entry"));
            });
    PopupMenuChooser chooser(QStringLiteral("Another entry"));
    PopupMenuChooser::rightClick(results->viewport(), rowCentre(2));
    QVERIFY(chooser.wasChosen());
    QCOMPARE(menuRow, 2);
    QCOMPARE(chooser.entries().first(), "Copy Name \"" + rowName(2) + "\"");
    QCOMPARE(chooser.entries().last(), QStringLiteral("Another entry"));
}

void TestSamplingPageClipboard::rightClickBelowTheRowsShowsNoMenu()
{
    matchAgainstTrio(m_blue);
    QTableWidget *table = m_page->resultsTable();
    const int below = table->rowViewportPosition(2) + table->rowHeight(2) + 2;
    QVERIFY(below < table->viewport()->height());
    PopupMenuChooser chooser(QString(), 300);
    PopupMenuChooser::rightClick(table->viewport(), QPoint(10, below));
    // A menu would have been shown inside the click itself.
    QCoreApplication::processEvents();
    QVERIFY(!chooser.wasShown());
}

QTEST_MAIN(TestSamplingPageClipboard)
#include "tst_samplingpageclipboard.moc"
