// What a plot is drawn with: everything in its place at every pixel scale, and what stays.
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "KivoWindow.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/FilledPlot.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 600;
constexpr int height = 400;
constexpr float scales[] = {1.25f, 1.5f, 2.0f, 3.0f};

class StyledPlotter : public PlotterProbe {
public:
    using CKivoFunctionPlotter::RenderLegend;
};

SKivoStyle Scaled(float scale) {
    SKivoStyle style;
    style.pixelScale = scale;
    return style;
}

int Times(float scale, int pixels) {
    return static_cast<int>(std::lround(scale * static_cast<float>(pixels)));
}

// A plot in a window of a scale's size.
struct StyledPlot {
    explicit StyledPlot(float windowScale = 1.0f)
        : window(WindowKind::offscreen, Times(windowScale, width), Times(windowScale, height)) {}

    void Create() { ASSERT_EQ(plotter.OnCreate(window.Handle(), window.Width(), window.Height(), true), 0); }

    Drawing RecordFrame(bool hasLegend = false) {
        const CurrentContext context(plotter);
        return Record([&] {
            plotter.DrawScene();
            if (hasLegend) plotter.RenderLegend();
        });
    }

    TestWindow window;
    StyledPlotter plotter;
};

// A mode of the plot, and a view of it.
struct Shown {
    const char* name;
    int (CKivoFunctionPlotter::*show)();
    int turn; ///< pixels of a plot at scale 1
};
const Shown allShown[] = {{"the start view", &CKivoFunctionPlotter::SwitchToNormalPlot, 0},
                          {"turned", &CKivoFunctionPlotter::SwitchToNormalPlot, 160},
                          {"x and y", &CKivoFunctionPlotter::SwitchToXYProjectPlot, 0},
                          {"y and z", &CKivoFunctionPlotter::SwitchToYZProjectPlot, 0},
                          {"x and z", &CKivoFunctionPlotter::SwitchToZXProjectPlot, 0}};

void Show(StyledPlot& plot, const Shown& shown, float scale) {
    (plot.plotter.*shown.show)();
    if (shown.turn != 0)
        plot.plotter.Rotate({100, 100}, {100 + Times(scale, shown.turn), 100 + Times(scale, shown.turn / 5)});
}

bool IsTextured(const DrawnPrimitive& primitive) {
    return primitive.size() >= 3 &&
           std::any_of(primitive.begin(), primitive.end(),
                       [&](const DrawnVertex& vertex) { return vertex.texture != primitive[0].texture; });
}

Drawing WithoutTexts(const Drawing& drawing) {
    Drawing rest;
    std::copy_if(drawing.begin(), drawing.end(), std::back_inserter(rest),
                 [](const DrawnPrimitive& primitive) { return !IsTextured(primitive); });
    return rest;
}

// How far a corner of the one is from that of the other, at most, in pixels of the other.
double FarthestCorner(const Drawing& scaled, const Drawing& plain, double scale) {
    if (scaled.size() != plain.size()) return 1e9;
    double farthest = 0.0;
    for (std::size_t i = 0; i < scaled.size(); ++i) {
        if (scaled[i].size() != plain[i].size()) return 1e9;
        for (std::size_t k = 0; k < scaled[i].size(); ++k)
            farthest = std::max({farthest, std::abs(scaled[i][k].x / scale - plain[i][k].x),
                                 std::abs(scaled[i][k].y / scale - plain[i][k].y)});
    }
    return farthest;
}

double FarthestCenter(const std::vector<DrawnQuad>& scaled, const std::vector<DrawnQuad>& plain,
                      double scale) {
    if (scaled.size() != plain.size()) return 1e9;
    double farthest = 0.0;
    for (std::size_t i = 0; i < scaled.size(); ++i)
        farthest = std::max({farthest, std::abs(scaled[i].CenterX() / scale - plain[i].CenterX()),
                             std::abs(scaled[i].CenterY() / scale - plain[i].CenterY())});
    return farthest;
}

std::vector<SKivoTexImage*> ImagesOf(const StyledPlotter& plotter) {
    std::vector<SKivoTexImage*> images = {plotter.m_plotTitleImage};
    for (int axis = 0; axis < 3; ++axis) {
        images.push_back(&plotter.m_gridBox->m_axisTitleImage[axis]);
        for (unsigned int i = 0; i <= plotter.m_gridBox->m_tickIntervals[axis]; ++i)
            images.push_back(&plotter.m_gridBox->m_tickLabels[axis][i]);
    }
    for (const CKivoGradientColorRuler* ruler :
         {plotter.m_xColorRuler, plotter.m_yColorRuler, plotter.m_zColorRuler})
        for (unsigned int i = 0; i <= ruler->m_divisionCount; ++i)
            images.push_back(&ruler->m_labels[i]);
    for (CKivoMeasurePointGroup* group : plotter.m_measureGroups->m_groups)
        images.push_back(&group->m_nameImage);
    return images;
}

} // namespace

// To a pixel: heights of texts are whole pixels.
TEST(PixelScale, EverythingIsWhereItIsAtOne) {
    constexpr double aPixel = 1.0;
    for (const float scale : scales) {
        StyledPlot plain, scaled(scale);
        for (StyledPlot* const plot : {&plain, &scaled}) {
            plot->Create();
            FillPlot(plot->plotter);
        }
        ASSERT_EQ(SetStyle(scaled.plotter, Scaled(scale)), 0);
        for (const Shown& shown : allShown) {
            SCOPED_TRACE(testing::Message() << scale << ", " << shown.name);
            Show(plain, shown, 1.0f);
            Show(scaled, shown, scale);
            Drawing expected = plain.RecordFrame(), actual = scaled.RecordFrame();
            EXPECT_LT(FarthestCorner(WithoutTexts(actual), WithoutTexts(expected), double{scale}), 0.05)
                << "lines, ticks, markers, surface, bar";
            EXPECT_GT(TexturedQuads(expected).size(), 20u);
            EXPECT_LT(FarthestCenter(TexturedQuads(actual), TexturedQuads(expected), double{scale}), aPixel)
                << "texts";
            expected = plain.RecordFrame(true), actual = scaled.RecordFrame(true);
            EXPECT_LT(FarthestCorner(WithoutTexts(actual), WithoutTexts(expected), double{scale}), aPixel)
                << "squares of the groups";
            EXPECT_LT(FarthestCenter(TexturedQuads(actual), TexturedQuads(expected), double{scale}), aPixel)
                << "names of the groups";
        }
    }
}

namespace {

// Each pixel is the mean of the square that takes its place at a whole scale.
Image AveragedDown(const Image& image, int scale) {
    Image small(image.width / scale, image.height / scale);
    for (int y = 0; y < small.height; ++y)
        for (int x = 0; x < small.width; ++x)
            for (int channel = 0; channel < 4; ++channel) {
                int sum = 0;
                for (int i = 0; i < scale * scale; ++i)
                    sum += image.Pixel(x * scale + i % scale, y * scale + i / scale)[channel];
                small.Pixel(x, y)[channel] = static_cast<unsigned char>(sum / (scale * scale));
            }
    return small;
}

// The share of the ink that a picture has where another has none near by, either way.
double ShareElsewhere(const Image& a, const Image& b) {
    const auto isInk = [](const Image& image, int x, int y) { return image.Pixel(x, y)[1] < 100; };
    int ink = 0, alone = 0;
    for (int y = 2; y < a.height - 2; ++y)
        for (int x = 2; x < a.width - 2; ++x) {
            if (!isInk(a, x, y)) continue;
            ++ink;
            bool isNear = false;
            for (int i = 0; i < 25 && !isNear; ++i)
                isNear = b.Pixel(x + i % 5 - 2, y + i / 5 - 2)[1] < 200;
            if (!isNear) ++alone;
        }
    return ink == 0 ? 1.0 : static_cast<double>(alone) / ink;
}

} // namespace

TEST(PixelScale, AveragedDownThePictureIsTheSame) {
    StyledPlot plain;
    plain.Create();
    FillPlot(plain.plotter);
    for (const int scale : {2, 3}) {
        StyledPlot scaled(static_cast<float>(scale));
        scaled.Create();
        FillPlot(scaled.plotter);
        Show(plain, allShown[0], 1.0f);
        const Image unscaled = AveragedDown(CaptureImage(scaled.plotter), scale);
        EXPECT_GT(ShareElsewhere(CaptureImage(plain.plotter), unscaled), 0.1) << "what is to be told apart";
        ASSERT_EQ(SetStyle(scaled.plotter, Scaled(static_cast<float>(scale))), 0);
        for (const Shown& shown : allShown) {
            SCOPED_TRACE(testing::Message() << scale << ", " << shown.name);
            Show(plain, shown, 1.0f);
            Show(scaled, shown, static_cast<float>(scale));
            const Image expected = CaptureImage(plain.plotter);
            const Image actual = AveragedDown(CaptureImage(scaled.plotter), scale);
            EXPECT_LT(ShareElsewhere(expected, actual), 0.02);
            EXPECT_LT(ShareElsewhere(actual, expected), 0.02);
            EXPECT_LT(Compare(actual, expected).mean, 6.0);
        }
    }
}

TEST(PixelScale, LongTitlesHaveTwoLinesOfTheScaledWidth) {
    for (const float scale : {1.0f, 1.5f, 3.0f}) {
        StyledPlot plot;
        plot.Create();
        plot.plotter.SetPlotTitle(std::string(90, 'n').c_str());
        EXPECT_EQ(plot.plotter.m_plotTitleImage->width, 512);
        SetStyle(plot.plotter, Scaled(scale));
        EXPECT_EQ(plot.plotter.m_plotTitleImage->width, Times(scale, 512));
    }
}

TEST(PixelScale, FontsHaveTheHeightOfTheRoundedPixels) {
    StyledPlot plot;
    plot.Create();
    const STextRenderer& renderer = *plot.plotter.m_textRenderer;
    const LONG plain = renderer.m_fontDescription.lfHeight;
    EXPECT_LT(plain, -10);
    for (const float scale : {1.25f, 1.5f, 2.0f, 3.0f, 8.0f, 0.5f}) {
        ASSERT_EQ(SetStyle(plot.plotter, Scaled(scale)), 0);
        EXPECT_EQ(renderer.m_fontDescription.lfHeight, -Times(scale, static_cast<int>(-plain))) << scale;
    }
    ASSERT_EQ(SetStyle(plot.plotter, Scaled(1e-30f)), 0);
    EXPECT_EQ(renderer.m_fontDescription.lfHeight, -1) << "0 would ask for a height of the system's choice";
}

TEST(PixelScale, WhatTheHostSetsInPixelsKeepsItsNumber) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    plot.plotter.SetCurveWidth(0, 2.5f);
    SetStyle(plot.plotter, Scaled(2.0f));
    plot.RecordFrame();
    EXPECT_EQ(plot.plotter.GetPointRadiusPixelSize(), 4u);
    EXPECT_EQ(plot.plotter.m_pointRadiusPixelSize, 4.0f);
    EXPECT_EQ(plot.plotter.m_curveWidths[0], 2.5f);
    EXPECT_EQ(plot.plotter.m_gridBox->m_tickLength, 10.0f);
    EXPECT_EQ(plot.plotter.m_gridBox->m_labelOffset, 12.5f);
}

// ---- When it may be set, and what stays

TEST(Style, IsNeutralAtFirst) {
    StyledPlot plot;
    EXPECT_EQ(GetStyle(plot.plotter).pixelScale, 1.0f);
    plot.Create();
    EXPECT_EQ(GetStyle(plot.plotter).pixelScale, 1.0f);
}

TEST(Style, ScalesThatAreNoneAreRefusedAndChangeNothing) {
    using Limits = std::numeric_limits<float>;
    StyledPlot plot, never;
    plot.Create();
    FillPlot(plot.plotter);
    ASSERT_EQ(SetStyle(plot.plotter, Scaled(1.5f)), 0);
    const unsigned int lists = plot.plotter.m_fontListBase;
    const unsigned int texture = plot.plotter.m_plotTitleImage->texture;
    const Image before = CaptureImage(plot.plotter);
    for (const float scale : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 0.0f, -0.0f,
                              -1.0f, -Limits::denorm_min(), std::nextafter(8.0f, 9.0f), Limits::max()}) {
        EXPECT_EQ(SetStyle(plot.plotter, Scaled(scale)), -3) << scale;
        EXPECT_EQ(SetStyle(never.plotter, Scaled(scale)), -3) << scale;
    }
    EXPECT_EQ(GetStyle(plot.plotter).pixelScale, 1.5f);
    EXPECT_EQ(GetStyle(never.plotter).pixelScale, 1.0f);
    EXPECT_EQ(plot.plotter.m_fontListBase, lists);
    EXPECT_EQ(plot.plotter.m_plotTitleImage->texture, texture);
    EXPECT_TRUE(ImagesAgree(CaptureImage(plot.plotter), before, 0, 0, "refused"));
    EXPECT_EQ(SetStyle(plot.plotter, Scaled(8.0f)), 0) << "the largest";
}

TEST(Style, BeforeOnCreateAndBeforeOrAfterDataIsTheSame) {
    StyledPlot before, between, after;
    EXPECT_EQ(SetStyle(before.plotter, Scaled(1.5f)), 0);
    for (StyledPlot* const plot : {&before, &between, &after})
        plot->Create();
    EXPECT_EQ(SetStyle(between.plotter, Scaled(1.5f)), 0);
    for (StyledPlot* const plot : {&before, &between, &after})
        FillPlot(plot->plotter);
    const Image plain = CaptureImage(after.plotter);
    EXPECT_EQ(SetStyle(after.plotter, Scaled(1.5f)), 0);
    for (const Shown& shown : allShown) {
        for (StyledPlot* const plot : {&before, &between, &after})
            Show(*plot, shown, 1.0f);
        const Image expected = CaptureImage(after.plotter);
        EXPECT_TRUE(ImagesAgree(CaptureImage(before.plotter), expected, 0, 0, "before"));
        EXPECT_TRUE(ImagesAgree(CaptureImage(between.plotter), expected, 0, 0, "between"));
        EXPECT_GT(Compare(expected, plain).mean, 0.5);
    }
}

TEST(Style, BackAtOneThePictureIsAsBefore) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    for (const Shown& shown : allShown) {
        Show(plot, shown, 1.0f);
        const Image before = CaptureImage(plot.plotter);
        ASSERT_EQ(SetStyle(plot.plotter, Scaled(2.0f)), 0);
        EXPECT_GT(Compare(CaptureImage(plot.plotter), before).mean, 0.5);
        ASSERT_EQ(SetStyle(plot.plotter, Scaled(1.0f)), 0);
        EXPECT_TRUE(ImagesAgree(CaptureImage(plot.plotter), before, 0, 0, "back"));
    }
}

TEST(Style, ViewDataCurvesAndGroupsStay) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    Show(plot, allShown[1], 1.0f);
    plot.plotter.Zoom(0.8f);
    plot.plotter.ShowMeasureGroup(1, false);
    const StyledPlotter& p = plot.plotter;
    const std::vector<double> view = {p.m_viewLeft, p.m_viewRight, p.m_viewBottom, p.m_viewTop, p.m_viewNear};
    const std::vector<double> rotation(p.m_rotationMatrix, p.m_rotationMatrix + 16);
    const float* const points = p.m_points;
    const float* const colors = p.m_colorArray;
    ASSERT_EQ(SetStyle(plot.plotter, Scaled(3.0f)), 0);
    EXPECT_EQ((std::vector<double>{p.m_viewLeft, p.m_viewRight, p.m_viewBottom, p.m_viewTop, p.m_viewNear}),
              view);
    EXPECT_EQ(std::vector<double>(p.m_rotationMatrix, p.m_rotationMatrix + 16), rotation);
    EXPECT_EQ(p.m_points, points);
    EXPECT_EQ(p.m_colorArray, colors);
    EXPECT_EQ(p.m_curveData.size(), 1u);
    EXPECT_EQ(plot.plotter.GetNumMeasureGroups(), 2u);
    EXPECT_FALSE(plot.plotter.IsShowMeasureGroup(1));
    EXPECT_EQ(p.m_hasTracePoint, 1);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST(Style, ImagesOfAllTextsAreMadeAnewAtOnce) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    const std::vector<SKivoTexImage*> images = ImagesOf(plot.plotter);
    std::vector<int> heights;
    for (const SKivoTexImage* image : images)
        heights.push_back(image->height);
    ASSERT_EQ(SetStyle(plot.plotter, Scaled(3.0f)), 0);
    for (std::size_t i = 0; i < images.size(); ++i)
        EXPECT_NEAR(images[i]->height, 3 * heights[i], 3) << i;
}

TEST(Style, StaysThroughOnDestroyAndOnCreate) {
    StyledPlot plot, expected;
    plot.Create();
    FillPlot(plot.plotter);
    ASSERT_EQ(SetStyle(plot.plotter, Scaled(1.5f)), 0);
    EXPECT_EQ(plot.plotter.OnDestroy(), 0);
    EXPECT_EQ(GetStyle(plot.plotter).pixelScale, 1.5f);
    plot.Create();
    EXPECT_EQ(GetStyle(plot.plotter).pixelScale, 1.5f);
    EXPECT_EQ(SetStyle(plot.plotter, Scaled(2.0f)), 0);
    EXPECT_EQ(plot.plotter.m_plotTitleImage->texture, 0u) << "it shows once it has been set anew";
    plot.plotter.SetPlotTitle("Title");
    expected.Create();
    expected.plotter.SetPlotTitle("Title");
    SetStyle(expected.plotter, Scaled(2.0f));
    EXPECT_EQ(plot.plotter.m_plotTitleImage->height, expected.plotter.m_plotTitleImage->height);
}

TEST(Style, IsEachPlottersOwn) {
    StyledPlot plain, scaled, alone;
    for (StyledPlot* const plot : {&plain, &scaled, &alone}) {
        plot->Create();
        FillPlot(plot->plotter);
    }
    const Image expected = CaptureImage(plain.plotter);
    SetStyle(alone.plotter, Scaled(2.0f));
    const Image twice = CaptureImage(alone.plotter);
    SetStyle(scaled.plotter, Scaled(2.0f));
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(ImagesAgree(CaptureImage(plain.plotter), expected, 0, 0, "plain"));
        EXPECT_TRUE(ImagesAgree(CaptureImage(scaled.plotter), twice, 0, 0, "scaled"));
    }
}

// What a host draws with OpenGL's lists of letters.
TEST(Style, ListsOfLettersAreMadeAnewAndTheOldOnesGivenBack) {
    StyledPlot plot;
    plot.Create();
    const unsigned int before = plot.plotter.m_fontListBase;
    ASSERT_EQ(SetStyle(plot.plotter, Scaled(2.0f)), 0);
    const CurrentContext context(plot.plotter);
    EXPECT_NE(plot.plotter.m_fontListBase, before);
    EXPECT_TRUE(glIsList(plot.plotter.m_fontListBase + 'A'));
    EXPECT_FALSE(glIsList(before + 'A'));
}

TEST(Style, WithoutItsContextNothingChanges) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    const HGLRC context = plot.plotter.m_hGLRC;
    plot.plotter.m_hGLRC = reinterpret_cast<HGLRC>(&plot); // none of the system's
    EXPECT_EQ(SetStyle(plot.plotter, Scaled(2.0f)), -1);
    plot.plotter.m_hGLRC = context;
    EXPECT_EQ(GetStyle(plot.plotter).pixelScale, 1.0f);
}

// ---- Ink

namespace {

// Relative luminance and contrast as the Web Content Accessibility Guidelines define them.
double Luminance(const unsigned char* rgb) {
    const auto linear = [](unsigned char byte) {
        const double value = byte / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(rgb[0]) + 0.7152 * linear(rgb[1]) + 0.0722 * linear(rgb[2]);
}

double Contrast(const unsigned char* a, const unsigned char* b) {
    const double first = Luminance(a), second = Luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// The best that the pixels of a rectangle have; y upwards.
double BestContrast(const Image& image, int left, int bottom, int right, int top,
                    const unsigned char* ground) {
    double best = 1.0;
    for (int y = bottom; y < top; ++y)
        for (int x = left; x < right; ++x)
            best = std::max(best, Contrast(image.Pixel(x, image.height - 1 - y), ground));
    return best;
}

double ContrastOf(const DrawnQuad& text, const Image& image, const unsigned char* ground) {
    const auto range = [&](double DrawnVertex::*coordinate) {
        const auto less = [&](const DrawnVertex& a, const DrawnVertex& b) {
            return a.*coordinate < b.*coordinate;
        };
        const auto ends = std::minmax_element(text.corners.begin(), text.corners.end(), less);
        return std::pair{static_cast<int>(ends.first->*coordinate),
                         static_cast<int>(ends.second->*coordinate)};
    };
    const auto [left, right] = range(&DrawnVertex::x);
    const auto [bottom, top] = range(&DrawnVertex::y);
    return BestContrast(image, left, bottom, right, top, ground);
}

struct Ground {
    const char* name;
    unsigned char rgb[3];
    unsigned long ink;
};
const Ground grounds[] = {{"white", {255, 255, 255}, 0},
                          {"cream", {255, 253, 233}, 0},
                          {"white, blue", {255, 255, 255}, 0x800000},
                          {"dark grey", {48, 48, 48}, 0x00F0F0F0},
                          {"black", {0, 0, 0}, 0x00FFFFFF},
                          {"black, amber", {0, 0, 0}, 0x0040C0FF}};

SKivoStyle Inked(unsigned long ink) {
    SKivoStyle style;
    style.inkColor = ink;
    return style;
}

unsigned long ColorOf(const unsigned char* rgb) {
    return rgb[0] | static_cast<unsigned long>(rgb[1]) << 8 | static_cast<unsigned long>(rgb[2]) << 16;
}

std::array<float, 3> Rgb(unsigned long color) {
    const auto channel = [&](int i) { return static_cast<float>(color >> 8 * i & 0xFF) / 255.0f; };
    return {channel(0), channel(1), channel(2)};
}

} // namespace

TEST(Ink, TextsHaveContrastEnoughOnEveryGround) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    for (const Ground& ground : grounds) {
        plot.plotter.SetBackgroundColor(ColorOf(ground.rgb));
        ASSERT_EQ(SetStyle(plot.plotter, Inked(ground.ink)), 0);
        for (const Shown& shown : allShown) {
            SCOPED_TRACE(testing::Message() << ground.name << ", " << shown.name);
            Show(plot, shown, 1.0f);
            const Image image = CaptureImage(plot.plotter);
            const std::vector<DrawnQuad> texts = TexturedQuads(plot.RecordFrame());
            EXPECT_GT(texts.size(), 20u);
            for (std::size_t i = 0; i < texts.size(); ++i)
                EXPECT_GE(ContrastOf(texts[i], image, ground.rgb), 4.5) << i;
        }
    }
}

TEST(Ink, OutlinesAndTicksHaveItAndNothingIsLeftBlack) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    plot.plotter.ShowFrameLines(false);
    const unsigned long ink = 0x00E0C8F0;
    for (const Shown& shown : allShown) {
        Show(plot, shown, 1.0f);
        ASSERT_EQ(SetStyle(plot.plotter, SKivoStyle()), 0);
        const Drawing before = plot.RecordFrame();
        const std::size_t count = LinesOfColor(before, Rgb(0)).size();
        EXPECT_GT(count, 5u);
        ASSERT_EQ(SetStyle(plot.plotter, Inked(ink)), 0);
        const Drawing drawing = plot.RecordFrame();
        EXPECT_EQ(LinesOfColor(drawing, Rgb(ink)).size(), count);
        EXPECT_TRUE(LinesOfColor(drawing, Rgb(0)).empty());
        EXPECT_EQ(drawing.size(), before.size());
    }
}

// A fifth and seven tenths of the way from the ground to the ink.
TEST(Ink, GridAndGuideLinesLieBetweenItAndTheGround) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    const std::array<float, 3> grid = {0.8f, 0.8f, 0.8f}, guide = {0.3f, 0.3f, 0.3f};
    plot.plotter.SetBackgroundColor(0.0f, 0.0f, 0.0f, 1.0f);
    const Drawing black = plot.RecordFrame();
    const std::size_t gridCount = LinesOfColor(black, grid).size(),
                      guideCount = LinesOfColor(black, guide).size();
    EXPECT_GT(gridCount, 20u) << "as they are on white";
    EXPECT_EQ(guideCount, 6u);
    ASSERT_EQ(SetStyle(plot.plotter, Inked(0x00FFFFFF)), 0);
    Drawing drawing = plot.RecordFrame();
    EXPECT_EQ(LinesOfColor(drawing, {0.2f, 0.2f, 0.2f}).size(), gridCount);
    EXPECT_EQ(LinesOfColor(drawing, {0.7f, 0.7f, 0.7f}).size(), guideCount);
    plot.plotter.SetBackgroundColor(0.0f, 0.5f, 1.0f, 1.0f); // they follow it
    drawing = plot.RecordFrame();
    EXPECT_EQ(LinesOfColor(drawing, {0.2f, 0.6f, 1.0f}).size(), gridCount);
    EXPECT_EQ(LinesOfColor(drawing, {0.7f, 0.85f, 1.0f}).size(), guideCount);
}

TEST(Ink, IsInThePixelsOfTextsAndTheHighByteIsIgnored) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    ASSERT_EQ(SetStyle(plot.plotter, Inked(0xFF332211)), 0);
    const SKivoTexImage& title = *plot.plotter.m_plotTitleImage;
    int inked = 0;
    for (int i = 0; i < title.width * title.height; ++i) {
        const unsigned char* const pixel = title.pixels + 4 * i;
        EXPECT_THAT(std::vector<int>(pixel, pixel + 3), testing::ElementsAre(0x11, 0x22, 0x33));
        if (pixel[3] != 0) ++inked;
    }
    EXPECT_GT(inked, 50);
    EXPECT_LT(inked, title.width * title.height / 2);
    EXPECT_EQ(GetStyle(plot.plotter).inkColor, 0xFF332211ul);
}

// ---- Face and weight

namespace {

SKivoStyle WithFace(const std::string& face, bool isBold) {
    SKivoStyle style;
    style.textFace = face;
    style.boldText = isBold;
    return style;
}

std::vector<unsigned char> TitlePixels(const StyledPlotter& plotter) {
    const SKivoTexImage& title = *plotter.m_plotTitleImage;
    return {title.pixels, title.pixels + 4 * title.width * title.height};
}

} // namespace

// ---- Dots per inch

TEST(Density, TakenOverIsAsIfThePlotHadBeenCreatedWithIt) {
    for (const int dpi : {72, 144, 192}) {
        StyledPlot plot;
        plot.Create();
        FillPlot(plot.plotter);
        ASSERT_EQ(SetStyle(plot.plotter, Scaled(1.25f)), 0);
        plot.plotter.Rotate({100, 100}, {160, 130});
        plot.plotter.Translate({100, 100}, {110, 95});
        plot.plotter.Zoom(0.9f);
        const Image before = CaptureImage(plot.plotter);
        SKivoPictureOptions smooth;
        smooth.smoothing = 2;
        Image smoothBefore;
        ASSERT_EQ(
            CapturePicture(plot.plotter, smooth, smoothBefore.rgba, smoothBefore.width, smoothBefore.height),
            0);
        ASSERT_EQ(SetOffscreenDpi(plot.window.Handle(), dpi), 0);
        EXPECT_EQ(GetWindowDpi(plot.window.Handle()), dpi);
        ASSERT_EQ(OnDensityChanged(plot.plotter), 0);

        const HWND window = CreateOffscreenWindow(width, height, dpi);
        StyledPlotter created;
        ASSERT_EQ(created.OnCreate(window, width, height, true), 0);
        FillPlot(created);
        ASSERT_EQ(SetStyle(created, Scaled(1.25f)), 0);
        created.Rotate({100, 100}, {160, 130});
        created.Translate({100, 100}, {110, 95});
        created.Zoom(0.9f);
        const Image after = CaptureImage(plot.plotter);
        EXPECT_TRUE(ImagesAgree(after, CaptureImage(created), 0, 0.0, "density"));
        EXPECT_GT(Compare(after, before).mean, 0.1);
        Image taken, wanted;
        ASSERT_EQ(CapturePicture(plot.plotter, smooth, taken.rgba, taken.width, taken.height), 0);
        ASSERT_EQ(CapturePicture(created, smooth, wanted.rgba, wanted.width, wanted.height), 0);
        EXPECT_TRUE(ImagesAgree(taken, wanted, 0, 0.0, "density-smooth"));
        created.OnDestroy();
        ReleaseWindow(window);
    }
}

TEST(Density, IsNoMatterWithoutAWindow) {
    CKivoFunctionPlotter plotter;
    EXPECT_EQ(OnDensityChanged(plotter), 0);
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    const Image before = CaptureImage(plot.plotter);
    EXPECT_EQ(SetOffscreenDpi(plot.window.Handle(), 0), -1);
    EXPECT_EQ(SetOffscreenDpi(plot.window.Handle(), 1201), -1);
    EXPECT_EQ(SetOffscreenDpi(nullptr, 96), -1);
    EXPECT_EQ(GetWindowDpi(plot.window.Handle()), 96);
    EXPECT_EQ(OnDensityChanged(plot.plotter), 0);
    EXPECT_TRUE(ImagesAgree(CaptureImage(plot.plotter), before, 0, 0.0, "density-unchanged"));
    plot.plotter.OnDestroy();
    EXPECT_EQ(OnDensityChanged(plot.plotter), 0);
}

TEST(TextFace, IsAskedForWithItsWeight) {
    StyledPlot plot;
    plot.Create();
    FillPlot(plot.plotter);
    const LOGFONTA& font = plot.plotter.m_textRenderer->m_fontDescription;
    EXPECT_STREQ(font.lfFaceName, "MS Gothic");
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    const LONG height = font.lfHeight;
    const std::vector<unsigned char> bold = TitlePixels(plot.plotter);
    ASSERT_EQ(SetStyle(plot.plotter, WithFace("", false)), 0);
    EXPECT_STREQ(font.lfFaceName, "MS Gothic");
    EXPECT_EQ(font.lfWeight, FW_NORMAL);
    EXPECT_NE(TitlePixels(plot.plotter), bold);
    ASSERT_EQ(SetStyle(plot.plotter, WithFace("DejaVu Serif", true)), 0);
    EXPECT_STREQ(font.lfFaceName, "DejaVu Serif");
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_EQ(font.lfHeight, height);
    EXPECT_NE(TitlePixels(plot.plotter), bold);
    ASSERT_EQ(SetStyle(plot.plotter, SKivoStyle()), 0);
    EXPECT_EQ(TitlePixels(plot.plotter), bold);
}

// What stands in is what stands in for the plot's own.
TEST(TextFace, ThatIsNotInstalledIsReplaced) {
    StyledPlot plot;
    plot.Create();
    plot.plotter.SetPlotTitle("Title");
    ASSERT_EQ(SetStyle(plot.plotter, WithFace("No Such Face 1", true)), 0);
    const std::vector<unsigned char> first = TitlePixels(plot.plotter);
    ASSERT_EQ(SetStyle(plot.plotter, WithFace("No Such Face 2", true)), 0);
    EXPECT_EQ(TitlePixels(plot.plotter), first);
    EXPECT_GT(std::count(first.begin(), first.end(), 0), 50);
}

TEST(TextFace, ThatIsNoNameIsRefused) {
    StyledPlot plot;
    plot.Create();
    plot.plotter.SetPlotTitle("Title");
    ASSERT_EQ(SetStyle(plot.plotter, WithFace(std::string(31, 'n'), true)), 0) << "the longest";
    const std::vector<unsigned char> before = TitlePixels(plot.plotter);
    for (const std::string& face : {std::string(32, 'n'), std::string(100000, 'n'), std::string("a\0b", 3)})
        EXPECT_EQ(SetStyle(plot.plotter, WithFace(face, false)), -3);
    EXPECT_EQ(GetStyle(plot.plotter).textFace, std::string(31, 'n'));
    EXPECT_TRUE(GetStyle(plot.plotter).boldText);
    EXPECT_EQ(TitlePixels(plot.plotter), before);
}

// Labels are drawn smaller than they are, so that strokes of a pixel fall between those of the screen.
TEST(TextFace, MinusSignsOfThinLettersAreSeen) {
    constexpr unsigned char cream[] = {255, 253, 233};
    for (const char* const face : {"", "DejaVu Serif", "DejaVu Sans"}) {
        StyledPlot plot;
        plot.Create();
        FillPlot(plot.plotter);
        ASSERT_EQ(SetStyle(plot.plotter, WithFace(face, false)), 0);
        const CKivoGridBox& box = *plot.plotter.m_gridBox;
        int count = 0;
        for (const int turn : {0, 3, 5, 8, 11, 14}) {
            plot.plotter.Rotate({100, 100}, {100 + turn, 100 + turn / 2});
            const Image image = CaptureImage(plot.plotter);
            for (int axis = 0; axis < 3; ++axis)
                for (unsigned int i = 0; i <= box.m_tickIntervals[axis]; ++i) {
                    const PlacedImage& place = box.m_labelLayout.Labels(axis)[i];
                    const std::string text = box.LabelText(axis, i);
                    if (!place.isShown || text[0] != '-') continue;
                    ++count;
                    const int left =
                        plot.plotter.m_plotViewport[0] + static_cast<int>(place.center.x - place.halfWidth);
                    const int bottom = static_cast<int>(place.center.y - place.halfHeight);
                    const int right =
                        left + static_cast<int>(2.0 * place.halfWidth / static_cast<double>(text.size()));
                    const int top = bottom + static_cast<int>(2.0 * place.halfHeight);
                    const double best = BestContrast(image, left, bottom, right, top, cream);
                    EXPECT_GT(best, 2.0) << face << ", " << text << ", turned by " << turn;
                }
        }
        EXPECT_GT(count, 20);
    }
}
