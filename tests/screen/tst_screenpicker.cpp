#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"
#include "sample/libraryselector.h"
#include "sample/multipleselect.h"
#include "sample/picknotes.h"
#include "sample/spreadworker.h"
#include "screen/loupe.h"
#include "screen/memoryscreencapture.h"
#include "screen/screenoverlay.h"
#include "screen/screenpicker.h"
#include "tables/libcolourtable.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"
#include "support/samplefixture.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QScreen>
#include <QtTest>

#include <cmath>
#include <memory>

// "Pick from Screen" in the main window, on a desktop held in memory (as
// large as the offscreen screen, so capture pixels and overlay points are
// the same): the button, the windows hidden and back, and the sampling page
// after the pick, compared with what the page's own click or band at the
// same pixels gives.
class TestScreenPicker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void buttonComesAfterTheZoomButtonsAndMovesNoneOfThem();
    void shortcutIsFreeAndStartsThePick();
    void windowsAreHiddenWhileTheOverlayShows();
    void clickPicksAsThePageClickWould_data();
    void clickPicksAsThePageClickWould();
    void bandPicksAsThePageBandWould();
    void multipleSelectionGetsARowAndAMark();
    void loupeNamesFromThePagesLibraryTable();
    void escapeLeavesEverythingAsItWas();
    void laterPictureIsTitledAsBefore();
    void failedCaptureSaysWhyAndChangesNothing();

private:
    static QImage desktop();
    void startPick();
    CScreenPicker *picker() const;
    CColourImageWindow *page() const { return m_window->samplingPage(); }
    static bool same(const RgbColour &a, const RgbColour &b);

    GuiTestFixture m_fixture;
    std::unique_ptr<CMainWindow> m_window;
    CMemoryScreenCapture *m_capture = nullptr;
    QString m_file;
};

// The size of the screen the offscreen platform offers (800 x 600 with Qt 5,
// 800 x 800 with Qt 6), so that the overlay shows the capture one to one:
// (200, 40, 40) top left, (30, 144, 255) top right, black and white columns
// bottom left, (90, 200, 90) bottom right, split at x 400 and y 300.
QImage TestScreenPicker::desktop()
{
    const QSize size = QGuiApplication::primaryScreen()->geometry().size();
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            QRgb c;
            if (y < 300)
                c = x < 400 ? qRgb(200, 40, 40) : qRgb(30, 144, 255);
            else if (x < 400)
                c = x % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
            else
                c = qRgb(90, 200, 90);
            image.setPixel(x, y, c);
        }
    }
    return image;
}

void TestScreenPicker::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestScreenPicker::init()
{
    m_fixture.reset();
    m_file = m_fixture.filePath(QStringLiteral("opened.png"));
    m_window = SampleFixture::openImageWindow(ImageWriter::gradient(60, 40), m_file);
    QVERIFY(m_window);
    // Wide enough that the page's own clicks below land on the picture
    // beside the sampling panel at its full width.
    m_window->resize(1600, 900);
    auto capture = std::make_unique<CMemoryScreenCapture>(desktop());
    m_capture = capture.get();
    QVERIFY(picker());
    picker()->setCapture(std::move(capture));
    picker()->setSettleDelay(0);
}

void TestScreenPicker::cleanup()
{
    m_window.reset();
}

CScreenPicker *TestScreenPicker::picker() const
{
    return m_window->findChild<CScreenPicker *>();
}

bool TestScreenPicker::same(const RgbColour &a, const RgbColour &b)
{
    return std::abs(a.red - b.red) < 1e-9 && std::abs(a.green - b.green) < 1e-9
           && std::abs(a.blue - b.blue) < 1e-9;
}

void TestScreenPicker::startPick()
{
    picker()->action()->trigger();
    QTRY_VERIFY(picker()->overlay() != nullptr);
    QVERIFY(QTest::qWaitForWindowExposed(picker()->overlay()));
}

void TestScreenPicker::buttonComesAfterTheZoomButtonsAndMovesNoneOfThem()
{
    QToolBar *bar = m_window->mainToolBar();
    QAction *ours = picker()->action();
    const QList<QAction *> actions = bar->actions();
    QCOMPARE(actions.indexOf(ours), actions.indexOf(m_window->commandAction(CmdZoomIn)) + 1);
    QCOMPARE(ours->text(), QStringLiteral("Pick from Screen"));
    QCOMPARE(ours->data().toInt(), int(CmdPickFromScreen));
    QVERIFY(!ours->icon().isNull());
    auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(ours));
    QVERIFY(button && button->isVisible());

    // Every other button stands where it stands without ours.
    QVector<QRect> with;
    for (QAction *action : actions) {
        if (action != ours)
            with.append(bar->widgetForAction(action) ? bar->widgetForAction(action)->geometry()
                                                     : QRect());
    }
    bar->removeAction(ours);
    QApplication::processEvents();
    QVector<QRect> without;
    for (QAction *action : bar->actions())
        without.append(bar->widgetForAction(action) ? bar->widgetForAction(action)->geometry()
                                                    : QRect());
    QCOMPARE(with.size(), without.size());
    for (int i = 0; i < with.size(); ++i) {
        if (!qobject_cast<QToolButton *>(bar->widgetForAction(bar->actions().at(i))))
            continue;
        QCOMPARE(with.at(i), without.at(i));
    }
}

void TestScreenPicker::shortcutIsFreeAndStartsThePick()
{
    const QKeySequence key = picker()->action()->shortcut();
    QCOMPARE(key, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
    for (QAction *action : m_window->findChildren<QAction *>()) {
        if (action != picker()->action())
            QVERIFY2(action->shortcut() != key, qPrintable(action->text()));
    }
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QWidget *focus = QApplication::focusWidget() ? QApplication::focusWidget() : m_window.get();
    QTest::keyClick(focus, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(picker()->overlay() != nullptr);
    QCOMPARE(m_capture->starts(), 1);
    QTest::keyClick(picker()->overlay(), Qt::Key_Escape);
}

void TestScreenPicker::windowsAreHiddenWhileTheOverlayShows()
{
    startPick();
    QVERIFY(!m_window->isVisible());
    CScreenOverlay *overlay = picker()->overlay();
    QVERIFY(overlay->isVisible());
    QCOMPARE(overlay->size(), desktop().size());
    QVERIFY(overlay->windowFlags() & Qt::WindowStaysOnTopHint);
    QVERIFY(overlay->windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(overlay->capture(), desktop());
    QTest::keyClick(overlay, Qt::Key_Escape);
    QTRY_VERIFY(m_window->isVisible());
    QTRY_VERIFY(picker()->overlay() == nullptr);
}

void TestScreenPicker::clickPicksAsThePageClickWould_data()
{
    QTest::addColumn<int>("sizeIndex");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("mixed");
    QTest::newRow("1x1 red") << 0 << QPoint(100, 100) << false;
    QTest::newRow("3x3 blue") << 1 << QPoint(500, 120) << false;
    QTest::newRow("9x9 on the border") << 4 << QPoint(398, 150) << true;
    QTest::newRow("5x5 columns") << 2 << QPoint(50, 350) << true;
}

void TestScreenPicker::clickPicksAsThePageClickWould()
{
    QFETCH(int, sizeIndex);
    QFETCH(QPoint, point);
    QFETCH(bool, mixed);
    page()->pickSizeCombo()->setCurrentIndex(sizeIndex);
    const QStringList recent = m_window->settings()->recentFiles;
    QSignalSpy taken(picker(), &CScreenPicker::pictureTaken);

    startPick();
    QCOMPARE(picker()->overlay()->loupe()->pickSize(), page()->imageWidget()->pickSize());
    SampleFixture::leftClick(picker()->overlay(), point);
    QCOMPARE(taken.count(), 1);
    QTRY_VERIFY(m_window->isVisible());

    QCOMPARE(m_window->tabWidget()->currentWidget(), page());
    QCOMPARE(page()->title(), QStringLiteral("Screen capture - "));
    QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("Screen capture - ")));
    QVERIFY(page()->isPastedImage());
    QCOMPARE(page()->view()->sourceImage(), desktop());
    QCOMPARE(m_window->settings()->recentFiles, recent);
    QVERIFY(page()->isSamplePresent());
    // The note follows once the pick's spread is measured.
    QVERIFY(page()->spreadWorker()->waitForIdle(60000));
    QTRY_COMPARE(!page()->pickNotes()->mixedLabel()->isHidden(), mixed);
    const RgbColour fromScreen = page()->sample();
    if (sizeIndex == 0)
        QVERIFY(same(fromScreen, RgbColour{200 / 255.0, 40 / 255.0, 40 / 255.0}));
    if (sizeIndex == 1)
        QVERIFY(same(fromScreen, RgbColour{30 / 255.0, 144 / 255.0, 1.0}));

    // The page's own click on the same pixel reads the same.
    page()->setSample(RgbColour(), true);
    SampleFixture::leftClick(page()->imageWidget(), point);
    QVERIFY(page()->isSamplePresent());
    QVERIFY(same(page()->sample(), fromScreen));
}

void TestScreenPicker::bandPicksAsThePageBandWould()
{
    startPick();
    SampleFixture::drag(picker()->overlay(), QPoint(420, 140), QPoint(380, 100));
    QTRY_VERIFY(m_window->isVisible());
    QVERIFY(page()->isSamplePresent());
    QTRY_VERIFY(!page()->pickNotes()->mixedLabel()->isHidden());
    const RgbColour fromScreen = page()->sample();

    page()->processCommand(CmdPickRubberBand);
    page()->setSample(RgbColour(), true);
    SampleFixture::drag(page()->imageWidget(), QPoint(420, 140), QPoint(380, 100));
    QVERIFY(page()->isSamplePresent());
    QVERIFY(same(page()->sample(), fromScreen));
    QCOMPARE(page()->pickMode(), int(CmdPickRubberBand));
}

void TestScreenPicker::multipleSelectionGetsARowAndAMark()
{
    page()->processCommand(CmdSelectMultiple);
    QCOMPARE(page()->selectionMode(), int(CmdSelectMultiple));
    page()->pickSizeCombo()->setCurrentIndex(1);
    startPick();
    SampleFixture::leftClick(picker()->overlay(), QPoint(600, 400));
    QTRY_VERIFY(m_window->isVisible());
    QCOMPARE(page()->selectionMode(), int(CmdSelectMultiple));
    QCOMPARE(page()->multipleCount(), 1);
    QVERIFY(page()->multipleRow(0)->inUse());
    QVERIFY(page()->multipleRow(0)->row()->isVisible());
    QCOMPARE(page()->multipleRow(0)->rect(), QRect(599, 399, 3, 3));
    const QVector<CImageWidget::SelectionMark> marks = page()->imageWidget()->selectionMarks();
    QCOMPARE(marks.size(), 1);
    QCOMPARE(marks.first().number, 1);
    QVERIFY(marks.first().outer.contains(QRect(599, 399, 3, 3)));
    QVERIFY(same(page()->sample(), RgbColour{90 / 255.0, 200 / 255.0, 90 / 255.0}));
}

void TestScreenPicker::loupeNamesFromThePagesLibraryTable()
{
    CLibColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Brick"), 200 / 255.0, 40 / 255.0,
                                                  40 / 255.0));
    table.add(
        std::make_unique<CColourTableEntry>(QStringLiteral("Sky"), 30 / 255.0, 144 / 255.0, 1.0));
    const QString dir = m_window->settings()->libraryDir;
    QVERIFY(QDir().mkpath(dir));
    QVERIFY(table.write(QDir(dir).filePath(QStringLiteral("Pair.clrtable"))));
    page()->librarySelector()->fillLibraryCombo();
    const int index = page()->libraryCombo()->findText(QStringLiteral("Pair"));
    QVERIFY(index >= 0);
    page()->libraryCombo()->setCurrentIndex(index);

    startPick();
    CScreenOverlay *overlay = picker()->overlay();
    SampleFixture::moveTo(overlay, QPoint(120, 50));
    QCOMPARE(overlay->loupe()->hexText(), QStringLiteral("#c82828"));
    QCOMPARE(overlay->loupe()->nearestName(), QStringLiteral("Brick"));
    SampleFixture::moveTo(overlay, QPoint(700, 50));
    QCOMPARE(overlay->loupe()->hexText(), QStringLiteral("#1e90ff"));
    QCOMPARE(overlay->loupe()->nearestName(), QStringLiteral("Sky"));
    QVERIFY(overlay->loupe()->nameText().contains(QStringLiteral("Visually identical")));
    QTest::keyClick(overlay, Qt::Key_Escape);
}

void TestScreenPicker::escapeLeavesEverythingAsItWas()
{
    SampleFixture::leftClick(page()->imageWidget(), QPoint(10, 10));
    QVERIFY(page()->isSamplePresent());
    const RgbColour before = page()->sample();
    const QString title = m_window->windowTitle();
    const QImage image = page()->view()->sourceImage();
    const QStringList recent = m_window->settings()->recentFiles;
    QSignalSpy taken(picker(), &CScreenPicker::pictureTaken);
    QSignalSpy ended(picker(), &CScreenPicker::finishedWithoutPick);

    startPick();
    SampleFixture::moveTo(picker()->overlay(), QPoint(500, 500));
    QTest::keyClick(picker()->overlay(), Qt::Key_Escape);
    QTRY_VERIFY(m_window->isVisible());
    QCOMPARE(ended.count(), 1);
    QCOMPARE(taken.count(), 0);
    QVERIFY(!picker()->isActive());
    QCOMPARE(m_window->windowTitle(), title);
    QCOMPARE(page()->imagePath(), m_file);
    QCOMPARE(page()->view()->sourceImage(), image);
    QVERIFY(same(page()->sample(), before));
    QCOMPARE(m_window->settings()->recentFiles, recent);
}

void TestScreenPicker::laterPictureIsTitledAsBefore()
{
    startPick();
    SampleFixture::leftClick(picker()->overlay(), QPoint(10, 10));
    QTRY_COMPARE(page()->title(), QStringLiteral("Screen capture - "));
    page()->showPastedImage(ImageWriter::gradient(5, 5));
    QCOMPARE(page()->title(), QStringLiteral("Pasted image - "));
    page()->showScreenCapture(ImageWriter::gradient(5, 5));
    QCOMPARE(page()->title(), QStringLiteral("Screen capture - "));
    page()->showImage(m_file, ImageWriter::gradient(5, 5));
    QVERIFY(page()->title().startsWith(QStringLiteral("opened.png - ")));
}

void TestScreenPicker::failedCaptureSaysWhyAndChangesNothing()
{
    const QString title = m_window->windowTitle();
    const QImage image = page()->view()->sourceImage();
    m_capture->setFailure(QStringLiteral("the test refused."));
    ModalAnswerer answer(QStringLiteral("OK"));
    picker()->action()->trigger();
    QTRY_VERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Pick from Screen"));
    QCOMPARE(answer.text(), QStringLiteral("The screen could not be captured: the test refused.\n"
                                           "Nothing has been changed."));
    QVERIFY(m_window->isVisible());
    QVERIFY(picker()->overlay() == nullptr);
    QVERIFY(!picker()->isActive());
    QCOMPARE(m_window->windowTitle(), title);
    QCOMPARE(page()->view()->sourceImage(), image);
    QVERIFY(!page()->isSamplePresent());
}

QTEST_MAIN(TestScreenPicker)
#include "tst_screenpicker.moc"
