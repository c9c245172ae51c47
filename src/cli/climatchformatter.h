#pragma once

#include "tables/colourmatcher.h"

#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <QVector>

// The rows the match panel would show, as text for scripts: tab separated
// values with a header line, or a JSON array of objects with the same keys
// (rank, name, hex, deltaE, percent, verdict).
class CCliMatchFormatter
{
public:
    // The first rowCount results of a sorted match.
    static QString tsv(const QVector<CMatchResult> &sorted, int rowCount);
    static QString json(const QVector<CMatchResult> &sorted, int rowCount);

    // The pieces both layouts are made of, for callers that add columns.
    static QString tsvHeader();
    static QStringList tsvRows(const QVector<CMatchResult> &sorted, int rowCount);
    static QJsonArray jsonRows(const QVector<CMatchResult> &sorted, int rowCount);
};
