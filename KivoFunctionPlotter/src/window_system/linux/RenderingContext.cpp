#include "RenderingContext.h"

#include "HostGlx.h"
#include "LastError.h"
#include "LiveHandles.h"
#include "NativeWindow.h"

#include <utility>

namespace KivoDrawingTools {

namespace {

/// What wglMakeCurrent has bound to the thread. A thread that ends lets go of its context.
struct ThreadBinding {
    HGLRC context = nullptr;
    HDC dc = nullptr;

    ~ThreadBinding() {
        if (context && eglGetCurrentContext() == context->handle) UnbindEgl();
        Forget();
    }
    void Forget() {
        if (context) context->boundThread = nullptr;
        context = nullptr;
        dc = nullptr;
    }
    static bool UnbindEgl() {
        return eglGetCurrentContext() == EGL_NO_CONTEXT ||
               eglMakeCurrent(eglGetCurrentDisplay(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
};

ThreadBinding& Binding() {
    thread_local ThreadBinding binding;
    return binding;
}

/// Contexts are made for the client API that is chosen for the thread; the host's choice is put back.
class DesktopApiScope {
public:
    DesktopApiScope() : m_before(eglQueryAPI()) { eglBindAPI(EGL_OPENGL_API); }
    ~DesktopApiScope() { eglBindAPI(m_before); }
    DesktopApiScope(const DesktopApiScope&) = delete;
    DesktopApiScope& operator=(const DesktopApiScope&) = delete;

private:
    const EGLenum m_before;
};

bool BindEgl(const NativeWindow& window, const RenderingContext& context) {
    const EGLDisplay display = context.display->Handle();
    if (window.Display()->Handle() != display)
        return Fail(ERROR_INVALID_PIXEL_FORMAT,
                    "wglMakeCurrent: the context belongs to another display; make one for this window.");
    if (eglMakeCurrent(display, window.Surface(), window.Surface(), context.handle)) {
        // A paint operation must not wait for the screen's refresh.
        eglSwapInterval(display, 0);
        return true;
    }
    const EGLint error = eglGetError();
    if (error == EGL_BAD_ACCESS)
        return Fail(ERROR_BUSY, "EGL: the context is current in another thread; unbind it there first.");
    if (error == EGL_BAD_MATCH)
        return Fail(ERROR_INVALID_PIXEL_FORMAT,
                    "EGL: the context was made for another pixel format; make one for this window.");
    return Fail(error == EGL_BAD_ALLOC ? ERROR_NOT_ENOUGH_MEMORY : ERROR_INVALID_WINDOW_HANDLE,
                "EGL: cannot draw to the window (error " + Hex(static_cast<unsigned long>(error)) +
                    "); check that it still exists.");
}

bool Bind(HDC dc, HGLRC context) {
    NativeWindow* const window = WindowOfDc(dc, "wglMakeCurrent");
    if (!window) return false;
    if (!Live<RenderingContext>().Contains(context))
        return Fail(ERROR_INVALID_HANDLE,
                    "wglMakeCurrent: there is no such context; make one for this window.");
    const void* const bound = context->boundThread;
    if (bound && bound != &Binding())
        return Fail(ERROR_BUSY,
                    "wglMakeCurrent: the context is current in another thread; unbind it there first.");
    if (window->Format() == 0)
        return Fail(ERROR_INVALID_PIXEL_FORMAT,
                    "wglMakeCurrent: the window has no pixel format; set one first.");
    if (!window->Follow()) return false;
    ReleaseHostGlxContext();
    if (!BindEgl(*window, *context)) return false;
    Binding().Forget();
    Binding().context = context;
    Binding().dc = dc;
    context->boundThread = &Binding();
    return true;
}

} // namespace

RenderingContext::RenderingContext(std::shared_ptr<EglDisplay> owner) : display(std::move(owner)) {
    Live<RenderingContext>().Add(this);
}

RenderingContext::~RenderingContext() {
    Live<RenderingContext>().Remove(this);
    if (handle != EGL_NO_CONTEXT) eglDestroyContext(display->Handle(), handle);
}

bool UnbindThread() {
    Binding().Forget();
    ReleaseHostGlxContext();
    if (ThreadBinding::UnbindEgl()) return true;
    return Fail(ERROR_GEN_FAILURE, EglFailure("cannot unbind the current context") + "; unbind it before.");
}

HGLRC wglCreateContext(HDC dc) {
    const NativeWindow* const window = WindowOfDc(dc, "wglCreateContext");
    if (!window) return nullptr;
    if (window->Format() == 0) {
        Fail(ERROR_INVALID_PIXEL_FORMAT, "wglCreateContext: the window has no pixel format; set one first.");
        return nullptr;
    }
    const DesktopApiScope desktop;
    auto context = std::make_unique<RenderingContext>(window->Display());
    context->handle =
        eglCreateContext(window->Display()->Handle(), window->Config(), EGL_NO_CONTEXT, nullptr);
    if (context->handle != EGL_NO_CONTEXT) return context.release();
    Fail(ERROR_GEN_FAILURE,
         EglFailure("cannot make an OpenGL context") + "; install an OpenGL driver (libgl1-mesa-dri).");
    return nullptr;
}

BOOL wglMakeCurrent(HDC dc, HGLRC context) {
    if (!context) return UnbindThread();
    if (Bind(dc, context)) return 1;
    // As on Windows, nothing is current after a failure: what the caller draws next must not reach a host's
    // context. The unbinding must not hide the reason.
    const KeepFailure keep;
    UnbindThread();
    return 0;
}

BOOL wglDeleteContext(HGLRC context) {
    if (!Live<RenderingContext>().Contains(context))
        return Fail(ERROR_INVALID_HANDLE, "wglDeleteContext: there is no such context; pass a live handle.");
    const void* const bound = context->boundThread;
    if (bound && bound != &Binding())
        return Fail(ERROR_BUSY,
                    "wglDeleteContext: the context is current in another thread; unbind it there first.");
    if (wglGetCurrentContext() == context)
        UnbindThread();
    else if (bound)
        Binding().Forget(); // a host has bound another context since
    delete context;
    return 1;
}

PlotterBinding CurrentPlotterBinding() {
    const HGLRC context = Binding().context;
    if (!context || eglGetCurrentContext() != context->handle) return {};
    return {context, Binding().dc};
}

HGLRC wglGetCurrentContext() {
    return CurrentPlotterBinding().context;
}

HDC wglGetCurrentDC() {
    return CurrentPlotterBinding().dc;
}

BOOL SwapBuffers(HDC dc) {
    NativeWindow* const window = WindowOfDc(dc, "SwapBuffers");
    if (!window) return 0;
    if (window->Format() == 0)
        return FailFurther(ERROR_INVALID_PIXEL_FORMAT,
                           "SwapBuffers: the window has no pixel format; set one first.");
    SIZE client{};
    if (!window->MeasureClient(client)) return 0;
    if (wglGetCurrentDC() != dc)
        return FailFurther(ERROR_INVALID_HANDLE,
                           "SwapBuffers: no context is current on the window; make one current first.");
    return window->Present(client);
}

} // namespace KivoDrawingTools
