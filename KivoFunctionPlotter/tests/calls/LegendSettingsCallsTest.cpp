// What titles, numbers and lists of names call, and what is left of them when memory or the system fail.
#include "KivoLegend.h"
#include "parts/KivoGradientColorRuler.h"
#include "support/AllocationFaults.h"
#include "support/Image.h"
#include "support/OperationFaults.h"
#include "support/RecordedPlot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <new>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

SKivoLegend RoundWithTitle() {
    SKivoLegend legend;
    legend.title = "A title";
    legend.numbers = KivoLegendNumbers::round;
    return legend;
}

class LegendSettingsCalls : public testing::Test {
protected:
    LegendSettingsCalls() { plot.Fill(); }
    Texts FrameTexts() {
        return Record(plotter, [&] { plotter.OnDraw(); })->Texts();
    }
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

} // namespace

TEST_F(LegendSettingsCalls, NothingToDoCallsNothing) {
    const auto recorder = Record(plotter, [&] {
        EXPECT_EQ(SetLegend(plotter, 2, GetLegend(plotter, 2)), 0);
        EXPECT_EQ(SetLegend(plotter, 3, RoundWithTitle()), -3);
        EXPECT_EQ(ShowMeasureGroupNames(plotter, true), 0);
        EXPECT_EQ(FitReadOutDigits(plotter, true), 0);
    });
    EXPECT_TRUE(recorder->Calls().empty());
}

TEST_F(LegendSettingsCalls, AtTheirOwnAFrameIsWhatItWas) {
    const Texts before = FrameTexts();
    ASSERT_EQ(SetLegend(plotter, 2, RoundWithTitle()), 0);
    ShowMeasureGroupNames(plotter, true);
    const Texts meanwhile = FrameTexts();
    EXPECT_NE(meanwhile, before);
    ASSERT_EQ(SetLegend(plotter, 2, SKivoLegend()), 0);
    ShowMeasureGroupNames(plotter, false);
    const Texts after = FrameTexts();
    ASSERT_EQ(after.size(), before.size());
    // The labels are other images of the same numbers.
    EXPECT_EQ(NamesOf(after), NamesOf(before));
}

TEST_F(LegendSettingsCalls, AHiddenLegendCallsNothing) {
    SKivoLegend hidden;
    hidden.isShown = false;
    ASSERT_EQ(SetLegend(plotter, 2, hidden), 0);
    const auto recorder = RecordStep(plotter, [&] {
        plotter.m_zColorRuler->Render(plotter.m_legendViewport, plotter.m_legendViewVolume);
    });
    EXPECT_TRUE(recorder->Calls().empty());
}

// The same list as a derived class draws, last of the frame, with the state of before.
TEST_F(LegendSettingsCalls, TheListOfNamesIsThatOfDerivedClasses) {
    const auto list = RecordStep(plotter, [&] {
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        plotter.RenderLegend();
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_LIGHTING);
    });
    ShowMeasureGroupNames(plotter, true);
    const Texts frame = FrameTexts();
    Texts names = list->Texts();
    names.erase(names.begin(), names.begin() + 2); // the state is there already
    names.erase(names.end() - 2, names.end());
    const auto found = std::search(frame.begin(), frame.end(), names.begin(), names.end());
    EXPECT_NE(found, frame.end());
    EXPECT_THAT(frame.back(), testing::StartsWith("wglMakeCurrent"));
}

TEST_F(LegendSettingsCalls, FramesTakeNoMemoryForThem) {
    const auto allocations = [&] {
        plotter.OnDraw();
        plotter.OnDraw();
        AllocationFault counting(0);
        plotter.OnDraw();
        counting.Stop();
        return counting.Count();
    };
    plotter.m_hasTracePoint = 0;
    const long before = allocations();
    ASSERT_EQ(SetLegend(plotter, 2, RoundWithTitle()), 0);
    ShowMeasureGroupNames(plotter, true);
    EXPECT_EQ(allocations(), before);
}

TEST_F(LegendSettingsCalls, ReleasedTextsAreAllOfThem) {
    const auto texturesMade = [&](const CallRecorder& recorder) {
        return recorder.Count("glGenTextures") - recorder.Count("glDeleteTextures");
    };
    const auto set = Record(plotter, [&] { SetLegend(plotter, 2, RoundWithTitle()); });
    const int extra = texturesMade(*set);
    const auto back = Record(plotter, [&] { SetLegend(plotter, 2, SKivoLegend()); });
    EXPECT_EQ(texturesMade(*back), -extra);
    ASSERT_EQ(SetLegend(plotter, 2, RoundWithTitle()), 0);
    plotter.OnDestroy();
    EXPECT_EQ(plotter.m_zColorRuler->m_titleImage.texture, 0u);
    EXPECT_EQ(plotter.m_zColorRuler->m_titleImage.pixels, nullptr);
}

// ---- Faults

namespace {

struct Look {
    explicit Look(CallProbe& plotter)
        : labels(plotter.m_zColorRuler->m_labels), title(GetLegend(plotter, 2).title),
          text(plotter.m_zColorRuler->LabelText(1)), picture(CaptureImage(plotter)) {}
    bool operator==(const Look& other) const {
        return labels == other.labels && title == other.title && text == other.text &&
               picture.rgba == other.picture.rgba;
    }

    const SKivoTexImage* labels;
    std::string title, text;
    Image picture;
};

} // namespace

TEST_F(LegendSettingsCalls, WithoutMemoryNothingChanges) {
    const SKivoLegend legend = RoundWithTitle();
    const Look before(plotter);
    int failures = 0;
    for (;;) {
        AllocationFault fault(failures + 1);
        int result = 0;
        bool hasThrown = false;
        try {
            result = SetLegend(plotter, 2, legend);
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        fault.Stop();
        if (!fault.HasFailed()) break;
        ++failures;
        EXPECT_TRUE(hasThrown || result == -1) << failures << ": " << result;
        EXPECT_TRUE(Look(plotter) == before) << failures;
    }
    EXPECT_GT(failures, 10);
    EXPECT_FALSE(Look(plotter) == before);
}

TEST_F(LegendSettingsCalls, AFailingSystemChangesNothing) {
    const SKivoLegend legend = RoundWithTitle();
    const Look before(plotter);
    int refusals = 0;
    for (long n = 1;; ++n) {
        OperationFault fault(n);
        const int result = SetLegend(plotter, 2, legend);
        fault.Stop();
        SCOPED_TRACE(fault.Failed() + ", operation " + std::to_string(n));
        if (fault.Failed().empty()) {
            EXPECT_EQ(result, 0);
            break;
        }
        if (result == 0) { // what only undoes something
            EXPECT_EQ(SetLegend(plotter, 2, SKivoLegend()), 0);
        } else {
            EXPECT_EQ(result, -1);
            ++refusals;
        }
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_TRUE(Look(plotter).picture.rgba == before.picture.rgba);
    }
    EXPECT_GT(refusals, 10);
}

TEST_F(LegendSettingsCalls, APlotterWithoutALegendRefuses) {
    CKivoGradientColorRuler* const kept = plotter.m_zColorRuler;
    plotter.m_zColorRuler = nullptr;
    EXPECT_EQ(SetLegend(plotter, 2, RoundWithTitle()), -1);
    EXPECT_EQ(GetLegend(plotter, 2).title, "");
    plotter.m_zColorRuler = kept;
}
