// Windows without a screen.

#include "KivoHost.h"
#include "KivoWindow.h"
#include "LastError.h"
#include "NativeWindow.h"
#include "PixelFormats.h"
#include "window_system/CompanionWindow.h"

#include <GL/gl.h>

#include <algorithm>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr int largestWindowSide = 16384;
constexpr int largestDotsPerInch = 1200;
// Above this the memory for a surface is tried out when the window is made or resized. Drivers allocate when
// they draw first, and then have no way to report that there is not enough.
constexpr LONG pixelsTakenForGranted = 4096 * 4096;

class OffscreenWindow final : public NativeWindow {
public:
    OffscreenWindow(std::shared_ptr<EglDisplay> display, const SIZE& size, int dotsPerInch)
        : NativeWindow(std::move(display)), m_size(size), m_dotsPerInch(dotsPerInch) {}

    bool MeasureClient(SIZE& size) override {
        size = m_size;
        return true;
    }
    bool LocateOnScreen(POINT& origin) override {
        origin = {0, 0};
        return true;
    }
    int DotsPerInch() override { return m_dotsPerInch; }
    bool Follow() override { return true; }
    bool Present(const SIZE&) override {
        glFinish();
        return true;
    }
    bool IsDoubleBuffered() const override { return false; }
    bool IsOnScreen() const override { return false; }

    /// Whether the driver has the memory for a window of this size.
    bool HasMemoryFor(const SIZE& size);
    bool Resize(const SIZE& size);
    void SetDotsPerInch(int dotsPerInch) { m_dotsPerInch = dotsPerInch; }

protected:
    std::vector<EGLConfig> FittingConfigs() const override { return Display()->Configs(EGL_PBUFFER_BIT); }
    EGLSurface MakeSurface(EGLConfig config) override { return MakePbuffer(*Display(), config, m_size); }

private:
    SIZE m_size;
    int m_dotsPerInch;
};

bool IsResolution(int dotsPerInch) {
    return dotsPerInch >= 1 && dotsPerInch <= largestDotsPerInch;
}

bool IsSize(int width, int height) {
    return width >= 1 && height >= 1 && width <= largestWindowSide && height <= largestWindowSide;
}

/// Whether the current context's surface has memory behind it.
bool CanReadCurrentSurface() {
    unsigned char pixel[4];
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    return glGetError() == GL_NO_ERROR;
}

bool OffscreenWindow::HasMemoryFor(const SIZE& size) {
    if (size.cx * size.cy <= pixelsTakenForGranted) return true;
    const CKeepContext keep;
    OffscreenWindow trial(Display(), size, m_dotsPerInch);
    const PIXELFORMATDESCRIPTOR format = FullFormat();
    bool ample = false;
    if (trial.SetFormat(ChoosePixelFormat(trial.Dc(), &format))) {
        const HGLRC context = wglCreateContext(trial.Dc());
        ample = context && wglMakeCurrent(trial.Dc(), context) && CanReadCurrentSurface();
        if (context) wglDeleteContext(context);
    }
    if (ample) return true;
    return Fail(ERROR_NOT_ENOUGH_MEMORY,
                "EGL: there is not enough memory for this size; ask for a smaller window.");
}

bool OffscreenWindow::Resize(const SIZE& size) {
    if (!HasMemoryFor(size)) return false;
    if (Format() != 0) {
        const EGLSurface surface = MakePbuffer(*Display(), Config(), size);
        if (surface == EGL_NO_SURFACE) return false;
        ReplaceSurface(surface);
    }
    m_size = size;
    return true;
}

} // namespace

HWND CreateOffscreenWindow(int width, int height, int dpi) {
    if (!IsSize(width, height) || !IsResolution(dpi)) {
        Fail(ERROR_INVALID_PARAMETER,
             "CreateOffscreenWindow: the size is not 1 to 16384 pixels or the resolution "
             "not 1 to 1200 dots per inch; pass values within.");
        return nullptr;
    }
    auto display = EglDisplay::WithoutScreen();
    if (!display) return nullptr;
    const SIZE size{width, height};
    auto window = std::make_unique<OffscreenWindow>(std::move(display), size, dpi);
    return window->HasMemoryFor(size) ? window.release() : nullptr;
}

int ResizeOffscreenWindow(HWND window, int width, int height) {
    NativeWindow* const live = ValidWindow(window, "ResizeOffscreenWindow");
    if (!live) return -1;
    auto* const offscreen = dynamic_cast<OffscreenWindow*>(live);
    if (!offscreen || !IsSize(width, height)) {
        Fail(ERROR_INVALID_PARAMETER,
             "ResizeOffscreenWindow: the window is on a screen or the size is not 1 to "
             "16384 pixels; pass an off-screen window and a size within.");
        return -1;
    }
    return offscreen->Resize({width, height}) ? 0 : -1;
}

int SetOffscreenDpi(HWND window, int dpi) {
    NativeWindow* const live = ValidWindow(window, "SetOffscreenDpi");
    if (!live) return -1;
    auto* const offscreen = dynamic_cast<OffscreenWindow*>(live);
    if (!offscreen || !IsResolution(dpi)) {
        Fail(ERROR_INVALID_PARAMETER,
             "SetOffscreenDpi: the window is on a screen or the resolution is not 1 to 1200 dots per inch; "
             "pass an off-screen window and a resolution within.");
        return -1;
    }
    offscreen->SetDotsPerInch(dpi);
    return 0;
}

HWND CreateCompanionWindow(HDC dc, int width, int height) {
    NativeWindow* const other = WindowOfDc(dc, "CreateCompanionWindow");
    if (!other) return nullptr;
    const SIZE size{width, height};
    auto window = std::make_unique<OffscreenWindow>(other->Display(), size, other->DotsPerInch());
    const auto& formats = window->Formats();
    const auto found = std::find(formats.begin(), formats.end(), other->Config());
    if (!IsSize(width, height) || other->Format() == 0 || found == formats.end()) {
        Fail(ERROR_INVALID_PIXEL_FORMAT,
             "EGL: what is drawn in this window cannot be drawn outside it; use an off-screen window.");
        return nullptr;
    }
    if (!window->HasMemoryFor(size) || !window->SetFormat(static_cast<int>(found - formats.begin()) + 1))
        return nullptr;
    return window.release();
}

} // namespace KivoDrawingTools
