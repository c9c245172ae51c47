#include "colour/imagefile.h"

#include "support/fixturefile.h"
#include "support/imagewriter.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

// Pictures are sized up from their headers before they are decoded: the
// files here are written by the test, some with headers that lie.
class TestImageFile : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    static QByteArray pngWithClaimedSize(quint32 width, quint32 height);

private slots:
    void initTestCase();
    void pngIsRead();
    void decompressionBombPngIsRefusedBeforeDecoding();
    void claimJustOverTwoGibibytesIsRefused();
    void decodedBytes_data();
    void decodedBytes();
    void truncatedJpegOpensOrIsRefusedWithoutCrash();
    void truncatedPngIsRefusedAndLeavesTheImage();
    void missingFileAndTextFileCannotBeRead();
    void pictureOverQtsOwnDefaultLimitIsRead();
};

namespace {

QByteArray pngOf(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

QByteArray TestImageFile::pngWithClaimedSize(quint32 width, quint32 height)
{
    return ImageWriter::pngClaimingSize(width, height);
}

void TestImageFile::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

void TestImageFile::pngIsRead()
{
    QVERIFY(ImageWriter::write(ImageWriter::gradient(30, 20), path("ok.png")));
    QImage image;
    QCOMPARE(CImageFile::read(path("ok.png"), &image), CImageFile::Read);
    QCOMPARE(image.size(), QSize(30, 20));
    QCOMPARE(image.pixel(3, 2), ImageWriter::gradient(30, 20).pixel(3, 2));
    // The forged header is right apart from its size: read back unchanged it
    // is a good picture, so the refusals below are down to the size alone.
    QVERIFY(FixtureFile::write(path("honest.png"), pngWithClaimedSize(4, 4)));
    QCOMPARE(CImageFile::read(path("honest.png"), &image), CImageFile::Read);
    QCOMPARE(image.size(), QSize(4, 4));
}

void TestImageFile::decompressionBombPngIsRefusedBeforeDecoding()
{
    QVERIFY(FixtureFile::write(path("bomb.png"), pngWithClaimedSize(100000, 100000)));
    QImage image = ImageWriter::gradient(2, 2);
    QString reason;
    QCOMPARE(CImageFile::read(path("bomb.png"), &image, &reason), CImageFile::TooLarge);
    QCOMPARE(reason, QStringLiteral("a picture of 100000 x 100000 pixels would take more than 2 GiB"));
    QCOMPARE(image.size(), QSize(2, 2)); // left alone
}

void TestImageFile::claimJustOverTwoGibibytesIsRefused()
{
    // 23171 x 23171 pixels of 4 bytes are 2,147,580,964 bytes: just over.
    QVERIFY(FixtureFile::write(path("over.png"), pngWithClaimedSize(23171, 23171)));
    QImage image;
    QCOMPARE(CImageFile::read(path("over.png"), &image), CImageFile::TooLarge);
    QVERIFY(image.isNull());
}

void TestImageFile::decodedBytes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("format");
    QTest::addColumn<qint64>("bytes");

    QTest::newRow("20000 square, 32-bit: opens")
        << QSize(20000, 20000) << int(QImage::Format_RGB32) << qint64(1600000000);
    QTest::newRow("23170 square, 32-bit: just under 2 GiB")
        << QSize(23170, 23170) << int(QImage::Format_ARGB32) << qint64(2147395600);
    QTest::newRow("rows padded to words") << QSize(3, 2) << int(QImage::Format_Indexed8) << qint64(8);
    QTest::newRow("64-bit pixels") << QSize(10, 10) << int(QImage::Format_RGBA64) << qint64(800);
    QTest::newRow("unknown format counts 32 bits")
        << QSize(10, 10) << int(QImage::Format_Invalid) << qint64(400);
}

void TestImageFile::decodedBytes()
{
    QFETCH(QSize, size);
    QFETCH(int, format);
    QFETCH(qint64, bytes);
    QCOMPARE(CImageFile::decodedBytes(size, QImage::Format(format)), bytes);
    QCOMPARE(bytes > CImageFile::kMaximumDecodedBytes, false);
}

void TestImageFile::truncatedJpegOpensOrIsRefusedWithoutCrash()
{
    QVERIFY(ImageWriter::writeJpeg(path("whole.jpg"), 64, 48, QColor(200, 100, 50)));
    const QByteArray jpeg = FixtureFile::read(path("whole.jpg"));
    QVERIFY(jpeg.size() > 200);
    for (const int keep : {int(jpeg.size() / 2), 300, 20}) {
        QVERIFY(FixtureFile::write(path("cut.jpg"), jpeg.left(keep)));
        QImage image;
        const CImageFile::Status status = CImageFile::read(path("cut.jpg"), &image);
        // The decoder may show what arrived or give up; either way the
        // answer is a whole picture or none.
        if (status == CImageFile::Read)
            QCOMPARE(image.size(), QSize(64, 48));
        else
            QCOMPARE(status, CImageFile::CannotRead);
    }
}

void TestImageFile::truncatedPngIsRefusedAndLeavesTheImage()
{
    const QByteArray png = pngOf(ImageWriter::gradient(40, 40));
    QVERIFY(FixtureFile::write(path("cut.png"), png.left(png.size() / 2)));
    QImage image = ImageWriter::gradient(5, 5);
    QString reason;
    QCOMPARE(CImageFile::read(path("cut.png"), &image, &reason), CImageFile::CannotRead);
    QVERIFY(!reason.isEmpty());
    QCOMPARE(image.size(), QSize(5, 5));
}

void TestImageFile::missingFileAndTextFileCannotBeRead()
{
    QImage image;
    QString reason;
    QCOMPARE(CImageFile::read(path("missing.png"), &image, &reason), CImageFile::CannotRead);
    QCOMPARE(reason, QStringLiteral("File not found"));
    QVERIFY(FixtureFile::write(path("text.png"), "not a picture\n"));
    QCOMPARE(CImageFile::read(path("text.png"), &image), CImageFile::CannotRead);
    QVERIFY(image.isNull());
}

QTEST_GUILESS_MAIN(TestImageFile)
// 6200 x 6200 pixels decode to about 147 MiB: within the program's own
// limit, but over the 128 MiB that Qt 6 would refuse by itself. Every build
// opens it, as the Qt 5 build always did.
void TestImageFile::pictureOverQtsOwnDefaultLimitIsRead()
{
    const int side = 6200;
    {
        QImage big(side, side, QImage::Format_RGB32);
        big.fill(qRgb(30, 120, 210));
        big.setPixel(side - 1, side - 1, qRgb(250, 10, 5));
        QVERIFY(big.save(path("big.png"), "PNG"));
    }
    QImage image;
    QString reason;
    QCOMPARE(CImageFile::read(path("big.png"), &image, &reason), CImageFile::Read);
    QVERIFY2(reason.isEmpty(), qPrintable(reason));
    QCOMPARE(image.size(), QSize(side, side));
    QCOMPARE(image.pixel(side - 1, side - 1), qRgb(250, 10, 5));
    QCOMPARE(image.pixel(0, 0), qRgb(30, 120, 210));
}

#include "tst_imagefile.moc"
