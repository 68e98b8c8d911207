// The window-system operations that the plotter calls: noted, made to fail where that is asked for, else
// forwarded. The linker leads calls of an operation to __wrap_ with its name, and __real_ to the operation
// itself; C++ functions have their mangled names there. The build reads those from this file.
#include "AllocationFaults.h"
#include "CallRecorder.h"
#include "OperationFaults.h"
#include "PretendedSystem.h"
#include "ResourceLedger.h"
#include "window_system/linux/LastError.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <utility>
#include <vector>

namespace KivoTest {

using namespace KivoDrawingTools;

// ---- Faults

namespace {

OperationFault* fault = nullptr;

} // namespace

OperationFault::OperationFault(long number, DWORD error) : m_number(number), m_error(error) {
    if (fault) throw std::logic_error("two operation faults at a time");
    fault = this;
}

OperationFault::~OperationFault() {
    Stop();
    if (m_owed) m_owed();
}

void OperationFault::Stop() {
    if (fault == this) fault = nullptr;
}

bool OperationFault::IsToFail(const char* name) {
    if (!fault) return false;
    fault->m_operations.push_back(name);
    if (static_cast<long>(fault->m_operations.size()) != fault->m_number) return false;
    fault->m_failed = name;
    Fail(fault->m_error, std::string(name) + ": made to fail");
    return true;
}

void OperationFault::Owe(std::function<void()> deletion) {
    fault->m_owed = std::move(deletion);
}

// ---- Another system

namespace {

PretendedSystem* pretended = nullptr;

} // namespace

PretendedSystem::PretendedSystem() {
    if (pretended) throw std::logic_error("two other systems at a time");
    pretended = this;
}

PretendedSystem::~PretendedSystem() {
    pretended = nullptr;
}

// ---- Noting, failing, forwarding

namespace {

unsigned long long Number(const void* handle) {
    return static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(handle));
}

// Notes an operation. What the layer calls within itself is neither noted nor made to fail.
bool IsToFail(const char* name, std::initializer_list<Argument> arguments) {
    if (InsideWrapped::IsInside()) return false;
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->Add(name, arguments, true);
    return OperationFault::IsToFail(name);
}

template <typename Handle>
Handle Taken(const char* kind, Handle handle) {
    if (handle) Take(kind, nullptr, Number(handle));
    return handle;
}

} // namespace

#define OPERATION(mangled, result, name, parameters)                                                         \
    result Real_##name parameters asm("__real_" mangled);                                                    \
    result Wrap_##name parameters asm("__wrap_" mangled);                                                    \
    result Wrap_##name parameters

// ---- Windows

OPERATION("_ZN16KivoDrawingTools5GetDCEPNS_12NativeWindowE", HDC, GetDC, (HWND window)) {
    if (IsToFail("GetDC", {Ptr(window)})) return nullptr;
    const InsideWrapped inside;
    return Real_GetDC(window);
}

OPERATION("_ZN16KivoDrawingTools13GetClientRectEPNS_12NativeWindowEPNS_4RECTE", BOOL, GetClientRect,
          (HWND window, RECT* rect)) {
    if (IsToFail("GetClientRect", {Ptr(window)})) return 0;
    const InsideWrapped inside;
    return Real_GetClientRect(window, rect);
}

OPERATION("_ZN16KivoDrawingTools13GetWindowRectEPNS_12NativeWindowEPNS_4RECTE", BOOL, GetWindowRect,
          (HWND window, RECT* rect)) {
    if (IsToFail("GetWindowRect", {Ptr(window)})) return 0;
    const InsideWrapped inside;
    return Real_GetWindowRect(window, rect);
}

// ---- Pixel formats and contexts

OPERATION("_ZN16KivoDrawingTools17ChoosePixelFormatEPNS_13DeviceContextEPKNS_21PIXELFORMATDESCRIPTORE", int,
          ChoosePixelFormat, (HDC dc, const PIXELFORMATDESCRIPTOR* wanted)) {
    if (IsToFail("ChoosePixelFormat", {Ptr(dc),
                                       Num(wanted->nSize),
                                       Num(wanted->nVersion),
                                       Num(wanted->dwFlags),
                                       Num(wanted->iPixelType),
                                       Num(wanted->cColorBits),
                                       Num(wanted->cRedBits),
                                       Num(wanted->cRedShift),
                                       Num(wanted->cGreenBits),
                                       Num(wanted->cGreenShift),
                                       Num(wanted->cBlueBits),
                                       Num(wanted->cBlueShift),
                                       Num(wanted->cAlphaBits),
                                       Num(wanted->cAlphaShift),
                                       Num(wanted->cAccumBits),
                                       Num(wanted->cAccumRedBits),
                                       Num(wanted->cAccumGreenBits),
                                       Num(wanted->cAccumBlueBits),
                                       Num(wanted->cAccumAlphaBits),
                                       Num(wanted->cDepthBits),
                                       Num(wanted->cStencilBits),
                                       Num(wanted->cAuxBuffers),
                                       Num(wanted->iLayerType),
                                       Num(wanted->bReserved),
                                       Num(wanted->dwLayerMask),
                                       Num(wanted->dwVisibleMask),
                                       Num(wanted->dwDamageMask)}))
        return 0;
    const InsideWrapped inside;
    return Real_ChoosePixelFormat(dc, wanted);
}

OPERATION("_ZN16KivoDrawingTools19DescribePixelFormatEPNS_13DeviceContextEijPNS_21PIXELFORMATDESCRIPTORE",
          int, DescribePixelFormat, (HDC dc, int format, UINT size, PIXELFORMATDESCRIPTOR* descriptor)) {
    if (IsToFail("DescribePixelFormat", {Ptr(dc), Num(format), Num(size)})) return 0;
    const InsideWrapped inside;
    return Real_DescribePixelFormat(dc, format, size, descriptor);
}

OPERATION("_ZN16KivoDrawingTools14SetPixelFormatEPNS_13DeviceContextEiPKNS_21PIXELFORMATDESCRIPTORE", BOOL,
          SetPixelFormat, (HDC dc, int format, const PIXELFORMATDESCRIPTOR* descriptor)) {
    if (IsToFail("SetPixelFormat", {Ptr(dc), Num(format)})) return 0;
    const InsideWrapped inside;
    return Real_SetPixelFormat(dc, format, descriptor);
}

OPERATION("_ZN16KivoDrawingTools16wglCreateContextEPNS_13DeviceContextE", HGLRC, wglCreateContext, (HDC dc)) {
    if (IsToFail("wglCreateContext", {Ptr(dc)})) return nullptr;
    const InsideWrapped inside;
    return Taken("context", Real_wglCreateContext(dc));
}

OPERATION("_ZN16KivoDrawingTools14wglMakeCurrentEPNS_13DeviceContextEPNS_16RenderingContextE", BOOL,
          wglMakeCurrent, (HDC dc, HGLRC context)) {
    // As a real failure does, a failed binding leaves nothing bound; a failed unbinding leaves all as it is.
    if (IsToFail("wglMakeCurrent", {Ptr(dc), Ptr(context)})) {
        const InsideWrapped inside;
        const KeepFailure keep;
        if (context) Real_wglMakeCurrent(dc, nullptr);
        return 0;
    }
    const InsideWrapped inside;
    return Real_wglMakeCurrent(dc, context);
}

OPERATION("_ZN16KivoDrawingTools16wglDeleteContextEPNS_16RenderingContextE", BOOL, wglDeleteContext,
          (HGLRC context)) {
    const auto remove = [=] {
        const InsideWrapped inside;
        const BOOL result = Real_wglDeleteContext(context);
        if (result) {
            GiveBackAllOf(context);
            GiveBack("context", nullptr, Number(context));
        }
        return result;
    };
    if (!IsToFail("wglDeleteContext", {Ptr(context)})) return remove();
    OperationFault::Owe(remove);
    return 0;
}

OPERATION("_ZN16KivoDrawingTools11SwapBuffersEPNS_13DeviceContextE", BOOL, SwapBuffers, (HDC dc)) {
    if (IsToFail("SwapBuffers", {Ptr(dc)})) return 0;
    const InsideWrapped inside;
    return Real_SwapBuffers(dc);
}

OPERATION("_ZN16KivoDrawingTools18wglUseFontBitmapsAEPNS_13DeviceContextEjjj", BOOL, wglUseFontBitmapsA,
          (HDC dc, DWORD first, DWORD count, DWORD listBase)) {
    if (IsToFail("wglUseFontBitmapsA", {Ptr(dc), Num(first), Num(count), Num(listBase)})) return 0;
    const InsideWrapped inside;
    return Real_wglUseFontBitmapsA(dc, first, count, listBase);
}

// ---- Device contexts and objects

OPERATION("_ZN16KivoDrawingTools13GetDeviceCapsEPNS_13DeviceContextEi", int, GetDeviceCaps,
          (HDC dc, int index)) {
    if (IsToFail("GetDeviceCaps", {Ptr(dc), Num(index)})) return 0;
    const InsideWrapped inside;
    return Real_GetDeviceCaps(dc, index);
}

OPERATION("_ZN16KivoDrawingTools6MulDivEiii", int, MulDiv, (int a, int b, int c)) {
    if (IsToFail("MulDiv", {Num(a), Num(b), Num(c)})) return -1;
    const InsideWrapped inside;
    return Real_MulDiv(a, b, c);
}

OPERATION("_ZN16KivoDrawingTools18CreateCompatibleDCEPNS_13DeviceContextE", HDC, CreateCompatibleDC,
          (HDC dc)) {
    if (IsToFail("CreateCompatibleDC", {Ptr(dc)})) return nullptr;
    const InsideWrapped inside;
    return Taken("device context", Real_CreateCompatibleDC(dc));
}

OPERATION("_ZN16KivoDrawingTools8DeleteDCEPNS_13DeviceContextE", BOOL, DeleteDC, (HDC dc)) {
    const auto remove = [=] {
        const InsideWrapped inside;
        const BOOL result = Real_DeleteDC(dc);
        if (result) GiveBack("device context", nullptr, Number(dc));
        return result;
    };
    if (!IsToFail("DeleteDC", {Ptr(dc)})) return remove();
    OperationFault::Owe(remove);
    return 0;
}

OPERATION("_ZN16KivoDrawingTools12SelectObjectEPNS_13DeviceContextEPNS_9GdiObjectE", HGDIOBJ, SelectObject,
          (HDC dc, HGDIOBJ object)) {
    if (IsToFail("SelectObject", {Ptr(dc), Ptr(object)})) return nullptr;
    const InsideWrapped inside;
    return Real_SelectObject(dc, object);
}

OPERATION("_ZN16KivoDrawingTools12DeleteObjectEPNS_9GdiObjectE", BOOL, DeleteObject, (HGDIOBJ object)) {
    const auto remove = [=] {
        const InsideWrapped inside;
        const BOOL result = Real_DeleteObject(object);
        if (result) GiveBack("object", nullptr, Number(object));
        return result;
    };
    if (!IsToFail("DeleteObject", {Ptr(object)})) return remove();
    OperationFault::Owe(remove);
    return 0;
}

OPERATION("_ZN16KivoDrawingTools10GetObjectAEPNS_9GdiObjectEiPv", int, GetObjectA,
          (HGDIOBJ object, int size, void* description)) {
    if (IsToFail("GetObjectA", {Ptr(object), Num(size)})) return 0;
    const InsideWrapped inside;
    const int bytes = Real_GetObjectA(object, size, description);
    if (bytes == sizeof(BITMAP) && pretended && pretended->has24Bits) {
        BITMAP& bitmap = *static_cast<BITMAP*>(description);
        bitmap.bmBitsPixel = 24;
        bitmap.bmWidthBytes = (3 * bitmap.bmWidth + 1) / 2 * 2;
    }
    return bytes;
}

OPERATION("_ZN16KivoDrawingTools22CreateCompatibleBitmapEPNS_13DeviceContextEii", HBITMAP,
          CreateCompatibleBitmap, (HDC dc, int width, int height)) {
    if (IsToFail("CreateCompatibleBitmap", {Ptr(dc), Num(width), Num(height)})) return nullptr;
    const InsideWrapped inside;
    return Taken("object", Real_CreateCompatibleBitmap(dc, width, height));
}

OPERATION("_ZN16KivoDrawingTools16CreateSolidBrushEj", HBRUSH, CreateSolidBrush, (COLORREF color)) {
    if (IsToFail("CreateSolidBrush", {Num(color)})) return nullptr;
    const InsideWrapped inside;
    return Taken("object", Real_CreateSolidBrush(color));
}

OPERATION("_ZN16KivoDrawingTools8FillRectEPNS_13DeviceContextEPKNS_4RECTEPNS_9GdiObjectE", int, FillRect,
          (HDC dc, const RECT* rect, HBRUSH brush)) {
    if (IsToFail("FillRect", {Ptr(dc), Num(rect->left), Num(rect->top), Num(rect->right), Num(rect->bottom)}))
        return 0;
    const InsideWrapped inside;
    return Real_FillRect(dc, rect, brush);
}

OPERATION("_ZN16KivoDrawingTools13GetBitmapBitsEPNS_9GdiObjectEiPv", LONG, GetBitmapBits,
          (HBITMAP bitmap, LONG size, void* bits)) {
    if (IsToFail("GetBitmapBits", {Ptr(bitmap), Num(size)})) return 0;
    const InsideWrapped inside;
    if (!pretended || !pretended->has24Bits) return Real_GetBitmapBits(bitmap, size, bits);
    BITMAP description = {};
    Real_GetObjectA(bitmap, sizeof description, &description);
    std::vector<unsigned char> pixels(static_cast<std::size_t>(description.bmWidthBytes) *
                                      static_cast<std::size_t>(description.bmHeight));
    Real_GetBitmapBits(bitmap, static_cast<LONG>(pixels.size()), pixels.data());
    std::vector<unsigned char> rows;
    for (LONG i = 0; i < description.bmWidth * description.bmHeight; ++i) {
        const auto pixel = pixels.begin() + 4 * static_cast<std::ptrdiff_t>(i);
        rows.insert(rows.end(), pixel, pixel + 3);
        const bool isRowEnd = (i + 1) % description.bmWidth == 0;
        if (isRowEnd && description.bmWidth % 2 != 0) rows.push_back(0);
    }
    const std::size_t copied = std::min(rows.size(), static_cast<std::size_t>(size));
    std::memcpy(bits, rows.data(), copied);
    return static_cast<LONG>(copied);
}

// ---- Text

OPERATION("_ZN16KivoDrawingTools19CreateFontIndirectAEPKNS_8LOGFONTAE", HFONT, CreateFontIndirectA,
          (const LOGFONTA* font)) {
    if (IsToFail("CreateFontIndirectA",
                 {Num(font->lfHeight), Num(font->lfWidth), Num(font->lfEscapement), Num(font->lfOrientation),
                  Num(font->lfWeight), Num(font->lfItalic), Num(font->lfUnderline), Num(font->lfStrikeOut),
                  Num(font->lfCharSet), Num(font->lfOutPrecision), Num(font->lfClipPrecision),
                  Num(font->lfQuality), Num(font->lfPitchAndFamily),
                  Text(font->lfFaceName, std::strlen(font->lfFaceName))}))
        return nullptr;
    const InsideWrapped inside;
    return Taken("object", Real_CreateFontIndirectA(font));
}

OPERATION("_ZN16KivoDrawingTools15GetTextMetricsAEPNS_13DeviceContextEPNS_11TEXTMETRICAE", BOOL,
          GetTextMetricsA, (HDC dc, TEXTMETRICA* metrics)) {
    if (IsToFail("GetTextMetricsA", {Ptr(dc)})) return 0;
    const InsideWrapped inside;
    return Real_GetTextMetricsA(dc, metrics);
}

OPERATION("_ZN16KivoDrawingTools21GetTextExtentPoint32AEPNS_13DeviceContextEPKciPNS_4SIZEE", BOOL,
          GetTextExtentPoint32A, (HDC dc, const char* text, int length, SIZE* size)) {
    if (IsToFail("GetTextExtentPoint32A",
                 {Ptr(dc), Text(text, static_cast<std::size_t>(length)), Num(length)}))
        return 0;
    const InsideWrapped inside;
    return Real_GetTextExtentPoint32A(dc, text, length, size);
}

OPERATION("_ZN16KivoDrawingTools9DrawTextAEPNS_13DeviceContextEPKciPNS_4RECTEj", int, DrawTextA,
          (HDC dc, const char* text, int length, RECT* rect, UINT format)) {
    if (IsToFail("DrawTextA", {Ptr(dc), Text(text, static_cast<std::size_t>(length)), Num(rect->left),
                               Num(rect->top), Num(rect->right), Num(rect->bottom), Num(format)}))
        return 0;
    const InsideWrapped inside;
    return Real_DrawTextA(dc, text, length, rect, format);
}

// ---- Questions, which cannot fail

OPERATION("_ZN16KivoDrawingTools6GetACPEv", UINT, GetACP, ()) {
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->Add("GetACP", {}, true);
    return pretended ? pretended->codePage : Real_GetACP();
}

OPERATION("_ZN16KivoDrawingTools14IsDBCSLeadByteEh", BOOL, IsDBCSLeadByte, (BYTE byte)) {
    if (CallRecorder* const recorder = CallRecorder::Active())
        recorder->Add("IsDBCSLeadByte", {Num(byte)}, true);
    return pretended && pretended->isLeadByte ? pretended->isLeadByte(byte) : Real_IsDBCSLeadByte(byte);
}

OPERATION("_ZN16KivoDrawingTools12GetLastErrorEv", DWORD, GetLastError, ()) {
    if (CallRecorder* const recorder = CallRecorder::Active()) recorder->Add("GetLastError", {}, true);
    const InsideWrapped inside;
    return Real_GetLastError();
}

OPERATION("_ZN16KivoDrawingTools20wglGetCurrentContextEv", HGLRC, wglGetCurrentContext, ()) {
    if (CallRecorder* const recorder = CallRecorder::Active())
        recorder->Add("wglGetCurrentContext", {}, true);
    const InsideWrapped inside;
    return Real_wglGetCurrentContext();
}

} // namespace KivoTest
