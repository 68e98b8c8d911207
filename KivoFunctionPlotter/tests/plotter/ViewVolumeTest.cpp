// View volume and camera against matrices computed here.
#include "parts/KivoGradientColor.h"
#include "parts/KivoGridBox.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <cmath>
#include <functional>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

void SetAxis(PlotterProbe& plotter, int axis, float min, float max) {
    plotter.m_gridBox->m_axisMin[axis] = plotter.m_gridBox->m_boxMin[axis] = min;
    plotter.m_gridBox->m_axisMax[axis] = plotter.m_gridBox->m_boxMax[axis] = max;
}

// A grid box around, and a data box not in its middle.
void SetBoxes(PlotterProbe& plotter) {
    const float min[] = {-4, 10, 1}, max[] = {6, 14, 3.5f};
    for (int axis = 0; axis < 3; ++axis) {
        SetAxis(plotter, axis, min[axis] - 1, max[axis] + 1);
        plotter.m_boundingBoxMin[axis] = min[axis];
        plotter.m_boundingBoxMax[axis] = max[axis];
    }
}

void SetPlotViewport(PlotterProbe& plotter, int width, int height) {
    plotter.m_plotViewport[2] = width;
    plotter.m_plotViewport[3] = height;
}

Matrix Pan(const PlotterProbe& p) {
    return Translation((p.m_viewRight - p.m_viewLeft) * 0.055, (p.m_viewTop - p.m_viewBottom) * -0.025, 0);
}

Matrix Camera(const PlotterProbe& p) {
    return Pan(p) * FromArray(p.m_rotationMatrix) *
           Scaling(p.m_axisScale[0], p.m_axisScale[1], p.m_axisScale[2]) *
           Translation(p.m_volumeTranslate[0], p.m_volumeTranslate[1], p.m_volumeTranslate[2]);
}

Matrix Volume(const PlotterProbe& p) {
    return Orthographic(p.m_viewLeft, p.m_viewRight, p.m_viewBottom, p.m_viewTop, p.m_viewNear, p.m_viewFar);
}

// The diagonal of the grid box over the given axes, scaled as the plotter scales.
double Diagonal(const PlotterProbe& p, const std::vector<int>& axes) {
    double squares = 0;
    for (const int axis : axes) {
        const double side =
            (double{p.m_gridBox->m_boxMax[axis]} - p.m_gridBox->m_boxMin[axis]) * p.m_axisScale[axis];
        squares += side * side;
    }
    return std::sqrt(squares);
}

void ExpectSymmetricVolume(const PlotterProbe& p, double radius) {
    const double width = p.m_plotViewport[2], height = p.m_plotViewport[3];
    const double right = radius * 1.01 * (width >= height ? width / height : 1.0);
    const double top = radius * 1.01 * (width >= height ? 1.0 : height / width);
    EXPECT_NEAR(p.m_viewRight, right, right * 1e-6);
    EXPECT_NEAR(p.m_viewTop, top, top * 1e-6);
    EXPECT_NEAR(p.m_viewFar, radius * 15, radius * 15e-6);
    EXPECT_EQ(p.m_viewLeft, -p.m_viewRight);
    EXPECT_EQ(p.m_viewBottom, -p.m_viewTop);
    EXPECT_EQ(p.m_viewNear, -p.m_viewFar);
}

void ExpectCenter(const PlotterProbe& p, const double (&shares)[3]) {
    for (int axis = 0; axis < 3; ++axis) {
        const double min = p.m_boundingBoxMin[axis], max = p.m_boundingBoxMax[axis];
        EXPECT_NEAR(p.m_volumeTranslate[axis], -(min + shares[axis] * (max - min)), 1e-5) << axis;
    }
}

void ExpectColumns(const PlotterProbe& p, const double (&x)[3], const double (&y)[3], const double (&z)[3]) {
    const double* columns[] = {x, y, z};
    for (int column = 0; column < 3; ++column)
        for (int row = 0; row < 3; ++row)
            EXPECT_EQ(p.m_rotationMatrix[4 * column + row], columns[column][row]) << column << ' ' << row;
}

// What a start view must leave alone: the pan, and the row below it.
void PutPan(PlotterProbe& p) {
    p.m_rotationMatrix[12] = 0.5;
    p.m_rotationMatrix[13] = -0.75;
}

class ViewVolume : public WindowTest {
protected:
    ViewVolume() {
        SetBoxes(plotter);
        plotter.UpdateBoundingBoxToViewVolume();
    }

    TestPlot plot{GetParam(), 400, 200};
    PlotterProbe& plotter = plot.plotter;
    CurrentContext context{plotter};
};

} // namespace

TEST_P(ViewVolume, ApplyViewVolumeLoadsViewportAndProjection) {
    plotter.m_viewLeft = -3, plotter.m_viewRight = 5;
    plotter.m_viewBottom = -1, plotter.m_viewTop = 2;
    plotter.m_viewNear = -10, plotter.m_viewFar = 30;
    const int viewport[] = {7, 11, 130, 90};
    std::copy(viewport, viewport + 4, plotter.m_plotViewport);
    glMatrixMode(GL_TEXTURE);
    plotter.ApplyViewVolume();
    GLint mode = 0, loaded[4] = {};
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    glGetIntegerv(GL_VIEWPORT, loaded);
    EXPECT_EQ(mode, GL_TEXTURE);
    EXPECT_EQ((std::vector<int>(loaded, loaded + 4)), (std::vector<int>{7, 11, 130, 90}));
    ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Orthographic(-3, 5, -1, 2, -10, 30), 1e-6);
}

TEST_P(ViewVolume, ApplyModelViewMatrixComposesPanRotationScaleAndTranslation) {
    SetBoxes(plotter);
    plotter.UpdateBoundingBoxToViewVolume();
    const Matrix turned = Rotation(33, 0.6, 0, 0.8) * Rotation(-70, 0, 1, 0);
    std::copy(turned.begin(), turned.end(), plotter.m_rotationMatrix);
    PutPan(plotter);
    glMatrixMode(GL_PROJECTION);
    plotter.ApplyModelViewMatrix();
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_PROJECTION);
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
}

TEST_P(ViewVolume, TheDataCenterComesToThePan) {
    SetBoxes(plotter);
    plotter.UpdateBoundingBoxToViewVolume();
    plotter.ApplyModelViewMatrix();
    const Vector4 center = LoadedMatrix(GL_MODELVIEW_MATRIX) * Vector4{1, 12, 2.25, 1};
    EXPECT_NEAR(center[0], 0.11 * plotter.m_viewRight, 1e-4);
    EXPECT_NEAR(center[1], -0.05 * plotter.m_viewTop, 1e-4);
    EXPECT_NEAR(center[2], 0, 1e-4);
}

TEST_P(ViewVolume, FitsTheNormalPlotInEveryAspect) {
    SetBoxes(plotter);
    const int sizes[][2] = {{200, 100}, {100, 200}, {150, 150}, {333, 17}};
    for (const int* size : sizes) {
        SCOPED_TRACE(testing::Message() << size[0] << " x " << size[1]);
        SetPlotViewport(plotter, size[0], size[1]);
        plotter.UpdateBoundingBoxToViewVolume();
        EXPECT_NEAR(plotter.m_axisScale[0], 1.2 * 4.5 / 12, 1e-7);
        EXPECT_NEAR(plotter.m_axisScale[1], 1.2 * 4.5 / 6, 1e-7);
        EXPECT_EQ(plotter.m_axisScale[2], 1.0);
        ExpectSymmetricVolume(plotter, 0.6 * Diagonal(plotter, {0, 1, 2}));
        ExpectCenter(plotter, {0.5, 0.5, 0.5});
        ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Volume(plotter), 1e-6);
    }
}

TEST_P(ViewVolume, HorizontalAxesAre1Point2TimesAsLongAsTheVerticalOne) {
    SetAxis(plotter, 0, 0, 100);
    SetAxis(plotter, 1, -1, 1);
    SetAxis(plotter, 2, 5, 15);
    plotter.UpdateBoundingBoxToViewVolume();
    EXPECT_NEAR(plotter.m_axisScale[0], 0.12, 1e-8);
    EXPECT_NEAR(plotter.m_axisScale[1], 6.0, 1e-7);
}

TEST_P(ViewVolume, FitsTheFlatPlots) {
    struct Flat {
        void (PlotterProbe::*fit)();
        std::vector<int> axes;
        double shares[3];
    };
    const Flat plots[] = {{&PlotterProbe::UpdateXYBoundingBoxToViewVolume, {0, 1}, {0.5, 0.35, 0.5}},
                          {&PlotterProbe::UpdateYZBoundingBoxToViewVolume, {1, 2}, {0.5, 0.35, 0.35}},
                          {&PlotterProbe::UpdateXZBoundingBoxToViewVolume, {0, 2}, {0.35, 0.5, 0.35}}};
    SetBoxes(plotter);
    const double scale[] = {0.5, 2, 3};
    std::copy(scale, scale + 3, plotter.m_axisScale);
    for (const Flat& flat : plots)
        for (const bool isTall : {false, true}) {
            SetPlotViewport(plotter, isTall ? 100 : 300, 200);
            std::invoke(flat.fit, plotter);
            EXPECT_EQ((std::vector<double>(plotter.m_axisScale, plotter.m_axisScale + 3)),
                      (std::vector<double>{0.5, 2, 3}));
            ExpectSymmetricVolume(plotter, 0.55 * Diagonal(plotter, flat.axes));
            ExpectCenter(plotter, flat.shares);
            ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Volume(plotter), 1e-6);
        }
}

TEST_P(ViewVolume, TheVolumeFactorsScaleTheFit) {
    SetBoxes(plotter);
    SetPlotViewport(plotter, 100, 100);
    plotter.m_viewVolumeFactor[0] = 2, plotter.m_viewVolumeFactor[1] = 3, plotter.m_viewVolumeFactor[2] = 5;
    plotter.UpdateBoundingBoxToViewVolume();
    const double radius = 0.6 * Diagonal(plotter, {0, 1, 2});
    EXPECT_NEAR(plotter.m_viewRight, 2 * radius, 1e-5);
    EXPECT_NEAR(plotter.m_viewTop, 3 * radius, 1e-5);
    EXPECT_NEAR(plotter.m_viewFar, 5 * radius, 1e-5);
}

TEST_P(ViewVolume, ANewDataBoxReachesEverythingThatDependsOnIt) {
    float min[] = {0, 3, -1}, max[] = {100, 7, 1};
    plotter.UpdateBoundingBoxToViewVolume(min, max);
    const CKivoGradientColor* gradients[] = {plotter.m_xGradientColor, plotter.m_yGradientColor,
                                             plotter.m_zGradientColor};
    const float axisMin[] = {-5, 2.5f, -1.5f}, axisMax[] = {115, 8.5f, 2};
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(plotter.m_boundingBoxMin[axis], min[axis]);
        EXPECT_EQ(plotter.m_boundingBoxMax[axis], max[axis]);
        EXPECT_EQ(gradients[axis]->m_min, min[axis]);
        EXPECT_EQ(gradients[axis]->m_max, max[axis]);
        EXPECT_EQ(gradients[axis]->m_range, max[axis] - min[axis]);
        EXPECT_FLOAT_EQ(plotter.m_gridBox->m_boxMin[axis], axisMin[axis]);
        EXPECT_FLOAT_EQ(plotter.m_gridBox->m_boxMax[axis], axisMax[axis]);
    }
    EXPECT_EQ(plotter.m_gridBox->m_dataMin, plotter.m_boundingBoxMin);
    EXPECT_EQ(plotter.m_gridBox->m_dataMax, plotter.m_boundingBoxMax);
    EXPECT_NEAR(plotter.m_axisScale[0], 1.2 * 3.5 / 120, 1e-7);
    ExpectSymmetricVolume(plotter, 0.6 * Diagonal(plotter, {0, 1, 2}));
    ExpectCenter(plotter, {0.5, 0.5, 0.5});
}

TEST_P(ViewVolume, TheLegendVolumeFollowsItsViewport) {
    const int viewports[][2] = {{100, 400}, {400, 100}, {64, 64}};
    for (const int* size : viewports) {
        plotter.m_legendViewport[2] = size[0];
        plotter.m_legendViewport[3] = size[1];
        plotter.UpdateLegendViewVolume();
        const double width = size[0], height = size[1], r = 0.6 * std::hypot(width, height);
        const double halfWidth = width >= height ? r * width / height : r;
        const double halfHeight = width >= height ? r : r * height / width;
        const double expected[] = {-halfWidth, halfWidth, -halfHeight, halfHeight, -r, r};
        for (int i = 0; i < 6; ++i)
            EXPECT_NEAR(plotter.m_legendViewVolume[i], expected[i], 1e-9 * r) << i;
    }
}

TEST_P(ViewVolume, InverseAxesNegateTheirColumns) {
    for (int flags = 0; flags < 8; ++flags) {
        for (int i = 0; i < 16; ++i)
            plotter.m_rotationMatrix[i] = i + 1.0;
        plotter.m_inverseXAxis = (flags & 1) != 0;
        plotter.m_inverseYAxis = (flags & 2) != 0;
        plotter.m_inverseZAxis = (flags & 4) != 0;
        plotter._ApplyInverseAxisToModelViewMatrix();
        for (int i = 0; i < 16; ++i) {
            const bool isNegated = i % 4 < 3 && i < 12 && (flags >> (i / 4) & 1) != 0;
            EXPECT_EQ(plotter.m_rotationMatrix[i], isNegated ? -(i + 1.0) : i + 1.0) << flags << ' ' << i;
        }
    }
}

TEST_P(ViewVolume, SetVolumeCenterMovesAPointToTheCenter) {
    plotter.SetVolumeCenter(1, -2, 3);
    EXPECT_EQ(plotter.m_volumeTranslate[0], -1);
    EXPECT_EQ(plotter.m_volumeTranslate[1], 2);
    EXPECT_EQ(plotter.m_volumeTranslate[2], -3);
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-6);
}

TEST_P(ViewVolume, IncreaseTranslationPansAndTakesDepthAsHeight) {
    PutPan(plotter);
    plotter.IncreaseTranslation(2, 0.25f, 5);
    EXPECT_DOUBLE_EQ(plotter.m_rotationMatrix[12], 2.5);
    EXPECT_DOUBLE_EQ(plotter.m_rotationMatrix[13], 4.5);
    EXPECT_DOUBLE_EQ(plotter.m_rotationMatrix[14], 0);
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-6);
}

namespace {

// 1 + 2 w [q] + 2 [q][q] with the cross-product matrix [q] of q = k sin(angle / 2) axis, w = cos(angle / 2).
Matrix ShortenedRotation(double degrees, double x, double y, double z) {
    const double half = degrees * 3.1415925 / 360.0;
    const double k = std::sin(half) / std::sqrt(x * x + y * y + z * z + 1.0), w = std::cos(half);
    const Matrix q = {0, k * z, -k * y, 0, -k * z, 0, k * x, 0, k * y, -k * x, 0, 0, 0, 0, 0, 0};
    const Matrix qq = q * q;
    Matrix rotation = Identity();
    for (std::size_t i = 0; i < 16; ++i)
        rotation[i] += 2.0 * w * q[i] + 2.0 * qq[i];
    return rotation;
}

} // namespace

TEST_P(ViewVolume, IncreaseRotationTurnsAboutScreenAxesAfterAllTurnsSoFar) {
    const float turns[][4] = {
        {30, 1, 0, 0}, {-75, 0, 2, 0}, {10, 3, -4, 0}, {200, 0.1f, 0.2f, 0.3f}, {5, 40, 9, 0}};
    PutPan(plotter);
    for (const float* turn : turns) {
        const Matrix before = FromArray(plotter.m_rotationMatrix);
        plotter.IncreaseRotation(turn[0], turn[1], turn[2], turn[3]);
        const Matrix expected = ShortenedRotation(turn[0], turn[1], turn[2], turn[3]) * before;
        ExpectMatrixNear(FromArray(plotter.m_rotationMatrix), expected, 2e-6);
        ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
    }
    EXPECT_NE(plotter.m_rotationMatrix[12], 0.5) << "the pan turns too";
}

TEST_P(ViewVolume, IncreaseRotationByNothingKeepsTheOrientation) {
    PutPan(plotter);
    const Matrix before = FromArray(plotter.m_rotationMatrix);
    plotter.IncreaseRotation(0, 0, 0, 0);
    EXPECT_EQ(FromArray(plotter.m_rotationMatrix), before);
    plotter.IncreaseRotation(0, 3, 4, 5);
    EXPECT_EQ(FromArray(plotter.m_rotationMatrix), before);
}

TEST_P(ViewVolume, IncreaseZoomingDividesTheBoundsButNotTheDepth) {
    SetBoxes(plotter);
    plotter.UpdateBoundingBoxToViewVolume();
    const double right = plotter.m_viewRight, top = plotter.m_viewTop, zFar = plotter.m_viewFar;
    plotter.IncreaseZooming(4);
    EXPECT_NEAR(plotter.m_viewRight, right / 4, right * 1e-7);
    EXPECT_NEAR(plotter.m_viewLeft, -right / 4, right * 1e-7);
    EXPECT_NEAR(plotter.m_viewTop, top / 4, top * 1e-7);
    EXPECT_NEAR(plotter.m_viewBottom, -top / 4, top * 1e-7);
    EXPECT_EQ(plotter.m_viewFar, zFar);
    EXPECT_EQ(plotter.m_viewNear, -zFar);
    ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Volume(plotter), 1e-6);
}

TEST_P(ViewVolume, IncreaseScaleMovesTheBoundsInwardsAndLoadsNothing) {
    plotter.m_viewLeft = -4, plotter.m_viewRight = 4, plotter.m_viewBottom = -3, plotter.m_viewTop = 3;
    const Matrix before = LoadedMatrix(GL_PROJECTION_MATRIX);
    plotter.IncreaseScale(0.5f);
    EXPECT_EQ(plotter.m_viewLeft, -3.5);
    EXPECT_EQ(plotter.m_viewRight, 3.5);
    EXPECT_EQ(plotter.m_viewBottom, -2.5);
    EXPECT_EQ(plotter.m_viewTop, 2.5);
    EXPECT_EQ(LoadedMatrix(GL_PROJECTION_MATRIX), before);
}

namespace {

struct FixedView {
    const char* name;
    void (PlotterProbe::*apply)();
    double x[3], y[3], z[3];
};

const FixedView fixedViews[] = {
    {"front", &PlotterProbe::ApplyFrontView, {0, 0, 1}, {1, 0, 0}, {0, 1, 0}},
    {"back", &PlotterProbe::ApplyBackView, {0, 0, -1}, {-1, 0, 0}, {0, 1, 0}},
    {"top", &PlotterProbe::ApplyTopView, {0, -1, 0}, {1, 0, 0}, {0, 0, 1}},
    {"bottom", &PlotterProbe::ApplyBottomView, {0, 1, 0}, {1, 0, 0}, {0, 0, -1}},
    {"left", &PlotterProbe::ApplyLeftView, {-1, 0, 0}, {0, 0, 1}, {0, 1, 0}},
    {"right", &PlotterProbe::ApplyRightView, {1, 0, 0}, {0, 0, -1}, {0, 1, 0}},
    {"iso",
     &PlotterProbe::ApplyIsoView,
     {-0.707107f, -0.408204f, 0.577382f},
     {0.707107f, -0.408204f, 0.577382f},
     {0, 0.816541f, 0.577288f}},
};

const double isoColumns[3][3] = {
    {-0.707107f, -0.408204f, 0.577382f}, {0.707107f, -0.408204f, 0.577382f}, {0, 0.816541f, 0.577288f}};

// The iso view, mirrored where asked for, after the pan, tilted by 10 degrees about the screen's x axis.
Matrix StartView(const PlotterProbe& p, double panX, double panY) {
    Matrix iso = Translation(panX, panY, 0);
    const bool inverse[] = {p.m_inverseXAxis, p.m_inverseYAxis, p.m_inverseZAxis};
    for (std::size_t column = 0; column < 3; ++column)
        for (std::size_t row = 0; row < 3; ++row)
            iso[4 * column + row] = isoColumns[column][row] * (inverse[column] ? -1 : 1);
    return Rotation(-10, 1, 0, 0) * iso;
}

} // namespace

TEST_P(ViewVolume, FixedViewsPointTheAxesAndKeepThePan) {
    for (const FixedView& view : fixedViews) {
        SCOPED_TRACE(view.name);
        for (int i = 0; i < 16; ++i)
            plotter.m_rotationMatrix[i] = i == 15 ? 1 : i >= 12 ? i * 0.1 : 0;
        std::invoke(view.apply, plotter);
        ExpectColumns(plotter, view.x, view.y, view.z);
        for (const int i : {3, 7, 11})
            EXPECT_EQ(plotter.m_rotationMatrix[i], 0);
        for (const int i : {12, 13, 14})
            EXPECT_EQ(plotter.m_rotationMatrix[i], i * 0.1);
        ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-6);
    }
}

TEST_P(ViewVolume, FixedViewsMirrorInverseAxes) {
    plotter.m_inverseZAxis = true;
    plotter.ApplyTopView();
    ExpectColumns(plotter, {0, -1, 0}, {1, 0, 0}, {0, 0, -1});
    plotter.m_inverseZAxis = false;
    plotter.m_inverseXAxis = plotter.m_inverseYAxis = true;
    plotter.ApplyFrontView();
    ExpectColumns(plotter, {0, 0, -1}, {-1, 0, 0}, {0, 1, 0});
}

TEST_P(ViewVolume, TheNormalPlotStartsWithTheIsoViewTiltedBy10Degrees) {
    ExpectMatrixNear(FromArray(plotter.m_rotationMatrix), StartView(plotter, 0, 0), 1e-6);
    // A point above the centre of the screen in the iso view goes away from the viewer.
    const Matrix iso = Rotation(10, 1, 0, 0) * StartView(plotter, 0, 0);
    const Vector4 above = FromArray(plotter.m_rotationMatrix) * (Inverse(iso) * Vector4{0, 1, 0, 1});
    EXPECT_NEAR(above[2], -std::sin(10 * 3.14159265 / 180), 1e-5);
}

TEST_P(ViewVolume, AgainTheNormalPlotTakesThePanThroughTheTilt) {
    SetBoxes(plotter);
    PutPan(plotter);
    plotter.ApplyNormalPlotView();
    ExpectMatrixNear(FromArray(plotter.m_rotationMatrix), StartView(plotter, 0.5, -0.75), 1e-6);
    ExpectSymmetricVolume(plotter, 0.6 * Diagonal(plotter, {0, 1, 2}));
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
    ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Volume(plotter), 1e-6);
}

TEST_P(ViewVolume, TheNormalPlotMirrorsInverseAxesAndKeepsTheModelViewStack) {
    plotter.m_inverseXAxis = plotter.m_inverseZAxis = true;
    GLint depth = 0, depthAfter = 0, mode = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
    glMatrixMode(GL_TEXTURE);
    plotter.ApplyNormalPlotView();
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depthAfter);
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(depthAfter, depth);
    EXPECT_EQ(mode, GL_TEXTURE);
    ExpectMatrixNear(FromArray(plotter.m_rotationMatrix), StartView(plotter, 0, 0), 1e-6);
}

TEST_P(ViewVolume, FlatPlotsStartUnmirrored) {
    SetBoxes(plotter);
    plotter.UpdateBoundingBoxToViewVolume();
    plotter.m_inverseXAxis = plotter.m_inverseYAxis = plotter.m_inverseZAxis = true;
    PutPan(plotter);
    plotter.ApplyXYPlotView();
    ExpectColumns(plotter, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    ExpectCenter(plotter, {0.5, 0.35, 0.5});
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
    plotter.ApplyYZPlotView();
    ExpectColumns(plotter, {0, 0, 1}, {1, 0, 0}, {0, 1, 0});
    ExpectCenter(plotter, {0.5, 0.35, 0.35});
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
    plotter.ApplyXZPlotView();
    ExpectColumns(plotter, {1, 0, 0}, {0, 0, -1}, {0, 1, 0});
    ExpectCenter(plotter, {0.35, 0.5, 0.35});
    ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), Camera(plotter), 1e-5);
    EXPECT_EQ(plotter.m_rotationMatrix[12], 0.5);
    EXPECT_EQ(plotter.m_rotationMatrix[13], -0.75);
}

TEST_P(ViewVolume, AutoAdjustFitsTheNormalPlotAndReleasesTheContext) {
    SetBoxes(plotter);
    plotter.EndGLOperation();
    plotter.AutoAdjustAxisLengthRatio();
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    ExpectSymmetricVolume(plotter, 0.6 * Diagonal(plotter, {0, 1, 2}));
    plotter.BeginGLOperation();
    ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), Volume(plotter), 1e-6);
}

TEST_P(ViewVolume, LightsStandAroundTheDataAndTheSecondStaysOff) {
    const float min[] = {-2, -3, -4}, max[] = {5, 6, 7};
    std::copy(min, min + 3, plotter.m_boundingBoxMin);
    std::copy(max, max + 3, plotter.m_boundingBoxMax);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glEnable(GL_LIGHT1);
    plotter.UpdateLightsPosition();
    GLfloat first[4] = {}, second[4] = {};
    glGetLightfv(GL_LIGHT0, GL_POSITION, first);
    glGetLightfv(GL_LIGHT1, GL_POSITION, second);
    const float expectedFirst[] = {6, 7.2f, 12.6f, 1}, expectedSecond[] = {-2.4f, -3.6f, 12.6f, 1};
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(first[i], expectedFirst[i], 1e-5) << i;
        EXPECT_NEAR(second[i], expectedSecond[i], 1e-5) << i;
    }
    EXPECT_TRUE(glIsEnabled(GL_LIGHT0));
    EXPECT_FALSE(glIsEnabled(GL_LIGHT1));
}

// A range of nothing makes numbers without meaning, which are passed on and do no harm.
TEST_P(ViewVolume, DegenerateBoxesAreTakenAsTheyAre) {
    for (int axis = 0; axis < 3; ++axis)
        SetAxis(plotter, axis, 1, 1);
    plotter.UpdateBoundingBoxToViewVolume();
    EXPECT_FALSE(std::isfinite(plotter.m_axisScale[0]));
    SetBoxes(plotter);
    SetPlotViewport(plotter, 0, 100);
    plotter.UpdateBoundingBoxToViewVolume();
    EXPECT_FALSE(std::isfinite(plotter.m_viewTop));
}

KIVO_IN_ONE_WINDOW(ViewVolume);
