// A frame of each plot mode: its layers in order, the state under which each is drawn, and the state at the
// end.
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "support/RecordedPlot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

using namespace KivoDrawingTools;
using namespace KivoTest;
using testing::ElementsAreArray;

namespace {

bool Has(const std::vector<SKivoIsoContour>& contours, const void* points) {
    return std::any_of(contours.begin(), contours.end(),
                       [points](const SKivoIsoContour& contour) { return contour.points == points; });
}

bool HasColor(const RecordedDraw& draw, float r, float g, float b) {
    const std::array<float, 4>& color = draw.vertices.empty() ? draw.state.color : draw.vertices[0].color;
    return color == std::array<float, 4>{r, g, b, 1};
}

// Says which layer a draw belongs to, by what it draws: the arrays, textures and colours that the plotter
// holds.
class Layers {
public:
    explicit Layers(const CallProbe& plotter) : m_plotter(plotter) {
        const CKivoGridBox& box = *plotter.m_gridBox;
        for (int axis = 0; axis < 3; ++axis) {
            m_textures[static_cast<int>(box.m_axisTitleImage[axis].texture)] = "labels";
            for (unsigned int i = 0; i <= box.m_tickIntervals[axis]; ++i)
                m_textures[static_cast<int>(box.m_tickLabels[axis][i].texture)] = "labels";
        }
        for (const CKivoGradientColorRuler* ruler :
             {plotter.m_xColorRuler, plotter.m_yColorRuler, plotter.m_zColorRuler})
            for (unsigned int i = 0; i <= ruler->m_divisionCount; ++i)
                m_textures[static_cast<int>(ruler->m_labels[i].texture)] = "legend labels";
        m_textures[static_cast<int>(plotter.m_plotTitleImage->texture)] = "title";
    }

    std::string Of(const RecordedDraw& draw) const {
        if (draw.indices) return OfTriangles(draw);
        if (Has(m_plotter.m_flatXIsoContours, draw.vertexArray) && draw.vertices.empty()) return "x contours";
        if (Has(m_plotter.m_flatYIsoContours, draw.vertexArray) && draw.vertices.empty()) return "y contours";
        if (Has(m_plotter.m_flatZIsoContours, draw.vertexArray) && draw.vertices.empty()) return "z contours";
        if (draw.primitive == GL_QUADS) {
            if (!draw.state.texture) return "legend bar";
            const auto found = m_textures.find(draw.state.boundTexture);
            return found != m_textures.end() ? found->second : "trace label"; // whose texture is gone already
        }
        if (draw.primitive == GL_LINE_LOOP) return "outlines";
        if (HasColor(draw, 0.8f, 0.8f, 0.8f)) return "grid lines";
        if (HasColor(draw, 0.3f, 0.3f, 0.3f)) return "guide lines";
        if (HasColor(draw, 0, 0, 0)) return "tick marks";
        return m_plotter.m_plotType == 0 ? "curve lines" : "axis lines";
    }

    // The layers in order, each as often as it is gone back to.
    Texts InOrder(const CallRecorder& recorder) const {
        Texts layers;
        for (const RecordedDraw& draw : recorder.Draws()) {
            const std::string layer = Of(draw);
            if (layers.empty() || layers.back() != layer) layers.push_back(layer);
        }
        return layers;
    }

private:
    std::string OfTriangles(const RecordedDraw& draw) const {
        if (draw.indices == m_plotter.m_framelineIndexArray) return "frame lines";
        if (draw.indices == m_plotter.m_indexArray) return "surface";
        if (HasColor(draw, 1.0f, 0.05f, 1.0f)) return "trace marker";
        return HasColor(draw, 1, 0, 0) ? "curve balls" : "measure balls";
    }

    const CallProbe& m_plotter;
    std::map<int, std::string> m_textures;
};

// The state of a draw that is switched from layer to layer, in words.
std::string StateOf(const DrawState& state) {
    std::string words;
    const auto add = [&](bool isOn, const char* word) {
        if (isOn) words += (words.empty() ? "" : " ") + std::string(word);
    };
    add(state.lighting, "lit");
    add(state.depthTest, "depth");
    add(state.blend, "blend");
    add(state.texture, "texture");
    add(state.alphaTest, "alpha");
    add(state.polygonOffset, "offset");
    add(state.normalize, "normalize");
    add(state.colorArray, "colors");
    add(state.normalArray, "normals");
    add(!state.colorMask, "no-color");
    return words;
}

class FrameCalls : public testing::Test {
protected:
    FrameCalls() { plot.Fill(); }

    std::unique_ptr<CallRecorder> Frame() {
        plotter.OnDraw(); // what a first frame sets up is not the frame's
        return Record(plotter, [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
    }

    // The states under which each layer is drawn.
    std::map<std::string, Texts> States(const CallRecorder& recorder) const {
        std::map<std::string, Texts> states;
        const Layers layers(plotter);
        for (const RecordedDraw& draw : recorder.Draws()) {
            Texts& known = states[layers.Of(draw)];
            const std::string state = StateOf(draw.state);
            if (std::find(known.begin(), known.end(), state) == known.end()) known.push_back(state);
        }
        return states;
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

} // namespace

TEST_F(FrameCalls, TheNormalPlotDrawsItsLayersInOrder) {
    EXPECT_THAT(Layers(plotter).InOrder(*Frame()),
                ElementsAreArray({"outlines", "grid lines", "tick marks", "labels", "guide lines",
                                  "trace marker", "x contours", "y contours", "z contours", "curve lines",
                                  "curve balls", "frame lines", "surface", "measure balls", "title",
                                  "trace label", "legend bar", "legend labels"}));
}

TEST_F(FrameCalls, EachLayerOfTheNormalPlotHasItsState) {
    const std::map<std::string, Texts> expected = {
        {"outlines", {"depth"}},
        {"grid lines", {"depth"}},
        {"tick marks", {"depth"}},
        // over everything, then once more into the depth buffer alone
        {"labels", {"blend texture", "depth blend texture alpha no-color"}},
        {"guide lines", {"depth"}},
        {"trace marker", {"lit depth normalize normals"}},
        {"x contours", {"depth"}},
        {"y contours", {"depth"}},
        {"z contours", {"depth"}},
        {"curve lines", {"depth"}},
        {"curve balls", {"lit depth normalize normals"}},
        {"frame lines", {"depth"}},
        {"surface", {"lit depth offset colors"}},
        {"measure balls", {"lit depth normalize normals"}},
        {"title", {"blend texture"}},
        {"trace label", {"blend texture"}},
        {"legend bar", {""}},
        {"legend labels", {"blend texture"}},
    };
    EXPECT_EQ(States(*Frame()), expected);
}

TEST_F(FrameCalls, LayersThatAreHiddenAreLeftOut) {
    plotter.ShowGridLines(false);
    plotter.ShowFrameLines(false);
    plotter.ShowXIsoContours(false);
    plotter.ShowZIsoContours(false);
    plotter.ShowMeasureGroup(0, false);
    plotter.ShowMeasureGroup(1, false);
    plotter.SetCurveVisibility(0, false);
    plotter.SetCurveVisibility(1, false);
    plotter.Trace(false);
    EXPECT_THAT(Layers(plotter).InOrder(*Frame()),
                ElementsAreArray({"outlines", "tick marks", "labels", "y contours", "surface", "title",
                                  "legend bar", "legend labels"}));
}

TEST_F(FrameCalls, AFrameClearsLoadsTheCameraAndEndsWithItsPicture) {
    plotter.SetBackgroundColor(0.25f, 0.5f, 0.75f, 0.5f);
    const Texts calls = Frame()->Texts();
    const double* const t = plotter.m_volumeTranslate;
    const double* const s = plotter.m_axisScale;
    const Texts begin = {
        "wglMakeCurrent(dc, context)",
        "glClearColor(0.25, 0.5, 0.75, 0.5)",
        "glClear(GL_DEPTH_BUFFER_BIT | GL_COLOR_BUFFER_BIT)",
        "glMatrixMode(GL_MODELVIEW)",
        "glLoadIdentity()",
        CallText("glTranslated", {Num((plotter.m_viewRight - plotter.m_viewLeft) * 0.055),
                                  Num((plotter.m_viewTop - plotter.m_viewBottom) * -0.025), Num(0)}),
        CallText("glMultMatrixd", {Array(plotter.m_rotationMatrix, 16)}),
        CallText("glScaled", {Num(s[0]), Num(s[1]), Num(s[2])}),
        CallText("glTranslated", {Num(t[0]), Num(t[1]), Num(t[2])}),
        "glMatrixMode(GL_MODELVIEW)",
        "glDisable(GL_LIGHTING)",
    };
    const Texts end = {"glEnable(GL_LIGHTING)", "glEnable(GL_DEPTH_TEST)", "SwapBuffers(dc)",
                       "wglMakeCurrent(dc, null)"};
    ASSERT_GT(calls.size(), begin.size() + end.size());
    EXPECT_THAT(Texts(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(begin.size())),
                ElementsAreArray(begin));
    EXPECT_THAT(Texts(calls.end() - static_cast<std::ptrdiff_t>(end.size()), calls.end()),
                ElementsAreArray(end));
}

// Without data and labels the layers draw nothing that is unlit by itself: what remains are the driver's
// switches.
TEST(EmptyFrame, LightingIsSwitchedBetweenTheLayers) {
    RecordedPlot plot;
    plot.plotter.BeginGLOperation();
    plot.plotter.m_zColorRuler->ReleaseLabels();
    plot.plotter.EndGLOperation();
    const auto recorder = Record(plot.plotter, [&] { plot.plotter.Renderscene(); });
    Texts switches = recorder->TextsOf({"glEnable", "glDisable"});
    switches.erase(
        std::remove_if(switches.begin(), switches.end(),
                       [](const std::string& text) { return text.find("GL_LIGHTING") == std::string::npos; }),
        switches.end());
    EXPECT_THAT(switches, ElementsAreArray({
                              "glDisable(GL_LIGHTING)", // grid box, guide lines
                              "glEnable(GL_LIGHTING)",  // traced point
                              "glDisable(GL_LIGHTING)", // contours
                              "glEnable(GL_LIGHTING)",
                              "glDisable(GL_LIGHTING)",
                              "glEnable(GL_LIGHTING)", // the lines of the curves, then balls, surface, points
                              "glDisable(GL_LIGHTING)", // title
                              "glDisable(GL_LIGHTING)", // trace label, legend
                              "glEnable(GL_LIGHTING)",
                          }));
}

namespace {

struct Projection {
    int type;
    int (CKivoFunctionPlotter::*enter)();
    const char* contours;
};

class ProjectionCalls : public FrameCalls, public testing::WithParamInterface<Projection> {
protected:
    const CKivoGradientColorRuler& Ruler() const {
        const int type = GetParam().type;
        return *(type == 1   ? plotter.m_zColorRuler
                 : type == 2 ? plotter.m_xColorRuler
                             : plotter.m_yColorRuler);
    }
};

// The frame's own layers are drawn tick by tick.
Texts WithoutFrame(Texts layers) {
    const Texts frame = {"axis lines", "tick marks", "grid lines", "labels"};
    layers.erase(std::remove_if(layers.begin(), layers.end(),
                                [&](const std::string& layer) {
                                    return std::find(frame.begin(), frame.end(), layer) != frame.end();
                                }),
                 layers.end());
    return layers;
}

} // namespace

TEST_P(ProjectionCalls, DrawTheirLayersInOrder) {
    std::invoke(GetParam().enter, plotter);
    plotter.ShowXIsoContours(false); // which does not count here
    plotter.ShowYIsoContours(false);
    plotter.ShowZIsoContours(false);
    const auto recorder = Frame();
    const Texts layers = Layers(plotter).InOrder(*recorder);
    ASSERT_FALSE(layers.empty());
    EXPECT_EQ(layers.front(), "axis lines");
    EXPECT_THAT(WithoutFrame(layers),
                ElementsAreArray({GetParam().contours, "title", "legend bar", "legend labels"}));
    const auto isFrame = [](const std::string& layer) { return WithoutFrame({layer}).empty(); };
    EXPECT_EQ(std::count_if(layers.begin(), layers.end(), isFrame), static_cast<long>(layers.size()) - 4)
        << "the frame comes first, in one piece";
    EXPECT_TRUE(isFrame(layers[layers.size() - 5]));

    const Texts calls = recorder->Texts();
    const Texts end = {"glEnable(GL_DEPTH_TEST)", "glEnable(GL_LIGHTING)", "SwapBuffers(dc)",
                       "wglMakeCurrent(dc, null)"};
    EXPECT_THAT(Texts(calls.end() - 4, calls.end()), ElementsAreArray(end));
    EXPECT_EQ(calls[1], "glClearColor(1, 0.992157, 0.913725, 1)");
    EXPECT_EQ(calls[2], "glClear(GL_DEPTH_BUFFER_BIT | GL_COLOR_BUFFER_BIT)");
}

TEST_P(ProjectionCalls, EachLayerHasItsState) {
    std::invoke(GetParam().enter, plotter);
    const std::map<std::string, Texts> expected = {
        {"axis lines", {"depth"}},
        {"grid lines", {"depth"}},
        {"tick marks", {"depth"}},
        {"labels", {"depth blend texture"}},
        {GetParam().contours, {"depth"}},
        {"title", {"blend texture"}},
        {"legend bar", {""}},
        {"legend labels", {"blend texture"}},
    };
    EXPECT_EQ(States(*Frame()), expected);
}

TEST_P(ProjectionCalls, ShowTheLegendOfTheAxisTheyLookAlong) {
    std::invoke(GetParam().enter, plotter);
    const auto recorder = Frame();
    const Layers layers(plotter);
    std::vector<int> textures, expected;
    for (const RecordedDraw& draw : recorder->Draws())
        if (layers.Of(draw) == "legend labels") textures.push_back(draw.state.boundTexture);
    for (unsigned int i = 0; i <= 10; ++i)
        expected.push_back(static_cast<int>(Ruler().m_labels[i].texture));
    EXPECT_EQ(textures, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, ProjectionCalls,
    testing::Values(Projection{1, &CKivoFunctionPlotter::SwitchToXYProjectPlot, "z contours"},
                    Projection{2, &CKivoFunctionPlotter::SwitchToYZProjectPlot, "x contours"},
                    Projection{3, &CKivoFunctionPlotter::SwitchToZXProjectPlot, "y contours"}));

TEST_F(FrameCalls, AnUnknownPlotTypeOnlyPresents) {
    plotter.m_plotType = 4;
    EXPECT_THAT(Frame()->Texts(), ElementsAreArray({"wglMakeCurrent(dc, context)", "SwapBuffers(dc)",
                                                    "wglMakeCurrent(dc, null)"}));
    plotter.m_plotType = 0;
}

// A derived class may call what draws the flat plots in any type.
TEST_F(FrameCalls, TheFlatPlotOfAnotherTypeIsThatOfXAndZ) {
    const auto drawn = [this](int type) {
        plotter.m_plotType = type;
        return RecordStep(plotter, [this] { plotter.DrawProjectionPlot(); })->Texts();
    };
    const std::vector<std::string> expected = drawn(3);
    EXPECT_NE(drawn(1), expected);
    EXPECT_NE(drawn(2), expected);
    for (const int type : {0, 4, -1})
        EXPECT_EQ(drawn(type), expected) << type;
    plotter.m_plotType = 0;
}

TEST_F(FrameCalls, AFailedPresentationAsksForTheErrorAndUnbinds) {
    plotter.m_plotType = 4;
    const auto recorder = Record(plotter, [&] {
        const HDC dc = plotter.m_hDC;
        plotter.m_hDC = nullptr;
        EXPECT_NE(plotter.Renderscene(), 0);
        plotter.m_hDC = dc;
    });
    EXPECT_THAT(recorder->Texts(), ElementsAreArray({"wglMakeCurrent(null, context)", "SwapBuffers(null)",
                                                     "GetLastError()", "wglMakeCurrent(null, null)"}));
    plotter.m_plotType = 0;
}

// The crosses of the guide lines, on the planes that carry the grid.
TEST_F(FrameCalls, GuideLinesAreOneBatchOfSixSegments) {
    const auto recorder = Frame();
    const Layers layers(plotter);
    std::vector<RecordedVertex> vertices;
    int batches = 0;
    for (const RecordedDraw& draw : recorder->Draws())
        if (layers.Of(draw) == "guide lines") {
            vertices = draw.vertices;
            ++batches;
        }
    EXPECT_EQ(batches, 1);
    ASSERT_EQ(vertices.size(), 12u);
    const CKivoGridBox& box = *plotter.m_gridBox;
    const float* const low = box.m_boxMin;
    const float* const high = box.m_boxMax;
    const float* const p = plotter.m_tracePoint;
    const float wy = box.m_backPlane[0] ? low[1] : high[1];
    const float wz = box.m_backPlane[1] ? low[2] : high[2];
    const float wx = box.m_backPlane[2] ? low[0] : high[0];
    const float expected[12][3] = {{p[0], wy, low[2]},  {p[0], wy, high[2]}, {low[0], wy, p[2]},
                                   {high[0], wy, p[2]}, {p[0], low[1], wz},  {p[0], high[1], wz},
                                   {low[0], p[1], wz},  {high[0], p[1], wz}, {wx, p[1], low[2]},
                                   {wx, p[1], high[2]}, {wx, low[1], p[2]},  {wx, high[1], p[2]}};
    for (int i = 0; i < 12; ++i)
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(vertices[i].position[k], static_cast<double>(expected[i][k])) << i << ' ' << k;
}
