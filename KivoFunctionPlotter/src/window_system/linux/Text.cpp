// Measuring and drawing text, and filling rectangles, in memory device contexts.

#include "DeviceContext.h"
#include "LastError.h"
#include "TextLine.h"

#include <algorithm>
#include <cstring>
#include <thread>
#include <utility>
#include <vector>

namespace KivoDrawingTools {

namespace {

/// The text between line ends, which are CR LF, LF or CR.
std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\n' && text[at] != '\r') continue;
        lines.push_back(text.substr(start, at - start));
        if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') ++at;
        start = at + 1;
    }
    lines.push_back(text.substr(start));
    return lines;
}

/// Draws on the pixels of a bitmap.
class BitmapCanvas {
public:
    explicit BitmapCanvas(BitmapObject& bitmap)
        : m_surface(cairo_image_surface_create_for_data(
              reinterpret_cast<unsigned char*>(bitmap.pixels.data()), CAIRO_FORMAT_RGB24, bitmap.width,
              bitmap.height, bitmap.width * 4)),
          m_context(cairo_create(m_surface.get())) {}
    ~BitmapCanvas() { cairo_surface_finish(m_surface.get()); }
    BitmapCanvas(const BitmapCanvas&) = delete;
    BitmapCanvas& operator=(const BitmapCanvas&) = delete;

    cairo_t* Context() const { return m_context.get(); }

private:
    CairoSurface m_surface;
    CairoContext m_context;
};

/// Glyphs in bitmaps are drawn in one bit, as the small sizes of the face that is asked for are on Windows:
/// partly covered pixels would close the counters of bold digits when the picture is reduced to text and
/// ground.
constexpr Smoothing bitmapSmoothing = Smoothing::None;

/// The rectangle within the range that Cairo can count in.
RECT Drawable(const RECT& rect) {
    const auto within = [](LONG value) { return std::clamp<LONG>(value, -1000000, 1000000); };
    return {within(rect.left), within(rect.top), within(rect.right), within(rect.bottom)};
}

TextLine MakeLine(const FontObject& font, std::string_view text) {
    return TextLine(font.description, font.Measures(bitmapSmoothing), text, bitmapSmoothing);
}

bool IsKept(const DeviceContext& dc, std::string_view text) {
    return dc.measuredLine && dc.measuredLine->thread == std::this_thread::get_id() &&
           dc.measuredLine->line.Shows(text);
}

/// Keeps the first line that is measured after a text was drawn: a text is measured as a whole, then word by
/// word, then drawn.
SIZE MeasureLine(DeviceContext& dc, std::string_view text) {
    if (IsKept(dc, text)) return {dc.measuredLine->line.Width(), dc.measuredLine->line.Height()};
    TextLine line = MakeLine(*dc.font, text);
    const SIZE size = {line.Width(), line.Height()};
    if (!dc.measuredLine)
        dc.measuredLine.emplace(DeviceContext::MeasuredLine{std::move(line), std::this_thread::get_id()});
    return size;
}

/// A line of the text to draw. None is kept any longer: it would stay until the device context is deleted,
/// perhaps on another thread.
TextLine TakeLine(DeviceContext& dc, std::string_view text) {
    TextLine line = IsKept(dc, text) ? std::move(dc.measuredLine->line) : MakeLine(*dc.font, text);
    dc.measuredLine.reset();
    return line;
}

/// Draws a line with its top at y.
void DrawLine(cairo_t* canvas, const TextLine& line, const RECT& area, int y, UINT format) {
    const int spare = area.right - area.left - line.Width();
    const int x = area.left + ((format & DT_CENTER) != 0 ? spare / 2 : 0);
    cairo_set_source_rgb(canvas, 1, 1, 1);
    cairo_rectangle(canvas, x, y, line.Width(), line.Height());
    cairo_fill(canvas);
    cairo_set_source_rgb(canvas, 0, 0, 0);
    line.Draw(canvas, x, y);
}

int DrawSingleLine(cairo_t* canvas, DeviceContext& dc, std::string_view text, const RECT& area, UINT format) {
    const TextLine line = TakeLine(dc, text);
    const int top = (format & DT_BOTTOM) != 0 ? area.bottom - line.Height() : area.top;
    DrawLine(canvas, line, area, top, format);
    return top + line.Height() - area.top;
}

int DrawLines(cairo_t* canvas, DeviceContext& dc, std::string_view text, const RECT& area, UINT format) {
    int y = area.top;
    for (const auto part : SplitLines(text)) {
        if (y >= area.bottom) break; // a text of very many lines must not take very long
        const TextLine line = TakeLine(dc, part);
        DrawLine(canvas, line, area, y, format);
        y += line.Height();
    }
    return y - area.top;
}

} // namespace

UINT GetACP() {
    return CP_UTF8;
}

BOOL IsDBCSLeadByte(BYTE) {
    return 0;
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
    const DeviceContext* const live = ValidDc(dc, "GetTextMetrics");
    if (!live) return 0;
    if (!metrics)
        return Fail(ERROR_INVALID_PARAMETER, "GetTextMetrics: there is no room for the answer; pass it.");
    const LOGFONTA& font = live->font->description;
    const FontMeasures& measures = live->font->Measures(Smoothing::Grey);
    TEXTMETRICA answer{};
    answer.tmAscent = measures.ascent;
    answer.tmDescent = measures.descent;
    answer.tmHeight = measures.ascent + measures.descent;
    answer.tmInternalLeading = std::max(0, answer.tmHeight - measures.em);
    answer.tmAveCharWidth = measures.averageWidth;
    answer.tmMaxCharWidth = measures.widestWidth;
    answer.tmWeight = font.lfWeight;
    answer.tmDigitizedAspectX = GetDeviceCaps(dc, LOGPIXELSX);
    answer.tmDigitizedAspectY = GetDeviceCaps(dc, LOGPIXELSY);
    answer.tmFirstChar = ' ';
    answer.tmLastChar = 0xFF;
    answer.tmDefaultChar = '?';
    answer.tmBreakChar = ' ';
    answer.tmItalic = font.lfItalic;
    answer.tmPitchAndFamily = font.lfPitchAndFamily;
    answer.tmCharSet = font.lfCharSet;
    *metrics = answer;
    return 1;
}

BOOL GetTextExtentPoint32A(HDC dc, const char* text, int length, SIZE* size) {
    DeviceContext* const live = ValidDc(dc, "GetTextExtentPoint32");
    if (!live) return 0;
    if (!size || length < 0 || (!text && length > 0))
        return Fail(ERROR_INVALID_PARAMETER,
                    "GetTextExtentPoint32: text, length or room for the answer is missing; "
                    "pass all three.");
    const std::string_view whole(text ? text : "", static_cast<std::size_t>(length));
    *size = MeasureLine(*live, whole);
    return 1;
}

int DrawTextA(HDC dc, const char* text, int length, RECT* rect, UINT format) {
    DeviceContext* const live = MemoryDc(dc, "DrawText");
    if (!live) return 0;
    if (!text || !rect || length < -1)
        return Fail(ERROR_INVALID_PARAMETER,
                    "DrawText: text or rectangle is missing or the length is below -1; "
                    "pass all three.");
    const std::string_view whole(text, length == -1 ? std::strlen(text) : static_cast<std::size_t>(length));
    const BitmapCanvas canvas(*live->bitmap);
    const RECT area = Drawable(*rect);
    cairo_rectangle(canvas.Context(), area.left, area.top, area.right - area.left, area.bottom - area.top);
    cairo_clip(canvas.Context());
    if ((format & DT_SINGLELINE) != 0) return DrawSingleLine(canvas.Context(), *live, whole, area, format);
    return DrawLines(canvas.Context(), *live, whole, area, format);
}

int FillRect(HDC dc, const RECT* rect, HBRUSH brush) {
    const DeviceContext* const live = MemoryDc(dc, "FillRect");
    if (!live) return 0;
    const auto* const paint = ObjectAs<BrushObject>(brush);
    if (!rect || !paint)
        return Fail(ERROR_INVALID_PARAMETER, "FillRect: rectangle or brush is missing; pass live ones.");
    BitmapObject& bitmap = *live->bitmap;
    const COLORREF c = paint->color;
    const std::uint32_t pixel = (c & 0xFF) << 16 | (c & 0xFF00) | (c >> 16 & 0xFF);
    const LONG left = std::max<LONG>(rect->left, 0);
    const LONG right = std::min(rect->right, bitmap.width);
    const LONG bottom = std::min(rect->bottom, bitmap.height);
    for (LONG y = std::max<LONG>(rect->top, 0); y < bottom && left < right; ++y)
        std::fill_n(bitmap.pixels.begin() + static_cast<std::ptrdiff_t>(y) * bitmap.width + left,
                    right - left, pixel);
    return 1;
}

} // namespace KivoDrawingTools
