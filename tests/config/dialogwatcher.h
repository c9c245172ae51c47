#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QWidget;

// Watches the active modal widget from a timer while code under test runs
// its own waiting loop. The step is called with each modal widget seen
// (nullptr while there is none) and returns true when it is done; the
// watcher then stops. It gives up after `timeoutMs`.
class DialogWatcher : public QObject
{
    Q_OBJECT

public:
    using Step = std::function<bool(QWidget *modal)>;

    explicit DialogWatcher(Step step, int timeoutMs = 10000);

    bool isDone() const { return m_done; }

    // Steps for the usual cases.
    // Waits for a modal widget of `className`, runs `action` on it once.
    static Step whenShown(const QString &className, std::function<void(QWidget *)> action);

private:
    void poll();

    Step m_step;
    int m_remainingPolls;
    bool m_done = false;
};
