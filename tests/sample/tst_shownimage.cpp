#include "app/appsettings.h"
#include "sample/shownimage.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"

#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QtTest>

// Where the sampling page's picture came from, as the window title names
// it, and the picture as the page is given it to show.
class TestShownImage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void noPictureHasNoTitle();
    void fileIsNamedWithItsFolder();
    void folderIsTheCanonicalOneInNativeSpelling();
    void pastedPictureIsNamedPastedImageUntilAFileComes();
    void emptyPathAfterAPasteIsNoPictureAgain();
    void pictureIsShownAsItIsWithoutTheSetting();
    void pictureIsShownAsItIsWithoutSettings();
    void pictureWithoutAProfileIsNotConverted();
    void taggedPictureIsConvertedAndItsProfileNamed();

private:
    GuiTestFixture m_fixture;
};

void TestShownImage::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestShownImage::noPictureHasNoTitle()
{
    const CShownImage shown(nullptr);
    QCOMPARE(shown.title(), QString());
    QVERIFY(!shown.isPasted());
    QCOMPARE(shown.path(), QString());
}

void TestShownImage::fileIsNamedWithItsFolder()
{
    const QString path = m_fixture.filePath(QStringLiteral("picture.png"));
    QVERIFY(ImageWriter::gradient(4, 4).save(path));
    CShownImage shown(nullptr);
    shown.setFile(path);
    const QString folder = QDir::toNativeSeparators(QDir(m_fixture.folder()).canonicalPath());
    QCOMPARE(shown.title(), QStringLiteral("picture.png - ") + folder + QStringLiteral(" - "));
    QCOMPARE(shown.path(), path);
}

void TestShownImage::folderIsTheCanonicalOneInNativeSpelling()
{
    const QString path = m_fixture.filePath(QStringLiteral("real.png"));
    QVERIFY(ImageWriter::gradient(4, 4).save(path));
    const QString link = m_fixture.filePath(QStringLiteral("linked"));
    QVERIFY(QFile::link(m_fixture.folder(), link));
    CShownImage shown(nullptr);
    shown.setFile(link + QStringLiteral("/./real.png"));
    QVERIFY2(shown.title().endsWith(
                 QDir::toNativeSeparators(QDir(m_fixture.folder()).canonicalPath()) + " - "),
             qPrintable(shown.title()));
    QVERIFY(!shown.title().contains(QStringLiteral("linked")));
}

void TestShownImage::pastedPictureIsNamedPastedImageUntilAFileComes()
{
    CShownImage shown(nullptr);
    shown.setFile(m_fixture.filePath(QStringLiteral("before.png")));
    shown.setPasted();
    QVERIFY(shown.isPasted());
    QCOMPARE(shown.path(), QString());
    QCOMPARE(shown.title(), QStringLiteral("Pasted image - "));
    const QString path = m_fixture.filePath(QStringLiteral("after.png"));
    QVERIFY(ImageWriter::gradient(4, 4).save(path));
    shown.setFile(path);
    QVERIFY(!shown.isPasted());
    QVERIFY(shown.title().startsWith(QStringLiteral("after.png - ")));
}

void TestShownImage::emptyPathAfterAPasteIsNoPictureAgain()
{
    CShownImage shown(nullptr);
    shown.setPasted();
    shown.setFile(QString());
    QCOMPARE(shown.title(), QString());
}

void TestShownImage::pictureIsShownAsItIsWithoutTheSetting()
{
    CAppSettings settings;
    settings.convertToSrgb = false;
    const CShownImage shown(&settings);
    const QImage picture = ImageWriter::gradient(6, 3);
    QString profile = QStringLiteral("stale");
    const QImage prepared = shown.prepared(picture, &profile);
    QCOMPARE(prepared, picture);
    QVERIFY(profile.isEmpty());
}

void TestShownImage::pictureIsShownAsItIsWithoutSettings()
{
    const CShownImage shown(nullptr);
    const QImage picture = ImageWriter::gradient(6, 3);
    QString profile = QStringLiteral("stale");
    QCOMPARE(shown.prepared(picture, &profile), picture);
    QVERIFY(profile.isEmpty());
}

void TestShownImage::pictureWithoutAProfileIsNotConverted()
{
    CAppSettings settings;
    settings.convertToSrgb = true;
    const CShownImage shown(&settings);
    const QImage picture = ImageWriter::gradient(6, 3);
    QString profile = QStringLiteral("stale");
    const QImage prepared = shown.prepared(picture, &profile);
    QVERIFY(profile.isEmpty());
    QCOMPARE(prepared.pixel(5, 2), picture.pixel(5, 2));
}

void TestShownImage::taggedPictureIsConvertedAndItsProfileNamed()
{
    CAppSettings settings;
    settings.convertToSrgb = true;
    const CShownImage shown(&settings);
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(qRgb(200, 100, 50));
    picture.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    QString profile;
    const QImage prepared = shown.prepared(picture, &profile);
    QCOMPARE(profile, QStringLiteral("Display P3"));
    // A more saturated orange than sRGB holds in the same numbers.
    QVERIFY(qRed(prepared.pixel(1, 1)) > 200);
    QVERIFY(qBlue(prepared.pixel(1, 1)) < 50);
    // The picture handed in is left as it was.
    QCOMPARE(picture.pixel(1, 1), qRgb(200, 100, 50));
}

QTEST_MAIN(TestShownImage)
#include "tst_shownimage.moc"
