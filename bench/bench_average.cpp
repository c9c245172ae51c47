// Averaging a whole 6000 x 4000 frame (a rubber band over a large photo) by
// each rule, on a photo-like picture and on pure noise, where neighbouring
// pixels never repeat a colour, and by the Lab rule on flat areas of a few
// colours, where they nearly always do.
#include "colour/imageregionaverage.h"

#include <benchmark/benchmark.h>

#include <QImage>

#include <cmath>
#include <random>

namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;

int clampedByte(double v)
{
    return v < 0.0 ? 0 : (v > 255.0 ? 255 : int(v));
}

// Smooth gradients and soft shapes with a little sensor noise.
QImage photoLikeImage()
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    std::mt19937 rng(7);
    std::normal_distribution<double> noise(0.0, 2.0);
    for (int y = 0; y < kHeight; ++y) {
        QRgb *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < kWidth; ++x) {
            const double u = double(x) / kWidth;
            const double v = double(y) / kHeight;
            const double shade = 40.0 * std::sin(6.0 * u + 3.0 * v);
            row[x] = qRgb(clampedByte(90 + 120 * u + shade + noise(rng)),
                          clampedByte(140 - 60 * v + 0.5 * shade + noise(rng)),
                          clampedByte(60 + 80 * u * v - shade + noise(rng)));
        }
    }
    return image;
}

QImage noiseImage()
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    std::mt19937 rng(11);
    for (int y = 0; y < kHeight; ++y) {
        QRgb *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < kWidth; ++x)
            row[x] = 0xff000000u | (rng() & 0xffffffu);
    }
    return image;
}

// A screenshot's flat areas: blocks of a few colours, each repeated for
// hundreds of pixels, where remembering colours saves nearly every
// conversion.
QImage flatImage()
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    const QRgb colours[4] = {qRgb(240, 240, 240), qRgb(30, 90, 200), qRgb(20, 20, 20),
                             qRgb(250, 200, 60)};
    for (int y = 0; y < kHeight; ++y) {
        QRgb *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < kWidth; ++x)
            row[x] = colours[(x / 300 + y / 200) % 4];
    }
    return image;
}

const QImage &flat()
{
    static const QImage image = flatImage();
    return image;
}

const QImage &photo()
{
    static const QImage image = photoLikeImage();
    return image;
}

const QImage &noise()
{
    static const QImage image = noiseImage();
    return image;
}

void average(benchmark::State &state, const QImage &image, bool useRgb)
{
    RgbColour result;
    for (auto _ : state) {
        benchmark::DoNotOptimize(averageImageRegion(image, image.rect(), useRgb, &result));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * qint64(kWidth) * kHeight);
}

void photoRgb(benchmark::State &state)
{
    average(state, photo(), true);
}
void photoLab(benchmark::State &state)
{
    average(state, photo(), false);
}
void flatLab(benchmark::State &state)
{
    average(state, flat(), false);
}
void noiseRgb(benchmark::State &state)
{
    average(state, noise(), true);
}
void noiseLab(benchmark::State &state)
{
    average(state, noise(), false);
}

} // namespace

// Large regions are split over two threads: the CPU column counts both
// (the process's time), so that a shared, busy machine, which stretches
// the wall time, still shows what the work itself costs.
BENCHMARK(photoRgb)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(photoLab)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(flatLab)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(noiseRgb)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(noiseLab)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
