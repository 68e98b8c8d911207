// What files can be read and written, as a text.
#pragma once

#include <string>

namespace KivoViewer {

/// Lists the formats of grids and pictures, a line for each.
std::string FormatList();

} // namespace KivoViewer
