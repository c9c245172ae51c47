#include "config/dlgupdateprogress.h"

#include <QDateTime>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QtTest>

class TestDlgUpdateProgress : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void showsTheVersionTitleTheLabelAndAHiddenTextBar();
    void tickNeedsMoreThanFifteenMilliseconds();
    void valueAboveOneHundredStartsAgainAtOne();
    void cancelClearsTheWaitingFlag();
    void doneClosesWithoutTouchingTheWaitingFlag();
};

void TestDlgUpdateProgress::showsTheVersionTitleTheLabelAndAHiddenTextBar()
{
    bool waiting = true;
    CDlgUpdateProgress dialog(nullptr, &waiting);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Vellora v1.0.0"));
    QCOMPARE(dialog.findChild<QLabel *>()->text(), QStringLiteral("Checking for a newer version"));
    QCOMPARE(dialog.progressBar()->minimum(), 1);
    QCOMPARE(dialog.progressBar()->maximum(), 100);
    QVERIFY(!dialog.progressBar()->isTextVisible());
    QCOMPARE(dialog.progressBar()->value(), dialog.value());
    QCOMPARE(dialog.cancelButton()->text(), QStringLiteral("&Cancel"));
    QCOMPARE(dialog.windowModality(), Qt::ApplicationModal);
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
}

void TestDlgUpdateProgress::tickNeedsMoreThanFifteenMilliseconds()
{
    bool waiting = true;
    CDlgUpdateProgress dialog(nullptr, &waiting);
    const qint64 start = QDateTime::currentMSecsSinceEpoch() + 1000;
    QVERIFY(dialog.tick(start));
    const int value = dialog.value();
    QVERIFY(!dialog.tick(start + 15));
    QCOMPARE(dialog.value(), value);
    QVERIFY(dialog.tick(start + 16));
    QCOMPARE(dialog.value(), value + 1);
    QCOMPARE(dialog.progressBar()->value(), value + 1);
    // The next step counts from the last one, not from the start.
    QVERIFY(!dialog.tick(start + 31));
    QVERIFY(dialog.tick(start + 32));
    QCOMPARE(dialog.value(), value + 2);
}

void TestDlgUpdateProgress::valueAboveOneHundredStartsAgainAtOne()
{
    bool waiting = true;
    CDlgUpdateProgress dialog(nullptr, &waiting);
    qint64 now = QDateTime::currentMSecsSinceEpoch() + 1000;
    while (dialog.value() != 100) {
        QVERIFY(dialog.tick(now));
        now += 16;
    }
    QVERIFY(dialog.tick(now));
    QCOMPARE(dialog.value(), 1);
    QCOMPARE(dialog.progressBar()->value(), 1);
}

void TestDlgUpdateProgress::cancelClearsTheWaitingFlag()
{
    bool waiting = true;
    CDlgUpdateProgress dialog(nullptr, &waiting);
    dialog.show();
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QTest::mouseClick(dialog.cancelButton(), Qt::LeftButton);
    QVERIFY(!waiting);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void TestDlgUpdateProgress::doneClosesWithoutTouchingTheWaitingFlag()
{
    bool waiting = true;
    CDlgUpdateProgress dialog(nullptr, &waiting);
    dialog.show();
    dialog.done();
    QVERIFY(waiting);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

QTEST_MAIN(TestDlgUpdateProgress)
#include "tst_dlgupdateprogress.moc"
