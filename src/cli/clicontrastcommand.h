#pragma once

#include "cli/cliarguments.h"
#include "cli/clistatus.h"
#include "colour/rgbcolour.h"

#include <QByteArray>

#include <cstdio>

class CCliLineReader;

// contrast FG BG | contrast - | contrast --grid TABLE, each with
// [--format tsv|json]. A pair prints its WCAG ratio, the five verdicts and
// the APCA Lc. With "-" every input line holds a pair ("FG BG", or the two
// colours separated by a tab, which lets "R, G, B" keep its spaces); blank
// lines and comments ("#" followed by a blank or the end of the line) are
// skipped, rows come in input order, and a bad line stops the run with its
// number once every good line before it is printed.
class CCliContrastCommand
{
public:
    static CCliStatus run(const QStringList &words, std::FILE *input = stdin);

private:
    static CCliStatus runPair(const QStringList &colours, bool json);
    static CCliStatus runBatch(std::FILE *input, bool json);
    static CCliStatus batchLine(const CCliLineReader &reader, const QByteArray &line, bool json);
};
