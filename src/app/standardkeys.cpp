#include "app/standardkeys.h"

#include "common/commandid.h"

#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

CStandardKeys::CStandardKeys(QWidget *window) : QObject(window)
{
    addKeys(window, QKeySequence::Open, CmdOpenImage, false);
    addKeys(window, QKeySequence::Save, CmdSaveData, true);
    addKeys(window, QKeySequence::SaveAs, CmdSaveDataAs, true);
    addKeys(window, QKeySequence::Quit, CmdExit, false);
}

QList<QKeySequence> CStandardKeys::keys(QKeySequence::StandardKey key)
{
    // A platform may bind a standard key to several sequences; each works.
    const QList<QKeySequence> bound = QKeySequence::keyBindings(key);
    if (!bound.isEmpty())
        return bound;
    if (key == QKeySequence::SaveAs)
        return {QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S)};
    if (key == QKeySequence::Quit)
        return {QKeySequence(Qt::CTRL + Qt::Key_Q)};
    return {};
}

void CStandardKeys::addKeys(QWidget *window, QKeySequence::StandardKey key, int id, bool dataPage)
{
    for (const QKeySequence &sequence : keys(key)) {
        auto *shortcut = new QShortcut(sequence, window);
        connect(shortcut, &QShortcut::activated, this, [this, id, dataPage]() {
            if (dataPage)
                emit dataCommand(id);
            else
                emit mainCommand(id);
        });
    }
}
