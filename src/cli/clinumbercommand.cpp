#include "cli/clinumbercommand.h"

#include "cli/clilinereader.h"
#include "cli/clinumbers.h"
#include "cli/clioutput.h"

#include <utility>

CCliNumberCommand::CCliNumberCommand(const QString &name, int arity, Converter converter)
    : m_name(name), m_arity(arity), m_converter(std::move(converter))
{}

CCliStatus CCliNumberCommand::run(const QStringList &positionals, std::FILE *input) const
{
    if (positionals == QStringList(QStringLiteral("-")))
        return runBatch(input);
    if (positionals.size() != m_arity) {
        return CCliStatus::usage(QStringLiteral("%1 needs %2 numbers, or - to read them from "
                                                "standard input (got %3 arguments)")
                                     .arg(m_name)
                                     .arg(m_arity)
                                     .arg(positionals.size()));
    }
    return runOnce(positionals);
}

CCliStatus CCliNumberCommand::runOnce(const QStringList &words) const
{
    QVector<double> values;
    const CCliStatus status = CCliNumbers::toFinites(words, &values);
    if (status.failed())
        return status;
    CCliOutput::line(m_converter(values));
    return CCliStatus::ok();
}

CCliStatus CCliNumberCommand::runBatch(std::FILE *input) const
{
    CCliLineReader reader(input);
    QByteArray line;
    for (;;) {
        const CCliLineReader::Result result = reader.next(&line);
        if (result != CCliLineReader::Line) {
            return reader.stopStatus(result);
        }
        const CCliStatus status = convertLine(line, reader.lineNumber());
        if (status.failed())
            return status;
    }
}

CCliStatus CCliNumberCommand::convertLine(const QByteArray &line, int lineNumber) const
{
    const QStringList words =
        QString::fromLatin1(line).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.size() != m_arity) {
        return CCliStatus::badInput(QStringLiteral("line %1: expected %2 numbers, found %3 words")
                                        .arg(lineNumber)
                                        .arg(m_arity)
                                        .arg(words.size()));
    }
    QVector<double> values;
    const CCliStatus status = CCliNumbers::toFinites(words, &values);
    if (status.failed())
        return CCliStatus::badInput(
            QStringLiteral("line %1: %2").arg(lineNumber).arg(status.message()));
    CCliOutput::line(m_converter(values));
    return CCliStatus::ok();
}
