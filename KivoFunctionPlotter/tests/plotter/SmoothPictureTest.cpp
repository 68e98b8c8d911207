// Pictures that are smoothed, scaled, transparent, and windows that are smooth.
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "KivoWindow.h"
#include "support/FilledPlot.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

// Sixteen and 84 hundredths of it are whole pixels, so that a plot times a factor is laid out as one times
// it.
constexpr int width = 300;
constexpr int height = 225;

SKivoPictureOptions Smoothing(int factor) {
    SKivoPictureOptions options;
    options.smoothing = factor;
    return options;
}

Image Draw(CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options) {
    Image image;
    EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0)
        << LastWindowError();
    return image;
}

Image AverageOf(const Image& large, int factor) {
    Image average(large.width / factor, large.height / factor);
    for (int y = 0; y < average.height; ++y)
        for (int x = 0; x < average.width; ++x)
            for (int channel = 0; channel < 4; ++channel) {
                int sum = 0;
                for (int row = 0; row < factor; ++row)
                    for (int column = 0; column < factor; ++column)
                        sum += large.Pixel(x * factor + column, y * factor + row)[channel];
                average.Pixel(x, y)[channel] = static_cast<unsigned char>(
                    std::floor(static_cast<double>(sum) / (factor * factor) + 0.5));
            }
    return average;
}

// What a window so many times as large shows with everything so many times as large.
Image LargePicture(WindowKind kind, float scale, void (*show)(PlotterProbe&)) {
    TestPlot large(kind, static_cast<int>(std::lround(width * scale)),
                   static_cast<int>(std::lround(height * scale)));
    FillPlot(large.plotter);
    SKivoStyle style;
    style.pixelScale = scale;
    EXPECT_EQ(SetStyle(large.plotter, style), 0);
    show(large.plotter);
    return CaptureImage(large.plotter);
}

void (*const modes[])(PlotterProbe&) = {[](PlotterProbe& plotter) { plotter.SwitchToNormalPlot(); },
                                        [](PlotterProbe& plotter) { plotter.SwitchToXYProjectPlot(); },
                                        [](PlotterProbe& plotter) { plotter.SwitchToYZProjectPlot(); },
                                        [](PlotterProbe& plotter) { plotter.SwitchToZXProjectPlot(); }};

class SmoothPicture : public WindowTest {
protected:
    SmoothPicture() { FillPlot(plotter); }

    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

// ---- Smoothing and scale

TEST_P(SmoothPicture, IsTheAverageOfOneThatIsSoManyTimesAsLarge) {
    for (const auto& mode : modes) {
        mode(plotter);
        for (int factor = 1; factor <= 4; ++factor) {
            const Image expected =
                AverageOf(LargePicture(GetParam(), static_cast<float>(factor), mode), factor);
            EXPECT_TRUE(ImagesAgree(Draw(plotter, Smoothing(factor)), expected, 0, 0,
                                    "smooth-" + std::to_string(factor)));
        }
    }
}

TEST_P(SmoothPicture, WithoutOptionsIsThePlainOne) {
    EXPECT_TRUE(ImagesAgree(Draw(plotter, {}), CaptureImage(plotter), 0, 0, "no-options"));
}

TEST_P(SmoothPicture, OfAScaleIsThatOfALargerWindow) {
    for (const float scale : {1.32f, 2.0f}) { // 396 x 297, 600 x 450
        SKivoPictureOptions options;
        options.scale = scale;
        EXPECT_TRUE(ImagesAgree(Draw(plotter, options), LargePicture(GetParam(), scale, modes[0]), 0, 0,
                                "scale-" + std::to_string(scale)));
    }
}

TEST_P(SmoothPicture, ItsScaleMultipliesThePlotsOwn) {
    SKivoStyle style;
    style.pixelScale = 0.5f;
    ASSERT_EQ(SetStyle(plotter, style), 0);
    SKivoPictureOptions options;
    options.scale = 2.0f;
    options.width = width;
    options.height = height;
    const Image picture = Draw(plotter, options);
    ASSERT_EQ(SetStyle(plotter, SKivoStyle()), 0);
    EXPECT_TRUE(ImagesAgree(picture, CaptureImage(plotter), 0, 0, "scale-of-scale"));
}

TEST_P(SmoothPicture, FollowsWhateverTheTextsBecome) {
    const auto fresh = [&] {
        TestPlot other(GetParam(), width, height);
        FillPlot(other.plotter);
        other.plotter.SetPlotTitle("Another");
        other.plotter.SetXAxisTickMarkNumber(9);
        other.plotter.SetZAxisFloatingPointPrecision(4);
        other.plotter.SetGradientColorRuleFloatingPointPrecision(1);
        other.plotter.SetMeasureGroupName(0, "Second");
        return Draw(other.plotter, Smoothing(2));
    };
    Draw(plotter, Smoothing(2));
    plotter.SetPlotTitle("Another");
    Draw(plotter, Smoothing(2));
    plotter.SetXAxisTickMarkNumber(9);
    plotter.SetZAxisFloatingPointPrecision(4);
    plotter.SetGradientColorRuleFloatingPointPrecision(1);
    plotter.SetMeasureGroupName(0, "Second");
    EXPECT_TRUE(ImagesAgree(Draw(plotter, Smoothing(2)), fresh(), 0, 0, "other-texts"));
    const Image before = CaptureImage(plotter);
    SKivoStyle style;
    style.inkColor = 0x000000C0;
    ASSERT_EQ(SetStyle(plotter, style), 0);
    EXPECT_GT(Compare(Draw(plotter, Smoothing(2)), fresh()).max, 100);
    ASSERT_EQ(SetStyle(plotter, SKivoStyle()), 0);
    EXPECT_TRUE(ImagesAgree(Draw(plotter, Smoothing(2)), fresh(), 0, 0, "other-ink-and-back"));
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), before, 0, 0, "plain-after-smooth"));
}

TEST_P(SmoothPicture, FollowsNewDataAndANewWindow) {
    Draw(plotter, Smoothing(3));
    const TestSurface surface = PlaneSurface(7, 5);
    plotter.SetData(surface.NewArray(), 7, 5, 1, 7, 3);
    TestPlot other(GetParam(), width, height);
    FillPlot(other.plotter);
    other.plotter.SetData(surface.NewArray(), 7, 5, 1, 7, 3);
    EXPECT_TRUE(
        ImagesAgree(Draw(plotter, Smoothing(3)), Draw(other.plotter, Smoothing(3)), 0, 0, "new-data"));
    plotter.OnDestroy();
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), width, height, true), 0);
    const Image empty = Draw(plotter, Smoothing(3));
    EXPECT_GT(Compare(empty, Draw(other.plotter, Smoothing(3))).max, 100);
}

// In one piece up to 33.5 million pixels that are drawn, in tiles beyond; those of the other have other
// borders.
TEST_P(SmoothPicture, OfManyTilesIsThatOfOne) {
    constexpr int side = 1500, factor = 4, tile = 2500;
    SKivoPictureOptions options = Smoothing(factor);
    options.width = side;
    options.height = side;
    TestPlot large(GetParam(), tile, tile);
    FillPlot(large.plotter);
    SKivoStyle style;
    style.pixelScale = factor;
    ASSERT_EQ(SetStyle(large.plotter, style), 0);
    const Image expected = AverageOf(CaptureImage(large.plotter, side * factor, side * factor), factor);
    // Lines may step by a pixel where a tile begins.
    EXPECT_TRUE(ImagesAgree(Draw(plotter, options), expected, 64, 0.002, "smooth-tiles"));
}

// The place of the lights depends on the matrix that was loaded last.
TEST_P(SmoothPicture, LeavesNoTraceInThePlot) {
    const auto picture = [&](bool isSmoothBetween) {
        TestPlot other(GetParam(), width, height);
        FillPlot(other.plotter);
        other.plotter.Rotate(POINT{0, 0}, POINT{41, 17});
        CaptureImage(other.plotter);
        if (isSmoothBetween) {
            SKivoPictureOptions options = Smoothing(2);
            options.width = 500;
            options.scale = 2.0f;
            Draw(other.plotter, options);
        }
        const TestSurface surface = PlaneSurface(7, 5);
        other.plotter.SetData(surface.NewArray(), 7, 5, 1, 7, 3);
        return CaptureImage(other.plotter);
    };
    EXPECT_TRUE(ImagesAgree(picture(true), picture(false), 0, 0, "no-trace"));
}

// And so does that of new data's lights after a frame.
TEST_P(SmoothPicture, WindowsAreLitAlikeAfterwards) {
    const auto picture = [&](int smoothing) {
        TestPlot other(GetParam(), width, height);
        EXPECT_EQ(SetWindowSmoothing(other.window.Handle(), smoothing), 0);
        FillPlot(other.plotter);
        other.plotter.m_panFractionX = 0.3; // no member has loaded the matrix of this view
        other.plotter.Renderscene();
        EXPECT_EQ(SetWindowSmoothing(other.window.Handle(), 1), 0);
        const TestSurface surface = PlaneSurface(7, 5);
        other.plotter.SetData(surface.NewArray(), 7, 5, 1, 7, 3);
        return CaptureImage(other.plotter);
    };
    EXPECT_TRUE(ImagesAgree(picture(2), picture(1), 0, 0, "lights-after-smooth"));
}

// ---- Into a buffer

TEST_P(SmoothPicture, IsWrittenAsTheBufferIsLaidOut) {
    const Image expected = Draw(plotter, Smoothing(2));
    constexpr unsigned char untouched = 0xA5;
    for (const KivoPixelOrder order : {KivoPixelOrder::rgba, KivoPixelOrder::bgra})
        for (const std::size_t padding : {0, 4, 13}) {
            const std::size_t rowBytes = width * 4 + padding;
            std::vector<unsigned char> buffer(rowBytes * height, untouched);
            ASSERT_EQ(DrawPicture(plotter, Smoothing(2), buffer.data(), rowBytes, order), 0);
            const bool isTurned = order == KivoPixelOrder::bgra;
            for (int y = 0; y < height; ++y) {
                const unsigned char* const row = buffer.data() + y * rowBytes;
                for (int x = 0; x < width; ++x)
                    for (int channel = 0; channel < 4; ++channel) {
                        const int place = isTurned && channel < 3 ? 2 - channel : channel;
                        ASSERT_EQ(row[x * 4 + place], expected.Pixel(x, y)[channel]) << x << ", " << y;
                    }
                ASSERT_EQ(std::count(row + width * 4, row + rowBytes, untouched), static_cast<int>(padding));
            }
        }
}

TEST_P(SmoothPicture, IsMeasuredAsItIsDrawn) {
    const struct {
        int givenWidth, givenHeight;
        float scale;
        int width, height;
    } cases[] = {{0, 0, 1.0f, 300, 225}, {0, 0, 0.5f, 150, 113}, {0, 0, 2.0f, 600, 450},
                 {0, 40, 2.0f, 600, 40}, {77, 0, 1.0f, 77, 225}, {16384, 3, 8.0f, 16384, 3}};
    for (const auto& [givenWidth, givenHeight, scale, wantedWidth, wantedHeight] : cases) {
        SKivoPictureOptions options;
        options.width = givenWidth;
        options.height = givenHeight;
        options.scale = scale;
        int measuredWidth = 0, measuredHeight = 0;
        EXPECT_EQ(MeasurePicture(plotter, options, measuredWidth, measuredHeight), 0);
        EXPECT_EQ(measuredWidth, wantedWidth);
        EXPECT_EQ(measuredHeight, wantedHeight);
        const Image image = Draw(plotter, options);
        EXPECT_EQ(image.width, wantedWidth);
        EXPECT_EQ(image.height, wantedHeight);
    }
}

// ---- Refusals

namespace {

std::vector<SKivoPictureOptions> BadOptions() {
    constexpr float infinite = std::numeric_limits<float>::infinity();
    std::vector<SKivoPictureOptions> all;
    for (const float scale : {0.0f, -1.0f, 8.01f, infinite, -infinite, std::nanf("")}) {
        all.emplace_back();
        all.back().scale = scale;
    }
    for (const int smoothing : {0, -1, 5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        all.push_back(Smoothing(smoothing));
    for (const int side : {-1, 16385, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        all.emplace_back();
        all.back().width = side;
        all.emplace_back();
        all.back().height = side;
    }
    all.emplace_back();
    all.back().scale = 0.001f; // of the window's size nothing is left
    return all;
}

void ExpectRefused(CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options, int result) {
    std::vector<unsigned char> rgba = {1, 2, 3}, pixels(64, 9);
    int pictureWidth = 7, pictureHeight = 8;
    EXPECT_EQ(CapturePicture(plotter, options, rgba, pictureWidth, pictureHeight), result);
    EXPECT_EQ(MeasurePicture(plotter, options, pictureWidth, pictureHeight), result);
    EXPECT_EQ(DrawPicture(plotter, options, pixels.data(), 1 << 20, KivoPixelOrder::rgba), result);
    EXPECT_EQ(rgba, (std::vector<unsigned char>{1, 2, 3}));
    EXPECT_EQ(pixels, std::vector<unsigned char>(64, 9));
    EXPECT_EQ(pictureWidth, 7);
    EXPECT_EQ(pictureHeight, 8);
}

} // namespace

TEST_P(SmoothPicture, OptionsBeyondTheirLimitsChangeNothing) {
    const Image before = CaptureImage(plotter);
    for (const SKivoPictureOptions& options : BadOptions()) {
        SCOPED_TRACE(testing::Message() << options.scale << ", " << options.smoothing << ", " << options.width
                                        << " x " << options.height);
        ExpectRefused(plotter, options, -3);
    }
    unsigned char pixel[4] = {9, 9, 9, 9};
    EXPECT_EQ(DrawPicture(plotter, {}, nullptr, width * 4, KivoPixelOrder::rgba), -3);
    EXPECT_EQ(DrawPicture(plotter, {}, pixel, width * 4 - 1, KivoPixelOrder::rgba), -3);
    EXPECT_EQ(pixel[0], 9);
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), before, 0, 0, "after-refusals"));
}

TEST_P(SmoothPicture, TheScalesTogetherHaveALimit) {
    SKivoStyle style;
    style.pixelScale = 8.0f;
    ASSERT_EQ(SetStyle(plotter, style), 0);
    SKivoPictureOptions options;
    options.width = width;
    options.height = height;
    options.scale = 4.0f;
    options.smoothing = 4;
    Draw(plotter, options);
    options.scale = 4.5f;
    ExpectRefused(plotter, options, -3);
}

TEST_P(SmoothPicture, NeedsAWindowAndAContext) {
    PlotterProbe none;
    ExpectRefused(none, Smoothing(2), -1);
    plotter.OnDestroy();
    ExpectRefused(plotter, Smoothing(2), -1);
}

// ---- A transparent ground

TEST_P(SmoothPicture, TransparentGivesEveryGroundWhatItWouldHave) {
    for (const auto& mode : modes) {
        mode(plotter);
        SKivoPictureOptions options = Smoothing(2);
        const Image opaque = Draw(plotter, options);
        options.transparent = true;
        Image clear = Draw(plotter, options);
        EXPECT_GT(clear.Count([](const unsigned char* p) { return p[3] == 0; }), width * height / 4);
        EXPECT_GT(clear.Count([](const unsigned char* p) { return p[3] == 255; }), 500);
        EXPECT_GT(clear.Count([](const unsigned char* p) { return p[3] > 50 && p[3] < 200; }), 100);
        const int ground[] = {255, 253, 233};
        for (std::size_t i = 0; i < clear.rgba.size(); i += 4)
            for (std::size_t channel = 0; channel < 3; ++channel) {
                const double share = clear.rgba[i + 3] / 255.0;
                clear.rgba[i + channel] = static_cast<unsigned char>(
                    std::lround(clear.rgba[i + channel] * share + ground[channel] * (1.0 - share)));
            }
        EXPECT_TRUE(ImagesAgree(clear, opaque, 2, 0.5, "transparent"));
    }
}

// ---- Windows

TEST_P(SmoothPicture, WindowsShowSmoothFrames) {
    const HWND window = plot.window.Handle();
    EXPECT_EQ(GetWindowSmoothing(window), 1);
    const Image plain = CaptureImage(plotter);
    for (const int factor : {2, 4, 1}) {
        ASSERT_EQ(SetWindowSmoothing(window, factor), 0);
        EXPECT_EQ(GetWindowSmoothing(window), factor);
        EXPECT_EQ(plotter.Renderscene(), 0);
        plot.window.HandleMessages();
        const Image expected = factor == 1 ? plain : Draw(plotter, Smoothing(factor));
        EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), expected, 0, 0, "smooth-window-capture"));
        const Image presented = plot.window.Presented(plotter);
        if (presented.rgba.empty()) continue;
        EXPECT_TRUE(ImagesAgree(presented, expected, 0, 0, "smooth-window-" + std::to_string(factor)));
    }
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(SmoothPicture, WindowsOfAnotherSizeAreSmoothWithTheNextFrame) {
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 2), 0);
    plotter.Renderscene();
    plot.window.Resize(200, 250);
    plotter.OnSize(0, 200, 250);
    EXPECT_EQ(plotter.Renderscene(), 0);
    plot.window.HandleMessages();
    const Image presented = plot.window.Presented(plotter);
    if (presented.rgba.empty()) GTEST_SKIP() << "the window cannot be seen";
    EXPECT_TRUE(ImagesAgree(presented, Draw(plotter, Smoothing(2)), 0, 0, "smooth-resized"));
}

TEST_P(SmoothPicture, WindowsKeepPicturesOfASizeSmooth) {
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 2), 0);
    SKivoPictureOptions options = Smoothing(2);
    options.width = 450;
    options.height = 350;
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter, 450, 350), Draw(plotter, options), 0, 0, "smooth-sized"));
    ASSERT_EQ(SetWindowSmoothing(plot.window.Handle(), 1), 0);
}

TEST_P(SmoothPicture, WindowsRefuseOtherFactors) {
    const HWND window = plot.window.Handle();
    ASSERT_EQ(SetWindowSmoothing(window, 3), 0);
    for (const int factor : {0, -1, 5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_EQ(SetWindowSmoothing(window, factor), -1) << factor;
    EXPECT_EQ(GetWindowSmoothing(window), 3);
    EXPECT_EQ(SetWindowSmoothing(nullptr, 2), -1);
    EXPECT_EQ(GetWindowSmoothing(nullptr), 1);
    ASSERT_EQ(SetWindowSmoothing(window, 1), 0);
}

// Off-screen what is plain and as large as the window is drawn in it; nothing else is.
TEST_P(SmoothPicture, ThatIsPlainIsWhatItIsInOtherWays) {
    EXPECT_TRUE(ImagesAgree(Draw(plotter, Smoothing(1)), CaptureImage(plotter), 0, 0.0, "plain"));
    SKivoPictureOptions sized;
    sized.width = 200;
    sized.height = 330;
    EXPECT_TRUE(ImagesAgree(Draw(plotter, sized), CaptureImage(plotter, 200, 330), 0, 0.0, "plain-sized"));
    SKivoPictureOptions transparent;
    transparent.transparent = true;
    const Image clear = Draw(plotter, transparent);
    EXPECT_EQ(clear.Pixel(width - 1, 0)[3], 0);
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), Draw(plotter, Smoothing(1)), 0, 0.0, "plain-again"));
}

KIVO_IN_EVERY_WINDOW(SmoothPicture);
