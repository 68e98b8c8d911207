// The examples in a Wayland session: with Xwayland every host shows its plot, without it each says in one
// sentence what to do, and the host that paints the plotter's picture itself needs no Xwayland at all.
#include "ExampleHosts.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/WestonSession.h"
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoDrawingTools;

namespace {

const std::vector<std::string> headless = {"--backend=headless-backend.so", "--use-pixman", "--width=1280",
                                           "--height=1024"};

std::vector<std::string> With(std::vector<std::string> arguments, const std::string& more) {
    arguments.push_back(more);
    return arguments;
}

class XwaylandHostTest : public testing::TestWithParam<ExampleHost> {
protected:
    static void SetUpTestSuite() {
        if (!HasWeston()) return;
        session = std::make_unique<WestonSession>(With(headless, "--xwayland"));
        display = session->IsThere() ? session->X11Display() : "";
    }
    static void TearDownTestSuite() { session.reset(); }

    void SetUp() override {
        if (!HasWeston()) GTEST_SKIP() << "no Weston";
        if (CommandOf(GetParam()).empty()) GTEST_SKIP() << GetParam().name << " is not built";
        ASSERT_NE(display, "");
    }

    inline static std::unique_ptr<WestonSession> session;
    inline static std::string display;
};

INSTANTIATE_TEST_SUITE_P(Examples, XwaylandHostTest, testing::ValuesIn(HostsOnX11()),
                         [](const auto& test) { return test.param.name; });

TEST_P(XwaylandHostTest, ShowsThePlot) {
    Desktop desktop(display);
    ASSERT_TRUE(desktop.Ok());
    Environment environment = session->Programs();
    environment["DISPLAY"] = display;
    const HostProcess host(GetParam(), environment);
    ExpectedPlot expected;
    Image shown;
    EXPECT_TRUE(WaitFor([&] {
        const xcb_window_t window = desktop.FindWindow(hillTitle);
        if (window == XCB_NONE) return false;
        shown = desktop.Grab(desktop.PlotIn(window));
        if (shown.width == 0) return false;
        expected.Resize(shown.width, shown.height);
        return Compare(shown, CaptureImage(expected.plotter)).max == 0;
    })) << host.Errors();
    if (shown.width > 0) KeepPng(shown, GetParam().name + "-xwayland");
}

class WaylandHostTest : public testing::TestWithParam<ExampleHost> {
protected:
    static void SetUpTestSuite() {
        if (HasWeston()) session = std::make_unique<WestonSession>(headless);
    }
    static void TearDownTestSuite() { session.reset(); }

    inline static std::unique_ptr<WestonSession> session;
};

INSTANTIATE_TEST_SUITE_P(Examples, WaylandHostTest, testing::ValuesIn(HostsOnX11()),
                         [](const auto& test) { return test.param.name; });

TEST_P(WaylandHostTest, SaysWhatToDoWithoutXwayland) {
    if (CommandOf(GetParam()).empty()) GTEST_SKIP() << GetParam().name << " is not built";
    if (!HasWeston()) GTEST_SKIP() << "no Weston";
    ASSERT_TRUE(session->IsThere());
    for (const char* const named : {"", ":60000"}) { // no server takes a number as high as the second
        Environment environment = session->Programs();
        if (*named) environment["DISPLAY"] = named;
        HostProcess host(GetParam(), environment);
        EXPECT_EQ(host.WaitForExit().value_or(-1), 1);
        EXPECT_EQ(host.Output(), "");
        const std::string sentence = GetParam().name + ": " + noDisplay + "\n";
        const std::string errors = host.Errors(); // Qt has words of its own before
        EXPECT_EQ(errors.substr(errors.size() - std::min(errors.size(), sentence.size())), sentence);
    }
}

// The compositor's only output is a window of the test's display, which the host fills: what the user sees.
TEST(WaylandImageHostTest, TurnsWithoutXwayland) {
    const ExampleHost imageHost{"gtk_image_host"};
    if (!HasDisplay() || !HasWeston()) GTEST_SKIP() << "no display or no Weston";
    if (CommandOf(imageHost).empty()) GTEST_SKIP() << "not built";
    const std::string size[] = {"--width=" + std::to_string(plotWidth),
                                "--height=" + std::to_string(plotHeight)};
    const WestonSession session(
        {"--backend=x11-backend.so", "--shell=kiosk-shell.so", "--use-pixman", size[0], size[1]},
        {{"WAYLAND_DISPLAY", std::nullopt}});
    ASSERT_TRUE(session.IsThere());
    Desktop desktop;
    xcb_window_t screen = XCB_NONE;
    ASSERT_TRUE(WaitFor([&] {
        screen = desktop.FindWindow("Weston Compositor - screen0");
        return screen != XCB_NONE;
    }));
    const HostProcess host(imageHost, session.Programs());
    ExpectedPlot expected;
    Image shown;
    const auto showsExpected = [&] {
        shown = desktop.Grab(screen);
        return shown.width == plotWidth && Compare(shown, CaptureImage(expected.plotter)).mean <
                                               0.5; // the compositor draws the pointer, too
    };
    EXPECT_TRUE(WaitFor(showsExpected));
    KeepPng(shown, "gtk_image_host-wayland-start");

    const ScreenArea area = desktop.AreaOf(screen);
    const auto moveTo = [&](int x, int y, unsigned int state) {
        desktop.MovePointer(area.x + x, area.y + y);
        expected.plotter.OnMouseMove(state, {x, y});
        // One of moves that wait, or the first after the press, can be seen with the next one only.
        WaitFor(showsExpected, std::chrono::seconds(2));
    };
    moveTo(300, 200, 0);
    desktop.Button(rightButton, true);
    expected.plotter.OnRButtonDown(MK_RBUTTON, {300, 200});
    for (int i = 1; i <= 5; ++i)
        moveTo(300 + 24 * i, 200 + 8 * i, MK_RBUTTON);
    EXPECT_TRUE(WaitFor(showsExpected)) << host.Errors();
    desktop.Button(rightButton, false);
    KeepPng(shown, "gtk_image_host-wayland-turned");
}

} // namespace
