#include "Desktop.h"

#include "ChildProcess.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <xcb/xtest.h>

#include <cstring>

namespace KivoTest {

using KivoDrawingTools::Image;

Desktop::Desktop(const std::string& display)
    : m_connection(xcb_connect(display.empty() ? nullptr : display.c_str(), nullptr)) {
    if (xcb_connection_has_error(m_connection) == 0)
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    ucred server = {};
    socklen_t size = sizeof server;
    if (getsockopt(xcb_get_file_descriptor(m_connection), SOL_SOCKET, SO_PEERCRED, &server, &size) == 0)
        m_server = server.pid;
}

Desktop::~Desktop() {
    xcb_disconnect(m_connection);
}

void Desktop::Sync() const {
    Reply<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

bool Desktop::IsIdle() const {
    return m_server == 0 || KivoTest::IsIdle(m_server);
}

std::vector<xcb_window_t> Desktop::ChildrenOf(xcb_window_t window) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
    if (!tree) return {};
    const xcb_window_t* const first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

std::string Desktop::TitleOf(xcb_window_t window) const {
    constexpr std::uint32_t longest = 64; // in units of four bytes
    for (const xcb_atom_t property : {Atom("_NET_WM_NAME"), xcb_atom_t{XCB_ATOM_WM_NAME}}) {
        const auto cookie = xcb_get_property(m_connection, 0, window, property, XCB_ATOM_ANY, 0, longest);
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) == 0) continue;
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }
    return {};
}

// Window managers put windows into frames of their own.
xcb_window_t Desktop::FindShown(xcb_window_t root, const std::string& title) const {
    for (const xcb_window_t window : ChildrenOf(root)) {
        if (TitleOf(window) == title && IsShown(window)) return window;
        const xcb_window_t inside = FindShown(window, title);
        if (inside != XCB_NONE) return inside;
    }
    return XCB_NONE;
}

xcb_window_t Desktop::FindWindow(const std::string& title) const {
    return FindShown(m_screen->root, title);
}

xcb_window_t Desktop::PlotIn(xcb_window_t window) const {
    const ScreenArea whole = AreaOf(window);
    int largest = whole.width * whole.height / 2;
    xcb_window_t plot = window;
    for (const xcb_window_t child : ChildrenOf(window)) {
        const ScreenArea area = AreaOf(child);
        if (!IsShown(child) || area.width * area.height <= largest) continue;
        largest = area.width * area.height;
        plot = child;
    }
    return plot;
}

bool Desktop::IsShown(xcb_window_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE &&
           reply->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
}

std::uint32_t Desktop::ProcessOf(xcb_window_t window) const {
    const auto cookie =
        xcb_get_property(m_connection, 0, window, Atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 0, 1);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    std::uint32_t id = 0;
    if (reply && xcb_get_property_value_length(reply.get()) == sizeof id)
        std::memcpy(&id, xcb_get_property_value(reply.get()), sizeof id);
    return id;
}

ScreenArea Desktop::AreaOf(xcb_window_t window) const {
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        m_connection, xcb_translate_coordinates(m_connection, window, m_screen->root, 0, 0), nullptr));
    if (!geometry || !place) return {};
    return {place->dst_x, place->dst_y, geometry->width, geometry->height};
}

void Desktop::MoveWindow(xcb_window_t window, int x, int y) {
    const std::uint32_t values[] = {static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)};
    xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values);
    xcb_flush(m_connection);
}

void Desktop::ResizeWindow(xcb_window_t window, int width, int height) {
    const std::uint32_t values[] = {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
    xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
    xcb_flush(m_connection);
}

void Desktop::HideWindow(xcb_window_t window) {
    xcb_unmap_window(m_connection, window);
    xcb_flush(m_connection);
}

void Desktop::ShowWindow(xcb_window_t window) {
    xcb_map_window(m_connection, window);
    xcb_flush(m_connection);
}

xcb_atom_t Desktop::Atom(const char* name) const {
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void Desktop::AskToClose(xcb_window_t window) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = Atom("WM_PROTOCOLS");
    event.data.data32[0] = Atom("WM_DELETE_WINDOW");
    xcb_send_event(m_connection, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    xcb_flush(m_connection);
}

void Desktop::Focus(xcb_window_t window) {
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

std::string Desktop::Resources() const {
    const auto cookie = xcb_get_property(m_connection, 0, m_screen->root, XCB_ATOM_RESOURCE_MANAGER,
                                         XCB_ATOM_STRING, 0, 1U << 18);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

void Desktop::SetResources(const std::string& text) {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_screen->root, XCB_ATOM_RESOURCE_MANAGER,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.data());
    Sync();
}

Image Desktop::Grab(xcb_window_t window) const {
    const ScreenArea area = AreaOf(window);
    return Read(window, {0, 0, area.width, area.height});
}

Image Desktop::Grab(const ScreenArea& area) const {
    return Read(Root(), area);
}

Image Desktop::Read(xcb_window_t window, const ScreenArea& inside) const {
    const auto cookie =
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<std::int16_t>(inside.x),
                      static_cast<std::int16_t>(inside.y), static_cast<std::uint16_t>(inside.width),
                      static_cast<std::uint16_t>(inside.height), ~0U);
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection, cookie, nullptr));
    Image image(inside.width, inside.height);
    if (!reply || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) != image.rgba.size())
        return {};
    const std::uint8_t* const data = xcb_get_image_data(reply.get()); // blue, green, red, unused
    for (std::size_t i = 0; i < image.rgba.size(); i += 4) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            image.rgba[i + channel] = data[i + 2 - channel];
        image.rgba[i + 3] = 255;
    }
    return image;
}

void Desktop::FakeInput(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(m_connection, type, detail, XCB_CURRENT_TIME, m_screen->root,
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    xcb_flush(m_connection);
}

void Desktop::MovePointer(int x, int y) {
    FakeInput(XCB_MOTION_NOTIFY, 0, x, y);
}

void Desktop::Button(PointerButton button, bool down) {
    FakeInput(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button), 0, 0);
}

void Desktop::Click(PointerButton button) {
    Button(button, true);
    Button(button, false);
}

xcb_keycode_t Desktop::CodeOf(xcb_keysym_t symbol) const {
    const xcb_setup_t* const setup = xcb_get_setup(m_connection);
    const int count = setup->max_keycode - setup->min_keycode + 1;
    const auto cookie =
        xcb_get_keyboard_mapping(m_connection, setup->min_keycode, static_cast<std::uint8_t>(count));
    const Reply<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(m_connection, cookie, nullptr));
    if (!reply) return 0;
    const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int i = 0; i < count; ++i)
        if (symbols[i * reply->keysyms_per_keycode] == symbol)
            return static_cast<xcb_keycode_t>(setup->min_keycode + i);
    ADD_FAILURE() << "no key for symbol " << symbol;
    return 0;
}

void Desktop::Key(xcb_keysym_t symbol, bool down) {
    FakeInput(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, CodeOf(symbol), 0, 0);
}

void Desktop::Press(xcb_keysym_t symbol) {
    Key(symbol, true);
    Key(symbol, false);
}

} // namespace KivoTest
