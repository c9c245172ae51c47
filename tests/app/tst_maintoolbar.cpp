#include "common/commandid.h"
#include "app/maintoolbar.h"
#include "help/spacerwidget.h"

#include "support/guitestfixture.h"

#include <QAction>
#include <QMainWindow>
#include <QSignalMapper>
#include <QToolButton>
#include <QtTest>

#include <memory>

// The main toolbar on its own: built from the layout list, every action
// mapped to its command, the narrow recent button and the extra widgets.
class TestMainToolBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void actionsFollowTheLayoutList();
    void gapIsFourTimesTheEmptyBarsHeight();
    void aboutAndOtherNumbersHaveNoAction_data();
    void aboutAndOtherNumbersHaveNoAction();
    void triggeringAnActionMapsItsCommand();
    void zoomTipsNameTheirKeys_data();
    void zoomTipsNameTheirKeys();
    void recentButtonIsNarrow();
    void enableCommandTouchesOnlyThatCommand();
    void extraWidgetsHaveNoPlaceInTheLayoutList();

private:
    QStringList layout() const;

    GuiTestFixture m_fixture;
    std::unique_ptr<QMainWindow> m_window;
    QSignalMapper *m_mapper = nullptr;
    CMainToolBar *m_bar = nullptr;
};

void TestMainToolBar::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestMainToolBar::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_mapper = new QSignalMapper(m_window.get());
    m_bar = new CMainToolBar(m_mapper, m_window.get());
    m_window->addToolBar(m_bar);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestMainToolBar::cleanup()
{
    m_window.reset();
}

QStringList TestMainToolBar::layout() const
{
    QStringList items;
    for (QAction *action : m_bar->actions()) {
        QString item = QStringLiteral("?");
        if (action->isSeparator())
            item = QStringLiteral("|");
        for (int id = 0; id < CMainToolBar::kCommandCount; ++id) {
            if (m_bar->commandAction(id) == action)
                item = QString::number(id);
        }
        QWidget *widget = m_bar->widgetForAction(action);
        if (qobject_cast<CSpacerWidget *>(widget))
            item = QStringLiteral("gap");
        else if (widget && widget->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding)
            item = QStringLiteral("stretch");
        items << item;
    }
    return items;
}

void TestMainToolBar::actionsFollowTheLayoutList()
{
    QCOMPARE(layout(), (QStringList{"0", "1", "|", "2", "gap", "6", "8", "7", "stretch", "|", "4",
                                    "3"}));
    QCOMPARE(m_bar->objectName(), QStringLiteral("ToolBarMain"));
    QCOMPARE(m_bar->windowTitle(), QStringLiteral("ToolBarMain"));
}

void TestMainToolBar::gapIsFourTimesTheEmptyBarsHeight()
{
    CMainToolBar other(m_mapper, nullptr);
    QToolBar empty;
    empty.setIconSize(QSize(56, 42));
    empty.setStyleSheet(QStringLiteral("QWidget {border:none;}"));
    const int height = empty.sizeHint().height();
    auto *gap = other.findChild<CSpacerWidget *>();
    QVERIFY(gap);
    QCOMPARE(gap->sizeHint(), QSize(4 * height, height));
}

void TestMainToolBar::aboutAndOtherNumbersHaveNoAction_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("about") << int(CmdAbout);
    QTest::newRow("data page") << int(CmdNewData);
    QTest::newRow("negative") << -1;
}

void TestMainToolBar::aboutAndOtherNumbersHaveNoAction()
{
    QFETCH(int, id);
    QVERIFY(m_bar->commandAction(id) == nullptr);
}

void TestMainToolBar::triggeringAnActionMapsItsCommand()
{
    QSignalSpy mapped(m_mapper, &QSignalMapper::mappedInt);
    m_bar->commandAction(CmdZoomIn)->trigger();
    m_bar->commandAction(CmdOpenImage)->trigger();
    QCOMPARE(mapped.count(), 2);
    QCOMPARE(mapped.at(0).at(0).toInt(), int(CmdZoomIn));
    QCOMPARE(mapped.at(1).at(0).toInt(), int(CmdOpenImage));
}

void TestMainToolBar::zoomTipsNameTheirKeys_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<QString>("tip");
    QTest::newRow("out") << int(CmdZoomOut) << QKeySequence(QKeySequence::ZoomOut)
                         << "Zoom Out: [%1]";
    QTest::newRow("in") << int(CmdZoomIn) << QKeySequence(QKeySequence::ZoomIn) << "Zoom In: [%1]";
    QTest::newRow("actual") << int(CmdZoomActual) << QKeySequence(Qt::CTRL + Qt::Key_0)
                            << "Zoom Actual Size: [%1]";
}

void TestMainToolBar::zoomTipsNameTheirKeys()
{
    QFETCH(int, id);
    QFETCH(QKeySequence, key);
    QFETCH(QString, tip);
    QAction *action = m_bar->commandAction(id);
    QCOMPARE(action->shortcut(), key);
    QCOMPARE(action->statusTip(), tip.arg(key.toString(QKeySequence::NativeText)));
}

void TestMainToolBar::recentButtonIsNarrow()
{
    QToolButton *button = m_bar->recentButton();
    QVERIFY(button);
    QCOMPARE(button->defaultAction(), m_bar->commandAction(CmdRecentImages));
    QCOMPARE(button->width(), CMainToolBar::kRecentButtonWidth);
    QCOMPARE(button->minimumWidth(), 21);
    QCOMPARE(button->maximumWidth(), 21);
}

void TestMainToolBar::enableCommandTouchesOnlyThatCommand()
{
    m_bar->enableCommand(CmdZoomIn, false);
    QVERIFY(!m_bar->commandAction(CmdZoomIn)->isEnabled());
    QVERIFY(m_bar->commandAction(CmdZoomOut)->isEnabled());
    m_bar->enableCommand(CmdZoomIn, true);
    QVERIFY(m_bar->commandAction(CmdZoomIn)->isEnabled());
    // A command without an action changes nothing.
    m_bar->enableCommand(CmdAbout, false);
    for (QAction *action : m_bar->actions())
        QVERIFY(action->isEnabled());
}

void TestMainToolBar::extraWidgetsHaveNoPlaceInTheLayoutList()
{
    auto *extra = new QWidget;
    CMainToolBar bar(m_mapper, nullptr, {extra});
    QVERIFY(!bar.isAncestorOf(extra));
    QCOMPARE(bar.actions().size(), m_bar->actions().size());
    delete extra;
}

QTEST_MAIN(TestMainToolBar)
#include "tst_maintoolbar.moc"
