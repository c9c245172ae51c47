#include "common/appcontext.h"
#include "app/appsettings.h"
#include "help/tipdialog.h"

#include "support/modalanswerer.h"
#include "support/storedsettings.h"
#include "support/guitestfixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

class TestTipDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void threeTipsWithStoredIndexTwoShowTheThirdAndStoreZero();
    void storedIndexTenWithThreeTipsShowsTheThirdAndStoresZero();
    void negativeStoredIndexShowsTheFirstTip();
    void onlyBlankLinesGiveNoTipsAvailable();
    void missingTipsFileGivesNoTipsAvailable();
    void tipOverThreeLinesIsOneParagraphWithSingleBlanks();
    void consecutiveBlankLinesMakeNoEmptyTips();
    void nextTipWalksTheListRoundAndRound();
    void tipIsShownAsHtmlAndReadAsUtf8();
    void checkBoxStartsFromTheSetting_data();
    void checkBoxStartsFromTheSetting();
    void uncheckingTheBoxAndClosingStoresFalseAndTheDialogStaysAwayAtNextStart();
    void startupShowsTheTitledDialogOnceMadeAndFixedInSize();
    void shippedTipsFileHoldsAtLeastTwentyFiveShortTips();
    void lightBulbAndHeadingAreShown();

private:
    QString writeTips(const QByteArray &content);

    GuiTestFixture *m_home = nullptr;
    CAppSettings *m_settings = nullptr;
};

void TestTipDialog::initTestCase()
{
    m_home = new GuiTestFixture;
}

void TestTipDialog::init()
{
    delete CTipDialog::instance();
    delete m_settings;
    TempHome::clearSettings();
    m_settings = new CAppSettings;
}

void TestTipDialog::cleanupTestCase()
{
    delete CTipDialog::instance();
    delete m_settings;
    delete m_home;
}

QString TestTipDialog::writeTips(const QByteArray &content)
{
    const QString path = m_home->home() + QLatin1String("/tips.txt");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QString();
    file.write(content);
    return path;
}

void TestTipDialog::threeTipsWithStoredIndexTwoShowTheThirdAndStoreZero()
{
    const QString path = writeTips("First tip.\n\nSecond tip.\n\nThird tip.\n");
    m_settings->startTipIndex = 2;
    CTipDialog dialog(m_settings, nullptr, path);
    QCOMPARE(dialog.tips().size(), 3);
    QCOMPARE(dialog.tipView()->toPlainText(), QStringLiteral("Third tip."));
    QCOMPARE(m_settings->startTipIndex, 0);
    QVERIFY(dialog.nextButton()->isEnabled());
}

void TestTipDialog::storedIndexTenWithThreeTipsShowsTheThirdAndStoresZero()
{
    const QString path = writeTips("First tip.\n\nSecond tip.\n\nThird tip.\n");
    m_settings->startTipIndex = 10;
    CTipDialog dialog(m_settings, nullptr, path);
    QCOMPARE(dialog.tipView()->toPlainText(), QStringLiteral("Third tip."));
    QCOMPARE(m_settings->startTipIndex, 0);
}

void TestTipDialog::negativeStoredIndexShowsTheFirstTip()
{
    const QString path = writeTips("First tip.\n\nSecond tip.\n\nThird tip.\n");
    m_settings->startTipIndex = -4;
    CTipDialog dialog(m_settings, nullptr, path);
    QCOMPARE(dialog.tipView()->toPlainText(), QStringLiteral("First tip."));
    QCOMPARE(m_settings->startTipIndex, 1);
}

void TestTipDialog::onlyBlankLinesGiveNoTipsAvailable()
{
    const QString path = writeTips("\n   \n\t\n\n  \n");
    m_settings->startTipIndex = 3;
    CTipDialog dialog(m_settings, nullptr, path);
    QVERIFY(dialog.tips().isEmpty());
    QCOMPARE(dialog.tipView()->toPlainText(), QStringLiteral("No tips available."));
    // Bold as the text document writes it: CSS weight 600 in Qt 5, 700 in Qt 6.
    const int boldCss = QT_VERSION_MAJOR >= 6 ? 700 : 600;
    QVERIFY(dialog.tipView()->toHtml().contains(QStringLiteral("font-weight:%1").arg(boldCss)));
    QVERIFY(!dialog.nextButton()->isEnabled());
    QCOMPARE(m_settings->startTipIndex, 3);
}

void TestTipDialog::missingTipsFileGivesNoTipsAvailable()
{
    CTipDialog dialog(m_settings, nullptr, m_home->home() + QLatin1String("/none/tips.txt"));
    QCOMPARE(dialog.tipView()->toPlainText(), QStringLiteral("No tips available."));
    QVERIFY(!dialog.nextButton()->isEnabled());
}

void TestTipDialog::tipOverThreeLinesIsOneParagraphWithSingleBlanks()
{
    const QString path = writeTips("  Pick with\t\n   a larger   \nsquare.  \n\nOther.\n");
    CTipDialog dialog(m_settings, nullptr, path);
    QCOMPARE(dialog.tips().size(), 2);
    QCOMPARE(dialog.tips().first(), QStringLiteral("Pick with a larger square."));
    QCOMPARE(dialog.tipView()->toPlainText(), QStringLiteral("Pick with a larger square."));
    QCOMPARE(dialog.tipView()->document()->blockCount(), 1);
}

void TestTipDialog::consecutiveBlankLinesMakeNoEmptyTips()
{
    QCOMPARE(CTipDialog::parseTips(QStringLiteral("\n\nOne\n\n\n\n  \nTwo\r\nstill two\n\n")),
             (QStringList{QStringLiteral("One"), QStringLiteral("Two still two")}));
    QCOMPARE(CTipDialog::parseTips(QStringLiteral("Last tip without a newline")),
             QStringList{QStringLiteral("Last tip without a newline")});
}

void TestTipDialog::nextTipWalksTheListRoundAndRound()
{
    const QString path = writeTips("First tip.\n\nSecond tip.\n\nThird tip.\n");
    CTipDialog dialog(m_settings, nullptr, path);
    QStringList shown{dialog.tipView()->toPlainText()};
    for (int i = 0; i < 4; ++i) {
        QTest::mouseClick(dialog.nextButton(), Qt::LeftButton);
        shown << dialog.tipView()->toPlainText();
    }
    QCOMPARE(shown, (QStringList{"First tip.", "Second tip.", "Third tip.", "First tip.",
                                 "Second tip."}));
    QCOMPARE(m_settings->startTipIndex, 2);
}

void TestTipDialog::tipIsShownAsHtmlAndReadAsUtf8()
{
    const QString path = writeTips("A <b>ΔE</b> below 1<br>is invisible.\n");
    CTipDialog dialog(m_settings, nullptr, path);
    QCOMPARE(dialog.tipView()->toPlainText(),
             QString::fromUtf8("A \xce\x94\x45 below 1\nis invisible."));
    QVERIFY(dialog.tipView()->isReadOnly());
}

void TestTipDialog::checkBoxStartsFromTheSetting_data()
{
    QTest::addColumn<bool>("show");
    QTest::newRow("shown") << true;
    QTest::newRow("not shown") << false;
}

void TestTipDialog::checkBoxStartsFromTheSetting()
{
    QFETCH(bool, show);
    m_settings->showStartTip = show;
    CTipDialog dialog(m_settings, nullptr, writeTips("Tip.\n"));
    QCOMPARE(dialog.startupCheckBox()->isChecked(), show);
    QCOMPARE(dialog.startupCheckBox()->text(), QStringLiteral("Show \"Tip Of The Day\" at startup"));
}

void TestTipDialog::uncheckingTheBoxAndClosingStoresFalseAndTheDialogStaysAwayAtNextStart()
{
    const QString path = writeTips("First tip.\n\nSecond tip.\n");
    QVERIFY(m_settings->showStartTip);
    ModalAnswerer answer(QStringLiteral("&Close"), [](QWidget *dialog) {
        QCheckBox *box = dialog->findChild<QCheckBox *>();
        if (box)
            QTest::mouseClick(box, Qt::LeftButton);
    });
    QVERIFY(CTipDialog::showAtStartup(nullptr, QStringLiteral("Vellora"), m_settings, path));
    QVERIFY(answer.wasAnswered());
    QVERIFY(!m_settings->showStartTip);
    m_settings->save(nullptr);
    QCOMPARE(StoredSettings::value(QStringLiteral("General/showStartTip")).toBool(), false);
    QCOMPARE(StoredSettings::value(QStringLiteral("General/startTipIndex")).toInt(), 1);

    // The next start reads the stored settings and shows nothing.
    delete CTipDialog::instance();
    CAppSettings nextStart;
    QVERIFY(!nextStart.showStartTip);
    ModalAnswerer unexpected(QStringLiteral("&Close"), ModalAnswerer::Action(), 300);
    QVERIFY(!CTipDialog::showAtStartup(nullptr, QStringLiteral("Vellora"), &nextStart, path));
    QVERIFY(!CTipDialog::instance());
    QCoreApplication::processEvents();
    QVERIFY(!unexpected.wasAnswered());
}

void TestTipDialog::startupShowsTheTitledDialogOnceMadeAndFixedInSize()
{
    const QString path = writeTips("First tip.\n\nSecond tip.\n\nThird tip.\n");
    {
        ModalAnswerer answer(QStringLiteral("&Close"));
        QVERIFY(CTipDialog::showAtStartup(nullptr, QStringLiteral("Vellora"), m_settings, path));
        QVERIFY(answer.wasAnswered());
        QCOMPARE(answer.title(), QStringLiteral("Vellora - Tip Of The Day"));
    }
    CTipDialog *first = CTipDialog::instance();
    QVERIFY(first);
    QCOMPARE(first->minimumSize(), first->maximumSize());
    QCOMPARE(first->size(), first->sizeHint());
    QVERIFY(m_settings->showStartTip);
    QCOMPARE(m_settings->startTipIndex, 1);
    {
        ModalAnswerer answer(QStringLiteral("&Close"));
        QVERIFY(CTipDialog::showAtStartup(nullptr, QStringLiteral("Vellora"), m_settings, path));
        QVERIFY(answer.wasAnswered());
    }
    QCOMPARE(CTipDialog::instance(), first);
}

void TestTipDialog::shippedTipsFileHoldsAtLeastTwentyFiveShortTips()
{
    const QString shipped = QStringLiteral(VELLORA_SHIPPED_TIPS);
    QCOMPARE(QFileInfo(shipped).fileName(), QStringLiteral("tips.txt"));
    const QStringList tips = CTipDialog::readTips(shipped);
    QVERIFY2(tips.size() >= 25, qPrintable(QString::number(tips.size())));
    for (const QString &tip : tips) {
        QVERIFY(!tip.trimmed().isEmpty());
        QVERIFY2(tip.size() < 300, qPrintable(tip));
    }
    int withMarkup = 0;
    for (const QString &tip : tips)
        withMarkup += tip.contains(QLatin1String("<b>")) ? 1 : 0;
    QVERIFY(withMarkup >= 5);
}

void TestTipDialog::lightBulbAndHeadingAreShown()
{
    CTipDialog dialog(m_settings, nullptr, writeTips("Tip.\n"));
    bool bulb = false;
    bool heading = false;
    for (QLabel *label : dialog.findChildren<QLabel *>()) {
        bulb = bulb || !label->pixmap(Qt::ReturnByValue).isNull();
        heading = heading
            || label->text() == QStringLiteral("<font color=\"#2874a6\"><h2>Did you know ..</h2></font>");
    }
    QVERIFY(bulb);
    QVERIFY(heading);
    QCOMPARE(dialog.nextButton()->text(), QStringLiteral("&Next Tip"));
    QCOMPARE(dialog.closeButton()->text(), QStringLiteral("&Close"));
}

QTEST_MAIN(TestTipDialog)
#include "tst_tipdialog.moc"
