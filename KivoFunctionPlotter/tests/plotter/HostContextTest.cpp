// A host that draws with OpenGL itself: its context is current while it calls the plotter. Off-screen it is
// current again after each member; after those for a window on the screen, none is.
#include "KivoHost.h"
#include "KivoPicture.h"
#include "support/Image.h"
#include "support/TestHostContext.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using KivoTest::TestHostContext;

namespace {

class HostContext : public WindowTest {
protected:
    ~HostContext() override { TestHostContext::Unbind(); }

    bool IsOffscreen() const { return GetParam() == WindowKind::offscreen; }

    // Runs it with the host's context current, which is so again afterwards, or none is on the screen.
    void ExpectAfter(const std::string& name, const std::function<void()>& step) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(host.MakeCurrent());
        glClearColor(0.25f, 0.5f, 0.75f, 1.0f);
        step();
        if (IsOffscreen())
            EXPECT_TRUE(host.IsCurrent());
        else
            EXPECT_TRUE(TestHostContext::IsNoneCurrent());
        ASSERT_TRUE(host.MakeCurrent());
        GLfloat color[4] = {};
        glGetFloatv(GL_COLOR_CLEAR_VALUE, color);
        EXPECT_EQ(color[1], 0.5f) << "what was meant for the plot has reached the host";
    }

    TestHostContext host;
    TestWindow window{GetParam(), 160, 120};
    PlotterProbe plotter;
    const TestSurface surface = HillSurface(8, 6);
};

} // namespace

TEST_P(HostContext, IsThereAgainAfterEachMember) {
    ExpectAfter("create", [&] { EXPECT_EQ(plotter.OnCreate(window.Handle(), 160, 120, true), 0); });
    ExpectAfter("size", [&] { plotter.OnSize(0, 160, 120); });
    ExpectAfter("data", [&] { plotter.SetData(surface.NewArray(), 8, 6, 1, 8, 3); });
    ExpectAfter("title", [&] { plotter.SetPlotTitle("Title"); });
    ExpectAfter("frame", [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
    ExpectAfter("drag", [&] {
        plotter.OnRButtonDown(MK_RBUTTON, {80, 60});
        plotter.OnMouseMove(MK_RBUTTON, {90, 66});
        plotter.OnRButtonUp(0, {90, 66});
    });
    ExpectAfter("wheel", [&] {
        RECT place = {};
        GetWindowRect(window.Handle(), &place);
        plotter.OnMouseWheel(0, 120, {place.left + 80, place.top + 60});
    });
    ExpectAfter("own OpenGL", [&] {
        plotter.BeginGLOperation();
        EXPECT_EQ(wglGetCurrentContext(), plotter.m_hGLRC);
        plotter.BeginGLOperation();
        plotter.EndGLOperation();
        EXPECT_TRUE(TestHostContext::IsNoneCurrent());
        plotter.EndGLOperation();
    });
    ExpectAfter("own OpenGL without an end", [&] {
        plotter.BeginGLOperation();
        plotter.OnDraw();
        ASSERT_TRUE(host.MakeCurrent());
        plotter.OnDraw();
    });
    ExpectAfter("destroy", [&] { EXPECT_EQ(plotter.OnDestroy(), 0); });
    ExpectAfter("create again", [&] { EXPECT_EQ(plotter.OnCreate(window.Handle(), true), 0); });
    ExpectAfter("the end of its life", [&] {
        PlotterProbe other;
        other.OnCreate(window.Handle(), 160, 120, true);
        other.OnDraw();
    });
}

// These leave the plotter's context current, but not in place of a host's.
TEST_P(HostContext, IsThereAgainAfterTheGradientsOfXAndY) {
    ASSERT_EQ(plotter.OnCreate(window.Handle(), 160, 120, true), 0);
    ASSERT_TRUE(host.MakeCurrent());
    plotter.SetXGradientColor(0x00FF0000ul, 0x000000FFul);
    if (IsOffscreen())
        EXPECT_TRUE(host.IsCurrent());
    else
        EXPECT_EQ(wglGetCurrentContext(), plotter.m_hGLRC);
    TestHostContext::Unbind();
    plotter.SetXGradientColor(0x00FF0000ul, 0x000000FFul);
    EXPECT_EQ(wglGetCurrentContext(), plotter.m_hGLRC);
}

TEST_P(HostContext, IsThereAgainAfterAPictureInEveryWindow) {
    ASSERT_EQ(plotter.OnCreate(window.Handle(), 160, 120, true), 0);
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    ASSERT_TRUE(host.MakeCurrent());
    EXPECT_EQ(CapturePicture(plotter, rgba, width, height), 0);
    EXPECT_TRUE(host.IsCurrent());
    EXPECT_EQ(CapturePicture(plotter, 300, 200, rgba), 0);
    EXPECT_TRUE(host.IsCurrent());
    plotter.OnDestroy();
    ASSERT_TRUE(host.MakeCurrent());
    EXPECT_EQ(CapturePicture(plotter, rgba, width, height), -1);
    EXPECT_TRUE(host.IsCurrent());
}

TEST_P(HostContext, APlotterWithoutAWindowPutsItBack) {
    ASSERT_TRUE(host.MakeCurrent());
    plotter.SetData(surface.NewArray(), 8, 6, 1, 8, 3);
    plotter.OnDraw();
    EXPECT_TRUE(host.IsCurrent());
}

TEST_P(HostContext, WhereNoneWasCurrentNoneIsAfterwards) {
    ASSERT_EQ(plotter.OnCreate(window.Handle(), 160, 120, true), 0);
    TestWindow otherWindow(GetParam(), 64, 48);
    PlotterProbe other;
    EXPECT_EQ(other.OnCreate(otherWindow.Handle(), 64, 48, true), 0);
    for (PlotterProbe* const plot : {&plotter, &other}) {
        plotter.SetXGradientColor(0x00FF0000ul, 0x000000FFul); // leaves its own
        plot->OnDraw();
        EXPECT_TRUE(TestHostContext::IsNoneCurrent());
    }
    plotter.SetXGradientColor(0x00FF0000ul, 0x000000FFul);
    CaptureImage(other);
    EXPECT_TRUE(TestHostContext::IsNoneCurrent());
}

TEST_P(HostContext, AScopePutsItBackInEveryWindow) {
    ASSERT_TRUE(host.MakeCurrent());
    {
        const CKeepContext keep;
        ASSERT_EQ(plotter.OnCreate(window.Handle(), 160, 120, true), 0);
        plotter.SetData(surface.NewArray(), 8, 6, 1, 8, 3);
        plotter.SetYGradientColor(0x00FF0000ul, 0x000000FFul);
    }
    EXPECT_TRUE(host.IsCurrent());
    {
        const CKeepContext keep;
        TestHostContext::Unbind();
        {
            const CKeepContext keepNone;
            plotter.SetYGradientColor(0x00FF0000ul, 0x000000FFul);
        }
        EXPECT_TRUE(TestHostContext::IsNoneCurrent());
    }
    EXPECT_TRUE(host.IsCurrent());
}

TEST_P(HostContext, OneThatIsDestroyedMeanwhileIsNotPutBack) {
    auto shortLived = std::make_unique<TestHostContext>();
    ASSERT_TRUE(shortLived->MakeCurrent());
    {
        const CKeepContext keep;
        ASSERT_EQ(plotter.OnCreate(window.Handle(), 160, 120, true), 0);
        TestHostContext::Unbind();
        shortLived.reset();
    }
    EXPECT_TRUE(TestHostContext::IsNoneCurrent());
    plotter.OnDraw();
}

// Windows as large as this are tried out when they are made.
TEST(HostContextOfNoWindow, ALargeWindowIsMadeWithoutIt) {
    TestHostContext host;
    ASSERT_TRUE(host.MakeCurrent());
    const HWND window = CreateOffscreenWindow(8192, 2500);
    EXPECT_TRUE(host.IsCurrent());
    EXPECT_EQ(ReleaseWindow(window), 0);
    EXPECT_TRUE(host.IsCurrent());
}

KIVO_IN_EVERY_WINDOW(HostContext);
