#include "app/appsettings.h"
#include "library/libcolourtabledlg.h"
#include "library/libcolourtabletabgeneral.h"
#include "sample/libraryactions.h"
#include "sample/libraryselector.h"
#include "tables/libcolourtable.h"

#include "support/filesizelimit.h"
#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/modalsequence.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

using Step = ModalSequence::Step;

namespace {
const QByteArray kBase("# Base\n1.0000, 0.0000, 0.0000, Red\n0.0000, 0.0000, 1.0000, Blue\n");
const RgbColour kOrange{1.0, 128 / 255.0, 0.0};
} // namespace

// The sampling page's two library commands without the page: the dialogs
// they run, what they write, and what they tell their owner.
class TestLibraryActions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void maintenanceThatChangesNothingSignalsNothing();
    void maintenanceThatMakesATableSignalsTheChange();
    void maintenanceHelpIsSignalled();
    void maintenanceWithoutSettingsOpensNothing();
    void addWithoutASampleSaysWhatToDoFirst();
    void addedColourIsWrittenToTheSelectedTable();
    void cancelledAddWritesNothing();
    void entryThatCannotBeWrittenIsTakenOutAgain();

private:
    bool maintain(const std::function<void(CLibColourTableDlg *)> &inside);
    QString lib(const QString &file) const { return m_settings->libraryDir + "/" + file; }

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<QWidget> m_host;
    CLibrarySelector *m_library = nullptr;
    CLibraryActions *m_actions = nullptr;
};

void TestLibraryActions::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestLibraryActions::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_settings->libraryDir = m_fixture.folder() + QStringLiteral("/Library");
    QDir(m_settings->libraryDir).removeRecursively();
    QVERIFY(QDir().mkpath(m_settings->libraryDir));
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Base.clrtable")), kBase));
    m_settings->selectedTable = QFileInfo(lib(QStringLiteral("Base.clrtable"))).canonicalFilePath();
    m_host = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(m_host.get());
    m_library = new CLibrarySelector(m_settings.get(), m_host.get());
    layout->addWidget(m_library);
    connect(m_library, &CLibrarySelector::tableSelected, m_library,
            [this](int index) { m_library->loadTable(index); });
    m_actions = new CLibraryActions(m_settings.get(), m_library, m_host.get());
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host.get()));
    m_library->fillLibraryCombo();
    QCOMPARE(m_library->table().count(), 2);
}

void TestLibraryActions::cleanup()
{
    m_host.reset();
    m_settings.reset();
}

// Runs the maintenance; `inside` acts on the dialog, which is then closed
// with "&Close".
bool TestLibraryActions::maintain(const std::function<void(CLibColourTableDlg *)> &inside)
{
    bool seen = false;
    ModalAnswerer answer(QStringLiteral("Close"), [&seen, &inside](QWidget *dialog) {
        auto *maintenance = qobject_cast<CLibColourTableDlg *>(dialog);
        if (!maintenance)
            return;
        seen = true;
        if (inside)
            inside(maintenance);
    });
    m_actions->maintain();
    return answer.wasAnswered() && seen;
}

void TestLibraryActions::maintenanceThatChangesNothingSignalsNothing()
{
    QSignalSpy changed(m_actions, &CLibraryActions::libraryChanged);
    QVERIFY(maintain({}));
    QCOMPARE(changed.count(), 0);
}

void TestLibraryActions::maintenanceThatMakesATableSignalsTheChange()
{
    QSignalSpy changed(m_actions, &CLibraryActions::libraryChanged);
    QVERIFY(maintain([](CLibColourTableDlg *dialog) {
        ModalSequence answers({Step{"OK", DialogActions::typeText(QStringLiteral("Autumn"))},
                               Step{"OK", {}}});
        QTest::mouseClick(dialog->generalTab()->button(CLibColourTableTabGeneral::New),
                          Qt::LeftButton);
    }));
    QCOMPARE(changed.count(), 1);
    QVERIFY(QFileInfo::exists(lib(QStringLiteral("Autumn.clrtable"))));
}

void TestLibraryActions::maintenanceHelpIsSignalled()
{
    QSignalSpy help(m_actions, &CLibraryActions::displayHelpSignal);
    QVERIFY(maintain([](CLibColourTableDlg *dialog) {
        QTest::mouseClick(dialog->helpButton(), Qt::LeftButton);
    }));
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.at(0).at(0).toString(), QStringLiteral("library.html#libMaintTabA"));
}

void TestLibraryActions::maintenanceWithoutSettingsOpensNothing()
{
    CLibraryActions actions(nullptr, m_library, m_host.get());
    QSignalSpy changed(&actions, &CLibraryActions::libraryChanged);
    ModalAnswerer answer(QStringLiteral("Close"), ModalAnswerer::Action(), 300);
    actions.maintain();
    QVERIFY(!answer.wasAnswered());
    QCOMPARE(changed.count(), 0);
}

void TestLibraryActions::addWithoutASampleSaysWhatToDoFirst()
{
    ModalAnswerer answer(QStringLiteral("OK"));
    m_actions->addSample(kOrange, false);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("Please  first match the colour ...."));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))), kBase);
}

void TestLibraryActions::addedColourIsWrittenToTheSelectedTable()
{
    QString title;
    ModalAnswerer answer(QStringLiteral("OK"), [&title](QWidget *dialog) {
        title = dialog->windowTitle();
        DialogActions::typeText(QStringLiteral("Orange"))(dialog);
    });
    m_actions->addSample(kOrange, true);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(title, QStringLiteral("Vellora - Table Add Colour"));
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))),
             kBase + QByteArray("1.0000, 0.5020, 0.0000, Orange\n"));
    QCOMPARE(m_library->table().count(), 3);
}

void TestLibraryActions::cancelledAddWritesNothing()
{
    ModalAnswerer answer(QStringLiteral("Cancel"), DialogActions::typeText(QStringLiteral("Nope")));
    m_actions->addSample(kOrange, true);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))), kBase);
    QCOMPARE(m_library->table().count(), 2);
}

void TestLibraryActions::entryThatCannotBeWrittenIsTakenOutAgain()
{
    QByteArray big("# Big\n");
    for (int i = 0; i < 60; ++i)
        big += "0.5000, 0.5000, 0.5000, Grey number " + QByteArray::number(i) + '\n';
    QVERIFY(FixtureFile::write(lib(QStringLiteral("Base.clrtable")), big));
    m_library->fillLibraryCombo();
    QCOMPARE(m_library->table().count(), 60);
    ModalAnswerer answer(QStringLiteral("OK"));
    bool written = true;
    {
        FileSizeLimit limit(1024);
        QVERIFY(limit.isActive());
        written = m_actions->addEntry(QStringLiteral("Orange"), kOrange);
    }
    QVERIFY(!written);
    QVERIFY(answer.wasAnswered());
    QVERIFY2(answer.text().startsWith(QStringLiteral("Error, writing to file: ")),
             qPrintable(answer.text()));
    QCOMPARE(m_library->table().count(), 60);
    QCOMPARE(FixtureFile::read(lib(QStringLiteral("Base.clrtable"))), big);
    QVERIFY(m_actions->addEntry(QStringLiteral("Orange"), kOrange));
    QCOMPARE(m_library->table().count(), 61);
    QCOMPARE(m_library->table().at(60)->name, QStringLiteral("Orange"));
}

QTEST_MAIN(TestLibraryActions)
#include "tst_libraryactions.moc"
