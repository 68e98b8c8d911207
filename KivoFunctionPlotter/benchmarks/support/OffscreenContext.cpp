#include "OffscreenContext.h"

#include <EGL/eglext.h>

#include <cstdio>
#include <cstdlib>

namespace KivoBenchmark {

OffscreenContext::OffscreenContext()
    : m_display(eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr)) {
    constexpr EGLint format[] = {EGL_SURFACE_TYPE,
                                 EGL_PBUFFER_BIT,
                                 EGL_RENDERABLE_TYPE,
                                 EGL_OPENGL_BIT,
                                 EGL_RED_SIZE,
                                 8,
                                 EGL_GREEN_SIZE,
                                 8,
                                 EGL_BLUE_SIZE,
                                 8,
                                 EGL_ALPHA_SIZE,
                                 8,
                                 EGL_DEPTH_SIZE,
                                 24,
                                 EGL_STENCIL_SIZE,
                                 8,
                                 EGL_NONE};
    constexpr EGLint size[] = {EGL_WIDTH, windowWidth, EGL_HEIGHT, windowHeight, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (eglInitialize(m_display, nullptr, nullptr) && eglBindAPI(EGL_OPENGL_API) &&
        eglChooseConfig(m_display, format, &config, 1, &count) && count == 1) {
        m_surface = eglCreatePbufferSurface(m_display, config, size);
        m_context = eglCreateContext(m_display, config, EGL_NO_CONTEXT, nullptr);
    }
    if (!eglMakeCurrent(m_display, m_surface, m_surface, m_context)) {
        std::fprintf(stderr, "There is no OpenGL without a screen here (EGL error 0x%x)\n", eglGetError());
        std::exit(1);
    }
}

OffscreenContext::~OffscreenContext() {
    eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(m_display, m_context);
    eglDestroySurface(m_display, m_surface);
}

} // namespace KivoBenchmark
