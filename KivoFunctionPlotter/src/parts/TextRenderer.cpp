#include "TextRenderer.h"

#include "computing/TextCut.h"
#include "computing/TextPixels.h"
#include "FontDescription.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ios>
#include <locale>
#include <sstream>

namespace KivoDrawingTools {

namespace {

constexpr int widestLine = 512;         // pixels at a scale of 1
constexpr std::size_t mostWords = 1000; // measured one by one
// A float has at most 149 digits after the point. The standard library formats on the stack, which the zeros
// of a precision of millions would overrun.
constexpr unsigned int mostDigits = 1000;

int Extent(const STextRenderer& renderer, const char* text, std::size_t length) {
    SIZE size = {};
    GetTextExtentPoint32A(renderer.m_memoryDC, text, static_cast<int>(length), &size);
    return size.cx;
}

// A leading 0, then the width of each word with the spaces after it. The last word is measured with the
// terminating zero, one byte more than it has. No byte of a longer character is a space. What
// follows the words that are measured one by one counts as one more.
void MeasureWords(STextRenderer& renderer, const char* text, std::size_t length) {
    renderer.m_wordExtents.assign(1, 0);
    std::size_t start = 0;
    for (std::size_t i = 0; i < length && renderer.m_wordExtents.size() <= mostWords; ++i) {
        if (text[i] != ' ') continue;
        while (i + 1 < length && text[i + 1] == ' ')
            ++i;
        renderer.m_wordExtents.push_back(Extent(renderer, text + start, i + 1 - start));
        start = i + 1;
    }
    if (start < length) renderer.m_wordExtents.push_back(Extent(renderer, text + start, length - start + 1));
}

bool IsLeadByte(unsigned char byte) {
    return IsDBCSLeadByte(byte) != 0;
}

// A text in one line, and the room it has in its image: that at a scale of 1, times the scale, at least.
struct LineSize {
    SIZE text;
    SIZE room;
    bool isTooWide; // for one line
};

void DrawTextLines(HDC dc, const char* text, std::size_t length, const LineSize& line, int width) {
    constexpr UINT format = DT_CENTER | DT_BOTTOM | DT_NOPREFIX; // an ampersand is drawn, not an underline
    const LONG height = line.room.cy;
    const LONG top = (height - line.text.cy) / 2;
    RECT whole = {0, top, width, width};
    if (!line.isTooWide) {
        DrawTextA(dc, text, static_cast<int>(length), &whole, format);
        return;
    }
    const TextEncoding encoding = {GetACP() == CP_UTF8, IsLeadByte};
    const std::size_t cut = MiddleOfText(text, length, encoding);
    RECT first = {0, top, width, height};
    RECT second = {0, height + top, width, 2 * height};
    DrawTextA(dc, text, static_cast<int>(cut), &first, format);
    DrawTextA(dc, text + cut, static_cast<int>(length - cut), &second, format);
}

// A bitmap selected into a memory device context; deselected and deleted with the scope.
class SelectedBitmap {
public:
    SelectedBitmap(const STextRenderer& renderer, int width, int height)
        : m_dc(renderer.m_memoryDC), m_bitmap(CreateCompatibleBitmap(renderer.m_windowDC, width, height)),
          m_previous(m_bitmap ? SelectObject(m_dc, m_bitmap) : nullptr) {}
    ~SelectedBitmap() {
        Deselect();
        if (m_bitmap) DeleteObject(m_bitmap);
    }
    SelectedBitmap(const SelectedBitmap&) = delete;
    SelectedBitmap& operator=(const SelectedBitmap&) = delete;

    bool IsSelected() const { return m_previous != nullptr; }
    void Deselect() {
        if (m_previous) SelectObject(m_dc, m_previous);
        m_previous = nullptr;
    }
    HBITMAP Handle() const { return m_bitmap; }

private:
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_previous;
};

struct WhiteBrush {
    WhiteBrush() = default;
    ~WhiteBrush() { DeleteObject(handle); }
    WhiteBrush(const WhiteBrush&) = delete;
    WhiteBrush& operator=(const WhiteBrush&) = delete;

    const HBRUSH handle = CreateSolidBrush(0xFFFFFF);
};

// Bold black is on white, as at first. Thin strokes on it, and minus signs with them, would be lost where
// labels are drawn smaller than they are, and others would have light borders.
TextColors ColorsOf(const STextRenderer& renderer) {
    return {renderer.m_inkColor, renderer.m_isBold && (renderer.m_inkColor & 0xFFFFFF) == 0};
}

// Draws the text on a white square, or at another scale than 1, where a square may be large, on as much as it
// takes, and reads its top rows back, flipped, as RGBA from new[]; null without memory, or when the system
// refuses a step: what was not drawn on would show as a black box.
unsigned char* DrawPixels(const STextRenderer& renderer, const char* text, std::size_t length,
                          const LineSize& line, int width, int height) {
    const int depth = renderer.m_pixelScale == 1.0f ? width : height;
    SelectedBitmap bitmap(renderer, width, depth);
    if (!bitmap.IsSelected()) return nullptr;
    {
        const WhiteBrush white;
        const RECT whole = {0, 0, width, depth};
        if (!FillRect(renderer.m_memoryDC, &whole, white.handle)) return nullptr;
        DrawTextLines(renderer.m_memoryDC, text, length, line, width);
    }
    bitmap.Deselect();

    BITMAP description = {};
    if (!GetObjectA(bitmap.Handle(), sizeof(description), &description)) return nullptr;
    const unsigned int bits = description.bmBitsPixel;
    const auto columns = static_cast<std::size_t>(width);
    const auto lines = static_cast<std::size_t>(height);
    const std::size_t rowBytes =
        std::max(PixelBytesOfRow(bits, columns),
                 static_cast<std::size_t>(std::max<LONG>(description.bmWidthBytes, 0)));
    std::vector<unsigned char> rows(rowBytes * lines, 255); // rows below the square stay white
    if (GetBitmapBits(bitmap.Handle(), static_cast<LONG>(rows.size()), rows.data()) == 0) return nullptr;

    unsigned char* rgba = new unsigned char[columns * lines * 4];
    TextPixels({rows.data(), rowBytes, bits}, columns, lines, rgba, ColorsOf(renderer));
    return rgba;
}

int PowerOfTwoNotBelow(int size) {
    int power = 1;
    while (power < size)
        power *= 2;
    return power;
}

// The size of an image's texture.
struct PaddedSize {
    explicit PaddedSize(const SKivoTexImage& image)
        : width(PowerOfTwoNotBelow(image.width)), height(PowerOfTwoNotBelow(image.height)) {}
    int width;
    int height;
};

// What OpenGL refuses would be drawn as a box. Every driver takes the sizes below.
bool IsTextureSize(const PaddedSize& padded) {
    constexpr int alwaysTaken = 1024;
    GLint largest = alwaysTaken;
    if (std::max(padded.width, padded.height) > alwaysTaken) glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    return std::max(padded.width, padded.height) <= largest;
}

// Transparent texels for the larger of the padding's two parts.
std::vector<unsigned char> ClearTexels(const SKivoTexImage& image, const PaddedSize& padded) {
    const std::size_t beside = static_cast<std::size_t>(padded.width - image.width) * image.height;
    const std::size_t above = static_cast<std::size_t>(padded.height - image.height) * padded.width;
    return std::vector<unsigned char>(std::max(beside, above) * 4, 0);
}

// Makes the texels beside and above the image transparent: what a driver leaves there would show at the
// image's borders, where texels are interpolated and repeat.
void ClearPadding(const SKivoTexImage& image, const PaddedSize& padded, const unsigned char* clear) {
    const int beside = padded.width - image.width;
    const int above = padded.height - image.height;
    if (beside > 0)
        glTexSubImage2D(GL_TEXTURE_2D, 0, image.width, 0, beside, image.height, GL_RGBA, GL_UNSIGNED_BYTE,
                        clear);
    if (above > 0)
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, image.height, padded.width, above, GL_RGBA, GL_UNSIGNED_BYTE,
                        clear);
}

// The texture is padded to powers of two; sMax and tMax say how much of it is used.
void UploadTexture(SKivoTexImage& image) {
    const PaddedSize padded(image);
    const std::vector<unsigned char> clear = ClearTexels(image, padded); // before OpenGL's state changes
    image.sMax = static_cast<float>(image.width) / static_cast<float>(padded.width);
    image.tMax = static_cast<float>(image.height) / static_cast<float>(padded.height);
    glBindTexture(GL_TEXTURE_2D, image.texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, padded.width, padded.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 nullptr);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, image.width, image.height, GL_RGBA, GL_UNSIGNED_BYTE,
                    image.pixels);
    ClearPadding(image, padded, clear.data());
    glBindTexture(GL_TEXTURE_2D, 0);
}

// Whether the text could be measured by the font that draws it.
bool MeasureLine(const STextRenderer& renderer, const char* text, std::size_t length, LineSize& line) {
    const HDC dc = renderer.m_memoryDC;
    SIZE plain = {};
    const bool isScaled = renderer.m_plainFont && SelectObject(dc, renderer.m_plainFont);
    if (isScaled) {
        GetTextExtentPoint32A(dc, text, static_cast<int>(length), &plain);
        if (!SelectObject(dc, renderer.m_font)) return false;
    }
    GetTextExtentPoint32A(dc, text, static_cast<int>(length), &line.text);
    if (!isScaled) plain = line.text;
    const float scale = isScaled ? renderer.m_pixelScale : 1.0f;
    line.room.cx = std::max(line.text.cx, static_cast<LONG>(ScaledPixels(static_cast<int>(plain.cx), scale)));
    line.room.cy = std::max(line.text.cy, static_cast<LONG>(ScaledPixels(static_cast<int>(plain.cy), scale)));
    line.isTooWide = plain.cx > widestLine;
    return true;
}

// Of an image that has the line.
SIZE ExtentOf(const STextRenderer& renderer, const LineSize& line) {
    const SIZE& room = line.room;
    if (line.isTooWide) return {ScaledPixels(widestLine, renderer.m_pixelScale), 2 * room.cy};
    return {std::max(room.cx, room.cy), room.cy};
}

bool IsReady(const STextRenderer* renderer) {
    return renderer && renderer->m_windowDC && renderer->m_memoryDC && renderer->m_font;
}

// Measures and draws the text into an image that has a texture name and no pixels.
int DrawTextImage(STextRenderer& renderer, const char* text, SKivoTexImage& image) {
    const std::size_t length = std::strlen(text);
    LineSize line = {};
    if (!MeasureLine(renderer, text, length, line)) return -1;
    const SIZE extent = ExtentOf(renderer, line);
    image.width = static_cast<int>(extent.cx);
    image.height = static_cast<int>(extent.cy);
    if (!IsTextureSize(PaddedSize(image))) return -1;
    MeasureWords(renderer, text, length);

    image.pixels = DrawPixels(renderer, text, length, line, image.width, image.height);
    if (!image.pixels) return -1;
    UploadTexture(image);
    return 0;
}

std::string WriteNumber(double value, std::ios::fmtflags notation, unsigned int precision) {
    // The standard libraries write them in several ways.
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0.0 ? "-inf" : "inf";
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.setf(notation, std::ios::floatfield);
    stream.precision(static_cast<std::streamsize>(std::min(precision, mostDigits)));
    stream << value;
    return stream.str();
}

} // namespace

void InitTextRenderer(STextRenderer* renderer, HDC windowDC, int fontSize) {
    ReleaseTextRenderer(renderer);
    renderer->m_windowDC = windowDC;
    renderer->m_fontSize = fontSize;
    renderer->m_memoryDC = CreateCompatibleDC(windowDC);
    if (!renderer->m_memoryDC) return;

    const auto describe = [&](float scale) {
        const char* const face = renderer->m_face.empty() ? "MS Gothic" : renderer->m_face.c_str();
        return DescribeFont(DotsPerInch(renderer->m_memoryDC, windowDC), fontSize,
                            renderer->m_isBold ? FW_BOLD : FW_NORMAL, face, scale);
    };
    renderer->m_fontDescription = describe(renderer->m_pixelScale);
    renderer->m_font = CreateFontIndirectA(&renderer->m_fontDescription);
    if (!renderer->m_font) return;
    renderer->m_savedFont = static_cast<HFONT>(SelectObject(renderer->m_memoryDC, renderer->m_font));
    GetTextMetricsA(renderer->m_memoryDC, &renderer->m_textMetrics);
    if (renderer->m_pixelScale == 1.0f) return;
    const LOGFONTA plain = describe(1.0f);
    renderer->m_plainFont = CreateFontIndirectA(&plain);
}

void ReleaseTextRenderer(STextRenderer* renderer) {
    if (renderer->m_memoryDC) {
        if (renderer->m_savedFont) SelectObject(renderer->m_memoryDC, renderer->m_savedFont);
        DeleteDC(renderer->m_memoryDC);
        renderer->m_memoryDC = nullptr;
        renderer->m_savedFont = nullptr;
    }
    for (HFONT* const font : {&renderer->m_font, &renderer->m_plainFont}) {
        if (*font) DeleteObject(*font);
        *font = nullptr;
    }
    renderer->m_windowDC = nullptr;
}

int CreateTextImage(STextRenderer* renderer, const char* text, SKivoTexImage* image) {
    static std::atomic<std::uint64_t> drawings{0};
    if (!IsReady(renderer)) return -1;
    image->drawing = ++drawings;
    if (image->texture == 0) glGenTextures(1, &image->texture);
    delete[] image->pixels;
    image->pixels = nullptr;
    try {
        return DrawTextImage(*renderer, text, *image);
    } catch (...) {
        ReleaseTextImage(image); // neither a name without texture nor pixels that are not in it
        throw;
    }
}

SIZE TextImageExtent(const STextRenderer& renderer, const char* text) {
    LineSize line = {};
    if (!IsReady(&renderer) || !MeasureLine(renderer, text, std::strlen(text), line)) return {};
    return ExtentOf(renderer, line);
}

int CreateLabelImage(STextRenderer* renderer, const std::string& text, SKivoTexImage* image) {
    return text.empty() ? 0 : CreateTextImage(renderer, text.c_str(), image);
}

std::string FormatNumber(float value, unsigned int precision) {
    return WriteNumber(static_cast<double>(value), std::ios::fixed, precision);
}

std::string FormatAbsolute(double value, unsigned int precision) {
    constexpr double endOfFractions = 1e16;
    constexpr unsigned int allDigits = 16; // after the first
    const bool isFixed = std::abs(value) < endOfFractions;
    return isFixed ? WriteNumber(value, std::ios::fixed, precision)
                   : WriteNumber(value, std::ios::scientific, allDigits);
}

void ReleaseTextImage(SKivoTexImage* image) {
    if (image->texture != 0) {
        glDeleteTextures(1, &image->texture);
        image->texture = 0;
    }
    delete[] image->pixels;
    image->pixels = nullptr;
    image->width = 0;
    image->height = 0;
}

} // namespace KivoDrawingTools
