// A plotter in an off-screen window of the benchmarks' size, with its protected half public.
#pragma once

#include "OffscreenContext.h"

#include "KivoWindow.h"
#include "support/PlotterProbe.h"

#include <vector>

namespace KivoBenchmark {

class BenchmarkPlot {
public:
    /// Ends the process with a message where no window can be made.
    BenchmarkPlot();
    ~BenchmarkPlot();
    BenchmarkPlot(const BenchmarkPlot&) = delete;
    BenchmarkPlot& operator=(const BenchmarkPlot&) = delete;

    /// Hands packed points over by reference.
    void SetPoints(std::vector<float>& points, unsigned int columns, unsigned int rows);

    /// The client point at which a point of the surface is seen; after SetPoints.
    /// @param u, v  where in the grid: 0 to 1 along rows and columns
    KivoDrawingTools::POINT PointerAt(double u, double v);
    /// Client points over the middle of the surface and over its four quarters; after SetPoints.
    std::vector<KivoDrawingTools::POINT> Pointers();

    KivoDrawingTools::PlotterProbe plotter;

private:
    KivoDrawingTools::HWND m_window;
};

} // namespace KivoBenchmark
