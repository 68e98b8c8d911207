// The operations of the window system that the plotter and its helpers call, by their Win32 names.
//
// Windows supplies them itself. Elsewhere they live in the namespace KivoDrawingTools with the same meaning,
// arguments and results; linux/Win32Names.h names them by the sources beside it that hold them. Everything
// above this header has one text for all platforms.
#pragma once

#include "KivoPlatform.h"
#include "KivoWindow.h"

#if !defined(_WIN32)
#include "linux/Win32Names.h"
#endif

#include <GL/gl.h>
#include <GL/glu.h>

// Constants of OpenGL 1.2 that some platforms' 1.1 headers lack.
#ifndef GL_BGRA
#define GL_BGRA 0x80E1
#endif

namespace KivoDrawingTools {

/// Dots per inch that fonts are made for.
/// @param dc        what they are drawn in, which may be a memory device context for the window's
/// @param windowDc  the window's, which may have a resolution of its own
#if defined(_WIN32)
int DotsPerInch(HDC dc, HDC windowDc);
#else
inline int DotsPerInch(HDC dc, HDC) {
    return GetDeviceCaps(dc, LOGPIXELSY);
}
#endif

} // namespace KivoDrawingTools
