// The kinds of plot.
#pragma once

namespace KivoDrawingTools {

/// As m_plotType and GetCurrentPlotType() number them. A derived class can set other numbers, too: every
/// switch says after its cases what holds for those.
enum PlotType : int {
    normalPlot = 0, ///< the 3-D plot
    xyPlot = 1,     ///< flat, X to the right, Y up
    yzPlot = 2,     ///< flat, Y to the right, Z up
    xzPlot = 3      ///< flat, X to the right, Z up
};

} // namespace KivoDrawingTools
