// What a style changes in the calls of a frame: nothing at its start values, the width of each line at
// others.
#include "KivoStyle.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Holdings.h"
#include "support/OperationFaults.h"
#include "support/RecordedPlot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <new>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

// The plots by their switches.
const std::vector<int (*)(CKivoFunctionPlotter&)> modes = {
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToNormalPlot(); },
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToXYProjectPlot(); },
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToYZProjectPlot(); },
    [](CKivoFunctionPlotter& plotter) { return plotter.SwitchToZXProjectPlot(); }};

SKivoStyle Scaled(float scale) {
    SKivoStyle style;
    style.pixelScale = scale;
    return style;
}

class StyleCalls : public testing::Test {
protected:
    StyleCalls() { plot.Fill(); }

    std::unique_ptr<CallRecorder> Frame() {
        return Record(plotter, [&] { EXPECT_EQ(plotter.Renderscene(), 0); });
    }

    // The calls of a frame; textures that are made anew have other names.
    Texts CallsOfFrame() {
        Texts calls = Frame()->Texts();
        for (std::string& call : calls)
            if (call.rfind("glBindTexture", 0) == 0 && call.find(", 0)") == std::string::npos)
                call = "glBindTexture";
            else if (call.rfind("glDeleteTextures", 0) == 0)
                call = "glDeleteTextures";
        return calls;
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
};

// Of each drawing of lines.
std::vector<float> LineWidths(const CallRecorder& recorder) {
    std::vector<float> widths;
    for (const RecordedDraw& draw : recorder.Draws())
        if (draw.primitive == GL_LINES || draw.primitive == GL_LINE_LOOP)
            widths.push_back(draw.state.lineWidth);
    return widths;
}

} // namespace

TEST_F(StyleCalls, BackAtOneEveryCallIsAsItWas) {
    for (const auto& mode : modes) {
        mode(plotter);
        plotter.OnDraw();
        const Texts before = CallsOfFrame();
        ASSERT_EQ(SetStyle(plotter, Scaled(2.0f)), 0);
        EXPECT_TRUE(CallsOfFrame() != before);
        ASSERT_EQ(SetStyle(plotter, Scaled(1.0f)), 0);
        const Texts calls = CallsOfFrame();
        ASSERT_EQ(calls.size(), before.size());
        const auto [first, expected] = std::mismatch(calls.begin(), calls.end(), before.begin());
        if (first != calls.end()) {
            ADD_FAILURE() << *first << " instead of " << *expected;
        }
    }
}

// The widths of curves are the host's: 1, and 2.5.
TEST_F(StyleCalls, EveryLineIsSoManyTimesAsWide) {
    for (const auto& mode : modes) {
        mode(plotter);
        const std::vector<float> plain = LineWidths(*Frame());
        EXPECT_GT(plain.size(), 10u);
        for (const float scale : {1.25f, 2.0f, 3.0f}) {
            ASSERT_EQ(SetStyle(plotter, Scaled(scale)), 0);
            const std::vector<float> scaled = LineWidths(*Frame());
            ASSERT_EQ(scaled.size(), plain.size());
            for (std::size_t i = 0; i < plain.size(); ++i)
                EXPECT_EQ(scaled[i], scale * plain[i]) << i;
            const CurrentContext context(plotter);
            GLfloat width = 0.0f;
            glGetFloatv(GL_LINE_WIDTH, &width);
            EXPECT_EQ(width, 1.0f) << "afterwards";
        }
        ASSERT_EQ(SetStyle(plotter, Scaled(1.0f)), 0);
    }
}

// The surface recedes from lines by what it rises in their width.
TEST_F(StyleCalls, TheSurfaceIsPushedBackBehindWiderLines) {
    ASSERT_EQ(SetStyle(plotter, Scaled(3.0f)), 0);
    const auto frame = Frame();
    EXPECT_EQ(frame->TextsOf({"glPolygonOffset"}), Texts{"glPolygonOffset(3, 1)"});
}

TEST_F(StyleCalls, ContoursOnTheSurfaceAreAsWide) {
    const auto plain = RecordStep(plotter, [&] { plotter.RenderIsoContour(); });
    EXPECT_EQ(plain->Count("glLineWidth"), 0);
    ASSERT_EQ(SetStyle(plotter, Scaled(2.0f)), 0);
    const auto scaled = RecordStep(plotter, [&] { plotter.RenderIsoContour(); });
    EXPECT_EQ(scaled->TextsOf({"glLineWidth"}), (Texts{"glLineWidth(2)", "glLineWidth(1)"}));
}

namespace {

// What a style decides on: images, font, lists.
struct Look {
    explicit Look(CallProbe& plotter)
        : scale(GetStyle(plotter).pixelScale), lists(plotter.m_fontListBase),
          memoryDC(plotter.m_textRenderer->m_memoryDC), pixels(plotter.m_plotTitleImage->pixels),
          texture(plotter.m_plotTitleImage->texture), label(plotter.m_gridBox->m_tickLabels[2][1].pixels) {}

    bool operator==(const Look& other) const {
        return scale == other.scale && lists == other.lists && memoryDC == other.memoryDC &&
               pixels == other.pixels && texture == other.texture && label == other.label;
    }

    float scale;
    unsigned int lists;
    const void* memoryDC;
    const void* pixels;
    unsigned int texture;
    const void* label;
};

} // namespace

TEST_F(StyleCalls, AStyleThatFailsLeavesEverythingAsItWas) {
    bool hasFailed = true;
    int refusals = 0;
    for (long n = 1; hasFailed; n = n < 40 ? n + 1 : n + 13) {
        const Look before(plotter);
        const Holdings holdings;
        OperationFault fault(n);
        const int result = SetStyle(plotter, Scaled(2.0f));
        fault.Stop();
        hasFailed = !fault.Failed().empty();
        SCOPED_TRACE(fault.Failed() + ", operation " + std::to_string(n));
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_EQ(Look(plotter) == before, result != 0);
        if (result != 0) {
            ++refusals;
            EXPECT_EQ(result, -1);
            EXPECT_EQ(Holdings().resources, holdings.resources);
        }
        ASSERT_EQ(SetStyle(plotter, Scaled(1.0f)), 0);
        EXPECT_TRUE(IsOpenGlInOrder(plotter));
    }
    EXPECT_GT(refusals, 20);
}

TEST_F(StyleCalls, AStyleThatRunsOutOfMemoryLeavesEverythingAsItWas) {
    bool hasFailed = true;
    for (long n = 1; hasFailed; n = n < 40 ? n + 1 : n + 29) {
        const Look before(plotter);
        AllocationFault fault(n, AllocationFault::Mode::once);
        bool isChanged = false;
        try {
            isChanged = SetStyle(plotter, Scaled(2.0f)) == 0;
        } catch (const std::bad_alloc&) {
        }
        fault.Stop();
        hasFailed = fault.HasFailed();
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_EQ(Look(plotter) == before, !isChanged) << n;
        EXPECT_EQ(isChanged, !hasFailed) << n;
        ASSERT_EQ(SetStyle(plotter, Scaled(1.0f)), 0);
    }
}
