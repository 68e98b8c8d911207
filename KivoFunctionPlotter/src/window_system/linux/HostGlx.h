// A host's own GLX context. In a process that has not loaded GLX all of this does nothing, cheaply.
#pragma once

namespace KivoDrawingTools {

/// What is current by GLX; without a context, nothing is.
struct GlxBinding {
    void* context = nullptr;
    void* display = nullptr;
    unsigned long drawSurface = 0;
    unsigned long readSurface = 0;

    bool operator==(const GlxBinding& other) const {
        return context == other.context && display == other.display && drawSurface == other.drawSurface &&
               readSurface == other.readSurface;
    }
};

/// What the calling thread has.
GlxBinding CurrentGlx();

/// Makes it current again; no other context may be. A context or surface that is gone leaves none current.
void BindGlx(const GlxBinding& binding);

/// Unbinds a GLX context that is current on the calling thread: EGL cannot bind over it.
void ReleaseHostGlxContext();

} // namespace KivoDrawingTools
