#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/samplefixture.h"
#include "support/storedsettings.h"

#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QtTest>

using namespace SampleFixture;

namespace {

QRect screenRect()
{
    return QGuiApplication::primaryScreen()->geometry();
}

} // namespace

class TestAppSettings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void absentKeysTakeTheirDefaults();
    void storedKeysAreRead();
    void valuesAreNotRangeChecked();
    void wrongTypesReadAsZeroOrFalse();
    void saveWritesEveryKey_data();
    void saveWritesEveryKey();
    void profileConversionIsOffByDefault();
    void profileConversionIsReadAndSaved();
    void saveWritesMainWindowRectFromFramePositionAndClientSize();
    void nothingIsWrittenBeforeSave();

    void sameImageTwiceLeavesOneEntryAtFront();
    void seventhImageDropsTheOldest();
    void addRecentFileMovesARepeatToTheFront();
    void addRecentFileKeepsTheSixNewest();
    void addingARecentFileSavesAtOnce();
    void removingARecentFileSavesAtOnce();
    void clearingRecentFilesSavesAtOnce();

    void absentMainWindowRectFollowsTheScreen();
    void rectPartlyOffScreenRightIsShiftedLeftKeepingItsSize();
    void rectSmallerThan64IsWidened();
    void rectSmallerThanWidgetMinimumIsWidened();
    void fitRectToScreen_data();
    void fitRectToScreen();
    void helpLayoutDefaultsFollowTheReference();
    void helpLayoutStoredValuesAreRead();

    void matchUnitsChangeIsStoredWhenTheWindowCloses();
    void matchUnitsChangeIsLostWithoutClose();

private:
    QString writeImage(const QString &name);

    GuiTestFixture m_fixture;
    QString m_documents;
};

void TestAppSettings::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    m_documents = m_fixture.documents();
    QVERIFY(!m_documents.isEmpty());
}

void TestAppSettings::init()
{
    m_fixture.reset();
}

// A real picture file, each one with its own colours.
QString TestAppSettings::writeImage(const QString &name)
{
    const QString path = m_fixture.filePath(name);
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(qRgb(int(qHash(name) % 256), 40, 200));
    return ImageWriter::write(image, path) ? path : QString();
}

void TestAppSettings::absentKeysTakeTheirDefaults()
{
    CAppSettings settings;
    const QString data = m_documents + "/Vellora";
    QCOMPARE(settings.workDir, QDir::toNativeSeparators(m_documents));
    QVERIFY(settings.recentFiles.isEmpty());
    QCOMPARE(settings.dataDefaultDir, data);
    QCOMPARE(settings.dataDir, data);
    QCOMPARE(settings.libraryDefaultDir, data + "/ColourLibrary");
    QCOMPARE(settings.libraryDir, data + "/ColourLibrary");
    QCOMPARE(settings.selectedTable, QString());
    QCOMPARE(settings.maxRecordsDisplay, 4);
    QCOMPARE(settings.rgbFormat, 0);
    QCOMPARE(settings.rgbAverage, true);
    QCOMPARE(settings.rgbDifference, true);
    QCOMPARE(settings.showStartTip, true);
    QCOMPARE(settings.startTipIndex, 0);
    QVERIFY(settings.store);
    QCOMPARE(settings.store->organizationName(), QStringLiteral("Tessaline"));
    QCOMPARE(settings.store->applicationName(), QStringLiteral("Vellora"));
}

void TestAppSettings::storedKeysAreRead()
{
    QTemporaryDir data;
    QTemporaryDir library;
    StoredSettings::setValue("Directory/workdir", "/pictures");
    StoredSettings::setValue("Directory/recentFilesList", QStringList{"/a.png", "/b.png"});
    StoredSettings::setValue("DataDirectory/dfltDirectory", data.path());
    StoredSettings::setValue("DataDirectory/directory", QString(data.path() + "/sets"));
    StoredSettings::setValue("ColourLibrary/dfltDirectory", library.path());
    StoredSettings::setValue("ColourLibrary/directory", QString(library.path() + "/chosen"));
    StoredSettings::setValue("ColourLibrary/selected", "/lib/Reds.clrtable");
    StoredSettings::setValue("Sample/created", true);
    StoredSettings::setValue("General/maxRecordsDisplay", 7);
    StoredSettings::setValue("Colour/rgbFormat", 2);
    StoredSettings::setValue("Colour/rgbAverage", false);
    StoredSettings::setValue("Colour/rgbDifference", false);
    StoredSettings::setValue("General/showStartTip", false);
    StoredSettings::setValue("General/startTipIndex", 12);

    CAppSettings settings;
    QCOMPARE(settings.workDir, QStringLiteral("/pictures"));
    QCOMPARE(settings.recentFiles, (QStringList{"/a.png", "/b.png"}));
    QCOMPARE(settings.dataDefaultDir, data.path());
    QCOMPARE(settings.dataDir, data.path() + "/sets");
    QCOMPARE(settings.libraryDefaultDir, library.path());
    QCOMPARE(settings.libraryDir, library.path() + "/chosen");
    QCOMPARE(settings.selectedTable, QStringLiteral("/lib/Reds.clrtable"));
    QCOMPARE(settings.sampleCreated, true);
    QCOMPARE(settings.maxRecordsDisplay, 7);
    QCOMPARE(settings.rgbFormat, 2);
    QCOMPARE(settings.rgbAverage, false);
    QCOMPARE(settings.rgbDifference, false);
    QCOMPARE(settings.showStartTip, false);
    QCOMPARE(settings.startTipIndex, 12);
    // Folders the user chose are neither created nor tested.
    QVERIFY(!QFileInfo::exists(data.path() + "/sets"));
    QVERIFY(!QFileInfo::exists(library.path() + "/chosen"));
}

void TestAppSettings::valuesAreNotRangeChecked()
{
    StoredSettings::setValue("General/maxRecordsDisplay", 12);
    StoredSettings::setValue("Colour/rgbFormat", 5);
    CAppSettings settings;
    QCOMPARE(settings.maxRecordsDisplay, 12);
    QCOMPARE(settings.rgbFormat, 5);
}

void TestAppSettings::wrongTypesReadAsZeroOrFalse()
{
    StoredSettings::setValue("General/maxRecordsDisplay", "many");
    StoredSettings::setValue("Colour/rgbAverage", QStringList{"yes", "no"});
    CAppSettings settings;
    QCOMPARE(settings.maxRecordsDisplay, 0);
    QCOMPARE(settings.rgbAverage, false);
}

void TestAppSettings::profileConversionIsOffByDefault()
{
    CAppSettings settings;
    QCOMPARE(settings.convertToSrgb, false);
    settings.save(nullptr);
    QCOMPARE(StoredSettings::value("Colour/convertToSrgb").toBool(), false);
    QVERIFY(StoredSettings::contains("Colour/convertToSrgb"));
}

void TestAppSettings::profileConversionIsReadAndSaved()
{
    StoredSettings::setValue("Colour/convertToSrgb", true);
    {
        CAppSettings settings;
        QCOMPARE(settings.convertToSrgb, true);
        settings.convertToSrgb = false;
        QCOMPARE(StoredSettings::value("Colour/convertToSrgb").toBool(), true);
        settings.save(nullptr);
    }
    QCOMPARE(StoredSettings::value("Colour/convertToSrgb").toBool(), false);
}

void TestAppSettings::saveWritesEveryKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("workdir") << "Directory/workdir" << QVariant("/work/images");
    QTest::newRow("recent") << "Directory/recentFilesList" << QVariant(QStringList{"/x.png"});
    QTest::newRow("sample") << "Sample/created" << QVariant(true);
    QTest::newRow("data default") << "DataDirectory/dfltDirectory" << QVariant("/d/default");
    QTest::newRow("data") << "DataDirectory/directory" << QVariant("/d/chosen");
    QTest::newRow("library default") << "ColourLibrary/dfltDirectory" << QVariant("/l/default");
    QTest::newRow("library") << "ColourLibrary/directory" << QVariant("/l/chosen");
    QTest::newRow("selected") << "ColourLibrary/selected" << QVariant("/l/chosen/Blues.clrtable");
    QTest::newRow("max records") << "General/maxRecordsDisplay" << QVariant(8);
    QTest::newRow("rgb format") << "Colour/rgbFormat" << QVariant(1);
    QTest::newRow("rgb average") << "Colour/rgbAverage" << QVariant(false);
    QTest::newRow("match units") << "Colour/rgbDifference" << QVariant(false);
    QTest::newRow("show tip") << "General/showStartTip" << QVariant(false);
    QTest::newRow("tip index") << "General/startTipIndex" << QVariant(5);
}

void TestAppSettings::saveWritesEveryKey()
{
    QFETCH(QString, key);
    QFETCH(QVariant, expected);
    {
        CAppSettings settings;
        settings.workDir = "/work/images";
        settings.recentFiles = QStringList{"/x.png"};
        settings.sampleCreated = true;
        settings.dataDefaultDir = "/d/default";
        settings.dataDir = "/d/chosen";
        settings.libraryDefaultDir = "/l/default";
        settings.libraryDir = "/l/chosen";
        settings.selectedTable = "/l/chosen/Blues.clrtable";
        settings.maxRecordsDisplay = 8;
        settings.rgbFormat = 1;
        settings.rgbAverage = false;
        settings.rgbDifference = false;
        settings.showStartTip = false;
        settings.startTipIndex = 5;
        QVERIFY(!StoredSettings::contains(key));
        settings.save(nullptr);
    }
    QVERIFY(StoredSettings::contains(key));
    const QVariant stored = StoredSettings::value(key);
    if (expected.type() == QVariant::StringList)
        QCOMPARE(stored.toStringList(), expected.toStringList());
    else if (expected.type() == QVariant::Bool)
        QCOMPARE(stored.toBool(), expected.toBool());
    else if (expected.type() == QVariant::Int)
        QCOMPARE(stored.toInt(), expected.toInt());
    else
        QCOMPARE(stored.toString(), expected.toString());
}

void TestAppSettings::saveWritesMainWindowRectFromFramePositionAndClientSize()
{
    CMainWindow window(AppContext::versionTitle());
    window.resize(500, 400);
    window.move(30, 40);
    window.settings()->save(&window);
    QCOMPARE(StoredSettings::value("Layout/mainwindow").toRect(), QRect(window.pos(), QSize(500, 400)));
    // No help window has been opened, so its layout is not written.
    QVERIFY(!StoredSettings::contains("Layout/helpwindow"));
    QVERIFY(!StoredSettings::contains("Layout/helpsplitA"));
}

void TestAppSettings::nothingIsWrittenBeforeSave()
{
    CAppSettings settings;
    settings.maxRecordsDisplay = 6;
    QVERIFY(!StoredSettings::contains("General/maxRecordsDisplay"));
    QVERIFY(!StoredSettings::contains("Directory/workdir"));
}

void TestAppSettings::sameImageTwiceLeavesOneEntryAtFront()
{
    const QString first = writeImage(QStringLiteral("twice.png"));
    const QString other = writeImage(QStringLiteral("between.png"));
    QVERIFY(!first.isEmpty() && !other.isEmpty());
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    for (const QString &path : {first, other, first}) {
        QVERIFY(openThroughDialog(window, path));
        QCOMPARE(window.settings()->recentFiles.first(), path);
    }
    QCOMPARE(window.settings()->recentFiles, (QStringList{first, other}));
    QCOMPARE(StoredSettings::value("Directory/recentFilesList").toStringList(),
             (QStringList{first, other}));
}

void TestAppSettings::seventhImageDropsTheOldest()
{
    QStringList opened;
    for (int i = 1; i <= 7; ++i) {
        opened.prepend(writeImage(QStringLiteral("picture%1.png").arg(i)));
        QVERIFY(!opened.first().isEmpty());
    }
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(showWindow(window));
    for (int i = 6; i >= 0; --i) {
        QVERIFY(openThroughDialog(window, opened.at(i)));
        QCOMPARE(window.settings()->recentFiles.first(), opened.at(i));
        QVERIFY(window.settings()->recentFiles.size() <= 6);
    }
    const QStringList newestSix = opened.mid(0, 6);
    QCOMPARE(window.settings()->recentFiles, newestSix);
    QVERIFY(!window.settings()->recentFiles.contains(opened.last()));
    QCOMPARE(StoredSettings::value("Directory/recentFilesList").toStringList(), newestSix);
}

void TestAppSettings::addRecentFileMovesARepeatToTheFront()
{
    CAppSettings settings;
    settings.addRecentFile(nullptr, "/img/a.png");
    settings.addRecentFile(nullptr, "/img/b.png");
    settings.addRecentFile(nullptr, "/img/a.png");
    QCOMPARE(settings.recentFiles, (QStringList{"/img/a.png", "/img/b.png"}));
}

void TestAppSettings::addRecentFileKeepsTheSixNewest()
{
    CAppSettings settings;
    for (int i = 1; i <= 7; ++i) {
        settings.addRecentFile(nullptr, QStringLiteral("/img/%1.png").arg(i));
        QVERIFY(settings.recentFiles.size() <= 6);
    }
    QCOMPARE(settings.recentFiles,
             (QStringList{"/img/7.png", "/img/6.png", "/img/5.png", "/img/4.png", "/img/3.png",
                          "/img/2.png"}));
    settings.addRecentFile(nullptr, "/img/8.png");
    QCOMPARE(settings.recentFiles.size(), 6);
    QCOMPARE(settings.recentFiles.last(), QStringLiteral("/img/3.png"));
}

void TestAppSettings::addingARecentFileSavesAtOnce()
{
    CAppSettings settings;
    settings.rgbFormat = 2;
    settings.addRecentFile(nullptr, "/img/a.png");
    QCOMPARE(StoredSettings::value("Directory/recentFilesList").toStringList(), QStringList{"/img/a.png"});
    // A save writes everything, not only the list.
    QCOMPARE(StoredSettings::value("Colour/rgbFormat").toInt(), 2);
}

void TestAppSettings::removingARecentFileSavesAtOnce()
{
    CAppSettings settings;
    settings.addRecentFile(nullptr, "/img/a.png");
    settings.addRecentFile(nullptr, "/img/b.png");
    settings.removeRecentFile(nullptr, "/img/a.png");
    QCOMPARE(settings.recentFiles, QStringList{"/img/b.png"});
    QCOMPARE(StoredSettings::value("Directory/recentFilesList").toStringList(), QStringList{"/img/b.png"});
}

void TestAppSettings::clearingRecentFilesSavesAtOnce()
{
    CAppSettings settings;
    settings.addRecentFile(nullptr, "/img/a.png");
    settings.clearRecentFiles(nullptr);
    QVERIFY(settings.recentFiles.isEmpty());
    QVERIFY(StoredSettings::value("Directory/recentFilesList").toStringList().isEmpty());
}

void TestAppSettings::absentMainWindowRectFollowsTheScreen()
{
    const QRect screen = screenRect();
    CAppSettings settings;
    QWidget widget;
    const QRect expected(screen.width() / 20, screen.height() / 10, screen.width() * 90 / 100,
                         screen.height() * 80 / 100);
    QCOMPARE(settings.restoreMainWindowRect(&widget), expected);
}

void TestAppSettings::rectPartlyOffScreenRightIsShiftedLeftKeepingItsSize()
{
    const QRect screen = screenRect();
    StoredSettings::setValue("Layout/mainwindow", QRect(screen.right() - 100, 50, 300, 200));
    CAppSettings settings;
    QWidget widget;
    const QRect rect = settings.restoreMainWindowRect(&widget);
    QCOMPARE(rect.size(), QSize(300, 200));
    QCOMPARE(rect.right(), screen.right());
    QCOMPARE(rect.top(), 50);

    // The main window applies it at construction.
    CMainWindow window(AppContext::versionTitle());
    QCOMPARE(window.size(), QSize(300, 200));
    QCOMPARE(window.pos(), rect.topLeft());
}

void TestAppSettings::rectSmallerThan64IsWidened()
{
    StoredSettings::setValue("Layout/mainwindow", QRect(10, 20, 30, 12));
    CAppSettings settings;
    QWidget widget;
    QCOMPARE(settings.restoreMainWindowRect(&widget), QRect(10, 20, 64, 64));
}

void TestAppSettings::rectSmallerThanWidgetMinimumIsWidened()
{
    StoredSettings::setValue("Layout/mainwindow", QRect(10, 20, 150, 100));
    CAppSettings settings;
    QWidget widget;
    widget.setMinimumSize(200, 40);
    QCOMPARE(settings.restoreMainWindowRect(&widget), QRect(10, 20, 200, 100));
    widget.setMinimumSize(40, 180);
    QCOMPARE(settings.restoreMainWindowRect(&widget), QRect(10, 20, 150, 180));
}

void TestAppSettings::fitRectToScreen_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("expected");
    // Against an 800 x 600 screen at the origin.
    QTest::newRow("inside stays") << QRect(10, 10, 300, 200) << QRect(10, 10, 300, 200);
    QTest::newRow("off right shifts") << QRect(700, 10, 300, 200) << QRect(500, 10, 300, 200);
    QTest::newRow("off left moves to edge") << QRect(-50, 10, 300, 200) << QRect(0, 10, 300, 200);
    QTest::newRow("off left and too wide") << QRect(-50, 10, 900, 200) << QRect(0, 10, 800, 200);
    // Wider than the screen and off to the right: the width becomes the
    // screen's but the rectangle still starts left of it.
    QTest::newRow("off right and too wide") << QRect(100, 10, 1000, 200) << QRect(-200, 10, 800, 200);
    QTest::newRow("off bottom shifts up") << QRect(10, 500, 300, 200) << QRect(10, 400, 300, 200);
    QTest::newRow("off top moves to edge") << QRect(10, -30, 300, 200) << QRect(10, 0, 300, 200);
    QTest::newRow("off top and too tall") << QRect(10, -30, 300, 700) << QRect(10, 0, 300, 600);
    QTest::newRow("too small widened first") << QRect(780, 590, 10, 10) << QRect(736, 536, 64, 64);
}

void TestAppSettings::fitRectToScreen()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, expected);
    QCOMPARE(CAppSettings::fitRectToScreen(rect, QSize(64, 64), QRect(0, 0, 800, 600)), expected);
}

void TestAppSettings::helpLayoutDefaultsFollowTheReference()
{
    CAppSettings settings;
    int a = 0;
    int b = 0;
    const QRect rect = settings.restoreHelpLayout(QRect(0, 0, 400, 300), nullptr, &a, &b);
    QCOMPARE(rect, QRect(400 * 15 / 200, 300 / 10, 400 * 85 / 100, 300 * 80 / 100));
    QCOMPARE(a, rect.width() / 5);
    QCOMPARE(b, rect.width() - rect.width() / 5);
}

void TestAppSettings::helpLayoutStoredValuesAreRead()
{
    StoredSettings::setValue("Layout/helpwindow", QRect(20, 30, 400, 300));
    StoredSettings::setValue("Layout/helpsplitA", 111);
    StoredSettings::setValue("Layout/helpsplitB", 222);
    CAppSettings settings;
    int a = 0;
    int b = 0;
    QCOMPARE(settings.restoreHelpLayout(QRect(0, 0, 10, 10), nullptr, &a, &b), QRect(20, 30, 400, 300));
    QCOMPARE(a, 111);
    QCOMPARE(b, 222);
}

void TestAppSettings::matchUnitsChangeIsStoredWhenTheWindowCloses()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    window.settings()->rgbDifference = false; // as the configuration dialog does
    QVERIFY(!StoredSettings::contains("Colour/rgbDifference"));
    QVERIFY(window.close());
    QVERIFY(StoredSettings::contains("Colour/rgbDifference"));
    QCOMPARE(StoredSettings::value("Colour/rgbDifference").toBool(), false);
}

void TestAppSettings::matchUnitsChangeIsLostWithoutClose()
{
    auto *window = new CMainWindow(AppContext::versionTitle());
    window->show();
    window->settings()->rgbDifference = false;
    // A crash: nothing is closed, the store is simply read again.
    QVERIFY(!StoredSettings::contains("Colour/rgbDifference"));
    CAppSettings reread;
    QCOMPARE(reread.rgbDifference, true);
    // Deleting the window is not closing it: still nothing written.
    delete window;
    QVERIFY(!StoredSettings::contains("Colour/rgbDifference"));
}

QTEST_MAIN(TestAppSettings)
#include "tst_appsettings.moc"
