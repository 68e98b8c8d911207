// Pixels of texts from bitmaps of every depth, with and without padding at the ends of their rows.
#include "computing/TextPixels.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

// Whether there is ink in a picture that has no symmetry.
bool HasInk(std::size_t column, std::size_t row) {
    return (column * 7 + row * 5 + column * row) % 3 == 0;
}

constexpr unsigned char paddingByte = 0x5A; // neither white nor black

std::vector<unsigned char> Rows(std::size_t width, std::size_t height, unsigned int bits,
                                std::size_t padding) {
    std::vector<unsigned char> rows;
    for (std::size_t row = 0; row < height; ++row) {
        for (std::size_t column = 0; column < width; ++column)
            for (unsigned int byte = 0; byte < bits / 8; ++byte)
                rows.push_back(HasInk(column, row) && byte == bits / 16 ? 0 : 255);
        rows.insert(rows.end(), padding, paddingByte);
    }
    return rows;
}

} // namespace

TEST(TextPixels, EveryRowBeginsWhereTheBitmapsDoes) {
    for (const unsigned int bits : {8u, 16u, 24u, 32u})
        for (const std::size_t width : {1, 2, 5, 31})
            for (const std::size_t padding : {0, 1, 3}) {
                constexpr std::size_t height = 4;
                const std::vector<unsigned char> rows = Rows(width, height, bits, padding);
                const std::size_t rowBytes = rows.size() / height;
                EXPECT_EQ(PixelBytesOfRow(bits, width) + padding, rowBytes);
                std::vector<unsigned char> rgba(width * height * 4, 99);
                TextPixels({rows.data(), rowBytes, bits}, width, height, rgba.data());
                for (std::size_t row = 0; row < height; ++row)
                    for (std::size_t column = 0; column < width; ++column) {
                        const bool ink = HasInk(column, row);
                        const unsigned char* p = &rgba[((height - 1 - row) * width + column) * 4];
                        for (int channel = 0; channel < 3; ++channel)
                            ASSERT_EQ(p[channel], ink ? 0 : 255) << bits << " bits, padding " << padding;
                        ASSERT_EQ(p[3], ink ? 255 : 0);
                    }
            }
}

TEST(TextPixels, OfThirtyTwoBitsTheFourthByteSaysNothing) {
    for (const int value : {0, 77, 255}) {
        const auto unused = static_cast<unsigned char>(value);
        const unsigned char white[] = {255, 255, 255, unused};
        const unsigned char nearly[] = {255, 254, 255, unused};
        unsigned char rgba[4] = {};
        TextPixels({white, 4, 32}, 1, 1, rgba);
        EXPECT_EQ(rgba[3], 0);
        TextPixels({nearly, 4, 32}, 1, 1, rgba);
        EXPECT_EQ(rgba[3], 255);
    }
}

TEST(TextPixels, TakeTheInkAndWhatIsAroundIt) {
    const unsigned char row[] = {255, 255, 255, 0, 0, 0, 0, 0};
    const std::pair<TextColors, std::vector<int>> cases[] = {
        {{}, {255, 255, 255, 0, 0, 0, 0, 255}},
        {{0xFF000000, true}, {255, 255, 255, 0, 0, 0, 0, 255}},
        {{0x00000000, false}, {0, 0, 0, 0, 0, 0, 0, 255}},
        {{0x00332211, true}, {255, 255, 255, 0, 0x11, 0x22, 0x33, 255}},
        {{0x00332211, false}, {0x11, 0x22, 0x33, 0, 0x11, 0x22, 0x33, 255}}};
    for (const auto& [colors, expected] : cases) {
        unsigned char rgba[8] = {};
        TextPixels({row, 8, 32}, 2, 1, rgba, colors);
        EXPECT_EQ(std::vector<int>(rgba, rgba + 8), expected) << colors.ink;
    }
}

TEST(TextPixels, SmallerPixelsTakeAByte) {
    EXPECT_EQ(PixelBytesOfRow(1, 9), 9u);
    EXPECT_EQ(PixelBytesOfRow(4, 9), 9u);
}
