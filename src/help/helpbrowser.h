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

    // Every way to a page (a link, the contents, setSource) ends here: Qt 6
    // calls the protected doSetSource, Qt 5 the virtual setSource.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
protected:
    void doSetSource(const QUrl &url, QTextDocument::ResourceType type) override;
#else
public slots:
    void setSource(const QUrl &url) override;
#endif

private:
    // Sends web and mail links to the desktop; true when `url` was one.
    static bool openedOutside(const QUrl &url);
    // Makes the contents tree show the entry of the page on display.
    void selectContentItem(const QUrl &url);

    QHelpEngine *m_helpEngine;
};
