#include "PlotSetup.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivoViewer {

namespace {

constexpr unsigned int maxFrameLines = 25; // in each direction

unsigned int FrameLineStep(std::size_t points) {
    return static_cast<unsigned int>((points + maxFrameLines - 1) / maxFrameLines);
}

float* AppendPoint(float* end, float x, float y, float z) {
    end[0] = x;
    end[1] = y;
    end[2] = z;
    return end + 3;
}

// The plotter looks for the smallest and largest values from the first point on, which must therefore not be
// a hole. Where it is one, a row comes before the grid that is all holes but for the first point: with holes
// on every side of it, nothing of that row is seen.
float* AppendFirstRow(float* end, const GridData& grid) {
    const auto value = std::find_if(grid.z.begin(), grid.z.end(), [](float z) { return std::isfinite(z); });
    end = AppendPoint(end, grid.x[0], grid.y[0], *value);
    for (std::size_t c = 1; c < grid.ColumnCount(); ++c)
        end = AppendPoint(end, grid.x[c], grid.y[0], std::numeric_limits<float>::quiet_NaN());
    return end;
}

} // namespace

void ShowGrid(KivoDrawingTools::CKivoFunctionPlotter& plotter, const GridData& grid) {
    const bool startsWithHole = !std::isfinite(grid.z[0]);
    const std::size_t columns = grid.ColumnCount();
    const std::size_t rows = grid.RowCount() + (startsWithHole ? 1 : 0);
    auto* const points = new float[columns * rows * 3]; // the plotter frees it
    float* end = startsWithHole ? AppendFirstRow(points, grid) : points;
    for (std::size_t r = 0; r < grid.RowCount(); ++r)
        for (std::size_t c = 0; c < columns; ++c)
            end = AppendPoint(end, grid.x[c], grid.y[r], grid.z[r * columns + c]);
    const auto columnCount = static_cast<unsigned int>(columns);
    plotter.SetData(points, columnCount, static_cast<unsigned int>(rows), 1, columnCount, 3);
    plotter.SetFrameLineStep(FrameLineStep(columns), FrameLineStep(rows));
    plotter.SetPlotTitle(grid.title.c_str());
    plotter.SetXAxisTitle(grid.axisTitles[0].c_str());
    plotter.SetYAxisTitle(grid.axisTitles[1].c_str());
    plotter.SetZAxisTitle(grid.axisTitles[2].c_str());
}

void SwitchMode(KivoDrawingTools::CKivoFunctionPlotter& plotter, int mode) {
    switch (mode) {
    case 1:
        plotter.SwitchToXYProjectPlot();
        break;
    case 2:
        plotter.SwitchToYZProjectPlot();
        break;
    case 3:
        plotter.SwitchToZXProjectPlot();
        break;
    default:
        plotter.SwitchToNormalPlot();
    }
}

} // namespace KivoViewer
