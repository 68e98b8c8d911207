// The example with two windows: what is done in one, the other follows.
#include "ExampleHosts.h"
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/WaitFor.h"
#include "support/X11TestWindow.h"

#include <KivoView.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

using namespace KivoTest;
using namespace KivoDrawingTools;

namespace {

constexpr int width = 600;
constexpr int height = 450;

class LinkedViewsTest : public testing::Test {
protected:
    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        const ExampleHost host{"linked_views"};
        if (CommandOf(host).empty()) GTEST_SKIP() << host.name << " is not built";
        m_desktop = std::make_unique<Desktop>();
        ASSERT_TRUE(m_desktop->Ok());
        m_desktop->MovePointer(1250, 1000); // out of the way
        m_program = std::make_unique<HostProcess>(host, Environment());
        for (std::size_t i = 2; i < m_points.size(); i += 3)
            m_points[i] = std::cos(m_points[i - 2]) * std::sin(m_points[i - 1]);
        for (ExpectedPlot& plot : m_expected)
            plot.Resize(width, height);
        m_expected[1].plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
        ASSERT_TRUE(WaitFor([this] {
            m_windows[0] = m_desktop->FindWindow(hillTitle);
            m_windows[1] = m_desktop->FindWindow("cos(x) sin(y)");
            return m_windows[0] != XCB_NONE && m_windows[1] != XCB_NONE;
        })) << m_program->Errors();
        ASSERT_TRUE(ShowExpected("start"));
    }

    void TearDown() override {
        if (m_desktop) m_desktop->Button(rightButton, false);
    }

    // Both windows show what plots of their data show in one view.
    testing::AssertionResult ShowExpected(const char* step) {
        for (const int i : {0, 1}) {
            const Image expected = CaptureImage(m_expected[i].plotter);
            Image shown;
            const bool same = WaitFor([&] {
                shown = m_desktop->Grab(m_desktop->PlotIn(m_windows[i]));
                return shown.rgba.size() == expected.rgba.size() && Compare(shown, expected).mean <= 0.5;
            });
            const std::string name = std::string("linked-") + step + std::to_string(i);
            if (shown.width > 0) KeepPng(shown, name);
            KeepPng(expected, name + "-expected");
            if (!same) return testing::AssertionFailure() << step << ": window " << i;
        }
        return testing::AssertionSuccess();
    }

    // Moves of a drag from the middle of a window; the expected plots follow each other as well.
    void Drag(int leader) {
        ViewOf(leader);
        const ScreenArea area = m_desktop->AreaOf(m_windows[leader]);
        CKivoFunctionPlotter& plotter = m_expected[leader].plotter;
        m_desktop->MovePointer(area.x + 300, area.y + 200);
        m_desktop->Button(rightButton, true);
        plotter.OnRButtonDown(MK_RBUTTON, {300, 200});
        for (int step = 1; step <= 4; ++step) {
            m_desktop->MovePointer(area.x + 300 + 20 * step, area.y + 200 + 8 * step);
            plotter.OnMouseMove(MK_RBUTTON, {300 + 20 * step, 200 + 8 * step});
            ViewOf(leader);
            EXPECT_TRUE(ShowExpected("dragged")); // of moves that wait one is made
        }
        m_desktop->Button(rightButton, false);
        plotter.OnRButtonUp(0, {380, 232});
    }

    void ViewOf(int leader) { SetView(m_expected[1 - leader].plotter, GetView(m_expected[leader].plotter)); }

    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<HostProcess> m_program;
    std::vector<float> m_points = HillPoints();
    ExpectedPlot m_expected[2];
    xcb_window_t m_windows[2] = {XCB_NONE, XCB_NONE};
};

TEST_F(LinkedViewsTest, FollowEachOther) {
    Drag(0);
    Drag(1);
    m_desktop->Click(wheelUp); // over the second window
    m_expected[1].plotter.OnMouseWheel(0, 120, {380, 232});
    ViewOf(1);
    EXPECT_TRUE(ShowExpected("zoomed"));
    m_desktop->Focus(m_windows[0]);
    m_desktop->Press('2');
    m_expected[0].plotter.SwitchToYZProjectPlot();
    ViewOf(0);
    EXPECT_TRUE(ShowExpected("flat"));
}

TEST_F(LinkedViewsTest, KeepTheViewInAnotherSize) {
    Drag(0);
    m_desktop->Click(wheelUp);
    m_expected[0].plotter.OnMouseWheel(0, 120, {380, 232});
    ViewOf(0);
    EXPECT_TRUE(ShowExpected("zoomed"));
    m_desktop->ResizeWindow(m_windows[0], 500, 400);
    m_expected[0].Resize(500, 400);
    ViewOf(1);
    EXPECT_TRUE(ShowExpected("smaller"));
}

TEST_F(LinkedViewsTest, EndWithAWindow) {
    m_desktop->AskToClose(m_windows[1]);
    EXPECT_EQ(m_program->WaitForExit().value_or(-1), 0);
    EXPECT_EQ(m_program->Output() + m_program->Errors(), "");
}

} // namespace
