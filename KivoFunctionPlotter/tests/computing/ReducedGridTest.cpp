// Which points of a grid remain, and where cells of what remains have holes.
#include "computing/ReducedGrid.h"
#include "computing/MeshArrays.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr float hole = std::numeric_limits<float>::quiet_NaN();

std::vector<std::size_t> KeptOf(unsigned int points, unsigned int most) {
    const KeptSide side = KeepAtMost(points, most);
    std::vector<std::size_t> kept;
    for (std::size_t i = 0; i < side.Count(); ++i)
        kept.push_back(side.Source(i));
    return kept;
}

// Points that tell where they are from: column, row, and number as the z.
std::vector<float> NumberedPoints(unsigned int columns, unsigned int rows, std::size_t components) {
    std::vector<float> points;
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c) {
            points.insert(points.end(), {float(c), float(r), float(r * columns + c)});
            for (std::size_t k = 3; k < components; ++k)
                points.push_back(1.0f);
        }
    return points;
}

// Straight from the words: any point from one kept one to the next, both included, of both sides.
bool HasHole(const ReducedGrid& grid, const std::vector<float>& points, std::size_t components,
             std::size_t cellColumn, std::size_t cellRow) {
    for (std::size_t r = grid.rows.Source(cellRow); r <= grid.rows.Source(cellRow + 1); ++r)
        for (std::size_t c = grid.columns.Source(cellColumn); c <= grid.columns.Source(cellColumn + 1); ++c)
            for (std::size_t k = 0; k < (components <= 4 ? components : 3); ++k)
                if (std::isnan(points[(r * grid.columns.points + c) * components + k])) return true;
    return false;
}

ReducedGrid Reduce(unsigned int columns, unsigned int rows, unsigned int most) {
    return {KeepAtMost(columns, most), KeepAtMost(rows, most)};
}

} // namespace

TEST(KeptSide, HasEveryStepthPointAndTheLast) {
    using testing::ElementsAre;
    EXPECT_THAT(KeptOf(10, 4), ElementsAre(0, 3, 6, 9));
    EXPECT_THAT(KeptOf(11, 4), ElementsAre(0, 4, 8, 10));
    EXPECT_THAT(KeptOf(11, 2), ElementsAre(0, 10));
    EXPECT_THAT(KeptOf(5, 5), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(KeptOf(5, 4), ElementsAre(0, 2, 4));
    EXPECT_THAT(KeptOf(2, 2), ElementsAre(0, 1));
    EXPECT_THAT(KeptOf(1, 2), ElementsAre(0));
    EXPECT_THAT(KeptOf(0, 2), ElementsAre());
}

TEST(KeptSide, TakesTheSmallestStepThatIsEnough) {
    for (unsigned int points = 2; points < 200; ++points)
        for (unsigned int most = 2; most < 210; ++most) {
            const KeptSide side = KeepAtMost(points, most);
            ASSERT_LE(side.Count(), most) << points;
            ASSERT_EQ(side.Source(0), 0U);
            ASSERT_EQ(side.Source(side.Count() - 1), points - 1);
            if (side.step > 1) {
                const KeptSide finer = {points, side.step - 1};
                ASSERT_GT(finer.Count(), most) << points;
            }
        }
}

TEST(KeptSide, CountsToTheEndOfTheNumbers) {
    constexpr unsigned int most = std::numeric_limits<unsigned int>::max();
    EXPECT_EQ(KeepAtMost(most, 2).Count(), 2U);
    EXPECT_EQ(KeepAtMost(most, 2).Source(1), most - 1U);
    EXPECT_EQ(KeepAtMost(most, most).Count(), most);
    EXPECT_EQ(KeepAtMost(most, most - 1).Count(), (most - 2) / 2 + 2);
    EXPECT_EQ(KeepAtMost(10, most).step, 1U);
}

TEST(ReducedGrid, CopiesTheFirstFloatsOfWhatRemains) {
    for (const std::size_t components : {3, 4, 7}) {
        const std::vector<float> points = NumberedPoints(11, 9, components);
        const ReducedGrid grid = Reduce(11, 9, 4);
        ASSERT_EQ(grid.Count(), 4U * 4U);
        std::vector<float> kept(grid.Count() * 3);
        CopyKept(grid, points.data(), components, 3, kept.data());
        auto next = kept.begin();
        for (const float r : {0.0f, 3.0f, 6.0f, 8.0f})
            for (const float c : {0.0f, 4.0f, 8.0f, 10.0f}) {
                EXPECT_EQ(next[0], c);
                EXPECT_EQ(next[1], r);
                EXPECT_EQ(next[2], r * 11 + c);
                next += 3;
            }
    }
}

// One number is missing, each in turn.
TEST(ReducedGrid, LosesNoHoleOfASinglePoint) {
    constexpr unsigned int columns = 12, rows = 9;
    const ReducedGrid grid = Reduce(columns, rows, 5);
    for (const std::size_t components : {3, 4, 6}) {
        const std::vector<float> whole = NumberedPoints(columns, rows, components);
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::vector<float> points = whole;
            points[i] = hole;
            const std::vector<unsigned char> marks = MarkHoles(grid, points.data(), components);
            const std::size_t cellColumns = grid.columns.Count() - 1;
            ASSERT_EQ(marks.size(), cellColumns * (grid.rows.Count() - 1));
            for (std::size_t cell = 0; cell < marks.size(); ++cell)
                ASSERT_EQ(marks[cell] != 0,
                          HasHole(grid, points, components, cell % cellColumns, cell / cellColumns))
                    << "float " << i << ", cell " << cell;
            const bool counts = i % components < (components <= 4 ? components : 3);
            ASSERT_EQ(std::count(marks.begin(), marks.end(), 0) < std::ptrdiff_t(marks.size()), counts) << i;
        }
    }
}

TEST(ReducedGrid, MarksManyHoles) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t end) { return static_cast<unsigned int>(random() % end); };
    for (int round = 0; round < 200; ++round) {
        const unsigned int columns = 2 + below(40), rows = 2 + below(40);
        const ReducedGrid grid = Reduce(columns, rows, 2 + below(20));
        std::vector<float> points = NumberedPoints(columns, rows, 3);
        for (unsigned int i = below(30); i > 0; --i)
            points[below(points.size())] = hole;
        const std::vector<unsigned char> marks = MarkHoles(grid, points.data(), 3);
        const std::size_t cellColumns = grid.columns.Count() - 1;
        for (std::size_t cell = 0; cell < marks.size(); ++cell)
            ASSERT_EQ(marks[cell] != 0, HasHole(grid, points, 3, cell % cellColumns, cell / cellColumns));
    }
}

TEST(ReducedGrid, HasTwoTrianglesInEachCellWithoutAHole) {
    const ReducedGrid grid = Reduce(10, 7, 4); // 3 x 3 cells of 4 x 4 points
    EXPECT_THAT(ReducedTriangles(grid, {}), testing::SizeIs(9 * 6));
    const std::vector<unsigned char> holes = {0, 1, 0, 1, 1, 1, 0, 0, 1};
    EXPECT_THAT(ReducedTriangles(grid, holes), testing::ElementsAre(0, 1, 5, 0, 5, 4, 2, 3, 7, 2, 7, 6, 8, 9,
                                                                    13, 8, 13, 12, 9, 10, 14, 9, 14, 13));
    EXPECT_THAT(ReducedTriangles(grid, std::vector<unsigned char>(9, 1)), testing::IsEmpty());
}

// Cells of the whole grid that lie between lines of the reduced one.
TEST(ReducedGrid, HasFrameLinesNearTheirOwnSteps) {
    const auto lines = [](unsigned int columnStep, unsigned int rowStep) {
        return ReducedFrameLines(Reduce(61, 41, 21), columnStep, rowStep, {}); // steps 3 and 2
    };
    const auto expected = [](unsigned int columnStep, unsigned int rowStep) {
        const FrameLines frame(20, 20, columnStep, rowStep);
        std::vector<unsigned int> indices(frame.IndexCount());
        frame.Fill(indices.data());
        return indices;
    };
    EXPECT_EQ(lines(1, 1), expected(1, 1));
    EXPECT_EQ(lines(3, 2), expected(1, 1));
    EXPECT_EQ(lines(12, 12), expected(4, 6));
    EXPECT_EQ(lines(5, 3), expected(2, 2)); // 5/3 and 3/2
    EXPECT_EQ(lines(4, 5), expected(1, 3)); // 4/3 and 5/2
    EXPECT_EQ(lines(1000, 4000000000), expected(20, 20)) << "the borders alone";
    EXPECT_THAT(lines(0, 1), testing::IsEmpty());
    EXPECT_THAT(lines(1, 0), testing::IsEmpty());
}

// A segment stays where a cell beside it is whole.
TEST(ReducedGrid, HasNoFrameLinesInHoles) {
    const ReducedGrid grid = Reduce(10, 7, 4);
    const std::vector<unsigned char> holes = {0, 1, 0, 1, 1, 1, 0, 0, 1};
    const std::vector<unsigned int> all = ReducedFrameLines(grid, 1, 1, {});
    const std::vector<unsigned int> kept = ReducedFrameLines(grid, 1, 1, holes);
    using Segment = std::pair<unsigned int, unsigned int>;
    std::set<Segment> expected;
    for (unsigned int r = 0; r < 3; ++r)
        for (unsigned int c = 0; c < 3; ++c) {
            if (holes[r * 3 + c] != 0) continue;
            const unsigned int corner = r * 4 + c;
            for (const Segment& side : {Segment{corner, corner + 1}, Segment{corner + 4, corner + 5},
                                        Segment{corner, corner + 4}, Segment{corner + 1, corner + 5}})
                expected.insert(side);
        }
    std::set<Segment> found;
    for (std::size_t i = 0; i < kept.size(); i += 2)
        found.insert({kept[i], kept[i + 1]});
    EXPECT_EQ(found, expected);
    EXPECT_EQ(kept.size(), 2 * expected.size());
    EXPECT_EQ(all.size(), 2U * 24U);
}
