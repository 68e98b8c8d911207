// A plot that shows something in every layer.
#pragma once

#include "PlotterProbe.h"

namespace KivoDrawingTools {

/// Hands a hill of 12 x 10 points to the plotter, titles, all contours, a curve, two measure groups and a
/// traced point.
void FillPlot(PlotterProbe& plotter);

} // namespace KivoDrawingTools
