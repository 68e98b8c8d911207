#include "XConnection.h"

#include "LastError.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr int usualDotsPerInch = 96;
constexpr std::size_t longestName = 100;

/// Takes the value of Xft.dpi from lines of the form "name:<blank>value".
int ParseDotsPerInch(std::string_view settings) {
    constexpr std::string_view name = "Xft.dpi:";
    auto at = settings.find(name);
    while (at != std::string_view::npos && at > 0 && settings[at - 1] != '\n')
        at = settings.find(name, at + 1);
    if (at == std::string_view::npos) return usualDotsPerInch;
    settings.remove_prefix(at + name.size());
    settings.remove_prefix(std::min(settings.find_first_not_of(" \t"), settings.size()));
    double value = 0;
    std::from_chars(settings.data(), settings.data() + settings.size(), value);
    return value >= 1 && value <= 1200 ? static_cast<int>(std::lround(value)) : usualDotsPerInch;
}

/// Also where Xwayland's display is set: toolkits then choose Wayland as long as nobody says otherwise.
bool IsWaylandSession() {
    return std::getenv("WAYLAND_DISPLAY") != nullptr;
}

/// A display's name as messages quote it, which have more to say.
std::string Quoted(const char* name) {
    const std::string_view whole = name ? name : "";
    const std::string_view shown = WholeCharacters(whole, longestName);
    return std::string(shown) + (shown.size() < whole.size() ? "..." : "");
}

} // namespace

XConnection::XConnection(xcb_connection_t* handle, std::string name)
    : m_handle(handle), m_name(std::move(name)) {}

XConnection::~XConnection() {
    xcb_disconnect(m_handle);
}

std::shared_ptr<XConnection> XConnection::Open(const char* displayName) {
    const std::string name = Quoted(displayName ? displayName : std::getenv("DISPLAY"));
    auto connection = std::make_shared<XConnection>(xcb_connect(displayName, nullptr), name);
    if (connection->IsAlive()) return connection;
    const std::string problem = name.empty() ? "no display is named" : "cannot open display \"" + name + "\"";
    const std::string remedy =
        IsWaylandSession()
            ? "this is a Wayland session: start Xwayland and have the toolkit use X11 (QT_QPA_PLATFORM=xcb, "
              "GDK_BACKEND=x11, SDL_VIDEODRIVER=x11), or draw off-screen."
            : "start an X server or set DISPLAY.";
    Fail(ERROR_INVALID_PARAMETER, "X11: " + problem + "; " + remedy);
    return nullptr;
}

bool XConnection::FailWindow(unsigned long window) const {
    if (!IsAlive())
        return Fail(ERROR_INVALID_WINDOW_HANDLE, "X11: the connection to display \"" + m_name +
                                                     "\" is lost; release the window and attach again.");
    return Fail(ERROR_INVALID_WINDOW_HANDLE, "X11: there is no window " + Hex(window) + " on display \"" +
                                                 m_name + "\"; pass the XID of an existing window.");
}

bool XConnection::FailNumber(unsigned long window) const {
    if (!IsAlive() || !IsWaylandSession()) return FailWindow(window);
    return Fail(ERROR_INVALID_WINDOW_HANDLE,
                "X11: there is no window " + Hex(window) + " on display \"" + m_name +
                    "\"; this is a Wayland session: have the toolkit use X11 (QT_QPA_PLATFORM=xcb, "
                    "GDK_BACKEND=x11, SDL_VIDEODRIVER=x11) and pass the XID of its window, or draw "
                    "off-screen.");
}

XReply<xcb_get_geometry_reply_t> XConnection::Geometry(xcb_window_t window) const {
    XReply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(m_handle, xcb_get_geometry(m_handle, window), nullptr));
    if (!reply) FailWindow(window);
    return reply;
}

bool XConnection::Succeeded(xcb_void_cookie_t request) const {
    const XReply<xcb_generic_error_t> error(xcb_request_check(m_handle, request));
    return !error && IsAlive();
}

void XConnection::DropEvents() const {
    while (void* const event = xcb_poll_for_event(m_handle))
        std::free(event);
}

const xcb_screen_t* XConnection::ScreenOf(xcb_window_t root, int& number) const {
    number = 0;
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(m_handle)); screen.rem;
         xcb_screen_next(&screen)) {
        if (screen.data->root == root) return screen.data;
        ++number;
    }
    return nullptr;
}

int XConnection::DotsPerInch(xcb_window_t root) const {
    constexpr std::uint32_t LONGEST = 1U << 18; // in units of four bytes
    const auto request =
        xcb_get_property(m_handle, 0, root, XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 0, LONGEST);
    const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_handle, request, nullptr));
    if (!reply || reply->format != 8) return usualDotsPerInch;
    return ParseDotsPerInch({static_cast<const char*>(xcb_get_property_value(reply.get())),
                             static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))});
}

} // namespace KivoDrawingTools
