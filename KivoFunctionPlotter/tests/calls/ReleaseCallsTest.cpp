// What is given back, and in which order: by OnDestroy, by the destructor and by new data.
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "parts/TextRenderer.h"
#include "support/AllocationFaults.h"
#include "support/PublicOperations.h"
#include "support/ResourceLedger.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoTest;
using testing::ElementsAreArray;

namespace {

std::string Deletion(unsigned int texture) {
    return "glDeleteTextures(1, " + std::to_string(texture) + ")";
}

// The labels of the grid box, X, Y, Z; then those of the rulers, X, Y, Z.
Texts LabelDeletions(const CallProbe& plotter) {
    Texts deletions;
    for (int axis = 0; axis < 3; ++axis)
        for (unsigned int i = 0; i <= plotter.m_gridBox->m_tickIntervals[axis]; ++i)
            deletions.push_back(Deletion(plotter.m_gridBox->m_tickLabels[axis][i].texture));
    for (const CKivoGradientColorRuler* ruler :
         {plotter.m_xColorRuler, plotter.m_yColorRuler, plotter.m_zColorRuler})
        for (unsigned int i = 0; i <= ruler->m_divisionCount; ++i)
            deletions.push_back(Deletion(ruler->m_labels[i].texture));
    return deletions;
}

class ReleaseCalls : public testing::Test {
protected:
    ReleaseCalls() {
        plot.Fill();
        plotter.m_useFramelineTexture = plotter.m_useIsoContourTexture = true;
        plotter.BeginGLOperation();
        plotter.CreateFramelineSKivoTexImage();
        plotter.CreateIsoContourSKivoTexImage();
        plotter.EndGLOperation();
    }

    Texts DataRelease() const {
        Texts calls = {bind};
        Append(calls, LabelDeletions(plotter));
        Append(calls, {Deletion(plotter.m_framelineTexId), unbind, bind, Deletion(plotter.m_isoContourTexId),
                       unbind});
        return calls;
    }
    Texts Release() const {
        Texts calls = DataRelease();
        Append(calls, {bind, "glDeleteLists(" + std::to_string(plotter.m_fontListBase) + ", 256)", unbind,
                       "SelectObject(memory dc, saved font)", "DeleteDC(memory dc)",
                       "DeleteObject(text font)", unbind, "wglDeleteContext(context)", unbind});
        return calls;
    }

    // The arrays that belong to the data, in the order of their release.
    void WatchData(DeletionOrder& order) const {
        const char* const axes[] = {"x", "y", "z"};
        for (int axis = 0; axis < 3; ++axis) {
            order.Watch(plotter.m_gridBox->m_tickPositions[axis], std::string(axes[axis]) + " positions");
            order.Watch(plotter.m_gridBox->m_tickLabels[axis], std::string(axes[axis]) + " labels");
        }
        order.Watch(plotter.m_xColorRuler->m_labels, "x ruler");
        order.Watch(plotter.m_yColorRuler->m_labels, "y ruler");
        order.Watch(plotter.m_zColorRuler->m_labels, "z ruler");
        order.Watch(plotter.m_colorArray, "colors");
        order.Watch(plotter.m_texcoordArray, "texcoords");
        order.Watch(plotter.m_indexArray, "indices");
        order.Watch(plotter.m_framelineIndexArray, "frame lines");
        order.Watch(plotter.m_framelineTexels, "frame-line texels");
        order.Watch(plotter.m_flatZIsoContours[0].points, "z contour");
        order.Watch(plotter.m_flatXIsoContours[0].points, "x contour");
        order.Watch(plotter.m_flatYIsoContours[0].points, "y contour");
        order.Watch(plotter.m_isoContourTexels, "contour texels");
        order.Watch(plotter.m_points, "points");
    }
    const Texts dataOrder = {
        "x positions", "x labels",          "y positions", "y labels",  "z positions", "z labels",
        "x ruler",     "y ruler",           "z ruler",     "colors",    "texcoords",   "indices",
        "frame lines", "frame-line texels", "z contour",   "x contour", "y contour",   "contour texels",
        "points"};

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    const std::string bind = "wglMakeCurrent(dc, context)";
    const std::string unbind = "wglMakeCurrent(dc, null)";
};

} // namespace

TEST_F(ReleaseCalls, OnDestroyGivesBackInItsFixedOrder) {
    const Texts expected = Release();
    DeletionOrder order;
    WatchData(order);
    const auto recorder = Record(plotter, [&] { EXPECT_EQ(plotter.OnDestroy(), 0); });
    EXPECT_THAT(recorder->Texts(), ElementsAreArray(expected));
    EXPECT_THAT(order.Deleted(), ElementsAreArray(dataOrder));
    std::map<std::string, int> remaining = TakenResources();
    remaining.erase("object"); // other tests may have made objects undeletable
    EXPECT_EQ(remaining, (std::map<std::string, int>{{"EGL surface", 1}})) << "the window's own";
}

// There is nothing left that could be given back twice.
TEST_F(ReleaseCalls, ASecondOnDestroyCallsNothingThatFails) {
    plotter.OnDestroy();
    const auto recorder = Record(plotter, [&] { EXPECT_EQ(plotter.OnDestroy(), 0); });
    EXPECT_THAT(recorder->Texts(),
                ElementsAreArray({"wglMakeCurrent(null, null)", "wglMakeCurrent(null, null)",
                                  "wglMakeCurrent(null, null)", "wglMakeCurrent(null, null)",
                                  "wglMakeCurrent(null, null)", "glDeleteLists(0, 256)",
                                  "wglMakeCurrent(null, null)"}));
}

TEST_F(ReleaseCalls, NewDataReleaseWhatBelongsToTheOldOnes) {
    const Texts expected = DataRelease();
    DeletionOrder order;
    WatchData(order);
    float* const points = NewHill(4, 3);
    const auto recorder = Record(plotter, [&] { plotter.SetData(points, 4, 3, 1, 4, 3); });
    const Texts calls = recorder->Texts();
    ASSERT_GT(calls.size(), expected.size());
    EXPECT_THAT(Texts(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(expected.size())),
                ElementsAreArray(expected));
    EXPECT_THAT(order.Deleted(), ElementsAreArray(dataOrder));
}

TEST_F(ReleaseCalls, ANewContourCountReleasesTheContoursAlone) {
    const Texts expected = {bind, Deletion(plotter.m_isoContourTexId), unbind, bind};
    DeletionOrder order;
    WatchData(order);
    const auto recorder = Record(plotter, [&] { plotter.SetIsoContourCount(5); });
    const Texts calls = recorder->Texts();
    EXPECT_THAT(Texts(calls.begin(), calls.begin() + 4), ElementsAreArray(expected));
    EXPECT_THAT(order.Deleted(), ElementsAreArray({"z contour", "x contour", "y contour", "contour texels"}));
}

TEST_F(ReleaseCalls, TheHostsPointsAreNotFreed) {
    float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 2, 1, 1, 0.5f};
    plotter.SetDataReference(points, 2, 2, 1, 2, 3);
    DeletionOrder order;
    order.Watch(points, "the host's points");
    order.Watch(plotter.m_indexArray, "indices");
    plotter.OnDestroy();
    EXPECT_THAT(order.Deleted(), ElementsAreArray({"indices"}));
}

TEST_F(ReleaseCalls, ReleaseTexFreesOneImage) {
    plotter.BeginGLOperation();
    SKivoTexImage image;
    CreateTextImage(plotter.m_textRenderer, "text", &image);
    const std::string deletion = Deletion(image.texture);
    const auto recorder = Record(plotter, [&] {
        EXPECT_EQ(CallProbe::ReleaseTex(&image), 0);
        EXPECT_EQ(CallProbe::ReleaseTex(&image), 0);
    });
    plotter.EndGLOperation();
    EXPECT_THAT(recorder->Texts(), ElementsAreArray({deletion}));
    EXPECT_EQ(image.width, 0);
    EXPECT_EQ(image.pixels, nullptr);
}

// Grid box; text renderer; measure groups; gradients X, Y, Z; rulers X, Y, Z; the title's image.
TEST(Destruction, ReleasesAndThenFreesTheHelpers) {
    const TestWindow window(WindowKind::offscreen, 64, 48);
    auto plotter = std::make_unique<CallProbe>();
    plotter->OnCreate(window.Handle(), 64, 48, true);
    DeletionOrder order;
    order.Watch(plotter->m_gridBox, "grid box");
    order.Watch(plotter->m_textRenderer, "text renderer");
    order.Watch(plotter->m_measureGroups, "measure groups");
    order.Watch(plotter->m_xGradientColor, "x gradient");
    order.Watch(plotter->m_yGradientColor, "y gradient");
    order.Watch(plotter->m_zGradientColor, "z gradient");
    order.Watch(plotter->m_xColorRuler, "x ruler");
    order.Watch(plotter->m_yColorRuler, "y ruler");
    order.Watch(plotter->m_zColorRuler, "z ruler");
    order.Watch(plotter->m_plotTitleImage, "title");
    CallRecorder recorder;
    NameFields(recorder, *plotter);
    plotter.reset();
    recorder.Stop();
    EXPECT_THAT(order.Deleted(),
                ElementsAreArray({"grid box", "text renderer", "measure groups", "x gradient", "y gradient",
                                  "z gradient", "x ruler", "y ruler", "z ruler", "title"}));
    EXPECT_EQ(recorder.OperationTexts().back(), "wglMakeCurrent(dc, null)");
    EXPECT_EQ(recorder.Count("wglDeleteContext"), 1);
}

TEST(Destruction, OfAnUnusedPlotterFailsNothing) {
    auto plotter = std::make_unique<CallProbe>();
    CallRecorder recorder;
    plotter.reset();
    recorder.Stop();
    EXPECT_THAT(NamesOf(recorder.Texts()),
                ElementsAreArray({"wglMakeCurrent", "wglMakeCurrent", "wglMakeCurrent", "wglMakeCurrent",
                                  "wglMakeCurrent", "glDeleteLists", "wglMakeCurrent"}));
}
