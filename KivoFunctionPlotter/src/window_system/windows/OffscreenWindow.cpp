// Windows without a screen, on Windows: hidden windows of a class of their own. And what KivoWindow.h says of
// all windows.
#include "KivoWindow.h"
#include "window_system/CompanionWindow.h"
#include "window_system/Failure.h"
#include "window_system/FailureWords.h"
#include "window_system/HostContext.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace KivoDrawingTools {

namespace {

constexpr char className[] = "KivoOffscreenWindow";
constexpr int largestSize = 16384;
constexpr int largestResolution = 1200;
constexpr char resolutionName[] = "KivoDotsPerInch"; // a property of the window
constexpr DWORD windowStyle = WS_POPUP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

FailureWords& LastWords() {
    thread_local FailureWords words;
    return words;
}

int Refuse(DWORD code, const char* words) {
    SetLastError(code);
    LastWords().Say(words);
    return -1;
}

HINSTANCE Module() {
    return GetModuleHandleA(nullptr);
}

bool RegisterWindowClass() {
    WNDCLASSA description = {};
    description.style = CS_OWNDC;
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = Module();
    description.lpszClassName = className;
    return RegisterClassA(&description) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

bool IsAccepted(int width, int height) {
    return width >= 1 && height >= 1 && width <= largestSize && height <= largestSize;
}

bool IsResolution(int dotsPerInch) {
    return dotsPerInch >= 1 && dotsPerInch <= largestResolution;
}

bool KeepResolution(HWND window, int dotsPerInch) {
    const auto stored = static_cast<std::uintptr_t>(dotsPerInch);
    return SetPropA(window, resolutionName, reinterpret_cast<HANDLE>(stored)) != 0;
}

bool IsOffscreenWindow(HWND window) {
    char name[sizeof(className)] = {};
    return IsWindow(window) && GetClassNameA(window, name, sizeof(name)) != 0 &&
           std::string(name) == className;
}

} // namespace

bool IsOnScreen(HDC dc) {
    const HWND window = WindowFromDC(dc);
    return window && !IsOffscreenWindow(window);
}

HWND CreateOffscreenWindow(int width, int height, int dpi) {
    if (!IsAccepted(width, height) || !IsResolution(dpi)) {
        Refuse(ERROR_INVALID_PARAMETER,
               "Window: the size or the resolution is out of range; ask for 1 to 16384 "
               "pixels a side and 1 to 1200 dots per inch.");
        return nullptr;
    }
    HWND window = nullptr;
    if (RegisterWindowClass())
        window = CreateWindowExA(WS_EX_TOOLWINDOW, className, "", windowStyle, 0, 0, width, height, nullptr,
                                 nullptr, Module(), nullptr);
    if (window && KeepResolution(window, dpi)) return window;
    Refuse(GetLastError(), "Window: the system made no hidden window; close windows or free memory.");
    if (window) DestroyWindow(window);
    return nullptr;
}

int ResizeOffscreenWindow(HWND window, int width, int height) {
    if (!IsAccepted(width, height))
        return Refuse(ERROR_INVALID_PARAMETER,
                      "Window: the size is out of range; ask for 1 to 16384 pixels a side.");
    if (!IsOffscreenWindow(window))
        return Refuse(
            ERROR_INVALID_WINDOW_HANDLE,
            "Window: the handle is none of CreateOffscreenWindow; pass one that has not been released.");
    if (!SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE))
        return Refuse(GetLastError(), "Window: the system refused the new size; ask for a smaller one.");
    return 0;
}

int SetOffscreenDpi(HWND window, int dpi) {
    if (!IsResolution(dpi))
        return Refuse(ERROR_INVALID_PARAMETER,
                      "Window: the resolution is out of range; ask for 1 to 1200 dots per inch.");
    if (!IsOffscreenWindow(window))
        return Refuse(
            ERROR_INVALID_WINDOW_HANDLE,
            "Window: the handle is none of CreateOffscreenWindow; pass one that has not been released.");
    if (KeepResolution(window, dpi)) return 0;
    return Refuse(GetLastError(), "Window: the system keeps no property; free memory.");
}

int DotsPerInch(HDC dc, HDC windowDc) {
    const HWND window = WindowFromDC(windowDc);
    const auto stored = reinterpret_cast<std::uintptr_t>(window ? GetPropA(window, resolutionName) : nullptr);
    return IsResolution(static_cast<int>(stored)) ? static_cast<int>(stored) : GetDeviceCaps(dc, LOGPIXELSY);
}

int GetWindowDpi(HWND window) {
    const HDC dc = IsWindow(window) ? GetDC(window) : nullptr; // without a window, the screen's
    if (!dc) {
        Refuse(ERROR_INVALID_WINDOW_HANDLE,
               "Window: there is no such window; pass one that has not been destroyed.");
        return 0;
    }
    const int dpi = DotsPerInch(dc, dc);
    ReleaseDC(window, dc);
    return dpi;
}

int ReleaseWindow(HWND window) {
    if (!window) return 0;
    if (!IsOffscreenWindow(window))
        return Refuse(
            ERROR_INVALID_WINDOW_HANDLE,
            "Window: the handle is none of CreateOffscreenWindow; a host destroys its own windows itself.");
    SetWindowSmoothing(window, 1);
    const int dpi = GetWindowDpi(window);
    RemovePropA(window, resolutionName);
    if (DestroyWindow(window)) return 0;
    const DWORD error = GetLastError();
    KeepResolution(window, dpi);
    return Refuse(error, "Window: it was not destroyed; call ReleaseWindow on the thread that made it.");
}

HWND CreateCompanionWindow(HDC dc, int width, int height) {
    const HWND window = CreateOffscreenWindow(width, height);
    if (!window) return nullptr;
    const HDC own = GetDC(window); // stays with the window
    PIXELFORMATDESCRIPTOR descriptor = {};
    const int format = GetPixelFormat(dc);
    DescribePixelFormat(dc, format, sizeof(descriptor), &descriptor);
    if (format != 0 && SetPixelFormat(own, format, &descriptor)) return window;
    const DWORD error = GetLastError();
    Refuse(error != 0 ? error : ERROR_INVALID_PIXEL_FORMAT,
           "Window: a hidden window does not take the plot's pixel format; use an off-screen window.");
    DestroyWindow(window);
    return nullptr;
}

void RecordFailure(unsigned long code, const char* words) {
    Refuse(code, words);
}

KeepFailure::KeepFailure() : m_code(GetLastError()), m_words(LastWords()) {}

KeepFailure::~KeepFailure() {
    if (m_isForgotten) return;
    SetLastError(m_code);
    LastWords() = m_words;
}

namespace {

constexpr char smoothingName[] = "KivoSmoothing"; // a property of the window, the factor less 1

} // namespace

int SetWindowSmoothing(HWND window, int factor) {
    if (factor < 1 || factor > 4)
        return Refuse(ERROR_INVALID_PARAMETER,
                      "SetWindowSmoothing: the factor is not 1 to 4; pass one within.");
    if (!IsWindow(window))
        return Refuse(ERROR_INVALID_WINDOW_HANDLE,
                      "SetWindowSmoothing: there is no such window; pass one that has not been destroyed.");
    if (factor == 1) {
        RemovePropA(window, smoothingName); // none is left behind when the window is destroyed
        return 0;
    }
    const auto stored = static_cast<std::uintptr_t>(factor - 1);
    if (SetPropA(window, smoothingName, reinterpret_cast<HANDLE>(stored))) return 0;
    return Refuse(GetLastError(), "SetWindowSmoothing: the system keeps no property; free memory.");
}

int GetWindowSmoothing(HWND window) {
    if (!IsWindow(window)) return 1;
    const auto stored = reinterpret_cast<std::uintptr_t>(GetPropA(window, smoothingName));
    return std::min(static_cast<int>(stored) + 1, 4); // others may have set it
}

const char* LastWindowError() {
    return LastWords().text;
}

} // namespace KivoDrawingTools
