// Trace mode in a window on a display: a host's loop hands the pointer's moves on, and the screen follows.
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"
#include "support/X11TestWindow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 500, height = 360;

/// A host: its window, its loop, and the plotter in the window.
class TraceHost : public testing::Test {
protected:
    void SetUp() override {
        if (!KivoTest::HasDisplay()) GTEST_SKIP() << "no display";
        KivoTest::X11TestWindow::Options options;
        options.x = 60;
        options.y = 40;
        options.width = width;
        options.height = height;
        options.eventMask = XCB_EVENT_MASK_POINTER_MOTION;
        window = std::make_unique<KivoTest::X11TestWindow>(options);
        ASSERT_TRUE(window->Ok());
        handle = AttachX11Window(window->Id());
        ASSERT_EQ(plotter.OnCreate(handle, width, height, true), 0) << LastWindowError();
        plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
        {
            const CurrentContext context(plotter);
            plotter.ApplyTopView();
        }
        plotter.SetPointRadiusPixelSize(8);
        plotter.OnDraw();
    }
    void TearDown() override {
        plotter.OnDestroy();
        if (handle) {
            EXPECT_EQ(ReleaseWindow(handle), 0);
        }
    }

    /// Moves the pointer and lets the host's loop hand the event on.
    void MovePointer(int x, int y) {
        window->MovePointer(x, y);
        xcb_generic_event_t event = {};
        do {
            ASSERT_TRUE(window->WaitForEvent(XCB_MOTION_NOTIFY, event));
            xcb_motion_notify_event_t motion = {};
            std::memcpy(&motion, &event, sizeof motion);
            last = {motion.event_x, motion.event_y};
            plotter.OnMouseMove(0, last);
        } while (last.x != x || last.y != y);
    }

    Image Screen() const {
        RECT rect = {};
        GetClientRect(handle, &rect); // the display has done everything that the plotter asked before
        Image image(width, height);
        image.rgba = window->Grab();
        return image;
    }

    /// Pixels on the screen in the marker's colour, and the middle of the rectangle that holds them.
    struct Marker {
        int count = 0;
        double x = 0, y = 0;
    };
    Marker FindMarker() const {
        const Image image = Screen();
        int left = width, right = -1, top = height, bottom = -1, count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const unsigned char* rgb = image.Pixel(x, y);
                if (!(rgb[0] > 150 && rgb[2] > 150 && rgb[1] < 60)) continue;
                ++count;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        return {count, 0.5 * (left + right), 0.5 * (top + bottom)};
    }

    /// Black pixels in the lower left corner of the plot.
    int LabelInk() const {
        const Image image = Screen();
        int ink = 0;
        for (int y = height - 28; y < height - 2; ++y)
            for (int x = 82; x < 260; ++x)
                ink += image.IsNear(x, y, {0, 0, 0}) ? 1 : 0;
        return ink;
    }

    POINT PixelOf(const float* point) {
        const CurrentContext context(plotter);
        plotter.ApplyViewVolume();
        plotter.ApplyModelViewMatrix();
        float pixel[3] = {};
        plotter.Project(point[0], point[1], point[2], pixel);
        return {static_cast<int>(std::lround(pixel[0])), height - static_cast<int>(std::lround(pixel[1]))};
    }

    TestSurface surface = HillSurface(40, 30);
    std::unique_ptr<KivoTest::X11TestWindow> window;
    HWND handle = nullptr;
    PlotterProbe plotter;
    POINT last = {};
};

} // namespace

TEST_F(TraceHost, TheMarkerFollowsThePointer) {
    plotter.Trace(true);
    for (const auto& cell : {std::vector<unsigned int>{10, 10}, {20, 8}, {30, 20}, {15, 24}}) {
        const POINT pt = PixelOf(surface.Point(cell[0], cell[1]));
        MovePointer(pt.x, pt.y);
        float point[3] = {};
        ASSERT_TRUE(plotter.GetTracePoint(point));
        const Marker marker = FindMarker();
        EXPECT_GT(marker.count, 40);
        const POINT drawn = PixelOf(point);
        EXPECT_NEAR(marker.x, drawn.x, 3.0);
        EXPECT_NEAR(marker.y, drawn.y, 3.0);
        EXPECT_NEAR(drawn.x, pt.x, 1);
        EXPECT_NEAR(drawn.y, pt.y, 1);
        EXPECT_GT(LabelInk(), 50);
    }
}

TEST_F(TraceHost, MarkerAndLabelVanishOffTheSurface) {
    plotter.Trace(true);
    const POINT pt = PixelOf(surface.Point(20, 15));
    MovePointer(pt.x, pt.y);
    EXPECT_GT(FindMarker().count, 0);
    EXPECT_GT(LabelInk(), 50);
    MovePointer(4, 5);
    float point[3] = {};
    EXPECT_FALSE(plotter.GetTracePoint(point));
    EXPECT_EQ(FindMarker().count, 0);
    EXPECT_EQ(LabelInk(), 0);
}

TEST_F(TraceHost, OutsideTraceModeMovesChangeNothingOnTheScreen) {
    const Image before = Screen();
    const POINT pt = PixelOf(surface.Point(20, 15));
    MovePointer(pt.x, pt.y);
    EXPECT_EQ(Compare(Screen(), before).max, 0);
    plotter.Trace(true);
    MovePointer(pt.x + 5, pt.y);
    EXPECT_GT(Compare(Screen(), before).max, 0);
    plotter.Trace(false);
    plotter.OnDraw();
    EXPECT_EQ(Compare(Screen(), before).max, 0);
}
