// The grid of points that the viewer shows.
#pragma once

#include "ReadOptions.h"

#include <cstddef>
#include <string>
#include <vector>

namespace KivoViewer {

/// A rectangular grid; x and y rise. A value that is not a number is a hole. All numbers are differences to
/// an origin, so that single precision holds what national grids and large values have behind the point.
struct GridData {
    std::vector<float> x;               ///< of the columns
    std::vector<float> y;               ///< of the rows
    std::vector<float> z;               ///< row by row, x.size() values each
    double origin[3] = {0.0, 0.0, 0.0}; ///< of x, y and z; 0 where single precision holds them as they are
    std::string title;                  ///< of the plot
    std::string path;                   ///< of the file; empty for others
    ReadOptions reading;                ///< how it was read
    bool isBox = false;                 ///< there is no surface, but room for points
    std::string axisTitles[3] = {"X", "Y", "Z"};
    std::string note; ///< what of the file is not shown as it is, in one sentence, or empty

    std::size_t ColumnCount() const { return x.size(); }
    std::size_t RowCount() const { return y.size(); }
    std::size_t PointCount() const { return ColumnCount() * RowCount(); }
};

} // namespace KivoViewer
