#include "colour/rgbcolour.h"
#include "tables/colourmatcher.h"
#include "tables/colourtable.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

const int kEntries = 30000;

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
