#include "palette/colourcopytext.h"
#include "sample/colourcontextmenu.h"
#include "sample/colourtexts.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QStandardPaths>
#include <QtTest>

class TestColourContextMenu : public QObject
{
    Q_OBJECT

private:
    static QStringList labels(const QMenu &menu);

private slots:
    void initTestCase();
    void sampleMenuCopiesHexRgbDisplayTextAndLab();
    void entryMenuCopiesNameHexAndLab();
    void ampersandInANameIsShownNotTakenAsAMnemonic();
    void othersCanAddTheirOwnActions();
};

QStringList TestColourContextMenu::labels(const QMenu &menu)
{
    QStringList out;
    for (const QAction *a : menu.actions())
        out << a->text();
    return out;
}

void TestColourContextMenu::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
}

void TestColourContextMenu::sampleMenuCopiesHexRgbDisplayTextAndLab()
{
    const RgbColour c{30 / 255.0, 144 / 255.0, 1.0};
    CColourContextMenu menu;
    menu.addSampleActions(c, 2);
    const QStringList texts{QStringLiteral("#1e90ff"), QStringLiteral("rgb(30, 144, 255)"),
                            QStringLiteral("R:0x1e, G:0x90, B:0xff"), CColourTexts::labLine(c)};
    QCOMPARE(labels(menu), QStringList({"Copy " + texts.at(0), "Copy " + texts.at(1),
                                        "Copy " + texts.at(2), "Copy " + texts.at(3)}));
    for (int i = 0; i < texts.size(); ++i) {
        QApplication::clipboard()->setText(QStringLiteral("before"));
        menu.actions().at(i)->trigger();
        QCOMPARE(QApplication::clipboard()->text(), texts.at(i));
    }
}

void TestColourContextMenu::entryMenuCopiesNameHexAndLab()
{
    const RgbColour c{1.0, 0.5020, 0.0};
    CColourContextMenu menu;
    menu.addEntryActions(QStringLiteral("Dark orange"), c);
    QCOMPARE(labels(menu).value(0), QStringLiteral("Copy Name \"Dark orange\""));
    menu.actions().at(0)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Dark orange"));
    menu.actions().at(1)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("#ff8000"));
    menu.actions().at(2)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), CColourTexts::labLine(c));
}

void TestColourContextMenu::ampersandInANameIsShownNotTakenAsAMnemonic()
{
    CColourContextMenu menu;
    menu.addEntryActions(QStringLiteral("Salt & pepper"), {0.5, 0.5, 0.5});
    QCOMPARE(labels(menu).value(0), QStringLiteral("Copy Name \"Salt && pepper\""));
    menu.actions().at(0)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Salt & pepper"));
}

void TestColourContextMenu::othersCanAddTheirOwnActions()
{
    CColourContextMenu menu;
    menu.addEntryActions(QStringLiteral("Red"), {1, 0, 0});
    bool explained = false;
    QAction *extra = menu.addAction(QStringLiteral("Something else"));
    connect(extra, &QAction::triggered, this, [&explained]() { explained = true; });
    QCOMPARE(menu.actions().size(), 4);
    menu.actions().last()->trigger();
    QVERIFY(explained);
}

QTEST_MAIN(TestColourContextMenu)
#include "tst_colourcontextmenu.moc"
