#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "app/standardkeys.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalsequence.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QKeySequence>
#include <QShortcut>
#include <QTabWidget>
#include <QtTest>

#include <memory>

namespace {

const QByteArray kTwoColours = "0.1000, 0.2000, 0.3000, Sea\n1.0000, 0.5000, 0.0000, Orange\n";

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

// The desktop's standard keys (Open, Save, Save As, Quit as the platform
// binds them) beside the program's own Alt keys, pressed as a user presses
// them: each reaches the same command, with its dialogs and questions.
class TestStandardKeys : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyStandardKeyIsBoundOnTheWindow_data();
    void everyStandardKeyIsBoundOnTheWindow();
    void openKeyRunsOpenImage();
    void altIStillRunsOpenImage();
    void saveKeyOnTheSamplingPageSavesTheTitledSetWithoutAsking();
    void saveKeyOnAnUntitledSetGoesThroughSaveAs();
    void saveAsKeyAsksForANameFromTheDataPage();
    void quitKeyClosesAnUnchangedWindow();
    void quitKeyAsksAboutChangesAndCancelKeepsTheWindow();
    void altXStillExits();

private:
    // Presses the first sequence the platform binds to `key` on the page
    // that has the focus.
    void press(QKeySequence::StandardKey key);
    void press(const QKeySequence &sequence);
    CChartDataWindow *dataPage() const
    {
        return m_window->dataPage();
    }

    GuiTestFixture m_fixture;
    std::unique_ptr<CMainWindow> m_window;
};

void TestStandardKeys::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    AppContext::initResources();
}

void TestStandardKeys::init()
{
    m_fixture.reset();
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestStandardKeys::cleanup()
{
    if (m_window)
        dataPage()->model()->setModified(false);
    m_window.reset();
}

void TestStandardKeys::press(const QKeySequence &sequence)
{
    QVERIFY(!sequence.isEmpty());
    QWidget *target = QApplication::focusWidget() ? QApplication::focusWidget()
                                                  : m_window->tabWidget()->currentWidget();
    const int combined = sequence[0];
    QTest::keyClick(target, Qt::Key(combined & ~Qt::KeyboardModifierMask),
                    Qt::KeyboardModifiers(combined & Qt::KeyboardModifierMask));
}

void TestStandardKeys::press(QKeySequence::StandardKey key)
{
    press(CStandardKeys::keys(key).value(0));
}

void TestStandardKeys::everyStandardKeyIsBoundOnTheWindow_data()
{
    // The platform's own keys; where it binds none, GNOME's stand in.
    QTest::addColumn<int>("key");
    QTest::addColumn<QKeySequence>("standIn");
    QTest::newRow("Open") << int(QKeySequence::Open) << QKeySequence();
    QTest::newRow("Save") << int(QKeySequence::Save) << QKeySequence();
    QTest::newRow("SaveAs") << int(QKeySequence::SaveAs)
                            << QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S);
    QTest::newRow("Quit") << int(QKeySequence::Quit) << QKeySequence(Qt::CTRL + Qt::Key_Q);
}

void TestStandardKeys::everyStandardKeyIsBoundOnTheWindow()
{
    QFETCH(int, key);
    QFETCH(QKeySequence, standIn);
    const QList<QKeySequence> platform =
        QKeySequence::keyBindings(static_cast<QKeySequence::StandardKey>(key));
    const QList<QKeySequence> bindings =
        CStandardKeys::keys(static_cast<QKeySequence::StandardKey>(key));
    QVERIFY(!bindings.isEmpty());
    if (platform.isEmpty())
        QCOMPARE(bindings, QList<QKeySequence>{standIn});
    else
        QCOMPARE(bindings, platform);
    for (const QKeySequence &binding : bindings) {
        int found = 0;
        for (QShortcut *shortcut : m_window->findChildren<QShortcut *>()) {
            if (shortcut->key() == binding && shortcut->parentWidget() == m_window.get()
                && shortcut->context() == Qt::WindowShortcut)
                ++found;
        }
        QCOMPARE(found, 1);
    }
    // The toolbar's own keys stay as they were.
    QCOMPARE(m_window->commandAction(CmdOpenImage)->shortcut(), QKeySequence(Qt::ALT + Qt::Key_I));
    QCOMPARE(m_window->commandAction(CmdExit)->shortcut(), QKeySequence(Qt::ALT + Qt::Key_X));
}

void TestStandardKeys::openKeyRunsOpenImage()
{
    const QString path = m_fixture.filePath("leaf.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(6, 4), path));
    m_window->tabWidget()->setCurrentIndex(1);
    QString caption;
    ModalSequence answers({{QString(), DialogActions::chooseFile(path, nullptr, &caption)}});
    press(QKeySequence::Open);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Open Image"));
    QCOMPARE(m_window->samplingPage()->view()->sourceImage().size(), QSize(6, 4));
    QCOMPARE(m_window->tabWidget()->currentIndex(), 0);
    QCOMPARE(m_window->settings()->recentFiles, QStringList{path});
}

void TestStandardKeys::altIStillRunsOpenImage()
{
    QString caption;
    ModalSequence answers(
        {{QStringLiteral("Cancel"), [&](QWidget *dialog) { caption = dialog->windowTitle(); }}});
    press(QKeySequence(Qt::ALT + Qt::Key_I));
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Open Image"));
    QVERIFY(m_window->settings()->recentFiles.isEmpty());
}

void TestStandardKeys::saveKeyOnTheSamplingPageSavesTheTitledSetWithoutAsking()
{
    const QString path = m_fixture.filePath("colours.txt");
    QVERIFY(writeBytes(path, kTwoColours));
    QVERIFY(dataPage()->openFile(path));
    // What is on disk now differs from the set: the save must write it.
    QVERIFY(writeBytes(path, "changed elsewhere\n"));
    dataPage()->model()->setModified(true);
    m_window->tabWidget()->setCurrentIndex(0);
    ModalAnswerer unexpected(QStringLiteral("Cancel"), ModalAnswerer::Action(), 500);
    press(QKeySequence::Save);
    QVERIFY(!unexpected.wasAnswered());
    QCOMPARE(fileBytes(path), kTwoColours);
    QVERIFY(!dataPage()->isModified());
    QCOMPARE(m_window->tabWidget()->currentIndex(), 0);
}

void TestStandardKeys::saveKeyOnAnUntitledSetGoesThroughSaveAs()
{
    dataPage()->processCommand(CmdNewData);
    m_window->tabWidget()->setCurrentIndex(0);
    const QString path = m_fixture.filePath("first");
    QString caption;
    ModalSequence answers({{QString(), DialogActions::chooseFile(path, nullptr, &caption)}});
    press(QKeySequence::Save);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Save File As"));
    QVERIFY(QFile::exists(path + ".txt"));
    QVERIFY(!dataPage()->dataTable()->isUntitled());
}

void TestStandardKeys::saveAsKeyAsksForANameFromTheDataPage()
{
    const QString path = m_fixture.filePath("colours.txt");
    QVERIFY(writeBytes(path, kTwoColours));
    QVERIFY(dataPage()->openFile(path));
    m_window->tabWidget()->setCurrentIndex(1);
    const QString copy = m_fixture.filePath("copy.csv");
    QString caption;
    ModalSequence answers({{QString(), DialogActions::chooseFile(copy, nullptr, &caption)}});
    press(QKeySequence::SaveAs);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Save File As"));
    QVERIFY(QFile::exists(copy));
    QCOMPARE(dataPage()->dataTable()->filePath(), copy);
    QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("copy.csv - ")));
}

void TestStandardKeys::quitKeyClosesAnUnchangedWindow()
{
    ModalAnswerer unexpected(QStringLiteral("Cancel"), ModalAnswerer::Action(), 500);
    press(QKeySequence::Quit);
    QVERIFY(!unexpected.wasAnswered());
    QVERIFY(!m_window->isVisible());
}

void TestStandardKeys::quitKeyAsksAboutChangesAndCancelKeepsTheWindow()
{
    dataPage()->processCommand(CmdNewData);
    dataPage()->model()->setModified(true);
    ModalSequence answers({{QStringLiteral("Cancel"), {}}});
    press(QKeySequence::Quit);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(
        answers.text(0),
        QStringLiteral("Colour Data has been modified.\nWould you like to save your changes?"));
    QVERIFY(m_window->isVisible());
    QVERIFY(dataPage()->isModified());
}

void TestStandardKeys::altXStillExits()
{
    press(QKeySequence(Qt::ALT + Qt::Key_X));
    QVERIFY(!m_window->isVisible());
}

QTEST_MAIN(TestStandardKeys)
#include "tst_standardkeys.moc"
