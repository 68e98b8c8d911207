// Colours from tables: between two of them, at and beyond the ends, and the tables that have names.
#include "computing/ColorTable.h"
#include "computing/NamedColors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

std::vector<float> RandomColors(std::size_t count, std::mt19937& random) {
    std::uniform_real_distribution<float> uniform(0.0f, 1.0f);
    std::vector<float> rgba(4 * count);
    std::generate(rgba.begin(), rgba.end(), [&] { return uniform(random); });
    return rgba;
}

// A walk along the table, from colour to colour, until the value lies before the next one.
std::array<double, 3> Walked(const std::vector<float>& rgba, double min, double max, double value) {
    const std::size_t last = rgba.size() / 4 - 1;
    const double step = (max - min) / static_cast<double>(last);
    double begin = min;
    std::size_t i = 0;
    const auto isPast = [&](double end) { return max > min ? value > end : value < end; };
    while (i < last && isPast(begin + step)) {
        ++i;
        begin = min + static_cast<double>(i) * step;
    }
    const double share = i == last ? 0.0 : std::clamp((value - begin) / step, 0.0, 1.0);
    std::array<double, 3> rgb = {};
    for (std::size_t k = 0; k < 3; ++k) {
        const double color = rgba[4 * i + k];
        const double next = rgba[4 * std::min(i + 1, last) + k];
        rgb[k] = color * (1.0 - share) + next * share;
    }
    return rgb;
}

std::array<float, 3> At(const ColorTable& table, const ColorRange& range, float value) {
    std::array<float, 3> rgb = {-1, -1, -1};
    table.At(range.Place(value), rgb.data());
    return rgb;
}

std::array<float, 3> Color(const std::vector<float>& rgba, std::size_t i) {
    return {rgba[4 * i], rgba[4 * i + 1], rgba[4 * i + 2]};
}

} // namespace

TEST(ColorTable, GoesStraightFromColourToColour) {
    std::mt19937 random(4);
    for (const std::size_t count : {2u, 3u, 7u, 256u, 5000u})
        for (const ColorRange range : {ColorRange{-2.0f, 5.0f}, ColorRange{1e6f, 1.001e6f},
                                       ColorRange{3.0f, -1.0f}, ColorRange{-3e38f, 0.3e38f}}) {
            const std::vector<float> rgba = RandomColors(count, random);
            const ColorTable table(rgba.data(), count);
            ASSERT_EQ(table.Count(), count);
            std::uniform_real_distribution<double> within(-0.1, 1.1);
            // A place is a float, and so is what is left of it between two colours.
            const double limit = 1e-6 + static_cast<double>(count) * 1.2e-7;
            for (int i = 0; i < 300; ++i) {
                const auto value = static_cast<float>(range.min + within(random) * (range.max - range.min));
                const std::array<double, 3> expected = Walked(rgba, range.min, range.max, value);
                const std::array<float, 3> rgb = At(table, range, value);
                for (std::size_t k = 0; k < 3; ++k)
                    EXPECT_NEAR(rgb[k], expected[k], limit) << count << " colours, " << value;
            }
        }
}

TEST(ColorTable, HasItsColoursAtTheirPlacesAndBeyondTheEnds) {
    std::mt19937 random(5);
    const std::vector<float> rgba = RandomColors(5, random);
    const ColorTable table(rgba.data(), 5);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(At(table, {0, 4}, static_cast<float>(i)), Color(rgba, i));
        EXPECT_EQ(At(table, {4, 0}, static_cast<float>(i)), Color(rgba, 4 - i));
    }
    for (const float value : {-0.001f, -3e38f, -infinity}) {
        EXPECT_EQ(At(table, {0, 4}, value), Color(rgba, 0)) << value;
        EXPECT_EQ(At(table, {4, 0}, value), Color(rgba, 4)) << value;
    }
    for (const float value : {4.001f, 3e38f, infinity}) {
        EXPECT_EQ(At(table, {0, 4}, value), Color(rgba, 4)) << value;
        EXPECT_EQ(At(table, {4, 0}, value), Color(rgba, 0)) << value;
    }
}

// Whatever the range, and where there is none.
TEST(ColorTable, GivesOneOfItsColoursToWhatHasNoPlace) {
    std::mt19937 random(6);
    const std::vector<float> rgba = RandomColors(3, random);
    const ColorTable table(rgba.data(), 3);
    EXPECT_EQ(At(table, {0, 4}, noNumber), Color(rgba, 0));
    for (const float value : {0.0f, 2.0f, 3.0f, noNumber, infinity})
        EXPECT_EQ(At(table, {2, 2}, value), Color(rgba, 0)) << value;
    for (const ColorRange range :
         {ColorRange{-infinity, infinity}, ColorRange{0, infinity}, ColorRange{noNumber, 1},
          ColorRange{0, noNumber}, ColorRange{-3e38f, 3e38f}, ColorRange{0, 1e-45f}})
        for (const float value : {0.0f, 1.0f, -1.0f, 3e38f, noNumber, infinity, -infinity}) {
            const std::array<float, 3> rgb = At(table, range, value);
            EXPECT_TRUE(rgb == Color(rgba, 0) || rgb == Color(rgba, 2))
                << range.min << " to " << range.max << ": " << value;
        }
}

// Of every length of a run, at every distance; with the bits of single values.
TEST(ColorTable, ColoursManyValuesAsItColoursOne) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> uniform(-1.0f, 2.0f);
    const std::vector<float> colors = RandomColors(37, random);
    const ColorTable table(colors.data(), 37);
    for (const ColorRange range : {ColorRange{-0.5f, 1.25f}, ColorRange{1.25f, -0.5f}, ColorRange{1, 1}})
        for (const std::size_t stride : {1u, 3u, 4u})
            for (const std::size_t count : {0u, 1u, 3u, 17u, 511u, 512u, 513u, 1500u}) {
                std::vector<float> values(count * stride + 1);
                std::generate(values.begin(), values.end(), [&] { return uniform(random); });
                for (std::size_t i = 0; i < count; i += 50)
                    values[i * stride] = i % 100 == 0 ? noNumber : infinity;
                std::vector<float> rgba(4 * count + 4, 7.0f);
                table.Assign(range, values.data(), stride, count, rgba.data());
                for (std::size_t i = 0; i < count; ++i) {
                    const std::array<float, 3> expected = At(table, range, values[i * stride]);
                    ASSERT_EQ(std::memcmp(&rgba[4 * i], expected.data(), sizeof(expected)), 0)
                        << values[i * stride];
                    ASSERT_EQ(rgba[4 * i + 3], 1.0f);
                }
                EXPECT_EQ(rgba[4 * count], 7.0f) << "nothing is written beyond the last one";
            }
}

// ---- The tables that have names

namespace {

using Rgb = std::array<double, 3>;
using Matrix3 = std::array<Rgb, 3>;

double Linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

// L* of CIELAB for linear red, green and blue of sRGB.
double Lightness(const Rgb& linear) {
    const double y = 0.2126729 * linear[0] + 0.7151522 * linear[1] + 0.0721750 * linear[2];
    return y > 216.0 / 24389.0 ? 116.0 * std::cbrt(y) - 16.0 : y * 24389.0 / 27.0;
}

// G. M. Machado, M. M. Oliveira, L. A. F. Fernandes: A Physiologically-based Model for Simulation of Color
// Vision Deficiency, 2009; severity 1. For linear red, green and blue.
constexpr Matrix3 withoutGreenCones = {
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix3 withoutRedCones = {
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix3 asTheyAre = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

Rgb Seen(const Matrix3& eye, const Rgb& linear) {
    Rgb seen = {};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k)
            seen[i] += eye[i][k] * linear[k];
        seen[i] = std::clamp(seen[i], 0.0, 1.0); // what a screen can show
    }
    return seen;
}

std::vector<double> LightnessOf(const std::string& name, const Matrix3& eye) {
    const std::vector<float> rgba = NamedColorTable(name);
    std::vector<double> lightness;
    for (std::size_t i = 0; i < rgba.size(); i += 4)
        lightness.push_back(
            Lightness(Seen(eye, {Linear(rgba[i]), Linear(rgba[i + 1]), Linear(rgba[i + 2])})));
    return lightness;
}

// Farthest from the straight line that comes nearest to all in the sum of squares; its rise in all.
struct Evenness {
    double farthest, rise;
};

Evenness EvennessOf(const std::vector<double>& values) {
    const double count = static_cast<double>(values.size()), middle = (count - 1.0) / 2.0;
    double mean = 0.0, product = 0.0, square = 0.0;
    for (const double value : values)
        mean += value / count;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double x = static_cast<double>(i) - middle;
        product += x * (values[i] - mean);
        square += x * x;
    }
    const double slope = product / square;
    Evenness evenness = {0.0, slope * (count - 1.0)};
    for (std::size_t i = 0; i < values.size(); ++i)
        evenness.farthest = std::max(evenness.farthest,
                                     std::fabs(values[i] - mean - slope * (static_cast<double>(i) - middle)));
    return evenness;
}

std::string Code(const std::vector<float>& rgba, std::size_t color) {
    char text[8];
    std::snprintf(text, sizeof(text), "%02lX%02lX%02lX", std::lround(255 * rgba[4 * color]),
                  std::lround(255 * rgba[4 * color + 1]), std::lround(255 * rgba[4 * color + 2]));
    return text;
}

} // namespace

TEST(NamedColors, AreOpaqueAndWithinBounds) {
    EXPECT_THAT(ColorTableNames(),
                testing::ElementsAre("viridis", "cividis", "turbo", "grey", "terrain", "coolwarm"));
    for (const std::string& name : ColorTableNames()) {
        const std::vector<float> rgba = NamedColorTable(name);
        ASSERT_EQ(rgba.size(), 4u * 256) << name;
        for (std::size_t i = 0; i < rgba.size(); ++i) {
            EXPECT_TRUE(rgba[i] >= 0.0f && rgba[i] <= 1.0f) << name;
            if (i % 4 == 3) {
                EXPECT_EQ(rgba[i], 1.0f) << name;
            }
        }
    }
    for (const char* name : {"", "Viridis", "viridi", "viridis2", "jet"})
        EXPECT_TRUE(NamedColorTable(name).empty()) << name;
}

// As they are published.
TEST(NamedColors, HaveTheirEnds) {
    const auto ends = [](const std::string& name) {
        const std::vector<float> rgba = NamedColorTable(name);
        return Code(rgba, 0) + " " + Code(rgba, 255);
    };
    EXPECT_EQ(ends("viridis"), "440154 FDE725");
    EXPECT_EQ(ends("cividis"), "00224E FEE838");
    EXPECT_EQ(ends("turbo"), "30123B 7A0403");
    EXPECT_EQ(ends("coolwarm"), "3B4CC0 B40426");
    EXPECT_EQ(ends("grey"), "000000 FFFFFF");
}

TEST(NamedColors, GrowLighterEvenly) {
    for (const char* name : {"viridis", "cividis", "grey", "terrain"}) {
        const Evenness evenness = EvennessOf(LightnessOf(name, asTheyAre));
        EXPECT_LT(evenness.farthest, 2.0) << name;
        EXPECT_GT(evenness.rise, 60.0) << name;
    }
    EXPECT_GT(EvennessOf(LightnessOf("turbo", asTheyAre)).farthest, 20.0) << "a rainbow does not";
}

TEST(NamedColors, GrowLighterEvenlyForThoseWhoCannotTellRedFromGreen) {
    for (const Matrix3& eye : {withoutGreenCones, withoutRedCones}) {
        const Evenness evenness = EvennessOf(LightnessOf("cividis", eye));
        EXPECT_LT(evenness.farthest, 2.0);
        EXPECT_GT(evenness.rise, 60.0);
    }
}

// From both sides alike to the lightest of all in the middle.
TEST(NamedColors, OfTwoSidesAreLightInTheMiddle) {
    const std::vector<double> lightness = LightnessOf("coolwarm", asTheyAre);
    for (std::size_t i = 1; i < 128; ++i) { // each channel is rounded
        EXPECT_GT(lightness[i], lightness[i - 1] - 0.1) << i;
        EXPECT_GT(lightness[255 - i], lightness[256 - i] - 0.1) << i;
    }
    EXPECT_GT(lightness[127], 85.0);
    EXPECT_NEAR(lightness[127], lightness[128], 0.5);
    EXPECT_NEAR(lightness[0], lightness[255], 5.0);
    const std::vector<float> rgba = NamedColorTable("coolwarm");
    EXPECT_NEAR(rgba[4 * 127], rgba[4 * 127 + 2], 0.02) << "white has no hue";
}
