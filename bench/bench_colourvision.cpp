// The image view simulating a colour vision deficiency on a 24 megapixel
// photograph: a full repaint of a 1600 x 1000 viewport at several zooms,
// beside the same repaint of the plain view, and the simulation of one
// viewport-sized buffer alone. Runs offscreen.

#include "access/simulatedpicture.h"
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

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace {

const QSize kPhoto(6000, 4000);
const QSize kViewport(1600, 1000);

QImage photograph()
{
    QImage image(kPhoto, QImage::Format_RGB32);
    quint32 noise = 12345;
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            noise = noise * 1664525u + 1013904223u;
            const int n = int(noise >> 28);
            line[x] = qRgb((x / 24 + n) & 0xff, (y / 16 + n) & 0xff, ((x + y) / 40 + n) & 0xff);
        }
    }
    return image;
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
