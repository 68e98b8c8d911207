// Tables of points x, y, z.
#pragma once

#include "Progress.h"
#include "ReadOptions.h"
#include "TextLines.h"

#include <array>
#include <string>
#include <vector>

namespace KivoViewer {

/// Points in the order of their file. A value that is missing is not a number.
struct PointTable {
    std::string file; ///< as it was named
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    std::vector<std::string> labels;   ///< of the points, where the table has a column of words, in UTF-8
    std::array<std::string, 3> titles; ///< of the columns, or empty
    std::string note;                  ///< which columns of several were taken

    std::size_t Count() const { return x.size(); }
};

/// Reads all lines. Throws a Failure "file:line: reason".
/// @param hasHoles  whether values may be missing
PointTable ReadPointTable(TextLines& lines, const ReadOptions& options, bool hasHoles, std::size_t most);

} // namespace KivoViewer
