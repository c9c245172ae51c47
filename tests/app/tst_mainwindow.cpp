#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "help/spacerwidget.h"
#include "sample/colourimagewindow.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"
#include "support/storedsettings.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QShortcut>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

namespace {

QStringList storedRecentFiles()
{
    return StoredSettings::value(QStringLiteral("Directory/recentFilesList")).toStringList();
}

QImage iconImage(const QIcon &icon)
{
    return icon.pixmap(QSize(56, 42)).toImage().convertToFormat(QImage::Format_ARGB32);
}

// What one toolbar item is, in words, so a layout reads as a list.
QString describe(QToolBar *toolBar, QAction *action, CMainWindow &window)
{
    if (action->isSeparator())
        return QStringLiteral("separator");
    for (int id = 0; id < 9; ++id) {
        if (window.commandAction(id) == action)
            return QString::number(id);
    }
    // "Pick from Screen" is not one of the window's own commands.
    if (action->data() == QVariant(int(CmdPickFromScreen)))
        return QString::number(CmdPickFromScreen);
    QWidget *widget = toolBar->widgetForAction(action);
    if (auto *spacer = qobject_cast<CSpacerWidget *>(widget)) {
        const QSize hint = spacer->sizeHint();
        return hint.width() == 4 * hint.height() && hint.height() > 0 ? QStringLiteral("gap")
                                                                      : QStringLiteral("odd gap");
    }
    if (widget && widget->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding
        && widget->sizePolicy().verticalPolicy() == QSizePolicy::Expanding)
        return QStringLiteral("stretch");
    return QStringLiteral("unknown");
}

QList<QAction *> visibleRecentEntries(QMenu *menu)
{
    QList<QAction *> entries;
    for (QAction *action : menu->actions()) {
        if (action->isVisible() && !action->isSeparator() && !action->data().toString().isEmpty())
            entries.append(action);
    }
    return entries;
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void windowTitleIsTheVersionTitle();
    void statusBarSaysReady();
    void eachWindowOwnsItsSettings();
    void tabsAreSampleAndMatchThenData();
    void toolBarFollowsTheLayoutList();
    void toolBarIsFixedWithLargeIcons();
    void commandTextsTipsIconsAndShortcuts_data();
    void commandTextsTipsIconsAndShortcuts();
    void zoomStatusTipsShowNativeKeyNames_data();
    void zoomStatusTipsShowNativeKeyNames();
    void recentImagesButtonIsNarrow();
    void aboutIsNotOnTheToolBarAndDoesNothing();
    void unknownCommandsDoNothing();

    void recentImagesDisabledWithAnEmptyList();
    void recentImagesEnabledAfterTheFirstImageOpens();
    void recentMenuEndsWithClearList();
    void recentImagesCommandPopsUpTheMenuAtItsButton();
    void recentMenuShowsAtMostSixEntries();
    void choosingAnExistingRecentImageShowsTheSamplingPage();
    void deletedRecentImageDisappearsAndTheListIsSavedAtOnce();
    void deletingTheOnlyRecentImageDisablesRecentImages();
    void clearListEmptiesAndSavesTheList();

    void dataPageDisablesTheZoomCommands();
    void samplingPageEnablesZoomByItsLevel();
    void zoomCommandsFollowTheZoomLevel_data();
    void zoomCommandsFollowTheZoomLevel();
    void refusedColourKeepsTheCurrentPage();

    void exitClosesAndSavesTheSettings();
    void altHIsAWindowWideShortcut();

private:
    QString writeImage(const QString &name);

    GuiTestFixture m_fixture;
};

void TestMainWindow::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestMainWindow::init()
{
    m_fixture.reset();
}

QString TestMainWindow::writeImage(const QString &name)
{
    const QString path = m_fixture.filePath(name);
    if (!QFileInfo::exists(path) && !ImageWriter::write(ImageWriter::gradient(8, 6), path))
        return QString();
    return path;
}

void TestMainWindow::windowTitleIsTheVersionTitle()
{
    CMainWindow window(AppContext::versionTitle());
    QCOMPARE(AppContext::versionTitle(), QStringLiteral("Vellora v1.0.0"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Vellora v1.0.0"));
}

void TestMainWindow::statusBarSaysReady()
{
    CMainWindow window(AppContext::versionTitle());
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Ready"));
}

void TestMainWindow::eachWindowOwnsItsSettings()
{
    CMainWindow first(AppContext::versionTitle());
    CMainWindow second(AppContext::versionTitle());
    QVERIFY(first.settings());
    QVERIFY(second.settings());
    QVERIFY(first.settings() != second.settings());
}

void TestMainWindow::tabsAreSampleAndMatchThenData()
{
    CMainWindow window(AppContext::versionTitle());
    QTabWidget *tabs = window.tabWidget();
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Sample && Match"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Data"));
    QCOMPARE(tabs->widget(0), static_cast<QWidget *>(window.samplingPage()));
    QCOMPARE(tabs->widget(1), static_cast<QWidget *>(window.dataPage()));
    QCOMPARE(tabs->currentIndex(), 0);
    QCOMPARE(window.centralWidget(), static_cast<QWidget *>(tabs));
}

void TestMainWindow::toolBarFollowsTheLayoutList()
{
    CMainWindow window(AppContext::versionTitle());
    QToolBar *toolBar = window.mainToolBar();
    QStringList layout;
    for (QAction *action : toolBar->actions())
        layout << describe(toolBar, action, window);
    QCOMPARE(layout, (QStringList{"0", "1", "separator", "2", "gap", "6", "8", "7", "22",
                                  "stretch", "separator", "4", "3"}));
}

void TestMainWindow::toolBarIsFixedWithLargeIcons()
{
    CMainWindow window(AppContext::versionTitle());
    QToolBar *toolBar = window.mainToolBar();
    QCOMPARE(toolBar->objectName(), QStringLiteral("ToolBarMain"));
    QCOMPARE(toolBar->iconSize(), QSize(56, 42));
    QVERIFY(!toolBar->isMovable());
    QVERIFY(!toolBar->isFloatable());
    QCOMPARE(toolBar->styleSheet(), QStringLiteral("QWidget {border:none;}"));
    QWidget *button = toolBar->widgetForAction(window.commandAction(CmdOpenImage));
    QVERIFY(button);
    QCOMPARE(button->styleSheet(), QStringLiteral("QWidget:hover {border:1px solid gray;}"));
}

void TestMainWindow::commandTextsTipsIconsAndShortcuts_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<QKeySequence>("shortcut");
    QTest::addColumn<QString>("icon");
    QTest::newRow("recent") << 0 << "Recent Images" << "Recent image files" << QKeySequence()
                            << "toolbar/btn_toolbar_recent.png";
    QTest::newRow("open") << 1 << "Open &Image" << "Open an image file" << QKeySequence("ALT+I")
                          << "toolbar/btn_toolbar_open_img.png";
    QTest::newRow("configure") << 2 << "&Configure" << "Display the configuration dialogue box"
                               << QKeySequence("ALT+C") << "toolbar/btn_toolbar_configure.png";
    QTest::newRow("exit") << 3 << "E&xit" << "Exit the application" << QKeySequence("ALT+X")
                          << "toolbar/btn_toolbar_exit.png";
    QTest::newRow("contents") << 4 << "&Contents" << "Help Contents"
                              << QKeySequence(QKeySequence::HelpContents)
                              << "toolbar/btn_toolbar_help.png";
    QTest::newRow("zoom out") << 6 << "Zoom Out" << QString() << QKeySequence(QKeySequence::ZoomOut)
                              << "toolbar/btn_toolbar_zoom_out.png";
    QTest::newRow("zoom in") << 7 << "Zoom In" << QString() << QKeySequence(QKeySequence::ZoomIn)
                             << "toolbar/btn_toolbar_zoom_in.png";
    QTest::newRow("actual") << 8 << "Zoom Actual Size" << QString()
                            << QKeySequence(Qt::CTRL + Qt::Key_0)
                            << "toolbar/btn_toolbar_zoom_actual.png";
}

void TestMainWindow::commandTextsTipsIconsAndShortcuts()
{
    QFETCH(int, id);
    QFETCH(QString, text);
    QFETCH(QString, tip);
    QFETCH(QKeySequence, shortcut);
    QFETCH(QString, icon);
    CMainWindow window(AppContext::versionTitle());
    QAction *action = window.commandAction(id);
    QVERIFY(action);
    QCOMPARE(action->text(), text);
    if (!tip.isEmpty())
        QCOMPARE(action->statusTip(), tip);
    QCOMPARE(action->shortcut(), shortcut);
    QVERIFY(!action->icon().isNull());
    QCOMPARE(iconImage(action->icon()), iconImage(QIcon(AppContext::widgetPrefix() + icon)));
}

void TestMainWindow::zoomStatusTipsShowNativeKeyNames_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QKeySequence>("key");
    QTest::newRow("out") << 6 << "Zoom Out" << QKeySequence(QKeySequence::ZoomOut);
    QTest::newRow("in") << 7 << "Zoom In" << QKeySequence(QKeySequence::ZoomIn);
    QTest::newRow("actual") << 8 << "Zoom Actual Size" << QKeySequence(Qt::CTRL + Qt::Key_0);
}

void TestMainWindow::zoomStatusTipsShowNativeKeyNames()
{
    QFETCH(int, id);
    QFETCH(QString, caption);
    QFETCH(QKeySequence, key);
    const QString native = key.toString(QKeySequence::NativeText);
    QVERIFY(!native.isEmpty());
    CMainWindow window(AppContext::versionTitle());
    QCOMPARE(window.commandAction(id)->statusTip(), caption + ": [" + native + "]");
}

void TestMainWindow::recentImagesButtonIsNarrow()
{
    CMainWindow window(AppContext::versionTitle());
    auto *button = qobject_cast<QToolButton *>(
        window.mainToolBar()->widgetForAction(window.commandAction(CmdRecentImages)));
    QVERIFY(button);
    QCOMPARE(button->minimumWidth(), 21);
    QCOMPARE(button->maximumWidth(), 21);
}

void TestMainWindow::aboutIsNotOnTheToolBarAndDoesNothing()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    QVERIFY(!window.commandAction(CmdAbout));
    for (QAction *action : window.mainToolBar()->actions())
        QVERIFY(action->text() != QStringLiteral("&About"));
    const QWidgetList before = QApplication::topLevelWidgets();
    window.processCommand(CmdAbout);
    QVERIFY(!QApplication::activeModalWidget());
    for (QWidget *widget : QApplication::topLevelWidgets())
        QVERIFY(before.contains(widget) || !widget->isVisible());
    QCOMPARE(window.windowTitle(), QStringLiteral("Vellora v1.0.0"));
    QVERIFY(window.isVisible());
}

void TestMainWindow::unknownCommandsDoNothing()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    window.tabWidget()->setCurrentIndex(1);
    for (int id : {-1, 9, 21, 100})
        window.processCommand(id);
    QVERIFY(window.isVisible());
    QCOMPARE(window.tabWidget()->currentIndex(), 1);
}

void TestMainWindow::recentImagesDisabledWithAnEmptyList()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QVERIFY(!window.commandAction(CmdRecentImages)->isEnabled());
    QVERIFY(visibleRecentEntries(window.recentMenu()).isEmpty());
}

void TestMainWindow::recentImagesEnabledAfterTheFirstImageOpens()
{
    const QString path = writeImage("first.png");
    QVERIFY(!path.isEmpty());
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(!window.commandAction(CmdRecentImages)->isEnabled());
    // What the image source does once an image has opened.
    window.settings()->addRecentFile(&window, path);
    window.refreshRecentFiles();
    QVERIFY(window.commandAction(CmdRecentImages)->isEnabled());
    const QList<QAction *> entries = visibleRecentEntries(window.recentMenu());
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first()->text(), QStringLiteral("&1 first.png"));
    QCOMPARE(entries.first()->statusTip(), path);
    QCOMPARE(entries.first()->data().toString(), path);
    QCOMPARE(window.recentMenu()->actions().first(), entries.first());
}

void TestMainWindow::recentMenuEndsWithClearList()
{
    CMainWindow window(AppContext::versionTitle());
    const QList<QAction *> actions = window.recentMenu()->actions();
    QCOMPARE(actions.size(), 8);
    QVERIFY(actions.at(6)->isSeparator());
    QCOMPARE(actions.at(7)->text(), QStringLiteral("Clear &List"));
    QCOMPARE(actions.at(7)->statusTip(), QStringLiteral("Clear recently used files list"));
    for (int i = 0; i < 6; ++i)
        QVERIFY(!actions.at(i)->isVisible());
}

void TestMainWindow::recentImagesCommandPopsUpTheMenuAtItsButton()
{
    const QString path = writeImage("popup.png");
    CMainWindow window(AppContext::versionTitle());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.settings()->addRecentFile(&window, path);
    window.refreshRecentFiles();
    QWidget *button = window.mainToolBar()->widgetForAction(window.commandAction(CmdRecentImages));

    // The menu runs its own event loop: a poller closes it whenever it
    // shows, so a late menu makes the test fail instead of hang, and one
    // later than the bound is reported as late.
    const int kBoundMs = 2000;
    QWidget *popup = nullptr;
    QPoint popupPos;
    QStringList entries;
    bool late = false;
    QElapsedTimer clock;
    QTimer poller;
    poller.setInterval(10);
    connect(&poller, &QTimer::timeout, [&]() {
        QWidget *shown = QApplication::activePopupWidget();
        if (!shown)
            return;
        late = clock.elapsed() > kBoundMs;
        popup = shown;
        popupPos = popup->pos();
        for (QAction *action : visibleRecentEntries(window.recentMenu()))
            entries << action->text();
        popup->close();
    });
    clock.start();
    poller.start();
    window.commandAction(CmdRecentImages)->trigger();
    poller.stop();
    QVERIFY2(!late, "the recent images menu showed later than the bound");
    QCOMPARE(popup, static_cast<QWidget *>(window.recentMenu()));
    QCOMPARE(entries, QStringList{"&1 popup.png"});
    QCOMPARE(popupPos, button->mapToGlobal(QPoint(0, 0)));
}

void TestMainWindow::recentMenuShowsAtMostSixEntries()
{
    QStringList paths;
    for (int i = 1; i <= 7; ++i)
        paths << writeImage(QStringLiteral("many%1.png").arg(i));
    CMainWindow window(AppContext::versionTitle());
    for (const QString &path : paths)
        window.settings()->addRecentFile(&window, path);
    window.refreshRecentFiles();
    const QList<QAction *> entries = visibleRecentEntries(window.recentMenu());
    QCOMPARE(entries.size(), 6);
    QCOMPARE(entries.at(0)->text(), QStringLiteral("&1 many7.png"));
    QCOMPARE(entries.at(5)->text(), QStringLiteral("&6 many2.png"));
}

void TestMainWindow::choosingAnExistingRecentImageShowsTheSamplingPage()
{
    const QString path = writeImage("again.png");
    CMainWindow window(AppContext::versionTitle());
    window.settings()->addRecentFile(&window, path);
    window.refreshRecentFiles();
    window.tabWidget()->setCurrentIndex(1);
    visibleRecentEntries(window.recentMenu()).first()->trigger();
    QCOMPARE(window.tabWidget()->currentIndex(), 0);
    QVERIFY(window.settings()->recentFiles.contains(path));
    QVERIFY(window.commandAction(CmdRecentImages)->isEnabled());
    QVERIFY(window.windowTitle().endsWith(QStringLiteral("Vellora v1.0.0")));
}

void TestMainWindow::deletedRecentImageDisappearsAndTheListIsSavedAtOnce()
{
    const QString kept = writeImage("kept.png");
    const QString doomed = writeImage("doomed.png");
    CMainWindow window(AppContext::versionTitle());
    window.settings()->addRecentFile(&window, kept);
    window.settings()->addRecentFile(&window, doomed);
    window.refreshRecentFiles();
    QVERIFY(QFile::remove(doomed));

    QAction *entry = visibleRecentEntries(window.recentMenu()).first();
    QCOMPARE(entry->data().toString(), doomed);
    {
        // The image loader reports the unreadable file; answer it if it asks.
        ModalAnswerer answer(QStringLiteral("OK"));
        entry->trigger();
    }
    QCOMPARE(window.settings()->recentFiles, QStringList{kept});
    QCOMPARE(storedRecentFiles(), QStringList{kept});
    const QList<QAction *> entries = visibleRecentEntries(window.recentMenu());
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first()->text(), QStringLiteral("&1 kept.png"));
    QVERIFY(window.commandAction(CmdRecentImages)->isEnabled());
}

void TestMainWindow::deletingTheOnlyRecentImageDisablesRecentImages()
{
    const QString doomed = writeImage("alone.png");
    CMainWindow window(AppContext::versionTitle());
    window.settings()->addRecentFile(&window, doomed);
    window.refreshRecentFiles();
    QVERIFY(QFile::remove(doomed));
    {
        ModalAnswerer answer(QStringLiteral("OK"));
        visibleRecentEntries(window.recentMenu()).first()->trigger();
    }
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QVERIFY(storedRecentFiles().isEmpty());
    QVERIFY(!window.commandAction(CmdRecentImages)->isEnabled());
}

void TestMainWindow::clearListEmptiesAndSavesTheList()
{
    CMainWindow window(AppContext::versionTitle());
    window.settings()->addRecentFile(&window, writeImage("one.png"));
    window.settings()->addRecentFile(&window, writeImage("two.png"));
    window.refreshRecentFiles();
    QCOMPARE(storedRecentFiles().size(), 2);
    window.recentMenu()->actions().last()->trigger();
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QVERIFY(storedRecentFiles().isEmpty());
    QVERIFY(!window.commandAction(CmdRecentImages)->isEnabled());
    QVERIFY(visibleRecentEntries(window.recentMenu()).isEmpty());
}

void TestMainWindow::dataPageDisablesTheZoomCommands()
{
    CMainWindow window(AppContext::versionTitle());
    window.tabWidget()->setCurrentIndex(1);
    QVERIFY(!window.commandAction(CmdZoomIn)->isEnabled());
    QVERIFY(!window.commandAction(CmdZoomOut)->isEnabled());
    QVERIFY(!window.commandAction(CmdZoomActual)->isEnabled());
}

void TestMainWindow::samplingPageEnablesZoomByItsLevel()
{
    CMainWindow window(AppContext::versionTitle());
    window.tabWidget()->setCurrentIndex(1);
    window.tabWidget()->setCurrentIndex(0);
    // A page without an image stands at actual size.
    QCOMPARE(window.samplingPage()->zoomIndex(), 7);
    QVERIFY(window.commandAction(CmdZoomIn)->isEnabled());
    QVERIFY(window.commandAction(CmdZoomOut)->isEnabled());
    QVERIFY(!window.commandAction(CmdZoomActual)->isEnabled());
}

void TestMainWindow::zoomCommandsFollowTheZoomLevel_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<bool>("zoomOut");
    QTest::addColumn<bool>("zoomIn");
    QTest::addColumn<bool>("actual");
    QTest::newRow("smallest") << 0 << false << true << true;
    QTest::newRow("one above smallest") << 1 << true << true << true;
    QTest::newRow("actual size") << 7 << true << true << false;
    QTest::newRow("one below largest") << 14 << true << true << true;
    QTest::newRow("largest") << 15 << true << false << true;
}

void TestMainWindow::zoomCommandsFollowTheZoomLevel()
{
    QFETCH(int, zoom);
    QFETCH(bool, zoomOut);
    QFETCH(bool, zoomIn);
    QFETCH(bool, actual);
    CMainWindow window(AppContext::versionTitle());
    window.enableZoomCommands(zoom);
    QCOMPARE(window.commandAction(CmdZoomOut)->isEnabled(), zoomOut);
    QCOMPARE(window.commandAction(CmdZoomIn)->isEnabled(), zoomIn);
    QCOMPARE(window.commandAction(CmdZoomActual)->isEnabled(), actual);
}

void TestMainWindow::refusedColourKeepsTheCurrentPage()
{
    CMainWindow window(AppContext::versionTitle());
    QCOMPARE(window.tabWidget()->currentIndex(), 0);
    // Cancelled in the data page's dialog.
    ModalAnswerer answer(QStringLiteral("Cancel"));
    QVERIFY(!window.addColourToDataSet(0.5, 0.25, 0.125));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Add Colour Data"));
    QCOMPARE(answer.dialogClass(), QStringLiteral("CDlgDataColourAdd"));
    QCOMPARE(window.tabWidget()->currentIndex(), 0);
    QCOMPARE(window.dataPage()->model()->rowCount(), 0);
}

void TestMainWindow::exitClosesAndSavesTheSettings()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    window.settings()->maxRecordsDisplay = 3;
    window.processCommand(CmdExit);
    QVERIFY(!window.isVisible());
    QCOMPARE(StoredSettings::value("General/maxRecordsDisplay").toInt(), 3);
    QVERIFY(StoredSettings::contains("Layout/mainwindow"));
}

void TestMainWindow::altHIsAWindowWideShortcut()
{
    CMainWindow window(AppContext::versionTitle());
    bool found = false;
    for (QShortcut *shortcut : window.findChildren<QShortcut *>()) {
        if (shortcut->key() == QKeySequence(Qt::ALT + Qt::Key_H) && shortcut->parent() == &window)
            found = true;
    }
    QVERIFY(found);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
