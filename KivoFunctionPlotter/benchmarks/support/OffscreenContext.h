// An OpenGL context of one's own, without a screen and without the library.
#pragma once

#include <EGL/egl.h>

namespace KivoBenchmark {

/// The window size of all benchmarks, in pixels.
constexpr int windowWidth = 800;
constexpr int windowHeight = 600;

/// A compatibility context on an off-screen surface, current on this thread as long as the object lives.
class OffscreenContext {
public:
    /// Ends the process with a message where there is no such context.
    OffscreenContext();
    ~OffscreenContext();
    OffscreenContext(const OffscreenContext&) = delete;
    OffscreenContext& operator=(const OffscreenContext&) = delete;

private:
    EGLDisplay m_display;
    EGLSurface m_surface = EGL_NO_SURFACE;
    EGLContext m_context = EGL_NO_CONTEXT;
};

} // namespace KivoBenchmark
