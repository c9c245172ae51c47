#include "help/elidedlabel.h"
#include "help/textinputdlg.h"

#include "support/guitestfixture.h"
#include "support/modalanswerer.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

QPushButton *buttonNamed(QWidget *dialog, const QString &text)
{
    for (QPushButton *button : dialog->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

CTextInputDlg *renameTableDialog(QWidget *parent = nullptr)
{
    return new CTextInputDlg("Vellora - Rename Colour Table", "Rename:", "Summer Reds", "New Name:",
                             "Please enter the new name for the colour table.", parent, QString(),
                             true);
}

const char kImportPrompt[] = "Please enter a name to use for the newly imported colour table.";

} // namespace

class TestTextInputDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void blanksOnlyShowPromptAsErrorAndDialogStaysOpen();
    void enteredNameIsTrimmed();
    void cancelRejects();
    void thirtyThirdCharacterCannotBeTyped();
    void promptsStartPreFilledOnlyForRenames_data();
    void promptsStartPreFilledOnlyForRenames();
    void captionBlockLeftOutWithoutCaption();
    void longPathElidedInTheMiddleAndWideningShowsMore();
    void helpButtonOnlyWithAnAnchor();
    void helpButtonAndF1EmitTheAnchor();
    void dialogIsWindowModalWithAMinimumSize();

private:
    GuiTestFixture m_fixture;
};

void TestTextInputDlg::initTestCase()
{
    QVERIFY(m_fixture.isValid());
}

void TestTextInputDlg::blanksOnlyShowPromptAsErrorAndDialogStaysOpen()
{
    CTextInputDlg dialog("Vellora - New Colour Table", QString(), QString(), "Table Name:",
                         "Please enter the name of the new colour table.");
    dialog.show();
    QTest::keyClicks(dialog.lineEdit(), "    ");
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    ModalAnswerer answer("OK", [&icon](QWidget *box) {
        if (auto *messageBox = qobject_cast<QMessageBox *>(box))
            icon = messageBox->icon();
    });
    QTest::mouseClick(buttonNamed(&dialog, "&OK"), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(answer.wasAnswered(), 5000);
    QCOMPARE(answer.title(), QStringLiteral("Vellora"));
    QCOMPARE(answer.text(), QStringLiteral("Please enter the name of the new colour table."));
    QCOMPARE(icon, QMessageBox::Critical);
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.result() != QDialog::Accepted);
}

void TestTextInputDlg::enteredNameIsTrimmed()
{
    CTextInputDlg dialog("Vellora - New Colour Table", QString(), QString(), "Table Name:",
                         "Please enter the name of the new colour table.");
    dialog.show();
    QTest::keyClicks(dialog.lineEdit(), "  Autumn Browns  ");
    QTest::mouseClick(buttonNamed(&dialog, "&OK"), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.text(), QStringLiteral("Autumn Browns"));
}

void TestTextInputDlg::cancelRejects()
{
    QScopedPointer<CTextInputDlg> dialog(renameTableDialog());
    dialog->show();
    QTest::mouseClick(buttonNamed(dialog.data(), "&Cancel"), Qt::LeftButton);
    QCOMPARE(dialog->result(), int(QDialog::Rejected));
    QVERIFY(!dialog->isVisible());
}

void TestTextInputDlg::thirtyThirdCharacterCannotBeTyped()
{
    CTextInputDlg dialog("Vellora - New Colour Table", QString(), QString(), "Table Name:",
                         "Please enter the name of the new colour table.");
    dialog.show();
    const QString thirtyTwo(32, QLatin1Char('a'));
    QTest::keyClicks(dialog.lineEdit(), thirtyTwo);
    QCOMPARE(dialog.lineEdit()->text(), thirtyTwo);
    QTest::keyClicks(dialog.lineEdit(), "b");
    QCOMPARE(dialog.lineEdit()->text(), thirtyTwo);
    QVERIFY(dialog.lineEdit()->minimumWidth() >= 32 * dialog.fontMetrics().averageCharWidth());
}

void TestTextInputDlg::promptsStartPreFilledOnlyForRenames_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("captionLabel");
    QTest::addColumn<QString>("captionValue");
    QTest::addColumn<QString>("fieldLabel");
    QTest::addColumn<QString>("anchor");
    QTest::addColumn<bool>("preFill");
    QTest::addColumn<QString>("expected");
    QTest::newRow("new table") << "Vellora - New Colour Table" << QString() << QString()
                               << "Table Name:" << QString() << false << QString();
    QTest::newRow("copy table") << "Vellora - Copy Colour Table" << "Copying:" << "Reds"
                                << "Destination:" << QString() << false << QString();
    QTest::newRow("rename table") << "Vellora - Rename Colour Table" << "Rename:" << "Reds"
                                  << "New Name:" << QString() << true << "Reds";
    QTest::newRow("rename entry") << "Vellora - Rename Item" << "Rename colour table item:"
                                  << "Crimson" << "New Name:" << QString() << true << "Crimson";
    QTest::newRow("import") << "Vellora - Import Colour Table" << "Importing:"
                            << "/home/user/colours.config" << "Save To:"
                            << "library.html#libMaintTabB" << false << QString();
}

void TestTextInputDlg::promptsStartPreFilledOnlyForRenames()
{
    QFETCH(QString, title);
    QFETCH(QString, captionLabel);
    QFETCH(QString, captionValue);
    QFETCH(QString, fieldLabel);
    QFETCH(QString, anchor);
    QFETCH(bool, preFill);
    QFETCH(QString, expected);
    CTextInputDlg dialog(title, captionLabel, captionValue, fieldLabel, "prompt", nullptr, anchor,
                         preFill);
    QCOMPARE(dialog.windowTitle(), title);
    QCOMPARE(dialog.lineEdit()->text(), expected);
    QStringList labels;
    for (QLabel *label : dialog.findChildren<QLabel *>())
        labels << label->text();
    QVERIFY(labels.contains(fieldLabel));
    if (!captionValue.isEmpty()) {
        QVERIFY(labels.contains(captionLabel));
        QCOMPARE(dialog.captionValueLabel()->text(), captionValue);
    }
}

void TestTextInputDlg::captionBlockLeftOutWithoutCaption()
{
    CTextInputDlg dialog("Vellora - New Colour Table", QString(), QString(), "Table Name:",
                         "Please enter the name of the new colour table.");
    QVERIFY(!dialog.captionValueLabel());
    QCOMPARE(dialog.findChildren<QLabel *>().size(), 1);
}

void TestTextInputDlg::longPathElidedInTheMiddleAndWideningShowsMore()
{
    QString path = QStringLiteral("/home/user");
    for (int i = 0; i < 12; ++i)
        path += QStringLiteral("/a rather long folder name %1").arg(i);
    path += QStringLiteral("/final colours.config");
    CTextInputDlg dialog("Vellora - Import Colour Table", "Importing:", path, "Save To:",
                         kImportPrompt, nullptr, "library.html#libMaintTabB", false);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    CElidedLabel *label = dialog.captionValueLabel();
    QCOMPARE(label->elideMode(), Qt::ElideMiddle);
    QCOMPARE(label->text(), path);
    QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
    QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);

    const QString narrow = label->displayedText();
    const QChar ellipsis(0x2026);
    QVERIFY2(narrow.contains(ellipsis), qPrintable(narrow));
    QVERIFY(narrow.startsWith(QStringLiteral("/home")));
    QVERIFY(narrow.endsWith(QStringLiteral("colours.config")));

    dialog.resize(dialog.width() + 400, dialog.height());
    QTRY_VERIFY_WITH_TIMEOUT(label->displayedText().size() > narrow.size(), 2000);
    QVERIFY(label->displayedText().contains(ellipsis));
}

void TestTextInputDlg::helpButtonOnlyWithAnAnchor()
{
    QScopedPointer<CTextInputDlg> rename(renameTableDialog());
    QVERIFY(!rename->helpButton());
    QVERIFY(!buttonNamed(rename.data(), "&Help"));
    CTextInputDlg import("Vellora - Import Colour Table", "Importing:", "/tmp/x.config",
                         "Save To:", kImportPrompt, nullptr, "library.html#libMaintTabB", false);
    QVERIFY(import.helpButton());
    QCOMPARE(import.helpButton()->text(), QStringLiteral("&Help"));
}

void TestTextInputDlg::helpButtonAndF1EmitTheAnchor()
{
    CTextInputDlg dialog("Vellora - Import Colour Table", "Importing:", "/tmp/x.config",
                         "Save To:", kImportPrompt, nullptr, "library.html#libMaintTabB", false);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QSignalSpy spy(&dialog, &CTextInputDlg::displayHelpSignal);
    QTest::mouseClick(dialog.helpButton(), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("library.html#libMaintTabB"));
    QTest::keyClick(dialog.lineEdit(), Qt::Key_F1);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toString(), QStringLiteral("library.html#libMaintTabB"));
    QVERIFY(dialog.isVisible());
}

void TestTextInputDlg::dialogIsWindowModalWithAMinimumSize()
{
    QScopedPointer<CTextInputDlg> dialog(renameTableDialog());
    QCOMPARE(dialog->windowModality(), Qt::WindowModal);
    QCOMPARE(dialog->minimumSize(), QSize(250, 200));
    QPushButton *ok = buttonNamed(dialog.data(), "&OK");
    QVERIFY(ok);
    QVERIFY(ok->isDefault());
    QVERIFY(buttonNamed(dialog.data(), "&Cancel"));
}

QTEST_MAIN(TestTextInputDlg)
#include "tst_textinputdlg.moc"
