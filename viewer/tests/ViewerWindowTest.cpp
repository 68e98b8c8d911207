// The viewer's window: mouse, keys, menus and panels.
#include "ViewerWindow.h"
#include "support/Image.h"
#include "support/PngImage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;

namespace {

using ViewerWindowTest = ViewerWindow;

// The panel stands on the right where the screen has room for it, the status bar below.
TEST_F(ViewerWindowTest, GivesThePlotItsSize) {
    EXPECT_EQ(m_plotArea.width, plotWidth);
    EXPECT_EQ(m_plotArea.height, plotHeight);
    const ScreenArea window = AreaOf(m_window);
    EXPECT_EQ(m_plotArea.x, window.x);
    EXPECT_GT(m_plotArea.y, window.y);
    EXPECT_GT(window.y + window.height, m_plotArea.y + m_plotArea.height);
    EXPECT_GT(window.width, plotWidth + 200);
    Start({"--size", "1200x600"});
    EXPECT_EQ(m_plotArea.width, 1200);
    EXPECT_EQ(AreaOf(m_window).width, 1200);
}

// What the screen shows is what the program draws without a screen.
TEST_F(ViewerWindowTest, ShowsWhatThePictureShows) {
    const std::string path = Path("picture.png");
    const std::string size = std::to_string(plotWidth) + "x" + std::to_string(plotHeight);
    ASSERT_EQ(RunViewer({"--picture", path, "--size", size}, WithoutDisplay()).exitCode, 0);
    const Image picture = ReadPng(path);
    Keep(picture, "picture");
    EXPECT_LT(Compare(m_start, picture).mean, 0.5);
}

TEST_F(ViewerWindowTest, RightDragTurns) {
    const Image turned = After("turn", [this] { Drag(rightButton, 120, 40); });
    After("turn-back", [this] { Drag(rightButton, -120, -40); });
    EXPECT_GT(Compare(m_start, turned).mean, 4 * Compare(m_start, Settled()).mean)
        << "the way back leads elsewhere";
    After("turn-again", [this] { Drag(rightButton, 120, 40); });
    ExpectStart(After("start-again", [this] { Press('0'); }));
}

TEST_F(ViewerWindowTest, ShiftDragMoves) {
    const Image moved = After("move", [this] { Drag(rightButton, 100, -50, shiftKey); });
    // The same pixels, elsewhere.
    EXPECT_NEAR(CountOf(moved, IsColorful), CountOf(m_start, IsColorful), CountOf(m_start, IsColorful) / 20);
    const Image back = After("move-back", [this] { Drag(rightButton, -100, 50, shiftKey); });
    EXPECT_LT(Compare(m_start, back).mean, 0.1);
    After("move-again", [this] { Drag(rightButton, 100, -50, shiftKey); });
    ExpectStart(After("reset", [this] { Press(homeKey); }));
}

TEST_F(ViewerWindowTest, ControlDragZooms) {
    const Image larger = After("zoom-in", [this] { Drag(rightButton, 0, 80, controlKey); });
    EXPECT_GT(CountOf(larger, IsColorful), CountOf(m_start, IsColorful) * 11 / 10);
    After("zoom-out", [this] { Drag(rightButton, 0, -160, controlKey); });
    EXPECT_LT(CountOf(Settled(), IsColorful), CountOf(m_start, IsColorful) * 9 / 10);
    ExpectStart(After("reset", [this] { Press('0'); }));
}

TEST_F(ViewerWindowTest, WheelZooms) {
    const Image larger = After("wheel-up", [this] { Wheel(wheelUp); });
    EXPECT_GT(CountOf(larger, IsColorful), CountOf(m_start, IsColorful));
    const Image smaller = After("wheel-down", [this] {
        Wheel(wheelDown);
        Wheel(wheelDown);
    });
    EXPECT_LT(CountOf(smaller, IsColorful), CountOf(m_start, IsColorful));
    ExpectStart(After("reset", [this] { Press('0'); }));
}

TEST_F(ViewerWindowTest, WheelZoomsForEachStepOfAnEvent) {
    const Image one = After("wheel-once", [this] { Wheel(wheelUp); });
    const Image three = After("wheel-thrice", [this] {
        Wheel(wheelUp);
        Wheel(wheelUp);
    });
    Start({"--size", std::to_string(plotWidth) + "x" + std::to_string(plotHeight)},
          {{"LD_PRELOAD", KIVO_THREEFOLD_WHEEL}});
    const Image atOnce = After("wheel-thrice-at-once", [this] { Wheel(wheelUp); });
    EXPECT_GT(Compare(atOnce, one).max, 0);
    EXPECT_EQ(Compare(atOnce, three).max, 0);
}

TEST_F(ViewerWindowTest, MovesAndClicksDoNothing) {
    ExpectNoChange("left-click", [this] { Drag(leftButton, 0, 0); });
    ExpectNoChange("move", [this] { MoveBy(100, 50); });
    ExpectNoChange("click", [this] { Drag(rightButton, 0, 0); });
}

TEST_F(ViewerWindowTest, FollowsTheWindowsSize) {
    const ScreenArea before = AreaOf(m_window);
    const int panelWidth = before.width - plotWidth;
    const int barHeight = before.height - plotHeight; // menus and status bar
    Resize(600 + panelWidth, 700 + barHeight);
    ASSERT_TRUE(WaitForPlotSize(600, 700));
    const Image resized = Settled();
    Keep(resized, "resized");
    EXPECT_GT(CountOf(resized, IsColorful), 5000);
    const int cream[] = {255, 253, 233};
    for (const int x : {1, 598})
        for (const int y : {1, 698})
            EXPECT_TRUE(resized.IsNear(x, y, cream, 2)) << "not drawn at " << x << ", " << y;
    Resize(plotWidth + panelWidth, plotHeight + barHeight);
    ASSERT_TRUE(WaitForPlotSize(plotWidth, plotHeight));
    WaitFor([this] { return Grab().rgba == m_start.rgba; });
    ExpectStart(Settled());
}

TEST_F(ViewerWindowTest, KeysChooseThePlot) {
    std::vector<Image> plots{m_start};
    for (const char key : {'1', '2', '3'}) {
        plots.push_back(After(std::string("key-") + key, [&] { Press(static_cast<xcb_keysym_t>(key)); }));
        for (std::size_t i = 0; i + 1 < plots.size(); ++i)
            EXPECT_GT(Compare(plots[i], plots.back()).mean, 0.2)
                << "plot " << key << " looks like plot " << i;
    }
    ExpectStart(After("key-0", [this] { Press('0'); }));
}

TEST_F(ViewerWindowTest, KeysTurnMoveAndZoom) {
    const auto press = [](xcb_keysym_t key) {
        return [key] {
            Press(key);
            Press(key);
        };
    };
    for (const xcb_keysym_t key : {upKey, downKey, xcb_keysym_t{'-'}, xcb_keysym_t{'='}}) {
        After("key-" + std::to_string(key), press(key));
        ExpectStart(After("reset", [this] { Press(homeKey); }));
    }
    After("shift-up", [] { PressWith(shiftKey, upKey); });
    ExpectStart(After("reset", [this] { Press('0'); }));
}

TEST_F(ViewerWindowTest, KeysSwitchContours) {
    for (const char key : {'x', 'y', 'z'}) {
        const std::string step(1, key);
        After(step, [&] { Press(static_cast<xcb_keysym_t>(key)); });
        ExpectStart(After("no-" + step, [&] { Press(static_cast<xcb_keysym_t>(key)); }));
    }
}

// The panel's first editor is that of the title. While it has the focus, keys are text.
TEST_F(ViewerWindowTest, PanelChangesTheTitle) {
    Press(tabKey);
    Press(tabKey);
    const Image titled = After("title", [this] {
        for (const char key : {'f', 'g', '1'})
            Press(static_cast<xcb_keysym_t>(key));
        Press(returnKey);
    });
    EXPECT_LT(DifferingPixels(titled, m_start, 40, plotHeight), 1) << "more than the title has changed";
    EXPECT_GT(DifferingPixels(titled, m_start, 0, 40), 100);
    After("frame-lines", [this] { Press('f'); }); // Return has given the keys back
}

TEST_F(ViewerWindowTest, KeyHidesThePanel) {
    Press(f9Key);
    const int width = AreaOf(m_window).width;
    ASSERT_TRUE(WaitForPlotSize(width, plotHeight));
    Press(f9Key);
    ASSERT_TRUE(WaitForPlotSize(plotWidth, plotHeight));
    ExpectStart(Settled());
}

// Each opens its section, in the panel that was hidden, too, and gives it the keys.
TEST_F(ViewerWindowTest, KeysGoToSectionsOfThePanel) {
    Press(f9Key);
    ASSERT_TRUE(WaitForPlotSize(AreaOf(m_window).width, plotHeight));
    PressWith(controlKey, '2'); // the X axis: its first tick
    ASSERT_TRUE(WaitForPlotSize(plotWidth, plotHeight));
    After("x-axis", [this] {
        PressWith(controlKey, 'a');
        Type("-20");
        Press(returnKey);
    });
    PressWith(controlKey, '8'); // the view, below the panel's end: its first switch
    After("view", [this] {
        Press(tabKey);
        Press(' '); // the second: auto aspect
    });
    Keep(Grab(AreaOf(m_window)), "view-window");
    const auto shiftHome = [this] { PressWith(shiftKey, homeKey); };
    ExpectStart(After("all-back", shiftHome));
}

// The background's sample is light on a light button.
TEST_F(ViewerWindowTest, ShowsWhereColoursEnd) {
    const ScreenArea window = AreaOf(m_window);
    const ScreenArea panel = {m_plotArea.x + plotWidth, m_plotArea.y, window.width - plotWidth, plotHeight};
    const Image closed = Grab(panel);
    PressWith(controlKey, '7');
    WaitFor([&] { return Grab(panel).rgba != closed.rgba; });
    Settled();
    const Image open = Grab(panel);
    Keep(open, "colours");
    const int cream[] = {255, 253, 233};
    int samples = 0;
    for (int y = 0; y < open.height; ++y)
        for (int x = 1, run = 0; x < open.width; ++x) {
            if (open.IsNear(x, y, cream, 0)) {
                ++run;
                continue;
            }
            if (run >= 20) {
                ++samples;
                EXPECT_LT(open.Pixel(x, y)[0], 150) << "right of the sample";
                EXPECT_LT(open.Pixel(x - run - 1, y)[0], 150) << "left of the sample";
            }
            run = 0;
        }
    EXPECT_GE(samples, 10) << "rows of the sample";
}

TEST_F(ViewerWindowTest, MenuSetsAllBack) {
    After("frame-lines", [this] { Press('f'); });
    After("contours", [this] { Press('z'); });
    ExpectStart(After("all-back", [this] { // the last entry of the menu Settings
        OpenMenu('s');
        Press(upKey);
        Press(returnKey);
    }));
}

// The last entries of the menu Plot, from below.
TEST_F(ViewerWindowTest, MenuMirrorsAxes) {
    const auto toggle = [this](int entry) {
        OpenMenu('p');
        for (int i = 0; i < entry; ++i)
            Press(upKey);
        Press(returnKey);
    };
    for (int entry = 1; entry <= 3; ++entry) {
        const std::string step = std::to_string(entry);
        After("mirror-" + step, [&] { toggle(entry); });
        ExpectStart(After("back-" + step, [&] { toggle(entry); }));
    }
}

TEST_F(ViewerWindowTest, KeysHideTheListAndEndTheProgram) {
    const std::string wells = KIVO_TEST_DATA "/wells.csv";
    Start({"--size", "800x600", "--points", wells});
    const ScreenArea window = AreaOf(m_window);
    const ScreenArea panels = {m_plotArea.x + plotWidth, m_plotArea.y, window.width - plotWidth, plotHeight};
    const Image shown = Grab(panels);
    Press(f10Key);
    EXPECT_TRUE(
        WaitFor([&] { return DifferingPixels(Grab(panels), shown, plotHeight * 3 / 4, plotHeight) > 100; }));
    Press(f10Key);
    EXPECT_TRUE(WaitFor([&] { return Grab(panels).rgba == shown.rgba; }));
    PressWith(controlKey, 'q');
    EXPECT_EQ(m_viewer->WaitForExit().value_or(-1), 0);
}

TEST_F(ViewerWindowTest, TakesSettingsOfTheCommandLine) {
    const Image plain = m_start;
    Start({"--size", "800x600", "--z-contours", "--no-frame-lines", "--title", "Σ₁²"});
    EXPECT_GT(DifferingPixels(m_start, plain, 0, 40), 100);
    EXPECT_GT(DifferingPixels(m_start, plain, 40, plotHeight), 5000);
    After("frame-lines", [this] { Press('f'); });
    After("no-contours", [this] { Press('z'); });
    EXPECT_EQ(DifferingPixels(Settled(), plain, 40, plotHeight), 0);
}

TEST_F(ViewerWindowTest, StatusBarTellsTheTracedPoint) {
    const ScreenArea window = AreaOf(m_window);
    const int bottom = m_plotArea.y + m_plotArea.height;
    const ScreenArea bar = {window.x, bottom, window.width, window.y + window.height - bottom};
    const Image empty = Grab(bar);
    Press('t');
    After("trace", [this] { MoveBy(40, 30); });
    const Image first = Grab(bar);
    Keep(first, "bar");
    EXPECT_GT(DifferingPixels(first, empty, 0, bar.height), 50);
    MoveBy(90, 10);
    Settled();
    EXPECT_GT(DifferingPixels(Grab(bar), first, 0, bar.height), 10) << "another point, the same numbers";
    MoveBy(-380, -280); // beside the surface
    Settled();
    EXPECT_EQ(DifferingPixels(Grab(bar), empty, 0, bar.height), 0);
    Press('t');
    ExpectStart(Settled());
}

// From the plot the list is the last before all others in the order of the Tab key.
TEST_F(ViewerWindowTest, ListHidesAndNamesPoints) {
    const std::string data = KIVO_TEST_DATA "/";
    Start({"--size", "800x600", "--points", data + "wells.csv", "--curve", data + "flight.csv"});
    PressWith(shiftKey, tabKey);
    const double balls = 0.02; // least mean difference
    const Image without = After(
        "without-points",
        [this] {
            Press(downKey);
            Press(' ');
        },
        balls);
    After(
        "without-curve",
        [this] {
            Press(downKey);
            Press(' ');
        },
        balls);
    const Image list = Grab(AreaOf(m_window));
    Press(f2Key);
    Press('q');
    Press(returnKey);
    ExpectNoChange("curve-name", [] {});
    const Image renamed = Grab(AreaOf(m_window));
    Keep(renamed, "renamed");
    EXPECT_GT(DifferingPixels(renamed, list, 0, list.height), 20);
    After(
        "with-curve", [this] { Press(' '); }, balls);
    EXPECT_EQ(Compare(Settled(), without).max, 0);
}

TEST_F(ViewerWindowTest, KeysSwitchLinesAndTrace) {
    After("no-frame-lines", [this] { Press('f'); });
    After("no-grid-lines", [this] { Press('g'); });
    After("frame-lines", [this] { Press('f'); });
    ExpectStart(After("grid-lines", [this] { Press('g'); }));
    Press('t');
    After("trace", [this] { MoveBy(40, 30); });
    ExpectStart(After("no-trace", [this] { Press('t'); }));
}

TEST_F(ViewerWindowTest, TracesFromTheStartWhereAskedTo) {
    Start({"--size", "800x600", "--trace"});
    After("trace-from-start", [this] { MoveBy(40, 30); });
}

// Texts, lines and points grow alike with the screen's density, whoever tells Qt of it, as they do in
// pictures.
TEST_F(ViewerWindowTest, GrowsWithTheDensityOfTheScreen) {
    const std::string resources = desktop->Resources();
    const struct {
        const char* scaleFactor;
        const char* displayResolution;
        const char* dpi;
    } screens[] = {{"1", "96", "96"}, {"1.5", "96", "144"}, {"2", "96", "192"}, {"1", "192", "192"}};
    for (const auto& screen : screens) {
        desktop->SetResources(std::string("Xft.dpi:\t") + screen.displayResolution + '\n');
        const std::vector<std::string> arguments = {"--size", "800x600", "--points",
                                                    KIVO_TEST_DATA "/wells.csv"};
        Start(arguments, {{"QT_SCALE_FACTOR", screen.scaleFactor}});
        std::vector<std::string> forPicture = arguments;
        forPicture.insert(forPicture.end(), {"--picture", Path("picture.png"), "--dpi", screen.dpi});
        EXPECT_EQ(m_plotArea.width, plotWidth);
        EXPECT_EQ(RunViewer(forPicture, WithoutDisplay()).exitCode, 0);
        EXPECT_LT(Compare(m_start, ReadPng(Path("picture.png"))).mean, 0.1) << screen.dpi;
    }
    desktop->SetResources(resources);
}

// Pixels between the colours of the ground and of the box's lines, of which plain frames have few.
int SoftPixels(const Image& image) {
    int count = 0;
    for (int y = 50; y < plotHeight / 2; ++y) // above the axes' texts
        for (int x = plotWidth / 3; x < plotWidth; ++x) {
            const unsigned char* const rgb = image.Pixel(x, y);
            count += rgb[0] == rgb[1] && rgb[0] > 8 && rgb[0] < 200;
            count += rgb[0] > rgb[2] && rgb[0] - rgb[2] < 21 && rgb[0] < 250;
        }
    return count;
}

TEST_F(ViewerWindowTest, DrawsPlainFramesWhileThePlotMoves) {
    const int softAtRest = SoftPixels(m_start);
    EXPECT_GT(softAtRest, 500);
    const auto isSoft = [&] { return SoftPixels(Grab()) > softAtRest / 2; };
    MoveBy(0, 0);
    desktop->Button(rightButton, true);
    int step = 0;
    EXPECT_TRUE(WaitFor([&] {
        desktop->MovePointer(m_plotArea.x + 400 + ++step % 20, m_plotArea.y + 300);
        return !isSoft();
    })) << "no plain frame while the plot turns";
    EXPECT_TRUE(WaitFor(isSoft)) << "no smooth frame where the hand rests";
    desktop->Button(rightButton, false);
    ExpectStart(After("reset", [this] { Press('0'); }));
    EXPECT_TRUE(WaitFor([&] {
        desktop->Click(++step % 2 ? wheelUp : wheelDown);
        return !isSoft();
    })) << "no plain frame while the wheel turns";
    EXPECT_TRUE(WaitFor(isSoft)) << "no smooth frame after the wheel";
    for (int i = 0; i < 3; ++i) // not what none at all comes to
        desktop->Click(wheelUp);
    ExpectStart(After("reset-again", [this] { Press('0'); }));
}

// As long as the user has set neither ink nor background.
TEST_F(ViewerWindowTest, FollowsTheDesktopsTheme) {
    constexpr xcb_keysym_t f12Key = 0xffc9;
    const int cream[] = {255, 253, 233}, dark[] = {30, 32, 36};
    const auto isLight = [](const unsigned char* rgb) {
        return rgb[0] == rgb[1] && rgb[1] == rgb[2] && rgb[0] > 215;
    };
    const Environment withKey = {{"LD_PRELOAD", KIVO_PALETTE_KEY}};
    Start({"--size", "800x600"}, withKey);
    EXPECT_TRUE(m_start.IsNear(2, 2, cream, 0));
    EXPECT_EQ(m_start.Count(isLight), 0);
    const Image night = After("dark", [] { Press(f12Key); });
    EXPECT_TRUE(night.IsNear(2, 2, dark, 0));
    EXPECT_GT(night.Count(isLight), 300) << "texts and lines";
    Keep(Grab(AreaOf(m_window)), "dark-window");
    ExpectStart(After("light-again", [] { Press(f12Key); }));
    for (const std::vector<std::string>& own :
         {std::vector<std::string>{"--background", "white"}, std::vector<std::string>{"--ink", "#000080"}}) {
        Start({"--size", "800x600", own[0], own[1]}, withKey);
        ExpectNoChange("own" + own[0], [] { Press(f12Key); });
        EXPECT_LT(Grab(AreaOf(m_window)).Pixel(5, 5)[0], 100) << "the palette is as before";
    }
}

// Qt's pixels are then two of the screen's.
TEST_F(ViewerWindowTest, CountsThePixelsOfTheScreen) {
    Start({"--size", "800x600"}, {{"QT_SCALE_FACTOR", "2"}});
    EXPECT_EQ(m_plotArea.width, plotWidth);
    EXPECT_EQ(m_plotArea.height, plotHeight);
    // Only a place in the viewport's far corner tells positions from their halves.
    desktop->MovePointer(m_plotArea.x + 20, m_plotArea.y + plotHeight - 20);
    After("wheel", [this] { Wheel(wheelUp); });
    ExpectStart(After("reset", [this] { Press('0'); }));
    const Image moved = After("move", [this] { Drag(rightButton, 100, 0, shiftKey); });
    const int shift = 100;
    int differing = 0;
    for (int y = 100; y < plotHeight - 100; ++y)
        for (int x = 250; x < plotWidth - shift; ++x)
            differing += std::memcmp(m_start.Pixel(x, y), moved.Pixel(x + shift, y), 3) != 0;
    EXPECT_LT(differing, plotWidth * plotHeight / 20) << "the picture did not follow the pointer";
}

TEST_F(ViewerWindowTest, EndsWithItsWindow) {
    After("turn", [this] { Drag(rightButton, 60, 20); });
    EXPECT_EQ(Close(), 0);
    EXPECT_EQ(m_viewer->Output(), "");
    EXPECT_EQ(m_viewer->Errors().find("kivo-viewer:"), std::string::npos) << m_viewer->Errors();
}

} // namespace
