// Plot modes, switches and what a frame shows.
#include "parts/KivoGridBox.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int legendWidth = 64;

bool IsMagenta(const unsigned char* pixel) {
    return pixel[0] == 255 && pixel[1] == 0 && pixel[2] == 255;
}

// Number of pixels right of the legend that are more blue than anything else.
int BluePixels(const Image& image) {
    int count = 0;
    for (int y = 0; y < image.height; ++y)
        for (int x = legendWidth; x < image.width; ++x) {
            const unsigned char* p = image.Pixel(x, y);
            count += p[2] > p[0] + 80 && p[2] > p[1] + 80 ? 1 : 0;
        }
    return count;
}

class PlotModes : public WindowTest {
protected:
    PlotModes() {
        const TestSurface surface = HillSurface(14, 11);
        plotter.SetData(surface.NewArray(), 14, 11, 1, 14, 3);
    }

    GLfloat ClearedRed() {
        const CurrentContext context(plotter);
        GLfloat clear[4] = {};
        glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
        return clear[0];
    }

    // The camera of the fields, which every switch loads.
    void ExpectLoadedCamera() {
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        const Matrix expected =
            Translation((plotter.m_viewRight - plotter.m_viewLeft) * 0.055,
                        (plotter.m_viewTop - plotter.m_viewBottom) * -0.025, 0) *
            FromArray(plotter.m_rotationMatrix) *
            Scaling(plotter.m_axisScale[0], plotter.m_axisScale[1], plotter.m_axisScale[2]) *
            Translation(plotter.m_volumeTranslate[0], plotter.m_volumeTranslate[1],
                        plotter.m_volumeTranslate[2]);
        const CurrentContext context(plotter);
        ExpectMatrixNear(LoadedMatrix(GL_MODELVIEW_MATRIX), expected, 1e-5);
        const Matrix volume = Orthographic(plotter.m_viewLeft, plotter.m_viewRight, plotter.m_viewBottom,
                                           plotter.m_viewTop, plotter.m_viewNear, plotter.m_viewFar);
        ExpectMatrixNear(LoadedMatrix(GL_PROJECTION_MATRIX), volume, 1e-6);
    }

    void ExpectBlock(const std::vector<double>& columns) {
        for (std::size_t i = 0; i < 9; ++i)
            EXPECT_EQ(plotter.m_rotationMatrix[i / 3 * 4 + i % 3], columns[i]) << i;
    }

    void ExpectCenterShares(double x, double y, double z) {
        const double shares[] = {x, y, z};
        for (int axis = 0; axis < 3; ++axis) {
            const double min = plotter.m_boundingBoxMin[axis], max = plotter.m_boundingBoxMax[axis];
            EXPECT_NEAR(plotter.m_volumeTranslate[axis], -(min + shares[axis] * (max - min)), 1e-5);
        }
    }

    // Values in what no switch may touch: the fourth row and the pan.
    void MarkMatrix() {
        for (const int i : {3, 7, 11})
            plotter.m_rotationMatrix[i] = 0.001 * i;
        plotter.m_rotationMatrix[12] = 0.25;
        plotter.m_rotationMatrix[13] = -0.5;
    }
    void ExpectMarks() {
        for (const int i : {3, 7, 11})
            EXPECT_EQ(plotter.m_rotationMatrix[i], 0.001 * i);
        EXPECT_EQ(plotter.m_rotationMatrix[12], 0.25);
        EXPECT_EQ(plotter.m_rotationMatrix[13], -0.5);
        for (const int i : {3, 7, 11})
            plotter.m_rotationMatrix[i] = 0;
    }

    TestPlot plot{GetParam(), 400, 300};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

// ---- Modes

TEST_P(PlotModes, SwitchToXY) {
    plotter.m_inverseYAxis = true; // not applied
    MarkMatrix();
    EXPECT_EQ(plotter.SwitchToXYProjectPlot(), 0);
    EXPECT_EQ(plotter.GetCurrentPlotType(), 1);
    ExpectBlock({1, 0, 0, 0, 1, 0, 0, 0, 1});
    ExpectMarks();
    ExpectCenterShares(0.5, 0.35, 0.5);
    plotter.SwitchToXYProjectPlot();
    ExpectLoadedCamera();
}

TEST_P(PlotModes, SwitchToYZ) {
    plotter.m_inverseYAxis = true;
    MarkMatrix();
    EXPECT_EQ(plotter.SwitchToYZProjectPlot(), 0);
    EXPECT_EQ(plotter.GetCurrentPlotType(), 2);
    ExpectBlock({0, 0, 1, 1, 0, 0, 0, 1, 0});
    ExpectMarks();
    ExpectCenterShares(0.5, 0.35, 0.35);
    plotter.SwitchToYZProjectPlot();
    ExpectLoadedCamera();
}

TEST_P(PlotModes, SwitchToXZ) {
    plotter.m_inverseYAxis = true;
    MarkMatrix();
    EXPECT_EQ(plotter.SwitchToZXProjectPlot(), 0);
    EXPECT_EQ(plotter.GetCurrentPlotType(), 3);
    ExpectBlock({1, 0, 0, 0, 0, -1, 0, 1, 0});
    ExpectMarks();
    ExpectCenterShares(0.35, 0.5, 0.35);
    plotter.SwitchToZXProjectPlot();
    ExpectLoadedCamera();
}

TEST_P(PlotModes, SwitchingBackToTheNormalPlotStartsItAnew) {
    const Matrix start = FromArray(plotter.m_rotationMatrix);
    const double right = plotter.m_viewRight;
    plotter.Rotate(POINT{0, 0}, POINT{100, 40});
    plotter.SwitchToYZProjectPlot();
    plotter.Zoom(0.5f);
    EXPECT_EQ(plotter.SwitchToNormalPlot(), 0);
    EXPECT_EQ(plotter.GetCurrentPlotType(), 0);
    ExpectMatrixNear(FromArray(plotter.m_rotationMatrix), start, 1e-6);
    EXPECT_NEAR(plotter.m_viewRight, right, 1e-6 * right);
    ExpectCenterShares(0.5, 0.5, 0.5);
    ExpectLoadedCamera();
}

// ---- Inverse axes

TEST_P(PlotModes, AnInverseAxisNegatesItsColumnAndComesBackExactly) {
    using Setter = int (CKivoFunctionPlotter::*)(bool);
    const Setter setters[] = {&CKivoFunctionPlotter::SetInverseXAxis, &CKivoFunctionPlotter::SetInverseYAxis,
                              &CKivoFunctionPlotter::SetInverseZAxis};
    plotter.Rotate(POINT{0, 0}, POINT{37, 23});
    const Matrix before = FromArray(plotter.m_rotationMatrix);
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(std::invoke(setters[axis], plotter, false), 0);
        EXPECT_EQ(FromArray(plotter.m_rotationMatrix), before) << "set already";
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(std::invoke(setters[axis], plotter, true), 0);
            for (int i = 0; i < 16; ++i)
                EXPECT_EQ(plotter.m_rotationMatrix[i], i / 4 == axis && i % 4 < 3
                                                           ? -before[static_cast<std::size_t>(i)]
                                                           : before[static_cast<std::size_t>(i)]);
            ExpectLoadedCamera();
        }
        EXPECT_TRUE(*plotter.m_gridBox->m_inverseAxis[axis]);
        EXPECT_EQ(std::invoke(setters[axis], plotter, false), 0);
        EXPECT_EQ(FromArray(plotter.m_rotationMatrix), before);
        ExpectLoadedCamera();
    }
}

// The flat plot has forgotten the mirroring, but not that it was switched on.
TEST_P(PlotModes, SwitchingAnInverseAxisOffInAFlatPlotMirrorsIt) {
    plotter.SetInverseXAxis(true);
    plotter.SwitchToXYProjectPlot();
    EXPECT_EQ(plotter.m_rotationMatrix[0], 1.0);
    EXPECT_TRUE(plotter.m_inverseXAxis);
    plotter.SetInverseXAxis(false);
    EXPECT_EQ(plotter.m_rotationMatrix[0], -1.0);
    EXPECT_FALSE(plotter.m_inverseXAxis);
}

TEST_P(PlotModes, AnInverseAxisKeepsTheCallersMatrixMode) {
    {
        const CurrentContext context(plotter);
        glMatrixMode(GL_TEXTURE);
    }
    plotter.SetInverseXAxis(true);
    const CurrentContext context(plotter);
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_TEXTURE);
    glMatrixMode(GL_MODELVIEW);
}

TEST_P(PlotModes, TheNormalPlotStartsMirrored) {
    const Matrix start = FromArray(plotter.m_rotationMatrix);
    plotter.SetInverseZAxis(true);
    plotter.SwitchToXYProjectPlot();
    plotter.SwitchToNormalPlot();
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(plotter.m_rotationMatrix[8 + i], -start[8 + i], 1e-6);
        EXPECT_NEAR(plotter.m_rotationMatrix[i], start[i], 1e-6);
    }
}

// ---- Flags and background

TEST_P(PlotModes, FlagsAreStoredAndNothingIsDrawn) {
    plotter.SetBackgroundColor(0.5f, 0, 0, 1);
    const std::pair<std::function<void(bool)>, std::function<bool()>> flags[] = {
        {[&](bool on) { plotter.ShowFrameLines(on); }, [&] { return plotter.IsShowFrameLines(); }},
        {[&](bool on) { EXPECT_EQ(plotter.ShowXIsoContours(on), 0); },
         [&] { return plotter.IsShowXIsoContours(); }},
        {[&](bool on) { EXPECT_EQ(plotter.ShowYIsoContours(on), 0); },
         [&] { return plotter.IsShowYIsoContours(); }},
        {[&](bool on) { EXPECT_EQ(plotter.ShowZIsoContours(on), 0); },
         [&] { return plotter.IsShowZIsoContours(); }},
        {[&](bool on) { plotter.ShowGridLines(on); }, [&] { return plotter.IsShowGridLines(); }},
    };
    const auto state = [&] {
        std::vector<bool> values;
        for (const auto& flag : flags)
            values.push_back(flag.second());
        return values;
    };
    EXPECT_EQ(state(), (std::vector<bool>{true, false, false, false, true}));
    for (std::size_t i = 0; i < 5; ++i)
        for (const bool on : {true, false, true}) {
            std::vector<bool> expected = state();
            flags[i].first(on);
            expected[i] = on;
            EXPECT_EQ(state(), expected);
        }
    EXPECT_NE(ClearedRed(), 0.5f);
}

TEST_P(PlotModes, TheBackgroundTakesEffectWithTheNextFrame) {
    const auto background = [&] {
        return std::vector<float>(plotter.m_backgroundColor, plotter.m_backgroundColor + 4);
    };
    plotter.SetBackgroundColor(0x00FF0000ul);
    EXPECT_EQ(background(), (std::vector<float>{0, 0, 1, 1}));
    plotter.SetBackgroundColor(0.25f, 0.5f, 3.0f, -1.0f);
    EXPECT_EQ(background(), (std::vector<float>{0.25f, 0.5f, 3.0f, -1.0f}));
    EXPECT_EQ(ClearedRed(), 1.0f);
    plotter.OnDraw();
    EXPECT_EQ(ClearedRed(), 0.25f);
    plotter.ResetBackgroundColor();
    EXPECT_EQ(background(), (std::vector<float>{1.0f, 253 / 255.0f, 233 / 255.0f, 1.0f}));
}

// ---- Frames

TEST_P(PlotModes, EveryModeShowsTheBackgroundAndLeavesLightAndDepthOn) {
    using Switch = int (CKivoFunctionPlotter::*)();
    const Switch switches[] = {
        &CKivoFunctionPlotter::SwitchToXYProjectPlot, &CKivoFunctionPlotter::SwitchToYZProjectPlot,
        &CKivoFunctionPlotter::SwitchToZXProjectPlot, &CKivoFunctionPlotter::SwitchToNormalPlot};
    plotter.SetBackgroundColor(0x00102040ul);
    for (const Switch change : switches) {
        std::invoke(change, plotter);
        SCOPED_TRACE(plotter.GetCurrentPlotType());
        const Image image = CaptureImage(plotter);
        EXPECT_TRUE(image.IsNear(399, 0, {0x40, 0x20, 0x10}));
        EXPECT_TRUE(image.IsNear(399, 299, {0x40, 0x20, 0x10}));
        EXPECT_TRUE(image.IsNear(0, 0, {0x40, 0x20, 0x10}));
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        const CurrentContext context(plotter);
        EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
        EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        GLint modelView = 0, projection = 0, attributes = 0;
        glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &modelView);
        glGetIntegerv(GL_PROJECTION_STACK_DEPTH, &projection);
        glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &attributes);
        EXPECT_EQ(modelView, 1);
        EXPECT_EQ(projection, 1);
        EXPECT_EQ(attributes, 0);
    }
}

TEST_P(PlotModes, TheSurfaceShowsInTheNormalPlotOnly) {
    const TestSurface blue = ConstantSurface(8, 8);
    plotter.SetData(blue.NewArray(), 8, 8, 1, 8, 3);
    plotter.ShowFrameLines(false);
    EXPECT_GT(BluePixels(CaptureImage(plotter)), 5000);
    plotter.SwitchToXYProjectPlot();
    EXPECT_EQ(BluePixels(CaptureImage(plotter)), 0);
}

TEST_P(PlotModes, FrameLinesShowUnlessHidden) {
    plotter.SetFrameLineColor(0x00FF00FFul);
    const Image withLines = CaptureImage(plotter);
    EXPECT_GT(withLines.Count(IsMagenta), 500);
    plotter.ShowFrameLines(false);
    EXPECT_EQ(CaptureImage(plotter).Count(IsMagenta), 0);
    plotter.ShowFrameLines(true);
    plotter.SwitchToXYProjectPlot();
    EXPECT_EQ(CaptureImage(plotter).Count(IsMagenta), 0) << "the flat plots have none";
}

// Wherever a point of the surface lies, the picture shows it or something nearer.
TEST_P(PlotModes, NearerPartsHideFartherOnes) {
    const TestSurface surface = HillSurface(40, 30);
    plotter.SetData(surface.NewArray(), 40, 30, 1, 40, 3);
    CaptureImage(plotter);
    const CurrentContext context(plotter);
    std::vector<float> depths(400 * 300);
    glReadPixels(0, 0, 400, 300, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    int shown = 0, hidden = 0;
    for (unsigned int r = 1; r < 29; ++r)
        for (unsigned int c = 1; c < 39; ++c) {
            const float* p = surface.Point(c, r);
            float window[3];
            plotter.Project(p[0], p[1], p[2], window);
            // A point on the surface's rim may fall on a pixel beside it.
            const int x = static_cast<int>(window[0]);
            const int y = static_cast<int>(window[1]);
            float depth = 1;
            for (int neighbour = 0; neighbour < 9; ++neighbour)
                depth = std::min(depth, depths[(y + neighbour / 3 - 1) * 400 + x + neighbour % 3 - 1]);
            EXPECT_LT(depth, window[2] + 0.004f) << c << ' ' << r;
            depths[y * 400 + x] < window[2] - 0.004f ? ++hidden : ++shown;
        }
    EXPECT_GT(shown, 300);
    EXPECT_GT(hidden, 20);
}

TEST_P(PlotModes, AnUnknownPlotTypeDrawsNothingButPresents) {
    for (const int type : {-1, 4, 1000}) {
        plotter.m_plotType = 0;
        plotter.SetBackgroundColor(0, 0, 1, 1);
        EXPECT_EQ(plotter.Renderscene(), 0);
        plotter.SetBackgroundColor(1, 0, 0, 1);
        {
            const CurrentContext context(plotter);
            plotter.DrawScene(); // waits to be presented
        }
        plotter.SetBackgroundColor(0.5f, 0, 0, 1);
        plotter.m_plotType = type;
        EXPECT_EQ(plotter.GetCurrentPlotType(), type);
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_EQ(ClearedRed(), 1.0f);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        plot.window.HandleMessages();
        const Image presented = plot.window.Presented(plotter);
        if (!presented.rgba.empty()) {
            EXPECT_TRUE(presented.IsNear(399, 0, {255, 0, 0})) << type;
        }
    }
    plotter.OnDestroy();
    plotter.m_plotType = 4;
    EXPECT_NE(plotter.Renderscene(), 0) << "what cannot be presented is noticed";
}

TEST_P(PlotModes, WhatCannotBePresentedIsReported) {
    plotter.OnDestroy();
    EXPECT_NE(plotter.Renderscene(), 0);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(PlotModes, GuideLinesCrossOnTheBackPlanes) {
    const auto lineColour = [](const unsigned char* p) {
        return (p[0] == 76 || p[0] == 77) && p[1] == p[0] && p[2] == p[0];
    };
    const float point[] = {1, 0.5f, 0.25f};
    std::copy(point, point + 3, plotter.m_tracePoint);
    const CurrentContext context(plotter);
    glDisable(GL_LIGHTING);
    glClearColor(1, 1, 1, 1);
    for (const bool flipped : {false, true}) {
        plotter.m_gridBox->m_backPlane[0] = plotter.m_gridBox->m_backPlane[2] = flipped;
        plotter.m_gridBox->m_backPlane[1] = !flipped;
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        plotter.ApplyViewVolume();
        plotter.ApplyModelViewMatrix();
        plotter.RenderTraceGuideLines();
        const Image image = ReadBuffer(GL_BACK, 400, 300);
        const float* min = plotter.m_gridBox->m_boxMin;
        const float* max = plotter.m_gridBox->m_boxMax;
        const float wallX = flipped ? min[0] : max[0], wallY = flipped ? min[1] : max[1];
        const float wallZ = flipped ? max[2] : min[2];
        const float ends[6][2][3] = {{{point[0], wallY, min[2]}, {point[0], wallY, max[2]}},
                                     {{min[0], wallY, point[2]}, {max[0], wallY, point[2]}},
                                     {{point[0], min[1], wallZ}, {point[0], max[1], wallZ}},
                                     {{min[0], point[1], wallZ}, {max[0], point[1], wallZ}},
                                     {{wallX, point[1], min[2]}, {wallX, point[1], max[2]}},
                                     {{wallX, min[1], point[2]}, {wallX, max[1], point[2]}}};
        double length = 0;
        for (const auto& line : ends) {
            float from[3], to[3];
            plotter.Project(line[0][0], line[0][1], line[0][2], from);
            plotter.Project(line[1][0], line[1][1], line[1][2], to);
            length += std::max(std::fabs(from[0] - to[0]), std::fabs(from[1] - to[1]));
            for (const float share : {0.1f, 0.4f, 0.9f}) {
                const int x = static_cast<int>(from[0] + share * (to[0] - from[0]));
                const int y = 299 - static_cast<int>(from[1] + share * (to[1] - from[1]));
                bool found = false;
                for (int i = 0; i < 9; ++i)
                    found = found || lineColour(image.Pixel(x - 1 + i % 3, y - 1 + i / 3));
                EXPECT_TRUE(found) << x << ' ' << y;
            }
        }
        EXPECT_NEAR(image.Count(lineColour), length, 0.05 * length) << "and nothing else is drawn";
    }
}

KIVO_IN_EVERY_WINDOW(PlotModes);
