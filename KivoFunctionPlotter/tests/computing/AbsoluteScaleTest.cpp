// Round ranges around an origin: an independent look at the decimals, and values that have none.
#include "computing/AbsoluteScale.h"
#include "computing/NiceScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

using namespace KivoDrawingTools;

namespace {

struct Scale {
    float min;
    float max;
    float step;
    unsigned int intervals;
};

Scale Choose(double origin, float min, float max) {
    Scale scale = {min, max, -1.0f, 99};
    ChooseAbsoluteScale(origin, scale.min, scale.max, scale.step, scale.intervals);
    return scale;
}

Scale ChooseNice(float min, float max) {
    Scale scale = {min, max, -1.0f, 99};
    ChooseNiceScale(scale.min, scale.max, scale.step, scale.intervals);
    return scale;
}

bool AreEqual(const Scale& a, const Scale& b) {
    return a.min == b.min && a.max == b.max && a.step == b.step && a.intervals == b.intervals;
}

std::string Written(const char* format, double number) {
    char text[400];
    std::snprintf(text, sizeof(text), format, number);
    return text;
}

std::string Fixed(double number, unsigned int digits) {
    char text[400];
    std::snprintf(text, sizeof(text), "%.*f", static_cast<int>(digits), number);
    return text;
}

double Decimal(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

constexpr double origins[] = {0.0, 1.0, -1.0, 1e6, -1e6, 1e9, 2451545.0, 5630000.25, 101325.0};
constexpr double spans[] = {1e-3, 0.02, 0.7, 1.0, 8.0, 33.0, 1000.0, 54321.0, 1e6};

} // namespace

TEST(AbsoluteScale, WorkedExamples) {
    struct Example {
        double origin;
        float dataMin, dataMax, axisMin, axisMax, step;
        unsigned int intervals;
    };
    const Example examples[] = {
        {5630000.0, 0, 1000, 0, 1000, 200, 5},
        {5630000.25, 0, 1000, -0.25f, 1199.75f, 200, 6}, // to 5631200
        {101325.0, -0.01f, 0.03f, -0.01f, 0.03f, 0.005f, 8},
        {2451545.0, 0.3f, 30.4f, 0, 35, 5, 7},
        {-1.0, 0, 1, 0, 1, 0.2f, 5},
        {1.0, 4, 4, 3.4f, 4.6f, 0.2f, 6}, // a constant of 5: 4.4 to 5.6
        {1e9, 0, 0.001f, 0, 0.001f, 0.0002f, 5},
        {20.0, 0.7f, 1.3f, 0.7f, 1.3f, 0.1f, 6}, // which are 0.69999999 and 1.29999995
    };
    for (const Example& example : examples) {
        SCOPED_TRACE(testing::Message()
                     << example.origin << ": " << example.dataMin << " .. " << example.dataMax);
        const Scale scale = Choose(example.origin, example.dataMin, example.dataMax);
        const float limit = example.step * 1e-3f; // a double of 1e9 has no more of such a step
        EXPECT_NEAR(scale.min, example.axisMin, limit);
        EXPECT_NEAR(scale.max, example.axisMax, limit);
        EXPECT_EQ(scale.step, example.step);
        EXPECT_EQ(scale.intervals, example.intervals);
    }
}

TEST(AbsoluteScale, TicksAreRoundAndHoldTheData) {
    std::mt19937 generator(17);
    std::uniform_real_distribution<double> place(-1.0, 1.0);
    for (const double origin : origins)
        for (const double span : spans)
            for (int i = 0; i < 200; ++i) {
                const auto min = static_cast<float>(place(generator) * span);
                const auto max = static_cast<float>(static_cast<double>(min) + span);
                SCOPED_TRACE(testing::Message() << origin << ": " << min << " .. " << max);
                const Scale scale = Choose(origin, min, max);
                ASSERT_LE(scale.min, min);
                ASSERT_GE(scale.max, max);
                ASSERT_GE(scale.intervals, 2u);
                ASSERT_LE(scale.intervals, 8u);
                const double step = static_cast<double>(scale.step);
                const std::string digits = Written("%.5e", step).substr(0, 7);
                ASSERT_TRUE(digits == "1.00000" || digits == "2.00000" || digits == "5.00000") << step;
                const double exactStep = Decimal(Written("%.5e", step));
                ASSERT_LT(static_cast<double>(min) - static_cast<double>(scale.min), exactStep * 1.001);
                ASSERT_LT(static_cast<double>(scale.max) - static_cast<double>(max), exactStep * 1.001);
                for (unsigned int tick = 0; tick <= scale.intervals; ++tick) {
                    const long double number = static_cast<long double>(origin) +
                                               static_cast<long double>(scale.min) +
                                               tick * static_cast<long double>(exactStep);
                    const long double steps = number / static_cast<long double>(exactStep);
                    ASSERT_LT(std::abs(steps - std::round(steps)), 2e-3L) << tick;
                }
            }
}

// Data that end at a tick, as far as single precision has it, end the axis there.
TEST(AbsoluteScale, RoundDataFillTheirAxis) {
    for (const double origin : {20.0, 1000.0, -4000.0, 2451540.0})
        for (const float unit : {0.01f, 0.1f, 1.0f, 10.0f}) {
            const Scale scale = Choose(origin, 0.0f, 10.0f * unit);
            EXPECT_NEAR(scale.min, 0.0f, unit * 1e-4f) << origin << ' ' << unit;
            EXPECT_NEAR(scale.max, 10.0f * unit, unit * 1e-4f) << origin << ' ' << unit;
            EXPECT_EQ(scale.intervals, 5u) << origin << ' ' << unit;
        }
}

// Beyond what double precision tells apart the differences are round.
TEST(AbsoluteScale, OriginsBeyondPrecisionLeaveTheDifferences) {
    const double largest = std::numeric_limits<double>::max();
    for (const double origin : {1e16, -1e18, 1e100, 1e300, -1e300, largest, -largest})
        for (const float span : {1e-3f, 1.0f, 3.0f}) {
            EXPECT_TRUE(AreEqual(Choose(origin, 0.0f, span), ChooseNice(0.0f, span)))
                << origin << ' ' << span;
            EXPECT_TRUE(AreEqual(Choose(origin, -span, -span), ChooseNice(-span, -span))) << origin;
        }
}

TEST(AbsoluteScale, WhatCannotBeScaledIsLeftAsItIs) {
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float largest = std::numeric_limits<float>::max();
    const float pairs[][2] = {{0, infinity}, {-infinity, 0},  {nan, 1},           {0, nan},
                              {nan, nan},    {-3e38f, 3e38f}, {-largest, largest}};
    for (const float* pair : pairs)
        for (const double origin : {5.0, 1e30, -1e300}) {
            const Scale scale = Choose(origin, pair[0], pair[1]);
            EXPECT_TRUE(scale.min == pair[0] || (std::isnan(scale.min) && std::isnan(pair[0])));
            EXPECT_TRUE(scale.max == pair[1] || (std::isnan(scale.max) && std::isnan(pair[1])));
            EXPECT_EQ(scale.step, 0.0f);
            EXPECT_EQ(scale.intervals, 0u);
        }
}

TEST(AbsoluteScale, ExtremeRangesEnd) {
    const float smallest = std::numeric_limits<float>::denorm_min();
    const float largest = std::numeric_limits<float>::max();
    const double tiny = std::numeric_limits<double>::denorm_min();
    const double huge = std::numeric_limits<double>::max();
    const float values[] = {0.0f, smallest, 1e-30f, 1e-10f, 1.0f, 16777216.0f, 1e20f, 1e38f, largest};
    for (const double origin : {tiny, -tiny, 1e-300, 1e-20, 1.0, 1e22, 3.4e38, -1e39, 1e308, huge, -huge})
        for (const float a : values)
            for (const float b : values)
                for (const int signs : {0, 1, 2}) {
                    const float low = signs == 0 ? std::min(a, b) : -a;
                    const float high = signs == 2 ? -std::min(a, b) : std::max(a, b);
                    if (low > high) continue;
                    const Scale scale = Choose(origin, low, high);
                    EXPECT_LE(scale.intervals, 9u) << origin << ' ' << low << ' ' << high;
                    EXPECT_TRUE(std::isfinite(scale.min) && std::isfinite(scale.max));
                    EXPECT_LE(scale.min, low) << origin << ' ' << low << ' ' << high;
                    EXPECT_GE(scale.max, high) << origin << ' ' << low << ' ' << high;
                }
}

// ---- Digits

TEST(AbsoluteScale, NeighboursDifferInTheirDigits) {
    EXPECT_EQ(DigitsApart(200.0, 5630000.0), 0u);
    EXPECT_EQ(DigitsApart(1.0, 5630000.0), 0u);
    EXPECT_EQ(DigitsApart(0.5, 5630000.0), 1u);
    EXPECT_EQ(DigitsApart(0.1, 5630000.0), 1u);
    EXPECT_EQ(DigitsApart(0.001, 5630000.0), 3u);
    EXPECT_EQ(DigitsApart(0.0002, 1e9), 4u);
    EXPECT_EQ(DigitsApart(0.03, 1.0), 2u);
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> exponent(-6.0, 4.0), value(-1e6, 1e6);
    for (int i = 0; i < 5000; ++i) {
        const double step = std::pow(10.0, exponent(generator)), first = value(generator);
        const unsigned int digits = DigitsApart(step, first);
        ASSERT_NE(Fixed(first, digits), Fixed(first + step, digits)) << first << ' ' << step;
        if (digits > 0) {
            ASSERT_LT(step, std::pow(10.0, 1.0 - digits)) << "no digit more";
        }
    }
}

TEST(AbsoluteScale, DigitsEndWhereDoublePrecisionDoes) {
    EXPECT_EQ(DigitsApart(1e-30, 1e9), 7u);
    EXPECT_EQ(DigitsApart(1e-30, 5e15), 1u);
    EXPECT_EQ(DigitsApart(1e-30, 1e300), 0u);
    EXPECT_EQ(DigitsApart(1e-30, 0.0), 30u);
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double bad : {0.0, -1.0, infinity, nan})
        EXPECT_EQ(DigitsApart(bad, 1.0), 0u) << bad;
    EXPECT_EQ(DigitsApart(1.0, infinity), 0u);
    EXPECT_EQ(DigitsApart(1.0, nan), 0u);
}

// ---- What is meant by inexact numbers

TEST(AbsoluteScale, NumbersMeanTheShortestDecimals) {
    EXPECT_EQ(MeantNumber(0.0, static_cast<double>(0.15f), 0.75, 0.1), 0.15);
    EXPECT_EQ(MeantNumber(0.0, 2.98e-8, 0.3, 0.1), 0.0);
    EXPECT_FALSE(std::signbit(MeantNumber(0.0, -2.98e-8, 0.3, 0.1)));
    EXPECT_EQ(MeantNumber(5630000.25, -0.25, 1000.0, 200.0), 5630000.0);
    EXPECT_EQ(MeantNumber(1e6, static_cast<double>(0.3f), 1.0, 0.1), 1000000.3);
    EXPECT_EQ(MeantNumber(0.0, 33.3333, 100.0, 33.3333), 33.3333);
    EXPECT_EQ(MeantNumber(1.0, 1e6, 1e6, 0.0), 1000001.0) << "without a next number";
    // Where single precision has lost the step, nothing is added to that.
    EXPECT_NEAR(MeantNumber(0.0, 1000000.1875, 1e6, 0.2), 1000000.1875, 2e-4);
}

TEST(AbsoluteScale, DecimalsSurviveSinglePrecision) {
    std::mt19937 generator(8);
    std::uniform_int_distribution<int> step(-99999, 99999), places(0, 4);
    for (const double origin : origins)
        for (int i = 0; i < 2000; ++i) {
            const unsigned int digits = static_cast<unsigned int>(places(generator));
            const double difference = step(generator) * std::pow(10.0, -static_cast<double>(digits)) / 10.0;
            const std::string text = Fixed(origin + difference, digits + 1);
            const auto single = static_cast<float>(Decimal(text) - origin);
            const double size =
                std::pow(10.0, 4.0 - digits); // of the differences, five digits of which count
            const double meant = MeantNumber(origin, static_cast<double>(single), size, size * 1e-3);
            ASSERT_EQ(meant, Decimal(text)) << text;
        }
}

TEST(AbsoluteScale, WhatIsNoNumberMeansItself) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(MeantNumber(1.0, nan, 1.0, 1.0)));
    EXPECT_EQ(MeantNumber(1.0, infinity, infinity, 1.0), infinity);
    EXPECT_EQ(MeantNumber(1.0, 2.0, nan, nan), 3.0);
    EXPECT_DOUBLE_EQ(MeantNumber(1e300, 1.0, 1.0, 0.2), 1e300);
    const double huge = std::numeric_limits<double>::max(), tiny = std::numeric_limits<double>::denorm_min();
    EXPECT_DOUBLE_EQ(MeantNumber(huge, 0.0, 1.0, 0.0), huge);
    EXPECT_EQ(MeantNumber(0.0, tiny, 0.0, 0.0), tiny);
}
