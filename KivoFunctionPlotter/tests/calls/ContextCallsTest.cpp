// The OpenGL context around each public member: made current for its work and released afterwards, except
// where it is meant to stay.
#include "KivoStyle.h"
#include "support/GlSnapshot.h"
#include "support/PublicOperations.h"
#include "support/TestHostContext.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

// Whether each call of OpenGL has found the context current.
testing::AssertionResult AllHaveTheContext(const CallRecorder& recorder) {
    for (const RecordedCall& call : recorder.Calls())
        if (!call.isOperation && !call.hasContext)
            return testing::AssertionFailure() << recorder.TextOf(call) << " without a context";
    return testing::AssertionSuccess();
}

Texts Bindings(const CallRecorder& recorder) {
    return recorder.TextsOf({"wglMakeCurrent"});
}

bool IsDrawnBeside(const PublicOperation& operation) {
    return operation.name.find("Picture(options)") != std::string::npos;
}

bool CallsOpenGl(const CallRecorder& recorder) {
    return std::any_of(recorder.Calls().begin(), recorder.Calls().end(),
                       [](const RecordedCall& call) { return !call.isOperation; });
}

class ContextCalls : public testing::Test {
protected:
    ContextCalls() { plot.Fill(); }
    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    const std::string bind = "wglMakeCurrent(dc, context)";
    const std::string unbind = "wglMakeCurrent(dc, null)";
};

} // namespace

TEST_F(ContextCalls, MembersThatDrawOrMakeTexturesBracketTheirWork) {
    int count = 0;
    for (const PublicOperation& operation : PublicOperations()) {
        if (operation.context != ContextUse::bracketed) continue;
        SCOPED_TRACE(operation.name);
        const auto recorder = Record(plotter, [&] { operation.run(plotter); });
        const Texts bindings = Bindings(*recorder);
        ASSERT_FALSE(bindings.empty());
        EXPECT_EQ(bindings.front(), bind);
        EXPECT_EQ(bindings.back(), unbind);
        // Nothing else is bound, but for what is drawn beside the window, and the last call of all releases
        // the context.
        for (const std::string& binding : bindings)
            EXPECT_TRUE(binding == bind || binding == unbind || IsDrawnBeside(operation)) << binding;
        EXPECT_EQ(std::count(bindings.begin(), bindings.end(), bind),
                  std::count(bindings.begin(), bindings.end(), unbind));
        EXPECT_EQ(recorder->Texts().back(), unbind);
        EXPECT_TRUE(AllHaveTheContext(*recorder));
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        ++count;
    }
    EXPECT_EQ(count, 81);
}

TEST_F(ContextCalls, TheGradientSettersOfXAndYLeaveTheContextCurrent) {
    int count = 0;
    for (const PublicOperation& operation : PublicOperations()) {
        if (operation.context != ContextUse::staysCurrent) continue;
        SCOPED_TRACE(operation.name);
        const auto recorder = Record(plotter, [&] { operation.run(plotter); });
        EXPECT_THAT(Bindings(*recorder), testing::ElementsAre(bind));
        EXPECT_TRUE(AllHaveTheContext(*recorder));
        EXPECT_EQ(wglGetCurrentContext(), plotter.m_hGLRC);
        plotter.EndGLOperation();
        ++count;
    }
    EXPECT_EQ(count, 12);
}

TEST_F(ContextCalls, OtherMembersLeaveOpenGlAlone) {
    int count = 0;
    for (const PublicOperation& operation : PublicOperations()) {
        if (operation.context != ContextUse::none) continue;
        SCOPED_TRACE(operation.name);
        const auto recorder = Record(plotter, [&] { operation.run(plotter); });
        EXPECT_TRUE(Bindings(*recorder).empty());
        EXPECT_FALSE(CallsOpenGl(*recorder));
        ++count;
    }
    EXPECT_EQ(count, 93);
}

TEST_F(ContextCalls, TextIsDrawnInTheCallersBracket) {
    int count = 0;
    for (const PublicOperation& operation : PublicOperations()) {
        if (operation.context != ContextUse::callers) continue;
        SCOPED_TRACE(operation.name);
        const auto recorder = RecordStep(plotter, [&] { operation.run(plotter); });
        EXPECT_TRUE(Bindings(*recorder).empty());
        EXPECT_TRUE(CallsOpenGl(*recorder));
        EXPECT_TRUE(AllHaveTheContext(*recorder));
        ++count;
    }
    EXPECT_EQ(count, 7);
}

TEST_F(ContextCalls, BeginAndEndBindAndUnbind) {
    const auto recorder = Record(plotter, [&] {
        plotter.BeginGLOperation();
        plotter.EndGLOperation();
    });
    EXPECT_THAT(recorder->Texts(), testing::ElementsAre(bind, unbind));
}

// Setting what is set already does no work, so it needs no context.
TEST_F(ContextCalls, NothingToDoBindsNothing) {
    SKivoStyle refused;
    refused.pixelScale = -1.0f;
    const auto recorder = Record(plotter, [&] {
        plotter.SetInverseXAxis(false);
        plotter.SetIsoContourCount(20);
        plotter.SetIsoContourCount(0);
        plotter.OnMouseMove(MK_RBUTTON, POINT{230, 150});
        plotter.OnMouseMove(MK_RBUTTON, POINT{-1, 150});
        plotter.AddMeasurePoints(0, 3, plot.measured, "refused");
        plotter.SetMeasureGroupName(7, "refused");
        SetStyle(plotter, GetStyle(plotter));
        SetStyle(plotter, refused);
    });
    EXPECT_TRUE(recorder->Calls().empty());
}

// Off-screen, and nothing that is meant for the plot reaches it meanwhile.
TEST_F(ContextCalls, AHostsContextIsAsItWasAfterEveryMember) {
    TestHostContext host;
    ASSERT_TRUE(host.MakeCurrent());
    SetOddState();
    const GlSnapshot before = TakeSnapshot();
    for (const PublicOperation& operation : PublicOperations()) {
        if (operation.context == ContextUse::callers) continue; // draws in whatever is current
        SCOPED_TRACE(operation.name);
        operation.run(plotter);
        ASSERT_TRUE(host.IsCurrent());
        EXPECT_THAT(Differences(before, TakeSnapshot()), testing::IsEmpty());
    }
    plotter.OnDestroy();
    EXPECT_TRUE(host.IsCurrent());
    EXPECT_THAT(Differences(before, TakeSnapshot()), testing::IsEmpty());
    TestHostContext::Unbind();
}
