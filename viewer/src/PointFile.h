// Files of single points: curves and measure points.
#pragma once

#include "ReadOptions.h"

#include <string>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// The points of a file, in its order.
struct PointFile {
    std::string name;                     ///< of the file, without folders
    std::vector<double> points;           ///< x, y, z of each
    std::vector<std::string> labels = {}; ///< of the points, or none
    std::string path = {};                ///< of the file, as it was given
    std::string group = {};               ///< of a file with several: the label that all these points have
    ReadOptions reading = {};             ///< how it was read

    std::size_t Count() const { return points.size() / 3; }
};

/// Reads a table with x, y and z in each line; column names may come first, and a column may have words.
/// Throws a Failure "file:line: reason".
PointFile ReadPointFile(const std::string& path, const ReadOptions& options = {});
/// The same from the text of such a file.
/// @param name  of the file, for messages and as its name
PointFile ReadPoints(std::string_view text, const std::string& name, const ReadOptions& options = {});

/// The points of a file in groups: those of one name each, or all together where they have none, or too many.
std::vector<PointFile> GroupsOf(const PointFile& file);

} // namespace KivoViewer
