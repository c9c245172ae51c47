#include "cli/clicontrastline.h"

#include <QRegularExpression>

bool CCliContrastLine::pairWords(const QByteArray &line, QStringList *words)
{
    static const QRegularExpression comment(QStringLiteral("(^|[ \\t])#([ \\t].*)?$"));
    QString text = QString::fromLatin1(line);
    const QRegularExpressionMatch match = comment.match(text);
    if (match.hasMatch())
        text.truncate(match.capturedStart());
    text = text.trimmed();
    if (text.contains(QLatin1Char('\t')))
        *words = text.split(QLatin1Char('\t'), Qt::SkipEmptyParts);
    else
        *words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    // Blanks between two tabs are no word.
    for (QString &word : *words)
        word = word.trimmed();
    words->removeAll(QString());
    return words->size() == 2;
}
