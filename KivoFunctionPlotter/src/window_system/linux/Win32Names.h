// Types, constants and operations of the Win32 interface, as far as the plotter uses them, for platforms that
// have none. Meaning, arguments and results are those of the originals; what differs is said here.
//
// Results: BOOL operations return 0 on failure, handle operations null. A failure sets the code that
// GetLastError() returns and the sentence that LastWindowError() returns, both per thread; a success changes
// neither. Null handles are refused, never followed; they come from a failure before, whose code and sentence
// stay.
#pragma once

#include "KivoPlatform.h"

#include <cstdint>

namespace KivoDrawingTools {

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using COLORREF = std::uint32_t;

struct GdiObject;
using HGDIOBJ = GdiObject*;
using HFONT = GdiObject*;
using HBITMAP = GdiObject*;
using HBRUSH = GdiObject*;

struct SIZE {
    LONG cx;
    LONG cy;
};

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    void* bmBits;
};

constexpr int LF_FACESIZE = 32;

struct LOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE];
};

struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};

struct PIXELFORMATDESCRIPTOR {
    WORD nSize;
    WORD nVersion;
    DWORD dwFlags;
    BYTE iPixelType;
    BYTE cColorBits;
    BYTE cRedBits;
    BYTE cRedShift;
    BYTE cGreenBits;
    BYTE cGreenShift;
    BYTE cBlueBits;
    BYTE cBlueShift;
    BYTE cAlphaBits;
    BYTE cAlphaShift;
    BYTE cAccumBits;
    BYTE cAccumRedBits;
    BYTE cAccumGreenBits;
    BYTE cAccumBlueBits;
    BYTE cAccumAlphaBits;
    BYTE cDepthBits;
    BYTE cStencilBits;
    BYTE cAuxBuffers;
    BYTE iLayerType;
    BYTE bReserved;
    DWORD dwLayerMask;
    DWORD dwVisibleMask;
    DWORD dwDamageMask;
};
static_assert(sizeof(PIXELFORMATDESCRIPTOR) == 40, "the descriptor has the published layout");

constexpr BYTE PFD_TYPE_RGBA = 0;
constexpr BYTE PFD_MAIN_PLANE = 0;
constexpr DWORD PFD_DOUBLEBUFFER = 0x00000001;
constexpr DWORD PFD_DRAW_TO_WINDOW = 0x00000004;
constexpr DWORD PFD_SUPPORT_OPENGL = 0x00000020;
constexpr DWORD PFD_GENERIC_FORMAT = 0x00000040;
constexpr DWORD PFD_GENERIC_ACCELERATED = 0x00001000;
constexpr DWORD PFD_STEREO_DONTCARE = 0x80000000;

constexpr int FW_NORMAL = 400;
constexpr int FW_MEDIUM = 500;
constexpr int FW_BOLD = 700;
constexpr BYTE DEFAULT_CHARSET = 1;
constexpr BYTE OUT_DEFAULT_PRECIS = 0;
constexpr BYTE CLIP_DEFAULT_PRECIS = 0;
constexpr BYTE ANTIALIASED_QUALITY = 4;
constexpr BYTE DEFAULT_PITCH = 0;
constexpr BYTE FF_MODERN = 0x30;

constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;

constexpr UINT CP_UTF8 = 65001;

constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_NOPREFIX = 0x0800; ///< no meaning here: an ampersand is a character in any case

/// Codes of GetLastError() that the operations set.
constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_NOT_SUPPORTED = 50;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_BUSY = 170;
constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
constexpr DWORD ERROR_INVALID_PIXEL_FORMAT = 2000;

// The operations, by the source that holds them.

// ---- LastError.cpp

DWORD GetLastError();

// ---- NativeWindow.cpp

/// The device context of the window; one per window, freed with it.
HDC GetDC(HWND window);
/// (0, 0, width, height) in pixels.
BOOL GetClientRect(HWND window, RECT* rect);
/// The client area in screen coordinates. For an off-screen window the screen is the window.
BOOL GetWindowRect(HWND window, RECT* rect);

// ---- PixelFormats.cpp

/// The number (from 1) of the format that serves the descriptor best; 0 when none does.
int ChoosePixelFormat(HDC dc, const PIXELFORMATDESCRIPTOR* wanted);
/// Describes a format; returns the number of formats, 0 on failure.
int DescribePixelFormat(HDC dc, int format, UINT size, PIXELFORMATDESCRIPTOR* descriptor);
/// Gives the window its format, once in its life: again with the same number succeeds, with another fails.
BOOL SetPixelFormat(HDC dc, int format, const PIXELFORMATDESCRIPTOR* descriptor);

// ---- RenderingContext.cpp

HGLRC wglCreateContext(HDC dc);
/// Binds a context to the calling thread. With a null context whatever is bound to the thread is unbound, a
/// context of the host's own too; dc is then ignored. A window whose size has changed is followed here.
BOOL wglMakeCurrent(HDC dc, HGLRC context);
/// Deletes a context; unbinds it first where the calling thread has it bound. Fails where another thread has.
BOOL wglDeleteContext(HGLRC context);
/// The context and the device context bound to the calling thread by wglMakeCurrent, or null.
HGLRC wglGetCurrentContext();
HDC wglGetCurrentDC();
BOOL SwapBuffers(HDC dc);

// ---- FontBitmaps.cpp

/// Makes count display lists from listBase, each drawing one glyph of the selected font as a bitmap and
/// moving the raster position by its advance. Glyph numbers are bytes of the Windows-1252 character set.
BOOL wglUseFontBitmapsA(HDC dc, DWORD first, DWORD count, DWORD listBase);

// ---- DeviceContext.cpp

/// a * b / c in 64 bits, rounded half away from zero; -1 when c is 0 or the result does not fit.
int MulDiv(int a, int b, int c);
int GetDeviceCaps(HDC dc, int index);
/// A memory device context with the settings of dc: 1 x 1 bitmap, default font, black text on opaque white.
HDC CreateCompatibleDC(HDC dc);
BOOL DeleteDC(HDC dc);
/// Selects a font, bitmap or brush; returns the one of that kind selected before. A bitmap is accepted by a
/// memory device context only, and by one at a time.
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

// ---- GdiObjects.cpp

HFONT CreateFontIndirectA(const LOGFONTA* description);
HBRUSH CreateSolidBrush(COLORREF color);
/// 32 bits per pixel, blue, green, red, unused; top row first; cleared to black.
HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
/// Frees an object; fails where a device context has it selected.
BOOL DeleteObject(HGDIOBJ object);
/// Copies at most size bytes of the object's description: a BITMAP, or a LOGFONTA. Returns the bytes copied.
int GetObjectA(HGDIOBJ object, int size, void* description);
/// Copies at most size bytes of the bitmap's rows, top row first. Returns the bytes copied.
LONG GetBitmapBits(HBITMAP bitmap, LONG size, void* bits);

// ---- Text.cpp. Strings are UTF-8; invalid bytes show as a replacement character.

/// The encoding of all texts: CP_UTF8.
UINT GetACP();
/// Whether a byte begins a character of two bytes in an encoding that has no others: none does here.
BOOL IsDBCSLeadByte(BYTE byte);

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
/// Width of the text on one line and height of the line, in pixels. A length of 0 measures (0, line height).
BOOL GetTextExtentPoint32A(HDC dc, const char* text, int length, SIZE* size);
/// Draws text into the rectangle, clipped by it. length -1: up to the terminating zero. Returns the height
/// drawn.
int DrawTextA(HDC dc, const char* text, int length, RECT* rect, UINT format);
int FillRect(HDC dc, const RECT* rect, HBRUSH brush);

} // namespace KivoDrawingTools
