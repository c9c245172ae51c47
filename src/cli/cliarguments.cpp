#include "cli/cliarguments.h"

namespace {

const CCliArguments::Option *findOption(const QVector<CCliArguments::Option> &allowed,
                                        const QString &name)
{
    for (const CCliArguments::Option &option : allowed) {
        if (option.name == name)
            return &option;
    }
    return nullptr;
}

} // namespace

CCliStatus CCliArguments::parse(const QStringList &words, const QVector<Option> &allowed)
{
    m_positionals.clear();
    m_options.clear();
    bool optionsEnded = false;
    for (int i = 0; i < words.size(); ++i) {
        const QString &word = words.at(i);
        if (optionsEnded || !word.startsWith(QLatin1String("--"))) {
            m_positionals << word;
        } else if (word == QLatin1String("--")) {
            optionsEnded = true;
        } else {
            const CCliStatus status = takeOption(word, words, &i, allowed);
            if (status.failed())
                return status;
        }
    }
    return CCliStatus::ok();
}

CCliStatus CCliArguments::takeOption(const QString &word, const QStringList &words, int *index,
                                     const QVector<Option> &allowed)
{
    const int equals = word.indexOf(QLatin1Char('='));
    const QString name = word.mid(2, equals < 0 ? -1 : equals - 2);
    const Option *option = findOption(allowed, name);
    if (!option)
        return CCliStatus::usage(QStringLiteral("unknown option --%1").arg(name));
    if (m_options.contains(name))
        return CCliStatus::usage(QStringLiteral("option --%1 given more than once").arg(name));
    if (!option->takesValue) {
        if (equals >= 0)
            return CCliStatus::usage(QStringLiteral("option --%1 takes no value").arg(name));
        m_options.insert(name, QString());
        return CCliStatus::ok();
    }
    if (equals >= 0) {
        m_options.insert(name, word.mid(equals + 1));
        return CCliStatus::ok();
    }
    if (*index + 1 >= words.size())
        return CCliStatus::usage(QStringLiteral("option --%1 needs a value").arg(name));
    m_options.insert(name, words.at(++*index));
    return CCliStatus::ok();
}

CCliStatus CCliArguments::choice(const QString &name, const QStringList &choices,
                                 const QString &fallback, QString *result) const
{
    const QString chosen = value(name, fallback);
    if (!choices.contains(chosen)) {
        return CCliStatus::usage(QStringLiteral("option --%1 must be one of %2, not \"%3\"")
                                     .arg(name, choices.join(QLatin1Char('|')), chosen));
    }
    *result = chosen;
    return CCliStatus::ok();
}

CCliStatus CCliArguments::exclusive(const QString &first, const QString &second) const
{
    if (has(first) && has(second)) {
        return CCliStatus::usage(
            QStringLiteral("options --%1 and --%2 cannot be used together").arg(first, second));
    }
    return CCliStatus::ok();
}

CCliStatus CCliArguments::needs(const QString &option, const QString &needed) const
{
    if (has(option) && !has(needed))
        return CCliStatus::usage(QStringLiteral("option --%1 needs --%2").arg(option, needed));
    return CCliStatus::ok();
}
