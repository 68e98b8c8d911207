// Iso-contours: the tracer alone, where the levels lie, and the sets on the back planes.
#include "KivoGradientColor.h"
#include "KivoGridBox.h"
#include "MarchingSquares.h"
#include "support/Drawing.h"
#include "support/Image.h"
#include "support/PlainLoops.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

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

TEST(ContourLevels, OfXAndYLieInside) {
    const std::vector<float> levels = ContourLevelsInside(0, 21, 20);
    ASSERT_EQ(levels.size(), 20u);
    for (int k = 1; k <= 20; ++k)
        EXPECT_NEAR(levels[k - 1], 0.2 + 20.6 / 21 * k, 1e-5);
    const std::vector<float> even = ContourLevelsEven(0, 21, 20);
    for (int k = 1; k <= 20; ++k)
        EXPECT_NEAR(even[k - 1], k, 1e-5);
}

namespace {

class Contours : public WindowTest {
protected:
    TestPlot plot{GetParam(), 500, 420};
    PlotterProbe& plotter = plot.plotter;
    const TestSurface surface = HillSurface(30, 24);

    void SetUp() override { plotter.SetData(surface.NewArray(), 30, 24, 1, 30, 3); }

    // The lines that a member draws, in data coordinates: every corner within the grid box widened by half
    // its sides.
    template <typename Draw>
    std::vector<DrawnVertex> LineEnds(Draw draw) {
        const CurrentContext context(plotter);
        const CKivoGridBox& box = *plotter.m_gridBox;
        double low[3], side[3];
        for (int axis = 0; axis < 3; ++axis) {
            side[axis] = 2.0 * (double{box.m_boxMax[axis]} - box.m_boxMin[axis]);
            low[axis] = box.m_boxMin[axis] - side[axis] / 4.0;
        }
        glViewport(0, 0, 400, 400);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(low[0], low[0] + side[0], low[1], low[1] + side[1], -low[2], -low[2] - side[2]);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glDisable(GL_LIGHTING);
        std::vector<DrawnVertex> ends;
        for (const DrawnPrimitive& line : Record(draw)) {
            EXPECT_EQ(line.size(), 2u);
            for (DrawnVertex end : line) {
                end.x = low[0] + end.x / 400.0 * side[0];
                end.y = low[1] + end.y / 400.0 * side[1];
                end.depth = low[2] + end.depth * side[2];
                ends.push_back(end);
            }
        }
        return ends;
    }

    void ExpectOnWall(const std::vector<DrawnVertex>& ends, const std::vector<SKivoIsoContour>& contours,
                      const CKivoGradientColor& gradient, const std::array<float, 3>& wall) {
        std::size_t next = 0;
        for (const SKivoIsoContour& contour : contours) {
            float color[4] = {0, 0, 0, 1};
            gradient.Evaluate(contour.level, color);
            for (std::uint64_t i = 0; i < contour.pointCount; ++i, ++next) {
                ASSERT_LT(next, ends.size());
                const float* p = contour.points + 3 * i;
                ASSERT_NEAR(ends[next].x, p[0] + wall[0], 1e-4);
                ASSERT_NEAR(ends[next].y, p[1] + wall[1], 1e-4);
                ASSERT_NEAR(ends[next].depth, p[2] + wall[2], 1e-4);
                for (std::size_t channel = 0; channel < 4; ++channel)
                    ASSERT_NEAR(ends[next].color[channel], color[channel], 1e-5f);
            }
        }
        EXPECT_EQ(next, ends.size());
    }

    // Pixels right of the legend's bar.
    int Magenta(const Image& image) const {
        int count = 0;
        for (int y = 0; y < image.height; ++y)
            for (int x = plotter.m_plotViewport[0] + 20; x < image.width; ++x) {
                const unsigned char* p = image.Pixel(x, y);
                count += p[0] > 200 && p[1] < 60 && p[2] > 200 ? 1 : 0;
            }
        return count;
    }
};

} // namespace

TEST_P(Contours, RecordsLieFlatOnThePlaneOfTheirAxis) {
    const std::vector<SKivoIsoContour>* sets[] = {&plotter.m_flatXIsoContours, &plotter.m_flatYIsoContours,
                                                  &plotter.m_flatZIsoContours};
    for (int axis = 0; axis < 3; ++axis) {
        ASSERT_EQ(sets[axis]->size(), 20u);
        for (const SKivoIsoContour& contour : *sets[axis]) {
            EXPECT_EQ(contour.pointCount, Trace(surface, axis, contour.level).size());
            EXPECT_EQ(contour.pointCount % 2, 0u);
            for (std::uint64_t i = 0; i < contour.pointCount; ++i)
                ASSERT_EQ(contour.points[3 * i + axis], 0.0f);
        }
    }
}

// Heights are pulled in from both extremes by a fifth of a spacing; levels of x and y lie inside the range by
// one spacing and that fifth.
TEST_P(Contours, LevelsOfHeightAreOthersThanThoseOfXAndY) {
    constexpr unsigned int columns = 22, rows = 43;
    float* const points = new float[3 * columns * rows];
    for (unsigned int i = 0; i < columns * rows; ++i) {
        const float x = static_cast<float>(i % columns), y = static_cast<float>(i / columns);
        const float point[] = {x, 0.5f * y, std::min(x, 19.0f)};
        std::copy_n(point, 3, points + 3 * i);
    }
    plotter.SetData(points, columns, rows, 1, columns, 3); // x and y from 0 to 21, z from 0 to 19
    ASSERT_EQ(plotter.m_flatXIsoContours.size(), 20u);
    ASSERT_EQ(plotter.m_flatYIsoContours.size(), 20u);
    ASSERT_EQ(plotter.m_flatZIsoContours.size(), 20u);
    for (std::size_t k = 0; k < 20; ++k) {
        const double number = static_cast<double>(k);
        EXPECT_NEAR(plotter.m_flatXIsoContours[k].level, 0.2 + (number + 1) * 20.6 / 21, 1e-5);
        EXPECT_NEAR(plotter.m_flatYIsoContours[k].level, 0.2 + (number + 1) * 20.6 / 21, 1e-5);
        EXPECT_NEAR(plotter.m_flatZIsoContours[k].level, 0.2 + number * 18.6 / 19, 1e-5);
    }
}

TEST_P(Contours, TheCountIsCheckedAndRebuildsOnce) {
    EXPECT_EQ(plotter.SetIsoContourCount(0), -3);
    EXPECT_EQ(plotter.m_flatZIsoContours.size(), 20u);
    const float* before = plotter.m_flatZIsoContours[0].points;
    EXPECT_EQ(plotter.SetIsoContourCount(20), 0);
    EXPECT_EQ(plotter.m_flatZIsoContours[0].points, before);
    EXPECT_EQ(plotter.SetIsoContourCount(7), 0);
    EXPECT_EQ(plotter.m_flatZIsoContours.size(), 7u);
    EXPECT_EQ(plotter.m_flatXIsoContours.size(), 7u);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_EQ(plotter.SetIsoContourCount(1), 0);
    EXPECT_TRUE(plotter.m_flatZIsoContours.empty()) << "one level of height is none";
    EXPECT_EQ(plotter.m_flatXIsoContours.size(), 1u);
    EXPECT_EQ(plotter.SetIsoContourCount(2000), 0);
    EXPECT_EQ(plotter.m_flatYIsoContours.size(), 2000u);
    plotter.OnDraw();
    plotter.ReleaseIsoContour();
    EXPECT_TRUE(plotter.m_flatYIsoContours.empty());
}

TEST_P(Contours, AreDrawnInTheirLevelsColourOnTheBackPlane) {
    plotter.ShowFrameLines(false);
    plotter.SetZAxisMin(-4.0f); // the floor lies well below the surface
    plotter.AutoAdjustAxisLengthRatio();
    const auto isMagenta = [](const unsigned char* p) { return p[0] > 200 && p[1] < 60 && p[2] > 200; };
    const auto rows = [&](const Image& image) { // first and last row with magenta, right of the legend
        std::array<int, 2> found = {image.height, -1};
        for (int y = 0; y < image.height; ++y)
            for (int x = plotter.m_plotViewport[0] + 20; x < image.width; ++x)
                if (isMagenta(image.Pixel(x, y))) found = {std::min(found[0], y), y};
        return found;
    };
    ASSERT_EQ(rows(CaptureImage(plotter))[1], -1);
    plotter.ShowZIsoContours(true);
    // Drawn from the stored levels, the lines follow the gradient; the surface keeps its array of colours.
    const float magenta[] = {1, 0, 1, 1};
    plotter.m_zGradientColor->SetColors(magenta, magenta);
    const Image shown = CaptureImage(plotter);
    const std::array<int, 2> seen = rows(shown);
    ASSERT_GE(seen[1], 0);

    const CurrentContext context(plotter);
    plotter.ApplyViewVolume();
    plotter.ApplyModelViewMatrix();
    const auto rowOf = [&](float x, float y, float z) {
        float pixel[3];
        plotter.Project(x, y, z, pixel);
        return static_cast<float>(shown.height) - pixel[1];
    };
    const float* low = plotter.m_boundingBoxMin;
    const float* high = plotter.m_boundingBoxMax;
    const float floor = plotter.m_gridBox->m_boxMin[2];
    float front = rowOf(low[0], low[1], floor), back = front;
    for (const float x : {low[0], high[0]})
        for (const float y : {low[1], high[1]}) {
            front = std::max(front, rowOf(x, y, floor));
            back = std::min(back, rowOf(x, y, floor));
        }
    EXPECT_GT(static_cast<float>(seen[0]), back - 2) << "nothing above the floor";
    EXPECT_LT(static_cast<float>(seen[1]), front + 2) << "nothing in front of it";
    EXPECT_GT(static_cast<float>(seen[1] - seen[0]), 0.5f * (front - back));
}

// On the plane at the box's minimum of the axis where the back plane's flag is set, else at the maximum.
TEST_P(Contours, EachSetIsMovedToTheBackPlaneOfItsAxis) {
    CKivoGridBox& box = *plotter.m_gridBox;
    for (int flags = 0; flags < 8; ++flags) {
        SCOPED_TRACE(flags);
        for (int i = 0; i < 3; ++i)
            box.m_backPlane[i] = (flags >> i & 1) != 0;
        const float wallY = box.m_backPlane[0] ? box.m_boxMin[1] : box.m_boxMax[1];
        const float wallZ = box.m_backPlane[1] ? box.m_boxMin[2] : box.m_boxMax[2];
        const float wallX = box.m_backPlane[2] ? box.m_boxMin[0] : box.m_boxMax[0];
        ExpectOnWall(LineEnds([this] { plotter.RenderFlatXIsoContour(); }), plotter.m_flatXIsoContours,
                     *plotter.m_xGradientColor, {wallX, 0, 0});
        ExpectOnWall(LineEnds([this] { plotter.RenderFlatYIsoContour(); }), plotter.m_flatYIsoContours,
                     *plotter.m_yGradientColor, {0, wallY, 0});
        ExpectOnWall(LineEnds([this] { plotter.RenderFlatZIsoContour(); }), plotter.m_flatZIsoContours,
                     *plotter.m_zGradientColor, {0, 0, wallZ});
    }
}

TEST_P(Contours, AFlatPlotShowsTheSetOfTheAxisItLooksAlongWhateverIsHidden) {
    using Switch = int (CKivoFunctionPlotter::*)();
    using SetColors = void (CKivoFunctionPlotter::*)(unsigned long, unsigned long);
    const std::pair<Switch, SetColors> plots[] = {
        {&CKivoFunctionPlotter::SwitchToXYProjectPlot, &CKivoFunctionPlotter::SetZGradientColor},
        {&CKivoFunctionPlotter::SwitchToYZProjectPlot, &CKivoFunctionPlotter::SetXGradientColor},
        {&CKivoFunctionPlotter::SwitchToZXProjectPlot, &CKivoFunctionPlotter::SetYGradientColor}};
    constexpr unsigned long magenta = 0x00FF00FF, green = 0x0000FF00;
    for (const auto& [change, setColors] : plots) {
        std::invoke(change, plotter);
        SCOPED_TRACE(plotter.GetCurrentPlotType());
        plotter.SetGradientColor(green, green);
        std::invoke(setColors, plotter, magenta, magenta);
        plotter.EndGLOperation(); // the X and Y setters leave the context current
        for (const bool isShown : {false, true}) {
            plotter.ShowXIsoContours(isShown);
            plotter.ShowYIsoContours(isShown);
            plotter.ShowZIsoContours(isShown);
            EXPECT_GT(Magenta(CaptureImage(plotter)), 300);
        }
    }
    plotter.ReleaseIsoContour();
    EXPECT_EQ(Magenta(CaptureImage(plotter)), 0);
}

TEST_P(Contours, OnTheSurfaceAreThoseOfItsHeightInTheCurrentColour) {
    for (const unsigned int floats : {3u, 5u}) {
        SCOPED_TRACE(floats);
        float* points = new float[std::size_t{30} * 24 * floats]();
        for (std::size_t i = 0; i < std::size_t{30} * 24; ++i)
            std::copy_n(&surface.points[3 * i], 3, points + i * floats);
        plotter.SetData(points, 30, 24, 1, 30, floats);
        std::vector<Point> expected;
        for (int k = 1; k <= 20; ++k) {
            const float step = (surface.Max(2) - surface.Min(2)) / 21.0f;
            const std::vector<Point> level = Trace(surface, 2, surface.Min(2) + static_cast<float>(k) * step);
            expected.insert(expected.end(), level.begin(), level.end());
        }
        const std::vector<DrawnVertex> ends = LineEnds([this] {
            glEnable(GL_LIGHTING);
            glColor4f(0.25f, 0.5f, 0.75f, 1.0f);
            plotter.RenderIsoContour();
            EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
        });
        ASSERT_EQ(ends.size(), expected.size());
        ASSERT_GT(ends.size(), 500u);
        for (std::size_t i = 0; i < ends.size(); ++i) {
            ASSERT_NEAR(ends[i].x, expected[i][0], 1e-4);
            ASSERT_NEAR(ends[i].y, expected[i][1], 1e-4);
            ASSERT_NEAR(ends[i].depth, expected[i][2], 1e-4);
            ASSERT_NEAR(ends[i].color[0], 0.25f, 1e-6f) << "unlit";
        }
    }
}

// Of a slope towards y the lines of equal height go straight across the picture.
TEST_P(Contours, ThePictureFormIsMadeWithTheDataInPlaceOfTheHeightsLines) {
    TestSurface slope = PlaneSurface(12, 9);
    for (std::size_t i = 0; i < slope.points.size(); i += 3)
        slope.points[i + 2] = slope.points[i + 1];
    plotter.m_useIsoContourTexture = true;
    plotter.SetData(slope.NewArray(), 12, 9, 1, 12, 3);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_TRUE(plotter.m_flatZIsoContours.empty());
    EXPECT_EQ(plotter.m_flatXIsoContours.size(), 20u);
    EXPECT_EQ(plotter.m_flatYIsoContours.size(), 20u);
    EXPECT_NE(plotter.m_isoContourTexId, 0u);
    ASSERT_NE(plotter.m_isoContourTexels, nullptr);
    const auto texel = [this](int row, int column) {
        const unsigned char* p = plotter.m_isoContourTexels + 4 * (row * 400 + column);
        return std::array<int, 3>{p[0], p[1], p[2]};
    };
    for (int level = 1; level <= 20; ++level) {
        const int row = static_cast<int>(std::lround(level * 400 / 21.0));
        float color[4];
        plotter.m_zGradientColor->Evaluate(
            slope.Min(2) + static_cast<float>(level) * (slope.Max(2) - slope.Min(2)) / 21.0f, color);
        for (const int column : {20, 200, 380}) {
            for (std::size_t channel = 0; channel < 3; ++channel)
                EXPECT_NEAR(texel(row, column)[channel], 255.0f * color[channel], 2.0f) << level;
            EXPECT_EQ(texel(row + 9, column), (std::array<int, 3>{255, 255, 255})) << "between two lines";
        }
    }
    plotter.ReleaseDataRelativeResource();
    EXPECT_EQ(plotter.m_isoContourTexels, nullptr);
    EXPECT_EQ(plotter.m_isoContourTexId, 0u);
}

TEST_P(Contours, ThePictureFormKeepsViewportAndClearColour) {
    const CurrentContext context(plotter);
    plotter.ApplyViewVolume();
    glClearColor(0.25f, 0.5f, 0.75f, 1.0f);
    plotter.CreateIsoContourSKivoTexImage();
    EXPECT_EQ(plotter.m_isoContourTexWidth, 400);
    EXPECT_EQ(plotter.m_isoContourTexHeight, 400);
    EXPECT_NE(plotter.m_isoContourTexId, 0u);
    int white = 0, coloured = 0;
    for (int i = 0; i < 400 * 400; ++i) {
        const unsigned char* p = plotter.m_isoContourTexels + 4 * i;
        (p[0] == 255 && p[1] == 255 && p[2] == 255 ? white : coloured) += 1;
    }
    EXPECT_GT(white, 80000);
    EXPECT_GT(coloured, 10000);
    GLint alphaBits = 0;
    glGetIntegerv(GL_ALPHA_BITS, &alphaBits);
    if (alphaBits > 0) {
        EXPECT_EQ(plotter.m_isoContourTexels[3], 0) << "a corner without lines is transparent";
    }
    GLint viewport[4] = {};
    GLfloat clear[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
    EXPECT_TRUE(std::equal(viewport, viewport + 4, plotter.m_plotViewport));
    EXPECT_EQ(clear[1], 0.5f);
}

KIVO_IN_EVERY_WINDOW(Contours);
