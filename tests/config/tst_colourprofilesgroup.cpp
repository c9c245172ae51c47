#include "app/appsettings.h"
#include "config/colourprofilesgroup.h"
#include "config/configdlg.h"
#include "config/dlgtabpageadvanced.h"

#include <QRadioButton>

#include "support/storedsettings.h"
#include "support/temphome.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

#include <memory>

namespace {
// An address nothing listens on: no test may reach the internet.
const QString kNoService = QStringLiteral("https://127.0.0.1:1");
} // namespace

class TestColourProfilesGroup : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TempHome> m_home;
    std::unique_ptr<CAppSettings> m_settings;

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void titleAndCheckBoxText();
    void checkBoxStartsFromTheSetting_data();
    void checkBoxStartsFromTheSetting();
    void applyStoresTheChoiceAndReportsAChange();
    void groupStandsBelowTheAdvancedPagesGroups();
    void okInTheDialogStoresItAtTheNextSave();
    void cancelInTheDialogLeavesItOff();
};

void TestColourProfilesGroup::initTestCase()
{
    m_home = std::make_unique<TempHome>();
    QVERIFY(m_home->isValid());
}

void TestColourProfilesGroup::init()
{
    TempHome::clearSettings();
    m_settings = std::make_unique<CAppSettings>();
}

void TestColourProfilesGroup::cleanup()
{
    m_settings.reset();
}

void TestColourProfilesGroup::titleAndCheckBoxText()
{
    CColourProfilesGroup group(m_settings.get());
    QCOMPARE(group.title(), QStringLiteral("Colour Profiles"));
    QCOMPARE(group.convertBox()->text(),
             QStringLiteral("Convert images with an embedded colour profile to sRGB"));
    QVERIFY(!group.convertBox()->isChecked());
}

void TestColourProfilesGroup::checkBoxStartsFromTheSetting_data()
{
    QTest::addColumn<bool>("convert");
    QTest::newRow("off") << false;
    QTest::newRow("on") << true;
}

void TestColourProfilesGroup::checkBoxStartsFromTheSetting()
{
    QFETCH(bool, convert);
    m_settings->convertToSrgb = convert;
    CColourProfilesGroup group(m_settings.get());
    QCOMPARE(group.convertBox()->isChecked(), convert);
}

void TestColourProfilesGroup::applyStoresTheChoiceAndReportsAChange()
{
    CColourProfilesGroup group(m_settings.get());
    group.show();
    QVERIFY(!group.applyChanges());
    QTest::mouseClick(group.convertBox(), Qt::LeftButton, {},
                      group.convertBox()->rect().center());
    QVERIFY(group.convertBox()->isChecked());
    QVERIFY(!m_settings->convertToSrgb);
    QVERIFY(group.applyChanges());
    QVERIFY(m_settings->convertToSrgb);
    QVERIFY(!group.applyChanges());
}

void TestColourProfilesGroup::groupStandsBelowTheAdvancedPagesGroups()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.tabWidget()->setCurrentIndex(2);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    CDlgTabPageAdvanced *page = dialog.advancedPage();
    QCOMPARE(dialog.profilesGroup()->parentWidget(), static_cast<QWidget *>(page));
    QVERIFY(dialog.profilesGroup()->isVisible());
    const int averagingBottom =
        page->labAverageButton()->parentWidget()->geometry().bottom();
    QVERIFY(dialog.profilesGroup()->geometry().top() > averagingBottom);
}

void TestColourProfilesGroup::okInTheDialogStoresItAtTheNextSave()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.tabWidget()->setCurrentIndex(2);
    dialog.show();
    QCheckBox *box = dialog.profilesGroup()->convertBox();
    QTest::mouseClick(box, Qt::LeftButton, {}, box->rect().center());
    QTest::mouseClick(dialog.okButton(), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(dialog.changed());
    QVERIFY(m_settings->convertToSrgb);
    QVERIFY(!StoredSettings::contains(QStringLiteral("Colour/convertToSrgb")));
    m_settings->save(nullptr);
    QCOMPARE(StoredSettings::value(QStringLiteral("Colour/convertToSrgb")).toBool(), true);
}

void TestColourProfilesGroup::cancelInTheDialogLeavesItOff()
{
    CConfigDlg dialog(m_settings.get(), kNoService);
    dialog.tabWidget()->setCurrentIndex(2);
    dialog.show();
    QCheckBox *box = dialog.profilesGroup()->convertBox();
    QTest::mouseClick(box, Qt::LeftButton, {}, box->rect().center());
    QTest::mouseClick(dialog.cancelButton(), Qt::LeftButton);
    QVERIFY(!dialog.changed());
    QVERIFY(!m_settings->convertToSrgb);
}

QTEST_MAIN(TestColourProfilesGroup)
#include "tst_colourprofilesgroup.moc"
