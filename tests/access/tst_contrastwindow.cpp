// "Vellora - Contrast" on its own: the pair's figures, Swap, the list of
// background colours and the next pick on the page.
#include "access/contrastverdicts.h"
#include "access/contrastwindow.h"
#include "common/appcontext.h"
#include "colour/wcagcontrast.h"

#include "support/guitestfixture.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

ContrastColour grey(int level, const QString &name = QString())
{
    return {{level / 255.0, level / 255.0, level / 255.0}, name, QString()};
}

} // namespace

class TestContrastWindow : public QObject
{
    Q_OBJECT

private:
    GuiTestFixture m_home;

private slots:
    void initTestCase();
    void titleIsOurOwn();
    void showsRatioVerdictsAndLc();
    void passingPairMarksEveryCriterion();
    void namesShowBesideTheSwatches();
    void swapExchangesTextAndBackground();
    void previewUsesThePairAtTwoSizes();
    void listOffersWhiteBlackAndTheProvidersColours();
    void choosingFromTheListSetsTheBackground();
    void nextPickReplacesTheBackgroundOnlyWhileChosen();
    void listIsAskedAgainWhenTheWindowIsShown();
};

void TestContrastWindow::initTestCase()
{
    QVERIFY(m_home.isValid());
    AppContext::initResources();
}

void TestContrastWindow::titleIsOurOwn()
{
    CContrastWindow window;
    QCOMPARE(window.windowTitle(), QStringLiteral("Vellora - Contrast"));
}

void TestContrastWindow::showsRatioVerdictsAndLc()
{
    CContrastWindow window;
    // #777777 on white: 4.478:1 (quoted as 4.48), fails AA for normal text.
    window.setPair(grey(0x77), grey(0xff));
    CContrastVerdicts *v = window.verdicts();
    QCOMPARE(v->ratioLabel()->text(), QStringLiteral("4.47:1"));
    QVERIFY(v->verdictLabel(WcagContrast::MinimumNormal)->text().startsWith("Fail"));
    QVERIFY(v->verdictLabel(WcagContrast::MinimumLarge)->text().startsWith("Pass"));
    QVERIFY(v->verdictLabel(WcagContrast::EnhancedNormal)->text().startsWith("Fail"));
    QVERIFY(v->verdictLabel(WcagContrast::EnhancedLarge)->text().startsWith("Fail"));
    QVERIFY(v->verdictLabel(WcagContrast::NonText)->text().startsWith("Pass"));
    QCOMPARE(v->lcLabel()->text(), QStringLiteral("Lc 71.1"));
    QVERIFY(v->guidanceLabel()->text().startsWith("Lc 60:"));
}

void TestContrastWindow::passingPairMarksEveryCriterion()
{
    CContrastWindow window;
    window.setPair(grey(0x76), grey(0xff));
    QCOMPARE(window.verdicts()->ratioLabel()->text(), QStringLiteral("4.54:1"));
    QVERIFY(window.verdicts()->verdictLabel(WcagContrast::MinimumNormal)->text().startsWith("Pass"));
    window.setPair(grey(0), grey(0xff));
    for (int c = 0; c < WcagContrast::CriterionCount; ++c)
        QVERIFY(window.verdicts()->verdictLabel(c)->text().startsWith("Pass"));
}

void TestContrastWindow::namesShowBesideTheSwatches()
{
    CContrastWindow window;
    window.setPair(grey(0x11, "Ink"), grey(0xee));
    QCOMPARE(window.textName()->text(), QStringLiteral("Ink (#111111)"));
    QCOMPARE(window.backgroundName()->text(), QStringLiteral("#eeeeee"));
    QVERIFY(window.textSwatch()->styleSheet().contains("#111111"));
    QVERIFY(window.backgroundSwatch()->styleSheet().contains("#eeeeee"));
}

void TestContrastWindow::swapExchangesTextAndBackground()
{
    CContrastWindow window;
    // #888888 text on white: Lc 63.1; white on #888888: Lc -68.5 (APCA's
    // own test values); the WCAG ratio does not change.
    window.setPair(grey(0x88, "Grey"), grey(0xff, "White"));
    QCOMPARE(window.verdicts()->lcLabel()->text(), QStringLiteral("Lc 63.1"));
    const QString ratio = window.verdicts()->ratioLabel()->text();
    QTest::mouseClick(window.swapButton(), Qt::LeftButton);
    QCOMPARE(window.textColour().name, QStringLiteral("White"));
    QCOMPARE(window.backgroundColour().name, QStringLiteral("Grey"));
    QCOMPARE(window.verdicts()->lcLabel()->text(), QStringLiteral("Lc -68.5"));
    QCOMPARE(window.verdicts()->ratioLabel()->text(), ratio);
}

void TestContrastWindow::previewUsesThePairAtTwoSizes()
{
    CContrastWindow window;
    window.setPair(grey(0x22), grey(0xdd));
    const QString style = window.preview()->styleSheet();
    QVERIFY(style.contains("background-color: #dddddd"));
    QVERIFY(style.contains("color: #222222"));
    QVERIFY(window.largePreview()->font().pointSize() >= 18);
    QVERIFY(window.normalPreview()->font().pointSize() < window.largePreview()->font().pointSize());
}

void TestContrastWindow::listOffersWhiteBlackAndTheProvidersColours()
{
    CContrastWindow window;
    window.setCandidatesProvider([]() {
        return QVector<ContrastColour>{{{1.0, 0.0, 0.0}, "Signal Red", "Data set"},
                                       {{0.0, 0.0, 1.0}, QString(), "Slot 1"}};
    });
    QComboBox *list = window.backgroundList();
    QCOMPARE(list->count(), 5);
    QCOMPARE(list->itemText(0), QStringLiteral("Next pick on the page"));
    QCOMPARE(list->itemText(1), QStringLiteral("White (#ffffff)"));
    QCOMPARE(list->itemText(2), QStringLiteral("Black (#000000)"));
    QCOMPARE(list->itemText(3), QStringLiteral("Data set: Signal Red (#ff0000)"));
    QCOMPARE(list->itemText(4), QStringLiteral("Slot 1: #0000ff"));
}

void TestContrastWindow::choosingFromTheListSetsTheBackground()
{
    CContrastWindow window;
    window.setCandidatesProvider([]() {
        return QVector<ContrastColour>{{{1.0, 0.0, 0.0}, "Signal Red", "Data set"}};
    });
    window.setPair(grey(0xff, "White"), grey(0));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QComboBox *list = window.backgroundList();
    list->setFocus();
    // Keys as a user would: down to the fourth entry.
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(window.backgroundColour().name, QStringLiteral("Signal Red"));
    // White on pure red: 3.99:1.
    QCOMPARE(window.verdicts()->ratioLabel()->text(), QStringLiteral("3.99:1"));
    // A chosen entry ignores the picks.
    window.takePick({0.0, 0.0, 0.0});
    QCOMPARE(window.backgroundColour().name, QStringLiteral("Signal Red"));
}

void TestContrastWindow::nextPickReplacesTheBackgroundOnlyWhileChosen()
{
    CContrastWindow window;
    window.setPair(grey(0, "Black"), grey(0xff, "White"));
    QCOMPARE(window.backgroundList()->currentIndex(), CContrastWindow::kNextPickIndex);
    window.takePick({0x77 / 255.0, 0x77 / 255.0, 0x77 / 255.0});
    QCOMPARE(window.backgroundName()->text(), QStringLiteral("#777777"));
    QCOMPARE(window.textColour().name, QStringLiteral("Black"));
    QCOMPARE(window.verdicts()->ratioLabel()->text(), QStringLiteral("4.68:1"));
}

void TestContrastWindow::listIsAskedAgainWhenTheWindowIsShown()
{
    CContrastWindow window;
    int asked = 0;
    QVector<ContrastColour> offered;
    window.setCandidatesProvider([&]() {
        ++asked;
        return offered;
    });
    const int before = asked;
    offered.append({{0.5, 0.5, 0.5}, "Later", "Match"});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(asked > before);
    QCOMPARE(window.backgroundList()->itemText(3), QStringLiteral("Match: Later (#808080)"));
}

QTEST_MAIN(TestContrastWindow)
#include "tst_contrastwindow.moc"
