// Fonts, text, bitmaps and device contexts.

#include "window_system/WindowSystem.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace KivoDrawingTools {

namespace {

LOGFONTA FontDescription(int pixels, const char* face, bool bold = false) {
    LOGFONTA font{};
    font.lfHeight = -pixels;
    font.lfWeight = bold ? FW_BOLD : FW_MEDIUM;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = ANTIALIASED_QUALITY;
    font.lfPitchAndFamily = DEFAULT_PITCH | FF_MODERN;
    std::strncpy(font.lfFaceName, face, LF_FACESIZE - 1);
    return font;
}

constexpr std::uint32_t COLOR = 0xFFFFFF; // of a pixel, without the unused byte
constexpr std::uint32_t WHITE = 0xFFFFFF;
constexpr std::uint32_t RED = 0xFF0000;

} // namespace

class FontTest : public testing::Test {
protected:
    void SetUp() override {
        m_window = CreateOffscreenWindow(16, 16);
        ASSERT_NE(nullptr, m_window) << LastWindowError();
        m_dc = CreateCompatibleDC(GetDC(m_window));
        Use(FontDescription(20, "MS Gothic", true));
    }
    void TearDown() override {
        EXPECT_TRUE(DeleteDC(m_dc));
        if (m_font) {
            EXPECT_TRUE(DeleteObject(m_font));
        }
        if (m_bitmap) {
            EXPECT_TRUE(DeleteObject(m_bitmap));
        }
        EXPECT_EQ(0, ReleaseWindow(m_window));
    }

    void Use(const LOGFONTA& description) {
        const HFONT font = CreateFontIndirectA(&description);
        EXPECT_NE(nullptr, SelectObject(m_dc, font));
        if (m_font) {
            EXPECT_TRUE(DeleteObject(m_font));
        }
        m_font = font;
    }
    SIZE Extent(const std::string& text) {
        SIZE size{-1, -1};
        EXPECT_TRUE(GetTextExtentPoint32A(m_dc, text.data(), static_cast<int>(text.size()), &size));
        return size;
    }
    /// A bitmap of one colour, selected.
    void UseBitmap(int width, int height, COLORREF background) {
        const HBITMAP bitmap = CreateCompatibleBitmap(GetDC(m_window), width, height);
        ASSERT_NE(nullptr, bitmap);
        EXPECT_NE(nullptr, SelectObject(m_dc, bitmap));
        if (m_bitmap) {
            EXPECT_TRUE(DeleteObject(m_bitmap));
        }
        m_bitmap = bitmap;
        m_width = width;
        m_height = height;
        const HBRUSH brush = CreateSolidBrush(background);
        const RECT all{0, 0, width, height};
        EXPECT_TRUE(FillRect(m_dc, &all, brush));
        EXPECT_TRUE(DeleteObject(brush));
    }
    std::vector<std::uint32_t> Bits() const {
        std::vector<std::uint32_t> bits(static_cast<std::size_t>(m_width * m_height));
        const auto bytes = static_cast<LONG>(bits.size() * 4);
        EXPECT_EQ(bytes, GetBitmapBits(m_bitmap, bytes, bits.data()));
        for (auto& pixel : bits)
            pixel &= COLOR;
        return bits;
    }
    std::uint32_t PixelAt(int x, int y) const { return Bits()[static_cast<std::size_t>(y * m_width + x)]; }
    /// The box around the pixels that differ from white; empty (right <= left) when there are none.
    RECT Ink() const {
        RECT box{m_width, m_height, 0, 0};
        const auto bits = Bits();
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) {
                if (bits[static_cast<std::size_t>(y * m_width + x)] == WHITE) continue;
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
            }
        }
        return box;
    }
    /// Draws on white at (50, 50) of a bitmap larger than the text by 50 on every side.
    RECT InkOf(const std::string& text) {
        const SIZE size = Extent(text);
        UseBitmap(size.cx + 100, size.cy + 100, WHITE);
        RECT place{50, 50, m_width, m_height};
        DrawTextA(m_dc, text.data(), static_cast<int>(text.size()), &place, 0);
        return Ink();
    }

    HWND m_window = nullptr;
    HDC m_dc = nullptr;
    HFONT m_font = nullptr;
    HBITMAP m_bitmap = nullptr;
    int m_width = 0;
    int m_height = 0;
};

TEST_F(FontTest, MetricsBelongToTheSizeAskedFor) {
    TEXTMETRICA metrics{};
    ASSERT_TRUE(GetTextMetricsA(m_dc, &metrics));
    EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, metrics.tmHeight);
    EXPECT_GE(metrics.tmHeight, 20);
    EXPECT_LE(metrics.tmHeight, 30);
    EXPECT_GT(metrics.tmAscent, metrics.tmDescent);
    EXPECT_EQ(FW_BOLD, metrics.tmWeight);
    EXPECT_EQ(metrics.tmHeight, Extent("Height").cy);
    LOGFONTA line = FontDescription(20, "Arial");
    line.lfHeight = 40; // of the line, not of the em
    Use(line);
    ASSERT_TRUE(GetTextMetricsA(m_dc, &metrics));
    EXPECT_NEAR(40, metrics.tmHeight, 2);
}

TEST_F(FontTest, ExtentGrowsWithTextSizeAndWeight) {
    Use(FontDescription(20, "Arial"));
    const int narrow = Extent("Wave").cx;
    EXPECT_GT(Extent("Wave wave").cx, narrow);
    EXPECT_GT(Extent("Wave ").cx, narrow) << "spaces at the end count";
    Use(FontDescription(20, "Arial", true));
    EXPECT_GT(Extent("Wave").cx, narrow);
    Use(FontDescription(40, "Arial"));
    EXPECT_NEAR(2 * narrow, Extent("Wave").cx, 4);
}

TEST_F(FontTest, NothingIsZeroWideAndOneLineHigh) {
    TEXTMETRICA metrics{};
    ASSERT_TRUE(GetTextMetricsA(m_dc, &metrics));
    SIZE size{-1, -1};
    EXPECT_TRUE(GetTextExtentPoint32A(m_dc, "", 0, &size));
    EXPECT_EQ(0, size.cx);
    EXPECT_EQ(metrics.tmHeight, size.cy);
    EXPECT_TRUE(GetTextExtentPoint32A(m_dc, nullptr, 0, &size));
    EXPECT_EQ(0, size.cx);
}

TEST_F(FontTest, ATerminatingZeroMeasuredWithTheTextIsZeroWide) {
    const std::string text = "tail";
    SIZE size{};
    ASSERT_TRUE(GetTextExtentPoint32A(m_dc, text.c_str(), static_cast<int>(text.size()) + 1, &size));
    EXPECT_EQ(Extent(text).cx, size.cx);
}

TEST_F(FontTest, InkLiesWithinTheExtent) {
    for (const char* const face : {"MS Gothic", "Arial", "No Such Face"}) {
        for (const bool italic : {false, true}) {
            LOGFONTA font = FontDescription(23, face);
            font.lfItalic = italic;
            Use(font);
            for (const std::string text : {"jWf", "0.25",
                                           "Temperature [\xC2\xB0"
                                           "C]",
                                           "\xE6\xB8\xA9\xE5\xBA\xA6", "\xC3\x85\xCC\x88q"}) {
                const RECT ink = InkOf(text);
                const SIZE size = Extent(text);
                EXPECT_LT(ink.left, ink.right) << text;
                EXPECT_GE(ink.left, 50) << text;
                EXPECT_GE(ink.top, 50) << text;
                EXPECT_LE(ink.right, 50 + size.cx) << text;
                EXPECT_LE(ink.bottom, 50 + size.cy) << text;
            }
        }
    }
}

TEST_F(FontTest, ReadsUtf8AndFallsBackToOtherFaces) {
    Use(FontDescription(20, "Liberation Sans"));
    // One character of two bytes, as wide as its plain letter.
    EXPECT_EQ(Extent("A").cx, Extent("\xC3\x84").cx);
    // A character of symbols that text faces lack.
    const RECT ink = InkOf("\xE2\x99\x9E");
    EXPECT_LT(ink.left, ink.right);
    // A combining accent adds no width.
    Use(FontDescription(20, "DejaVu Sans"));
    EXPECT_NEAR(Extent("e").cx, Extent("e\xCC\x81").cx, 1);
}

TEST_F(FontTest, InvalidBytesShowAsReplacementCharacters) {
    EXPECT_EQ(Extent("a\xEF\xBF\xBD"
                     "b")
                  .cx,
              Extent("a\xFF"
                     "b")
                  .cx);
    EXPECT_GT(Extent("a\xE6\xB8").cx, Extent("a").cx) << "a character cut short";
    std::string all;
    for (int byte = 255; byte > 0; --byte)
        all += static_cast<char>(byte);
    EXPECT_GT(Extent(all).cx, 0);
}

TEST_F(FontTest, LineEndsDoNotBreakAMeasuredLine) {
    const int height = Extent("one").cy;
    for (const char* const text :
         {"one\ntwo", "one\r\ntwo", "one\xE2\x80\xA8two", "one\xC2\x85two", "\ttwo"}) {
        EXPECT_EQ(height, Extent(text).cy) << text;
        EXPECT_GT(Extent(text).cx, Extent("two").cx) << text;
    }
}

TEST_F(FontTest, VeryLongTextIsMeasuredAndDrawn) {
    const std::string text(3000000, 'x');
    const SIZE size = Extent(text);
    EXPECT_GT(size.cx, 10000);
    UseBitmap(100, 40, WHITE);
    RECT place{0, 0, 100, 40};
    EXPECT_GT(DrawTextA(m_dc, text.data(), static_cast<int>(text.size()), &place, DT_CENTER), 0);
    EXPECT_LT(Ink().left, Ink().right);
    const std::string lines(200000, '\n');
    EXPECT_GT(DrawTextA(m_dc, lines.data(), -1, &place, 0), 0);
}

TEST_F(FontTest, DrawsBlackOnAWhiteCell) {
    const SIZE size = Extent("Ink");
    UseBitmap(size.cx + 40, size.cy + 40, 0x0000FF);
    EXPECT_EQ(RED, PixelAt(0, 0));
    RECT place{20, 10, m_width, m_height};
    EXPECT_EQ(size.cy, DrawTextA(m_dc, "Ink", -1, &place, 0));
    EXPECT_EQ(WHITE, PixelAt(20, 10));
    EXPECT_EQ(WHITE, PixelAt(20 + size.cx - 1, 10 + size.cy - 1));
    EXPECT_EQ(RED, PixelAt(19, 10));
    EXPECT_EQ(RED, PixelAt(20, 9));
    EXPECT_EQ(RED, PixelAt(20 + size.cx, 10));
    EXPECT_EQ(RED, PixelAt(20, 10 + size.cy));
    std::size_t black = 0;
    for (const std::uint32_t pixel : Bits()) {
        black += pixel == 0;
        EXPECT_TRUE(pixel == 0 || pixel == WHITE || pixel == RED) << "glyphs are drawn in one bit";
    }
    EXPECT_GT(black, 0U);
}

TEST_F(FontTest, WhatHasBeenMeasuredDoesNotChangeWhatIsDrawn) {
    const auto draw = [&](const std::string& text) {
        UseBitmap(200, 60, WHITE);
        RECT place{20, 20, m_width, m_height};
        DrawTextA(m_dc, text.c_str(), static_cast<int>(text.size()), &place, 0);
        return Bits();
    };
    const LOGFONTA large = FontDescription(24, "Arial"), small = FontDescription(12, "MS Gothic");
    Use(large);
    const auto label = draw("-12.5");
    const auto number = draw("7");
    Use(small);
    const auto smallLabel = draw("-12.5");
    ASSERT_NE(label, number);
    ASSERT_NE(label, smallLabel);

    Use(large);
    const SIZE extent = Extent("-12.5");
    EXPECT_EQ(label, draw("-12.5"));
    EXPECT_EQ(label, draw("-12.5")) << "measured once, drawn twice";
    Extent("-12.5");
    EXPECT_EQ(number, draw("7")) << "another text has been measured";
    EXPECT_EQ(label, draw("-12.5"));
    Extent(std::string("-12.5") + '\0');
    EXPECT_EQ(label, draw("-12.5"));
    Extent("-12.5");
    Use(small);
    EXPECT_EQ(smallLabel, draw("-12.5")) << "measured in another font";
    EXPECT_LT(Extent("-12.5").cx, extent.cx);
    Use(large);
    std::thread([&] { EXPECT_EQ(extent.cx, Extent("-12.5").cx); }).join();
    EXPECT_EQ(label, draw("-12.5")) << "measured on a thread that has ended";
}

TEST_F(FontTest, CentersAndClipsToTheRectangle) {
    UseBitmap(200, 100, WHITE);
    RECT place{20, 30, 180, 40};
    DrawTextA(m_dc, "centred", -1, &place, DT_CENTER);
    const RECT ink = Ink();
    EXPECT_NEAR(100, (ink.left + ink.right) / 2, 2);
    EXPECT_GE(ink.top, 30);
    EXPECT_LE(ink.bottom, 40);
    UseBitmap(200, 100, WHITE);
    RECT narrow{90, 0, 110, 100};
    DrawTextA(m_dc, "much too wide", -1, &narrow, DT_CENTER);
    EXPECT_GE(Ink().left, 90);
    EXPECT_LE(Ink().right, 110);
}

TEST_F(FontTest, BottomCountsForSingleLinesOnly) {
    const SIZE size = Extent("Xg");
    UseBitmap(200, 100, WHITE);
    RECT place{0, 0, 200, 100};
    EXPECT_EQ(size.cy, DrawTextA(m_dc, "Xg", -1, &place, DT_CENTER | DT_BOTTOM));
    EXPECT_LE(Ink().bottom, size.cy);
    UseBitmap(200, 100, WHITE);
    EXPECT_EQ(100, DrawTextA(m_dc, "Xg", -1, &place, DT_BOTTOM | DT_SINGLELINE));
    EXPECT_GE(Ink().top, 100 - size.cy);
}

TEST_F(FontTest, BreaksAtLineEnds) {
    const int height = Extent("X").cy;
    UseBitmap(200, 200, WHITE);
    RECT place{0, 0, 200, 200};
    EXPECT_EQ(3 * height, DrawTextA(m_dc, "X\nX\r\nX", -1, &place, 0));
    EXPECT_GT(Ink().bottom, 2 * height);
    UseBitmap(200, 200, WHITE);
    EXPECT_EQ(height, DrawTextA(m_dc, "X\nX", -1, &place, DT_SINGLELINE));
    EXPECT_LE(Ink().bottom, height);
}

TEST_F(FontTest, ExtremeRectanglesAreHarmless) {
    UseBitmap(20, 20, WHITE);
    RECT huge{INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    DrawTextA(m_dc, "x", -1, &huge, DT_CENTER);
    RECT inverted{10, 10, 0, 0};
    DrawTextA(m_dc, "x", -1, &inverted, DT_CENTER | DT_BOTTOM | DT_SINGLELINE);
    const HBRUSH brush = CreateSolidBrush(0x0000FF);
    EXPECT_TRUE(FillRect(m_dc, &inverted, brush));
    EXPECT_EQ(WHITE, PixelAt(5, 5));
    EXPECT_TRUE(FillRect(m_dc, &huge, brush));
    EXPECT_EQ(RED, PixelAt(19, 19));
    EXPECT_TRUE(DeleteObject(brush));
}

TEST_F(FontTest, ExtremeFontsAreHarmless) {
    for (const LONG height : {INT_MIN, -100000, 0, 100000, INT_MAX}) {
        LOGFONTA font = FontDescription(1, "Arial");
        font.lfHeight = height;
        std::memset(font.lfFaceName, 0xFF, sizeof font.lfFaceName); // neither UTF-8 nor terminated
        Use(font);
        EXPECT_GT(Extent("x").cx, 0);
    }
}

TEST_F(FontTest, BitmapsAreOfThirtyTwoBitsAndStartBlack) {
    const HBITMAP bitmap = CreateCompatibleBitmap(GetDC(m_window), 7, 5);
    BITMAP description{};
    EXPECT_EQ(static_cast<int>(sizeof description), GetObjectA(bitmap, sizeof description, &description));
    EXPECT_EQ(7, description.bmWidth);
    EXPECT_EQ(5, description.bmHeight);
    EXPECT_EQ(28, description.bmWidthBytes);
    EXPECT_EQ(32, description.bmBitsPixel);
    std::vector<unsigned char> bits(200, 0xAA);
    EXPECT_EQ(140, GetBitmapBits(bitmap, 200, bits.data()));
    EXPECT_EQ(0, bits[139] | bits[0]);
    EXPECT_EQ(0xAA, bits[140]);
    EXPECT_EQ(3, GetBitmapBits(bitmap, 3, bits.data()));
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_FALSE(DeleteObject(bitmap));
    EXPECT_EQ(nullptr, CreateCompatibleBitmap(GetDC(m_window), 0, 5));
    EXPECT_EQ(nullptr, CreateCompatibleBitmap(GetDC(m_window), 5, 40000));
}

TEST_F(FontTest, FillsWithinTheRectangleInTheBrushesColor) {
    UseBitmap(8, 8, 0);
    const HBRUSH brush = CreateSolidBrush(0x030201); // blue 3, green 2, red 1
    const RECT rect{-5, 2, 4, 99};
    EXPECT_TRUE(FillRect(m_dc, &rect, brush));
    EXPECT_EQ(0x010203U, PixelAt(3, 2));
    EXPECT_EQ(0x010203U, PixelAt(0, 7));
    EXPECT_EQ(0U, PixelAt(4, 2));
    EXPECT_EQ(0U, PixelAt(3, 1));
    EXPECT_TRUE(DeleteObject(brush));
}

TEST_F(FontTest, SelectedObjectsAreReturnedAndKept) {
    const LOGFONTA description = FontDescription(9, "Arial");
    const HFONT font = CreateFontIndirectA(&description);
    EXPECT_EQ(m_font, SelectObject(m_dc, font));
    EXPECT_FALSE(DeleteObject(font)) << "it is selected";
    EXPECT_EQ(font, SelectObject(m_dc, m_font));
    LOGFONTA copy{};
    EXPECT_EQ(static_cast<int>(sizeof copy), GetObjectA(font, sizeof copy, &copy));
    EXPECT_EQ(-9, copy.lfHeight);
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(nullptr, SelectObject(m_dc, font)) << "it is gone";
}

TEST_F(FontTest, ABitmapIsForOneMemoryDeviceContext) {
    UseBitmap(4, 4, 0);
    EXPECT_EQ(nullptr, SelectObject(GetDC(m_window), m_bitmap));
    const HDC other = CreateCompatibleDC(m_dc);
    EXPECT_EQ(nullptr, SelectObject(other, m_bitmap));
    EXPECT_TRUE(DeleteDC(other));
    EXPECT_EQ(96, GetDeviceCaps(m_dc, LOGPIXELSY));
}

// The bitmap that a memory device context is made with is one like others, but for being deleted with it.
TEST_F(FontTest, TheFirstBitmapIsForOneMemoryDeviceContext) {
    UseBitmap(4, 4, 0);
    const HDC other = CreateCompatibleDC(m_dc), third = CreateCompatibleDC(m_dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(GetDC(m_window), 4, 4);
    const HGDIOBJ first = SelectObject(other, bitmap);
    ASSERT_NE(nullptr, first);
    EXPECT_EQ(bitmap, SelectObject(other, first));
    EXPECT_EQ(nullptr, SelectObject(third, first)) << "it is selected";
    EXPECT_EQ(ERROR_BUSY, GetLastError());
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_TRUE(DeleteDC(other));
    EXPECT_TRUE(DeleteDC(third));
}

TEST_F(FontTest, MissingArgumentsAreRefused) {
    SIZE size{};
    RECT rect{};
    EXPECT_FALSE(GetTextExtentPoint32A(nullptr, "x", 1, &size));
    EXPECT_FALSE(GetTextExtentPoint32A(m_dc, nullptr, 1, &size));
    EXPECT_FALSE(GetTextExtentPoint32A(m_dc, "x", -1, &size));
    EXPECT_FALSE(GetTextExtentPoint32A(m_dc, "x", 1, nullptr));
    EXPECT_EQ(0, DrawTextA(m_dc, nullptr, -1, &rect, 0));
    EXPECT_EQ(0, DrawTextA(m_dc, "x", -2, &rect, 0));
    EXPECT_EQ(0, DrawTextA(GetDC(m_window), "x", -1, &rect, 0));
    EXPECT_FALSE(GetTextMetricsA(m_dc, nullptr));
    EXPECT_EQ(nullptr, CreateFontIndirectA(nullptr));
    EXPECT_EQ(0, FillRect(m_dc, nullptr, nullptr));
    EXPECT_EQ(0, GetObjectA(nullptr, 4, &size));
}

} // namespace KivoDrawingTools
