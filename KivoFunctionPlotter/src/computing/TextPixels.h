// From the bitmap that a text was drawn on to the pixels of its image.
#pragma once

#include <cstddef>

namespace KivoDrawingTools {

/// Rows of a bitmap, top row first, the padding at their ends included.
struct BitmapRows {
    const unsigned char* bytes;
    std::size_t rowBytes; ///< from the start of a row to that of the next, at least its pixels
    unsigned int bitsPerPixel;
};

/// Bytes of a row's pixels; pixels of less than eight bits take a byte each.
std::size_t PixelBytesOfRow(unsigned int bitsPerPixel, std::size_t width);

struct TextColors {
    unsigned long ink = 0; ///< 0x00BBGGRR
    /// What is transparent is white, or of the ink's colour, which interpolated borders and thin strokes then
    /// keep.
    bool isOnWhite = true;
};

/// Makes pure white transparent and everything else opaque ink.
/// @param rgba  width * height pixels of four bytes, bottom row first
void TextPixels(const BitmapRows& rows, std::size_t width, std::size_t height, unsigned char* rgba,
                const TextColors& colors = {});

} // namespace KivoDrawingTools
