// Shows pictures in X windows of visuals that EGL cannot draw to, by sending the pixels.
#pragma once

#include "Win32Names.h"
#include "XConnection.h"

#include <memory>
#include <vector>

namespace KivoDrawingTools {

/// Converts the current context's picture to a visual's pixels and puts it into a window.
class XImagePresenter {
public:
    /// @param colormap  the window's; where it can be written, colours are allocated in it
    /// @return null, with the failure recorded, for pixels of less than 8 bits
    static std::unique_ptr<XImagePresenter> Make(std::shared_ptr<XConnection> connection, XVisual visual,
                                                 xcb_colormap_t colormap);
    ~XImagePresenter();
    XImagePresenter(const XImagePresenter&) = delete;
    XImagePresenter& operator=(const XImagePresenter&) = delete;

    /// @param size  of the picture, that is of the current context's surface
    bool Present(xcb_window_t window, const SIZE& size);

private:
    XImagePresenter(std::shared_ptr<XConnection> connection, XVisual visual, const xcb_format_t& format);

    void FillChannelTable();
    void FillPaletteTable(xcb_colormap_t colormap);
    std::uint32_t PixelOf(const std::uint8_t* bgra) const;
    void Convert(const std::uint8_t* bgra, std::uint8_t* row, int width) const;
    bool Send(xcb_window_t window, const std::vector<std::uint8_t>& rows, const SIZE& size,
              std::size_t stride);

    std::shared_ptr<XConnection> m_connection;
    XVisual m_visual;
    xcb_format_t m_format;
    // With a palette: the pixel for each colour of 5 bits red, green, blue. Otherwise the pixels for the 256
    // values of red, then of green, then of blue, to be combined.
    std::vector<std::uint32_t> m_pixels;
    bool m_hasPalette = false;
    xcb_colormap_t m_colormap = XCB_NONE;   // with a palette
    std::vector<std::uint32_t> m_allocated; // pixels of it
};

} // namespace KivoDrawingTools
