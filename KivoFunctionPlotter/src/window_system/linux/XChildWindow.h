// A child window that covers a host's window where that one's visual cannot be drawn to.
#pragma once

#include "Win32Names.h"
#include "XConnection.h"

#include <memory>

namespace KivoDrawingTools {

/// Empty until it is made; then it covers its parent, below the parent's other children, as the parent's own
/// picture would. It selects no events, so all input goes on to the parent.
class XChildWindow {
public:
    XChildWindow() = default;
    ~XChildWindow() { Destroy(); }
    XChildWindow(const XChildWindow&) = delete;
    XChildWindow& operator=(const XChildWindow&) = delete;

    /// @return false, with the failure recorded, when the server refuses
    bool Make(std::shared_ptr<XConnection> connection, xcb_window_t parent, const XVisual& visual,
              const SIZE& size);
    /// Gives the child the size; does nothing where it has it. False, with the failure recorded, when the
    /// child is gone.
    bool Resize(const SIZE& size);
    void Destroy();

    bool IsMade() const { return m_window != XCB_NONE; }
    xcb_window_t Id() const { return m_window; }
    xcb_colormap_t Colormap() const { return m_colormap; }

private:
    std::shared_ptr<XConnection> m_connection;
    xcb_window_t m_window = XCB_NONE;
    xcb_colormap_t m_colormap = XCB_NONE;
};

} // namespace KivoDrawingTools
