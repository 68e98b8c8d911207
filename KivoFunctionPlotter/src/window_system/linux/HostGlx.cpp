#include "HostGlx.h"

#include <dlfcn.h>

#include <mutex>

namespace KivoDrawingTools {

namespace {

// GLX is reached in the host's own copy only, found at run time, so that neither it nor Xlib need be there.
struct GlxFunctions {
    void* (*currentContext)() = nullptr;
    void* (*currentDisplay)() = nullptr;
    int (*makeCurrent)(void* display, unsigned long drawable, void* context) = nullptr;

    bool Load(void* library) {
        currentContext = reinterpret_cast<void* (*)()>(dlsym(library, "glXGetCurrentContext"));
        currentDisplay = reinterpret_cast<void* (*)()>(dlsym(library, "glXGetCurrentDisplay"));
        makeCurrent =
            reinterpret_cast<int (*)(void*, unsigned long, void*)>(dlsym(library, "glXMakeCurrent"));
        return currentContext && currentDisplay && makeCurrent;
    }
};

/// The GLX that the process has loaded, or null. Once found it stays loaded.
const GlxFunctions* LoadedGlx() {
    static std::mutex mutex;
    static GlxFunctions functions;
    static bool found = false;
    const std::lock_guard<std::mutex> guard(mutex);
    for (const char* const name : {"libGLX.so.0", "libGL.so.1"}) {
        if (found) break;
        void* const library = dlopen(name, RTLD_LAZY | RTLD_NOLOAD);
        if (!library) continue;
        found = functions.Load(library);
        if (!found) dlclose(library);
    }
    return found ? &functions : nullptr;
}

} // namespace

void ReleaseHostGlxContext() {
    const GlxFunctions* const glx = LoadedGlx();
    if (glx && glx->currentContext()) glx->makeCurrent(glx->currentDisplay(), 0, nullptr);
}

} // namespace KivoDrawingTools
