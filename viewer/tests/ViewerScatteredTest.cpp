// Grids from points: in any order, clipped, and scattered.
#include "GdalReader.h"
#include "GridReader.h"
#include "Numbers.h"
#include "ViewerData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::HasSubstr;

namespace {

std::string Line(double x, double y, double z) {
    return FormatNumber(x) + ' ' + FormatNumber(y) + ' ' + FormatNumber(z) + '\n';
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

// The points of a grid of 20 x 15 in no order, as far as they are wanted.
template <typename Wanted>
std::string Shuffled(Wanted wanted) {
    std::vector<std::string> lines;
    for (int r = 0; r < 15; ++r)
        for (int c = 0; c < 20; ++c)
            if (wanted(c, r)) lines.push_back(Line(440000.5 + c, 5630000 + 2 * r, 100 * r + c));
    std::shuffle(lines.begin(), lines.end(), std::mt19937(1));
    return Joined(lines);
}

// A plane over a square, at scattered places; its corners come first.
double Plane(double x, double y) {
    return 3 * x - 2 * y + 7;
}

std::string Scattered(int count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(0, 100);
    std::string text;
    for (const double x : {0.0, 100.0})
        for (const double y : {0.0, 100.0})
            text += Line(5000 + x, y, Plane(x, y));
    for (int i = 0; i < count; ++i) {
        const double x = place(random), y = place(random);
        text += Line(5000 + x, y, Plane(x, y));
    }
    return text;
}

GridData Read(const std::string& text, GridMethod method, double cell, double radius = 0.0) {
    ReadOptions options;
    options.method = method;
    options.cell = cell;
    options.radius = radius;
    return ReadGrid(text, "s.xyz", {}, options);
}

double ValueAt(const GridData& grid, std::size_t column, std::size_t row) {
    return grid.origin[2] + static_cast<double>(grid.z[row * grid.ColumnCount() + column]);
}

TEST(ViewerScatteredTest, FindsGridsInAnyOrder) {
    const GridData grid = ReadGrid(Shuffled([](int, int) { return true; }), "s.xyz");
    ASSERT_EQ(grid.ColumnCount(), 20U);
    ASSERT_EQ(grid.RowCount(), 15U);
    EXPECT_EQ(grid.note, "");
    for (std::size_t r = 0; r < 15; ++r)
        for (std::size_t c = 0; c < 20; ++c)
            EXPECT_EQ(ValueAt(grid, c, r), 100.0 * static_cast<double>(r) + static_cast<double>(c));
}

TEST(ViewerScatteredTest, FindsGridsThatAreClipped) {
    const auto isInside = [](int c, int r) { return (c - 10) * (c - 10) + (r - 7) * (r - 7) <= 64; };
    const GridData grid = ReadGrid(Shuffled(isInside), "s.xyz");
    ASSERT_EQ(grid.ColumnCount(), 17U);
    ASSERT_EQ(grid.RowCount(), 15U);
    EXPECT_THAT(grid.note, HasSubstr(" of 17 x 15 points are not in the file"));
    EXPECT_EQ(ValueAt(grid, 8, 7), 710.0);
    EXPECT_TRUE(std::isnan(ValueAt(grid, 0, 0)));
}

class ViewerGriddingTest : public testing::Test {
protected:
    void SetUp() override {
        if (!HasGdal()) GTEST_SKIP() << "built without GDAL";
    }
};

TEST_F(ViewerGriddingTest, InterpolatesLinearly) {
    const GridData grid = Read(Scattered(500), GridMethod::linear, 2.5);
    ASSERT_EQ(grid.ColumnCount(), 41U);
    ASSERT_EQ(grid.RowCount(), 41U);
    EXPECT_EQ(grid.note, "504 scattered points, linear on cells of 2.5");
    EXPECT_EQ(AbsoluteNumber(grid.origin[0], grid.x[4]), 5010.0);
    for (std::size_t r = 0; r < 41; ++r)
        for (std::size_t c = 0; c < 41; ++c)
            ASSERT_NEAR(ValueAt(grid, c, r),
                        Plane(2.5 * static_cast<double>(c), 2.5 * static_cast<double>(r)), 1e-4)
                << c << ", " << r;
}

TEST_F(ViewerGriddingTest, TakesTheCellsFromTheDensity) {
    const GridData coarse = ReadGrid(Scattered(30), "s.xyz");
    EXPECT_EQ(coarse.ColumnCount(), 101U);
    EXPECT_THAT(coarse.note, HasSubstr("linear on cells of 1"));
    EXPECT_EQ(ReadGrid(Scattered(10000), "s.xyz").note, "10004 scattered points, linear on cells of 0.5");
}

// Of a triangle the half of its square has values.
TEST_F(ViewerGriddingTest, LeavesHolesOutsideTheHull) {
    const GridData grid = ReadGrid("0 0 1\n10 0 2\n0 10 3\n", "s.xyz");
    ASSERT_EQ(grid.ColumnCount(), 101U);
    EXPECT_NEAR(ValueAt(grid, 50, 0), 1.5, 1e-6);
    EXPECT_NEAR(ValueAt(grid, 0, 50), 2, 1e-6);
    EXPECT_NEAR(ValueAt(grid, 50, 50), 2.5, 1e-6);
    EXPECT_TRUE(std::isnan(ValueAt(grid, 51, 50)));
    EXPECT_EQ(std::count_if(grid.z.begin(), grid.z.end(), [](float z) { return std::isfinite(z); }),
              101 * 102 / 2);
}

// The edges of a turned survey lie on lines, but for rounding: what is between three of their points alone is
// no triangle.
TEST_F(ViewerGriddingTest, KeepsToThePlaneAlongSlantedEdges) {
    std::string text;
    for (int i = 0; i <= 30; ++i)
        for (int j = 0; j <= 30; ++j) {
            const double x = 0.3 * i - 0.1 * j, y = 0.1 * i + 0.3 * j;
            text += Line(x, y, Plane(x, y));
        }
    ReadOptions options;
    options.method = GridMethod::linear;
    options.cell = 0.1;
    const GridData grid = ReadGrid(text, "turned.xyz", {}, options);
    for (std::size_t i = 0; i < grid.z.size(); ++i) {
        if (std::isnan(grid.z[i])) continue;
        const double x = AbsoluteNumber(grid.origin[0], grid.x[i % grid.ColumnCount()]);
        const double y = AbsoluteNumber(grid.origin[1], grid.y[i / grid.ColumnCount()]);
        ASSERT_NEAR(AbsoluteNumber(grid.origin[2], grid.z[i]), Plane(x, y), 1e-4) << x << ", " << y;
    }
}

TEST_F(ViewerGriddingTest, LeavesHolesBeyondTheRadius) {
    const std::string text = Scattered(500);
    for (const GridMethod method : {GridMethod::nearest, GridMethod::inverseDistance}) {
        const GridData grid = Read(text + Line(5200, 50, 0), method, 5, 20);
        EXPECT_TRUE(std::isnan(ValueAt(grid, 30, 10))) << NameOf(method);
        EXPECT_NEAR(ValueAt(grid, 10, 10), Plane(50, 50), 20) << NameOf(method);
        EXPECT_EQ(ValueAt(grid, 40, 10), 0) << NameOf(method);
        EXPECT_EQ(ValueAt(grid, 0, 0), 7) << NameOf(method);
    }
    EXPECT_FALSE(std::isnan(ValueAt(Read(text + Line(5200, 50, 0), GridMethod::linear, 5), 30, 10)));
    EXPECT_TRUE(std::isnan(ValueAt(Read(text + Line(5200, 50, 0), GridMethod::linear, 5, 20), 30, 10)));
}

TEST_F(ViewerGriddingTest, RefusesWhatMakesNoSurface) {
    const char* const three = "s.xyz: a surface needs at least three points that do not lie on a line";
    EXPECT_EQ(MessageOf([] { ReadGrid("0 0 1\n1 1 2\n", "s.xyz"); }), three);
    EXPECT_EQ(MessageOf([] { ReadGrid("0 0 1\n0 0 2\n", "s.xyz"); }), three);
    EXPECT_EQ(MessageOf([] { ReadGrid("0 0 1\n1 1 2\n3 5 nan\n2 2 4\n3 3 nan\n", "s.xyz"); }), three);
    EXPECT_EQ(MessageOf([] { ReadGrid("0.1 0.2 1\n0.2 0.4 2\n0.3 0.6 4\n", "s.xyz"); }), three);
    EXPECT_EQ(MessageOf([] { Read(Scattered(5), GridMethod::linear, 1e-3); }),
              "s.xyz: too many points; at most 16777216 can be shown");
}

} // namespace
