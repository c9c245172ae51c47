// What converting a 24 megapixel photograph tagged Display P3 or Adobe RGB
// to sRGB adds to opening it. Qt may convert on several threads, so the
// process CPU time is reported beside the wall time.
#include "colour/colourprofile.h"

#include <benchmark/benchmark.h>

#include <QColorSpace>
#include <QImage>

namespace {

QImage tagged(QColorSpace::NamedColorSpace space)
{
    QImage image(6000, 4000, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        QRgb *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = qRgb((x / 24) & 255, (y / 16) & 255, ((x + y) / 40) & 255);
    }
    image.setColorSpace(QColorSpace(space));
    return image;
}

void convert(benchmark::State &state, QColorSpace::NamedColorSpace space)
{
    const QImage source = tagged(space);
    for (auto _ : state) {
        state.PauseTiming();
        QImage image = source.copy();
        state.ResumeTiming();
        benchmark::DoNotOptimize(CColourProfile::convertToSrgb(&image));
    }
}

void displayP3(benchmark::State &state)
{
    convert(state, QColorSpace::DisplayP3);
}

void adobeRgb(benchmark::State &state)
{
    convert(state, QColorSpace::AdobeRgb);
}

} // namespace

BENCHMARK(displayP3)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(adobeRgb)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

BENCHMARK_MAIN();
