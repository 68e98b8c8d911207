// What the ranges of the axes do to data, colours and proportions, and the flat plots.
#include "AwaitedRanges.h"
#include "ViewerData.h"
#include "ViewerScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;

namespace {

bool IsGreen(const unsigned char* rgb) {
    return rgb[1] > 100 && rgb[0] < 60 && rgb[2] < 60;
}

bool IsCyan(const unsigned char* rgb) {
    return rgb[0] < 60 && rgb[1] > 150 && rgb[2] > 150;
}

// The smallest box around the pixels of a kind, as width and height; 0 without any.
struct Extent {
    int left = 1 << 20, right = -1, top = 1 << 20, bottom = -1;

    double Width() const { return right < left ? 0.0 : right - left + 1.0; }
    double Height() const { return bottom < top ? 0.0 : bottom - top + 1.0; }
};

Extent ExtentOf(const Image& image, bool (*isOf)(const unsigned char*)) {
    Extent extent;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x) {
            if (!isOf(image.Pixel(x, y))) continue;
            extent.left = std::min(extent.left, x);
            extent.right = std::max(extent.right, x);
            extent.top = std::min(extent.top, y);
            extent.bottom = std::max(extent.bottom, y);
        }
    return extent;
}

class ViewerRangesTest : public ViewerScene {
protected:
    // A surface in one green that nothing else has.
    ViewerRangesTest() {
        Set("gradient-start", "#00c800");
        Set("gradient-end", "#00c800");
        Set("frame-lines", "off");
        Set("legend", "off");
    }

    void ShowFrom(double azimuth, double elevation) {
        Viewpoint viewpoint;
        viewpoint.azimuth = azimuth;
        viewpoint.elevation = elevation;
        m_scene.ShowFrom(viewpoint);
    }

    // A plane of z = 1 in a box that reaches from 0 to 2.
    static GridData Strip(double length, double width) {
        GridData grid;
        grid.title = "Strip";
        for (int i = 0; i <= 20; ++i) {
            grid.x.push_back(static_cast<float>(length / 20.0 * i));
            grid.y.push_back(static_cast<float>(width / 20.0 * i));
        }
        grid.z.assign(grid.x.size() * grid.y.size(), 1.0f);
        grid.z[0] = 0.0f;
        return grid;
    }
};

// Straight from the side, a range is a height on the screen: the surface fills half of the box where the
// range takes all that lies above its half.
TEST_F(ViewerRangesTest, CutsTheSurfaceAtItsRange) {
    Set("z-max", "0.5");
    ShowFrom(0.0, 0.0);
    const Extent cut = ExtentOf(Draw(), IsGreen);
    Set("z-max", "1");
    ShowFrom(0.0, 0.0);
    Set("auto-aspect", "on");
    ShowFrom(0.0, 0.0);
    const Extent whole = ExtentOf(Draw(), IsGreen);
    ASSERT_GT(whole.Height(), 50.0);
    EXPECT_LT(cut.Height(), 1.1 * whole.Height()) << "the box keeps its height, and nothing leaves it";
    Set("x-min", "0");
    Set("y-max", "-0.4");
    Set("z-min", "0.2");
    m_scene.Settings().mode = 0;
    ShowFrom(0.0, 90.0);
    EXPECT_GT(ExtentOf(Draw(), IsGreen).Width(), 10.0);
    Set("z-min", "0.9");
    EXPECT_EQ(Draw().Count(IsGreen), 0) << "y ends before the hill is so high";
}

TEST_F(ViewerRangesTest, CutsPointsAndTheTrace) {
    m_scene.AddPoints(PointSet::Kind::measureGroup, {"wells", {0, 0, 1.3}});
    PointSet set = m_scene.PointSets()[0];
    set.color = {0, 255, 255};
    m_scene.ChangePoints(set);
    Set("z-max", "1.5");
    EXPECT_GT(Draw().Count(IsCyan), 5);
    Set("z-max", "1.2");
    EXPECT_EQ(Draw().Count(IsCyan), 0);
    Set("z-max", "0.3");
    Set("trace", "on");
    ShowFrom(0.0, 90.0);
    const Extent hole = ExtentOf(Draw(), IsGreen);
    m_scene.TraceAt((hole.left + hole.right) / 2, (hole.top + hole.bottom) / 2);
    float point[3];
    EXPECT_FALSE(m_scene.Plotter().GetTracePoint(point)) << "the hill's top is cut away";
    m_scene.TraceAt(hole.left + 8, hole.top + 8);
    ASSERT_TRUE(m_scene.Plotter().GetTracePoint(point));
    EXPECT_LE(point[2], 0.3f);
}

TEST_F(ViewerRangesTest, ColoursFollowTheAxisOnDemand) {
    Set("gradient-start", "#0000ff");
    Set("gradient-end", "#ff0000");
    const auto isRed = [](const unsigned char* rgb) { return rgb[0] > 120 && rgb[2] < 60 && rgb[1] < 60; };
    Set("z-max", "0.5");
    EXPECT_EQ(Draw().Count(isRed), 0) << "half way to the top";
    Set("colors-follow-range", "on");
    EXPECT_GT(Draw().Count(isRed), 10);
    EXPECT_EQ(TextOf(FindSetting("color-range"), m_scene.Effective()), "0:0.5");
    Set("z-max", "2");
    EXPECT_EQ(Draw().Count(isRed), 0);
    Set("color-range", "0:0.4");
    EXPECT_GT(Draw().Count(isRed), 10) << "what is set counts more";
}

TEST_F(ViewerRangesTest, DrawsTrueProportions) {
    m_scene.ShowGrid(Strip(100.0, 10.0));
    Set("exaggeration", "5");
    EXPECT_NEAR(m_scene.Exaggeration().value_or(0.0), 5.0, 1e-6);
    Set("z-contours", "off");
    ShowFrom(90.0, 90.0);
    const Extent extent = ExtentOf(Draw(), IsGreen);
    EXPECT_NEAR(extent.Width() / extent.Height(), 10.0, 0.7);
    // From the side the box is 5 times as high as it is by itself, measured by its length.
    Set("x-min", "0");
    Set("x-max", "100");
    EXPECT_NEAR(m_scene.Exaggeration().value_or(0.0), 5.0, 1e-6) << "after another range";
    Unset("exaggeration");
    EXPECT_FALSE(m_scene.Exaggeration().has_value());
}

TEST_F(ViewerRangesTest, FlatPlotsShowPointsCurvesAndTrace) {
    m_scene.AddPoints(PointSet::Kind::measureGroup, {"wells", {0, 0, 0.5}});
    PointSet set = m_scene.PointSets()[0];
    set.color = {0, 255, 255};
    m_scene.ChangePoints(set);
    m_scene.AddPoints(PointSet::Kind::curve, {"flight", {-1, -1, 0.1, 1, 1, 0.9}});
    PointSet curve = m_scene.PointSets()[1];
    curve.color = {0, 200, 0};
    for (int mode = 1; mode <= 3; ++mode) {
        SCOPED_TRACE(mode);
        m_scene.Settings().mode = mode;
        m_scene.ApplyView();
        for (const char* const name : {"gradient-start", "gradient-end"})
            Set(name, "#ff0000");
        set.isShown = curve.isShown = false;
        m_scene.ChangePoints(set);
        m_scene.ChangePoints(curve);
        const int green = Draw().Count(IsGreen); // an axis is
        EXPECT_EQ(Draw().Count(IsCyan), 0);
        set.isShown = curve.isShown = true;
        m_scene.ChangePoints(set);
        m_scene.ChangePoints(curve);
        EXPECT_GT(Draw().Count(IsCyan), 10);
        EXPECT_GT(Draw().Count(IsGreen), green + 20);
        const Image before = Draw();
        Set("trace", "on");
        float point[3];
        for (int y = 60; y < 320 && !m_scene.Plotter().GetTracePoint(point); y += 4)
            m_scene.TraceAt(270, y);
        EXPECT_GT(Compare(before, Draw()).max, 50);
        Set("trace", "off");
    }
}

TEST_F(ViewerRangesTest, ForgetsTheTraceOfAnotherPlot) {
    Set("trace", "on");
    m_scene.TraceAt(278, 190);
    float point[3];
    ASSERT_TRUE(m_scene.Plotter().GetTracePoint(point));
    m_scene.ApplyView();
    EXPECT_TRUE(m_scene.Plotter().GetTracePoint(point)) << "the same plot";
    m_scene.Settings().mode = 1;
    m_scene.ApplyView();
    EXPECT_FALSE(m_scene.Plotter().GetTracePoint(point));
    EXPECT_TRUE(m_scene.Plotter().IsTracing());
}

TEST_F(ViewerRangesTest, FillsBetweenContours) {
    Set("gradient-start", "#0000ff");
    Set("gradient-end", "#ff0000");
    m_scene.Settings().mode = 1;
    m_scene.ApplyView();
    const auto isFilled = [](const unsigned char* rgb) {
        return std::max({rgb[0], rgb[1], rgb[2]}) - std::min({rgb[0], rgb[1], rgb[2]}) > 200;
    };
    const int lines = Draw().Count(isFilled);
    Set("fill-contours", "on");
    Set("contour-interval", "0.25");
    EXPECT_GT(Draw().Count(isFilled), 3 * lines);
    std::vector<std::vector<int>> colors; // of large areas
    const Image image = Draw();
    for (int x = 0; x < image.width; ++x) {
        const unsigned char* const rgb = image.Pixel(x, image.height / 2);
        const unsigned char* const next = image.Pixel(std::min(x + 1, image.width - 1), image.height / 2);
        if (isFilled(rgb) && std::equal(rgb, rgb + 3, next)) colors.push_back({rgb[0], rgb[1], rgb[2]});
    }
    std::sort(colors.begin(), colors.end());
    colors.erase(std::unique(colors.begin(), colors.end()), colors.end());
    EXPECT_GE(colors.size(), 3U);
    EXPECT_LE(colors.size(), 5U) << "a colour for each band, and none between";
}

// As typed in the panel: a new beginning above the present end, then a new end above that.
TEST_F(ViewerRangesTest, EndsAreTypedOneAfterTheOther) {
    AwaitedRanges awaited;
    PlotSettings wanted = m_scene.Settings();
    wanted.axes[2].min = 5.0;
    EXPECT_FALSE(awaited.Take(2, wanted, m_scene));
    PlotSettings shown = m_scene.Effective();
    const double end = *shown.axes[2].max;
    awaited.ShowIn(shown);
    EXPECT_EQ(shown.axes[2].min, 5.0);
    EXPECT_EQ(shown.axes[2].max, end);
    wanted = m_scene.Settings();
    awaited.AddTo(0, wanted);
    EXPECT_FALSE(wanted.axes[2].min) << "another axis";
    awaited.AddTo(2, wanted);
    wanted.axes[2].max = 7.0;
    EXPECT_TRUE(awaited.Take(2, wanted, m_scene));
    EXPECT_EQ(wanted.axes[2].min, 5.0);
    m_scene.Settings() = wanted;
    m_scene.ApplyAxes();
    shown = m_scene.Effective();
    awaited.ShowIn(shown);
    EXPECT_EQ(shown.axes[2].max, 7.0);
}

TEST_F(ViewerRangesTest, ForgetsAnEndThatWaitsInVain) {
    AwaitedRanges awaited;
    PlotSettings wanted = m_scene.Settings();
    wanted.axes[2].min = 5.0;
    EXPECT_FALSE(awaited.Take(2, wanted, m_scene));
    m_scene.ShowGrid(Shifted(Hill(), 1.0f));
    PlotSettings shown = m_scene.Effective();
    const std::optional<double> min = shown.axes[2].min;
    awaited.ShowIn(shown);
    EXPECT_EQ(shown.axes[2].min, min);
    wanted = m_scene.Settings();
    awaited.AddTo(2, wanted);
    EXPECT_FALSE(wanted.axes[2].min);
}

} // namespace
