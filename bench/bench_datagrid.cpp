#include "common/appcontext.h"
#include "data/chartdatawindow.h"
#include "data/datagrid.h"
#include "data/datamodel.h"
#include "tables/datacolourtable.h"

#include <QApplication>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

const int kRows = 30000;

// A data set of kRows colours, written once per run by the program's own
// table writer.
class DataFile
{
public:
    DataFile()
    {
        m_path = m_dir.filePath("large.txt");
        CDataColourTable table;
        table.setHeader(QStringLiteral("# large data set"));
        for (int i = 0; i < kRows; ++i)
            table.add(std::make_unique<CColourTableEntry>(
                QStringLiteral("Sample %1").arg(i), (i % 256) / 255.0, ((i / 256) % 256) / 255.0,
                ((i * 7) % 256) / 255.0));
        if (!table.write(m_path))
            std::abort();
    }
    QString path() const { return m_path; }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

const DataFile &dataFile()
{
    static DataFile file;
    return file;
}

// Opening the file into the page (read, parse, Lab, model reset) and the
// first paint of the grid's visible rows.
void BM_OpenDataFileAndPaintGrid(benchmark::State &state)
{
    CChartDataWindow page(nullptr);
    page.resize(1280, 800);
    page.show();
    QApplication::processEvents();
    QWidget *viewport = page.grid()->view()->viewport();
    for (auto _ : state) {
        if (!page.openFile(dataFile().path()))
            state.SkipWithError("the data file did not load");
        const QPixmap shot = viewport->grab();
        benchmark::DoNotOptimize(shot.cacheKey());
    }
    state.counters["rows"] = page.model()->rowCount();
}
BENCHMARK(BM_OpenDataFileAndPaintGrid)->Unit(benchmark::kMillisecond)->UseRealTime();

// The paint alone, over a grid already holding the rows.
void BM_PaintLoadedGrid(benchmark::State &state)
{
    CChartDataWindow page(nullptr);
    page.resize(1280, 800);
    page.show();
    page.openFile(dataFile().path());
    QApplication::processEvents();
    QWidget *viewport = page.grid()->view()->viewport();
    for (auto _ : state) {
        const QPixmap shot = viewport->grab();
        benchmark::DoNotOptimize(shot.cacheKey());
    }
}
BENCHMARK(BM_PaintLoadedGrid)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    // Widgets without a display: the same offscreen platform as the tests.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    AppContext::initResources();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
