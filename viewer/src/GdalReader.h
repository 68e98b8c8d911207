// Grids in the formats of the library GDAL.
#pragma once

#include "GridData.h"
#include "Progress.h"

#include <optional>
#include <string>

namespace KivoViewer {

/// Whether this program was built with GDAL.
bool HasGdal();

/// Reads the first band of a raster. Throws a Failure, or Cancelled.
/// @return nothing where GDAL does not know the format, or is not there
std::optional<GridData> ReadWithGdal(const std::string& path, const Progress& progress);

} // namespace KivoViewer
