// A plot for a control: what it draws when, and what a hand does to it. No toolkit and no clock: what it asks
// for is written down.
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoPlotView.h"
#include "KivoStyle.h"
#include "KivoView.h"
#include "KivoWindow.h"
#include "support/Image.h"
#include "support/TestHostContext.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"
#include "ViewImage.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using KivoTest::ImageOf;

namespace {

constexpr int width = 400, height = 300;
constexpr POINT middle = {230, 150};

// What a control would hear.
struct Heard {
    int redraws = 0;
    int wake = -1;
    int changes = 0;
    int failures = 0;
    std::vector<std::string> traced;

    SKivoPlotViewEvents Events() {
        SKivoPlotViewEvents events;
        events.redraw = [this] { ++redraws; };
        events.wake = [this](int milliseconds) { wake = milliseconds; };
        events.viewChanged = [this] { ++changes; };
        events.failed = [this] { ++failures; };
        events.traced = [this](const float* point) { traced.push_back(point ? "point" : "none"); };
        return events;
    }
};

class PlotView : public testing::Test {
protected:
    PlotView() { view.SetSize(width, height); }

    void ShowHill(unsigned int columns = 41, unsigned int rows = 33) {
        const TestSurface hill = HillSurface(columns, rows);
        ASSERT_EQ(view.SetGrid(hill.points.data(), columns, rows), 0);
    }

    // With the hand at rest.
    Image Rested() {
        view.Update();
        return ImageOf(view.Draw());
    }

    void DragBy(KivoMouseButton button, unsigned int flags, int right, int down) {
        view.Press(button, flags, middle);
        view.Move(flags, {middle.x + right / 2, middle.y + down / 2});
        view.Move(flags, {middle.x + right, middle.y + down});
        view.Release(button);
    }

    Heard heard;
    CKivoPlotView view{heard.Events()};
    CKivoFunctionPlotter& plotter = view.Plotter();
};

// What a plotter in a window of its own draws.
class BarePlot {
public:
    BarePlot(int w, int h) : m_window(CreateOffscreenWindow(w, h)) {
        EXPECT_EQ(plotter.OnCreate(m_window, w, h, 10, true), 0);
    }
    ~BarePlot() {
        plotter.OnDestroy();
        ReleaseWindow(m_window);
    }
    BarePlot(const BarePlot&) = delete;
    BarePlot& operator=(const BarePlot&) = delete;

    void ShowHill(unsigned int columns, unsigned int rows) {
        const TestSurface hill = HillSurface(columns, rows);
        plotter.SetData(hill.NewArray(), columns, rows, 1, columns, 3);
    }

    Image Smooth(int smoothing = 2) {
        SKivoPictureOptions options;
        options.smoothing = smoothing;
        Image image;
        EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0);
        return image;
    }

    CKivoFunctionPlotter plotter;

private:
    HWND m_window;
};

} // namespace

// ---- What is drawn

TEST_F(PlotView, ShowsWhatABarePlotterDraws) {
    plotter.SetPlotTitle("Set at once");
    ShowHill();
    for (const double density : {1.0, 1.5, 2.0}) {
        const int w = static_cast<int>(width * density), h = static_cast<int>(height * density);
        ASSERT_EQ(view.SetSize(w, h, density), 0);
        BarePlot bare(w, h);
        SKivoStyle style;
        style.pixelScale = static_cast<float>(density);
        ASSERT_EQ(SetStyle(bare.plotter, style), 0);
        bare.plotter.SetPlotTitle("Set at once");
        bare.ShowHill(41, 33);
        EXPECT_TRUE(ImagesAgree(ImageOf(view.Draw()), bare.Smooth(), 0, 0.0, "view-bare")) << density;
    }
}

TEST_F(PlotView, KeepsTheViewOverSizesAndDensities) {
    ShowHill();
    DragBy(KivoMouseButton::left, 0, 60, 30);
    DragBy(KivoMouseButton::middle, 0, 20, -10);
    view.Wheel(600, middle);
    const SKivoView before = GetView(plotter);
    for (const double density : {2.0, 1.0, 1.25})
        for (const int side : {200, 900}) {
            view.SetSize(side, side / 2, density);
            view.Draw();
            const SKivoView after = GetView(plotter);
            EXPECT_NEAR(after.zoom, before.zoom, 1e-5);
            EXPECT_NEAR(after.panX, before.panX, 1e-5);
            EXPECT_NEAR(after.panY, before.panY, 1e-5);
            for (int i = 0; i < 9; ++i)
                EXPECT_NEAR(after.rotation[i], before.rotation[i], 1e-5);
        }
}

TEST_F(PlotView, TakesOnlyTheLastOfManySizes) {
    ShowHill();
    for (int side = 100; side < 400; ++side)
        view.SetSize(side, side);
    EXPECT_EQ(heard.redraws, 1);
    EXPECT_EQ(view.Draw().width, 399);
    view.SetSize(399, 399);
    EXPECT_FALSE(view.IsFrameDue());
}

TEST_F(PlotView, OfNoSizeDrawsNothing) {
    ShowHill();
    for (const int side : {0, -1, std::numeric_limits<int>::min()}) {
        view.SetSize(side, 300);
        EXPECT_EQ(view.Draw().pixels, nullptr);
        view.SetSize(300, side);
        EXPECT_EQ(view.Draw().pixels, nullptr);
        DragBy(KivoMouseButton::left, 0, 60, 30);
        view.Wheel(120, middle);
    }
    EXPECT_EQ(heard.failures, 0);
    view.SetSize(width, height);
    EXPECT_EQ(view.Draw().width, width);
}

TEST_F(PlotView, RefusesWhatIsNoSizeAndNoGrid) {
    for (const double density : {0.0, -1.0, 8.5, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(view.SetSize(100, 100, density), -3) << density;
    const float z[4] = {0, 1, 2, 3};
    EXPECT_EQ(view.SetGrid(nullptr, 2, 2), -3);
    EXPECT_EQ(view.SetGrid(z, 0, 2), -3);
    EXPECT_EQ(view.SetGrid(z, 1U << 31, 2), -3);
    EXPECT_EQ(view.SetHeights(nullptr, 2, 2, 0, 1, 0, 1), -3);
    EXPECT_EQ(view.SetHeights(z, 2, 2, 0, std::nan(""), 0, 1), -3);
    EXPECT_EQ(view.SetSmoothing(0), -3);
    EXPECT_EQ(view.SetSmoothing(5), -3);
    EXPECT_EQ(view.Draw().width, width);
}

TEST_F(PlotView, ThePlotterHasTheSizeAtOnce) {
    ShowHill();
    view.SetSize(123, 77, 1.25);
    int w = 0, h = 0;
    EXPECT_EQ(MeasurePicture(view.Plotter(), {}, w, h), 0);
    EXPECT_EQ(w, 123);
    EXPECT_EQ(h, 77);
    EXPECT_EQ(GetStyle(view.Plotter()).pixelScale, 1.25f);
}

TEST_F(PlotView, TakesHeightsAtEvenPlaces) {
    const float heights[] = {1, 2, 3, 4, 5, 6};
    ASSERT_EQ(view.SetHeights(heights, 3, 2, 10.0, 20.0, 5.0, -5.0), 0);
    const float points[] = {10, 5, 1, 15, 5, 2, 20, 5, 3, 10, -5, 4, 15, -5, 5, 20, -5, 6};
    const Image even = Rested();
    ASSERT_EQ(view.SetGrid(points, 3, 2), 0);
    EXPECT_TRUE(ImagesAgree(Rested(), even, 0, 0.0, "view-heights"));
    EXPECT_EQ(view.SetHeights(heights, 1, 1, 0, 1, 0, 1), 0) << "a single point";
    view.Draw();
}

TEST_F(PlotView, LargerThanAWindowIsDrawnAsLargeAsItCan) {
    ASSERT_EQ(view.SetSize(100000, 20), 0);
    EXPECT_EQ(view.Draw().width, 16384);
    EXPECT_EQ(view.Draw().height, 20);
}

// ---- When

TEST_F(PlotView, AsksOnceForAnyNumberOfMoves) {
    ShowHill();
    view.Draw();
    heard.redraws = 0;
    view.Press(KivoMouseButton::left, 0, middle);
    for (int i = 1; i <= 1000; ++i)
        view.Move(0, {middle.x + i % 50, middle.y});
    EXPECT_EQ(heard.redraws, 1);
    EXPECT_TRUE(view.IsFrameDue());
    view.Draw();
    EXPECT_FALSE(view.IsFrameDue());
    const unsigned char* const pixels = view.Draw().pixels;
    EXPECT_EQ(view.Draw().pixels, pixels);
}

TEST_F(PlotView, IsPlainAndReducedWhileItMovesAndSmoothAtRest) {
    ShowHill(200, 170);
    view.ReduceWhileMoving(false);
    SetMotionDetail(plotter, 10);
    const Image rested = Rested();
    view.Press(KivoMouseButton::left, 0, middle);
    view.Move(0, {middle.x + 40, middle.y});
    view.Move(0, middle);
    const Image moved = ImageOf(view.Draw());
    EXPECT_TRUE(heard.wake == 120 || heard.wake == 400) << heard.wake;
    BarePlot bare(width, height);
    bare.ShowHill(200, 170);
    SetMotionDetail(bare.plotter, 10);
    SetView(bare.plotter, GetView(plotter));
    SKivoPictureOptions options;
    options.moving = true;
    Image expected;
    ASSERT_EQ(CapturePicture(bare.plotter, options, expected.rgba, expected.width, expected.height), 0);
    EXPECT_TRUE(ImagesAgree(moved, expected, 255, 0.05, "view-moved"));
    EXPECT_GT(Compare(moved, rested).mean, 0.3);
    heard.redraws = 0;
    view.Wake();
    EXPECT_EQ(heard.redraws, 1);
    EXPECT_TRUE(ImagesAgree(ImageOf(view.Draw()), bare.Smooth(), 255, 0.05, "view-rested"));
}

TEST_F(PlotView, DrawsACompleteFrameAtTheRelease) {
    ShowHill();
    view.Draw();
    view.Press(KivoMouseButton::left, 0, middle);
    view.Move(0, {middle.x + 40, middle.y});
    view.Draw();
    heard.redraws = 0;
    view.Release(KivoMouseButton::left);
    if (heard.redraws == 0) { // on a busy machine even this plot is slow
        EXPECT_EQ(heard.wake, 400);
        view.Wake();
    } else {
        EXPECT_EQ(heard.wake, -1) << "nothing is waited for any more";
    }
    EXPECT_EQ(heard.redraws, 1);
    view.Draw();
    view.Wake();
    EXPECT_FALSE(view.IsFrameDue());
}

// A plot whose complete frames are slow: one must not come when the hand has just grabbed the plot again.
TEST_F(PlotView, WaitsAnewForTheHandThatGrabsItAgain) {
    view.SetSize(800, 600);
    view.SetSmoothing(3);
    ShowHill(600, 600);
    view.Draw();
    const auto grab = [this] {
        view.Press(KivoMouseButton::left, 0, middle);
        view.Move(0, {middle.x + 40, middle.y});
        view.Draw();
        view.Release(KivoMouseButton::left);
    };
    grab();
    if (heard.wake != 400) GTEST_SKIP() << "nothing is slow here";
    heard.wake = 0;
    view.Press(KivoMouseButton::left, 0, middle);
    EXPECT_EQ(heard.wake, 400);
    EXPECT_FALSE(view.IsFrameDue());
}

TEST_F(PlotView, HostsMayCallTheMouseMembersThemselves) {
    ShowHill();
    view.Draw();
    heard = Heard();
    plotter.OnRButtonDown(MK_RBUTTON, middle);
    plotter.OnMouseMove(MK_RBUTTON, {middle.x + 20, middle.y});
    EXPECT_EQ(heard.redraws, 1);
    EXPECT_TRUE(view.IsFrameDue());
}

TEST_F(PlotView, WakesForNothing) {
    for (int i = 0; i < 3; ++i)
        view.Wake();
    ShowHill();
    view.Wake();
    view.Draw();
    view.Wake();
    EXPECT_FALSE(view.IsFrameDue());
}

TEST_F(PlotView, TakesTheColorsOfAPaletteAndGivesThemBack) {
    ShowHill();
    const Image own = Rested();
    heard.redraws = 0;
    EXPECT_EQ(view.SetColors(0x00F0E0D0UL, 0x00302010UL), 0);
    EXPECT_EQ(heard.redraws, 1);
    EXPECT_EQ(GetStyle(view.Plotter()).inkColor, 0x00F0E0D0UL);
    EXPECT_TRUE(ImageOf(view.Draw()).IsNear(1, 1, {0x10, 0x20, 0x30}));
    EXPECT_EQ(view.SetColors({}, 0x00302010UL), 0);
    EXPECT_EQ(GetStyle(view.Plotter()).inkColor, 0UL);
    EXPECT_TRUE(ImageOf(view.Draw()).IsNear(1, 1, {0x10, 0x20, 0x30}));
    EXPECT_EQ(view.SetColors({}, {}), 0);
    EXPECT_EQ(ImageOf(view.Draw()).rgba, own.rgba);
}

// ---- The hand

TEST_F(PlotView, EveryButtonDoesItsOwn) {
    ShowHill();
    const SKivoView start = GetView(plotter);
    DragBy(KivoMouseButton::left, 0, 30, 10);
    const SKivoView turned = GetView(plotter);
    EXPECT_NE(turned.rotation[0], start.rotation[0]);
    EXPECT_EQ(turned.panX, start.panX);
    SetView(plotter, start);
    DragBy(KivoMouseButton::right, 0, 30, 10);
    EXPECT_NEAR(GetView(plotter).rotation[0], turned.rotation[0], 1e-6);
    const SKivoView before = GetView(plotter);
    DragBy(KivoMouseButton::middle, 0, 30, 15);
    EXPECT_NEAR(GetView(plotter).panX - before.panX, 30 / (0.84 * width), 1e-4);
    EXPECT_NEAR(GetView(plotter).panY - before.panY, -15.0 / height, 1e-4);
    DragBy(KivoMouseButton::left, MK_SHIFT, -30, -15);
    EXPECT_NEAR(GetView(plotter).panX, before.panX, 1e-4);
    DragBy(KivoMouseButton::left, MK_CONTROL, 0, 30);
    EXPECT_GT(GetView(plotter).zoom, before.zoom * 1.05);
    DragBy(KivoMouseButton::left, MK_CONTROL, 0, -30);
    EXPECT_NEAR(GetView(plotter).zoom, before.zoom, 1e-4);
    EXPECT_EQ(heard.changes, 12);
}

TEST_F(PlotView, FlatPlotsAreShifted) {
    ShowHill();
    plotter.SwitchToXYProjectPlot();
    const SKivoView start = GetView(plotter);
    DragBy(KivoMouseButton::left, 0, 30, 0);
    const SKivoView shifted = GetView(plotter);
    EXPECT_TRUE(std::equal(start.rotation, start.rotation + 9, shifted.rotation));
    EXPECT_GT(shifted.panX, start.panX);
    EXPECT_TRUE(view.PressKey(KivoViewKey::right));
    EXPECT_GT(GetView(plotter).panX, shifted.panX);
}

TEST_F(PlotView, ADragGoesOnBeyondTheControlAndIsNotDisturbed) {
    ShowHill();
    view.Press(KivoMouseButton::left, 0, {2, 2}); // on the legend
    view.Press(KivoMouseButton::right, 0, {5, 5});
    const SKivoView start = GetView(plotter);
    view.Move(0, {-300, 700});
    EXPECT_NE(GetView(plotter).rotation[0], start.rotation[0]);
    EXPECT_FALSE(view.Release(KivoMouseButton::right));
    const SKivoView turned = GetView(plotter);
    view.Move(0, {-200, 700});
    EXPECT_NE(GetView(plotter).rotation[0], turned.rotation[0]);
    EXPECT_FALSE(view.Release(KivoMouseButton::left));
    const SKivoView last = GetView(plotter);
    view.Move(0, {0, 0});
    EXPECT_EQ(GetView(plotter).rotation[0], last.rotation[0]) << "nothing is pressed";
}

TEST_F(PlotView, TellsAClickFromADrag) {
    ShowHill();
    view.Press(KivoMouseButton::right, 0, middle);
    view.Move(0, {middle.x + 2, middle.y - 1});
    EXPECT_TRUE(view.Release(KivoMouseButton::right));
    view.Press(KivoMouseButton::right, 0, middle);
    view.Move(0, {middle.x + 9, middle.y});
    view.Move(0, middle);
    EXPECT_FALSE(view.Release(KivoMouseButton::right)) << "it went away and came back";
    view.Press(KivoMouseButton::right, 0, middle);
    view.Cancel();
    EXPECT_FALSE(view.Release(KivoMouseButton::right));
}

TEST_F(PlotView, ZoomsAtThePointer) {
    ShowHill();
    view.Wheel(50, {300, 100});
    EXPECT_NEAR(GetView(plotter).zoom, 1.0, 1e-6) << "no whole step yet";
    view.Wheel(70, {300, 100});
    EXPECT_NEAR(GetView(plotter).zoom, 1.04, 1e-4);
    EXPECT_NE(GetView(plotter).panX, 0.0);
    view.Wheel(-120, {300, 100});
    EXPECT_NEAR(GetView(plotter).zoom, 1.0, 1e-4);
    EXPECT_NEAR(GetView(plotter).panX, 0.0, 1e-4);
    view.Pinch(1.5, {300, 100});
    EXPECT_NEAR(GetView(plotter).zoom, 1.5, 1e-4);
    for (const double factor : {0.0, -2.0, std::nan(""), std::numeric_limits<double>::infinity()})
        view.Pinch(factor, middle);
    EXPECT_NEAR(GetView(plotter).zoom, 1.5, 1e-4);
    view.Wheel(std::numeric_limits<int>::max(), middle);
    view.Wheel(std::numeric_limits<int>::min(), middle);
    EXPECT_TRUE(std::isfinite(GetView(plotter).zoom));
}

TEST_F(PlotView, KeysTurnZoomAndSwitch) {
    ShowHill();
    double azimuth = 0.0, elevation = 0.0, turned = 0.0, lowered = 0.0;
    GetViewAngles(plotter, azimuth, elevation);
    EXPECT_TRUE(view.PressKey(KivoViewKey::right));
    EXPECT_TRUE(view.PressKey(KivoViewKey::up));
    EXPECT_EQ(GetViewAngles(plotter, turned, lowered), 0);
    EXPECT_NEAR(turned, azimuth - 5.0, 1e-4);
    EXPECT_NEAR(lowered, elevation - 5.0, 1e-4);
    view.PressKey(KivoViewKey::plus);
    EXPECT_NEAR(GetView(plotter).zoom, 1.1, 1e-4);
    view.PressKey(KivoViewKey::minus);
    EXPECT_NEAR(GetView(plotter).zoom, 1.0, 1e-4);
    view.PressKey(KivoViewKey::left, MK_SHIFT);
    EXPECT_LT(GetView(plotter).panX, -0.01);
    view.PressKey(KivoViewKey::home);
    EXPECT_EQ(GetView(plotter).panX, 0.0);
    const KivoViewKey keys[] = {KivoViewKey::xy, KivoViewKey::yz, KivoViewKey::xz, KivoViewKey::normal};
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(view.PressKey(keys[i]));
        EXPECT_EQ(plotter.GetCurrentPlotType(), (i + 1) % 4);
    }
    EXPECT_FALSE(view.PressKey(static_cast<KivoViewKey>(99)));
}

TEST_F(PlotView, StaysUprightWhenItHasTo) {
    ShowHill();
    view.KeepUpright(true);
    DragBy(KivoMouseButton::left, 0, 90, 45);
    double azimuth = 0.0, elevation = 0.0;
    EXPECT_EQ(GetViewAngles(plotter, azimuth, elevation), 0);
    view.KeepUpright(false);
    DragBy(KivoMouseButton::left, 0, 90, 45);
    EXPECT_EQ(GetViewAngles(plotter, azimuth, elevation), 1);
    view.KeepUpright(true);
    DragBy(KivoMouseButton::left, 0, 1, 0);
    EXPECT_EQ(GetViewAngles(plotter, azimuth, elevation), 0) << "it is set upright";
}

TEST_F(PlotView, TracesWhatIsUnderThePointerWithTheNextFrame) {
    ShowHill();
    view.Draw();
    view.Move(0, middle);
    EXPECT_FALSE(view.IsFrameDue());
    plotter.Trace(true);
    for (int i = 0; i < 50; ++i)
        view.Move(0, {middle.x + i % 3, middle.y});
    EXPECT_TRUE(heard.traced.empty());
    view.Draw();
    EXPECT_THAT(heard.traced, testing::ElementsAre("point"));
    view.Move(0, {3, 3});
    view.Draw();
    EXPECT_THAT(heard.traced, testing::ElementsAre("point", "none"));
    view.Move(0, middle);
    view.Draw();
    plotter.Trace(false);
    view.Update();
    view.Draw();
    view.Update();
    view.Draw();
    EXPECT_THAT(heard.traced, testing::ElementsAre("point", "none", "point", "none"));
}

// A host may end the trace before the frame that a move has asked for.
TEST_F(PlotView, ACompleteFrameFollowsEveryOther) {
    ShowHill(700, 700); // slow enough that traces show less
    view.Draw();
    plotter.Trace(true);
    view.Move(0, middle);
    plotter.Trace(false);
    view.Draw();
    view.Wake();
    const Image shown = ImageOf(view.Draw());
    EXPECT_TRUE(ImagesAgree(shown, Rested(), 0, 0.0, "view-complete-after-trace"));
}

// ---- Plotters of hosts

TEST(PlotViewOfADerivedClass, LaysItOutInItsOwnWay) {
    struct Derived : CKivoFunctionPlotter {
        int laidOut = 0;
    };
    auto own = std::make_unique<Derived>();
    Derived& derived = *own;
    SKivoPlotViewEvents events;
    events.layOut = [&](int w, int h) {
        derived.OnSize(0, w, h);
        ++derived.laidOut;
    };
    CKivoPlotView view(events, std::move(own));
    EXPECT_EQ(&view.Plotter(), &derived);
    view.SetSize(500, 300);
    view.Draw();
    EXPECT_EQ(derived.laidOut, 1);
    view.Update();
    view.Draw();
    EXPECT_EQ(derived.laidOut, 1);
}

// ---- In a window on the screen

TEST(PlotViewInAWindow, PresentsWhatImagesShow) {
    for (const WindowKind kind : AvailableWindowKinds()) {
        const TestWindow window(kind, width, height);
        auto own = std::make_unique<PlotterProbe>();
        PlotterProbe& probe = *own;
        Heard heard;
        CKivoPlotView shown(heard.Events(), window.Handle(), std::move(own));
        CKivoPlotView image({});
        const TestSurface hill = HillSurface(61, 53);
        for (CKivoPlotView* const view : {&shown, &image}) {
            view->SetSize(width, height);
            view->ReduceWhileMoving(false);
            SetMotionDetail(view->Plotter(), 10);
            ASSERT_EQ(view->SetGrid(hill.points.data(), 61, 53), 0);
        }
        EXPECT_EQ(shown.Draw().pixels, nullptr);
        EXPECT_EQ(shown.Failure(), "");
        const Image presented = window.Presented(probe);
        if (presented.rgba.empty()) continue; // nobody can look into the window
        EXPECT_TRUE(ImagesAgree(presented, ImageOf(image.Draw()), 0, 0.0, "view-presented"));
        for (CKivoPlotView* const view : {&shown, &image}) {
            view->Press(KivoMouseButton::left, 0, middle);
            view->Move(0, {middle.x + 30, middle.y + 10});
        }
        shown.Draw();
        EXPECT_TRUE(IsDetailReduced(shown.Plotter()));
        EXPECT_TRUE(
            ImagesAgree(window.Presented(probe), ImageOf(image.Draw()), 0, 0.0, "view-presented-moving"));
        shown.Wake();
        shown.Draw();
        EXPECT_FALSE(IsDetailReduced(shown.Plotter()));
    }
}

TEST(PlotViews, WithoutEventsAreQuiet) {
    CKivoPlotView view({});
    view.SetSize(width, height);
    view.Plotter().Trace(true);
    view.Move(0, middle);
    view.Press(KivoMouseButton::left, 0, middle);
    view.Move(0, {0, 0});
    EXPECT_NE(view.Draw().pixels, nullptr);
    view.Wake();
}

TEST(PlotViews, AnythingInAnyOrderDoesNoHarm) {
    std::mt19937 random(17);
    const auto whole = [&](int count) {
        return static_cast<int>(random() % static_cast<unsigned int>(count));
    };
    const TestSurface hill = HillSurface(12, 10);
    for (int round = 0; round < 6; ++round) {
        Heard heard;
        CKivoPlotView view(heard.Events());
        for (int i = 0; i < 150; ++i) {
            const POINT place = {whole(900) - 200, whole(900) - 200};
            switch (whole(17)) {
            case 0:
                view.SetSize(whole(300) - 5, whole(300) - 5, 0.5 + 0.5 * whole(4));
                break;
            case 1:
                view.Press(static_cast<KivoMouseButton>(whole(3)), static_cast<unsigned int>(random()),
                           place);
                break;
            case 2:
            case 3:
            case 4:
                view.Move(static_cast<unsigned int>(random()), place);
                break;
            case 5:
                view.Release(static_cast<KivoMouseButton>(whole(3)));
                break;
            case 6:
                view.Cancel();
                break;
            case 7:
                view.Wheel(whole(1000) - 500, place);
                break;
            case 8:
                view.Pinch(0.5 + whole(3), place);
                break;
            case 9:
                view.PressKey(static_cast<KivoViewKey>(whole(11)), static_cast<unsigned int>(random()));
                break;
            case 10:
                view.SetGrid(hill.points.data(), 12, 10);
                break;
            case 11:
                view.Plotter().Trace(whole(2) != 0);
                break;
            case 12:
                view.Wake();
                break;
            case 13:
                view.Plotter().OnDestroy();
                break;
            case 14:
                view.KeepUpright(whole(2) != 0);
                break;
            case 15:
                view.SetColors(random(), std::nullopt);
                break;
            default:
                view.Draw();
            }
        }
    }
}

// ---- Beside a host's OpenGL

TEST(PlotViewBesideAHost, KeepsItsContextCurrent) {
    KivoTest::TestHostContext host;
    ASSERT_TRUE(host.MakeCurrent());
    Heard heard;
    CKivoPlotView view(heard.Events());
    const TestSurface hill = HillSurface(12, 10);
    for (int i = 0; i < 5; ++i) {
        view.SetSize(width + i, height, 1.0 + 0.1 * i);
        view.SetGrid(hill.points.data(), 12, 10);
        view.Press(KivoMouseButton::left, 0, middle);
        view.Move(0, {middle.x + i, middle.y});
        view.Draw();
        view.Release(KivoMouseButton::left);
        view.Draw();
        EXPECT_TRUE(host.IsCurrent()) << i;
    }
}
