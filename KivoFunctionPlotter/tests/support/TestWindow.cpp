#include "TestWindow.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

#if !defined(_WIN32)
#include "X11TestWindow.h"
#endif

namespace KivoDrawingTools {

#if defined(_WIN32)

struct TestWindow::HostWindow {
    HostWindow(int width, int height) {
        WNDCLASSA description = {};
        description.style = CS_OWNDC;
        description.lpfnWndProc = DefWindowProcA;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "KivoTestWindow";
        RegisterClassA(&description); // fails where an earlier window has registered it
        // Not activated: handing the activation back would take the system seconds.
        handle = CreateWindowExA(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, "KivoTestWindow", "", WS_POPUP, 40, 30,
                                 width, height, nullptr, nullptr, description.hInstance, nullptr);
        ShowWindow(handle, SW_SHOWNOACTIVATE);
    }
    ~HostWindow() { DestroyWindow(handle); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    void Resize(int width, int height) {
        SetWindowPos(handle, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }
    void HandleMessages() {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }
    Image Shown(int width, int height) const {
        BITMAPINFO description = {};
        description.bmiHeader.biSize = sizeof(description.bmiHeader);
        description.bmiHeader.biWidth = width;
        description.bmiHeader.biHeight = -height; // top row first
        description.bmiHeader.biPlanes = 1;
        description.bmiHeader.biBitCount = 32;
        Image image(width, height);
        const HDC screen = GetDC(handle);
        const HDC memory = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
        const HGDIOBJ previous = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
        SelectObject(memory, previous);
        GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), image.rgba.data(), &description,
                  DIB_RGB_COLORS);
        DeleteObject(bitmap);
        DeleteDC(memory);
        for (std::size_t i = 0; i < image.rgba.size(); i += 4)
            std::swap(image.rgba[i], image.rgba[i + 2]); // the system has blue first
        return image;
    }

    HWND handle = nullptr;
};

std::vector<WindowKind> AvailableWindowKinds() {
    return {WindowKind::offscreen, WindowKind::onScreen};
}

#else

struct TestWindow::HostWindow {
    HostWindow(int width, int height) : window(Place(width, height)) {
        handle = AttachX11Window(window.Id());
    }
    ~HostWindow() { ReleaseWindow(handle); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    static KivoTest::X11TestWindow::Options Place(int width, int height) {
        KivoTest::X11TestWindow::Options options;
        options.x = 40;
        options.y = 30;
        options.width = width;
        options.height = height;
        return options;
    }
    void Resize(int width, int height) { window.Resize(width, height); }
    void HandleMessages() {}
    Image Shown(int width, int height) const {
        RECT rect = {};
        GetClientRect(handle, &rect); // the display has done everything that the plotter asked before
        Image image(width, height);
        image.rgba = window.Grab();
        return image;
    }

    KivoTest::X11TestWindow window;
    HWND handle = nullptr;
};

std::vector<WindowKind> AvailableWindowKinds() {
#if defined(__SANITIZE_ADDRESS__)
    // A driver that is unloaded with its last display takes its name out of the reports of leaks.
    [[maybe_unused]] static const HWND keepsTheDriver = CreateOffscreenWindow(1, 1);
#endif
    if (KivoTest::HasDisplay()) return {WindowKind::offscreen, WindowKind::onScreen};
    return {WindowKind::offscreen};
}

#endif

std::string WindowKindName(const testing::TestParamInfo<WindowKind>& info) {
    return info.param == WindowKind::offscreen ? "Offscreen" : "OnScreen";
}

TestWindow::TestWindow(WindowKind kind, int width, int height)
    : m_kind(kind), m_width(width), m_height(height) {
    if (kind == WindowKind::onScreen) {
        m_host = std::make_unique<HostWindow>(width, height);
        m_handle = m_host->handle;
    } else {
        m_handle = CreateOffscreenWindow(width, height);
    }
    if (!m_handle) throw std::runtime_error(std::string("no test window: ") + LastWindowError());
    HandleMessages();
}

TestWindow::~TestWindow() {
    if (!m_host) ReleaseWindow(m_handle);
}

void TestWindow::Resize(int width, int height) {
    if (m_host)
        m_host->Resize(width, height);
    else
        ResizeOffscreenWindow(m_handle, width, height);
    m_width = width;
    m_height = height;
    HandleMessages();
}

void TestWindow::HandleMessages() {
    if (m_host) m_host->HandleMessages();
}

Image TestWindow::Presented(PlotterProbe& plotter) const {
    if (m_host) return m_host->Shown(m_width, m_height);
#if defined(_WIN32)
    (void)plotter;
    return {}; // nobody can look into a hidden window
#else
    const CurrentContext context(plotter);
    return ReadBuffer(GL_BACK, m_width, m_height);
#endif
}

Matrix LoadedMatrix(unsigned int which) {
    Matrix matrix = {};
    glGetDoublev(which, matrix.data());
    return matrix;
}

TestPlot::TestPlot(WindowKind kind, int width, int height) : window(kind, width, height) {
    if (plotter.OnCreate(window.Handle(), width, height, true) != 0)
        throw std::runtime_error(std::string("no plotter: ") + LastWindowError());
    // Some systems' font routine leaves an OpenGL error behind.
    const CurrentContext context(plotter);
    while (glGetError() != GL_NO_ERROR) {
    }
}

Image TestPlot::SurfaceImage() {
    const CurrentContext context(plotter);
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    plotter.ApplyViewVolume();
    plotter.ApplyModelViewMatrix();
    glDisable(GL_LIGHTING);
    plotter.RenderSurface();
    return ReadBuffer(GL_BACK, window.Width(), window.Height());
}

} // namespace KivoDrawingTools
