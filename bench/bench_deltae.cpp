// Cost of the colour maths on the matching path: one CIEDE2000 per table
// entry (single precision, as matching uses it, and the double variant), and
// one sRGB -> L*a*b* conversion per loaded entry or picked colour.
#include "colour/colourconversion.h"
#include "colour/deltae2000.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

constexpr int kPairs = 1024;

std::vector<LabColour> randomLabColours(int count, unsigned seed)
{
    std::mt19937 rng(seed);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<LabColour> out;
    out.reserve(count);
    for (int i = 0; i < count; ++i)
        out.push_back(rgbToLab(unit(rng), unit(rng), unit(rng)));
    return out;
}

void deltaEFloat(benchmark::State &state)
{
    const auto table = randomLabColours(kPairs, 1);
    const LabColour sample = randomLabColours(1, 2).front();
    const float L2 = float(sample.L), a2 = float(sample.a), b2 = float(sample.b);
    for (auto _ : state) {
        for (const LabColour &e : table)
            benchmark::DoNotOptimize(
                deltaE2000(float(e.L), float(e.a), float(e.b), L2, a2, b2));
    }
    state.SetItemsProcessed(state.iterations() * kPairs);
}
BENCHMARK(deltaEFloat);

void deltaEDouble(benchmark::State &state)
{
    const auto table = randomLabColours(kPairs, 1);
    const LabColour sample = randomLabColours(1, 2).front();
    for (auto _ : state) {
        for (const LabColour &e : table)
            benchmark::DoNotOptimize(deltaE2000(e.L, e.a, e.b, sample.L, sample.a, sample.b));
    }
    state.SetItemsProcessed(state.iterations() * kPairs);
}
BENCHMARK(deltaEDouble);

void rgbToLabPerColour(benchmark::State &state)
{
    std::mt19937 rng(3);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<RgbColour> colours(kPairs);
    for (RgbColour &c : colours)
        c = {unit(rng), unit(rng), unit(rng)};
    for (auto _ : state) {
        for (const RgbColour &c : colours)
            benchmark::DoNotOptimize(rgbToLab(c));
    }
    state.SetItemsProcessed(state.iterations() * kPairs);
}
BENCHMARK(rgbToLabPerColour);

} // namespace

BENCHMARK_MAIN();
