#include "common/appcontext.h"
#include "help/dlgabout.h"
#include "help/elidedlabel.h"
#include "help/qgroupboxbold.h"
#include "help/spacerwidget.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

class TestSmallWidgets : public QObject
{
    Q_OBJECT

private slots:
    void groupBoxTitleIsBold();
    void groupBoxContentKeepsNormalWeight();
    void spacerSizeHintIsItsSize();
    void elidedLabelWithoutModeShowsFullText();
    void elidedLabelShortTextIsNotElided();
    void elidedLabelElidesAtTheChosenEnd();
    void aboutDialogShowsNameVersionAndNotice();
    void aboutVersionTextIsBuiltFromTheNumbers();
    void aboutOkAccepts();
};

void TestSmallWidgets::groupBoxTitleIsBold()
{
    QGroupBoxBold box("General");
    QCOMPARE(box.title(), QStringLiteral("General"));
    QCOMPARE(int(box.font().weight()), int(QFont::Bold));
    QVERIFY(box.font().bold());
}

void TestSmallWidgets::groupBoxContentKeepsNormalWeight()
{
    QGroupBoxBold box("Folders");
    auto *layout = new QVBoxLayout(&box);
    auto *label = new QLabel("Data folder");
    layout->addWidget(label);
    auto *direct = new QLabel("direct", &box);
    QCOMPARE(int(label->font().weight()), int(QFont::Normal));
    QCOMPARE(int(direct->font().weight()), int(QFont::Normal));
    QCOMPARE(int(box.font().weight()), int(QFont::Bold));
}

void TestSmallWidgets::spacerSizeHintIsItsSize()
{
    CSpacerWidget spacer(120, 30);
    QCOMPARE(spacer.sizeHint(), QSize(120, 30));
    CSpacerWidget narrow(15, 30);
    QCOMPARE(narrow.sizeHint(), QSize(15, 30));
}

void TestSmallWidgets::elidedLabelWithoutModeShowsFullText()
{
    const QString text(200, QLatin1Char('x'));
    CElidedLabel label(text);
    label.resize(50, 20);
    QCOMPARE(label.elideMode(), Qt::ElideNone);
    QCOMPARE(label.displayedText(), text);
}

void TestSmallWidgets::elidedLabelShortTextIsNotElided()
{
    CElidedLabel label("short");
    label.setElideMode(Qt::ElideMiddle);
    label.resize(400, 20);
    QCOMPARE(label.displayedText(), QStringLiteral("short"));
}

void TestSmallWidgets::elidedLabelElidesAtTheChosenEnd()
{
    const QString text = QStringLiteral("beginning-") + QString(100, QLatin1Char('m'))
        + QStringLiteral("-ending");
    CElidedLabel label(text);
    label.resize(120, 20);
    label.setElideMode(Qt::ElideRight);
    QVERIFY(label.displayedText().startsWith(QStringLiteral("beginning")));
    QVERIFY(label.displayedText().endsWith(QChar(0x2026)));
    label.setElideMode(Qt::ElideLeft);
    QVERIFY(label.displayedText().endsWith(QStringLiteral("ending")));
    QVERIFY(label.displayedText().startsWith(QChar(0x2026)));
    QCOMPARE(label.text(), text);
    QVERIFY(QFontMetrics(label.font()).horizontalAdvance(label.displayedText())
            <= label.contentsRect().width());
}

void TestSmallWidgets::aboutDialogShowsNameVersionAndNotice()
{
    CDlgAbout dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("About Vellora"));
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
    QCOMPARE(dialog.nameLabel()->text(), QStringLiteral("<b>Vellora</b>"));
    QCOMPARE(dialog.versionLabel()->text(), QStringLiteral("<b>v1.0.0</b>"));
    QVERIFY(dialog.nameLabel()->alignment() & Qt::AlignHCenter);
    QVERIFY(dialog.versionLabel()->alignment() & Qt::AlignHCenter);
    QVERIFY(!dialog.noticeLabel()->text().isEmpty());
    QCOMPARE(dialog.noticeLabel()->textFormat(), Qt::RichText);
}

void TestSmallWidgets::aboutVersionTextIsBuiltFromTheNumbers()
{
    QCOMPARE(CDlgAbout::versionText(1, 0), QStringLiteral("v1.0.0"));
    QCOMPARE(CDlgAbout::versionText(2, 7), QStringLiteral("v2.7.0"));
}

void TestSmallWidgets::aboutOkAccepts()
{
    CDlgAbout dialog;
    dialog.show();
    QPushButton *ok = nullptr;
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text() == QStringLiteral("&OK"))
            ok = button;
    }
    QVERIFY(ok);
    QTest::mouseClick(ok, Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
}

QTEST_MAIN(TestSmallWidgets)
#include "tst_smallwidgets.moc"
