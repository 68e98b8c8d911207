// Level lines: the tracer against independent ones, and where the levels lie.
#include "computing/MarchingSquares.h"
#include "support/PlainLoops.h"
#include "support/TestSurfaces.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Point = std::array<double, 3>;

std::vector<Point> Trace(const TestSurface& surface, int axis, float level) {
    const GridView grid = {surface.points.data(), surface.columns, surface.rows, 3, 3 * surface.columns};
    const std::vector<LevelLines> lines = TraceLevelLines(grid, axis, {level});
    std::vector<Point> traced;
    for (std::uint64_t i = 0; i < lines.at(0).pointCount; ++i) {
        const float* p = &lines[0].points[3 * i];
        traced.push_back({p[0], p[1], p[2]});
    }
    return traced;
}

// One segment after the other as a person would draw them in a cell: from the sides that the level crosses,
// in the order bottom, right, top, left; where all four are crossed, the corner c, r decides which of them
// belong together.
std::vector<Point> TraceByHand(const TestSurface& surface, int axis, double level) {
    std::vector<Point> traced;
    for (unsigned int r = 0; r + 1 < surface.rows; ++r)
        for (unsigned int c = 0; c + 1 < surface.columns; ++c) {
            const float* corners[] = {surface.Point(c, r), surface.Point(c + 1, r),
                                      surface.Point(c + 1, r + 1), surface.Point(c, r + 1)};
            std::vector<Point> crossings;
            for (int side = 0; side < 4; ++side) {
                const float* a = corners[side];
                const float* b = corners[(side + 1) % 4];
                const double from = a[axis], to = b[axis];
                if ((from < level) == (to < level)) continue;
                Point p;
                for (std::size_t i = 0; i < 3; ++i)
                    p[i] = a[i] + (level - from) / (to - from) * (double{b[i]} - a[i]);
                crossings.push_back(p);
            }
            if (crossings.size() == 4 && corners[0][axis] < level)
                crossings = {crossings[0], crossings[3], crossings[1], crossings[2]};
            traced.insert(traced.end(), crossings.begin(), crossings.end());
        }
    return traced;
}

// A single cell whose corner i is above the level 0.5 unless bit i is set.
TestSurface Cell(unsigned int belowBits) {
    TestSurface cell = PlaneSurface(2, 2);
    const unsigned int cornerOfPoint[] = {0, 1, 3, 2};
    for (unsigned int point = 0; point < 4; ++point) {
        cell.points[3 * point] = static_cast<float>(point % 2);
        cell.points[3 * point + 1] = static_cast<float>(point / 2);
        cell.points[3 * point + 2] = belowBits >> cornerOfPoint[point] & 1u ? 0.0f : 1.0f;
    }
    return cell;
}

} // namespace

TEST(LevelLines, EveryCellCaseCrossesItsSides) {
    // Sides: 0 bottom, 1 right, 2 top, 3 left, by the middles of which the lines go.
    const Point middles[] = {{0.5, 0, 0.5}, {1, 0.5, 0.5}, {0.5, 1, 0.5}, {0, 0.5, 0.5}};
    const std::vector<std::vector<int>> sides = {{},     {0, 3}, {0, 1}, {1, 3}, {1, 2},       {0, 3, 1, 2},
                                                 {0, 2}, {2, 3}, {2, 3}, {0, 2}, {0, 1, 2, 3}, {1, 2},
                                                 {1, 3}, {0, 1}, {0, 3}, {}};
    for (unsigned int bits = 0; bits < 16; ++bits) {
        const std::vector<Point> traced = Trace(Cell(bits), 2, 0.5f);
        ASSERT_EQ(traced.size(), sides[bits].size()) << bits;
        for (std::size_t i = 0; i < traced.size(); ++i)
            EXPECT_EQ(traced[i], middles[sides[bits][i]]) << bits;
    }
}

TEST(LevelLines, ACornerOnTheLevelCountsAsAbove) {
    EXPECT_TRUE(Trace(Cell(0), 2, 1.0f).empty());
    EXPECT_EQ(Trace(Cell(1), 2, 1.0f).size(), 2u);
    EXPECT_TRUE(Trace(ConstantSurface(5, 4), 2, 5.0f).empty());
}

TEST(LevelLines, AgreeWithAnIndependentTracer) {
    for (const TestSurface& surface : AllTestSurfaces())
        for (int axis = 0; axis < 3; ++axis) {
            const double range = double{surface.Max(axis)} - surface.Min(axis);
            for (int k = 1; k < 12; ++k) {
                const float level = static_cast<float>(surface.Min(axis) + range * k / 12.3);
                const std::vector<Point> traced = Trace(surface, axis, level);
                const std::vector<Point> expected = TraceByHand(surface, axis, level);
                ASSERT_EQ(traced.size(), expected.size());
                for (std::size_t i = 0; i < traced.size(); ++i) {
                    EXPECT_LE(std::fabs(traced[i][axis] - level), 1e-6 * range);
                    for (int coordinate = 0; coordinate < 3; ++coordinate)
                        ASSERT_NEAR(traced[i][coordinate], expected[i][coordinate], 1e-4);
                }
            }
        }
}

TEST(LevelLines, GridsWithoutCellsHaveNone) {
    const float points[] = {0, 0, 0, 1, 0, 1};
    for (const GridView& grid : {GridView{points, 2, 1, 3, 6}, GridView{nullptr, 0, 0, 3, 0}}) {
        const std::vector<LevelLines> lines = TraceLevelLines(grid, 2, {0.5f, 0.6f});
        ASSERT_EQ(lines.size(), 2u);
        EXPECT_EQ(lines[0].points, nullptr);
        EXPECT_EQ(lines[0].pointCount, 0u);
    }
}

// Every level of a walk has the very points, in the same order, that a plain walk for it alone has.
void ExpectPlainLines(const GridView& grid, int axis, const std::vector<float>& levels) {
    const std::vector<LevelLines> lines = TraceLevelLines(grid, axis, levels);
    ASSERT_EQ(lines.size(), levels.size());
    for (std::size_t k = 0; k < levels.size(); ++k) {
        const std::vector<float> expected = PlainLevelLines(grid, axis, levels[k]);
        ASSERT_EQ(3 * lines[k].pointCount, expected.size()) << "level " << levels[k];
        EXPECT_EQ(lines[k].points == nullptr, expected.empty());
        EXPECT_TRUE(AreIdentical(lines[k].points.get(), expected.data(), expected.size()));
    }
}

// What the plotter's own choices of levels are over the values that a grid has.
void ExpectPlainContours(const GridView& grid, unsigned int count) {
    float min[3], max[3];
    PlainBounds(grid, min, max);
    for (int axis = 0; axis < 3; ++axis) {
        ExpectPlainLines(grid, axis, ContourLevelsOfHeight(min[axis], max[axis], count));
        ExpectPlainLines(grid, axis, ContourLevelsInside(min[axis], max[axis], count));
    }
}

TEST(LevelLines, AreThoseOfPlainWalks) {
    for (const TestSurface& surface : AllTestSurfaces())
        for (const unsigned int count : {1u, 2u, 7u, 20u, 300u})
            ExpectPlainContours(
                {surface.points.data(), surface.columns, surface.rows, 3, 3 * surface.columns}, count);
}

TEST(LevelLines, AreThoseOfPlainWalksWhateverTheNumbers) {
    constexpr float inf = std::numeric_limits<float>::infinity();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    std::mt19937 random(7);
    for (const float scale : {1.0f, 1e-38f, 1e-42f, 1e30f, 3e38f})
        for (const float offset : {0.0f, 6e6f, -1e-3f})
            for (const float odd : {0.0f, nan, inf, -inf}) {
                TestSurface surface = PlaneSurface(23, 17);
                for (float& value : surface.points) {
                    value = offset + scale * std::uniform_real_distribution<float>(-0.5f, 0.5f)(random);
                    if (odd != 0.0f && random() % 40 == 0) value = odd;
                }
                surface.points[0] = surface.points[1] = surface.points[2] = offset; // a first number
                const GridView grid = {surface.points.data(), 23, 17, 3, 3 * 23};
                ExpectPlainContours(grid, 20);
                ExpectPlainLines(grid, 2,
                                 {-inf, offset - scale / 4, offset, offset, offset + scale / 8, inf});
                ExpectPlainLines(grid, 2, {nan, offset, nan});
            }
}

// The ranks of values are bounded by where even levels would lie; these are off by a good part of a step.
TEST(LevelLines, OfNearlyEvenLevelsAreThoseOfPlainWalks) {
    std::mt19937 random(3);
    TestSurface surface = PlaneSurface(40, 30);
    for (float& value : surface.points)
        value = std::uniform_real_distribution<float>(-1.0f, 31.0f)(random);
    for (const float most : {0.1f, 0.24f, 0.3f}) {
        std::vector<float> levels(31);
        for (std::size_t k = 0; k < levels.size(); ++k)
            levels[k] = static_cast<float>(k) + std::uniform_real_distribution<float>(-most, most)(random);
        levels.front() = 0.0f;
        levels.back() = 30.0f;
        ExpectPlainLines({surface.points.data(), 40, 30, 3, 120}, 2, levels);
    }
}

TEST(LevelLines, FollowStrides) {
    std::vector<float> points(4 * 40);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = static_cast<float>((i * 7919) % 101);
    ExpectPlainContours({points.data(), 5, 6, 4, 24}, 20);
    ExpectPlainContours({points.data(), 6, 5, 24, 4}, 20); // columns and rows exchanged
}

TEST(LevelLines, MoreLevelsThanOneWalkTakesAreTracedToo) {
    const TestSurface surface = NoiseSurface(4, 4);
    ExpectPlainContours({surface.points.data(), 4, 4, 3, 12}, 40000);
}

TEST(ContourLevels, OfHeightArePulledInFromTheExtremes) {
    const std::vector<float> levels = ContourLevelsOfHeight(0, 19, 20);
    ASSERT_EQ(levels.size(), 20u);
    for (int k = 0; k < 20; ++k)
        EXPECT_NEAR(levels[k], 0.2 + 18.6 / 19 * k, 1e-5);
}

// The bands between the contours end at them.
TEST(ContourLevels, OfHeightAreTheSameInDoublePrecision) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> part(-1.0f, 1.0f);
    for (int power = -30; power <= 36; power += 3)
        for (const unsigned int count : {2u, 3u, 10u, 20u, 200u}) {
            const auto size = static_cast<float>(std::pow(10.0, power));
            const float min = size * part(random), max = min + size * (1.1f + part(random));
            SCOPED_TRACE(testing::Message() << count << " levels from " << min << " to " << max);
            const std::vector<float> levels = ContourLevelsOfHeight(min, max, count);
            const std::vector<float> doubled = LevelsAt(LevelStepsOf(min, max, count));
            ASSERT_EQ(doubled.size(), levels.size());
            for (std::size_t i = 0; i < levels.size(); ++i)
                EXPECT_NEAR(levels[i], doubled[i], 1e-6f * (std::abs(min) + std::abs(max)));
        }
    EXPECT_EQ(LevelStepsOf(1, 2, 1).count, 0u);
    EXPECT_TRUE(std::isnan(ContourLevelsOfHeight(1, 2, 1)[0]));
}

TEST(ContourLevels, OfXAndYLieInside) {
    const std::vector<float> levels = ContourLevelsInside(0, 21, 20);
    ASSERT_EQ(levels.size(), 20u);
    for (int k = 1; k <= 20; ++k)
        EXPECT_NEAR(levels[k - 1], 0.2 + 20.6 / 21 * k, 1e-5);
    const std::vector<float> even = ContourLevelsEven(0, 21, 20);
    for (int k = 1; k <= 20; ++k)
        EXPECT_NEAR(even[k - 1], k, 1e-5);
}
