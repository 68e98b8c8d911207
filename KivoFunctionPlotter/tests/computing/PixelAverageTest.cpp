// Averages of pixels against plain sums of all of them, and opacities of what was drawn on two grounds.
#include "computing/PixelAverage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

using namespace KivoDrawingTools;

namespace {

std::vector<unsigned char> RandomBytes(std::size_t count) {
    std::mt19937 random(7);
    std::vector<unsigned char> bytes(count);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random());
    return bytes;
}

int PlainAverage(const std::vector<unsigned char>& pixels, std::size_t rowBytes, unsigned int factor,
                 std::size_t column, std::size_t channel) {
    double sum = 0.0;
    for (std::size_t row = 0; row < factor; ++row)
        for (std::size_t k = 0; k < factor; ++k)
            sum += pixels[row * rowBytes + (column * factor + k) * 4 + channel];
    return static_cast<int>(std::floor(sum / (factor * factor) + 0.5));
}

void ExpectPlainAverages(const std::vector<unsigned char>& pixels, std::size_t rowBytes, unsigned int factor,
                         std::size_t width, bool isTurned = false) {
    std::vector<unsigned short> sums(width * factor * 4);
    std::vector<unsigned char> row(width * 4 + 4, 77);
    AverageRow({pixels.data(), rowBytes, factor, isTurned}, width, sums.data(), row.data());
    for (std::size_t column = 0; column < width; ++column) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            ASSERT_EQ(row[column * 4 + (isTurned ? 2 - channel : channel)],
                      PlainAverage(pixels, rowBytes, factor, column, channel))
                << factor << ", column " << column;
        ASSERT_EQ(row[column * 4 + 3], 255);
    }
    EXPECT_EQ(std::vector<unsigned char>(row.end() - 4, row.end()), std::vector<unsigned char>(4, 77));
}

} // namespace

TEST(PixelAverage, IsThatOfEveryChannel) {
    for (unsigned int factor = 1; factor <= mostAveraged; ++factor)
        for (const std::size_t width : {1, 2, 3, 7, 64, 129}) {
            const std::size_t rowBytes = width * factor * 4 + 12;
            for (const bool isTurned : {false, true})
                ExpectPlainAverages(RandomBytes(rowBytes * factor), rowBytes, factor, width, isTurned);
        }
}

// Every sum that so many bytes can have.
TEST(PixelAverage, IsRoundedToTheNearest) {
    for (unsigned int factor = 2; factor <= mostAveraged; ++factor) {
        const std::size_t pixels = factor * factor, width = pixels * 255 + 1, rowBytes = width * factor * 4;
        std::vector<unsigned char> bytes(rowBytes * factor);
        for (std::size_t sum = 0; sum < width; ++sum)
            for (std::size_t i = 0; i < pixels; ++i)
                for (std::size_t channel = 0; channel < 4; ++channel)
                    bytes[i / factor * rowBytes + (sum * factor + i % factor) * 4 + channel] =
                        static_cast<unsigned char>(sum / pixels + (i < sum % pixels ? 1 : 0));
        ExpectPlainAverages(bytes, rowBytes, factor, width);
    }
}

TEST(PixelAverage, OpacityAndColourAreFoundAgain) {
    for (const int opacity : {0, 1, 2, 64, 127, 128, 200, 254, 255})
        for (const int color : {0, 1, 100, 180, 255}) {
            const double share = opacity / 255.0;
            const auto onBlack = static_cast<unsigned char>(std::lround(color * share));
            const auto onWhite = static_cast<unsigned char>(std::lround(color * share + 255 * (1 - share)));
            unsigned char row[] = {onBlack, onBlack, onBlack, 9, 1, 2, 3, 4};
            const unsigned char white[] = {onWhite, onWhite, onWhite, 9};
            FindOpacity(row, white, 1);
            ASSERT_NEAR(row[3], opacity, 1) << color;
            if (opacity == 0) {
                EXPECT_EQ(row[0] + row[1] + row[2], 0);
            }
            const double found = row[3] / 255.0; // drawn again, it looks as it did
            EXPECT_NEAR(row[0] * found, onBlack, 1) << opacity << ", " << color;
            EXPECT_NEAR(row[2] * found + 255 * (1 - found), onWhite, 1.5) << opacity << ", " << color;
            EXPECT_EQ(row[4] + row[5] + row[6] + row[7], 10);
        }
}

// What the driver draws with an error of one must neither wrap nor pass the ends.
TEST(PixelAverage, ErrorsOfOneAreHarmless) {
    unsigned char row[] = {255, 200, 255, 0, 1, 0, 0, 0};
    const unsigned char white[] = {254, 201, 255, 0, 255, 255, 255, 0};
    FindOpacity(row, white, 2);
    EXPECT_EQ(std::vector<int>(row, row + 4), (std::vector<int>{255, 200, 255, 255}));
    EXPECT_EQ(row[7], 0);
}
