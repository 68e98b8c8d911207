// A plot that takes long to draw: what a thread does for it, and what it is stopped by.
#include "KivoContours.h"
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoPlotView.h"
#include "KivoView.h"
#include "KivoWindow.h"
#include "support/BarePlot.h"
#include "support/TestSurfaces.h"
#include "ViewImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace KivoDrawingTools;
using KivoTest::ImageOf;

namespace {

constexpr int width = 240, height = 180;
constexpr POINT middle = {140, 90};
// No machine draws it in the time that a frame is tried for.
#if defined(__SANITIZE_THREAD__) // with a slower driver, too
constexpr unsigned int side = 150;
#else
constexpr unsigned int side = 700;
#endif

const TestSurface& LargeHill() {
    static const TestSurface hill = HillSurface(side, side);
    return hill;
}

class PlotViewThread : public testing::Test {
protected:
    PlotViewThread() {
        view.SetThreaded(true);
        view.SetSize(width, height);
    }
    ~PlotViewThread() override {
        view.Lend(); // stops the thread
        if (thread.joinable()) thread.join();
        view.TakeBack();
    }

    void ShowLargeHill() { ASSERT_EQ(view.SetGrid(LargeHill().points.data(), side, side), 0); }

    SKivoPlotViewEvents Events() {
        SKivoPlotViewEvents events;
        events.redraw = [this] { ++redraws; };
        events.wake = [this](int milliseconds) { wake = milliseconds; };
        events.failed = [this] { ++failures; };
        events.drawInThread = [this] { ++requests; };
        return events;
    }

    // As a control does it.
    void DrawInThread() {
        std::thread([this] { view.DrawInThread(); }).join();
        view.TakeFrame();
    }

    // It has most likely begun; all holds before that, too.
    void BeginThread() {
        if (thread.joinable()) thread.join();
        thread = std::thread([this] { view.DrawInThread(); });
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    // What it shows at rest, drawn by another plotter.
    Image Expected(const SKivoView& shown) {
        KivoTest::BarePlot bare(width, height);
        bare.plotter.SetData(LargeHill().NewArray(), side, side, 1, side, 3);
        SetView(bare.plotter, shown);
        return bare.Smooth();
    }

    int redraws = 0;
    int wake = -1;
    int failures = 0;
    int requests = 0; // for a thread
    CKivoPlotView view{Events()};
    std::thread thread;
};

} // namespace

// ---- Frames

TEST_F(PlotViewThread, DrawsWhatTakesLong) {
    ShowLargeHill();
    const Image first = ImageOf(view.Draw());
    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(view.IsDrawingInThread());
    EXPECT_FALSE(view.IsFrameDue());
    ASSERT_EQ(first.width, width) << "as in a movement";
    redraws = 0;
    DrawInThread();
    EXPECT_EQ(redraws, 1);
    EXPECT_FALSE(view.IsDrawingInThread());
    const Image complete = ImageOf(view.Draw());
    EXPECT_TRUE(ImagesAgree(complete, Expected(GetView(view.Plotter())), 0, 0, "thread-complete"));
    EXPECT_NE(first.rgba, complete.rgba);
    EXPECT_EQ(requests, 1) << "nothing has changed since";
}

TEST_F(PlotViewThread, DrawsNothingThatIsQuick) {
    const TestSurface hill = HillSurface(12, 10);
    view.SetGrid(hill.points.data(), 12, 10);
    KivoTest::BarePlot bare(width, height);
    bare.plotter.SetData(hill.NewArray(), 12, 10, 1, 12, 3);
    view.Draw(); // makes its texts
    view.Update();
    EXPECT_TRUE(ImagesAgree(ImageOf(view.DrawNow()), bare.Smooth(), 0, 0, "thread-quick"));
    EXPECT_FALSE(view.IsFrameDue());
}

TEST_F(PlotViewThread, IsNotAskedForWhereNobodyWantsOne) {
    view.SetThreaded(false);
    ShowLargeHill();
    const Image complete = ImageOf(view.Draw());
    EXPECT_EQ(requests, 0);
    EXPECT_TRUE(ImagesAgree(complete, Expected(GetView(view.Plotter())), 0, 0, "no-thread"));
}

// Each by a thread of its own, in turn while the other's is at work.
TEST_F(PlotViewThread, TwoPlotsAreDrawnAtOnce) {
    CKivoPlotView other(Events());
    other.SetThreaded(true);
    other.SetSize(width, height);
    ShowLargeHill();
    ASSERT_EQ(other.SetGrid(LargeHill().points.data(), side, side), 0);
    for (const double turn : {0.0, 20.0}) {
        for (CKivoPlotView* const plot : {&view, &other}) {
            EXPECT_EQ(TurnView(plot->Plotter(), plot == &view ? turn : 2.0 * turn, 5.0), 0);
            plot->Update();
            plot->Draw();
            EXPECT_TRUE(plot->IsDrawingInThread());
        }
        std::thread first([this] { view.DrawInThread(); });
        std::thread second([&other] { other.DrawInThread(); });
        first.join();
        second.join();
        for (CKivoPlotView* const plot : {&view, &other}) {
            plot->TakeFrame();
            const Image complete = ImageOf(plot->Draw());
            EXPECT_FALSE(plot->IsDrawingInThread());
            EXPECT_TRUE(ImagesAgree(complete, Expected(GetView(plot->Plotter())), 0, 0, "thread-two"));
        }
    }
}

TEST_F(PlotViewThread, IsNotWaitedForByAPicture) {
    ShowLargeHill();
    view.Draw();
    BeginThread();
    const Image now = ImageOf(view.DrawNow());
    EXPECT_TRUE(ImagesAgree(now, Expected(GetView(view.Plotter())), 0, 0, "thread-now"));
    EXPECT_FALSE(view.IsDrawingInThread());
}

// A control may have no thread for it yet, or ever.
TEST_F(PlotViewThread, ThatNeverComesIsDoneWithout) {
    ShowLargeHill();
    view.Draw();
    const Image before = ImageOf(view.Draw());
    EXPECT_EQ(ImageOf(view.Draw()).rgba, before.rgba);
    view.Update();
    EXPECT_FALSE(view.IsDrawingInThread());
    EXPECT_TRUE(view.IsFrameDue());
    view.Draw();
    EXPECT_EQ(requests, 2);
    view.SetThreaded(false);
    EXPECT_TRUE(ImagesAgree(ImageOf(view.Draw()), Expected(GetView(view.Plotter())), 0, 0, "never-came"));
    view.DrawInThread(); // late
    view.TakeFrame();
    EXPECT_FALSE(view.IsDrawingInThread());
}

// ---- What stops them

TEST_F(PlotViewThread, IsStoppedByTheHand) {
    ShowLargeHill();
    view.Draw();
    const Image before = ImageOf(view.DrawNow());
    view.Update();
    view.Draw();
    for (int i = 1; i <= 5; ++i) {
        BeginThread();
        view.Press(KivoMouseButton::left, 0, middle);
        view.Move(0, {middle.x + 7 * i, middle.y - 3 * i});
        EXPECT_FALSE(view.IsDrawingInThread());
        view.Draw(); // of the movement
        EXPECT_FALSE(view.IsDrawingInThread());
        view.Release(KivoMouseButton::left);
        if (view.IsFrameDue())
            view.Draw();
        else
            view.Wake();
        view.Draw();
        EXPECT_TRUE(view.IsDrawingInThread()) << i;
    }
    DrawInThread();
    const Image after = ImageOf(view.Draw());
    EXPECT_TRUE(ImagesAgree(after, Expected(GetView(view.Plotter())), 255, 0.02, "thread-after-hand"));
    EXPECT_NE(after.rgba, before.rgba);
}

TEST_F(PlotViewThread, IsStoppedByEverythingThatChangesThePlot) {
    ShowLargeHill();
    view.Draw();
    const std::vector<void (*)(CKivoPlotView&)> changes = {
        [](CKivoPlotView& v) { v.Update(); },
        [](CKivoPlotView& v) { v.SetSize(width - 1, height); },
        [](CKivoPlotView& v) { v.SetSize(width, height); },
        [](CKivoPlotView& v) { v.SetSmoothing(1); },
        [](CKivoPlotView& v) { v.SetSmoothing(2); },
        [](CKivoPlotView& v) { v.Wheel(120, middle); },
        [](CKivoPlotView& v) { v.Pinch(0.9, middle); },
        [](CKivoPlotView& v) { v.PressKey(KivoViewKey::left); },
        [](CKivoPlotView& v) { v.PressKey(KivoViewKey::home); },
        [](CKivoPlotView& v) { v.SetColors(0x404040, std::nullopt); },
        [](CKivoPlotView& v) { v.SetColors(std::nullopt, std::nullopt); },
        [](CKivoPlotView& v) { v.ReduceWhileMoving(false); },
        [](CKivoPlotView& v) { v.ReduceWhileMoving(true); },
        [](CKivoPlotView& v) { v.SetGrid(LargeHill().points.data(), side, side); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (!view.IsDrawingInThread()) {
            view.Update();
            view.Draw();
        }
        ASSERT_TRUE(view.IsDrawingInThread()) << i;
        changes[i](view);
        EXPECT_FALSE(view.IsDrawingInThread()) << i;
        EXPECT_TRUE(view.IsFrameDue()) << i;
        view.Draw();
    }
    view.SetSmoothing(2);
    view.Update();
    EXPECT_TRUE(
        ImagesAgree(ImageOf(view.DrawNow()), Expected(GetView(view.Plotter())), 255, 0.02, "thread-changed"));
}

// Whoever looks at the plot all the time sees it in the end.
TEST_F(PlotViewThread, IsWaitedForWhereAHostLooksAgainAndAgain) {
    ShowLargeHill();
    view.Draw();
    int looks = 0;
    while (view.IsDrawingInThread() && looks < 20) {
        view.Plotter();
        ++looks;
        EXPECT_FALSE(view.IsDrawingInThread());
        view.Draw();
    }
    EXPECT_EQ(looks, 4);
    EXPECT_TRUE(ImagesAgree(ImageOf(view.Draw()), Expected(GetView(view.Plotter())), 0, 0, "thread-looks"));
}

// ---- Failures

TEST_F(PlotViewThread, TellsThatNothingCanBeDrawn) {
    ShowLargeHill();
    view.ReduceWhileMoving(false);
    view.Draw();
    ASSERT_TRUE(view.IsDrawingInThread());
    view.Plotter().OnDestroy();
    view.Draw();
    ASSERT_TRUE(view.IsDrawingInThread());
    EXPECT_EQ(failures, 0);
    DrawInThread();
    EXPECT_EQ(failures, 1);
    EXPECT_FALSE(view.Failure().empty());
    EXPECT_EQ(view.Draw().pixels, nullptr);
}

// ---- What it tells

// Who hears of the traced point asks the plotter.
TEST_F(PlotViewThread, ToldOfTheTracedPointOnce) {
    SKivoPlotViewEvents events = Events();
    int told = 0;
    CKivoPlotView* asked = nullptr;
    events.traced = [&](const float*) {
        ++told;
        asked->Plotter();
    };
    CKivoPlotView tracing(events);
    asked = &tracing;
    tracing.SetThreaded(true);
    tracing.SetSize(width, height);
    ASSERT_EQ(tracing.SetGrid(LargeHill().points.data(), side, side), 0);
    tracing.Plotter().Trace(true);
    tracing.Draw();
    tracing.Move(0, middle);
    tracing.Draw();
    EXPECT_EQ(told, 1);
    tracing.Wake();
    tracing.Draw();
    ASSERT_TRUE(tracing.IsDrawingInThread());
    EXPECT_EQ(told, 1);
    std::thread([&] { tracing.DrawInThread(); }).join();
    tracing.TakeFrame();
    tracing.Draw();
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(tracing.IsDrawingInThread());
}

// Setters of the X and Y gradients leave it current in the thread that calls them.
TEST_F(PlotViewThread, TakesTheContextOver) {
    ShowLargeHill();
    view.ReduceWhileMoving(false);
    view.Draw();
    ASSERT_TRUE(view.IsDrawingInThread());
    view.Plotter().SetXGradientStartColor(0x000000ff);
    view.Update();
    view.Draw();
    DrawInThread();
    EXPECT_EQ(failures, 0) << view.Failure();
    view.Plotter().SetYGradientStartColor(0x0000ff00);
    view.Lend();
    int result = -1;
    std::thread([&] {
        std::vector<unsigned char> rgba;
        int w = 0, h = 0;
        result = CapturePicture(view.Plotter(), rgba, w, h);
    }).join();
    view.TakeBack();
    EXPECT_EQ(result, 0) << LastWindowError();
}

// ---- Measuring

TEST_F(PlotViewThread, MeasuresHowMuchToShowWhileItMoves) {
    ShowLargeHill();
    view.Draw();
    DrawInThread();
    view.Draw();
    ASSERT_GT(wake, 0);
    view.Wake();
    EXPECT_TRUE(view.IsDrawingInThread());
    EXPECT_EQ(requests, 2);
    BeginThread();
    view.Press(KivoMouseButton::left, 0, middle); // stops it
    EXPECT_FALSE(view.IsDrawingInThread());
    view.Release(KivoMouseButton::left);
    view.Update();
    view.Draw();
    DrawInThread(); // the frame
    view.Wake();
    EXPECT_TRUE(view.IsDrawingInThread()) << "it was not measured";
    DrawInThread();
    view.PressKey(KivoViewKey::left);
    view.Draw();
    EXPECT_FALSE(view.IsDrawingInThread());
    const Image moved = ImageOf(view.Draw());
    view.Wake();
    view.Draw();
    DrawInThread();
    EXPECT_NE(ImageOf(view.Draw()).rgba, moved.rgba) << "movements show less";
}

TEST_F(PlotViewThread, MeasuresNothingInAFlatPlot) {
    constexpr unsigned int usualDetail = 150;
    if (side <= usualDetail) GTEST_SKIP() << "movements show everything";
    view.SetThreaded(false);
    view.SetSmoothing(1);
    ShowLargeHill();
    view.PressKey(KivoViewKey::xy);
    FillContours(view.Plotter(), true);
    view.Update();
    const Image complete = ImageOf(view.Draw());
    view.Wake(); // to measure
    view.PressKey(KivoViewKey::left);
    view.PressKey(KivoViewKey::right);
    const Image moved = ImageOf(view.Draw());
    EXPECT_NE(moved.rgba, complete.rgba) << "movements go on to show less";
    view.Wake();
    EXPECT_EQ(ImageOf(view.Draw()).rgba, complete.rgba);
}

// ---- Lent

TEST_F(PlotViewThread, ALentPlotterIsAnothers) {
    const TestSurface hill = HillSurface(12, 10);
    view.SetGrid(hill.points.data(), 12, 10);
    const Image before = ImageOf(view.DrawNow());
    view.Press(KivoMouseButton::left, 0, middle);
    view.Lend();
    EXPECT_TRUE(view.IsLent());
    redraws = 0;
    std::thread other([&, &plotter = view.Plotter()] {
        plotter.SetData(LargeHill().NewArray(), side, side, 1, side, 3);
        plotter.SetPlotTitle("by another");
    });
    view.Move(0, {middle.x + 20, middle.y});
    view.Wheel(120, middle);
    EXPECT_FALSE(view.PressKey(KivoViewKey::home));
    EXPECT_EQ(view.SetGrid(hill.points.data(), 12, 10), -1);
    EXPECT_EQ(view.SetHeights(hill.points.data(), 3, 3, 0, 1, 0, 1), -1);
    EXPECT_EQ(view.SetColors(0, 0x00C0FFC0), 0);
    view.Update();
    view.SetSize(width + 20, height);
    view.ReduceWhileMoving(false);
    view.Wake();
    EXPECT_EQ(ImageOf(view.Draw()).rgba, before.rgba);
    EXPECT_EQ(view.DrawNow().pixels, nullptr);
    other.join();
    view.TakeBack();
    EXPECT_FALSE(view.IsLent());
    EXPECT_GT(redraws, 0);
    const Image after = ImageOf(view.DrawNow());
    EXPECT_EQ(after.width, width + 20);
    KivoTest::BarePlot bare(width + 20, height);
    bare.plotter.SetData(LargeHill().NewArray(), side, side, 1, side, 3);
    bare.plotter.SetPlotTitle("by another");
    bare.plotter.SetBackgroundColor(0x00C0FFC0); // as was asked for meanwhile
    EXPECT_TRUE(ImagesAgree(after, bare.Smooth(), 1, 0.001, "lent"));
}

TEST_F(PlotViewThread, ALoanEndsADrag) {
    view.Press(KivoMouseButton::left, 0, middle);
    view.Lend();
    view.TakeBack();
    view.Draw();
    view.Move(0, {middle.x + 30, middle.y});
    EXPECT_FALSE(view.IsFrameDue());
}

TEST_F(PlotViewThread, NothingIsDrawnAgainForALookAtALentPlotter) {
    const TestSurface hill = HillSurface(12, 10);
    view.SetGrid(hill.points.data(), 12, 10);
    view.DrawNow();
    view.Lend();
    view.TakeBack(false);
    EXPECT_FALSE(view.IsFrameDue());
    view.Lend();
    view.Lend();
    view.TakeBack();
    view.TakeBack(false);
    EXPECT_TRUE(view.IsFrameDue()) << "the inner one has changed it";
    redraws = 0;
    view.Draw();
    view.Lend();
    view.Update();
    view.Draw();
    view.TakeBack(false);
    EXPECT_TRUE(view.IsFrameDue());
    EXPECT_EQ(redraws, 2) << "one that was asked for meanwhile comes then";
}

TEST_F(PlotViewThread, LoansMayLieInEachOther) {
    view.TakeBack(); // of nothing
    view.Lend();
    view.Lend();
    view.TakeBack();
    EXPECT_TRUE(view.IsLent());
    view.TakeBack();
    EXPECT_FALSE(view.IsLent());
    EXPECT_NE(view.DrawNow().pixels, nullptr);
}

// ---- In a host's window

TEST_F(PlotViewThread, DrawsNothingInAHostsWindow) {
    const HWND window = CreateOffscreenWindow(width, height);
    {
        CKivoPlotView inWindow(Events(), window);
        inWindow.SetThreaded(true);
        inWindow.SetSize(width, height);
        inWindow.SetGrid(LargeHill().points.data(), side, side);
        inWindow.Draw();
        EXPECT_EQ(requests, 0);
    }
    ReleaseWindow(window);
}
