#include "XConnection.h"

#include "LastError.h"
#include "OpenXConnections.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <mutex>
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
std::string Quoted(std::string_view name) {
    const std::string_view shown = WholeCharacters(name, longestName);
    return std::string(shown) + (shown.size() < name.size() ? "..." : "");
}

/// Whether a server of this machine listens for a display's clients.
bool IsServedHere(const std::string& display) {
    char* parsed = nullptr;
    int number = 0;
    if (!xcb_parse_display(display.c_str(), &parsed, &number, nullptr)) return false;
    const XReply<char> host(parsed);
    if (host && *host != '\0') return false;
    const std::string path = "/tmp/.X11-unix/X" + std::to_string(number);
    for (const std::size_t unnamed : {1, 0}) { // Linux has sockets that are no files, with a 0 before
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path + unnamed, sizeof address.sun_path - 2);
        const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + unnamed + path.size());
        const int client = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (client < 0) return false;
        // EAGAIN: so many wait that this one would have to.
        const bool isServed =
            connect(client, reinterpret_cast<const sockaddr*>(&address), size) == 0 || errno == EAGAIN;
        close(client);
        if (isServed) return true;
    }
    return false;
}

/// What to do where no server is found.
std::string Remedy() {
    if (IsWaylandSession())
        return "this is a Wayland session: start Xwayland and have the toolkit use X11 (QT_QPA_PLATFORM=xcb, "
               "GDK_BACKEND=x11, SDL_VIDEODRIVER=x11), or draw off-screen.";
    return "start an X server or set DISPLAY.";
}

} // namespace

std::shared_ptr<XConnection> XConnection::To(const char* displayName) {
    const char* const named = displayName && *displayName ? displayName : std::getenv("DISPLAY");
    const std::string name = named ? named : "";
    if (auto open = OpenXConnections::Find(name); open && open->IsUsable()) return open;
    auto connection = std::make_shared<XConnection>(name);
    if (!connection->IsAlive()) {
        connection->FailToOpen();
        return nullptr;
    }
    OpenXConnections::Add(name, connection);
    return connection;
}

XConnection::XConnection(const std::string& name) : m_name(Quoted(name)), m_process(getpid()) {
    // One after another: libXau, which XCB asks for the permission, keeps a file's name for all threads.
    static std::mutex opening;
    const std::lock_guard<std::mutex> guard(opening);
    errno = 0;
    m_handle = xcb_connect(name.c_str(), nullptr);
    m_systemError = errno;
}

XConnection::~XConnection() {
    m_egl.clear(); // it talks over the connection
    xcb_disconnect(m_handle);
    OpenXConnections::ForgetClosed();
}

bool XConnection::FailToOpen() const {
    if (m_name.empty()) return Fail(ERROR_INVALID_PARAMETER, "X11: no display is named; " + Remedy());
    const std::string words = "X11: cannot open display \"" + m_name + "\"";
    if (m_systemError == EMFILE || m_systemError == ENFILE)
        return Fail(ERROR_TOO_MANY_OPEN_FILES,
                    words + ": there are too many open files; close some or raise the limit (ulimit -n).");
    if (m_systemError == ENOMEM || xcb_connection_has_error(m_handle) == XCB_CONN_CLOSED_MEM_INSUFFICIENT)
        return Fail(ERROR_NOT_ENOUGH_MEMORY, words + ": there is not enough memory; close other programs.");
    // XCB writes the server's reason to standard error and keeps it from us.
    if (IsServedHere(m_name))
        return Fail(ERROR_BUSY, words + ": the X server refuses another client; it has as many as it serves "
                                        "(close programs, or start it with a larger -maxclients), or gives "
                                        "no permission (xauth).");
    return Fail(ERROR_INVALID_PARAMETER, words + "; " + Remedy());
}

bool XConnection::IsUsable() const {
    if (m_process != getpid()) return false;
    DropEvents(); // reads, and so notices that the server has ended
    return IsAlive();
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

std::shared_ptr<EglDisplay> XConnection::EglOfScreen(int number) {
    if (!HasEglClientExtension("EGL_EXT_platform_xcb")) return nullptr;
    const KeepFailure keep; // there is another way to show pictures
    std::unique_ptr<EglDisplay>& display = m_egl[number];
    const EGLAttrib attributes[] = {EGL_PLATFORM_XCB_SCREEN_EXT, number, EGL_NONE};
    if (!display) display = EglDisplay::OfConnection(EGL_PLATFORM_XCB_EXT, m_handle, attributes);
    if (!display) return nullptr;
    return {shared_from_this(), display.get()};
}

} // namespace KivoDrawingTools
