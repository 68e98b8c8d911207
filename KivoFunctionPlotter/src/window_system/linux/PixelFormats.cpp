#include "PixelFormats.h"

#include "LastError.h"
#include "NativeWindow.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace KivoDrawingTools {

namespace {

// What a configuration lacks or has too much, the most serious first; the smallest serves best.
using Shortcomings = std::array<int, 9>;

int Lack(int wanted, int present) {
    return std::max(wanted - present, 0);
}

Shortcomings Compare(const EglDisplay& display, EGLConfig config, const PIXELFORMATDESCRIPTOR& wanted) {
    const auto value = [&](EGLint name) { return static_cast<int>(display.Attribute(config, name)); };
    const int red = value(EGL_RED_SIZE);
    const int green = value(EGL_GREEN_SIZE);
    const int blue = value(EGL_BLUE_SIZE);
    const int alpha = value(EGL_ALPHA_SIZE);
    const int depth = value(EGL_DEPTH_SIZE);
    const int stencil = value(EGL_STENCIL_SIZE);
    // Descriptors often give the colour bits as a sum only; the sum may count an unused byte.
    const int eachColor = std::min(static_cast<int>(wanted.cColorBits) / 3, 8);
    const auto wish = [eachColor](BYTE bits) { return bits ? static_cast<int>(bits) : eachColor; };
    const int wantedRed = wish(wanted.cRedBits);
    const int wantedGreen = wish(wanted.cGreenBits);
    const int wantedBlue = wish(wanted.cBlueBits);
    return {
        value(EGL_CONFIG_CAVEAT) == EGL_NONE ? 0 : 1,
        value(EGL_SAMPLES),
        Lack(wantedRed, red) + Lack(wantedGreen, green) + Lack(wantedBlue, blue),
        Lack(std::min<int>(wanted.cDepthBits, 24), depth), // 24 bits of depth and a stencil come before 32
        Lack(wanted.cStencilBits, stencil),
        Lack(wanted.cDepthBits, depth),
        std::abs(alpha - wanted.cAlphaBits),
        Lack(red, wantedRed) + Lack(green, wantedGreen) + Lack(blue, wantedBlue),
        Lack(depth, wanted.cDepthBits) + Lack(stencil, wanted.cStencilBits)};
}

PIXELFORMATDESCRIPTOR Describe(const NativeWindow& window, EGLConfig config) {
    const EglDisplay& display = *window.Display();
    const auto bits = [&](EGLint name) {
        return static_cast<BYTE>(std::clamp(display.Attribute(config, name), 0, 255));
    };
    PIXELFORMATDESCRIPTOR answer{};
    answer.nSize = sizeof answer;
    answer.nVersion = 1;
    answer.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;
    if (window.IsDoubleBuffered()) answer.dwFlags |= PFD_DOUBLEBUFFER;
    if (display.Attribute(config, EGL_CONFIG_CAVEAT) == EGL_SLOW_CONFIG) answer.dwFlags |= PFD_GENERIC_FORMAT;
    answer.iPixelType = PFD_TYPE_RGBA;
    answer.cRedBits = bits(EGL_RED_SIZE);
    answer.cGreenBits = bits(EGL_GREEN_SIZE);
    answer.cBlueBits = bits(EGL_BLUE_SIZE);
    answer.cAlphaBits = bits(EGL_ALPHA_SIZE);
    answer.cColorBits = static_cast<BYTE>(answer.cRedBits + answer.cGreenBits + answer.cBlueBits);
    answer.cGreenShift = answer.cBlueBits;
    answer.cRedShift = static_cast<BYTE>(answer.cGreenShift + answer.cGreenBits);
    answer.cAlphaShift = static_cast<BYTE>(answer.cRedShift + answer.cRedBits);
    answer.cDepthBits = bits(EGL_DEPTH_SIZE);
    answer.cStencilBits = bits(EGL_STENCIL_SIZE);
    answer.iLayerType = PFD_MAIN_PLANE;
    return answer;
}

} // namespace

PIXELFORMATDESCRIPTOR FullFormat() {
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof format;
    format.nVersion = 1;
    format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = 24;
    format.cDepthBits = 24;
    format.cStencilBits = 8;
    return format;
}

int ChoosePixelFormat(HDC dc, const PIXELFORMATDESCRIPTOR* wanted) {
    NativeWindow* const window = WindowOfDc(dc, "ChoosePixelFormat");
    if (!window) return 0;
    if (!wanted || wanted->nSize != sizeof *wanted || wanted->nVersion != 1 ||
        wanted->iPixelType != PFD_TYPE_RGBA)
        return Fail(ERROR_INVALID_PARAMETER,
                    "ChoosePixelFormat: the descriptor is not one of version 1 with RGBA "
                    "pixels; fill it in.");
    const auto& formats = window->Formats();
    if (formats.empty())
        return Fail(ERROR_INVALID_PIXEL_FORMAT,
                    "EGL: no configuration draws OpenGL to this window; install an "
                    "OpenGL driver (libgl1-mesa-dri).");
    const auto better = [&](EGLConfig a, EGLConfig b) {
        return Compare(*window->Display(), a, *wanted) < Compare(*window->Display(), b, *wanted);
    };
    const auto best = std::min_element(formats.begin(), formats.end(), better);
    return static_cast<int>(best - formats.begin()) + 1;
}

int DescribePixelFormat(HDC dc, int format, UINT size, PIXELFORMATDESCRIPTOR* descriptor) {
    NativeWindow* const window = WindowOfDc(dc, "DescribePixelFormat");
    if (!window) return 0;
    const auto& formats = window->Formats();
    const int count = static_cast<int>(formats.size());
    if (!descriptor) return count;
    if (format < 1 || format > count || size < sizeof *descriptor)
        return Fail(ERROR_INVALID_PARAMETER,
                    "DescribePixelFormat: there is no such format or no room for its "
                    "description; pass 1 to the number of formats and 40 bytes.");
    *descriptor = Describe(*window, formats[static_cast<std::size_t>(format - 1)]);
    return count;
}

BOOL SetPixelFormat(HDC dc, int format, const PIXELFORMATDESCRIPTOR*) {
    NativeWindow* const window = WindowOfDc(dc, "SetPixelFormat");
    return window && window->SetFormat(format);
}

} // namespace KivoDrawingTools
