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
