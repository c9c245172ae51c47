#include "config/dlgdisplayupdate.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QTextDocument>
#include <QtTest>

// Stands in for the desktop: records every address it is asked to open.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public slots:
    void open(const QUrl &url) { opened.append(url); }
};

class TestDlgDisplayUpdate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_catcher.opened.clear(); }

    void visitNowOpensAWebAddressAndCloses_data();
    void visitNowOpensAWebAddressAndCloses();
    void visitNowIgnoresAddressesThatAreNotWebPages_data();
    void visitNowIgnoresAddressesThatAreNotWebPages();
    void visitNowIsHiddenWhenNotOffered();
    void closeEndsTheDialog();
    void lineBreaksAreShownAsLineBreaks();
    void titleIsTheProductNameAndSizeIsFixed();

private:
    UrlCatcher m_catcher;
};

void TestDlgDisplayUpdate::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    for (const char *scheme : {"http", "https", "file", "mailto", "javascript", "smb", "ftp"})
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &m_catcher, "open");
}

void TestDlgDisplayUpdate::cleanupTestCase()
{
    for (const char *scheme : {"http", "https", "file", "mailto", "javascript", "smb", "ftp"})
        QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
}

void TestDlgDisplayUpdate::visitNowOpensAWebAddressAndCloses_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("https") << "https://dl.tessaline.test/vellora";
    QTest::newRow("http") << "http://dl.tessaline.test/vellora?v=1.0.1";
    QTest::newRow("upper-case scheme") << "HTTPS://dl.tessaline.test/";
}

void TestDlgDisplayUpdate::visitNowOpensAWebAddressAndCloses()
{
    QFETCH(QString, address);
    CDlgDisplayUpdate dialog(nullptr, QStringLiteral("new"), address, true);
    dialog.show();
    QVERIFY(dialog.visitButton()->isVisible());
    QCOMPARE(dialog.visitButton()->text(), QStringLiteral("&Visit Now"));
    QTest::mouseClick(dialog.visitButton(), Qt::LeftButton);
    QCOMPARE(m_catcher.opened.size(), 1);
    QCOMPARE(m_catcher.opened.first(), QUrl(address));
    QVERIFY(!dialog.isVisible());
}

void TestDlgDisplayUpdate::visitNowIgnoresAddressesThatAreNotWebPages_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("local file") << "file:///etc/passwd";
    QTest::newRow("bare path") << "/usr/bin/xterm";
    QTest::newRow("mail") << "mailto:someone@tessaline.test";
    QTest::newRow("script") << "javascript:alert(1)";
    QTest::newRow("network share") << "smb://server/share/setup.exe";
    QTest::newRow("ftp") << "ftp://dl.tessaline.test/vellora";
    QTest::newRow("empty") << "";
    QTest::newRow("https without host") << "https:///etc/passwd";
}

void TestDlgDisplayUpdate::visitNowIgnoresAddressesThatAreNotWebPages()
{
    QFETCH(QString, address);
    CDlgDisplayUpdate dialog(nullptr, QStringLiteral("new"), address, true);
    dialog.show();
    QTest::mouseClick(dialog.visitButton(), Qt::LeftButton);
    QVERIFY(m_catcher.opened.isEmpty());
    QVERIFY(!dialog.isVisible());
}

void TestDlgDisplayUpdate::visitNowIsHiddenWhenNotOffered()
{
    CDlgDisplayUpdate dialog(nullptr, QStringLiteral("latest"), QString(), false);
    dialog.show();
    QVERIFY(!dialog.visitButton()->isVisible());
    QVERIFY(dialog.closeButton()->isVisible());
    QCOMPARE(dialog.closeButton()->text(), QStringLiteral("&Close"));
}

void TestDlgDisplayUpdate::closeEndsTheDialog()
{
    CDlgDisplayUpdate dialog(nullptr, QStringLiteral("latest"), QStringLiteral("https://x.test/"),
                             true);
    QTimer::singleShot(0, dialog.closeButton(), [&dialog]() {
        QTest::mouseClick(dialog.closeButton(), Qt::LeftButton);
    });
    dialog.exec();
    QVERIFY(!dialog.isVisible());
    QVERIFY(m_catcher.opened.isEmpty());
}

void TestDlgDisplayUpdate::lineBreaksAreShownAsLineBreaks()
{
    CDlgDisplayUpdate dialog(nullptr, QStringLiteral("<b>one</b>\ntwo\n\nthree"), QString(),
                             false);
    QTextDocument document;
    document.setHtml(dialog.messageLabel()->text());
    QCOMPARE(document.toPlainText(), QStringLiteral("one\ntwo\n\nthree"));
    QCOMPARE(dialog.messageLabel()->textFormat(), Qt::RichText);
}

void TestDlgDisplayUpdate::titleIsTheProductNameAndSizeIsFixed()
{
    CDlgDisplayUpdate dialog(nullptr, QStringLiteral("x"), QString(), false);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Vellora"));
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());
}

QTEST_MAIN(TestDlgDisplayUpdate)
#include "tst_dlgdisplayupdate.moc"
