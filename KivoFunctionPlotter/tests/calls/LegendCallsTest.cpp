// The colour legend and the legend of the measure groups, call by call.
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "support/RecordedPlot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

class LegendCalls : public testing::Test {
protected:
    LegendCalls() { plot.Fill(); }
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

} // namespace

// ---- The colour legend

namespace {

class RulerCalls : public LegendCalls {
protected:
    std::unique_ptr<CallRecorder> Draw() {
        return RecordStep(plotter,
                          [&] { ruler.Render(plotter.m_legendViewport, plotter.m_legendViewVolume); });
    }

    CKivoGradientColorRuler& ruler = *plotter.m_zColorRuler;
    const double* const volume = plotter.m_legendViewVolume;
    const double width = volume[1] - volume[0];
    const double height = volume[3] - volume[2];
    int WidestLabel() const {
        int widest = 0;
        for (unsigned int i = 0; i <= 10; ++i)
            widest = std::max(widest, ruler.m_labels[i].width);
        return widest;
    }
    // Of a label's size; at 0.9 it reaches 1.05 of its width to the right of the bar.
    double LabelScale() const {
        const double room = plotter.m_legendViewport[2] - (barRight - volume[0]) / pixel;
        return std::max(0.6, std::min(0.9, 0.9 * room / (1.05 * WidestLabel())));
    }

    const double pixel = width / plotter.m_legendViewport[2];
    const double barLeft = volume[0] + 0.10 * width;
    const double barRight = barLeft + 0.12 * width;
    const double bottom = volume[2] + 0.14 * height;
};

} // namespace

TEST_F(RulerCalls, TheBarIsFourBandsBetweenFiveColours) {
    const auto recorder = Draw();
    const RecordedDraw& bar = recorder->Draws().at(0);
    ASSERT_EQ(bar.vertices.size(), 16u);
    EXPECT_EQ(bar.primitive, static_cast<unsigned int>(GL_QUADS));
    for (int band = 0; band < 4; ++band) {
        const double low = bottom + band * 0.2 * height, high = low + 0.2 * height;
        const double corners[4][2] = {{barLeft, low}, {barRight, low}, {barRight, high}, {barLeft, high}};
        for (int i = 0; i < 4; ++i) {
            const RecordedVertex& vertex = bar.vertices[4 * band + i];
            EXPECT_NEAR(vertex.position[0], corners[i][0], 1e-9 * width) << band << i;
            EXPECT_NEAR(vertex.position[1], corners[i][1], 1e-9 * height) << band << i;
            EXPECT_EQ(vertex.position[2], 0.0);
            const float* const color = ruler.m_colors[i < 2 ? band : band + 1];
            EXPECT_EQ(vertex.color, (std::array<float, 4>{color[0], color[1], color[2], 1})) << band << i;
        }
    }
}

// At nine tenths of their size, or by so much smaller as the strip is too narrow for the widest.
TEST_F(RulerCalls, LabelsStandBesideTheirValues) {
    const double scale = LabelScale();
    const auto recorder = Draw();
    ASSERT_EQ(recorder->Draws().size(), 12u);
    for (unsigned int i = 0; i <= 10; ++i) {
        const SKivoTexImage& label = ruler.m_labels[i];
        const RecordedDraw& draw = recorder->Draws()[i + 1];
        EXPECT_EQ(draw.state.boundTexture, static_cast<int>(label.texture));
        const double w = label.width * pixel, h = label.height * pixel * scale;
        const double left = barRight + scale / 0.9 * 0.15 * w, middle = bottom + i * 0.08 * height;
        const double corners[4][2] = {{left, middle - h / 2},
                                      {left + scale * w, middle - h / 2},
                                      {left + scale * w, middle + h / 2},
                                      {left, middle + h / 2}};
        for (int k = 0; k < 4; ++k) {
            EXPECT_NEAR(draw.vertices[k].position[0], corners[k][0], 1e-5 * width) << i << k;
            EXPECT_NEAR(draw.vertices[k].position[1], corners[k][1], 1e-5 * height) << i << k;
        }
    }
}

TEST_F(RulerCalls, LabelsThatAreThereAreNotMadeAnew) {
    EXPECT_THAT(RecordStep(plotter, [&] { ruler.BuildLabels(); })->Texts(), testing::IsEmpty());
    ++ruler.m_precision;
    EXPECT_THAT(RecordStep(plotter, [&] { ruler.BuildLabels(); })->Texts(), testing::Not(testing::IsEmpty()));
    EXPECT_THAT(RecordStep(plotter, [&] { ruler.BuildLabels(); })->Texts(), testing::IsEmpty());
}

// The strip is widened where labels at six tenths would be cut off, at the same scale: places and sizes stay
// the same.
TEST_F(RulerCalls, ItHasAViewportAndMatricesOfItsOwn) {
    const int strip = plotter.m_legendViewport[2];
    const double reach = (barRight - volume[0]) / pixel + LabelScale() / 0.9 * WidestLabel() * (0.6 + 0.45);
    const int overhang = std::max(0, static_cast<int>(std::ceil(reach - strip - 1e-6)));
    const auto recorder = Draw();
    Texts calls = recorder->Texts();
    const auto bar = std::find(calls.begin(), calls.end(), "glBegin(GL_QUADS)");
    EXPECT_THAT(Texts(calls.begin(), bar),
                testing::ElementsAre(
                    "glPushAttrib(GL_VIEWPORT_BIT)",
                    CallText("glViewport", {Num(0), Num(0), Num(strip + overhang), Num(plot.height)}),
                    "glMatrixMode(GL_PROJECTION)", "glPushMatrix()", "glLoadIdentity()",
                    CallText("glOrtho", {Num(volume[0]), Num(volume[1] + overhang * pixel), Num(volume[2]),
                                         Num(volume[3]), Num(volume[4]), Num(volume[5])}),
                    "glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", "glLoadIdentity()"));
    EXPECT_THAT(Texts(calls.end() - 5, calls.end()),
                testing::ElementsAre("glPopMatrix()", "glMatrixMode(GL_PROJECTION)", "glPopMatrix()",
                                     "glPopAttrib()", "glMatrixMode(GL_MODELVIEW)"));
}

// ---- The measure groups' legend

TEST_F(LegendCalls, MeasureGroupsAreRowsOfNameAndSquare) {
    plotter.ShowMeasureGroup(1, false); // hidden groups are listed too
    const auto& groups = plotter.m_measureGroups->m_groups;
    const float pixel =
        static_cast<float>((plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2]);
    const float margin = static_cast<float>((plotter.m_viewRight - plotter.m_viewLeft) * 0.01);
    const int maxWidth = std::max(groups[0]->m_nameImage.width, groups[1]->m_nameImage.width);
    const int maxHeight = std::max(groups[0]->m_nameImage.height, groups[1]->m_nameImage.height);
    const float row = static_cast<float>(maxHeight) * pixel, square = row * 0.8f;
    const float nameX =
        static_cast<float>(plotter.m_viewRight) - margin - static_cast<float>(maxWidth) * pixel;
    const float squareRight = nameX - 0.2f * square, squareLeft = squareRight - square;
    const float limit = 1e-4f * row;

    const auto recorder = RecordStep(plotter, [&] { plotter.RenderLegend(); });
    ASSERT_EQ(recorder->Draws().size(), 4u);
    for (int i = 0; i < 2; ++i) {
        const float y = static_cast<float>(plotter.m_viewTop) - margin - row - static_cast<float>(i) * row;
        const SKivoTexImage& image = groups[i]->m_nameImage;
        const RecordedDraw& name = recorder->Draws()[2 * i];
        EXPECT_EQ(name.state.boundTexture, static_cast<int>(image.texture));
        EXPECT_NEAR(name.vertices[0].position[0], nameX, limit);
        EXPECT_NEAR(name.vertices[0].position[1], y, limit);
        EXPECT_NEAR(name.vertices[2].position[0], nameX + static_cast<float>(image.width) * pixel, limit);
        EXPECT_NEAR(name.vertices[2].position[1], y + static_cast<float>(image.height) * pixel, limit);
        EXPECT_EQ(name.vertices[2].texcoord, (std::array<float, 2>{1, 1}));

        const RecordedDraw& mark = recorder->Draws()[2 * i + 1];
        const float* const color = groups[i]->m_color;
        EXPECT_EQ(mark.primitive, static_cast<unsigned int>(GL_QUADS));
        EXPECT_FALSE(mark.state.texture);
        EXPECT_EQ(mark.vertices[0].color, (std::array<float, 4>{color[0], color[1], color[2], color[3]}));
        const float corners[4][2] = {
            {squareLeft, y}, {squareRight, y}, {squareRight, y + square}, {squareLeft, y + square}};
        for (int k = 0; k < 4; ++k) {
            EXPECT_NEAR(mark.vertices[k].position[0], corners[k][0], limit);
            EXPECT_NEAR(mark.vertices[k].position[1], corners[k][1], limit);
            EXPECT_EQ(mark.vertices[k].position[2], (plotter.m_viewNear + plotter.m_viewFar) / 2);
        }
    }
    EXPECT_EQ(recorder->Count("glTexImage2D"), 2) << "names are uploaded at each call";
    const Texts calls = recorder->Texts();
    EXPECT_THAT(Texts(calls.begin(), calls.begin() + 3),
                testing::ElementsAre("glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", "glLoadIdentity()"));
    EXPECT_THAT(Texts(calls.end() - 2, calls.end()),
                testing::ElementsAre("glPopMatrix()", "glMatrixMode(GL_MODELVIEW)"));
}

TEST_F(LegendCalls, WithoutGroupsOnlyTheMatrixIsSavedAndPutBack) {
    RecordedPlot empty;
    EXPECT_THAT(RecordStep(empty.plotter, [&] { empty.plotter.RenderLegend(); })->Texts(),
                testing::ElementsAre("glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", "glLoadIdentity()",
                                     "glPopMatrix()", "glMatrixMode(GL_MODELVIEW)"));
}
