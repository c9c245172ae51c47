#pragma once

#include "cli/clistatus.h"

#include <QStringList>

// import-config: turns a Quillon ".config" colour list into a library table,
// printed as it would be saved or written to a file with --out.
class CCliImportCommand
{
public:
    static CCliStatus run(const QStringList &words);

private:
    static CCliStatus writeTable(const class CColourTable &table, const QString &path, bool force);
};
