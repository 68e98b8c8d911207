// For hosts: the key state and the positions of mouse messages, made of what a toolkit reports. Where the
// system's own messages carry both, as on Windows, they are passed on as they are.
#pragma once

#include "KivoPlatform.h"

#include <algorithm>
#include <cmath>

namespace KivoDrawingTools {

/// The key-state bits of a mouse message.
/// @param left, middle, right  whether the button is down
/// @param shift, control       whether the key is down
inline unsigned int KeyState(bool left, bool middle, bool right, bool shift, bool control) {
    unsigned int state = 0;
    if (left) state |= MK_LBUTTON;
    if (middle) state |= MK_MBUTTON;
    if (right) state |= MK_RBUTTON;
    if (shift) state |= MK_SHIFT;
    if (control) state |= MK_CONTROL;
    return state;
}

/// A length in a toolkit's units as whole pixels, the nearest; at most a thousand million either way.
/// @param scale  pixels of the device in one of the toolkit's units
inline int ToPixels(double length, double scale) {
    constexpr double most = 1e9;
    const double pixels = length * scale;
    return std::isnan(pixels) ? 0 : static_cast<int>(std::lround(std::clamp(pixels, -most, most)));
}

/// A position in a toolkit's units as the pixel there.
inline POINT ToPixels(double x, double y, double scale) {
    return {ToPixels(x, scale), ToPixels(y, scale)};
}

} // namespace KivoDrawingTools
