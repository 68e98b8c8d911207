// For hosts: the key state and the positions of mouse messages and the steps of the wheel, made of what a
// toolkit reports. Where the system's own messages carry state and position, as on Windows, they are passed
// on as they are.
#pragma once

#include "KivoPlatform.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

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

/// The whole steps that a wheel has been turned by now. OnMouseWheel zooms one step a message, so that a host
/// sends as many messages as this says, with a delta of 120 for a positive number and of -120 for a negative
/// one. Nothing overflows, whatever is handed in.
/// @param remainder  what has been turned beyond whole steps, with its sign; 0 at first, and kept by the host
///                   from one event to the next
/// @param delta      what has been turned since, away from the user, 120 a step: touchpads and wheels of a
///                   high resolution report parts of a step, fast turns several steps
/// @return the steps, negative towards the user
inline int WheelSteps(int& remainder, int delta) {
    constexpr int step = 120;
    const std::int64_t turned = std::int64_t{remainder} + delta;
    remainder = static_cast<int>(turned % step);
    return static_cast<int>(turned / step);
}

} // namespace KivoDrawingTools
