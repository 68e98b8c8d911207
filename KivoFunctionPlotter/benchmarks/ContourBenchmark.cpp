// Contours of all three axes: 20 levels each, evenly spaced strictly inside the axis's range, by the tracer
// alone; those of a plot, which places its levels itself; and any number of levels.
#include "support/BenchmarkGrid.h"
#include "support/BenchmarkPlot.h"
#include "support/Registration.h"

#include "computing/GridView.h"
#include "computing/MarchingSquares.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace KivoBenchmark {

namespace {

using namespace KivoDrawingTools;

constexpr unsigned int usualLevelCount = 20;

// The levels of the three axes.
using AxisLevels = std::array<std::vector<float>, 3>;

AxisLevels EvenLevelsOfAxes(const std::vector<float>& points, unsigned int count) {
    AxisLevels levels;
    for (int axis = 0; axis < 3; ++axis)
        levels[static_cast<std::size_t>(axis)] = EvenLevels(Coordinates(points, axis), count);
    return levels;
}

std::uint64_t TraceAxis(const GridView& grid, int axis, const std::vector<float>& levels) {
    std::uint64_t points = 0;
    for (const LevelLines& lines : TraceLevelLines(grid, axis, levels))
        points += lines.pointCount;
    return points / 2;
}

void MeasureTracing(benchmark::State& state, unsigned int levelCount) {
    const auto n = static_cast<unsigned int>(state.range(0));
    const std::vector<float>& points = SquareGrid(n);
    const GridView grid = {points.data(), n, n, 3, 3 * n};
    const AxisLevels levels = EvenLevelsOfAxes(points, levelCount);
    std::uint64_t segments[3] = {};
    for (auto _ : state)
        for (int axis = 0; axis < 3; ++axis)
            segments[axis] = TraceAxis(grid, axis, levels[static_cast<std::size_t>(axis)]);
    state.counters["z_segments"] = static_cast<double>(segments[2]);
    state.counters["segments"] = static_cast<double>(segments[0] + segments[1] + segments[2]);
}

void Contours(benchmark::State& state) {
    MeasureTracing(state, usualLevelCount);
}

void ZContours(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    const std::vector<float>& points = SquareGrid(n);
    const GridView grid = {points.data(), n, n, 3, 3 * n};
    const std::vector<float> levels = EvenLevels(Coordinates(points, 2), usualLevelCount);
    for (auto _ : state)
        TraceAxis(grid, 2, levels);
}

void ContoursByLevels(benchmark::State& state) {
    MeasureTracing(state, static_cast<unsigned int>(state.range(1)));
}

void SetContourCount(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.SetPoints(points, n, n);
    for (auto _ : state) {
        state.PauseTiming();
        plot.plotter.SetIsoContourCount(1); // the same count again does nothing
        state.ResumeTiming();
        plot.plotter.SetIsoContourCount(usualLevelCount);
    }
}

BENCHMARK(Contours)->Apply(AllSizes);
BENCHMARK(ZContours)->Apply(PeerSizes);
BENCHMARK(SetContourCount)->Apply(AllSizes);
BENCHMARK(ContoursByLevels)->Apply(Defaults)->ArgsProduct({{1000}, {1, 5, 20, 80, 320}});

} // namespace

} // namespace KivoBenchmark
