// Blocks of numbers in texts, read on all cores.
#pragma once

#include "Progress.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// Reads lines of so many numbers each, parted by blanks, of which one may mark a hole. Throws Cancelled.
/// @return the values row by row, or nothing where there is anything else in the text: whoever reads that
/// line by line
///         can say what is wrong with it
std::optional<std::vector<double>> ReadValueBlock(std::string_view text, std::size_t columns,
                                                  std::size_t rows, double noData, const Progress& progress);

} // namespace KivoViewer
