// Smooth pictures beside frames of the same plot, averaging beside copying, and another style. The two that a
// ratio is made of take turns: kivo-benchmarks --benchmark_filter=Smooth prints it.
#include "computing/PixelAverage.h"
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "KivoWindow.h"
#include "support/BenchmarkGrid.h"
#include "support/BenchmarkPlot.h"
#include "support/Registration.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <vector>

namespace KivoBenchmark {

namespace {

using namespace KivoDrawingTools;

template <typename Action>
double SecondsOf(Action action) {
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// Times the second of two actions and says how many times as long as the first it takes.
template <typename First, typename Second>
void MeasureBeside(benchmark::State& state, First first, Second second) {
    std::vector<double> times, ratios;
    first();
    second();
    for (auto _ : state) {
        const double beside = SecondsOf(first);
        times.push_back(SecondsOf(second));
        ratios.push_back(times.back() / beside);
        state.SetIterationTime(times.back());
    }
    state.counters["median_ms"] = 1000.0 * Median(times);
    state.counters["ratio"] = Median(ratios);
}

// A picture of n x n points with frame lines: smoothing, n, width, height.
void SmoothPicture(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(1));
    const auto width = static_cast<int>(state.range(2)), height = static_cast<int>(state.range(3));
    std::vector<float>& points = SquareGrid(n);
    const HWND window = CreateOffscreenWindow(width, height);
    {
        PlotterProbe plotter;
        if (plotter.OnCreate(window, width, height, true) != 0) state.SkipWithError(LastWindowError());
        plotter.SetDataReference(points.data(), n, n, 1, n, 3);
        SKivoPictureOptions options;
        options.smoothing = static_cast<int>(state.range(0));
        const std::size_t rowBytes = static_cast<std::size_t>(width) * 4;
        std::vector<unsigned char> pixels(rowBytes * static_cast<std::size_t>(height));
        MeasureBeside(
            state, [&] { plotter.Renderscene(); },
            [&] { DrawPicture(plotter, options, pixels.data(), rowBytes, KivoPixelOrder::rgba); });
    }
    ReleaseWindow(window);
}

// 3840 x 2160 pixels to fewer, beside a copy of them.
void AveragePixels(benchmark::State& state) {
    constexpr std::size_t width = 3840, height = 2160;
    const auto factor = static_cast<unsigned int>(state.range(0));
    std::vector<unsigned char> large(width * height * 4, 77), copy(large.size()), average(large.size());
    std::vector<unsigned short> sums(width * 4);
    MeasureBeside(
        state,
        [&] {
            std::memcpy(copy.data(), large.data(), large.size());
            benchmark::ClobberMemory();
        },
        [&] {
            for (std::size_t row = 0; row + factor <= height; row += factor)
                AverageRow({large.data() + row * width * 4, width * 4, factor, false}, width / factor,
                           sums.data(), average.data() + row / factor * (width / factor) * 4);
            benchmark::ClobberMemory();
        });
}

// Another style and back: all fonts and texts of a plot, twice.
void Style(benchmark::State& state) {
    std::vector<float>& points = SquareGrid(50);
    BenchmarkPlot plot;
    plot.SetPoints(points, 50, 50);
    plot.plotter.SetPlotTitle("z = sin(6x) cos(5y) exp(-(x² + y²))");
    SKivoStyle style;
    for (auto _ : state) {
        style.pixelScale = 3.0f - style.pixelScale; // 2, 1
        SetStyle(plot.plotter, style);
    }
}

void Pictures(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(1.0);
}

BENCHMARK(SmoothPicture)
    ->Apply(Pictures)
    ->ArgsProduct({{2}, {50, 400, 1000}, {800}, {600}})
    ->ArgsProduct({{2}, {50, 400, 1000}, {1920}, {1080}})
    ->ArgsProduct({{1, 3, 4}, {400}, {800}, {600}});
BENCHMARK(AveragePixels)->Apply(Pictures)->DenseRange(1, 4);
BENCHMARK(Style)->Apply(Defaults);

} // namespace

} // namespace KivoBenchmark
