// New data: everything that follows from them, the mesh arrays alone, the colours alone; beside the time that
// it takes to fill as many bytes.
#include "KivoColorMap.h"
#include "support/BenchmarkGrid.h"
#include "support/BenchmarkPlot.h"
#include "support/Registration.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace KivoBenchmark {

namespace {

using KivoDrawingTools::PlotterProbe;

// A plot that holds a grid of n x n points.
struct LoadedPlot {
    explicit LoadedPlot(const benchmark::State& state)
        : n(static_cast<unsigned int>(state.range(0))), points(SquareGrid(n)) {
        SetPoints();
    }
    void SetPoints() { plot.SetPoints(points, n, n); }

    unsigned int n;
    std::vector<float>& points;
    BenchmarkPlot plot;
};

std::size_t ColorBytes(const PlotterProbe& plotter) {
    return 4 * sizeof(float) * plotter.m_vertexCount;
}

struct Bytes {
    void* start;
    std::size_t count;
};

void MeasureFilling(benchmark::State& state, const std::vector<Bytes>& arrays) {
    for (auto _ : state) {
        for (const Bytes& array : arrays)
            std::memset(array.start, 1, array.count);
        benchmark::ClobberMemory();
    }
    std::size_t bytes = 0;
    for (const Bytes& array : arrays)
        bytes += array.count;
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void SetData(benchmark::State& state) {
    LoadedPlot loaded(state);
    for (auto _ : state)
        loaded.SetPoints();
}

void MeshArrays(benchmark::State& state) {
    LoadedPlot loaded(state);
    PlotterProbe& plotter = loaded.plot.plotter;
    for (auto _ : state) {
        plotter.AssignColorData();
        plotter.AssignTexcoordData();
        plotter.AssignIndexData();
        plotter.AssignFramelineIndexData(1, 1);
    }
}

// As many bytes, in the arrays that are there.
void FillMeshArrays(benchmark::State& state) {
    LoadedPlot loaded(state);
    const PlotterProbe& plotter = loaded.plot.plotter;
    const auto lineIndices = static_cast<std::size_t>(plotter.m_framelineIndexCount);
    const std::vector<Bytes> arrays = {{plotter.m_colorArray, ColorBytes(plotter)},
                                       {plotter.m_texcoordArray, 2 * sizeof(float) * plotter.m_vertexCount},
                                       {plotter.m_indexArray, sizeof(unsigned int) * plotter.m_indexCount},
                                       {plotter.m_framelineIndexArray, sizeof(unsigned int) * lineIndices}};
    MeasureFilling(state, arrays);
}

void MeasureRecoloring(benchmark::State& state, unsigned long one, unsigned long other) {
    LoadedPlot loaded(state);
    for (auto _ : state) {
        loaded.plot.plotter.SetZGradientColor(one, other);
        std::swap(one, other);
    }
}

// Between colours of full saturation and brightness, as the default ones are.
void Recolor(benchmark::State& state) {
    MeasureRecoloring(state, 0x0000FF, 0xFF0000);
}

void RecolorPale(benchmark::State& state) {
    MeasureRecoloring(state, 0x4040FF, 0xE08080);
}

void RecolorFromTable(benchmark::State& state) {
    LoadedPlot loaded(state);
    const char* one = "viridis";
    const char* other = "turbo";
    for (auto _ : state) {
        KivoDrawingTools::SetColorMap(loaded.plot.plotter, 2, one);
        std::swap(one, other);
    }
}

// Of a range that a part of the values lies beyond.
void RecolorInRange(benchmark::State& state) {
    LoadedPlot loaded(state);
    PlotterProbe& plotter = loaded.plot.plotter;
    const float min = plotter.m_boundingBoxMin[2], max = plotter.m_boundingBoxMax[2];
    KivoDrawingTools::SetColorRange(plotter, 2, 0.75f * min + 0.25f * max, 0.25f * min + 0.75f * max);
    unsigned long one = 0x0000FF, other = 0xFF0000;
    for (auto _ : state) {
        plotter.SetZGradientColor(one, other);
        std::swap(one, other);
    }
}

void FillColors(benchmark::State& state) {
    LoadedPlot loaded(state);
    const PlotterProbe& plotter = loaded.plot.plotter;
    MeasureFilling(state, {{plotter.m_colorArray, ColorBytes(plotter)}});
}

BENCHMARK(SetData)->Apply(AllSizes);
BENCHMARK(MeshArrays)->Apply(AllSizes);
BENCHMARK(FillMeshArrays)->Apply(AllSizes);
BENCHMARK(Recolor)->Apply(AllSizes);
BENCHMARK(RecolorPale)->Apply(AllSizes);
BENCHMARK(RecolorFromTable)->Apply(AllSizes);
BENCHMARK(RecolorInRange)->Apply(AllSizes);
BENCHMARK(FillColors)->Apply(AllSizes);

} // namespace

} // namespace KivoBenchmark
