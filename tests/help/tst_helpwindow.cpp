#include "common/appcontext.h"
#include "help/helpanchors.h"
#include "help/helpbrowser.h"
#include "help/helpwindow.h"

#include "support/modalanswerer.h"
#include "support/guitestfixture.h"

#include <QAction>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QHelpContentModel>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexModel>
#include <QHelpIndexWidget>
#include <QLineEdit>
#include <QSplitter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolBar>
#include <QtTest>
#include <cstdio>
#include <unistd.h>

// Receives the urls the help browser hands to the desktop.
class DesktopUrlCatcher : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> urls;

public slots:
    void openUrl(const QUrl &url) { urls.append(url); }
};

class TestHelpWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void requestBeforeTheEngineIsReadyWaitsAndThenShowsThePage();
    void emptyRequestShowsTheAboutPageOnlyOnTheFirstRequest();
    void laterRequestWithAPageOpensThatSection();
    void externalLinkGoesToTheDesktopAndKeepsPageAndHistory_data();
    void externalLinkGoesToTheDesktopAndKeepsPageAndHistory();
    void homeIsDisabledOnTheAboutPageAlsoWhenReachedThroughBack();
    void backAndForwardFollowTheHistory();
    void findTextWithAnAsteriskFiltersTheIndexAsAWildcard();
    void findTextWithoutAnAsteriskFiltersWithoutAWildcard();
    void clickingAnIndexKeywordOpensItsPage();
    void singleClickInTheContentsOpensThePage();
    void doubleClickInTheContentsIsSwallowed();
    void openedPageBecomesTheCurrentContentsEntry();
    void toolbarHasFiveActionsWithTextsKeysAndIcons();
    void escapeAndCloseOnlyHideTheWindow();
    void windowTakesTheGivenRectangleAndSplitterSizes();
    void collectionIsNamedAfterTheVersionAndOpenedReadOnly();
    void missingCollectionGivesAnEmptyWindowWithoutMessages();
    void findFieldIsAsWideAsItsMinimumText();
    void engineWarningsArePrintedToStandardOutputInLatin1();
    void printAsksWithThePrintDialogAndCancelPrintsNothing();

private:
    CHelpWindow *show(const QString &page);
    QHelpIndexModel *readyIndexModel(CHelpWindow *window);
    QHelpContentModel *readyContentModel(CHelpWindow *window);

    GuiTestFixture *m_home = nullptr;
    const QString m_folder = QStringLiteral(VELLORA_HELP_DIR);
};

void TestHelpWindow::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(QFile::exists(CHelpWindow::collectionPath(m_folder)));
}

void TestHelpWindow::init()
{
    CHelpWindow::deleteInstance();
}

void TestHelpWindow::cleanupTestCase()
{
    CHelpWindow::deleteInstance();
    delete m_home;
}

CHelpWindow *TestHelpWindow::show(const QString &page)
{
    return CHelpWindow::showHelp(QStringLiteral("Vellora"), page, QRect(40, 30, 900, 600), 200,
                                 700, m_folder);
}

QHelpIndexModel *TestHelpWindow::readyIndexModel(CHelpWindow *window)
{
    QHelpIndexModel *model = window->helpEngine()->indexModel();
    [&]() { QTRY_VERIFY_WITH_TIMEOUT(model->rowCount() > 20, 10000); }();
    return model;
}

QHelpContentModel *TestHelpWindow::readyContentModel(CHelpWindow *window)
{
    QHelpContentModel *model = window->helpEngine()->contentModel();
    [&]() { QTRY_VERIFY_WITH_TIMEOUT(model->rowCount() >= 6, 10000); }();
    return model;
}

void TestHelpWindow::requestBeforeTheEngineIsReadyWaitsAndThenShowsThePage()
{
    QVERIFY(!CHelpWindow::isReady());
    QElapsedTimer timer;
    timer.start();
    CHelpWindow *window = show(QLatin1String(HelpAnchors::kDataAddColour));
    QVERIFY(timer.elapsed() >= 750);
    QVERIFY(CHelpWindow::isReady());
    QCOMPARE(window->browser()->source(),
             QUrl(QStringLiteral("qthelp://tessaline.Vellora/help/data.html#dataAddColour")));
    QVERIFY(window->browser()->toPlainText().contains(QStringLiteral("Add Colour to Data Set")));
    QVERIFY(window->isVisible());
    QCOMPARE(window->windowTitle(), QStringLiteral("Vellora - Help"));
    QCOMPARE(CHelpWindow::instance(), window);
}

void TestHelpWindow::emptyRequestShowsTheAboutPageOnlyOnTheFirstRequest()
{
    CHelpWindow *window = show(QString());
    const QUrl about(QStringLiteral("qthelp://tessaline.Vellora/help/about.html"));
    QCOMPARE(window->browser()->source(), about);
    window->openPage(QStringLiteral("config.html"));
    window->hide();
    QCOMPARE(show(QString()), window);
    QCOMPARE(window->browser()->source(), CHelpWindow::pageUrl(QStringLiteral("config.html")));
    QVERIFY(window->isVisible());
}

void TestHelpWindow::laterRequestWithAPageOpensThatSection()
{
    CHelpWindow *window = show(QString());
    QCOMPARE(show(QLatin1String(HelpAnchors::kLibraryImport)), window);
    QCOMPARE(window->browser()->source(),
             QUrl(QStringLiteral("qthelp://tessaline.Vellora/help/library.html#libMaintTabB")));
}

void TestHelpWindow::externalLinkGoesToTheDesktopAndKeepsPageAndHistory_data()
{
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<QString>("link");
    QTest::newRow("mailto") << "mailto" << "mailto:colours@example.com";
    QTest::newRow("http") << "http" << "http://example.com/colours";
    QTest::newRow("https") << "https" << "https://example.com/colours";
}

void TestHelpWindow::externalLinkGoesToTheDesktopAndKeepsPageAndHistory()
{
    QFETCH(QString, scheme);
    QFETCH(QString, link);
    DesktopUrlCatcher catcher;
    QDesktopServices::setUrlHandler(scheme, &catcher, "openUrl");
    CHelpWindow *window = show(QStringLiteral("data.html"));
    CHelpBrowser *browser = window->browser();
    const QUrl before = browser->source();
    const int back = browser->backwardHistoryCount();
    const int forward = browser->forwardHistoryCount();
    const QString text = browser->toPlainText();

    browser->setSource(QUrl(link));
    QDesktopServices::unsetUrlHandler(scheme);

    QCOMPARE(catcher.urls, QList<QUrl>{QUrl(link)});
    QCOMPARE(browser->source(), before);
    QCOMPARE(browser->backwardHistoryCount(), back);
    QCOMPARE(browser->forwardHistoryCount(), forward);
    QCOMPARE(browser->toPlainText(), text);
}

void TestHelpWindow::homeIsDisabledOnTheAboutPageAlsoWhenReachedThroughBack()
{
    CHelpWindow *window = show(QString());
    QVERIFY(!window->homeAction()->isEnabled());
    window->openPage(QStringLiteral("sample.html#picksize"));
    QVERIFY(window->homeAction()->isEnabled());
    window->backAction()->trigger();
    QCOMPARE(window->browser()->source().fileName(), QStringLiteral("about.html"));
    QVERIFY(!window->homeAction()->isEnabled());
    window->forwardAction()->trigger();
    QVERIFY(window->homeAction()->isEnabled());
    window->homeAction()->trigger();
    QCOMPARE(window->browser()->source(), CHelpWindow::pageUrl(QStringLiteral("about.html")));
    QVERIFY(!window->homeAction()->isEnabled());
}

void TestHelpWindow::backAndForwardFollowTheHistory()
{
    CHelpWindow *window = show(QString());
    QVERIFY(!window->backAction()->isEnabled());
    QVERIFY(!window->forwardAction()->isEnabled());
    window->openPage(QStringLiteral("cli.html"));
    QVERIFY(window->backAction()->isEnabled());
    window->backAction()->trigger();
    QVERIFY(!window->backAction()->isEnabled());
    QVERIFY(window->forwardAction()->isEnabled());
    window->forwardAction()->trigger();
    QCOMPARE(window->browser()->source(), CHelpWindow::pageUrl(QStringLiteral("cli.html")));
    QVERIFY(!window->forwardAction()->isEnabled());
}

void TestHelpWindow::findTextWithAnAsteriskFiltersTheIndexAsAWildcard()
{
    CHelpWindow *window = show(QString());
    QHelpIndexModel *model = readyIndexModel(window);
    window->navigationTabs()->setCurrentIndex(1);
    QTest::keyClicks(window->findField(), QStringLiteral("pick*size"));
    QCOMPARE(model->stringList(), QStringList{QStringLiteral("pick size")});
    window->findField()->clear();
    QTest::keyClicks(window->findField(), QStringLiteral("Zoom*"));
    QStringList found = model->stringList();
    found.sort(Qt::CaseInsensitive);
    QCOMPARE(found, (QStringList{QStringLiteral("zoom"), QStringLiteral("Zoom Actual Size"),
                                 QStringLiteral("Zoom In"), QStringLiteral("Zoom Out")}));
}

void TestHelpWindow::findTextWithoutAnAsteriskFiltersWithoutAWildcard()
{
    CHelpWindow *window = show(QString());
    QHelpIndexModel *model = readyIndexModel(window);
    const int all = model->rowCount();
    // "?" would match any character in a wildcard; without an asterisk it
    // is taken literally, and no keyword holds it.
    QTest::keyClicks(window->findField(), QStringLiteral("pick?size"));
    QCOMPARE(model->rowCount(), 0);
    window->findField()->clear();
    QCOMPARE(model->rowCount(), all);
    QTest::keyClicks(window->findField(), QStringLiteral("ick siz"));
    QCOMPARE(model->stringList(), QStringList{QStringLiteral("pick size")});
}

void TestHelpWindow::clickingAnIndexKeywordOpensItsPage()
{
    CHelpWindow *window = show(QString());
    QHelpIndexModel *model = readyIndexModel(window);
    QTest::keyClicks(window->findField(), QStringLiteral("Reset Default"));
    QCOMPARE(model->rowCount(), 1);
    QHelpIndexWidget *index = window->helpEngine()->indexWidget();
    window->navigationTabs()->setCurrentIndex(1);
    const QRect cell = index->visualRect(model->index(0, 0));
    QTest::mouseClick(index->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QCOMPARE(window->browser()->source(),
             CHelpWindow::pageUrl(QStringLiteral("config.html#configFolders")));
}

void TestHelpWindow::singleClickInTheContentsOpensThePage()
{
    CHelpWindow *window = show(QString());
    QHelpContentModel *model = readyContentModel(window);
    QHelpContentWidget *contents = window->helpEngine()->contentWidget();
    QModelIndex library;
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->contentItemAt(model->index(row, 0))->url().fileName()
            == QLatin1String("library.html"))
            library = model->index(row, 0);
    }
    QVERIFY(library.isValid());
    const QRect cell = contents->visualRect(library);
    QTest::mouseClick(contents->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QCOMPARE(window->browser()->source(), CHelpWindow::pageUrl(QStringLiteral("library.html")));
}

void TestHelpWindow::doubleClickInTheContentsIsSwallowed()
{
    CHelpWindow *window = show(QString());
    QHelpContentModel *model = readyContentModel(window);
    QHelpContentWidget *contents = window->helpEngine()->contentWidget();
    const QModelIndex first = model->index(0, 0);
    QSignalSpy doubleClicked(contents, &QAbstractItemView::doubleClicked);
    QTest::mouseDClick(contents->viewport(), Qt::LeftButton, Qt::NoModifier,
                       contents->visualRect(first).center());
    QCOMPARE(doubleClicked.count(), 0);
    QVERIFY(!contents->isExpanded(first));
}

void TestHelpWindow::openedPageBecomesTheCurrentContentsEntry()
{
    CHelpWindow *window = show(QString());
    QHelpContentModel *model = readyContentModel(window);
    QHelpContentWidget *contents = window->helpEngine()->contentWidget();
    window->openPage(QStringLiteral("config.html#configAdvanced"));
    const QHelpContentItem *item = model->contentItemAt(contents->currentIndex());
    QVERIFY(item);
    QCOMPARE(item->url(), CHelpWindow::pageUrl(QStringLiteral("config.html#configAdvanced")));
    QCOMPARE(item->title(), QStringLiteral("Advanced"));
}

void TestHelpWindow::toolbarHasFiveActionsWithTextsKeysAndIcons()
{
    CHelpWindow *window = show(QString());
    QToolBar *toolBar = window->toolBar();
    QCOMPARE(toolBar->iconSize(), QSize(50, 38));
    QVERIFY(!toolBar->isMovable());
    QVERIFY(!toolBar->isFloatable());
    QStringList texts;
    QStringList keys;
    for (QAction *action : toolBar->actions()) {
        texts << (action->isSeparator() ? QStringLiteral("|") : action->text());
        if (!action->isSeparator()) {
            keys << action->shortcut().toString();
            QVERIFY2(!action->icon().isNull(), qPrintable(action->text()));
        }
    }
    QCOMPARE(texts, (QStringList{"Home", "Back", "Forward", "|", "Print", "Close"}));
    QCOMPARE(keys, (QStringList{"Alt+H", "Alt+B", "Alt+F", "Alt+P", "Alt+C"}));
    QVERIFY(!QIcon(QStringLiteral(":/resources/widgets/help//btn_help_home.png")).isNull());
}

void TestHelpWindow::escapeAndCloseOnlyHideTheWindow()
{
    CHelpWindow *window = show(QString());
    QVERIFY(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window->browser(), Qt::Key_Escape);
    QTRY_VERIFY(!window->isVisible());
    QCOMPARE(CHelpWindow::instance(), window);
    QCOMPARE(show(QString()), window);
    QVERIFY(window->isVisible());
    window->closeAction()->trigger();
    QVERIFY(!window->isVisible());
    QCOMPARE(CHelpWindow::instance(), window);
}

void TestHelpWindow::windowTakesTheGivenRectangleAndSplitterSizes()
{
    CHelpWindow *window = CHelpWindow::showHelp(QStringLiteral("Palette"), QString(),
                                                QRect(70, 50, 880, 620), 250, 630, m_folder);
    QCOMPARE(window->windowTitle(), QStringLiteral("Palette - Help"));
    QCOMPARE(window->size(), QSize(880, 620));
    QCOMPARE(window->pos(), QPoint(70, 50));
    const QList<int> sizes = window->splitter()->sizes();
    QCOMPARE(sizes.size(), 2);
    QCOMPARE(sizes.at(0), 250);
    QVERIFY(!window->splitter()->childrenCollapsible());
}

void TestHelpWindow::collectionIsNamedAfterTheVersionAndOpenedReadOnly()
{
    QCOMPARE(CHelpWindow::collectionFileName(), QStringLiteral("Vellora10.0.qhc"));
    QCOMPARE(CHelpWindow::helpNamespace(), QStringLiteral("qthelp://tessaline.Vellora/help/"));
    const QString path = CHelpWindow::collectionPath(m_folder);
    const QDateTime modified = QFileInfo(path).lastModified();
    CHelpWindow *window = show(QString());
    QCOMPARE(window->helpEngine()->collectionFile(), path);
    QCOMPARE(window->helpEngine()->property("_q_readonly").toBool(), true);
    QVERIFY(window->helpEngine()->usesFilterEngine());
    QCOMPARE(QFileInfo(path).lastModified(), modified);
}

void TestHelpWindow::missingCollectionGivesAnEmptyWindowWithoutMessages()
{
    QTemporaryDir empty;
    CHelpWindow *window = CHelpWindow::showHelp(QStringLiteral("Vellora"), QStringLiteral("data.html"),
                                                QRect(0, 0, 600, 400), 100, 500, empty.path());
    QVERIFY(CHelpWindow::isReady());
    QVERIFY(window->isVisible());
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(window->helpEngine()->contentModel()->rowCount(), 0);
    QVERIFY(window->browser()->toPlainText().trimmed().isEmpty());
}

void TestHelpWindow::findFieldIsAsWideAsItsMinimumText()
{
    CHelpWindow *window = show(QString());
    QLineEdit *find = window->findField();
    QCOMPARE(find->minimumWidth(),
             find->fontMetrics().horizontalAdvance(QStringLiteral("Minimum Edit Box Width")));
    QCOMPARE(window->navigationTabs()->tabText(0), QStringLiteral("Contents"));
    QCOMPARE(window->navigationTabs()->tabText(1), QStringLiteral("Index"));
}

void TestHelpWindow::engineWarningsArePrintedToStandardOutputInLatin1()
{
    CHelpWindow *window = show(QString());
    QTemporaryFile captured;
    QVERIFY(captured.open());
    std::fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    dup2(captured.handle(), STDOUT_FILENO);
    window->warning(QString::fromUtf8("Cannot open caf\xc3\xa9.qch"));
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
    captured.seek(0);
    QCOMPARE(captured.readAll(), QByteArray("Help Engine warning:Cannot open caf\xe9.qch\n"));
    QVERIFY(!QApplication::activeModalWidget());
}

void TestHelpWindow::printAsksWithThePrintDialogAndCancelPrintsNothing()
{
    CHelpWindow *window = show(QStringLiteral("shortcuts.html"));
    ModalAnswerer answer(QStringLiteral("Cancel"));
    window->printAction()->trigger();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Print Help Page"));
    QCOMPARE(answer.dialogClass(), QStringLiteral("QPrintDialog"));
    QCOMPARE(window->browser()->source(), CHelpWindow::pageUrl(QStringLiteral("shortcuts.html")));
}

QTEST_MAIN(TestHelpWindow)
#include "tst_helpwindow.moc"
