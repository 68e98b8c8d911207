// How the plotter describes the fonts it asks the window system for.
#pragma once

#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace KivoDrawingTools {

/// So many times the pixels, of which there are some where there were.
inline int ScaledPixels(int pixels, float scale) {
    constexpr double most = std::numeric_limits<int>::max();
    const double scaled = std::round(pixels * static_cast<double>(scale));
    if (scaled == 0.0 && pixels != 0) return pixels < 0 ? -1 : 1;
    return static_cast<int>(std::clamp(scaled, -most, most)); // so that it has an opposite
}

/// A smoothed font of fixed pitch where there is one.
/// @param dotsPerInch  which turn the size into pixels
/// @param points       its size, in 1/72 inch; below 0 that of a line
/// @param weight       FW_MEDIUM or the like
/// @param face         its name, at most 31 characters
/// @param pixelScale   by which these pixels are multiplied
inline LOGFONTA DescribeFont(int dotsPerInch, int points, int weight, const char* face,
                             float pixelScale = 1.0f) {
    LOGFONTA description = {};
    const int pixels = MulDiv(points, dotsPerInch, 72);
    description.lfHeight = -ScaledPixels(pixels, pixelScale);
    description.lfWeight = weight;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfOutPrecision = OUT_DEFAULT_PRECIS;
    description.lfClipPrecision = CLIP_DEFAULT_PRECIS;
    description.lfQuality = ANTIALIASED_QUALITY;
    description.lfPitchAndFamily = FF_MODERN | DEFAULT_PITCH;
    std::strncpy(description.lfFaceName, face, sizeof description.lfFaceName - 1);
    return description;
}

} // namespace KivoDrawingTools
