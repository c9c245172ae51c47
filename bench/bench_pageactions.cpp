// Every user action of the sampling page, on a 24 megapixel photograph-like
// picture (range 0) and on 24 megapixels of noise (range 1), timed as the
// longest stretch the GUI thread is busy with it: the action's own events
// with the repaints they cause, then, once the pick's spread has been
// measured off the GUI thread, the pass of the event loop that shows its
// note. That longest stretch is the benchmark's (manual) time. Runs
// offscreen; "spread_extra_MB" is the peak resident memory above what the
// process held before the action, spread included.

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/commandid.h"
#include "sample/colourimagewindow.h"
#include "sample/colourimagewindowview.h"
#include "sample/imagewidget.h"
#include "sample/spreadworker.h"
#include "tables/libcolourtable.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "benchhome.h"
#include "benchpictures.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

const QSize kPicture(6000, 4000);
const QSize kPage(1280, 800);
const int kTableEntries = 30000;

// Smooth gradients with fine grain, as bench_view draws it.
QImage photograph()
{
    return BenchPictures::grainyGradient(kPicture, 24, 16, 40);
}

// Every pixel a colour of its own, as near as can be.
QImage noise()
{
    QImage image(kPicture, QImage::Format_RGB32);
    QRandomGenerator rng(29);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = 0xff000000u | (rng.generate() & 0xffffffu);
    }
    return image;
}

// A library table of 30,000 colours in the library folder.
bool writeTable(const QString &path)
{
    QByteArray content = "#Large table\n#for timing\n\n";
    for (int i = 0; i < kTableEntries; ++i) {
        content += QByteArray::number((i % 256) / 255.0, 'f', 4) + ", "
                   + QByteArray::number(((i / 256) % 256) / 255.0, 'f', 4) + ", "
                   + QByteArray::number(((i * 7) % 256) / 255.0, 'f', 4) + ", Colour number  "
                   + QByteArray::number(i) + "\n";
    }
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

double procStatusMegabytes(const char *field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return line.mid(int(qstrlen(field))).trimmed().split(' ').first().toDouble() / 1024.0;
    }
    return 0;
}

// Starts a new peak: the kernel sets the high-water mark to what is resident.
void resetPeak()
{
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

// One page, showing the picture a benchmark asks for.
struct Page
{
    explicit Page(const QString &libraryDir)
    {
        AppContext::initResources();
        settings = std::make_unique<CAppSettings>();
        settings->libraryDir = libraryDir;
        settings->selectedTable = libraryDir + QStringLiteral("/Large.clrtable");
        page = std::make_unique<CColourImageWindow>(settings.get());
        page->resize(kPage);
        page->show();
        pictures[0] = photograph();
        pictures[1] = noise();
    }

    CImageWidget *label() const { return page->imageWidget(); }

    void show(int picture)
    {
        if (shown == picture)
            return;
        page->showImage(QStringLiteral("picture.png"), pictures[picture]);
        QCoreApplication::processEvents();
        shown = picture;
    }

    void mouse(QEvent::Type type, const QPoint &point) const
    {
        QMouseEvent event(type, point, label()->mapToGlobal(point), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(label(), &event);
    }

    void click(const QPoint &point) const
    {
        mouse(QEvent::MouseButtonPress, point);
        mouse(QEvent::MouseButtonRelease, point);
    }

    void key(int key) const
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(label(), &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        QApplication::sendEvent(label(), &release);
    }

    void zoomTo(int index) const
    {
        page->zoomStep(CmdZoomActual);
        for (int i = 7; i < index; ++i)
            page->zoomStep(CmdZoomIn);
        for (int i = index; i < 7; ++i)
            page->zoomStep(CmdZoomOut);
    }

    std::unique_ptr<CAppSettings> settings;
    std::unique_ptr<CColourImageWindow> page;
    QImage pictures[2];
    int shown = -1;
};

Page *g_page = nullptr;

// The action with the repaints it causes, then the note once the spread is
// measured: the longer of the two stretches, in seconds. The wait for the
// spread itself leaves the GUI thread idle, so it is not counted.
template <typename Action>
double longestBusy(Page &p, Action action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    QCoreApplication::processEvents();
    const qint64 own = timer.nsecsElapsed();
    p.page->spreadWorker()->waitForIdle();
    timer.restart();
    QCoreApplication::processEvents();
    return double(std::max(own, timer.nsecsElapsed())) / 1e9;
}

void label(benchmark::State &state, const QString &what)
{
    state.SetLabel((QStringLiteral("%1, %2").arg(state.range(0) == 0 ? "photograph" : "noise", what))
                       .toStdString());
}

void prepare(Page &p, int picture, int pickMode, int selectionMode)
{
    p.show(picture);
    p.page->processCommand(pickMode);
    p.page->processCommand(selectionMode);
    QCoreApplication::processEvents();
}

// Opening: the decoded picture shown, the page reset, the first paint. The
// decoding itself is left out (it is the image reader's).
void BM_Open(benchmark::State &state)
{
    Page &p = *g_page;
    const int picture = int(state.range(0));
    for (auto _ : state) {
        p.show(1 - picture);
        state.SetIterationTime(longestBusy(p, [&]() { p.show(picture); }));
    }
    label(state, QStringLiteral("show the decoded picture"));
}
BENCHMARK(BM_Open)->Arg(0)->Arg(1)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

// One zoom step into level range(1), with the first paint of the viewport.
void BM_ZoomStep(benchmark::State &state)
{
    Page &p = *g_page;
    p.show(int(state.range(0)));
    const int index = int(state.range(1));
    const int from = index == 0 ? 1 : index - 1;
    for (auto _ : state) {
        p.zoomTo(from);
        QCoreApplication::processEvents();
        state.SetIterationTime(longestBusy(
            p, [&]() { p.page->zoomStep(index == 0 ? CmdZoomOut : CmdZoomIn); }));
    }
    label(state, QStringLiteral("zoom to %1 %").arg(CColourImageWindowView::zoomFactor(index) * 100));
}
BENCHMARK(BM_ZoomStep)
    ->ArgsProduct({{0, 1}, benchmark::CreateDenseRange(0, 15, 1)})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

// A click at 100 % at pick size range(1) (1x1 to 9x9), single selection.
void BM_Click(benchmark::State &state)
{
    Page &p = *g_page;
    prepare(p, int(state.range(0)), CmdPickClick, CmdSelectSingle);
    p.zoomTo(7);
    p.page->pickSizeCombo()->setCurrentIndex(int(state.range(1)));
    int n = 0;
    for (auto _ : state) {
        const QPoint at(40 + 97 * (n % 11), 30 + 61 * (n % 7));
        ++n;
        state.SetIterationTime(longestBusy(p, [&]() { p.click(at); }));
    }
    label(state, p.page->pickSizeCombo()->currentText());
}
BENCHMARK(BM_Click)
    ->ArgsProduct({{0, 1}, {0, 1, 2, 3, 4}})
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

// A rubber band over the whole picture at 20 %; range(1) 1 = RGB rule,
// 0 = Lab rule.
void BM_FullFrameBand(benchmark::State &state)
{
    Page &p = *g_page;
    prepare(p, int(state.range(0)), CmdPickRubberBand, CmdSelectSingle);
    p.settings->rgbAverage = state.range(1) == 1;
    p.zoomTo(0);
    const QPoint end(p.label()->width() - 1, p.label()->height() - 1);
    double extra = 0;
    for (auto _ : state) {
        const double before = procStatusMegabytes("VmRSS:");
        resetPeak();
        state.SetIterationTime(longestBusy(p, [&]() {
            p.mouse(QEvent::MouseButtonPress, QPoint(0, 0));
            p.mouse(QEvent::MouseMove, end);
            p.mouse(QEvent::MouseButtonRelease, end);
        }));
        extra = std::max(extra, procStatusMegabytes("VmHWM:") - before);
    }
    p.settings->rgbAverage = true;
    state.counters["spread_extra_MB"] = extra;
    label(state, state.range(1) == 1 ? QStringLiteral("RGB rule") : QStringLiteral("Lab rule"));
    if (!p.page->isSamplePresent())
        state.SkipWithError("the band picked nothing");
}
BENCHMARK(BM_FullFrameBand)
    ->ArgsProduct({{0, 1}, {1, 0}})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

// Eight 9x9 clicks in multiple selection at 100 %: the longest of them.
void BM_EightMultiplePicks(benchmark::State &state)
{
    Page &p = *g_page;
    prepare(p, int(state.range(0)), CmdPickClick, CmdSelectMultiple);
    p.zoomTo(7);
    p.page->pickSizeCombo()->setCurrentIndex(4);
    for (auto _ : state) {
        p.page->processCommand(CmdClearMultiple);
        QCoreApplication::processEvents();
        double longest = 0;
        for (int n = 0; n < 8; ++n) {
            const QPoint at(40 + 97 * n, 30 + 61 * (n % 7));
            longest = std::max(longest, longestBusy(p, [&]() { p.click(at); }));
        }
        state.SetIterationTime(longest);
    }
    if (p.page->multipleCount() != 8)
        state.SkipWithError("the picks did not all land");
    p.page->processCommand(CmdSelectSingle);
    label(state, QStringLiteral("8 picks, 9x9"));
}
BENCHMARK(BM_EightMultiplePicks)->Arg(0)->Arg(1)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

// "Match Library Colour" against the 30,000-entry table.
void BM_Match(benchmark::State &state)
{
    Page &p = *g_page;
    prepare(p, int(state.range(0)), CmdPickClick, CmdSelectSingle);
    p.zoomTo(7);
    p.page->pickSizeCombo()->setCurrentIndex(2);
    int n = 0;
    for (auto _ : state) {
        p.click(QPoint(50 + 31 * (n % 13), 60 + 17 * (n % 11)));
        ++n;
        p.page->spreadWorker()->waitForIdle();
        QCoreApplication::processEvents();
        state.SetIterationTime(longestBusy(p, [&]() { p.page->processCommand(CmdMatchColour); }));
    }
    if (p.page->libraryTable().count() != kTableEntries)
        state.SkipWithError("the large table is not the one selected");
    label(state, QStringLiteral("30,000 entries"));
}
BENCHMARK(BM_Match)->Arg(0)->Arg(1)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

// Picking from the keyboard: an arrow key, then Space, at 5x5.
void BM_KeyboardPick(benchmark::State &state)
{
    Page &p = *g_page;
    prepare(p, int(state.range(0)), CmdPickClick, CmdSelectSingle);
    p.zoomTo(7);
    p.page->pickSizeCombo()->setCurrentIndex(2);
    p.label()->setFocus();
    for (auto _ : state) {
        const double move = longestBusy(p, [&]() { p.key(Qt::Key_Right); });
        const double pick = longestBusy(p, [&]() { p.key(Qt::Key_Space); });
        state.SetIterationTime(std::max(move, pick));
    }
    if (!p.page->isSamplePresent())
        state.SkipWithError("the key picked nothing");
    label(state, QStringLiteral("arrow, then Space"));
}
BENCHMARK(BM_KeyboardPick)->Arg(0)->Arg(1)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);


} // namespace

int main(int argc, char **argv)
{
    BenchHome home;
    const QString library = home.path() + QStringLiteral("/Documents/Vellora/ColourLibrary");
    QDir().mkpath(library);
    if (!writeTable(library + QStringLiteral("/Large.clrtable"))) {
        fprintf(stderr, "cannot write the table\n");
        return 1;
    }
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    {
        Page page(library);
        g_page = &page;
        benchmark::RunSpecifiedBenchmarks();
        g_page = nullptr;
    }
    return 0;
}
