// The examples as a user has them: every host on a real display, driven by injected input. What each shows is
// compared with one plot of the same grid, drawn here off-screen, that is told of the same presses, moves and
// turns of the wheel. Pictures go to the folder in KIVO_TEST_OUTPUT, else to test-output.
#include "ExampleHosts.h"
#include "PrivateFolder.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace KivoTest;
using namespace KivoDrawingTools;

namespace {

class ExampleHostTest : public testing::TestWithParam<ExampleHost> {
protected:
    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        if (CommandOf(GetParam()).empty()) GTEST_SKIP() << GetParam().name << " is not built";
        m_desktop = std::make_unique<Desktop>();
        ASSERT_TRUE(m_desktop->Ok());
    }

    void TearDown() override {
        if (!m_desktop) return;
        m_program.reset();
        for (const xcb_keysym_t key : {controlKey, shiftKey})
            m_desktop->Key(key, false);
        for (const PointerButton button : {leftButton, rightButton})
            m_desktop->Button(button, false);
    }

    void Start(Environment environment = {}, int dpi = 96) {
        m_expected = std::make_unique<ExpectedPlot>(dpi);
        m_meanLimit = GetParam().meanLimit;
        m_desktop->MovePointer(1200, 1000); // out of the way
        environment["NO_AT_BRIDGE"] = "1";  // there is no accessibility bus to complain of
        environment["GTK_A11Y"] = "none";
        environment["XDG_RUNTIME_DIR"] = m_runtimeFolder.Path();
        m_program = StartHost(GetParam(), environment);
        ASSERT_TRUE(WaitFor([this] {
            m_window = m_desktop->FindWindow(hillTitle);
            return m_window != XCB_NONE;
        })) << "no window; "
            << m_program->Errors();
        ASSERT_TRUE(WaitFor([this] { return m_desktop->Grab(m_desktop->Root()).Count(IsRed) > 500; }))
            << "no surface";
        SetPlotSize(plotWidth, plotHeight);
        m_desktop->Focus(m_window);
    }

    static bool IsRed(const unsigned char* rgb) { return rgb[0] > rgb[2] + 60; }

    void SetPlotSize(int width, int height) {
        const auto fits = [&] {
            const ScreenArea window = m_desktop->AreaOf(m_window);
            const ScreenArea plot = m_desktop->AreaOf(m_desktop->PlotIn(m_window));
            if (plot.width == width && plot.height == height) return true;
            m_desktop->ResizeWindow(m_window, window.width + width - plot.width,
                                    window.height + height - plot.height);
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            return false;
        };
        ASSERT_TRUE(WaitFor(fits)) << "the window does not take the size";
    }

    // ---- Input, for the host and for the expected plot

    ScreenArea PlotArea() const { return m_desktop->AreaOf(m_desktop->PlotIn(m_window)); }

    void MoveTo(int x, int y, unsigned int state) {
        m_desktop->MovePointer(PlotArea().x + x, PlotArea().y + y);
        m_expected->plotter.OnMouseMove(state, {x, y});
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }

    void PressAt(int x, int y) {
        m_meanLimit = std::max(m_meanLimit, 0.5); // drags of fewer steps are rounded differently
        MoveTo(x, y, 0);
        m_desktop->Button(rightButton, true);
        m_expected->plotter.OnRButtonDown(MK_RBUTTON, {x, y});
    }

    void ReleaseAt(int x, int y) {
        m_desktop->Button(rightButton, false);
        m_expected->plotter.OnRButtonUp(0, {x, y});
    }

    // A drag in steps, as a hand makes them. The way is straight and has whole pixels at each step, so that
    // it hardly matters which of the steps a toolkit leaves out.
    void Drag(int x, int y, int stepX, int stepY, xcb_keysym_t modifier = 0) {
        constexpr int steps = 10;
        const unsigned int key = modifier == 0 ? 0 : modifier == shiftKey ? MK_SHIFT : MK_CONTROL;
        MoveTo(x, y, 0);
        if (modifier != 0) m_desktop->Key(modifier, true);
        PressAt(x, y);
        for (int i = 1; i <= steps; ++i)
            MoveTo(x + i * stepX, y + i * stepY, MK_RBUTTON | key);
        ReleaseAt(x + steps * stepX, y + steps * stepY);
        if (modifier != 0) m_desktop->Key(modifier, false);
    }

    void Wheel(int x, int y, bool isUp) {
        MoveTo(x, y, 0);
        m_desktop->Click(isUp ? wheelUp : wheelDown);
        m_expected->plotter.OnMouseWheel(0, isUp ? 120 : -120, {x, y});
    }

    // ---- Pictures

    // Waits until the host shows the expected plot.
    testing::AssertionResult ShowsExpected(const std::string& step) {
        const Image expected = CaptureImage(m_expected->plotter);
        Image shown;
        const bool same = WaitFor([&] {
            shown = m_desktop->Grab(m_desktop->PlotIn(m_window));
            return shown.rgba.size() == expected.rgba.size() && Compare(shown, expected).mean <= m_meanLimit;
        });
        Keep(shown, step);
        if (same) return testing::AssertionSuccess();
        Keep(expected, step + "-expected");
        if (shown.rgba.size() != expected.rgba.size())
            return testing::AssertionFailure() << step << ": " << shown.width << " x " << shown.height;
        const ImageDifference difference = Compare(shown, expected);
        return testing::AssertionFailure() << step << ": mean difference " << difference.mean << ", largest "
                                           << difference.max << "; " << m_program->Errors();
    }

    // The same for what must change nothing.
    testing::AssertionResult StillShowsExpected(const std::string& step) {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        return ShowsExpected(step);
    }

    static void Keep(const Image& image, const std::string& step) {
        if (image.width > 0) KeepPng(image, GetParam().name + "-" + step);
    }

    void ExpectEnd() {
        EXPECT_EQ(m_program->WaitForExit().value_or(-1), 0);
        EXPECT_EQ(m_program->Output(), "");
        EXPECT_EQ(m_program->Errors(), "");
    }

    PrivateFolder m_runtimeFolder;
    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<ExpectedPlot> m_expected;
    std::unique_ptr<ChildProcess> m_program;
    xcb_window_t m_window = XCB_NONE;
    double m_meanLimit = 0.0; // of the differences
};

INSTANTIATE_TEST_SUITE_P(Examples, ExampleHostTest, testing::ValuesIn(AllHosts()),
                         [](const auto& test) { return test.param.name; });

TEST_P(ExampleHostTest, DragsTurnMoveAndZoomTheSamePicture) {
    Start();
    ASSERT_TRUE(ShowsExpected("start"));
    Drag(300, 200, 12, 4);
    EXPECT_TRUE(ShowsExpected("turned"));
    Drag(300, 200, 8, -5, shiftKey);
    EXPECT_TRUE(ShowsExpected("moved"));
    Drag(300, 200, 0, 6, controlKey);
    EXPECT_TRUE(ShowsExpected("zoomed"));
}

// Only places near the edges of the viewport tell positions on the screen from those in the window, and those
// in the window from those in the plot.
TEST_P(ExampleHostTest, WheelKnowsItsPlaceOnTheScreen) {
    Start();
    m_desktop->MoveWindow(m_window, 170, 90);
    ASSERT_TRUE(WaitFor([this] { return m_desktop->AreaOf(m_window).x == 170; }));
    ASSERT_TRUE(StillShowsExpected("put-elsewhere"));
    Wheel(5, 5, true);
    EXPECT_TRUE(ShowsExpected("wheel-at-the-left"));
    Wheel(plotWidth * 84 / 100 - 5, plotHeight - 5, true);
    EXPECT_TRUE(ShowsExpected("wheel-at-the-right"));
    MoveTo(plotWidth * 84 / 100 + 5, 5, 0);
    m_desktop->Click(wheelUp);
    EXPECT_TRUE(StillShowsExpected("wheel-outside"));
    Wheel(400, 300, false);
    EXPECT_TRUE(ShowsExpected("wheel-back"));
}

TEST_P(ExampleHostTest, KeepsTheViewWhenItIsMovedOrHidden) {
    Start();
    Wheel(400, 300, true);
    Drag(300, 200, 5, 0);
    ASSERT_TRUE(ShowsExpected("view"));
    m_desktop->MoveWindow(m_window, 33, 44);
    EXPECT_TRUE(StillShowsExpected("view-elsewhere"));
    m_desktop->HideWindow(m_window);
    ASSERT_TRUE(WaitFor([this] { return !m_desktop->IsShown(m_window); }));
    m_desktop->ShowWindow(m_window);
    ASSERT_TRUE(WaitFor([this] { return m_desktop->IsShown(m_window); }));
    EXPECT_TRUE(StillShowsExpected("view-again"));
}

TEST_P(ExampleHostTest, HidesAndShowsThePlotInItsWindow) {
    if (!GetParam().canHidePlot) GTEST_SKIP() << "the plot is the whole window";
    Start();
    Drag(300, 200, 5, 0);
    ASSERT_TRUE(ShowsExpected("before-hiding"));
    m_desktop->Press('h');
    ASSERT_TRUE(WaitFor([this] { return m_desktop->Grab(m_window).Count(IsRed) == 0; }));
    Keep(m_desktop->Grab(m_window), "hidden");
    m_desktop->Press('h');
    if (GetParam().hidingEndsPlot) m_expected->CreateAgain();
    EXPECT_TRUE(ShowsExpected("shown-again"));
    Drag(300, 200, 0, 5);
    EXPECT_TRUE(ShowsExpected("turned-afterwards"));
}

TEST_P(ExampleHostTest, FollowsADragOutOfTheWindow) {
    Start();
    m_desktop->MoveWindow(m_window, 200, 100);
    ASSERT_TRUE(StillShowsExpected("before-dragging-out"));
    PressAt(60, 300);
    for (const int x : {30, 0, -40, -90, -30, 15, 45, 75})
        MoveTo(x, 300, MK_RBUTTON);
    ReleaseAt(75, 300);
    EXPECT_TRUE(ShowsExpected("dragged-out-and-back"));
    PressAt(60, 300);
    for (const int x : {30, 0, -40, -90})
        MoveTo(x, 300, MK_RBUTTON);
    ReleaseAt(-90, 300);
    for (const int x : {-30, 15, 45, 75})
        MoveTo(x, 300, 0);
    EXPECT_TRUE(StillShowsExpected("released-outside"));
}

TEST_P(ExampleHostTest, FollowsItsSize) {
    Start();
    Wheel(400, 300, true);
    SetPlotSize(640, 700);
    m_expected->Resize(640, 700);
    EXPECT_TRUE(ShowsExpected("tall"));
    Drag(200, 200, 12, 4);
    EXPECT_TRUE(ShowsExpected("tall-turned"));
}

TEST_P(ExampleHostTest, KeysChooseThePlot) {
    Start();
    ASSERT_TRUE(ShowsExpected("key-none"));
    for (const char key : {'1', '2', '3', '0'}) {
        m_desktop->Press(static_cast<xcb_keysym_t>(key));
        ChoosePlot(m_expected->plotter, key);
        EXPECT_TRUE(ShowsExpected(std::string("key-") + key));
    }
}

// Where a unit of the toolkit is two pixels, the plot has as many pixels as ever.
TEST_P(ExampleHostTest, CountsPixelsUnderAScaleFactor) {
    if (GetParam().twofold.empty()) GTEST_SKIP() << "the toolkit counts in pixels";
    Start(GetParam().twofold, GetParam().twofoldDpi);
    ASSERT_TRUE(ShowsExpected("scaled"));
    Drag(300, 200, 12, 4);
    EXPECT_TRUE(ShowsExpected("scaled-turned"));
    Drag(300, 200, 8, -6, shiftKey);
    EXPECT_TRUE(ShowsExpected("scaled-moved"));
    Wheel(plotWidth * 84 / 100 - 6, plotHeight - 6, true);
    EXPECT_TRUE(ShowsExpected("scaled-wheel"));
}

TEST_P(ExampleHostTest, SizesTextForTheScreen) {
    if (GetParam().name == "win32_host") GTEST_SKIP() << "Wine has a density of its own";
    m_desktop->SetResources("Xft.dpi:\t192\n");
    Start({}, 192);
    EXPECT_TRUE(ShowsExpected("dense"));
    m_desktop->SetResources("");
}

TEST_P(ExampleHostTest, EndsWithItsWindow) {
    Start();
    ASSERT_TRUE(ShowsExpected("before-closing"));
    m_desktop->AskToClose(m_window);
    ExpectEnd();
}

TEST_P(ExampleHostTest, EndsDuringADrag) {
    Start();
    PressAt(300, 200);
    MoveTo(330, 200, MK_RBUTTON);
    m_desktop->AskToClose(m_window);
    ExpectEnd();
}

TEST_P(ExampleHostTest, EndsWhileHidden) {
    Start();
    ASSERT_TRUE(ShowsExpected("before-hiding-and-closing"));
    m_desktop->HideWindow(m_window);
    m_desktop->AskToClose(m_window);
    ExpectEnd();
}

TEST_P(ExampleHostTest, EndsWhileThePlotIsHidden) {
    if (!GetParam().canHidePlot) GTEST_SKIP() << "the plot is the whole window";
    Start();
    ASSERT_TRUE(ShowsExpected("before-hiding-the-plot"));
    m_desktop->Press('h');
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    m_desktop->AskToClose(m_window);
    ExpectEnd();
}

} // namespace
