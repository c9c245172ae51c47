#pragma once

#include "cli/cliarguments.h"
#include "cli/clistatus.h"
#include "colour/colourvision.h"

// simulate IN OUT --cvd TYPE [--severity S] [--force]: writes the picture as
// someone with that colour vision deficiency sees it, as PNG. The severity
// (0.1 .. 1.0, default 1.0) belongs to the three anomalies only. An
// existing OUT is replaced only with --force, and only once the new
// picture is completely written.
class CCliSimulateCommand
{
public:
    static CCliStatus run(const QStringList &words);

    // The vision the options ask for; refused options leave it alone.
    static CCliStatus readVision(const CCliArguments &args, ColourVision *vision);
};
