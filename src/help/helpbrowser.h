#pragma once

#include <QTextBrowser>

class QHelpEngine;

// The page view of the help window. Pages come out of the compiled
// collection; links to web sites and mail addresses go to the desktop and
// never replace the page being read.
class CHelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    CHelpBrowser(QHelpEngine *helpEngine, QWidget *parent = nullptr);

    QVariant loadResource(int type, const QUrl &url) override;

protected:
    // Every way to a page (a link, the contents, setSource) ends here.
    void doSetSource(const QUrl &url, QTextDocument::ResourceType type) override;

private:
    // Makes the contents tree show the entry of the page on display.
    void selectContentItem(const QUrl &url);

    QHelpEngine *m_helpEngine;
};
