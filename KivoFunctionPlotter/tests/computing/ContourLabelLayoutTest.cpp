// Values at contours: lines joined from segments, and where the values stand, each checked by geometry of its
// own.
#include "computing/ContourLabelLayout.h"
#include "computing/LinePaths.h"
#include "computing/MarchingSquares.h"
#include "support/TestSurfaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

double DistanceToSegment(ScreenVector p, ScreenVector a, ScreenVector b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double t =
        square > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

std::vector<ScreenVector> CornersOf(const PlacedImage& image) {
    std::vector<ScreenVector> corners;
    for (const auto& [w, h] : {std::pair{-1.0, -1.0}, {1.0, -1.0}, {1.0, 1.0}, {-1.0, 1.0}})
        corners.push_back(
            {image.center.x + w * image.halfWidth * image.right.x + h * image.halfHeight * image.up.x,
             image.center.y + w * image.halfWidth * image.right.y + h * image.halfHeight * image.up.y});
    return corners;
}

// Whether a side of the first has all of the second beyond it.
bool IsBeside(const std::vector<ScreenVector>& a, const std::vector<ScreenVector>& b) {
    for (std::size_t i = 0; i < 4; ++i) {
        const ScreenVector from = a[i], to = a[(i + 1) % 4];
        const auto side = [&](ScreenVector p) {
            return (to.x - from.x) * (p.y - from.y) - (to.y - from.y) * (p.x - from.x);
        };
        if (std::all_of(b.begin(), b.end(), [&](ScreenVector p) { return side(p) < 0.0; })) return true;
    }
    return false;
}

bool Meet(const PlacedImage& a, const PlacedImage& b) {
    const std::vector<ScreenVector> first = CornersOf(a), second = CornersOf(b);
    return !IsBeside(first, second) && !IsBeside(second, first);
}

LinePaths OneLine(std::vector<LinePoint> points) {
    LinePaths paths;
    paths.points = std::move(points);
    paths.ends = {paths.points.size()};
    return paths;
}

constexpr PlaneOnScreen asItIs = {{0.0, 0.0}, {1.0, 0.0}, {0.0, 1.0}};
constexpr ScreenArea window = {{0.0, 0.0}, {1000.0, 700.0}};

struct TracedLevels {
    explicit TracedLevels(const TestSurface& surface, unsigned int count) {
        const GridView grid = {surface.points.data(), surface.columns, surface.rows, 3, 3u * surface.columns};
        segments = TraceLevelLines(grid, 2, ContourLevelsOfHeight(surface.Min(2), surface.Max(2), count));
        for (const LevelLines& level : segments)
            lines.push_back(JoinSegments(level.points.get(), level.pointCount));
    }
    std::vector<LevelLines> segments;
    std::vector<LinePaths> lines;
};

} // namespace

TEST(LinePathsTest, HaveEverySegmentOnceAndInOnePiece) {
    for (const TestSurface& surface : AllTestSurfaces()) {
        const TracedLevels levels(surface, 12);
        for (std::size_t k = 0; k < levels.lines.size(); ++k) {
            const LinePaths& paths = levels.lines[k];
            EXPECT_EQ(paths.points.size() - paths.ends.size(), levels.segments[k].pointCount / 2)
                << surface.name << ", a segment more or less";
            ASSERT_TRUE(paths.ends.empty() || paths.ends.back() == paths.points.size());
        }
    }
}

TEST(LinePathsTest, CloseAroundAHill) {
    constexpr unsigned int side = 40;
    TestSurface cone = PlaneSurface(side, side);
    for (std::size_t i = 0; i < cone.points.size(); i += 3)
        cone.points[i + 2] = -std::hypot(cone.points[i] - 1.03f, cone.points[i + 1] - 0.52f);
    const GridView grid = {cone.points.data(), side, side, 3, 3 * side};
    for (const float radius : {0.6f, 1.1f, 2.3f}) {
        const std::vector<LevelLines> traced = TraceLevelLines(grid, 2, {-radius});
        const LinePaths paths = JoinSegments(traced[0].points.get(), traced[0].pointCount);
        ASSERT_EQ(paths.ends.size(), 1u) << "one circle";
        const LinePoint first = paths.points.front(), last = paths.points.back();
        EXPECT_NEAR(first.x, last.x, 1e-5f);
        EXPECT_NEAR(first.y, last.y, 1e-5f);
        for (std::size_t i = 1; i < paths.points.size(); ++i)
            EXPECT_LT(std::hypot(paths.points[i].x - paths.points[i - 1].x,
                                 paths.points[i].y - paths.points[i - 1].y),
                      0.4f)
                << "a step of a cell at most";
    }
}

// At a grid point that lies on a line, segments without a length stand between the others.
TEST(LinePathsTest, GoOnThroughPointsOfTheGrid) {
    constexpr unsigned int side = 60;
    for (const float offset : {0.0f, 1000.0f, 500000.0f})
        for (const float slope : {1.0f, 2.0f, 0.0f, 0.999f}) {
            TestSurface plane = PlaneSurface(side, side);
            for (unsigned int i = 0; i < side * side; ++i) {
                const auto x = static_cast<float>(i % side), y = static_cast<float>(i / side);
                plane.points[3 * i] = offset + x;
                plane.points[3 * i + 1] = offset + y;
                plane.points[3 * i + 2] = x + slope * y;
            }
            const GridView grid = {plane.points.data(), side, side, 3, 3 * side};
            for (const LevelLines& level : TraceLevelLines(grid, 2, {10.0f, 31.0f, 45.0f})) {
                const LinePaths paths = JoinSegments(level.points.get(), level.pointCount);
                EXPECT_EQ(paths.ends.size(), 1u) << offset << ", " << slope;
                for (std::size_t i = 1; i < paths.points.size(); ++i)
                    EXPECT_TRUE(paths.points[i].x != paths.points[i - 1].x ||
                                paths.points[i].y != paths.points[i - 1].y);
            }
        }
}

// Both ends of a segment wait in one square.
TEST(LinePathsTest, GoOnThroughShortSegments) {
    constexpr float unit = 1.0f / 1048576.0f; // a square's side
    const float begin = 0.25f + 0.1f * unit, end = 0.25f + 0.7f * unit;
    const std::vector<float> points = {begin, 1, 0, end, 1, 0, 0.1f, 1, 0, begin, 1, 0, end, 1, 0, 1, 1, 0};
    const LinePaths paths = JoinSegments(points.data(), points.size() / 3);
    ASSERT_EQ(paths.ends, (std::vector<std::size_t>{4}));
    EXPECT_EQ(paths.points[0].x, 0.1f);
    EXPECT_EQ(paths.points[3].x, 1.0f);
}

TEST(LinePathsTest, AreNoneOfMoreSegmentsThanMayBeJoined) {
    const std::vector<float> points = {0, 0, 0, 1, 0, 0, 1, 0, 0, 1, 1, 0, 1, 1, 0, 2, 2, 0};
    std::uint64_t left = 4;
    EXPECT_EQ(JoinSegments(points.data(), 6, left).ends.size(), 1u);
    EXPECT_EQ(left, 1u);
    EXPECT_TRUE(JoinSegments(points.data(), 4, left).ends.empty());
    EXPECT_EQ(left, 1u);
    EXPECT_EQ(JoinSegments(points.data(), 2, left).ends.size(), 1u);
    EXPECT_EQ(left, 0u);
}

TEST(LinePathsTest, LeaveOutWhatIsNoNumber) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    constexpr float endless = std::numeric_limits<float>::infinity();
    const float points[] = {0, 0, 0, 1, 0, 0, 1, none, 0, 2, 0, 0, 1, 0, 0, 1, 1, 0, endless, 0, 0, 0, 0, 0};
    const LinePaths paths = JoinSegments(points, 8);
    ASSERT_EQ(paths.ends, (std::vector<std::size_t>{3}));
    EXPECT_EQ(paths.points[2].y, 1.0f);
    EXPECT_TRUE(JoinSegments(nullptr, 0).ends.empty());
}

TEST(ContourLabelLayoutTest, PutsOneAtALineAndMoreAtALongOne) {
    const LinePaths shortLine = OneLine({{100, 100}, {160, 100}});
    const LinePaths line = OneLine({{100, 200}, {300, 200}});
    const LinePaths longLine = OneLine({{0, 300}, {1900, 300}});
    const std::vector<LabeledLines> levels = {
        {&shortLine, {50, 12}}, {&line, {50, 12}}, {&longLine, {50, 12}}, {&line, {0, 12}}};
    const std::vector<PlacedLabel> placed =
        PlaceContourLabels(levels, asItIs, {{0.0, 0.0}, {2000.0, 700.0}}, {});
    std::map<std::size_t, int> counts;
    for (const PlacedLabel& label : placed) {
        ++counts[label.level];
        EXPECT_NEAR(label.image.center.y, 100.0 + 100.0 * static_cast<double>(label.level), 1e-9);
        EXPECT_DOUBLE_EQ(label.image.right.x, 1.0);
    }
    EXPECT_EQ(counts, (std::map<std::size_t, int>{{1, 1}, {2, 3}}))
        << "none at the short one and none without a size";
    ASSERT_FALSE(placed.empty());
    for (const PlacedLabel& label : placed)
        if (label.level == 1) {
            EXPECT_NEAR(label.image.center.x, 200.0, 8.0) << "in its middle";
        }
}

TEST(ContourLabelLayoutTest, StandsWhereTheLineIsStraight) {
    std::vector<LinePoint> points;
    for (int i = 0; i < 200; ++i) // a saw, then a straight end
        points.push_back({100.0f + 2.0f * static_cast<float>(i), 300.0f + (i % 20 < 10 ? 14.0f : -14.0f)});
    points.push_back({650.0f, 400.0f});
    const LinePaths line = OneLine(points);
    const std::vector<PlacedLabel> placed = PlaceContourLabels({{&line, {60, 12}}}, asItIs, window, {});
    ASSERT_EQ(placed.size(), 1u);
    points.pop_back();
    const LinePaths saw = OneLine(points);
    EXPECT_TRUE(PlaceContourLabels({{&saw, {60, 12}}}, asItIs, window, {}).empty());
    EXPECT_GT(placed[0].image.center.x, 500.0);
}

TEST(ContourLabelLayoutTest, KeepsClearOfOthers) {
    const LinePaths line = OneLine({{100, 200}, {300, 200}});
    PlacedImage other;
    other.center = {200, 200};
    other.halfWidth = 15;
    other.halfHeight = 15;
    other.isShown = true;
    const auto place = [&] { return PlaceContourLabels({{&line, {40, 12}}}, asItIs, window, {other}); };
    ASSERT_EQ(place().size(), 1u);
    EXPECT_FALSE(Meet(place()[0].image, other));
    other.halfWidth = 120;
    EXPECT_TRUE(place().empty());
}

TEST(ContourLabelLayoutTest, KeepsAllRulesInEveryView) {
    const TestSurface surface = TerrainSurface(60, 50);
    const TracedLevels traced(surface, 15);
    int total = 0;
    for (int view = 0; view < 60; ++view) {
        const double angle = 0.37 * view, zoom = 2.0 + 0.9 * view, mirror = view % 2 == 0 ? 1.0 : -1.0;
        PlaneOnScreen plane;
        plane.alongX = {zoom * std::cos(angle) * mirror, zoom * std::sin(angle)};
        plane.alongY = {-zoom * std::sin(angle), zoom * std::cos(angle) * mirror};
        plane.origin = {500.0 - 50.0 * (plane.alongX.x + plane.alongY.x),
                        350.0 - 50.0 * (plane.alongX.y + plane.alongY.y)};
        std::vector<LabeledLines> levels;
        for (std::size_t k = 0; k < traced.lines.size(); ++k)
            levels.push_back({&traced.lines[k], {16.0 + 5.0 * static_cast<double>(k), 12.0}});
        const std::vector<PlacedLabel> placed = PlaceContourLabels(levels, plane, window, {});
        total += static_cast<int>(placed.size());
        for (std::size_t i = 0; i < placed.size(); ++i) {
            const PlacedImage& image = placed[i].image;
            EXPECT_TRUE(image.right.x > 0.0 || image.right.y > 0.99) << "upside down";
            EXPECT_NEAR(image.right.x * image.up.y - image.right.y * image.up.x, 1.0, 1e-9) << "mirrored";
            for (const ScreenVector corner : CornersOf(image))
                EXPECT_TRUE(corner.x > 0.0 && corner.x < 1000.0 && corner.y > 0.0 && corner.y < 700.0);
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(Meet(image, placed[j].image)) << "view " << view;
            const LevelLines& level = traced.segments[placed[i].level];
            double nearest = 1e9;
            for (std::uint64_t s = 0; s < level.pointCount; s += 2) {
                const float* const p = level.points.get() + 3 * s;
                nearest = std::min(
                    nearest, DistanceToSegment(image.center, plane.At({p[0], p[1]}), plane.At({p[3], p[4]})));
            }
            EXPECT_LT(nearest, 0.5 * 12.0) << "away from its line";
        }
        const std::vector<PlacedLabel> again = PlaceContourLabels(levels, plane, window, {});
        ASSERT_EQ(again.size(), placed.size());
        for (std::size_t i = 0; i < placed.size(); ++i)
            EXPECT_EQ(again[i].image.center.x, placed[i].image.center.x);
    }
    EXPECT_GT(total, 500);
}

// Pixel by pixel, with most lines partly out of sight.
TEST(ContourLabelLayoutTest, MovesLabelsWithTheirLines) {
    const TestSurface surface = TerrainSurface(60, 50);
    const TracedLevels traced(surface, 15);
    std::vector<LabeledLines> levels;
    for (const LinePaths& lines : traced.lines)
        levels.push_back({&lines, {40.0, 12.0}});
    PlaneOnScreen plane = {{-2000.0, -1500.0}, {43.7, 5.1}, {-5.1, 43.7}};
    std::vector<PlacedLabel> before = PlaceContourLabels(levels, plane, window, {});
    int staying = 0, total = 0;
    for (int i = 0; i < 60; ++i) {
        const ScreenVector step = {i % 3 == 0 ? 0.0 : 1.0, i % 2 == 0 ? 1.0 : 0.0};
        plane.origin = {plane.origin.x + step.x, plane.origin.y + step.y};
        const std::vector<PlacedLabel> after = PlaceContourLabels(levels, plane, window, {});
        for (const PlacedLabel& label : before) {
            double nearest = 1e9;
            for (const PlacedLabel& other : after)
                if (other.level == label.level)
                    nearest =
                        std::min(nearest, std::hypot(other.image.center.x - label.image.center.x - step.x,
                                                     other.image.center.y - label.image.center.y - step.y));
            if (nearest < 4.0) {
                EXPECT_LT(nearest, 1e-9) << "crawls";
            }
            staying += nearest < 1e-9;
            ++total;
        }
        before = after;
    }
    EXPECT_GT(total, 600);
    EXPECT_GT(staying, 0.98 * total);
}

TEST(ContourLabelLayoutTest, StaysInsideAreasThatAreSmallerThanALabel) {
    const LinePaths line = OneLine({{0.0f, 4.5f}, {1000.0f, 5.5f}});
    for (const double height : {2.0, 5.0, 10.0, 14.0})
        EXPECT_TRUE(PlaceContourLabels({{&line, {40, 12}}}, asItIs, {{0, 0}, {1000, height}}, {}).empty())
            << height;
    EXPECT_FALSE(PlaceContourLabels({{&line, {40, 12}}}, asItIs, {{0, -5}, {1000, 15}}, {}).empty());
}

// Scraps of lines at the border leave room for others.
TEST(ContourLabelLayoutTest, SpendsNothingOnScraps) {
    std::vector<LinePoint> points;
    for (int i = 0; i < 70000; ++i) {
        const float x = 100.0f + 0.01f * static_cast<float>(i);
        points.insert(points.end(), {{x, -400.0f}, {x, -20.0f}});
    }
    const LinePaths scraps = OneLine(points), line = OneLine({{100, 300}, {300, 300}});
    const std::vector<PlacedLabel> placed =
        PlaceContourLabels({{&scraps, {40, 12}}, {&line, {40, 12}}}, asItIs, window, {});
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_EQ(placed[0].level, 1u);
}

// ---- Limits that keep frames quick

namespace {

// Lines one above the other, each with room for one label.
LinePaths LinesFrom(double bottom, int count) {
    LinePaths paths;
    for (int i = 0; i < count; ++i) {
        const auto y = static_cast<float>(bottom + 20.0 * i);
        paths.points.insert(paths.points.end(), {{100.0f, y}, {300.0f, y}});
        paths.ends.push_back(paths.points.size());
    }
    return paths;
}

constexpr ScreenArea highWindow = {{0.0, 0.0}, {1000.0, 20000.0}};

} // namespace

TEST(ContourLabelLayoutTest, PutsFourHundredAtMost) {
    for (const int count : {399, 400, 401, 900}) {
        const LinePaths lines = LinesFrom(100.0, count);
        const auto placed = PlaceContourLabels({{&lines, {40, 12}}}, asItIs, highWindow, {});
        EXPECT_EQ(placed.size(), std::min<std::size_t>(static_cast<std::size_t>(count), 400)) << count;
    }
    // The sections of one line count, too.
    const LinePaths line = OneLine({{0.0f, 10.0f}, {300000.0f, 10.0f}});
    const ScreenArea wide = {{0.0, 0.0}, {300000.0, 20.0}};
    EXPECT_EQ(PlaceContourLabels({{&line, {40, 12}}}, asItIs, wide, {}).size(), 400u);
}

// A million of samples, 4 pixels from each other: the lines after those have no labels.
TEST(ContourLabelLayoutTest, LooksAlongSoMuchOfLinesAtMost) {
    const LinePaths last = LinesFrom(10000.0, 1);
    const auto labelsOfLast = [&last](int rows) {
        std::vector<LinePoint> points; // to and fro, one row of 800 pixels above the other
        for (int i = 0; i < rows; ++i) {
            const float y = 100.0f + 0.5f * static_cast<float>(i);
            points.push_back({i % 2 == 0 ? 100.0f : 900.0f, y});
            points.push_back({i % 2 == 0 ? 900.0f : 100.0f, y});
        }
        const LinePaths longLine = OneLine(points);
        const std::vector<LabeledLines> levels = {{&longLine, {40, 12}}, {&last, {40, 12}}};
        const auto placed = PlaceContourLabels(levels, asItIs, highWindow, {});
        return std::count_if(placed.begin(), placed.end(),
                             [](const PlacedLabel& label) { return label.level == 1; });
    };
    EXPECT_EQ(labelsOfLast(100), 1);
    EXPECT_EQ(labelsOfLast(5100), 0) << "1,020,000 samples, and those between the rows";
}

// Each place is compared with all other texts: with many of them, or many lines, the search ends some time.
TEST(ContourLabelLayoutTest, ComparesWithSoManyTextsAtMost) {
    PlacedImage other; // over all lines but the last
    other.isShown = true;
    other.center = {500.0, 1000.0};
    other.halfWidth = 600.0;
    other.halfHeight = 1200.0;
    const LinePaths covered = OneLine({{0.0f, 100.0f}, {1000.0f, 110.0f}, {0.0f, 120.0f}, {1000.0f, 130.0f}});
    const LinePaths last = LinesFrom(10000.0, 1);
    const std::vector<LabeledLines> levels = {{&covered, {40, 12}}, {&last, {40, 12}}};
    const auto labels = [&](std::size_t texts) {
        return PlaceContourLabels(levels, asItIs, highWindow, std::vector<PlacedImage>(texts, other)).size();
    };
    EXPECT_EQ(labels(1), 1u);
    EXPECT_EQ(labels(1000), 1u);
    EXPECT_EQ(labels(100000), 0u);
}

TEST(ContourLabelLayoutTest, HasNoneWhereNumbersAreNone) {
    constexpr float endless = std::numeric_limits<float>::infinity();
    const LinePaths line = OneLine({{0, 0}, {endless, 0}, {300, 300}, {3e38f, -3e38f}});
    for (const double scale : {0.0, 1e-300, 1e300, std::nan("")}) {
        const PlaneOnScreen plane = {{scale, 0.0}, {scale, 0.0}, {0.0, scale}};
        for (const PlacedLabel& label : PlaceContourLabels({{&line, {40, 12}}}, plane, window, {}))
            EXPECT_TRUE(std::isfinite(label.image.center.x));
    }
    EXPECT_TRUE(PlaceContourLabels({{&line, {40, 12}}}, asItIs, {{0, 0}, {0, 0}}, {}).empty());
}
