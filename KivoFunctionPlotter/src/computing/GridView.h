// A regular grid of points in an array that somebody else owns.
#pragma once

#include <cstddef>

namespace KivoDrawingTools {

/// The point at column c and row r begins at float c * columnStride + r * rowStride, with its x, y, z first.
struct GridView {
    const float* points;
    unsigned int columns;
    unsigned int rows;
    unsigned int columnStride; ///< in floats
    unsigned int rowStride;    ///< in floats

    const float* At(std::size_t c, std::size_t r) const { return points + c * columnStride + r * rowStride; }
};

} // namespace KivoDrawingTools
