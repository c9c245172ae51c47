#include "help/helpbrowser.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHelpContentModel>
#include <QHelpContentWidget>
#include <QHelpEngine>

namespace {

bool isExternal(const QUrl &url)
{
    const QString scheme = url.scheme();
    return scheme == QLatin1String("http") || scheme == QLatin1String("https")
        || scheme == QLatin1String("mailto");
}

// Depth first: the entry whose url is `url`, else the first entry of the
// same page (a section without its own entry selects its page).
QModelIndex findContentItem(QHelpContentModel *model, const QModelIndex &parent,
                            const QUrl &url, QModelIndex *samePage)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const QHelpContentItem *item = model->contentItemAt(index);
        if (item && item->url() == url)
            return index;
        if (item && !samePage->isValid()
            && item->url().adjusted(QUrl::RemoveFragment) == url.adjusted(QUrl::RemoveFragment))
            *samePage = index;
        const QModelIndex found = findContentItem(model, index, url, samePage);
        if (found.isValid())
            return found;
    }
    return QModelIndex();
}

} // namespace

CHelpBrowser::CHelpBrowser(QHelpEngine *helpEngine, QWidget *parent)
    : QTextBrowser(parent), m_helpEngine(helpEngine)
{
}

QVariant CHelpBrowser::loadResource(int type, const QUrl &url)
{
    if (url.scheme() == QLatin1String("qthelp"))
        return QVariant(m_helpEngine->fileData(url));
    return QTextBrowser::loadResource(type, url);
}

bool CHelpBrowser::openedOutside(const QUrl &url)
{
    if (!isExternal(url))
        return false;
    QDesktopServices::openUrl(url);
    return true;
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
void CHelpBrowser::doSetSource(const QUrl &url, QTextDocument::ResourceType type)
{
    if (openedOutside(url))
        return;
    QTextBrowser::doSetSource(url, type);
    selectContentItem(url);
}
#else
void CHelpBrowser::setSource(const QUrl &url)
{
    if (openedOutside(url))
        return;
    QTextBrowser::setSource(url);
    selectContentItem(url);
}
#endif

void CHelpBrowser::selectContentItem(const QUrl &url)
{
    if (QFileInfo(url.path()).suffix().toLower() != QLatin1String("html"))
        return;
    QHelpContentWidget *contents = m_helpEngine->contentWidget();
    QHelpContentModel *model = m_helpEngine->contentModel();
    QModelIndex samePage;
    QModelIndex index = findContentItem(model, QModelIndex(), url, &samePage);
    if (!index.isValid())
        index = samePage;
    if (index.isValid())
        contents->setCurrentIndex(index);
}
