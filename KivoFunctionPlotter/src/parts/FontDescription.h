// How the plotter describes the fonts it asks the window system for.
#pragma once

#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace KivoDrawingTools {

/// A smoothed font of fixed pitch where there is one.
/// @param dc      whose resolution turns the size into pixels
/// @param points  its size, in 1/72 inch; below 0 that of a line
/// @param weight  FW_MEDIUM or the like
/// @param face    its name, at most 31 characters
inline LOGFONTA DescribeFont(HDC dc, int points, int weight, const char* face) {
    LOGFONTA description = {};
    const int pixels = MulDiv(points, GetDeviceCaps(dc, LOGPIXELSY), 72);
    description.lfHeight = -std::max(pixels, -std::numeric_limits<int>::max()); // the least has no opposite
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
