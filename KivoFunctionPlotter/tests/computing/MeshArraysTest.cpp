// The arrays of a mesh against the plainest loops, bit for bit.
#include "computing/MeshArrays.h"
#include "parts/KivoGradientColor.h"
#include "support/PlainLoops.h"
#include "support/TestSurfaces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

GridView ViewOf(const std::vector<float>& points, unsigned int columns, unsigned int rows) {
    return {points.data(), columns, rows, 3, 3 * columns};
}

void ExpectPlainBounds(const GridView& grid) {
    float min[3], max[3], plainMin[3], plainMax[3];
    FindBounds(grid, min, max);
    PlainBounds(grid, plainMin, plainMax);
    EXPECT_TRUE(AreIdentical(min, plainMin, 3)) << min[0] << ' ' << min[1] << ' ' << min[2];
    EXPECT_TRUE(AreIdentical(max, plainMax, 3)) << max[0] << ' ' << max[1] << ' ' << max[2];
}

void ExpectPlainColors(const std::vector<float>& values, const CKivoGradientColor& gradient) {
    for (const unsigned int stride : {3u, 5u}) { // the value is the third float of a point
        std::vector<float> points(values.size() * stride);
        for (std::size_t i = 0; i < values.size(); ++i)
            points[i * stride + 2] = values[i];
        const unsigned int count = static_cast<unsigned int>(values.size());
        const std::vector<float> expected = PlainColors({points.data(), count, 1, stride, 0}, gradient);
        std::vector<float> colors(values.size() * 4, -1.0f);
        gradient.EvaluateAll(points.data() + 2, stride, count, colors.data());
        for (std::size_t i = 0; i < colors.size(); ++i)
            ASSERT_TRUE(AreIdentical(colors[i], expected[i]))
                << colors[i] << " instead of " << expected[i] << " for " << values[i / 4];
    }
}

// From 0 to 1, where 1 - t is rounded among them.
std::vector<float> UnitValues() {
    std::mt19937 random(3);
    std::uniform_real_distribution<float> uniform(0.0f, 1.0f);
    std::vector<float> values = {0.0f, -0.0f, 1e-45f, 1e-40f, 1.0f, std::nextafter(1.0f, 0.0f)};
    for (int power = 1; power <= 30; ++power) {
        const float t = std::ldexp(1.0f, -power);
        values.insert(values.end(), {t, std::nextafter(t, 0.0f), std::nextafter(t, 1.0f), 1.0f - t});
    }
    for (int i = 0; i < 3000; ++i)
        values.push_back(uniform(random));
    return values;
}

} // namespace

TEST(TextureCoordinates, RowsBeyondTheVectorsGoOnAlike) {
    for (const unsigned int mostInVectors : {0u, 1u, 4u, 8u, 9u}) {
        std::vector<float> whole(9 * 3 * 2), parts(9 * 3 * 2);
        FillTexcoords(9, 3, whole.data());
        FillTexcoords(9, 3, parts.data(), mostInVectors);
        EXPECT_EQ(parts, whole) << mostInVectors;
    }
}

TEST(Bounds, AreThoseOfAPlainLoop) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> digit(-3, 3);
    for (const unsigned int columns : {1u, 2u, 7u, 8u, 9u, 16u, 37u})
        for (const float scale : {1.0f, 1e30f, -0.0f}) {
            std::vector<float> points(columns * 5 * 3);
            for (float& value : points)
                value = scale * static_cast<float>(digit(random));
            ExpectPlainBounds(ViewOf(points, columns, 5));
            ExpectPlainBounds({points.data(), 5, columns, 3 * columns, 3});
        }
}

TEST(Bounds, PassOverWhatIsNoNumberUnlessItComesFirst) {
    for (const float odd : {noNumber, infinity, -infinity})
        for (std::size_t place = 0; place < 33 * 4 * 3; place += 7) {
            std::vector<float> points = NoiseSurface(33, 4).points;
            points[place] = odd;
            ExpectPlainBounds(ViewOf(points, 33, 4));
        }
}

// Any coordinate of any point, and nothing beside them.
TEST(Bounds, TellWhetherANumberIsMissing) {
    float min[3], max[3];
    for (const unsigned int columns : {8u, 33u})
        for (const unsigned int stride : {3u, 5u}) {
            std::vector<float> points(std::size_t{columns} * 4 * stride, 1.0f);
            const GridView grid = {points.data(), columns, 4, stride, columns * stride};
            EXPECT_TRUE(FindBounds(grid, min, max));
            for (std::size_t place = 0; place < points.size(); ++place) {
                points[place] = noNumber;
                EXPECT_EQ(FindBounds(grid, min, max), place % stride >= 3) << place;
                points[place] = -infinity;
                EXPECT_TRUE(FindBounds(grid, min, max)) << place;
                points[place] = 1.0f;
            }
        }
}

TEST(Bounds, KeepTheSignOfTheFirstZero) {
    for (const float sign : {1.0f, -1.0f})
        for (const std::size_t first : {2u, 25u, 98u}) { // a z coordinate
            std::vector<float> points(33 * 3, sign);
            for (std::size_t i = 2; i < points.size(); i += 6)
                points[i] = 0.0f;
            for (std::size_t i = 2; i < first; i += 3)
                points[i] = sign;
            for (std::size_t i = first; i < points.size(); i += 9)
                points[i] = -0.0f;
            ExpectPlainBounds(ViewOf(points, 33, 1));
        }
}

// The results would be the same without the table, only later.
TEST(Colors, ComeFromTheTableBetweenPureColors) {
    CKivoGradientColor gradient; // from blue to red
    gradient.SetRange(0.0f, 1.0f);
    std::vector<float> values = UnitValues(), colors(values.size() * 4);
    std::size_t fromTable = 0;
    gradient.EvaluateAll(values.data(), 1, values.size(), colors.data(), &fromTable);
    EXPECT_EQ(fromTable, values.size());

    values[values.size() / 2] = 1.5f; // its run has to be computed
    gradient.EvaluateAll(values.data(), 1, values.size(), colors.data(), &fromTable);
    EXPECT_GT(fromTable, 0u);
    EXPECT_LT(fromTable, values.size());

    constexpr float pale[] = {0.8f, 0.9f, 1.0f, 1.0f}, red[] = {1.0f, 0.0f, 0.0f, 1.0f};
    gradient.SetColors(pale, red);
    gradient.EvaluateAll(values.data(), 1, values.size(), colors.data(), &fromTable);
    EXPECT_EQ(fromTable, 0u);
}

TEST(Colors, AreThoseOfSingleValues) {
    std::mt19937 random(2);
    std::uniform_real_distribution<float> uniform(0.0f, 1.0f);
    std::vector<float> values;
    for (int i = 0; i < 1000; ++i)
        values.push_back(uniform(random) * 4.0f - 1.0f);
    std::vector<float> odd = {noNumber, infinity, -infinity, 0.0f, -0.0f, 1e38f, -1e38f, 1e-40f};
    odd.insert(odd.end(), values.begin(), values.begin() + 20);

    CKivoGradientColor gradient;
    gradient.SetRange(-1.0f, 3.0f);
    ExpectPlainColors(values, gradient);
    for (int i = 0; i < 200; ++i) {
        float start[4], end[4];
        for (int k = 0; k < 4; ++k) {
            start[k] = uniform(random);
            end[k] = i % 4 == 0 ? start[0] : uniform(random); // some gradients end in grey
        }
        if (i % 5 == 0) start[1] = start[2] = start[0] + 4e-6f; // almost grey
        gradient.SetColors(start, end);
        if (i % 3 == 0) gradient.SetRange(uniform(random), uniform(random) + 0.5f); // values lie outside
        ExpectPlainColors(values, gradient);
        ExpectPlainColors(odd, gradient);
    }
}

TEST(Colors, BetweenPureAndOtherColorsAreThoseOfSingleValues) {
    const float ends[][4] = {{1, 0, 0, 1},    {1, 1, 0, 1},      {0, 1, 0, 1},    {0, 1, 1, 1},
                             {0, 0, 1, 1},    {1, 0, 1, 1},      {1, 0.3f, 0, 1}, {0, 0.7f, 1, 1},
                             {0.5f, 0, 0, 1}, {1, 0.5f, 0.5f, 1}};
    CKivoGradientColor gradient;
    gradient.SetRange(0.0f, 1.0f);
    for (const auto& start : ends)
        for (const auto& end : ends) {
            gradient.SetColors(start, end);
            ExpectPlainColors(UnitValues(), gradient);
        }
}

TEST(Colors, OfHuesThatNoColorHasAreThoseOfSingleValues) {
    const float beforeATurn = std::nextafter(1.0f, 0.0f);
    for (const float hue : {-0.5f, -1.0f, -1e-7f, -0.0f, 0.999f, beforeATurn, 1.0f, 1.5f}) {
        CKivoGradientColor gradient; // of full saturation and brightness
        gradient.SetRange(0.0f, 1.0f);
        gradient.m_startHue = hue;
        ExpectPlainColors(UnitValues(), gradient);
        gradient.m_endHue = hue;
        ExpectPlainColors(UnitValues(), gradient);
    }
}

TEST(Colors, BesideAValueOutsideTheRangeStayTheSame) {
    CKivoGradientColor gradients[2]; // between pure colours
    gradients[1].m_startHue = 0.0f;  // from red to red: the hue stays, full saturation does not
    for (CKivoGradientColor& gradient : gradients)
        gradient.SetRange(0.0f, 1.0f);
    for (const std::size_t count : {1u, 3u, 4u, 17u, 511u, 513u, 1500u})
        for (const float odd : {noNumber, infinity, -infinity, 1.0001f, -1e-30f, -0.3f, -7.7f, 100.0f, 3e9f})
            for (const std::size_t place : {std::size_t{0}, count / 2, count - 1}) {
                std::vector<float> values(count);
                for (std::size_t i = 0; i < count; ++i)
                    values[i] = static_cast<float>(i) / static_cast<float>(count);
                values[place] = odd;
                for (const CKivoGradientColor& gradient : gradients)
                    ExpectPlainColors(values, gradient);
            }
}

TEST(Colors, WithoutARangeAreTheStart) {
    CKivoGradientColor gradient;
    ExpectPlainColors({1, 2, noNumber, 3}, gradient);
    gradient.SetRange(noNumber, 1.0f);
    ExpectPlainColors({1, 2, noNumber, 3}, gradient);
    gradient.SetRange(-infinity, infinity);
    ExpectPlainColors({1, 2, noNumber, 3}, gradient);
}

TEST(Texcoords, AreThoseOfAPlainLoop) {
    const unsigned int sizes[][2] = {{2, 2}, {3, 7}, {50, 40}, {1, 4}, {4, 1}, {1, 1}, {129, 65}};
    for (const auto& size : sizes) {
        const std::vector<float> expected = PlainTexcoords(size[0], size[1]);
        std::vector<float> texcoords(expected.size());
        FillTexcoords(size[0], size[1], texcoords.data());
        EXPECT_TRUE(AreIdentical(texcoords.data(), expected.data(), expected.size()));
    }
    FillTexcoords(0, 0, nullptr);
}

TEST(TriangleIndices, AreThoseOfAPlainLoop) {
    const unsigned int sizes[][2] = {{2, 2}, {3, 7}, {50, 40}, {1, 4}, {4, 1}, {129, 65}};
    for (const auto& size : sizes) {
        const std::vector<unsigned int> expected = PlainTriangles(size[0], size[1]);
        std::vector<unsigned int> indices(expected.size());
        FillTriangleIndices(size[0] - 1, size[1] - 1, indices.data());
        EXPECT_EQ(indices, expected);
    }
    FillTriangleIndices(0, 0, nullptr);
}

TEST(FrameLineIndices, AreThoseOfAPlainLoop) {
    for (const unsigned int columns : {2u, 3u, 10u, 11u, 26u})
        for (const unsigned int rows : {2u, 5u, 17u})
            for (unsigned int columnStep = 1; columnStep < 13; ++columnStep)
                for (const unsigned int rowStep : {1u, 2u, 3u, 5u, 6u, 40u}) {
                    const FrameLines lines(columns - 1, rows - 1, columnStep, rowStep);
                    const std::vector<unsigned int> expected =
                        PlainFrameLines(columns, rows, columnStep, rowStep);
                    ASSERT_EQ(lines.IndexCount(), expected.size());
                    std::vector<unsigned int> indices(expected.size());
                    lines.Fill(indices.data());
                    EXPECT_EQ(indices, expected)
                        << columns << ' ' << rows << ' ' << columnStep << ' ' << rowStep;
                }
}

TEST(FrameLineIndices, AreNoneWithoutAStepOrCells) {
    EXPECT_EQ(FrameLines(5, 5, 0, 1).IndexCount(), 0u);
    EXPECT_EQ(FrameLines(5, 5, 1, 0).IndexCount(), 0u);
    EXPECT_EQ(FrameLines(0, 5, 1, 1).IndexCount(), 0u);
    EXPECT_EQ(FrameLines(0, 0, 1, 1).IndexCount(), 0u);
    FrameLines(5, 0, 1, 1).Fill(nullptr);
}
