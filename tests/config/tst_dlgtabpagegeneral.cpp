#include "app/appsettings.h"
#include "config/configdlg.h"
#include "config/dlgdisplayupdate.h"
#include "config/dlgtabpagegeneral.h"
#include "config/dlgupdateprogress.h"
#include "dialogwatcher.h"
#include "httpsserver.h"
#include "help/qgroupboxbold.h"

#include "support/modalanswerer.h"
#include "support/modalsequence.h"
#include "support/temphome.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSslSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {
const QString kConsent = QStringLiteral(
    "This application needs to connect to the internet to check for any updates.\n"
    "Would you like to proceed?");

// Counts the update progress dialogs that are shown.
class ProgressCounter : public QObject
{
public:
    int shown = 0;
    ProgressCounter() { qApp->installEventFilter(this); }
    ~ProgressCounter() override { qApp->removeEventFilter(this); }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<CDlgUpdateProgress *>(object))
            ++shown;
        return false;
    }
};

// Answers the consent question, then closes the result dialog; records both.
struct CheckAnswers
{
    QString questionTitle;
    QString questionText;
    QWidget *questionParent = nullptr;
    QString resultMessage;
    bool configStillVisible = false;
};
} // namespace

class TestDlgTabPageGeneral : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void groupsAndCaptionsInOrder();
    void matchCountItemsCarryTheirNumbers();
    void widgetsStartFromTheSettings();
    void applyStoresOnlyWhatDiffers();
    void formatFollowsTheCheckedButton_data();
    void formatFollowsTheCheckedButton();
    void checkAsksFirstAndNoGoesNowhere();
    void checkWithConsentShowsTheResultAndTheDialogStaysOpen();
    void checkWithConsentAndNoServiceShowsTheErrorText();

private:
    DialogWatcher::Step answerCheck(CheckAnswers *answers, QWidget *config);

    std::unique_ptr<TempHome> m_home;
    std::unique_ptr<CAppSettings> m_settings;
    QTemporaryDir m_certDir;
    QSslCertificate m_certificate;
    QSslKey m_key;
};

void TestDlgTabPageGeneral::initTestCase()
{
    m_home = std::make_unique<TempHome>();
    QVERIFY(m_home->isValid());
    QVERIFY(QSslSocket::supportsSsl());
    QString error;
    QVERIFY2(makeSelfSignedCertificate(m_certDir.path(), &m_certificate, &m_key, &error),
             qPrintable(error));
}

void TestDlgTabPageGeneral::init()
{
    TempHome::clearSettings();
    m_settings = std::make_unique<CAppSettings>();
}

void TestDlgTabPageGeneral::cleanup()
{
    m_settings.reset();
}

void TestDlgTabPageGeneral::groupsAndCaptionsInOrder()
{
    CDlgTabPageGeneral page(m_settings.get(), QString());
    const QList<QGroupBoxBold *> groups = page.findChildren<QGroupBoxBold *>();
    QStringList titles;
    for (QGroupBoxBold *group : groups)
        titles << group->title();
    QCOMPARE(titles, QStringList({"Number of Matching Results", "RGB Display Format",
                                  "Tip Of The Day", "Check For New Version"}));
    QCOMPARE(groups.first()->findChild<QLabel *>()->text(), QStringLiteral("Minimum To Display:"));
    QCOMPARE(page.integerButton()->text(), QStringLiteral("Integer (0 - 255)"));
    QCOMPARE(page.decimalButton()->text(), QStringLiteral("Decimal (0.0 - 1.0)"));
    QCOMPARE(page.hexButton()->text(), QStringLiteral("Hex (0x00 - 0xff)"));
    QCOMPARE(page.startTipCheck()->text(), QStringLiteral("Show \"Tip Of The Day\" at startup"));
    QCOMPARE(page.checkButton()->text(), QStringLiteral("&Check"));
    QCOMPARE(page.helpAnchor(), QStringLiteral("config.html#configGeneral"));
}

void TestDlgTabPageGeneral::matchCountItemsCarryTheirNumbers()
{
    CDlgTabPageGeneral page(m_settings.get(), QString());
    QComboBox *combo = page.matchCountCombo();
    QCOMPARE(combo->count(), 8);
    for (int i = 0; i < 8; ++i) {
        QCOMPARE(combo->itemText(i), QString::number(i + 1));
        QCOMPARE(combo->itemData(i).toInt(), i + 1);
    }
    QCOMPARE(combo->currentData().toInt(), 4);
}

void TestDlgTabPageGeneral::widgetsStartFromTheSettings()
{
    m_settings->maxRecordsDisplay = 7;
    m_settings->rgbFormat = 1;
    m_settings->showStartTip = false;
    CDlgTabPageGeneral page(m_settings.get(), QString());
    QCOMPARE(page.matchCountCombo()->currentText(), QStringLiteral("7"));
    QVERIFY(page.decimalButton()->isChecked());
    QVERIFY(!page.integerButton()->isChecked());
    QVERIFY(!page.hexButton()->isChecked());
    QVERIFY(!page.startTipCheck()->isChecked());
}

void TestDlgTabPageGeneral::applyStoresOnlyWhatDiffers()
{
    CDlgTabPageGeneral page(m_settings.get(), QString());
    page.show();
    QVERIFY(!page.applyChanges());
    QTest::mouseClick(page.startTipCheck(), Qt::LeftButton);
    page.matchCountCombo()->setCurrentIndex(1);
    QVERIFY(page.applyChanges());
    QCOMPARE(m_settings->showStartTip, false);
    QCOMPARE(m_settings->maxRecordsDisplay, 2);
    QCOMPARE(m_settings->rgbFormat, 0);
    QVERIFY(!page.applyChanges());
}

void TestDlgTabPageGeneral::formatFollowsTheCheckedButton_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("applied");
    QTest::newRow("integer") << 2 << 0 << 0;
    QTest::newRow("decimal") << 0 << 1 << 1;
    QTest::newRow("hex") << 0 << 2 << 2;
    // A stored value outside 0 to 2 checks nothing; OK then takes hex.
    QTest::newRow("none checked") << 9 << -1 << 2;
}

void TestDlgTabPageGeneral::formatFollowsTheCheckedButton()
{
    QFETCH(int, stored);
    QFETCH(int, button);
    QFETCH(int, applied);
    m_settings->rgbFormat = stored;
    CDlgTabPageGeneral page(m_settings.get(), QString());
    page.show();
    QRadioButton *buttons[] = {page.integerButton(), page.decimalButton(), page.hexButton()};
    if (button >= 0)
        DialogActions::clickRadio(buttons[button]);
    QCOMPARE(page.applyChanges(), applied != stored);
    QCOMPARE(m_settings->rgbFormat, applied);
}

void TestDlgTabPageGeneral::checkAsksFirstAndNoGoesNowhere()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":1,"minor":0,"revision":0})");
    CConfigDlg dialog(m_settings.get(), server.baseAddress());
    dialog.show();
    ProgressCounter progress;
    ModalAnswerer answer(QStringLiteral("No"));
    QTest::mouseClick(dialog.generalPage()->checkButton(), Qt::LeftButton);
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), kConsent);
    QCOMPARE(progress.shown, 0);
    QCOMPARE(server.connections(), 0);
    QVERIFY(dialog.isVisible());
}

DialogWatcher::Step TestDlgTabPageGeneral::answerCheck(CheckAnswers *answers, QWidget *config)
{
    return [answers, config](QWidget *modal) {
        if (auto *box = qobject_cast<QMessageBox *>(modal)) {
            if (answers->questionText.isEmpty()) {
                answers->questionTitle = box->windowTitle();
                answers->questionText = box->text();
                answers->questionParent = box->parentWidget();
                box->button(QMessageBox::Yes)->click();
            }
            return false;
        }
        auto *result = qobject_cast<CDlgDisplayUpdate *>(modal);
        if (!result)
            return false;
        answers->resultMessage = result->message();
        answers->configStillVisible = config->isVisible();
        result->closeButton()->click();
        return true;
    };
}

void TestDlgTabPageGeneral::checkWithConsentShowsTheResultAndTheDialogStaysOpen()
{
    HttpsServer server(m_certificate, m_key);
    server.answer(200, R"({"major":1,"minor":0,"revision":0})");
    CConfigDlg dialog(m_settings.get(), server.baseAddress());
    QSslConfiguration ssl = QSslConfiguration::defaultConfiguration();
    ssl.setCaCertificates({m_certificate});
    dialog.generalPage()->setUpdateSslConfiguration(ssl);
    dialog.show();
    ProgressCounter progress;
    CheckAnswers answers;
    DialogWatcher watcher(answerCheck(&answers, &dialog));
    QTest::mouseClick(dialog.generalPage()->checkButton(), Qt::LeftButton);
    QVERIFY(watcher.isDone());
    QCOMPARE(answers.questionTitle, QStringLiteral("Vellora"));
    QCOMPARE(answers.questionText, kConsent);
    QCOMPARE(answers.questionParent, static_cast<QWidget *>(dialog.generalPage()));
    QCOMPARE(progress.shown, 1);
    QCOMPARE(server.connections(), 1);
    QCOMPARE(answers.resultMessage,
             QStringLiteral(
                 "You are currently running <b>Vellora v1.0.0</b>\nthis is the latest version."));
    QVERIFY(answers.configStillVisible);
    QVERIFY(dialog.isVisible());
}

void TestDlgTabPageGeneral::checkWithConsentAndNoServiceShowsTheErrorText()
{
    quint16 port = 0;
    {
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        port = probe.serverPort();
    }
    CConfigDlg dialog(m_settings.get(), QStringLiteral("https://127.0.0.1:%1").arg(port));
    dialog.show();
    ProgressCounter progress;
    CheckAnswers answers;
    DialogWatcher watcher(answerCheck(&answers, &dialog));
    QTest::mouseClick(dialog.generalPage()->checkButton(), Qt::LeftButton);
    QVERIFY(watcher.isDone());
    QCOMPARE(progress.shown, 1);
    QCOMPARE(answers.resultMessage,
             QStringLiteral("An error occurred while checking for a newer version of Vellora.\n\n"
                            "Please try again later"));
    QVERIFY(dialog.isVisible());
}

QTEST_MAIN(TestDlgTabPageGeneral)
#include "tst_dlgtabpagegeneral.moc"
