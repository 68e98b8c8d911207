#include "ControlPicture.h"

#include "KivoPicture.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

// The system's header of image formats takes these names from what includes it, and their types from COM.
using std::max;
using std::min;
#include <objidl.h>

#include <gdiplus.h>

namespace KivoDrawingTools {

namespace {

BITMAPINFOHEADER HeaderOf(const SKivoPlotImage& image, bool isTopDown) {
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof(header);
    header.biWidth = image.width;
    header.biHeight = isTopDown ? -image.height : image.height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    return header;
}

// The system's image formats for the life of the object.
class ImageFormats {
public:
    ImageFormats() {
        const Gdiplus::GdiplusStartupInput input;
        m_isUsable = Gdiplus::GdiplusStartup(&m_token, &input, nullptr) == Gdiplus::Ok;
    }
    ~ImageFormats() {
        if (m_isUsable) Gdiplus::GdiplusShutdown(m_token);
    }
    ImageFormats(const ImageFormats&) = delete;
    ImageFormats& operator=(const ImageFormats&) = delete;

    bool IsUsable() const { return m_isUsable; }

private:
    ULONG_PTR m_token = 0;
    bool m_isUsable;
};

} // namespace

void PutImage(HDC dc, const RECT& place, const SKivoPlotImage& image) {
    BITMAPINFO info = {};
    info.bmiHeader = HeaderOf(image, true);
    SetStretchBltMode(dc, HALFTONE);
    StretchDIBits(dc, static_cast<int>(place.left), static_cast<int>(place.top),
                  static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top), 0,
                  0, image.width, image.height, image.pixels, &info, DIB_RGB_COLORS, SRCCOPY);
}

HGLOBAL MakeDib(const SKivoPlotImage& image) {
    const BITMAPINFOHEADER header = HeaderOf(image, false);
    const std::size_t rowBytes = static_cast<std::size_t>(image.width) * 4;
    const auto height = static_cast<std::size_t>(image.height);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(header) + rowBytes * height);
    auto* const bytes = static_cast<unsigned char*>(memory ? GlobalLock(memory) : nullptr);
    if (!bytes) {
        if (memory) GlobalFree(memory);
        return nullptr;
    }
    std::memcpy(bytes, &header, sizeof(header));
    for (std::size_t row = 0; row < height; ++row)
        std::memcpy(bytes + sizeof(header) + row * rowBytes,
                    image.pixels + (height - 1 - row) * image.rowBytes, rowBytes);
    GlobalUnlock(memory);
    return memory;
}

bool SavePng(const wchar_t* fileName, const SKivoPlotImage& image) {
    constexpr CLSID pngEncoder = {
        0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    const ImageFormats formats;
    if (!formats.IsUsable()) return false;
    Gdiplus::Bitmap bitmap(image.width, image.height, static_cast<INT>(image.rowBytes), PixelFormat32bppRGB,
                           const_cast<BYTE*>(image.pixels)); // it is read alone
    return bitmap.Save(fileName, &pngEncoder, nullptr) == Gdiplus::Ok;
}

SKivoPlotImage DrawSmoothImage(CKivoFunctionPlotter& plotter, std::vector<unsigned char>& pixels) {
    SKivoPictureOptions options;
    options.smoothing = 2;
    SKivoPlotImage image;
    if (MeasurePicture(plotter, options, image.width, image.height) != 0) return {};
    image.rowBytes = static_cast<std::size_t>(image.width) * 4;
    try {
        pixels.resize(image.rowBytes * static_cast<std::size_t>(image.height));
    } catch (const std::bad_alloc&) {
        return {};
    }
    if (DrawPicture(plotter, options, pixels.data(), image.rowBytes, KivoPixelOrder::bgra) != 0) return {};
    image.pixels = pixels.data();
    return image;
}

} // namespace KivoDrawingTools
