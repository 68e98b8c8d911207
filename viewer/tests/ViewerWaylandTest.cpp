// The viewer where there is no X11: in a Wayland session without Xwayland, whose only output is a window of
// the test's display, and without any screen at all.
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/Pause.h"
#include "support/PngImage.h"
#include "support/Quiet.h"
#include "support/WestonSession.h"
#include "support/X11TestWindow.h"
#include "ViewerWindow.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;

namespace {

constexpr int outputWidth = 1000, outputHeight = 700; // of the compositor, in pixels

class ViewerWindowWaylandTest : public testing::Test {
protected:
    void SetUp() override {
        if (!HasDisplay() || !HasWeston()) GTEST_SKIP() << "no display or no Weston";
        m_desktop = std::make_unique<Desktop>();
    }

    // The session has the window fill its output.
    void Start(int scale, const std::vector<std::string>& arguments) {
        m_viewer.reset();
        m_session.reset();
        // The compositor counts the ways of the pointer from where it enters, which it must not miss.
        m_desktop->MovePointer(outputWidth + 100, outputHeight + 100);
        m_session = std::make_unique<WestonSession>(
            std::vector<std::string>{"--backend=x11-backend.so", "--shell=kiosk-shell.so", "--use-pixman",
                                     "--width=" + std::to_string(outputWidth / scale),
                                     "--height=" + std::to_string(outputHeight / scale),
                                     "--scale=" + std::to_string(scale)},
            Environment{{"WAYLAND_DISPLAY", std::nullopt}});
        ASSERT_TRUE(m_session->IsThere());
        ASSERT_TRUE(WaitFor([this] {
            m_output = m_desktop->FindWindow("Weston Compositor - screen0");
            return m_output != XCB_NONE;
        }));
        Environment environment = m_session->Programs();
        environment["QT_QPA_PLATFORM"] = std::nullopt;
        environment["HOME"] = m_folder.Path();
        environment["XDG_CONFIG_HOME"] = m_folder.Path();
        m_viewer = std::make_unique<ViewerProcess>(arguments, environment);
        EXPECT_TRUE(WaitFor([this] { return IsShown(); })) << m_viewer->Errors();
        MoveAway();
        EXPECT_TRUE(WaitUntilQuiet(*m_desktop, *m_viewer));
    }

    bool IsShown() {
        EXPECT_TRUE(WaitUntilQuiet(*m_desktop, *m_viewer));
        m_plot = PlotIn(m_desktop->Grab(m_output));
        return m_plot.width > outputWidth / 2 && Grab().Count(IsColorful) > 5000;
    }

    Image Grab() const {
        const ScreenArea output = m_desktop->AreaOf(m_output);
        return m_desktop->Grab(
            ScreenArea{output.x + m_plot.x, output.y + m_plot.y, m_plot.width, m_plot.height});
    }

    // What the command line draws of the same size.
    Image Picture(std::vector<std::string> arguments, const std::string& dpi) const {
        const std::string path = m_folder.Path() + "/picture.png";
        arguments.insert(arguments.end(),
                         {"--picture", path, "--dpi", dpi, "--size",
                          std::to_string(m_plot.width) + "x" + std::to_string(m_plot.height)});
        EXPECT_EQ(RunViewer(arguments, WithoutDisplay()).exitCode, 0);
        return ReadPng(path);
    }

    void MoveTo(int x, int y) const {
        const ScreenArea output = m_desktop->AreaOf(m_output);
        m_desktop->MovePointer(output.x + x, output.y + y);
        m_desktop->Sync();
    }

    // To the status bar: the compositor draws the pointer.
    void MoveAway() const { MoveTo(outputWidth / 2, outputHeight - 5); }

    PrivateFolder m_folder; // the viewer's home
    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<WestonSession> m_session;
    std::unique_ptr<ViewerProcess> m_viewer;
    xcb_window_t m_output = XCB_NONE;
    ScreenArea m_plot; // in the output
};

TEST_F(ViewerWindowWaylandTest, ShowsThePictureToThePixelAtEachDensity) {
    const std::vector<std::string> sample = {KIVO_SAMPLE_TERRAIN};
    for (const int scale : {1, 2}) {
        Start(scale, sample);
        const Image picture = Picture(sample, std::to_string(96 * scale));
        EXPECT_TRUE(WaitFor([&] { return Grab().rgba == picture.rgba; })) << "not the picture at " << scale;
        KeepPng(m_desktop->Grab(m_output), "viewer-wayland-" + std::to_string(scale));
    }
}

TEST_F(ViewerWindowWaylandTest, IsTurnedByTheHandAndSetByKeys) {
    Start(1, {KIVO_SAMPLE_TERRAIN});
    Image start;
    EXPECT_TRUE(WaitFor([&] { // the compositor shows the pointer elsewhere
        const Image before = std::exchange(start, Grab());
        return before.rgba == start.rgba;
    }));
    const int x = m_plot.x + m_plot.width / 2, y = m_plot.y + m_plot.height / 2;
    MoveTo(x, y);
    m_desktop->Button(rightButton, true);
    for (int i = 1; i <= 10; ++i)
        MoveTo(x + 10 * i, y + 3 * i);
    m_desktop->Button(rightButton, false);
    MoveAway();
    Image turned;
    EXPECT_TRUE(WaitFor([&] {
        turned = Grab();
        return Compare(turned, start).mean > 3.0 && turned.Count(IsColorful) > 5000;
    }));
    KeepPng(turned, "viewer-wayland-turned");
    m_desktop->Press(homeKey);
    EXPECT_TRUE(WaitFor([&] { return Grab().rgba == start.rgba; })) << "Home does not lead back";
    m_desktop->Press('1');
    EXPECT_TRUE(WaitFor([&] { return Compare(Grab(), start).mean > 3.0; })) << "no flat plot";
}

TEST_F(ViewerWindowWaylandTest, EndsByItsKey) {
    Start(1, {});
    m_desktop->Key(controlKey, true);
    m_desktop->Press('q');
    m_desktop->Key(controlKey, false);
    EXPECT_EQ(m_viewer->WaitForExit().value_or(-1), 0) << m_viewer->Errors();
    EXPECT_EQ(m_viewer->Errors().find("kivo-viewer:"), std::string::npos) << m_viewer->Errors();
}

TEST(ViewerWindowOffscreenTest, DrawsItsWindow) {
    const FrameCount count;
    const PrivateFolder home;
    Environment environment = WithoutDisplay();
    for (const auto& [name, value] : count.For())
        environment[name] = value;
    environment["QT_QPA_PLATFORM"] = "offscreen";
    environment["HOME"] = home.Path();
    environment["XDG_CONFIG_HOME"] = home.Path();
    ViewerProcess viewer({}, environment);
    EXPECT_TRUE(WaitFor([&] { return count.Frames() > 0; })) << viewer.Errors();
    EXPECT_FALSE(viewer.WaitForExit(std::chrono::milliseconds(200)));
}

} // namespace
