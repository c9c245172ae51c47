#include "help/helpanchors.h"
#include "help/helpwindow.h"

#include "support/guitestfixture.h"

#include <QHelpContentModel>
#include <QHelpEngine>
#include <QHelpEngineCore>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

// The compiled manual as the program reads it: every anchor the program
// opens exists, every page is in the contents, no link inside it is broken.
class TestHelpManual : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void everyAnchorTheProgramOpensIsAnElementOfItsPage_data();
    void everyAnchorTheProgramOpensIsAnElementOfItsPage();
    void everyPageIsReachableFromTheContents();
    void everyContentsEntryPointsToAnExistingElement();
    void noLinkInsideTheManualPointsToAMissingPageOrSection();
    void everyIndexKeywordOpensAnExistingPage();
    void theManualHasAnIndexForTheMainCommands();

private:
    QString page(const QString &name) const;
    bool hasTarget(const QUrl &url) const;
    QStringList htmlPages() const;
    QList<QUrl> contentsUrls(const QModelIndex &parent) const;

    GuiTestFixture *m_home = nullptr;
    QHelpEngine *m_engine = nullptr;
};

namespace {

// The values of the given attributes in the page, in page order.
QStringList attributeValues(const QString &html, const QString &attributes)
{
    QStringList values;
    const QRegularExpression pattern(QStringLiteral("\\b(?:%1)=\"([^\"]+)\"").arg(attributes));
    auto it = pattern.globalMatch(html);
    while (it.hasNext())
        values << it.next().captured(1);
    return values;
}

QStringList elementIds(const QString &html)
{
    return attributeValues(html, QStringLiteral("id|name"));
}

QStringList linkTargets(const QString &html)
{
    return attributeValues(html, QStringLiteral("href|src"));
}

} // namespace

void TestHelpManual::initTestCase()
{
    m_home = new GuiTestFixture;
    const QString path = CHelpWindow::collectionPath(QStringLiteral(VELLORA_HELP_DIR));
    QVERIFY2(QFile::exists(path), qPrintable(path));
    m_engine = new QHelpEngine(path, this);
    m_engine->setProperty("_q_readonly", QVariant(true));
    QVERIFY(m_engine->setupData());
    m_engine->setUsesFilterEngine(true);
    QTRY_VERIFY_WITH_TIMEOUT(m_engine->contentModel()->rowCount() > 0, 10000);
    QTRY_VERIFY_WITH_TIMEOUT(m_engine->indexModel()->rowCount() > 0, 10000);
}

void TestHelpManual::cleanupTestCase()
{
    delete m_engine;
    m_engine = nullptr;
    delete m_home;
}

QString TestHelpManual::page(const QString &name) const
{
    return QString::fromUtf8(m_engine->fileData(CHelpWindow::pageUrl(name)));
}

bool TestHelpManual::hasTarget(const QUrl &url) const
{
    const QByteArray data = m_engine->fileData(url.adjusted(QUrl::RemoveFragment));
    if (data.isEmpty())
        return false;
    return url.fragment().isEmpty() || elementIds(QString::fromUtf8(data)).contains(url.fragment());
}

QStringList TestHelpManual::htmlPages() const
{
    QStringList pages;
    const QList<QUrl> files = m_engine->files(QStringLiteral("tessaline.Vellora"), QString(),
                                              QStringLiteral("html"));
    for (const QUrl &file : files)
        pages << file.fileName();
    pages.sort();
    return pages;
}

QList<QUrl> TestHelpManual::contentsUrls(const QModelIndex &parent) const
{
    QHelpContentModel *model = m_engine->contentModel();
    QList<QUrl> urls;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        urls << model->contentItemAt(index)->url() << contentsUrls(index);
    }
    return urls;
}

void TestHelpManual::everyAnchorTheProgramOpensIsAnElementOfItsPage_data()
{
    QTest::addColumn<QString>("anchor");
    const QStringList anchors = HelpAnchors::all();
    for (const QString &anchor : anchors)
        QTest::newRow(qPrintable(anchor)) << anchor;
}

void TestHelpManual::everyAnchorTheProgramOpensIsAnElementOfItsPage()
{
    QFETCH(QString, anchor);
    const QString name = anchor.section(QLatin1Char('#'), 0, 0);
    const QString fragment = anchor.section(QLatin1Char('#'), 1);
    const QString html = page(name);
    QVERIFY2(!html.isEmpty(), qPrintable(name + " is not in the collection"));
    if (!fragment.isEmpty())
        QVERIFY2(elementIds(html).contains(fragment), qPrintable(anchor + " has no element"));
}

void TestHelpManual::everyPageIsReachableFromTheContents()
{
    const QStringList pages = htmlPages();
    QVERIFY(pages.size() >= 6);
    QSet<QString> listed;
    for (const QUrl &url : contentsUrls(QModelIndex()))
        listed.insert(url.fileName());
    for (const QString &name : pages)
        QVERIFY2(listed.contains(name), qPrintable(name + " is not in the contents"));
}

void TestHelpManual::everyContentsEntryPointsToAnExistingElement()
{
    const QList<QUrl> urls = contentsUrls(QModelIndex());
    QVERIFY(urls.size() > 20);
    for (const QUrl &url : urls)
        QVERIFY2(hasTarget(url), qPrintable(url.toString()));
}

void TestHelpManual::noLinkInsideTheManualPointsToAMissingPageOrSection()
{
    int checked = 0;
    for (const QString &name : htmlPages()) {
        const QUrl base = CHelpWindow::pageUrl(name);
        const QString html = page(name);
        for (const QString &link : linkTargets(html)) {
            const QUrl url = base.resolved(QUrl(link));
            if (url.scheme() != QLatin1String("qthelp"))
                continue;
            QVERIFY2(hasTarget(url), qPrintable(name + ": " + link));
            ++checked;
        }
    }
    QVERIFY(checked > 50);
}

void TestHelpManual::everyIndexKeywordOpensAnExistingPage()
{
    const QStringList keywords = m_engine->indexModel()->stringList();
    QVERIFY(keywords.size() > 50);
    for (const QString &keyword : keywords) {
        const QList<QHelpLink> links = m_engine->documentsForKeyword(keyword);
        QVERIFY2(!links.isEmpty(), qPrintable(keyword));
        for (const QHelpLink &link : links)
            QVERIFY2(hasTarget(link.url), qPrintable(keyword + ": " + link.url.toString()));
    }
}

void TestHelpManual::theManualHasAnIndexForTheMainCommands()
{
    const QStringList keywords = m_engine->indexModel()->stringList();
    const QStringList commands{"Open Image", "Recent Images", "Configure", "Zoom In",
                               "Zoom Out", "Zoom Actual Size", "Click Select Colour",
                               "Rubber Band Select Colour", "Single Selection",
                               "Multiple Selection", "Clear Multiple Selection",
                               "Match Library Colour", "Add Colour to DataSet",
                               "Add Colour to Colour Library", "Maintain Colour Library",
                               "New data file", "Open data file", "Save data file",
                               "Save data file As", "Edit Colour Table", "Import",
                               "vellora-cli", "tip of the day", "pick size", "verdict"};
    for (const QString &command : commands)
        QVERIFY2(keywords.contains(command), qPrintable(command));
}

QTEST_MAIN(TestHelpManual)
#include "tst_helpmanual.moc"
