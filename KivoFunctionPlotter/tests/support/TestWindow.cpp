#include "TestWindow.h"

#include <stdexcept>

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
        handle = CreateWindowA("KivoTestWindow", "", WS_POPUP | WS_VISIBLE, 40, 30, width, height, nullptr,
                               nullptr, description.hInstance, nullptr);
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

    KivoTest::X11TestWindow window;
    HWND handle = nullptr;
};

std::vector<WindowKind> AvailableWindowKinds() {
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

// A window on a screen is read from the screen. Without one, the picture stays in the buffer that was
// presented: the only one there is, or the front one.
Image TestWindow::Presented(PlotterProbe& plotter) const {
#if !defined(_WIN32)
    if (m_host) {
        Image image(m_width, m_height);
        image.rgba = m_host->window.Grab();
        return image;
    }
    constexpr GLenum buffer = GL_BACK;
#else
    constexpr GLenum buffer = GL_FRONT;
#endif
    const CurrentContext context(plotter);
    return ReadBuffer(buffer, m_width, m_height);
}

Matrix LoadedMatrix(unsigned int which) {
    Matrix matrix = {};
    glGetDoublev(which, matrix.data());
    return matrix;
}

TestPlot::TestPlot(WindowKind kind, int width, int height) : window(kind, width, height) {
    if (plotter.OnCreate(window.Handle(), width, height, true) != 0)
        throw std::runtime_error(std::string("no plotter: ") + LastWindowError());
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
