// What absolute numbers and a host's words change in the calls: nothing where there are none, and nothing at
// all where they cannot be made.
#include "KivoAxis.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "support/Holdings.h"
#include "support/OperationFaults.h"
#include "support/PublicOperations.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <new>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

const std::vector<int (*)(CKivoFunctionPlotter&)> modes = {
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToNormalPlot(); },
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToXYProjectPlot(); },
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToYZProjectPlot(); },
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToZXProjectPlot(); }};

std::string Word(double, double) {
    return "word";
}

class AxisNumbersCalls : public testing::Test {
protected:
    AxisNumbersCalls() { plot.Fill(); }

    // Textures that are made anew have other names.
    Texts CallsOfFrame() {
        Texts calls = Record(plotter, [&] { EXPECT_EQ(plotter.Renderscene(), 0); })->Texts();
        for (std::string& call : calls)
            if (call.rfind("glBindTexture", 0) == 0 && call.find(", 0)") == std::string::npos)
                call = "glBindTexture";
            else if (call.rfind("glDeleteTextures", 0) == 0)
                call = "glDeleteTextures";
        return calls;
    }

    Texts DrawnTexts(const std::function<void()>& action) {
        return Record(plotter, action)->TextsOf({"DrawTextA"});
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

// What an axis and its legend show.
struct Shown {
    Shown(const CallProbe& plotter, int axis)
        : origin(GetAxisOrigin(plotter, axis)), min(plotter.m_gridBox->m_axisMin[axis]),
          max(plotter.m_gridBox->m_axisMax[axis]), step(plotter.m_gridBox->m_tickStep[axis]),
          intervals(plotter.m_gridBox->m_tickIntervals[axis]),
          precision(plotter.m_gridBox->m_precision[axis]),
          positions(plotter.m_gridBox->m_tickPositions[axis]), labels(plotter.m_gridBox->m_tickLabels[axis]),
          legendLabels(plotter.m_zColorRuler->m_labels), text(plotter.m_gridBox->LabelText(axis, 1)),
          legendText(plotter.m_zColorRuler->LabelText(1)), texture(labels[1].texture) {}

    bool operator==(const Shown& other) const {
        return origin == other.origin && min == other.min && max == other.max && step == other.step &&
               intervals == other.intervals && precision == other.precision && positions == other.positions &&
               labels == other.labels && legendLabels == other.legendLabels && text == other.text &&
               legendText == other.legendText && texture == other.texture;
    }

    double origin;
    float min, max, step;
    unsigned int intervals, precision;
    const void* positions;
    const SKivoTexImage* labels;
    const void* legendLabels;
    std::string text, legendText;
    unsigned int texture;
};

} // namespace

TEST_F(AxisNumbersCalls, BackAtTheStartEveryCallIsAsItWas) {
    for (const auto& mode : modes) {
        mode(plotter);
        plotter.OnDraw();
        const Texts before = CallsOfFrame();
        for (int axis = 0; axis < 3; ++axis) {
            ASSERT_EQ(SetAxisOrigin(plotter, axis, 1e6), 0);
            ASSERT_EQ(SetAxisLabelFormat(plotter, axis, Word), 0);
        }
        EXPECT_TRUE(CallsOfFrame() != before);
        for (int axis = 0; axis < 3; ++axis) {
            ASSERT_EQ(SetAxisOrigin(plotter, axis, 0.0), 0);
            ASSERT_EQ(SetAxisLabelFormat(plotter, axis, nullptr), 0);
        }
        const Texts calls = CallsOfFrame();
        ASSERT_EQ(calls.size(), before.size());
        const auto [first, expected] = std::mismatch(calls.begin(), calls.end(), before.begin());
        if (first != calls.end()) {
            ADD_FAILURE() << *first << " instead of " << *expected;
        }
    }
}

TEST_F(AxisNumbersCalls, NothingToDoCallsNothing) {
    ASSERT_EQ(SetAxisOrigin(plotter, 0, 7.0), 0);
    const auto recorder = Record(plotter, [&] {
        EXPECT_EQ(SetAxisOrigin(plotter, 0, 7.0), 0);
        EXPECT_EQ(SetAxisOrigin(plotter, 1, -0.0), 0);
        EXPECT_EQ(SetAxisOrigin(plotter, 3, 7.0), -3);
        EXPECT_EQ(SetAxisLabelFormat(plotter, 0, nullptr), 0);
        EXPECT_EQ(SetAxisLabelFormat(plotter, -1, Word), -3);
    });
    EXPECT_TRUE(recorder->Calls().empty());
}

// The labels of the axis and of its legend alone.
TEST_F(AxisNumbersCalls, SettersMakeTheLabelsOfTheirAxis) {
    const unsigned int others = plotter.m_gridBox->m_tickLabels[1][0].texture;
    const Texts texts = DrawnTexts([&] { EXPECT_EQ(SetAxisLabelFormat(plotter, 0, Word), 0); });
    EXPECT_EQ(texts.size(), plotter.m_gridBox->m_tickIntervals[0] + 1 + 11);
    EXPECT_THAT(texts, testing::Each(testing::HasSubstr("\"word\"")));
    EXPECT_EQ(plotter.m_gridBox->m_tickLabels[1][0].texture, others);
}

// Of a point that was found: words. Of one that a derived class puts in: absolute numbers.
TEST_F(AxisNumbersCalls, TheReadOutSaysAbsoluteNumbersAndWords) {
    ASSERT_EQ(SetAxisOrigin(plotter, 0, 5630000.25), 0);
    ASSERT_EQ(SetAxisLabelFormat(plotter, 1, Word), 0);
    EXPECT_THAT(DrawnTexts([&] { plotter.OnDraw(); }),
                testing::ElementsAre(testing::HasSubstr("\"(5630001.250, word, 0.250)\"")))
        << "the point was there before the words";
    plotter.m_tracePoint[1] = 0.75f;
    EXPECT_THAT(DrawnTexts([&] { plotter.OnDraw(); }),
                testing::ElementsAre(testing::HasSubstr("\"(5630001.250, 0.750, 0.250)\"")));
    ASSERT_EQ(plotter.Trace(POINT{230, 150}), 0);
    EXPECT_THAT(DrawnTexts([&] { plotter.OnDraw(); }), testing::ElementsAre(testing::HasSubstr(", word, ")));
    ASSERT_EQ(SetAxisLabelFormat(plotter, 1, nullptr), 0);
    EXPECT_THAT(DrawnTexts([&] { plotter.OnDraw(); }),
                testing::ElementsAre(testing::Not(testing::HasSubstr("word"))));
    ASSERT_EQ(SetAxisLabelFormat(plotter, 2, [](double, double) { return ""; }), 0);
    EXPECT_THAT(DrawnTexts([&] { plotter.OnDraw(); }), testing::ElementsAre(testing::HasSubstr(", )\"")));
}

// ---- What cannot be made changes nothing

namespace {

using Change = std::function<int(CKivoFunctionPlotter&)>;

// Each changes the z axis; the second takes the change back.
struct ChangeAndBack {
    Change change;
    Change back;
};

const ChangeAndBack changes[] = {
    {[](auto& p) { return SetAxisOrigin(p, 2, 123456.0); }, [](auto& p) { return SetAxisOrigin(p, 2, 0.5); }},
    {[](auto& p) { return SetAxisLabelFormat(p, 2, [](double, double) { return "a word of some length"; }); },
     [](auto& p) { return SetAxisLabelFormat(p, 2, Word); }}};

} // namespace

TEST_F(AxisNumbersCalls, AChangeThatFailsLeavesEverythingAsItWas) {
    for (const ChangeAndBack& kind : changes) {
        ASSERT_EQ(kind.back(plotter), 0);
        bool hasFailed = true;
        int refusals = 0;
        for (long n = 1; hasFailed; n = n < 30 ? n + 1 : n + 13) {
            const Shown before(plotter, 2);
            const Holdings holdings;
            OperationFault fault(n);
            const int result = kind.change(plotter);
            fault.Stop();
            hasFailed = !fault.Failed().empty();
            SCOPED_TRACE(fault.Failed() + ", operation " + std::to_string(n));
            EXPECT_EQ(wglGetCurrentContext(), nullptr);
            EXPECT_EQ(Shown(plotter, 2) == before, result != 0);
            if (result != 0) {
                ++refusals;
                EXPECT_EQ(result, -1);
                EXPECT_EQ(Holdings().resources, holdings.resources);
            } else {
                ASSERT_EQ(kind.back(plotter), 0);
            }
            EXPECT_TRUE(IsOpenGlInOrder(plotter));
        }
        EXPECT_GT(refusals, 10);
    }
}

TEST_F(AxisNumbersCalls, AChangeThatRunsOutOfMemoryLeavesEverythingAsItWas) {
    for (const ChangeAndBack& kind : changes) {
        ASSERT_EQ(kind.back(plotter), 0);
        bool hasFailed = true;
        int failures = 0;
        for (long n = 1; hasFailed; n = n < 60 ? n + 1 : n + 29) {
            const Shown before(plotter, 2);
            const Holdings holdings;
            AllocationFault fault(n, AllocationFault::Mode::once);
            bool isChanged = false;
            try {
                isChanged = kind.change(plotter) == 0;
            } catch (const std::bad_alloc&) {
            }
            fault.Stop();
            hasFailed = fault.HasFailed();
            EXPECT_EQ(wglGetCurrentContext(), nullptr);
            EXPECT_EQ(Shown(plotter, 2) == before, !isChanged) << n;
            EXPECT_EQ(isChanged, !hasFailed) << n;
            if (isChanged) {
                ASSERT_EQ(kind.back(plotter), 0);
            } else {
                ++failures;
                EXPECT_EQ(Holdings().resources, holdings.resources) << n;
            }
        }
        EXPECT_GT(failures, 30);
    }
}
