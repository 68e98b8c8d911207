// Frames, presented and finished: large surfaces with and without frame lines, and a small one with
// everything shown.
#include "SampleGrids.h"
#include "support/BenchmarkGrid.h"
#include "support/BenchmarkPlot.h"
#include "support/Registration.h"
#include "support/ResidentMemory.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace KivoBenchmark {

namespace {

using KivoDrawingTools::PlotterProbe;

void MeasureFrames(benchmark::State& state, bool withFrameLines) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    BenchmarkPlot plot;
    plot.SetPoints(points, n, n);
    plot.plotter.ShowFrameLines(withFrameLines);
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

BENCHMARK(Frame)->Apply(AllSizes);
BENCHMARK(FrameWithLines)->Apply(AllSizes);
BENCHMARK(SmallFrame)->Apply(Defaults);
BENCHMARK(PeakMemory)->Apply(PeerSizes)->Iterations(1);

} // namespace

} // namespace KivoBenchmark
