#include "X11TestWindow.h"

#include "WaitFor.h"
#include "Xcb.h"

#include <xcb/xtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

namespace KivoTest {

namespace {

const xcb_visualtype_t* FindVisual(const xcb_screen_t& screen, xcb_visualid_t id, int& depth) {
    for (auto d = xcb_screen_allowed_depths_iterator(&screen); d.rem; xcb_depth_next(&d)) {
        for (auto v = xcb_depth_visuals_iterator(d.data); v.rem; xcb_visualtype_next(&v)) {
            if (v.data->visual_id != id) continue;
            depth = d.data->depth;
            return v.data;
        }
    }
    return nullptr;
}

std::uint8_t Level(std::uint32_t pixel, std::uint32_t mask) {
    if (mask == 0) return 0;
    const int shift = __builtin_ctz(mask);
    const std::uint64_t largest = mask >> shift;
    return static_cast<std::uint8_t>(((pixel & mask) >> shift) * std::uint64_t{255} / largest);
}

bool HasChannels(const xcb_visualtype_t& visual) {
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR || visual._class == XCB_VISUAL_CLASS_DIRECT_COLOR;
}

} // namespace

bool HasDisplay() {
    const char* const name = std::getenv("DISPLAY");
    return name && *name;
}

X11TestWindow::X11TestWindow(const Options& options) {
    int number = 0;
    m_connection = xcb_connect(options.display.empty() ? nullptr : options.display.c_str(), &number);
    if (xcb_connection_has_error(m_connection) != 0) return;
    auto roots = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (; number > 0; --number)
        xcb_screen_next(&roots);
    m_screen = roots.data;
    m_visual = options.visual ? options.visual : m_screen->root_visual;
    int depth = 0;
    const xcb_visualtype_t* const visual = FindVisual(*m_screen, m_visual, depth);
    if (!visual) return;
    m_colormap = m_screen->default_colormap;
    if (m_visual != m_screen->root_visual) {
        m_colormap = xcb_generate_id(m_connection);
        xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, m_colormap, m_screen->root, m_visual);
    }
    const xcb_window_t window = xcb_generate_id(m_connection);
    const std::uint32_t shown[] = {0, 0, 1, options.eventMask, m_colormap};
    const std::uint32_t hidden[] = {1, options.eventMask};
    const auto request = xcb_create_window_checked(
        m_connection, static_cast<std::uint8_t>(options.inputOnly ? 0 : depth), window, m_screen->root,
        static_cast<std::int16_t>(options.x), static_cast<std::int16_t>(options.y),
        static_cast<std::uint16_t>(options.width), static_cast<std::uint16_t>(options.height), 0,
        options.inputOnly ? XCB_WINDOW_CLASS_INPUT_ONLY : XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual,
        options.inputOnly ? XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK
                          : XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                                XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
        options.inputOnly ? hidden : shown);
    const Reply<xcb_generic_error_t> error(xcb_request_check(m_connection, request));
    if (error) return;
    m_window = window;
    xcb_map_window(m_connection, m_window);
    // A round trip: the window is there, and mapped, for other connections too.
    Reply<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

X11TestWindow::~X11TestWindow() {
    Destroy();
    xcb_disconnect(m_connection);
}

std::vector<XTestVisual> X11TestWindow::Visuals() const {
    std::vector<XTestVisual> visuals;
    for (auto d = xcb_screen_allowed_depths_iterator(m_screen); d.rem; xcb_depth_next(&d)) {
        for (auto v = xcb_depth_visuals_iterator(d.data); v.rem; xcb_visualtype_next(&v)) {
            bool known = false;
            for (const XTestVisual& other : visuals)
                known = known || (other.visualClass == v.data->_class && other.depth == d.data->depth);
            if (!known) visuals.push_back({v.data->visual_id, v.data->_class, d.data->depth});
        }
    }
    return visuals;
}

void X11TestWindow::Resize(int width, int height) {
    const std::uint32_t values[] = {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
    Reply<xcb_generic_error_t>(xcb_request_check(
        m_connection,
        xcb_configure_window_checked(m_connection, m_window,
                                     XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values)));
}

void X11TestWindow::Destroy() {
    if (m_window == XCB_NONE) return;
    Reply<xcb_generic_error_t>(
        xcb_request_check(m_connection, xcb_destroy_window_checked(m_connection, m_window)));
    m_window = XCB_NONE;
}

std::vector<xcb_window_t> X11TestWindow::Children() const {
    const Reply<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_window), nullptr));
    if (!reply) return {};
    const xcb_window_t* const first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

void X11TestWindow::FakeInput(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(m_connection, type, detail, XCB_CURRENT_TIME, m_screen->root,
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    xcb_flush(m_connection);
}

void X11TestWindow::MovePointer(int x, int y) {
    const Reply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        m_connection,
        xcb_translate_coordinates(m_connection, m_window, m_screen->root, static_cast<std::int16_t>(x),
                                  static_cast<std::int16_t>(y)),
        nullptr));
    if (place) FakeInput(XCB_MOTION_NOTIFY, 0, place->dst_x, place->dst_y);
}

void X11TestWindow::Button(int button, bool down) {
    FakeInput(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button), 0, 0);
}

void X11TestWindow::Key(int keycode, bool down) {
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, m_window, XCB_CURRENT_TIME);
    FakeInput(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, static_cast<std::uint8_t>(keycode), 0, 0);
}

bool X11TestWindow::WaitForEvent(int type, xcb_generic_event_t& event) {
    xcb_flush(m_connection);
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        const Reply<xcb_generic_event_t> next(xcb_poll_for_event(m_connection));
        if (next && (next->response_type & 0x7F) == type) {
            event = *next;
            return true;
        }
        if (next) continue;
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        pollfd source{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        if (left.count() <= 0 || poll(&source, 1, static_cast<int>(left.count())) <= 0) return false;
        if (xcb_connection_has_error(m_connection) != 0) return false;
    }
}

std::vector<std::uint8_t> X11TestWindow::Grab() const {
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, m_window), nullptr));
    if (!geometry) return {};
    const int width = geometry->width;
    const int height = geometry->height;
    // A child's pixels are of the child's depth; an image of the window does not hold them.
    const auto children = Children();
    xcb_window_t source = m_window;
    xcb_visualid_t visualId = m_visual;
    if (!children.empty()) {
        source = children.front();
        const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, source), nullptr));
        if (attributes) visualId = attributes->visual;
    }
    int depth = 0;
    const xcb_visualtype_t* const visual = FindVisual(*m_screen, visualId, depth);
    const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(
        m_connection,
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, source, 0, 0,
                      static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), ~0U),
        nullptr));
    if (!image || !visual) return {};
    const std::uint8_t* const data = xcb_get_image_data(image.get());
    const int stride = xcb_get_image_data_length(image.get()) / height;
    const int bytes = stride / width >= 4 ? 4 : stride / width >= 2 ? 2 : 1;
    std::vector<std::uint32_t> all(256);
    for (std::uint32_t i = 0; i < 256; ++i)
        all[i] = i;
    Reply<xcb_query_colors_reply_t> palette;
    if (!HasChannels(*visual))
        palette.reset(xcb_query_colors_reply(
            m_connection, xcb_query_colors(m_connection, m_colormap, visual->colormap_entries, all.data()),
            nullptr));
    std::vector<std::uint8_t> rgba;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::uint32_t pixel = 0;
            for (int i = bytes - 1; i >= 0; --i)
                pixel = pixel << 8 | data[y * stride + x * bytes + i];
            if (palette) {
                const xcb_rgb_t& color = xcb_query_colors_colors(palette.get())[pixel];
                for (const int level : {color.red, color.green, color.blue})
                    rgba.push_back(static_cast<std::uint8_t>(level >> 8));
            } else {
                for (const std::uint32_t mask : {visual->red_mask, visual->green_mask, visual->blue_mask})
                    rgba.push_back(Level(pixel, mask));
            }
            rgba.push_back(255);
        }
    }
    return rgba;
}

void X11TestWindow::SetResources(const std::string& text) {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_screen->root, XCB_ATOM_RESOURCE_MANAGER,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.data());
    Reply<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

PrivateXServer::PrivateXServer(const std::string& screen, bool smallRequests)
    : m_screen(screen), m_smallRequests(smallRequests) {
    Start();
}

void PrivateXServer::Start() {
    int ends[2];
    if (pipe(ends) != 0) return;
    std::vector<const char*> arguments = {"Xvfb",           "-displayfd", "3",   "-screen", "0",
                                          m_screen.c_str(), "-nolisten",  "tcp", "-noreset"};
    if (!m_display.empty()) arguments.insert(arguments.begin() + 1, m_display.c_str());
    if (m_smallRequests) arguments.insert(arguments.end(), {"-maxbigreqsize", "1"}); // in units of 4 MiB
    arguments.push_back(nullptr);
    m_process = fork();
    if (m_process == 0) {
        const int silence = open("/dev/null", O_WRONLY);
        dup2(silence, STDERR_FILENO);
        dup2(ends[1], 3);
        execvp("Xvfb", const_cast<char**>(arguments.data()));
        _exit(127);
    }
    close(ends[1]);
    char digit = 0;
    std::string number;
    while (read(ends[0], &digit, 1) == 1 && digit != '\n')
        number += digit;
    close(ends[0]);
    m_display = number.empty() ? "" : ":" + number;
}

void PrivateXServer::Replace() {
    Kill();
    Start();
}

void PrivateXServer::Kill() {
    if (m_process <= 0) return;
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
    m_process = -1;
}

} // namespace KivoTest
