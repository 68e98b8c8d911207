// What is drawn of surfaces over the first one, and with which state.
#include "KivoMotion.h"
#include "KivoSurfaces.h"
#include "parts/KivoGradientColor.h"
#include "support/AllocationFaults.h"
#include "support/RecordedPlot.h"
#include "support/TestSurfaces.h"

#include <gmock/gmock.h>

#include <cstring>
#include <limits>
#include <memory>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr unsigned int columns = 12, rows = 9;
constexpr POINT start = {100, 100};

class SurfacesCalls : public testing::Test {
protected:
    SurfacesCalls() { plotter.SetData(first.NewArray(), 8, 7, 1, 8, 3); }

    int Add(const SKivoSurface& looks = {}) {
        return AddSurface(plotter, other.points.data(), columns, rows, 1, columns, 3, looks);
    }

    std::unique_ptr<CallRecorder> Frame() {
        return Record(plotter, [&] { plotter.Renderscene(); });
    }

    // Triangles of so many points a side.
    static std::vector<const RecordedDraw*> TrianglesOf(const CallRecorder& frame) {
        std::vector<const RecordedDraw*> found;
        for (const RecordedDraw& draw : frame.Draws())
            if (draw.primitive == GL_TRIANGLES && draw.indices) found.push_back(&draw);
        return found;
    }

    static SKivoSurface SeeThrough(float opacity) {
        SKivoSurface looks;
        looks.opacity = opacity;
        return looks;
    }

    const TestSurface first = HillSurface(8, 7);
    const TestSurface other = PlaneSurface(columns, rows);
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

constexpr int firstIndices = 7 * 6 * 6;
constexpr int otherIndices = (columns - 1) * (rows - 1) * 6;

} // namespace

TEST_F(SurfacesCalls, NothingChangesWhileNothingIsAsked) {
    const Texts before = Frame()->Texts();
    SKivoSurface looks;
    ASSERT_EQ(GetSurface(plotter, 0, &looks), 0);
    ASSERT_EQ(SetSurface(plotter, 0, looks), 0);
    ASSERT_EQ(RemoveSurface(plotter, Add()), 0);
    ASSERT_EQ(Add(SeeThrough(0.0f)), 2);
    EXPECT_EQ(Frame()->Texts(), before);
}

// As the first one is drawn, right after it.
TEST_F(SurfacesCalls, AnOpaqueOneIsDrawnLikeTheFirst) {
    SKivoSurface looks;
    looks.frameLineStep[0] = looks.frameLineStep[1] = 1;
    ASSERT_EQ(Add(looks), 1);
    const auto frame = Frame();
    const auto triangles = TrianglesOf(*frame);
    ASSERT_EQ(triangles.size(), 2U);
    EXPECT_EQ(triangles[0]->count, firstIndices);
    EXPECT_EQ(triangles[1]->count, otherIndices);
    for (const auto member : {&DrawState::lighting, &DrawState::depthTest, &DrawState::blend,
                              &DrawState::texture, &DrawState::polygonOffset, &DrawState::colorArray})
        EXPECT_EQ(triangles[1]->state.*member, triangles[0]->state.*member);
    const auto* const points = static_cast<const float*>(triangles[1]->vertexArray);
    EXPECT_EQ(std::memcmp(points, other.points.data(), other.points.size() * sizeof(float)), 0);
    const auto* const colors = static_cast<const float*>(triangles[1]->colorArray);
    for (std::size_t i = 0; i < other.points.size() / 3; ++i) {
        float rgba[4] = {0, 0, 0, 1};
        plotter.m_zGradientColor->Evaluate(other.points[3 * i + 2], rgba);
        for (int k = 0; k < 4; ++k)
            ASSERT_NEAR(colors[4 * i + static_cast<std::size_t>(k)], rgba[k], 1e-5f) << i;
    }
    int lines = 0;
    for (const RecordedDraw& draw : frame->Draws())
        if (draw.primitive == GL_LINES && draw.vertexArray == points) lines += draw.count;
    EXPECT_EQ(lines, 2 * (rows * (columns - 1) + columns * (rows - 1)));
}

TEST_F(SurfacesCalls, OneColorNeedsNoArray) {
    SKivoSurface looks;
    looks.isColoredByZ = false;
    looks.color = 0x000000FF;
    ASSERT_EQ(Add(looks), 1);
    const auto frame = Frame();
    const RecordedDraw& drawn = *TrianglesOf(*frame).at(1);
    EXPECT_FALSE(drawn.state.colorArray);
    EXPECT_EQ(drawn.state.color, (std::array<float, 4>{1, 0, 0, 1}));
}

// After everything else in the box, without a trace in the depth buffer, and leaves the state alone.
TEST_F(SurfacesCalls, WhatShowsThroughIsBlended) {
    float measured[] = {0, 0, 0};
    plotter.AddMeasurePoints(1, 3, measured, "group");
    ASSERT_EQ(Add(SeeThrough(0.5f)), 1);
    const auto frame = Frame();
    const auto triangles = TrianglesOf(*frame);
    ASSERT_EQ(triangles.size(), 3U) << "with the marker";
    EXPECT_EQ(triangles.back()->count, otherIndices);
    const DrawState& state = triangles.back()->state;
    EXPECT_TRUE(state.blend && state.texture && state.colorArray && state.lighting && state.depthTest);
    EXPECT_EQ(state.blendSource, GL_SRC_ALPHA);
    EXPECT_EQ(state.blendTarget, GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_THAT(frame->TextsOf({"glDepthMask"}), testing::Contains("glDepthMask(0)"));
    const CurrentContext context(plotter);
    GLboolean writesDepth = GL_FALSE;
    glGetBooleanv(GL_DEPTH_WRITEMASK, &writesDepth);
    EXPECT_EQ(writesDepth, GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_VERTEX_ARRAY), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_COLOR_ARRAY), GL_FALSE);
    GLint texture = -1;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &texture);
    EXPECT_EQ(texture, 0);
}

TEST_F(SurfacesCalls, TheFirstMayShowThroughOrBeHidden) {
    ASSERT_EQ(SetSurface(plotter, 0, SeeThrough(0.25f)), 0);
    auto frame = Frame();
    ASSERT_EQ(TrianglesOf(*frame).size(), 1U);
    EXPECT_TRUE(TrianglesOf(*frame)[0]->state.blend);
    EXPECT_EQ(TrianglesOf(*frame)[0]->vertexArray, plotter.m_points);
    SKivoSurface hidden;
    hidden.isVisible = false;
    ASSERT_EQ(SetSurface(plotter, 0, hidden), 0);
    frame = Frame();
    EXPECT_TRUE(TrianglesOf(*frame).empty());
    plotter.SetData(first.NewArray(), 8, 7, 1, 8, 3);
    EXPECT_TRUE(TrianglesOf(*Frame()).empty()) << "looks stay";
    SKivoSurface one;
    one.isColoredByZ = false;
    ASSERT_EQ(SetSurface(plotter, 0, one), 0);
    frame = Frame();
    ASSERT_EQ(TrianglesOf(*frame).size(), 1U);
    EXPECT_FALSE(TrianglesOf(*frame)[0]->state.colorArray);
}

TEST_F(SurfacesCalls, FrameLinesOfTheFirstAreTheMembers) {
    SKivoSurface looks;
    ASSERT_EQ(GetSurface(plotter, 0, &looks), 0);
    EXPECT_THAT(looks.frameLineStep, testing::ElementsAre(1, 1));
    looks.frameLineStep[0] = 3;
    looks.frameLineStep[1] = 2;
    ASSERT_EQ(SetSurface(plotter, 0, looks), 0);
    const int count = plotter.m_framelineIndexCount;
    plotter.SetFrameLineStep(3, 2);
    EXPECT_EQ(plotter.m_framelineIndexCount, count);
    looks.frameLineStep[1] = 0;
    ASSERT_EQ(SetSurface(plotter, 0, looks), 0);
    ASSERT_EQ(GetSurface(plotter, 0, &looks), 0);
    EXPECT_THAT(looks.frameLineStep, testing::ElementsAre(0, 0));
}

TEST_F(SurfacesCalls, GradientsColorAll) {
    ASSERT_EQ(Add(), 1);
    Frame();
    plotter.SetZGradientColor(0x000000FFUL, 0x000000FFUL);
    const auto frame = Frame();
    const auto* const colors = static_cast<const float*>(TrianglesOf(*frame).at(1)->colorArray);
    for (std::size_t i = 0; i < other.points.size() / 3; ++i)
        ASSERT_NEAR(colors[4 * i], 1.0f, 1e-5f) << i;
}

TEST_F(SurfacesCalls, NewDataAndOnDestroyTakeThemAway) {
    ASSERT_EQ(Add(), 1);
    ASSERT_EQ(Add(), 2);
    EXPECT_EQ(GetSurfaceCount(plotter), 2U);
    plotter.SetData(first.NewArray(), 8, 7, 1, 8, 3);
    EXPECT_EQ(GetSurfaceCount(plotter), 0U);
    EXPECT_EQ(TrianglesOf(*Frame()).size(), 1U);
    ASSERT_EQ(Add(), 1);
    plotter.OnDestroy();
    EXPECT_EQ(GetSurfaceCount(plotter), 0U);
    EXPECT_EQ(Add(), -3) << "there is no first surface";
}

TEST_F(SurfacesCalls, NumbersStay) {
    ASSERT_EQ(Add(), 1);
    ASSERT_EQ(Add(), 2);
    EXPECT_EQ(RemoveSurface(plotter, 1), 0);
    EXPECT_EQ(RemoveSurface(plotter, 1), -2);
    EXPECT_EQ(Add(SeeThrough(0.75f)), 3);
    SKivoSurface looks;
    EXPECT_EQ(GetSurface(plotter, 1, &looks), -2);
    ASSERT_EQ(GetSurface(plotter, 3, &looks), 0);
    EXPECT_EQ(looks.opacity, 0.75f);
    EXPECT_EQ(SetSurface(plotter, 1, looks), -2);
    EXPECT_EQ(SetSurface(plotter, -1, looks), -2);
    EXPECT_EQ(RemoveSurface(plotter, 0), -2);
    EXPECT_EQ(GetSurfaceCount(plotter), 2U);
}

TEST_F(SurfacesCalls, NonsenseIsRefused) {
    constexpr unsigned int most = std::numeric_limits<unsigned int>::max();
    const float* const points = other.points.data();
    EXPECT_EQ(AddSurface(plotter, nullptr, 4, 4, 1, 4, 3), -3);
    EXPECT_EQ(AddSurface(plotter, points, 0, 4, 1, 4, 3), -3);
    EXPECT_EQ(AddSurface(plotter, points, 4, 0, 1, 4, 3), -3);
    EXPECT_EQ(AddSurface(plotter, points, 4, 4, 1, 4, 2), -3);
    EXPECT_EQ(AddSurface(plotter, points, most, most, 1, most, 3), -3);
    EXPECT_EQ(AddSurface(plotter, points, 2, 2, 1, most, 4), -3);
    EXPECT_EQ(AddSurface(plotter, points, 65536, 65537, 1, 65536, 3), -3);
    for (const float opacity : {-0.1f, 1.1f, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(Add(SeeThrough(opacity)), -3) << opacity;
        EXPECT_EQ(SetSurface(plotter, 0, SeeThrough(opacity)), -3) << opacity;
    }
    EXPECT_EQ(GetSurface(plotter, 0, nullptr), -3);
    EXPECT_EQ(GetSurfaceCount(plotter), 0U);
    // A stride that has nowhere to lead counts for nothing.
    EXPECT_EQ(AddSurface(plotter, points, 1, 1, most, most, 3), 1);
    EXPECT_EQ(AddSurface(plotter, points, 1, 5, 1, 1, 3), 2);
    EXPECT_EQ(TrianglesOf(*Frame()).size(), 1U) << "nothing to draw";
}

TEST_F(SurfacesCalls, StridesAndLongPointsAreRead) {
    std::vector<float> wide;
    for (std::size_t i = 0; i < other.points.size(); i += 3) { // every other point, of five floats
        wide.insert(wide.end(), {other.points[i], other.points[i + 1], other.points[i + 2], 9, 9});
        wide.insert(wide.end(), 5, 9.0f);
    }
    ASSERT_EQ(AddSurface(plotter, wide.data(), columns, rows, 2, 2 * columns, 5), 1);
    wide.assign(wide.size(), 9.0f); // it was copied
    const auto frame = Frame();
    EXPECT_EQ(std::memcmp(TrianglesOf(*frame).at(1)->vertexArray, other.points.data(),
                          other.points.size() * sizeof(float)),
              0);
}

// A cell with a corner that is no number is left out.
TEST_F(SurfacesCalls, HolesAreLeftOut) {
    TestSurface holed = other;
    holed.points[3 * (4 * columns + 5) + 2] = std::numeric_limits<float>::quiet_NaN();
    for (const float opacity : {1.0f, 0.5f}) {
        AddSurface(plotter, holed.points.data(), columns, rows, 1, columns, 3, SeeThrough(opacity));
        const auto frame = Frame();
        EXPECT_EQ(TrianglesOf(*frame).back()->count, otherIndices - 4 * 6) << opacity;
    }
}

TEST_F(SurfacesCalls, WhileTheyMoveTheyAreReduced) {
    ASSERT_EQ(Add(), 1);
    ASSERT_EQ(SetMotionDetail(plotter, 8), 0); // which the first one has
    const auto frame = Record(plotter, [&] { plotter.OnMouseWheel(0, 120, start); });
    const auto triangles = TrianglesOf(*frame);
    ASSERT_EQ(triangles.size(), 2U);
    EXPECT_EQ(triangles[0]->count, firstIndices);
    EXPECT_EQ(triangles[1]->count, (7 - 1) * (5 - 1) * 6) << "every second column and row";
    EXPECT_TRUE(IsDetailReduced(plotter));
    EXPECT_EQ(TrianglesOf(*Frame()).at(1)->count, otherIndices);
    EXPECT_FALSE(IsDetailReduced(plotter));
    ASSERT_EQ(SetSurface(plotter, 0, SeeThrough(0.5f)), 0);
    ASSERT_EQ(SetMotionDetail(plotter, 4), 0);
    const auto moved = Record(plotter, [&] { plotter.OnMouseWheel(0, 120, start); });
    EXPECT_EQ(TrianglesOf(*moved).at(1)->count, 3 * 3 * 6) << "the first one, drawn last";
}

// Or all of it is: a label that could not be drawn is no reason to refuse.
TEST_F(SurfacesCalls, WithoutMemoryNothingIsAdded) {
    for (const bool isFitted : {false, true}) {
        ASSERT_EQ(FitAxesToSurfaces(plotter, isFitted), 0);
        int refusals = 0;
        bool hasFailed = true;
        for (long n = 1; hasFailed && n < 300; n += n < 60 ? 1 : 17) {
            int number = 0;
            AllocationFault fault(n, AllocationFault::Mode::once);
            try {
                number = Add();
            } catch (const std::bad_alloc&) {
                ++refusals;
            }
            fault.Stop();
            hasFailed = fault.HasFailed();
            ASSERT_EQ(GetSurfaceCount(plotter), number == 0 ? 0U : 1U) << n;
            if (number != 0) {
                ASSERT_EQ(RemoveSurface(plotter, number), 0);
            }
        }
        EXPECT_GE(refusals, 5) << isFitted;
        EXPECT_FALSE(TrianglesOf(*Frame()).empty());
    }
}
