#pragma once

#include "cli/clistatus.h"

#include <QHash>
#include <QStringList>
#include <QVector>

// The words after the command name, split into positional arguments and
// "--name value" / "--name=value" options. Only words starting with "--" are
// options: a lone "-" (standard input) and negative numbers are positional,
// and "--" ends the options.
class CCliArguments
{
public:
    struct Option
    {
        QString name; // without the leading "--"
        bool takesValue;
    };

    // Unknown options, repeated options and options missing their value are
    // usage errors.
    CCliStatus parse(const QStringList &words, const QVector<Option> &allowed);

    const QStringList &positionals() const { return m_positionals; }
    bool has(const QString &name) const { return m_options.contains(name); }
    QString value(const QString &name, const QString &fallback = QString()) const
    {
        return m_options.value(name, fallback);
    }

    // The option's value when it is one of choices (the fallback when the
    // option is absent); anything else is a usage error.
    CCliStatus choice(const QString &name, const QStringList &choices, const QString &fallback,
                      QString *result) const;
    // Reports options that are given together but exclude each other, or an
    // option that needs another one.
    CCliStatus exclusive(const QString &first, const QString &second) const;
    CCliStatus needs(const QString &option, const QString &needed) const;

private:
    CCliStatus takeOption(const QString &word, const QStringList &words, int *index,
                          const QVector<Option> &allowed);

    QStringList m_positionals;
    QHash<QString, QString> m_options;
};
