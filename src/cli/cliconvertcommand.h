#pragma once

#include "cli/cliarguments.h"
#include "cli/clistatus.h"
#include "palette/palettefile.h"

// convert IN OUT [--from F] [--to F] [--force]: reads the colours of one
// file and writes them in another format, chosen by suffix unless named.
// An existing OUT is only replaced with --force, and only once the new
// content is completely written.
class CCliConvertCommand
{
public:
    static CCliStatus run(const QStringList &words);

    // Reads any file the tool takes colours from, with the texts every
    // command uses for a table it cannot read (also used by contrast --grid).
    static CCliStatus readInput(const QString &path, CPaletteFile::Format format,
                                CPalette *palette);

private:
    static CCliStatus format(const CCliArguments &args, const QString &option,
                             const QString &path, CPaletteFile::Format *format);
    static CCliStatus writeOutput(const QString &path, CPaletteFile::Format format,
                                  const CPalette &palette);
};
