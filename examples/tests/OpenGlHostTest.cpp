// Hosts that draw with OpenGL themselves beside a plot, on a real display: both show what they should while
// colours and plots change, pages are switched and the window is resized.
#include "opengl/OpenGlHost.h"
#include "ExampleHosts.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/PrivateFolder.h"
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

using namespace KivoTest;
using namespace KivoDrawingTools;

namespace {

class OpenGlHostTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        const std::string program = std::string(KIVO_EXAMPLES) + "/tests/opengl_" + GetParam() + "_host";
        if (!std::filesystem::exists(program)) GTEST_SKIP() << program << " is not built";
        m_desktop = std::make_unique<Desktop>();
        m_desktop->MovePointer(1200, 1000); // out of the way
        m_program = std::make_unique<ChildProcess>(program, std::vector<std::string>{},
                                                   Environment{{"NO_AT_BRIDGE", "1"},
                                                               {"GTK_A11Y", "none"},
                                                               {"XDG_RUNTIME_DIR", m_runtimeFolder.Path()}});
        ASSERT_TRUE(WaitFor([this] {
            m_window = m_desktop->FindWindow(openGlTitle);
            return m_window != XCB_NONE;
        })) << "no window; "
            << m_program->Errors();
        m_desktop->Focus(m_window);
        m_expected.Resize(openGlWidth / 2, openGlHeight);
    }

    ScreenArea Half(bool isRight) const {
        const ScreenArea area = m_desktop->AreaOf(m_window);
        return {area.x + (isRight ? area.width / 2 : 0), area.y, area.width / 2, area.height};
    }

    bool IsColored(const Image& image) const {
        const OpenGlColor& color = openGlColors[m_color];
        const int rgb[] = {static_cast<int>(255 * color.red), static_cast<int>(255 * color.green),
                           static_cast<int>(255 * color.blue)};
        for (int y = 0; y < image.height; ++y)
            for (int x = 0; x < image.width; ++x)
                if (!image.IsNear(x, y, rgb)) return false;
        return image.width > 0;
    }

    testing::AssertionResult ShowsBoth(const std::string& step) {
        const Image expected = CaptureImage(m_expected.plotter);
        Image plot, color;
        const bool isShown = WaitFor([&] {
            plot = m_desktop->Grab(Half(false));
            color = m_desktop->Grab(Half(true));
            return plot.rgba == expected.rgba && IsColored(color);
        });
        KeepPng(m_desktop->Grab(m_window), std::string("opengl-") + GetParam() + "-" + step);
        if (isShown) return testing::AssertionSuccess();
        KeepPng(expected, std::string("opengl-") + GetParam() + "-" + step + "-expected");
        return testing::AssertionFailure()
               << step << ": the plot is " << (plot.rgba == expected.rgba ? "right" : "wrong")
               << ", the colour is " << (IsColored(color) ? "right" : "wrong") << "; " << m_program->Errors();
    }

    testing::AssertionResult ShowsNeither() {
        const auto isGone = [&] {
            const Image right = m_desktop->Grab(Half(true));
            return right.width > 0 && !IsColored(right);
        };
        return WaitFor(isGone) ? testing::AssertionSuccess() : testing::AssertionFailure() << "it stays";
    }

    void ChangeColor() {
        m_desktop->Press('c');
        m_color = 1 - m_color;
    }
    void Choose(char key) {
        m_desktop->Press(static_cast<xcb_keysym_t>(key));
        ChoosePlot(m_expected.plotter, key);
    }
    void Resize(int width, int height) {
        m_desktop->ResizeWindow(m_window, width, height);
        ASSERT_TRUE(WaitFor([&] { return m_desktop->AreaOf(m_window).width == width; }));
        m_expected.Resize(width / 2, height);
    }

    PrivateFolder m_runtimeFolder;
    ExpectedPlot m_expected;
    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<ChildProcess> m_program;
    xcb_window_t m_window = XCB_NONE;
    int m_color = 0;
};

INSTANTIATE_TEST_SUITE_P(Toolkits, OpenGlHostTest, testing::Values("gtk", "gtk4", "sdl", "qt"),
                         [](const auto& test) { return std::string(test.param); });

// SDL has a second window, with a plot on the screen.
TEST_P(OpenGlHostTest, APlotInAnotherWindowGoesOnToo) {
    if (std::string(GetParam()) != "sdl") GTEST_SKIP() << "there is one window";
    const Image expected = CaptureImage(m_expected.plotter);
    const auto isShown = [&] {
        const xcb_window_t other = m_desktop->FindWindow(hillTitle);
        return other != XCB_NONE && m_desktop->Grab(other).rgba == expected.rgba;
    };
    EXPECT_TRUE(WaitFor(isShown));
    EXPECT_TRUE(ShowsBoth("beside-another-window"));
}

TEST_P(OpenGlHostTest, PlotAndOwnOpenGlGoOnBesideEachOther) {
    ASSERT_TRUE(ShowsBoth("start"));
    ChangeColor();
    EXPECT_TRUE(ShowsBoth("color"));
    Choose('1');
    EXPECT_TRUE(ShowsBoth("flat"));
    for (int i = 0; i < 3; ++i) {
        m_desktop->Press('t');
        EXPECT_TRUE(ShowsNeither());
        m_desktop->Press('t');
        EXPECT_TRUE(ShowsBoth("page-" + std::to_string(i)));
    }
    Resize(640, 400);
    EXPECT_TRUE(ShowsBoth("size"));
    ChangeColor();
    Choose('0');
    EXPECT_TRUE(ShowsBoth("color-after-size"));
    m_desktop->Press('t');
    EXPECT_TRUE(ShowsNeither());
    Resize(900, 300);
    m_desktop->Press('t');
    EXPECT_TRUE(ShowsBoth("page-after-size"));
    m_desktop->AskToClose(m_window);
    EXPECT_EQ(m_program->WaitForExit().value_or(-1), 0);
    EXPECT_EQ(m_program->Errors(), "");
}

} // namespace
