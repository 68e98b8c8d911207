// The platform types that cross the plotter's interface, and the export macro.
//
// On Windows these are the system's own types. Elsewhere types of the same names live in the namespace
// KivoDrawingTools, never in the global one, so that they cannot clash with a host or another library.
#pragma once

#include "KivoBuild.h"

#include <cstdint>

#if defined(_WIN32)
#include <windows.h>
#endif

// Strings and vectors cross the interface. Where they lie otherwise in memory than in the library, a program
// would link and then crash.
#if defined(__GLIBCXX__) != KIVO_BUILT_WITH_GLIBCXX
#error "KivoFunctionPlotter was built with another C++ standard library; build both with the same."
#elif KIVO_BUILT_WITH_GLIBCXX
#if _GLIBCXX_USE_CXX11_ABI != KIVO_BUILT_WITH_CXX11_ABI
#error "KivoFunctionPlotter was built with another _GLIBCXX_USE_CXX11_ABI; build both with the same."
#elif defined(_GLIBCXX_DEBUG) != KIVO_BUILT_WITH_GLIBCXX_DEBUG
#error "Of KivoFunctionPlotter and this program only one has _GLIBCXX_DEBUG; build both with it or without."
#endif
#endif

// KIVO_API marks what the shared library exports. A consumer of the static library defines KIVO_STATIC; the
// CMake target does so by itself.
#if defined(KIVO_STATIC)
#define KIVO_API
#elif defined(_WIN32)
#if defined(KIVO_BUILDING_LIBRARY)
#define KIVO_API __declspec(dllexport)
#else
#define KIVO_API __declspec(dllimport)
#endif
#else
#define KIVO_API __attribute__((visibility("default")))
#endif

/// The plotter, and what hosts need with it.
namespace KivoDrawingTools {

#if defined(_WIN32)

using ::HDC;
using ::HGLRC;
using ::HWND;
using ::POINT;

#else

struct NativeWindow;
struct DeviceContext;
struct RenderingContext;

/// A window that the plotter can draw into. KivoWindow.h says how a host gets one.
using HWND = NativeWindow*;
/// What a window is drawn through; belongs to its window.
using HDC = DeviceContext*;
/// An OpenGL rendering context.
using HGLRC = RenderingContext*;

/// A position in pixels: of the client area with y growing downwards, or of the screen where a member says
/// so.
struct POINT {
    std::int32_t x; ///< to the right
    std::int32_t y; ///< downwards
};

// Key-state bits of the mouse messages that a host forwards.
constexpr unsigned int MK_LBUTTON = 0x0001; ///< left button down
constexpr unsigned int MK_RBUTTON = 0x0002; ///< right button down
constexpr unsigned int MK_SHIFT = 0x0004;   ///< a Shift key down
constexpr unsigned int MK_CONTROL = 0x0008; ///< a Ctrl key down
constexpr unsigned int MK_MBUTTON = 0x0010; ///< middle button down

#endif

} // namespace KivoDrawingTools
