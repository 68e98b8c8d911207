#include "FilledPlot.h"

#include "TestSurfaces.h"

#include <algorithm>

namespace KivoDrawingTools {

namespace {

float measured[6] = {0, 0, 1, 1, 1, 0.5f}; // measure groups refer to their points

} // namespace

void FillPlot(PlotterProbe& plotter) {
    const TestSurface surface = HillSurface(12, 10);
    plotter.SetData(surface.NewArray(), 12, 10, 1, 12, 3);
    plotter.SetPlotTitle("A title");
    plotter.SetXAxisTitle("Length");
    plotter.SetYAxisTitle("Width");
    plotter.SetZAxisTitle("Height");
    plotter.ShowXIsoContours(true);
    plotter.ShowYIsoContours(true);
    plotter.ShowZIsoContours(true);
    float curve[] = {-2, -1, 1, 0, 0, 1.5f, 3, 1, 1};
    plotter.AddCurveData(curve, 3, 3);
    plotter.AddMeasurePoints(2, 3, measured, "First");
    plotter.AddMeasurePoints(1, 3, measured, "Second group");
    const float traced[] = {1.0f, 0.5f, 0.25f};
    std::copy(traced, traced + 3, plotter.m_tracePoint);
    plotter.m_hasTracePoint = 1;
}

} // namespace KivoDrawingTools
