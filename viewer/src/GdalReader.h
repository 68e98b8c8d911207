// Grids in the formats of the library GDAL.
#pragma once

#include "GridData.h"
#include "Progress.h"
#include "ReadOptions.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KivoViewer {

/// Whether this program was built with GDAL.
bool HasGdal();

/// The formats of rasters that GDAL reads here, each as its short name and its long one.
std::vector<std::pair<std::string, std::string>> GdalFormats();

/// Reads a band of a raster: a file, or one of GDAL's names for a part of one, such as
/// NETCDF:file.nc:variable. Of a raster with more points than can be shown every k-th row and column is read.
/// Throws a Failure, or Cancelled.
/// @return nothing where GDAL does not know the format, or is not there
std::optional<GridData> ReadWithGdal(const std::string& path, const ReadOptions& options,
                                     const Progress& progress);

} // namespace KivoViewer
