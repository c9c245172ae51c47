#include "app/recentimagesmenu.h"

#include <QAction>
#include <QtTest>

// The recent images menu on its own: six entries filled from the front of
// the list, the rest hidden, then a separator and "Clear &List".
class TestRecentImagesMenu : public QObject
{
    Q_OBJECT

private slots:
    void startsWithSixHiddenEntriesAndClearList();
    void fillShowsTheFilesInOrder_data();
    void fillShowsTheFilesInOrder();
    void fillingAgainHidesEntriesNoLongerListed();
    void entryTextIsTheFileNameOnly();
};

void TestRecentImagesMenu::startsWithSixHiddenEntriesAndClearList()
{
    CRecentImagesMenu menu;
    const QList<QAction *> actions = menu.actions();
    QCOMPARE(actions.size(), 8);
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(actions.at(i), menu.entries().at(i));
        QVERIFY(!actions.at(i)->isVisible());
    }
    QVERIFY(actions.at(6)->isSeparator());
    QCOMPARE(actions.at(7), menu.clearAction());
    QCOMPARE(menu.clearAction()->text(), QStringLiteral("Clear &List"));
    QCOMPARE(menu.clearAction()->statusTip(), QStringLiteral("Clear recently used files list"));
}

void TestRecentImagesMenu::fillShowsTheFilesInOrder_data()
{
    QTest::addColumn<int>("files");
    QTest::addColumn<int>("shown");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("six") << 6 << 6;
    QTest::newRow("nine") << 9 << 6;
}

void TestRecentImagesMenu::fillShowsTheFilesInOrder()
{
    QFETCH(int, files);
    QFETCH(int, shown);
    QStringList paths;
    for (int i = 0; i < files; ++i)
        paths << QStringLiteral("/pictures/p%1.png").arg(i);
    CRecentImagesMenu menu;
    menu.fill(paths);
    for (int i = 0; i < CRecentImagesMenu::kEntries; ++i) {
        QAction *entry = menu.entries().at(i);
        QCOMPARE(entry->isVisible(), i < shown);
        if (i >= shown)
            continue;
        QCOMPARE(entry->text(), QStringLiteral("&%1 p%2.png").arg(i + 1).arg(i));
        QCOMPARE(entry->statusTip(), paths.at(i));
        QCOMPARE(entry->data().toString(), paths.at(i));
    }
}

void TestRecentImagesMenu::fillingAgainHidesEntriesNoLongerListed()
{
    CRecentImagesMenu menu;
    menu.fill({"/a/one.png", "/a/two.png", "/a/three.png"});
    menu.fill({"/a/two.png"});
    QVERIFY(menu.entries().at(0)->isVisible());
    QCOMPARE(menu.entries().at(0)->data().toString(), QStringLiteral("/a/two.png"));
    QVERIFY(!menu.entries().at(1)->isVisible());
    QVERIFY(!menu.entries().at(2)->isVisible());
}

void TestRecentImagesMenu::entryTextIsTheFileNameOnly()
{
    CRecentImagesMenu menu;
    menu.fill({"/deep/folder with spaces/holiday & beach.jpeg"});
    QCOMPARE(menu.entries().at(0)->text(), QStringLiteral("&1 holiday & beach.jpeg"));
    QCOMPARE(menu.entries().at(0)->statusTip(),
             QStringLiteral("/deep/folder with spaces/holiday & beach.jpeg"));
}

QTEST_MAIN(TestRecentImagesMenu)
#include "tst_recentimagesmenu.moc"
