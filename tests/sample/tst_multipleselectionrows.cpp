#include "app/appsettings.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"
#include "sample/multipleselect.h"
#include "sample/multipleselectionrows.h"

#include "support/guitestfixture.h"
#include "support/imagewriter.h"

#include <QLabel>
#include <QSignalMapper>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

// The multiple selection's rows, notice, clear button and marks, kept in
// step with the picks without the page around them.
class TestMultipleSelectionRows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void firstPickFillsTheFirstRowAndEnablesClear();
    void ninthPickShowsTheNoticeAndChangesNothing();
    void removingMovesTheLaterPicksUpARow();
    void removingTheLastPickDisablesClear();
    void removingAnEmptyPositionDrawsNothing();
    void clearLeavesTheMarksUntilTheyAreRedrawn();
    void refreshRendersTheRowsInTheNewFormat();

private:
    void pick(int number);
    QVector<int> markNumbers() const;
    QVector<QRect> rowRects() const;

    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
    std::unique_ptr<QWidget> m_host;
    QSignalMapper *m_mapper = nullptr;
    CColourImageWindowView *m_view = nullptr;
    QLabel *m_notice = nullptr;
    QToolButton *m_clear = nullptr;
    QVector<CMultipleSelect *> m_selects;
    std::unique_ptr<CMultipleSelectionRows> m_rows;
};

void TestMultipleSelectionRows::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestMultipleSelectionRows::init()
{
    m_fixture.reset();
    m_settings = std::make_unique<CAppSettings>();
    m_host = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(m_host.get());
    m_mapper = new QSignalMapper(m_host.get());
    m_selects.clear();
    for (int position = 0; position < CMultipleSelectionModel::kCapacity; ++position) {
        m_selects.append(new CMultipleSelect(position, m_host.get(), m_mapper));
        layout->addWidget(m_selects.last()->row());
    }
    m_notice = new QLabel(QStringLiteral("Maximum"), m_host.get());
    m_notice->hide();
    m_clear = new QToolButton(m_host.get());
    m_clear->setEnabled(false);
    m_view = new CColourImageWindowView(m_host.get());
    layout->addWidget(m_view);
    m_view->setImage(ImageWriter::gradient(100, 40));
    m_rows = std::make_unique<CMultipleSelectionRows>(m_settings.get(), m_selects, m_notice, m_clear,
                                                      m_view->imageWidget());
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host.get()));
}

void TestMultipleSelectionRows::cleanup()
{
    m_rows.reset();
    m_host.reset();
    m_settings.reset();
}

// Pick `number` (from 1) is a 3 x 3 square of its own, in a grey of its own.
void TestMultipleSelectionRows::pick(int number)
{
    const double grey = number / 10.0;
    m_rows->add({grey, grey, grey}, QRect(number * 10, 10, 3, 3));
}

QVector<int> TestMultipleSelectionRows::markNumbers() const
{
    QVector<int> numbers;
    for (const CImageWidget::SelectionMark &mark : m_view->imageWidget()->selectionMarks())
        numbers.append(mark.number);
    return numbers;
}

QVector<QRect> TestMultipleSelectionRows::rowRects() const
{
    QVector<QRect> rects;
    for (CMultipleSelect *row : m_selects) {
        if (row->inUse())
            rects.append(row->rect());
    }
    return rects;
}

void TestMultipleSelectionRows::firstPickFillsTheFirstRowAndEnablesClear()
{
    pick(1);
    QVERIFY(m_selects.at(0)->inUse());
    QVERIFY(m_selects.at(0)->row()->isVisible());
    QVERIFY(!m_selects.at(1)->inUse());
    QCOMPARE(m_selects.at(0)->colour().red, 0.1);
    QVERIFY(m_clear->isEnabled());
    QCOMPARE(markNumbers(), QVector<int>({1}));
    QCOMPARE(m_rows->selection().count(), 1);
}

void TestMultipleSelectionRows::ninthPickShowsTheNoticeAndChangesNothing()
{
    for (int number = 1; number <= 8; ++number)
        pick(number);
    QVERIFY(!m_notice->isVisible());
    QVERIFY(!m_rows->add({1.0, 0.0, 0.0}, QRect(0, 0, 1, 1)));
    QVERIFY(m_notice->isVisible());
    QCOMPARE(m_rows->selection().count(), 8);
    QCOMPARE(markNumbers(), QVector<int>({1, 2, 3, 4, 5, 6, 7, 8}));
}

void TestMultipleSelectionRows::removingMovesTheLaterPicksUpARow()
{
    for (int number = 1; number <= 8; ++number)
        pick(number);
    m_rows->add({1.0, 0.0, 0.0}, QRect(0, 0, 1, 1));
    QVERIFY(m_rows->removeAt(1));
    QVERIFY(!m_notice->isVisible());
    const QVector<QRect> rects = rowRects();
    QCOMPARE(rects.size(), 7);
    QCOMPARE(rects.at(0), QRect(10, 10, 3, 3));
    QCOMPARE(rects.at(1), QRect(30, 10, 3, 3));
    QCOMPARE(m_selects.at(1)->colour().red, 0.3);
    QVERIFY(!m_selects.at(7)->row()->isVisible());
    QCOMPARE(markNumbers(), QVector<int>({1, 2, 3, 4, 5, 6, 7}));
}

void TestMultipleSelectionRows::removingTheLastPickDisablesClear()
{
    pick(1);
    pick(2);
    QVERIFY(m_rows->removeAt(0));
    QVERIFY(m_clear->isEnabled());
    QVERIFY(m_rows->removeAt(0));
    QVERIFY(!m_clear->isEnabled());
    QVERIFY(markNumbers().isEmpty());
    QVERIFY(rowRects().isEmpty());
}

void TestMultipleSelectionRows::removingAnEmptyPositionDrawsNothing()
{
    pick(1);
    // Marks drawn elsewhere stay as they are when nothing was removed.
    m_view->imageWidget()->drawSelectionMarks({});
    QVERIFY(!m_rows->removeAt(3));
    QVERIFY(!m_rows->removeAt(-1));
    QVERIFY(markNumbers().isEmpty());
    QCOMPARE(m_rows->selection().count(), 1);
}

void TestMultipleSelectionRows::clearLeavesTheMarksUntilTheyAreRedrawn()
{
    pick(1);
    pick(2);
    m_rows->add({0.0, 0.0, 0.0}, QRect(0, 0, 1, 1));
    m_rows->clear();
    QVERIFY(m_rows->selection().isEmpty());
    QVERIFY(rowRects().isEmpty());
    QVERIFY(!m_clear->isEnabled());
    QVERIFY(!m_notice->isVisible());
    QCOMPARE(markNumbers(), QVector<int>({1, 2, 3}));
    m_rows->redrawMarks();
    QVERIFY(markNumbers().isEmpty());
}

void TestMultipleSelectionRows::refreshRendersTheRowsInTheNewFormat()
{
    pick(5);
    QVERIFY(m_selects.at(0)->swatch()->toolTip().startsWith(QStringLiteral("R:127, G:127, B:127")));
    m_settings->rgbFormat = 2;
    m_rows->refresh();
    QVERIFY2(m_selects.at(0)->swatch()->toolTip().startsWith(QStringLiteral("R:0x7f, G:0x7f")),
             qPrintable(m_selects.at(0)->swatch()->toolTip()));
}

QTEST_MAIN(TestMultipleSelectionRows)
#include "tst_multipleselectionrows.moc"
