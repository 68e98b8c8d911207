#include "TextLine.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace KivoDrawingTools {

namespace {

constexpr int defaultEm = 12;
constexpr int largestEm = 2048;
// Pango counts in 1/1024 pixel in 32 bits: wider lines would overflow.
constexpr int widestPangoLine = 1000000;
// Shaping takes a microsecond for a letter, and a hundred where the script changes from one to the next.
constexpr int longestLine = 4096;

struct DescriptionFree {
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
using Description = std::unique_ptr<PangoFontDescription, DescriptionFree>;

struct GLibFree {
    void operator()(char* text) const { g_free(text); }
};
using GLibString = std::unique_ptr<char, GLibFree>;

struct MetricsUnref {
    void operator()(PangoFontMetrics* metrics) const { pango_font_metrics_unref(metrics); }
};
using Metrics = std::unique_ptr<PangoFontMetrics, MetricsUnref>;

Description Describe(const LOGFONTA& font, int em) {
    Description description(pango_font_description_new());
    std::string family(font.lfFaceName, strnlen(font.lfFaceName, LF_FACESIZE));
    if (!g_utf8_validate(family.data(), static_cast<gssize>(family.size()), nullptr)) family.clear();
    // The family is what stands in where the face is not installed.
    if ((font.lfPitchAndFamily & 0xF0) == FF_MODERN) family += family.empty() ? "monospace" : ",monospace";
    if (!family.empty()) pango_font_description_set_family(description.get(), family.c_str());
    const LONG weight = font.lfWeight == 0 ? PANGO_WEIGHT_NORMAL : std::clamp<LONG>(font.lfWeight, 100, 1000);
    pango_font_description_set_weight(description.get(), static_cast<PangoWeight>(weight));
    if (font.lfItalic) pango_font_description_set_style(description.get(), PANGO_STYLE_ITALIC);
    pango_font_description_set_absolute_size(description.get(), static_cast<double>(em) * PANGO_SCALE);
    return description;
}

GObjectPointer<PangoContext> MakeContext(Smoothing smoothing) {
    // The font map belongs to the thread and keeps the fonts loaded; a context is cheap.
    GObjectPointer<PangoContext> context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, smoothing == Smoothing::None ? CAIRO_ANTIALIAS_NONE
                                                                           : CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, smoothing == Smoothing::None ? CAIRO_HINT_STYLE_FULL
                                                                            : CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON); // extents are whole pixels
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    return context;
}

FontMeasures MeasureAt(const LOGFONTA& font, int em, Smoothing smoothing) {
    const auto context = MakeContext(smoothing);
    const Description description = Describe(font, em);
    const Metrics metrics(pango_context_get_metrics(context.get(), description.get(), nullptr));
    const int average = PANGO_PIXELS_CEIL(pango_font_metrics_get_approximate_char_width(metrics.get()));
    return {em, PANGO_PIXELS_CEIL(pango_font_metrics_get_ascent(metrics.get())),
            PANGO_PIXELS_CEIL(pango_font_metrics_get_descent(metrics.get())), average, std::max(average, em)};
}

int EmHeight(const LOGFONTA& font) {
    const auto height = static_cast<std::int64_t>(font.lfHeight);
    if (height == 0) return defaultEm;
    const int em = static_cast<int>(std::clamp<std::int64_t>(std::llabs(height), 1, largestEm));
    if (height < 0) return em;
    // A positive height is that of the line, of which the em is a part.
    const FontMeasures measures = MeasureAt(font, em, Smoothing::Grey);
    return std::max(1, em * em / std::max(1, measures.ascent + measures.descent));
}

/// The text as Pango may have it: valid UTF-8 of bounded length, without line ends.
std::string Clean(std::string_view text, int em) {
    const auto longest = static_cast<std::size_t>(std::min(longestLine, widestPangoLine / em));
    std::string kept;
    for (const char c : text) {
        if (kept.size() == longest) break;
        const auto byte = static_cast<unsigned char>(c);
        if (byte != 0) kept += byte < 0x20 || byte == 0x7F ? ' ' : c;
    }
    const GLibString valid(g_utf8_make_valid(kept.data(), static_cast<gssize>(kept.size())));
    std::string cleaned(valid.get());
    // The separators beyond ASCII that Pango would end the line at: U+0085, U+2028, U+2029.
    for (const char* const separator : {"\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
        for (auto at = cleaned.find(separator); at != std::string::npos; at = cleaned.find(separator, at))
            cleaned.replace(at, std::strlen(separator), " ");
    }
    return cleaned;
}

} // namespace

FontMeasures MeasureFont(const LOGFONTA& font, Smoothing smoothing) {
    return MeasureAt(font, EmHeight(font), smoothing);
}

TextLine::TextLine(const LOGFONTA& font, const FontMeasures& measures, std::string_view text,
                   Smoothing smoothing)
    : m_em(measures.em) {
    const std::string cleaned = Clean(text, measures.em);
    const auto context = MakeContext(smoothing);
    const Description description = Describe(font, measures.em);
    m_layout.reset(pango_layout_new(context.get()));
    pango_layout_set_font_description(m_layout.get(), description.get());
    pango_layout_set_text(m_layout.get(), cleaned.data(), static_cast<int>(cleaned.size()));

    PangoRectangle ink{};
    PangoRectangle logical{};
    pango_layout_line_get_pixel_extents(pango_layout_get_line_readonly(m_layout.get(), 0), &ink, &logical);
    m_hasInk = ink.width > 0 && ink.height > 0;
    m_advance = logical.width;
    m_baseline = std::max(measures.ascent, -logical.y);
    m_below = std::max(measures.descent, logical.y + logical.height);
    m_origin = 0;
    m_width = m_advance;
    if (!m_hasInk) return;
    m_baseline = std::max(m_baseline, -ink.y);
    m_below = std::max(m_below, ink.y + ink.height);
    m_origin = std::max(0, -ink.x);
    m_width = m_origin + std::max(m_advance, ink.x + ink.width);
}

bool TextLine::Shows(std::string_view text) const {
    return Clean(text, m_em) == pango_layout_get_text(m_layout.get());
}

void TextLine::Draw(cairo_t* context, int x, int y) const {
    cairo_move_to(context, x + m_origin, y + m_baseline);
    pango_cairo_show_layout_line(context, pango_layout_get_line_readonly(m_layout.get(), 0));
}

} // namespace KivoDrawingTools
