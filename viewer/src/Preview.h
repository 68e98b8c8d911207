// The first lines of a file, and how they are read.
#pragma once

#include "ReadOptions.h"

#include <array>
#include <string>
#include <vector>

namespace KivoViewer {

struct Preview {
    /// A table of numbers, as which nothing but a text is read that is no grid with a header.
    bool isTable = false;
    std::vector<std::vector<std::string>>
        rows; ///< fields of a table without its names, or a line each of another text; in UTF-8
    std::vector<std::string> names;            ///< of a table's columns, their numbers where they have none
    std::array<int, 3> columns = {-1, -1, -1}; ///< of x, y and z in a table of points, from 0
    std::string words;                         ///< how it is read, or why it cannot be, in one sentence
};

/// Looks at no more than the beginning. Throws a Failure where the file cannot be read.
/// @param isGrid  whether the file is to become a surface; else it holds single points
Preview PreviewOf(const std::string& path, const ReadOptions& options, bool isGrid);

} // namespace KivoViewer
