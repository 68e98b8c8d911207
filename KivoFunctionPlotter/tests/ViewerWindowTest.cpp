// The viewer as a user has it: the real program on a real display, driven by injected input and judged by
// what the screen shows. Pictures of each step go to the folder in KIVO_TEST_OUTPUT, else to test-output.
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/ViewerProcess.h"
#include "support/X11TestWindow.h"

#include <gtest/gtest.h>

#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

constexpr int plotWidth = 800;
constexpr int plotHeight = 600;
// Keysyms of Latin characters are their codes.
constexpr xcb_keysym_t controlKey = 0xFFE3;
constexpr xcb_keysym_t shiftKey = 0xFFE1;
constexpr xcb_keysym_t altKey = 0xFFE9;
constexpr xcb_keysym_t homeKey = 0xFF50;
constexpr xcb_keysym_t upKey = 0xFF52;
constexpr xcb_keysym_t tabKey = 0xFF09;
constexpr xcb_keysym_t returnKey = 0xFF0D;
constexpr xcb_keysym_t downKey = 0xFF54;
constexpr xcb_keysym_t f2Key = 0xFFBF;
constexpr xcb_keysym_t f9Key = 0xFFC6;

enum MouseButton { leftButton = 1, rightButton = 3, wheelUp = 4, wheelDown = 5 };

struct Area {
    int x = 0; // on the screen
    int y = 0;
    int width = 0;
    int height = 0;
};

class ViewerWindowTest : public testing::Test {
protected:
    // An X server starts anew when the last of its clients leaves; one stays from test to test.
    static void SetUpTestSuite() { lastingConnection = xcb_connect(nullptr, nullptr); }
    static void TearDownTestSuite() { xcb_disconnect(lastingConnection); }

    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        X11TestWindow::Options options; // a source of input that lies over nothing
        options.inputOnly = true;
        options.width = 1;
        options.height = 1;
        m_input = std::make_unique<X11TestWindow>(options);
        ASSERT_TRUE(m_input->Ok());
        Start({"--size", std::to_string(plotWidth) + "x" + std::to_string(plotHeight)});
    }

    void TearDown() override {
        if (!m_viewer) return;
        for (const xcb_keysym_t key : {controlKey, shiftKey, altKey})
            Key(key, false);
        for (const int button : {leftButton, rightButton})
            m_input->Button(button, false);
    }

    void Start(const std::vector<std::string>& arguments, Environment environment = {}) {
        environment["QT_QPA_PLATFORM"] = std::nullopt;
        m_viewer = std::make_unique<ViewerProcess>(arguments, environment);
        ASSERT_TRUE(WaitFor([this] { return FindWindows(); })) << "no window; " << m_viewer->Errors();
        m_input->MovePointer(m_plotArea.x + plotWidth / 2, m_plotArea.y + plotHeight / 2);
        xcb_set_input_focus(Connection(), XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
        m_start = Settled();
        Keep(m_start, "start");
        ASSERT_GT(CountOf(m_start, IsColorful), 5000) << "no surface on the screen";
    }

    xcb_connection_t* Connection() const { return m_input->Connection(); }

    static bool WaitFor(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (std::chrono::steady_clock::now() < end) {
            if (condition()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return false;
    }

    // ---- Windows

    std::vector<xcb_window_t> ChildrenOf(xcb_window_t window) const {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(Connection(), xcb_query_tree(Connection(), window), nullptr));
        if (!tree) return {};
        const xcb_window_t* const first = xcb_query_tree_children(tree.get());
        return {first, first + xcb_query_tree_children_length(tree.get())};
    }

    xcb_atom_t Atom(const char* name) const {
        const auto cookie =
            xcb_intern_atom(Connection(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(Connection(), cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    bool BelongsToViewer(xcb_window_t window) const {
        const auto cookie =
            xcb_get_property(Connection(), 0, window, Atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 0, 1);
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(Connection(), cookie, nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) != 4) return false;
        std::uint32_t id = 0;
        std::memcpy(&id, xcb_get_property_value(reply.get()), sizeof id);
        return id == static_cast<std::uint32_t>(m_viewer->Id());
    }

    bool IsShown(xcb_window_t window) const {
        const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
            Connection(), xcb_get_window_attributes(Connection(), window), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    Area AreaOf(xcb_window_t window) const {
        const Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(Connection(), xcb_get_geometry(Connection(), window), nullptr));
        const Reply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
            Connection(), xcb_translate_coordinates(Connection(), window, m_input->Screen().root, 0, 0),
            nullptr));
        if (!geometry || !place) return {};
        return {place->dst_x, place->dst_y, geometry->width, geometry->height};
    }

    // The viewer's shown window and, inside it, the plot's: the largest.
    bool FindWindows() {
        m_window = XCB_NONE;
        for (const xcb_window_t window : ChildrenOf(m_input->Screen().root))
            if (IsShown(window) && BelongsToViewer(window)) m_window = window;
        m_plotArea = {};
        if (m_window == XCB_NONE) return false;
        for (const xcb_window_t child : ChildrenOf(m_window)) {
            const Area area = AreaOf(child);
            if (IsShown(child) && area.width * area.height > m_plotArea.width * m_plotArea.height)
                m_plotArea = area;
        }
        return m_plotArea.width > 1;
    }

    // ---- Pictures

    // What the screen shows of the plot.
    Image Grab() const { return Grab(m_plotArea); }

    Image Grab(const Area& area) const {
        Image image(area.width, area.height);
        const auto cookie = xcb_get_image(
            Connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_input->Screen().root,
            static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
            static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height), ~0U);
        const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(Connection(), cookie, nullptr));
        if (!reply || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) != image.rgba.size()) {
            ADD_FAILURE() << "the screen cannot be read";
            return image;
        }
        const std::uint8_t* const data = xcb_get_image_data(reply.get()); // blue, green, red, unused
        for (std::size_t i = 0; i < image.rgba.size(); i += 4) {
            for (std::size_t channel = 0; channel < 3; ++channel)
                image.rgba[i + channel] = data[i + 2 - channel];
            image.rgba[i + 3] = 255;
        }
        return image;
    }

    // The picture once it has stayed the same for a while.
    Image Settled() const {
        Image last = Grab();
        WaitFor([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(250));
            Image now = Grab();
            const bool same = now.rgba == last.rgba;
            last = std::move(now);
            return same;
        });
        return last;
    }

    static void Keep(const Image& image, const std::string& step) {
        KeepPng(image, std::string("viewer-") +
                           testing::UnitTest::GetInstance()->current_test_info()->name() + "-" + step);
    }

    static bool IsColorful(const unsigned char* rgb) {
        return std::max({rgb[0], rgb[1], rgb[2]}) - std::min({rgb[0], rgb[1], rgb[2]}) > 60;
    }

    // Pixels of the rows from first to last that differ.
    static int DifferingPixels(const Image& a, const Image& b, int first, int last) {
        int count = 0;
        for (int y = first; y < last; ++y)
            for (int x = 0; x < a.width; ++x)
                count += std::memcmp(a.Pixel(x, y), b.Pixel(x, y), 3) != 0;
        return count;
    }

    static int CountOf(const Image& image, bool (*condition)(const unsigned char*)) {
        return image.Count(condition);
    }

    // Does something and returns the picture afterwards, which must differ from the one before.
    Image After(const std::string& step, const std::function<void()>& action, double leastMean = 0.2) {
        const Image before = Settled();
        action();
        WaitFor([&] { return Grab().rgba != before.rgba; });
        const Image after = Settled();
        Keep(before, step + "-before");
        Keep(after, step + "-after");
        EXPECT_GT(Compare(before, after).mean, leastMean) << step << " changes nothing";
        return after;
    }

    // Does something that must leave the picture alone.
    void ExpectNoChange(const std::string& step, const std::function<void()>& action) {
        const Image before = Settled();
        action();
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        const Image after = Settled();
        if (before.rgba == after.rgba) return;
        Keep(before, step + "-before");
        Keep(after, step + "-after");
        ADD_FAILURE() << step << " changes the picture";
    }

    void ExpectStart(const Image& image) {
        EXPECT_EQ(Compare(image, m_start).max, 0) << "the picture is not that of the start";
    }

    // ---- Input

    xcb_keycode_t CodeOf(xcb_keysym_t symbol) const {
        const xcb_setup_t* const setup = xcb_get_setup(Connection());
        const int count = setup->max_keycode - setup->min_keycode + 1;
        const auto cookie =
            xcb_get_keyboard_mapping(Connection(), setup->min_keycode, static_cast<std::uint8_t>(count));
        const Reply<xcb_get_keyboard_mapping_reply_t> reply(
            xcb_get_keyboard_mapping_reply(Connection(), cookie, nullptr));
        const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
        for (int i = 0; i < count; ++i)
            if (symbols[i * reply->keysyms_per_keycode] == symbol)
                return static_cast<xcb_keycode_t>(setup->min_keycode + i);
        ADD_FAILURE() << "no key for symbol " << symbol;
        return 0;
    }

    void Key(xcb_keysym_t symbol, bool down) {
        xcb_test_fake_input(Connection(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, CodeOf(symbol),
                            XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        xcb_flush(Connection());
    }

    void Press(xcb_keysym_t symbol) {
        Key(symbol, true);
        Key(symbol, false);
    }

    // To a place in the plot, in steps as a hand makes them.
    void MoveBy(int dx, int dy) {
        constexpr int steps = 10;
        const int x = m_plotArea.x + m_plotArea.width / 2;
        const int y = m_plotArea.y + m_plotArea.height / 2;
        for (int i = 0; i <= steps; ++i) {
            m_input->MovePointer(x + dx * i / steps, y + dy * i / steps);
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

    // A drag from the middle of the plot.
    void Drag(MouseButton button, int dx, int dy, xcb_keysym_t modifier = 0) {
        MoveBy(0, 0);
        if (modifier != 0) Key(modifier, true);
        m_input->Button(button, true);
        MoveBy(dx, dy);
        m_input->Button(button, false);
        if (modifier != 0) Key(modifier, false);
    }

    void Wheel(MouseButton direction) {
        m_input->Button(direction, true);
        m_input->Button(direction, false);
    }

    void Resize(int width, int height) {
        const std::uint32_t size[] = {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
        xcb_configure_window(Connection(), m_window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                             size);
        xcb_flush(Connection());
    }

    // Waits until the plot's window has changed its size.
    bool WaitForPlotSize(int width, int height) {
        return WaitFor(
            [&] { return FindWindows() && m_plotArea.width == width && m_plotArea.height == height; });
    }

    void AskToClose() {
        xcb_client_message_event_t event = {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = m_window;
        event.type = Atom("WM_PROTOCOLS");
        event.data.data32[0] = Atom("WM_DELETE_WINDOW");
        xcb_send_event(Connection(), 0, m_window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&event));
        xcb_flush(Connection());
    }

    inline static xcb_connection_t* lastingConnection = nullptr;
    std::unique_ptr<X11TestWindow> m_input;
    std::unique_ptr<ViewerProcess> m_viewer;
    xcb_window_t m_window = XCB_NONE;
    Area m_plotArea;
    Image m_start;
};

// The panel stands on the right where the screen has room for it, the status bar below.
TEST_F(ViewerWindowTest, GivesThePlotItsSize) {
    EXPECT_EQ(m_plotArea.width, plotWidth);
    EXPECT_EQ(m_plotArea.height, plotHeight);
    const Area window = AreaOf(m_window);
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
    const std::string path = testing::TempDir() + "viewer-picture.png";
    const std::string size = std::to_string(plotWidth) + "x" + std::to_string(plotHeight);
    ASSERT_EQ(RunViewer({"--picture", path, "--size", size}, WithoutDisplay()).exitCode, 0);
    const Image picture = ReadPng(path);
    std::filesystem::remove(path);
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
    // The picture follows at 0.8 of the way: the same pixels, elsewhere.
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

TEST_F(ViewerWindowTest, OtherButtonsAndMovesDoNothing) {
    ExpectNoChange("left-drag", [this] { Drag(leftButton, 100, 50); });
    ExpectNoChange("move", [this] { MoveBy(100, 50); });
    ExpectNoChange("click", [this] { Drag(rightButton, 0, 0); });
}

TEST_F(ViewerWindowTest, FollowsTheWindowsSize) {
    const Area before = AreaOf(m_window);
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

TEST_F(ViewerWindowTest, MenuSetsAllBack) {
    After("frame-lines", [this] { Press('f'); });
    After("contours", [this] { Press('z'); });
    ExpectStart(After("all-back", [this] { // the last entry of the menu View
        Key(altKey, true);
        Press('v');
        Key(altKey, false);
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        Press(upKey);
        Press(returnKey);
    }));
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
    const Area window = AreaOf(m_window);
    const int bottom = m_plotArea.y + m_plotArea.height;
    const Area bar = {window.x, bottom, window.width, window.y + window.height - bottom};
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
    Key(shiftKey, true);
    Press(tabKey);
    Key(shiftKey, false);
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

// Qt's pixels are then two of the screen's.
TEST_F(ViewerWindowTest, CountsThePixelsOfTheScreen) {
    const Image unscaled = m_start;
    Start({"--size", "800x600"}, {{"QT_SCALE_FACTOR", "2"}});
    EXPECT_EQ(m_plotArea.width, plotWidth);
    EXPECT_EQ(m_plotArea.height, plotHeight);
    EXPECT_LT(Compare(m_start, unscaled).mean, 0.5);
    // Only a place in the viewport's far corner tells positions from their halves.
    m_input->MovePointer(m_plotArea.x + 20, m_plotArea.y + plotHeight - 20);
    After("wheel", [this] { Wheel(wheelUp); });
    ExpectStart(After("reset", [this] { Press('0'); }));
    const Image moved = After("move", [this] { Drag(rightButton, 100, 0, shiftKey); });
    const int shift = 100 * 8 / 10;
    int differing = 0;
    for (int y = 100; y < plotHeight - 100; ++y)
        for (int x = 250; x < plotWidth - shift; ++x)
            differing += std::memcmp(m_start.Pixel(x, y), moved.Pixel(x + shift, y), 3) != 0;
    EXPECT_LT(differing, plotWidth * plotHeight / 20) << "the picture did not follow the pointer";
}

TEST_F(ViewerWindowTest, EndsWithItsWindow) {
    After("turn", [this] { Drag(rightButton, 60, 20); });
    AskToClose();
    EXPECT_EQ(m_viewer->WaitForExit(10000).value_or(-1), 0);
    EXPECT_EQ(m_viewer->Output(), "");
    EXPECT_EQ(m_viewer->Errors().find("kivo-viewer:"), std::string::npos) << m_viewer->Errors();
}

} // namespace
