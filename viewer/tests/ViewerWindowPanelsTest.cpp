// The viewer's window: surfaces, colours and the legend, by keys.
#include "support/Image.h"
#include "ViewerWindow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;

namespace {

constexpr xcb_keysym_t rightKey = 0xff53;
constexpr xcb_keysym_t deleteKey = 0xffff;

constexpr double thinLines = 0.02; // least mean difference

const std::string hill = KIVO_TEST_DATA "/hill.csv";
const std::string plane = KIVO_TEST_DATA "/plane.csv";

class ViewerWindowPanelsTest : public ViewerWindow {
protected:
    // Goes to a column of the second surface; the list is the last before the plot in the order of Tab.
    void GoToSurface(int column) {
        PressWith(shiftKey, tabKey);
        Press(downKey);
        for (int i = 0; i < column; ++i)
            Press(rightKey);
    }

    static std::vector<std::string> Both(const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {hill, plane, "--size", "800x600"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
};

TEST_F(ViewerWindowPanelsTest, ListHidesAndRemovesASurface) {
    Start(Both());
    GoToSurface(0);
    After("hidden", [this] { Press(' '); });
    ExpectStart(After("shown", [this] { Press(' '); }));
    const Image removed = After("removed", [this] { Press(deleteKey); });
    Start({hill, "--size", "800x600"});
    EXPECT_LT(Compare(removed, m_start).mean, 0.02);
}

TEST_F(ViewerWindowPanelsTest, ListKeepsTheFirstSurface) {
    Start(Both());
    PressWith(shiftKey, tabKey);
    ExpectNoChange("delete", [this] { Press(deleteKey); });
}

TEST_F(ViewerWindowPanelsTest, ListChangesOpacityAndLines) {
    Start(Both({"--opacity", "1", "--opacity", "0.3"}));
    const Image wanted = m_start;
    Start(Both());
    GoToSurface(2);
    const Image changed = After("opacity", [this] {
        Press(f2Key);
        Type("0.3");
        Press(returnKey);
    });
    EXPECT_EQ(Compare(changed, wanted).max, 0);
    ExpectNoChange("too much", [this] {
        Press(f2Key);
        Type("3");
        Press(returnKey);
    });
    Press(rightKey);
    After(
        "lines", [this] { Press(' '); }, thinLines);
    Keep(Grab(AreaOf(m_window)), "window");
    const Image back = After(
        "no-lines", [this] { Press(' '); }, thinLines);
    EXPECT_EQ(Compare(back, wanted).max, 0);
}

TEST_F(ViewerWindowPanelsTest, ListColoursASurfaceByItsValues) {
    Start(Both({"--surface-color", "values", "--surface-color", "values"}));
    const Image wanted = m_start;
    Start(Both());
    GoToSurface(1);
    const Image changed = After("values", [this] {
        Press(returnKey);
        WaitForWindow();
        Settle();
        Press('v');
    });
    EXPECT_EQ(Compare(changed, wanted).max, 0);
}

// The lines of the first surface are those of the key F.
TEST_F(ViewerWindowPanelsTest, ListSwitchesTheLinesOfTheFirstSurface) {
    Start(Both({"--no-frame-lines"}));
    const Image wanted = m_start;
    Start(Both());
    PressWith(shiftKey, tabKey);
    for (int i = 0; i < 3; ++i)
        Press(rightKey);
    const Image changed = After("lines", [this] { Press(' '); });
    EXPECT_EQ(Compare(changed, wanted).max, 0);
}

TEST_F(ViewerWindowPanelsTest, KeysSwitchLegendGroupsAndFit) {
    Start(Both({"--points", KIVO_TEST_DATA "/wells.csv"}));
    for (const char key : {'l', 'n'}) {
        const std::string step(1, key);
        After(
            step, [&] { Press(static_cast<xcb_keysym_t>(key)); }, thinLines);
        ExpectStart(After(
            step + "-back", [&] { Press(static_cast<xcb_keysym_t>(key)); }, thinLines));
    }
    After("s", [this] { Press('s'); });
}

// In the section of colours a table follows background and ink.
TEST_F(ViewerWindowPanelsTest, PanelTakesATableAndRemembersIt) {
    Start({"--size", "800x600", "--colors", "viridis"});
    const Image wanted = m_start;
    Start({"--size", "800x600"});
    const Image chosen = After("viridis", [this] {
        PressWith(controlKey, '7');
        Press(tabKey);
        Press(tabKey);
        Press('v');
    });
    Keep(Grab(AreaOf(m_window)), "window");
    EXPECT_EQ(Compare(chosen, wanted).max, 0);
    EXPECT_EQ(Close(), 0);
    Start({});
    EXPECT_EQ(Compare(m_start, wanted).max, 0);
}

TEST_F(ViewerWindowPanelsTest, PanelTakesARangeOfColours) {
    Start({"--size", "800x600", "--color-range", "500:700"});
    const Image wanted = m_start;
    Start({"--size", "800x600"});
    PressWith(controlKey, '7');
    const Image ranged = After("range", [this] {
        for (int i = 0; i < 3; ++i)
            Press(tabKey);
        PressWith(controlKey, 'a');
        Type("500");
        PressWith(shiftKey, ';'); // a colon
        Type("700");
        Press(returnKey);
    });
    EXPECT_EQ(Compare(ranged, wanted).max, 0);
}

// Title, then numbers that are round.
TEST_F(ViewerWindowPanelsTest, PanelMakesALegend) {
    Start({"--size", "800x600", "--legend-title", "qz", "--legend-numbers", "round"});
    const Image wanted = m_start;
    Start({"--size", "800x600"});
    PressWith(controlKey, '9');
    const Image made = After(
        "legend",
        [this] {
            Press(tabKey);
            Type("qz");
            Press(tabKey);
            Press('r');
        },
        thinLines);
    Keep(Grab(AreaOf(m_window)), "window");
    EXPECT_EQ(Compare(made, wanted).max, 0);
}

} // namespace
