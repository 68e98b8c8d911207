// What is drawn of the surface while something moves, and from which arrays.
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoSurfaces.h"
#include "support/AllocationFaults.h"
#include "support/OperationFaults.h"
#include "support/PlainLoops.h"
#include "support/RecordedPlot.h"
#include "support/TestSurfaces.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr unsigned int columns = 41, rows = 30;
constexpr POINT start = {100, 100};

// Of the surface in a frame.
struct DrawnSurface {
    const RecordedDraw* triangles = nullptr;
    const RecordedDraw* lines = nullptr;
};

DrawnSurface SurfaceOf(const CallRecorder& recorder) {
    DrawnSurface surface;
    for (const RecordedDraw& draw : recorder.Draws()) {
        if (!draw.vertexArray || !draw.state.vertexArray) continue;
        if (draw.primitive == GL_TRIANGLES) surface.triangles = &draw;
        if (draw.primitive == GL_LINES && draw.indices) surface.lines = &draw;
    }
    return surface;
}

class MotionCalls : public testing::Test {
protected:
    MotionCalls() { plotter.SetData(surface.NewArray(), columns, rows, 1, columns, 3); }

    void Press() { plotter.OnRButtonDown(MK_RBUTTON, start); }

    // One move of a drag; each leads to another place.
    std::unique_ptr<CallRecorder> Move(unsigned int keys = 0) {
        ++moves;
        return Record(plotter, [&] {
            plotter.OnMouseMove(MK_RBUTTON | keys, POINT{start.x + moves % 20, start.y + moves % 15});
        });
    }

    std::unique_ptr<CallRecorder> Turn() {
        return Record(plotter, [&] { plotter.OnMouseWheel(0, 120, start); });
    }

    // The triangles of a move; all of the drawing's arrays are still there.
    std::size_t TriangleIndicesOfMove() {
        const auto frame = Move();
        const RecordedDraw* const triangles = SurfaceOf(*frame).triangles;
        return triangles ? static_cast<std::size_t>(triangles->count) : 0;
    }

    TestSurface surface = NoiseSurface(columns, rows);
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    int moves = 0;
};

// Indices of two triangles for each cell of so many points.
constexpr std::size_t TriangleIndices(std::size_t keptColumns, std::size_t keptRows) {
    return (keptColumns - 1) * (keptRows - 1) * 6;
}

constexpr std::size_t wholeIndices = TriangleIndices(columns, rows);

bool IsWhole(const CallRecorder& recorder, const CallProbe& plotter) {
    const DrawnSurface drawn = SurfaceOf(recorder);
    return drawn.triangles && drawn.lines && drawn.triangles->vertexArray == plotter.m_points &&
           drawn.triangles->colorArray == plotter.m_colorArray &&
           drawn.triangles->indices == plotter.m_indexArray &&
           drawn.triangles->count == static_cast<int>(wholeIndices) &&
           drawn.lines->indices == plotter.m_framelineIndexArray;
}

// At most eight points a side: of 41 columns every sixth, of 30 rows every fifth.
constexpr unsigned int eight = 8;
const std::vector<unsigned int> keptColumns = {0, 6, 12, 18, 24, 30, 36, 40};
const std::vector<unsigned int> keptRows = {0, 5, 10, 15, 20, 25, 29};

bool IsReduced(const CallRecorder& recorder) {
    const DrawnSurface drawn = SurfaceOf(recorder);
    return drawn.triangles && drawn.lines &&
           drawn.triangles->count == static_cast<int>(TriangleIndices(8, 7)) &&
           drawn.lines->count == 2 * (7 * 7 + 6 * 8);
}

} // namespace

// ---- What no pixel shows

// Three cells for each pixel along a side.
class SmallTriangles : public testing::Test {
protected:
    SmallTriangles() { Show(); }

    void Show() {
        const TestSurface hill = HillSurface(manyColumns, manyRows);
        plotter.SetData(hill.NewArray(), manyColumns, manyRows, 1, manyColumns, 3);
    }

    static std::size_t TriangleIndicesIn(const CallRecorder& recorder) {
        std::size_t count = 0;
        for (const RecordedDraw& draw : recorder.Draws())
            if (draw.vertexArray && draw.state.vertexArray && draw.primitive == GL_TRIANGLES)
                count += static_cast<std::size_t>(draw.count);
        return count;
    }

    // In a frame.
    std::size_t HandedOver() {
        return TriangleIndicesIn(*Record(plotter, [&] { plotter.Renderscene(); }));
    }

    static constexpr unsigned int manyColumns = 450, manyRows = 350;
    static constexpr std::size_t all = TriangleIndices(manyColumns, manyRows);
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

TEST_F(SmallTriangles, AreLeftOutOnDemand) {
    const auto texts = [&] { return Record(plotter, [&] { plotter.Renderscene(); })->Texts(); };
    const auto whole = texts();
    EXPECT_EQ(HandedOver(), all);
    ASSERT_EQ(CullSmallTriangles(plotter, true), 0);
    EXPECT_EQ(CullSmallTriangles(plotter, true), 0) << "twice is no matter";
    EXPECT_LT(HandedOver(), all / 3);
    EXPECT_GT(HandedOver(), all / 50);
    ASSERT_EQ(CullSmallTriangles(plotter, false), 0);
    EXPECT_EQ(texts(), whole);
    EXPECT_EQ(CullSmallTriangles(plotter, false), 0);
    EXPECT_EQ(texts(), whole);
}

TEST_F(SmallTriangles, AreLeftOutOfNewDataInAnotherWindow) {
    CullSmallTriangles(plotter, true);
    plotter.OnDestroy();
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), RecordedPlot::width, RecordedPlot::height, true), 0);
    Show();
    EXPECT_LT(HandedOver(), all / 3);
}

// Of the other surfaces, and of those that are not drawn as at first; not of what shows through.
TEST_F(SmallTriangles, AreLeftOutOfOpaqueSurfaces) {
    CullSmallTriangles(plotter, true);
    const std::size_t first = HandedOver();
    const TestSurface plane = PlaneSurface(manyColumns, manyRows);
    SKivoSurface looks;
    const int number =
        AddSurface(plotter, plane.points.data(), manyColumns, manyRows, 1, manyColumns, 3, looks);
    ASSERT_GT(number, 0);
    EXPECT_GT(HandedOver(), first);
    EXPECT_LT(HandedOver(), first + all / 3);
    looks.opacity = 0.5f;
    ASSERT_EQ(SetSurface(plotter, number, looks), 0);
    EXPECT_EQ(HandedOver(), first + all);
}

// Where a triangle does more than colour the pixels whose middles it covers.
TEST_F(SmallTriangles, AreDrawnWhereTheyShow) {
    CullSmallTriangles(plotter, true);
    const auto expectAll = [&](const char* name, const std::function<void()>& set,
                               const std::function<void()>& reset) {
        {
            const CurrentContext context(plotter);
            set();
        }
        EXPECT_EQ(HandedOver(), all) << name;
        {
            const CurrentContext context(plotter);
            reset();
        }
        EXPECT_LT(HandedOver(), all / 3) << "not " << name;
    };
    expectAll(
        "lines", [] { glPolygonMode(GL_BACK, GL_LINE); }, [] { glPolygonMode(GL_BACK, GL_FILL); });
    expectAll(
        "points", [] { glPolygonMode(GL_FRONT, GL_POINT); }, [] { glPolygonMode(GL_FRONT, GL_FILL); });
    expectAll(
        "soft edges", [] { glEnable(GL_POLYGON_SMOOTH); }, [] { glDisable(GL_POLYGON_SMOOTH); });
    static GLuint names[16];
    expectAll(
        "a selection",
        [] {
            glSelectBuffer(16, names);
            glRenderMode(GL_SELECT);
        },
        [] { glRenderMode(GL_RENDER); });
}

// Every second column and row: as many as fit into the time of a frame, in whatever view that was measured.
TEST_F(SmallTriangles, AreDrawnInMovements) {
    CullSmallTriangles(plotter, true);
    ASSERT_EQ(SetMotionDetail(plotter, 250), 0);
    plotter.OnRButtonDown(MK_RBUTTON, start);
    const auto move = [&](LONG x) {
        return Record(plotter, [&] { plotter.OnMouseMove(MK_RBUTTON, {start.x + x, start.y}); });
    };
    EXPECT_EQ(TriangleIndicesIn(*move(10)), TriangleIndices(manyColumns / 2 + 1, manyRows / 2 + 1));
    ASSERT_EQ(SetMotionDetail(plotter, manyColumns), 0); // of the next drag, without a copy
    plotter.OnRButtonUp(0, start);
    plotter.OnRButtonDown(MK_RBUTTON, start);
    EXPECT_EQ(TriangleIndicesIn(*move(20)), all);
    plotter.OnRButtonUp(0, start);
    EXPECT_LT(HandedOver(), all / 3) << "at rest";
}

// A list is drawn in whatever view there is then.
TEST_F(SmallTriangles, AreInLists) {
    CullSmallTriangles(plotter, true);
    plotter.Renderscene();
    const auto indices = [this](bool inList) {
        const auto recorder = RecordStep(plotter, [&] {
            plotter.ApplyModelViewMatrix();
            const GLuint list = glGenLists(1);
            if (inList) glNewList(list, GL_COMPILE);
            plotter.RenderSurface();
            if (inList) glEndList();
            glDeleteLists(list, 1);
        });
        return TriangleIndicesIn(*recorder);
    };
    EXPECT_LT(indices(false), all / 3);
    EXPECT_EQ(indices(true), all);
}

// Of 2,378 triangles few can be smaller than a pixel.
TEST_F(MotionCalls, FewTrianglesAreAllHandedOver) {
    ASSERT_EQ(CullSmallTriangles(plotter, true), 0);
    const auto frame = Record(plotter, [&] { plotter.Renderscene(); });
    EXPECT_TRUE(IsWhole(*frame, plotter));
}

// ---- Which frames

TEST_F(MotionCalls, AtFirstEveryFrameIsWhole) {
    Press();
    const auto turned = Move();
    EXPECT_TRUE(IsWhole(*turned, plotter));
    EXPECT_FALSE(IsDetailReduced(plotter));
    const auto zoomed = Turn();
    EXPECT_TRUE(IsWhole(*zoomed, plotter));
    EXPECT_FALSE(IsDetailReduced(plotter));
}

// The host's frames are the same call by call, and with 0 again those of a drag.
TEST_F(MotionCalls, AnythingButAMoveMakesTheCallsThatItMade) {
    const auto frame = [&] { return Record(plotter, [&] { plotter.Renderscene(); })->Texts(); };
    const Texts before = frame();
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    EXPECT_EQ(frame(), before);
    Press();
    Move(MK_SHIFT);
    ASSERT_EQ(SetMotionDetail(plotter, 0), 0);
    plotter.OnRButtonUp(0, start);

    Press();
    const auto first = Record(plotter, [&] { plotter.OnMouseMove(MK_RBUTTON | MK_SHIFT, start); })->Texts();
    const Texts again = frame();
    // A pan by nothing loads the camera, and draws what the host would.
    ASSERT_GT(first.size(), again.size());
    EXPECT_TRUE(
        std::equal(again.begin(), again.end(), first.end() - static_cast<std::ptrdiff_t>(again.size())));
}

TEST_F(MotionCalls, FramesOfDragAndWheelAreReduced) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    for (const unsigned int keys :
         {0u, static_cast<unsigned int>(MK_SHIFT), static_cast<unsigned int>(MK_CONTROL)}) {
        EXPECT_TRUE(IsReduced(*Move(keys))) << keys;
        EXPECT_TRUE(IsDetailReduced(plotter)) << keys;
    }
    plotter.OnRButtonUp(0, start);
    EXPECT_TRUE(IsDetailReduced(plotter)) << "nothing has been drawn";
    plotter.OnDraw();
    EXPECT_FALSE(IsDetailReduced(plotter));
    EXPECT_TRUE(IsReduced(*Turn()));
    EXPECT_TRUE(IsDetailReduced(plotter));
}

TEST_F(MotionCalls, FramesOfTheHostAreWhole) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    const std::vector<std::function<void()>> drawings = {[&] { plotter.Renderscene(); },
                                                         [&] { plotter.OnDraw(); }};
    for (const auto& draw : drawings) {
        ASSERT_TRUE(IsReduced(*Move()));
        ASSERT_TRUE(IsDetailReduced(plotter));
        EXPECT_TRUE(IsWhole(*Record(plotter, draw), plotter));
        EXPECT_FALSE(IsDetailReduced(plotter));
    }
}

// What the window shows stays reduced.
TEST_F(MotionCalls, PicturesAreWholeAndDoNotStandForAFrame) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    Move();
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    EXPECT_TRUE(IsWhole(*Record(plotter, [&] { CapturePicture(plotter, rgba, width, height); }), plotter));
    EXPECT_TRUE(IsDetailReduced(plotter));
    EXPECT_TRUE(IsWhole(*Record(plotter, [&] { CapturePicture(plotter, 300, 200, rgba); }), plotter));
    EXPECT_TRUE(IsDetailReduced(plotter));
}

TEST_F(MotionCalls, TracingIsNoMotion) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    plotter.Trace(true);
    EXPECT_TRUE(IsWhole(*Record(plotter, [&] { plotter.OnMouseMove(0, start); }), plotter));
    EXPECT_FALSE(IsDetailReduced(plotter));
}

TEST_F(MotionCalls, FlatPlotsHaveNothingToReduce) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Turn();
    ASSERT_TRUE(IsDetailReduced(plotter));
    plotter.SwitchToXYProjectPlot();
    const auto frame = Turn();
    EXPECT_EQ(SurfaceOf(*frame).triangles, nullptr);
    EXPECT_FALSE(IsDetailReduced(plotter));
}

TEST_F(MotionCalls, GridsThatAreSmallEnoughAreWhole) {
    ASSERT_EQ(SetMotionDetail(plotter, columns), 0);
    EXPECT_TRUE(IsWhole(*Turn(), plotter));
    EXPECT_FALSE(IsDetailReduced(plotter));
    ASSERT_EQ(SetMotionDetail(plotter, std::numeric_limits<unsigned int>::max()), 0);
    EXPECT_TRUE(IsWhole(*Turn(), plotter));
    ASSERT_EQ(SetMotionDetail(plotter, columns - 1), 0);
    const auto frame = Turn();
    EXPECT_EQ(SurfaceOf(*frame).triangles->count, static_cast<int>(TriangleIndices(21, rows)))
        << "the shorter side keeps all of its points";
    EXPECT_TRUE(IsDetailReduced(plotter));
}

TEST_F(MotionCalls, AFrameThatIsNotPresentedChangesNothing) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    const auto failing = [&](const std::function<void()>& draw) {
        OperationFault listed(0);
        draw();
        listed.Stop();
        const auto& names = listed.Operations();
        return std::find(names.begin(), names.end(), "SwapBuffers") - names.begin() + 1;
    };
    const auto whole = [&] { plotter.OnDraw(); };
    const auto wheel = [&] { plotter.OnMouseWheel(0, 120, start); };
    const long swapOfWheel = failing(wheel), swapOfWhole = failing(whole);
    {
        ASSERT_FALSE(IsDetailReduced(plotter));
        OperationFault fault(swapOfWheel);
        wheel();
        EXPECT_EQ(fault.Failed(), "SwapBuffers");
        EXPECT_FALSE(IsDetailReduced(plotter));
    }
    wheel();
    ASSERT_TRUE(IsDetailReduced(plotter));
    OperationFault fault(swapOfWhole);
    whole();
    EXPECT_EQ(fault.Failed(), "SwapBuffers");
    EXPECT_TRUE(IsDetailReduced(plotter));
}

// ---- One drag

TEST_F(MotionCalls, ADragKeepsTheDetailThatItBeganWith) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    for (const unsigned int detail : {eight, 20u, 0u, 5u}) {
        ASSERT_EQ(SetMotionDetail(plotter, detail), 0);
        EXPECT_EQ(TriangleIndicesOfMove(), TriangleIndices(8, 7)) << detail;
    }
    plotter.OnRButtonUp(0, start);
    Press();
    EXPECT_EQ(TriangleIndicesOfMove(), TriangleIndices(5, 5));

    // One that began whole stays whole.
    ASSERT_EQ(SetMotionDetail(plotter, 0), 0);
    Press();
    ASSERT_EQ(SetMotionDetail(plotter, 5), 0);
    EXPECT_EQ(TriangleIndicesOfMove(), wholeIndices);
}

// It is not made anew for each frame.
TEST_F(MotionCalls, ADragDrawsFromOneCopy) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    const auto first = Move();
    for (int i = 0; i < 3; ++i) {
        const auto frame = Move(i == 1 ? MK_SHIFT : 0);
        EXPECT_EQ(SurfaceOf(*frame).triangles->vertexArray, SurfaceOf(*first).triangles->vertexArray);
        EXPECT_EQ(SurfaceOf(*frame).triangles->indices, SurfaceOf(*first).triangles->indices);
    }
}

// ---- What it is made of

namespace {

// Points of so many floats, each with a number of its own.
std::vector<float> PointsOf(const TestSurface& surface, unsigned int components) {
    std::vector<float> points;
    for (unsigned int i = 0; i < columns * rows; ++i)
        for (unsigned int k = 0; k < components; ++k)
            points.push_back(k < 3 ? surface.points[3 * i + k] : 1.0f + static_cast<float>(i) / 4096);
    return points;
}

void ExpectKeptPoints(const CallRecorder& frame, const CallProbe& plotter, unsigned int components) {
    const RecordedDraw& drawn = *SurfaceOf(frame).triangles;
    const unsigned int floats = components <= 4 ? components : 3;
    const Texts pointers = frame.TextsOf({"glVertexPointer"});
    EXPECT_THAT(pointers.back(), testing::StartsWith("glVertexPointer(" + std::to_string(floats) + ", "));
    EXPECT_THAT(pointers.back(), testing::HasSubstr(", 0, "));
    const float* point = static_cast<const float*>(drawn.vertexArray);
    const float* color = static_cast<const float*>(drawn.colorArray);
    for (const unsigned int r : keptRows)
        for (const unsigned int c : keptColumns) {
            const std::size_t i = std::size_t{r} * columns + c;
            EXPECT_EQ(std::memcmp(point, plotter.m_points + i * components, floats * sizeof(float)), 0)
                << c << ", " << r;
            EXPECT_EQ(std::memcmp(color, plotter.m_colorArray + i * 4, 4 * sizeof(float)), 0)
                << c << ", " << r;
            point += floats;
            color += 4;
        }
}

} // namespace

TEST_F(MotionCalls, KeptPointsHaveTheirValuesAndColors) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    for (const unsigned int components : {3u, 4u, 6u}) {
        std::vector<float> points = PointsOf(surface, components);
        plotter.SetDataReference(points.data(), columns, rows, 1, columns, components);
        const auto frame = Turn();
        ASSERT_TRUE(IsReduced(*frame)) << components;
        ExpectKeptPoints(*frame, plotter, components);
        plotter.OnDestroy(); // the points go
        plotter.OnCreate(plot.window.Handle(), RecordedPlot::width, RecordedPlot::height, true);
    }
}

// The way of the texture, which has no public switch.
TEST_F(MotionCalls, KeptPointsHaveTheirTextureCoordinates) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Turn();
    plotter.m_useFramelineTexture = true;
    {
        const CurrentContext context(plotter);
        plotter.CreateFramelineSKivoTexImage();
    }
    const auto frame = Turn();
    const RecordedDraw& drawn = *SurfaceOf(*frame).triangles;
    ASSERT_EQ(drawn.count, static_cast<int>(TriangleIndices(8, 7)));
    const float* texcoord = static_cast<const float*>(drawn.texcoordArray);
    ASSERT_NE(texcoord, plotter.m_texcoordArray);
    for (const unsigned int r : keptRows)
        for (const unsigned int c : keptColumns) {
            const float* const whole = plotter.m_texcoordArray + 2 * (r * columns + c);
            EXPECT_EQ(texcoord[0], whole[0]);
            EXPECT_EQ(texcoord[1], whole[1]);
            texcoord += 2;
        }
}

TEST_F(MotionCalls, FrameLinesHaveStepsNearTheirOwn) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    const auto lineIndices = [&] {
        const auto frame = Turn();
        const RecordedDraw* const lines = SurfaceOf(*frame).lines;
        return lines ? lines->count : 0;
    };
    plotter.SetFrameLineStep(12, 10);              // two columns and two rows of those kept
    EXPECT_EQ(lineIndices(), 2 * (4 * 7 + 5 * 6)); // rows 0, 2, 4, 6; columns 0, 2, 4, 6, 7
    plotter.SetFrameLineStep(1000, 1000);
    EXPECT_EQ(lineIndices(), 2 * (2 * 7 + 2 * 6));
    plotter.SetFrameLineStep(0, 4);
    EXPECT_EQ(lineIndices(), 0);
    plotter.SetFrameLineStep(2, 2);
    EXPECT_EQ(lineIndices(), 2 * (7 * 7 + 6 * 8));
    plotter.ShowFrameLines(false);
    EXPECT_EQ(lineIndices(), 0);
}

// A single point lies in one cell, on the side of two, or in the corner of four.
TEST_F(MotionCalls, HolesStay) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    const auto triangleIndices = [&](unsigned int column, unsigned int row, unsigned int components, int k) {
        std::vector<float> points = PointsOf(surface, components);
        points[(row * columns + column) * components + static_cast<unsigned int>(k)] =
            std::numeric_limits<float>::quiet_NaN();
        plotter.SetDataReference(points.data(), columns, rows, 1, columns, components);
        const auto frame = Turn();
        const int count = SurfaceOf(*frame).triangles->count;
        EXPECT_EQ(SurfaceOf(*Turn()).triangles->count, count) << "in the next frame too";
        plotter.ReleaseDataRelativeResource();
        return count;
    };
    const int all = static_cast<int>(TriangleIndices(8, 7));
    for (const unsigned int components : {3u, 4u, 6u}) {
        EXPECT_EQ(triangleIndices(3, 2, components, 2), all - 6);
        EXPECT_EQ(triangleIndices(8, 7, components, 0), all - 6);
        EXPECT_EQ(triangleIndices(6, 7, components, 1), all - 12);
        EXPECT_EQ(triangleIndices(3, 5, components, 2), all - 12);
        EXPECT_EQ(triangleIndices(6, 5, components, 2), all - 24);
        EXPECT_EQ(triangleIndices(40, 29, components, 2), all - 6);
    }
    EXPECT_EQ(triangleIndices(3, 2, 4, 3), all - 6) << "a w is drawn, too";
    EXPECT_EQ(triangleIndices(3, 2, 6, 3), all) << "what is no coordinate is not";
}

// Strides by which bounds and colours are read, but nothing is drawn.
TEST_F(MotionCalls, HolesOfPointsThatAreDrawnCount) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    std::vector<float> points = PointsOf(surface, 3);
    points.resize(2 * points.size(), 0.5f);
    points[3 * (2 * columns + 3) + 2] = std::numeric_limits<float>::quiet_NaN(); // an odd column
    plotter.SetDataReference(points.data(), columns, rows, 2, 2 * columns, 3);
    EXPECT_EQ(SurfaceOf(*Turn()).triangles->count, static_cast<int>(TriangleIndices(8, 7) - 6));
    plotter.ReleaseDataRelativeResource();
}

// ---- Contours

namespace {

// Of a frame, in its order: x, y, z.
std::vector<const RecordedDraw*> ContoursOf(const CallRecorder& frame) {
    std::vector<const RecordedDraw*> contours;
    for (const RecordedDraw& draw : frame.Draws())
        if (draw.primitive == GL_LINES && !draw.indices && draw.state.vertexArray && draw.vertices.empty())
            contours.push_back(&draw);
    return contours;
}

std::vector<float> KeptPoints(const float* points) {
    std::vector<float> kept;
    for (const unsigned int r : keptRows)
        for (const unsigned int c : keptColumns)
            kept.insert(kept.end(), points + 3 * (r * columns + c), points + 3 * (r * columns + c) + 3);
    return kept;
}

// All levels of an axis one after the other, flat.
std::vector<float> PlainContours(const std::vector<float>& kept, int axis,
                                 const std::vector<SKivoIsoContour>& whole) {
    std::vector<float> all;
    for (const SKivoIsoContour& contour : whole) {
        std::vector<float> points = PlainLevelLines({kept.data(), 8, 7, 3, 24}, axis, contour.level);
        for (std::size_t i = static_cast<std::size_t>(axis); i < points.size(); i += 3)
            points[i] = 0.0f;
        all.insert(all.end(), points.begin(), points.end());
    }
    return all;
}

std::vector<float> DrawnPoints(const std::vector<const RecordedDraw*>& contours) {
    std::vector<float> all;
    for (const RecordedDraw* contour : contours) {
        const auto* const points = static_cast<const float*>(contour->vertexArray);
        all.insert(all.end(), points, points + 3 * static_cast<std::ptrdiff_t>(contour->count));
    }
    return all;
}

} // namespace

TEST_F(MotionCalls, ContoursRunThroughTheKeptPoints) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    const std::vector<float> kept = KeptPoints(plotter.m_points);
    const std::vector<SKivoIsoContour>* const whole[] = {
        &plotter.m_flatXIsoContours, &plotter.m_flatYIsoContours, &plotter.m_flatZIsoContours};
    Press();
    for (const int axis : {0, 1, 2}) { // each is shown in the middle of the drag
        plotter.ShowXIsoContours(axis == 0);
        plotter.ShowYIsoContours(axis == 1);
        plotter.ShowZIsoContours(axis == 2);
        const std::vector<float> plain = PlainContours(kept, axis, *whole[axis]);
        ASSERT_FALSE(plain.empty());
        const auto frame = Move();
        EXPECT_EQ(DrawnPoints(ContoursOf(*frame)), plain) << axis;
        EXPECT_EQ(ContoursOf(*Move())[0]->vertexArray, ContoursOf(*frame)[0]->vertexArray)
            << "they are traced once";

        const auto rest = Record(plotter, [&] { plotter.OnDraw(); });
        const std::vector<const RecordedDraw*> drawn = ContoursOf(*rest);
        ASSERT_EQ(drawn.size(), whole[axis]->size());
        for (std::size_t k = 0; k < drawn.size(); ++k)
            EXPECT_EQ(drawn[k]->vertexArray, (*whole[axis])[k].points);
    }
}

TEST_F(MotionCalls, OtherLevelsAreTracedInTheDragThatGoesOn) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    plotter.ShowZIsoContours(true);
    Press();
    Move();
    for (const unsigned int count : {5u, 30u, 1u}) {
        ASSERT_EQ(plotter.SetIsoContourCount(count), 0);
        const std::vector<float> plain =
            PlainContours(KeptPoints(plotter.m_points), 2, plotter.m_flatZIsoContours);
        EXPECT_EQ(DrawnPoints(ContoursOf(*Move())), plain) << count;
    }
}

// No level that a derived class has put in is looked for where none is found.
TEST_F(MotionCalls, LevelsThatDoNotAscendAreDrawnWhole) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    plotter.ShowZIsoContours(true);
    for (const float level : {-1000.0f, std::numeric_limits<float>::quiet_NaN()}) {
        plotter.m_flatZIsoContours.back().level = level;
        const auto frame = Turn();
        EXPECT_TRUE(IsDetailReduced(plotter));
        ASSERT_EQ(ContoursOf(*frame).size(), plotter.m_flatZIsoContours.size());
        EXPECT_EQ(ContoursOf(*frame)[0]->vertexArray, plotter.m_flatZIsoContours[0].points);
    }
}

// Of a cell with a hole no side is crossed, though all of the kept points are numbers.
TEST_F(MotionCalls, NoContourCrossesAHole) {
    surface.points[3 * (12 * columns + 14) + 2] = std::numeric_limits<float>::quiet_NaN();
    plotter.SetData(surface.NewArray(), columns, rows, 1, columns, 3);
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    plotter.ShowZIsoContours(true);
    const float* const corner = plotter.m_points + 3 * (10 * columns + 12);
    const float* const opposite = plotter.m_points + 3 * (15 * columns + 18);
    const auto frame = Turn();
    const std::vector<float> drawn = DrawnPoints(ContoursOf(*frame));
    std::size_t numbers = 0;
    for (std::size_t i = 0; i < drawn.size(); i += 3) {
        const bool isInside = drawn[i] > corner[0] && drawn[i] < opposite[0] && drawn[i + 1] > corner[1] &&
                              drawn[i + 1] < opposite[1];
        EXPECT_FALSE(isInside) << drawn[i] << ", " << drawn[i + 1];
        numbers += drawn[i] == drawn[i] ? 1 : 0;
    }
    EXPECT_GT(numbers, 100U);
}

TEST_F(MotionCalls, WithoutMemoryContoursAreWhole) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    plotter.ShowYIsoContours(true);
    ASSERT_EQ(plotter.SetIsoContourCount(3), 0);
    int wholeContours = 0;
    bool hasFailed = true;
    for (long n = 1; hasFailed; ++n) {
        plotter.SetData(surface.NewArray(), columns, rows, 1, columns, 3);
        plotter.ShowYIsoContours(false);
        plotter.OnMouseWheel(0, 120, start); // the surface is copied, contours are not traced
        plotter.ShowYIsoContours(true);
        plotter.OnDraw();
        const auto frame = Record(plotter, [&] {
            AllocationFault fault(n, AllocationFault::Mode::once);
            plotter.OnMouseWheel(0, 120, start);
            fault.Stop();
            hasFailed = fault.HasFailed();
        });
        EXPECT_TRUE(IsDetailReduced(plotter)) << n;
        const bool areWhole = ContoursOf(*frame)[0]->vertexArray == plotter.m_flatYIsoContours[0].points;
        EXPECT_EQ(areWhole, hasFailed) << n;
        wholeContours += areWhole ? 1 : 0;
    }
    EXPECT_GE(wholeContours, 5);
}

// ---- What makes it stale

TEST_F(MotionCalls, NewDataAreDrawnInTheDragThatGoesOn) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    Move();
    std::vector<float> points = PointsOf(HillSurface(columns, rows), 3);
    plotter.SetDataReference(points.data(), columns, rows, 1, columns, 3);
    ExpectKeptPoints(*Move(), plotter, 3);
    // The same array with other numbers.
    for (float& number : points)
        number = 1.5f - number;
    plotter.SetDataReference(points.data(), columns, rows, 1, columns, 3);
    ExpectKeptPoints(*Move(), plotter, 3);
    // Another size.
    plotter.SetDataReference(points.data(), 20, 30, 1, 20, 3);
    EXPECT_EQ(TriangleIndicesOfMove(), TriangleIndices(8, 7));
    plotter.SetDataReference(points.data(), 4, 4, 1, 4, 3);
    EXPECT_EQ(TriangleIndicesOfMove(), TriangleIndices(4, 4));
    EXPECT_FALSE(IsDetailReduced(plotter));
    plotter.OnDestroy();
}

TEST_F(MotionCalls, NewColorsAreDrawnInTheDragThatGoesOn) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    Move();
    plotter.SetZGradientColor(0x0000FF00UL, 0x000000FFUL);
    ExpectKeptPoints(*Move(), plotter, 3);
    plotter.SetGradientStartColor(0x00FF0000UL);
    ExpectKeptPoints(*Move(), plotter, 3);
}

// As a derived class writes into the arrays.
TEST_F(MotionCalls, WhatAWholeFrameHasShownIsTaken) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    Move();
    for (std::size_t i = 0; i < std::size_t{columns} * rows; ++i) {
        plotter.m_points[3 * i + 2] += 0.25f;
        plotter.m_colorArray[4 * i] = 0.125f;
    }
    plotter.OnDraw();
    ExpectKeptPoints(*Move(), plotter, 3);
}

TEST_F(MotionCalls, ItGoesWithTheDataAndTheWindow) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Press();
    Move();
    plotter.ReleaseDataRelativeResource();
    EXPECT_EQ(SurfaceOf(*Move()).triangles, nullptr);
    EXPECT_FALSE(IsDetailReduced(plotter));
    plotter.SetData(surface.NewArray(), columns, rows, 1, columns, 3);
    Press();
    Move();
    ASSERT_TRUE(IsDetailReduced(plotter));
    plotter.OnDestroy();
    EXPECT_FALSE(IsDetailReduced(plotter));
    plotter.OnMouseMove(MK_RBUTTON, start); // without window and data
    plotter.OnCreate(plot.window.Handle(), RecordedPlot::width, RecordedPlot::height, true);
    EXPECT_FALSE(IsDetailReduced(plotter));
    plotter.SetData(surface.NewArray(), columns, rows, 1, columns, 3);
    EXPECT_TRUE(IsReduced(*Turn())) << "the setting stays";
}

TEST_F(MotionCalls, ItTakesNoMemoryOnceItIsOff) {
    plotter.OnMouseWheel(0, 120, start);
    const long before = LiveBlocks();
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    EXPECT_EQ(LiveBlocks(), before) << "before the first moved frame";
    plotter.OnMouseWheel(0, 120, start);
    EXPECT_GT(LiveBlocks(), before);
    ASSERT_EQ(SetMotionDetail(plotter, 0), 0);
    EXPECT_EQ(LiveBlocks(), before);
}

// ---- Refusals and faults

TEST_F(MotionCalls, OnePointASideIsRefused) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    EXPECT_EQ(SetMotionDetail(plotter, 1), -3);
    EXPECT_TRUE(IsReduced(*Turn()));
    ASSERT_EQ(SetMotionDetail(plotter, 2), 0);
    EXPECT_EQ(SurfaceOf(*Turn()).triangles->count, 6);
}

// Each allocation of a frame in turn, and all of them from it on.
TEST_F(MotionCalls, WithoutMemoryTheFrameIsWhole) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    for (const AllocationFault::Mode mode : {AllocationFault::Mode::once, AllocationFault::Mode::onwards}) {
        int wholeFrames = 0;
        bool hasFailed = true;
        for (long n = 1; hasFailed; ++n) {
            plotter.SetData(surface.NewArray(), columns, rows, 1, columns, 3); // nothing is copied yet
            plotter.OnDraw(); // what all frames need is there
            AllocationFault fault(n, mode);
            plotter.OnMouseWheel(0, 120, start);
            fault.Stop();
            hasFailed = fault.HasFailed();
            EXPECT_NE(IsDetailReduced(plotter), hasFailed) << n;
            wholeFrames += hasFailed ? 1 : 0;
            EXPECT_TRUE(IsReduced(*Turn())) << n;
        }
        EXPECT_GE(wholeFrames, 5) << "points, colours, triangles, lines and what holds them";
    }
}

// ---- Measuring

TEST_F(MotionCalls, MeasuringPresentsNothingAndSetsNothing) {
    ASSERT_EQ(SetMotionDetail(plotter, eight), 0);
    Turn();
    const auto measured = Record(plotter, [&] { MotionDetailFor(plotter, 1e9); });
    EXPECT_EQ(measured->Count("SwapBuffers"), 0);
    EXPECT_TRUE(IsDetailReduced(plotter));
    // 10, 20 and 40 points a side, then all of them, twice each.
    std::vector<int> counts;
    for (const RecordedDraw& draw : measured->Draws())
        if (draw.primitive == GL_TRIANGLES && draw.indices) counts.push_back(draw.count);
    const int ten = static_cast<int>(TriangleIndices(9, 9)),
              twenty = static_cast<int>(TriangleIndices(15, 16)),
              forty = static_cast<int>(TriangleIndices(21, 30)), all = static_cast<int>(wholeIndices);
    EXPECT_THAT(counts, testing::ElementsAre(ten, ten, twenty, twenty, forty, forty, all, all));
    EXPECT_TRUE(IsReduced(*Turn()));
    EXPECT_TRUE(IsWhole(*Record(plotter, [&] { plotter.OnDraw(); }), plotter));
}
