// OpenGL contexts and their binding to threads.
#pragma once

#include "EglDisplay.h"
#include "Win32Names.h"

#include <atomic>
#include <memory>

namespace KivoDrawingTools {

/// A context; it keeps its display, so that it may outlive the window that it was made for.
struct RenderingContext {
    /// Without a handle yet.
    explicit RenderingContext(std::shared_ptr<EglDisplay> owner);
    ~RenderingContext();
    RenderingContext(const RenderingContext&) = delete;
    RenderingContext& operator=(const RenderingContext&) = delete;

    const std::shared_ptr<EglDisplay> display;
    EGLContext handle = EGL_NO_CONTEXT;            // destroyed with the object
    std::atomic<const void*> boundThread{nullptr}; // identifies the thread that has it current
};

/// What wglMakeCurrent has made current on the calling thread; nulls where a host has bound another context
/// since.
struct PlotterBinding {
    HGLRC context = nullptr;
    HDC dc = nullptr;
};
PlotterBinding CurrentPlotterBinding();

/// Unbinds whatever context is current on the calling thread: one of ours, or a host's of GLX or EGL.
/// @return false, with the failure recorded, when it stays bound
bool UnbindThread();

} // namespace KivoDrawingTools
