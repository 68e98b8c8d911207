// Scopes that put OpenGL state back: the current context, the matrix mode, the width of lines.
#pragma once

#include "HostContextScope.h"
#include "window_system/WindowSystem.h"

namespace KivoDrawingTools {

/// Makes a context current for the life of the object; none is current afterwards, whatever ends the scope,
/// or off-screen a host's own again.
class ContextScope {
public:
    ContextScope(HDC dc, HGLRC context) : m_host(dc), m_dc(dc) { wglMakeCurrent(dc, context); }
    ~ContextScope() {
        if (!m_isKept || m_host.HasContext()) wglMakeCurrent(m_dc, nullptr);
    }
    ContextScope(const ContextScope&) = delete;
    ContextScope& operator=(const ContextScope&) = delete;

    /// Leaves the context current at the end of the scope, unless a host's is put back.
    void Keep() { m_isKept = true; }

private:
    HostContextScope m_host; // its end comes last
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

/// Draws lines of another width than 1 for the life of the object; they are 1 wide afterwards. A width of 1
/// calls nothing.
class LineWidthScope {
public:
    explicit LineWidthScope(float width) : m_isOther(width != 1.0f) {
        if (m_isOther) glLineWidth(width);
    }
    ~LineWidthScope() {
        if (m_isOther) glLineWidth(1.0f);
    }
    LineWidthScope(const LineWidthScope&) = delete;
    LineWidthScope& operator=(const LineWidthScope&) = delete;

private:
    bool m_isOther;
};

} // namespace KivoDrawingTools
