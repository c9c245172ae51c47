#include "common/appcontext.h"
#include "common/commandid.h"
#include "app/mainwindow.h"
#include "app/recoveryoffer.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "data/datasethistory.h"
#include "data/datasetrecovery.h"
#include "tables/datacolourtable.h"
#include "tables/recoverycopy.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/modalanswerer.h"

#include <QDir>
#include <QProcess>
#include <QTabWidget>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>

#include <memory>

// The recovery copy of an unsaved data set: written after changes, gone after
// a save, a discard and a normal exit, offered at the next start when its
// Vellora was killed (a child process, killed with SIGKILL), never offered
// while its Vellora still runs, and set aside when it cannot be read.
class TestDataSetRecovery : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void copyFollowsChangesAndHoldsTheSet();
    void copyFollowsUndo();
    void saveRemovesTheCopy();
    void discardRemovesTheCopy();
    void closingThePageRemovesTheCopy();
    void normalExitOfAnotherInstanceLeavesNoCopy();
    void killedInstanceIsOfferedAndRecoveredExactly();
    void liveInstancesDoNotSeeEachOthersCopy();
    void answeringNoRemovesTheCopy();
    void recoveredSetKeepsItsFileName();
    void unreadableCopyIsSetAsideAndReported();

private:
    std::unique_ptr<QProcess> startChild(const QString &mode);
    static bool waitForLine(QProcess *child, const QString &line, QStringList *steps = nullptr);
    QStringList copies() const;
    QStringList rowsOf(CChartDataWindow *page) const;
    void changeAndWaitForCopy(CChartDataWindow *page);

    GuiTestFixture m_fixture;
    std::unique_ptr<CMainWindow> m_window;
};

void TestDataSetRecovery::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    AppContext::setApplicationIdentity();
}

void TestDataSetRecovery::init()
{
    m_fixture.reset();
    QDir(CDataSetRecovery::folder()).removeRecursively();
    m_window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestDataSetRecovery::cleanup()
{
    m_window.reset();
    QDir(CDataSetRecovery::folder()).removeRecursively();
}

std::unique_ptr<QProcess> TestDataSetRecovery::startChild(const QString &mode)
{
    auto child = std::make_unique<QProcess>();
    child->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child->start(QStringLiteral(VELLORA_RECOVERY_CHILD), {mode});
    return child;
}

bool TestDataSetRecovery::waitForLine(QProcess *child, const QString &line, QStringList *steps)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 20000) {
        while (child->canReadLine()) {
            const QString read = QString::fromUtf8(child->readLine()).trimmed();
            if (steps && read.startsWith(QLatin1String("step ")))
                *steps << read.mid(5);
            if (read == line)
                return true;
        }
        if (child->state() == QProcess::NotRunning)
            return false;
        child->waitForReadyRead(100);
    }
    return false;
}

QStringList TestDataSetRecovery::copies() const
{
    return QDir(CDataSetRecovery::folder()).entryList({QStringLiteral("*.txt")}, QDir::Files);
}

QStringList TestDataSetRecovery::rowsOf(CChartDataWindow *page) const
{
    QStringList names;
    for (const CColourTableEntry *entry : page->dataTable()->entries())
        names << entry->name;
    return names;
}

void TestDataSetRecovery::changeAndWaitForCopy(CChartDataWindow *page)
{
    page->history()->add({QStringLiteral("Teal"), 0.0, 0.5, 0.5});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(page->recovery()->copyPath()), 1000);
}

void TestDataSetRecovery::copyFollowsChangesAndHoldsTheSet()
{
    CChartDataWindow *page = m_window->dataPage();
    QVERIFY(copies().isEmpty());
    QElapsedTimer clock;
    clock.start();
    changeAndWaitForCopy(page);
    QVERIFY(clock.elapsed() <= 1000);
    page->history()->add({QStringLiteral("Grey"), 0.5, 0.5, 0.5});
    CRecoveryCopy copy;
    QTRY_VERIFY_WITH_TIMEOUT(CRecoveryCopy::read(page->recovery()->copyPath(), &copy)
                                     == CRecoveryCopy::Read
                                 && copy.dataSet.rows.size() == 2,
                             1000);
    QCOMPARE(copy.dataSet.rows.at(1).name, QStringLiteral("Grey"));
    QCOMPARE(copy.processId, QCoreApplication::applicationPid());
    QVERIFY(qAbs(copy.savedAt.secsTo(QDateTime::currentDateTimeUtc())) < 5);
    // Never among the user's documents.
    QVERIFY(!page->recovery()->copyPath().startsWith(m_fixture.documents()));
    QVERIFY(page->recovery()->copyPath().startsWith(
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
}

void TestDataSetRecovery::copyFollowsUndo()
{
    CChartDataWindow *page = m_window->dataPage();
    changeAndWaitForCopy(page);
    page->history()->add({QStringLiteral("Grey"), 0.5, 0.5, 0.5});
    page->history()->stack()->undo();
    CRecoveryCopy copy;
    QTest::qWait(CDataSetRecovery::kDelayMs + 200);
    QCOMPARE(CRecoveryCopy::read(page->recovery()->copyPath(), &copy), CRecoveryCopy::Read);
    QCOMPARE(copy.dataSet.rows.size(), 1);
    QCOMPARE(copy.dataSet.rows.at(0).name, QStringLiteral("Teal"));
}

void TestDataSetRecovery::saveRemovesTheCopy()
{
    CChartDataWindow *page = m_window->dataPage();
    const QString path = m_fixture.filePath(QStringLiteral("set.txt"));
    FixtureFile::write(path, "0.1, 0.2, 0.3, Soot\n");
    QVERIFY(page->openFile(path));
    changeAndWaitForCopy(page);
    QTest::mouseClick(page->commandButton(CmdSaveData), Qt::LeftButton);
    QVERIFY(!page->isModified());
    QVERIFY(copies().isEmpty());
    QTest::qWait(CDataSetRecovery::kDelayMs + 200);
    QVERIFY(copies().isEmpty());
}

void TestDataSetRecovery::discardRemovesTheCopy()
{
    CChartDataWindow *page = m_window->dataPage();
    changeAndWaitForCopy(page);
    ModalAnswerer answer(QStringLiteral("No"));
    QTest::mouseClick(page->commandButton(CmdNewData), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QVERIFY(copies().isEmpty());
}

void TestDataSetRecovery::closingThePageRemovesTheCopy()
{
    changeAndWaitForCopy(m_window->dataPage());
    QVERIFY(!copies().isEmpty());
    m_window.reset();
    QVERIFY(copies().isEmpty());
    QVERIFY(QDir(CDataSetRecovery::folder()).entryList(QDir::Files).isEmpty()); // nor its lock
}

void TestDataSetRecovery::normalExitOfAnotherInstanceLeavesNoCopy()
{
    std::unique_ptr<QProcess> child = startChild(QStringLiteral("exit"));
    QVERIFY(child->waitForFinished(20000));
    QCOMPARE(child->exitStatus(), QProcess::NormalExit);
    QCOMPARE(child->exitCode(), 0);
    QVERIFY(copies().isEmpty());
    QVERIFY(CDataSetRecovery::leftCopies().isEmpty());
}

void TestDataSetRecovery::killedInstanceIsOfferedAndRecoveredExactly()
{
    std::unique_ptr<QProcess> child = startChild(QStringLiteral("edits"));
    QStringList steps;
    QVERIFY(waitForLine(child.get(), QStringLiteral("done"), &steps));
    QCOMPARE(steps.size(), 6);
    // The rows of one second before the kill are the last step's.
    QTest::qWait(1100);
    child->kill(); // SIGKILL: no destructor runs
    QVERIFY(child->waitForFinished(5000));
    QCOMPARE(child->exitStatus(), QProcess::CrashExit);

    QCOMPARE(CDataSetRecovery::leftCopies().size(), 1);
    CChartDataWindow *page = m_window->dataPage();
    ModalAnswerer answer(QStringLiteral("Yes"));
    QVERIFY(CRecoveryOffer::offerAtStartup(m_window.get(), page));
    QVERIFY(answer.wasAnswered());
    QVERIFY2(answer.text().contains(QStringLiteral("Recover the unsaved data set of ")),
             qPrintable(answer.text()));
    QVERIFY2(answer.text().contains(QStringLiteral(", 3 colours?")), qPrintable(answer.text()));
    QCOMPARE(rowsOf(page).join(QLatin1Char('|')), steps.last());
    QCOMPARE(rowsOf(page), QStringList({"Amber", "Grey", "Teal"}));
    QCOMPARE(page->dataTable()->at(0)->red, 1.0);
    QVERIFY(page->isModified());
    // The recovered set has a copy (now this instance's), and is offered
    // no more.
    QVERIFY(QFileInfo::exists(page->recovery()->copyPath()));
    QCOMPARE(copies().size(), 1);
    QVERIFY(CDataSetRecovery::leftCopies().isEmpty());
}

void TestDataSetRecovery::liveInstancesDoNotSeeEachOthersCopy()
{
    std::unique_ptr<QProcess> child = startChild(QStringLiteral("hold"));
    QVERIFY(waitForLine(child.get(), QStringLiteral("done")));
    changeAndWaitForCopy(m_window->dataPage());
    QCOMPARE(copies().size(), 2);
    QVERIFY(CDataSetRecovery::leftCopies().isEmpty());
    // Even past the age at which a lock would count as stale by default:
    // only a process that is gone frees a copy.
    const QStringList locks =
        QDir(CDataSetRecovery::folder()).entryList({QStringLiteral("*.lock")}, QDir::Files);
    QCOMPARE(locks.size(), 2);
    for (const QString &name : locks) {
        QFile lock(QDir(CDataSetRecovery::folder()).filePath(name));
        QVERIFY(lock.open(QIODevice::ReadOnly));
        QVERIFY(lock.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                                 QFileDevice::FileModificationTime));
    }
    {
        ModalAnswerer unexpected(QStringLiteral("No"), ModalAnswerer::Action(), 300);
        QVERIFY(!CRecoveryOffer::offerAtStartup(m_window.get(), m_window->dataPage()));
        QVERIFY(!unexpected.wasAnswered());
    }
    child->kill();
    QVERIFY(child->waitForFinished(5000));
    QCOMPARE(CDataSetRecovery::leftCopies().size(), 1);
}

void TestDataSetRecovery::answeringNoRemovesTheCopy()
{
    std::unique_ptr<QProcess> child = startChild(QStringLiteral("hold"));
    QVERIFY(waitForLine(child.get(), QStringLiteral("done")));
    child->kill();
    QVERIFY(child->waitForFinished(5000));
    ModalAnswerer answer(QStringLiteral("No"));
    QVERIFY(!CRecoveryOffer::offerAtStartup(m_window.get(), m_window->dataPage()));
    QVERIFY(answer.wasAnswered());
    QVERIFY2(answer.text().contains(QStringLiteral(", 1 colour?")), qPrintable(answer.text()));
    QVERIFY(copies().isEmpty());
    QVERIFY(rowsOf(m_window->dataPage()).isEmpty());
    QVERIFY(!m_window->dataPage()->isModified());
}

void TestDataSetRecovery::recoveredSetKeepsItsFileName()
{
    QVERIFY(QDir().mkpath(CDataSetRecovery::folder()));
    CRecoveryCopy left;
    left.dataSet.rows = {{QStringLiteral("Soot"), 0.1, 0.1, 0.1}};
    left.dataSet.filePath = m_fixture.filePath(QStringLiteral("client.txt"));
    left.dataSet.header = QStringLiteral("# mine");
    left.savedAt = QDateTime::currentDateTimeUtc();
    left.processId = 999999;
    QVERIFY(left.write(CDataSetRecovery::folder() + QStringLiteral("/dataset-1-gone.txt")));
    ModalAnswerer answer(QStringLiteral("Yes"));
    QVERIFY(CRecoveryOffer::offerAtStartup(m_window.get(), m_window->dataPage()));
    CChartDataWindow *page = m_window->dataPage();
    QCOMPARE(page->dataTable()->filePath(), left.dataSet.filePath);
    QCOMPARE(page->dataTable()->header(), QStringLiteral("# mine"));
    QCOMPARE(rowsOf(page), QStringList({"Soot"}));
    m_window->tabWidget()->setCurrentWidget(page);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("client.txt - ") + AppContext::versionTitle());
    // Saving writes to the original file and ends the copy.
    QTest::mouseClick(page->commandButton(CmdSaveData), Qt::LeftButton);
    QVERIFY(FixtureFile::read(left.dataSet.filePath).contains("Soot"));
    QVERIFY(copies().isEmpty());
}

void TestDataSetRecovery::unreadableCopyIsSetAsideAndReported()
{
    QVERIFY(QDir().mkpath(CDataSetRecovery::folder()));
    const QString path = CDataSetRecovery::folder() + QStringLiteral("/dataset-7-torn.txt");
    FixtureFile::write(path, "#@vellora-recovery 1\nnot a colour at all\n");
    ModalAnswerer answer(QStringLiteral("OK"));
    QVERIFY(!CRecoveryOffer::offerAtStartup(m_window.get(), m_window->dataPage()));
    QVERIFY(answer.wasAnswered());
    QVERIFY(!QFileInfo::exists(path));
    const QString aside = path + QStringLiteral(".unreadable");
    QVERIFY(QFileInfo::exists(aside));
    QVERIFY2(answer.text().contains(aside), qPrintable(answer.text()));
    QCOMPARE(FixtureFile::read(aside), QByteArray("#@vellora-recovery 1\nnot a colour at all\n"));
    QVERIFY(CDataSetRecovery::leftCopies().isEmpty());
}

QTEST_MAIN(TestDataSetRecovery)
#include "tst_datasetrecovery.moc"
