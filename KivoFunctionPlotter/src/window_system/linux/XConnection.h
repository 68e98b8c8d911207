// The layer's own connection to an X display, which a thread's windows there share. It goes over XCB, which
// leaves every error to the caller and never ends the process.
#pragma once

#include "EglDisplay.h"

#include <xcb/xcb.h>

#include <sys/types.h>

#include <cstdlib>
#include <map>
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

/// It closes with the last window and context that keep it, in whichever thread that is.
class XConnection : public std::enable_shared_from_this<XConnection> {
public:
    /// The connection that the thread has to a display, or else a new one: a server that has ended may have
    /// a successor of the same name.
    /// @param displayName  null for the one that the environment names
    /// @return null, with the failure recorded, where there is none
    static std::shared_ptr<XConnection> To(const char* displayName);

    /// Opens the display; it is alive where that succeeds.
    explicit XConnection(const std::string& name);
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    xcb_connection_t* Handle() const { return m_handle; }
    bool IsAlive() const { return xcb_connection_has_error(m_handle) == 0; }
    /// Whether further windows can use it: not after its server has ended, nor in a child process, which
    /// would write into the parent's requests.
    bool IsUsable() const;

    /// Records that the window is not there, or that the connection is lost, whichever it is. Returns false.
    bool FailWindow(unsigned long window) const;
    /// The same of a number that a host has given for a window, which can be that of another system's.
    bool FailNumber(unsigned long window) const;
    /// Null, with the failure recorded, when the window is gone.
    XReply<xcb_get_geometry_reply_t> Geometry(xcb_window_t window) const;
    /// Whether a checked request succeeded.
    bool Succeeded(xcb_void_cookie_t request) const;
    /// Frees the errors and notices that nobody waits for: no window selects events.
    void DropEvents() const;

    /// The number of the screen with this root window, and the screen; null when there is none.
    const xcb_screen_t* ScreenOf(xcb_window_t root, int& number) const;
    /// The Xft.dpi setting of the screen with this root window, 1 to 1200; 96 where there is none.
    int DotsPerInch(xcb_window_t root) const;
    /// The EGL display of a screen, one for all windows of the connection; it keeps the connection. Null
    /// where EGL draws to no window of the screen.
    std::shared_ptr<EglDisplay> EglOfScreen(int number);

private:
    /// Records why there is no connection. Returns false.
    bool FailToOpen() const;

    const std::string m_name;
    const pid_t m_process;
    xcb_connection_t* m_handle;
    int m_systemError = 0;                            // that opening it met
    std::map<int, std::unique_ptr<EglDisplay>> m_egl; // by the screen's number
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
