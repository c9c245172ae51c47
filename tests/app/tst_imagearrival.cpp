#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/mainwindow.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagedrop.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTabWidget>
#include <QUrl>
#include <QtTest>

// Pictures that reach the main window without the "Open Image" dialog:
// dropped files and URLs, and a picture pasted from the clipboard.
class TestImageArrival : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void dropOfAPngUrlOpensItLikeOpenImage();
    void dropOfAFileUrlWrittenAsTextOpensItToo();
    void dropOfATextFileShowsTheUnreadableImageMessage();
    void dropOfPlainTextShowsTheUnreadableImageMessage();
    void dragOfAnythingIsAccepted();
    void pastedPictureShowsWithoutTouchingTheRecentList();
    void localFileTakesTheFirstLocalUrl();

private:
    // Drops mime on the window's centre as a user's drag and drop would.
    static void drop(CMainWindow &window, QMimeData *mime);

    GuiTestFixture m_fixture;
};

void TestImageArrival::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    AppContext::initResources();
}

void TestImageArrival::init()
{
    m_fixture.reset();
}

void TestImageArrival::drop(CMainWindow &window, QMimeData *mime)
{
    const QPoint centre = window.rect().center();
    QDragEnterEvent enter(centre, Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent dropEvent(centre, Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &dropEvent);
}

void TestImageArrival::dropOfAPngUrlOpensItLikeOpenImage()
{
    const QString path = m_fixture.filePath("dropped/leaf.png");
    QVERIFY(QDir().mkpath(m_fixture.filePath("dropped")));
    QVERIFY(ImageWriter::write(ImageWriter::gradient(9, 7), path));
    CMainWindow window(AppContext::versionTitle());
    window.tabWidget()->setCurrentIndex(1);
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(path)});
    drop(window, &mime);
    QCOMPARE(window.samplingPage()->view()->sourceImage().size(), QSize(9, 7));
    QCOMPARE(window.tabWidget()->currentIndex(), 0);
    QCOMPARE(window.settings()->recentFiles.value(0), path);
    QCOMPARE(window.settings()->workDir, QFileInfo(path).canonicalPath());
    QCOMPARE(window.windowTitle(), QStringLiteral("leaf.png - %1 - Vellora v1.0.0")
                                       .arg(QDir::toNativeSeparators(QFileInfo(path).canonicalPath())));
}

void TestImageArrival::dropOfAFileUrlWrittenAsTextOpensItToo()
{
    const QString path = m_fixture.filePath("as-text.png");
    QVERIFY(ImageWriter::write(ImageWriter::gradient(5, 3), path));
    CMainWindow window(AppContext::versionTitle());
    QMimeData mime;
    mime.setText(QUrl::fromLocalFile(path).toString());
    drop(window, &mime);
    QCOMPARE(window.samplingPage()->view()->sourceImage().size(), QSize(5, 3));
    QCOMPARE(window.samplingPage()->imagePath(), path);
}

void TestImageArrival::dropOfATextFileShowsTheUnreadableImageMessage()
{
    const QString path = m_fixture.filePath("notes.txt");
    QVERIFY(FixtureFile::write(path, "not a picture\n"));
    CMainWindow window(AppContext::versionTitle());
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(path)});
    ModalAnswerer answer(QStringLiteral("OK"));
    drop(window, &mime);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("The file:\n\n%1\n\ncould not be opened.").arg(path));
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QCOMPARE(window.windowTitle(), QStringLiteral("Vellora v1.0.0"));
}

void TestImageArrival::dropOfPlainTextShowsTheUnreadableImageMessage()
{
    CMainWindow window(AppContext::versionTitle());
    QMimeData mime;
    mime.setText(QStringLiteral("just words\nand more"));
    ModalAnswerer answer(QStringLiteral("OK"));
    drop(window, &mime);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("The file:\n\njust words\n\ncould not be opened."));
    QVERIFY(window.samplingPage()->view()->sourceImage().isNull());
}

void TestImageArrival::dragOfAnythingIsAccepted()
{
    CMainWindow window(AppContext::versionTitle());
    QVERIFY(window.acceptDrops());
    QMimeData mime;
    mime.setText(QStringLiteral("x"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
}

void TestImageArrival::pastedPictureShowsWithoutTouchingTheRecentList()
{
    CMainWindow window(AppContext::versionTitle());
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QString workDir = window.settings()->workDir;
    QApplication::clipboard()->setImage(ImageWriter::gradient(6, 4));
    window.tabWidget()->setCurrentIndex(0);
    window.samplingPage()->view()->setFocus();
    QTest::keyClick(window.samplingPage()->view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window.samplingPage()->view()->sourceImage().size(), QSize(6, 4));
    QCOMPARE(window.windowTitle(), QStringLiteral("Pasted image - Vellora v1.0.0"));
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QCOMPARE(window.settings()->workDir, workDir);
    QVERIFY(!window.commandAction(CmdRecentImages)->isEnabled());
}

void TestImageArrival::localFileTakesTheFirstLocalUrl()
{
    QMimeData mime;
    mime.setUrls({QUrl(QStringLiteral("https://example.invalid/a.png")),
                  QUrl::fromLocalFile(QStringLiteral("/tmp/b.png"))});
    QCOMPARE(CImageDrop::localFile(&mime), QStringLiteral("/tmp/b.png"));
    QMimeData remote;
    remote.setUrls({QUrl(QStringLiteral("https://example.invalid/a.png"))});
    QVERIFY(CImageDrop::localFile(&remote).isEmpty());
    QCOMPARE(CImageDrop::describe(&remote), QStringLiteral("https://example.invalid/a.png"));
    QVERIFY(CImageDrop::localFile(nullptr).isEmpty());
}

QTEST_MAIN(TestImageArrival)
#include "tst_imagearrival.moc"
