// EGL displays, their configurations, and the words for EGL's errors.
#pragma once

#include "Win32Names.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <memory>
#include <string>
#include <vector>

namespace KivoDrawingTools {

/// An initialised EGL display that draws desktop OpenGL. Windows and contexts share it, so that either may go
/// first.
class EglDisplay {
public:
    /// The display of a native connection, terminated with the object. EGL knows one for each connection and
    /// set of attributes, so the connection's owner keeps the only object for it.
    /// @return null, with the failure recorded, where EGL or the driver cannot serve it
    static std::unique_ptr<EglDisplay> OfConnection(EGLenum platform, void* native,
                                                    const EGLAttrib* attributes);
    /// The display that needs no display server. There is one per process, for everybody: it stays
    /// initialised, because terminating it would destroy the contexts that the host or another library has on
    /// it.
    static std::shared_ptr<EglDisplay> WithoutScreen();

    EglDisplay(EGLDisplay handle, bool isTerminated);
    ~EglDisplay();
    EglDisplay(const EglDisplay&) = delete;
    EglDisplay& operator=(const EglDisplay&) = delete;

    EGLDisplay Handle() const { return m_handle; }
    /// The configurations with RGB colours that desktop OpenGL can draw to through surfaces of these types.
    std::vector<EGLConfig> Configs(EGLint surfaceTypes) const;
    /// A configuration's attribute; 0 when EGL does not know it.
    EGLint Attribute(EGLConfig config, EGLint name) const;

private:
    EGLDisplay m_handle;
    bool m_isTerminated; // with the object
};

/// Whether the EGL library has a client extension, that is one that needs no display.
bool HasEglClientExtension(const char* name);

/// The thread's EGL error as "EGL: <what failed>: <reason>"; takes the error.
std::string EglFailure(const char* what);

/// A surface without a screen. Returns EGL_NO_SURFACE, with the failure recorded, when it is refused.
EGLSurface MakePbuffer(const EglDisplay& display, EGLConfig config, const SIZE& size);

} // namespace KivoDrawingTools
