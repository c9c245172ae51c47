#include "app/recentimagesmenu.h"

#include <QAction>
#include <QFileInfo>

CRecentImagesMenu::CRecentImagesMenu(QWidget *parent) : QMenu(parent)
{
    for (int i = 0; i < kEntries; ++i) {
        auto *action = new QAction(this);
        action->setVisible(false);
        m_entries.append(action);
        addAction(action);
    }
    addSeparator();
    m_clear = addAction(tr("Clear &List"));
    m_clear->setStatusTip(tr("Clear recently used files list"));
}

void CRecentImagesMenu::fill(const QStringList &files)
{
    for (int i = 0; i < m_entries.size(); ++i) {
        QAction *action = m_entries.at(i);
        if (i < files.size()) {
            const QString &path = files.at(i);
            action->setText(tr("&%1 %2").arg(i + 1).arg(QFileInfo(path).fileName()));
            action->setStatusTip(path);
            action->setData(path);
            action->setVisible(true);
        } else {
            action->setVisible(false);
        }
    }
}
