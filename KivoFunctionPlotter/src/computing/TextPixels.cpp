#include "TextPixels.h"

#include <algorithm>

namespace KivoDrawingTools {

namespace {

std::size_t BytesPerPixel(unsigned int bitsPerPixel) {
    return std::max(bitsPerPixel / 8u, 1u);
}

} // namespace

std::size_t PixelBytesOfRow(unsigned int bitsPerPixel, std::size_t width) {
    return width * BytesPerPixel(bitsPerPixel);
}

void TextPixels(const BitmapRows& rows, std::size_t width, std::size_t height, unsigned char* rgba,
                const TextColors& colors) {
    const auto channel = [&](int i) { return static_cast<unsigned char>(colors.ink >> 8 * i & 0xFF); };
    const unsigned char ink[] = {channel(0), channel(1), channel(2), 255};
    const unsigned char white[] = {255, 255, 255, 0}, clear[] = {ink[0], ink[1], ink[2], 0};
    const unsigned char* const ground = colors.isOnWhite ? white : clear;
    const std::size_t bytesPerPixel = BytesPerPixel(rows.bitsPerPixel);
    const std::size_t channels =
        std::min<std::size_t>(bytesPerPixel, 3); // of 32 bits the fourth says nothing
    for (std::size_t row = 0; row < height; ++row) {
        const unsigned char* source = rows.bytes + row * rows.rowBytes;
        unsigned char* target = rgba + (height - 1 - row) * width * 4;
        for (std::size_t column = 0; column < width; ++column, source += bytesPerPixel, target += 4) {
            const bool isWhite =
                std::all_of(source, source + channels, [](unsigned char byte) { return byte == 255; });
            std::copy_n(isWhite ? ground : ink, 4, target);
        }
    }
}

} // namespace KivoDrawingTools
