// Round axis ranges: worked examples, an independent computation, values that cannot be scaled.
#include "computing/NiceScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace KivoDrawingTools;

namespace {

struct Scale {
    float min;
    float max;
    float step;
    unsigned int intervals;
};

Scale Choose(float min, float max) {
    Scale scale = {min, max, -1.0f, 99};
    ChooseNiceScale(scale.min, scale.max, scale.step, scale.intervals);
    return scale;
}

float TenTo(int k) {
    // Squares of ten multiplied for the exponent's bits; the order matters to the last digit.
    const int exponent = std::abs(k);
    const float squares[] = {1e1f, 1e1f * 1e1f, 1e2f * 1e2f, 1e4f * 1e4f, 1e8f * 1e8f, 1e16f * 1e16f};
    float product = 1.0f;
    for (int bit = 0; bit < 6; ++bit)
        if (exponent >> bit & 1) product = product * squares[bit];
    return k < 0 ? 1.0f / product : product;
}

// The rules one by one, in single precision, for ranges whose quotients fit into an int.
Scale Expected(float min, float max) {
    const float d = max - min;
    int k = d == 0.0f ? 0 : int(std::log10(std::fabs(d))) - 1;
    float step = TenTo(k);
    auto intervals = unsigned(int((max - min) / step));
    for (; intervals > 10; intervals = unsigned(int((max - min) / step)))
        step = TenTo(++k);
    int low = int(min / step) - 1, high = int(max / step) + 1;
    const bool loose = std::fabs(min - float(low) * step) / step > 0.5f;
    const bool looseAbove = std::fabs(float(high) * step - max) / step > 0.5f;
    if (loose || looseAbove) {
        step = step * 0.5f;
        high = int(max / step) + 1;
        low = int(min / step) - 1;
    }
    Scale scale = {float(low) * step, float(high) * step, step, 0};
    scale.intervals = unsigned(int((scale.max - scale.min) / scale.step));
    while (scale.intervals > 8) {
        scale.step = scale.step * 2.0f;
        scale.intervals = unsigned(int((scale.max - scale.min) / scale.step));
    }
    const auto top = float(int(float(scale.intervals) * scale.step + scale.min));
    if (scale.max > top && double(std::fabs(top - scale.max) / scale.step) > 0.001) {
        scale.intervals += 1;
        scale.max = float(scale.intervals) * scale.step + scale.min;
    }
    return scale;
}

} // namespace

TEST(NiceScale, WorkedExamples) {
    struct Example {
        float dataMin, dataMax, axisMin, axisMax, step;
        unsigned int intervals, precision;
    };
    const Example examples[] = {
        {0, 100, -5, 115, 20, 6, 0},
        {0, 55, -5, 65, 10, 7, 0},
        {0, 10, -0.5f, 11.5f, 2, 6, 1},
        {3, 7, 2.5f, 8.5f, 1, 6, 1},
        {5, 5, 4.5f, 6, 0.5f, 3, 1},
        {-1, 1, -1.5f, 2, 0.5f, 7, 1},
        {0, 1, -0.05f, 1.15f, 0.2f, 6, 1},
        {0, 0.6f, -0.05f, 0.75f, 0.1f, 8, 2},
        {0.2f, 0.9f, 0.15f, 0.95f, 0.1f, 8, 2},
        {-0.004f, 0.004f, -0.0045f, 0.0055f, 0.002f, 5, 3},
    };
    for (const Example& example : examples) {
        SCOPED_TRACE(testing::Message() << example.dataMin << " .. " << example.dataMax);
        const Scale scale = Choose(example.dataMin, example.dataMax);
        const float limit = example.step * 1e-5f;
        EXPECT_NEAR(scale.min, example.axisMin, limit);
        EXPECT_NEAR(scale.max, example.axisMax, limit);
        EXPECT_NEAR(scale.step, example.step, limit);
        EXPECT_EQ(scale.intervals, example.intervals);
        EXPECT_EQ(LabelPrecision(scale.step), example.precision);
    }
}

TEST(NiceScale, RandomRangesFollowTheRules) {
    std::mt19937 generator(99);
    std::uniform_real_distribution<float> mantissa(-1.0f, 1.0f), exponent(-6.0f, 8.0f);
    for (int i = 0; i < 20000; ++i) {
        const float size = std::pow(10.0f, exponent(generator));
        float min = mantissa(generator) * size, max = mantissa(generator) * size;
        if (min > max) std::swap(min, max);
        if ((max - min) < size * 1e-4f) continue; // quotients beyond an int
        const Scale actual = Choose(min, max), expected = Expected(min, max);
        ASSERT_EQ(actual.min, expected.min) << min << ' ' << max;
        ASSERT_EQ(actual.max, expected.max) << min << ' ' << max;
        ASSERT_EQ(actual.step, expected.step) << min << ' ' << max;
        ASSERT_EQ(actual.intervals, expected.intervals) << min << ' ' << max;
        int digits = 1; // one more than the step's leading zeros
        for (double step = expected.step; step < 0.1000001; step *= 10)
            ++digits;
        if (expected.step >= 10) digits = 0;
        ASSERT_EQ(LabelPrecision(actual.step), static_cast<unsigned int>(digits)) << actual.step;
    }
}

TEST(NiceScale, ScaledRangesContainTheDataInAtMostNineIntervals) {
    std::mt19937 generator(5);
    std::uniform_real_distribution<float> value(-1000.0f, 1000.0f), width(0.01f, 2000.0f);
    for (int i = 0; i < 5000; ++i) {
        const float min = value(generator), max = min + width(generator);
        const Scale scale = Choose(min, max);
        ASSERT_LE(scale.min, min);
        ASSERT_GE(scale.max, max);
        ASSERT_LE(scale.intervals, 9u);
        ASSERT_GE(scale.intervals, 1u);
        ASSERT_NEAR(scale.min + static_cast<float>(scale.intervals) * scale.step, scale.max,
                    scale.step * 1.01f);
    }
}

TEST(NiceScale, AConstantIsScaledAsByWholeNumbers) {
    const Scale scale = Choose(0, 0);
    EXPECT_EQ(scale.min, -0.5f);
    EXPECT_EQ(scale.max, 1.0f);
    EXPECT_EQ(scale.step, 0.5f);
    EXPECT_EQ(scale.intervals, 3u);
}

TEST(NiceScale, WhatCannotBeScaledIsLeftAsItIs) {
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float largest = std::numeric_limits<float>::max();
    const float pairs[][2] = {
        {0, infinity}, {-infinity, 0}, {-infinity, infinity}, {infinity, infinity}, {nan, 1},
        {0, nan},      {nan, nan},     {-largest, largest},   {-3e38f, 3e38f},      {-infinity, nan}};
    for (const float* pair : pairs) {
        const Scale scale = Choose(pair[0], pair[1]);
        EXPECT_TRUE(scale.min == pair[0] || (std::isnan(scale.min) && std::isnan(pair[0])));
        EXPECT_TRUE(scale.max == pair[1] || (std::isnan(scale.max) && std::isnan(pair[1])));
        EXPECT_EQ(scale.step, 0.0f);
        EXPECT_EQ(scale.intervals, 0u);
    }
}

// Whatever the range, an answer comes, and never with more ticks than anybody could store.
TEST(NiceScale, ExtremeRangesEnd) {
    const float smallest = std::numeric_limits<float>::denorm_min();
    const float normal = std::numeric_limits<float>::min();
    const float largest = std::numeric_limits<float>::max();
    const float values[] = {0.0f,        smallest, normal, 1e-30f, 1e-10f,  1.0f,          16777216.0f,
                            16777218.0f, 1e10f,    1e20f,  1e37f,  largest, largest / 2.0f};
    for (const float a : values)
        for (const float b : values)
            for (const int signs : {0, 1, 2}) {
                const float low = signs == 0 ? std::min(a, b) : -a;
                const float high = signs == 2 ? -std::min(a, b) : std::max(a, b);
                if (low > high) continue;
                const Scale scale = Choose(low, high);
                EXPECT_LE(scale.intervals, 9u) << low << ' ' << high;
                EXPECT_TRUE(std::isfinite(scale.min) && std::isfinite(scale.max)) << low << ' ' << high;
                EXPECT_LE(scale.min, low);
                EXPECT_GE(scale.max, high);
            }
}

TEST(NiceScale, PrecisionFollowsTheStep) {
    EXPECT_EQ(LabelPrecision(0.0f), 0u);
    EXPECT_EQ(LabelPrecision(1000.0f), 0u);
    EXPECT_EQ(LabelPrecision(10.0f), 0u);
    EXPECT_EQ(LabelPrecision(9.9f), 1u);
    EXPECT_EQ(LabelPrecision(0.5f), 1u);
    EXPECT_EQ(LabelPrecision(0.05f), 2u);
    EXPECT_EQ(LabelPrecision(-0.002f), 3u);
    EXPECT_EQ(LabelPrecision(std::numeric_limits<float>::infinity()), 0u);
    EXPECT_EQ(LabelPrecision(std::numeric_limits<float>::quiet_NaN()), 0u);
}
