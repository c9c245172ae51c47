#pragma once

#include "cli/clistatus.h"

#include <QByteArray>

#include <cstdio>

// Reads a stream line by line without trusting it: a line may hold any
// bytes, and one longer than the limit is reported rather than read whole,
// so that no input can exhaust memory.
class CCliLineReader
{
public:
    enum Result
    {
        Line,
        End,
        TooLong,
        ReadError
    };

    explicit CCliLineReader(std::FILE *stream, int maximumLength = kDefaultMaximumLength);

    // The next line without its line feed (nor a carriage return before it).
    Result next(QByteArray *line);
    // 1-based number of the line last returned (or being read).
    int lineNumber() const { return m_lineNumber; }
    int maximumLength() const { return m_maximumLength; }
    // What a batch command answers when next() gave no line: success at the
    // end of the input, and otherwise the read error or the line too long.
    CCliStatus stopStatus(Result result) const;

    static const int kDefaultMaximumLength = 1 << 20;

private:
    std::FILE *m_stream;
    int m_maximumLength;
    int m_lineNumber = 0;
};
