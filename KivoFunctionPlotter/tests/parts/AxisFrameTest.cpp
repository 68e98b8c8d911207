// The axis box and the frames of the flat plots, as drawn.
#include "parts/KivoGridBox.h"
#include "support/Drawing.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

class AxisFrame : public WindowTest {
protected:
    static constexpr int width = 800;
    static constexpr int height = 500;
    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;

    void SetUp() override {
        const TestSurface surface = HillSurface(12, 10);
        plotter.SetData(surface.NewArray(), 12, 10, 1, 12, 3);
        plotter.ShowFrameLines(false);
    }

    const CKivoGridBox& Box() const { return *plotter.m_gridBox; }

    // Where a data point stands in the window: pixels to the right and upwards, and depth.
    std::array<double, 3> WindowPlace(float x, float y, float z) {
        const CurrentContext context(plotter);
        plotter.ApplyViewVolume();
        plotter.ApplyModelViewMatrix();
        float window[3];
        plotter.Project(x, y, z, window);
        return {double{window[0]}, double{window[1]}, double{window[2]}};
    }

    // The same in the picture: column and row.
    std::vector<int> Place(float x, float y, float z) {
        const std::array<double, 3> place = WindowPlace(x, y, z);
        return {static_cast<int>(std::floor(place[0])), height - 1 - static_cast<int>(std::floor(place[1]))};
    }

    Drawing RecordFrame() {
        const CurrentContext context(plotter);
        return Record([this] { plotter.DrawScene(); });
    }

    unsigned int TickCount(int axis) const { return Box().m_tickIntervals[axis] + 1; }

    void ExpectCenter(const DrawnQuad& quad, double x, double y) {
        EXPECT_NEAR(quad.CenterX(), x, 0.01);
        EXPECT_NEAR(quad.CenterY(), y, 0.01);
    }
    void ExpectSize(const DrawnQuad& quad, const SKivoTexImage& image) {
        EXPECT_NEAR(quad.Width(), image.width, 0.01);
        EXPECT_NEAR(quad.Height(), image.height, 0.01);
    }
    void ExpectFlatTexts(int h, int v, bool isStaggered);

    // Whether a pixel of this colour lies within two of a place.
    bool HasColour(const Image& image, const std::vector<int>& place, const int (&rgb)[3]) const {
        for (int dy = -2; dy <= 2; ++dy)
            for (int dx = -2; dx <= 2; ++dx)
                if (image.IsNear(place[0] + dx, place[1] + dy, rgb, 8)) return true;
        return false;
    }

    // Ink of labels in a row of the picture below the horizontal axis, near a column.
    bool HasInk(const Image& image, int column, int row) const {
        for (int dy = -3; dy <= 3; ++dy)
            for (int dx = -8; dx <= 8; ++dx)
                if (image.IsNear(column + dx, row + dy, {0, 0, 0}, 90)) return true;
        return false;
    }
};

constexpr int black[] = {0, 0, 0};
constexpr int grey[] = {204, 204, 204};
constexpr std::array<float, 3> lineColor = {0, 0, 0};
constexpr std::array<float, 3> gridColor = {0.8f, 0.8f, 0.8f};

// The plots by their switches, with the axes that each of them shows.
struct PlotAxes {
    int (CKivoFunctionPlotter::*show)();
    std::vector<int> axes;
};
const PlotAxes plots[] = {{&CKivoFunctionPlotter::SwitchToNormalPlot, {0, 1, 2}},
                          {&CKivoFunctionPlotter::SwitchToXYProjectPlot, {0, 1}},
                          {&CKivoFunctionPlotter::SwitchToYZProjectPlot, {1, 2}},
                          {&CKivoFunctionPlotter::SwitchToZXProjectPlot, {0, 2}}};

// Labels and titles of a flat plot with a horizontal and a vertical axis, in the order in which they are
// drawn. A unit of the view is as high as it is wide, so that all lengths are pixels.
void AxisFrame::ExpectFlatTexts(int h, int v, bool isStaggered) {
    constexpr double tick = 10.0;
    const std::vector<DrawnQuad> quads = TexturedQuads(RecordFrame());
    ASSERT_GT(quads.size(), TickCount(h) + TickCount(v) + 2);
    const float* min = Box().m_boxMin;
    const auto foot = [&](int axis, float shift) {
        float point[] = {min[0], min[1], min[2]};
        point[axis] += shift;
        return WindowPlace(point[0], point[1], point[2]);
    };
    const auto middle = [&](int axis) { return foot(axis, (Box().m_boxMax[axis] - min[axis]) / 2.0f); };
    auto quad = quads.begin();

    double tallest = 0.0;
    for (unsigned int i = 0; i < TickCount(h); ++i, ++quad) {
        const SKivoTexImage& label = Box().m_tickLabels[h][i];
        const std::array<double, 3> place = foot(h, Box().m_tickPositions[h][i]);
        const double row = isStaggered && i % 2 == 1 ? 1.65 : 0.5;
        ExpectCenter(*quad, place[0], place[1] - tick - row * label.height);
        ExpectSize(*quad, label);
        tallest = std::max(tallest, double{2.15} * label.height);
    }
    const SKivoTexImage& horizontalTitle = Box().m_axisTitleImage[h];
    ExpectCenter(*quad, middle(h)[0], middle(h)[1] - tick - tallest - horizontalTitle.height);
    ExpectSize(*quad, horizontalTitle);
    EXPECT_GT(quad->corners[1].x, quad->corners[0].x) << "it reads to the right";
    ++quad;

    int widest = 0;
    for (unsigned int i = 0; i < TickCount(v); ++i, ++quad) {
        const SKivoTexImage& label = Box().m_tickLabels[v][i];
        const std::array<double, 3> place = foot(v, Box().m_tickPositions[v][i]);
        ExpectCenter(*quad, place[0] - tick - 0.8 * label.width, place[1]);
        ExpectSize(*quad, label);
        widest = std::max(widest, label.width);
    }
    const SKivoTexImage& verticalTitle = Box().m_axisTitleImage[v];
    ExpectCenter(*quad, middle(v)[0] - tick - widest - 1.85 * verticalTitle.height, middle(v)[1]);
    ExpectSize(*quad, verticalTitle);
    EXPECT_GT(quad->corners[1].y, quad->corners[0].y) << "it reads upwards";
    EXPECT_LT(quad->corners[3].x, quad->corners[0].x);
}

} // namespace

TEST_P(AxisFrame, PlaneGeometryFollowsTheBackPlanes) {
    CKivoGridBox& box = *plotter.m_gridBox;
    for (int bits = 0; bits < 8; ++bits) {
        double rotation[16] = {};
        rotation[6] = bits & 1 ? 1 : -1;
        rotation[10] = bits & 2 ? 1 : -1;
        rotation[2] = bits & 4 ? 1 : -1;
        const double scale[] = {1, 1, 1};
        {
            const CurrentContext context(plotter);
            box.Render(0.01, scale, rotation);
        }
        const bool backYLow = bits & 1, backZLow = bits & 2, backXLow = bits & 4;
        const float x[] = {box.m_boxMin[0], box.m_boxMax[0]};
        const float y[] = {box.m_boxMin[1], box.m_boxMax[1]};
        const float z[] = {box.m_boxMin[2], box.m_boxMax[2]};
        const float backX = x[!backXLow], frontX = x[backXLow], backY = y[!backYLow], frontY = y[backYLow];
        const float backZ = z[!backZLow], frontZ = z[backZLow];
        const std::vector<std::vector<float>> bases = {
            {x[0], frontY, backZ}, {frontX, y[0], backZ}, {x[backYLow], y[!backXLow], z[0]}};
        const std::vector<std::vector<float>> corners = {
            {x[0], backY, backZ}, {backX, y[0], backZ}, {backX, backY, z[0]}};
        const std::vector<std::vector<float>> ends = {
            {x[0], backY, frontZ}, {backX, y[0], frontZ}, {x[!backYLow], y[backXLow], z[0]}};
        const float out = backZLow ? -1.0f : 1.0f;
        const std::vector<float> sideways = backYLow && backXLow    ? std::vector<float>{0, -1, 0}
                                            : !backYLow && backXLow ? std::vector<float>{-1, 0, 0}
                                            : backYLow              ? std::vector<float>{1, 0, 0}
                                                                    : std::vector<float>{0, 1, 0};
        const std::vector<std::vector<float>> directions = {{0, 0, out}, {0, 0, out}, sideways};
        for (int axis = 0; axis < 3; ++axis)
            for (int i = 0; i < 3; ++i) {
                EXPECT_EQ(box.m_tickBase[axis][i], bases[axis][i]) << bits << axis << i;
                EXPECT_EQ(box.m_gridCorner[axis][i], corners[axis][i]) << bits << axis << i;
                EXPECT_EQ(box.m_gridEnd[axis][i], ends[axis][i]) << bits << axis << i;
                EXPECT_EQ(box.m_tickDirection[axis][i], directions[axis][i]) << bits << axis << i;
                EXPECT_EQ(box.m_oppositeTickDirection[axis][i], -directions[axis][i]) << bits << axis << i;
            }
    }
}

TEST_P(AxisFrame, TheBoxHasOutlinesTicksAndGridLines) {
    const Image image = CaptureImage(plotter);
    const float* min = Box().m_boxMin;
    const float* max = Box().m_boxMax;
    const float step = Box().m_tickStep[0];
    EXPECT_TRUE(HasColour(image, Place(min[0] + 1.5f * step, max[1], min[2]), black))
        << "outline of the floor";
    const std::vector<int> foot = Place(min[0] + step, max[1], min[2]);
    EXPECT_TRUE(HasColour(image, {foot[0], foot[1] + 6}, black)) << "a tick below it";
    const std::vector<int> onFloor = Place(min[0] + step, max[1] - 0.3f, min[2]);
    EXPECT_TRUE(HasColour(image, onFloor, grey));
    plotter.ShowGridLines(false);
    const Image bare = CaptureImage(plotter);
    EXPECT_FALSE(HasColour(bare, onFloor, grey));
    EXPECT_TRUE(HasColour(bare, {foot[0], foot[1] + 6}, black)) << "ticks stay";
    EXPECT_EQ(bare.Count([](const unsigned char* p) { return p[0] == 204 && p[1] == 204 && p[2] == 204; }),
              0);
}

TEST_P(AxisFrame, HidingGridLinesTakesNothingButTheGreyLinesAway) {
    plotter.SetXAxisTitle("x");
    for (const PlotAxes& shown : plots) {
        std::invoke(shown.show, plotter);
        SCOPED_TRACE(plotter.GetCurrentPlotType());
        plotter.ShowGridLines(true);
        const Drawing with = RecordFrame();
        plotter.ShowGridLines(false);
        const Drawing without = RecordFrame();
        std::size_t ticks = 0;
        for (const int axis : shown.axes)
            ticks += TickCount(axis);
        const bool isFlat = shown.axes.size() == 2;
        EXPECT_EQ(LinesOfColor(with, gridColor).size(), isFlat ? ticks : 2 * ticks);
        EXPECT_EQ(LinesOfColor(without, lineColor).size(), isFlat ? ticks : ticks + 12) << "12 of outlines";
        EXPECT_TRUE(without == WithoutLinesOfColor(with, gridColor));
        EXPECT_GT(TexturedQuads(without).size(), 11u) << "more than the legend's labels";
    }
}

TEST_P(AxisFrame, AnAxisWithoutTickPositionsHasNeitherTicksNorGridLinesNorLabels) {
    for (const PlotAxes& shown : plots) {
        std::invoke(shown.show, plotter);
        SCOPED_TRACE(plotter.GetCurrentPlotType());
        for (const int missing : shown.axes) {
            float*& positions = plotter.m_gridBox->m_tickPositions[missing];
            float* const kept = std::exchange(positions, nullptr);
            const Drawing drawing = RecordFrame();
            std::size_t ticks = 0;
            for (const int axis : shown.axes)
                ticks += axis == missing ? 0 : TickCount(axis);
            const bool isFlat = shown.axes.size() == 2;
            EXPECT_EQ(LinesOfColor(drawing, gridColor).size(), isFlat ? ticks : 2 * ticks);
            EXPECT_EQ(LinesOfColor(drawing, lineColor).size(), isFlat ? ticks : ticks + 12);
            if (isFlat) {
                EXPECT_EQ(TexturedQuads(drawing).size(), ticks + 11);
            } else {
                EXPECT_TRUE(Box().m_labelLayout.Labels(missing).empty());
            }
            positions = kept;
        }
    }
}

TEST_P(AxisFrame, WithoutDataThereAreOutlinesAlone) {
    plotter.ReleaseDataRelativeResource();
    plotter.SwitchToNormalPlot();
    const Drawing box = RecordFrame();
    EXPECT_EQ(LinesOfColor(box, lineColor).size(), 12u);
    EXPECT_TRUE(LinesOfColor(box, gridColor).empty());
    EXPECT_TRUE(TexturedQuads(box).empty());
    plotter.SwitchToXYProjectPlot();
    const Drawing frame = RecordFrame();
    EXPECT_EQ(LinesOfColor(frame, {1, 0, 0}).size(), 1u);
    EXPECT_EQ(LinesOfColor(frame, {0, 1, 0}).size(), 1u);
    EXPECT_TRUE(LinesOfColor(frame, lineColor).empty());
    EXPECT_TRUE(LinesOfColor(frame, gridColor).empty());
    EXPECT_TRUE(TexturedQuads(frame).empty());
}

// A hair behind their place, where they cannot break up the outlines along which some of them run.
TEST_P(AxisFrame, GridLinesLieJustBehindTheOutlines) {
    const Drawing lines = LinesOfColor(RecordFrame(), gridColor);
    std::size_t line = 0;
    for (int axis = 0; axis < 3; ++axis)
        for (unsigned int i = 0; i < TickCount(axis); ++i)
            for (const auto& [from, to] : {std::pair(Box().m_tickBase[axis], Box().m_gridCorner[axis]),
                                           std::pair(Box().m_gridCorner[axis], Box().m_gridEnd[axis])}) {
                ASSERT_LT(line, lines.size());
                for (const float* end : {from, to}) {
                    float point[] = {end[0], end[1], end[2]};
                    point[axis] += Box().m_tickPositions[axis][i];
                    const std::array<double, 3> place = WindowPlace(point[0], point[1], point[2]);
                    const DrawnVertex& vertex = lines[line][end == from ? 0 : 1];
                    EXPECT_NEAR(vertex.x, place[0], 0.01);
                    EXPECT_NEAR(vertex.y, place[1], 0.01);
                    EXPECT_NEAR(vertex.depth, 1e-5 + (1.0 - 1e-5) * place[2], 1e-6);
                }
                ++line;
            }
    EXPECT_EQ(line, lines.size());
    const CurrentContext context(plotter);
    GLdouble range[2] = {};
    glGetDoublev(GL_DEPTH_RANGE, range);
    EXPECT_EQ(range[0], 0.0) << "put back";
    EXPECT_EQ(range[1], 1.0);
}

TEST_P(AxisFrame, FlatTextsStandAtTheirTicks) {
    plotter.SetXAxisTitle("across");
    plotter.SetYAxisTitle("deep");
    plotter.SetZAxisTitle("high");
    plotter.SwitchToXYProjectPlot();
    ExpectFlatTexts(0, 1, true);
    plotter.SwitchToYZProjectPlot();
    ExpectFlatTexts(1, 2, false);
    plotter.SwitchToZXProjectPlot();
    ExpectFlatTexts(0, 2, false);
}

TEST_P(AxisFrame, TicksAreTenPixelsLong) {
    const Image image = CaptureImage(plotter);
    const std::vector<int> foot =
        Place(Box().m_boxMin[0] + Box().m_tickStep[0], Box().m_boxMax[1], Box().m_boxMin[2]);
    int longest = 0;
    for (int dx = -1; dx <= 1; ++dx) {
        int length = 0;
        while (image.IsNear(foot[0] + dx, foot[1] + 1 + length, black, 8))
            ++length;
        longest = std::max(longest, length);
    }
    // The Z axis leans, which shortens what points along it.
    const double lean = plotter.m_rotationMatrix[9];
    EXPECT_NEAR(longest, 10 * lean, 2.0);
}

TEST_P(AxisFrame, FlatFramesHaveTheirAxesColours) {
    const int red[] = {255, 0, 0}, green[] = {0, 255, 0}, blue[] = {0, 0, 255};
    const float* min = Box().m_boxMin;
    const float* max = Box().m_boxMax;
    const float middle[] = {(min[0] + max[0]) / 2 + 0.1f, (min[1] + max[1]) / 2 + 0.1f,
                            (min[2] + max[2]) / 2 + 0.1f};
    plotter.SwitchToXYProjectPlot();
    Image image = CaptureImage(plotter);
    EXPECT_TRUE(HasColour(image, Place(middle[0], min[1], min[2]), red));
    EXPECT_TRUE(HasColour(image, Place(min[0], middle[1], min[2]), green));
    plotter.SwitchToYZProjectPlot();
    image = CaptureImage(plotter);
    EXPECT_TRUE(HasColour(image, Place(min[0], middle[1], min[2]), green));
    EXPECT_TRUE(HasColour(image, Place(min[0], min[1], middle[2]), blue));
    plotter.SwitchToZXProjectPlot();
    image = CaptureImage(plotter);
    EXPECT_TRUE(HasColour(image, Place(middle[0], min[1], min[2]), red));
    EXPECT_TRUE(HasColour(image, Place(min[0], min[1], middle[2]), blue));
}

TEST_P(AxisFrame, EveryOtherLabelStandsLowerInTheXYPlotOnly) {
    const auto rows = [this](const Image& image, int axis, unsigned int tick) {
        const float* min = Box().m_boxMin;
        float point[] = {min[0], min[1], min[2]};
        point[axis] += Box().m_tickPositions[axis][tick];
        const std::vector<int> foot = Place(point[0], point[1], point[2]);
        const int labelHeight = Box().m_tickLabels[axis][tick].height;
        const int upper = foot[1] + 10 + labelHeight / 2;
        return std::vector<bool>{HasInk(image, foot[0], upper),
                                 HasInk(image, foot[0], upper + static_cast<int>(1.15 * labelHeight))};
    };
    plotter.SwitchToXYProjectPlot();
    const Image xy = CaptureImage(plotter);
    EXPECT_EQ(rows(xy, 0, 0), (std::vector<bool>{true, false}));
    EXPECT_EQ(rows(xy, 0, 1), (std::vector<bool>{false, true}));
    EXPECT_EQ(rows(xy, 0, 2), (std::vector<bool>{true, false}));
    plotter.SwitchToZXProjectPlot();
    const Image xz = CaptureImage(plotter);
    EXPECT_EQ(rows(xz, 0, 0), (std::vector<bool>{true, false}));
    EXPECT_EQ(rows(xz, 0, 1), (std::vector<bool>{true, false}));
    plotter.SwitchToYZProjectPlot();
    const Image yz = CaptureImage(plotter);
    EXPECT_EQ(rows(yz, 1, 1), (std::vector<bool>{true, false}));
}

TEST_P(AxisFrame, FlatTitlesKeepTheirGaps) {
    plotter.SwitchToXYProjectPlot();
    plotter.SetXAxisTitle("");
    plotter.SetYAxisTitle("");
    const Image without = CaptureImage(plotter);
    const float* min = Box().m_boxMin;
    const std::vector<int> origin = Place(min[0], min[1], min[2]);
    const auto inkBox = [&](const Image& with) {
        std::vector<int> box = {width, height, -1, -1};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (!std::equal(with.Pixel(x, y), with.Pixel(x, y) + 3, without.Pixel(x, y)))
                    box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x),
                           std::max(box[3], y)};
        return box;
    };
    plotter.SetXAxisTitle("HHHH");
    const SKivoTexImage& horizontal = Box().m_axisTitleImage[0];
    const double down = 10 + 2.15 * Box().m_tickLabels[0][0].height + horizontal.height;
    std::vector<int> box = inkBox(CaptureImage(plotter));
    EXPECT_NEAR((box[1] + box[3]) / 2.0, origin[1] + down, horizontal.height / 3.0);
    plotter.SetXAxisTitle("");
    box = inkBox(CaptureImage(plotter));
    EXPECT_EQ(box[3], -1) << "an empty title leaves nothing of the one before";
    plotter.SetYAxisTitle("HHHH");
    const SKivoTexImage& vertical = Box().m_axisTitleImage[1];
    int widest = 0;
    for (unsigned int i = 0; i <= Box().m_tickIntervals[1]; ++i)
        widest = std::max(widest, Box().m_tickLabels[1][i].width);
    box = inkBox(CaptureImage(plotter));
    EXPECT_NEAR((box[0] + box[2]) / 2.0, origin[0] - 10 - widest - 1.85 * vertical.height,
                vertical.height / 3.0);
    EXPECT_GT(box[3] - box[1], box[2] - box[0]) << "it reads upwards";
}

// Rows of pixels: whether there is ink.
using Ink = std::vector<std::vector<bool>>;

// An axis turned round while a flat plot is shown mirrors the frame, but not its texts.
TEST_P(AxisFrame, FlatTextsReadCorrectlyAlongMirroredAxes) {
    plotter.SwitchToXYProjectPlot();
    const auto titleInk = [this](bool isOfX) {
        const auto setTitle = [&](const char* title) {
            isOfX ? plotter.SetXAxisTitle(title) : plotter.SetYAxisTitle(title);
        };
        setTitle("");
        const Image without = CaptureImage(plotter);
        setTitle("LLLF");
        const Image with = CaptureImage(plotter);
        std::vector<int> box = {width, height, -1, -1};
        Ink ink(height, std::vector<bool>(width, false));
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (with.Pixel(x, y)[0] + 60 < without.Pixel(x, y)[0]) {
                    ink[y][x] = true;
                    box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x),
                           std::max(box[3], y)};
                }
        Ink cut;
        for (int y = box[1]; y <= box[3]; ++y)
            cut.emplace_back(ink[y].begin() + box[0], ink[y].begin() + box[2] + 1);
        return cut;
    };
    const auto at = [](const Ink& ink, std::size_t x, std::size_t y) {
        return y < ink.size() && x < ink[y].size() && ink[y][x];
    };
    // Texels fall on other pixels when they are read the other way: one pixel to each side does not count.
    const auto differing = [&](const Ink& a, const Ink& b) {
        std::size_t least = a.size() * a[0].size();
        for (std::size_t shift = 0; shift < 9; ++shift) {
            std::size_t count = 0;
            for (std::size_t y = 0; y < a.size() + 2; ++y)
                for (std::size_t x = 0; x < a[0].size() + 2; ++x)
                    count += at(a, x - 1, y - 1) != at(b, x - shift % 3, y - shift / 3) ? 1 : 0;
            least = std::min(least, count);
        }
        return least;
    };
    const auto flipped = [](Ink ink, bool leftRight, bool upDown) {
        for (auto& row : ink)
            if (leftRight) std::reverse(row.begin(), row.end());
        if (upDown) std::reverse(ink.begin(), ink.end());
        return ink;
    };
    for (const bool isOfX : {true, false}) {
        const Ink straight = titleInk(isOfX);
        ASSERT_FALSE(straight.empty());
        plotter.SetInverseXAxis(true);
        const Ink mirroredX = titleInk(isOfX);
        plotter.SetInverseYAxis(true);
        const Ink mirroredBoth = titleInk(isOfX);
        plotter.SetInverseXAxis(false);
        plotter.SetInverseYAxis(false);
        for (const Ink& mirrored : {mirroredX, mirroredBoth})
            for (const int flips : {1, 2, 3})
                EXPECT_LT(differing(mirrored, straight),
                          differing(mirrored, flipped(straight, (flips & 1) != 0, (flips & 2) != 0)))
                    << flips;
    }
}

KIVO_IN_ONE_WINDOW(AxisFrame);
