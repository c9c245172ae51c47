#include "app/appsettings.h"

#include "common/appcontext.h"
#include "app/defaultfolders.h"
#include "app/mainwindow.h"
#include "help/helpwindow.h"
#include "tables/webcolourstable.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace {

const QString kWorkDir = QStringLiteral("Directory/workdir");
const QString kRecentFiles = QStringLiteral("Directory/recentFilesList");
const QString kDataDefaultDir = QStringLiteral("DataDirectory/dfltDirectory");
const QString kDataDir = QStringLiteral("DataDirectory/directory");
const QString kLibraryDefaultDir = QStringLiteral("ColourLibrary/dfltDirectory");
const QString kLibraryDir = QStringLiteral("ColourLibrary/directory");
const QString kSelectedTable = QStringLiteral("ColourLibrary/selected");
const QString kSampleCreated = QStringLiteral("Sample/created");
const QString kMaxRecords = QStringLiteral("General/maxRecordsDisplay");
const QString kRgbFormat = QStringLiteral("Colour/rgbFormat");
const QString kRgbAverage = QStringLiteral("Colour/rgbAverage");
const QString kRgbDifference = QStringLiteral("Colour/rgbDifference");
const QString kConvertToSrgb = QStringLiteral("Colour/convertToSrgb");
const QString kColourVision = QStringLiteral("View/colourVision");
const QString kColourVisionSeverity = QStringLiteral("View/colourVisionSeverity");
const QString kShowStartTip = QStringLiteral("General/showStartTip");
const QString kStartTipIndex = QStringLiteral("General/startTipIndex");
const QString kMainWindowRect = QStringLiteral("Layout/mainwindow");
const QString kHelpWindowRect = QStringLiteral("Layout/helpwindow");
const QString kHelpSplit = QStringLiteral("Layout/helpsplit");

const int kMaxRecentFiles = 6;
const int kSmallestWindowSide = 64;

QString translate(const char *text)
{
    return QCoreApplication::translate("CAppSettings", text);
}

QRect primaryScreenGeometry()
{
    QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect();
}

// Creates `folder` with its parents when it is missing. On failure the user
// is told (`message` holds %1 for the folder) and `folder` is emptied, so
// that the rest of the run starts its file dialogs from nowhere rather than
// from a folder that does not exist.
void ensureFolderExists(QString &folder, const QString &message)
{
    if (QDir(folder).exists() || QDir().mkpath(folder))
        return;
    QMessageBox::critical(nullptr, AppContext::productName(),
                          message.arg(QDir::toNativeSeparators(folder)), QMessageBox::Ok);
    folder.clear();
}

// A folder the user chose is left alone: it is their business whether it
// exists, and the dialogs that use it report it. An unset one becomes its
// default, made first.
void fillFromDefault(QString &folder, QString &defaultFolder, const char *failureMessage)
{
    if (!folder.isEmpty())
        return;
    ensureFolderExists(defaultFolder, translate(failureMessage));
    folder = defaultFolder;
}

} // namespace

CAppSettings::CAppSettings()
{
    // main names the application at start; a window built without main (a
    // test) must find the same store.
    AppContext::setApplicationIdentity();
    store = std::make_unique<QSettings>();
    loadFolders();
    createDataFolders();
    sampleCreated = store->value(kSampleCreated, false).toBool();
    createSampleTable();
    selectedTable = store->value(kSelectedTable, QString()).toString();
    loadPreferences();
}

CAppSettings::~CAppSettings() = default;

void CAppSettings::loadFolders()
{
    workDir = store->value(kWorkDir, defaultWorkFolder()).toString();
    recentFiles = store->value(kRecentFiles).toStringList();
    dataDefaultDir = store->value(kDataDefaultDir, QString()).toString();
    if (dataDefaultDir.isEmpty())
        dataDefaultDir = defaultDataFolder(false);
    dataDir = store->value(kDataDir, QString()).toString();
    libraryDefaultDir = store->value(kLibraryDefaultDir, QString()).toString();
    if (libraryDefaultDir.isEmpty())
        libraryDefaultDir = defaultLibraryFolder();
    libraryDir = store->value(kLibraryDir, QString()).toString();
}

void CAppSettings::loadPreferences()
{
    maxRecordsDisplay = store->value(kMaxRecords, 4).toInt();
    rgbFormat = store->value(kRgbFormat, 0).toInt();
    rgbAverage = store->value(kRgbAverage, true).toBool();
    rgbDifference = store->value(kRgbDifference, true).toBool();
    convertToSrgb = store->value(kConvertToSrgb, false).toBool();
    colourVision = store->value(kColourVision, QStringLiteral("normal")).toString();
    colourVisionSeverity = store->value(kColourVisionSeverity, 1.0).toDouble();
    showStartTip = store->value(kShowStartTip, true).toBool();
    startTipIndex = store->value(kStartTipIndex, 0).toInt();
}

void CAppSettings::createDataFolders()
{
    fillFromDefault(dataDir, dataDefaultDir,
                    QT_TRANSLATE_NOOP("CAppSettings",
                                      "Unable to create the Vellora Data folder:\n  %1\nPlease "
                                      "ensure that the hard drive is neither full nor "
                                      "write-protected.\n\n"));
    fillFromDefault(libraryDir, libraryDefaultDir,
                    QT_TRANSLATE_NOOP("CAppSettings",
                                      "Unable to create the Colour Tables folder:\n  %1\nPlease "
                                      "ensure that the hard drive is neither full nor "
                                      "write-protected.\n\n"));
}

void CAppSettings::createSampleTable()
{
    // A failed write leaves the flag false, so the next start tries again.
    if (writeWebColoursTableOnce(libraryDir, sampleCreated))
        sampleCreated = true;
}

void CAppSettings::save(CMainWindow *mainWindow)
{
    if (mainWindow)
        saveLayouts(mainWindow);
    savePreferences();
}

void CAppSettings::saveLayouts(CMainWindow *mainWindow)
{
    store->setValue(kMainWindowRect, QRect(mainWindow->pos(), mainWindow->size()));
    QWidget *help = mainWindow->helpWindow();
    if (!help)
        return;
    store->setValue(kHelpWindowRect, QRect(help->pos(), help->size()));
    const QList<int> sizes = mainWindow->helpSplitterSizes();
    if (sizes.size() < 2)
        return;
    store->setValue(kHelpSplit + QLatin1Char('A'), sizes.at(0));
    store->setValue(kHelpSplit + QLatin1Char('B'), sizes.at(1));
}

void CAppSettings::savePreferences()
{
    store->setValue(kWorkDir, workDir);
    store->setValue(kRecentFiles, recentFiles);
    store->setValue(kSampleCreated, sampleCreated);
    store->setValue(kDataDefaultDir, dataDefaultDir);
    store->setValue(kDataDir, dataDir);
    store->setValue(kLibraryDefaultDir, libraryDefaultDir);
    store->setValue(kLibraryDir, libraryDir);
    store->setValue(kSelectedTable, selectedTable);
    store->setValue(kMaxRecords, maxRecordsDisplay);
    store->setValue(kRgbFormat, rgbFormat);
    store->setValue(kRgbAverage, rgbAverage);
    store->setValue(kRgbDifference, rgbDifference);
    store->setValue(kConvertToSrgb, convertToSrgb);
    store->setValue(kColourVision, colourVision);
    store->setValue(kColourVisionSeverity, colourVisionSeverity);
    store->setValue(kShowStartTip, showStartTip);
    store->setValue(kStartTipIndex, startTipIndex);
    store->sync();
}

QRect CAppSettings::restoreMainWindowRect(QWidget *mainWindow)
{
    const QRect screen = primaryScreenGeometry();
    const QRect fallback(screen.width() / 20, screen.height() / 10, screen.width() * 90 / 100,
                         screen.height() * 80 / 100);
    return readRect(kMainWindowRect, fallback, mainWindow);
}

QRect CAppSettings::restoreHelpLayout(const QRect &reference, QWidget *helpWindow, int *splitA,
                                      int *splitB)
{
    const int w = reference.width();
    const int h = reference.height();
    const QRect fallback(w * 15 / 200, h / 10, w * 85 / 100, h * 80 / 100);
    const QRect rect = readRect(kHelpWindowRect, fallback, helpWindow);
    readSplit(kHelpSplit, rect.width() / 5, rect.width() - rect.width() / 5, splitA, splitB);
    return rect;
}

QRect CAppSettings::readRect(const QString &key, const QRect &defaultRect, QWidget *widget)
{
    QSize minimum = widget ? widget->minimumSize() : QSize();
    minimum = minimum.expandedTo(QSize(kSmallestWindowSide, kSmallestWindowSide));
    const QRect stored = store->value(key, defaultRect).toRect();
    return fitRectToScreen(stored, minimum, primaryScreenGeometry());
}

QRect CAppSettings::fitRectToScreen(QRect rect, const QSize &minimum, const QRect &screen)
{
    if (rect.width() < minimum.width())
        rect.setWidth(minimum.width());
    if (rect.height() < minimum.height())
        rect.setHeight(minimum.height());
    if (screen.contains(rect))
        return rect;

    if (rect.left() < screen.left()) {
        const int width = qMin(screen.width(), rect.width());
        rect.moveLeft(screen.left());
        rect.setWidth(width);
    } else if (rect.right() > screen.right()) {
        rect.translate(screen.right() - rect.right(), 0);
        // Wider than the screen: keep the width of the screen, but the
        // rectangle keeps starting left of it, as windows always have here.
        if (rect.left() < screen.left())
            rect.setWidth(screen.width());
    }

    if (rect.top() < screen.top()) {
        const int height = qMin(screen.height(), rect.height());
        rect.moveTop(screen.top());
        rect.setHeight(height);
    } else if (rect.bottom() > screen.bottom()) {
        rect.translate(0, screen.bottom() - rect.bottom());
        if (rect.top() < screen.top())
            rect.setHeight(screen.height());
    }
    return rect;
}

void CAppSettings::readSplit(const QString &baseKey, int defaultA, int defaultB, int *splitA,
                             int *splitB)
{
    *splitA = store->value(baseKey + QLatin1Char('A'), defaultA).toInt();
    *splitB = store->value(baseKey + QLatin1Char('B'), defaultB).toInt();
}

void CAppSettings::addRecentFile(CMainWindow *mainWindow, const QString &path)
{
    recentFiles.removeAll(path);
    recentFiles.prepend(path);
    while (recentFiles.size() > kMaxRecentFiles)
        recentFiles.removeLast();
    save(mainWindow);
}

void CAppSettings::removeRecentFile(CMainWindow *mainWindow, const QString &path)
{
    recentFiles.removeAll(path);
    save(mainWindow);
}

void CAppSettings::clearRecentFiles(CMainWindow *mainWindow)
{
    recentFiles.clear();
    save(mainWindow);
}

int CAppSettings::rgbFormatOf(const CAppSettings *settings)
{
    return settings ? settings->rgbFormat : 0;
}
