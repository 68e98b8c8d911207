// What pictures and smooth windows take and give back, what they leave in OpenGL, and what happens without
// the memory for them.
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "KivoWindow.h"
#include "support/EglFault.h"
#include "support/GlSnapshot.h"
#include "support/Holdings.h"
#include "support/OperationFaults.h"
#include "support/RecordedPlot.h"
#include "window_system/Failure.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <set>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr int width = RecordedPlot::width;
constexpr int height = RecordedPlot::height;

SKivoPictureOptions Smoothing(int factor) {
    SKivoPictureOptions options;
    options.smoothing = factor;
    return options;
}

class PictureCalls : public testing::Test {
protected:
    PictureCalls() { plot.Fill(); }

    int Draw(const SKivoPictureOptions& options) {
        return DrawPicture(plotter, options, pixels.data(), std::size_t{width} * 4, KivoPixelOrder::rgba);
    }

    GlSnapshot Snapshot() {
        const CurrentContext context(plotter);
        return TakeSnapshot();
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    std::vector<unsigned char> pixels = std::vector<unsigned char>(std::size_t{width} * height * 4);
};

// The label of the traced point is drawn anew in every frame.
long AllocationsOfFrame(CallProbe& plotter) {
    const AllocationFault count(0);
    plotter.Renderscene();
    return count.Count();
}

} // namespace

TEST_F(PictureCalls, OneAsTheLastAllocatesNothing) {
    plotter.m_hasTracePoint = 0;
    plotter.Renderscene();
    ASSERT_EQ(AllocationsOfFrame(plotter), 0);
    for (SKivoPictureOptions options : {Smoothing(1), Smoothing(2), Smoothing(4)})
        for (const bool isTransparent : {false, true}) {
            options.transparent = isTransparent;
            ASSERT_EQ(Draw(options), 0);
            const AllocationFault count(0);
            ASSERT_EQ(Draw(options), 0);
            EXPECT_EQ(count.Count(), 0) << options.smoothing;
        }
}

TEST_F(PictureCalls, SmoothFramesAllocateNothingEither) {
    plotter.m_hasTracePoint = 0;
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 2), 0);
    plotter.Renderscene();
    EXPECT_EQ(AllocationsOfFrame(plotter), 0);
}

TEST_F(PictureCalls, AnotherTextMakesOneImage) {
    ASSERT_EQ(Draw(Smoothing(2)), 0);
    plotter.SetPlotTitle("Another");
    const auto recorder = Record(plotter, [&] { Draw(Smoothing(2)); });
    // That of the title, and the traced point's.
    EXPECT_EQ(recorder->Count("GetBitmapBits"), 2);
}

TEST_F(PictureCalls, OnDestroyGivesBackWhatIsKept) {
    plotter.OnDestroy();
    WarmUp();
    const Holdings before;
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), width, height, true), 0);
        plot.Fill();
        ASSERT_EQ(Draw(Smoothing(2)), 0);
        SKivoPictureOptions large;
        large.scale = 1.5f;
        std::vector<unsigned char> rgba;
        int pictureWidth = 0, pictureHeight = 0;
        ASSERT_EQ(CapturePicture(plotter, large, rgba, pictureWidth, pictureHeight), 0);
        ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 3), 0);
        EXPECT_EQ(plotter.Renderscene(), 0);
        plotter.OnDestroy();
        EXPECT_EQ(Holdings().resources, before.resources);
    }
}

TEST_F(PictureCalls, LeaveOpenGlAsItWas) {
    plotter.Renderscene();
    {
        const CurrentContext context(plotter);
        SetOddState();
    }
    const GlSnapshot before = Snapshot();
    Draw(Smoothing(2));
    std::set<std::string> changed = Differences(before, Snapshot());
    {
        const CurrentContext context(plotter);
        SetOddState();
    }
    plotter.Renderscene();
    const std::set<std::string> byFrame = Differences(before, Snapshot());
    for (const std::string& name : byFrame)
        changed.erase(name);
    EXPECT_THAT(changed, testing::IsEmpty()); // no more than a frame changes
}

TEST_F(PictureCalls, SmoothFramesLeaveInOpenGlWhatFramesDo) {
    plotter.Renderscene();
    const GlSnapshot before = Snapshot();
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 2), 0);
    plotter.Renderscene();
    // Every frame sets it before the triangles.
    EXPECT_EQ(Differences(before, Snapshot()), std::set<std::string>{"GL_POLYGON_OFFSET_FACTOR"});
}

TEST_F(PictureCalls, TransparentOnesLeaveTheBackground) {
    ASSERT_EQ(Draw({}), 0);
    const GlSnapshot before = Snapshot();
    SKivoPictureOptions options = Smoothing(2);
    options.transparent = true;
    ASSERT_EQ(Draw(options), 0);
    EXPECT_THAT(Differences(before, Snapshot()), testing::Not(testing::Contains("GL_COLOR_CLEAR_VALUE")));
}

TEST_F(PictureCalls, PixelsAreReadAndPutAsTheyAre) {
    plotter.m_hasTracePoint = 0;
    const Image expected = [&] {
        Image image(width, height);
        EXPECT_EQ(Draw(Smoothing(2)), 0);
        image.rgba = pixels;
        return image;
    }();
    {
        const CurrentContext context(plotter);
        glPixelZoom(1.0f, -1.0f);
        glPixelTransferf(GL_RED_SCALE, 0.5f);
        glPixelTransferf(GL_BLUE_BIAS, 0.25f);
    }
    ASSERT_EQ(Draw(Smoothing(2)), 0);
    EXPECT_TRUE(pixels == expected.rgba);
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 2), 0);
    ASSERT_EQ(plotter.Renderscene(), 0);
    GLfloat zoom = 0.0f, scale = 0.0f;
    {
        const CurrentContext context(plotter);
        glGetFloatv(GL_ZOOM_Y, &zoom);
        glGetFloatv(GL_RED_SCALE, &scale);
        glPixelTransferf(GL_RED_SCALE, 1.0f);
        glPixelTransferf(GL_BLUE_BIAS, 0.0f);
    }
    EXPECT_EQ(zoom, -1.0f);
    EXPECT_EQ(scale, 0.5f);
    EXPECT_TRUE(ImagesAgree(plot.window.Presented(plotter), expected, 0, 0, "put-as-it-is"));
}

TEST_F(PictureCalls, ALongFaceAllocatesNothingEither) {
    plotter.m_hasTracePoint = 0;
    SKivoStyle style;
    style.textFace = "A family of twenty-six or so";
    ASSERT_EQ(SetStyle(plotter, style), 0);
    ASSERT_EQ(Draw(Smoothing(2)), 0);
    const AllocationFault count(0);
    ASSERT_EQ(Draw(Smoothing(2)), 0);
    EXPECT_EQ(count.Count(), 0);
}

TEST_F(PictureCalls, OnesThatOpenGlCannotDrawSoLargeAreSmoothedLess) {
    GLfloat widths[2] = {};
    {
        const CurrentContext context(plotter);
        glGetFloatv(GL_LINE_WIDTH_RANGE, widths);
    }
    plotter.SetCurveWidth(0, widths[1] / 2.0f);
    const auto widestOf = [&](int smoothing) {
        const auto recorder = Record(plotter, [&] { Draw(Smoothing(smoothing)); });
        float widest = 0.0f;
        for (const RecordedDraw& draw : recorder->Draws())
            widest = std::max(widest, draw.state.lineWidth);
        return widest;
    };
    EXPECT_EQ(widestOf(2), widths[1]);
    EXPECT_EQ(widestOf(4), widths[1]);
    plotter.SetCurveWidth(0, 1.0f);
    EXPECT_LT(widestOf(4), widths[1]);
}

TEST_F(PictureCalls, SizesOfAnyWindowThatIsLaidOutForDoNotOverflow) {
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 4), 0);
    for (const int side : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min(), -1, 0}) {
        plotter.OnSize(0, side, side);
        EXPECT_EQ(plotter.Renderscene(), 0) << side;
        EXPECT_EQ(Draw(Smoothing(3)), 0) << side;
        EXPECT_TRUE(IsOpenGlInOrder(plotter)) << side;
    }
}

TEST_F(PictureCalls, ScalesThatLeaveNothingAreRefused) {
    SKivoStyle style;
    style.pixelScale = 1e-30f;
    ASSERT_EQ(SetStyle(plotter, style), 0);
    SKivoPictureOptions options;
    options.width = width;
    options.height = height;
    options.scale = 1e-30f;
    EXPECT_EQ(Draw(options), -3);
    EXPECT_TRUE(IsOpenGlInOrder(plotter));
}

TEST_F(PictureCalls, RowsLongerThanAllMemoryAreRefused) {
    for (const std::size_t rowBytes :
         {static_cast<std::size_t>(-1200), std::numeric_limits<std::size_t>::max() / 4})
        EXPECT_EQ(DrawPicture(plotter, Smoothing(1), pixels.data(), rowBytes, KivoPixelOrder::rgba), -3);
}

// ---- Without the memory

TEST_F(PictureCalls, WithLittleMemoryTheyAreDrawnInTiles) {
    const Image whole = [&] {
        Image image(width, height);
        EXPECT_EQ(Draw(Smoothing(3)), 0);
        image.rgba = pixels;
        return image;
    }();
    plotter.OnDestroy();
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), width, height, true), 0);
    plot.Fill();
    const EglFault small(400L * 400);
    ASSERT_EQ(Draw(Smoothing(3)), 0);
    Image tiled(width, height);
    tiled.rgba = pixels;
    // Lines may step by a pixel where a tile begins.
    EXPECT_TRUE(ImagesAgree(tiled, whole, 64, 0.1, "little-memory"));
    const Holdings before;
    ASSERT_EQ(Draw(Smoothing(3)), 0); // in the surface that there is
    EXPECT_EQ(Holdings().resources, before.resources);
}

TEST_F(PictureCalls, WithoutMemoryTheyAreRefusedInWordsAndThePlotDrawsOn) {
    const Image before = CaptureImage(plotter);
    {
        const EglFault none(0L);
        EXPECT_EQ(Draw(Smoothing(2)), -1);
        EXPECT_THAT(LastWindowError(), testing::HasSubstr("smaller"));
        std::vector<unsigned char> rgba = {1, 2, 3};
        int pictureWidth = 7, pictureHeight = 8;
        EXPECT_EQ(CapturePicture(plotter, Smoothing(2), rgba, pictureWidth, pictureHeight), -1);
        EXPECT_EQ(rgba, (std::vector<unsigned char>{1, 2, 3}));
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
    }
    EXPECT_EQ(Draw(Smoothing(2)), 0);
}

TEST_F(PictureCalls, WithoutMemorySmoothFramesAreDrawnPlain) {
    plotter.m_hasTracePoint = 0; // its label takes memory in any frame
    const Image plain = CaptureImage(plotter);
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 2), 0);
    {
        RecordFailure(ERROR_GEN_FAILURE, "Words of before.");
        const EglFault none(0L);
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_TRUE(plot.window.Presented(plotter).rgba == plain.rgba);
        EXPECT_TRUE(CaptureImage(plotter).rgba == plain.rgba);
        EXPECT_EQ(CaptureImage(plotter, 200, 100).width, 200);
        EXPECT_STREQ(LastWindowError(), "Words of before.");
    }
    for (long n = 1; n < 20; ++n) {
        plotter.SetPlotTitle(n % 2 == 0 ? "A title" : "Another");
        AllocationFault fault(n, AllocationFault::Mode::onwards);
        const int result = plotter.Renderscene();
        fault.Stop();
        EXPECT_EQ(result, 0) << n;
        EXPECT_TRUE(IsOpenGlInOrder(plotter)) << n;
    }
}

TEST_F(PictureCalls, ThoseTooLargeForAVectorAreRefused) {
    SKivoPictureOptions options;
    options.width = 16384;
    options.height = 16384;
    std::vector<unsigned char> rgba;
    int pictureWidth = 0, pictureHeight = 0;
    AllocationFault fault(1);
    const int result = CapturePicture(plotter, options, rgba, pictureWidth, pictureHeight);
    fault.Stop();
    EXPECT_EQ(result, -1);
    EXPECT_THAT(LastWindowError(), testing::HasSubstr("memory"));
    EXPECT_EQ(pictureWidth, 0);
}
