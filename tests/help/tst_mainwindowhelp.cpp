#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "help/helpanchors.h"
#include "help/helpbrowser.h"
#include "help/helpwindow.h"
#include "help/tipdialog.h"

#include "support/modalanswerer.h"
#include "support/storedsettings.h"
#include "support/guitestfixture.h"

#include <QAction>
#include <QShortcut>
#include <QSplitter>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QtTest>

// The main window's help requests and the start-up tip, with the program's
// own files: this test runs from the folder that holds the compiled manual
// and tips.txt, as the program does.
class TestMainWindowHelp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void altHOpensTheManualAtTheAboutPage();
    void helpContentsCommandOpensTheManual();
    void dialogHelpRequestOpensItsSection();
    void closingTheMainWindowHidesTheHelpAndStoresItsLayout();
    void nextStartRestoresTheHelpWindowRectangleAndSplitter();
    void withoutAHelpWindowNoHelpLayoutIsStored();
    void tipAtStartUpReadsTheTipsBesideTheProgramOverTheMainWindow();

private:
    GuiTestFixture *m_home = nullptr;
};

namespace {

QShortcut *altH(CMainWindow &window)
{
    for (QShortcut *shortcut : window.findChildren<QShortcut *>()) {
        if (shortcut->key() == QKeySequence(QStringLiteral("Alt+H")))
            return shortcut;
    }
    return nullptr;
}

} // namespace

void TestMainWindowHelp::initTestCase()
{
    m_home = new GuiTestFixture;
    QVERIFY(QFile::exists(CHelpWindow::collectionPath(QCoreApplication::applicationDirPath())));
}

void TestMainWindowHelp::init()
{
    CHelpWindow::deleteInstance();
    TempHome::clearSettings();
}

void TestMainWindowHelp::cleanupTestCase()
{
    CHelpWindow::deleteInstance();
    delete m_home;
}

void TestMainWindowHelp::altHOpensTheManualAtTheAboutPage()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    QVERIFY(!window.helpWindow());
    QShortcut *shortcut = altH(window);
    QVERIFY(shortcut);
    emit shortcut->activated();
    CHelpWindow *help = window.helpWindow();
    QVERIFY(help);
    QVERIFY(help->isVisible());
    QCOMPARE(help->windowTitle(), QStringLiteral("Vellora - Help"));
    QCOMPARE(help->browser()->source(), CHelpWindow::pageUrl(QStringLiteral("about.html")));
    QVERIFY(help->browser()->toPlainText().contains(QStringLiteral("A first walk-through")));
}

void TestMainWindowHelp::helpContentsCommandOpensTheManual()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    window.commandAction(CmdHelpContents)->trigger();
    QVERIFY(window.helpWindow());
    QCOMPARE(window.helpWindow()->browser()->source().fileName(), QStringLiteral("about.html"));
}

void TestMainWindowHelp::dialogHelpRequestOpensItsSection()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    window.displayHelp(QLatin1String(HelpAnchors::kLibraryEditTable));
    QCOMPARE(window.helpWindow()->browser()->source(),
             CHelpWindow::pageUrl(QStringLiteral("library.html#libEditColourTable")));
    window.displayHelp(QLatin1String(HelpAnchors::kConfigFolders));
    QCOMPARE(window.helpWindow()->browser()->source(),
             CHelpWindow::pageUrl(QStringLiteral("config.html#configFolders")));
}

void TestMainWindowHelp::closingTheMainWindowHidesTheHelpAndStoresItsLayout()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    window.displayHelp();
    CHelpWindow *help = window.helpWindow();
    help->move(30, 20);
    help->resize(620, 430);
    help->splitter()->setSizes({170, 450});
    const QList<int> sizes = help->splitter()->sizes();
    QVERIFY(window.close());
    QVERIFY(!help->isVisible());
    QCOMPARE(StoredSettings::value(QStringLiteral("Layout/helpwindow")).toRect(),
             QRect(help->pos(), help->size()));
    QCOMPARE(StoredSettings::value(QStringLiteral("Layout/helpsplitA")).toInt(), sizes.at(0));
    QCOMPARE(StoredSettings::value(QStringLiteral("Layout/helpsplitB")).toInt(), sizes.at(1));
}

void TestMainWindowHelp::nextStartRestoresTheHelpWindowRectangleAndSplitter()
{
    StoredSettings::setValue(QStringLiteral("Layout/helpwindow"), QRect(40, 30, 600, 420));
    StoredSettings::setValue(QStringLiteral("Layout/helpsplitA"), 260);
    StoredSettings::setValue(QStringLiteral("Layout/helpsplitB"), 340);
    CMainWindow window(AppContext::versionTitle());
    QCOMPARE(window.helpRect(), QRect(40, 30, 600, 420));
    window.show();
    window.displayHelp();
    CHelpWindow *help = window.helpWindow();
    QCOMPARE(help->pos(), QPoint(40, 30));
    QCOMPARE(help->size(), QSize(600, 420));
    QCOMPARE(help->splitter()->sizes().at(0), 260);
}

void TestMainWindowHelp::withoutAHelpWindowNoHelpLayoutIsStored()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    QVERIFY(window.close());
    QVERIFY(StoredSettings::contains(QStringLiteral("Layout/mainwindow")));
    QVERIFY(!StoredSettings::contains(QStringLiteral("Layout/helpwindow")));
    QVERIFY(!StoredSettings::contains(QStringLiteral("Layout/helpsplitA")));
}

void TestMainWindowHelp::tipAtStartUpReadsTheTipsBesideTheProgramOverTheMainWindow()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    QWidget *parent = nullptr;
    QString tip;
    ModalAnswerer answer(QStringLiteral("&Close"), [&](QWidget *dialog) {
        parent = dialog->parentWidget();
        if (auto *view = dialog->findChild<QTextEdit *>())
            tip = view->toPlainText();
    });
    QVERIFY(CTipDialog::showAtStartup(&window, AppContext::productName(), window.settings()));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora - Tip Of The Day"));
    QCOMPARE(parent, static_cast<QWidget *>(&window));
    QCOMPARE(tip, QTextDocumentFragment::fromHtml(
                      CTipDialog::readTips(CTipDialog::defaultTipsPath()).first())
                      .toPlainText());
    QCOMPARE(window.settings()->startTipIndex, 1);
}

QTEST_MAIN(TestMainWindowHelp)
#include "tst_mainwindowhelp.moc"
