#include "popupmenuchooser.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

namespace {
const int kPollMs = 20;

QString plain(QString text)
{
    return text.replace(QLatin1String("&&"), QLatin1String("\x01"))
        .remove(QLatin1Char('&'))
        .replace(QLatin1Char('\x01'), QLatin1Char('&'));
}
} // namespace

PopupMenuChooser::PopupMenuChooser(const QString &entry, int timeoutMs)
    : m_entry(entry), m_remainingPolls(timeoutMs / kPollMs)
{
    QTimer::singleShot(kPollMs, this, &PopupMenuChooser::poll);
}

void PopupMenuChooser::poll()
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu) {
        if (--m_remainingPolls > 0)
            QTimer::singleShot(kPollMs, this, &PopupMenuChooser::poll);
        return;
    }
    m_shown = true;
    QAction *chosen = nullptr;
    for (QAction *action : menu->actions()) {
        if (action->isSeparator())
            continue;
        m_entries << plain(action->text());
        if (!m_entry.isEmpty() && plain(action->text()) == m_entry)
            chosen = action;
    }
    menu->close();
    if (chosen) {
        chosen->trigger();
        m_chosen = true;
    }
}

void PopupMenuChooser::rightClick(QWidget *widget)
{
    rightClick(widget, widget->rect().center());
}

void PopupMenuChooser::rightClick(QWidget *widget, const QPoint &pos)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, widget->mapToGlobal(pos));
    QApplication::sendEvent(widget, &event);
}
