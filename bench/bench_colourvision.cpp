// The image view simulating a colour vision deficiency on a 24 megapixel
// photograph: a full repaint of a 1600 x 1000 viewport at several zooms,
// beside the same repaint of the plain view; the same repaint when nothing
// kept can be reused (after a change of simulation) and after a scroll; and
// the simulation of one viewport-sized buffer alone. Runs offscreen.

#include "sample/simulatedpicture.h"
#include "common/appcontext.h"
#include "app/appsettings.h"
#include "colour/colourvision.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"

#include <QApplication>
#include <QBrush>
#include <QDir>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "benchhome.h"
#include "benchpictures.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

const QSize kPhoto(6000, 4000);
const QSize kViewport(1600, 1000);

QImage photograph()
{
    return BenchPictures::grainyGradient(kPhoto, 24, 16, 40);
}

struct Page
{
    Page()
    {
        AppContext::initResources();
        settings = std::make_unique<CAppSettings>();
        page = std::make_unique<CColourImageWindow>(settings.get());
        page->show();
        page->showImage(QStringLiteral("photo.png"), photograph());
        QCoreApplication::processEvents();
        // Grow the page until its viewport is 1600 x 1000.
        page->resize(kViewport + QSize(800, 200));
        QCoreApplication::processEvents();
        const QSize extra = kViewport - page->view()->viewport()->size();
        page->resize(page->size() + extra);
        QCoreApplication::processEvents();
    }

    void zoomTo(int index) const
    {
        page->zoomStep(8);
        for (int i = 7; i < index; ++i)
            page->zoomStep(7);
        for (int i = index; i < 7; ++i)
            page->zoomStep(6);
        // The middle of the picture, so that the viewport is full.
        for (QScrollBar *bar : {page->view()->horizontalScrollBar(),
                                page->view()->verticalScrollBar()})
            bar->setValue((bar->minimum() + bar->maximum()) / 2);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<CAppSettings> settings;
    std::unique_ptr<CColourImageWindow> page;
};

Page *g_page = nullptr;

// range(0): zoom index; range(1): 1 simulated (deuteranomaly 0.6), 0 plain.
void BM_ViewportRepaint(benchmark::State &state)
{
    Page &p = *g_page;
    const bool simulated = state.range(1) == 1;
    p.page->imageWidget()->setColourVision(
        simulated ? std::make_shared<const ColourVision>(ColourVision::Deuteranomaly, 0.6)
                  : nullptr);
    p.zoomTo(int(state.range(0)));
    QWidget *viewport = p.page->view()->viewport();
    for (auto _ : state) {
        const QPixmap shown = viewport->grab();
        benchmark::DoNotOptimize(shown.cacheKey());
    }
    state.SetLabel(QStringLiteral("%1 %, %2")
                       .arg(CColourImageWindowView::zoomFactor(int(state.range(0))) * 100)
                       .arg(simulated ? "simulated" : "plain")
                       .toStdString());
    state.counters["viewport_w"] = viewport->width();
    state.counters["viewport_h"] = viewport->height();
}
BENCHMARK(BM_ViewportRepaint)
    ->ArgsProduct({{0, 3, 5, 7, 9, 12, 15}, {1, 0}})
    ->Unit(benchmark::kMillisecond);

// A repaint that cannot reuse anything kept: before each one the simulation
// changes (deuteranomaly 0.6 and 0.7 in turn), so that the part in sight is
// scaled and simulated afresh, as after a change of zoom, picture or setting.
void BM_ViewportRepaintAfterChange(benchmark::State &state)
{
    Page &p = *g_page;
    const std::shared_ptr<const ColourVision> visions[2] = {
        std::make_shared<const ColourVision>(ColourVision::Deuteranomaly, 0.6),
        std::make_shared<const ColourVision>(ColourVision::Deuteranomaly, 0.7)};
    p.page->imageWidget()->setColourVision(visions[0]);
    p.zoomTo(int(state.range(0)));
    QWidget *viewport = p.page->view()->viewport();
    int turn = 0;
    for (auto _ : state) {
        p.page->imageWidget()->setColourVision(visions[++turn % 2]);
        const QPixmap shown = viewport->grab();
        benchmark::DoNotOptimize(shown.cacheKey());
    }
    state.SetLabel(QStringLiteral("%1 %, simulated")
                       .arg(CColourImageWindowView::zoomFactor(int(state.range(0))) * 100)
                       .toStdString());
}
BENCHMARK(BM_ViewportRepaintAfterChange)
    ->DenseRange(0, 15, 1)
    ->Unit(benchmark::kMillisecond);

// A scroll by 40 pixels down or up, then a repaint of the whole viewport:
// the part still in sight is kept, the 40 rows that came into sight drawn.
void BM_ViewportScroll(benchmark::State &state)
{
    Page &p = *g_page;
    p.page->imageWidget()->setColourVision(
        std::make_shared<const ColourVision>(ColourVision::Deuteranomaly, 0.6));
    p.zoomTo(int(state.range(0)));
    QWidget *viewport = p.page->view()->viewport();
    QScrollBar *bar = p.page->view()->verticalScrollBar();
    const int start = bar->value();
    int step = 40;
    for (auto _ : state) {
        if (bar->value() + step > bar->maximum() || bar->value() + step < bar->minimum())
            step = -step;
        bar->setValue(bar->value() + step);
        const QPixmap shown = viewport->grab();
        benchmark::DoNotOptimize(shown.cacheKey());
    }
    bar->setValue(start);
    state.SetLabel(QStringLiteral("%1 %, simulated")
                       .arg(CColourImageWindowView::zoomFactor(int(state.range(0))) * 100)
                       .toStdString());
}
BENCHMARK(BM_ViewportScroll)->Arg(3)->Arg(5)->Arg(7)->Arg(12)->Unit(benchmark::kMillisecond);

// The simulation of one 1600 x 1000 buffer at 100 %, without the widget.
void BM_SimulatedRender(benchmark::State &state)
{
    static const QImage image = photograph();
    const ColourVision vision(ColourVision::Type(state.range(0)), 0.6);
    const QRect source(QPoint(2000, 1500), kViewport);
    for (auto _ : state) {
        const QImage buffer = SimulatedPicture::render(image, source, 1.0, vision, QBrush());
        benchmark::DoNotOptimize(buffer.constBits());
    }
    state.SetLabel(ColourVision::key(vision.type()).toStdString());
}
BENCHMARK(BM_SimulatedRender)
    ->Arg(ColourVision::Deuteranopia)
    ->Arg(ColourVision::Achromatopsia)
    ->Arg(ColourVision::Tritanomaly)
    ->Unit(benchmark::kMillisecond);

// The per-pixel simulation alone on one thread: a viewport's worth of the
// photograph's pixels, every one different from the one before it.
void BM_SimulatePixels(benchmark::State &state)
{
    static const QImage image = photograph();
    const ColourVision vision(ColourVision::Deuteranomaly, 0.6);
    const int rows = kViewport.height();
    std::vector<QRgb> out(size_t(kViewport.width()));
    for (auto _ : state) {
        for (int y = 0; y < rows; ++y) {
            const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(1500 + y));
            vision.simulatePixels(line + 2000, out.data(), kViewport.width());
        }
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(state.iterations() * rows * kViewport.width());
}
BENCHMARK(BM_SimulatePixels)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    BenchHome home;
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    {
        Page page;
        g_page = &page;
        benchmark::RunSpecifiedBenchmarks();
        g_page = nullptr;
    }
    return 0;
}
