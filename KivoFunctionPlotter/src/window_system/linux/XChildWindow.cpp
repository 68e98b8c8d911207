#include "XChildWindow.h"

#include "LastError.h"

#include <utility>

namespace KivoDrawingTools {

bool XChildWindow::Make(std::shared_ptr<XConnection> connection, xcb_window_t parent, const XVisual& visual,
                        const SIZE& size) {
    m_connection = std::move(connection);
    xcb_connection_t* const x = m_connection->Handle();
    m_colormap = xcb_generate_id(x);
    m_window = xcb_generate_id(x);
    const bool hasColors = m_connection->Succeeded(
        xcb_create_colormap_checked(x, XCB_COLORMAP_ALLOC_NONE, m_colormap, parent, visual.type->visual_id));
    // A border pixel must be given where the depth differs from the parent's. No background: the server would
    // paint it at every change of size, which flickers.
    const std::uint32_t values[] = {XCB_BACK_PIXMAP_NONE, 0, m_colormap};
    const auto made =
        xcb_create_window_checked(x, static_cast<std::uint8_t>(visual.depth), m_window, parent, 0, 0,
                                  static_cast<std::uint16_t>(size.cx), static_cast<std::uint16_t>(size.cy), 0,
                                  XCB_WINDOW_CLASS_INPUT_OUTPUT, visual.type->visual_id,
                                  XCB_CW_BACK_PIXMAP | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values);
    if (!hasColors || !m_connection->Succeeded(made)) {
        Destroy();
        return m_connection->FailWindow(parent);
    }
    const std::uint32_t below = XCB_STACK_MODE_BELOW;
    xcb_configure_window(x, m_window, XCB_CONFIG_WINDOW_STACK_MODE, &below);
    xcb_map_window(x, m_window);
    return true;
}

bool XChildWindow::Resize(const SIZE& size) {
    const auto geometry = m_connection->Geometry(m_window);
    if (!geometry) return false;
    if (geometry->width == size.cx && geometry->height == size.cy) return true;
    const std::uint32_t values[] = {static_cast<std::uint32_t>(size.cx), static_cast<std::uint32_t>(size.cy)};
    const auto request = xcb_configure_window_checked(
        m_connection->Handle(), m_window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
    return m_connection->Succeeded(request) || m_connection->FailWindow(m_window);
}

void XChildWindow::Destroy() {
    if (!IsMade()) return;
    xcb_destroy_window(m_connection->Handle(), m_window);
    xcb_free_colormap(m_connection->Handle(), m_colormap);
    m_window = XCB_NONE;
    m_colormap = XCB_NONE;
}

} // namespace KivoDrawingTools
