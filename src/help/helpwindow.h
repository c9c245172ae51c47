#pragma once

#include <QPointer>
#include <QWidget>

class CHelpBrowser;
class QAction;
class QHelpEngine;
class QLineEdit;
class QModelIndex;
class QSplitter;
class QTabWidget;
class QToolBar;
class QUrl;

// The manual's window: contents and index on the left, the page on the
// right, Home/Back/Forward/Print/Close above. There is one for the whole
// application, made on the first help request and kept until the end;
// closing it only hides it.
class CHelpWindow : public QWidget
{
    Q_OBJECT

public:
    // Opens the collection Vellora10.0.qhc in `folder` read-only.
    explicit CHelpWindow(const QString &folder, QWidget *parent = nullptr);
    ~CHelpWindow() override;

    // The collection's file name ("Vellora10.0.qhc") and its place in `folder`.
    static QString collectionFileName();
    static QString collectionPath(const QString &folder);
    // "qthelp://tessaline.Vellora/help/": page names are relative to it.
    static QString helpNamespace();
    static QUrl pageUrl(const QString &page);

    // The show-help operation. The first call makes the window (from the
    // collection in `folder`, the executable's folder when empty), waits
    // until the engine is ready, titles it "<applicationName> - Help", gives
    // it `rect` and the splitter sizes and opens the about page. Then `page`
    // is opened when not empty, and the window is shown and raised.
    static CHelpWindow *showHelp(const QString &applicationName, const QString &page,
                                 const QRect &rect, int splitA, int splitB,
                                 const QString &folder = QString());
    // The window while it exists; nullptr before the first request.
    static CHelpWindow *instance();
    // Ends the window at shutdown; the next request would make a new one.
    static void deleteInstance();
    // True once the engine has finished its setup.
    static bool isReady();

    QHelpEngine *helpEngine() const { return m_helpEngine; }
    CHelpBrowser *browser() const { return m_browser; }
    QSplitter *splitter() const { return m_splitter; }
    QLineEdit *findField() const { return m_findField; }
    QTabWidget *navigationTabs() const { return m_tabs; }
    QToolBar *toolBar() const { return m_toolBar; }
    QAction *homeAction() const { return m_homeAction; }
    QAction *backAction() const { return m_backAction; }
    QAction *forwardAction() const { return m_forwardAction; }
    QAction *printAction() const { return m_printAction; }
    QAction *closeAction() const { return m_closeAction; }

    // Shows `page`, a name relative to the help namespace.
    void openPage(const QString &page);

public slots:
    void home();
    void backward();
    void forward();
    void print();
    bool close();
    void updateHomeButtonState(const QUrl &url);
    void updateBackwardButtonState(bool available);
    void updateForwardButtonState(bool available);
    void contentItemActivated(const QModelIndex &index);
    void indexItemActivated(const QModelIndex &index);
    void filterIndices(const QString &text);
    void setupStarted();
    void setupFinished();
    void warning(const QString &message);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildToolBar();
    QAction *addToolAction(const QString &icon, const QString &text, const QString &key);
    QWidget *buildIndexPage();
    void buildLayout();
    void connectEngine();

    static QPointer<CHelpWindow> s_instance;
    static bool s_ready;

    QHelpEngine *m_helpEngine = nullptr;
    CHelpBrowser *m_browser = nullptr;
    QToolBar *m_toolBar = nullptr;
    QAction *m_homeAction = nullptr;
    QAction *m_backAction = nullptr;
    QAction *m_forwardAction = nullptr;
    QAction *m_printAction = nullptr;
    QAction *m_closeAction = nullptr;
    QTabWidget *m_tabs = nullptr;
    QLineEdit *m_findField = nullptr;
    QSplitter *m_splitter = nullptr;
    bool m_waitCursorShown = false;
    bool m_finishingSetup = false;
    bool m_setupDone = false;
};
