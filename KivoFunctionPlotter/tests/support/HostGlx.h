// GLX as a host has it: Xlib and GLX are reached at run time, because the tests need not have them.
#pragma once

#include "X11TestWindow.h"

#include <dlfcn.h>

#include <memory>

namespace KivoTest {

/// A context of GLX in a window of its own. Both are there where Ok() says so.
class HostGlx {
public:
    HostGlx() {
        if (!m_x11 || !m_gl) return;
        m_display = Find<void* (*)(const char*)>(m_x11, "XOpenDisplay")(nullptr);
        int attributes[] = {4 /* GLX_RGBA */, 5 /* GLX_DOUBLEBUFFER */, 0};
        void* const visual =
            Find<void* (*)(void*, int, int*)>(m_gl, "glXChooseVisual")(m_display, 0, attributes);
        if (!visual) return;
        struct VisualInfo { // the head of Xlib's XVisualInfo
            void* visual;
            unsigned long id;
        };
        X11TestWindow::Options options;
        options.visual = static_cast<xcb_visualid_t>(static_cast<const VisualInfo*>(visual)->id);
        m_window = std::make_unique<X11TestWindow>(options);
        m_other = std::make_unique<X11TestWindow>(options);
        m_context = Find<void* (*)(void*, void*, void*, int)>(m_gl, "glXCreateContext")(m_display, visual,
                                                                                        nullptr, 1);
        Find<int (*)(void*)>(m_x11, "XFree")(visual);
    }
    ~HostGlx() {
        if (m_context) DestroyContext();
        if (m_display) Find<int (*)(void*)>(m_x11, "XCloseDisplay")(m_display);
    }
    HostGlx(const HostGlx&) = delete;
    HostGlx& operator=(const HostGlx&) = delete;

    bool Ok() const { return m_context && m_window->Ok(); }
    /// Draws to its window and reads from another one.
    bool MakeCurrent() const {
        return Find<int (*)(void*, unsigned long, unsigned long, void*)>(m_gl, "glXMakeContextCurrent")(
                   m_display, m_window->Id(), m_other->Id(), m_context) != 0;
    }
    /// Whether it is current with both of its windows.
    bool IsCurrent() const {
        return Current() == m_context && Find<void* (*)()>(m_gl, "glXGetCurrentDisplay")() == m_display &&
               Find<unsigned long (*)()>(m_gl, "glXGetCurrentDrawable")() == m_window->Id() &&
               Find<unsigned long (*)()>(m_gl, "glXGetCurrentReadDrawable")() == m_other->Id();
    }
    /// The context of GLX that is current, or null.
    void* Current() const { return Find<void* (*)()>(m_gl, "glXGetCurrentContext")(); }
    void DestroyContext() {
        if (Current() == m_context)
            Find<int (*)(void*, unsigned long, void*)>(m_gl, "glXMakeCurrent")(m_display, 0, nullptr);
        Find<void (*)(void*, void*)>(m_gl, "glXDestroyContext")(m_display, m_context);
        m_context = nullptr;
    }
    void DestroyWindow() { m_window->Destroy(); }
    /// What Xlib calls at an error.
    void* ErrorHandler() const {
        const auto set = Find<void* (*)(void*)>(m_x11, "XSetErrorHandler");
        void* const handler = set(nullptr);
        set(handler);
        return handler;
    }

private:
    template <typename Function>
    static Function Find(void* library, const char* name) {
        return reinterpret_cast<Function>(dlsym(library, name));
    }

    void* const m_x11 = dlopen("libX11.so.6", RTLD_LAZY);
    void* const m_gl = dlopen("libGL.so.1", RTLD_LAZY);
    void* m_display = nullptr;
    void* m_context = nullptr;
    std::unique_ptr<X11TestWindow> m_window;
    std::unique_ptr<X11TestWindow> m_other;
};

} // namespace KivoTest
