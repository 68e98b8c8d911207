// What views call: nothing to be told, the camera to be shown, and in frames the matrices of the view.
#include "KivoView.h"
#include "parts/KivoGridBox.h"
#include "support/OperationFaults.h"
#include "support/RecordedPlot.h"
#include "support/TestSurfaces.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

struct Shares {
    double x;
    double y;
};

// Where the corners of the box stand in the plot that a frame's first drawing, that of the box, shows.
std::vector<Shares> Corners(const CallRecorder& frame, const CallProbe& plotter) {
    const DrawState& state = frame.Draws().front().state;
    const Matrix camera = FromArray(state.projection.data()) * FromArray(state.modelView.data());
    std::vector<Shares> corners;
    for (int number = 0; number < 8; ++number) {
        Vector4 corner = {0, 0, 0, 1};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const float* const side =
                (number >> axis & 1) != 0 ? plotter.m_gridBox->m_boxMax : plotter.m_gridBox->m_boxMin;
            corner[axis] = static_cast<double>(side[axis]);
        }
        const Vector4 place = camera * corner;
        corners.push_back({0.5 + 0.5 * place[0], 0.5 + 0.5 * place[1]});
    }
    return corners;
}

double Distance(const Shares& a, const Shares& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

class ViewCalls : public testing::Test {
protected:
    ViewCalls() { plot.Fill(); }

    std::vector<Shares> CornersOfFrame() {
        const auto frame = Record(plotter, [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
        const auto& viewport = frame->Draws().front().state.viewport;
        EXPECT_TRUE(std::equal(viewport.begin(), viewport.end(), plotter.m_plotViewport));
        return Corners(*frame, plotter);
    }

    SKivoView Turned() {
        SKivoView view = GetView(plotter);
        std::swap_ranges(view.rotation, view.rotation + 3, view.rotation + 3);
        std::swap_ranges(view.rotation + 3, view.rotation + 6, view.rotation + 6);
        view.zoom = 1.25;
        view.panX = 0.25;
        return view;
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

const std::string bind = "wglMakeCurrent(dc, context)";
const std::string unbind = "wglMakeCurrent(dc, null)";

} // namespace

TEST_F(ViewCalls, AreNoneToTellAndToRefuse) {
    SKivoView refused;
    refused.zoom = -1.0;
    double azimuth = 0.0, elevation = 0.0;
    const auto recorder = Record(plotter, [&] {
        SetView(plotter, GetView(plotter));
        GetViewAngles(plotter, azimuth, elevation);
        SetView(plotter, refused);
        SetViewAngles(plotter, 0.0, 91.0);
    });
    EXPECT_TRUE(recorder->Calls().empty());
}

TEST_F(ViewCalls, ShowAViewByItsCameraAlone) {
    const SKivoView view = Turned();
    const auto recorder = Record(plotter, [&] { ASSERT_EQ(SetView(plotter, view), 0); });
    EXPECT_THAT(NamesOf(recorder->Texts()),
                testing::ElementsAre("wglMakeCurrent", "wglGetCurrentContext", "glViewport", "glMatrixMode",
                                     "glLoadIdentity", "glOrtho", "glMatrixMode", "glMatrixMode",
                                     "glLoadIdentity", "glTranslated", "glMultMatrixd", "glScaled",
                                     "glTranslated", "glMatrixMode", "wglMakeCurrent"));
    EXPECT_EQ(recorder->Texts().front(), bind);
    EXPECT_EQ(recorder->Texts().back(), unbind);
}

// In every plot, the zoom stretches the corners from the middle, the pan shifts them, and other sides of the
// window leave the shares along the shorter one.
TEST_F(ViewCalls, FramesHaveTheCornersWhereTheViewSays) {
    for (int type = 0; type < 4; ++type) {
        SKivoView view = GetView(plotter);
        view.plotType = type;
        ASSERT_EQ(SetView(plotter, view), 0);
        const std::vector<Shares> fitted = CornersOfFrame();
        view.zoom = 2.0;
        view.panX = 0.125;
        view.panY = -0.25;
        ASSERT_EQ(SetView(plotter, view), 0);
        const std::vector<Shares> shown = CornersOfFrame();
        const Shares middle = {0.5 + 0.055, 0.5 - 0.025};
        for (std::size_t i = 0; i < 8; ++i) {
            EXPECT_NEAR(shown[i].x, middle.x + 2.0 * (fitted[i].x - middle.x) + 0.125, 1e-5) << type;
            EXPECT_NEAR(shown[i].y, middle.y + 2.0 * (fitted[i].y - middle.y) - 0.25, 1e-5) << type;
        }
        ASSERT_EQ(plot.window.Kind(), WindowKind::offscreen);
        plot.window.Resize(600, 300); // plots of 336 x 300 and 504 x 300: the height is the shorter side
        plotter.OnSize(0, 600, 300);
        ASSERT_EQ(SetView(plotter, view), 0);
        const std::vector<Shares> wide = CornersOfFrame();
        for (std::size_t i = 0; i < 8; ++i) {
            const double stretch = 336.0 / 504.0;
            EXPECT_NEAR(wide[i].x - 0.125 - middle.x, stretch * (shown[i].x - 0.125 - middle.x), 1e-5)
                << type;
            EXPECT_NEAR(wide[i].y, shown[i].y, 1e-5) << type;
        }
        plot.window.Resize(RecordedPlot::width, RecordedPlot::height);
        plotter.OnSize(0, RecordedPlot::width, RecordedPlot::height);
        ASSERT_EQ(ResetView(plotter), 0);
    }
}

// Nothing of it can be seen in the last frame's corners of a cube: lengths and angles are the same, too.
TEST_F(ViewCalls, FramesOfAnotherSurfaceHaveTheSameSides) {
    const auto sides = [&] {
        const std::vector<Shares> corners = CornersOfFrame();
        return std::vector<double>{Distance(corners[0], corners[1]), Distance(corners[0], corners[2]),
                                   Distance(corners[0], corners[4]), Distance(corners[3], corners[5]),
                                   Distance(corners[1], corners[7])};
    };
    ASSERT_EQ(SetView(plotter, Turned()), 0);
    const SKivoView view = GetView(plotter);
    const std::vector<double> expected = sides();
    const TestSurface other = TerrainSurface(11, 13);
    plotter.SetData(other.NewArray(), 11, 13, 1, 11, 3);
    ASSERT_EQ(SetView(plotter, view), 0);
    EXPECT_THAT(sides(), testing::Pointwise(testing::DoubleNear(1e-5), expected));
}

TEST_F(ViewCalls, TheStartViewPlacesTheLightsAsFirstDataDo) {
    const auto positions = [](const CallRecorder& recorder) {
        Texts lights;
        for (const std::string& text : recorder.TextsOf({"glLoadIdentity", "glMultMatrixd", "glLightfv"}))
            lights.push_back(text);
        return lights;
    };
    plotter.Rotate({0, 0}, {30, 20});
    for (int type = 0; type < 4; ++type) {
        SKivoView view = GetView(plotter);
        view.plotType = type;
        ASSERT_EQ(SetView(plotter, view), 0);
        const auto recorder = Record(plotter, [&] { ASSERT_EQ(ResetView(plotter), 0); });
        EXPECT_EQ(recorder->Texts().front(), bind);
        EXPECT_EQ(recorder->Texts().back(), unbind);
        const Texts lights = positions(*recorder);
        ASSERT_GE(lights.size(), 3u);
        EXPECT_EQ(lights[0], "glLoadIdentity()");
        EXPECT_THAT(lights[1], testing::StartsWith("glLightfv(GL_LIGHT0, GL_POSITION, "));
        EXPECT_THAT(lights[2], testing::StartsWith("glLightfv(GL_LIGHT1, GL_POSITION, "));
    }
}

TEST_F(ViewCalls, WithoutDataTheLightsStayWhereLightingHasPutThem) {
    RecordedPlot empty;
    const auto recorder = Record(empty.plotter, [&] { ASSERT_EQ(ResetView(empty.plotter), 0); });
    EXPECT_EQ(recorder->Count("glLightfv"), 0);
}

TEST_F(ViewCalls, NothingChangesWithoutTheContext) {
    const SKivoView before = GetView(plotter), other = Turned();
    const std::vector<Shares> corners = CornersOfFrame();
    const auto fails = [&](auto call) {
        OperationFault fault(1);
        EXPECT_EQ(call(), -1);
        EXPECT_EQ(fault.Failed(), "wglMakeCurrent");
    };
    fails([&] { return SetView(plotter, other); });
    fails([&] { return SetViewAngles(plotter, 10.0, 20.0); });
    fails([&] { return ResetView(plotter); });
    EXPECT_TRUE(std::equal(before.rotation, before.rotation + 9, GetView(plotter).rotation));
    EXPECT_EQ(GetView(plotter).zoom, before.zoom);
    EXPECT_EQ(GetView(plotter).panX, before.panX);
    const std::vector<Shares> after = CornersOfFrame();
    for (std::size_t i = 0; i < 8; ++i)
        EXPECT_EQ(Distance(after[i], corners[i]), 0.0);
}

// Without a window there is no context of the plotter's, and nothing touches another one.
TEST_F(ViewCalls, AreNoneWithoutAWindow) {
    plotter.OnDestroy();
    const auto recorder = Record(plotter, [&] {
        EXPECT_EQ(SetView(plotter, Turned()), 0);
        EXPECT_EQ(SetViewAngles(plotter, 10.0, 20.0), 0);
        EXPECT_EQ(ResetView(plotter), 0);
    });
    EXPECT_TRUE(recorder->Calls().empty());
}
