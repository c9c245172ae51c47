#include "dialogwatcher.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QWidget>

namespace {
const int kPollMs = 10;
} // namespace

DialogWatcher::DialogWatcher(Step step, int timeoutMs)
    : m_step(std::move(step)), m_remainingPolls(timeoutMs / kPollMs)
{
    QTimer::singleShot(kPollMs, this, &DialogWatcher::poll);
}

void DialogWatcher::poll()
{
    if (m_step(QApplication::activeModalWidget())) {
        m_done = true;
        return;
    }
    if (--m_remainingPolls > 0) {
        QTimer::singleShot(kPollMs, this, &DialogWatcher::poll);
        return;
    }
    // Out of time: close whatever is open so the test fails instead of hanging.
    if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
        dialog->reject();
}

DialogWatcher::Step DialogWatcher::whenShown(const QString &className,
                                            std::function<void(QWidget *)> action)
{
    return [className, action](QWidget *modal) {
        if (!modal || QString::fromLatin1(modal->metaObject()->className()) != className)
            return false;
        action(modal);
        return true;
    };
}
