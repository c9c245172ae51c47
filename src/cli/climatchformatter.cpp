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

QString CCliMatchFormatter::tsv(const QVector<CMatchResult> &sorted, int rowCount,
                               const QStringList &explanations)
{
    return (QStringList{tsvHeader(!explanations.isEmpty())}
            + tsvRows(sorted, rowCount, explanations))
        .join(QLatin1Char('\n'));
}

QString CCliMatchFormatter::json(const QVector<CMatchResult> &sorted, int rowCount,
                                const QStringList &explanations)
{
    return QString::fromUtf8(
               QJsonDocument(jsonRows(sorted, rowCount, explanations)).toJson(QJsonDocument::Indented))
        .trimmed();
}

QString CCliMatchFormatter::tsvHeader(bool explain)
{
    return QStringLiteral("rank\tname\thex\tdeltaE\tpercent\tverdict")
        + (explain ? QStringLiteral("\texplain") : QString());
}

QStringList CCliMatchFormatter::tsvRows(const QVector<CMatchResult> &sorted, int rowCount,
                                        const QStringList &explanations)
{
    QStringList lines;
    for (int i = 0; i < rowCount && i < sorted.size(); ++i) {
        const RowTexts row = rowTexts(sorted.at(i), i + 1);
        QStringList columns{row.rank, row.name, row.hex, row.deltaE, row.percent, row.verdict};
        if (!explanations.isEmpty())
            columns << explanations.value(i);
        lines << columns.join(QLatin1Char('\t'));
    }
    return lines;
}

QJsonArray CCliMatchFormatter::jsonRows(const QVector<CMatchResult> &sorted, int rowCount,
                                        const QStringList &explanations)
{
    QJsonArray rows;
    for (int i = 0; i < rowCount && i < sorted.size(); ++i) {
        QJsonObject row = jsonRow(rowTexts(sorted.at(i), i + 1));
        if (!explanations.isEmpty())
            row.insert(QStringLiteral("explain"), explanations.value(i));
        rows.append(row);
    }
    return rows;
}
