#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagesource.h"
#include "sample/imagewidget.h"
#include "sample/previewfiledialog.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"
#include "support/samplefixture.h"

#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QtTest>

class TestImageSource : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void opensOnlyForTheOpenImageCommand();
    void dialogAsksForAnImageFromTheWorkingFolder();
    void cancellingTheDialogChangesNothing();
    void opensEachImageFormat_data();
    void opensEachImageFormat();
    void openedImageMovesTheWorkingFolderAndJoinsTheRecentList();
    void deletedRecentFileWarnsAndKeepsTheWorkingFolder();
    void corruptImageMovesTheWorkingFolderThenWarns();
    void failedOpenKeepsTheShownPicture();
    void decompressionBombIsRefusedWithTheUnreadableMessage();
    void indexedGifIsShownAndPickedAsRgb32();
    void indexedImageIsWidenedToRgb32ByTheView();
    void titleIsFileNameFolderAndTrailingDash();
    void titleIsEmptyWithoutImage();
    void previewShowsNoImageForUnreadableFiles();
    void previewFitsTheImageIntoTheLabel();
    void previewIsNotPlacedInTheDialog();

private:
    QString path(const QString &name) const { return m_fixture.filePath(name); }

    GuiTestFixture m_fixture;
};

void TestImageSource::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestImageSource::init()
{
    m_fixture.reset();
}

void TestImageSource::opensOnlyForTheOpenImageCommand()
{
    const QString file = path("only.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(4, 4), file));
    CMainWindow window(AppContext::versionTitle());
    for (int command : {0, 2, 6, 13}) {
        QVERIFY(!window.imageSource()->open(command, file));
        QVERIFY(window.imageSource()->image().isNull());
    }
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QVERIFY(window.imageSource()->open(CmdOpenImage, file));
    QVERIFY(window.imageSource()->isLoaded());
    QCOMPARE(window.imageSource()->image().size(), QSize(4, 4));
}

void TestImageSource::dialogAsksForAnImageFromTheWorkingFolder()
{
    CMainWindow window(AppContext::versionTitle());
    window.settings()->workDir = m_fixture.folder();
    QString caption, folder;
    QStringList filters;
    Qt::WindowModality modality = Qt::NonModal;
    QFileDialog::FileMode mode = QFileDialog::AnyFile;
    QFileDialog::AcceptMode accept = QFileDialog::AcceptSave;
    QString className;
    ModalAnswerer answer("Cancel", [&](QWidget *dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(dialog);
        QVERIFY(fileDialog);
        className = dialog->metaObject()->className();
        caption = fileDialog->windowTitle();
        folder = fileDialog->directory().absolutePath();
        filters = fileDialog->nameFilters();
        modality = fileDialog->windowModality();
        mode = fileDialog->fileMode();
        accept = fileDialog->acceptMode();
    });
    window.processCommand(CmdOpenImage);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(className, QStringLiteral("CPreviewFileDialog"));
    QCOMPARE(caption, QStringLiteral("Open Image"));
    QCOMPARE(folder, QDir(m_fixture.folder()).absolutePath());
    QCOMPARE(filters, (QStringList{"Images files(*.png *.jpg *.jpeg *.jpe *.tiff *.tif *.gif)",
                                   "All files (*.*)"}));
    QCOMPARE(CImageSource::fileFilter(),
             QStringLiteral("Images files(*.png *.jpg *.jpeg *.jpe *.tiff *.tif *.gif);;All files (*.*)"));
    QCOMPARE(modality, Qt::WindowModal);
    QCOMPARE(mode, QFileDialog::ExistingFile);
    QCOMPARE(accept, QFileDialog::AcceptOpen);
}

void TestImageSource::cancellingTheDialogChangesNothing()
{
    CMainWindow window(AppContext::versionTitle());
    window.settings()->workDir = m_fixture.folder();
    const QString title = window.windowTitle();
    {
        ModalAnswerer answer("Cancel");
        QVERIFY(!window.imageSource()->open(CmdOpenImage));
        QVERIFY(answer.wasAnswered());
        QCOMPARE(answer.dialogClass(), QStringLiteral("CPreviewFileDialog"));
    }
    QVERIFY(!window.imageSource()->isLoaded());
    QVERIFY(window.imageSource()->path().isEmpty());
    QCOMPARE(window.settings()->workDir, m_fixture.folder());
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QCOMPARE(window.windowTitle(), title);
    QVERIFY(window.samplingPage()->imageWidget()->isHidden());
}

void TestImageSource::opensEachImageFormat_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRgb>("pixel");
    QTest::newRow("png with alpha") << "alpha.png" << qRgb(10, 200, 30);
    QTest::newRow("indexed gif") << "stripes.gif" << qRgb(0, 0, 255);
    QTest::newRow("jpeg") << "plain.jpg" << qRgb(128, 128, 128);
    QTest::newRow("tiff") << "plain.tif" << qRgb(40, 90, 160);
}

void TestImageSource::opensEachImageFormat()
{
    QFETCH(QString, name);
    QFETCH(QRgb, pixel);
    const QString file = path(name);
    if (name.endsWith(".png"))
        QVERIFY(ImageWriter::writeAlphaPng(file, 20, 10, QColor(pixel)));
    else if (name.endsWith(".gif"))
        QVERIFY(ImageWriter::writeIndexedGif(file, 20, 10, {qRgb(255, 0, 0), pixel}));
    else if (name.endsWith(".jpg"))
        QVERIFY(ImageWriter::writeJpeg(file, 20, 10, QColor(pixel)));
    else
        QVERIFY(ImageWriter::writeTiff(file, 20, 10, QColor(pixel)));

    CMainWindow window(AppContext::versionTitle());
    QVERIFY(SampleFixture::openThroughDialog(window, file));
    QVERIFY(window.imageSource()->isLoaded());
    QCOMPARE(window.samplingPage()->imagePath(), file);
    const QImage &shown = window.samplingPage()->view()->sourceImage();
    QCOMPARE(shown.size(), QSize(20, 10));
    // The right half holds the colour in every fixture.
    const QRgb read = shown.pixel(15, 5);
    QVERIFY2(qAbs(qRed(read) - qRed(pixel)) <= 2 && qAbs(qGreen(read) - qGreen(pixel)) <= 2
                 && qAbs(qBlue(read) - qBlue(pixel)) <= 2,
             qPrintable(QString::number(read, 16)));
    QVERIFY(window.samplingPage()->imageWidget()->isVisibleTo(window.samplingPage()));
}

void TestImageSource::openedImageMovesTheWorkingFolderAndJoinsTheRecentList()
{
    QDir(m_fixture.folder()).mkpath("photos");
    const QString file = path("photos/seen.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(5, 5), file));
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(SampleFixture::openThroughDialog(window, file));
    QCOMPARE(window.settings()->workDir, QFileInfo(file).canonicalPath());
    QCOMPARE(window.settings()->recentFiles, QStringList{file});
    QVERIFY(window.commandAction(CmdRecentImages)->isEnabled());
}

void TestImageSource::deletedRecentFileWarnsAndKeepsTheWorkingFolder()
{
    QDir(m_fixture.folder()).mkpath("gone");
    const QString file = path("gone/vanished.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(5, 5), file));
    CMainWindow window(AppContext::versionTitle());
    window.settings()->addRecentFile(&window, file);
    window.refreshRecentFiles();
    window.settings()->workDir = QStringLiteral("/somewhere/else");
    QVERIFY(QFile::remove(file));

    ModalAnswerer answer("OK");
    window.recentMenu()->actions().first()->trigger();
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("The file:\n\n%1\n\ncould not be opened.").arg(file));
    QCOMPARE(window.settings()->workDir, QStringLiteral("/somewhere/else"));
    QVERIFY(!window.imageSource()->isLoaded());
    QVERIFY(window.imageSource()->path().isEmpty());
}

void TestImageSource::corruptImageMovesTheWorkingFolderThenWarns()
{
    QDir(m_fixture.folder()).mkpath("broken");
    const QString file = path("broken/corrupt.png");
    QVERIFY(FixtureFile::write(file, QByteArray("this is not a picture at all")));
    CMainWindow window(AppContext::versionTitle());
    window.settings()->workDir = QStringLiteral("/somewhere/else");

    ModalAnswerer answer("OK");
    QVERIFY(!window.imageSource()->open(CmdOpenImage, file));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("The file:\n\n%1\n\ncould not be opened.").arg(file));
    QCOMPARE(window.settings()->workDir, QFileInfo(file).canonicalPath());
    QVERIFY(window.settings()->recentFiles.isEmpty());
}

void TestImageSource::decompressionBombIsRefusedWithTheUnreadableMessage()
{
    // Its header claims 100000 x 100000 pixels: 40 GB decoded.
    const QString file = path("bomb.png");
    QVERIFY(FixtureFile::write(file, ImageWriter::pngClaimingSize(100000, 100000)));
    CMainWindow window(AppContext::versionTitle());
    ModalAnswerer answer("OK");
    QVERIFY(!window.imageSource()->open(CmdOpenImage, file));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("The file:\n\n%1\n\ncould not be opened.").arg(file));
    QVERIFY(window.settings()->recentFiles.isEmpty());
}

void TestImageSource::failedOpenKeepsTheShownPicture()
{
    const QString good = path("good.png");
    const QString bad = path("bad.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(7, 3), good));
    QVERIFY(FixtureFile::write(bad, QByteArray("garbage")));
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(SampleFixture::openThroughDialog(window, good));
    const QString title = window.windowTitle();
    {
        ModalAnswerer answer("OK");
        SampleFixture::openThroughDialog(window, bad);
    }
    QCOMPARE(window.samplingPage()->view()->sourceImage().size(), QSize(7, 3));
    QCOMPARE(window.samplingPage()->imagePath(), good);
    QCOMPARE(window.windowTitle(), title);
}

void TestImageSource::indexedGifIsShownAndPickedAsRgb32()
{
    const QString file = path("indexed.gif");
    QVERIFY(ImageWriter::writeIndexedGif(file, 10, 4, {qRgb(255, 0, 0), qRgb(0, 255, 0)}));
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(SampleFixture::openThroughDialog(window, file));
    const QImage &source = window.samplingPage()->view()->sourceImage();
    QCOMPARE(source.format(), QImage::Format_RGB32);
    QCOMPARE(source.pixel(0, 0), qRgb(255, 0, 0));
    QCOMPARE(source.pixel(9, 0), qRgb(0, 255, 0));
}

// Qt's GIF reader already hands out 32-bit pixels; a palette PNG arrives as
// 8-bit indexed and shows the view's own widening.
void TestImageSource::indexedImageIsWidenedToRgb32ByTheView()
{
    const QString file = path("palette.png");
    QImage indexed(6, 2, QImage::Format_Indexed8);
    indexed.setColorTable({qRgb(12, 34, 56), qRgb(200, 100, 50)});
    indexed.fill(0);
    indexed.setPixel(5, 1, 1);
    QVERIFY(ImageWriter::write(indexed, file));
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(window.imageSource()->open(CmdOpenImage, file));
    QCOMPARE(window.imageSource()->image().format(), QImage::Format_Indexed8);
    QVERIFY(SampleFixture::openThroughDialog(window, file));
    const QImage &source = window.samplingPage()->view()->sourceImage();
    QCOMPARE(source.format(), QImage::Format_RGB32);
    QCOMPARE(source.pixel(0, 0), qRgb(12, 34, 56));
    QCOMPARE(source.pixel(5, 1), qRgb(200, 100, 50));
}

void TestImageSource::titleIsFileNameFolderAndTrailingDash()
{
    QDir(m_fixture.folder()).mkpath("img");
    const QString file = path("img/leaf.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(3, 3), file));
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(SampleFixture::openThroughDialog(window, file));
    const QString folder = QDir::toNativeSeparators(QFileInfo(file).canonicalPath());
    const QString expected = QStringLiteral("leaf.png - ") + folder + QStringLiteral(" - ");
    QCOMPARE(window.samplingPage()->title(), expected);
    QCOMPARE(window.windowTitle(), expected + QStringLiteral("Vellora v1.0.0"));
}

void TestImageSource::titleIsEmptyWithoutImage()
{
    CMainWindow window(AppContext::versionTitle());
    QCOMPARE(window.samplingPage()->title(), QString());
    QCOMPARE(window.windowTitle(), QStringLiteral("Vellora v1.0.0"));
}

void TestImageSource::previewShowsNoImageForUnreadableFiles()
{
    CPreviewFileDialog dialog(nullptr, "Open Image", m_fixture.folder(), CImageSource::fileFilter());
    dialog.OnCurrentChanged(path("does-not-exist.png"));
    QCOMPARE(dialog.previewLabel()->text(), QStringLiteral("No image"));
}

void TestImageSource::previewFitsTheImageIntoTheLabel()
{
    const QString file = path("wide.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(200, 100), file));
    CPreviewFileDialog dialog(nullptr, "Open Image", m_fixture.folder(), CImageSource::fileFilter());
    dialog.previewLabel()->resize(50, 50);
    dialog.OnCurrentChanged(file);
    QCOMPARE(dialog.previewLabel()->pixmap(Qt::ReturnByValue).size(), QSize(50, 25));
}

void TestImageSource::previewIsNotPlacedInTheDialog()
{
    CPreviewFileDialog dialog(nullptr, "Open Image", m_fixture.folder(), CImageSource::fileFilter());
    QVERIFY(!dialog.previewLabel()->parent());
    QVERIFY(!dialog.findChildren<QLabel *>().contains(dialog.previewLabel()));
}

QTEST_MAIN(TestImageSource)
#include "tst_imagesource.moc"
