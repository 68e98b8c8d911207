// Strings as text images.
#pragma once

#include "KivoTypes.h"
#include "window_system/WindowSystem.h"

#include <string>
#include <vector>

namespace KivoDrawingTools {

/// The font that text images are drawn with, selected into a memory device context. One for each plotter,
/// shared by pointer with the grid box, the rulers and the measure groups.
struct STextRenderer {
    HDC m_windowDC = nullptr; ///< the plotter's, not owned
    HDC m_memoryDC = nullptr;
    HFONT m_savedFont = nullptr; ///< the memory device context's first font, put back at release
    HFONT m_font = nullptr;
    HFONT m_plainFont =
        nullptr; ///< the font at a scale of 1, by which images are measured; null at that scale
    LOGFONTA m_fontDescription = {};
    TEXTMETRICA m_textMetrics = {};
    int m_fontSize = 0;           ///< what InitTextRenderer was given
    float m_pixelScale = 1.0f;    ///< by which all sizes in pixels are multiplied; kept by InitTextRenderer
    unsigned long m_inkColor = 0; ///< 0x00BBGGRR, likewise
    std::string m_face;           ///< family of the font, likewise; empty: the renderer's own
    bool m_isBold = true;         ///< likewise
    /// Pixel extents of the last string's words, after a leading 0; from the 1001st word on all in one.
    std::vector<int> m_wordExtents;
    std::vector<int> m_reserved;
};

/// Makes the memory device context and the font, fontSize points high, times the renderer's scale.
void InitTextRenderer(STextRenderer* renderer, HDC windowDC, int fontSize);
/// Gives both back; harmless when there are none.
void ReleaseTextRenderer(STextRenderer* renderer);

/// Draws a text as an image: the renderer's opaque ink on a transparent ground, one line, or two halves of
/// 512 pixels, times the scale, where it is wider than that. Its size is that at a scale of 1, times the
/// scale, or the text's own where that is larger: by the measures of fonts of other heights alone, which are
/// whole pixels, texts would move against each other. An image used before keeps its texture name. The OpenGL
/// context must be current.
/// @param text  as the platform's text operations take it: UTF-8, on Windows the process's code page. Drawn
/// as it
///              stands, ampersands included; two lines are cut at a whole character of that encoding
/// @return 0; -1 when the renderer has not been initialised, then the image is untouched, or when the system
///         cannot draw the picture, for lack of memory or since no texture is so large: then the image has no
///         pixels
int CreateTextImage(STextRenderer* renderer, const char* text, SKivoTexImage* image);

/// The size of the image that CreateTextImage would make of a text, without making it; 0 by 0 where the
/// renderer has not been initialised.
SIZE TextImageExtent(const STextRenderer& renderer, const char* text);

/// A number as labels show it: fixed notation, in the classic locale.
/// Infinities are "inf" and "-inf", and what is no number is "NaN", on every platform.
/// @param precision  digits after the decimal point, of which at most 1000 are written: the others are zeros
std::string FormatNumber(float value, unsigned int precision);

/// The same for a number in double precision; from 1e16 on, where it has no fractions, with a power of ten
/// and all digits that it has.
std::string FormatAbsolute(double value, unsigned int precision);

/// CreateTextImage for a label; an empty one has no image.
int CreateLabelImage(STextRenderer* renderer, const std::string& text, SKivoTexImage* image);

/// Frees an image's texture and pixels and sets its sizes to 0; the OpenGL context must be current.
void ReleaseTextImage(SKivoTexImage* image);

} // namespace KivoDrawingTools
