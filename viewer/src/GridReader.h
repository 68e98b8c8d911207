// Reading grids of points from files.
#pragma once

#include "GridData.h"
#include "Progress.h"
#include "ReadOptions.h"

#include <string>
#include <string_view>

namespace KivoViewer {

/// Reads a file of any of the formats below, or of one that GDAL knows where the program was built with it:
/// its names for parts of files, such as NETCDF:file.nc:variable, are understood, too. Throws a Failure
/// "file:line: reason", or Cancelled.
GridData ReadGridFile(const std::string& path, const Progress& progress = {},
                      const ReadOptions& options = {});

/// Reads the text of such a file. The format follows from the content:
/// - Surfer grid: begins with DSAA, DSBB or DSRB.
/// - ESRI ASCII grid: begins with a header entry such as ncols.
/// - XYZ: three numbers in a line, separated by blanks, commas or semicolons, in grid order. Column names
///   may come first and become the axes' titles.
/// - Matrix: rows of numbers; where the first cell is empty, the first row has the x and the first column
///   the y values, else both count from 0.
/// Three columns whose first two points share neither x nor y are a matrix where the name ends in .csv.
/// @param name  of the file, for messages and as the title
GridData ReadGrid(std::string_view text, const std::string& name, const Progress& progress = {},
                  const ReadOptions& options = {});

} // namespace KivoViewer
