#pragma once

#include "cli/clistatus.h"

#include <QStringList>

// The ready-made colour-name tables and finding a colour by its name:
//   tables                          lists them (name, entries, licence, source)
//   tables --write NAME FILE [--force]
//                                   writes one as a library table file
//   find --table FILE TEXT...       the entries whose names contain TEXT
class CCliReadyMadeCommands
{
public:
    static CCliStatus tables(const QStringList &words);
    static CCliStatus find(const QStringList &words);

private:
    static CCliStatus listTables();
    static CCliStatus writeTable(const QString &name, const QString &path, bool force);
};
