#pragma once

#include "tables/colourmatcher.h"

#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <QVector>

// The rows the match panel would show, as text for scripts: tab separated
// values with a header line, or a JSON array of objects with the same keys
// (rank, name, hex, deltaE, percent, verdict), and a last one, explain,
// when explanations are given (one sentence per row shown).
class CCliMatchFormatter
{
public:
    // The first rowCount results of a sorted match.
    static QString tsv(const QVector<CMatchResult> &sorted, int rowCount,
                       const QStringList &explanations = QStringList());
    static QString json(const QVector<CMatchResult> &sorted, int rowCount,
                        const QStringList &explanations = QStringList());

    // The pieces both layouts are made of, for callers that add columns.
    static QString tsvHeader(bool explain = false);
    static QStringList tsvRows(const QVector<CMatchResult> &sorted, int rowCount,
                               const QStringList &explanations = QStringList());
    static QJsonArray jsonRows(const QVector<CMatchResult> &sorted, int rowCount,
                               const QStringList &explanations = QStringList());
};
