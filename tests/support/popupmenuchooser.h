#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QWidget;

// Chooses an entry of the next pop-up menu from a timer, as a user would:
// waits (bounded) for QApplication::activePopupWidget() to be a QMenu,
// records the texts of its entries, then triggers the entry whose text
// (mnemonic '&' ignored) equals `entry` and closes the menu. An empty entry
// only records and closes.
//
//   PopupMenuChooser chooser("Copy #1e90ff");
//   sendContextMenuEvent(widget);
//   QVERIFY(chooser.wasShown());
class PopupMenuChooser : public QObject
{
    Q_OBJECT

public:
    explicit PopupMenuChooser(const QString &entry, int timeoutMs = 5000);

    bool wasShown() const { return m_shown; }
    bool wasChosen() const { return m_chosen; }
    QStringList entries() const { return m_entries; }

    // Sends the context menu event a right click at the widget's centre
    // makes (or at pos, in widget coordinates).
    static void rightClick(QWidget *widget);
    static void rightClick(QWidget *widget, const QPoint &pos);

private slots:
    void poll();

private:
    QString m_entry;
    int m_remainingPolls;
    bool m_shown = false;
    bool m_chosen = false;
    QStringList m_entries;
};
