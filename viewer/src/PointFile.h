// Files of single points: curves and measure points.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// The points of a file, in its order.
struct PointFile {
    std::string name;           ///< of the file, without folders
    std::vector<double> points; ///< x, y, z of each

    std::size_t Count() const { return points.size() / 3; }
};

/// Reads lines of x, y and z, separated by commas, semicolons or blanks; column names may come first. Throws
/// a Failure "file:line: reason".
PointFile ReadPointFile(const std::string& path);
/// The same from the text of such a file.
/// @param name  of the file, for messages and as its name
PointFile ReadPoints(std::string_view text, const std::string& name);

} // namespace KivoViewer
