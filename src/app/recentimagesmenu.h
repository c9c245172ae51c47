#pragma once

#include <QList>
#include <QMenu>

class QAction;

// The recent images menu of the main window: six entries, hidden until the
// recent list fills them ("&1 name", the whole path as status tip and data),
// a separator and "Clear &List". The owner connects the entries and the
// clear action; each entry's data is the path to open.
class CRecentImagesMenu : public QMenu
{
    Q_OBJECT

public:
    static const int kEntries = 6;

    explicit CRecentImagesMenu(QWidget *parent = nullptr);

    // Shows the first six paths of `files` in order and hides the rest.
    void fill(const QStringList &files);

    const QList<QAction *> &entries() const { return m_entries; }
    QAction *clearAction() const { return m_clear; }

private:
    QList<QAction *> m_entries;
    QAction *m_clear = nullptr;
};
