#include "app/appsettings.h"
#include "config/dlgtabpageadvanced.h"
#include "help/qgroupboxbold.h"

#include "support/modalsequence.h"
#include "support/temphome.h"

#include <QRadioButton>
#include <QtTest>

#include <memory>

class TestDlgTabPageAdvanced : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void groupsAndCaptions();
    void buttonsStartFromTheSettings_data();
    void buttonsStartFromTheSettings();
    void applyStoresBothChoicesAndReportsAChange_data();
    void applyStoresBothChoicesAndReportsAChange();

private:
    std::unique_ptr<TempHome> m_home;
    std::unique_ptr<CAppSettings> m_settings;
};

void TestDlgTabPageAdvanced::initTestCase()
{
    m_home = std::make_unique<TempHome>();
    QVERIFY(m_home->isValid());
}

void TestDlgTabPageAdvanced::init()
{
    TempHome::clearSettings();
    m_settings = std::make_unique<CAppSettings>();
}

void TestDlgTabPageAdvanced::cleanup()
{
    m_settings.reset();
}

void TestDlgTabPageAdvanced::groupsAndCaptions()
{
    CDlgTabPageAdvanced page(m_settings.get());
    const QList<QGroupBoxBold *> groups = page.findChildren<QGroupBoxBold *>();
    QCOMPARE(groups.size(), 2);
    QCOMPARE(groups.at(0)->title(), QStringLiteral("Colour Match Units"));
    QCOMPARE(groups.at(1)->title(), QStringLiteral("Colour Averaging"));
    QCOMPARE(page.percentButton()->text(), QStringLiteral("Percent"));
    QCOMPARE(page.deltaEButton()->text(), QString::fromUtf8("\xCE\x94" "E (Delta E)"));
    QCOMPARE(page.rgbAverageButton()->text(), QStringLiteral("RGB (red,green,blue)"));
    QCOMPARE(page.labAverageButton()->text(), QStringLiteral(" CIE L*a*b*"));
    QCOMPARE(page.helpAnchor(), QStringLiteral("config.html#configAdvanced"));
    // Groups stand one below the other, in this order.
    page.show();
    QVERIFY(groups.at(0)->y() < groups.at(1)->y());
}

void TestDlgTabPageAdvanced::buttonsStartFromTheSettings_data()
{
    QTest::addColumn<bool>("rgbDifference");
    QTest::addColumn<bool>("rgbAverage");
    QTest::newRow("percent, rgb") << true << true;
    QTest::newRow("delta e, lab") << false << false;
    QTest::newRow("percent, lab") << true << false;
}

void TestDlgTabPageAdvanced::buttonsStartFromTheSettings()
{
    QFETCH(bool, rgbDifference);
    QFETCH(bool, rgbAverage);
    m_settings->rgbDifference = rgbDifference;
    m_settings->rgbAverage = rgbAverage;
    CDlgTabPageAdvanced page(m_settings.get());
    QCOMPARE(page.percentButton()->isChecked(), rgbDifference);
    QCOMPARE(page.deltaEButton()->isChecked(), !rgbDifference);
    QCOMPARE(page.rgbAverageButton()->isChecked(), rgbAverage);
    QCOMPARE(page.labAverageButton()->isChecked(), !rgbAverage);
}

void TestDlgTabPageAdvanced::applyStoresBothChoicesAndReportsAChange_data()
{
    QTest::addColumn<bool>("clickDeltaE");
    QTest::addColumn<bool>("clickLab");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("units only") << true << false;
    QTest::newRow("averaging only") << false << true;
    QTest::newRow("both") << true << true;
}

void TestDlgTabPageAdvanced::applyStoresBothChoicesAndReportsAChange()
{
    QFETCH(bool, clickDeltaE);
    QFETCH(bool, clickLab);
    CDlgTabPageAdvanced page(m_settings.get());
    page.show();
    if (clickDeltaE)
        DialogActions::clickRadio(page.deltaEButton());
    if (clickLab)
        DialogActions::clickRadio(page.labAverageButton());
    QCOMPARE(page.applyChanges(), clickDeltaE || clickLab);
    QCOMPARE(m_settings->rgbDifference, !clickDeltaE);
    QCOMPARE(m_settings->rgbAverage, !clickLab);
    QVERIFY(!page.applyChanges());
}

QTEST_MAIN(TestDlgTabPageAdvanced)
#include "tst_dlgtabpageadvanced.moc"
