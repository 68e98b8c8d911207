// The viewer's window: files in, pictures out, dialogs, and what it remembers.
#include "GdalReader.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/X11TestWindow.h"
#include "ViewerWindow.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;

namespace {

const std::string hill = KIVO_TEST_DATA "/hill.csv";
const std::string plane = KIVO_TEST_DATA "/plane.csv";

class ViewerWindowFilesTest : public ViewerWindow {
protected:
    // Chooses a file in the open dialog.
    void OpenByDialog(const std::string& path) {
        PressWith(controlKey, 'o');
        WaitForDialog("Open a grid of points");
        Type(path);
        Press(returnKey);
    }

    // Saves the picture with these answers to the first questions, and the suggestions for the others.
    Image SaveByDialog(const std::vector<std::string>& answers) {
        PressWith(controlKey, 's');
        Keep(Grab(AreaOf(WaitForDialog("Save picture"))), "questions");
        for (const std::string& answer : answers) {
            PressWith(controlKey, 'a');
            Type(answer);
            Press(tabKey);
        }
        Press(returnKey);
        if (answers.empty()) Press(returnKey); // the first has ended the editing
        WaitForDialog("Save the picture");
        Type(Path("saved"));
        Press(returnKey);
        WaitForNoDialog();
        Settle(); // the file is whole
        if (!std::filesystem::exists(Path("saved.png"))) {
            ADD_FAILURE() << "no picture";
            return {};
        }
        const Image saved = ReadPng(Path("saved.png"));
        Keep(saved, "saved");
        return saved;
    }

    static bool IsDark(const unsigned char* rgb) { return std::max({rgb[0], rgb[1], rgb[2]}) < 100; }

    // A file in this test's folder, whose name has nothing but small letters.
    std::string Copy(const std::string& source, const std::string& name) const {
        std::filesystem::copy_file(source, Path(name));
        return Path(name);
    }

    // ---- Dragging a file, as file managers do it by the XDND protocol

    void SendDragMessage(const char* type, const std::array<std::uint32_t, 5>& data) {
        xcb_client_message_event_t event = {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = m_window;
        event.type = desktop->Atom(type);
        std::copy(data.begin(), data.end(), event.data.data32);
        event.data.data32[0] = static_cast<std::uint32_t>(m_source.Id());
        xcb_send_event(m_source.Connection(), 0, m_window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&event));
        xcb_flush(m_source.Connection());
    }

    // Answers the viewer's question for the dragged files.
    void HandOver(const std::string& list) {
        xcb_generic_event_t event = {};
        ASSERT_TRUE(m_source.WaitForEvent(XCB_SELECTION_REQUEST, event)) << "nobody asks for the file";
        xcb_selection_request_event_t request = {};
        std::memcpy(&request, &event, sizeof request);
        EXPECT_EQ(request.target, desktop->Atom("text/uri-list"));
        xcb_change_property(m_source.Connection(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            request.target, 8, static_cast<std::uint32_t>(list.size()), list.data());
        xcb_selection_notify_event_t answer = {};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.requestor = request.requestor;
        answer.selection = request.selection;
        answer.target = request.target;
        answer.property = request.property;
        answer.time = request.time;
        xcb_send_event(m_source.Connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&answer));
        xcb_flush(m_source.Connection());
    }

    // The viewer's answer to where the pointer is.
    void ExpectAccepted() {
        xcb_generic_event_t event = {};
        ASSERT_TRUE(m_source.WaitForEvent(XCB_CLIENT_MESSAGE, event)) << "no answer";
        xcb_client_message_event_t status = {};
        std::memcpy(&status, &event, sizeof status);
        EXPECT_EQ(status.type, desktop->Atom("XdndStatus"));
        EXPECT_EQ(status.data.data32[1] & 1U, 1U) << "the file is not wanted";
    }

    void DropFile(const std::string& path) { DropFiles({path}); }

    static std::string Encoded(const std::string& path) {
        std::string encoded;
        for (const char c : path) {
            char code[4] = {c};
            if (!std::isalnum(static_cast<unsigned char>(c)) && std::strchr("/.-_", c) == nullptr)
                std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(c));
            encoded += code;
        }
        return encoded;
    }

    void DropFiles(const std::vector<std::string>& paths) {
        std::string list;
        for (const std::string& path : paths)
            list += "file://" + Encoded(path) + "\r\n";
        const std::uint32_t version = 5U << 24;
        const auto position = static_cast<std::uint32_t>((m_plotArea.x + 400) << 16 | (m_plotArea.y + 300));
        xcb_set_selection_owner(m_source.Connection(), static_cast<xcb_window_t>(m_source.Id()),
                                desktop->Atom("XdndSelection"), XCB_CURRENT_TIME);
        SendDragMessage("XdndEnter", {0, version, desktop->Atom("text/uri-list"), 0, 0});
        SendDragMessage("XdndPosition", {0, 0, position, XCB_CURRENT_TIME, desktop->Atom("XdndActionCopy")});
        HandOver(list); // to see what is dragged
        ExpectAccepted();
        SendDragMessage("XdndDrop", {0, 0, XCB_CURRENT_TIME, 0, 0});
        HandOver(list); // to take them
    }

    // What the clipboard holds as PNG.
    std::string ClipboardPng() {
        const xcb_atom_t property = desktop->Atom("KIVO_TEST");
        xcb_convert_selection(m_source.Connection(), static_cast<xcb_window_t>(m_source.Id()),
                              desktop->Atom("CLIPBOARD"), desktop->Atom("image/png"), property,
                              XCB_CURRENT_TIME);
        xcb_generic_event_t event = {};
        if (!m_source.WaitForEvent(XCB_SELECTION_NOTIFY, event)) return {};
        const auto cookie =
            xcb_get_property(m_source.Connection(), 1, static_cast<xcb_window_t>(m_source.Id()), property,
                             XCB_GET_PROPERTY_TYPE_ANY, 0, 1U << 24);
        const Reply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_source.Connection(), cookie, nullptr));
        if (!reply || reply->type != desktop->Atom("image/png")) return {};
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }

    // Without a size worth mentioning, so that it covers nothing.
    static X11TestWindow::Options Unseen() {
        X11TestWindow::Options options;
        options.inputOnly = true;
        options.width = 1;
        options.height = 1;
        return options;
    }

    X11TestWindow m_source{
        Unseen()}; ///< another program: files are dragged from it, and it asks for the clipboard
};

TEST_F(ViewerWindowFilesTest, OpensAFileByDialog) {
    const std::string path = Copy(hill, "hill.csv");
    const Image opened = After("open", [&] { OpenByDialog(path); });
    Start({path, "--size", "800x600"});
    EXPECT_EQ(Compare(opened, m_start).max, 0);
}

TEST_F(ViewerWindowFilesTest, OpensAFileThatIsDropped) {
    const Image dropped = After("drop", [this] { DropFile(hill); });
    Start({hill, "--size", "800x600"});
    EXPECT_EQ(Compare(dropped, m_start).max, 0);
}

// The first is opened, the others lie over it.
TEST_F(ViewerWindowFilesTest, OpensSeveralFilesThatAreDropped) {
    const Image dropped = After("drop", [this] { DropFiles({hill, plane}); });
    Start({hill, plane, "--size", "800x600"});
    EXPECT_EQ(Compare(dropped, m_start).max, 0);
}

TEST_F(ViewerWindowFilesTest, LaysAFileThatIsDroppedWithShiftOverTheFirst) {
    Start({hill, "--size", "800x600"});
    desktop->Key(shiftKey, true);
    const Image dropped = After("drop", [this] { DropFile(plane); });
    desktop->Key(shiftKey, false);
    Start({hill, plane, "--size", "800x600"});
    EXPECT_EQ(Compare(dropped, m_start).max, 0);
}

TEST_F(ViewerWindowFilesTest, AddsSurfacesByDialog) {
    const std::string path = Copy(plane, "plane.csv");
    Start({hill, "--size", "800x600"});
    const Image added = After("add", [&] {
        PressWith(controlKey, 'l');
        WaitForDialog("Add surfaces");
        Type(path);
        Press(returnKey);
        WaitForNoDialog();
    });
    Keep(Grab(AreaOf(m_window)), "list");
    Start({hill, path, "--size", "800x600"});
    EXPECT_EQ(Compare(added, m_start).max, 0);
}

TEST_F(ViewerWindowFilesTest, SaysWhatIsWrongWithASurfaceAndKeepsTheFirst) {
    const std::string path = Copy(KIVO_TEST_DATA "/short-row.asc", "short.asc");
    PressWith(controlKey, 'l');
    WaitForDialog("Add surfaces");
    Type(path);
    Press(returnKey);
    WaitForDialog("Kivo Viewer");
    Press(escapeKey);
    WaitForNoDialog();
    ExpectStart(Settled());
}

TEST_F(ViewerWindowFilesTest, KeepsTheViewOfTheFileThatIsShown) {
    const std::string path = Copy(hill, "hill.csv"), other = Copy(hill, "other.csv");
    Start({path, "--size", "800x600"});
    const Image turned = After("turn", [this] { Drag(rightButton, 120, 40); });
    const auto opened = [this](const std::string& name) {
        OpenByDialog(name);
        WaitForNoDialog();
        return Settled();
    };
    EXPECT_LT(Compare(opened(path), turned).mean, 0.01);
    const Image first = opened(other);
    Start({other, "--size", "800x600"});
    EXPECT_EQ(Compare(first, m_start).max, 0) << "another file is seen from the start";
}

TEST_F(ViewerWindowFilesTest, SaysWhatIsWrongWithAFile) {
    const std::string path = Copy(KIVO_TEST_DATA "/short-row.asc", "short.asc");
    OpenByDialog(path);
    const xcb_window_t message = WaitForDialog("Kivo Viewer");
    Keep(Grab(AreaOf(message)), "message");
    Press(escapeKey);
    WaitForNoDialog();
    ExpectStart(Settled());
}

// Marks of rich text in names and paths are not followed, in whatever shows them.
TEST_F(ViewerWindowFilesTest, ShowsNamesWithMarksAsTheyAre) {
    const std::string folder = Path("<b>x<"), mark = "/b><i>y&amp;";
    std::filesystem::create_directory(folder);
    const auto path = [&](const std::string& ending) { return folder + mark + ending; };
    std::filesystem::copy_file(hill, path("first.csv"));
    std::filesystem::copy_file(plane, path("over.csv"));
    std::filesystem::copy_file(KIVO_TEST_DATA "/wells.csv", path("wells.csv"));
    std::ofstream(path("bad.csv")) << "1,2,3\n4,5\n";
    std::ofstream(path("bad.kivo")) << "{}";
    ASSERT_EQ(mkfifo(path("endless.csv").c_str(), 0600), 0);
    const auto expectPlain = [&](const std::string& part) {
        SCOPED_TRACE(part);
        bool isShown = false;
        for (const auto& [kind, text] : Texts()) {
            EXPECT_FALSE(kind == "rich" && text.find("y&amp;") != std::string::npos) << text;
            isShown |= kind == "plain" && text.find(part) != std::string::npos;
        }
        EXPECT_TRUE(isShown);
    };
    const auto escape = [this] {
        Press(escapeKey);
        WaitForNoDialog();
    };
    Start({path("first.csv"), path("over.csv"), "--points", path("wells.csv"), "--size", "700x500", "--trace",
           "--profile", "0:0:4:3"},
          {{"LD_PRELOAD", KIVO_TEXTS_KEY}});
    Keep(Grab(AreaOf(m_window)), "lists");
    for (const char* const name : {"first.csv", "over.csv", "wells.csv"})
        expectPlain("b><i>y&amp;" + std::string(name));
    MoveBy(80, 60);
    Settle();
    expectPlain("x = ");
    const ScreenArea window = AreaOf(m_window);
    desktop->MovePointer(window.x + window.width / 3, window.y + window.height - 130); // over the profile
    Settle();
    Keep(Grab(window), "profile");
    expectPlain("Distance ");

    DropFile(path("bad.csv"));
    Keep(Grab(AreaOf(WaitForDialog("Kivo Viewer"))), "refusal");
    expectPlain("expected 3 ");
    PressWith(altKey, 'r');
    Keep(Grab(AreaOf(WaitForDialog("Read as"))), "read-as");
    expectPlain(path("bad.csv"));
    escape();
    DropFile(path("bad.kivo"));
    WaitForDialog("Kivo Viewer");
    expectPlain("no session");
    escape();
    DropFile(path("endless.csv"));
    const xcb_window_t progress = WaitForProgress();
    expectPlain("Reading ");
    EndProgress(progress);
    WaitForNoDialog();
}

// Of a pipe that nobody writes into, before there is a window.
TEST_F(ViewerWindowFilesTest, TellsThatItReadsTheFirstFile) {
    Start({hill, "--size", "800x600"});
    const Image expected = Settled();
    const std::string pipe = Path("pipe.csv");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    Launch({pipe, "--size", "800x600"});
    Keep(Grab(AreaOf(WaitForProgress())), "reading");
    std::ofstream(pipe) << std::ifstream(hill).rdbuf();
    WaitForPicture();
    const Image read = Settled();
    EXPECT_EQ(DifferingPixels(read, expected, 100, read.height), 0) << "but for its title";
    EXPECT_EQ(Close(), 0);
}

TEST_F(ViewerWindowFilesTest, EndsWhereTheFirstFileIsNotAwaited) {
    const std::string pipe = Path("pipe.csv");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    Launch({pipe});
    EndProgress(WaitForProgress());
    EXPECT_EQ(m_viewer->WaitForExit().value_or(-1), 0);
}

TEST_F(ViewerWindowFilesTest, EndsWhereTheFirstFileIsNoGrid) {
    const std::string pipe = Path("pipe.csv");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    Launch({pipe});
    WaitForProgress();
    std::ofstream(pipe) << "1,2,3\n4,5\n";
    EXPECT_EQ(m_viewer->WaitForExit().value_or(-1), 2);
    EXPECT_NE(m_viewer->Errors().find("pipe.csv"), std::string::npos) << m_viewer->Errors();
}

// What is no length makes no grid, and is not taken.
TEST_F(ViewerWindowFilesTest, RefusesSizesOfCellsThatAreNone) {
    std::ofstream(Path("points.xyz")) << "0 0 1\n10 1 2\n2 10 3\n11 9 7\n5 4 0\n";
    const auto expectRefused = [this](xcb_window_t dialog) {
        for (const char* const text : {"inf", "nan", "0", "-1", "1e999", "5m"}) {
            PressWith(controlKey, 'a');
            Type(text);
            Press(returnKey);
            Settle();
            EXPECT_TRUE(desktop->IsShown(dialog)) << text;
        }
        PressWith(controlKey, 'a');
        Type("2.5");
    };
    OpenByDialog(Path("points.xyz"));
    const xcb_window_t question = WaitForDialog("Scattered points");
    PressWith(altKey, 'c');
    expectRefused(question);
    Press(returnKey);
    WaitForNoDialog();
    const Image read = Settled();

    desktop->Key(controlKey, true);
    PressWith(shiftKey, 'o');
    desktop->Key(controlKey, false);
    const xcb_window_t dialog = WaitForDialog("Read as");
    for (const char key : {'e', 'r'}) { // the size of a cell, and the reach of a point
        PressWith(altKey, static_cast<xcb_keysym_t>(key));
        expectRefused(dialog);
    }
    Keep(Grab(AreaOf(dialog)), "read-as");
    Press(returnKey);
    WaitForNoDialog();
    EXPECT_GT(Compare(Settled(), read).mean, 0.2) << "no edge is shorter than the reach";
}

// The suggestion is taken by Return.
TEST_F(ViewerWindowFilesTest, AsksHowAGridIsMadeOfScatteredPoints) {
    if (!KivoViewer::HasGdal()) GTEST_SKIP() << "built without GDAL";
    std::ofstream(Path("points.xyz")) << "0 0 1\n10 1 2\n2 10 3\n11 9 7\n5 4 0\n";
    const Image opened = After("open", [this] {
        OpenByDialog(Path("points.xyz"));
        Keep(Grab(AreaOf(WaitForDialog("Scattered points"))), "question");
        Press(returnKey);
        WaitForNoDialog();
    });
    Start({Path("points.xyz"), "--size", "800x600"});
    EXPECT_EQ(Compare(opened, m_start).max, 0);
    OpenByDialog(Path("points.xyz"));
    WaitForDialog("Scattered points");
    Press(escapeKey);
    WaitForNoDialog();
    ExpectStart(Settled());
}

TEST_F(ViewerWindowFilesTest, AsksWhatATableIs) {
    std::ofstream(Path("table.xyz")) << "0 0 1 9\n1 0 2 8\n2 0 3 7\n0 1 4 6\n1 1 5 5\n2 1 6 4\n";
    const Image opened = After("open", [this] {
        OpenByDialog(Path("table.xyz"));
        Keep(Grab(AreaOf(WaitForDialog("Kivo Viewer"))), "question");
        Press(returnKey);
        WaitForNoDialog();
    });
    Start({Path("table.xyz"), "--columns", "1,2,3", "--size", "800x600"});
    EXPECT_EQ(Compare(opened, m_start).max, 0);
}

TEST_F(ViewerWindowFilesTest, ReadsAFileOtherwise) {
    std::ofstream(Path("table.xyz")) << "0 0 1 9\n1 0 2 8\n2 0 3 7\n0 1 4 6\n1 1 5 5\n2 1 6 4\n";
    Start({Path("table.xyz"), "--columns", "1,2,4", "--size", "800x600"});
    const Image wanted = m_start;
    Start({Path("table.xyz"), "--columns", "1,2,3", "--size", "800x600"});
    const Image read = After("otherwise", [this] {
        desktop->Key(controlKey, true);
        PressWith(shiftKey, 'o');
        desktop->Key(controlKey, false);
        const xcb_window_t dialog = WaitForDialog("Read as");
        Keep(Grab(AreaOf(dialog)), "before");
        PressWith(altKey, 'z');
        Type("4");
        Settle();
        Keep(Grab(AreaOf(dialog)), "dialog");
        Press(returnKey);
        WaitForNoDialog();
    });
    EXPECT_EQ(Compare(read, wanted).max, 0);
}

TEST_F(ViewerWindowFilesTest, ReadsAMarkedRegion) {
    constexpr int side = 41; // of squares as large as half the plot's distance from one edge to the other
    std::ofstream file(Path("plane.asc"));
    file << "ncols 41\nnrows 41\nxllcenter 0\nyllcenter 0\ncellsize 1\n";
    for (int y = side - 1; y >= 0; --y)
        for (int x = 0; x < side; ++x)
            file << x << (x == side - 1 ? '\n' : ' ');
    file.close();
    Start({Path("plane.asc"), "--mode", "1", "--size", "800x600"});
    const Image region = After("region", [this] {
        PressWith(controlKey, 'r');
        Settle();
        Drag(leftButton, 100, 70);
        Settle();
    });
    const Image whole = After("whole", [this] {
        desktop->Key(controlKey, true);
        PressWith(shiftKey, 'r');
        desktop->Key(controlKey, false);
    });
    ExpectStart(whole);
    PressWith(controlKey, 'r'); // and thinks better of it
    Settle();
    Press(escapeKey);
    const Image moved = After("moved", [this] { Drag(leftButton, 100, 70, shiftKey); });
    EXPECT_GT(Compare(moved, region).mean, 0.2);
}

TEST_F(ViewerWindowFilesTest, ReadsARegionOfWhatIsShown) {
    std::ofstream above(Path("above.csv")), below(Path("below.csv"));
    for (int row = 0; row < 21; ++row)
        for (int column = 0; column < 21; ++column) {
            above << row * column << (column == 20 ? '\n' : ',');
            below << row * row << (column == 20 ? '\n' : ',');
        }
    above.close();
    below.close();
    Start({Path("above.csv"), "--minus", Path("below.csv"), "--mode", "1", "--size", "800x600"});
    After("whole", [this] {
        PressWith(controlKey, 'r');
        Settle();
        Drag(leftButton, 90, 70);
        Settle();
    });
    desktop->Key(controlKey, true);
    PressWith(shiftKey, 'r');
    desktop->Key(controlKey, false);
    EXPECT_TRUE(WaitFor([this] { return Compare(Settled(), m_start).max == 0; }))
        << "it is no difference any more";
}

// What is refused may be read otherwise: here in the way that is suggested.
TEST_F(ViewerWindowFilesTest, OffersToReadOtherwiseWhatItRefuses) {
    std::ofstream(Path("wells.csv")) << "2;2;1;900\n8;6;2;1000\n14;12;3;1150\n";
    Start({KIVO_SAMPLE_TERRAIN, "--size", "800x600"});
    PressWith(controlKey, 'm');
    WaitForDialog("Add measure points");
    Type(Path("wells.csv"));
    Press(returnKey);
    Keep(Grab(AreaOf(WaitForDialog("Kivo Viewer"))), "refusal");
    PressWith(altKey, 'r');
    WaitForDialog("Read as");
    for (const char* const column : {"x1", "y2", "z4"}) {
        PressWith(altKey, static_cast<xcb_keysym_t>(column[0]));
        Type(column + 1);
    }
    Settle();
    Keep(Grab(AreaOf(WaitForDialog("Read as"))), "dialog");
    Press(returnKey);
    Settle();
    WaitForNoDialog();
    ASSERT_TRUE(FindWindows());
    const Image shown = Settled();
    Start({KIVO_SAMPLE_TERRAIN, "--points", Path("wells.csv"), "--columns", "1,2,4", "--size", "800x600"});
    EXPECT_EQ(Compare(shown, m_start).max, 0);
}

TEST_F(ViewerWindowFilesTest, ReadsLargeFilesWithAWayOut) {
    std::ofstream file(Path("large.xyz")); // points take seconds, wherever this runs
    for (int y = 0; y < 2000; ++y) {
        std::string lines;
        for (int x = 0; x < 2000; ++x)
            lines += std::to_string(x) + ' ' + std::to_string(y) + ' ' + std::to_string(x % 10) + '\n';
        file << lines;
    }
    file.close();
    OpenByDialog(Path("large.xyz"));
    const xcb_window_t dialog = WaitForWindow("Kivo Viewer");
    Image progress;
    EXPECT_TRUE(WaitFor([&] { // at once: reading takes a second or so
        progress = Grab(AreaOf(dialog));
        return CountOf(progress, IsDark) > 50;
    })) << "nothing is written in the dialog";
    desktop->Focus(dialog);
    Press(escapeKey);
    WaitForNoDialog();
    Keep(progress, "progress");
    ExpectStart(Settled());
    EXPECT_FALSE(m_viewer->WaitForExit(std::chrono::milliseconds(0)));
}

// What takes long is done by threads, and shows the same in the end.
TEST_F(ViewerWindowFilesTest, ShowsALargeGridWhole) {
    constexpr int side = 700;
    std::ofstream file(Path("large.asc"));
    file << "ncols 700\nnrows 700\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            file << std::sin(0.03 * x) * std::cos(0.02 * y) << ' ';
        file << '\n';
    }
    file.close();
    const Image opened = After("open", [this] {
        OpenByDialog(Path("large.asc"));
        WaitForNoDialog();
    });
    const Image drawn = After("contours", [] { Press('z'); });
    Drag(leftButton, 150, 40);
    EXPECT_GT(Compare(Settled(), drawn).mean, 0.01);
    const Image back = After("home", [] { Press(homeKey); });
    EXPECT_EQ(Compare(back, drawn).max, 0);
    Start({Path("large.asc"), "--size", "800x600"});
    EXPECT_EQ(Compare(opened, m_start).max, 0);
    Press('z');
    Settle();
    Keep(Settled(), "contours-again");
    EXPECT_TRUE(WaitFor([&] { return Compare(Settled(), drawn).max == 0; }));
}

TEST_F(ViewerWindowFilesTest, ListsRecentFiles) {
    const std::string path = Copy(hill, "hill.csv");
    Start({path, "--size", "800x600"});
    const Image first = m_start;
    EXPECT_EQ(Close(), 0);
    Start({"--size", "800x600"});
    const Image again = After("recent", [this] {
        OpenMenu('f');
        Press('r');
        Settle();
        Press(returnKey);
    });
    EXPECT_EQ(Compare(first, again).max, 0);
}

TEST_F(ViewerWindowFilesTest, SavesAPictureOfAnySize) {
    const Image saved = SaveByDialog({"1000", "500"});
    EXPECT_EQ(saved.width, 1000);
    EXPECT_EQ(saved.height, 500);
    EXPECT_GT(CountOf(saved, IsColorful), 5000);
    EXPECT_EQ(ReadPngResolution(Path("saved.png")), 96);
    ExpectStart(Settled());
}

TEST_F(ViewerWindowFilesTest, SavesWhatTheScreenShows) {
    After("turn", [this] { Drag(rightButton, 120, 40); });
    After("move", [this] { Drag(rightButton, 60, -30, shiftKey); });
    const Image shown = After("zoom", [this] { Wheel(wheelUp); });
    EXPECT_EQ(Compare(SaveByDialog({}), shown).max, 0);
    std::filesystem::remove(Path("saved.png"));
    const Image fine = SaveByDialog({"1600", "1200", "192"});
    EXPECT_EQ(ReadPngResolution(Path("saved.png")), 192);
    const double colorful = CountOf(shown, IsColorful); // fourfold and more: lines stay as thin
    EXPECT_NEAR(CountOf(fine, IsColorful), 4.3 * colorful, 0.5 * colorful);
    EXPECT_EQ(Compare(Settled(), shown).max, 0);
}

// The saved picture has the resolution that the display gives the window.
TEST_F(ViewerWindowFilesTest, SavesWithTheResolutionOfTheDisplay) {
    const std::string before = desktop->Resources();
    desktop->SetResources("Xft.dpi:\t144\n");
    Start({"--size", "800x600"}, {{"QT_ENABLE_HIGHDPI_SCALING", "0"}});
    const Image saved = SaveByDialog({});
    desktop->SetResources(before);
    EXPECT_EQ(Compare(saved, m_start).max, 0);
    EXPECT_EQ(ReadPngResolution(Path("saved.png")), 144);
}

TEST_F(ViewerWindowFilesTest, CopiesThePicture) {
    PressWith(controlKey, 'c');
    Settle();
    const std::string png = ClipboardPng();
    ASSERT_FALSE(png.empty());
    std::ofstream(Path("clip.png"), std::ios::binary) << png;
    EXPECT_LT(Compare(ReadPng(Path("clip.png")), m_start).mean, 0.1);
}

TEST_F(ViewerWindowFilesTest, AddsPointsAndCurvesByDialog) {
    const ScreenArea before = AreaOf(m_window);
    for (const char key : {'m', 'u'}) {
        const std::string path = Copy(KIVO_TEST_DATA "/flight.csv", std::string("flight") + key + ".csv");
        const Image plot = Settled();
        PressWith(controlKey, static_cast<xcb_keysym_t>(key));
        WaitForDialog(key == 'm' ? "Add measure points" : "Add curves");
        Type(path);
        Press(returnKey);
        WaitForNoDialog();
        EXPECT_GT(DifferingPixels(Settled(), plot, 0, plotHeight), 100) << key;
    }
    Keep(Grab(before), "list");
}

// Without printers the dialog offers a PDF file in the home folder. The plot is as wide as a page less its
// margins, in pixels of 600 to an inch, none of which is lost.
TEST_F(ViewerWindowFilesTest, Prints) {
    PressWith(controlKey, 'p');
    const xcb_window_t dialog = WaitForDialog("Print");
    Keep(Grab(AreaOf(dialog)), "dialog");
    Press(returnKey);
    WaitForNoDialog();
    std::string pdf;
    EXPECT_TRUE(WaitFor([&] {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path())) {
            if (entry.path().extension() != ".pdf") continue;
            std::ifstream file(entry.path(), std::ios::binary);
            pdf.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        }
        return pdf.size() > 10000 && pdf.find("%%EOF") != std::string::npos;
    })) << "no page";
    EXPECT_EQ(pdf.find("/DCTDecode"), std::string::npos) << "that is JPEG";
    const std::size_t width = pdf.find("/Width ");
    ASSERT_NE(width, std::string::npos);
    EXPECT_GT(std::stoi(pdf.substr(width + 7)), 10 * 600);
    ExpectStart(Settled());
}

TEST_F(ViewerWindowFilesTest, RemembersSettingsAndWindow) {
    After("no-lines", [this] { Press('f'); });
    const Image changed = After("contours", [this] { Press('z'); });
    const ScreenArea before = AreaOf(m_window);
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

// Qt takes the size of a screen that was much larger or smaller for useless.
TEST_F(ViewerWindowFilesTest, OpensUsableAfterAnotherScaleOfTheScreen) {
    const ScreenArea screen = AreaOf(desktop->Root());
    for (const char* const scale : {"2", "1", "2"}) {
        EXPECT_EQ(Close(), 0);
        Start({}, {{"QT_SCALE_FACTOR", scale}});
        EXPECT_GT(m_plotArea.width, screen.width / 2) << scale;
        EXPECT_GT(m_plotArea.height, screen.height / 2) << scale;
        const ScreenArea window = AreaOf(m_window);
        EXPECT_LE(window.x + window.width, screen.width) << scale;
        EXPECT_LE(window.y + window.height, screen.height) << scale;
    }
}

TEST_F(ViewerWindowFilesTest, OpensUsableAfterItWasTinyOrBeyondTheScreen) {
    Resize(210, 170);
    EXPECT_TRUE(WaitFor([this] { return AreaOf(m_window).width == 210; }));
    EXPECT_EQ(Close(), 0);
    Start({});
    EXPECT_GT(m_plotArea.width, 600);
    const ScreenArea screen = AreaOf(desktop->Root());
    desktop->MoveWindow(m_window, screen.width - 50, screen.height - 50);
    EXPECT_TRUE(WaitFor([&] { return AreaOf(m_window).x == screen.width - 50; }));
    EXPECT_EQ(Close(), 0);
    Start({});
    EXPECT_GT(m_plotArea.width, 600);
    EXPECT_LE(m_plotArea.x + m_plotArea.width, screen.width);
    EXPECT_LE(m_plotArea.y + m_plotArea.height, screen.height);
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
    Keep(Grab(AreaOf(WaitForDialog("Keys and mouse"))), "keys");
    Press(escapeKey);
    WaitForNoDialog();
    OpenMenu('h');
    Press('a');
    Keep(Grab(AreaOf(WaitForDialog("About Kivo Viewer"))), "about");
    Press(escapeKey);
    WaitForNoDialog();
    ExpectStart(Settled());
}

} // namespace
