// Surfaces over the first one: what shows through, what is traced, and what the axes are fitted to.
#include "KivoSurfaces.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 400, height = 300;

// A flat grid over the place of the sample grids.
TestSurface FlatSurface(float z) {
    TestSurface surface = PlaneSurface(9, 7);
    for (std::size_t i = 2; i < surface.points.size(); i += 3)
        surface.points[i] = z;
    return surface;
}

SKivoSurface OneColor(unsigned long color, float opacity) {
    SKivoSurface looks;
    looks.isColoredByZ = false;
    looks.color = color;
    looks.opacity = opacity;
    return looks;
}

class Surfaces : public WindowTest {
protected:
    Surfaces() {
        const TestSurface first = HillSurface(30, 20);
        plotter.SetData(first.NewArray(), first.columns, first.rows, 1, first.columns, 3);
        plotter.ShowFrameLines(false);
    }

    int Add(const TestSurface& surface, const SKivoSurface& looks = {}) {
        return AddSurface(plotter, surface.points.data(), surface.columns, surface.rows, 1, surface.columns,
                          3, looks);
    }

    // The share of pixels that are not the mean of two pictures' where these differ, each weighed.
    double WrongShare(const Image& mixed, const Image& front, const Image& back, float opacity) {
        int differing = 0, wrong = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const unsigned char* const f = front.Pixel(x, y);
                const unsigned char* const b = back.Pixel(x, y);
                if (std::equal(f, f + 3, b)) continue;
                ++differing;
                for (int k = 0; k < 3; ++k)
                    if (std::fabs(opacity * static_cast<float>(f[k]) +
                                  (1.0f - opacity) * static_cast<float>(b[k]) -
                                  static_cast<float>(mixed.Pixel(x, y)[k])) > 3.0f) {
                        ++wrong;
                        break;
                    }
            }
        EXPECT_GT(differing, 2000);
        return static_cast<double>(wrong) / std::max(differing, 1);
    }

    POINT PixelOf(float x, float y, float z) {
        float seen[3] = {};
        const CurrentContext context(plotter);
        plotter.Project(x, y, z, seen);
        return {static_cast<LONG>(seen[0]), static_cast<LONG>(height - 1 - seen[1])};
    }

    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

// From above, where nothing of it lies behind anything: what is before and what is behind, mixed.
TEST_P(Surfaces, ShowWhatLiesBehindThem) {
    plotter.ApplyTopView();
    const Image without = CaptureImage(plotter);
    for (const bool isColoredByZ : {true, false})
        for (const float opacity : {0.25f, 0.6f}) {
            SKivoSurface looks = OneColor(0x0000C0FF, 1.0f);
            looks.isColoredByZ = isColoredByZ;
            const int number = Add(FlatSurface(2.5f), looks);
            const Image opaque = CaptureImage(plotter);
            looks.opacity = opacity;
            ASSERT_EQ(SetSurface(plotter, number, looks), 0);
            const Image mixed = CaptureImage(plotter);
            EXPECT_LT(WrongShare(mixed, opaque, without, opacity), 0.01) << isColoredByZ << opacity;
            EXPECT_EQ(mixed.Count([](const unsigned char* rgba) { return rgba[3] != 255; }), 0);
            RemoveSurface(plotter, number);
        }
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), without, 0, 0.0, "surfaces-removed"));
}

// The nearer one is mixed over the farther one, from above and from below, whichever was added first.
TEST_P(Surfaces, AreMixedFromFarToNear) {
    constexpr float opacity = 0.5f;
    for (const bool isFromAbove : {true, false})
        for (const bool isNearFirst : {true, false}) {
            isFromAbove ? plotter.ApplyTopView() : plotter.ApplyBottomView();
            const float nearZ = isFromAbove ? 1.9f : -1.9f;
            SKivoSurface hidden;
            hidden.isVisible = false;
            SetSurface(plotter, 0, hidden);
            const SKivoSurface blue = OneColor(0x00FF0000, opacity), red = OneColor(0x000000FF, opacity);
            const int nearOne = isNearFirst ? Add(FlatSurface(nearZ), blue) : 0;
            const int farOne = Add(FlatSurface(-nearZ), red);
            const int lastOne = isNearFirst ? nearOne : Add(FlatSurface(nearZ), blue);
            const Image both = CaptureImage(plotter);
            SetSurface(plotter, lastOne, OneColor(0x00FF0000, 1.0f));
            const Image front = CaptureImage(plotter);
            SKivoSurface gone = blue;
            gone.isVisible = false;
            SetSurface(plotter, lastOne, gone);
            const Image back = CaptureImage(plotter);
            EXPECT_LT(WrongShare(both, front, back, opacity), 0.01) << isFromAbove << isNearFirst;
            RemoveSurface(plotter, farOne);
            RemoveSurface(plotter, lastOne);
        }
}

// What is opaque and nearer hides what shows through.
TEST_P(Surfaces, StandBehindWhatIsOpaqueAndNearer) {
    plotter.ApplyTopView();
    const Image without = CaptureImage(plotter);
    Add(FlatSurface(-2.5f), OneColor(0x00FFFFFF, 0.5f));
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), without, 0, 0.0, "surfaces-hidden"));
}

// Turned a little further nothing leaps, wherever the order of the cells changes.
TEST_P(Surfaces, TurnWithoutPopping) {
    TestSurface top = HillSurface(40, 30);
    for (std::size_t i = 2; i < top.points.size(); i += 3)
        top.points[i] = 0.4f * top.points[i] + 1.5f;
    Add(top, OneColor(0x00FF8000, 0.5f));
    SKivoSurface looks;
    looks.opacity = 0.6f;
    ASSERT_EQ(SetSurface(plotter, 0, looks), 0);
    plotter.ApplyIsoView();
    Image last = CaptureImage(plotter);
    double sum = 0.0, most = 0.0;
    constexpr int steps = 90;
    for (int i = 0; i < steps; ++i) {
        plotter.Rotate({100, 150}, {102, 150});
        const Image next = CaptureImage(plotter);
        const double mean = Compare(next, last).mean;
        sum += mean;
        most = std::max(most, mean);
        last = next;
    }
    EXPECT_LT(most, 2.0 * sum / steps);
}

// ---- Trace

TEST_P(Surfaces, TheNearestVisibleOneIsTraced) {
    plotter.Trace(true);
    plotter.ApplyTopView();
    plotter.OnDraw(); // which loads the view
    const int low = Add(FlatSurface(-1.5f));
    const int high = Add(FlatSurface(2.5f), OneColor(0, 0.5f));
    const POINT over = PixelOf(1.0f, 0.5f, 0.0f);
    float point[3] = {};
    ASSERT_EQ(plotter.Trace(over), 0);
    ASSERT_TRUE(plotter.GetTracePoint(point));
    EXPECT_EQ(TracedSurface(plotter), high);
    EXPECT_NEAR(point[2], 2.5f, 1e-4f);
    EXPECT_NEAR(point[0], 1.0f, 0.15f);

    SKivoSurface hidden;
    hidden.isVisible = false;
    ASSERT_EQ(SetSurface(plotter, high, hidden), 0);
    EXPECT_EQ(TracedSurface(plotter), -1) << "it is hidden";
    ASSERT_EQ(plotter.Trace(over), 0);
    EXPECT_EQ(TracedSurface(plotter), 0);
    ASSERT_TRUE(plotter.GetTracePoint(point));
    EXPECT_NEAR(point[2], 2.0f * std::sin(point[0]) * std::cos(point[1]), 0.05f);

    ASSERT_EQ(SetSurface(plotter, 0, hidden), 0);
    ASSERT_EQ(plotter.Trace(over), 0);
    EXPECT_EQ(TracedSurface(plotter), low);
    ASSERT_TRUE(plotter.GetTracePoint(point));
    EXPECT_NEAR(point[2], -1.5f, 1e-4f);
    ASSERT_EQ(RemoveSurface(plotter, low), 0);
    EXPECT_EQ(TracedSurface(plotter), -1);
    EXPECT_EQ(plotter.Trace(over), 1) << "nothing is left";
}

TEST_P(Surfaces, WithoutOthersTheFirstIsTraced) {
    plotter.Trace(true);
    EXPECT_EQ(TracedSurface(plotter), -1);
    plotter.ApplyTopView();
    plotter.OnDraw();
    ASSERT_EQ(plotter.Trace(PixelOf(1.0f, 0.5f, 0.0f)), 0);
    EXPECT_EQ(TracedSurface(plotter), 0);
}

// ---- Axes

// Like new data this places the lights anew, so that the surface is lit a little differently.
TEST_P(Surfaces, AxesFitTheFirstOrAll) {
    const Image alone = CaptureImage(plotter);
    const float least = plotter.m_boundingBoxMin[2], most = plotter.m_boundingBoxMax[2];
    const int number = Add(FlatSurface(7.0f));
    EXPECT_EQ(plotter.m_boundingBoxMax[2], most);
    EXPECT_FALSE(AxesFitSurfaces(plotter));
    ASSERT_EQ(FitAxesToSurfaces(plotter, true), 0);
    EXPECT_TRUE(AxesFitSurfaces(plotter));
    EXPECT_EQ(plotter.m_boundingBoxMax[2], 7.0f);
    EXPECT_EQ(plotter.m_boundingBoxMin[2], least);
    const int lower = Add(FlatSurface(-9.0f));
    EXPECT_EQ(plotter.m_boundingBoxMin[2], -9.0f);
    EXPECT_EQ(plotter.m_flatZIsoContours.empty(), false);
    for (const SKivoIsoContour& contour : plotter.m_flatZIsoContours)
        EXPECT_TRUE(contour.level > least && contour.level < most) << "where the first one is";
    ASSERT_EQ(RemoveSurface(plotter, lower), 0);
    EXPECT_EQ(plotter.m_boundingBoxMin[2], least);
    ASSERT_EQ(RemoveSurface(plotter, number), 0);
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), alone, 12, 0.1, "surfaces-alone"));
    Add(FlatSurface(7.0f), OneColor(0, 0.0f));
    EXPECT_EQ(plotter.m_boundingBoxMax[2], 7.0f) << "hidden ones count";
    ASSERT_EQ(FitAxesToSurfaces(plotter, false), 0);
    EXPECT_FALSE(AxesFitSurfaces(plotter));
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), alone, 12, 0.1, "surfaces-first"));
}

TEST_P(Surfaces, WithoutNumbersLeaveTheAxesAlone) {
    TestSurface high = HillSurface(30, 20);
    for (std::size_t i = 2; i < high.points.size(); i += 3)
        high.points[i] += 50.0f;
    plotter.SetData(high.NewArray(), high.columns, high.rows, 1, high.columns, 3);
    const float least = plotter.m_boundingBoxMin[2];
    Add(FlatSurface(std::numeric_limits<float>::quiet_NaN()));
    FitAxesToSurfaces(plotter, true);
    EXPECT_EQ(plotter.m_boundingBoxMin[2], least);
}

TEST_P(Surfaces, WithoutNumbersAreNoMatter) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    constexpr float endless = std::numeric_limits<float>::infinity();
    plotter.Trace(true);
    for (const float z : {none, endless, -endless, 3e38f}) {
        for (const float opacity : {1.0f, 0.5f}) {
            Add(FlatSurface(z), OneColor(0, opacity));
            plotter.OnDraw();
            plotter.Trace(PixelOf(1.0f, 0.5f, 0.0f));
        }
        FitAxesToSurfaces(plotter, true);
        plotter.OnDraw();
        FitAxesToSurfaces(plotter, false);
    }
    while (GetSurfaceCount(plotter) > 0)
        for (int number = 1; number < 20; ++number)
            RemoveSurface(plotter, number);
    plotter.OnDraw();
}

KIVO_IN_ONE_WINDOW(Surfaces);
