// Windows for tests, of every kind that the platform has, and plotters in them.
#pragma once

#include "Image.h"
#include "Matrices.h"
#include "PlotterProbe.h"
#include "window_system/WindowSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace KivoDrawingTools {

enum class WindowKind { offscreen, onScreen };

/// The kinds that can be made here: a window on a screen needs a display server.
std::vector<WindowKind> AvailableWindowKinds();
/// Names the kind in the name of a test.
std::string WindowKindName(const testing::TestParamInfo<WindowKind>& info);

/// A window without frame or title bar, so that its rectangle is its client area.
class TestWindow {
public:
    TestWindow(WindowKind kind, int width, int height);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    HWND Handle() const { return m_handle; }
    WindowKind Kind() const { return m_kind; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// The caller tells the plotter by OnSize.
    void Resize(int width, int height);
    /// Lets the window system take notice of what has happened to the window.
    void HandleMessages();
    /// What the plotter has presented in the window; empty where that cannot be seen.
    Image Presented(PlotterProbe& plotter) const;

private:
    struct HostWindow;

    WindowKind m_kind;
    int m_width;
    int m_height;
    std::unique_ptr<HostWindow> m_host; ///< of a window on the screen
    HWND m_handle = nullptr;
};

/// A plotter in a window; created in it by default.
struct TestPlot {
    TestPlot(WindowKind kind, int width, int height);

    /// The surface and its frame lines without any other layer, on white, unlit where no lines are drawn.
    Image SurfaceImage();

    TestWindow window;
    PlotterProbe plotter;
};

/// Makes a plotter's context current for as long as it lives, for reading OpenGL state.
class CurrentContext {
public:
    explicit CurrentContext(PlotterProbe& plotter) : m_plotter(plotter) { m_plotter.BeginGLOperation(); }
    ~CurrentContext() { m_plotter.EndGLOperation(); }
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;

private:
    PlotterProbe& m_plotter;
};

/// A matrix of the current context: GL_PROJECTION_MATRIX or GL_MODELVIEW_MATRIX.
Matrix LoadedMatrix(unsigned int which);

/// Base of tests that run in every kind of window.
class WindowTest : public testing::TestWithParam<WindowKind> {};

} // namespace KivoDrawingTools

/// Runs a suite derived from WindowTest in every kind of window: what the window has a share in.
#define KIVO_IN_EVERY_WINDOW(suite)                                                                          \
    INSTANTIATE_TEST_SUITE_P(Windows, suite, testing::ValuesIn(KivoDrawingTools::AvailableWindowKinds()),    \
                             KivoDrawingTools::WindowKindName)

/// Runs a suite derived from WindowTest off-screen alone: what any window decides alike, because it is about
/// what OpenGL is told and makes of it. That all kinds of windows draw the same is tested by SceneTest.
#define KIVO_IN_ONE_WINDOW(suite)                                                                            \
    INSTANTIATE_TEST_SUITE_P(Windows, suite, testing::Values(KivoDrawingTools::WindowKind::offscreen),       \
                             KivoDrawingTools::WindowKindName)
