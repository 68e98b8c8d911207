// A host's own GLX context.
#pragma once

namespace KivoDrawingTools {

/// Unbinds a GLX context that is current on the calling thread: EGL cannot bind over it. Does nothing,
/// cheaply, in a process that has not loaded GLX.
void ReleaseHostGlxContext();

} // namespace KivoDrawingTools
