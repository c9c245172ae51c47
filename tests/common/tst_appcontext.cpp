#include "common/appcontext.h"

#include <QCoreApplication>
#include <QSettings>
#include <QtTest>

// The program's names and version, as the build defines them.
class TestAppContext : public QObject
{
    Q_OBJECT

private slots:
    void versionIsOneZeroZero();
    void versionTitleJoinsProductAndVersion();
    void helpCollectionIsNamedAfterTheVersion();
    void identityNamesTheSettingsStore();
};

void TestAppContext::versionIsOneZeroZero()
{
    QCOMPARE(AppContext::versionText(), QStringLiteral("1.0.0"));
    QCOMPARE(AppContext::versionMajor(), 1);
    QCOMPARE(AppContext::versionMinor(), 0);
}

void TestAppContext::versionTitleJoinsProductAndVersion()
{
    QCOMPARE(AppContext::productName(), QStringLiteral("Vellora"));
    QCOMPARE(AppContext::versionTitle(), QStringLiteral("Vellora v1.0.0"));
}

void TestAppContext::helpCollectionIsNamedAfterTheVersion()
{
    QCOMPARE(AppContext::helpCollectionName(), QStringLiteral("Vellora10.0.qhc"));
}

void TestAppContext::identityNamesTheSettingsStore()
{
    QCOMPARE(QCoreApplication::organizationName(), QString());
    AppContext::setApplicationIdentity();
    QCOMPARE(QCoreApplication::organizationName(), QStringLiteral("Tessaline"));
    QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("Vellora"));
    QCOMPARE(QCoreApplication::applicationVersion(), QStringLiteral("1.0.0"));
    const QSettings store;
    QCOMPARE(store.organizationName(), QStringLiteral("Tessaline"));
    QCOMPARE(store.applicationName(), QStringLiteral("Vellora"));
}

QTEST_GUILESS_MAIN(TestAppContext)
#include "tst_appcontext.moc"
