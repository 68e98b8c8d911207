// The hosts that show a control in a window, and nothing else: what they show on X11 and, without any X11, on
// Wayland is what a plotter of its own draws, and a hand turns it.
#include "ExampleHosts.h"
#include "support/BarePlot.h"
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/WestonSession.h"
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

using namespace KivoTest;
using namespace KivoDrawingTools;

namespace {

class ControlHostTest : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        if (CommandOf(ExampleHost{GetParam()}).empty()) GTEST_SKIP() << GetParam() << " is not built";
        m_desktop = std::make_unique<Desktop>();
        m_desktop->MovePointer(1270, 1010); // out of the way
    }

    static Image Expected(float density = 1.0f) {
        const int scale = static_cast<int>(density);
        BarePlot bare(plotWidth * scale, plotHeight * scale, density);
        std::vector<float> points = HillPoints();
        bare.plotter.SetDataReference(points.data(), hillColumns, hillRows, 1, hillColumns, 3);
        return bare.Smooth();
    }

    // Waits until a window shows it; the compositor of a Wayland session draws the pointer, too.
    bool Shows(xcb_window_t window, const Image& expected, double meanLimit, const std::string& step) {
        Image shown;
        const bool isSame = WaitFor([&] {
            shown = m_desktop->Grab(window);
            return shown.width == expected.width && shown.height == expected.height &&
                   Compare(shown, expected).mean <= meanLimit;
        });
        if (shown.width > 0) KeepPng(shown, GetParam() + "-" + step);
        return isSame;
    }

    // A drag turns the plot: what is shown then is something else, and no less.
    bool Turns(xcb_window_t window, const Image& before) {
        const ScreenArea area = m_desktop->AreaOf(window);
        const auto moveTo = [&](int x) { m_desktop->MovePointer(area.x + x, area.y + 300); };
        moveTo(300);
        m_desktop->Button(leftButton, true);
        for (int x = 310; x <= 400; x += 10)
            moveTo(x);
        m_desktop->Button(leftButton, false);
        Image shown;
        const bool isTurned = WaitFor([&] {
            shown = m_desktop->Grab(window);
            return Compare(shown, before).mean > 3.0 && CountInk(shown) > CountInk(before) / 2;
        });
        KeepPng(shown, GetParam() + "-turned");
        return isTurned;
    }

    xcb_window_t WindowOf(const std::string& title) {
        xcb_window_t window = XCB_NONE;
        WaitFor([&] { return (window = m_desktop->FindWindow(title)) != XCB_NONE; });
        return window;
    }

    std::unique_ptr<Desktop> m_desktop;
};

INSTANTIATE_TEST_SUITE_P(Examples, ControlHostTest,
                         testing::Values("qt_host", "quick_host", "gtk4_host", "wx_host"),
                         [](const auto& test) { return test.param; });

TEST_P(ControlHostTest, ShowsThePlotOnX11) {
    const HostProcess host(ExampleHost{GetParam()}, {{"NO_AT_BRIDGE", "1"}});
    const xcb_window_t window = WindowOf(hillTitle);
    ASSERT_NE(window, XCB_NONE) << host.Errors();
    m_desktop->ResizeWindow(window, plotWidth, plotHeight);
    const Image expected = Expected();
    ASSERT_TRUE(Shows(window, expected, 0.0, "x11")) << host.Errors();
    EXPECT_TRUE(Turns(window, expected)) << host.Errors();
}

// The compositor's only output is a window of the test's display, which the host fills: what the user sees.
TEST_P(ControlHostTest, ShowsThePlotOnWayland) {
    if (!HasWeston()) GTEST_SKIP() << "no Weston";
    const std::string size[] = {"--width=" + std::to_string(plotWidth),
                                "--height=" + std::to_string(plotHeight)};
    const WestonSession session(
        {"--backend=x11-backend.so", "--shell=kiosk-shell.so", "--use-pixman", size[0], size[1]},
        {{"WAYLAND_DISPLAY", std::nullopt}});
    ASSERT_TRUE(session.IsThere());
    const xcb_window_t screen = WindowOf("Weston Compositor - screen0");
    ASSERT_NE(screen, XCB_NONE);
    const HostProcess host(ExampleHost{GetParam()}, session.Programs());
    const Image expected = Expected();
    ASSERT_TRUE(Shows(screen, expected, 0.5, "wayland")) << host.Errors();
    EXPECT_TRUE(Turns(screen, expected)) << host.Errors();
}

} // namespace
