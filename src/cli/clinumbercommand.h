#pragma once

#include "cli/clistatus.h"

#include <QStringList>
#include <QVector>

#include <cstdio>
#include <functional>

// A command that turns a fixed count of numbers into text, either once from
// its arguments or, given "-", for every line of standard input (one result
// per line). A bad batch line stops the run with its line number; the
// results of the lines before it have been printed.
class CCliNumberCommand
{
public:
    using Converter = std::function<QString(const QVector<double> &)>;

    CCliNumberCommand(const QString &name, int arity, Converter converter);

    CCliStatus run(const QStringList &positionals, std::FILE *input = stdin) const;

private:
    CCliStatus runOnce(const QStringList &words) const;
    CCliStatus runBatch(std::FILE *input) const;
    CCliStatus convertLine(const QByteArray &line, int lineNumber) const;

    QString m_name;
    int m_arity;
    Converter m_converter;
};
