#include "NativeWindow.h"

#include "KivoWindow.h"
#include "LastError.h"
#include "LiveHandles.h"
#include "RenderingContext.h"

#include <string>
#include <utility>

namespace KivoDrawingTools {

NativeWindow::NativeWindow(std::shared_ptr<EglDisplay> display) : m_display(std::move(display)), m_dc(this) {
    Live<NativeWindow>().Add(this);
}

NativeWindow::~NativeWindow() {
    Live<NativeWindow>().Remove(this);
    ReplaceSurface(EGL_NO_SURFACE);
}

const std::vector<EGLConfig>& NativeWindow::Formats() {
    if (m_formats.empty()) m_formats = FittingConfigs();
    return m_formats;
}

bool NativeWindow::SetFormat(int format) {
    if (format < 1 || format > static_cast<int>(Formats().size()))
        return Fail(ERROR_INVALID_PIXEL_FORMAT,
                    "SetPixelFormat: there is no such format; ask ChoosePixelFormat.");
    if (m_format == format) return true;
    if (m_format != 0)
        return Fail(ERROR_INVALID_PIXEL_FORMAT,
                    "SetPixelFormat: the window has another format already; keep it.");
    const EGLConfig config = m_formats[static_cast<std::size_t>(format - 1)];
    const EGLSurface surface = MakeSurface(config);
    if (surface == EGL_NO_SURFACE) return false;
    ReplaceSurface(surface);
    m_format = format;
    m_config = config;
    return true;
}

void NativeWindow::ReplaceSurface(EGLSurface surface) {
    if (m_surface != EGL_NO_SURFACE) eglDestroySurface(m_display->Handle(), m_surface);
    m_surface = surface;
}

bool NativeWindow::SwapSurface() {
    if (eglSwapBuffers(m_display->Handle(), m_surface)) return true;
    return Fail(ERROR_GEN_FAILURE,
                EglFailure("cannot present the picture") + "; make a context current on this window first.");
}

NativeWindow* ValidWindow(HWND window, const char* operation) {
    if (Live<NativeWindow>().Contains(window)) return window;
    const std::string words =
        std::string(operation) + ": there is no such window; pass a handle that has not been released.";
    window ? Fail(ERROR_INVALID_WINDOW_HANDLE, words) : FailFurther(ERROR_INVALID_WINDOW_HANDLE, words);
    return nullptr;
}

HDC GetDC(HWND window) {
    NativeWindow* const live = ValidWindow(window, "GetDC");
    return live ? live->Dc() : nullptr;
}

BOOL GetClientRect(HWND window, RECT* rect) {
    NativeWindow* const live = ValidWindow(window, "GetClientRect");
    SIZE size{};
    if (!live) return 0;
    if (!rect) return Fail(ERROR_INVALID_PARAMETER, "GetClientRect: there is no rectangle; pass one.");
    if (!live->MeasureClient(size)) return 0;
    *rect = {0, 0, size.cx, size.cy};
    return 1;
}

BOOL GetWindowRect(HWND window, RECT* rect) {
    NativeWindow* const live = ValidWindow(window, "GetWindowRect");
    SIZE size{};
    POINT origin{};
    if (!live) return 0;
    if (!rect) return Fail(ERROR_INVALID_PARAMETER, "GetWindowRect: there is no rectangle; pass one.");
    if (!live->MeasureClient(size) || !live->LocateOnScreen(origin)) return 0;
    *rect = {origin.x, origin.y, origin.x + size.cx, origin.y + size.cy};
    return 1;
}

int GetWindowDpi(HWND window) {
    NativeWindow* const live = ValidWindow(window, "GetWindowDpi");
    return live ? live->DotsPerInch() : 0;
}

int SetWindowSmoothing(HWND window, int factor) {
    NativeWindow* const live = ValidWindow(window, "SetWindowSmoothing");
    if (!live) return -1;
    if (factor < 1 || factor > 4) {
        Fail(ERROR_INVALID_PARAMETER, "SetWindowSmoothing: the factor is not 1 to 4; pass one within.");
        return -1;
    }
    live->SetSmoothing(factor);
    return 0;
}

int GetWindowSmoothing(HWND window) {
    return Live<NativeWindow>().Contains(window) ? window->Smoothing() : 1;
}

int ReleaseWindow(HWND window) {
    if (!window) return 0;
    if (!ValidWindow(window, "ReleaseWindow")) return -1;
    if (wglGetCurrentDC() == window->Dc()) UnbindThread();
    delete window;
    return 0;
}

} // namespace KivoDrawingTools
