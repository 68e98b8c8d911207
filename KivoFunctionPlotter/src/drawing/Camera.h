// Viewports and view volumes of any size: one without extent shows nothing, instead of being an error.
#pragma once

#include "window_system/WindowSystem.h"

#include <algorithm>

namespace KivoDrawingTools {

/// Sets the viewport; a width or height below 0 counts as 0, which OpenGL does not refuse.
/// @param viewport  x, y, width, height
inline void SetViewport(const int* viewport) {
    glViewport(viewport[0], viewport[1], std::max(viewport[2], 0), std::max(viewport[3], 0));
}

/// Multiplies the current matrix by the projection of a view volume. One without extent, which OpenGL
/// refuses, leaves the matrix.
/// @param volume  left, right, bottom, top, near, far
inline void MultiplyOrtho(const double* volume) {
    const bool isEmpty = volume[0] == volume[1] || volume[2] == volume[3] || volume[4] == volume[5];
    if (!isEmpty) glOrtho(volume[0], volume[1], volume[2], volume[3], volume[4], volume[5]);
}

} // namespace KivoDrawingTools
