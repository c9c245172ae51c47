#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>

#include <memory>

class CAppSettings;
class CColourImageWindow;
class CColourMatcher;
class QAction;
class QToolBar;
class CScreenCapture;
class CScreenOverlay;
class QWidget;

// "Pick from Screen" from start to end: hides the program's windows, waits
// until they are gone from the screen, captures the desktop, shows it frozen
// in an overlay and, after a pick, brings the windows back and hands the
// picture and the picked rectangle to its owner (the sampling page shows the
// picture and reads the rectangle as it reads a click). Esc or a capture
// that cannot be had bring the windows back with nothing changed; the
// latter says why in a message box.
class CScreenPicker : public QObject
{
    Q_OBJECT

public:
    // How long to poll for the hidden windows to leave the screen, and how
    // long then to let a compositor finish fading them out.
    static const int kGoneTimeoutMs = 1000;
    static const int kSettleMs = 200;

    // Message boxes open over `window`.
    explicit CScreenPicker(QWidget *window, QObject *parent = nullptr);
    ~CScreenPicker() override;

    // The "Pick from Screen" command (its own icon, Ctrl+Shift+P): triggering
    // it starts.
    QAction *action() const { return m_action; }
    static QString shortcutText();
    // Puts the command on a toolbar right after `after`.
    void addToToolBar(QToolBar *toolBar, QAction *after);
    // Reads the page's pick size, averaging rule and library table at each
    // start, and hands it the picture (titled "Screen capture") and the pick.
    // `settings` may be null.
    void attachToPage(CColourImageWindow *page, CAppSettings *settings);

    // The capture to use (the one chosen by the session until set).
    void setCapture(std::unique_ptr<CScreenCapture> capture);
    CScreenCapture *capture() const { return m_capture.get(); }
    void setSettleDelay(int milliseconds) { m_settleMs = milliseconds; }
    // What the loupe and the pick follow: read at each start.
    void setPickSize(int size) { m_pickSize = size; }
    void setRgbAverage(bool rgb) { m_rgbAverage = rgb; }
    void setMatcher(const CColourMatcher *matcher) { m_matcher = matcher; }

    bool isActive() const { return m_active; }
    // The overlay while it is shown.
    CScreenOverlay *overlay() const;

public slots:
    void start();

signals:
    // Just before the windows are hidden: the owner sets pick size, averaging
    // rule and library here.
    void aboutToStart();
    // After a pick, the windows back: first the picture, then what to read.
    void pictureTaken(const QImage &picture);
    void regionPicked(const QRect &imageRect);
    // The overlay is on screen (for timing it).
    void overlayShown();
    // Cancelled or failed: nothing changed.
    void finishedWithoutPick();

private:
    void hideWindows();
    void waitUntilGone(int waitedMs);
    void captured(const QImage &image);
    void failed(const QString &message);
    void picked(const QRect &imageRect);
    void cancelled();
    void closeOverlay();
    void restoreWindows();

    QWidget *m_window = nullptr;
    QAction *m_action = nullptr;
    std::unique_ptr<CScreenCapture> m_capture;
    QPointer<CScreenOverlay> m_overlay;
    QList<QPointer<QWidget>> m_hidden;
    const CColourMatcher *m_matcher = nullptr;
    int m_pickSize = 1;
    bool m_rgbAverage = true;
    int m_settleMs = kSettleMs;
    bool m_active = false;
};
