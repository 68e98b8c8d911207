// The batches of the axis box and of the frames of the flat plots, vertex by vertex.
#include "parts/KivoGridBox.h"
#include "support/PublicOperations.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <set>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

using Point = std::array<float, 3>;

std::vector<Point> Points(const RecordedDraw& draw) {
    std::vector<Point> points;
    for (const RecordedVertex& vertex : draw.vertices)
        points.push_back({static_cast<float>(vertex.position[0]), static_cast<float>(vertex.position[1]),
                          static_cast<float>(vertex.position[2])});
    return points;
}

bool AreNear(const std::vector<Point>& a, const std::vector<Point>& b, float limit = 1e-5f) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [limit](const Point& p, const Point& q) {
               return std::abs(p[0] - q[0]) <= limit && std::abs(p[1] - q[1]) <= limit &&
                      std::abs(p[2] - q[2]) <= limit;
           });
}

constexpr std::array<float, 4> black = {0, 0, 0, 1};
constexpr std::array<float, 4> grey = {0.8f, 0.8f, 0.8f, 1};

class AxisCalls : public testing::Test {
protected:
    AxisCalls() {
        plotter.SetData(NewHill(12, 10), 12, 10, 1, 12, 3);
        plotter.SetXAxisTitle("X axis");
        plotter.SetYAxisTitle("Y axis");
        plotter.SetZAxisTitle("Z axis");
        plotter.OnDraw();
    }
    double Pixel() const { return (plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2]; }
    float PixelAlong(int axis) const { return static_cast<float>(Pixel() / plotter.m_axisScale[axis]); }
    unsigned int TickCount(int axis) const { return box.m_tickIntervals[axis] + 1; }
    // The coordinate of a tick: the axis's minimum and so many steps.
    float TickAt(int axis, unsigned int i) const {
        return box.m_boxMin[axis] + static_cast<float>(i) * box.m_tickStep[axis];
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    CKivoGridBox& box = *plotter.m_gridBox;
};

} // namespace

// ---- The 3-D box

namespace {

// The planes at the back: of XZ, XY and YZ, each at the minimum of the third axis or at its maximum.
class BoxCalls : public AxisCalls, public testing::WithParamInterface<int> {
protected:
    BoxCalls() {
        for (int i = 0; i < 3; ++i)
            flags[i] = (GetParam() >> i & 1) != 0;
        // A rotation whose depths of Y, Z and X have these signs chooses these planes.
        plotter.m_rotationMatrix[6] = flags[0] ? 0.5 : -0.5;
        plotter.m_rotationMatrix[10] = flags[1] ? 0.5 : -0.5;
        plotter.m_rotationMatrix[2] = flags[2] ? 0.5 : -0.5;
    }
    std::unique_ptr<CallRecorder> Draw() {
        return RecordStep(plotter,
                          [&] { box.Render(Pixel(), plotter.m_axisScale, plotter.m_rotationMatrix); });
    }

    float Low(int axis) const { return box.m_boxMin[axis]; }
    float High(int axis) const { return box.m_boxMax[axis]; }
    float BackX() const { return flags[2] ? Low(0) : High(0); }
    float BackY() const { return flags[0] ? Low(1) : High(1); }
    float BackZ() const { return flags[1] ? Low(2) : High(2); }
    float FrontX() const { return flags[2] ? High(0) : Low(0); }
    float FrontY() const { return flags[0] ? High(1) : Low(1); }
    float FrontZ() const { return flags[1] ? High(2) : Low(2); }

    // Where the ticks of an axis stand, at this coordinate along it.
    Point TickBase(int axis, float at) const {
        if (axis == 0) return {at, FrontY(), BackZ()};
        if (axis == 1) return {FrontX(), at, BackZ()};
        return {flags[0] ? High(0) : Low(0), flags[2] ? Low(1) : High(1), at};
    }
    Point GridCorner(int axis, float at) const {
        if (axis == 0) return {at, BackY(), BackZ()};
        if (axis == 1) return {BackX(), at, BackZ()};
        return {BackX(), BackY(), at};
    }
    Point GridEnd(int axis, float at) const {
        if (axis == 0) return {at, BackY(), FrontZ()};
        if (axis == 1) return {BackX(), at, FrontZ()};
        return {flags[0] ? Low(0) : High(0), flags[2] ? High(1) : Low(1), at};
    }
    Point TickDirection(int axis) const {
        if (axis < 2) return {0, 0, flags[1] ? -1.0f : 1.0f};
        if (flags[0] == flags[2]) return {0, flags[0] ? -1.0f : 1.0f, 0};
        return {flags[0] ? 1.0f : -1.0f, 0, 0};
    }

    bool flags[3];
};

} // namespace

TEST_P(BoxCalls, OutlinesAreThreeBlackLoops) {
    const auto recorder = Draw();
    ASSERT_GT(recorder->Draws().size(), 3u);
    const std::vector<Point> loops[] = {{{Low(0), BackY(), Low(2)},
                                         {Low(0), BackY(), High(2)},
                                         {High(0), BackY(), High(2)},
                                         {High(0), BackY(), Low(2)}},
                                        {{Low(0), Low(1), BackZ()},
                                         {High(0), Low(1), BackZ()},
                                         {High(0), High(1), BackZ()},
                                         {Low(0), High(1), BackZ()}},
                                        {{BackX(), Low(1), Low(2)},
                                         {BackX(), High(1), Low(2)},
                                         {BackX(), High(1), High(2)},
                                         {BackX(), Low(1), High(2)}}};
    for (int i = 0; i < 3; ++i) {
        const RecordedDraw& draw = recorder->Draws()[i];
        EXPECT_EQ(draw.primitive, static_cast<unsigned int>(GL_LINE_LOOP));
        EXPECT_EQ(Points(draw), loops[i]) << i;
        EXPECT_EQ(draw.vertices[0].color, black);
        EXPECT_EQ(draw.state.lineWidth, 1.0f);
    }
}

TEST_P(BoxCalls, GridLinesAreOneGreyBatch) {
    const auto recorder = Draw();
    const RecordedDraw& draw = recorder->Draws().at(3);
    std::vector<Point> expected;
    for (int axis = 0; axis < 3; ++axis)
        for (unsigned int i = 0; i < TickCount(axis); ++i) {
            const float at = TickAt(axis, i);
            expected.insert(expected.end(), {TickBase(axis, at), GridCorner(axis, at), GridCorner(axis, at),
                                             GridEnd(axis, at)});
        }
    EXPECT_EQ(draw.primitive, static_cast<unsigned int>(GL_LINES));
    EXPECT_TRUE(AreNear(Points(draw), expected));
    EXPECT_EQ(draw.vertices[0].color, grey);
    // A hair behind the outlines, which they would break up.
    EXPECT_GT(draw.state.depthRange[0], 0.0);
    EXPECT_LT(draw.state.depthRange[0], 1e-4);
}

TEST_P(BoxCalls, TickMarksAreOneBlackBatchOfTenPixels) {
    const auto recorder = Draw();
    const RecordedDraw& draw = recorder->Draws().at(4);
    std::vector<Point> expected;
    for (int axis = 0; axis < 3; ++axis) {
        const Point direction = TickDirection(axis);
        const int along = direction[0] != 0 ? 0 : direction[1] != 0 ? 1 : 2;
        const float length = 10.0f * PixelAlong(along);
        for (unsigned int i = 0; i < TickCount(axis); ++i) {
            const Point base = TickBase(axis, TickAt(axis, i));
            Point end = base;
            end[along] += length * direction[along];
            expected.insert(expected.end(), {base, end});
        }
    }
    EXPECT_EQ(draw.primitive, static_cast<unsigned int>(GL_LINES));
    EXPECT_TRUE(AreNear(Points(draw), expected));
    EXPECT_EQ(draw.vertices[0].color, black);
    EXPECT_EQ(draw.state.depthRange, (std::array<double, 2>{0, 1}));
}

// Labels and titles are drawn twice: what is seen, then its ink as the nearest of all in the depth buffer.
TEST_P(BoxCalls, LabelsAreDrawnInPixelsAndEnterTheDepthBuffer) {
    const auto recorder = Draw();
    EXPECT_EQ(recorder->TextsOf({"glAlphaFunc"}), Texts{"glAlphaFunc(GL_GREATER, 0.25)"});
    const auto& draws = recorder->Draws();
    ASSERT_GT(draws.size(), 7u);
    const std::size_t count = (draws.size() - 5) / 2;
    EXPECT_EQ(draws.size(), 5 + 2 * count);
    std::set<int> known;
    for (int axis = 0; axis < 3; ++axis) {
        known.insert(static_cast<int>(box.m_axisTitleImage[axis].texture));
        for (unsigned int i = 0; i < TickCount(axis); ++i)
            known.insert(static_cast<int>(box.m_tickLabels[axis][i].texture));
    }
    const double w = plotter.m_plotViewport[2], h = plotter.m_plotViewport[3];
    for (std::size_t i = 0; i < count; ++i) {
        const RecordedDraw& seen = draws[5 + i];
        const RecordedDraw& nearest = draws[5 + count + i];
        EXPECT_EQ(seen.primitive, static_cast<unsigned int>(GL_QUADS));
        EXPECT_EQ(known.count(seen.state.boundTexture), 1u);
        EXPECT_EQ(nearest.state.boundTexture, seen.state.boundTexture);
        EXPECT_EQ(Points(nearest), Points(seen));
        // The projection counts pixels, so no axis scale or mirrored axis reaches the text.
        EXPECT_NEAR(seen.state.projection[0], 2.0 / w, 1e-9);
        EXPECT_NEAR(seen.state.projection[5], 2.0 / h, 1e-9);
        EXPECT_EQ(seen.state.modelView[0], 1.0);
        for (const Point& point : Points(seen)) {
            EXPECT_GE(point[0], 0.0f);
            EXPECT_LE(point[0], static_cast<float>(w));
            EXPECT_GE(point[1], 0.0f);
            EXPECT_LE(point[1], static_cast<float>(h));
        }
        EXPECT_FALSE(seen.state.depthTest);
        EXPECT_TRUE(seen.state.colorMask);
        EXPECT_FALSE(nearest.state.colorMask);
        EXPECT_TRUE(nearest.state.alphaTest);
        EXPECT_EQ(nearest.state.depthFunc, GL_ALWAYS);
        EXPECT_EQ(nearest.state.depthRange, (std::array<double, 2>{0, 0}));
    }
}

TEST_P(BoxCalls, WithoutGridLinesTheRestStays) {
    const std::size_t before = Draw()->Draws().size();
    plotter.ShowGridLines(false);
    const auto recorder = Draw();
    EXPECT_EQ(recorder->Draws().size(), before - 1);
    EXPECT_EQ(recorder->Draws()[3].vertices[0].color, black) << "the tick marks follow at once";
}

INSTANTIATE_TEST_SUITE_P(BackPlanes, BoxCalls, testing::Range(0, 8));

TEST_F(AxisCalls, WithoutTicksAnAxisDrawsNeitherGridNorTicks) {
    plotter.BeginGLOperation();
    delete[] box.m_tickPositions[1];
    box.m_tickPositions[1] = nullptr;
    plotter.EndGLOperation();
    const auto recorder =
        RecordStep(plotter, [&] { box.Render(Pixel(), plotter.m_axisScale, plotter.m_rotationMatrix); });
    EXPECT_EQ(recorder->Draws()[3].vertices.size(), 4u * (TickCount(0) + TickCount(2)));
    EXPECT_EQ(recorder->Draws()[4].vertices.size(), 2u * (TickCount(0) + TickCount(2)));
}

// ---- The frames of the flat plots

namespace {

struct FlatPlot {
    int horizontal, vertical;
    bool isStaggered;
    void (CKivoGridBox::*render)(double, const double*);
    const char* name;
};

// What a frame draws, step by step: a line in a colour, or an image as a quad.
struct Step {
    std::array<float, 4> color; ///< of a line
    int texture;                ///< of a quad; 0 for a line
    std::vector<Point> points;
};

class FlatFrameCalls : public AxisCalls, public testing::WithParamInterface<FlatPlot> {
protected:
    Point At(float h, float v) const {
        Point point = {box.m_boxMin[0], box.m_boxMin[1], box.m_boxMin[2]};
        point[GetParam().horizontal] = h;
        point[GetParam().vertical] = v;
        return point;
    }
    void Line(const std::array<float, 4>& color, const Point& from, const Point& to) {
        steps.push_back({color, 0, {from, to}});
    }
    // An image centred at (h, v), upright: half its size to each side.
    void Upright(const SKivoTexImage& image, float h, float v) {
        const float w = static_cast<float>(image.width) * sh / 2,
                    t = static_cast<float>(image.height) * sv / 2;
        steps.push_back({{1, 1, 1, 1},
                         static_cast<int>(image.texture),
                         {At(h - w, v - t), At(h + w, v - t), At(h + w, v + t), At(h - w, v + t)}});
    }
    // The same, turned a quarter to read from bottom to top.
    void Turned(const SKivoTexImage& image, float h, float v) {
        const float w = static_cast<float>(image.width) * sv / 2,
                    t = static_cast<float>(image.height) * sh / 2;
        steps.push_back({{1, 1, 1, 1},
                         static_cast<int>(image.texture),
                         {At(h + t, v - w), At(h + t, v + w), At(h - t, v + w), At(h - t, v - w)}});
    }

    // Of 1, 2, 5 and 10 the least that leaves labels which do not touch: 2 pixels between their sides.
    unsigned int Stride(int axis, bool isHorizontal) const {
        const bool isStaggered = isHorizontal && GetParam().isStaggered;
        for (const unsigned int stride : {1u, 2u, 5u}) {
            bool isApart = true;
            for (unsigned int j = 0; j < TickCount(axis); j += stride)
                for (unsigned int i = 0; i < j; i += stride) {
                    const SKivoTexImage &a = box.m_tickLabels[axis][i], &b = box.m_tickLabels[axis][j];
                    const float way = std::abs(TickAt(axis, j) - TickAt(axis, i)) / PixelAlong(axis);
                    const float needed = isHorizontal ? static_cast<float>(a.width + b.width) / 2 + 2
                                                      : static_cast<float>(a.height + b.height) / 2;
                    if (way < needed && !(isStaggered && (i + j) % 2 == 1)) isApart = false;
                }
            if (isApart) return stride;
        }
        return 10;
    }

    void HorizontalTicks(bool withGrid) {
        const int axis = GetParam().horizontal;
        const float end = vMin - 10 * sv;
        float room = 0;
        for (unsigned int i = 0; i < TickCount(axis); ++i) {
            const float p = TickAt(axis, i);
            const SKivoTexImage& label = box.m_tickLabels[axis][i];
            const float height = static_cast<float>(label.height) * sv;
            Line(black, At(p, vMin), At(p, end));
            if (withGrid) Line(grey, At(p, vMin), At(p, vMax));
            const float lower = GetParam().isStaggered && i % 2 == 1 ? 1.15f * height : 0.0f;
            if (i % Stride(axis, true) == 0) Upright(label, p, end - 0.5f * height - lower);
            room = std::max(room, 2.15f * height);
        }
        const SKivoTexImage& title = box.m_axisTitleImage[axis];
        Upright(title, (hMin + hMax) / 2, end - room - static_cast<float>(title.height) * sv);
    }
    void VerticalTicks(bool withGrid) {
        const int axis = GetParam().vertical;
        const float end = hMin - 10 * sh;
        float widest = 0;
        for (unsigned int i = 0; i < TickCount(axis); ++i) {
            const float q = TickAt(axis, i);
            const SKivoTexImage& label = box.m_tickLabels[axis][i];
            const float width = static_cast<float>(label.width) * sh;
            Line(black, At(hMin, q), At(end, q));
            if (withGrid) Line(grey, At(hMin, q), At(hMax, q));
            if (i % Stride(axis, false) == 0) Upright(label, end - 0.8f * width, q);
            widest = std::max(widest, width);
        }
        const SKivoTexImage& title = box.m_axisTitleImage[axis];
        Turned(title, end - widest - static_cast<float>(title.height) * sh * 1.85f, (vMin + vMax) / 2);
    }

    void ExpectFrame(bool withGrid) {
        const std::array<float, 4> colors[] = {{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}};
        Line(colors[GetParam().horizontal], At(hMin, vMin), At(hMax, vMin));
        Line(colors[GetParam().vertical], At(hMin, vMin), At(hMin, vMax));
        HorizontalTicks(withGrid);
        VerticalTicks(withGrid);
        {
            // The view in which no axis is mirrored.
            const CurrentContext context(plotter);
            glMatrixMode(GL_MODELVIEW);
            glLoadIdentity();
        }
        const auto recorder =
            RecordStep(plotter, [&] { std::invoke(GetParam().render, box, Pixel(), plotter.m_axisScale); });
        ASSERT_EQ(recorder->Draws().size(), steps.size());
        const float limit = 1e-4f * (hMax - hMin + vMax - vMin);
        for (std::size_t i = 0; i < steps.size(); ++i) {
            const RecordedDraw& draw = recorder->Draws()[i];
            const bool isQuad = steps[i].texture != 0;
            EXPECT_EQ(draw.primitive, static_cast<unsigned int>(isQuad ? GL_QUADS : GL_LINES)) << i;
            EXPECT_EQ(draw.vertices.at(0).color, steps[i].color) << i;
            if (isQuad) {
                EXPECT_EQ(draw.state.boundTexture, steps[i].texture) << i;
            }
            EXPECT_TRUE(AreNear(Points(draw), steps[i].points, limit)) << i;
        }
    }

    const float sh = PixelAlong(GetParam().horizontal), sv = PixelAlong(GetParam().vertical);
    const float hMin = box.m_boxMin[GetParam().horizontal], hMax = box.m_boxMax[GetParam().horizontal];
    const float vMin = box.m_boxMin[GetParam().vertical], vMax = box.m_boxMax[GetParam().vertical];
    std::vector<Step> steps;
};

} // namespace

TEST_P(FlatFrameCalls, AxesTicksGridLinesLabelsAndTitlesInOrder) {
    ExpectFrame(true);
}

TEST_P(FlatFrameCalls, WithoutGridLinesTheRestStays) {
    plotter.ShowGridLines(false);
    ExpectFrame(false);
}

INSTANTIATE_TEST_SUITE_P(Planes, FlatFrameCalls,
                         testing::Values(FlatPlot{0, 1, true, &CKivoGridBox::RenderXYFrame, "XY"},
                                         FlatPlot{1, 2, false, &CKivoGridBox::RenderYZFrame, "YZ"},
                                         FlatPlot{0, 2, false, &CKivoGridBox::RenderXZFrame, "XZ"}),
                         [](const auto& plane) { return plane.param.name; });
