#include "HostGlx.h"

#include <dlfcn.h>
#include <link.h>

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

/// How many libraries the process has ever loaded.
unsigned long long LoadCount() {
    unsigned long long count = 0;
    const auto takeCount = [](dl_phdr_info* info, std::size_t, void* target) {
        *static_cast<unsigned long long*>(target) = info->dlpi_adds;
        return 1; // the same for every library
    };
    dl_iterate_phdr(takeCount, &count);
    return count;
}

bool LoadGlx(GlxFunctions& functions) {
    for (const char* const name : {"libGLX.so.0", "libGL.so.1"}) {
        void* const library = dlopen(name, RTLD_LAZY | RTLD_NOLOAD);
        if (!library) continue;
        if (functions.Load(library)) return true;
        dlclose(library);
    }
    return false;
}

/// The GLX that the process has loaded, or null. Once found it stays loaded. Looking for it walks through the
/// file system, so that is done again only after another library has been loaded.
const GlxFunctions* LoadedGlx() {
    static std::mutex mutex;
    static GlxFunctions functions;
    static bool found = false;
    static unsigned long long searched = 0; // load count at the last search
    const std::lock_guard<std::mutex> guard(mutex);
    if (found) return &functions;
    const unsigned long long loads = LoadCount();
    if (loads == searched) return nullptr;
    searched = loads;
    found = LoadGlx(functions);
    return found ? &functions : nullptr;
}

} // namespace

void ReleaseHostGlxContext() {
    const GlxFunctions* const glx = LoadedGlx();
    if (glx && glx->currentContext()) glx->makeCurrent(glx->currentDisplay(), 0, nullptr);
}

} // namespace KivoDrawingTools
