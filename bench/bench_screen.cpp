// "Pick from Screen" on a 2560 x 1440 desktop held in memory: from the
// command to the overlay painted on screen (the wait for the program's own
// windows to go is left out: its settling delay is set to zero here), and
// one loupe update with the nearest name in a 30,000-entry table. Runs
// offscreen.

#include "screen/loupe.h"
#include "screen/memoryscreencapture.h"
#include "screen/screenoverlay.h"
#include "screen/screenpicker.h"
#include "tables/colourmatcher.h"
#include "tables/libcolourtable.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QWidget>
#include <QWindow>

#include "benchhome.h"
#include "benchpictures.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace {

const QSize kDesktop(2560, 1440);
const int kEntries = 30000;

// Something like a desktop: smooth gradients with fine noise.
QImage desktop()
{
    return BenchPictures::grainyGradient(kDesktop, 10, 6, 20);
}

// 30,000 colours spread over the whole cube, the same every run.
void fillTable(CLibColourTable *table)
{
    quint32 seed = 777;
    for (int i = 0; i < kEntries; ++i) {
        seed = seed * 1664525u + 1013904223u;
        table->add(std::make_unique<CColourTableEntry>(
            QStringLiteral("Colour %1").arg(i), (seed >> 24) / 255.0, ((seed >> 16) & 0xff) / 255.0,
            ((seed >> 8) & 0xff) / 255.0));
    }
}

void waitForOverlay(CScreenPicker &picker)
{
    while (!picker.overlay() || !picker.overlay()->isVisible())
        QApplication::processEvents();
    // The first frame painted, as the user sees it.
    picker.overlay()->repaint();
}

// The command with the overlay's geometry as the offscreen screen gives it
// (smaller than the capture, so the picture is scaled: the slower path).
void BM_CommandToOverlayShown(benchmark::State &state)
{
    QWidget window;
    window.resize(400, 300);
    window.show();
    CScreenPicker picker(&window);
    picker.setCapture(std::make_unique<CMemoryScreenCapture>(desktop()));
    picker.setSettleDelay(0);
    for (auto _ : state) {
        picker.start();
        waitForOverlay(picker);
        state.PauseTiming();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(picker.overlay(), &escape);
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_CommandToOverlayShown)->Unit(benchmark::kMillisecond);

// The overlay alone over a desktop of the capture's size: every device
// pixel painted once, unscaled, as on a real 2560 x 1440 screen.
void BM_OverlayShownAtFullSize(benchmark::State &state)
{
    const QImage capture = desktop();
    for (auto _ : state) {
        auto overlay = std::make_unique<CScreenOverlay>(capture);
        overlay->showOverDesktop(QRect(QPoint(), kDesktop), false);
        while (!overlay->windowHandle()->isExposed())
            QApplication::processEvents();
        overlay->repaint();
        benchmark::DoNotOptimize(overlay->cursorPixel());
        state.PauseTiming();
        overlay.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OverlayShownAtFullSize)->Unit(benchmark::kMillisecond);

// A mouse move: the loupe moves, enlarges, averages, names the nearest of
// 30,000 entries and paints.
void BM_LoupeUpdate(benchmark::State &state)
{
    CLibColourTable table;
    fillTable(&table);
    const CColourMatcher matcher(table);
    CScreenOverlay overlay(desktop());
    overlay.setMatcher(&matcher);
    overlay.setPickSize(int(state.range(0)));
    overlay.showOverDesktop(QRect(QPoint(), kDesktop), false);
    QApplication::processEvents();
    int step = 0;
    for (auto _ : state) {
        step = (step + 97) % 2000;
        const QPoint point(200 + step, 100 + (step * 7) % 1200);
        QMouseEvent move(QEvent::MouseMove, point, overlay.mapToGlobal(point), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&overlay, &move);
        overlay.loupe()->repaint();
    }
    state.SetLabel(QStringLiteral("%1x%1 pick, %2 entries").arg(state.range(0)).arg(kEntries).toStdString());
    if (overlay.loupe()->nearestName().isEmpty())
        state.SkipWithError("no name found");
}
BENCHMARK(BM_LoupeUpdate)->Arg(1)->Arg(9)->Unit(benchmark::kMillisecond);


} // namespace

int main(int argc, char **argv)
{
    BenchHome home;
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
