#pragma once

#include "cli/clistatus.h"
#include "colour/rgbcolour.h"
#include "tables/colourmatcher.h"

#include <QByteArray>

#include <cstdio>
#include <vector>

class CCliLineReader;

// match --table FILE -: one sample per input line ("#rrggbb", "rrggbb" or
// "R,G,B"), matched on several threads and printed in input order, each row
// led by the sample's line number and colour (TSV), or one JSON object per
// sample on one line. Blank lines and comments ("#" followed by a blank, or
// after a blank) are skipped. A bad line stops the run with its number, once
// the rows of every good line before it are out.
class CCliMatchBatch
{
public:
    CCliMatchBatch(const CColourTable &table, int count, bool json, int jobs);

    CCliStatus run(std::FILE *input);

    // The colour part of a line: comments and surrounding blanks removed
    // (empty for a line that holds no sample).
    static QByteArray samplePart(const QByteArray &line);

private:
    struct Sample
    {
        int line;
        RgbColour colour;
    };

    CCliStatus readSamples(CCliLineReader *reader, std::vector<Sample> *samples, bool *atEnd) const;
    void printMatches(const std::vector<Sample> &samples) const;
    QByteArray format(const Sample &sample) const;

    CColourMatcher m_matcher;
    int m_count;
    bool m_json;
    int m_jobs;
};
