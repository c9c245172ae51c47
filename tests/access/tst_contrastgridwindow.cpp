// "Vellora - Contrast Grid": cells painted as their pair and marked, copy as
// text, and 200 colours.
#include "access/contrastgridmodel.h"
#include "access/contrastgridwindow.h"
#include "common/appcontext.h"
#include "colour/wcagcontrast.h"

#include "support/guitestfixture.h"

#include <QApplication>
#include <QBrush>
#include <QClipboard>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

namespace {

PaletteColour grey(const QString &name, int level)
{
    return {name, {level / 255.0, level / 255.0, level / 255.0}};
}

} // namespace

class TestContrastGridWindow : public QObject
{
    Q_OBJECT

private:
    GuiTestFixture m_home;

private slots:
    void initTestCase();
    void titleIsOurOwn();
    void cellsShowRatioAndMark();
    void cellsArePaintedAsTheirPair();
    void headersNameTheColours();
    void copyAsTextPutsTheGridOnTheClipboard();
    void twoHundredColoursGiveEveryPair();
};

void TestContrastGridWindow::initTestCase()
{
    QVERIFY(m_home.isValid());
    AppContext::initResources();
}

void TestContrastGridWindow::titleIsOurOwn()
{
    CContrastGridWindow window;
    QCOMPARE(window.windowTitle(), QStringLiteral("Vellora - Contrast Grid"));
}

void TestContrastGridWindow::cellsShowRatioAndMark()
{
    CContrastGridWindow window;
    window.setColours({grey("Black", 0), grey("Grey", 0x77), grey("White", 255), grey("Mid", 0x95)});
    const QAbstractItemModel *model = window.view()->model();
    QCOMPARE(model->rowCount(), 4);
    QCOMPARE(model->columnCount(), 4);
    QCOMPARE(model->index(0, 2).data().toString(), QStringLiteral("21.00\nAAA"));
    QCOMPARE(model->index(1, 0).data().toString(), QStringLiteral("4.68\nAA"));
    QCOMPARE(model->index(2, 1).data().toString(), QStringLiteral("4.47\nlarge only"));
    QCOMPARE(model->index(1, 1).data().toString(), QStringLiteral("1.00\nfail"));
}

void TestContrastGridWindow::cellsArePaintedAsTheirPair()
{
    CContrastGridWindow window;
    window.setColours({grey("Black", 0), {"Red", {1.0, 0.0, 0.0}}});
    const QModelIndex cell = window.view()->model()->index(0, 1);
    // The row's colour is the background, the column's the text.
    QCOMPARE(cell.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(0, 0, 0));
    QCOMPARE(cell.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(255, 0, 0));
}

void TestContrastGridWindow::headersNameTheColours()
{
    CContrastGridWindow window;
    window.setColours({grey("Black", 0), grey(QString(), 0x80)});
    const QAbstractItemModel *model = window.view()->model();
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Black\n#000000"));
    QCOMPARE(model->headerData(1, Qt::Vertical).toString(), QStringLiteral("#808080"));
}

void TestContrastGridWindow::copyAsTextPutsTheGridOnTheClipboard()
{
    CContrastGridWindow window;
    window.setColours({grey("Black", 0), grey("White", 255)});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QApplication::clipboard()->clear();
    QTest::mouseClick(window.copyButton(), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(),
             QStringLiteral("colour\tname\t#000000\t#ffffff\n"
                            "#000000\tBlack\t1.00 fail\t21.00 AAA\n"
                            "#ffffff\tWhite\t21.00 AAA\t1.00 fail"));
}

void TestContrastGridWindow::twoHundredColoursGiveEveryPair()
{
    QVector<PaletteColour> colours;
    for (int i = 0; i < 200; ++i)
        colours << PaletteColour{QStringLiteral("C%1").arg(i),
                                 {(i * 37 % 256) / 255.0, (i * 91 % 256) / 255.0, (i % 256) / 255.0}};
    CContrastGridWindow window;
    window.setColours(colours);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QAbstractItemModel *model = window.view()->model();
    QCOMPARE(model->rowCount(), 200);
    QCOMPARE(model->columnCount(), 200);
    const double ratio = WcagContrast::ratio(colours[199].rgb, colours[3].rgb);
    QVERIFY(model->index(199, 3).data().toString().startsWith(WcagContrast::ratioText(ratio)));
    QCOMPARE(window.text().count('\n'), 200);
}

QTEST_MAIN(TestContrastGridWindow)
#include "tst_contrastgridwindow.moc"
