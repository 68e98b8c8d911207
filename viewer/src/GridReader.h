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
/// - Points: x, y and z in the columns of a table, separated by blanks, tabs, commas or semicolons, as the
/// points
///   of a grid in any order, or scattered. Column names may come first and become the axes' titles.
/// - Matrix: rows of numbers; where the first cell is empty or a word, the first row has the x and the first
/// column
///   the y values, else both count from 0.
/// Numbers have decimal points, or commas where a table shows it. Few lines of three columns whose first two
/// points share neither x nor y are a matrix where the name ends in .csv.
/// @param name  of the file, for messages and as the title
GridData ReadGrid(std::string_view text, const std::string& name, const Progress& progress = {},
                  const ReadOptions& options = {});

} // namespace KivoViewer
