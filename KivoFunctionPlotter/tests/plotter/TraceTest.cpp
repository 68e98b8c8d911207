// The traced point: what is found under the pointer, and how it is shown.
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Place = std::array<double, 3>;

constexpr double farAway = std::numeric_limits<double>::infinity();

class TraceProbe : public PlotterProbe {
public:
    using CKivoFunctionPlotter::IsIntersectWithBoundingBox;
    using CKivoFunctionPlotter::RenderTraceLegend;
    using CKivoFunctionPlotter::RenderTracePoints;
    using CKivoFunctionPlotter::SelectTriangle;

    void SetTracePoint(float x, float y, float z) {
        m_tracePoint[0] = x;
        m_tracePoint[1] = y;
        m_tracePoint[2] = z;
        m_hasTracePoint = 1;
    }
    std::vector<float> StoredPoint() const { return {m_tracePoint, m_tracePoint + 3}; }
};

/// The camera of a plotter, in double precision: a point of the data in pixels of the client area, y
/// downwards, and its depth towards the viewer.
class Camera {
public:
    explicit Camera(const TraceProbe& p)
        : m_modelView(Translation((p.m_viewRight - p.m_viewLeft) * p.m_panFractionX,
                                  (p.m_viewTop - p.m_viewBottom) * p.m_panFractionY, 0.0) *
                      FromArray(p.m_rotationMatrix) *
                      Scaling(p.m_axisScale[0], p.m_axisScale[1], p.m_axisScale[2]) *
                      Translation(p.m_volumeTranslate[0], p.m_volumeTranslate[1], p.m_volumeTranslate[2])),
          m_left(p.m_viewLeft), m_bottom(p.m_viewBottom),
          m_pixelsX(p.m_plotViewport[2] / (p.m_viewRight - p.m_viewLeft)),
          m_pixelsY(p.m_plotViewport[3] / (p.m_viewTop - p.m_viewBottom)), m_offsetX(p.m_plotViewport[0]),
          m_baseY(p.m_clientHeight - p.m_plotViewport[1]) {}

    Place Project(double x, double y, double z) const {
        const Vector4 eye = m_modelView * Vector4{x, y, z, 1.0};
        return {m_offsetX + (eye[0] - m_left) * m_pixelsX, m_baseY - (eye[1] - m_bottom) * m_pixelsY, eye[2]};
    }
    Place Unproject(const Place& place) const {
        const Vector4 eye = {m_left + (place[0] - m_offsetX) / m_pixelsX,
                             m_bottom + (m_baseY - place[1]) / m_pixelsY, place[2], 1.0};
        const Vector4 data = Inverse(m_modelView) * eye;
        return {data[0], data[1], data[2]};
    }

private:
    Matrix m_modelView;
    double m_left, m_bottom, m_pixelsX, m_pixelsY, m_offsetX, m_baseY;
};

/// The triangles of a surface on the screen, for looking up what lies nearest under a pixel.
class ScreenTriangles {
public:
    ScreenTriangles(const TestSurface& surface, const Camera& camera) {
        const auto at = [&](unsigned int c, unsigned int r) {
            const float* p = surface.Point(c, r);
            return camera.Project(p[0], p[1], p[2]);
        };
        for (unsigned int r = 1; r < surface.rows; ++r)
            for (unsigned int c = 1; c < surface.columns; ++c) {
                m_triangles.push_back({at(c - 1, r - 1), at(c, r - 1), at(c, r)});
                m_triangles.push_back({at(c - 1, r - 1), at(c, r), at(c - 1, r)});
            }
    }

    /// Depth of the nearest triangle in which the pixel's weights are all at least `least`; minus infinity
    /// where there is none. `sheets`: how many there are.
    double NearestDepth(double x, double y, double least, int* sheets = nullptr) const {
        double nearest = -farAway;
        for (const auto& t : m_triangles) {
            const double area = Side(t[0], t[1], t[2][0], t[2][1]);
            const double u = Side(t[1], t[2], x, y) / area, v = Side(t[2], t[0], x, y) / area;
            const double w = 1.0 - u - v;
            if (!(u >= least && v >= least && w >= least)) continue;
            nearest = std::max(nearest, u * t[0][2] + v * t[1][2] + w * t[2][2]);
            if (sheets) ++*sheets;
        }
        return nearest;
    }

private:
    static double Side(const Place& a, const Place& b, double x, double y) {
        return (b[0] - a[0]) * (y - a[1]) - (b[1] - a[1]) * (x - a[0]);
    }

    std::vector<std::array<Place, 3>> m_triangles;
};

constexpr int width = 500, height = 360;

class Trace : public WindowTest {
protected:
    Trace() {
        if (plotter.OnCreate(window.Handle(), width, height, true) != 0)
            throw std::runtime_error(LastWindowError());
        Show(HillSurface(20, 15));
    }

    void Show(const TestSurface& data) {
        surface = data;
        plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
    }
    void ShowFromAbove(const TestSurface& data) {
        Show(data);
        const CurrentContext context(plotter);
        plotter.ApplyTopView();
    }
    POINT PixelOf(double x, double y, double z) const {
        const Place place = Camera(plotter).Project(x, y, z);
        return {static_cast<int>(std::lround(place[0])), static_cast<int>(std::lround(place[1]))};
    }
    /// The pixel of a point of the surface's grid.
    POINT PixelOf(unsigned int column, unsigned int row) const {
        const float* p = surface.Point(column, row);
        return PixelOf(p[0], p[1], p[2]);
    }
    /// The middle of the hill, with the surface seen from above.
    POINT Middle() const { return PixelOf(1.0, 0.5, 0.0); }

    TestWindow window{GetParam(), width, height};
    TestSurface surface;
    TraceProbe plotter;
};

/// Compares the traced point with a search of all triangles in double precision, under random pointers in
/// random views.
class TraceAgainstSearch : public Trace {
protected:
    void TurnAndZoomAtRandom() {
        const CurrentContext context(plotter);
        plotter.ApplyNormalPlotView();
        const auto axis = [this] { return static_cast<float>(10.0 * share(random) - 5.0); };
        for (int i = 0; i < 3; ++i) {
            const auto angle = static_cast<float>(360.0 * share(random));
            const float x = axis(), y = axis(), z = axis();
            plotter.IncreaseRotation(angle, x, y, z);
        }
    }

    void TraceAtRandom(int views) {
        for (int view = 0; view < views; ++view) {
            TurnAndZoomAtRandom();
            plotter.Zoom(static_cast<float>(0.2 + share(random)));
            const Camera camera(plotter);
            const ScreenTriangles triangles(surface, camera);
            for (int i = 0; i < 50; ++i) {
                const POINT pt = {static_cast<int>(width * share(random)),
                                  static_cast<int>(height * share(random))};
                TraceOne(camera, triangles, pt);
                if (HasFailure()) return;
            }
        }
    }

    void TraceOne(const Camera& camera, const ScreenTriangles& triangles, POINT pt) {
        ++rays;
        int sheets = 0;
        const double nearest = triangles.NearestDepth(pt.x, pt.y, 1e-3, &sheets);
        const double generous = triangles.NearestDepth(pt.x, pt.y, -1e-3);
        const bool isClear = nearest == generous || std::fabs(nearest - generous) < 1e-3 * Depth();
        if (!isClear) {
            ++unclear;
            return;
        }
        const int result = plotter.Trace(pt);
        float point[3] = {};
        EXPECT_EQ(plotter.GetTracePoint(point), result == 0);
        if (nearest == -farAway) {
            ++missed;
            EXPECT_EQ(result, 1) << "at " << pt.x << ", " << pt.y;
            return;
        }
        ++found;
        folded += sheets > 1 ? 1 : 0;
        if (result != 0) {
            ++lost;
            return;
        }
        const Place onScreen = camera.Project(point[0], point[1], point[2]);
        EXPECT_LT(std::hypot(onScreen[0] - pt.x, onScreen[1] - pt.y), 1.0);
        const Place expected = camera.Unproject(
            {static_cast<double>(pt.x), static_cast<double>(pt.y), generous > nearest ? generous : nearest});
        for (int k = 0; k < 3; ++k) {
            const double range = double{surface.Max(k)} - double{surface.Min(k)};
            const double error = std::fabs(point[k] - expected[static_cast<std::size_t>(k)]) / range;
            largestError = std::max(largestError, error);
            if (error > 1e-5) ++loose;
        }
    }

    double Depth() const { return plotter.m_viewRight - plotter.m_viewLeft; }

    void ExpectFair(bool hasCracks = false) const {
        EXPECT_GT(found, rays / 5);
        EXPECT_GT(folded, rays / 20);
        EXPECT_GT(missed, rays / 20);
        EXPECT_LT(unclear, rays / 50);
        // On axes of very different units single precision leaves cracks between triangles.
        EXPECT_LE(lost, hasCracks ? found / 100 : 0);
        // Where a line of sight grazes a triangle, single precision leaves a little more.
        EXPECT_LT(largestError, 1e-3);
        EXPECT_LT(loose, found / 10);
    }

    std::mt19937 random{2024};
    std::uniform_real_distribution<double> share{0.0, 1.0};
    int rays = 0, found = 0, folded = 0, missed = 0, unclear = 0, loose = 0, lost = 0;
    double largestError = 0.0;
};

} // namespace

TEST_P(TraceAgainstSearch, OnAFoldedPlot) {
    Show(HillSurface(30, 20));
    TraceAtRandom(50);
    ExpectFair();
}

TEST_P(TraceAgainstSearch, OnASteepPlot) {
    Show(NoiseSurface(25, 16));
    TraceAtRandom(50);
    ExpectFair();
}

TEST_P(TraceAgainstSearch, OnAxesOfVeryDifferentUnits) {
    TestSurface data = HillSurface(24, 18);
    for (std::size_t i = 0; i < data.points.size(); i += 3) {
        data.points[i] *= 1000.0f;
        data.points[i + 1] *= 0.01f;
        data.points[i + 2] *= 20.0f;
    }
    Show(data);
    TraceAtRandom(50);
    ExpectFair(true);
}

TEST_P(TraceAgainstSearch, OnInvertedAxes) {
    Show(HillSurface(30, 20));
    plotter.SetInverseXAxis(true);
    plotter.SetInverseZAxis(true);
    TraceAtRandom(25);
    plotter.SetInverseXAxis(false);
    plotter.SetInverseYAxis(true);
    TraceAtRandom(25);
    ExpectFair();
}

// ---- Trace mode

TEST_P(Trace, ModeGoesOnAndOffAndForgetsThePoint) {
    float point[3] = {7, 8, 9};
    EXPECT_FALSE(plotter.IsTracing());
    EXPECT_FALSE(plotter.GetTracePoint(point));
    EXPECT_EQ(plotter.Trace(true), 0);
    EXPECT_TRUE(plotter.IsTracing());
    EXPECT_FALSE(plotter.GetTracePoint(point));
    EXPECT_EQ(point[0], 7.0f) << "without a point nothing is written";
    plotter.SetTracePoint(1, 2, 3);
    EXPECT_EQ(plotter.Trace(true), 0);
    EXPECT_TRUE(plotter.GetTracePoint(point)) << "going on again keeps the point";
    EXPECT_EQ(std::vector<float>(point, point + 3), (std::vector<float>{1, 2, 3}));
    EXPECT_EQ(plotter.Trace(false), 0);
    EXPECT_FALSE(plotter.IsTracing());
    EXPECT_FALSE(plotter.GetTracePoint(point));
}

TEST_P(Trace, MovesTraceIn3DWhileTheModeIsOn) {
    ShowFromAbove(HillSurface(20, 15));
    float point[3] = {};
    plotter.OnMouseMove(0, Middle());
    EXPECT_FALSE(plotter.GetTracePoint(point));
    plotter.Trace(true);
    plotter.OnMouseMove(0, Middle());
    ASSERT_TRUE(plotter.GetTracePoint(point));
    EXPECT_NEAR(point[0], 1.0, 0.1);
    EXPECT_NEAR(point[1], 0.5, 0.1);
    plotter.OnMouseMove(0, POINT{3, 3});
    EXPECT_FALSE(plotter.GetTracePoint(point)) << "off the surface";
}

TEST_P(Trace, MovesDoNotTraceInFlatPlotsOrDuringADrag) {
    ShowFromAbove(HillSurface(20, 15));
    plotter.Trace(true);
    float point[3] = {};
    const POINT middle = Middle();
    plotter.OnRButtonDown(MK_RBUTTON, middle);
    plotter.OnMouseMove(MK_RBUTTON, middle);
    EXPECT_FALSE(plotter.GetTracePoint(point));
    plotter.OnRButtonUp(0, middle);
    plotter.SwitchToXYProjectPlot();
    plotter.OnMouseMove(0, POINT{250, 180});
    EXPECT_FALSE(plotter.GetTracePoint(point));
}

// ---- What is found

TEST_P(Trace, FindsTheGridPointUnderThePointer) {
    ShowFromAbove(PlaneSurface(9, 6));
    const Camera camera(plotter);
    for (const auto& cell : {std::array<unsigned int, 2>{4, 3}, {1, 1}, {7, 4}}) {
        const POINT pt = PixelOf(cell[0], cell[1]);
        ASSERT_EQ(plotter.Trace(pt), 0);
        float point[3] = {};
        ASSERT_TRUE(plotter.GetTracePoint(point));
        const Place place = camera.Project(point[0], point[1], point[2]);
        EXPECT_NEAR(place[0], pt.x, 0.01);
        EXPECT_NEAR(place[1], pt.y, 0.01);
        EXPECT_NEAR(point[2], 0.5 * point[0] + point[1] + 1.0, 1e-4);
    }
}

TEST_P(Trace, BesideTheDataNothingIsFoundAndThePointForgotten) {
    ShowFromAbove(HillSurface(20, 15));
    ASSERT_EQ(plotter.Trace(Middle()), 0);
    EXPECT_EQ(plotter.Trace(POINT{1, 1}), 1);
    float point[3] = {};
    EXPECT_FALSE(plotter.GetTracePoint(point));
}

TEST_P(Trace, InTheEmptyPartOfTheDataBoxNothingIsFound) {
    Show(SaddleSurface(21, 17));
    {
        const CurrentContext context(plotter);
        plotter.ApplyLeftView();
    }
    // Along x the ends are highest: high above the middle the box is empty.
    const float x = 0.5f * (surface.Min(0) + surface.Max(0)), z = surface.Max(2);
    const POINT pt = PixelOf(0.25 * x, 0.0, 0.9 * z);
    ASSERT_EQ(plotter.Trace(PixelOf(0.0, 0.0, 0.0)), 0);
    float nearPt[3] = {}, farPt[3] = {};
    {
        const CurrentContext context(plotter);
        plotter.UnProject(pt, nearPt, farPt);
    }
    EXPECT_TRUE(plotter.IsIntersectWithBoundingBox(nearPt, farPt));
    EXPECT_EQ(plotter.Trace(pt), 1);
    EXPECT_EQ(plotter.m_hasTracePoint, 0);
}

TEST_P(Trace, WithoutDataNothingIsFound) {
    TestPlot empty(GetParam(), width, height);
    EXPECT_EQ(empty.plotter.Trace(POINT{250, 180}), 1);
    EXPECT_EQ(empty.plotter.m_hasTracePoint, 0);
}

TEST_P(Trace, GridsWithoutCellsHaveNothingToFind) {
    for (const auto& size : {std::array<unsigned int, 2>{1, 6}, {6, 1}, {1, 1}}) {
        ShowFromAbove(PlaneSurface(size[0], size[1]));
        for (int x = 80; x < width; x += 60)
            EXPECT_EQ(plotter.Trace(POINT{x, height / 2}), 1);
        EXPECT_EQ(plotter.m_hasTracePoint, 0);
    }
}

TEST_P(Trace, FollowsTheStridesOfTheData) {
    const TestSurface packed = HillSurface(12, 9);
    std::vector<float> wide;
    for (std::size_t i = 0; i < packed.points.size(); i += 3)
        for (const float value : {packed.points[i], packed.points[i + 1], packed.points[i + 2], 1.0f, 99.0f})
            wide.push_back(value);
    plotter.SetDataReference(wide.data(), 12, 9, 1, 12, 5);
    const POINT pt = PixelOf(1.0, 0.5, 0.5);
    ASSERT_EQ(plotter.Trace(pt), 0);
    const std::vector<float> fromWide = plotter.StoredPoint();
    Show(packed);
    ASSERT_EQ(plotter.Trace(pt), 0);
    EXPECT_EQ(plotter.StoredPoint(), fromWide);
}

// All triangles lie beyond the far point then: found, yet none is taken.
TEST_P(Trace, WithHitsBeyondTheFarPlaneAloneThePointStays) {
    ShowFromAbove(HillSurface(20, 15));
    const double depth = plotter.m_viewFar;
    plotter.m_viewNear = -4.0 * depth;
    plotter.m_viewFar = -2.0 * depth;
    plotter.SetTracePoint(7, 8, 9);
    EXPECT_EQ(plotter.Trace(Middle()), 0);
    EXPECT_EQ(plotter.m_hasTracePoint, 1);
    EXPECT_EQ(plotter.StoredPoint(), (std::vector<float>{7, 8, 9}));
    plotter.m_hasTracePoint = 0;
    EXPECT_EQ(plotter.Trace(Middle()), 0);
    EXPECT_EQ(plotter.m_hasTracePoint, 1);
}

// The line of sight begins behind the surface then, and distances to it are negative.
TEST_P(Trace, ASurfaceBeforeTheNearPointIsFound) {
    Show(NoiseSurface(25, 16));
    const POINT pt = PixelOf(1.0, 0.5, 0.5);
    ASSERT_EQ(plotter.Trace(pt), 0);
    const std::vector<float> expected = plotter.StoredPoint();
    const double depth = plotter.m_viewFar;
    plotter.m_viewNear = 0.6 * depth;
    plotter.m_viewFar = depth;
    ASSERT_EQ(plotter.Trace(pt), 0);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(plotter.StoredPoint()[i], expected[i], 1e-3);
}

TEST_P(Trace, TheNewTraceFindsNothingAndForgetsThePoint) {
    ShowFromAbove(HillSurface(20, 15));
    ASSERT_EQ(plotter.Trace(Middle()), 0);
    EXPECT_EQ(plotter.Trace_New(Middle()), 1);
    EXPECT_EQ(plotter.m_hasTracePoint, 0);
    EXPECT_EQ(plotter.Trace_New(POINT{1, 1}), 1);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(Trace, SelectTriangleDoesNothing) {
    float a[3] = {1, 2, 3}, b[3] = {4, 5, 6}, c[3] = {7, 8, 9};
    plotter.SetTracePoint(1, 2, 3);
    EXPECT_FALSE(plotter.SelectTriangle(Middle(), a, b, c));
    EXPECT_EQ(a[0] + b[0] + c[0], 12.0f);
    EXPECT_EQ(plotter.m_hasTracePoint, 1);
}

TEST_P(Trace, TheBoxTestIsOnTheInfiniteLineAndForgetsThePoint) {
    const float* low = plotter.m_boundingBoxMin;
    const float* high = plotter.m_boundingBoxMax;
    const float x = 0.5f * (low[0] + high[0]), y = 0.5f * (low[1] + high[1]);
    const float above[] = {x, y, high[2] + 1.0f}, higher[] = {x, y, high[2] + 2.0f};
    const float beside[] = {high[0] + 1.0f, y, high[2]}, below[] = {high[0] + 1.0f, y, low[2]};
    plotter.SetTracePoint(1, 2, 3);
    EXPECT_TRUE(plotter.IsIntersectWithBoundingBox(above, higher)) << "the box lies before the near point";
    EXPECT_EQ(plotter.m_hasTracePoint, 0);
    plotter.SetTracePoint(1, 2, 3);
    EXPECT_TRUE(plotter.IsIntersectWithBoundingBox(higher, above)) << "the box lies beyond the far point";
    EXPECT_FALSE(plotter.IsIntersectWithBoundingBox(beside, below));
    EXPECT_EQ(plotter.m_hasTracePoint, 0);
}

// ---- How it is shown

namespace {

bool IsMarker(const unsigned char* rgb) {
    return rgb[0] > 150 && rgb[2] > 150 && rgb[1] < 60;
}

constexpr int layerHeight = 300;

/// One layer alone on white, unlit and without depth test, in a plot viewport of 400 x 300 pixels in the
/// lower right corner of the window.
class TraceLayers : public Trace {
protected:
    TraceLayers() {
        plotter.OnSize(0, width, layerHeight);
        const int viewport[] = {100, 0, 400, layerHeight};
        std::copy_n(viewport, 4, plotter.m_plotViewport);
        const CurrentContext context(plotter);
        plotter.UpdateBoundingBoxToViewVolume();
    }

    template <typename Layer>
    Image Draw(Layer layer) {
        const CurrentContext context(plotter);
        plotter.ApplyViewVolume();
        plotter.ApplyModelViewMatrix();
        const Matrix modelView = LoadedMatrix(GL_MODELVIEW_MATRIX);
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        glGetError(); // making the fonts leaves one on some systems
        layer();
        EXPECT_EQ(LoadedMatrix(GL_MODELVIEW_MATRIX), modelView);
        EXPECT_FALSE(glIsEnabled(GL_LIGHTING) || glIsEnabled(GL_DEPTH_TEST));
        EXPECT_FALSE(glIsEnabled(GL_BLEND) || glIsEnabled(GL_TEXTURE_2D));
        EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
        glEnable(GL_LIGHTING);
        glEnable(GL_DEPTH_TEST);
        return ReadBuffer(GL_BACK, width, layerHeight);
    }

    Image DrawMarker() {
        return Draw([this] { plotter.RenderTracePoints(); });
    }
    Image DrawLabel() {
        return Draw([this] { plotter.RenderTraceLegend(); });
    }
    Image DrawGuides() {
        return Draw([this] { plotter.RenderTraceGuideLines(); });
    }

    /// Looks along -z, so that a marker's outline is a regular octagon.
    void LookStraight() { std::copy_n(Identity().data(), 16, plotter.m_rotationMatrix); }
    static void ExpectOctagon(const Image& picture, double radius) {
        EXPECT_NEAR(CountInk(picture), 2.0 * std::sqrt(2.0) * radius * radius, 2.5 * radius);
    }

    void ExpectLabel(const Image& picture, const char* text);
    void ExpectGuides(const Image& picture);
};

/// The same text made into an image apart stands at a hundredth of the width from left and bottom.
void TraceLayers::ExpectLabel(const Image& picture, const char* text) {
    SKivoTexImage label;
    const CurrentContext context(plotter);
    ASSERT_EQ(CreateTextImage(plotter.m_textRenderer, text, &label), 0);
    int ink = 0, wrong = 0;
    for (int y = 0; y < layerHeight; ++y)
        for (int x = 0; x < width; ++x) {
            const int column = x - 100 - 4, row = layerHeight - 1 - y - 4;
            const bool isLabel = column >= 0 && column < label.width && row >= 0 && row < label.height;
            const bool isInk = isLabel && label.pixels[(row * label.width + column) * 4 + 3] == 255;
            ink += isInk ? 1 : 0;
            wrong += std::abs(picture.Pixel(x, y)[0] - (isInk ? 0 : 255)) > 8 ? 1 : 0;
        }
    ReleaseTextImage(&label);
    EXPECT_GT(ink, 100);
    EXPECT_LE(wrong, ink / 50) << text;
}

/// A cross through the point on each of the three back walls, and nothing else.
void TraceLayers::ExpectGuides(const Image& picture) {
    const CKivoGridBox& box = *plotter.m_gridBox;
    const float *low = box.m_boxMin, *high = box.m_boxMax;
    const Camera camera(plotter);
    const std::array<int, 3> flagOfAxis = {2, 0, 1}; // of the walls x, y and z
    Image rest = picture;
    for (int wall = 0; wall < 3; ++wall)
        for (int along = 0; along < 3; ++along) {
            if (along == wall) continue;
            Place p = {plotter.m_tracePoint[0], plotter.m_tracePoint[1], plotter.m_tracePoint[2]};
            const bool isLow = box.m_backPlane[flagOfAxis[static_cast<std::size_t>(wall)]];
            p[static_cast<std::size_t>(wall)] = isLow ? low[wall] : high[wall];
            for (int step = 0; step <= 2000; ++step) {
                const double share = step / 2000.0;
                p[static_cast<std::size_t>(along)] = low[along] + share * (high[along] - low[along]);
                const Place pixel = camera.Project(p[0], p[1], p[2]);
                const int x = static_cast<int>(std::floor(pixel[0]));
                const int y = static_cast<int>(std::floor(pixel[1]));
                bool isDrawn = false;
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -1; dx <= 1; ++dx) {
                        isDrawn = isDrawn || picture.IsNear(x + dx, y + dy, {76, 76, 76}, 2);
                        std::fill_n(rest.Pixel(x + dx, y + dy), 3, static_cast<unsigned char>(255));
                    }
                ASSERT_TRUE(isDrawn || step < 10 || step > 1990) << "wall " << wall << " along " << along;
            }
        }
    EXPECT_EQ(CountInk(rest), 0) << "lines where none should be";
}

} // namespace

TEST_P(TraceLayers, WithoutAPointThereIsNeitherMarkerNorLabel) {
    EXPECT_EQ(CountInk(DrawMarker()), 0);
    EXPECT_EQ(CountInk(DrawLabel()), 0);
}

TEST_P(TraceLayers, TheMarkerIsMagentaAndStandsAtThePoint) {
    plotter.SetTracePoint(1.5f, -0.5f, 0.75f);
    plotter.SetPointRadiusPixelSize(12);
    LookStraight();
    const Image picture = DrawMarker();
    const POINT pt = PixelOf(1.5, -0.5, 0.75);
    EXPECT_TRUE(picture.IsNear(pt.x, pt.y, {255, 13, 255}));
    ExpectOctagon(picture, 12.0);
}

TEST_P(TraceLayers, TheMarkersRadiusIsThePointRadiusAtEveryZoomAndAxisScale) {
    LookStraight();
    plotter.SetTracePoint(1.0f, 0.5f, 0.0f);
    for (const float zoom : {1.0f, 0.5f, 3.0f})
        for (const double stretch : {1.0, 0.25, 1.5})
            for (const unsigned int size : {10u, 40u}) {
                plotter.Zoom(zoom);
                plotter.m_axisScale[0] *= stretch;
                plotter.SetPointRadiusPixelSize(size);
                ExpectOctagon(DrawMarker(), size);
                plotter.m_axisScale[0] /= stretch;
                plotter.Zoom(1.0f / zoom);
            }
}

TEST_P(TraceLayers, ARadiusOf0HidesTheMarker) {
    plotter.SetTracePoint(1.0f, 0.5f, 0.0f);
    plotter.SetPointRadiusPixelSize(0);
    EXPECT_EQ(plotter.GetPointRadiusPixelSize(), 0u);
    EXPECT_EQ(CountInk(DrawMarker()), 0);
}

// 4 pixels of 800 in a view 2 units wide are 0.01 units.
TEST_P(TraceLayers, TheMarkersRadiusInUnitsFollowsFromTheView) {
    plotter.SetTracePoint(0, 0, 0);
    plotter.m_viewLeft = -1.0;
    plotter.m_viewRight = 1.0;
    plotter.m_plotViewport[2] = 800;
    plotter.m_axisScale[0] = plotter.m_axisScale[1] = plotter.m_axisScale[2] = 1.0;
    const CurrentContext context(plotter);
    glViewport(0, 0, 200, 200);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(-0.02, 0.02, -0.02, 0.02, -0.02, 0.02);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    std::vector<GLfloat> buffer(4096);
    glFeedbackBuffer(static_cast<GLsizei>(buffer.size()), GL_2D, buffer.data());
    glRenderMode(GL_FEEDBACK);
    plotter.RenderTracePoints();
    const GLint count = glRenderMode(GL_RENDER);
    ASSERT_EQ(count, 32 * 8);
    float right = 0.0f;
    for (GLint i = 0; i < count; i += 8)
        for (GLint corner = 0; corner < 3; ++corner)
            right = std::max(right, buffer[static_cast<std::size_t>(i + 2 + 2 * corner)]);
    EXPECT_NEAR((right / 200.0 * 2.0 - 1.0) * 0.02, 0.01, 1e-5);
}

TEST_P(TraceLayers, TheLabelShowsThreeDecimalsInTheLowerLeftCorner) {
    plotter.SetTracePoint(1, 2, 3);
    ExpectLabel(DrawLabel(), "(1.000, 2.000, 3.000)");
    plotter.SetTracePoint(1.5f, -0.25f, 12.0f);
    ExpectLabel(DrawLabel(), "(1.500, -0.250, 12.000)");
    plotter.SetTracePoint(0.00049f, 123456.0f, -1e-9f);
    ExpectLabel(DrawLabel(), "(0.000, 123456.000, -0.000)");
}

// Both margins and both sides are measured by the view's width, even where its pixels are not square.
TEST_P(TraceLayers, TheLabelIsMeasuredByTheViewsWidth) {
    plotter.SetTracePoint(1, 2, 3);
    plotter.m_viewBottom *= 2.0;
    plotter.m_viewTop *= 2.0;
    SKivoTexImage label;
    const CurrentContext context(plotter);
    ASSERT_EQ(CreateTextImage(plotter.m_textRenderer, "(1.000, 2.000, 3.000)", &label), 0);
    plotter.ApplyViewVolume();
    const std::vector<DrawnQuad> quads = TexturedQuads(Record([this] { plotter.RenderTraceLegend(); }));
    ASSERT_EQ(quads.size(), 1u);
    const double unit = 400.0 / (plotter.m_viewRight - plotter.m_viewLeft);
    const double rise = layerHeight / (plotter.m_viewTop - plotter.m_viewBottom) / unit;
    EXPECT_NEAR(quads[0].corners[0].x, 100 + 4, 0.01);
    EXPECT_NEAR(quads[0].corners[0].y, 4 * rise, 0.01);
    EXPECT_NEAR(quads[0].corners[2].x, 100 + 4 + label.width, 0.01);
    EXPECT_NEAR(quads[0].corners[2].y, (4 + label.height) * rise, 0.01);
    for (const DrawnVertex& corner : quads[0].corners)
        EXPECT_NEAR(corner.depth, 0.5, 1e-6);
    EXPECT_EQ(quads[0].corners[2].texture, (std::array<float, 2>{label.sMax, label.tMax}));
    ReleaseTextImage(&label);
}

TEST_P(TraceLayers, TheLabelStandsStillWhenTheViewTurnsOrZooms) {
    plotter.SetTracePoint(1, 2, 3);
    plotter.Zoom(0.3f);
    plotter.Rotate(POINT{10, 10}, POINT{150, 70});
    plotter.Translate(POINT{10, 10}, POINT{50, 90});
    ExpectLabel(DrawLabel(), "(1.000, 2.000, 3.000)");
}

// Also where a hundredth of the width is no whole number of pixels.
TEST_P(TraceLayers, TheLabelIsSharpAtEveryMargin) {
    plotter.SetTracePoint(1, 2, 3);
    SKivoTexImage label;
    {
        const CurrentContext context(plotter);
        ASSERT_EQ(CreateTextImage(plotter.m_textRenderer, "(1.000, 2.000, 3.000)", &label), 0);
    }
    int ink = 0;
    for (int i = 0; i < label.width * label.height; ++i)
        ink += label.pixels[4 * i + 3] != 0 ? 1 : 0;
    for (int viewWidth = 333; viewWidth <= 400; viewWidth += 7) {
        SCOPED_TRACE(viewWidth);
        plotter.m_plotViewport[2] = viewWidth;
        plotter.AutoAdjustAxisLengthRatio();
        const Image picture = DrawLabel();
        EXPECT_EQ(picture.Count(IsWhite), picture.width * picture.height - ink);
        EXPECT_EQ(picture.Count([](const unsigned char* rgb) {
            return std::max({rgb[0], rgb[1], rgb[2]}) == 0;
        }),
                  ink);
    }
    const CurrentContext context(plotter);
    ReleaseTextImage(&label);
}

TEST_P(TraceLayers, TheLabelLeavesTheMatrixModeAlone) {
    plotter.SetTracePoint(1, 2, 3);
    const CurrentContext context(plotter);
    for (const GLenum mode : {GL_PROJECTION, GL_TEXTURE, GL_MODELVIEW}) {
        glMatrixMode(mode);
        plotter.RenderTraceLegend();
        plotter.RenderTracePoints();
        GLint after = 0;
        glGetIntegerv(GL_MATRIX_MODE, &after);
        EXPECT_EQ(after, static_cast<GLint>(mode));
    }
}

TEST_P(TraceLayers, FramesLeaveNoTextureBehind) {
    const auto textures = [this] {
        const CurrentContext context(plotter);
        int count = 0;
        for (GLuint name = 1; name < 2000; ++name)
            count += glIsTexture(name) ? 1 : 0;
        return count;
    };
    plotter.OnDraw();
    const int before = textures();
    for (int i = 0; i < 20; ++i) {
        plotter.SetTracePoint(static_cast<float>(i), 2, 3);
        plotter.OnDraw();
    }
    EXPECT_EQ(textures(), before);
}

TEST_P(TraceLayers, GuideLinesCrossOnTheThreeBackWalls) {
    plotter.SetTracePoint(2.0f, -0.75f, 0.5f);
    for (int walls = 0; walls < 8; ++walls) {
        for (int i = 0; i < 3; ++i)
            plotter.m_gridBox->m_backPlane[i] = (walls >> i & 1) != 0;
        SCOPED_TRACE(walls);
        ExpectGuides(DrawGuides());
    }
}

// ---- In the frame

TEST_P(Trace, AFrameShowsMarkerGuidesAndLabelWhileThereIsAPoint) {
    ShowFromAbove(HillSurface(20, 15));
    plotter.SetPointRadiusPixelSize(10);
    const Image without = CaptureImage(plotter);
    EXPECT_EQ(without.Count(IsMarker), 0);
    ASSERT_EQ(plotter.Trace(Middle()), 0);
    plotter.m_tracePoint[2] += 3.0f; // well above the surface
    const Image with = CaptureImage(plotter);
    const POINT pt = PixelOf(plotter.m_tracePoint[0], plotter.m_tracePoint[1], plotter.m_tracePoint[2]);
    EXPECT_TRUE(IsMarker(with.Pixel(pt.x, pt.y)));
    EXPECT_GT(with.Count(IsMarker), 200);
    int label = 0;
    for (int y = height - 30; y < height; ++y)
        for (int x = 80; x < 280; ++x)
            label += with.Pixel(x, y)[0] == 0 && without.Pixel(x, y)[0] > 200 ? 1 : 0;
    EXPECT_GT(label, 100);
    plotter.Trace(false);
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
}

TEST_P(Trace, FlatPlotsShowNoTrace) {
    plotter.SwitchToXYProjectPlot();
    const Image without = CaptureImage(plotter);
    plotter.SetTracePoint(1.0f, 0.5f, 3.0f);
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
}

// A point of other data would stand beside the surface, with its lines and its numbers.
TEST_P(Trace, NewDataForgetThePoint) {
    const TestSurface plane = PlaneSurface(9, 7);
    for (const bool isReference : {true, false}) {
        SCOPED_TRACE(isReference);
        ShowFromAbove(HillSurface(20, 15));
        plotter.Trace(true);
        plotter.OnMouseMove(0, Middle());
        float point[3] = {7, 8, 9};
        ASSERT_TRUE(plotter.GetTracePoint(point));
        if (isReference)
            ShowFromAbove(plane);
        else
            plotter.SetData(plane.NewArray(), plane.columns, plane.rows, 1, plane.columns, 3);
        EXPECT_FALSE(plotter.GetTracePoint(point));
        EXPECT_TRUE(plotter.IsTracing()) << "the mode goes on";
        const Image shown = CaptureImage(plotter);
        plotter.Trace(false);
        EXPECT_EQ(Compare(shown, CaptureImage(plotter)).max, 0);
        plotter.Trace(true);
        plotter.OnMouseMove(0, Middle());
        EXPECT_TRUE(plotter.GetTracePoint(point));
    }
}

TEST_P(Trace, TheEndForgetsThePoint) {
    ShowFromAbove(HillSurface(20, 15));
    ASSERT_EQ(plotter.Trace(Middle()), 0);
    EXPECT_EQ(plotter.OnDestroy(), 0);
    float point[3] = {7, 8, 9};
    EXPECT_FALSE(plotter.GetTracePoint(point));
    EXPECT_EQ(point[0], 7.0f);
}

KIVO_IN_EVERY_WINDOW(Trace);
KIVO_IN_ONE_WINDOW(TraceLayers);
KIVO_IN_ONE_WINDOW(TraceAgainstSearch);
