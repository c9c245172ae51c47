#pragma once

#include <QList>
#include <QToolBar>

class QAction;
class QSignalMapper;
class QToolButton;

// The main window's toolbar "ToolBarMain", built once from the layout list:
// the commands' actions with their texts, icons, shortcuts and status tips,
// separators, a gap before the zoom buttons and a stretch before help and
// exit. Every action triggers through the owner's mapper with its command
// number; what a command does is the owner's.
class CMainToolBar : public QToolBar
{
    Q_OBJECT

public:
    // Commands 0 to 8 have a row in the command table.
    static const int kCommandCount = 9;
    // The width of the narrow "Recent Images" button.
    static const int kRecentButtonWidth = 21;

    // `extraWidgets` fill the layout list's extra-widget places in order
    // (the main window passes none).
    CMainToolBar(QSignalMapper *commands, QWidget *parent,
                 const QList<QWidget *> &extraWidgets = QList<QWidget *>());

    // The action of a command; null for a command that is not on the toolbar.
    QAction *commandAction(int id) const;
    // Enables or disables every toolbar action of a command.
    void enableCommand(int id, bool enable);
    // The narrow "Recent Images" button, where the recent images menu pops up.
    QToolButton *recentButton() const { return m_recentButton; }

private:
    QAction *createCommandAction(int id);
    void addCommand(int id);
    void addLayoutItem(int code, int height, const QList<QWidget *> &extraWidgets,
                       int *nextExtra);

    QSignalMapper *m_commands = nullptr;
    QList<QAction *> m_commandActions;
    QToolButton *m_recentButton = nullptr;
};
