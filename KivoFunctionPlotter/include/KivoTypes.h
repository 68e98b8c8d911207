// The plain records and numbers that the plotter's class, its parts and derived classes share.
#pragma once

#include <cstdint>
#include <string>

namespace KivoDrawingTools {

/// A text as an image: a block of pixels and the OpenGL texture made of it.
struct SKivoTexImage {
    unsigned int texture = 0;        ///< OpenGL texture name, 0 when there is none yet
    int width = 0;                   ///< in pixels
    int height = 0;                  ///< in pixels
    float sMax = 0.0f;               ///< width / the power of two that holds it: end of the used part in s
    float tMax = 0.0f;               ///< height / the power of two that holds it: end of the used part in t
    unsigned char* pixels = nullptr; ///< width * height * 4 bytes RGBA, bottom row first; from new[], owned
    std::uint64_t drawing = 0;       ///< another number each time a text is drawn into an image, 0 before
};

/// The line segments of one contour level.
struct SKivoIsoContour {
    float* points;            ///< three floats a point, two points a segment; from new[]
    std::uint64_t pointCount; ///< always even
    float level;              ///< value of the contoured coordinate
};

/// An RGBA colour, each channel from 0 to 1.
struct SKivoColor {
    float red;   ///< 0 to 1
    float green; ///< 0 to 1
    float blue;  ///< 0 to 1
    float alpha; ///< 0 transparent, 1 opaque
};

/// Which values a colour legend shows beside its bar, and with how many digits.
enum class KivoLegendNumbers {
    asSet,  ///< eleven, with the digits of SetGradientColorRuleFloatingPointPrecision
    fitted, ///< eleven, with the digits that tell them apart: right to a twentieth of the way from one to the
            ///< next, as 1.2e30 from ten million on and below a ten-thousandth, and never -0
    round ///< four to eleven round ones, such as 300, 400 and 500, where they stand, with the digits of these
};

/// How the colour legend of an axis looks. As it is made, it is the plotter's own.
struct SKivoLegend {
    bool isShown = true; ///< whether bar, numbers and title are drawn; the strip stays free for them else
    /// What the colours mean, or their unit, above the bar, which gets shorter for it. UTF-8, on Windows the
    /// process's code page; empty, as at first: none. Wider than the strip it is drawn smaller.
    std::string title;
    KivoLegendNumbers numbers = KivoLegendNumbers::asSet; ///< the values beside the bar
};

/// What CKivoFunctionPlotter::Renderscene() returns: whether the frame has been shown, or why not. The
/// numbers are the platform's codes; Windows has more of them, and its own reasons for these. Elsewhere a
/// plotter whose OnCreate has failed says again why that was.
enum KivoFrameResult : int {
    frameShown = 0,         ///< the frame has been presented
    frameUnexplained = -1,  ///< it has not, and the platform does not say why
    frameWithoutPlot = 6,   ///< OnCreate has not been called, or the window's handle has been released
    frameOutOfMemory = 8,   ///< there is no memory for a picture of the window's size
    frameRefused = 31,      ///< the driver refused
    frameNotSupported = 50, ///< OpenGL cannot draw to this window
    frameInvalidValue = 87, ///< OnCreate got no window, because a value or a display was refused before
    frameElsewhere = 170,   ///< the plot's context is current in another thread
    frameWindowGone = 1400, ///< the window has been destroyed, or its display has ended
    frameOtherFormat = 2000 ///< the window's pixel format is not that of the plot
};

/// How the 3-D plot is fitted: this share of the grid box's diagonal is half of what the view volume shows
/// along its shorter side, up to 1 %.
constexpr double viewShareOfBox = 0.6;

/// So many of these halves the view volume reaches towards the viewer, and away, as long as
/// m_viewVolumeFactor says nothing else.
constexpr float viewDepthFactor = 15.0f;

/// Scales the bounds of a view volume about its middle; a scale below 1 enlarges the picture.
inline void ScaleViewBounds(double scale, double& left, double& right, double& bottom, double& top) {
    left *= scale;
    right *= scale;
    bottom *= scale;
    top *= scale;
}

} // namespace KivoDrawingTools
