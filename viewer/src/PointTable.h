// Tables of points x, y, z.
#pragma once

#include "GridWindow.h"
#include "Progress.h"
#include "ReadOptions.h"
#include "TextLines.h"

#include <array>
#include <cstddef>
#include <optional>
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
    std::size_t total = 0;             ///< points that were chosen, of which no more than wanted are here
    std::size_t lineBeyond = 0;        ///< of the first one that is not

    std::size_t Count() const { return x.size(); }
};

/// Some of a table's points.
struct PointChoice {
    std::optional<Region> region;     ///< in which they lie
    std::optional<GridWindow> window; ///< of those in the region, one row of a grid after the other
    std::size_t width = 0;            ///< of such a row
};

/// Reads all lines, or what is chosen of them. Throws a Failure "file:line: reason".
/// @param hasHoles  whether values may be missing
/// @param most      points that are kept; the others are counted
PointTable ReadPointTable(TextLines& lines, const ReadOptions& options, bool hasHoles, std::size_t most,
                          const PointChoice& choice = {});

} // namespace KivoViewer
