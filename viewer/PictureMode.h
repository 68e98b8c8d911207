// The plot as a file, without a display.
#pragma once

#include "GridData.h"
#include "Options.h"

namespace KivoViewer {

/// Draws the grid as the options say and writes the PNG file. Throws a Failure.
void WritePicture(const GridData& grid, const Options& options);

} // namespace KivoViewer
