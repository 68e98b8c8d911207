// Frames of the plotter's surface by bare OpenGL 1.1 client arrays: the same arrays in the same state, with
// nothing around them.
#include "SampleGrids.h"
#include "support/BareSurface.h"
#include "support/BenchmarkPlot.h"
#include "support/OffscreenContext.h"
#include "support/Registration.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace KivoBenchmark {

namespace {

std::vector<unsigned char> ReadWindow() {
    std::vector<unsigned char> pixels(std::size_t{4} * windowWidth * windowHeight);
    glReadPixels(0, 0, windowWidth, windowHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

// The plotter's surface without box, titles and legend.
std::vector<unsigned char> PlotterSurface(KivoDrawingTools::PlotterProbe& plotter) {
    plotter.BeginGLOperation();
    const float* background = plotter.m_backgroundColor;
    glClearColor(background[0], background[1], background[2], background[3]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    plotter.RenderSurface();
    std::vector<unsigned char> pixels = ReadWindow();
    plotter.EndGLOperation();
    return pixels;
}

struct Scene {
    BareSurface surface;
    std::vector<unsigned char> expected;
};

// The plotter is gone when this returns; its arrays and its state remain.
Scene MakeScene(unsigned int columns, unsigned int rows) {
    std::vector<float> points = KivoSamples::RipplePoints(columns, rows);
    BenchmarkPlot plot;
    plot.SetPoints(points, columns, rows);
    plot.plotter.Renderscene();
    return {BareSurface(plot.plotter), PlotterSurface(plot.plotter)};
}

Scene SquareScene(const benchmark::State& state) {
    const auto n = static_cast<unsigned int>(state.range(0));
    return MakeScene(n, n);
}

void MeasureFrames(benchmark::State& state, const Scene& scene, bool withFrameLines) {
    const OffscreenContext context;
    scene.surface.SetUp();
    scene.surface.Draw(true);
    if (ReadWindow() != scene.expected) state.SkipWithError("the picture is not the plotter's");
    for (auto _ : state) {
        scene.surface.Draw(withFrameLines);
        glFinish();
    }
}

void Frame(benchmark::State& state) {
    MeasureFrames(state, SquareScene(state), false);
}

void FrameWithLines(benchmark::State& state) {
    MeasureFrames(state, SquareScene(state), true);
}

void SmallFrame(benchmark::State& state) {
    MeasureFrames(state, MakeScene(50, 40), true);
}

void EmptyFrame(benchmark::State& state) {
    const OffscreenContext context;
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glFinish();
    }
}

BENCHMARK(Frame)->Apply(PeerSizes);
BENCHMARK(FrameWithLines)->Apply(PeerSizes);
BENCHMARK(SmallFrame)->Apply(Defaults);
BENCHMARK(EmptyFrame)->Apply(Defaults);

} // namespace

} // namespace KivoBenchmark

int main(int argc, char** argv) {
    {
        const KivoBenchmark::OffscreenContext context;
        benchmark::AddCustomContext("renderer", reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
