// Surfaces of which the triangles that no pixel shows are left out: pixel for pixel what they are with all.
#include "KivoContours.h"
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoSurfaces.h"
#include "KivoView.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

// Some three cells for each pixel of the window along each side.
constexpr int width = 160, height = 120;
constexpr unsigned int columns = 420, rows = 330;

class CulledSurface : public WindowTest {
protected:
    CulledSurface() { plotter.ShowFrameLines(false); }

    void Show(const TestSurface& surface) {
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    }

    Image Picture(bool cull, const SKivoPictureOptions& options = {}) {
        EXPECT_EQ(CullSmallTriangles(plotter, cull), 0);
        Image image;
        EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0);
        return image;
    }

    void ExpectSame(const std::string& name, const SKivoPictureOptions& options = {}) {
        const Image all = Picture(false, options);
        EXPECT_TRUE(ImagesAgree(Picture(true, options), all, 0, 0.0, "culled-" + name)) << name;
    }

    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST_P(CulledSurface, LooksTheSameFromEverywhere) {
    for (const TestSurface& surface :
         {HillSurface(columns, rows), NoiseSurface(columns, rows), StepSurface(columns, rows)}) {
        Show(surface);
        for (int turn = 0; turn < 12; ++turn) {
            ExpectSame(surface.name + std::to_string(turn));
            TurnView(plotter, 37.0, turn % 2 == 0 ? 23.0 : -41.0);
        }
        for (const double zoom : {0.3, 4.0, 5.0}) {
            ZoomView(plotter, zoom, {70, 50});
            ExpectSame(surface.name + "-zoomed-" + std::to_string(zoom));
        }
        ResetView(plotter);
    }
}

// A flat plot, filled between its contours; and seen along its cells, where corners lie in middles of pixels.
TEST_P(CulledSurface, LooksTheSameInFlatPlots) {
    Show(HillSurface(columns, rows));
    FillContours(plotter, true);
    plotter.ApplyTopView();
    ExpectSame("top");
    plotter.ApplyBottomView();
    ExpectSame("bottom");
    plotter.SwitchToXYProjectPlot();
    ExpectSame("filled");
}

TEST_P(CulledSurface, LooksTheSameWithHolesAndInfinities) {
    TestSurface surface = HillSurface(columns, rows);
    for (std::size_t i = 0; i < surface.points.size(); i += 613)
        surface.points[i] = std::numeric_limits<float>::quiet_NaN();
    Show(surface);
    ExpectSame("holes");
    for (std::size_t i = 2; i < surface.points.size(); i += 3 * 977)
        surface.points[i] = std::numeric_limits<float>::infinity();
    Show(surface);
    ExpectSame("infinities");
}

// Of four floats the last one is what OpenGL divides by; of more, three count.
TEST_P(CulledSurface, LooksTheSameWithMoreFloatsAPoint) {
    const TestSurface surface = HillSurface(columns, rows);
    for (const unsigned int components : {4u, 6u}) {
        auto* const points = new float[std::size_t{columns} * rows * components]();
        for (std::size_t i = 0; i < std::size_t{columns} * rows; ++i) {
            for (std::size_t k = 0; k < 3; ++k)
                points[i * components + k] = surface.points[3 * i + k];
            points[i * components + 3] = 1.0f + 0.1f * static_cast<float>(i % columns) / columns;
        }
        plotter.SetData(points, columns, rows, 1, columns, components);
        ExpectSame(std::to_string(components) + "-floats");
    }
}

// Where floats have few digits left for parts of a pixel, or none.
TEST_P(CulledSurface, LooksTheSameFarFromTheOrigin) {
    for (const float origin : {1e3f, 3e4f, 1e6f}) {
        TestSurface surface = HillSurface(columns, rows);
        for (std::size_t i = 0; i < surface.points.size(); ++i)
            if (i % 3 != 2) surface.points[i] += origin;
        Show(surface);
        ExpectSame("far-" + std::to_string(origin));
    }
}

TEST_P(CulledSurface, LooksTheSameInPicturesOfOtherSizes) {
    Show(TerrainSurface(columns, rows));
    SKivoPictureOptions options;
    options.smoothing = 2;
    ExpectSame("smooth", options);
    options.transparent = true;
    options.scale = 1.5f;
    ExpectSame("transparent", options);
    SKivoPictureOptions strip;
    strip.width = 40;
    strip.height = 300;
    ExpectSame("strip", strip);
}

// In tiles, whose viewports begin outside of the window.
TEST_P(CulledSurface, LooksTheSameInTiles) {
    Show(TerrainSurface(columns, rows));
    ZoomView(plotter, 1.4, {20, 90});
    Image all(700, 500), culled(700, 500);
    ASSERT_EQ(CapturePicture(plotter, 700, 500, all.rgba), 0);
    ASSERT_EQ(CullSmallTriangles(plotter, true), 0);
    ASSERT_EQ(CapturePicture(plotter, 700, 500, culled.rgba), 0);
    EXPECT_TRUE(ImagesAgree(culled, all, 0, 0.0, "culled-tiles"));
}

TEST_P(CulledSurface, LooksTheSameMirroredAndMoving) {
    Show(HillSurface(columns, rows));
    plotter.SetInverseXAxis(true);
    ExpectSame("mirrored");
    plotter.SetInverseZAxis(true);
    ExpectSame("mirrored-twice");
    ASSERT_EQ(SetMotionDetail(plotter, 250), 0); // not so few that all are drawn
    SKivoPictureOptions moving;
    moving.moving = true;
    ExpectSame("moving", moving);
}

TEST_P(CulledSurface, LooksTheSameWithOthersAndACut) {
    Show(HillSurface(columns, rows));
    const TestSurface plane = PlaneSurface(columns, rows);
    SKivoSurface looks;
    for (const float opacity : {1.0f, 0.5f}) {
        looks.opacity = opacity;
        const int number = AddSurface(plotter, plane.points.data(), columns, rows, 1, columns, 3, looks);
        ExpectSame("with-another");
        looks.isColoredByZ = false;
        SetSurface(plotter, 0, looks);
        ExpectSame("both-plain");
        RemoveSurface(plotter, number);
        SetSurface(plotter, 0, SKivoSurface());
    }
    plotter.SetZAxisMin(-1.0f);
    plotter.SetZAxisMax(1.0f);
    CutToAxis(plotter, 2, true);
    ExpectSame("cut");
    plotter.SetXAxisMin(-1.0f);
    plotter.SetXAxisMax(2.0f);
    CutToAxis(plotter, 0, true);
    FillContours(plotter, true);
    plotter.SwitchToXYProjectPlot();
    ExpectSame("cut-filled");
}

KIVO_IN_ONE_WINDOW(CulledSurface);
