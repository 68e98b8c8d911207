// Mouse and screen: the drag state machine, turning, panning, zooming, projections, point tests.
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <cmath>
#include <limits>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr unsigned int drag = MK_RBUTTON;

Matrix Projection(const PlotterProbe& p) {
    return Orthographic(p.m_viewLeft, p.m_viewRight, p.m_viewBottom, p.m_viewTop, p.m_viewNear, p.m_viewFar);
}

Matrix Camera(const PlotterProbe& p) {
    return Translation((p.m_viewRight - p.m_viewLeft) * 0.055, (p.m_viewTop - p.m_viewBottom) * -0.025, 0) *
           FromArray(p.m_rotationMatrix) * Scaling(p.m_axisScale[0], p.m_axisScale[1], p.m_axisScale[2]) *
           Translation(p.m_volumeTranslate[0], p.m_volumeTranslate[1], p.m_volumeTranslate[2]);
}

struct Bounds {
    explicit Bounds(const PlotterProbe& p)
        : left(p.m_viewLeft), right(p.m_viewRight), bottom(p.m_viewBottom), top(p.m_viewTop),
          zNear(p.m_viewNear), zFar(p.m_viewFar) {}
    double left, right, bottom, top, zNear, zFar;
};

// limit: relative
void ExpectScaled(const PlotterProbe& p, const Bounds& before, double factor, double limit) {
    EXPECT_NEAR(p.m_viewLeft, before.left * factor, std::fabs(before.left) * limit);
    EXPECT_NEAR(p.m_viewRight, before.right * factor, std::fabs(before.right) * limit);
    EXPECT_NEAR(p.m_viewBottom, before.bottom * factor, std::fabs(before.bottom) * limit);
    EXPECT_NEAR(p.m_viewTop, before.top * factor, std::fabs(before.top) * limit);
    EXPECT_EQ(p.m_viewNear, before.zNear);
    EXPECT_EQ(p.m_viewFar, before.zFar);
}

// Window 400 x 240: the plot's viewport is 336 x 240 at (64, 0).
class Navigation : public WindowTest {
protected:
    Navigation() {
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    }

    // Whether a frame was drawn by an action: each frame takes over the background colour.
    template <typename Action>
    bool Draws(Action action) {
        shade = shade < 0.9f ? shade + 1.0f / 64.0f : 0.125f;
        plotter.SetBackgroundColor(shade, 0, 0, 1);
        action();
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        const CurrentContext context(plotter);
        GLfloat clear[4] = {};
        glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
        return clear[0] == shade;
    }

    bool MoveDraws(unsigned int flags, int x, int y) {
        return Draws([&] { plotter.OnMouseMove(flags, POINT{x, y}); });
    }

    void ExpectLast(int x, int y) {
        EXPECT_EQ(plotter.m_lastMouseX, x);
        EXPECT_EQ(plotter.m_lastMouseY, y);
    }

    Matrix Orientation() const { return FromArray(plotter.m_rotationMatrix); }

    TestSurface surface = HillSurface(10, 8);
    TestPlot plot{GetParam(), 400, 240};
    PlotterProbe& plotter = plot.plotter;
    float shade = 0.25f;
};

} // namespace

TEST_P(Navigation, TheLeftButtonDoesNothing) {
    const Matrix before = Orientation();
    EXPECT_FALSE(Draws([&] {
        plotter.OnLButtonDown(MK_LBUTTON, POINT{10, 10});
        plotter.OnLButtonUp(0, POINT{20, 20});
    }));
    EXPECT_FALSE(plotter.m_mouseButtonDown);
    ExpectLast(0, 0);
    EXPECT_EQ(Orientation(), before);
}

TEST_P(Navigation, APressInTheViewportBoxBeginsADrag) {
    EXPECT_FALSE(Draws([&] { plotter.OnRButtonDown(drag, POINT{336, 240}); }));
    EXPECT_TRUE(plotter.m_mouseButtonDown);
    ExpectLast(336, 240);
    EXPECT_FALSE(Draws([&] { plotter.OnRButtonUp(0, POINT{0, 0}); }));
    EXPECT_FALSE(plotter.m_mouseButtonDown);
    ExpectLast(0, 0);
}

TEST_P(Navigation, PressesAndReleasesOutsideTheBoxAreIgnored) {
    for (const POINT pt : {POINT{-1, 5}, POINT{337, 5}, POINT{5, -1}, POINT{5, 241}}) {
        plotter.OnRButtonDown(drag, pt);
        EXPECT_FALSE(plotter.m_mouseButtonDown);
        ExpectLast(0, 0);
    }
    plotter.OnRButtonDown(drag, POINT{7, 8});
    plotter.OnRButtonUp(0, POINT{337, 8});
    EXPECT_TRUE(plotter.m_mouseButtonDown);
    ExpectLast(7, 8);
}

TEST_P(Navigation, MovesOutsideTheBoxAreIgnored) {
    plotter.OnRButtonDown(drag, POINT{50, 60});
    const Matrix before = Orientation();
    for (const POINT pt : {POINT{-1, 60}, POINT{337, 60}, POINT{50, -1}, POINT{50, 241}}) {
        EXPECT_FALSE(MoveDraws(drag, pt.x, pt.y));
        ExpectLast(50, 60);
    }
    EXPECT_EQ(Orientation(), before);
    EXPECT_TRUE(MoveDraws(drag, 336, 240)) << "the box includes its far corner";
    ExpectLast(336, 240);
}

TEST_P(Navigation, ADragTurnsTheNormalPlotAndDraws) {
    plotter.OnRButtonDown(drag, POINT{50, 60});
    const Matrix before = Orientation();
    const Bounds bounds(plotter);
    EXPECT_TRUE(MoveDraws(drag, 80, 100));
    EXPECT_NE(Orientation(), before);
    ExpectScaled(plotter, bounds, 1, 0);
    ExpectLast(80, 100);
    // The next step begins where this one ended.
    PlotterProbe other;
    std::copy(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16, other.m_rotationMatrix);
    std::copy(plotter.m_plotViewport, plotter.m_plotViewport + 4, other.m_plotViewport);
    other.Rotate(POINT{80, 100}, POINT{81, 90});
    MoveDraws(drag, 81, 90);
    EXPECT_EQ(Orientation(), FromArray(other.m_rotationMatrix));
}

TEST_P(Navigation, AZeroLengthDragKeepsTheOrientationAndDraws) {
    plotter.OnRButtonDown(drag, POINT{50, 60});
    const Matrix before = Orientation();
    EXPECT_TRUE(MoveDraws(drag, 50, 60));
    EXPECT_EQ(Orientation(), before);
}

TEST_P(Navigation, ShiftPansAndControlZooms) {
    plotter.OnRButtonDown(drag, POINT{50, 60});
    const double panX = plotter.m_rotationMatrix[12];
    const Bounds bounds(plotter);
    EXPECT_TRUE(MoveDraws(drag | MK_SHIFT, 60, 60));
    EXPECT_GT(plotter.m_rotationMatrix[12], panX);
    ExpectScaled(plotter, bounds, 1, 0);
    const Matrix before = Orientation();
    EXPECT_TRUE(MoveDraws(drag | MK_CONTROL, 60, 120));
    EXPECT_EQ(Orientation(), before);
    ExpectScaled(plotter, bounds, 0.8, 1e-6);
}

TEST_P(Navigation, ControlWinsOverShift) {
    plotter.OnRButtonDown(drag, POINT{50, 60});
    const Matrix before = Orientation();
    const Bounds bounds(plotter);
    EXPECT_TRUE(MoveDraws(drag | MK_CONTROL | MK_SHIFT, 70, 0));
    EXPECT_EQ(Orientation(), before);
    ExpectScaled(plotter, bounds, 1 / 0.75, 1e-6);
}

TEST_P(Navigation, AFlatPlotIsPannedAndZoomedButNotTurned) {
    plotter.SwitchToXYProjectPlot();
    plotter.OnRButtonDown(drag, POINT{50, 60});
    const Matrix before = Orientation();
    EXPECT_FALSE(MoveDraws(drag, 90, 60));
    EXPECT_EQ(Orientation(), before);
    ExpectLast(90, 60);
    EXPECT_TRUE(MoveDraws(drag | MK_SHIFT, 95, 60));
    EXPECT_NE(plotter.m_rotationMatrix[12], before[12]);
    const Bounds bounds(plotter);
    EXPECT_TRUE(MoveDraws(drag | MK_CONTROL, 95, 120));
    ExpectScaled(plotter, bounds, 0.8, 1e-6);
}

TEST_P(Navigation, AfterAReleaseOutsideMovesOnlyUpdateThePosition) {
    plotter.OnRButtonDown(drag, POINT{50, 60});
    plotter.OnRButtonUp(0, POINT{900, 60});
    const Matrix before = Orientation();
    EXPECT_FALSE(MoveDraws(0, 70, 80));
    EXPECT_FALSE(MoveDraws(MK_SHIFT | MK_CONTROL, 75, 80));
    ExpectLast(75, 80);
    EXPECT_TRUE(plotter.m_mouseButtonDown);
    EXPECT_EQ(Orientation(), before);
}

TEST_P(Navigation, MovesWithoutADragDrawOnlyWhileTracingTheNormalPlot) {
    EXPECT_FALSE(MoveDraws(0, 30, 40));
    ExpectLast(30, 40);
    EXPECT_FALSE(MoveDraws(drag, 31, 40)) << "pressed outside";
    plotter.m_traceEnabled = true;
    EXPECT_TRUE(MoveDraws(0, 33, 44));
    ExpectLast(33, 44);
    plotter.SwitchToYZProjectPlot();
    EXPECT_FALSE(MoveDraws(0, 35, 44));
    ExpectLast(35, 44);
}

TEST_P(Navigation, TheWheelZoomsOneStepAMessageInsideTheViewport) {
    RECT rect = {};
    ASSERT_TRUE(GetWindowRect(plot.window.Handle(), &rect));
    const auto wheel = [&](short delta, int x, int y) {
        return Draws([&] { plotter.OnMouseWheel(0, delta, POINT{x, y}); });
    };
    const struct {
        short delta;
        double factor;
    } steps[] = {{120, 0.96}, {-120, 1.04}, {0, 0.96}, {-1, 1.04}, {32767, 0.96}, {-32768, 1.04}};
    for (const auto& step : steps) {
        const Bounds bounds(plotter);
        EXPECT_TRUE(wheel(step.delta, rect.left + 100, rect.bottom - 100));
        ExpectScaled(plotter, bounds, step.factor, 1e-6);
    }
    const Bounds bounds(plotter);
    EXPECT_TRUE(wheel(0, rect.left, rect.bottom));
    EXPECT_TRUE(wheel(0, rect.left + 336, rect.bottom - 240));
    ExpectScaled(plotter, bounds, 0.96 * 0.96, 1e-6);
    const Bounds kept(plotter);
    EXPECT_FALSE(wheel(0, rect.left - 1, rect.bottom));
    EXPECT_FALSE(wheel(0, rect.left + 337, rect.bottom));
    EXPECT_FALSE(wheel(0, rect.left, rect.bottom + 1));
    EXPECT_FALSE(wheel(0, rect.left, rect.bottom - 241));
    ExpectScaled(plotter, kept, 1, 0);
}

// ---- The operations themselves

TEST_P(Navigation, RotateTurnsBy160DegreesForTheViewportsWidth) {
    const POINT ways[][2] = {{{0, 10}, {336, 10}}, {{100, 200}, {100, 100}}, {{30, 30}, {97, 64}}};
    for (const auto& way : ways) {
        const Matrix before = Orientation();
        plotter.Rotate(way[0], way[1]);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        const double dx = way[1].x - way[0].x, dy = way[1].y - way[0].y, length = std::hypot(dx, dy);
        // About the screen axis across the way; one in the axis's length makes next to no difference.
        const Matrix expected = Rotation(length * 160.0 / 336.0, dy / length, dx / length, 0) * before;
        ExpectMatrixNear(Orientation(), expected, 4.0 / (length * length) + 1e-5);
        const CurrentContext context(plotter);
        ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
    }
}

TEST_P(Navigation, TranslateFollowsThePointerAt80Percent) {
    const double panX = plotter.m_rotationMatrix[12], panY = plotter.m_rotationMatrix[13];
    plotter.Translate(POINT{10, 20}, POINT{52, 90});
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    const double pixel = (plotter.m_viewRight - plotter.m_viewLeft) / 336;
    EXPECT_NEAR(plotter.m_rotationMatrix[12] - panX, 0.8 * 42 * pixel, 1e-5 * pixel);
    EXPECT_NEAR(plotter.m_rotationMatrix[13] - panY, -0.8 * 70 * pixel, 1e-5 * pixel);
    EXPECT_EQ(plotter.m_rotationMatrix[14], 0);
    const CurrentContext context(plotter);
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
}

TEST_P(Navigation, ZoomByAFactorMultipliesTheBounds) {
    for (const float factor : {0.96f, 1.04f, 3.0f, 0.1f}) {
        const Bounds bounds(plotter);
        plotter.Zoom(factor);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        ExpectScaled(plotter, bounds, double{factor}, 1e-6);
        const CurrentContext context(plotter);
        ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Projection(plotter), 1e-6);
    }
}

TEST_P(Navigation, ZoomByADragEnlargesDownwards) {
    plotter.OnSize(0, 400, 400);
    const Bounds bounds(plotter);
    plotter.Zoom(POINT{5, 50}, POINT{300, 150});
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    ExpectScaled(plotter, bounds, 1 / 1.25, 1e-6);
    {
        const CurrentContext context(plotter);
        ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Projection(plotter), 1e-6);
    }
    const Bounds smaller(plotter);
    plotter.Zoom(POINT{5, 150}, POINT{5, 50});
    ExpectScaled(plotter, smaller, 1 / 0.75, 1e-6);
    const Bounds kept(plotter);
    plotter.Zoom(POINT{5, 50}, POINT{100, 50});
    ExpectScaled(plotter, kept, 1, 0);
}

TEST_P(Navigation, ZoomUpByTheWholeHeightIsInfiniteAndByMoreFlips) {
    const Bounds bounds(plotter);
    plotter.Zoom(POINT{0, 480}, POINT{0, 0});
    ExpectScaled(plotter, bounds, -1, 1e-6);
    plotter.Zoom(POINT{0, 240}, POINT{0, 0});
    EXPECT_TRUE(std::isinf(plotter.m_viewRight));
    plotter.Renderscene();
}

TEST_P(Navigation, TheFarthestPointsDoNoHarm) {
    constexpr int least = std::numeric_limits<int>::min(), greatest = std::numeric_limits<int>::max();
    plotter.Rotate(POINT{least, least}, POINT{greatest, greatest});
    plotter.Translate(POINT{greatest, least}, POINT{least, greatest});
    plotter.Zoom(POINT{least, least}, POINT{greatest, greatest});
    plotter.OnMouseMove(drag, POINT{greatest, least});
    plotter.OnMouseWheel(0, 120, POINT{least, greatest});
    EXPECT_FALSE(plotter.IsScreenPointInViewport(POINT{least, least}));
    EXPECT_FALSE(plotter.IsScreenPointInViewport(POINT{greatest, greatest}));
}

// ---- Mapping

TEST_P(Navigation, ProjectMapsDataToTheWindow) {
    plotter.Rotate(POINT{0, 0}, POINT{70, 33});
    const CurrentContext context(plotter);
    const Matrix toClip = Projection(plotter) * Camera(plotter);
    const std::vector<CKivoFunctionPlotter::SPoint3f> points = {{0, 0, 0}, {-3, 2, 1.5f}, {4, -1, -7}};
    std::vector<CKivoFunctionPlotter::SPoint3f> projected(17);
    plotter.Project(points, projected);
    ASSERT_EQ(projected.size(), points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vector4 clip = toClip * Vector4{points[i].x, points[i].y, points[i].z, 1};
        EXPECT_NEAR(projected[i].x, 64 + 336 * (clip[0] + 1) / 2, 1e-3);
        EXPECT_NEAR(projected[i].y, 240 * (clip[1] + 1) / 2, 1e-3);
        EXPECT_NEAR(projected[i].z, (clip[2] + 1) / 2, 1e-5);
        float single[3] = {};
        plotter.Project(points[i].x, points[i].y, points[i].z, single);
        EXPECT_EQ(single[0], projected[i].x);
        EXPECT_EQ(single[1], projected[i].y);
        EXPECT_EQ(single[2], projected[i].z);
    }
}

TEST_P(Navigation, ProjectTakesTheLoadedMatrices) {
    const CurrentContext context(plotter);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    float out[3] = {};
    plotter.Project(0.5f, -0.5f, 0, out);
    EXPECT_NEAR(out[0], 64 + 336 * 0.75, 1e-3);
    EXPECT_NEAR(out[1], 60, 1e-3);
}

TEST_P(Navigation, UnProjectLoadsTheCameraAndGivesTheLineOfSight) {
    plotter.Rotate(POINT{0, 0}, POINT{70, 33});
    const CurrentContext context(plotter);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    float nearPt[3] = {}, farPt[3] = {};
    plotter.UnProject(POINT{150, 77}, nearPt, farPt);
    ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Projection(plotter), 1e-6);
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);

    const Matrix toData = Inverse(Projection(plotter) * Camera(plotter));
    const double x = (150 - 64) / 336.0 * 2 - 1, y = (240 - 77) / 240.0 * 2 - 1;
    const Vector4 expectedNear = toData * Vector4{x, y, -3, 1}; // depth -1, before the near plane
    const Vector4 expectedFar = toData * Vector4{x, y, 1, 1};
    const double depth = plotter.m_viewFar / plotter.m_axisScale[0];
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(nearPt[i], expectedNear[i], 1e-4 * depth) << i;
        EXPECT_NEAR(farPt[i], expectedFar[i], 1e-4 * depth) << i;
    }
}

TEST_P(Navigation, UnProjectAndProjectAgree) {
    const CurrentContext context(plotter);
    float nearPt[3] = {}, farPt[3] = {}, out[3] = {};
    plotter.UnProject(POINT{200, 50}, nearPt, farPt);
    plotter.Project((nearPt[0] + farPt[0]) / 2, (nearPt[1] + farPt[1]) / 2, (nearPt[2] + farPt[2]) / 2, out);
    EXPECT_NEAR(out[0], 200, 0.05);
    EXPECT_NEAR(out[1], 190, 0.05);
}

TEST_P(Navigation, WindowToViewportTurnsTheYAxis) {
    plotter.m_plotViewport[1] = 30;
    double x = 0, y = 0;
    plotter.WindowToViewport(POINT{17, 40}, &x, &y);
    EXPECT_EQ(x, 17);
    EXPECT_EQ(y, 240 - 40 - 30);
}

TEST_P(Navigation, PixelLengthsInWorldAndAxisUnits) {
    plotter.m_viewLeft = -21, plotter.m_viewRight = 63;
    plotter.m_axisScale[0] = 2, plotter.m_axisScale[1] = 0.5, plotter.m_axisScale[2] = 4;
    EXPECT_FLOAT_EQ(plotter.PixelToWorld(8), 2.0f);
    EXPECT_FLOAT_EQ(plotter.PixelToWorld(2.5f), 0.625f);
    EXPECT_DOUBLE_EQ(plotter.PixelToWorld(-3.0), -0.75);
    EXPECT_FLOAT_EQ(plotter.PixelToUnscaledWorldX(8), 1.0f);
    EXPECT_FLOAT_EQ(plotter.PixelToUnscaledWorldY(8), 4.0f);
    EXPECT_FLOAT_EQ(plotter.PixelToUnscaledWorldZ(8), 0.5f);
}

// ---- Point tests

TEST_P(Navigation, PointsInTheWindowIncludeAllItsEdges) {
    RECT screen = {}, client = {};
    ASSERT_TRUE(GetWindowRect(plot.window.Handle(), &screen));
    ASSERT_TRUE(GetClientRect(plot.window.Handle(), &client));
    const auto inWindow = [&](int x, int y) { return plotter.IsScreenPointInWindow(POINT{x, y}); };
    const auto inClient = [&](int x, int y) { return plotter.IsClientPointInWindow(POINT{x, y}); };
    EXPECT_TRUE(inWindow(screen.left, screen.top));
    EXPECT_TRUE(inWindow(screen.right, screen.bottom));
    EXPECT_FALSE(inWindow(screen.left - 1, screen.top));
    EXPECT_FALSE(inWindow(screen.right + 1, screen.top));
    EXPECT_FALSE(inWindow(screen.left, screen.top - 1));
    EXPECT_FALSE(inWindow(screen.left, screen.bottom + 1));
    EXPECT_TRUE(inClient(0, 0));
    EXPECT_TRUE(inClient(400, 240));
    EXPECT_FALSE(inClient(-1, 0));
    EXPECT_FALSE(inClient(401, 0));
    EXPECT_FALSE(inClient(0, -1));
    EXPECT_FALSE(inClient(0, 241));
}

// Measured from the window's left edge: the viewport's own offset does not count.
TEST_P(Navigation, PointsInTheViewportIncludeAllItsEdges) {
    RECT screen = {};
    ASSERT_TRUE(GetWindowRect(plot.window.Handle(), &screen));
    plotter.m_plotViewport[3] = 100;
    const auto onScreen = [&](int x, int y) {
        return plotter.IsScreenPointInViewport(POINT{screen.left + x, screen.bottom - y});
    };
    const auto inClient = [&](int x, int y) { return plotter.IsClientPointInViewport(POINT{x, y}); };
    const struct {
        int x, y;
        bool isInside;
    } cases[] = {{0, 0, true},   {336, 100, true},  {150, 50, true},  {-1, 0, false},
                 {0, -1, false}, {337, 100, false}, {336, 101, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(onScreen(c.x, c.y), c.isInside) << c.x << ' ' << c.y;
        EXPECT_EQ(inClient(c.x, c.y), c.isInside) << c.x << ' ' << c.y;
    }
}

// ---- Pans at the end of single precision

namespace {

constexpr double largest = std::numeric_limits<float>::max();

bool IsInSinglePrecision(const PlotterProbe& p) {
    for (const double element : p.m_rotationMatrix)
        if (!(std::fabs(element) <= largest)) return false;
    return true;
}

} // namespace

TEST_P(Navigation, LongDragsOverLargeDataNeverLoseThePan) {
    for (float& coordinate : surface.points)
        coordinate *= 1e37f;
    plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
    bool hasStayed = false;
    for (int i = 0; i < 30; ++i) {
        const Matrix before = Orientation();
        plotter.Translate(POINT{-1000, 0}, POINT{1500, 700 * (i % 3 - 1)});
        hasStayed = hasStayed || Orientation() == before;
        plotter.Rotate(POINT{0, 0}, POINT{15 * i, 40});
        plotter.SwitchToNormalPlot();
        EXPECT_TRUE(IsInSinglePrecision(plotter)) << i;
    }
    EXPECT_TRUE(hasStayed) << "no drag was too long";
    plotter.OnDestroy();
}

TEST_P(Navigation, APanBeyondSinglePrecisionIsNotMade) {
    plotter.m_viewLeft = -1e36;
    plotter.m_viewRight = 1e36;
    plotter.m_rotationMatrix[12] = 0.999 * largest;
    const Matrix before = Orientation();
    plotter.Translate(POINT{0, 0}, POINT{336, 0}); // 1.6e36 to the right
    EXPECT_EQ(Orientation(), before);
    plotter.Translate(POINT{0, 0}, POINT{0, 336});
    EXPECT_NEAR(plotter.m_rotationMatrix[13] / -1.6e36, 1.0, 1e-6);
}

// The pan turns with the plot: its diagonal may not fit an axis.
TEST_P(Navigation, ATurnThatTakesThePanBeyondSinglePrecisionIsNotMade) {
    plotter.m_rotationMatrix[12] = plotter.m_rotationMatrix[13] = 0.9 * largest;
    const Matrix before = Orientation();
    plotter.Rotate(POINT{100, 0}, POINT{0, 100}); // about the diagonal across, by 67 degrees
    plotter.Rotate(POINT{0, 100}, POINT{100, 0});
    EXPECT_EQ(Orientation(), before);
    plotter.Rotate(POINT{0, 0}, POINT{100, 100});
    EXPECT_NE(Orientation(), before);
}

TEST_P(Navigation, AStartViewThatCannotTiltThePanKeepsIt) {
    plotter.SwitchToNormalPlot();
    const Matrix expected = Orientation();
    for (const double depth : {-largest, largest}) {
        plotter.m_rotationMatrix[12] = 5.0;
        plotter.m_rotationMatrix[13] = largest;
        plotter.m_rotationMatrix[14] = depth;
        plotter.SwitchToNormalPlot();
        EXPECT_TRUE(IsInSinglePrecision(plotter)) << depth;
        EXPECT_EQ(plotter.m_rotationMatrix[12], 5.0);
        plotter.m_rotationMatrix[12] = plotter.m_rotationMatrix[13] = plotter.m_rotationMatrix[14] = 0.0;
        EXPECT_EQ(Orientation(), expected) << depth;
    }
}

KIVO_IN_EVERY_WINDOW(Navigation);
