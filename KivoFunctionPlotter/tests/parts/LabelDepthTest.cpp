// Texts of the 3-D box with planes that do not switch, where edges with ticks lie before and behind the
// surface, and titles of all axes in turned views and small windows.
#include "parts/KivoGridBox.h"
#include "support/Image.h"
#include "support/Matrices.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

// What a frame leaves: colours and depths, top row first.
struct Frame {
    Image colors;
    std::vector<float> depths;
};

struct PixelRange {
    int left, top, right, bottom; // the last ones belong to it
};

class LabelDepth : public WindowTest {
protected:
    static constexpr int width = 640;
    static constexpr int height = 480;
    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;

    void SetUp() override {
        const TestSurface surface = HillSurface(30, 24);
        plotter.SetData(surface.NewArray(), 30, 24, 1, 30, 3);
        plotter.SetXAxisTitle("X axis");
        plotter.SetYAxisTitle("Y axis");
        plotter.SetZAxisTitle("Z axis");
        plotter.SetAutoSwitchFramePlanes(false);
    }

    CKivoGridBox& Box() const { return *plotter.m_gridBox; }

    void LookFrom(double azimuth, double elevation) {
        const Matrix turn = Rotation(elevation - 90, 1, 0, 0) * Rotation(azimuth, 0, 0, 1);
        std::copy(turn.begin(), turn.end(), plotter.m_rotationMatrix);
    }

    Frame Draw() {
        const CurrentContext context(plotter);
        plotter.DrawScene();
        Frame frame = {ReadBuffer(GL_BACK, width, height), std::vector<float>(width * height)};
        glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, frame.depths.data());
        for (int row = 0; row < height / 2; ++row)
            std::swap_ranges(frame.depths.begin() + row * width, frame.depths.begin() + (row + 1) * width,
                             frame.depths.begin() + (height - 1 - row) * width);
        return frame;
    }

    // Takes the ink of all texts of the box; their sizes, and so their places, stay.
    void TakeInk() {
        const CurrentContext context(plotter);
        for (int axis = 0; axis < 3; ++axis) {
            Erase(Box().m_axisTitleImage[axis]);
            for (unsigned int i = 0; i <= Box().m_tickIntervals[axis]; ++i)
                Erase(Box().m_tickLabels[axis][i]);
        }
    }
    static void Erase(const SKivoTexImage& image) {
        const std::vector<unsigned char> clear(static_cast<std::size_t>(image.width) * image.height * 4);
        glBindTexture(GL_TEXTURE_2D, image.texture);
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, image.width, image.height, GL_RGBA, GL_UNSIGNED_BYTE,
                        clear.data());
        glBindTexture(GL_TEXTURE_2D, 0);
    }

    PixelRange PixelsOf(const PlacedImage& label) const {
        const double x = label.center.x + plotter.m_plotViewport[0];
        return {static_cast<int>(std::floor(x - label.halfWidth)),
                height - 1 - static_cast<int>(std::floor(label.center.y + label.halfHeight)),
                static_cast<int>(std::floor(x + label.halfWidth)),
                height - 1 - static_cast<int>(std::floor(label.center.y - label.halfHeight))};
    }

    static int CountDiffering(const Image& a, const Image& b, const PixelRange& range) {
        int count = 0;
        for (int y = range.top; y <= range.bottom; ++y)
            for (int x = range.left; x <= range.right; ++x)
                count += std::equal(a.Pixel(x, y), a.Pixel(x, y) + 3, b.Pixel(x, y)) ? 0 : 1;
        return count;
    }

    // Where a data point is seen: pixels from the lower left corner of the plot, and depth.
    std::array<double, 3> PlaceOf(const float* point) {
        const CurrentContext context(plotter);
        plotter.ApplyModelViewMatrix();
        float place[3];
        plotter.Project(point[0], point[1], point[2], place);
        return {double{place[0]}, double{place[1]}, double{place[2]}};
    }
    double DepthOfTick(int axis, unsigned int tick) {
        float foot[] = {Box().m_tickBase[axis][0], Box().m_tickBase[axis][1], Box().m_tickBase[axis][2]};
        foot[axis] += Box().m_tickPositions[axis][tick];
        return PlaceOf(foot)[2];
    }

    int CountTitles() const {
        int count = 0;
        for (int axis = 0; axis < 3; ++axis)
            count += Box().m_labelLayout.Title(axis).isShown ? 1 : 0;
        return count;
    }
};

const std::vector<std::pair<double, double>>& Views() {
    static const std::vector<std::pair<double, double>> views = [] {
        std::vector<std::pair<double, double>> made;
        for (int azimuth = 15; azimuth < 360; azimuth += 30)
            for (const int elevation : {15, 40})
                made.emplace_back(azimuth, elevation);
        return made;
    }();
    return views;
}

} // namespace

// The depth buffer of a frame without any ink tells what there is at a label's pixels.
TEST_P(LabelDepth, WhatLiesInFrontOfALabelsTickHidesIt) {
    std::vector<Frame> with;
    for (const auto& [azimuth, elevation] : Views()) {
        LookFrom(azimuth, elevation);
        with.push_back(Draw());
    }
    TakeInk();
    int hidden = 0, seen = 0;
    for (std::size_t view = 0; view < Views().size(); ++view) {
        LookFrom(Views()[view].first, Views()[view].second);
        const Frame without = Draw();
        for (int axis = 0; axis < 3; ++axis)
            for (unsigned int i = 0; i <= Box().m_tickIntervals[axis]; ++i) {
                const PlacedImage& label = Box().m_labelLayout.Labels(axis)[i];
                if (!label.isShown) continue;
                const PixelRange range = PixelsOf(label);
                float nearest = 1.0f, farthest = 0.0f;
                for (int y = range.top; y <= range.bottom; ++y)
                    for (int x = range.left; x <= range.right; ++x) {
                        nearest = std::min(nearest, without.depths[y * width + x]);
                        farthest = std::max(farthest, without.depths[y * width + x]);
                    }
                const double depth = DepthOfTick(axis, i);
                const int ink = CountDiffering(with[view].colors, without.colors, range);
                SCOPED_TRACE("view " + std::to_string(view) + ", axis " + std::to_string(axis) + ", tick " +
                             std::to_string(i));
                if (double{farthest} < depth - 1e-4) {
                    EXPECT_EQ(ink, 0);
                    ++hidden;
                } else if (double{nearest} > depth + 1e-4) {
                    EXPECT_GT(ink, 5);
                    ++seen;
                }
            }
    }
    EXPECT_GT(hidden, 10);
    EXPECT_GT(seen, 200);
}

TEST_P(LabelDepth, AMeasuredPointInFrontOfALabelHidesIt) {
    LookFrom(60, 20);
    Draw();
    const auto& labels = Box().m_labelLayout.Labels(2);
    const auto shown =
        std::find_if(labels.begin(), labels.end(), [](const PlacedImage& image) { return image.isShown; });
    ASSERT_NE(shown, labels.end());
    const PlacedImage label = *shown;
    const double depth = DepthOfTick(2, static_cast<unsigned int>(shown - labels.begin()));
    float points[2][3];
    {
        const CurrentContext context(plotter);
        GLdouble modelView[16], projection[16];
        glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
        glGetDoublev(GL_PROJECTION_MATRIX, projection);
        for (const int side : {0, 1}) { // in front of the label and behind it
            GLdouble x = 0, y = 0, z = 0;
            gluUnProject(label.center.x + plotter.m_plotViewport[0], label.center.y,
                         depth + (side == 0 ? -0.2 : 0.2), modelView, projection, plotter.m_plotViewport, &x,
                         &y, &z);
            points[side][0] = static_cast<float>(x);
            points[side][1] = static_cast<float>(y);
            points[side][2] = static_cast<float>(z);
        }
    }
    plotter.SetPointRadiusPixelSize(30);
    for (float(&point)[3] : points)
        ASSERT_EQ(plotter.AddMeasurePoints(1, 3, point, "m"), 0);
    const auto drawWithPoint = [this](unsigned int side) {
        plotter.ShowMeasureGroup(side, true);
        plotter.ShowMeasureGroup(1 - side, false);
        return Draw().colors;
    };
    const Image with[] = {drawWithPoint(0), drawWithPoint(1)};
    TakeInk();
    EXPECT_EQ(CountDiffering(with[0], drawWithPoint(0), PixelsOf(label)), 0) << "in front of it";
    EXPECT_GT(CountDiffering(with[1], drawWithPoint(1), PixelsOf(label)), 5) << "behind it";
}

// Beside the box, where labels stand then, nothing is to hide them.
TEST_P(LabelDepth, WithSwitchingPlanesLabelsAreNearest) {
    plotter.SetAutoSwitchFramePlanes(true);
    const Frame with = Draw();
    TakeInk();
    const Frame without = Draw();
    int ink = 0;
    for (int i = 0; i < width * height; ++i) {
        const bool isInk = !std::equal(with.colors.rgba.begin() + 4 * i, with.colors.rgba.begin() + 4 * i + 3,
                                       without.colors.rgba.begin() + 4 * i);
        if (!isInk || with.colors.rgba[4 * i] > 100) continue; // beside the ink
        EXPECT_EQ(with.depths[i], 0.0f);
        ++ink;
    }
    EXPECT_GT(ink, 500);
}

TEST_P(LabelDepth, EveryUprightViewShowsAllTitles) {
    for (const bool isSwitching : {false, true}) {
        plotter.SetAutoSwitchFramePlanes(isSwitching);
        int views = 0, lacking = 0;
        for (int azimuth = 5; azimuth < 360; azimuth += 12)
            for (int step = 0; step < 10; ++step, ++views) {
                LookFrom(azimuth, 8 + 7.5 * step);
                const CurrentContext context(plotter);
                plotter.DrawScene();
                lacking += CountTitles() < 3 ? 1 : 0;
            }
        EXPECT_EQ(views, 300);
        EXPECT_EQ(lacking, 0) << (isSwitching ? "switching planes" : "fixed planes");
    }
}

TEST_P(LabelDepth, SmallWindowsShowAllTitles) {
    const struct {
        int width, height, fontSize;
    } cases[] = {{640, 480, 20}, {400, 300, 14}, {400, 300, 20}, {300, 300, 10}, {640, 200, 14}};
    for (const auto& small : cases) {
        SCOPED_TRACE(std::to_string(small.width) + " x " + std::to_string(small.height) + ", " +
                     std::to_string(small.fontSize) + " points");
        plot.window.Resize(small.width, small.height);
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), small.width, small.height, small.fontSize, true), 0);
        SetUp();
        plotter.SetAutoSwitchFramePlanes(true);
        CaptureImage(plotter);
        EXPECT_EQ(CountTitles(), 3);
        for (int axis = 0; axis < 3; ++axis) {
            const PlacedImage& title = Box().m_labelLayout.Title(axis);
            const double x =
                std::abs(title.right.x) * title.halfWidth + std::abs(title.up.x) * title.halfHeight;
            const double y =
                std::abs(title.right.y) * title.halfWidth + std::abs(title.up.y) * title.halfHeight;
            EXPECT_GE(title.center.x - x, 0.0);
            EXPECT_GE(title.center.y - y, 0.0);
            EXPECT_LE(title.center.x + x, plotter.m_plotViewport[2]);
            EXPECT_LE(title.center.y + y, plotter.m_plotViewport[3]);
        }
    }
}

KIVO_IN_EVERY_WINDOW(LabelDepth);
