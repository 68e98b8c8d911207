// Tables of colours that have names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace KivoDrawingTools {

/// @return the names, in the order in which hosts list them
std::vector<std::string> ColorTableNames();

/// @return the colours of a table, four floats RGBA each; none where no table has the name
std::vector<float> NamedColorTable(const std::string& name);

} // namespace KivoDrawingTools
