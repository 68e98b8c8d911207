// The whole state of OpenGL before and after each layer: what a layer leaves different, and why.
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "support/GlSnapshot.h"
#include "support/RecordedPlot.h"

#include <functional>
#include <set>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

using Names = std::set<std::string>;

Names operator+(Names a, const Names& b) {
    a.insert(b.begin(), b.end());
    return a;
}

// Every layer sets the colours that it draws in. The material follows the current colour.
const Names color = {"GL_CURRENT_COLOR", "front GL_AMBIENT", "front GL_DIFFUSE", "back GL_AMBIENT",
                     "back GL_DIFFUSE"};
// The corners of images.
const Names texcoord = {"GL_CURRENT_TEXTURE_COORDS"};
// Arrays are switched off after use; where they lie is set before each use.
const Names vertexPointer = {"GL_VERTEX_ARRAY_POINTER", "GL_VERTEX_ARRAY_SIZE", "GL_VERTEX_ARRAY_STRIDE",
                             "GL_VERTEX_ARRAY_TYPE"};
const Names colorPointer = {"GL_COLOR_ARRAY_POINTER", "GL_COLOR_ARRAY_SIZE", "GL_COLOR_ARRAY_STRIDE",
                            "GL_COLOR_ARRAY_TYPE"};
const Names normalPointer = {"GL_NORMAL_ARRAY_POINTER", "GL_NORMAL_ARRAY_STRIDE", "GL_NORMAL_ARRAY_TYPE"};
// One pixel, after lines of other widths.
const Names lineWidth = {"GL_LINE_WIDTH"};
// Set before the triangles; the offset itself is switched off.
const Names offset = {"GL_POLYGON_OFFSET_FACTOR", "GL_POLYGON_OFFSET_UNITS"};
// Texturing and blending are off afterwards, whatever they were before.
const Names textureOff = {"GL_BLEND", "GL_TEXTURE_2D"};
// That of images with transparent ground.
const Names blendFunc = {"GL_BLEND_SRC", "GL_BLEND_DST"};
// Lighting is on afterwards, whatever it was before.
const Names lighting = {"GL_LIGHTING"};
const Names depthTest = {"GL_DEPTH_TEST"};
const Names background = {"GL_COLOR_CLEAR_VALUE"};
// Bitmap text stands at a raster position and moves it.
const Names raster = {"GL_CURRENT_RASTER_COLOR", "GL_CURRENT_RASTER_DISTANCE", "GL_CURRENT_RASTER_POSITION",
                      "GL_CURRENT_RASTER_TEXTURE_COORDS"};

class LayerState : public testing::Test {
protected:
    LayerState() {
        plot.Fill();
        plotter.OnDraw();
        plotter.BeginGLOperation();
    }
    ~LayerState() override { plotter.EndGLOperation(); }

    // What a layer changes in a state that no layer would leave.
    Names Changed(const std::function<void()>& layer) const {
        SetOddState();
        const GlSnapshot before = TakeSnapshot();
        layer();
        return Differences(before, TakeSnapshot());
    }
    // Expects this to change when lighting is on, and the same and more when it is off.
    void ExpectToChange(const Names& names, const Names& moreWhenUnlit, const std::function<void()>& layer) {
        glEnable(GL_LIGHTING);
        glEnable(GL_DEPTH_TEST);
        EXPECT_EQ(Changed(layer), names);
        glDisable(GL_LIGHTING);
        EXPECT_EQ(Changed(layer), names + moreWhenUnlit);
        // Layers take the depth test as it is, on or off.
        glEnable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        EXPECT_EQ(Changed(layer), names);
        glEnable(GL_DEPTH_TEST);
    }
    double Pixel() const { return (plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2]; }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    CKivoGridBox& box = *plotter.m_gridBox;
};

} // namespace

TEST_F(LayerState, GridBox) {
    ExpectToChange(color + texcoord, {},
                   [&] { box.Render(Pixel(), plotter.m_axisScale, plotter.m_rotationMatrix); });
}

TEST_F(LayerState, FramesOfTheFlatPlots) {
    ExpectToChange(color + texcoord, {}, [&] { box.RenderXYFrame(Pixel(), plotter.m_axisScale); });
    ExpectToChange(color + texcoord, {}, [&] { box.RenderYZFrame(Pixel(), plotter.m_axisScale); });
    ExpectToChange(color + texcoord, {}, [&] { box.RenderXZFrame(Pixel(), plotter.m_axisScale); });
}

TEST_F(LayerState, TraceGuideLines) {
    ExpectToChange(color, {}, [&] { plotter.RenderTraceGuideLines(); });
}

TEST_F(LayerState, TracedPoint) {
    ExpectToChange(color + vertexPointer + normalPointer, {}, [&] { plotter.RenderTracePoints(); });
}

TEST_F(LayerState, FlatContours) {
    ExpectToChange(color + vertexPointer, {}, [&] { plotter.RenderFlatXIsoContour(); });
    ExpectToChange(color + vertexPointer, {}, [&] { plotter.RenderFlatYIsoContour(); });
    ExpectToChange(color + vertexPointer, {}, [&] { plotter.RenderFlatZIsoContour(); });
}

TEST_F(LayerState, Curves) {
    ExpectToChange(color + vertexPointer + normalPointer + lineWidth, lighting,
                   [&] { plotter.RenderCurves(); });
}

// The colour array leaves the current colour undefined; the next layer sets its own.
TEST_F(LayerState, SurfaceWithFrameLines) {
    ExpectToChange(color + vertexPointer + colorPointer + offset + textureOff, lighting,
                   [&] { plotter.RenderSurface(); });
}

TEST_F(LayerState, SurfaceWithoutFrameLinesKeepsTheLighting) {
    plotter.ShowFrameLines(false);
    for (const bool isLit : {true, false}) {
        isLit ? glEnable(GL_LIGHTING) : glDisable(GL_LIGHTING);
        const Names changed = Changed([&] { plotter.RenderSurface(); });
        EXPECT_EQ(changed + color, color + vertexPointer + colorPointer + offset + textureOff);
    }
}

TEST_F(LayerState, MeasurePoints) {
    ExpectToChange(color + vertexPointer + normalPointer, {}, [&] { plotter.RenderMeasurePoints(); });
}

TEST_F(LayerState, Title) {
    ExpectToChange(color + texcoord + blendFunc + textureOff, lighting, [&] { plotter.RenderPlotName(); });
}

TEST_F(LayerState, TraceLabel) {
    ExpectToChange(color + texcoord, {}, [&] { plotter.RenderTraceLegend(); });
}

TEST_F(LayerState, ColourLegend) {
    ExpectToChange(color + texcoord, {}, [&] {
        plotter.m_zColorRuler->Render(plotter.m_legendViewport, plotter.m_legendViewVolume);
    });
}

TEST_F(LayerState, MeasureGroupsLegend) {
    ExpectToChange(color + texcoord + blendFunc + textureOff, {}, [&] { plotter.RenderLegend(); });
}

// In the current colour.
TEST_F(LayerState, ContoursOnTheSurface) {
    ExpectToChange({}, lighting, [&] { plotter.RenderIsoContour(); });
}

TEST_F(LayerState, BitmapText) {
    glEnable(GL_LIGHTING);
    EXPECT_EQ(Changed([&] { plotter.RenderText(0.25f, 0, 0, "abc"); }), raster);
    // Without a position of its own it only moves the one there is.
    EXPECT_EQ(Changed([&] { plotter.Render3DText(0, 0, 0, "abc", 3); }), Names{"GL_CURRENT_RASTER_POSITION"});
}

TEST_F(LayerState, PicturesOfLinesAndContours) {
    ExpectToChange(color, lighting, [&] { plotter.CreateFramelineSKivoTexImage(); });
    ExpectToChange(color + lineWidth, lighting, [&] { plotter.CreateIsoContourSKivoTexImage(); });
}

TEST_F(LayerState, TheCameraIsLoadedWithinItsMatrices) {
    const Names none;
    EXPECT_EQ(Changed([&] { plotter.ApplyViewVolume(); }), none) << "it is loaded already";
    EXPECT_EQ(Changed([&] { plotter.ApplyModelViewMatrix(); }), none);
    plotter.m_viewLeft *= 2;
    EXPECT_EQ(Changed([&] { plotter.ApplyViewVolume(); }), Names{"GL_PROJECTION_MATRIX"});
    plotter.m_rotationMatrix[12] += 0.5;
    EXPECT_EQ(Changed([&] { plotter.ApplyModelViewMatrix(); }), Names{"GL_MODELVIEW_MATRIX"});
}

// A frame leaves what its layers leave. Lighting and depth test are on at its end, even when it begins
// without.
TEST_F(LayerState, WholeFrames) {
    const Names flat = color + texcoord + blendFunc + textureOff + background + vertexPointer;
    const Names normal = flat + normalPointer + colorPointer + offset + lineWidth;
    for (int type = 0; type < 4; ++type) {
        plotter.m_plotType = type;
        const Names expected = type == 0 ? normal : flat;
        const auto draw = [&] { plotter.DrawScene(); };
        EXPECT_EQ(Changed(draw), expected) << type;
        EXPECT_TRUE(glIsEnabled(GL_LIGHTING) && glIsEnabled(GL_DEPTH_TEST)) << type;
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        EXPECT_EQ(Changed(draw), expected + lighting + depthTest) << type;
    }
    plotter.m_plotType = 0;
}
