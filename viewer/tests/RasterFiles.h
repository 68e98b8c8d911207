// Raster files, written by GDAL itself.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace KivoTest {

/// The value of a cell: column, row from the north, band from 1.
using CellValue = std::function<float(int, int, int)>;

/// Writes a GeoTIFF whose upper left corner is at 1000, 5000, with cells of 10 x 10.
/// @param creation  options as GDAL takes them, such as "TILED=YES"
void WriteGeoTiff(const std::string& path, int columns, int rows, int bands, const CellValue& value,
                  const std::vector<std::string>& creation = {});

/// Writes a netCDF file with variables of 4 columns and 3 rows, whose values are their places in the list
/// times 100, plus 0 to 11 from row to row.
void WriteNetCdf(const std::string& path, const std::vector<std::string>& variables);

} // namespace KivoTest
