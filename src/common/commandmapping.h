#pragma once

#include <QAction>
#include <QSignalMapper>

// Routes an action's trigger through `mapper` as `id`. Every page and the
// main window reach their processCommand(int) this way, with connections the
// compiler checks.
inline void mapCommand(QAction *action, QSignalMapper *mapper, int id)
{
    QObject::connect(action, &QAction::triggered, mapper, qOverload<>(&QSignalMapper::map));
    mapper->setMapping(action, id);
}
