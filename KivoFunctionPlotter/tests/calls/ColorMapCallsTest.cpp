// What tables and held ranges call, and what is left of them when memory or the window system fail.
#include "KivoColorMap.h"
#include "KivoMotion.h"
#include "parts/KivoGradientColorRuler.h"
#include "support/AllocationFaults.h"
#include "support/Image.h"
#include "support/OperationFaults.h"
#include "support/RecordedPlot.h"
#include "support/TestSurfaces.h"

#include <gmock/gmock.h>

#include <cstring>
#include <functional>
#include <new>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr float embers[] = {0, 0, 0, 1, 1, 0, 0, 1, 1, 1, 0, 1, 1, 1, 1, 1};

class ColorMapCalls : public testing::Test {
protected:
    ColorMapCalls() { plot.Fill(); }
    Texts FrameTexts() {
        return Record(plotter, [&] { plotter.OnDraw(); })->Texts();
    }
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

// The bar: what is drawn of quads without a texture.
std::vector<RecordedDraw> Bars(const CallRecorder& recorder) {
    std::vector<RecordedDraw> bars;
    for (const RecordedDraw& draw : recorder.Draws())
        if (draw.primitive == GL_QUADS && !draw.state.texture) bars.push_back(draw);
    return bars;
}

} // namespace

TEST_F(ColorMapCalls, ATableNeedsNeitherContextNorLabels) {
    for (int axis = 0; axis < 3; ++axis) {
        const auto recorder = Record(plotter, [&] {
            EXPECT_EQ(SetColorMap(plotter, axis, "viridis"), 0);
            EXPECT_EQ(SetColorMap(plotter, axis, embers, 4), 0);
            EXPECT_EQ(SetColorMap(plotter, axis, nullptr, 0), 0);
        });
        EXPECT_TRUE(recorder->Calls().empty());
    }
}

// Setting what is there already, and what is refused, takes no work.
TEST_F(ColorMapCalls, NothingToDoCallsNothing) {
    const auto recorder = Record(plotter, [&] {
        EXPECT_EQ(SetColorRange(plotter, 2, 3.0f, 3.0f), 0);
        EXPECT_EQ(SetColorRange(plotter, 3, 0.0f, 1.0f), -3);
        EXPECT_EQ(SetColorMap(plotter, 2, embers, 1), -3);
    });
    EXPECT_TRUE(recorder->Calls().empty());
    ASSERT_EQ(SetColorRange(plotter, 2, 0.0f, 1.0f), 0);
    EXPECT_TRUE(Record(plotter, [&] { SetColorRange(plotter, 2, 0.0f, 1.0f); })->Calls().empty());
}

TEST_F(ColorMapCalls, ARangeMakesTheLegendsNumbersAndNoMore) {
    for (int axis = 0; axis < 3; ++axis) {
        const auto recorder =
            Record(plotter, [&] { EXPECT_EQ(SetColorRange(plotter, axis, -7.0f, 9.0f), 0); });
        EXPECT_EQ(recorder->Count("wglMakeCurrent"), 2);
        EXPECT_EQ(recorder->Texts().front(), "wglMakeCurrent(dc, context)");
        EXPECT_EQ(recorder->Texts().back(), "wglMakeCurrent(dc, null)");
        EXPECT_EQ(recorder->Count("glGenTextures"), 11);
        EXPECT_EQ(recorder->Count("glDeleteTextures"), 11);
        EXPECT_EQ(recorder->Count("SwapBuffers"), 0);
    }
}

TEST_F(ColorMapCalls, WithoutATableAFrameIsWhatItWas) {
    plotter.m_hasTracePoint = 0; // the read-out's image is another one in each frame
    const Texts before = FrameTexts();
    ASSERT_EQ(SetColorMap(plotter, 2, "turbo"), 0);
    EXPECT_NE(FrameTexts(), before);
    ASSERT_EQ(SetColorMap(plotter, 2, nullptr, 0), 0);
    EXPECT_EQ(FrameTexts(), before);
}

TEST_F(ColorMapCalls, TheBarHasABandForEachPairOfNeighbours) {
    const auto bandCount = [&] {
        const auto frame = Record(plotter, [&] { plotter.OnDraw(); });
        const std::vector<RecordedDraw> bars = Bars(*frame);
        EXPECT_EQ(bars.size(), 1u);
        return bars.empty() ? 0 : bars[0].count / 4;
    };
    EXPECT_EQ(bandCount(), 4);
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    const auto frame = Record(plotter, [&] { plotter.OnDraw(); });
    const RecordedDraw bar = Bars(*frame).at(0);
    ASSERT_EQ(bar.count, 12);
    for (std::size_t band = 0; band < 3; ++band)
        for (std::size_t corner = 0; corner < 4; ++corner) {
            const std::size_t end = band + corner / 2;
            const float* const rgba = embers + 4 * end;
            EXPECT_EQ(bar.vertices[4 * band + corner].color,
                      (std::array<float, 4>{rgba[0], rgba[1], rgba[2], 1}));
        }
    ASSERT_EQ(SetColorMap(plotter, 2, "viridis"), 0);
    EXPECT_EQ(bandCount(), 255);
    const std::vector<float> many(std::size_t{4} * 65536, 0.5f);
    ASSERT_EQ(SetColorMap(plotter, 2, many.data(), 65536), 0);
    EXPECT_EQ(bandCount(), 1024);
}

// Nothing is allocated for a frame, as without a table.
TEST_F(ColorMapCalls, ADrawnTableTakesNoMemory) {
    const auto allocations = [&] {
        plotter.OnDraw();
        AllocationFault counting(0);
        plotter.OnDraw();
        counting.Stop();
        return counting.Count();
    };
    const long before = allocations();
    ASSERT_EQ(SetColorMap(plotter, 2, "viridis"), 0);
    EXPECT_EQ(allocations(), before);
}

TEST_F(ColorMapCalls, AReducedSurfaceTakesTheColours) {
    const TestSurface surface = NoiseSurface(41, 30);
    plotter.SetData(surface.NewArray(), 41, 30, 1, 41, 3);
    ASSERT_EQ(SetMotionDetail(plotter, 8), 0);
    const auto colorsOfMove = [&] {
        const auto frame = Record(plotter, [&] { plotter.OnMouseWheel(0, 120, POINT{100, 100}); });
        std::vector<float> colors;
        for (const RecordedDraw& draw : frame->Draws())
            if (draw.primitive == GL_TRIANGLES && draw.state.vertexArray && draw.colorArray) {
                EXPECT_NE(draw.colorArray, plotter.m_colorArray);
                const auto* const start = static_cast<const float*>(draw.colorArray);
                colors.assign(start, start + 4);
            }
        return colors;
    };
    const auto first = [&] { return std::vector<float>(plotter.m_colorArray, plotter.m_colorArray + 4); };
    EXPECT_EQ(colorsOfMove(), first());
    const std::vector<float> ofGradient = first();
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    EXPECT_EQ(colorsOfMove(), first());
    const std::vector<float> ofTable = first();
    EXPECT_NE(ofTable, ofGradient);
    ASSERT_EQ(SetColorRange(plotter, 2, 5.0f, 6.0f), 0);
    EXPECT_EQ(colorsOfMove(), first());
    EXPECT_EQ(first(), (std::vector<float>{0, 0, 0, 1}));
}

// ---- Faults

namespace {

// What may not change where a call fails.
struct Look {
    explicit Look(CallProbe& plotter)
        : colors(plotter.m_colorArray, plotter.m_colorArray + std::size_t{4} * plotter.m_vertexCount),
          labels(plotter.m_zColorRuler->m_labels), text(plotter.m_zColorRuler->LabelText(0)),
          picture(CaptureImage(plotter)) {}
    bool operator==(const Look& other) const {
        return colors == other.colors && labels == other.labels && text == other.text &&
               picture.rgba == other.picture.rgba;
    }

    std::vector<float> colors;
    const SKivoTexImage* labels;
    std::string text;
    Image picture;
};

} // namespace

TEST_F(ColorMapCalls, WithoutMemoryNothingChanges) {
    const std::function<int()> changes[] = {[&] { return SetColorMap(plotter, 2, "viridis"); },
                                            [&] { return SetColorMap(plotter, 2, embers, 4); },
                                            [&] { return SetColorRange(plotter, 2, -1.0f, 0.5f); }};
    for (const auto& change : changes) {
        const Look before(plotter);
        int failures = 0;
        for (bool hasFailed = true; hasFailed;) {
            AllocationFault fault(failures + 1);
            int result = 0;
            bool hasThrown = false;
            try {
                result = change();
            } catch (const std::bad_alloc&) {
                hasThrown = true;
            }
            fault.Stop();
            hasFailed = fault.HasFailed();
            if (!hasFailed) break;
            ++failures;
            EXPECT_TRUE(hasThrown || result == -1) << failures << ": " << result;
            EXPECT_TRUE(Look(plotter) == before) << failures;
        }
        EXPECT_GT(failures, 0);
        EXPECT_FALSE(Look(plotter) == before);
    }
}

// Without an array for the colours, which a new one would be made for.
TEST_F(ColorMapCalls, WithoutMemoryForTheColoursTheTableIsNotTaken) {
    delete[] plotter.m_colorArray;
    plotter.m_colorArray = nullptr;
    AllocationFault counting(0);
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    counting.Stop();
    ASSERT_EQ(SetColorMap(plotter, 2, nullptr, 0), 0);
    const Image before = CaptureImage(plotter);
    delete[] plotter.m_colorArray;
    plotter.m_colorArray = nullptr;
    {
        AllocationFault fault(counting.Count()); // the last one: the array
        EXPECT_THROW(SetColorMap(plotter, 2, embers, 4), std::bad_alloc);
    }
    EXPECT_EQ(plotter.m_colorArray, nullptr);
    plotter.AssignColorData();
    EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
}

TEST_F(ColorMapCalls, APlotterWithoutAGradientRefuses) {
    CKivoGradientColor* const kept = plotter.m_zGradientColor;
    plotter.m_zGradientColor = nullptr;
    EXPECT_EQ(SetColorMap(plotter, 2, embers, 4), -1);
    EXPECT_EQ(SetColorMap(plotter, 2, nullptr, 0), -1);
    EXPECT_EQ(SetColorRange(plotter, 2, 0.0f, 1.0f), -1);
    EXPECT_EQ(SetColorMap(plotter, 0, embers, 4), 0);
    plotter.m_zGradientColor = kept;
    CKivoGradientColorRuler* const ruler = plotter.m_zColorRuler;
    plotter.m_zColorRuler = nullptr;
    EXPECT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    EXPECT_EQ(SetColorRange(plotter, 2, 0.0f, 1.0f), 0);
    EXPECT_EQ(plotter.Renderscene(), 0);
    plotter.m_zColorRuler = ruler;
}

// Each operation in turn: where a number could not be drawn, all stay.
TEST_F(ColorMapCalls, AFailingSystemChangesNothing) {
    const Look before(plotter);
    int refusals = 0;
    for (long n = 1;; ++n) {
        OperationFault fault(n);
        const int result = SetColorRange(plotter, 2, -1.0f, 0.5f);
        fault.Stop();
        SCOPED_TRACE(fault.Failed() + ", operation " + std::to_string(n));
        if (fault.Failed().empty()) {
            EXPECT_EQ(result, 0);
            break;
        }
        if (result == 0) { // what only undoes something
            EXPECT_EQ(SetColorRange(plotter, 2, 0.0f, 0.0f), 0);
        } else {
            EXPECT_EQ(result, -1);
            ++refusals;
        }
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_TRUE(Look(plotter).picture.rgba == before.picture.rgba);
    }
    EXPECT_GT(refusals, 11);
}
