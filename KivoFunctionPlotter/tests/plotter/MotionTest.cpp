// A surface of fewer points while something moves: what it looks like, and what a host is told.
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "plotter/ReducedSurface.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr POINT start = {150, 100};

class Motion : public WindowTest {
protected:
    void SetSurface(const TestSurface& surface) {
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    }

    // A frame of a pan by nothing.
    Image MovedImage(unsigned int detail) {
        EXPECT_EQ(SetMotionDetail(plotter, detail), 0);
        plotter.OnRButtonDown(MK_RBUTTON, start);
        plotter.OnMouseMove(MK_RBUTTON | MK_SHIFT, start);
        plotter.OnRButtonUp(0, start);
        return plot.window.Presented(plotter);
    }

    Image Picture(const SKivoPictureOptions& options) {
        Image image;
        EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0);
        return image;
    }

    Image WholeImage() {
        plotter.OnDraw();
        return plot.window.Presented(plotter);
    }

    TestPlot plot{GetParam(), 400, 300};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

// A plane is the same from any of its points; its borders, too.
TEST_P(Motion, APlaneLooksTheSame) {
    SetSurface(PlaneSurface(121, 83));
    plotter.ShowFrameLines(false);
    const Image whole = WholeImage();
    if (whole.rgba.empty()) GTEST_SKIP() << "nobody can look into the window";
    const Image moved = MovedImage(20);
    EXPECT_TRUE(IsDetailReduced(plotter));
    EXPECT_TRUE(ImagesAgree(moved, whole, 255, 0.2, "motion-plane"));
}

TEST_P(Motion, ACoarseHillLooksOtherUntilTheHandRests) {
    SetSurface(HillSurface(121, 83));
    const Image whole = WholeImage();
    if (whole.rgba.empty()) GTEST_SKIP() << "nobody can look into the window";
    const Image moved = MovedImage(6);
    EXPECT_TRUE(IsDetailReduced(plotter));
    EXPECT_GT(Compare(moved, whole).mean, 1.0);
    EXPECT_TRUE(ImagesAgree(WholeImage(), whole, 0, 0.0, "motion-rest"));
    EXPECT_FALSE(IsDetailReduced(plotter));
}

TEST_P(Motion, AHoleOfOnePointIsSeen) {
    TestSurface surface = PlaneSurface(81, 81);
    float& height = surface.points[3 * (38 * 81 + 38) + 2];
    const float known = height;
    height = std::numeric_limits<float>::quiet_NaN();
    SetSurface(surface);
    plotter.ShowFrameLines(false);
    plotter.ShowGridLines(false);
    plotter.SetBackgroundColor(0.0f, 0.0f, 0.0f, 1.0f);
    const Image whole = WholeImage();
    if (whole.rgba.empty()) GTEST_SKIP() << "nobody can look into the window";
    float seen[3] = {};
    const float* const corner = plotter.m_points + 3 * (33 * 81 + 33);
    {
        const CurrentContext context(plotter);
        plotter.Project(corner[0], corner[1], corner[2], seen);
    }
    const int x = static_cast<int>(seen[0]), y = 299 - static_cast<int>(seen[1]);
    ASSERT_TRUE(x > 64 && x < 400 && y > 0 && y < 300) << x << ", " << y;
    // Between points 30 and 40 of both sides nothing is left, beyond them everything.
    EXPECT_FALSE(whole.IsNear(x, y, {0, 0, 0})) << "some cells from the missing point";
    EXPECT_TRUE(MovedImage(9).IsNear(x, y, {0, 0, 0}));
    height = known;
    SetSurface(surface);
    EXPECT_FALSE(MovedImage(9).IsNear(x, y, {0, 0, 0}));
}

TEST_P(Motion, GridsWithoutCellsAndWithoutPointsAreNoMatter) {
    std::vector<float> points(300, 1.0f);
    const unsigned int sizes[][2] = {{1, 100}, {100, 1}, {1, 1}, {0, 5}, {5, 0}, {2, 50}, {50, 2}};
    for (const auto& size : sizes) {
        plotter.SetDataReference(points.data(), size[0], size[1], 1, size[0], 3);
        for (const unsigned int detail : {2u, 3u, 150u, std::numeric_limits<unsigned int>::max()}) {
            EXPECT_EQ(SetMotionDetail(plotter, detail), 0);
            plotter.OnMouseWheel(0, 120, start);
            const bool hasCells = size[0] > 1 && size[1] > 1;
            EXPECT_EQ(IsDetailReduced(plotter), hasCells && detail < 50) << size[0] << " x " << size[1];
            MotionDetailFor(plotter, 5.0);
        }
    }
    plotter.OnDestroy();
}

// For fewer than three floats, and points that all are one, nothing is drawn.
TEST_P(Motion, DataThatAreNotDrawnAreNotReduced) {
    std::vector<float> points(300, 1.0f);
    ASSERT_EQ(SetMotionDetail(plotter, 3), 0);
    plotter.SetDataReference(points.data(), 10, 15, 1, 10, 2);
    plotter.OnMouseWheel(0, 120, start);
    EXPECT_FALSE(IsDetailReduced(plotter));
    EXPECT_EQ(MotionDetailFor(plotter, 5.0), 0U);
    plotter.SetDataReference(points.data(), 10, 10, 0, 0, 3); // one point, drawn as none
    plotter.OnMouseWheel(0, 120, start);
    EXPECT_FALSE(IsDetailReduced(plotter));
    EXPECT_EQ(MotionDetailFor(plotter, 5.0), 0U);
    plotter.OnDestroy();
}

// ---- A host that draws itself

TEST_P(Motion, AHostDrawsOnceForAnyNumberOfMoves) {
    SetSurface(HillSurface(121, 83));
    ASSERT_EQ(SetMotionDetail(plotter, 6), 0);
    const Image before = WholeImage();
    if (before.rgba.empty()) GTEST_SKIP() << "nobody can look into the window";
    int requests = 0;
    EXPECT_EQ(SetRedrawRequest(
                  plotter, [](void* count) { ++*static_cast<int*>(count); }, &requests),
              0);
    plotter.OnRButtonDown(MK_RBUTTON, start);
    for (int x = 1; x <= 20; ++x)
        plotter.OnMouseMove(MK_RBUTTON, {start.x + x, start.y});
    EXPECT_EQ(requests, 20);
    EXPECT_TRUE(ImagesAgree(plot.window.Presented(plotter), before, 0, 0.0, "motion-requested"));
    EXPECT_FALSE(IsDetailReduced(plotter));
    const Image moved = WholeImage(); // OnDraw
    EXPECT_TRUE(IsDetailReduced(plotter));
    const Image whole = WholeImage();
    EXPECT_FALSE(IsDetailReduced(plotter));
    EXPECT_GT(Compare(moved, whole).mean, 1.0);
    EXPECT_GT(Compare(whole, before).mean, 1.0);

    EXPECT_EQ(SetRedrawRequest(plotter, nullptr, nullptr), 0);
    plotter.OnMouseMove(MK_RBUTTON | MK_SHIFT, {start.x + 20, start.y}); // by nothing
    EXPECT_EQ(requests, 20);
    EXPECT_TRUE(ImagesAgree(plot.window.Presented(plotter), moved, 0, 0.0, "motion-not-requested"));
}

TEST_P(Motion, ARequestedFrameIsAsTheLastMemberWouldHaveDrawnIt) {
    SetSurface(HillSurface(121, 83));
    ASSERT_EQ(SetMotionDetail(plotter, 6), 0);
    SetRedrawRequest(
        plotter, [](void*) {}, nullptr);
    plotter.OnMouseWheel(0, 120, start);
    plotter.Trace(true);
    plotter.OnMouseMove(0, start);
    EXPECT_EQ(plotter.Renderscene(), 0);
    EXPECT_FALSE(IsDetailReduced(plotter)) << "a traced point has everything around it";
    plotter.OnMouseWheel(0, 120, start);
    EXPECT_EQ(plotter.Renderscene(), 0);
    EXPECT_TRUE(IsDetailReduced(plotter));

    plotter.OnMouseWheel(0, 120, start);
    SetRedrawRequest(plotter, nullptr, nullptr);
    EXPECT_EQ(plotter.Renderscene(), 0);
    EXPECT_FALSE(IsDetailReduced(plotter)) << "what has been asked for is forgotten";
}

TEST_P(Motion, AHostsOwnStepsAreDrawnAsADragIs) {
    SetSurface(HillSurface(121, 83));
    const Image whole = WholeImage();
    if (whole.rgba.empty()) GTEST_SKIP() << "nobody can look into the window";
    const Image dragged = MovedImage(6);
    WholeImage();
    EXPECT_EQ(RenderMovedScene(plotter), 0);
    EXPECT_TRUE(IsDetailReduced(plotter));
    EXPECT_TRUE(ImagesAgree(plot.window.Presented(plotter), dragged, 0, 0.0, "motion-own"));
    SetMotionDetail(plotter, 0);
    EXPECT_EQ(RenderMovedScene(plotter), 0);
    EXPECT_FALSE(IsDetailReduced(plotter));
}

TEST_P(Motion, ARequestMayDrawAndDestroyThePlotter) {
    SetSurface(HillSurface(40, 30));
    SetRedrawRequest(
        plotter, [](void* context) { static_cast<PlotterProbe*>(context)->OnDraw(); }, &plotter);
    plotter.OnMouseWheel(0, 120, start);

    auto other = std::make_unique<CKivoFunctionPlotter>();
    const TestWindow window(WindowKind::offscreen, 400, 300);
    ASSERT_EQ(other->OnCreate(window.Handle(), 400, 300, true), 0);
    SetRedrawRequest(
        *other, [](void* context) { static_cast<decltype(other)*>(context)->reset(); }, &other);
    other->OnMouseWheel(0, 120, start);
    EXPECT_EQ(other, nullptr);
}

// A picture shows everything unless it is asked to show what a drag would.
TEST_P(Motion, APictureOfADragShowsLess) {
    SetSurface(HillSurface(121, 83));
    ASSERT_EQ(SetMotionDetail(plotter, 6), 0);
    SKivoPictureOptions options;
    const Image whole = Picture(options);
    options.moving = true;
    const Image moved = Picture(options);
    EXPECT_GT(Compare(moved, whole).mean, 1.0);
    options.smoothing = 2;
    const Image smooth = Picture(options);
    EXPECT_LT(Compare(smooth, moved).mean, Compare(smooth, whole).mean);
    options = {};
    EXPECT_TRUE(ImagesAgree(Picture(options), whole, 0, 0.0, "motion-whole-picture"));
    ASSERT_EQ(SetMotionDetail(plotter, 0), 0);
    options.moving = true;
    EXPECT_TRUE(ImagesAgree(Picture(options), whole, 0, 0.0, "motion-unreduced-picture"));
}

// ---- Measuring

TEST_P(Motion, ATimeGivesADetailThatTakesAsLong) {
    SetSurface(HillSurface(300, 300));
    EXPECT_EQ(MotionDetailFor(plotter, 1e-6), 10U) << "nothing is as fast";
    EXPECT_EQ(MotionDetailFor(plotter, 1e9), 0U);
    EXPECT_EQ(MotionDetailFor(plotter, std::numeric_limits<double>::infinity()), 0U);
    const unsigned int detail = MotionDetailFor(plotter, 10.0);
    EXPECT_TRUE(detail == 0 || (detail >= 10 && detail < 300)) << detail;
    EXPECT_EQ(SetMotionDetail(plotter, detail), 0);
}

TEST_P(Motion, NothingIsMeasuredWhereThereIsNothingToMeasure) {
    EXPECT_EQ(MotionDetailFor(plotter, 10.0), 0U) << "without data";
    SetSurface(HillSurface(40, 30));
    for (const double time : {0.0, -1.0, std::nan(""), -std::numeric_limits<double>::infinity()})
        EXPECT_EQ(MotionDetailFor(plotter, time), 0U) << time;
    plotter.SwitchToXYProjectPlot();
    EXPECT_EQ(MotionDetailFor(plotter, 1e-6), 0U) << "in a flat plot";
    plotter.SwitchToNormalPlot();
    EXPECT_EQ(MotionDetailFor(plotter, 1e-6), 10U);
    plotter.OnDestroy();
    EXPECT_EQ(MotionDetailFor(plotter, 1e-6), 0U);
}

TEST_P(Motion, WhatTheWindowShowsStaysWhileItIsMeasured) {
    if (GetParam() != WindowKind::onScreen) return; // off-screen there is one buffer
    SetSurface(HillSurface(60, 60));
    const Image before = WholeImage();
    MotionDetailFor(plotter, 1e-6);
    EXPECT_TRUE(ImagesAgree(plot.window.Presented(plotter), before, 0, 0.0, "motion-measured"));
}

KIVO_IN_EVERY_WINDOW(Motion);

// ---- Without a window

TEST(MotionWithoutWindow, IsSetAndKept) {
    CKivoFunctionPlotter plotter;
    EXPECT_FALSE(IsDetailReduced(plotter));
    EXPECT_EQ(SetMotionDetail(plotter, 1), -3);
    EXPECT_EQ(SetMotionDetail(plotter, 5), 0);
    EXPECT_EQ(MotionDetailFor(plotter, 10.0), 0U);
    const TestSurface surface = HillSurface(30, 20);
    plotter.SetData(surface.NewArray(), 30, 20, 1, 30, 3);
    EXPECT_EQ(MotionDetailFor(plotter, 10.0), 0U);
    plotter.OnMouseWheel(0, 120, start);
    plotter.OnRButtonDown(MK_RBUTTON, POINT{0, 0});
    plotter.OnMouseMove(MK_RBUTTON, POINT{0, 0});
    EXPECT_FALSE(IsDetailReduced(plotter)) << "nothing was presented";

    const TestWindow window(WindowKind::offscreen, 400, 300);
    ASSERT_EQ(plotter.OnCreate(window.Handle(), 400, 300, true), 0);
    plotter.SetData(surface.NewArray(), 30, 20, 1, 30, 3);
    plotter.OnMouseWheel(0, 120, start);
    EXPECT_TRUE(IsDetailReduced(plotter));
    plotter.OnDestroy();
}

// ---- Memory

// What it takes beside the arrays of a grid of four million points: colours, texture coordinates, triangles
// and frame lines.
TEST(ReducedSurface, TakesAHundredthOfTheMemory) {
    constexpr unsigned int n = 2000;
    const ReducedGrid grid = {KeepAtMost(n, 150), KeepAtMost(n, 150)};
    const SurfaceOutline outline = {nullptr, n, n, 3, {1, 1}, false, true};
    const SurfaceArrays arrays = ReducedSurface(outline, grid).Arrays();
    const std::size_t bytes = grid.Count() * (3 + 4) * sizeof(float) +
                              (arrays.triangleIndexCount + arrays.lineIndexCount) * sizeof(unsigned int);
    const std::size_t points = std::size_t{n} * n, cells = std::size_t{n - 1} * (n - 1);
    const std::size_t whole =
        points * (4 + 2) * sizeof(float) + (cells * 6 + points * 4) * sizeof(unsigned int);
    EXPECT_GT(bytes, 140U * 140U * 28U);
    EXPECT_LE(bytes * 100, whole);
}
