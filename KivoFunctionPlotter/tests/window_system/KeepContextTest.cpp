// CKeepContext with contexts of EGL and GLX that the tests make as a host does, and with plotters'.
#include "KivoHost.h"
#include "support/HostGlx.h"
#include "support/TestHostContext.h"
#include "support/TestWindow.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <array>
#include <future>
#include <memory>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

/// A context of EGL of one client API that draws to one surface and reads from another.
class HostEgl {
public:
    explicit HostEgl(EGLenum api)
        : m_display(eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr)) {
        eglInitialize(m_display, nullptr, nullptr);
        const EGLint renderable = api == EGL_OPENGL_API ? EGL_OPENGL_BIT : EGL_OPENGL_ES2_BIT;
        const EGLint wanted[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, renderable,
                                 EGL_NONE};
        EGLConfig config = nullptr;
        EGLint count = 0;
        EXPECT_TRUE(eglChooseConfig(m_display, wanted, &config, 1, &count));
        const EGLint size[] = {EGL_WIDTH, 8, EGL_HEIGHT, 8, EGL_NONE};
        for (EGLSurface& surface : m_surfaces)
            surface = eglCreatePbufferSurface(m_display, config, size);
        EXPECT_TRUE(eglBindAPI(api));
        const EGLint version[] = {EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
        m_context =
            eglCreateContext(m_display, config, EGL_NO_CONTEXT, api == EGL_OPENGL_API ? nullptr : version);
    }
    ~HostEgl() {
        TestHostContext::Unbind();
        if (m_context != EGL_NO_CONTEXT) DestroyContext();
        for (const EGLSurface surface : m_surfaces)
            if (surface != EGL_NO_SURFACE) eglDestroySurface(m_display, surface);
        eglBindAPI(EGL_OPENGL_ES_API); // as a thread begins
    }
    HostEgl(const HostEgl&) = delete;
    HostEgl& operator=(const HostEgl&) = delete;

    bool MakeCurrent() const {
        return eglMakeCurrent(m_display, m_surfaces[0], m_surfaces[1], m_context) != 0;
    }
    bool IsCurrent() const {
        return eglGetCurrentContext() == m_context && eglGetCurrentDisplay() == m_display &&
               eglGetCurrentSurface(EGL_DRAW) == m_surfaces[0] &&
               eglGetCurrentSurface(EGL_READ) == m_surfaces[1];
    }
    void DestroyContext() {
        eglDestroyContext(m_display, m_context);
        m_context = EGL_NO_CONTEXT;
    }
    void DestroySurface() {
        eglDestroySurface(m_display, m_surfaces[0]);
        m_surfaces[0] = EGL_NO_SURFACE;
    }

private:
    EGLDisplay m_display;
    std::array<EGLSurface, 2> m_surfaces{};
    EGLContext m_context = EGL_NO_CONTEXT;
};

/// A whole life of a plotter in a window, which leaves no context current on a screen.
void Plot(WindowKind kind) {
    TestPlot plot(kind, 40, 30);
    EXPECT_EQ(plot.plotter.Renderscene(), 0);
    plot.plotter.OnDestroy();
}

class KeepEgl : public testing::TestWithParam<EGLenum> {
protected:
    HostEgl host{GetParam()};
};

class KeepGlx : public testing::Test {
protected:
    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        m_host = std::make_unique<HostGlx>();
        if (!m_host->Ok()) GTEST_SKIP() << "no GLX";
        ASSERT_TRUE(m_host->MakeCurrent());
    }
    HostGlx& Host() { return *m_host; }

private:
    std::unique_ptr<HostGlx> m_host;
};

} // namespace

// ---- EGL

TEST_P(KeepEgl, PutsBackContextSurfacesDisplayAndClientApi) {
    ASSERT_TRUE(host.MakeCurrent());
    for (const WindowKind kind : AvailableWindowKinds()) {
        const CKeepContext keep;
        Plot(kind);
        TestHostContext::Unbind();
        eglBindAPI(GetParam() == EGL_OPENGL_API ? EGL_OPENGL_ES_API : EGL_OPENGL_API);
    }
    EXPECT_TRUE(host.IsCurrent());
    EXPECT_EQ(eglQueryAPI(), GetParam());
}

TEST_P(KeepEgl, ScopesAreNested) {
    TestHostContext inner;
    ASSERT_TRUE(host.MakeCurrent());
    {
        const CKeepContext keep;
        ASSERT_TRUE(inner.MakeCurrent());
        {
            const CKeepContext keepInner;
            TestHostContext::Unbind();
            {
                const CKeepContext keepNone;
                ASSERT_TRUE(host.MakeCurrent());
            }
            EXPECT_TRUE(TestHostContext::IsNoneCurrent());
        }
        EXPECT_TRUE(inner.IsCurrent());
    }
    EXPECT_TRUE(host.IsCurrent());
}

TEST_P(KeepEgl, WhatIsGoneDoesNotComeBack) {
    AttachX11Window(1, ":9731"); // leaves words
    const std::string words = LastWindowError();
    ASSERT_TRUE(host.MakeCurrent());
    {
        const CKeepContext keep;
        TestHostContext::Unbind();
        host.DestroySurface();
    }
    EXPECT_TRUE(TestHostContext::IsNoneCurrent());
    HostEgl other(GetParam());
    ASSERT_TRUE(other.MakeCurrent());
    {
        const CKeepContext keep;
        Plot(WindowKind::offscreen);
        TestHostContext::Unbind();
        other.DestroyContext();
    }
    EXPECT_TRUE(TestHostContext::IsNoneCurrent());
    EXPECT_EQ(eglGetError(), EGL_SUCCESS);
    EXPECT_EQ(LastWindowError(), words);
}

TEST_P(KeepEgl, AContextThatAnotherThreadHasTakenStaysThere) {
    ASSERT_TRUE(host.MakeCurrent());
    {
        const CKeepContext keep;
        TestHostContext::Unbind();
        std::promise<void> isTaken, isDone;
        auto other = std::async(std::launch::async, [&] {
            const bool isOurs = host.MakeCurrent();
            isTaken.set_value();
            isDone.get_future().wait();
            const bool isStillOurs = host.IsCurrent();
            TestHostContext::Unbind();
            return isOurs && isStillOurs;
        });
        isTaken.get_future().wait();
        { const CKeepContext keepNone; }
        EXPECT_TRUE(TestHostContext::IsNoneCurrent());
        isDone.set_value();
        EXPECT_TRUE(other.get());
    }
    EXPECT_TRUE(host.IsCurrent());
}

INSTANTIATE_TEST_SUITE_P(ClientApis, KeepEgl, testing::Values(EGL_OPENGL_API, EGL_OPENGL_ES_API),
                         [](const auto& test) {
                             return test.param == EGL_OPENGL_API ? "OpenGl" : "OpenGlEs";
                         });

TEST(KeepContext, WhereNoneWasCurrentNoneIsAfterwards) {
    TestHostContext host;
    {
        const CKeepContext keep;
        ASSERT_TRUE(host.MakeCurrent());
    }
    EXPECT_TRUE(TestHostContext::IsNoneCurrent());
}

// ---- A plotter's own

TEST(KeepContext, PutsBackThatOfAPlotterUnlessItIsGone) {
    TestPlot plot(WindowKind::offscreen, 40, 30);
    plot.plotter.BeginGLOperation();
    {
        const CKeepContext keep;
        Plot(WindowKind::offscreen);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
    }
    EXPECT_EQ(wglGetCurrentContext(), plot.plotter.m_hGLRC);
    EXPECT_EQ(wglGetCurrentDC(), plot.plotter.m_hDC);
    {
        const CKeepContext keep;
        plot.plotter.OnDestroy();
    }
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_TRUE(TestHostContext::IsNoneCurrent());
}

// ---- GLX

TEST_F(KeepGlx, PutsBackContextWindowsAndDisplay) {
    for (const WindowKind kind : AvailableWindowKinds()) {
        const CKeepContext keep;
        Plot(kind);
    }
    EXPECT_TRUE(Host().IsCurrent());
}

TEST_F(KeepGlx, TakesTurnsWithEgl) {
    TestHostContext egl;
    {
        const CKeepContext keep;
        Plot(WindowKind::onScreen);
        ASSERT_TRUE(egl.MakeCurrent());
        {
            const CKeepContext keepEgl;
            TestHostContext::Unbind();
            ASSERT_TRUE(Host().MakeCurrent());
        }
        EXPECT_TRUE(egl.IsCurrent());
        EXPECT_EQ(Host().Current(), nullptr);
    }
    EXPECT_TRUE(Host().IsCurrent());
    EXPECT_TRUE(TestHostContext::IsNoneCurrent());
}

// Xlib would end the process at the error.
TEST_F(KeepGlx, ADestroyedContextDoesNotComeBack) {
    void* const handler = Host().ErrorHandler();
    {
        const CKeepContext keep;
        Plot(WindowKind::onScreen);
        Host().DestroyContext();
    }
    EXPECT_EQ(Host().Current(), nullptr);
    EXPECT_EQ(Host().ErrorHandler(), handler);
    Plot(WindowKind::onScreen);
}

TEST_F(KeepGlx, ADestroyedWindowDoesNotEndTheProcess) {
    {
        const CKeepContext keep;
        Plot(WindowKind::onScreen);
        Host().DestroyWindow();
    }
    wglMakeCurrent(nullptr, nullptr);
    EXPECT_EQ(Host().Current(), nullptr);
    Plot(WindowKind::onScreen);
}
