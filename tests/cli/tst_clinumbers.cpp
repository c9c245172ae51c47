#include "cli/clinumbers.h"
#include "cli/clistatus.h"

#include <QtTest>

// Numbers as the batch tool reads them. What matters here beyond the
// accepted forms: a refused input leaves the caller's list as it was, so no
// caller can read half-parsed or missing values after a failure.
class TestCliNumbers : public QObject
{
    Q_OBJECT

private slots:
    void integerListIsReadInOrder();
    void refusedIntegerListLeavesTheListUnchanged_data();
    void refusedIntegerListLeavesTheListUnchanged();
    void refusedIntegerListLeavesAnEmptyListEmpty();
    void finitesAreReadInOrder();
    void refusedFinitesLeaveTheListUnchanged();
    void refusedRgbBytesLeaveTheColourUnchanged();
};

void TestCliNumbers::integerListIsReadInOrder()
{
    QVector<int> values{9};
    const CCliStatus status = CCliNumbers::toIntegerList(" 3,-4 , 5", 3, -10, 10, "what", &values);
    QVERIFY(!status.failed());
    QCOMPARE(values, (QVector<int>{3, -4, 5}));
}

void TestCliNumbers::refusedIntegerListLeavesTheListUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("too few") << "1,2";
    QTest::newRow("too many") << "1,2,3,4";
    QTest::newRow("last is a word") << "1,2,x";
    QTest::newRow("last out of range") << "1,2,11";
    QTest::newRow("empty") << "";
    QTest::newRow("decimal") << "1,2.5,3";
}

void TestCliNumbers::refusedIntegerListLeavesTheListUnchanged()
{
    QFETCH(QString, text);
    const QVector<int> before{7, 8};
    QVector<int> values = before;
    const CCliStatus status = CCliNumbers::toIntegerList(text, 3, -10, 10, "--what A,B,C", &values);
    QCOMPARE(status.code(), int(CCliStatus::BadInput));
    QVERIFY(status.message().startsWith(QStringLiteral("--what A,B,C needs 3 whole numbers")));
    QCOMPARE(values, before);
}

void TestCliNumbers::refusedIntegerListLeavesAnEmptyListEmpty()
{
    QVector<int> values;
    QVERIFY(CCliNumbers::toIntegerList("1,2,zz,4", 4, 0, 9, "--band", &values).failed());
    QVERIFY(values.isEmpty());
}

void TestCliNumbers::finitesAreReadInOrder()
{
    QVector<double> values;
    QVERIFY(!CCliNumbers::toFinites({"0.5", "-2", "1e2"}, &values).failed());
    QCOMPARE(values, (QVector<double>{0.5, -2.0, 100.0}));
}

void TestCliNumbers::refusedFinitesLeaveTheListUnchanged()
{
    QVector<double> values{1.5};
    const CCliStatus status = CCliNumbers::toFinites({"0.5", "0.25", "nan"}, &values);
    QCOMPARE(status.code(), int(CCliStatus::BadInput));
    QCOMPARE(status.message(), QStringLiteral("\"nan\" is not a finite number"));
    QCOMPARE(values, QVector<double>{1.5});
}

void TestCliNumbers::refusedRgbBytesLeaveTheColourUnchanged()
{
    RgbColour colour{0.25, 0.5, 0.75};
    QVERIFY(CCliNumbers::rgbBytes("1,2,256", &colour).failed());
    QCOMPARE(colour.red, 0.25);
    QCOMPARE(colour.green, 0.5);
    QCOMPARE(colour.blue, 0.75);
}

QTEST_GUILESS_MAIN(TestCliNumbers)
#include "tst_clinumbers.moc"
