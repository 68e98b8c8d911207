// The point of the surface under the pointer, beside reading all points once.
#include "support/BenchmarkGrid.h"
#include "support/BenchmarkPlot.h"
#include "support/Registration.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace KivoBenchmark {

namespace {

using KivoDrawingTools::POINT;

void Trace(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.SetPoints(points, n, n);
    plot.plotter.Renderscene();
    const std::vector<POINT> pointers = plot.Pointers();
    for (const POINT& pointer : pointers)
        if (plot.plotter.Trace(pointer) != 0) state.SkipWithError("nothing lies under a pointer");

    std::size_t turn = 0;
    for (auto _ : state)
        plot.plotter.Trace(pointers[turn++ % pointers.size()]);
}

void ReadPoints(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    const std::vector<float>& points = SquareGrid(n);
    std::vector<std::uint32_t> words(points.size());
    std::memcpy(words.data(), points.data(), points.size() * sizeof(float));
    for (auto _ : state) {
        std::uint32_t sum = 0;
        for (const std::uint32_t word : words)
            sum += word;
        benchmark::DoNotOptimize(sum);
    }
}

BENCHMARK(Trace)->Apply(AllSizes);
BENCHMARK(ReadPoints)->Apply(AllSizes);

} // namespace

} // namespace KivoBenchmark
