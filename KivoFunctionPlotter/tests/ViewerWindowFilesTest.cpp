// The viewer's window: files in, pictures out, dialogs, and what it remembers.
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/ViewerWindow.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;

namespace {

const std::string hill = KIVO_TEST_DATA "/hill.csv";

class ViewerWindowFilesTest : public ViewerWindow {
protected:
    static void Pause() { std::this_thread::sleep_for(std::chrono::milliseconds(300)); }

    // Chooses a file in the open dialog.
    void OpenByDialog(const std::string& path) {
        PressWith(controlKey, 'o');
        WaitForDialog();
        Type(path);
        Press(returnKey);
    }

    // A file in this test's folder, whose name has nothing but small letters.
    std::string Copy(const std::string& source, const std::string& name) const {
        std::filesystem::copy_file(source, Path(name));
        return Path(name);
    }

    // What the clipboard holds as PNG.
    std::string ClipboardPng() {
        const xcb_atom_t property = Atom("KIVO_TEST");
        xcb_convert_selection(Connection(), static_cast<xcb_window_t>(m_input->Id()), Atom("CLIPBOARD"),
                              Atom("image/png"), property, XCB_CURRENT_TIME);
        xcb_generic_event_t event = {};
        if (!m_input->WaitForEvent(XCB_SELECTION_NOTIFY, event)) return {};
        const auto cookie = xcb_get_property(Connection(), 1, static_cast<xcb_window_t>(m_input->Id()),
                                             property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1U << 24);
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(Connection(), cookie, nullptr));
        if (!reply || reply->type != Atom("image/png")) return {};
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }
};

TEST_F(ViewerWindowFilesTest, OpensAFileByDialog) {
    const std::string path = Copy(hill, "hill.csv");
    const Image opened = After("open", [&] { OpenByDialog(path); });
    Start({path, "--size", "800x600"});
    EXPECT_EQ(Compare(opened, m_start).max, 0);
}

TEST_F(ViewerWindowFilesTest, SaysWhatIsWrongWithAFile) {
    const std::string path = Copy(KIVO_TEST_DATA "/short-row.asc", "short.asc");
    OpenByDialog(path);
    Pause();
    const xcb_window_t message = WaitForDialog();
    Keep(Grab(AreaOf(message)), "message");
    Press(escapeKey);
    WaitForNoDialog();
    ExpectStart(Settled());
}

TEST_F(ViewerWindowFilesTest, ReadsLargeFilesWithAWayOut) {
    std::ofstream file(Path("large.asc"));
    file << "ncols 4000\nnrows 4000\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    for (int r = 0; r < 4000; ++r) {
        std::string line;
        for (int c = 0; c < 4000; ++c) {
            line += static_cast<char>('0' + (r / 400 + c / 400) % 10);
            line += ' ';
        }
        file << line << '\n';
    }
    file.close();
    OpenByDialog(Path("large.asc"));
    Pause();
    const xcb_window_t progress = WaitForDialog();
    Keep(Grab(AreaOf(progress)), "progress");
    Press(escapeKey);
    WaitForNoDialog();
    ExpectStart(Settled());
    EXPECT_FALSE(m_viewer->WaitForExit(0));
}

TEST_F(ViewerWindowFilesTest, ListsRecentFiles) {
    const std::string path = Copy(hill, "hill.csv");
    Start({path, "--size", "800x600"});
    const Image first = m_start;
    EXPECT_EQ(Close(), 0);
    Start({"--size", "800x600"});
    const Image again = After("recent", [this] {
        PressWith(altKey, 'f');
        Pause();
        Press('r');
        Pause();
        Press(returnKey);
    });
    EXPECT_EQ(Compare(first, again).max, 0);
}

TEST_F(ViewerWindowFilesTest, SavesAPictureOfAnySize) {
    PressWith(controlKey, 's');
    WaitForDialog();
    PressWith(controlKey, 'a');
    Type("1000");
    Press(tabKey);
    PressWith(controlKey, 'a');
    Type("500");
    Press(returnKey); // ends the editing
    Press(returnKey);
    Pause();
    WaitForDialog();
    Type(Path("saved"));
    Press(returnKey);
    WaitForNoDialog();
    ASSERT_TRUE(WaitFor([this] { return std::filesystem::exists(Path("saved.png")); }));
    const Image saved = ReadPng(Path("saved.png"));
    Keep(saved, "saved");
    EXPECT_EQ(saved.width, 1000);
    EXPECT_EQ(saved.height, 500);
    EXPECT_GT(CountOf(saved, IsColorful), 5000);
    ExpectStart(Settled());
}

TEST_F(ViewerWindowFilesTest, CopiesThePicture) {
    PressWith(controlKey, 'c');
    Pause();
    const std::string png = ClipboardPng();
    ASSERT_FALSE(png.empty());
    std::ofstream(Path("clip.png"), std::ios::binary) << png;
    EXPECT_LT(Compare(ReadPng(Path("clip.png")), m_start).mean, 0.1);
}

TEST_F(ViewerWindowFilesTest, AddsPointsAndCurvesByDialog) {
    const Area before = AreaOf(m_window);
    for (const char key : {'m', 'u'}) {
        const std::string path = Copy(KIVO_TEST_DATA "/flight.csv", std::string("flight") + key + ".csv");
        const Image plot = Settled();
        PressWith(controlKey, static_cast<xcb_keysym_t>(key));
        WaitForDialog();
        Type(path);
        Press(returnKey);
        WaitForNoDialog();
        EXPECT_GT(DifferingPixels(Settled(), plot, 0, plotHeight), 100) << key;
    }
    Keep(Grab(before), "list");
}

// Without printers the dialog offers a PDF file in the home folder.
TEST_F(ViewerWindowFilesTest, Prints) {
    PressWith(controlKey, 'p');
    const xcb_window_t dialog = WaitForDialog();
    Keep(Grab(AreaOf(dialog)), "dialog");
    Press(returnKey);
    WaitForNoDialog();
    const auto hasPdf = [this] {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder))
            if (entry.path().extension() == ".pdf" && entry.file_size() > 10000) return true;
        return false;
    };
    EXPECT_TRUE(WaitFor(hasPdf));
    ExpectStart(Settled());
}

TEST_F(ViewerWindowFilesTest, RemembersSettingsAndWindow) {
    After("no-lines", [this] { Press('f'); });
    const Image changed = After("contours", [this] { Press('z'); });
    const Area before = AreaOf(m_window);
    EXPECT_EQ(Close(), 0);
    Start({});
    EXPECT_EQ(AreaOf(m_window).width, before.width);
    EXPECT_EQ(AreaOf(m_window).height, before.height);
    EXPECT_EQ(m_plotArea.width, plotWidth);
    EXPECT_EQ(Compare(m_start, changed).max, 0);
    // The command line counts more, and pictures do not depend on it all.
    Start({"--frame-lines", "--no-z-contours"});
    EXPECT_GT(Compare(m_start, changed).mean, 0.2);
    Environment environment = WithoutDisplay();
    environment["XDG_CONFIG_HOME"] = Path("config");
    ASSERT_EQ(RunViewer({"--picture", Path("a.png"), "--size", "800x600"}, environment).exitCode, 0);
    EXPECT_LT(Compare(ReadPng(Path("a.png")), m_start).mean, 0.5);
}

TEST_F(ViewerWindowFilesTest, RemembersWhetherThePanelIsShown) {
    Press(f9Key);
    const int width = AreaOf(m_window).width;
    ASSERT_TRUE(WaitForPlotSize(width, plotHeight));
    EXPECT_EQ(Close(), 0);
    Start({});
    EXPECT_EQ(m_plotArea.width, width);
}

TEST_F(ViewerWindowFilesTest, TellsKeysAndWhatItIs) {
    Press(f1Key);
    Keep(Grab(AreaOf(WaitForDialog())), "keys");
    Press(escapeKey);
    WaitForNoDialog();
    PressWith(altKey, 'h');
    Pause();
    Press('a');
    Pause();
    Keep(Grab(AreaOf(WaitForDialog())), "about");
    Press(escapeKey);
    WaitForNoDialog();
    ExpectStart(Settled());
}

} // namespace
