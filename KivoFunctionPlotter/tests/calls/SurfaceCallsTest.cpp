// How the surface, its contours, the curves and the point markers are drawn, call by call.
#include "drawing/LongDraws.h"
#include "drawing/PointMarker.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "support/PublicOperations.h"

#include <gmock/gmock.h>

#include <cmath>

using namespace KivoDrawingTools;
using namespace KivoTest;
using testing::ElementsAreArray;

namespace {

class SurfaceCalls : public testing::Test {
protected:
    SurfaceCalls() { plotter.SetData(NewHill(12, 10), 12, 10, 1, 12, 3); }

    Texts Surface() {
        return RecordStep(plotter, [&] { plotter.RenderSurface(); })->Texts();
    }
    // What is common to all branches: the arrays at the beginning, triangles and clean-up at the end.
    static Texts Arrays(int floats = 3, int stride = 0) {
        return {"glVertexPointer(" + std::to_string(floats) + ", GL_FLOAT, " + std::to_string(stride) +
                    ", points)",
                "glEnableClientState(GL_VERTEX_ARRAY)", "glColorPointer(4, GL_FLOAT, 0, colors)",
                "glEnableClientState(GL_COLOR_ARRAY)"};
    }
    Texts LineList() const {
        return {"glDisable(GL_LIGHTING)",
                "glDisableClientState(GL_COLOR_ARRAY)",
                CallText("glColor4fv", {Array(plotter.m_framelineColor, 4)}),
                "glDrawElements(GL_LINES, " + std::to_string(plotter.m_framelineIndexCount) +
                    ", GL_UNSIGNED_INT, frame lines)",
                "glEnable(GL_LIGHTING)",
                "glEnableClientState(GL_COLOR_ARRAY)"};
    }
    Texts Triangles() const {
        return {"glPolygonOffset(1, 1)",
                "glEnable(GL_POLYGON_OFFSET_FILL)",
                "glDrawElements(GL_TRIANGLES, " + std::to_string(plotter.m_indexCount) +
                    ", GL_UNSIGNED_INT, indices)",
                "glDisable(GL_POLYGON_OFFSET_FILL)",
                "glDisable(GL_TEXTURE_2D)",
                "glDisable(GL_BLEND)",
                "glDisableClientState(GL_VERTEX_ARRAY)",
                "glDisableClientState(GL_COLOR_ARRAY)",
                "glBindTexture(GL_TEXTURE_2D, 0)",
                "glDisableClientState(GL_TEXTURE_COORD_ARRAY)"};
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

} // namespace

// ---- RenderSurface

TEST_F(SurfaceCalls, FrameLinesAreDrawnUnlitBeforeTheTriangles) {
    plotter.SetFrameLineColor(0x00402010ul);
    EXPECT_EQ(plotter.m_indexCount, 6u * 11 * 9);
    EXPECT_EQ(plotter.m_framelineIndexCount, 2 * (11 * 10 + 9 * 12));
    Texts expected = Arrays();
    Append(expected, LineList());
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected));
}

TEST_F(SurfaceCalls, WithoutFrameLinesThereAreTheTrianglesAlone) {
    plotter.ShowFrameLines(false);
    Texts expected = Arrays();
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected));
}

TEST_F(SurfaceCalls, AFrameLineTextureIsUploadedOnEveryDraw) {
    plotter.m_useFramelineTexture = true;
    plotter.SetData(NewHill(12, 10), 12, 10, 1, 12, 3);
    ASSERT_NE(plotter.m_framelineTexId, 0u);
    Texts expected = Arrays();
    Append(expected, {
                         "glTexCoordPointer(2, GL_FLOAT, 0, texcoords)",
                         "glEnableClientState(GL_TEXTURE_COORD_ARRAY)",
                         "glEnable(GL_TEXTURE_2D)",
                         "glBindTexture(GL_TEXTURE_2D, " + std::to_string(plotter.m_framelineTexId) + ")",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
                         "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
                         "glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, 400, 400, 0, GL_RGBA, GL_UNSIGNED_BYTE, "
                         "frame-line texels)",
                     });
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected));
    EXPECT_THAT(Surface(), ElementsAreArray(expected)) << "the second time too";
}

// The texture is asked for, but it has no texels or no name: the list of lines stands in.
TEST_F(SurfaceCalls, WithoutAFrameLineTextureTheLineListIsDrawn) {
    plotter.m_useFramelineTexture = true;
    Texts expected = Arrays();
    Append(expected, LineList());
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected)) << "neither texels nor name";
    plotter.m_framelineTexels = new unsigned char[4];
    EXPECT_THAT(Surface(), ElementsAreArray(expected)) << "no name";
}

TEST_F(SurfaceCalls, WithoutAnyFrameLinesThereAreTheTrianglesAlone) {
    plotter.SetFrameLineStep(0, 0);
    Texts expected = Arrays();
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected));
}

TEST_F(SurfaceCalls, PointsOfFourFloatsAreHandedOverWhole) {
    float points[4 * 4] = {0, 0, 0, 1, 1, 0, 1, 1, 0, 1, 2, 1, 1, 1, 0.5f, 1};
    plotter.SetDataReference(points, 2, 2, 1, 2, 4);
    plotter.ShowFrameLines(false);
    Texts expected = Arrays(4);
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected));
}

TEST_F(SurfaceCalls, LongerPointsAreHandedOverByTheirFirstThreeFloats) {
    float points[4 * 5] = {0, 0, 0, 9, 9, 1, 0, 1, 9, 9, 0, 1, 2, 9, 9, 1, 1, 0.5f, 9, 9};
    plotter.SetDataReference(points, 2, 2, 1, 2, 5);
    plotter.ShowFrameLines(false);
    Texts expected = Arrays(3, 5 * 4);
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected));
}

TEST_F(SurfaceCalls, WithoutDataNothingIsCalled) {
    float point[2] = {};
    plotter.SetDataReference(point, 1, 1, 1, 1, 2); // fewer than three floats
    EXPECT_TRUE(Surface().empty());
    RecordedPlot empty;
    EXPECT_TRUE(RecordStep(empty.plotter, [&] { empty.plotter.RenderSurface(); })->Calls().empty());
}

// A line has colours but no triangles.
TEST_F(SurfaceCalls, AGridOneRowHighDrawsNoTriangles) {
    float points[] = {0, 0, 0, 1, 0, 1};
    plotter.SetDataReference(points, 2, 1, 1, 2, 3);
    EXPECT_EQ(plotter.m_indexCount, 0u);
    Texts expected = Arrays();
    Append(expected, Triangles());
    EXPECT_THAT(Surface(), ElementsAreArray(expected));
}

// ---- Arrays that are longer than a call takes

TEST_F(SurfaceCalls, IndicesBeyondTheLimitTakeFurtherCalls) {
    const unsigned int count = plotter.m_indexCount;
    ASSERT_EQ(count, 594u);
    for (const std::size_t limit : {std::size_t{594}, std::size_t{600}, mostElements}) {
        const auto whole =
            RecordStep(plotter, [&] { DrawIndexed(GL_TRIANGLES, plotter.m_indexArray, count, limit); });
        EXPECT_THAT(whole->Texts(),
                    ElementsAreArray({"glDrawElements(GL_TRIANGLES, 594, GL_UNSIGNED_INT, indices)"}));
    }
    for (const std::size_t limit : {6u, 120u, 588u}) {
        SCOPED_TRACE(limit);
        const CurrentContext context(plotter);
        glVertexPointer(3, GL_FLOAT, 0, plotter.m_points);
        glEnableClientState(GL_VERTEX_ARRAY);
        const auto parts =
            Record(plotter, [&] { DrawIndexed(GL_TRIANGLES, plotter.m_indexArray, count, limit); });
        glDisableClientState(GL_VERTEX_ARRAY);
        std::size_t next = 0;
        for (const RecordedDraw& draw : parts->Draws()) {
            EXPECT_EQ(draw.indices, plotter.m_indexArray + next);
            EXPECT_EQ(draw.count % 3, 0);
            EXPECT_TRUE(draw.count == static_cast<int>(limit) || next + limit > count);
            next += static_cast<std::size_t>(draw.count);
        }
        EXPECT_EQ(next, count);
    }
    EXPECT_EQ(mostElements % 6, 0u);
    EXPECT_LE(mostElements, 0x7FFFFFFFu);
    EXPECT_GT(mostElements + 6, 0x7FFFFFFFu);
}

TEST_F(SurfaceCalls, PointsAndListsBeyondTheLimitTakeFurtherCalls) {
    const float points[14 * 3] = {};
    const auto lines = RecordStep(plotter, [&] { DrawLines(points, 14, 6); });
    EXPECT_THAT(lines->TextsOf({"glDrawArrays"}),
                ElementsAreArray({"glDrawArrays(GL_LINES, 0, 6)", "glDrawArrays(GL_LINES, 0, 6)",
                                  "glDrawArrays(GL_LINES, 0, 2)"}));
    ASSERT_EQ(lines->Draws().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(lines->Draws()[i].vertexArray, points + 18 * i);
    const char text[] = "seven.!";
    const auto lists = RecordStep(plotter, [&] { CallLists(text, 7, 6); });
    ASSERT_EQ(lists->Count("glCallLists"), 2);
    EXPECT_EQ(lists->Calls()[0].Pointer(0), text);
    EXPECT_EQ(lists->Calls()[1].Pointer(0), text + 6);
    EXPECT_EQ(lists->Calls()[1].Numbers()[0], 1.0);
}

// 18,920 and 30,000 points square have more indices than the fields for their counts.
TEST(LongCounts, AreWholeWhereTheFieldHoldsTheirLowerBits) {
    for (const std::size_t cells : {0ull, 11ull * 9, 18919ull * 18919, 29999ull * 29999}) {
        const std::size_t whole = 6 * cells;
        EXPECT_EQ(WholeCount(static_cast<unsigned int>(whole), whole), whole);
        EXPECT_EQ(WholeCount(static_cast<int>(whole), whole), whole);
        EXPECT_EQ(WholeCount(12u, whole), 12u) << "put there by a derived class";
        EXPECT_EQ(WholeCount(-1, whole), 0u);
    }
}

// ---- The frame-line image

TEST_F(SurfaceCalls, TheFrameLineImageIsDrawnInItsOwnViewAndReadBack) {
    plotter.m_useFramelineTexture = true;
    const auto recorder = RecordStep(plotter, [&] { plotter.CreateFramelineSKivoTexImage(); });
    Texts calls = recorder->Texts();
    const auto isVertex = [](const std::string& text) { return text.rfind("glVertex", 0) == 0; };
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(), isVertex), 2 * 2 * (19 + 2));
    calls.erase(std::remove_if(calls.begin(), calls.end(), isVertex), calls.end());
    EXPECT_THAT(calls,
                ElementsAreArray({
                    "glPushAttrib(GL_VIEWPORT_BIT | GL_COLOR_BUFFER_BIT)",
                    "glViewport(0, 0, 400, 400)",
                    "glMatrixMode(GL_PROJECTION)",
                    "glPushMatrix()",
                    "glLoadIdentity()",
                    "glOrtho(0, 400, 0, 400, -1, 1)",
                    "glMatrixMode(GL_MODELVIEW)",
                    "glPushMatrix()",
                    "glLoadIdentity()",
                    "glDisable(GL_LIGHTING)",
                    "glClearColor(1, 1, 1, 1)",
                    "glClearDepth(1)",
                    "glClear(GL_DEPTH_BUFFER_BIT | GL_COLOR_BUFFER_BIT)",
                    "glColor4f(0.2, 0.2, 0.2, 1)",
                    "glBegin(GL_LINES)",
                    "glEnd()",
                    "glEnable(GL_LIGHTING)",
                    "glPopMatrix()",
                    "glMatrixMode(GL_PROJECTION)",
                    "glPopMatrix()",
                    "glMatrixMode(GL_MODELVIEW)",
                    "glReadBuffer(GL_BACK)",
                    "glReadPixels(0, 0, 400, 400, GL_RGBA, GL_UNSIGNED_BYTE, frame-line texels)",
                    "glReadBuffer(1028)", // GL_FRONT, as it was: a window without a screen has one buffer
                    "glPopAttrib()",
                    "glGenTextures(1)",
                }));
    // Vertical lines, the borders at 1 and 400, horizontal lines, the borders at 0 and 400.
    std::vector<std::array<double, 4>> lines, expected;
    const auto& vertices = recorder->Draws().at(0).vertices;
    for (std::size_t i = 0; i < vertices.size(); i += 2)
        lines.push_back({vertices[i].position[0], vertices[i].position[1], vertices[i + 1].position[0],
                         vertices[i + 1].position[1]});
    for (int i = 1; i < 20; ++i)
        expected.push_back({20.0 * i, 0, 20.0 * i, 400});
    expected.push_back({1, 0, 1, 400});
    expected.push_back({400, 0, 400, 400});
    for (int i = 1; i < 20; ++i)
        expected.push_back({0, 20.0 * i, 400, 20.0 * i});
    expected.push_back({0, 0, 400, 0});
    expected.push_back({0, 400, 400, 400});
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(vertices[0].position[2], 0.5);
}

// ---- Contours

namespace {

struct ContourSet {
    int axis;
    int backPlane; ///< its place among the flags of the grid box
    void (CallProbe::*render)();
    const char* name;
};

class ContourCalls : public SurfaceCalls, public testing::WithParamInterface<ContourSet> {
protected:
    const std::vector<SKivoIsoContour>& Contours() const {
        const int axis = GetParam().axis;
        return axis == 0   ? plotter.m_flatXIsoContours
               : axis == 1 ? plotter.m_flatYIsoContours
                           : plotter.m_flatZIsoContours;
    }
    const CKivoGradientColor& Gradient() const {
        const int axis = GetParam().axis;
        return *(axis == 0   ? plotter.m_xGradientColor
                 : axis == 1 ? plotter.m_yGradientColor
                             : plotter.m_zGradientColor);
    }
    std::string Translation(float wall) const {
        float offset[3] = {};
        offset[GetParam().axis] = wall;
        return CallText("glTranslatef", {Num(offset[0]), Num(offset[1]), Num(offset[2])});
    }
};

} // namespace

TEST_P(ContourCalls, EachLevelIsOneBatchInItsColourOnTheBackPlane) {
    plotter.SetGradientColor(0x00FF8000ul, 0x00008040ul);
    CKivoGridBox& box = *plotter.m_gridBox;
    for (const bool isLow : {true, false}) {
        box.m_backPlane[GetParam().backPlane] = isLow;
        const float wall = isLow ? box.m_boxMin[GetParam().axis] : box.m_boxMax[GetParam().axis];
        Texts expected = {"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", Translation(wall),
                          "glEnableClientState(GL_VERTEX_ARRAY)"};
        ASSERT_EQ(Contours().size(), 20u);
        for (const SKivoIsoContour& contour : Contours()) {
            float color[4] = {0, 0, 0, 1};
            Gradient().Evaluate(contour.level, color);
            Append(expected,
                   {CallText("glColor4fv", {Array(color, 4)}), "glVertexPointer(3, GL_FLOAT, 0, address)",
                    "glDrawArrays(GL_LINES, 0, " + std::to_string(contour.pointCount) + ")"});
        }
        Append(expected,
               {"glDisableClientState(GL_VERTEX_ARRAY)", "glPopMatrix()", "glMatrixMode(GL_MODELVIEW)"});
        const auto recorder = RecordStep(plotter, [&] { std::invoke(GetParam().render, plotter); });
        EXPECT_THAT(recorder->Texts(), ElementsAreArray(expected));
        ASSERT_EQ(recorder->Draws().size(), Contours().size());
        for (std::size_t i = 0; i < Contours().size(); ++i)
            EXPECT_EQ(recorder->Draws()[i].vertexArray, Contours()[i].points) << i;
    }
}

TEST_P(ContourCalls, AnEmptySetMovesNothingAndDrawsNothing) {
    RecordedPlot empty;
    const auto recorder = RecordStep(empty.plotter, [&] { std::invoke(GetParam().render, empty.plotter); });
    EXPECT_THAT(
        recorder->Texts(),
        ElementsAreArray({"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", "glTranslatef(0, 0, 0)",
                          "glEnableClientState(GL_VERTEX_ARRAY)", "glDisableClientState(GL_VERTEX_ARRAY)",
                          "glPopMatrix()", "glMatrixMode(GL_MODELVIEW)"}));
}

INSTANTIATE_TEST_SUITE_P(Axes, ContourCalls,
                         testing::Values(ContourSet{0, 2, &CallProbe::RenderFlatXIsoContour, "X"},
                                         ContourSet{1, 0, &CallProbe::RenderFlatYIsoContour, "Y"},
                                         ContourSet{2, 1, &CallProbe::RenderFlatZIsoContour, "Z"}),
                         [](const auto& set) { return set.param.name; });

// ---- Curves

namespace {

// Adds what a ball at a point calls.
void AppendMarker(Texts& texts, const float* point, double size, const double* scale) {
    Append(texts, {"glMatrixMode(GL_MODELVIEW)", "glPushAttrib(GL_ENABLE_BIT)", "glEnable(GL_NORMALIZE)",
                   "glPushMatrix()", CallText("glTranslatef", {Num(point[0]), Num(point[1]), Num(point[2])}),
                   CallText("glScaled", {Num(size / scale[0]), Num(size / scale[1]), Num(size / scale[2])}),
                   "glEnableClientState(GL_VERTEX_ARRAY)", "glEnableClientState(GL_NORMAL_ARRAY)",
                   "glVertexPointer(3, GL_FLOAT, 0, address)", "glNormalPointer(GL_FLOAT, 0, address)",
                   "glDrawElements(GL_TRIANGLES, 96, GL_UNSIGNED_INT, address)",
                   "glDisableClientState(GL_VERTEX_ARRAY)", "glDisableClientState(GL_NORMAL_ARRAY)",
                   "glPopMatrix()", "glPopAttrib()", "glMatrixMode(GL_MODELVIEW)"});
}

} // namespace

TEST_F(SurfaceCalls, CurvesAreSegmentsThenBalls) {
    float first[] = {0, 0, 0, 9, 1, 0.5f, 0.25f, 9, 2, 1, 0.5f, 9}; // four floats a point
    float second[] = {-1, -1, 1};                                   // one point
    float hidden[] = {0, 0, 0, 1, 1, 1};
    plotter.AddCurveData(first, 3, 4);
    plotter.AddCurveData(hidden, 2, 3);
    plotter.AddCurveData(second, 1, 3);
    plotter.SetCurveColor(0, 0x0000FF00ul);
    plotter.SetCurveVisibility(1, false);
    plotter.SetCurveWidth(0, 2.5f);
    const double pixel = (plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2];
    const double size = static_cast<float>(pixel * 4.0 * 0.7);
    Texts expected = {"glDisable(GL_LIGHTING)",
                      "glColor4fv({0, 1, 0, 1})",
                      "glLineWidth(2.5)",
                      "glBegin(GL_LINES)",
                      "glVertex3fv({0, 0, 0})",
                      "glVertex3fv({1, 0.5, 0.25})",
                      "glVertex3fv({1, 0.5, 0.25})",
                      "glVertex3fv({2, 1, 0.5})",
                      "glEnd()",
                      "glColor4fv({1, 0, 0, 1})",
                      "glLineWidth(1)",
                      "glBegin(GL_LINES)",
                      "glEnd()",
                      "glLineWidth(1)",
                      "glEnable(GL_LIGHTING)",
                      "glColor4fv({0, 1, 0, 1})"};
    for (int i = 0; i < 3; ++i)
        AppendMarker(expected, first + 4 * i, size, plotter.m_axisScale);
    expected.push_back("glColor4fv({1, 0, 0, 1})");
    AppendMarker(expected, second, size, plotter.m_axisScale);
    const auto recorder = RecordStep(plotter, [&] { plotter.RenderCurves(); });
    EXPECT_THAT(recorder->Texts(), ElementsAreArray(expected));
}

TEST_F(SurfaceCalls, WithoutCurvesOnlyTheStateIsSwitched) {
    EXPECT_THAT(RecordStep(plotter, [&] { plotter.RenderCurves(); })->Texts(),
                ElementsAreArray({"glDisable(GL_LIGHTING)", "glLineWidth(1)", "glEnable(GL_LIGHTING)"}));
}

// ---- Markers

TEST_F(SurfaceCalls, ABallIsOneIndexedDrawOfVerticesThatAreTheirOwnNormals) {
    const auto recorder = RecordStep(plotter, [] { DrawUnitSphere(); });
    ASSERT_EQ(recorder->Draws().size(), 1u);
    const RecordedDraw& draw = recorder->Draws()[0];
    EXPECT_EQ(draw.primitive, static_cast<unsigned int>(GL_TRIANGLES));
    EXPECT_EQ(draw.count, 96);
    EXPECT_EQ(draw.vertexArray, draw.normalArray);
    EXPECT_TRUE(draw.state.vertexArray);
    EXPECT_TRUE(draw.state.normalArray);
    const auto* const vertices = static_cast<const float*>(draw.vertexArray);
    const auto* const indices = static_cast<const unsigned int*>(draw.indices);
    constexpr float c = 0.7071f;
    const float expected[18][3] = {{0, -1, 0}, {1, 0, 0},   {0, 0, 1},   {-1, 0, 0}, {0, 0, -1}, {0, 1, 0},
                                   {0, -c, c}, {c, 0, c},   {0, c, c},   {-c, 0, c}, {c, -c, 0}, {c, c, 0},
                                   {-c, c, 0}, {-c, -c, 0}, {0, -c, -c}, {c, 0, -c}, {0, c, -c}, {-c, 0, -c}};
    for (int i = 0; i < 54; ++i)
        EXPECT_EQ(vertices[i], expected[i / 3][i % 3]) << i;
    const unsigned int order[96] = {
        0, 10, 6,  2,  6,  7,  6,  10, 7,  10, 1,  7,  1, 11, 7,  8,  2,  7,  11, 8, 7,  5, 8,  11,
        5, 12, 8,  12, 9,  8,  9,  2,  8,  3,  9,  12, 3, 13, 9,  13, 6,  9,  6,  2, 9,  0, 6,  13,
        4, 15, 14, 15, 10, 14, 10, 0,  14, 10, 15, 1,  4, 16, 15, 16, 11, 15, 11, 1, 15, 5, 11, 16,
        4, 17, 16, 17, 12, 16, 12, 5,  16, 3,  12, 17, 4, 14, 17, 14, 13, 17, 13, 3, 17, 0, 13, 14};
    for (int i = 0; i < 96; ++i)
        EXPECT_EQ(indices[i], order[i]) << i;
}

TEST_F(SurfaceCalls, MeasurePointsAreBallsInTheirGroupsColours) {
    float points[] = {0, 0, 0, 5, 1, 1, 1, 5};
    float others[] = {-1, 0, 1};
    plotter.AddMeasurePoints(2, 4, points, "first");
    plotter.AddMeasurePoints(1, 3, others, "hidden");
    plotter.AddMeasurePoints(1, 3, others, "own colour");
    plotter.ShowMeasureGroup(1, false);
    plotter.SetMeasureGroupColor(2, 0x000000FFul);
    plotter.SetPointRadiusPixelSize(5);
    const double pixel = (plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2];
    const double size = static_cast<float>(pixel * 5.0);
    Texts expected = {"glMatrixMode(GL_MODELVIEW)", "glColor4fv({0.8, 0.8, 0.8, 1})"};
    AppendMarker(expected, points, size, plotter.m_axisScale);
    AppendMarker(expected, points + 4, size, plotter.m_axisScale);
    expected.push_back("glColor4fv({1, 0, 0, 1})");
    AppendMarker(expected, others, size, plotter.m_axisScale);
    expected.push_back("glMatrixMode(GL_MODELVIEW)");
    EXPECT_THAT(RecordStep(plotter, [&] { plotter.RenderMeasurePoints(); })->Texts(),
                ElementsAreArray(expected));
}

TEST_F(SurfaceCalls, TheTracedPointIsABallInMagenta) {
    EXPECT_TRUE(RecordStep(plotter, [&] { plotter.RenderTracePoints(); })->Calls().empty());
    plotter.m_hasTracePoint = 1;
    for (float& coordinate : plotter.m_tracePoint)
        coordinate = 0.5f;
    const double pixel = (plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2];
    Texts expected = {"glColor4fv({1, 0.05, 1, 1})"};
    AppendMarker(expected, plotter.m_tracePoint, static_cast<float>(pixel * 4.0), plotter.m_axisScale);
    EXPECT_THAT(RecordStep(plotter, [&] { plotter.RenderTracePoints(); })->Texts(),
                ElementsAreArray(expected));
}
