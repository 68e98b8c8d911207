// For hosts: the key state and the positions of mouse messages and the steps of the wheel, made of what a
// toolkit reports, and a scope for hosts that draw with OpenGL themselves. Where the system's own messages
// carry state and position, as on Windows, they are passed on as they are.
#pragma once

#include "KivoPlatform.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace KivoDrawingTools {

/// The key-state bits of a mouse message.
/// @param left     whether the left button is down
/// @param middle   whether the middle button is down
/// @param right    whether the right button is down
/// @param shift    whether a Shift key is down
/// @param control  whether a Ctrl key is down
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

/// Keeps the OpenGL context that is current in a thread: at the end of the scope it is current again, with
/// its surfaces for drawing and reading and its display, whatever was made current within the scope. For
/// hosts, and toolkits, that draw with OpenGL themselves: calls for a plot in a window on the screen leave
/// none current.
///
/// Contexts of EGL, with any client API, and of GLX, which need not be installed; on Windows those of WGL.
/// The client API that is bound to the thread for EGL comes back, too. Where none was current, none is
/// afterwards. Scopes may be nested. A context, surface or window that has been destroyed meanwhile, and a
/// context that is current in another thread by then, does not come back: none is current then, and nothing
/// is reported. The object is destroyed in the thread that made it; a connection to an X server that has a
/// GLX context current is closed after the scope.
///
///     {
///         const CKeepContext keep;
///         plotter.OnDraw();
///     }
class KIVO_API CKeepContext {
public:
    CKeepContext();
    ~CKeepContext();
    CKeepContext(const CKeepContext&) = delete;
    CKeepContext& operator=(const CKeepContext&) = delete;

private:
    friend class HostContextScope;

    /// What made the context current.
    enum class Owner : std::uint32_t { none, plotter, egl, glx, wgl, forgotten };

    void Forget() { m_owner = Owner::forgotten; }

    Owner m_owner = Owner::none;
    std::uint32_t m_clientApi = 0; // bound for EGL
    void* m_display = nullptr;
    void* m_context = nullptr;
    std::uintptr_t m_drawSurface = 0;
    std::uintptr_t m_readSurface = 0;
};

} // namespace KivoDrawingTools
