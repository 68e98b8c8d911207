// From the viewer's data and settings to the plotter's.
#pragma once

#include "GridData.h"

#include <KivoFunctionPlotter.h>

namespace KivoViewer {

/// Hands the grid and its titles over, with frame lines far enough apart to leave the colours visible.
void ShowGrid(KivoDrawingTools::CKivoFunctionPlotter& plotter, const GridData& grid);

/// @param mode  0: 3-D plot, 1: XY, 2: YZ, 3: XZ
void SwitchMode(KivoDrawingTools::CKivoFunctionPlotter& plotter, int mode);

} // namespace KivoViewer
