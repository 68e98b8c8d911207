#include "BenchmarkPlot.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace KivoBenchmark {

using namespace KivoDrawingTools;

BenchmarkPlot::BenchmarkPlot() : m_window(CreateOffscreenWindow(windowWidth, windowHeight)) {
    if (plotter.OnCreate(m_window, windowWidth, windowHeight, true) != 0) {
        std::fprintf(stderr, "%s\n", LastWindowError());
        std::exit(1);
    }
}

BenchmarkPlot::~BenchmarkPlot() {
    plotter.OnDestroy();
    ReleaseWindow(m_window);
}

void BenchmarkPlot::SetPoints(std::vector<float>& points, unsigned int columns, unsigned int rows) {
    plotter.SetDataReference(points.data(), columns, rows, 1, columns, 3);
}

POINT BenchmarkPlot::PointerAt(double u, double v) {
    const std::size_t column = static_cast<std::size_t>(u * (plotter.m_columnCount - 1));
    const std::size_t row = static_cast<std::size_t>(v * (plotter.m_rowCount - 1));
    const float* const point = plotter.m_points + 3 * (row * plotter.m_columnCount + column);
    float seen[3] = {};
    plotter.BeginGLOperation();
    plotter.Project(point[0], point[1], point[2], seen);
    plotter.EndGLOperation();
    return {static_cast<int>(seen[0]), windowHeight - 1 - static_cast<int>(seen[1])};
}

std::vector<POINT> BenchmarkPlot::Pointers() {
    return {PointerAt(0.5, 0.5), PointerAt(0.25, 0.25), PointerAt(0.75, 0.25), PointerAt(0.25, 0.75),
            PointerAt(0.75, 0.75)};
}

} // namespace KivoBenchmark
