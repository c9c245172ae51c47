#include "cli/clioutput.h"

#include <QStringList>

#include <cstdio>

namespace {

void write(std::FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fputc('\n', stream);
}

} // namespace

QString CCliOutput::fixed(double value, int decimals)
{
    // QString::number never uses the locale's decimal separator.
    return QString::number(value, 'f', decimals);
}

QString CCliOutput::fixed(const QVector<double> &values, int decimals)
{
    QStringList texts;
    for (const double value : values)
        texts << fixed(value, decimals);
    return texts.join(QLatin1Char(' '));
}

void CCliOutput::line(const QString &text)
{
    write(stdout, text);
}

void CCliOutput::error(const QString &message)
{
    std::fflush(stdout);
    write(stderr, QStringLiteral("vellora-cli: ") + oneLine(message));
    std::fflush(stderr);
}

QString CCliOutput::oneLine(const QString &message)
{
    QString out;
    for (const QString &part : message.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!out.isEmpty())
            out += out.endsWith(QLatin1Char(':')) ? QStringLiteral(" ") : QStringLiteral(": ");
        out += part.trimmed();
    }
    return out;
}

bool CCliOutput::flush()
{
    return std::fflush(stdout) == 0 && !std::ferror(stdout);
}
