// The viewer's window: heights along a line that the hand draws.
#include "support/Image.h"
#include "ViewerWindow.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

using namespace KivoTest;
using KivoDrawingTools::Compare;

namespace {

constexpr xcb_keysym_t f5Key = 0xffc2;

const std::string hill = KIVO_TEST_DATA "/hill.csv";

class ViewerWindowProfileTest : public ViewerWindow {
protected:
    // Of the whole window, with the panel.
    Image Whole() {
        Rest();
        Settle();
        return Grab(AreaOf(m_window));
    }

    static double ShareOfDifference(const Image& a, const Image& b) {
        int count = 0;
        for (int y = 0; y < a.height; ++y)
            for (int x = 0; x < a.width; ++x)
                count += a.IsNear(x, y, {b.Pixel(x, y)[0], b.Pixel(x, y)[1], b.Pixel(x, y)[2]}, 8) ? 0 : 1;
        return static_cast<double>(count) / (static_cast<double>(a.width) * a.height);
    }
};

} // namespace

TEST_F(ViewerWindowProfileTest, LeftButtonDrawsTheLine) {
    Start({hill, "--mode", "1", "--size", "800x600", "--profile", "-1:0:1:0"});
    const Image whole = Whole();
    Keep(whole, "profile");
    ASSERT_TRUE(FindWindows());
    const Image before = Settled();
    Drag(leftButton, 120, -60);
    const Image drawn = Settled();
    Keep(Whole(), "drawn");
    const double changed = ShareOfDifference(before, drawn);
    EXPECT_GT(changed, 0.0005) << "no other line";
    EXPECT_LT(changed, 0.02) << "the plot has moved";
    EXPECT_GT(ShareOfDifference(whole, Whole()), 0.005) << "the panel has the heights of the old line";
}

TEST_F(ViewerWindowProfileTest, ASessionKeepsTheLine) {
    Start({hill, "--mode", "1", "--size", "800x600", "--profile", "-1:0:1:0"});
    Drag(leftButton, 120, -60);
    SaveSession("saved");
    desktop->MovePointer(0, 0);
    const Image drawn = Whole();
    Start({Path("saved.kivo"), "--size", "800x600"});
    desktop->MovePointer(0, 0);
    const Image opened = Whole();
    Keep(opened, "opened");
    EXPECT_LT(ShareOfDifference(drawn, opened), 0.002) << "there is more than words in the status bar";

    Start({hill, "--mode", "1", "--size", "800x600"});
    const Image closed = Whole();
    OpenFile("saved.kivo");
    const Image shown = Whole();
    EXPECT_GT(ShareOfDifference(closed, shown), 0.02) << "the panel is not shown";
    Press('p');
    Press(f5Key);
    EXPECT_LT(ShareOfDifference(closed, Whole()), 0.01) << "there is more than the panel";
    SaveSession("closed");
    std::ifstream file(Path("closed.kivo"));
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_EQ(text.str().find("profile"), std::string::npos) << "the panel is closed";
    Press('p');
    EXPECT_LT(ShareOfDifference(shown, Whole()), 0.002) << "files that are read again take the line away";
}

TEST_F(ViewerWindowProfileTest, AKeyOpensAndClosesIt) {
    Start({hill, "--size", "800x600"});
    Press('p');
    Rest();
    const Image open = Whole();
    Keep(open, "open");
    ASSERT_TRUE(FindWindows()) << "the flat plot, lower than before";
    const Image flat = Settled();
    Drag(leftButton, 60, -30);
    EXPECT_LT(ShareOfDifference(flat, Settled()), 0.02) << "a line, over a plot that stays where it is";
    Press('p');
    Rest();
    EXPECT_GT(ShareOfDifference(open, Whole()), 0.02);
    ASSERT_TRUE(FindWindows());
    const Image closed = Settled();
    EXPECT_GT(closed.height, flat.height);
    Drag(leftButton, 60, -30);
    EXPECT_GT(ShareOfDifference(closed, Settled()), 0.01) << "without the panel a drag moves the plot";
}
