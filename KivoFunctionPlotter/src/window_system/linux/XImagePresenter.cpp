#include "XImagePresenter.h"

#include "LastError.h"

#include <GL/gl.h>

#include <algorithm>
#include <climits>
#include <new>
#include <utility>

#ifndef GL_BGRA
#define GL_BGRA 0x80E1
#endif

namespace KivoDrawingTools {

namespace {

struct PaletteColor {
    std::uint32_t pixel;
    int red; // 0 to 255
    int green;
    int blue;
};

constexpr int cubeSide = 6;        // shades of each primary allocated in a palette
constexpr int paletteBits = 5;     // of each primary in the table
constexpr std::size_t header = 32; // more than the header of a request that puts an image

/// The level 0 to 255 as the bits of a channel.
std::uint32_t Channel(std::uint32_t mask, unsigned level) {
    if (mask == 0) return 0;
    const int shift = __builtin_ctz(mask);
    const std::uint64_t largest = mask >> shift;
    return static_cast<std::uint32_t>((level * largest + 127) / 255) << shift;
}

/// Asks for an even cube of colours; what a full palette refuses is left out.
/// @return the pixels that were allocated
std::vector<std::uint32_t> AllocateCube(xcb_connection_t* connection, xcb_colormap_t colormap) {
    std::vector<xcb_alloc_color_cookie_t> requests;
    std::vector<std::uint32_t> pixels;
    requests.reserve(cubeSide * cubeSide * cubeSide);
    pixels.reserve(requests.capacity());
    const auto level = [](int step) { return static_cast<std::uint16_t>(step * 0xFFFF / (cubeSide - 1)); };
    for (int i = 0; i < cubeSide * cubeSide * cubeSide; ++i)
        requests.push_back(xcb_alloc_color(connection, colormap, level(i / (cubeSide * cubeSide)),
                                           level(i / cubeSide % cubeSide), level(i % cubeSide)));
    for (const auto request : requests) {
        const XReply<xcb_alloc_color_reply_t> reply(xcb_alloc_color_reply(connection, request, nullptr));
        if (reply) pixels.push_back(reply->pixel);
    }
    return pixels;
}

std::vector<PaletteColor> QueryPalette(xcb_connection_t* connection, xcb_colormap_t colormap, int entries) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(entries));
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint32_t>(i);
    const auto request =
        xcb_query_colors(connection, colormap, static_cast<std::uint32_t>(pixels.size()), pixels.data());
    const XReply<xcb_query_colors_reply_t> reply(xcb_query_colors_reply(connection, request, nullptr));
    std::vector<PaletteColor> palette;
    if (!reply) return palette;
    const xcb_rgb_t* const colors = xcb_query_colors_colors(reply.get());
    for (int i = 0; i < xcb_query_colors_colors_length(reply.get()); ++i)
        palette.push_back(
            {static_cast<std::uint32_t>(i), colors[i].red >> 8, colors[i].green >> 8, colors[i].blue >> 8});
    return palette;
}

std::uint32_t Nearest(const std::vector<PaletteColor>& palette, int red, int green, int blue) {
    std::uint32_t best = 0;
    int smallest = INT_MAX;
    for (const PaletteColor& color : palette) {
        const int r = color.red - red;
        const int g = color.green - green;
        const int b = color.blue - blue;
        const int distance = 3 * r * r + 6 * g * g + b * b; // about how the eye weighs them
        if (distance >= smallest) continue;
        smallest = distance;
        best = color.pixel;
    }
    return best;
}

/// Reads the picture just drawn, bottom row first, and leaves the GL state as it was.
void ReadPicture(std::uint8_t* bgra, const SIZE& size) {
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPushAttrib(GL_PIXEL_MODE_BIT);
    glPixelStorei(GL_PACK_SWAP_BYTES, GL_FALSE);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    for (const GLenum scale : {GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE})
        glPixelTransferf(scale, 1);
    for (const GLenum bias : {GL_RED_BIAS, GL_GREEN_BIAS, GL_BLUE_BIAS})
        glPixelTransferf(bias, 0);
    glPixelTransferi(GL_MAP_COLOR, GL_FALSE);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, size.cx, size.cy, GL_BGRA, GL_UNSIGNED_BYTE, bgra);
    glPopAttrib();
    glPopClientAttrib();
}

const xcb_format_t* FormatOf(const XConnection& connection, int depth) {
    auto format = xcb_setup_pixmap_formats_iterator(xcb_get_setup(connection.Handle()));
    for (; format.rem; xcb_format_next(&format)) {
        if (format.data->depth == depth) return format.data;
    }
    return nullptr;
}

} // namespace

XImagePresenter::XImagePresenter(std::shared_ptr<XConnection> connection, XVisual visual,
                                 const xcb_format_t& format)
    : m_connection(std::move(connection)), m_visual(visual), m_format(format) {}

// The connection may live on for other windows; what is allocated in it is given back here.
XImagePresenter::~XImagePresenter() {
    if (m_allocated.empty()) return;
    xcb_free_colors(m_connection->Handle(), m_colormap, 0, static_cast<std::uint32_t>(m_allocated.size()),
                    m_allocated.data());
}

std::unique_ptr<XImagePresenter> XImagePresenter::Make(std::shared_ptr<XConnection> connection,
                                                       XVisual visual, xcb_colormap_t colormap) {
    const xcb_format_t* const format = FormatOf(*connection, visual.depth);
    const bool hasChannels = visual.type->_class == XCB_VISUAL_CLASS_TRUE_COLOR ||
                             visual.type->_class == XCB_VISUAL_CLASS_DIRECT_COLOR;
    if (!format || format->bits_per_pixel < 8 || (!hasChannels && visual.depth > 12)) {
        Fail(ERROR_NOT_SUPPORTED, "X11: visual " + Hex(visual.type->visual_id) +
                                      " cannot show pictures; use a window of the screen's default visual.");
        return nullptr;
    }
    std::unique_ptr<XImagePresenter> presenter(new XImagePresenter(std::move(connection), visual, *format));
    if (hasChannels)
        presenter->FillChannelTable();
    else
        presenter->FillPaletteTable(colormap);
    return presenter;
}

void XImagePresenter::FillChannelTable() {
    for (const std::uint32_t mask :
         {m_visual.type->red_mask, m_visual.type->green_mask, m_visual.type->blue_mask}) {
        for (unsigned level = 0; level < 256; ++level)
            m_pixels.push_back(Channel(mask, level));
    }
}

void XImagePresenter::FillPaletteTable(xcb_colormap_t colormap) {
    const auto visualClass = m_visual.type->_class;
    xcb_connection_t* const connection = m_connection->Handle();
    if (visualClass == XCB_VISUAL_CLASS_PSEUDO_COLOR || visualClass == XCB_VISUAL_CLASS_GRAY_SCALE)
        m_allocated = AllocateCube(connection, colormap);
    m_colormap = colormap;
    const int entries = std::min<int>(m_visual.type->colormap_entries, 1 << m_visual.depth);
    const auto palette = QueryPalette(connection, colormap, entries);
    const bool isGrey =
        visualClass == XCB_VISUAL_CLASS_STATIC_GRAY || visualClass == XCB_VISUAL_CLASS_GRAY_SCALE;
    constexpr int levels = 1 << paletteBits;
    m_hasPalette = true;
    m_pixels.reserve(levels * levels * levels);
    for (int i = 0; i < levels * levels * levels; ++i) {
        int red = (i >> (2 * paletteBits)) * 255 / (levels - 1);
        int green = (i >> paletteBits) % levels * 255 / (levels - 1);
        int blue = i % levels * 255 / (levels - 1);
        if (isGrey) red = green = blue = (red * 30 + green * 59 + blue * 11) / 100;
        m_pixels.push_back(Nearest(palette, red, green, blue));
    }
}

std::uint32_t XImagePresenter::PixelOf(const std::uint8_t* bgra) const {
    if (!m_hasPalette) return m_pixels[bgra[2]] | m_pixels[256U + bgra[1]] | m_pixels[512U + bgra[0]];
    constexpr int dropped = 8 - paletteBits;
    const unsigned index = static_cast<unsigned>(bgra[2] >> dropped) << (2 * paletteBits) |
                           static_cast<unsigned>(bgra[1] >> dropped) << paletteBits |
                           static_cast<unsigned>(bgra[0] >> dropped);
    return m_pixels[index];
}

void XImagePresenter::Convert(const std::uint8_t* bgra, std::uint8_t* row, int width) const {
    const int bytes = m_format.bits_per_pixel / 8;
    const bool lowByteFirst =
        xcb_get_setup(m_connection->Handle())->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    for (int x = 0; x < width; ++x, bgra += 4, row += bytes) {
        const std::uint32_t pixel = PixelOf(bgra);
        for (int i = 0; i < bytes; ++i)
            row[i] = static_cast<std::uint8_t>(pixel >> (8 * (lowByteFirst ? i : bytes - 1 - i)));
    }
}

bool XImagePresenter::Present(xcb_window_t window, const SIZE& size) {
    const auto width = static_cast<std::size_t>(size.cx);
    const auto height = static_cast<std::size_t>(size.cy);
    const std::size_t pad = m_format.scanline_pad;
    const std::size_t stride = (width * m_format.bits_per_pixel + pad - 1) / pad * pad / 8;
    try {
        std::vector<std::uint8_t> picture(width * height * 4);
        std::vector<std::uint8_t> rows(stride * height);
        ReadPicture(picture.data(), size);
        for (std::size_t y = 0; y < height; ++y)
            Convert(&picture[(height - 1 - y) * width * 4], &rows[y * stride], size.cx);
        return Send(window, rows, size, stride);
    } catch (const std::bad_alloc&) {
        return Fail(ERROR_NOT_ENOUGH_MEMORY,
                    "X11: there is not enough memory to show the picture; make the window "
                    "smaller.");
    }
}

bool XImagePresenter::Send(xcb_window_t window, const std::vector<std::uint8_t>& rows, const SIZE& size,
                           std::size_t stride) {
    xcb_connection_t* const connection = m_connection->Handle();
    const std::size_t longest =
        static_cast<std::size_t>(xcb_get_maximum_request_length(connection)) * 4 - header;
    const int rowsAtOnce = static_cast<int>(std::max<std::size_t>(1, longest / stride));
    const xcb_gcontext_t gc = xcb_generate_id(connection);
    xcb_create_gc(connection, gc, window, 0, nullptr);
    bool sent = true;
    for (int y = 0; y < size.cy && sent; y += rowsAtOnce) {
        const int count = std::min(rowsAtOnce, size.cy - y);
        sent = m_connection->Succeeded(xcb_put_image_checked(
            connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, gc, static_cast<std::uint16_t>(size.cx),
            static_cast<std::uint16_t>(count), 0, static_cast<std::int16_t>(y), 0, m_format.depth,
            static_cast<std::uint32_t>(stride * static_cast<std::size_t>(count)),
            &rows[static_cast<std::size_t>(y) * stride]));
    }
    xcb_free_gc(connection, gc);
    return sent || m_connection->FailWindow(window);
}

} // namespace KivoDrawingTools
