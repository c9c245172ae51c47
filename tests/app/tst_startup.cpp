#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"

#include "support/guitestfixture.h"
#include "support/storedsettings.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>
#include <QtTest>

namespace {

// Answers every message box that appears while it lives with OK, keeping
// what each one said, in order.
class MessageBoxLog : public QObject
{
public:
    struct Entry
    {
        QString title;
        QString text;
        QMessageBox::Icon icon;
        QStringList buttons;
        bool hasParent;
    };

    MessageBoxLog()
    {
        connect(&m_timer, &QTimer::timeout, this, &MessageBoxLog::poll);
        m_timer.start(20);
    }

    QList<Entry> entries;

private:
    void poll()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        QStringList buttons;
        for (QAbstractButton *button : box->buttons()) {
            const bool ok = box->standardButton(button) == QMessageBox::Ok;
            buttons << (ok ? QStringLiteral("OK") : button->text());
        }
        entries.append({box->windowTitle(), box->text(), box->icon(), buttons,
                        box->parentWidget() != nullptr});
        if (QAbstractButton *ok = box->button(QMessageBox::Ok))
            ok->click();
        else
            box->reject();
    }

    QTimer m_timer;
};

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void firstStartCreatesFoldersAndWritesSampleTable();
    void sampleCreatedIsStoredAtTheNextSave();
    void chosenLibraryFolderReceivesTheSample();
    void missingChosenLibraryFolderIsNotCreatedAndSampleSilentlySkipped();
    void sampleIsNotWrittenAgainOnceCreated();
    void existingSampleFileIsNotOverwritten();
    void chosenDataFolderIsNeitherCreatedNorTested();
    void unwritableDocumentsFolderGivesTwoMessagesAndTheWindowStillOpens();

private:
    QString dataFolder() const { return m_documents + "/Vellora"; }
    QString libraryFolder() const { return m_documents + "/Vellora/ColourLibrary"; }

    GuiTestFixture m_fixture;
    QString m_documents;
};

void TestStartup::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    m_documents = m_fixture.documents();
    QVERIFY(!m_documents.isEmpty());
}

void TestStartup::init()
{
    m_fixture.reset();
    QDir documents(m_documents);
    QVERIFY(documents.removeRecursively());
    QVERIFY(QDir().mkpath(m_documents));
}

void TestStartup::firstStartCreatesFoldersAndWritesSampleTable()
{
    MessageBoxLog log;
    CAppSettings settings;
    QVERIFY(log.entries.isEmpty());
    QVERIFY(QFileInfo(dataFolder()).isDir());
    QVERIFY(QFileInfo(libraryFolder()).isDir());
    QFileInfo sample(libraryFolder() + "/WebColours.clrtable");
    QVERIFY(sample.isFile());
    QVERIFY(sample.size() > 0);
    QCOMPARE(settings.dataDir, dataFolder());
    QCOMPARE(settings.libraryDir, libraryFolder());
    QVERIFY(settings.sampleCreated);
}

void TestStartup::sampleCreatedIsStoredAtTheNextSave()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(window.settings()->sampleCreated);
    // In memory only until the next save.
    QVERIFY(!StoredSettings::contains("Sample/created"));
    window.show();
    QVERIFY(window.close());
    QCOMPARE(StoredSettings::value("Sample/created").toBool(), true);
}

void TestStartup::chosenLibraryFolderReceivesTheSample()
{
    QTemporaryDir chosen;
    StoredSettings::setValue("ColourLibrary/directory", chosen.path());
    StoredSettings::setValue("Sample/created", false);
    CAppSettings settings;
    QVERIFY(QFileInfo(chosen.path() + "/WebColours.clrtable").isFile());
    QVERIFY(settings.sampleCreated);
    QCOMPARE(settings.libraryDir, chosen.path());
    // The default library folder is only made when no folder was chosen.
    QVERIFY(!QFileInfo::exists(libraryFolder()));
    QVERIFY(QFileInfo(dataFolder()).isDir());
}

void TestStartup::missingChosenLibraryFolderIsNotCreatedAndSampleSilentlySkipped()
{
    QTemporaryDir parent;
    const QString missing = parent.path() + "/gone";
    StoredSettings::setValue("ColourLibrary/directory", missing);
    MessageBoxLog log;
    CAppSettings settings;
    QVERIFY(!QFileInfo::exists(missing));
    QVERIFY(!settings.sampleCreated);
    QVERIFY(log.entries.isEmpty());
    settings.save(nullptr);
    QCOMPARE(StoredSettings::value("Sample/created").toBool(), false);
}

void TestStartup::sampleIsNotWrittenAgainOnceCreated()
{
    StoredSettings::setValue("Sample/created", true);
    CAppSettings settings;
    QVERIFY(QFileInfo(libraryFolder()).isDir());
    QVERIFY(!QFileInfo::exists(libraryFolder() + "/WebColours.clrtable"));
    QVERIFY(settings.sampleCreated);
}

void TestStartup::existingSampleFileIsNotOverwritten()
{
    QVERIFY(QDir().mkpath(libraryFolder()));
    QFile file(libraryFolder() + "/WebColours.clrtable");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("mine\n");
    file.close();
    CAppSettings settings;
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("mine\n"));
    QVERIFY(!settings.sampleCreated);
}

void TestStartup::chosenDataFolderIsNeitherCreatedNorTested()
{
    QTemporaryDir parent;
    const QString chosen = parent.path() + "/sets";
    StoredSettings::setValue("DataDirectory/directory", chosen);
    MessageBoxLog log;
    CAppSettings settings;
    QCOMPARE(settings.dataDir, chosen);
    QVERIFY(!QFileInfo::exists(chosen));
    QVERIFY(log.entries.isEmpty());
}

void TestStartup::unwritableDocumentsFolderGivesTwoMessagesAndTheWindowStillOpens()
{
    // Root may write anywhere, so the folder is blocked by a file of its name.
    QFile blocker(dataFolder());
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    MessageBoxLog log;
    CMainWindow window(AppContext::versionTitle());
    window.show();
    QVERIFY(window.isVisible());

    QCOMPARE(log.entries.size(), 2);
    const QString tail = QStringLiteral(
        "\nPlease ensure that the hard drive is neither full nor write-protected.\n\n");
    QCOMPARE(log.entries.at(0).text, "Unable to create the Vellora Data folder:\n  "
                                         + QDir::toNativeSeparators(dataFolder()) + tail);
    QCOMPARE(log.entries.at(1).text, "Unable to create the Colour Tables folder:\n  "
                                         + QDir::toNativeSeparators(libraryFolder()) + tail);
    for (const MessageBoxLog::Entry &entry : log.entries) {
        QCOMPARE(entry.title, QStringLiteral("Vellora"));
        QCOMPARE(entry.icon, QMessageBox::Critical);
        QCOMPARE(entry.buttons, QStringList{"OK"});
        QVERIFY(!entry.hasParent);
    }
    CAppSettings *settings = window.settings();
    QCOMPARE(settings->dataDir, QString());
    QCOMPARE(settings->dataDefaultDir, QString());
    QCOMPARE(settings->libraryDir, QString());
    QCOMPARE(settings->libraryDefaultDir, QString());
    QVERIFY(!settings->sampleCreated);
}

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
