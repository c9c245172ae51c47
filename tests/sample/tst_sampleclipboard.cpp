#include "sample/sampleclipboard.h"

#include "support/guitestfixture.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

// Ctrl+C and Ctrl+V as the sampling page gets them, on a stand-in page with
// a child that holds the focus.
class TestSampleClipboard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void copyColourPutsHexOnTheClipboard_data();
    void copyColourPutsHexOnTheClipboard();
    void ctrlCOnAChildAsksThePageForItsSample();
    void ctrlVWithAPictureSignalsThatPicture();
    void ctrlVWithTextOnlySaysThereIsNoPicture();
    void keysOutsideThePageDoNothing();

private:
    GuiTestFixture m_fixture;
    std::unique_ptr<QWidget> m_page;
    QPushButton *m_child = nullptr;
    CSampleClipboard *m_clipboard = nullptr;
};

void TestSampleClipboard::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestSampleClipboard::init()
{
    m_page = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(m_page.get());
    m_child = new QPushButton(QStringLiteral("child"), m_page.get());
    layout->addWidget(m_child);
    m_clipboard = new CSampleClipboard(m_page.get());
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_child->setFocus();
    QApplication::clipboard()->setText(QStringLiteral("untouched"));
}

void TestSampleClipboard::cleanup()
{
    m_page.reset();
}

void TestSampleClipboard::copyColourPutsHexOnTheClipboard_data()
{
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::addColumn<QString>("hex");
    QTest::newRow("black") << 0.0 << 0.0 << 0.0 << "#000000";
    QTest::newRow("white") << 1.0 << 1.0 << 1.0 << "#ffffff";
    QTest::newRow("dodger blue") << 30 / 255.0 << 144 / 255.0 << 1.0 << "#1e90ff";
}

void TestSampleClipboard::copyColourPutsHexOnTheClipboard()
{
    QFETCH(double, red);
    QFETCH(double, green);
    QFETCH(double, blue);
    QFETCH(QString, hex);
    CSampleClipboard::copyColour({red, green, blue});
    QCOMPARE(QApplication::clipboard()->text(), hex);
}

void TestSampleClipboard::ctrlCOnAChildAsksThePageForItsSample()
{
    QSignalSpy copy(m_clipboard, &CSampleClipboard::copyRequested);
    QTest::keyClick(m_child, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(copy.count(), 1);
    // Deciding what to copy is the page's: nothing was put there here.
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("untouched"));
}

void TestSampleClipboard::ctrlVWithAPictureSignalsThatPicture()
{
    QImage picture(7, 5, QImage::Format_RGB32);
    picture.fill(qRgb(10, 200, 30));
    QApplication::clipboard()->setImage(picture);
    QSignalSpy pasted(m_clipboard, &CSampleClipboard::imagePasted);
    QSignalSpy status(m_clipboard, &CSampleClipboard::statusMessage);
    QTest::keyClick(m_child, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(pasted.count(), 1);
    QCOMPARE(status.count(), 0);
    const QImage got = pasted.at(0).at(0).value<QImage>();
    QCOMPARE(got.size(), QSize(7, 5));
    QCOMPARE(QColor(got.pixel(3, 2)).rgb(), qRgb(10, 200, 30));
}

void TestSampleClipboard::ctrlVWithTextOnlySaysThereIsNoPicture()
{
    QSignalSpy pasted(m_clipboard, &CSampleClipboard::imagePasted);
    QSignalSpy status(m_clipboard, &CSampleClipboard::statusMessage);
    QTest::keyClick(m_child, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(pasted.count(), 0);
    QCOMPARE(status.count(), 1);
    QCOMPARE(status.at(0).at(0).toString(), QStringLiteral("The clipboard holds no picture."));
}

void TestSampleClipboard::keysOutsideThePageDoNothing()
{
    QWidget other;
    auto *field = new QPushButton(QStringLiteral("other"), &other);
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    field->setFocus();
    QSignalSpy copy(m_clipboard, &CSampleClipboard::copyRequested);
    QSignalSpy status(m_clipboard, &CSampleClipboard::statusMessage);
    QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(copy.count(), 0);
    QCOMPARE(status.count(), 0);
}

QTEST_MAIN(TestSampleClipboard)
#include "tst_sampleclipboard.moc"
