// Blocks of numbers in texts, read on all cores.
#pragma once

#include "GridWindow.h"
#include "Progress.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// Lines of so many numbers each, parted by blanks, of which one may mark a hole.
struct ValueBlock {
    std::string_view text;
    std::size_t columns = 0;
    std::size_t rows = 0;
    double noData = 0.0;
};

constexpr std::size_t usualPiece = std::size_t{1} << 20;

/// Reads what the window has of the block; lines that it has not are not looked at. The progress is told on
/// the thread that calls. Throws Cancelled.
/// @param pieceSize  bytes that a thread reads at a time
/// @return the values row by row, or nothing where there is anything else in the text: whoever reads that
/// line by line
///         can say what is wrong with it
std::optional<std::vector<double>> ReadValueBlock(const ValueBlock& block, const GridWindow& window,
                                                  const Progress& progress,
                                                  std::size_t pieceSize = usualPiece);

} // namespace KivoViewer
