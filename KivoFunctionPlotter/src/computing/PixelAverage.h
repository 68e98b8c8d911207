// Averages of a picture's pixels.
#pragma once

#include <cstddef>

namespace KivoDrawingTools {

/// By how many pixels of each side one is averaged, at most.
constexpr unsigned int mostAveraged = 4;

/// Pixels of four bytes, the last of them alpha, of rows that follow each other at a distance.
struct AveragedRows {
    const unsigned char* pixels;
    std::size_t rowBytes; ///< from a row to the next
    unsigned int factor;  ///< rows, and pixels of a row, that give one: 1 to mostAveraged
    bool isTurned;        ///< the first and the third channel of the result change places
};

/// Averages factor rows of factor * width pixels to one row, each channel by itself and rounded to the
/// nearest; what lies in the middle goes up. Alpha becomes 255.
/// @param sums   room for factor * width * 4 numbers
/// @param row    receives width pixels of four bytes
void AverageRow(const AveragedRows& rows, std::size_t width, unsigned short* sums, unsigned char* row);

/// Finds colour and opacity of what has been drawn on black and on white.
/// @param row      width pixels of four bytes, as drawn on black; receives the colours, and as the fourth
///                 byte how opaque they are. What is wholly transparent is black.
/// @param onWhite  the same drawn on white
void FindOpacity(unsigned char* row, const unsigned char* onWhite, std::size_t width);

} // namespace KivoDrawingTools
