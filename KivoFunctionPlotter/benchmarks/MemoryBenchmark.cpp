// What a plot takes from the heap on top of the host's array while it takes data over and afterwards, and
// whether that grows when data change.
#include "support/BenchmarkGrid.h"
#include "support/BenchmarkPlot.h"
#include "support/HeapMeter.h"
#include "support/Registration.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace KivoBenchmark {

namespace {

using namespace KivoDrawingTools;

std::size_t ContourBytes(const PlotterProbe& plotter) {
    std::size_t bytes = 0;
    for (const auto* contours :
         {&plotter.m_flatXIsoContours, &plotter.m_flatYIsoContours, &plotter.m_flatZIsoContours})
        for (const SKivoIsoContour& contour : *contours)
            bytes += contour.pointCount * 3 * sizeof(float);
    return bytes;
}

void Memory(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    std::vector<float>& points = SquareGrid(n);
    const double pointCount = static_cast<double>(n) * n;
    BenchmarkPlot plot;
    plot.plotter.Renderscene();
    const std::size_t before = CurrentHeapUse().bytes;
    ResetHeapPeak();
    std::size_t afterFirst = 0;
    for (auto _ : state) {
        plot.SetPoints(points, n, n);
        if (afterFirst == 0) afterFirst = CurrentHeapUse().bytes;
    }
    const HeapUse use = CurrentHeapUse();
    const std::size_t contours = ContourBytes(plot.plotter);
    state.counters["retained_bytes"] = static_cast<double>(use.bytes - before - contours) / pointCount;
    state.counters["peak_bytes"] = static_cast<double>(use.peakBytes - before - contours) / pointCount;
    state.counters["contour_bytes"] = static_cast<double>(contours) / pointCount;
    state.counters["growth_bytes"] = static_cast<double>(use.bytes) - static_cast<double>(afterFirst);
}

void TraceAllocations(benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    BenchmarkPlot plot;
    plot.SetPoints(SquareGrid(n), n, n);
    plot.plotter.Renderscene();
    const std::vector<POINT> pointers = plot.Pointers();
    const std::size_t before = CurrentHeapUse().count;
    for (auto _ : state)
        for (const POINT& pointer : pointers)
            plot.plotter.Trace(pointer);
    const auto traces = static_cast<double>(static_cast<std::size_t>(state.iterations()) * pointers.size());
    state.counters["allocations"] = static_cast<double>(CurrentHeapUse().count - before) / traces;
}

BENCHMARK(Memory)->Apply(PeerSizes)->Iterations(3);
BENCHMARK(TraceAllocations)->Apply(PeerSizes)->Iterations(3);

} // namespace

} // namespace KivoBenchmark
