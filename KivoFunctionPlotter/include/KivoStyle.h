// What a plot is drawn with. It belongs to the plotter: it may be set before OnCreate and after it, with data
// or without, and stays until it is set again, through OnDestroy and OnCreate too.
#pragma once

#include "KivoFunctionPlotter.h"

#include <string>

namespace KivoDrawingTools {

/// How a plot looks, whatever it shows. As it is made, it changes nothing.
struct SKivoStyle {
    /// Every size that is given in pixels is multiplied by this: heights of texts, the width of which they
    /// have two lines, ticks, distances and gaps between texts, lines, points. Above 0, up to 8. For a screen
    /// of twice the density, or a picture of twice the size that is averaged down, it is 2. Texts are drawn
    /// by fonts of that height, rounded to whole pixels. What the plotter's members and fields are given in
    /// pixels keeps its number: a point radius of 4 stays 4 and is drawn with 8.
    float pixelScale = 1.0f;
    /// 0x00BBGGRR: texts, read-outs, the outline of the box and ticks. Grid lines and the lines that lead to
    /// the traced point are shades between it and the background; with black, the first one, they have the
    /// greys that they have on white. The frame lines on the surface have a colour of their own, as curves,
    /// groups and the axes of flat plots have.
    unsigned long inkColor = 0;
    /// Family of the letters of all texts, as the system's list of fonts has it, at most 31 bytes without a
    /// zero: UTF-8, on Windows the process's code page. Where it is not installed, a font of fixed pitch
    /// stands in. Empty, as at first: the plot's own.
    std::string textFace;
    /// Whether titles, labels and read-outs are bold. RenderText and its like have one weight.
    bool boldText = true;
};

/// @return what the plot is drawn with
KIVO_API SKivoStyle GetStyle(const CKivoFunctionPlotter& plotter);

/// Draws with another style from the next frame on. After OnCreate the fonts are made anew, and with them the
/// images of titles, labels, legend and names of measure groups; view, data, curves and groups stay. Where an
/// OpenGL context of the host's own is current, it is so afterwards as after the plotter's members.
/// @return 0; -3 for a scale that is not finite, not above 0, or beyond 8, and for a face that is no name; -1
///         when the plotter's context cannot be made current, or a font or a text cannot be made. But for 0
///         everything is as before, as it is when std::bad_alloc is thrown
KIVO_API int SetStyle(CKivoFunctionPlotter& plotter, const SKivoStyle& style);

/// Takes the window's dots per inch over as they are now (GetWindowDpi of KivoWindow.h): after
/// SetOffscreenDpi, and where a window has come to another screen or the display's setting is another one.
/// Fonts and all text images are made anew for them, so that the plot shows its texts as if it had been
/// created in this window; view, data, titles, measure groups, curves and the pixel scale stay. The next
/// frame shows it.
/// @return 0, also on a plotter without a window; -1 when a font or an image cannot be made, or there is no
///         usable context: nothing is changed then
KIVO_API int OnDensityChanged(CKivoFunctionPlotter& plotter);

} // namespace KivoDrawingTools
