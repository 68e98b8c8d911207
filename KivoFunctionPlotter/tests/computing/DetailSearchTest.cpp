// The detail that a time allows, by frames whose times are known.
#include "computing/DetailSearch.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace KivoDrawingTools;

namespace {

// Draws nothing, and takes 4 ms and 1 ms for each thousand points.
struct Plot {
    unsigned int side;
    std::vector<unsigned int> measured = {};

    unsigned int Within(double milliseconds) {
        measured.clear();
        return DetailWithin(milliseconds, side, [this](unsigned int pointsPerSide) {
            measured.push_back(pointsPerSide);
            return MeasuredFrame{4.0 + 1e-3 * pointsPerSide * pointsPerSide, pointsPerSide >= side};
        });
    }
};

} // namespace

TEST(DetailSearch, FindsThePointsThatTakeTheTime) {
    Plot plot = {1000};
    for (const double time : {4.5, 8.0, 20.0, 66.0, 300.0, 1000.0})
        EXPECT_EQ(plot.Within(time), static_cast<unsigned int>(std::sqrt((time - 4.0) * 1000.0))) << time;
    EXPECT_EQ(plot.Within(20.0), 126U);
    EXPECT_THAT(plot.measured, testing::ElementsAre(10, 20, 40, 80, 160));
}

TEST(DetailSearch, GivesTenWhereNothingIsFastEnough) {
    Plot plot = {1000};
    for (const double time : {4.05, 3.0, 1e-300}) {
        EXPECT_EQ(plot.Within(time), 10U) << time;
        EXPECT_THAT(plot.measured, testing::ElementsAre(10));
    }
}

TEST(DetailSearch, GivesNoneWhereEverythingIsFastEnough) {
    Plot plot = {100};
    for (const double time : {14.0, 1000.0, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(plot.Within(time), 0U) << time;
        EXPECT_THAT(plot.measured, testing::ElementsAre(10, 20, 40, 80, 100));
    }
    EXPECT_EQ(plot.Within(13.9), 99U) << "between 80 and all";
}

// Where even the whole has fewer points than the first frame.
TEST(DetailSearch, KnowsSmallGrids) {
    Plot plot = {6};
    EXPECT_EQ(plot.Within(5.0), 0U);
    EXPECT_EQ(plot.Within(3.0), 10U);
    EXPECT_THAT(plot.measured, testing::ElementsAre(6));
}

TEST(DetailSearch, EndsWithTheNumbers) {
    Plot plot = {std::numeric_limits<unsigned int>::max()};
    EXPECT_EQ(plot.Within(std::numeric_limits<double>::infinity()), 0U);
    EXPECT_EQ(plot.measured.size(), 30U);
}
