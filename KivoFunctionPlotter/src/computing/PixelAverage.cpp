#include "PixelAverage.h"

#include "VectorClones.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace KivoDrawingTools {

namespace {

// Sums of the columns of two to four rows.
KIVO_VECTOR_CLONES
void AddRows(const unsigned char* pixels, std::size_t rowBytes, unsigned int rows, std::size_t count,
             unsigned short* sums) {
    const unsigned char* const second = pixels + rowBytes;
    for (std::size_t i = 0; i < count; ++i)
        sums[i] = static_cast<unsigned short>(pixels[i] + second[i]);
    for (unsigned int row = 2; row < rows; ++row) {
        const unsigned char* const next = pixels + row * rowBytes;
        for (std::size_t i = 0; i < count; ++i)
            sums[i] = static_cast<unsigned short>(sums[i] + next[i]);
    }
}

// The four channels of a pixel's sum as one number, 16 bits each, are added, rounded and divided together: no
// channel reaches the next one, since sixteen bytes add up to no more than 4,080.
std::uint64_t Quotients(std::uint64_t sums, unsigned int pixels) {
    constexpr std::uint64_t each = 0x0001000100010001, everyOther = 0x0000FFFF0000FFFF;
    sums += each * (pixels / 2);
    if (pixels == 4) return sums >> 2 & each * 0xFF;
    if (pixels == 16) return sums >> 4 & each * 0xFF;
    // A ninth, exact for sums below 29,000.
    constexpr std::uint64_t ninth = 7282; // of 65,536
    const std::uint64_t even = (sums & everyOther) * ninth >> 16 & everyOther;
    const std::uint64_t odd = (sums >> 16 & everyOther) * ninth & ~everyOther;
    return even | odd;
}

std::uint32_t Bytes(std::uint64_t channels) {
    channels = (channels | channels >> 8) & 0x0000FFFF0000FFFF;
    return static_cast<std::uint32_t>(channels | channels >> 16);
}

// The bits of the four bytes as they lie in memory.
std::uint32_t Bits(unsigned char first, unsigned char second, unsigned char third, unsigned char fourth) {
    const unsigned char bytes[] = {first, second, third, fourth};
    std::uint32_t bits = 0;
    std::memcpy(&bits, bytes, sizeof bits);
    return bits;
}

// Alpha becomes 255, and where they are to be turned, the first and the third byte change places: they are 16
// bits apart, in which order ever a number's bytes lie.
template <bool isTurned>
std::uint32_t Opaque(std::uint32_t pixel) {
    if (isTurned) {
        const std::uint32_t ends = pixel & Bits(255, 0, 255, 0);
        pixel = (pixel & Bits(0, 255, 0, 255)) | ends >> 16 | ends << 16;
    }
    return pixel | Bits(0, 0, 0, 255);
}

template <unsigned int factor, bool isTurned>
void AverageSums(const unsigned short* sums, std::size_t width, unsigned char* row) {
    for (std::size_t i = 0; i < width; ++i) {
        std::uint64_t sum = 0;
        for (std::size_t k = 0; k < factor; ++k) {
            std::uint64_t next = 0;
            std::memcpy(&next, sums + (i * factor + k) * 4, sizeof next);
            sum += next;
        }
        const std::uint32_t pixel = Opaque<isTurned>(Bytes(Quotients(sum, factor * factor)));
        std::memcpy(row + i * 4, &pixel, sizeof pixel);
    }
}

template <bool isTurned>
void CopyOpaque(const unsigned char* pixels, std::size_t width, unsigned char* row) {
    for (std::size_t i = 0; i < width; ++i) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, pixels + i * 4, sizeof pixel);
        pixel = Opaque<isTurned>(pixel);
        std::memcpy(row + i * 4, &pixel, sizeof pixel);
    }
}

// The loops for each case, which the compiler then unrolls.
KIVO_VECTOR_CLONES
void AverageColumns(const unsigned short* sums, unsigned int factor, std::size_t width, unsigned char* row) {
    if (factor == 2) AverageSums<2, false>(sums, width, row);
    if (factor == 3) AverageSums<3, false>(sums, width, row);
    if (factor == 4) AverageSums<4, false>(sums, width, row);
}
KIVO_VECTOR_CLONES
void AverageColumnsTurned(const unsigned short* sums, unsigned int factor, std::size_t width,
                          unsigned char* row) {
    if (factor == 2) AverageSums<2, true>(sums, width, row);
    if (factor == 3) AverageSums<3, true>(sums, width, row);
    if (factor == 4) AverageSums<4, true>(sums, width, row);
}
KIVO_VECTOR_CLONES
void CopyRow(const unsigned char* pixels, bool isTurned, std::size_t width, unsigned char* row) {
    if (isTurned)
        CopyOpaque<true>(pixels, width, row);
    else
        CopyOpaque<false>(pixels, width, row);
}

} // namespace

void AverageRow(const AveragedRows& rows, std::size_t width, unsigned short* sums, unsigned char* row) {
    if (rows.factor == 1) {
        CopyRow(rows.pixels, rows.isTurned, width, row);
        return;
    }
    AddRows(rows.pixels, rows.rowBytes, rows.factor, width * rows.factor * 4, sums);
    if (rows.isTurned)
        AverageColumnsTurned(sums, rows.factor, width, row);
    else
        AverageColumns(sums, rows.factor, width, row);
}

void FindOpacity(unsigned char* row, const unsigned char* onWhite, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i, row += 4, onWhite += 4) {
        // What shows of the ground is the same in all channels, but for rounding.
        int shown = 0;
        for (int channel = 0; channel < 3; ++channel)
            shown += std::max(onWhite[channel] - row[channel], 0);
        const int opacity = 255 - (shown + 1) / 3;
        for (int channel = 0; channel < 3; ++channel) {
            const int color = opacity > 0 ? (row[channel] * 255 + opacity / 2) / opacity : 0;
            row[channel] = static_cast<unsigned char>(std::min(255, color));
        }
        row[3] = static_cast<unsigned char>(opacity);
    }
}

} // namespace KivoDrawingTools
