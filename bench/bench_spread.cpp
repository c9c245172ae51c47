// The spread of a full-frame 24 megapixel rubber band around its average,
// as a pick computes both, against the average alone, by each averaging rule. The picture is a
// landscape: a sky gradient over a field, soft shading and sensor noise.
#include "colour/imageregionaverage.h"
#include "colour/pickspread.h"

#include <benchmark/benchmark.h>

#include <QImage>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr int kFrameWidth = 6000;
constexpr int kFrameHeight = 4000;

int toByte(double v)
{
    return int(std::min(255.0, std::max(0.0, v)));
}

QRgb landscapePixel(double u, double v, double grain[3])
{
    const double ripple = 25.0 * std::cos(9.0 * u - 4.0 * v) * std::sin(5.0 * v);
    if (v < 0.45) // sky: pale to deep blue
        return qRgb(toByte(170 - 120 * v + grain[0]), toByte(200 - 90 * v + grain[1]),
                    toByte(245 - 30 * v + grain[2]));
    return qRgb(toByte(70 + 60 * u + ripple + grain[0]), toByte(120 + 40 * v + ripple + grain[1]),
                toByte(40 + 30 * u * v + grain[2]));
}

const QImage &landscape()
{
    static const QImage image = [] {
        QImage frame(kFrameWidth, kFrameHeight, QImage::Format_RGB32);
        std::mt19937 rng(23);
        std::normal_distribution<double> sensor(0.0, 1.5);
        for (int y = 0; y < kFrameHeight; ++y) {
            QRgb *line = reinterpret_cast<QRgb *>(frame.scanLine(y));
            for (int x = 0; x < kFrameWidth; ++x) {
                double grain[3] = {sensor(rng), sensor(rng), sensor(rng)};
                line[x] = landscapePixel(double(x) / kFrameWidth, double(y) / kFrameHeight, grain);
            }
        }
        return frame;
    }();
    return image;
}

void averageOnly(benchmark::State &state, bool useRgb)
{
    RgbColour colour;
    for (auto _ : state)
        benchmark::DoNotOptimize(averageImageRegion(landscape(), landscape().rect(), useRgb, &colour));
}

void averageAndSpread(benchmark::State &state, bool useRgb)
{
    RgbColour colour;
    PickSpread spread;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            averageWithSpread(landscape(), landscape().rect(), useRgb, &colour, &spread));
    }
    state.counters["p95"] = spread.p95;
}

void averageRgb(benchmark::State &state)
{
    averageOnly(state, true);
}
void averageRgbWithSpread(benchmark::State &state)
{
    averageAndSpread(state, true);
}
void averageLab(benchmark::State &state)
{
    averageOnly(state, false);
}
void averageLabWithSpread(benchmark::State &state)
{
    averageAndSpread(state, false);
}

// A 9 x 9 click, the everyday pick, with and without its spread.
void clickAverageRgb(benchmark::State &state)
{
    RgbColour colour;
    const QRect click(3000, 2500, 9, 9);
    for (auto _ : state)
        benchmark::DoNotOptimize(averageImageRegion(landscape(), click, true, &colour));
}
void clickAverageRgbWithSpread(benchmark::State &state)
{
    RgbColour colour;
    PickSpread spread;
    const QRect click(3000, 2500, 9, 9);
    for (auto _ : state)
        benchmark::DoNotOptimize(averageWithSpread(landscape(), click, true, &colour, &spread));
}

} // namespace

// Both passes may use a second thread: the process's CPU time counts both,
// and stays meaningful on a busy machine where wall time does not. The
// picture is made before the first measurement.
BENCHMARK(averageRgb)->Setup([](const benchmark::State &) { landscape(); })->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(averageRgbWithSpread)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(averageLab)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(averageLabWithSpread)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

BENCHMARK(clickAverageRgb)->Setup([](const benchmark::State &) { landscape(); })->Unit(benchmark::kMicrosecond);
BENCHMARK(clickAverageRgbWithSpread)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
