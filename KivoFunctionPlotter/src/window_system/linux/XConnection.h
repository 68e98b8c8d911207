// The layer's own connection to an X display. It goes over XCB, which leaves every error to the caller and
// never ends the process.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace KivoDrawingTools {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// A reply of the X server; null when the request failed.
template <typename T>
using XReply = std::unique_ptr<T, FreeReply>;

/// A visual and the depth of the windows that have it.
struct XVisual {
    const xcb_visualtype_t* type = nullptr;
    int depth = 0;
};

class XConnection {
public:
    /// @param displayName  null for the one that the environment names
    /// @return null, with the failure recorded, where there is none
    static std::shared_ptr<XConnection> Open(const char* displayName);

    XConnection(xcb_connection_t* handle, std::string name);
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    xcb_connection_t* Handle() const { return m_handle; }
    bool IsAlive() const { return xcb_connection_has_error(m_handle) == 0; }

    /// Records that the window is not there, or that the connection is lost, whichever it is. Returns false.
    bool FailWindow(unsigned long window) const;
    /// The same of a number that a host has given for a window, which can be that of another system's.
    bool FailNumber(unsigned long window) const;
    /// Null, with the failure recorded, when the window is gone.
    XReply<xcb_get_geometry_reply_t> Geometry(xcb_window_t window) const;
    /// Whether a checked request succeeded.
    bool Succeeded(xcb_void_cookie_t request) const;
    /// Frees the errors and notices that nobody waits for.
    void DropEvents() const;

    /// The number of the screen with this root window, and the screen; null when there is none.
    const xcb_screen_t* ScreenOf(xcb_window_t root, int& number) const;
    /// The Xft.dpi setting of the screen with this root window, 1 to 1200; 96 where there is none.
    int DotsPerInch(xcb_window_t root) const;

private:
    xcb_connection_t* m_handle;
    std::string m_name;
};

/// Calls visit(XVisual) for every visual of a screen.
template <typename Visit>
void ForEachVisual(const xcb_screen_t& screen, Visit visit) {
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem; xcb_depth_next(&depth)) {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual))
            visit(XVisual{visual.data, depth.data->depth});
    }
}

} // namespace KivoDrawingTools
