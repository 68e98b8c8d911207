// One line of text, shaped and measured by Pango, drawn by Cairo.
#pragma once

#include "Win32Names.h"

#include <pango/pangocairo.h>

#include <memory>
#include <string>
#include <string_view>

namespace KivoDrawingTools {

struct GObjectUnref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename T>
using GObjectPointer = std::unique_ptr<T, GObjectUnref>;

struct CairoDestroy {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDestroy>;
using CairoContext = std::unique_ptr<cairo_t, CairoDestroy>;

/// How the edges of glyphs look.
enum class Smoothing { None, Grey };

/// The measures of a font in pixels.
struct FontMeasures {
    int em; ///< height of the em square, 1 to 2048
    int ascent;
    int descent;
    int averageWidth;
    int widestWidth;
};

/// Takes about as long as several lines of text.
FontMeasures MeasureFont(const LOGFONTA& font, Smoothing smoothing);

/// A line of text. Its box holds the font's line height and all the ink, of fallback fonts too.
class TextLine {
public:
    /// @param measures  the font's with that smoothing
    /// @param text      UTF-8; what is invalid shows as a replacement character, control characters as a
    ///                  space, a zero byte not at all. A line beyond about a million pixels is cut.
    TextLine(const LOGFONTA& font, const FontMeasures& measures, std::string_view text, Smoothing smoothing);

    /// Whether a line of that text would be this one, in the same font and with the same smoothing.
    bool Shows(std::string_view text) const;

    int Width() const { return m_width; }
    int Height() const { return m_baseline + m_below; }
    /// Rows above the baseline.
    int Baseline() const { return m_baseline; }
    /// Columns left of the point where the first glyph starts.
    int Origin() const { return m_origin; }
    /// From the start of the first glyph to where a further one would start.
    int Advance() const { return m_advance; }
    /// Whether any pixel is drawn.
    bool HasInk() const { return m_hasInk; }
    /// Draws with the box's top left corner at (x, y), in the context's current colour.
    void Draw(cairo_t* context, int x, int y) const;

private:
    GObjectPointer<PangoLayout> m_layout;
    int m_em;
    int m_width;
    int m_baseline;
    int m_below;
    int m_origin;
    int m_advance;
    bool m_hasInk;
};

} // namespace KivoDrawingTools
