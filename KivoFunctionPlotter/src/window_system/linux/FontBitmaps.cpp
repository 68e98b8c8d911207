// Display lists that draw the glyphs of a font as bitmaps.

#include "DeviceContext.h"
#include "LastError.h"
#include "RenderingContext.h"
#include "TextLine.h"

#include <GL/gl.h>
#include <glib.h>

#include <vector>

namespace KivoDrawingTools {

namespace {

constexpr unsigned glyphs = 256;

/// The Unicode character of a Windows-1252 byte; 0 for those that draw nothing.
gunichar CharacterOf(unsigned byte) {
    static constexpr char16_t FROM_80_TO_9F[32] = {
        0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    if (byte < 0x20 || byte == 0x7F) return 0;
    if (byte >= 0x80 && byte <= 0x9F) return FROM_80_TO_9F[byte - 0x80];
    if (byte == 0xAD) return '-'; // the soft hyphen, which Unicode text hides inside a line
    return byte;
}

/// The line as one bit per pixel, bottom row first, rows of whole bytes.
std::vector<GLubyte> Rasterise(const TextLine& line) {
    const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, line.Width(), line.Height()));
    const CairoContext canvas(cairo_create(surface.get()));
    line.Draw(canvas.get(), 0, 0);
    cairo_surface_flush(surface.get());
    const unsigned char* const pixels = cairo_image_surface_get_data(surface.get());
    if (!pixels) return {};
    const int stride = cairo_image_surface_get_stride(surface.get());
    const int rowBytes = (line.Width() + 7) / 8;
    std::vector<GLubyte> bits(static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(line.Height()));
    for (int y = 0; y < line.Height(); ++y) {
        const unsigned char* const row = pixels + static_cast<std::ptrdiff_t>(line.Height() - 1 - y) * stride;
        for (int x = 0; x < line.Width(); ++x) {
            if (row[x] >= 0x80)
                bits[static_cast<std::size_t>(y) * rowBytes + x / 8] |= static_cast<GLubyte>(0x80 >> x % 8);
        }
    }
    return bits;
}

void CompileGlyph(const FontObject& font, gunichar character) {
    if (character == 0) return;
    char utf8[6];
    const int length = g_unichar_to_utf8(character, utf8);
    const TextLine line(font.description, font.Measures(Smoothing::None),
                        std::string_view(utf8, static_cast<std::size_t>(length)), Smoothing::None);
    const auto advance = static_cast<GLfloat>(line.Advance());
    const std::vector<GLubyte> bits = line.HasInk() ? Rasterise(line) : std::vector<GLubyte>();
    if (bits.empty()) {
        // Drivers are known to report lack of memory for a null picture in a list.
        const GLubyte nothing = 0;
        glBitmap(0, 0, 0, 0, advance, 0, &nothing);
        return;
    }
    glBitmap(line.Width(), line.Height(), static_cast<GLfloat>(line.Origin()),
             static_cast<GLfloat>(line.Height() - line.Baseline()), advance, 0, bits.data());
}

/// A display list that is being made. It is ended whatever ends the scope: until then it takes all calls.
class ListScope {
public:
    explicit ListScope(GLuint list) { glNewList(list, GL_COMPILE); }
    ~ListScope() { glEndList(); }
    ListScope(const ListScope&) = delete;
    ListScope& operator=(const ListScope&) = delete;
};

/// How bitmaps lie in memory, for the life of the object: bits from the left, rows of whole bytes.
class BitmapStorageScope {
public:
    BitmapStorageScope() {
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glPixelStorei(GL_UNPACK_LSB_FIRST, GL_FALSE);
        glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
        glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
        glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    }
    ~BitmapStorageScope() { glPopClientAttrib(); }
    BitmapStorageScope(const BitmapStorageScope&) = delete;
    BitmapStorageScope& operator=(const BitmapStorageScope&) = delete;
};

} // namespace

BOOL wglUseFontBitmapsA(HDC dc, DWORD first, DWORD count, DWORD listBase) {
    const DeviceContext* const live = ValidDc(dc, "wglUseFontBitmaps");
    if (!live) return 0;
    if (first > glyphs || count > glyphs - first)
        return Fail(ERROR_INVALID_PARAMETER,
                    "wglUseFontBitmaps: glyph numbers end at 255; ask for fewer glyphs.");
    if (!wglGetCurrentContext())
        return FailFurther(ERROR_INVALID_HANDLE,
                           "wglUseFontBitmaps: no context is current; make one current first.");
    const BitmapStorageScope storage;
    for (DWORD i = 0; i < count; ++i) {
        const ListScope list(listBase + i);
        CompileGlyph(*live->font, CharacterOf(first + i));
    }
    return 1;
}

} // namespace KivoDrawingTools
