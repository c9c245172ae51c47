#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "data/datamodel.h"
#include "data/dlgdatacolouradd.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"

#include "support/guitestfixture.h"
#include "support/modalsequence.h"
#include "support/samplefixture.h"

#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <memory>

using namespace SampleFixture;

// The main task from start to finish, as a user does it: open a photo, pick
// colours, add them to a new data set, save it as CSV and open it again.
class TestEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void pickedColoursAreSavedAsCsvAndReadBack();

private:
    static QImage twoColourImage();
    void pickAndAdd(CMainWindow &window, const QPoint &point, const QString &name,
                    CDlgDataColourAdd::Choice choice);

    GuiTestFixture m_fixture;
};

void TestEndToEnd::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

// Left half orange, right half navy.
QImage TestEndToEnd::twoColourImage()
{
    QImage image(40, 20, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, x < 20 ? qRgb(255, 128, 0) : qRgb(0, 0, 128));
    return image;
}

void TestEndToEnd::pickAndAdd(CMainWindow &window, const QPoint &point, const QString &name,
                              CDlgDataColourAdd::Choice choice)
{
    CColourImageWindow *page = window.samplingPage();
    leftClick(page->imageWidget(), point);
    QTRY_VERIFY_WITH_TIMEOUT(page->commandButton(CmdAddToDataSet)->isEnabled(),
                             2000);
    auto nameAndChoose = [name, choice](QWidget *dialog) {
        auto *add = qobject_cast<CDlgDataColourAdd *>(dialog);
        QVERIFY(add);
        QTest::keyClicks(add->nameEdit(), name);
        DialogActions::clickRadio(add->choiceButton(choice));
        QVERIFY(add->choiceButton(choice)->isChecked());
    };
    ModalSequence answers({{QStringLiteral("OK"), nameAndChoose}});
    QTest::mouseClick(page->commandButton(CmdAddToDataSet), Qt::LeftButton);
    QTRY_COMPARE_WITH_TIMEOUT(answers.answeredCount(), 1, 5000);
    QCOMPARE(answers.title(0), QStringLiteral("Vellora - Add Colour Data"));
}

void TestEndToEnd::pickedColoursAreSavedAsCsvAndReadBack()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    std::unique_ptr<CMainWindow> window = openImageWindow(twoColourImage(), dir.filePath("photo.png"));
    QVERIFY(window);

    pickAndAdd(*window, QPoint(5, 5), QStringLiteral("Warm"), CDlgDataColourAdd::AddToNew);
    QCOMPARE(window->tabWidget()->currentIndex(), 1);
    QCOMPARE(window->windowTitle(), QStringLiteral("Untitled - Vellora v1.0.0"));
    window->tabWidget()->setCurrentIndex(0);
    pickAndAdd(*window, QPoint(30, 10), QStringLiteral("Deep"), CDlgDataColourAdd::AddToCurrent);

    CChartDataWindow *data = window->dataPage();
    QCOMPARE(data->model()->rowCount(), 2);

    const QString csv = dir.filePath("picked.csv");
    {
        ModalSequence answers({{QString(), DialogActions::chooseFile(csv)}});
        QTest::mouseClick(data->commandButton(CmdSaveDataAs), Qt::LeftButton);
        QCOMPARE(answers.answeredCount(), 1);
    }
    QCOMPARE(window->windowTitle(), QStringLiteral("picked.csv - Vellora v1.0.0"));

    QFile file(csv);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    QVERIFY(lines.contains("1.0000, 0.5020, 0.0000, Warm"));
    QVERIFY(lines.contains("0.0000, 0.0000, 0.5020, Deep"));
    QVERIFY(lines.indexOf("1.0000, 0.5020, 0.0000, Warm") < lines.indexOf("0.0000, 0.0000, 0.5020, Deep"));

    // A fresh data set, then the saved file opened again.
    QTest::mouseClick(data->commandButton(CmdNewData), Qt::LeftButton);
    QCOMPARE(data->model()->rowCount(), 0);
    {
        ModalSequence answers({{QString(), DialogActions::chooseFile(csv)}});
        QTest::mouseClick(data->commandButton(CmdOpenData), Qt::LeftButton);
        QCOMPARE(answers.answeredCount(), 1);
    }
    QCOMPARE(data->model()->rowCount(), 2);
    QCOMPARE(data->model()->data(data->model()->index(0, CDataModel::ColName)).toString(),
             QStringLiteral("Warm"));
    QCOMPARE(data->model()->data(data->model()->index(1, CDataModel::ColSwatch)).toString(),
             QStringLiteral("#000080"));
    QCOMPARE(window->windowTitle(), QStringLiteral("picked.csv - Vellora v1.0.0"));
}

QTEST_MAIN(TestEndToEnd)
#include "tst_endtoend.moc"
