// Iso-contours: the sets on the back planes and what of them is drawn.
#include "parts/KivoGradientColor.h"
#include "parts/KivoGridBox.h"
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
    const std::vector<float> line = PlainLevelLines(grid, axis, level);
    std::vector<Point> traced;
    for (std::size_t i = 0; i + 2 < line.size(); i += 3)
        traced.push_back({line[i], line[i + 1], line[i + 2]});
    return traced;
}

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

// Whatever a point of the data has.
TEST_P(Contours, RecordsHoldThreeFloatsAPoint) {
    std::vector<std::vector<DrawnVertex>> expected;
    for (const unsigned int floats : {3u, 4u, 5u, 7u}) {
        SCOPED_TRACE(floats);
        float* points = new float[std::size_t{30} * 24 * floats];
        std::fill_n(points, std::size_t{30} * 24 * floats, 1.0f);
        for (std::size_t i = 0; i < std::size_t{30} * 24; ++i)
            std::copy_n(&surface.points[3 * i], 3, points + i * floats);
        plotter.SetData(points, 30, 24, 1, 30, floats);
        const std::vector<std::vector<DrawnVertex>> drawn = {
            LineEnds([this] { plotter.RenderFlatXIsoContour(); }),
            LineEnds([this] { plotter.RenderFlatYIsoContour(); }),
            LineEnds([this] { plotter.RenderFlatZIsoContour(); })};
        for (const std::vector<DrawnVertex>& ends : drawn)
            EXPECT_GT(ends.size(), 500u);
        if (floats == 3) expected = drawn;
        EXPECT_EQ(drawn, expected);
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

KIVO_IN_ONE_WINDOW(Contours);
