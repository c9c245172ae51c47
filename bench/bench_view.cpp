// The sampling page on a 24 megapixel photograph: zoom steps with the first
// paint of the viewport, multiple-selection picks with their marks, and
// full-frame rubber bands under both averaging rules. Runs offscreen.

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMouseEvent>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "benchhome.h"
#include "benchpictures.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace {

const QSize kPhoto(6000, 4000);
const QSize kPage(1280, 800);

// Something photo-like: smooth gradients with fine noise, so that neither
// the scaling nor the colour caches get an easy ride.
QImage photograph()
{
    return BenchPictures::grainyGradient(kPhoto, 24, 16, 40);
}

// Peak resident memory of this process so far, in megabytes.
double peakRssMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
    }
    return 0;
}

// One page with the photograph open, shared by all benchmarks.
struct Page
{
    Page()
    {
        AppContext::initResources();
        settings = std::make_unique<CAppSettings>();
        page = std::make_unique<CColourImageWindow>(settings.get());
        page->resize(kPage);
        page->show();
        page->showImage(QStringLiteral("photo.png"), photograph());
        QCoreApplication::processEvents();
    }

    CColourImageWindowView *view() const { return page->view(); }
    CImageWidget *label() const { return page->imageWidget(); }

    void paintViewport() const
    {
        const QPixmap shown = view()->viewport()->grab();
        benchmark::DoNotOptimize(shown.cacheKey());
    }

    void send(QEvent::Type type, const QPoint &point) const
    {
        QMouseEvent event(type, point, label()->mapToGlobal(point), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(label(), &event);
    }

    void zoomTo(int index) const
    {
        page->zoomStep(8);
        for (int i = 7; i < index; ++i)
            page->zoomStep(7);
        for (int i = index; i < 7; ++i)
            page->zoomStep(6);
    }

    std::unique_ptr<CAppSettings> settings;
    std::unique_ptr<CColourImageWindow> page;
};

// Made in main, after the application object and before the benchmarks.
Page *g_page = nullptr;

Page &thePage()
{
    return *g_page;
}

// One zoom step into level `index` (from the level below it; level 0 from
// level 1), with the first paint of the viewport.
void BM_ZoomStepWithFirstPaint(benchmark::State &state)
{
    Page &p = thePage();
    const int index = int(state.range(0));
    const int from = index == 0 ? 1 : index - 1;
    const int command = index == 0 ? 6 : 7;
    const int back = index == 0 ? 7 : 6;
    p.zoomTo(from);
    p.paintViewport();
    for (auto _ : state) {
        p.page->zoomStep(command);
        p.paintViewport();
        state.PauseTiming();
        p.page->zoomStep(back);
        p.paintViewport();
        state.ResumeTiming();
    }
    state.SetLabel(QStringLiteral("%1 %").arg(CColourImageWindowView::zoomFactor(index) * 100).toStdString());
    state.counters["peak_rss_MB"] = peakRssMegabytes();
}
BENCHMARK(BM_ZoomStepWithFirstPaint)->DenseRange(0, 15)->Unit(benchmark::kMillisecond);

// A 9 x 9 click in multiple mode at 100 %: averaging, the row, the new
// sample and the viewport repainted with every mark.
void BM_MultipleSelectionPick(benchmark::State &state)
{
    Page &p = thePage();
    p.zoomTo(7);
    p.page->processCommand(17);
    p.page->processCommand(20);
    p.page->pickSizeCombo()->setCurrentIndex(4);
    p.paintViewport();
    int n = 0;
    for (auto _ : state) {
        if (p.page->multipleCount() == 8) {
            state.PauseTiming();
            p.page->processCommand(21);
            state.ResumeTiming();
        }
        const QPoint at(40 + 97 * (n % 11), 30 + 61 * (n % 7));
        ++n;
        p.send(QEvent::MouseButtonPress, at);
        p.send(QEvent::MouseButtonRelease, at);
        p.paintViewport();
    }
    p.page->processCommand(19);
    state.counters["peak_rss_MB"] = peakRssMegabytes();
}
BENCHMARK(BM_MultipleSelectionPick)->Unit(benchmark::kMillisecond);

// A rubber band over the whole picture at 20 %; range 1 = RGB rule,
// 0 = Lab rule.
void BM_FullFrameRubberBand(benchmark::State &state)
{
    Page &p = thePage();
    p.settings->rgbAverage = state.range(0) == 1;
    p.zoomTo(0);
    p.page->processCommand(18);
    p.page->processCommand(19);
    const QPoint end(p.label()->width() - 1, p.label()->height() - 1);
    for (auto _ : state) {
        p.send(QEvent::MouseButtonPress, QPoint(0, 0));
        p.send(QEvent::MouseMove, end);
        p.send(QEvent::MouseButtonRelease, end);
    }
    p.page->processCommand(17);
    p.settings->rgbAverage = true;
    state.SetLabel(state.range(0) == 1 ? "RGB rule" : "Lab rule");
    if (!p.page->isSamplePresent())
        state.SkipWithError("the band picked nothing");
}
BENCHMARK(BM_FullFrameRubberBand)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);


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
