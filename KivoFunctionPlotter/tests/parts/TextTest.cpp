// Text images, titles and bitmap text.
#include "parts/FontDescription.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

class TextProbe : public PlotterProbe {
public:
    using CKivoFunctionPlotter::m_fontListBase;
    using CKivoFunctionPlotter::m_plotTitleImage;
    using CKivoFunctionPlotter::m_textRenderer;
    using CKivoFunctionPlotter::ReleaseTex;
    using CKivoFunctionPlotter::Render3DText;
    using CKivoFunctionPlotter::RenderPlotName;
    using CKivoFunctionPlotter::RenderTextTex;
};

class Text : public WindowTest {
protected:
    TestWindow window{GetParam(), 600, 300};
    TextProbe plotter;
    SKivoTexImage image;

    void SetUp() override { ASSERT_EQ(plotter.OnCreate(window.Handle(), 600, 300, true), 0); }
    void TearDown() override {
        const CurrentContext context(plotter);
        TextProbe::ReleaseTex(&image);
    }

    STextRenderer& Renderer() { return *plotter.m_textRenderer; }
    SIZE Extent(const std::string& text, int extra = 0) {
        SIZE size = {};
        GetTextExtentPoint32A(Renderer().m_memoryDC, text.c_str(), static_cast<int>(text.size()) + extra,
                              &size);
        return size;
    }
    void Make(const std::string& text) {
        const CurrentContext context(plotter);
        ASSERT_EQ(CreateTextImage(&Renderer(), text.c_str(), &image), 0);
    }
    // Columns from the first to the last with ink, in the upper or the lower half of the image.
    int InkWidth(bool isUpper) const {
        int first = image.width, last = -1;
        for (int row = 0; row < image.height; ++row)
            for (int column = 0; column < image.width; ++column)
                if ((row >= image.height / 2) == isUpper &&
                    image.pixels[4 * (static_cast<std::size_t>(row) * image.width + column) + 3] != 0) {
                    first = std::min(first, column);
                    last = std::max(last, column);
                }
        return last - first + 1;
    }
    // The plotter's font at another height, which is released with it.
    void UseFontHeight(int pixels) {
        LOGFONTA description = Renderer().m_fontDescription;
        description.lfHeight = -pixels;
        const HFONT font = CreateFontIndirectA(&description);
        SelectObject(Renderer().m_memoryDC, font);
        DeleteObject(std::exchange(Renderer().m_font, font));
    }
    // A text of exactly so many pixels, at a height of the font at which there is one; else empty.
    std::string FindTextOfWidth(int width) {
        for (int height = 8; height < 40; ++height) {
            UseFontHeight(height);
            std::string text;
            while (Extent(text).cx < width)
                text += "0";
            if (Extent(text).cx == width) return text;
        }
        return {};
    }
    bool HasInk(int row) const {
        for (int x = 0; x < image.width; ++x)
            if (image.pixels[(row * image.width + x) * 4 + 3] != 0) return true;
        return false;
    }
};

int PowerOfTwo(int size) {
    int bits = 0;
    while ((1 << bits) < size)
        ++bits;
    return 1 << bits;
}

// Smallest rectangle around the pixels that differ: left, top, right, bottom.
std::vector<int> Differing(const Image& a, const Image& b) {
    std::vector<int> box = {a.width, a.height, -1, -1};
    for (int y = 0; y < a.height; ++y)
        for (int x = 0; x < a.width; ++x)
            if (!std::equal(a.Pixel(x, y), a.Pixel(x, y) + 3, b.Pixel(x, y))) {
                box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x), std::max(box[3], y)};
            }
    return box;
}

} // namespace

// ---- The font's height

TEST_P(Text, FontHeightsAreTheOppositeOfPixelsAsFarAsThereIsOne) {
    constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
    const HWND coarse = CreateOffscreenWindow(64, 48, 72); // a point is a pixel there
    ASSERT_NE(coarse, nullptr);
    for (const HDC dc : {plotter.m_hDC, GetDC(coarse)}) {
        const int dotsPerInch = GetDeviceCaps(dc, LOGPIXELSY);
        for (const int points : {10, 1, 0, -10, 1000000, -1000000, most, least, least + 1}) {
            const std::int64_t pixels = MulDiv(points, dotsPerInch, 72);
            EXPECT_EQ(DescribeFont(dotsPerInch, points, FW_BOLD, "MS Gothic").lfHeight,
                      std::min<std::int64_t>(-pixels, most))
                << points << " points, " << dotsPerInch << " dots";
        }
    }
    {
        PlotterProbe small;
        EXPECT_EQ(small.OnCreate(coarse, 64, 48, least, true), 0);
        small.SetPlotTitle("Title");
        EXPECT_EQ(small.Renderscene(), 0);
    }
    ReleaseWindow(coarse);
}

// ---- Images

TEST(TextImage, WithoutARendererNothingIsTouched) {
    STextRenderer renderer;
    SKivoTexImage image;
    image.width = 7;
    EXPECT_EQ(CreateTextImage(&renderer, "text", &image), -1);
    EXPECT_EQ(image.width, 7);
    EXPECT_EQ(image.texture, 0u);
    EXPECT_EQ(image.pixels, nullptr);
}

TEST(TextImage, NumbersAreFixed) {
    EXPECT_EQ(FormatNumber(-1.0f, 3), "-1.000");
    EXPECT_EQ(FormatNumber(1234567.0f, 0), "1234567");
    EXPECT_EQ(FormatNumber(0.15f, 1), "0.2");
    EXPECT_EQ(FormatNumber(1e-7f, 2), "0.00");
}

namespace {

// 1.234,5 while it lives: what streams of the program write that choose no locale.
class CommaLocale {
public:
    CommaLocale() : m_before(std::locale::global(std::locale(std::locale::classic(), new Punctuation))) {}
    ~CommaLocale() { std::locale::global(m_before); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    struct Punctuation : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale m_before;
};

} // namespace

TEST(TextImage, NumbersAreThoseOfTheClassicLocaleWhateverTheHosts) {
    const CommaLocale host;
    EXPECT_EQ(FormatNumber(1234567.5f, 1), "1234567.5");
    EXPECT_EQ(FormatNumber(-1234.0f, 0), "-1234");
}

TEST(TextImage, WhatIsNoNumberReadsTheSameEverywhere) {
    using Limits = std::numeric_limits<float>;
    for (const unsigned int precision : {0u, 3u, 1000u}) {
        EXPECT_EQ(FormatNumber(Limits::quiet_NaN(), precision), "NaN");
        EXPECT_EQ(FormatNumber(std::copysign(Limits::quiet_NaN(), -1.0f), precision), "NaN")
            << "without sign";
        EXPECT_EQ(FormatNumber(Limits::infinity(), precision), "inf");
        EXPECT_EQ(FormatNumber(-Limits::infinity(), precision), "-inf");
    }
}

TEST(TextImage, NumbersHaveAtMostAThousandDigits) {
    const std::string smallest = FormatNumber(std::numeric_limits<float>::denorm_min(), 1000);
    EXPECT_EQ(smallest.size(), 1002u);
    EXPECT_EQ(smallest.find_last_not_of('0'), 1u + 149u) << "no float has more digits that are not zeros";
    for (const unsigned int precision : {1001u, 8000000u, 0x7fffffffu, 0x80000000u, 0xffffffffu})
        EXPECT_EQ(FormatNumber(std::numeric_limits<float>::denorm_min(), precision), smallest) << precision;
}

TEST_P(Text, SizesAndTextureShares) {
    for (const char* text : {"1.0", "Elevation (m)", "i"}) {
        Make(text);
        const SIZE extent = Extent(text);
        EXPECT_EQ(image.width, std::max<int>(extent.cx, extent.cy)) << text;
        EXPECT_EQ(image.height, extent.cy) << text;
        EXPECT_EQ(image.sMax, static_cast<float>(image.width) / static_cast<float>(PowerOfTwo(image.width)));
        EXPECT_EQ(image.tMax,
                  static_cast<float>(image.height) / static_cast<float>(PowerOfTwo(image.height)));
    }
}

TEST_P(Text, SizesAreToldWithoutAnImage) {
    for (const std::string& text : {std::string("(1.000, 2.000)"), std::string("i"), std::string(200, 'W')}) {
        Make(text.c_str());
        const SIZE extent = TextImageExtent(Renderer(), text.c_str());
        EXPECT_EQ(extent.cx, image.width) << text;
        EXPECT_EQ(extent.cy, image.height) << text;
    }
    EXPECT_EQ(TextImageExtent(STextRenderer(), "i").cx, 0);
}

TEST_P(Text, AnEmptyTextIsATransparentSquare) {
    Make("");
    EXPECT_EQ(image.width, image.height);
    EXPECT_EQ(image.height, Extent("").cy); // 0 on Windows
    for (int row = 0; row < image.height; ++row)
        EXPECT_FALSE(HasInk(row));
}

TEST_P(Text, WiderTextsTakeTwoLines) {
    std::string fitting = "w";
    while (Extent(fitting + "w").cx <= 512)
        fitting += "w";
    Make(fitting);
    EXPECT_EQ(image.height, Extent(fitting).cy);
    Make(fitting + "w");
    EXPECT_EQ(image.width, 512);
    EXPECT_EQ(image.height, 2 * Extent(fitting).cy);
    bool upper = false, lower = false;
    for (int row = 0; row < image.height; ++row)
        (row < image.height / 2 ? lower : upper) |= HasInk(row);
    EXPECT_TRUE(upper && lower);
}

TEST_P(Text, ThatNoTextureHoldsIsRefused) {
    Make("A short one");
    const int fontSize = Renderer().m_fontSize;
    Renderer().m_pixelScale = 150.0f; // two lines of 76,800 pixels
    InitTextRenderer(&Renderer(), plotter.m_hDC, fontSize);
    const CurrentContext context(plotter);
    const std::string text(400, 'w');
    while (glGetError() != GL_NO_ERROR) { // fonts of some systems leave one
    }
    EXPECT_EQ(CreateTextImage(&Renderer(), text.c_str(), &image), -1);
    EXPECT_EQ(image.pixels, nullptr);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

// Half of the bytes each, whatever they are as words or as widths.
TEST_P(Text, TwoLinesAreCutInTheMiddleOfTheBytes) {
    const std::string wide(40, 'W'), narrow(40, '.');
    for (const bool isWideFirst : {true, false}) {
        Make(isWideFirst ? wide + narrow : narrow + wide);
        ASSERT_EQ(image.width, 512);
        const int upper = InkWidth(true), lower = InkWidth(false);
        const int wideLine = std::min<int>(Extent(wide).cx, 512), narrowLine = Extent(narrow).cx;
        EXPECT_NEAR(upper, isWideFirst ? wideLine : narrowLine, 8) << isWideFirst;
        EXPECT_NEAR(lower, isWideFirst ? narrowLine : wideLine, 8) << isWideFirst;
    }
}

// The first line of an odd number of bytes is the shorter one.
TEST_P(Text, TheMiddleByteOfAnOddNumberBeginsTheSecondLine) {
    const std::string dots(50, '.'), first(50, 'i');
    Make(first + "W" + dots);
    ASSERT_EQ(image.width, 512);
    EXPECT_NEAR(InkWidth(true), Extent(first).cx, 4);
    EXPECT_NEAR(InkWidth(false), Extent("W" + dots).cx, 4);
}

TEST_P(Text, WhatDoesNotFitIntoTwoLinesIsClipped) {
    for (const bool isWideFirst : {true, false}) {
        const std::string wide(200, 'W'), narrow(200, '.');
        Make(isWideFirst ? wide + narrow : narrow + wide);
        ASSERT_EQ(image.width, 512);
        EXPECT_GT(InkWidth(isWideFirst), 500);
        EXPECT_LE(InkWidth(isWideFirst), 512);
    }
}

TEST_P(Text, ExactlyTheWidestLineStaysOne) {
    for (const int width : {511, 512, 513}) {
        const std::string text = FindTextOfWidth(width);
        ASSERT_FALSE(text.empty()) << "no text is " << width << " pixels wide";
        Make(text);
        EXPECT_EQ(image.width, std::min(width, 512));
        EXPECT_EQ(image.height, (width <= 512 ? 1 : 2) * Extent(text).cy);
    }
}

// The middle of the bytes falls between the two of the letter of UTF-8, which then stands whole in the second
// line. In an encoding of single bytes the same bytes are two letters, and the middle is the middle.
TEST_P(Text, TwoLinesAreNotCutThroughACharacter) {
    const std::string wide(39, 'W'), dots(39, '.');
    Make(wide + "\xc3\xb6" + dots);
    ASSERT_EQ(image.width, 512);
    const bool isUtf8 = GetACP() == CP_UTF8;
    EXPECT_NEAR(InkWidth(true), Extent(isUtf8 ? wide : wide + "\xc3").cx, 4);
    Make(wide + "W\xb6" + dots); // a sign of its own where bytes are characters
    EXPECT_NEAR(InkWidth(true), Extent(wide + "W").cx, 4);
}

// One system takes an ampersand for the mark of the letter that is underlined, unless it is told not to.
TEST_P(Text, AmpersandsAreCharacters) {
    const auto ink = [this](const std::string& text) {
        Make(text);
        int count = 0;
        for (int i = 0; i < image.width * image.height; ++i)
            count += image.pixels[4 * i + 3] != 0 ? 1 : 0;
        return count;
    };
    const int one = ink("&");
    EXPECT_GT(one, 10);
    EXPECT_EQ(ink("&&"), 2 * one);
    EXPECT_EQ(ink("R&D"), ink("R") + one + ink("D"));
}

// In every window there is a pixel of the screen for each pixel of the title.
TEST_P(Text, TheTitleIsSharpInWindowsOfEveryWidth) {
    const TestSurface surface = HillSurface(12, 10);
    plotter.SetData(surface.NewArray(), 12, 10, 1, 12, 3);
    const std::string titles[] = {"Pressure in bar", "Pressure in bars."};
    plotter.SetBackgroundColor(1, 1, 1, 1);
    for (int width = 400; width < 430; ++width) {
        window.Resize(width, 60);
        plotter.OnSize(0, width, 60);
        for (const std::string& title : titles) {
            plotter.SetPlotTitle("");
            const Image without = CaptureImage(plotter);
            plotter.SetPlotTitle(title.c_str());
            const Image with = CaptureImage(plotter);
            const SKivoTexImage& drawn = *plotter.m_plotTitleImage;
            const int left = plotter.m_plotViewport[0] + (plotter.m_plotViewport[2] - drawn.width) / 2;
            int differing = 0;
            for (int y = 0; y < with.height; ++y)
                for (int x = 0; x < with.width; ++x) {
                    const int column = x - left, row = drawn.height - 1 - y;
                    const bool isInside = column >= 0 && column < drawn.width && row >= 0;
                    const bool isInk = isInside && drawn.pixels[4 * (row * drawn.width + column) + 3] != 0;
                    const unsigned char* expected = without.Pixel(x, y);
                    const unsigned char black[3] = {};
                    if (isInk) expected = black;
                    differing += std::equal(expected, expected + 3, with.Pixel(x, y)) ? 0 : 1;
                }
            EXPECT_EQ(differing, 0) << title << " in " << width;
        }
    }
}

TEST_P(Text, WordsAreMeasuredWithTheirSpaces) {
    Make("one  two three");
    EXPECT_EQ(Renderer().m_wordExtents,
              (std::vector<int>{0, Extent("one  ").cx, Extent("two ").cx, Extent("three", 1).cx}));
    Make("one ");
    EXPECT_EQ(Renderer().m_wordExtents, (std::vector<int>{0, Extent("one ").cx})) << "no tail after spaces";
}

// A text may have millions.
TEST_P(Text, WordsAfterTheFirstThousandAreMeasuredAsOne) {
    const auto words = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "a ";
        return text;
    };
    std::vector<int> expected(1001, Extent("a ").cx);
    expected[0] = 0;
    Make(words(1000));
    EXPECT_EQ(Renderer().m_wordExtents, expected);
    Make(words(1200) + "a");
    expected.push_back(Extent(words(200) + "a", 1).cx);
    EXPECT_EQ(Renderer().m_wordExtents, expected);
}

TEST_P(Text, PixelsAreBlackOrTransparentWithTheBottomRowFirst) {
    Make("___");
    std::vector<int> low;
    for (int row = 0; row < image.height; ++row)
        if (HasInk(row)) low.push_back(row);
    ASSERT_FALSE(low.empty());
    EXPECT_LT(low.back(), image.height / 2);
    for (int i = 0; i < image.width * image.height; ++i) {
        const unsigned char* p = image.pixels + 4 * i;
        const bool isInk = p[0] == 0 && p[1] == 0 && p[2] == 0 && p[3] == 255;
        const bool isGround = p[0] == 255 && p[1] == 255 && p[2] == 255 && p[3] == 0;
        ASSERT_TRUE(isInk || isGround);
    }
}

TEST_P(Text, TheTextureHoldsThePixelsAndItsNameIsKept) {
    Make("first");
    const GLuint name = image.texture;
    Make("second text");
    EXPECT_EQ(image.texture, name);
    const CurrentContext context(plotter);
    const int width = PowerOfTwo(image.width), height = PowerOfTwo(image.height);
    std::vector<unsigned char> texels(static_cast<std::size_t>(width) * height * 4);
    glBindTexture(GL_TEXTURE_2D, name);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    for (int row = 0; row < image.height; ++row)
        EXPECT_EQ(std::memcmp(&texels[static_cast<std::size_t>(row) * width * 4],
                              image.pixels + row * image.width * 4,
                              static_cast<std::size_t>(image.width) * 4),
                  0);
}

// ---- Titles

TEST_P(Text, TitlesAreKept) {
    plotter.SetPlotTitle("plot");
    plotter.SetXAxisTitle("x axis");
    plotter.SetYAxisTitle("y axis");
    plotter.SetZAxisTitle("z axis");
    EXPECT_STREQ(plotter.GetPlotTitle(), "plot");
    EXPECT_STREQ(plotter.GetXAxisTitle(), "x axis");
    EXPECT_STREQ(plotter.GetYAxisTitle(), "y axis");
    EXPECT_STREQ(plotter.GetZAxisTitle(), "z axis");
    for (const SKivoTexImage& title : plotter.m_gridBox->m_axisTitleImage)
        EXPECT_NE(title.pixels, nullptr);
    plotter.SetPlotTitle(plotter.GetPlotTitle());
    EXPECT_STREQ(plotter.GetPlotTitle(), "plot");
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(Text, ATitleSetBeforeOnCreateHasTextButNoImage) {
    TextProbe early;
    early.SetPlotTitle("early");
    early.SetZAxisTitle("early");
    TestWindow other(GetParam(), 200, 100);
    ASSERT_EQ(early.OnCreate(other.Handle(), 200, 100, true), 0);
    EXPECT_STREQ(early.GetPlotTitle(), "early");
    EXPECT_EQ(early.m_plotTitleImage->pixels, nullptr);
    EXPECT_EQ(early.m_gridBox->m_axisTitleImage[2].pixels, nullptr);
    early.OnDestroy();
}

TEST_P(Text, TheTitleHangsFromTheMiddleOfTheTopPixelForPixel) {
    const TestSurface surface = HillSurface(4, 3);
    plotter.SetData(surface.NewArray(), 4, 3, 1, 4, 3);
    const Image without = CaptureImage(plotter);
    plotter.SetPlotTitle("HHHHHHHHHH");
    const Image with = CaptureImage(plotter);
    const SKivoTexImage& title = *plotter.m_plotTitleImage;
    const std::vector<int> box = Differing(without, with);
    const double middle = plotter.m_plotViewport[0] + plotter.m_plotViewport[2] / 2.0;
    EXPECT_GE(box[0], middle - title.width / 2.0 - 1);
    EXPECT_LE(box[2], middle + title.width / 2.0 + 1);
    EXPECT_NEAR((box[0] + box[2]) / 2.0, middle, 3.0);
    EXPECT_GT(box[2] - box[0], title.width - 8);
    EXPECT_LE(box[3], title.height);
    int ink = 0;
    for (int i = 0; i < title.width * title.height; ++i)
        ink += title.pixels[4 * i + 3] != 0 ? 1 : 0;
    const int dark = with.Count([](const unsigned char* p) {
        return p[0] < 128 && p[1] < 128 && p[2] < 128;
    }) - without.Count([](const unsigned char* p) { return p[0] < 128 && p[1] < 128 && p[2] < 128; });
    EXPECT_NEAR(dark, ink, ink / 4.0);
}

TEST_P(Text, TheTitleStandsAtDepthOneOfTheView) {
    const TestSurface surface = HillSurface(4, 3);
    plotter.SetData(surface.NewArray(), 4, 3, 1, 4, 3);
    plotter.SetPlotTitle("title");
    const CurrentContext context(plotter);
    plotter.ApplyViewVolume();
    glMatrixMode(GL_TEXTURE);
    const std::vector<DrawnQuad> quads = TexturedQuads(Record([this] { plotter.RenderPlotName(); }));
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_TEXTURE);
    ASSERT_EQ(quads.size(), 1u);
    ASSERT_GT(plotter.m_viewFar, 1.0);
    const int* viewport = plotter.m_plotViewport;
    const SKivoTexImage& title = *plotter.m_plotTitleImage;
    EXPECT_NEAR(quads[0].CenterX(), viewport[0] + viewport[2] / 2.0, 0.01);
    EXPECT_NEAR(quads[0].CenterY(), viewport[3] - title.height / 2.0, 0.01);
    EXPECT_NEAR(quads[0].Width(), title.width, 0.01);
    EXPECT_NEAR(quads[0].Height(), title.height, 0.01);
    for (const DrawnVertex& corner : quads[0].corners)
        EXPECT_NEAR(corner.depth, (1.0 - 1.0 / plotter.m_viewFar) / 2.0, 1e-6);
}

TEST_P(Text, TheTitleShowsAboveDataOfAnySize) {
    for (const float scale : {1e-6f, 1e-2f, 1.0f, 1e6f}) {
        TestSurface surface = HillSurface(4, 3);
        for (float& value : surface.points)
            value *= scale;
        plotter.SetData(surface.NewArray(), 4, 3, 1, 4, 3);
        plotter.SetPlotTitle("");
        const Image without = CaptureImage(plotter);
        plotter.SetPlotTitle("HHHHHHHHHH");
        const std::vector<int> box = Differing(without, CaptureImage(plotter));
        EXPECT_GT(box[2] - box[0], plotter.m_plotTitleImage->width - 8) << scale;
    }
}

TEST_P(Text, ATextQuadLeavesLightingOnAndBlendingAndTexturingOff) {
    Make("quad");
    const CurrentContext context(plotter);
    const float p0[] = {0, 0, 0}, p1[] = {1, 0, 0}, p2[] = {1, 1, 0}, p3[] = {0, 1, 0};
    glDisable(GL_LIGHTING);
    plotter.RenderTextTex(p0, p1, p2, p3, &image);
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    GLint width = 0;
    glBindTexture(GL_TEXTURE_2D, image.texture);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_EQ(width, image.width) << "uploaded at its exact size";
    const SKivoTexImage empty;
    glDisable(GL_LIGHTING);
    plotter.RenderTextTex(p0, p1, p2, p3, &empty);
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING)) << "nothing is drawn";
}

// ---- Bitmap text

TEST_P(Text, BitmapTextMovesTheRasterPosition) {
    const CurrentContext context(plotter);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, 600, 0, 300, 0, -1); // the depth is the coordinate
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glViewport(0, 0, 600, 300);
    glListBase(17);
    const auto raster = [] {
        std::vector<float> position(4);
        glGetFloatv(GL_CURRENT_RASTER_POSITION, position.data());
        return position;
    };
    plotter.RenderText(10, 20, 0.5f, "abc");
    const float end = raster()[0];
    EXPECT_GT(end, 15.0f);
    EXPECT_EQ(raster()[1], 20.0f);
    plotter.RenderText(10, 20, 0.5f, "abcdef", 3);
    EXPECT_EQ(raster()[0], end);
    plotter.RenderFarText(10, 20, "abc");
    EXPECT_NEAR(raster()[2], 0.99f, 1e-4f);
    EXPECT_EQ(raster()[0], end);
    plotter.RenderNearText(10, 20, "abc");
    EXPECT_NEAR(raster()[2], 0.0f, 1e-4f);
    plotter.Render3DText(500, 200, 0, "abc", 3);
    EXPECT_NEAR(raster()[0], end + (end - 10), 0.01) << "at the current raster position";
    GLint base = 0;
    glGetIntegerv(GL_LIST_BASE, &base);
    EXPECT_EQ(base, 17);
}

// ---- Life

TEST_P(Text, TexturesAndListsDoNotGrow) {
    const auto liveNames = [this] {
        const CurrentContext context(plotter);
        int names = 0;
        for (GLuint name = 1; name < 40000; ++name)
            names += (glIsTexture(name) ? 1 : 0) + (glIsList(name) ? 1 : 0);
        return names;
    };
    const TestSurface surface = HillSurface(4, 3);
    const auto change = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            plotter.SetData(surface.NewArray(), 4, 3, 1, 4, 3);
            plotter.SetPlotTitle(i % 2 ? "odd" : "even");
            plotter.Renderscene();
        }
    };
    change(20);
    const int before = liveNames();
    change(180);
    EXPECT_EQ(liveNames(), before);
    for (int frame = 0; frame < 2000; ++frame)
        plotter.Renderscene();
    EXPECT_EQ(liveNames(), before);
}

KIVO_IN_EVERY_WINDOW(Text);
