// Scopes that put OpenGL state back: the current context and the matrix mode.
#pragma once

#include "window_system/WindowSystem.h"

namespace KivoDrawingTools {

/// Makes a context current for the life of the object; none is current afterwards, whatever ends the scope.
class ContextScope {
public:
    ContextScope(HDC dc, HGLRC context) : m_dc(dc) { wglMakeCurrent(dc, context); }
    ~ContextScope() {
        if (!m_isKept) wglMakeCurrent(m_dc, nullptr);
    }
    ContextScope(const ContextScope&) = delete;
    ContextScope& operator=(const ContextScope&) = delete;

    /// Leaves the context current at the end of the scope.
    void Keep() { m_isKept = true; }

private:
    HDC m_dc;
    bool m_isKept = false;
};

/// Selects a matrix mode for the life of the object.
class MatrixModeScope {
public:
    explicit MatrixModeScope(GLenum mode) {
        glGetIntegerv(GL_MATRIX_MODE, &m_previous);
        glMatrixMode(mode);
    }
    ~MatrixModeScope() { glMatrixMode(static_cast<GLenum>(m_previous)); }
    MatrixModeScope(const MatrixModeScope&) = delete;
    MatrixModeScope& operator=(const MatrixModeScope&) = delete;

private:
    GLint m_previous = GL_MODELVIEW; // what stands where no context answers the query
};

} // namespace KivoDrawingTools
