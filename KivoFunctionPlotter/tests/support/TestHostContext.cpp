#include "TestHostContext.h"

#include <stdexcept>

#if defined(_WIN32)
#include <windows.h>
#else
#include <EGL/egl.h>
#include <EGL/eglext.h>
#endif

namespace KivoTest {

#if defined(_WIN32)

struct TestHostContext::Handles {
    Handles() {
        WNDCLASSA description = {};
        description.style = CS_OWNDC;
        description.lpfnWndProc = DefWindowProcA;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "KivoTestHostContext";
        RegisterClassA(&description); // fails where an earlier one has registered it
        window = CreateWindowExA(WS_EX_TOOLWINDOW, "KivoTestHostContext", "", WS_POPUP, 0, 0, 8, 8, nullptr,
                                 nullptr, description.hInstance, nullptr);
        dc = GetDC(window);
        PIXELFORMATDESCRIPTOR format = {};
        format.nSize = sizeof(format);
        format.nVersion = 1;
        format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
        format.cColorBits = 32;
        SetPixelFormat(dc, ChoosePixelFormat(dc, &format), &format);
        context = wglCreateContext(dc);
        if (!context) throw std::runtime_error("no context for the host");
    }
    ~Handles() {
        if (wglGetCurrentContext() == context) Unbind();
        wglDeleteContext(context);
        DestroyWindow(window);
    }
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;

    HWND window = nullptr;
    HDC dc = nullptr;
    HGLRC context = nullptr;
};

bool TestHostContext::MakeCurrent() {
    return wglMakeCurrent(m_handles->dc, m_handles->context) != 0;
}

bool TestHostContext::IsCurrent() const {
    return wglGetCurrentContext() == m_handles->context && wglGetCurrentDC() == m_handles->dc;
}

void TestHostContext::Unbind() {
    wglMakeCurrent(nullptr, nullptr);
}

bool TestHostContext::IsNoneCurrent() {
    return !wglGetCurrentContext();
}

#else

struct TestHostContext::Handles {
    Handles() {
        display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        eglInitialize(display, nullptr, nullptr);
        const EGLint wanted[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT,
                                 EGL_NONE};
        EGLConfig config = nullptr;
        EGLint count = 0;
        eglChooseConfig(display, wanted, &config, 1, &count);
        const EGLint size[] = {EGL_WIDTH, 8, EGL_HEIGHT, 8, EGL_NONE};
        surface = eglCreatePbufferSurface(display, config, size);
        const EGLenum before = eglQueryAPI();
        eglBindAPI(EGL_OPENGL_API);
        context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
        eglBindAPI(before);
        if (context == EGL_NO_CONTEXT) throw std::runtime_error("no context for the host");
    }
    ~Handles() {
        if (eglGetCurrentContext() == context) Unbind();
        eglDestroyContext(display, context);
        eglDestroySurface(display, surface);
    }
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;

    EGLDisplay display = EGL_NO_DISPLAY;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;
};

bool TestHostContext::MakeCurrent() {
    const Handles& own = *m_handles;
    return eglMakeCurrent(own.display, own.surface, own.surface, own.context) != 0;
}

bool TestHostContext::IsCurrent() const {
    return eglGetCurrentContext() == m_handles->context &&
           eglGetCurrentSurface(EGL_DRAW) == m_handles->surface &&
           eglGetCurrentSurface(EGL_READ) == m_handles->surface &&
           eglGetCurrentDisplay() == m_handles->display;
}

void TestHostContext::Unbind() {
    if (!IsNoneCurrent())
        eglMakeCurrent(eglGetCurrentDisplay(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

bool TestHostContext::IsNoneCurrent() {
    return eglGetCurrentContext() == EGL_NO_CONTEXT;
}

#endif

TestHostContext::TestHostContext() : m_handles(std::make_unique<Handles>()) {}

TestHostContext::~TestHostContext() = default;

} // namespace KivoTest
