// The contrast grid of 200 colours (40,000 cells): opening the window with
// its first paint, and repainting it after scrolling. Runs offscreen.

#include "access/contrastgridwindow.h"
#include "common/appcontext.h"

#include <QApplication>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTableView>

#include "benchhome.h"

#include <benchmark/benchmark.h>

namespace {

QVector<PaletteColour> colours(int count)
{
    QVector<PaletteColour> list;
    for (int i = 0; i < count; ++i) {
        list << PaletteColour{QStringLiteral("Colour %1").arg(i),
                              {(i * 37 % 256) / 255.0, (i * 91 % 256) / 255.0,
                               (i * 13 % 256) / 255.0}};
    }
    return list;
}

void BM_OpenGridWithFirstPaint(benchmark::State &state)
{
    const QVector<PaletteColour> list = colours(int(state.range(0)));
    for (auto _ : state) {
        CContrastGridWindow window;
        window.resize(1200, 800);
        window.setColours(list);
        const QPixmap shown = window.grab();
        benchmark::DoNotOptimize(shown.cacheKey());
    }
}
BENCHMARK(BM_OpenGridWithFirstPaint)->Arg(200)->Unit(benchmark::kMillisecond);

void BM_ScrollGridAndRepaint(benchmark::State &state)
{
    CContrastGridWindow window;
    window.resize(1200, 800);
    window.setColours(colours(int(state.range(0))));
    window.show();
    QCoreApplication::processEvents();
    QScrollBar *bar = window.view()->verticalScrollBar();
    int step = 0;
    for (auto _ : state) {
        bar->setValue((step++ * 17) % (bar->maximum() + 1));
        const QPixmap shown = window.view()->viewport()->grab();
        benchmark::DoNotOptimize(shown.cacheKey());
    }
}
BENCHMARK(BM_ScrollGridAndRepaint)->Arg(200)->Unit(benchmark::kMillisecond);


} // namespace

int main(int argc, char **argv)
{
    BenchHome home;
    QApplication app(argc, argv);
    AppContext::initResources();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
