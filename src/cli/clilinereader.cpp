#include "cli/clilinereader.h"

CCliLineReader::CCliLineReader(std::FILE *stream, int maximumLength)
    : m_stream(stream), m_maximumLength(maximumLength)
{}

CCliLineReader::Result CCliLineReader::next(QByteArray *line)
{
    line->clear();
    int c = std::getc(m_stream);
    if (c == EOF)
        return std::ferror(m_stream) ? ReadError : End;
    ++m_lineNumber;
    for (; c != EOF && c != '\n'; c = std::getc(m_stream)) {
        if (line->size() >= m_maximumLength)
            return TooLong;
        line->append(char(c));
    }
    if (c == EOF && std::ferror(m_stream))
        return ReadError;
    if (line->endsWith('\r'))
        line->chop(1);
    return Line;
}

CCliStatus CCliLineReader::stopStatus(Result result) const
{
    switch (result) {
    case ReadError:
        return CCliStatus::badInput(
            QStringLiteral("cannot read standard input after line %1").arg(m_lineNumber));
    case TooLong:
        return CCliStatus::badInput(QStringLiteral("line %1: longer than %2 bytes")
                                        .arg(m_lineNumber)
                                        .arg(m_maximumLength));
    case Line:
    case End:
        break;
    }
    return CCliStatus::ok();
}
