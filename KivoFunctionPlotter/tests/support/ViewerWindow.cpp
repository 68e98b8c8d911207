#include "ViewerWindow.h"

#include "PngImage.h"

#include <unistd.h>

#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>
#include <utility>

namespace KivoTest {

using KivoDrawingTools::Compare;

void ViewerWindow::SetUpTestSuite() {
    lastingConnection = xcb_connect(nullptr, nullptr);
}

void ViewerWindow::TearDownTestSuite() {
    xcb_disconnect(lastingConnection);
}

void ViewerWindow::SetUp() {
    if (!HasDisplay()) GTEST_SKIP() << "no display";
    X11TestWindow::Options options; // a source of input that lies over nothing
    options.inputOnly = true;
    options.width = 1;
    options.height = 1;
    m_input = std::make_unique<X11TestWindow>(options);
    ASSERT_TRUE(m_input->Ok());
    m_folder = std::filesystem::temp_directory_path() / ("kivo-window-" + std::to_string(getpid()));
    std::filesystem::create_directories(m_folder);
    Start({"--size", std::to_string(plotWidth) + "x" + std::to_string(plotHeight)});
}

void ViewerWindow::TearDown() {
    if (!m_viewer) return;
    for (const xcb_keysym_t key : {controlKey, shiftKey, altKey})
        Key(key, false);
    for (const int button : {leftButton, rightButton})
        m_input->Button(button, false);
    m_viewer.reset();
    std::filesystem::remove_all(m_folder);
}

void ViewerWindow::Start(const std::vector<std::string>& arguments, Environment environment) {
    environment["QT_QPA_PLATFORM"] = std::nullopt;
    environment["XDG_CONFIG_HOME"] = Path("config");
    environment["HOME"] = m_folder.string();
    m_viewer = std::make_unique<ViewerProcess>(arguments, environment);
    ASSERT_TRUE(WaitFor([this] { return FindWindows(); })) << "no window; " << m_viewer->Errors();
    m_input->MovePointer(m_plotArea.x + plotWidth / 2, m_plotArea.y + plotHeight / 2);
    xcb_set_input_focus(Connection(), XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    WaitFor([this] { return CountOf(Grab(), IsColorful) > 5000; }); // a busy machine draws late
    m_start = Settled();
    Keep(m_start, "start");
    ASSERT_GT(CountOf(m_start, IsColorful), 5000) << "no surface on the screen";
}

std::vector<xcb_window_t> ViewerWindow::ChildrenOf(xcb_window_t window) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(Connection(), xcb_query_tree(Connection(), window), nullptr));
    if (!tree) return {};
    const xcb_window_t* const first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

xcb_atom_t ViewerWindow::Atom(const char* name) const {
    const auto cookie = xcb_intern_atom(Connection(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(Connection(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool ViewerWindow::BelongsToViewer(xcb_window_t window) const {
    const auto cookie =
        xcb_get_property(Connection(), 0, window, Atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 0, 1);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(Connection(), cookie, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) != 4) return false;
    std::uint32_t id = 0;
    std::memcpy(&id, xcb_get_property_value(reply.get()), sizeof id);
    return id == static_cast<std::uint32_t>(m_viewer->Id());
}

bool ViewerWindow::IsShown(xcb_window_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        Connection(), xcb_get_window_attributes(Connection(), window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

ScreenArea ViewerWindow::AreaOf(xcb_window_t window) const {
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(Connection(), xcb_get_geometry(Connection(), window), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        Connection(), xcb_translate_coordinates(Connection(), window, m_input->Screen().root, 0, 0),
        nullptr));
    if (!geometry || !place) return {};
    return {place->dst_x, place->dst_y, geometry->width, geometry->height};
}

bool ViewerWindow::FindWindows() {
    m_window = XCB_NONE;
    for (const xcb_window_t window : ChildrenOf(m_input->Screen().root))
        if (IsShown(window) && BelongsToViewer(window)) m_window = window;
    m_plotArea = {};
    if (m_window == XCB_NONE) return false;
    for (const xcb_window_t child : ChildrenOf(m_window)) {
        const ScreenArea area = AreaOf(child);
        if (IsShown(child) && area.width * area.height > m_plotArea.width * m_plotArea.height)
            m_plotArea = area;
    }
    return m_plotArea.width > 1;
}

Image ViewerWindow::Grab(const ScreenArea& area) const {
    Image image(area.width, area.height);
    const auto cookie =
        xcb_get_image(Connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_input->Screen().root,
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

Image ViewerWindow::Settled() const {
    Image last = Grab();
    WaitFor([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(250));
        Image now = Grab();
        const bool same = now.rgba == last.rgba && m_viewer->IsIdle();
        last = std::move(now);
        return same;
    });
    return last;
}

void ViewerWindow::Keep(const Image& image, const std::string& step) {
    KeepPng(image, std::string("viewer-") + testing::UnitTest::GetInstance()->current_test_info()->name() +
                       "-" + step);
}

bool ViewerWindow::IsColorful(const unsigned char* rgb) {
    return std::max({rgb[0], rgb[1], rgb[2]}) - std::min({rgb[0], rgb[1], rgb[2]}) > 60;
}

int ViewerWindow::DifferingPixels(const Image& a, const Image& b, int first, int last) {
    int count = 0;
    for (int y = first; y < last; ++y)
        for (int x = 0; x < a.width; ++x)
            count += std::memcmp(a.Pixel(x, y), b.Pixel(x, y), 3) != 0;
    return count;
}

int ViewerWindow::CountOf(const Image& image, bool (*condition)(const unsigned char*)) {
    return image.Count(condition);
}

Image ViewerWindow::After(const std::string& step, const std::function<void()>& action, double leastMean) {
    const Image before = Settled();
    action();
    WaitFor([&] { return Grab().rgba != before.rgba; });
    const Image after = Settled();
    Keep(before, step + "-before");
    Keep(after, step + "-after");
    EXPECT_GT(Compare(before, after).mean, leastMean) << step << " changes nothing";
    return after;
}

void ViewerWindow::ExpectNoChange(const std::string& step, const std::function<void()>& action) {
    const Image before = Settled();
    action();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const Image after = Settled();
    if (before.rgba == after.rgba) return;
    Keep(before, step + "-before");
    Keep(after, step + "-after");
    ADD_FAILURE() << step << " changes the picture";
}

void ViewerWindow::ExpectStart(const Image& image) {
    EXPECT_EQ(Compare(image, m_start).max, 0) << "the picture is not that of the start";
}

xcb_keycode_t ViewerWindow::CodeOf(xcb_keysym_t symbol) const {
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

void ViewerWindow::Key(xcb_keysym_t symbol, bool down) {
    xcb_test_fake_input(Connection(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, CodeOf(symbol),
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_flush(Connection());
}

void ViewerWindow::Press(xcb_keysym_t symbol) {
    Key(symbol, true);
    Key(symbol, false);
}

void ViewerWindow::MoveBy(int dx, int dy) {
    constexpr int steps = 10;
    const int x = m_plotArea.x + m_plotArea.width / 2;
    const int y = m_plotArea.y + m_plotArea.height / 2;
    for (int i = 0; i <= steps; ++i) {
        m_input->MovePointer(x + dx * i / steps, y + dy * i / steps);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

void ViewerWindow::Drag(PointerButton button, int dx, int dy, xcb_keysym_t modifier) {
    MoveBy(0, 0);
    if (modifier != 0) Key(modifier, true);
    m_input->Button(button, true);
    MoveBy(dx, dy);
    m_input->Button(button, false);
    if (modifier != 0) Key(modifier, false);
}

void ViewerWindow::Wheel(PointerButton direction) {
    m_input->Button(direction, true);
    m_input->Button(direction, false);
}

void ViewerWindow::Resize(int width, int height) {
    const std::uint32_t size[] = {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
    xcb_configure_window(Connection(), m_window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    xcb_flush(Connection());
}

bool ViewerWindow::WaitForPlotSize(int width, int height) {
    return WaitFor([&] { return FindWindows() && m_plotArea.width == width && m_plotArea.height == height; });
}

int ViewerWindow::Close() {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = m_window;
    event.type = Atom("WM_PROTOCOLS");
    event.data.data32[0] = Atom("WM_DELETE_WINDOW");
    xcb_send_event(Connection(), 0, m_window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    xcb_flush(Connection());
    return m_viewer->WaitForExit().value_or(-1);
}

// ---- Dialogs --------------------------------------------------------------------------------------------

xcb_window_t ViewerWindow::WaitForDialog(int startMilliseconds) {
    xcb_window_t dialog = XCB_NONE;
    WaitFor([&] {
        for (const xcb_window_t window : ChildrenOf(m_input->Screen().root))
            if (window != m_window && IsShown(window) && BelongsToViewer(window)) dialog = window;
        return dialog != XCB_NONE;
    });
    EXPECT_NE(dialog, xcb_window_t{XCB_NONE}) << "no dialog";
    std::this_thread::sleep_for(std::chrono::milliseconds(startMilliseconds));
    xcb_set_input_focus(Connection(), XCB_INPUT_FOCUS_PARENT, dialog, XCB_CURRENT_TIME);
    xcb_flush(Connection());
    return dialog;
}

void ViewerWindow::WaitForNoDialog() {
    EXPECT_TRUE(WaitFor([this] {
        for (const xcb_window_t window : ChildrenOf(m_input->Screen().root))
            if (window != m_window && IsShown(window) && BelongsToViewer(window)) return false;
        return true;
    })) << "a dialog stays";
    xcb_set_input_focus(Connection(), XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    xcb_flush(Connection());
}

void ViewerWindow::Type(const std::string& text) {
    for (const char character : text)
        Press(static_cast<xcb_keysym_t>(character));
}

void ViewerWindow::PressWith(xcb_keysym_t modifier, xcb_keysym_t symbol) {
    Key(modifier, true);
    Press(symbol);
    Key(modifier, false);
}

} // namespace KivoTest
