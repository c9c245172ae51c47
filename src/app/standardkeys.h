#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

class QWidget;

// The desktop's standard keys for the main commands (Open, Save, Save As,
// Quit, as the platform binds them: Ctrl+O, Ctrl+S, Ctrl+Shift+S, Ctrl+Q on
// GNOME), beside the program's own Alt keys, which stay. Where the platform
// binds nothing to Save As or Quit (Qt's plain X11 and KDE schemes have no
// Save As, its Windows scheme neither), the GNOME keys stand in, so that
// Ctrl+Q quits on every Linux desktop. Each key is a window-wide shortcut on
// `window` that only asks for its command; the owner decides what it does.
class CStandardKeys : public QObject
{
    Q_OBJECT

public:
    explicit CStandardKeys(QWidget *window);

    // The sequences bound for `key`: the platform's, or the stand-in.
    static QList<QKeySequence> keys(QKeySequence::StandardKey key);

signals:
    // "Open Image" (CmdOpenImage) and "Exit" (CmdExit): main window commands.
    void mainCommand(int id);
    // Save (CmdSaveData) and Save As (CmdSaveDataAs): the data page's commands,
    // whichever page is showing.
    void dataCommand(int id);

private:
    void addKeys(QWidget *window, QKeySequence::StandardKey key, int id, bool dataPage);
};
