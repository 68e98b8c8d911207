// Colour conversions against the textbook formulas in double precision.
#include "computing/ColorSpace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace KivoDrawingTools;

namespace {

struct Triple {
    double a, b, c;
};

Triple ToHsv(float r, float g, float b) {
    Triple hsv = {-1, -1, -1};
    float h, s, v;
    RgbToHsv(r, g, b, &h, &s, &v);
    hsv = {h, s, v};
    return hsv;
}

Triple ToRgb(float h, float s, float v) {
    float r, g, b;
    HsvToRgb(h, s, v, &r, &g, &b);
    return {r, g, b};
}

// Hue in turns by the sextant of the largest channel.
Triple TextbookHsv(double r, double g, double b) {
    const double largest = std::max({r, g, b}), smallest = std::min({r, g, b});
    const double delta = largest - smallest;
    if (delta == 0.0) return {0.0, 0.0, largest};
    double sextant = 0.0;
    if (largest == r)
        sextant = std::fmod((g - b) / delta + 6.0, 6.0);
    else if (largest == g)
        sextant = (b - r) / delta + 2.0;
    else
        sextant = (r - g) / delta + 4.0;
    return {sextant / 6.0, delta / largest, largest};
}

double TextbookChannel(double degrees, double s, double v, double offset) {
    const double k = std::fmod(offset + degrees / 60.0, 6.0);
    return v - v * s * std::max(0.0, std::min({k, 4.0 - k, 1.0}));
}

Triple TextbookRgb(double degrees, double s, double v) {
    return {TextbookChannel(degrees, s, v, 5.0), TextbookChannel(degrees, s, v, 3.0),
            TextbookChannel(degrees, s, v, 1.0)};
}

void ExpectNear(const Triple& actual, const Triple& expected, double limit) {
    EXPECT_NEAR(actual.a, expected.a, limit);
    EXPECT_NEAR(actual.b, expected.b, limit);
    EXPECT_NEAR(actual.c, expected.c, limit);
}

} // namespace

TEST(ColorSpace, HsvOfPureColours) {
    ExpectNear(ToHsv(1, 0, 0), {0.0, 1, 1}, 1e-6);
    ExpectNear(ToHsv(1, 1, 0), {1.0 / 6, 1, 1}, 1e-6);
    ExpectNear(ToHsv(0, 1, 0), {2.0 / 6, 1, 1}, 1e-6);
    ExpectNear(ToHsv(0, 1, 1), {3.0 / 6, 1, 1}, 1e-6);
    ExpectNear(ToHsv(0, 0, 1), {4.0 / 6, 1, 1}, 1e-6);
    ExpectNear(ToHsv(1, 0, 1), {5.0 / 6, 1, 1}, 1e-6);
}

TEST(ColorSpace, GreysHaveNoHueAndNoSaturation) {
    for (const float grey : {0.0f, 0.25f, 1.0f}) {
        const Triple hsv = ToHsv(grey, grey, grey);
        EXPECT_EQ(hsv.a, 0.0);
        EXPECT_EQ(hsv.b, 0.0);
        EXPECT_EQ(hsv.c, grey);
    }
    EXPECT_EQ(ToHsv(0.5f, 0.500005f, 0.5f).b, 0.0) << "a spread below 1e-5 counts as grey";
    EXPECT_GT(ToHsv(0.5f, 0.500011f, 0.5f).b, 0.0);
}

TEST(ColorSpace, HsvOfAllColoursOfACubeOfSixteenLevels) {
    for (int r = 0; r < 16; ++r)
        for (int g = 0; g < 16; ++g)
            for (int b = 0; b < 16; ++b) {
                const float rgb[] = {static_cast<float>(r) / 15.0f, static_cast<float>(g) / 15.0f,
                                     static_cast<float>(b) / 15.0f};
                const Triple actual = ToHsv(rgb[0], rgb[1], rgb[2]);
                const Triple expected = TextbookHsv(rgb[0], rgb[1], rgb[2]);
                // Near a full turn the hue may stand at either end.
                const double turn = std::fabs(actual.a - expected.a);
                EXPECT_LT(std::min(turn, 1.0 - turn), 1e-5) << r << ' ' << g << ' ' << b;
                EXPECT_NEAR(actual.b, expected.b, 1e-5);
                EXPECT_EQ(actual.c, std::max({rgb[0], rgb[1], rgb[2]}));
                EXPECT_GE(actual.a, 0.0);
                EXPECT_LT(actual.a, 1.0);
            }
}

TEST(ColorSpace, RgbOfEveryWholeDegree) {
    for (int degree = 0; degree < 360; ++degree)
        for (const float s : {0.2f, 0.7f, 1.0f})
            for (const float v : {0.3f, 1.0f}) {
                // The middle of a degree, so that rounding cannot leave it.
                const float hue = (static_cast<float>(degree) + 0.5f) / 360.0f;
                ExpectNear(ToRgb(hue, s, v), TextbookRgb(degree, s, v), 2e-6);
            }
}

TEST(ColorSpace, HueSnapsToWholeDegrees) {
    const Triple at = ToRgb(100.1f / 360.0f, 1, 1), later = ToRgb(100.9f / 360.0f, 1, 1);
    EXPECT_EQ(at.a, later.a);
    EXPECT_EQ(at.b, later.b);
    EXPECT_NE(at.a, ToRgb(101.1f / 360.0f, 1, 1).a);
}

TEST(ColorSpace, HuesPastAFullTurnFoldBack) {
    ExpectNear(ToRgb(400.5f / 360.0f, 1, 1), TextbookRgb(40, 1, 1), 2e-6);
    ExpectNear(ToRgb(1000.5f / 360.0f, 0.5f, 1), TextbookRgb(280, 0.5, 1), 2e-6);
}

// The degrees keep their sign, and no sextant but 1 to 5 is named: (v, n, m) with the fraction below zero.
TEST(ColorSpace, NegativeHuesFallIntoTheFirstSextant) {
    for (const int degree : {30, 90, 150, 250, 400}) {
        const double x = -(degree % 360) / 360.0 * 6.0;
        double f = x - std::trunc(x);
        if (static_cast<int>(x) % 2 == 0) f = 1.0 - f;
        const float s = 0.5f, v = 0.8f;
        const Triple expected = {v, (1.0 - s * f) * v, (1.0 - s) * v};
        ExpectNear(ToRgb((-static_cast<float>(degree) - 0.5f) / 360.0f, s, v), expected, 2e-6);
    }
}

TEST(ColorSpace, WithoutSaturationTheValueIsTheGrey) {
    for (const float s : {0.0f, 9e-6f, -1.0f})
        ExpectNear(ToRgb(0.3f, s, 0.4f), {0.4f, 0.4f, 0.4f}, 0.0);
}

TEST(ColorSpace, RoundTripMovesTheHueByLessThanADegree) {
    for (int r = 0; r < 8; ++r)
        for (int g = 0; g < 8; ++g)
            for (int b = 0; b < 8; ++b) {
                const Triple hsv = ToHsv(static_cast<float>(r) / 7.0f, static_cast<float>(g) / 7.0f,
                                         static_cast<float>(b) / 7.0f);
                const Triple rgb =
                    ToRgb(static_cast<float>(hsv.a), static_cast<float>(hsv.b), static_cast<float>(hsv.c));
                // One degree moves a channel by at most 1/60 of the spread.
                ExpectNear(rgb, {r / 7.0, g / 7.0, b / 7.0}, 1.0 / 60.0 + 1e-5);
            }
}

TEST(ColorSpace, HuesThatAreNoNumbersDoNoHarm) {
    for (const float hue : {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN(), 3e38f, -3e38f}) {
        const Triple rgb = ToRgb(hue, 1, 1);
        EXPECT_EQ(std::max({rgb.a, rgb.b, rgb.c}), 1.0);
    }
}

TEST(ColorSpace, PackedColoursHaveRedInTheLowByte) {
    float rgba[4];
    ColorToRgba(0x00804020, rgba);
    EXPECT_FLOAT_EQ(rgba[0], 32 / 255.0f);
    EXPECT_FLOAT_EQ(rgba[1], 64 / 255.0f);
    EXPECT_FLOAT_EQ(rgba[2], 128 / 255.0f);
    EXPECT_EQ(rgba[3], 1.0f);
    ColorToRgba(0xFF000000, rgba);
    EXPECT_EQ(rgba[0] + rgba[1] + rgba[2], 0.0f) << "the highest byte has no meaning";
    EXPECT_EQ(rgba[3], 1.0f);
}
