#include "colour/rgbcolour.h"
#include "tables/colourmatcher.h"
#include "tables/colourtable.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

const int kEntries = 30000;
// Samples spread over the colour space, the first the one matched above.
const RgbColour kSamples[] = {{0.31, 0.62, 0.18}, {0.9, 0.1, 0.1},   {0.5, 0.5, 0.5},
                              {0.05, 0.05, 0.3},  {0.95, 0.9, 0.6}, {0.2, 0.8, 0.9}};

// A library table of kEntries colours with a header, names of a realistic
// length and a few comment and blank lines, written once per run.
class TableFile
{
public:
    TableFile()
    {
        m_path = m_dir.filePath("Large.clrtable");
        QByteArray content = "#Large table\n#for timing\n\n";
        for (int i = 0; i < kEntries; ++i) {
            const double r = (i % 256) / 255.0;
            const double g = ((i / 256) % 256) / 255.0;
            const double b = ((i * 7) % 256) / 255.0;
            content += QByteArray::number(r, 'f', 4) + ", " + QByteArray::number(g, 'f', 4) + ", "
                       + QByteArray::number(b, 'f', 4) + ", Colour number  " + QByteArray::number(i)
                       + (i % 100 == 0 ? " # checked\n" : "\n");
        }
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            std::abort();
    }
    QString path() const { return m_path; }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

const TableFile &tableFile()
{
    static const TableFile file;
    return file;
}

void loadThirtyThousandEntries(benchmark::State &state)
{
    const QString path = tableFile().path();
    for (auto _ : state) {
        CColourTable table;
        const CColourTable::LoadResult result = table.load(path);
        if (result.status != CColourTable::Loaded || table.count() != kEntries)
            state.SkipWithError("table did not load");
        benchmark::DoNotOptimize(table.at(kEntries - 1)->L);
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(loadThirtyThousandEntries)->Unit(benchmark::kMillisecond);

void matchAgainstThirtyThousandEntries(benchmark::State &state)
{
    CColourTable table;
    table.load(tableFile().path());
    const RgbColour sample{0.31, 0.62, 0.18};
    for (auto _ : state) {
        const QVector<CMatchResult> results = CColourMatcher::match(table, sample);
        benchmark::DoNotOptimize(CColourMatcher::rowsToShow(results, 4));
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(matchAgainstThirtyThousandEntries)->Unit(benchmark::kMillisecond);

// One sample as the match panel and vellora-cli score it: the table's
// colours are grouped once when it is loaded (the panel's library selector
// and the batch command keep the matcher), then only the rows that can be
// shown are computed, for samples spread over the colour space.
void bestRowsAgainstThirtyThousandEntries(benchmark::State &state)
{
    CColourTable table;
    table.load(tableFile().path());
    size_t next = 0;
    const CColourMatcher matcher(table);
    for (auto _ : state) {
        const QVector<CMatchResult> results = matcher.bestRows(kSamples[next++ % 6], 4);
        benchmark::DoNotOptimize(CColourMatcher::rowsToShow(results, 4));
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(bestRowsAgainstThirtyThousandEntries)->Unit(benchmark::kMillisecond);

// Grouping the colours, paid once per loaded (or changed) table.
void prepareThirtyThousandEntries(benchmark::State &state)
{
    CColourTable table;
    table.load(tableFile().path());
    for (auto _ : state) {
        const CColourMatcher matcher(table);
        benchmark::DoNotOptimize(&matcher);
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(prepareThirtyThousandEntries)->Unit(benchmark::kMillisecond);

void serialiseThirtyThousandEntries(benchmark::State &state)
{
    CColourTable table;
    table.load(tableFile().path());
    for (auto _ : state)
        benchmark::DoNotOptimize(table.serialise());
}
BENCHMARK(serialiseThirtyThousandEntries)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
