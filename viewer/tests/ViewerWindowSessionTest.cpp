// The viewer's window: sessions, files that are read again, steps back, and ranges typed end by end.
#include "support/Image.h"
#include "ViewerWindow.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;

namespace {

constexpr xcb_keysym_t f5Key = 0xffc2;
constexpr xcb_keysym_t deleteKey = 0xffff;
constexpr double thinLines = 0.02; // least mean difference

const std::string hill = KIVO_TEST_DATA "/hill.csv";
const std::string wells = KIVO_TEST_DATA "/wells.csv";

class ViewerWindowSessionTest : public ViewerWindow {
protected:
    // A grid of its own, which a test may change.
    std::string OwnGrid() const {
        std::filesystem::copy_file(hill, Path("own.csv"), std::filesystem::copy_options::overwrite_existing);
        return Path("own.csv");
    }

    // Reading it goes on as long as nobody has written it.
    void MakePipe() const {
        ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
        std::filesystem::rename(Path("pipe"), Path("own.csv"));
    }

    void WriteOtherGrid() const {
        std::ofstream(Path("other.csv")) << ",0,1,2\n0,1,5,1\n1,2,9,2\n2,1,5,1\n";
        std::filesystem::rename(Path("other.csv"), Path("own.csv"));
    }
};

TEST_F(ViewerWindowSessionTest, StepsBackAndAgain) {
    Start({hill, "--size", "800x600"});
    After(
        "contours", [] { Press('z'); }, thinLines);
    const Image both = After("no-lines", [] { Press('f'); });
    After("back", [] { PressWith(controlKey, 'z'); });
    ExpectStart(After(
        "back-again", [] { PressWith(controlKey, 'z'); }, thinLines));
    ExpectNoChange("nothing-left", [] { PressWith(controlKey, 'z'); });
    After(
        "again",
        [] {
            for (int i = 0; i < 2; ++i) {
                desktop->Key(controlKey, true);
                PressWith(shiftKey, 'z');
                desktop->Key(controlKey, false);
            }
        },
        thinLines);
    EXPECT_EQ(Compare(Settled(), both).max, 0);
}

TEST_F(ViewerWindowSessionTest, TypesARangeFromItsUpperNeighbour) {
    Start({hill, "--size", "800x600", "--z-min", "8", "--z-max", "9"});
    const Image wanted = m_start;
    Start({hill, "--size", "800x600"});
    PressWith(controlKey, '4');
    ExpectNoChange("half", [] {
        PressWith(controlKey, 'a');
        Type("8");
        Press(tabKey);
    });
    const Image both = After("both", [] {
        PressWith(controlKey, 'a');
        Type("9");
        Press(returnKey);
    });
    EXPECT_EQ(Compare(both, wanted).max, 0);
}

TEST_F(ViewerWindowSessionTest, ReadsFilesAgainInTheSameView) {
    Start({OwnGrid(), "--size", "800x600", "--zoom", "1.3"});
    WriteOtherGrid();
    ExpectNoChange("unwatched", [] {});
    const Image read = After("read-again", [] { Press(f5Key); });
    Start({Path("own.csv"), "--size", "800x600", "--zoom", "1.3"});
    EXPECT_LE(Compare(read, m_start).max, 2);
}

// Of a pipe that nobody writes into, reading never ends.
TEST_F(ViewerWindowSessionTest, AnswersWhileItReads) {
    Start({OwnGrid(), "--size", "800x600"});
    std::filesystem::remove(Path("own.csv"));
    ASSERT_EQ(mkfifo(Path("own.csv").c_str(), 0600), 0);
    Press(f5Key);
    const xcb_window_t dialog = WaitForProgress();
    Keep(Grab(AreaOf(dialog)), "reading");
    Resize(AreaOf(m_window).width, AreaOf(m_window).height + 80);
    const auto plotIsHigher = [this] { return PlotIn(Grab(AreaOf(m_window))).height > plotHeight; };
    EXPECT_TRUE(WaitFor(plotIsHigher)) << "the plot does not follow the window";
    EndProgress(dialog);
    WaitForNoDialog();
    After("turn", [this] { Drag(rightButton, 120, 40); });
    EXPECT_EQ(Close(), 0) << "it waits for a file that nobody waits for";
}

TEST_F(ViewerWindowSessionTest, WatchesItsFiles) {
    Start({OwnGrid(), "--watch", "--size", "800x600"});
    WriteOtherGrid();
    EXPECT_TRUE(WaitFor([this] { return Compare(Grab(), m_start).mean > 0.2; }));
    const Image read = Settled();
    std::ofstream(Path("own.csv")) << "1,2\n3\n"; // no grid
    Settle();
    EXPECT_EQ(Compare(Settled(), read).max, 0);
    std::filesystem::remove(Path("own.csv"));
    std::filesystem::copy_file(hill, Path("own.csv"));
    EXPECT_TRUE(WaitFor([this] { return Compare(Grab(), m_start).max == 0; }));
}

// What is shown is the last state, whenever it came.
TEST_F(ViewerWindowSessionTest, ReadsAgainWhatChangesWhileItIsOpened) {
    WriteOtherGrid();
    Start({Path("own.csv"), "--size", "800x600"});
    const Image wanted = m_start;
    MakePipe();
    Start({hill, "--watch", "--size", "800x600"});
    PressWith(controlKey, 'o');
    WaitForDialog("Open a grid of points");
    Type(Path("own.csv"));
    Press(returnKey);
    WaitForProgress();
    {
        std::ofstream pipe(Path("own.csv")); // the viewer waits for it
        WriteOtherGrid();
        pipe << std::ifstream(hill).rdbuf();
    }
    WaitForNoDialog();
    EXPECT_TRUE(WaitFor([&] { return Compare(Grab(), wanted).max == 0; }));
}

// Readings in each other would end in the wrong order.
TEST_F(ViewerWindowSessionTest, ReadsAgainAfterTheReadingThatGoesOn) {
    WriteOtherGrid();
    Start({Path("own.csv"), "--size", "800x600"});
    const Image wanted = m_start;
    Start({OwnGrid(), "--watch", "--size", "800x600"});
    MakePipe();
    WaitForProgress();
    {
        std::ofstream pipe(Path("own.csv"));
        WriteOtherGrid();
        std::this_thread::sleep_for(std::chrono::seconds(1)); // in which another reading would begin, and end
        const Image meanwhile = Grab();
        EXPECT_EQ(DifferingPixels(meanwhile, m_start, 0, 100), 0) << "another reading has come before it";
        pipe << std::ifstream(hill).rdbuf();
    }
    WaitForNoDialog();
    EXPECT_TRUE(WaitFor([&] { return Compare(Grab(), wanted).max == 0; }));
}

TEST_F(ViewerWindowSessionTest, SavesAndOpensASession) {
    Start({hill, "--size", "800x600", "--points", wells, "--colors", "viridis", "--zoom", "1.2"});
    SaveSession("saved");
    ASSERT_TRUE(std::filesystem::exists(Path("saved.kivo")));
    const Image saved = m_start;
    Start({Path("saved.kivo"), "--size", "800x600"});
    EXPECT_LE(Compare(m_start, saved).max, 2);
    Start({hill, "--size", "800x600"});
    OpenFile("saved.kivo");
    EXPECT_FALSE(Settled().rgba.empty());
}

TEST_F(ViewerWindowSessionTest, ListTakesPointsAway) {
    Start({KIVO_SAMPLE_TERRAIN, "--size", "800x600"});
    const Image without = m_start;
    Start({KIVO_SAMPLE_TERRAIN, "--size", "800x600", "--points", wells});
    PressWith(shiftKey, tabKey);
    Press(downKey);
    const Image removed = After(
        "removed", [] { Press(deleteKey); }, 0.001);
    EXPECT_EQ(Compare(removed, without).max, 0);
}

} // namespace
