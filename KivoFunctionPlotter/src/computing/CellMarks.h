// Bytes that say which cells of a row are worth a closer look.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace KivoDrawingTools {

/// Room for so many marks, rounded up to whole words.
constexpr std::size_t MarkRoom(std::size_t cells) {
    return (cells + sizeof(std::uint64_t) - 1) / sizeof(std::uint64_t) * sizeof(std::uint64_t);
}

/// Calls visit(c) for each cell c whose mark is not 0, in ascending order.
/// @param room  a result of MarkRoom; marks beyond the last cell are 0
template <typename Visit>
void ForEachMark(const unsigned char* marks, std::size_t room, Visit visit) {
    for (std::size_t start = 0; start < room; start += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, marks + start, sizeof(word));
        if (word == 0) continue;
        for (std::size_t c = start; c < start + sizeof(word); ++c)
            if (marks[c]) visit(c);
    }
}

} // namespace KivoDrawingTools
