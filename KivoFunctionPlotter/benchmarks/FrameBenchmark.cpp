// Frames, presented and finished: large surfaces with and without frame lines, and a small one with
// everything shown; frames of a drag, with all points and with some.
#include "KivoMotion.h"
#include "plotter/ReducedSurface.h"
#include "SampleGrids.h"
#include "support/BenchmarkGrid.h"
#include "support/BenchmarkPlot.h"
#include "support/Registration.h"
#include "support/ResidentMemory.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace KivoBenchmark {

namespace {

using KivoDrawingTools::PlotterProbe;

void MeasureFrames(benchmark::State& state, bool withFrameLines, bool culls = false) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.SetPoints(points, n, n);
    plot.plotter.ShowFrameLines(withFrameLines);
    CullSmallTriangles(plot.plotter, culls);
    plot.plotter.Renderscene();
    for (auto _ : state)
        plot.plotter.Renderscene();
}

void Frame(benchmark::State& state) {
    MeasureFrames(state, false);
}

void FrameWithLines(benchmark::State& state) {
    MeasureFrames(state, true);
}

void CulledFrame(benchmark::State& state) {
    MeasureFrames(state, false, true);
}

void PeakMemory(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.plotter.Renderscene();
    const double before = ResidentBytes();
    for (auto _ : state) {
        plot.SetPoints(points, n, n);
        plot.plotter.Renderscene();
    }
    ReportPeak(state, before);
}

// Everything that a plot can show at once.
void ShowEverything(BenchmarkPlot& plot, std::vector<float>& curve, std::vector<float>& measured) {
    PlotterProbe& plotter = plot.plotter;
    plotter.SetPlotTitle("z = sin(6x) cos(5y) exp(-(x² + y²))");
    plotter.SetXAxisTitle("x");
    plotter.SetYAxisTitle("y");
    plotter.SetZAxisTitle("z");
    plotter.ShowXIsoContours(true);
    plotter.ShowYIsoContours(true);
    plotter.ShowZIsoContours(true);
    plotter.AddCurveData(curve.data(), static_cast<unsigned int>(curve.size() / 3), 3);
    plotter.AddMeasurePoints(static_cast<unsigned int>(measured.size() / 3), 3, measured.data(), "measured");
    plotter.Trace(true);
    plotter.Trace(plot.PointerAt(0.5, 0.5));
}

void SmallFrame(benchmark::State& state) {
    constexpr unsigned int columns = 50, rows = 40;
    std::vector<float> points = KivoSamples::RipplePoints(columns, rows);
    std::vector<float> curve(points.begin(), points.begin() + 3 * columns);
    std::vector<float> measured = KivoSamples::RipplePoints(4, 4);
    BenchmarkPlot plot;
    plot.SetPoints(points, columns, rows);
    plot.plotter.Renderscene();
    ShowEverything(plot, curve, measured);
    if (plot.plotter.m_hasTracePoint == 0) state.SkipWithError("nothing lies under the pointer");
    plot.plotter.Renderscene();
    for (auto _ : state)
        plot.plotter.Renderscene();
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// The milliseconds of a mouse move to one side or the other.
double MoveTime(PlotterProbe& plotter, bool isBack) {
    const auto begin = std::chrono::steady_clock::now();
    plotter.OnMouseMove(KivoDrawingTools::MK_RBUTTON, {isBack ? 330 : 340, isBack ? 300 : 295});
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// Of a drag with so many points a side; the first ones, for which the copy is made, by themselves.
std::vector<double> DragTimes(PlotterProbe& plotter, unsigned int detail, int count,
                              std::vector<double>& first) {
    KivoDrawingTools::SetMotionDetail(plotter, detail);
    plotter.OnRButtonDown(KivoDrawingTools::MK_RBUTTON, {330, 300});
    first.push_back(MoveTime(plotter, false));
    std::vector<double> times;
    for (int i = 0; i < count; ++i)
        times.push_back(MoveTime(plotter, i % 2 == 0));
    plotter.OnRButtonUp(0, {330, 300});
    return times;
}

// Of a drag, from the move to the finished picture.
void MovedFrame(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.SetPoints(points, n, n);
    plot.plotter.Renderscene();
    KivoDrawingTools::SetMotionDetail(plot.plotter, 150);
    plot.plotter.OnRButtonDown(KivoDrawingTools::MK_RBUTTON, {330, 300});
    bool isBack = false;
    for (auto _ : state)
        MoveTime(plot.plotter, isBack = !isBack);
    if (!KivoDrawingTools::IsDetailReduced(plot.plotter)) state.SkipWithError("the surface is drawn whole");
}

// Whole frames and those of 150 points a side in turn, so that what slows the machine down meets both; with
// contours of all axes, which are drawn whole, or without.
void DragFrame(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.SetPoints(points, n, n);
    const bool hasContours = state.range(1) != 0;
    plot.plotter.ShowXIsoContours(hasContours);
    plot.plotter.ShowYIsoContours(hasContours);
    plot.plotter.ShowZIsoContours(hasContours);
    plot.plotter.Renderscene();
    std::vector<double> whole, reduced, firstWhole, firstReduced;
    for (auto _ : state) {
        for (const double time : DragTimes(plot.plotter, 0, 1, firstWhole))
            whole.push_back(time);
        for (const double time : DragTimes(plot.plotter, 150, 10, firstReduced))
            reduced.push_back(time);
        if (n > 150 && !KivoDrawingTools::IsDetailReduced(plot.plotter))
            state.SkipWithError("the surface is drawn whole");
    }
    state.counters["whole_ms"] = Median(whole);
    state.counters["reduced_ms"] = Median(reduced);
    state.counters["first_ms"] = Median(firstReduced);
    state.counters["ratio"] = Median(whole) / Median(reduced);
}

// The copy that such a frame is drawn from, made anew each time, when other work has filled the processor's
// cache; of points known to have no holes, and of others.
void ReduceSurface(benchmark::State& state) {
    using namespace KivoDrawingTools;
    const auto n = static_cast<unsigned int>(state.range(0));
    const bool mayHaveHoles = state.range(1) != 0;
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.SetPoints(points, n, n);
    PlotterProbe& plotter = plot.plotter;
    const SurfaceOutline outline = {points.data(), n, n, 3, {1, 1}, false, !mayHaveHoles};
    const ReducedGrid grid = {KeepAtMost(n, 150), KeepAtMost(n, 150)};
    SurfaceArrays whole = {};
    whole.points = plotter.m_points;
    whole.components = 3;
    whole.colors = plotter.m_colorArray;
    std::vector<unsigned char> other(64 << 20);
    for (auto _ : state) {
        state.PauseTiming();
        std::fill(other.begin(), other.end(), static_cast<unsigned char>(1));
        benchmark::ClobberMemory();
        state.ResumeTiming();
        ReducedSurface reduced(outline, grid);
        reduced.TakeValues(whole);
        benchmark::DoNotOptimize(reduced.Arrays().points);
    }
}

BENCHMARK(Frame)->Apply(AllSizes);
BENCHMARK(FrameWithLines)->Apply(AllSizes);
BENCHMARK(CulledFrame)->Apply(PeerSizes);
BENCHMARK(MovedFrame)->Apply(PeerSizes);
BENCHMARK(DragFrame)->Apply(Defaults)->ArgsProduct({{250, 1000, 2000, 4000}, {0, 1}})->Iterations(7);
BENCHMARK(ReduceSurface)->Apply(Defaults)->ArgsProduct({{1000, 2000, 4000}, {0, 1}});
BENCHMARK(SmallFrame)->Apply(Defaults);
BENCHMARK(PeakMemory)->Apply(PeerSizes)->Iterations(1);

} // namespace

} // namespace KivoBenchmark
