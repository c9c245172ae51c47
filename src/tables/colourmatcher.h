#pragma once

#include "colour/rgbcolour.h"
#include "tables/colourtableentry.h"

#include <QString>
#include <QVector>
#include <QtGlobal>

#include <vector>

class CColourTable;

// One table entry scored against the sample: the entry as it stands in the
// table, and its difference from the sample.
struct CMatchResult : CColourTableEntry
{
    float deltaE = 0.0f; // single-precision CIEDE2000 (entry, sample)
};

// Scores the entries of a table against a sample and decides how many of
// the best to show. Shared by the match panel and vellora-cli.
//
// An object holds the table's colours ready for many samples, grouped by
// lightness (the table must outlive it and stay unchanged); its const
// members may be called from several threads at once.
class CColourMatcher
{
public:
    explicit CColourMatcher(const CColourTable &table);

    // The first `keep` records of match(table, sample), identical in rows,
    // order and deltaE, without scoring every entry in full: an entry whose
    // lightness and chroma differences alone already put it behind the best
    // `keep` found so far is passed over.
    QVector<CMatchResult> best(const RgbColour &sample, int keep) const;
    // The rows rowsToShow(match(table, sample), maxRecords) gives, and no
    // more: beyond maxRecords, entries that cannot be close are not kept.
    QVector<CMatchResult> bestRows(const RgbColour &sample, int maxRecords) const;

    // One record per entry, sorted by deltaE ascending (ties in table
    // order): every entry scored in full. The reference best() is held to.
    static QVector<CMatchResult> match(const CColourTable &table, const RgbColour &sample);
    // Rows to show: at least maxRecords (fewer if the list is shorter), then
    // every further record with deltaE below 2.5, up to 32 rows in all.
    static int rowsToShow(const QVector<CMatchResult> &sorted, int maxRecords);
    // How many of the best records rowsToShow may need for maxRecords.
    static int rowsKept(int maxRecords);

private:
    // An entry's Lab as matching sees it (single precision) and its place
    // in the table.
    struct Prepared
    {
        float L;
        float a;
        float b;
        double C; // chroma of (a, b)
        int index;
    };
    // Entries grouped by whole L* value, table order within a group; the
    // last group holds those whose L* is not a finite number.
    struct Group
    {
        int first = 0;
        int end = 0;
        float lowest = 0.0f;
        float highest = 0.0f;
    };

    struct Sample;
    class BestKeys; // the best records found so far

    static int groupOf(float L);
    // The keys (deltaE, index) of the best `keep` entries, in order.
    std::vector<quint64> search(const Sample &sample, int keep, int shown) const;
    // Scores the entries of a group that may still enter the best.
    void scoreGroup(const Group &group, const Sample &sample, BestKeys &best) const;
    QVector<CMatchResult> results(const Sample &sample, const std::vector<quint64> &keys) const;

    const CColourTable &m_table;
    std::vector<Prepared> m_prepared;
    std::vector<Group> m_groups;
};
