#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/commandline.h"
#include "app/mainwindow.h"
#include "app/startupsequence.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"
#include "support/modalsequence.h"
#include "support/storedsettings.h"

#include <QDir>
#include <QFile>
#include <QTabWidget>
#include <QUrl>
#include <QtTest>

// Start-up with a picture on the command line (`vellora PICTURE`, or the
// desktop's "Open With"): the picture opens exactly as "Open Image" opens a
// chosen file (recent list, working folder, title, the same message for an
// unreadable file), and the tip of the day is offered afterwards as on every
// start.
class TestStartupSequence : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void withoutAPictureTheWindowShowsAndTheTipIsOffered();
    void aPictureOpensLikeOpenImageBeforeTheTip();
    void anUnreadablePictureGetsTheOpenImageMessageThenTheTip();
    void aMissingPictureGetsTheSameMessage();
    void aFileUrlWithSpacesAndAccentsOpens();
    void aRelativePathIsTakenFromTheCurrentFolder();
    void noTipWhenTheUserTurnedItOff();

private:
    QString writePicture(const QString &relative, const QSize &size);
    void expectOpened(CMainWindow &window, const QString &path, const QSize &size);

    GuiTestFixture m_fixture;
};

void TestStartupSequence::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    AppContext::initResources();
}

void TestStartupSequence::init()
{
    m_fixture.reset();
}

QString TestStartupSequence::writePicture(const QString &relative, const QSize &size)
{
    const QString path = m_fixture.filePath(relative);
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (!ImageWriter::write(ImageWriter::gradient(size.width(), size.height()), path))
        return QString();
    return path;
}

void TestStartupSequence::expectOpened(CMainWindow &window, const QString &path, const QSize &size)
{
    const QFileInfo info(path);
    QCOMPARE(window.samplingPage()->view()->sourceImage().size(), size);
    QCOMPARE(window.tabWidget()->currentIndex(), 0);
    QCOMPARE(window.settings()->recentFiles, QStringList{path});
    QCOMPARE(window.settings()->workDir, info.canonicalPath());
    QCOMPARE(window.windowTitle(), info.fileName() + " - "
                                       + QDir::toNativeSeparators(info.canonicalPath()) + " - "
                                       + AppContext::versionTitle());
}

void TestStartupSequence::withoutAPictureTheWindowShowsAndTheTipIsOffered()
{
    CMainWindow window(AppContext::versionTitle());
    ModalSequence answers({{QStringLiteral("Close"), {}}});
    CStartupSequence::run(&window, QString());
    QVERIFY(window.isVisible());
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(answers.dialogClass(0), QStringLiteral("CTipDialog"));
    QCOMPARE(window.windowTitle(), AppContext::versionTitle());
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QVERIFY(window.samplingPage()->view()->sourceImage().isNull());
}

void TestStartupSequence::aPictureOpensLikeOpenImageBeforeTheTip()
{
    const QString path = writePicture("photos/leaf.png", QSize(9, 7));
    QVERIFY(!path.isEmpty());
    CMainWindow window(AppContext::versionTitle());
    bool openWhenTipShown = false;
    ModalSequence answers({{QStringLiteral("Close"), [&](QWidget *) {
                                openWhenTipShown =
                                    !window.samplingPage()->view()->sourceImage().isNull();
                            }}});
    CStartupSequence::run(&window, path);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(answers.dialogClass(0), QStringLiteral("CTipDialog"));
    QVERIFY(openWhenTipShown);
    expectOpened(window, path, QSize(9, 7));
    // The recent list reaches the store at the next save, as with Open Image.
    window.settings()->save(&window);
    QCOMPARE(StoredSettings::value("Directory/recentFilesList").toStringList(), QStringList{path});
}

void TestStartupSequence::anUnreadablePictureGetsTheOpenImageMessageThenTheTip()
{
    const QString path = m_fixture.filePath("notes.png");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("not a picture at all\n");
    file.close();
    CMainWindow window(AppContext::versionTitle());
    ModalSequence answers({{QStringLiteral("OK"), {}}, {QStringLiteral("Close"), {}}});
    CStartupSequence::run(&window, path);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(0), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(0), QStringLiteral("The file:\n\n%1\n\ncould not be opened.").arg(path));
    QCOMPARE(answers.dialogClass(1), QStringLiteral("CTipDialog"));
    QVERIFY(window.settings()->recentFiles.isEmpty());
    QCOMPARE(window.windowTitle(), AppContext::versionTitle());
    // The folder is remembered all the same: the user was looking there.
    QCOMPARE(window.settings()->workDir, QFileInfo(path).canonicalPath());
}

void TestStartupSequence::aMissingPictureGetsTheSameMessage()
{
    const QString path = m_fixture.filePath("gone.jpg");
    CMainWindow window(AppContext::versionTitle());
    window.settings()->showStartTip = false;
    ModalSequence answers({{QStringLiteral("OK"), {}}});
    CStartupSequence::run(&window, path);
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(answers.text(0), QStringLiteral("The file:\n\n%1\n\ncould not be opened.").arg(path));
    QVERIFY(window.settings()->recentFiles.isEmpty());
}

void TestStartupSequence::aFileUrlWithSpacesAndAccentsOpens()
{
    const QString path = writePicture(QStringLiteral("Été à la mer/ciel bleu ñ.png"), QSize(5, 4));
    QVERIFY(!path.isEmpty());
    const QString url = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    QVERIFY(url.contains("%20"));
    const CCommandLine line({url});
    QCOMPARE(line.picture(), path);
    CMainWindow window(AppContext::versionTitle());
    ModalSequence answers({{QStringLiteral("Close"), {}}});
    CStartupSequence::run(&window, line.picture());
    QCOMPARE(answers.answeredCount(), 1);
    expectOpened(window, path, QSize(5, 4));
}

void TestStartupSequence::aRelativePathIsTakenFromTheCurrentFolder()
{
    const QString path = writePicture(QStringLiteral("here/a b ü.png"), QSize(3, 6));
    QVERIFY(!path.isEmpty());
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_fixture.filePath("here")));
    const CCommandLine line({QStringLiteral("a b ü.png")});
    QDir::setCurrent(before);
    CMainWindow window(AppContext::versionTitle());
    window.settings()->showStartTip = false;
    CStartupSequence::run(&window, line.picture());
    expectOpened(window, path, QSize(3, 6));
}

void TestStartupSequence::noTipWhenTheUserTurnedItOff()
{
    const QString path = writePicture("leaf.png", QSize(2, 2));
    CMainWindow window(AppContext::versionTitle());
    window.settings()->showStartTip = false;
    ModalAnswerer unexpected(QStringLiteral("Close"), ModalAnswerer::Action(), 300);
    CStartupSequence::run(&window, path);
    QVERIFY(!unexpected.wasAnswered());
    expectOpened(window, path, QSize(2, 2));
}

QTEST_MAIN(TestStartupSequence)
#include "tst_startupsequence.moc"
