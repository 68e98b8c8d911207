// The examples as a user has them: every host on a real display, driven by injected input. What each shows is
// compared with one plot of the same grid, drawn here off-screen, that is told of the same presses, moves and
// turns of the wheel. Pictures go to the run's own folder.
#include "ExampleHosts.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/Pause.h"
#include "support/PngImage.h"
#include "support/X11TestWindow.h"

#include <KivoMotion.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoDrawingTools;

namespace {

class ExampleHostTest : public testing::TestWithParam<ExampleHost> {
protected:
    // A Windows starts with the first of its programs and ends after the last; starting it takes seconds. One
    // that waits for what is never written keeps it from test to test.
    static void SetUpTestSuite() {
        const ExampleHost host{"win32_native_host"};
        if (HasDisplay() && !CommandOf(host).empty())
            windows =
                std::make_unique<ChildProcess>(KIVO_WITH_WINE, std::vector<std::string>{"cmd", "/c", "more"});
    }
    static void TearDownTestSuite() { windows.reset(); }

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
        m_program = std::make_unique<HostProcess>(GetParam(), environment);
        ASSERT_TRUE(WaitFor([this] {
            m_window = m_desktop->FindWindow(hillTitle);
            return m_window != XCB_NONE;
        })) << "no window; "
            << m_program->Errors();
        // The window may be larger than the screen at first.
        ASSERT_TRUE(WaitFor([this] { return m_desktop->Grab(m_desktop->Root()).Count(IsRed) > 500; }))
            << "no surface";
        SetPlotSize(plotWidth, plotHeight);
        m_desktop->Focus(m_window);
        // The window has its size before the host knows of it, which then fits the view anew.
        ASSERT_TRUE(ShowsExpected("start"));
    }

    static bool IsRed(const unsigned char* rgb) { return rgb[0] > rgb[2] + 60; }

    void SetPlotSize(int width, int height) {
        const auto fits = [&] { return PlotArea().width == width && PlotArea().height == height; };
        while (!fits()) {
            const ScreenArea window = m_desktop->AreaOf(m_window);
            const ScreenArea plot = PlotArea();
            m_desktop->ResizeWindow(m_window, window.width + width - plot.width,
                                    window.height + height - plot.height);
            ASSERT_TRUE(WaitFor([&] {
                const ScreenArea now = PlotArea();
                return now.width != plot.width || now.height != plot.height;
            })) << "the window does not take the size";
        }
    }

    // ---- Input, for the host and for the expected plot

    ScreenArea PlotArea() const { return m_desktop->AreaOf(m_desktop->PlotIn(m_window)); }

    void MoveTo(int x, int y, unsigned int state) {
        m_desktop->MovePointer(PlotArea().x + x, PlotArea().y + y);
        m_expected->plotter.OnMouseMove(state, {x, y});
        // Toolkits make one of moves that wait: the next comes when this is seen. Some drop the first one
        // after the press, which is then seen with the next.
        if (state == 0) return;
        const Image expected = CaptureImage(m_expected->plotter);
        WaitFor([&] { return IsShown(expected); }, std::chrono::seconds(2));
    }

    // The expected plot a pixel further on, whole.
    Image NearBy() {
        m_expected->plotter.OnMouseMove(MK_RBUTTON, {361, 220});
        const Image image = CaptureImage(m_expected->plotter);
        m_expected->plotter.OnMouseMove(MK_RBUTTON, {360, 220});
        return image;
    }

    bool IsShown(const Image& expected) const {
        const Image shown = m_desktop->Grab(m_desktop->PlotIn(m_window));
        return shown.rgba.size() == expected.rgba.size() && Compare(shown, expected).mean <= m_meanLimit;
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

    // A drag in steps, as a hand makes them.
    void Drag(int x, int y, int stepX, int stepY, xcb_keysym_t modifier = 0) {
        constexpr int steps = 5;
        const unsigned int key = modifier == 0 ? 0 : modifier == shiftKey ? MK_SHIFT : MK_CONTROL;
        MoveTo(x, y, 0);
        if (modifier != 0) m_desktop->Key(modifier, true);
        PressAt(x, y);
        for (int i = 1; i <= steps; ++i)
            MoveTo(x + i * stepX, y + i * stepY, MK_RBUTTON | key);
        EXPECT_TRUE(ShowsExpected("dragged")); // some hosts read the keys late
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

    // What has changed nothing is told from what is still to be handled by a turn of the wheel afterwards.
    testing::AssertionResult ShowsExpectedAfterTheWheel(const std::string& step) {
        Wheel(400, 300, true);
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

    inline static std::unique_ptr<ChildProcess> windows;
    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<ExpectedPlot> m_expected;
    std::unique_ptr<HostProcess> m_program;
    xcb_window_t m_window = XCB_NONE;
    double m_meanLimit = 0.0; // of the differences
};

INSTANTIATE_TEST_SUITE_P(Examples, ExampleHostTest, testing::ValuesIn(AllHosts()),
                         [](const auto& test) { return test.param.name; });

TEST_P(ExampleHostTest, DragsTurnMoveAndZoomTheSamePicture) {
    Start();
    Drag(300, 200, 24, 8);
    EXPECT_TRUE(ShowsExpected("turned"));
    Drag(300, 200, 16, -10, shiftKey);
    EXPECT_TRUE(ShowsExpected("moved"));
    Drag(300, 200, 0, 12, controlKey);
    EXPECT_TRUE(ShowsExpected("zoomed"));
}

// Only places near the edges of the viewport tell positions on the screen from those in the window, and those
// in the window from those in the plot.
TEST_P(ExampleHostTest, WheelKnowsItsPlaceOnTheScreen) {
    Start();
    m_desktop->MoveWindow(m_window, 170, 90);
    ASSERT_TRUE(WaitFor([this] { return m_desktop->AreaOf(m_window).x == 170; }));
    ASSERT_TRUE(ShowsExpected("put-elsewhere"));
    Wheel(5, 5, true);
    EXPECT_TRUE(ShowsExpected("wheel-at-the-left"));
    Wheel(plotWidth * 84 / 100 - 5, plotHeight - 5, true);
    EXPECT_TRUE(ShowsExpected("wheel-at-the-right"));
    MoveTo(plotWidth * 84 / 100 + 5, 5, 0);
    m_desktop->Click(wheelUp);
    EXPECT_TRUE(ShowsExpectedAfterTheWheel("wheel-outside"));
    Wheel(400, 300, false);
    EXPECT_TRUE(ShowsExpected("wheel-back"));
}

// Toolkits report several steps in one event where the wheel is fast, or the program slow.
TEST_P(ExampleHostTest, ZoomsForEachStepOfAnEvent) {
    if (!GetParam().canLoseSteps) GTEST_SKIP() << "an event is one step, or the same as for other hosts";
    const std::string library = KIVO_THREEFOLD_WHEEL "/" + GetParam().name + "-threefold-wheel.so";
    ASSERT_TRUE(std::filesystem::exists(library)) << library;
    Start({{"LD_PRELOAD", library}});
    for (const bool isUp : {true, false, false}) {
        Wheel(400, 300, isUp);
        for (int more = 0; more < 2; ++more)
            m_expected->plotter.OnMouseWheel(0, isUp ? 120 : -120, {400, 300});
        EXPECT_TRUE(ShowsExpected(isUp ? "three-steps-up" : "three-steps-down"));
    }
}

// While the host stands still, a hand goes a long way.
TEST_P(ExampleHostTest, DrawsOneFrameForMovesThatWait) {
    if (!GetParam().reduces) GTEST_SKIP() << "frames are counted where the plotter presents them";
    if (GetParam().name == "win32_native_host")
        GTEST_SKIP() << "Windows makes one message of moves that wait";
    const FrameCount count;
    Start(count.For());
    PressAt(200, 200);
    MoveTo(203, 201, MK_RBUTTON); // which may be dropped
    MoveTo(206, 202, MK_RBUTTON);
    const Image expected = CaptureImage(m_expected->plotter);
    ASSERT_TRUE(WaitFor([&] { return IsShown(expected); }));
    constexpr int moves = 60;
    const int before = count.Frames();
    {
        const Pause pause(*m_program, *m_desktop);
        for (int i = 1; i <= moves; ++i)
            m_desktop->MovePointer(PlotArea().x + 206 + 3 * i, PlotArea().y + 202 + i);
    }
    // One of moves that wait, or of a few parts of them: many small ones turn the plot less.
    m_expected->plotter.OnMouseMove(MK_RBUTTON, {206 + 3 * moves, 202 + moves});
    // wxWidgets asks X for one move until it has seen that one: of the last it is told by the release.
    if (GetParam().name == "wx_native_host") m_desktop->Button(rightButton, false);
    EXPECT_TRUE(ShowsExpected("waiting-moves"));
    const int frames = count.Frames() - before;
    EXPECT_GE(frames, 1);
    EXPECT_LE(frames, moves / 6) << "one is due; they need not all come at once";
    ReleaseAt(206 + 3 * moves, 202 + moves);
    EXPECT_TRUE(ShowsExpected("waiting-moves-released"));
}

// Whatever a toolkit makes of moves that wait: the drag ends where the button went up, and begins where it
// went down.
TEST_P(ExampleHostTest, KeepsTheOrderOfWhatWaits) {
    if (GetParam().name == "win32_native_host") GTEST_SKIP() << "another process hands its input on";
    Start();
    MoveTo(300, 200, 0);
    const auto move = [this](int x, int y, unsigned int state) {
        m_desktop->MovePointer(PlotArea().x + x, PlotArea().y + y);
        m_expected->plotter.OnMouseMove(state, {x, y});
    };
    m_meanLimit = std::max(m_meanLimit, 1.0); // some make one of five moves, and others five
    {
        const Pause pause(*m_program, *m_desktop);
        for (int drag = 0; drag < 2; ++drag) {
            m_desktop->Button(rightButton, true);
            m_expected->plotter.OnRButtonDown(MK_RBUTTON, {300, 200});
            for (int i = 1; i <= 5; ++i)
                move(300 + 20 * i, 200 + 6 * i, MK_RBUTTON);
            ReleaseAt(400, 230);
            for (int i = 4; i >= 0; --i)
                move(300 + 20 * i, 200 + 6 * i, 0);
        }
        for (int i = 0; i < 3; ++i)
            m_desktop->Click(wheelUp);
        for (int i = 1; i <= 5; ++i)
            move(300, 200 + 6 * i, 0);
    }
    for (int i = 0; i < 3; ++i)
        m_expected->plotter.OnMouseWheel(0, 120, {300, 200});
    EXPECT_TRUE(ShowsExpected("waiting-drags"));
}

TEST_P(ExampleHostTest, DrawsFewerPointsUntilTheHandRests) {
    if (!GetParam().reduces) GTEST_SKIP() << "pictures show all points";
    if (GetParam().name == "win32_native_host") GTEST_SKIP() << "nothing can be loaded into it";
    Start({{"LD_PRELOAD", KIVO_FEW_POINTS}});
    SetMotionDetail(m_expected->plotter, 8);
    PressAt(300, 200);
    MoveTo(330, 210, MK_RBUTTON);
    MoveTo(360, 220, MK_RBUTTON);
    EXPECT_TRUE(ShowsExpected("whole-at-rest")); // the button is down
    const Image whole = CaptureImage(m_expected->plotter);
    // Near that place, all points and few differ by much more than two places.
    Image shown;
    const auto isReduced = [&] {
        shown = m_desktop->Grab(m_desktop->PlotIn(m_window));
        return shown.rgba.size() == whole.rgba.size() && Compare(shown, whole).mean > 3.0;
    };
    EXPECT_LT(Compare(whole, NearBy()).mean, 2.0);
    int step = 0;
    const auto shake = [&] {
        m_desktop->MovePointer(PlotArea().x + 360 + ++step % 2, PlotArea().y + 220);
        return isReduced();
    };
    EXPECT_TRUE(WaitFor(shake)) << "all points while the plot turns";
    Keep(shown, "reduced");
    // At once after the release: far sooner than by the timer, three times in a row. On a busy machine that
    // takes some tries.
    int inARow = 0;
    EXPECT_TRUE(WaitFor([&] {
        if (!WaitFor(shake)) return true;
        m_desktop->MovePointer(PlotArea().x + 360 + ++step % 2, PlotArea().y + 220);
        m_desktop->Button(rightButton, false);
        const auto released = std::chrono::steady_clock::now();
        WaitFor([&] { return !isReduced(); });
        const auto time = std::chrono::steady_clock::now() - released;
        m_desktop->Button(rightButton, true);
        inARow = time < std::chrono::milliseconds(restTime * 3 / 4) ? inARow + 1 : 0;
        return inARow == 3;
    })) << "not at once after the release";
    m_desktop->Button(rightButton, false);
}

TEST_P(ExampleHostTest, KeepsTheViewWhenItIsMovedOrHidden) {
    Start();
    Wheel(400, 300, true);
    Drag(300, 200, 10, 0);
    ASSERT_TRUE(ShowsExpected("view"));
    m_desktop->MoveWindow(m_window, 33, 44);
    EXPECT_TRUE(ShowsExpectedAfterTheWheel("view-elsewhere"));
    m_desktop->HideWindow(m_window);
    ASSERT_TRUE(WaitFor([this] { return !m_desktop->IsShown(m_window); }));
    m_desktop->ShowWindow(m_window);
    ASSERT_TRUE(WaitFor([this] { return m_desktop->IsShown(m_window); }));
    EXPECT_TRUE(ShowsExpected("view-again"));
    EXPECT_TRUE(ShowsExpectedAfterTheWheel("view-kept"));
}

TEST_P(ExampleHostTest, HidesAndShowsThePlotInItsWindow) {
    if (!GetParam().canHidePlot) GTEST_SKIP() << "the plot is the whole window";
    Start();
    Drag(300, 200, 10, 0);
    ASSERT_TRUE(ShowsExpected("before-hiding"));
    m_desktop->Press('h');
    ASSERT_TRUE(WaitFor([this] { return m_desktop->Grab(m_window).Count(IsRed) == 0; }));
    Keep(m_desktop->Grab(m_window), "hidden");
    m_desktop->Press('h');
    if (GetParam().hidingEndsPlot) m_expected->CreateAgain();
    EXPECT_TRUE(ShowsExpected("shown-again"));
    Drag(300, 200, 0, 10);
    EXPECT_TRUE(ShowsExpected("turned-afterwards"));
}

TEST_P(ExampleHostTest, FollowsADragOutOfTheWindow) {
    Start();
    m_desktop->MoveWindow(m_window, 200, 100);
    ASSERT_TRUE(WaitFor([this] { return PlotArea().x >= 200; }));
    ASSERT_TRUE(ShowsExpected("before-dragging-out"));
    PressAt(60, 300);
    for (const int x : {30, 0, -40, -90})
        MoveTo(x, 300, MK_RBUTTON);
    for (const int x : {-30, 15, 45, 75})
        MoveTo(x, 300, MK_RBUTTON);
    ReleaseAt(75, 300);
    EXPECT_TRUE(ShowsExpected("dragged-out-and-back"));
    PressAt(60, 300);
    for (const int x : {30, 0, -40, -90})
        MoveTo(x, 300, MK_RBUTTON);
    ReleaseAt(-90, 300);
    for (const int x : {-30, 15, 45, 75})
        MoveTo(x, 300, 0);
    EXPECT_TRUE(ShowsExpectedAfterTheWheel("moved-after-release"));
}

TEST_P(ExampleHostTest, FollowsItsSize) {
    Start();
    Wheel(400, 300, true);
    EXPECT_TRUE(ShowsExpected("zoomed-before")); // a size undoes the zoom, and can overtake the wheel
    SetPlotSize(640, 700);
    m_expected->Resize(640, 700);
    EXPECT_TRUE(ShowsExpected("tall"));
    Drag(200, 200, 24, 8);
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
    Drag(300, 200, 24, 8);
    EXPECT_TRUE(ShowsExpected("scaled-turned"));
    Drag(300, 200, 16, -12, shiftKey);
    EXPECT_TRUE(ShowsExpected("scaled-moved"));
    Wheel(plotWidth * 84 / 100 - 6, plotHeight - 6, true);
    EXPECT_TRUE(ShowsExpected("scaled-wheel"));
}

TEST_P(ExampleHostTest, SizesTextForTheScreen) {
    if (GetParam().name == "win32_native_host") GTEST_SKIP() << "Wine has a density of its own";
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
    ASSERT_TRUE(WaitFor([this] { return m_desktop->Grab(m_window).Count(IsRed) == 0; }));
    m_desktop->AskToClose(m_window);
    ExpectEnd();
}

} // namespace
