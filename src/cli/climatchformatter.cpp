#include "cli/climatchformatter.h"

#include "cli/clioutput.h"
#include "colour/colourformat.h"
#include "colour/matchscore.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace {

const int kDecimals = 4;

// The texts of one row, in column order.
struct RowTexts
{
    QString rank;
    QString name;
    QString hex;
    QString deltaE;
    QString percent;
    QString verdict;
};

RowTexts rowTexts(const CMatchResult &result, int rank)
{
    return {QString::number(rank),
            result.name,
            colourName(result.red, result.green, result.blue),
            CCliOutput::fixed(double(result.deltaE), kDecimals),
            CCliOutput::fixed(double(matchPercent(result.deltaE)), kDecimals),
            verdictShortText(verdict(result.deltaE))};
}

QJsonObject jsonRow(const RowTexts &row)
{
    // The numbers are the very values the text columns show.
    return {{QStringLiteral("rank"), row.rank.toInt()},
            {QStringLiteral("name"), row.name},
            {QStringLiteral("hex"), row.hex},
            {QStringLiteral("deltaE"), row.deltaE.toDouble()},
            {QStringLiteral("percent"), row.percent.toDouble()},
            {QStringLiteral("verdict"), row.verdict}};
}

} // namespace

QString CCliMatchFormatter::tsv(const QVector<CMatchResult> &sorted, int rowCount)
{
    return (QStringList{tsvHeader()} + tsvRows(sorted, rowCount)).join(QLatin1Char('\n'));
}

QString CCliMatchFormatter::json(const QVector<CMatchResult> &sorted, int rowCount)
{
    return QString::fromUtf8(QJsonDocument(jsonRows(sorted, rowCount)).toJson(QJsonDocument::Indented))
        .trimmed();
}

QString CCliMatchFormatter::tsvHeader()
{
    return QStringLiteral("rank\tname\thex\tdeltaE\tpercent\tverdict");
}

QStringList CCliMatchFormatter::tsvRows(const QVector<CMatchResult> &sorted, int rowCount)
{
    QStringList lines;
    for (int i = 0; i < rowCount && i < sorted.size(); ++i) {
        const RowTexts row = rowTexts(sorted.at(i), i + 1);
        lines << QStringList{row.rank, row.name, row.hex, row.deltaE, row.percent, row.verdict}
                     .join(QLatin1Char('\t'));
    }
    return lines;
}

QJsonArray CCliMatchFormatter::jsonRows(const QVector<CMatchResult> &sorted, int rowCount)
{
    QJsonArray rows;
    for (int i = 0; i < rowCount && i < sorted.size(); ++i)
        rows.append(jsonRow(rowTexts(sorted.at(i), i + 1)));
    return rows;
}
