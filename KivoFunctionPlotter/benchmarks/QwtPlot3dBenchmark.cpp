// A frame of QwtPlot3D: the surface with its mesh, axes and colour legend, in a window of an X server.
#include "SampleGrids.h"
#include "support/Registration.h"
#include "support/ResidentMemory.h"

#include <QApplication>

#include <qwt3d_colorlegend.h>
#include <qwt3d_surfaceplot.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace KivoBenchmark {

namespace {

// Heights as the widget takes them: a pointer to each column.
struct Heights {
    explicit Heights(unsigned int n) : values(std::size_t{n} * n) {
        const std::vector<float> points = KivoSamples::RipplePoints(n, n);
        for (std::size_t c = 0; c < n; ++c) {
            columns.push_back(&values[c * n]);
            for (std::size_t r = 0; r < n; ++r)
                values[c * n + r] = static_cast<double>(points[3 * (r * n + c) + 2]);
        }
    }

    std::vector<double> values;
    std::vector<double*> columns;
};

class Plot : public Qwt3D::SurfacePlot {
public:
    explicit Plot(unsigned int n) : m_size(n) {
        Heights heights(n);
        loadFromData(heights.columns.data(), n, n, -1.0, 1.0, -1.0, 1.0);
        setPlotStyle(Qwt3D::FILLEDMESH);
        updateData();
        setCoordinateStyle(Qwt3D::BOX);
        showColorLegend(true);
        setRotation(30.0, 0.0, 15.0);
        resize(800, 600);
        show();
        QApplication::processEvents();
    }

    unsigned int Size() const { return m_size; }
    void Draw() {
        updateGL();
        glFinish();
    }

private:
    unsigned int m_size;
};

// The last plot asked for: making one takes much longer than drawing it.
std::unique_ptr<Plot>& LastPlot() {
    static std::unique_ptr<Plot> plot;
    return plot;
}

Plot& PlotOf(const benchmark::State& state) {
    std::unique_ptr<Plot>& plot = LastPlot();
    const auto n = static_cast<unsigned int>(state.range(0));
    if (!plot || plot->Size() != n) {
        plot.reset(); // one at a time
        plot = std::make_unique<Plot>(n);
    }
    return *plot;
}

void FrameWithLines(benchmark::State& state) {
    Plot& plot = PlotOf(state);
    plot.Draw();
    for (auto _ : state)
        plot.Draw();
}

void PeakMemory(benchmark::State& state) {
    const double before = ResidentBytes();
    for (auto _ : state)
        PlotOf(state).Draw();
    ReportPeak(state, before);
}

BENCHMARK(FrameWithLines)->Apply(PeerSizes);
BENCHMARK(PeakMemory)->Apply(PeerSizes)->Iterations(1);

} // namespace

} // namespace KivoBenchmark

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    KivoBenchmark::LastPlot().reset(); // before the application goes
    return 0;
}
