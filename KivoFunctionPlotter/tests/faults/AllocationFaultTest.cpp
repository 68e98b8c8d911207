// Every allocation made to fail in turn: std::bad_alloc or the documented result, nothing lost, and a plotter
// that goes on working.
#include "KivoContours.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Holdings.h"
#include "support/Image.h"
#include "support/PublicOperations.h"

#include <functional>
#include <new>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

using Mode = AllocationFault::Mode;

// How a call ended in which an allocation was to fail.
struct Outcome {
    bool hasFailed; ///< whether there was such an allocation
    bool hasThrown;
    int result;
};

Outcome Try(long n, Mode mode, const std::function<int()>& call) {
    AllocationFault fault(n, mode);
    Outcome outcome = {false, false, 0};
    try {
        outcome.result = call();
    } catch (const std::bad_alloc&) {
        outcome.hasThrown = true;
    }
    fault.Stop();
    outcome.hasFailed = fault.HasFailed();
    return outcome;
}

// The allocation to fail after the n-th. Labels and glyphs are made alike, so that after the first ones some
// do. Checked code is slow, and a quarter of them shows its memory: which results they have, the optimised
// build says of all.
long Next(long n, Mode mode) {
#if defined(__SANITIZE_ADDRESS__)
    constexpr long labels = 4;
#else
    constexpr long labels = 1;
#endif
    if (mode == Mode::once) return n < 30 ? n + 1 : n + 11 * labels;
    return n < 10 ? n + 1 : n + 31 * labels;
}

// Whether to draw a frame after the n-th allocation has failed: among the first ones all kinds of state are
// seen.
bool IsToBeDrawn(long n) {
    return n < 12;
}

std::string Words(const std::string& what, long n, Mode mode) {
    return what + ", allocation " + std::to_string(n) + (mode == Mode::once ? "" : " and all that follow");
}

} // namespace

// An object that cannot be allocated is left out, and the members see to it.
TEST(AllocationFaults, ConstructionNeverThrows) {
    WarmUp();
    for (const Mode mode : {Mode::once, Mode::onwards}) {
        bool hasFailed = true;
        for (long n = 1; hasFailed; ++n) {
            SCOPED_TRACE(Words("construction", n, mode));
            const Holdings before;
            {
                const TestWindow window(WindowKind::offscreen, 120, 90);
                AllocationFault fault(n, mode);
                CallProbe plotter;
                fault.Stop();
                hasFailed = fault.HasFailed();
                EXPECT_EQ(plotter.OnCreate(window.Handle(), 120, 90, true), 0);
                for (const PublicOperation& member : PublicOperations()) {
                    SCOPED_TRACE(member.name);
                    member.run(plotter);
                }
                EXPECT_EQ(plotter.Renderscene(), 0);
                EXPECT_EQ(plotter.OnDestroy(), 0);
            }
            EXPECT_TRUE(AreEqual(Holdings(), before));
        }
    }
}

// ---- Single operations

namespace {

// A device context that contexts can be made for.
HDC WithFormat(const TestWindow& window) {
    CallProbe plotter;
    const HDC dc = GetDC(window.Handle());
    EXPECT_EQ(plotter.SetDCPixelFormat(dc, true), 0);
    return dc;
}

} // namespace

TEST(AllocationFaults, AContextThatCannotBeKeptIsNotMade) {
    WarmUp();
    const TestWindow window(WindowKind::offscreen, 32, 32);
    const HDC dc = WithFormat(window);
    const Holdings before;
    HGLRC context = nullptr;
    for (long n = 1; !context; ++n) {
        const Outcome outcome = Try(n, Mode::once, [&] {
            context = wglCreateContext(dc);
            return 0;
        });
        EXPECT_NE(outcome.hasThrown, context != nullptr);
        if (!context) {
            EXPECT_TRUE(AreEqual(Holdings(), before)) << n;
        }
    }
    EXPECT_TRUE(wglDeleteContext(context));
    EXPECT_TRUE(AreEqual(Holdings(), before));
}

// Otherwise whatever is drawn next would go into the list.
TEST(AllocationFaults, AGlyphThatFailsEndsItsDisplayList) {
    RecordedPlot plot;
    const auto build = [&] {
        const CurrentContext context(plot.plotter);
        return wglUseFontBitmapsA(plot.plotter.m_hDC, 0, 256, plot.plotter.m_fontListBase);
    };
    for (long n = 1; n < 20; ++n) {
        EXPECT_TRUE(Try(n, Mode::once, build).hasThrown) << n;
        EXPECT_TRUE(IsOpenGlInOrder(plot.plotter)) << n;
    }
    EXPECT_EQ(build(), 1);
}

TEST(AllocationFaults, ACreationThatFailsLeavesNoContextCurrentAndNoFontSelected) {
    WarmUp();
    for (long n = 1; n < 40; ++n) {
        const Holdings before;
        {
            const TestWindow window(WindowKind::offscreen, 32, 32);
            CallProbe plotter;
            EXPECT_TRUE(Try(n, Mode::once, [&] { return plotter.OnCreate(window.Handle(), true); }).hasThrown)
                << n;
            EXPECT_EQ(wglGetCurrentContext(), nullptr) << n;
        }
        EXPECT_TRUE(AreEqual(Holdings(), before)) << n;
    }
}

// The context stays current when the setter returns; an exception releases it.
TEST(AllocationFaults, AGradientSetterThatThrowsReleasesTheContext) {
    RecordedPlot plot;
    plot.plotter.m_xGradientColor->SetRange(0.0f, 7.0f); // so that the legend needs other labels
    const Outcome outcome = Try(1, Mode::once, [&] {
        plot.plotter.SetXGradientColor(0x0000FFul, 0x00FF00ul);
        return 0;
    });
    EXPECT_TRUE(outcome.hasThrown);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

// Neither a texture without a picture, which would show as a white box, nor a texture that nobody deletes.
TEST(AllocationFaults, ATextImageThatFailsIsEmpty) {
    RecordedPlot plot;
    const CurrentContext context(plot.plotter);
    const Holdings before;
    SKivoTexImage image;
    bool hasFailed = true;
    for (long n = 1; hasFailed; ++n) {
        const Outcome outcome = Try(
            n, Mode::once, [&] { return CreateTextImage(plot.plotter.m_textRenderer, "A text", &image); });
        hasFailed = outcome.hasFailed;
        // The layer's bitmap reports the lack of memory by itself; then only the name is kept, for the next
        // time.
        EXPECT_EQ(image.pixels != nullptr, !hasFailed) << n;
        EXPECT_EQ(image.texture != 0, !outcome.hasThrown) << n;
        ReleaseTextImage(&image);
        EXPECT_EQ(Holdings().resources, before.resources) << n;
    }
}

TEST(AllocationFaults, InOnCreateThrowAndLoseNothing) {
    WarmUp();
    for (const Mode mode : {Mode::once, Mode::onwards}) {
        bool hasFailed = true;
        for (long n = 1; hasFailed; n = Next(n, mode)) {
            SCOPED_TRACE(Words("OnCreate", n, mode));
            const Holdings before;
            {
                const TestWindow window(WindowKind::offscreen, 120, 90);
                CallProbe plotter;
                const auto create = [&] { return plotter.OnCreate(window.Handle(), 120, 90, true); };
                const Outcome outcome = Try(n, mode, create);
                hasFailed = outcome.hasFailed;
                EXPECT_EQ(wglGetCurrentContext(), nullptr);
                EXPECT_TRUE(!plotter.m_hGLRC || IsOpenGlInOrder(plotter));

                // It can be used, and created again in the same window.
                plotter.SetData(NewHill(6, 5), 6, 5, 1, 6, 3);
                EXPECT_EQ(create(), 0);
                plotter.SetData(NewHill(6, 5), 6, 5, 1, 6, 3);
                if (IsToBeDrawn(n)) {
                    EXPECT_EQ(plotter.Renderscene(), 0);
                }
                EXPECT_TRUE(IsOpenGlInOrder(plotter));
            }
            EXPECT_TRUE(AreEqual(Holdings(), before));
        }
    }
}

namespace {

bool Allocates(const PublicOperation& member, CallProbe& plotter) {
    AllocationFault fault(0);
    member.run(plotter);
    plotter.EndGLOperation();
    return fault.Count() > 0;
}

// As they say.
bool RefusesForMemory(const PublicOperation& member) {
    for (const char* const name : {"SetStyle", "OnDensityChanged", "SetAxis", "SetColorRange", "SetLegend",
                                   "LabelContours", "SetMeasurePointNames", "SetListedTexts"})
        if (member.name.rfind(name, 0) == 0) return true;
    return member.name.find("Picture(options)") != std::string::npos;
}

// After the failure the same member does its work as if nothing had happened, and holds no more than it would
// else.
void FailInEveryAllocation(const PublicOperation& member, CallProbe& plotter, Mode mode) {
    const Image picture = CaptureImage(plotter);
    const Holdings working;
    bool hasFailed = true;
    for (long n = 1; hasFailed; n = Next(n, mode)) {
        SCOPED_TRACE(Words(member.name, n, mode));
        const Outcome outcome = Try(n, mode, [&] { return member.run(plotter); });
        hasFailed = outcome.hasFailed;
        const bool isRefused = outcome.result == -1 && RefusesForMemory(member);
        if (!outcome.hasThrown && !isRefused) {
            EXPECT_EQ(outcome.result, 0);
        }
        if (outcome.hasThrown || member.context != ContextUse::staysCurrent) {
            EXPECT_EQ(wglGetCurrentContext(), nullptr);
        }
        plotter.EndGLOperation();
        EXPECT_TRUE(IsOpenGlInOrder(plotter));
        if (IsToBeDrawn(n)) plotter.OnDraw();
        EXPECT_EQ(member.run(plotter), 0);
        plotter.EndGLOperation();
        if (member.repetition != Repetition::adds) {
            EXPECT_EQ(Holdings().resources, working.resources);
        }
    }
    EXPECT_EQ(plotter.Renderscene(), 0);
    if (member.repetition == Repetition::same) {
        EXPECT_TRUE(CaptureImage(plotter).rgba == picture.rgba) << member.name;
    }
}

} // namespace

TEST(AllocationFaults, InAnyMemberThrowAndLoseNothing) {
    WarmUp();
    RecordedPlot counted;
    counted.Fill();
    for (const PublicOperation& member : PublicOperations()) {
        if (member.context == ContextUse::callers || !Allocates(member, counted.plotter)) continue;
        const Holdings before;
        {
            RecordedPlot plot; // for both modes: making it takes most of the time
            plot.Fill();
            CallProbe& plotter = plot.plotter;
            for (int i = 0; i < 2; ++i) { // data set after a frame place the lights by its matrix
                member.run(plotter);
                plotter.OnDraw();
            }
            for (const Mode mode : {Mode::once, Mode::onwards})
                FailInEveryAllocation(member, plotter, mode);
        }
        EXPECT_TRUE(AreEqual(Holdings(), before)) << member.name;
    }
}

// What a curve has is kept in several arrays, which grow together or not at all.
TEST(AllocationFaults, ACurveThatFailsLeavesTheOthersAsTheyAre) {
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    const auto sizes = [&plotter] {
        return std::vector<std::size_t>{plotter.m_curveData.size(), plotter.m_curvePointCounts.size(),
                                        plotter.m_curveVisible.size(), plotter.m_curveColors.size(),
                                        plotter.m_curveWidths.size()};
    };
    float point[3] = {};
    for (std::size_t curves = 0; curves < 9; ++curves) {
        bool hasThrown = true;
        for (long n = 1; hasThrown; ++n) {
            EXPECT_EQ(sizes(), std::vector<std::size_t>(5, curves)) << n;
            hasThrown = Try(n, Mode::once, [&] { return plotter.AddCurveData(point, 1, 3); }).hasThrown;
        }
        EXPECT_EQ(sizes(), std::vector<std::size_t>(5, curves + 1));
    }
}

// A frame that throws leaves its state to the next one, which must not show.
TEST(AllocationFaults, AFrameAfterOneThatHasThrownIsWhole) {
    for (const Mode mode : {Mode::once, Mode::onwards}) {
        RecordedPlot plot;
        plot.Fill();
        const Image expected = CaptureImage(plot.plotter);
        bool hasFailed = true;
        for (long n = 1; hasFailed; ++n) {
            SCOPED_TRACE(Words("a frame", n, mode));
            hasFailed = Try(n, mode, [&] { return plot.plotter.Renderscene(); }).hasFailed;
            EXPECT_TRUE(CaptureImage(plot.plotter).rgba == expected.rgba);
        }
    }
}

// A frame does not try again what there was no memory for: it would try in each.
TEST(AllocationFaults, ValuesOfContoursWithoutMemoryForTheirLinesWaitForOthers) {
    RecordedPlot plot;
    plot.Fill();
    plot.plotter.SwitchToXYProjectPlot();
    const auto ask = [&](bool label) {
        LabelContours(plot.plotter, false);
        if (label) LabelContours(plot.plotter, true);
    };
    ask(false);
    const Image lines = CaptureImage(plot.plotter);
    ask(true);
    const Image values = CaptureImage(plot.plotter);
    ASSERT_FALSE(values.rgba == lines.rgba);
    int givenUp = 0;
    bool hasFailed = true;
    for (long n = 1; hasFailed; n = Next(n, Mode::onwards)) {
        SCOPED_TRACE(Words("a frame", n, Mode::onwards));
        ask(true);
        hasFailed = Try(n, Mode::onwards, [&] { return plot.plotter.Renderscene(); }).hasFailed;
        const Image next = CaptureImage(plot.plotter);
        givenUp += next.rgba == lines.rgba;
        EXPECT_TRUE(next.rgba == lines.rgba || next.rgba == values.rgba);
    }
    EXPECT_GT(givenUp, 3);
    ask(true);
    EXPECT_TRUE(CaptureImage(plot.plotter).rgba == values.rgba);
}

namespace {

// The depths of the stacks and the viewport, which whoever changes them puts back.
std::vector<GLint> StackedState() {
    std::vector<GLint> state(7);
    glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &state[0]);
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &state[1]);
    glGetIntegerv(GL_PROJECTION_STACK_DEPTH, &state[2]);
    glGetIntegerv(GL_VIEWPORT, &state[3]);
    return state;
}

} // namespace

TEST(AllocationFaults, APictureOfLinesThatThrowsLeavesTheStateAlone) {
    RecordedPlot plot;
    plot.Fill();
    CallProbe& plotter = plot.plotter;
    const std::function<void()> steps[] = {[&] { plotter.CreateFramelineSKivoTexImage(); },
                                           [&] { plotter.CreateIsoContourSKivoTexImage(); },
                                           [&] { plotter.RenderIsoContour(); }};
    const CurrentContext context(plotter);
    glEnable(GL_LIGHTING);
    const std::vector<GLint> before = StackedState();
    for (const std::function<void()>& step : steps) {
        bool hasFailed = true;
        long n = 1;
        for (; hasFailed; ++n) {
            const Outcome outcome = Try(n, Mode::once, [&] {
                step();
                return 0;
            });
            hasFailed = outcome.hasFailed;
            EXPECT_EQ(outcome.hasThrown, hasFailed);
            EXPECT_EQ(StackedState(), before) << n;
            EXPECT_TRUE(glIsEnabled(GL_LIGHTING)) << n;
        }
        EXPECT_GT(n, 2) << "nothing was allocated";
    }
}

// A derived class sets the ranges itself, with the ticks of other data still there.
TEST(AllocationFaults, AxesThatFailHaveAsManyTicksAsTheyCount) {
    float small[3] = {0, 0, 0}, large[3] = {10, 10, 10}, uneven[3] = {0.6f, 0.6f, 0.6f};
    bool hasFailed = true;
    for (long n = 1; hasFailed; n = Next(n, Mode::once)) {
        SCOPED_TRACE(Words("new ranges", n, Mode::once));
        RecordedPlot plot;
        plot.Fill();
        const CurrentContext context(plot.plotter);
        plot.plotter.UpdateBoundingBoxToViewVolume(small, large);
        hasFailed = Try(n, Mode::once, [&] {
                        plot.plotter.UpdateBoundingBoxToViewVolume(small, uneven);
                        return 0;
                    }).hasFailed;
        const CKivoGridBox& box = *plot.plotter.m_gridBox;
        for (int axis = 0; axis < 3; ++axis) {
            if (!box.m_tickPositions[axis]) continue;
            const double last = double{box.m_tickPositions[axis][box.m_tickIntervals[axis]]};
            EXPECT_NEAR(box.m_boxMin[axis] + last, box.m_axisMax[axis], 1e-4) << axis;
        }
        plot.plotter.DrawScene();
    }
}

// ---- Settings that memory is taken for: they change as a whole or not at all

namespace {

using Records = std::vector<std::vector<float>>;

// Address, level and points of each contour.
Records ContoursOf(const CallProbe& plotter) {
    Records records;
    for (const auto* set :
         {&plotter.m_flatXIsoContours, &plotter.m_flatYIsoContours, &plotter.m_flatZIsoContours})
        for (const SKivoIsoContour& contour : *set) {
            records.emplace_back(contour.points, contour.points + 3 * contour.pointCount);
            records.back().push_back(contour.level);
        }
    return records;
}

std::vector<unsigned char> ContourTexels(const CallProbe& plotter) {
    if (!plotter.m_isoContourTexels) return {};
    return {plotter.m_isoContourTexels, plotter.m_isoContourTexels + 400 * 400 * 4};
}

} // namespace

TEST(AllocationFaults, AContourCountThatFailsLeavesCountAndContours) {
    for (const bool isPicture : {false, true})
        for (const Mode mode : {Mode::once, Mode::onwards}) {
            RecordedPlot plot;
            CallProbe& plotter = plot.plotter;
            plotter.m_useIsoContourTexture = isPicture;
            plot.Fill();
            const Records contours = ContoursOf(plotter);
            const std::vector<unsigned char> texels = ContourTexels(plotter);
            const unsigned int texture = plotter.m_isoContourTexId;
            ASSERT_FALSE(contours.empty());
            EXPECT_EQ(texels.empty(), !isPicture);
            bool hasFailed = true;
            for (long n = 1; hasFailed; n = Next(n, mode)) {
                SCOPED_TRACE(Words("contours", n, mode));
                const Outcome outcome = Try(n, mode, [&] { return plotter.SetIsoContourCount(7); });
                hasFailed = outcome.hasFailed;
                EXPECT_EQ(outcome.hasThrown, hasFailed);
                if (!hasFailed) break;
                EXPECT_EQ(plotter.m_isoContourCount, 20u);
                EXPECT_TRUE(ContoursOf(plotter) == contours);
                EXPECT_TRUE(ContourTexels(plotter) == texels);
                EXPECT_EQ(plotter.m_isoContourTexId, texture);
                EXPECT_EQ(wglGetCurrentContext(), nullptr);
            }
            EXPECT_EQ(plotter.m_isoContourCount, 7u);
            EXPECT_EQ(plotter.m_flatXIsoContours.size(), 7u);
            EXPECT_FALSE(ContourTexels(plotter) == texels && isPicture);
        }
}

// Four thousand million levels, where no memory is left.
TEST(AllocationFaults, AContourCountBeyondMemoryIsNotKept) {
    RecordedPlot plot;
    plot.Fill();
    CallProbe& plotter = plot.plotter;
    const Records contours = ContoursOf(plotter);
    const auto set = [&] { return plotter.SetIsoContourCount(4000000000u); };
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(Try(1, Mode::onwards, set).hasThrown) << "the second time too";
        EXPECT_EQ(plotter.m_isoContourCount, 20u);
        EXPECT_TRUE(ContoursOf(plotter) == contours);
    }
    EXPECT_EQ(plotter.SetData(NewHill(12, 10), 12, 10, 1, 12, 3), 0);
    EXPECT_TRUE(ContoursOf(plotter) == contours);
}

TEST(AllocationFaults, ACurveThatFailsIsNotThere) {
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    float points[] = {0, 0, 0, 1, 1, 1};
    bool hasFailed = true;
    for (long n = 1; hasFailed; ++n) {
        hasFailed = Try(n, Mode::once, [&] { return plotter.AddCurveData(points, 2, 3); }).hasFailed;
        const std::size_t count = hasFailed ? 0 : 1;
        EXPECT_EQ(plotter.m_curveData.size(), count) << n;
        EXPECT_EQ(plotter.m_curvePointCounts.size(), count) << n;
        EXPECT_EQ(plotter.m_curveVisible.size(), count) << n;
        EXPECT_EQ(plotter.m_curveColors.size(), count) << n;
        EXPECT_EQ(plotter.m_curveWidths.size(), count) << n;
    }
}

TEST(AllocationFaults, FrameLinesThatFailLeaveTheOldOnes) {
    RecordedPlot plot;
    plot.Fill();
    CallProbe& plotter = plot.plotter;
    const unsigned int* const lines = plotter.m_framelineIndexArray;
    const int count = plotter.m_framelineIndexCount;
    const Outcome outcome = Try(1, Mode::once, [&] {
        plotter.SetFrameLineStep(3, 2);
        return 0;
    });
    EXPECT_TRUE(outcome.hasThrown);
    EXPECT_EQ(plotter.m_framelineIndexArray, lines);
    EXPECT_EQ(plotter.m_framelineIndexCount, count);
}

TEST(AllocationFaults, TicksThatFailLeaveTheOldOnes) {
    RecordedPlot plot;
    plot.Fill();
    CallProbe& plotter = plot.plotter;
    const CKivoGridBox& box = *plotter.m_gridBox;
    const unsigned int intervals = box.m_tickIntervals[0];
    const float* const positions = box.m_tickPositions[0];
    const SKivoTexImage* const labels = box.m_tickLabels[0];
    const float min = box.m_axisMin[0], max = box.m_axisMax[0], step = box.m_tickStep[0];
    const std::function<int()> calls[] = {[&] { return plotter.SetXAxisTickMarkNumber(4000000000u); },
                                          [&] { return plotter.SetXAxisMin(-7.0f); },
                                          [&] { return plotter.SetXAxisMax(9.0f); }};
    for (const auto& call : calls) {
        EXPECT_TRUE(Try(1, Mode::onwards, call).hasThrown);
        EXPECT_EQ(box.m_tickIntervals[0], intervals);
        EXPECT_EQ(box.m_tickPositions[0], positions);
        EXPECT_EQ(box.m_tickLabels[0], labels);
        EXPECT_EQ(box.m_axisMin[0], min);
        EXPECT_EQ(box.m_axisMax[0], max);
        EXPECT_EQ(box.m_tickStep[0], step);
    }
}

TEST(AllocationFaults, ANameThatFailsIsTheOldOne) {
    RecordedPlot plot;
    plot.Fill();
    bool hasFailed = true;
    for (long n = 1; hasFailed; ++n) {
        const Outcome outcome = Try(n, Mode::once, [&] {
            return plot.plotter.SetMeasureGroupName(0, "A name longer than those that need no memory");
        });
        hasFailed = outcome.hasFailed;
        const WithoutAllocationFaults reliable;
        EXPECT_EQ(plot.plotter.GetMeasureGroupIndexByName("First"), outcome.hasThrown ? 0 : -1) << n;
        plot.plotter.SetMeasureGroupName(0, "First");
    }
}
