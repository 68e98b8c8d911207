// One grid minus another.
#include "Content.h"
#include "Difference.h"
#include "GridReader.h"
#include "Numbers.h"
#include "Options.h"
#include "Session.h"
#include "ViewerData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;

namespace {

GridData Grid(const std::vector<float>& x, const std::vector<float>& y, const std::vector<float>& z) {
    GridData grid;
    grid.x = x;
    grid.y = y;
    grid.z = z;
    grid.title = "grid";
    return grid;
}

TEST(ViewerDifferenceTest, SubtractsValuesOfTheSamePlaces) {
    const GridData upper = Grid({0, 1, 2}, {0, 1}, {5, 6, 7, 8, 9, hole});
    const GridData lower = Grid({0, 1, 2}, {0, 1}, {1, 1, hole, 2, 2, 2});
    const GridData difference = DifferenceOf(upper, lower);
    EXPECT_TRUE(AreSame(difference.z, {4, 5, hole, 6, 7, hole}));
    EXPECT_EQ(difference.title, "grid - grid");
    EXPECT_EQ(difference.x, upper.x);
}

// x + 10 y + x y / 2 lies between four points as it does at them.
TEST(ViewerDifferenceTest, InterpolatesBetweenPoints) {
    const auto height = [](float x, float y) { return x + 10.0f * y + 0.5f * x * y; };
    std::vector<float> coarse, fine;
    for (const float y : {-1.0f, 3.0f})
        for (const float x : {-1.0f, 1.0f, 5.0f})
            coarse.push_back(height(x, y));
    const std::vector<float> xs = {-0.5f, 0.25f, 1.0f, 4.75f}, ys = {-1.0f, 0.0f, 2.5f};
    for (const float y : ys)
        for (const float x : xs)
            fine.push_back(height(x, y) + 7.0f);
    const GridData difference = DifferenceOf(Grid(xs, ys, fine), Grid({-1, 1, 5}, {-1, 3}, coarse));
    for (const float z : difference.z)
        EXPECT_NEAR(AbsoluteNumber(difference.origin[2], z), 7.0, 1e-4);
}

TEST(ViewerDifferenceTest, LeavesHolesOutside) {
    const GridData difference =
        DifferenceOf(Grid({0, 1, 2}, {0, 1}, {1, 2, 3, 4, 5, 6}), Grid({0.5f, 1.5f}, {0, 1}, {0, 0, 0, 0}));
    EXPECT_TRUE(AreSame(difference.z, {hole, 2, hole, hole, 5, hole}));
    EXPECT_EQ(MessageOf([] {
                  DifferenceOf(Grid({0, 1}, {0, 1}, {1, 2, 3, 4}), Grid({5, 6}, {0, 1}, {1, 2, 3, 4}));
              }),
              "grid - grid: no place has a value of both");
}

// Each grid has an origin of its own.
TEST(ViewerDifferenceTest, CountsInAbsoluteNumbers) {
    GridData upper = Grid({0, 1}, {0, 1}, {0.5f, 1, 2, 3});
    GridData lower = Grid({10, 11}, {0, 1}, {0, 0, 1, 1});
    upper.origin[0] = 440010.0;
    lower.origin[0] = 440000.0;
    upper.origin[2] = 1e6;
    lower.origin[2] = 1e6 - 2.0;
    const GridData difference = DifferenceOf(upper, lower);
    EXPECT_TRUE(AreSame(difference.z, {2.5f, 3, 3, 4}));
    EXPECT_EQ(difference.origin[0], 440010.0);
    EXPECT_EQ(difference.origin[2], 0.0);
}

TEST(ViewerDifferenceTest, ComesFromTheCommandLineAndStaysInSessions) {
    const char* const arguments[] = {"kivo-viewer", KIVO_TEST_DATA "/hill.csv", "--minus",
                                     KIVO_TEST_DATA "/hill.csv"};
    const Options options = ParseOptions(4, arguments);
    const Content content = LoadContent(options, nullptr);
    for (const float z : content.grid.z)
        EXPECT_EQ(z, 0.0f);
    EXPECT_EQ(content.grid.path, KIVO_TEST_DATA "/hill.csv");
    Session session;
    session.minus = options.minus;
    session.minusReading.decimalMark = ',';
    session.surfaces.resize(1);
    const Session read = ReadSession(WriteSession(session, "a.kivo"), "a.kivo");
    EXPECT_EQ(read.minus, options.minus);
    const Options again = WithSession(Options(), read);
    EXPECT_EQ(again.minus, options.minus);
    EXPECT_EQ(MinusReadingOf(again).decimalMark, ',');
}

} // namespace
