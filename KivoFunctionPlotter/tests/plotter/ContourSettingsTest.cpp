// Contours at levels of the host's choosing, flat plots that show more than lines, points that are taken
// away, and data cut at ranges.
#include "KivoContours.h"
#include "KivoPoints.h"
#include "KivoSurfaces.h"
#include "support/Image.h"
#include "support/PlotterProbe.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

bool IsCyan(const unsigned char* rgb) {
    return rgb[0] < 60 && rgb[1] > 150 && rgb[2] > 150;
}

class ContourSettings : public WindowTest {
protected:
    ContourSettings() {
        const TestSurface surface = HillSurface(30, 20);
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
        plotter.SetZGradientColor(0x0000FF, 0x0000FF);
        plotter.SetXGradientColor(0x0000FF, 0x0000FF);
        plotter.SetYGradientColor(0x0000FF, 0x0000FF);
        plotter.ShowFrameLines(false);
        for (std::size_t i = 0; i < surface.points.size(); i += 3) {
            low = std::min(low, surface.points[i + 2]);
            high = std::max(high, surface.points[i + 2]);
        }
    }

    std::vector<float> Levels() const {
        std::vector<float> levels;
        for (const SKivoIsoContour& contour : plotter.m_flatZIsoContours)
            levels.push_back(contour.level);
        return levels;
    }

    void AddCyanPoint(float z) {
        point[2] = z;
        plotter.AddMeasurePoints(1, 3, point, "well");
        plotter.SetMeasureGroupColor(plotter.GetNumMeasureGroups() - 1, 0xFFFF00);
    }

    TestPlot plot{GetParam(), 400, 300};
    PlotterProbe& plotter = plot.plotter;
    float low = std::numeric_limits<float>::max();
    float high = std::numeric_limits<float>::lowest();
    float point[3] = {0.0f, 0.0f, 0.0f};
};

} // namespace

TEST_P(ContourSettings, HaveAnInterval) {
    const std::vector<float> before = Levels();
    const float interval = (high - low) / 8.0f;
    ASSERT_EQ(SetContourInterval(plotter, 2, static_cast<double>(interval), static_cast<double>(low)), 0);
    const std::vector<float> levels = Levels();
    ASSERT_EQ(levels.size(), 7u);
    for (std::size_t i = 0; i < levels.size(); ++i)
        EXPECT_NEAR(levels[i], low + interval * static_cast<float>(i + 1), 1e-5f * (high - low));
    plotter.SetIsoContourCount(5);
    EXPECT_EQ(Levels(), levels) << "the interval counts";
    plotter.SetIsoContourCount(20);
    EXPECT_EQ(SetContourInterval(plotter, 2, 0.0), 0);
    EXPECT_EQ(Levels(), before);
}

TEST_P(ContourSettings, HaveLevelsOfNewData) {
    ASSERT_EQ(SetContourInterval(plotter, 2, 10.0, 5.0), 0);
    TestSurface surface = HillSurface(30, 20);
    for (std::size_t i = 2; i < surface.points.size(); i += 3)
        surface.points[i] = (surface.points[i] - low) / (high - low) * 50.0f;
    plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    EXPECT_EQ(Levels(), (std::vector<float>{5.0f, 15.0f, 25.0f, 35.0f, 45.0f}));
}

TEST_P(ContourSettings, KeepAThousandLevelsAtMost) {
    ASSERT_EQ(SetContourInterval(plotter, 2, static_cast<double>(high - low) / 2500.5), 0);
    EXPECT_GT(Levels().size(), 700u);
    EXPECT_LE(Levels().size(), 1001u);
    EXPECT_EQ(SetContourInterval(plotter, 2, 1e-300), 0);
    EXPECT_LE(Levels().size(), 1001u);
    EXPECT_EQ(SetContourInterval(plotter, 2, 1e300), 0);
    EXPECT_LE(Levels().size(), 1u);
    EXPECT_EQ(SetContourInterval(plotter, 2, 1.0, 1e300), 0);
    plotter.OnDraw();
}

TEST_P(ContourSettings, RefuseWhatIsNone) {
    const std::vector<float> before = Levels();
    EXPECT_EQ(SetContourInterval(plotter, 3, 1.0), -3);
    EXPECT_EQ(SetContourInterval(plotter, -1, 1.0), -3);
    for (const double wrong : {-1.0, endless, -endless, std::nan("")})
        EXPECT_EQ(SetContourInterval(plotter, 2, wrong), -3);
    EXPECT_EQ(SetContourInterval(plotter, 2, 1.0, endless), -3);
    EXPECT_EQ(Levels(), before);
    EXPECT_EQ(CutToAxis(plotter, 3, true), -3);
    EXPECT_FALSE(IsCutToAxis(plotter, 3));
}

TEST_P(ContourSettings, FillTheFlatPlotOfXY) {
    const auto isRed = [](const unsigned char* rgb) { return rgb[0] > 200 && rgb[1] < 60 && rgb[2] < 60; };
    plotter.SwitchToXYProjectPlot();
    const Image lines = CaptureImage(plotter);
    FillContours(plotter, true);
    EXPECT_TRUE(AreContoursFilled(plotter));
    const Image filled = CaptureImage(plotter);
    EXPECT_GT(filled.Count(isRed), 2 * lines.Count(isRed));
    plotter.SetIsoContourCount(3000); // more than a texture has room for
    EXPECT_GT(CaptureImage(plotter).Count(isRed), 1000);
    plotter.SetIsoContourCount(1);
    EXPECT_GT(CaptureImage(plotter).Count(isRed), 1000);
    plotter.SetIsoContourCount(20);
    FillContours(plotter, false);
    EXPECT_EQ(Compare(CaptureImage(plotter), lines).max, 0);
}

TEST_P(ContourSettings, ShowPointsInFlatPlotsOnDemand) {
    AddCyanPoint(0.5f * (low + high));
    const auto expectOnDemand = [this] {
        ShowPointsInFlatPlots(plotter, false);
        EXPECT_EQ(CaptureImage(plotter).Count(IsCyan), 0);
        ShowPointsInFlatPlots(plotter, true);
        EXPECT_TRUE(ArePointsInFlatPlots(plotter));
        EXPECT_GT(CaptureImage(plotter).Count(IsCyan), 5);
    };
    plotter.SwitchToXYProjectPlot();
    expectOnDemand();
    plotter.SwitchToYZProjectPlot();
    expectOnDemand();
    plotter.SwitchToZXProjectPlot();
    expectOnDemand();
}

TEST_P(ContourSettings, CutPointsAtTheRange) {
    AddCyanPoint(high);
    const Image whole = CaptureImage(plotter);
    EXPECT_GT(whole.Count(IsCyan), 5);
    CutToAxis(plotter, 0, true);
    CutToAxis(plotter, 2, true);
    EXPECT_EQ(Compare(CaptureImage(plotter), whole).max, 0) << "all lies within";
    plotter.SetZAxisMax(0.5f * (low + high));
    EXPECT_EQ(CaptureImage(plotter).Count(IsCyan), 0);
    CutToAxis(plotter, 2, false);
    EXPECT_GT(CaptureImage(plotter).Count(IsCyan), 5);
}

// What is cut away is not traced, and what lies behind it is.
TEST_P(ContourSettings, CutTheTraceAtTheRange) {
    plotter.ApplyTopView();
    plotter.Trace(true);
    float hit[3] = {};
    POINT top = {};
    for (int x = 100; x < 300; x += 5)
        for (int y = 50; y < 250; y += 5) {
            float traced[3] = {};
            plotter.Trace(POINT{x, y});
            if (!plotter.GetTracePoint(traced) || !(traced[2] > hit[2])) continue;
            std::copy_n(traced, 3, hit);
            top = {x, y};
        }
    ASSERT_GT(hit[2], 0.5f * (low + high));
    plotter.Trace(top);
    plotter.SetZAxisMax(0.5f * (low + high));
    plotter.Trace(top);
    EXPECT_TRUE(plotter.GetTracePoint(hit));
    CutToAxis(plotter, 2, true);
    EXPECT_FALSE(plotter.GetTracePoint(hit)) << "forgotten";
    plotter.Trace(top);
    EXPECT_FALSE(plotter.GetTracePoint(hit));
    TestSurface base = PlaneSurface(9, 7);
    for (std::size_t i = 2; i < base.points.size(); i += 3)
        base.points[i] = low;
    AddSurface(plotter, base.points.data(), 9, 7, 1, 9, 3);
    plotter.Trace(top);
    EXPECT_TRUE(plotter.GetTracePoint(hit));
    EXPECT_LE(hit[2], 0.5f * (low + high));
}

TEST_P(ContourSettings, LeaveOtherPointsWhenSomeAreTakenAway) {
    float line[] = {-2.0f, -2.0f, high, 2.0f, 2.0f, high};
    for (int i = 0; i < 3; ++i) {
        plotter.AddCurveData(line, 2, 3);
        plotter.AddMeasurePoints(1, 3, point, std::string(1, static_cast<char>('a' + i)).c_str());
    }
    plotter.SetCurveColor(2, 0xFFFF00);
    plotter.SetCurveVisibility(0, false);
    plotter.SetCurveVisibility(1, false);
    EXPECT_EQ(RemoveCurve(plotter, 3), -2);
    EXPECT_EQ(RemoveCurve(plotter, -1), -2);
    EXPECT_EQ(RemoveMeasureGroup(plotter, 3), -2);
    EXPECT_EQ(RemoveCurve(plotter, 0), 0);
    EXPECT_EQ(RemoveMeasureGroup(plotter, 1), 0);
    EXPECT_EQ(plotter.GetNumMeasureGroups(), 2u);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("a"), 0);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("c"), 1);
    EXPECT_GT(CaptureImage(plotter).Count(IsCyan), 20) << "the last curve";
    EXPECT_EQ(RemoveCurve(plotter, 1), 0);
    EXPECT_EQ(CaptureImage(plotter).Count(IsCyan), 0);
    EXPECT_EQ(RemoveCurve(plotter, 0), 0);
    EXPECT_EQ(RemoveMeasureGroup(plotter, 0), 0);
    EXPECT_EQ(RemoveMeasureGroup(plotter, 0), 0);
    plotter.OnDraw();
}

KIVO_IN_ONE_WINDOW(ContourSettings);
