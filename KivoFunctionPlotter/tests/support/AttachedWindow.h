// A host's X11 window as the library has it, with a context to draw to it.
#pragma once

#include "window_system/WindowSystem.h"

#include <gtest/gtest.h>

namespace KivoDrawingTools {

/// A handle with a context, released with the object.
class AttachedWindow {
public:
    explicit AttachedWindow(unsigned long window, const char* display = nullptr)
        : m_handle(AttachX11Window(window, display)) {
        if (!m_handle) return;
        PIXELFORMATDESCRIPTOR wanted{};
        wanted.nSize = sizeof wanted;
        wanted.nVersion = 1;
        wanted.cColorBits = 32;
        wanted.cDepthBits = 32;
        wanted.cStencilBits = 8;
        if (SetPixelFormat(Dc(), ChoosePixelFormat(Dc(), &wanted), &wanted))
            m_context = wglCreateContext(Dc());
    }
    ~AttachedWindow() {
        if (m_context) {
            EXPECT_TRUE(wglDeleteContext(m_context));
        }
        EXPECT_EQ(0, ReleaseWindow(m_handle));
    }
    AttachedWindow(const AttachedWindow&) = delete;
    AttachedWindow& operator=(const AttachedWindow&) = delete;

    HWND Handle() const { return m_handle; }
    HDC Dc() const { return GetDC(m_handle); }
    HGLRC Context() const { return m_context; }
    bool MakeCurrent() const { return wglMakeCurrent(Dc(), m_context) != 0; }

private:
    HWND m_handle = nullptr;
    HGLRC m_context = nullptr;
};

} // namespace KivoDrawingTools
