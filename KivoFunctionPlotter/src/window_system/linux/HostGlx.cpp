#include "HostGlx.h"

#include <dlfcn.h>
#include <link.h>

#include <atomic>
#include <mutex>

namespace KivoDrawingTools {

namespace {

// GLX is reached in the host's own copy only, found at run time, so that neither it nor Xlib need be there.
template <typename Function>
bool Find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

struct GlxFunctions {
    void* (*currentContext)() = nullptr;
    void* (*currentDisplay)() = nullptr;
    unsigned long (*currentDrawable)() = nullptr;
    unsigned long (*currentReadDrawable)() = nullptr;
    int (*makeCurrent)(void* display, unsigned long draw, unsigned long read, void* context) = nullptr;

    bool Load(void* library) {
        return Find(library, "glXGetCurrentContext", currentContext) &&
               Find(library, "glXGetCurrentDisplay", currentDisplay) &&
               Find(library, "glXGetCurrentDrawable", currentDrawable) &&
               Find(library, "glXGetCurrentReadDrawable", currentReadDrawable) &&
               Find(library, "glXMakeContextCurrent", makeCurrent);
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

/// Xlib ends the process at an error unless a handler takes it. There is one handler for all threads.
class XErrorScope {
public:
    explicit XErrorScope(void* display) : m_guard(Mutex()) {
        // GLX has loaded it.
        void* const library = dlopen("libX11.so.6", RTLD_LAZY | RTLD_NOLOAD);
        if (!library) return;
        if (Find(library, "XSetErrorHandler", m_setHandler) && Find(library, "XSync", m_sync)) {
            m_sync(display, 0); // errors of before are the host's
            m_display = display;
            watched = display;
            previous = m_setHandler(&TakeError);
        }
        dlclose(library); // GLX keeps it
    }
    ~XErrorScope() {
        if (!m_display) return;
        m_sync(m_display, 0);
        m_setHandler(previous);
        watched = nullptr;
    }
    XErrorScope(const XErrorScope&) = delete;
    XErrorScope& operator=(const XErrorScope&) = delete;

private:
    using Handler = int (*)(void* display, void* error);

    static std::mutex& Mutex() {
        static std::mutex mutex;
        return mutex;
    }
    /// Another thread may meet an error of another display.
    static int TakeError(void* display, void* error) {
        const Handler handler = previous;
        return display == watched || !handler ? 0 : handler(display, error);
    }

    static inline std::atomic<void*> watched = nullptr;
    static inline std::atomic<Handler> previous = nullptr;

    const std::lock_guard<std::mutex> m_guard;
    Handler (*m_setHandler)(Handler handler) = nullptr;
    int (*m_sync)(void* display, int discard) = nullptr;
    void* m_display = nullptr;
};

} // namespace

GlxBinding CurrentGlx() {
    const GlxFunctions* const glx = LoadedGlx();
    if (!glx || !glx->currentContext()) return {};
    return {glx->currentContext(), glx->currentDisplay(), glx->currentDrawable(), glx->currentReadDrawable()};
}

void BindGlx(const GlxBinding& binding) {
    const GlxFunctions* const glx = LoadedGlx();
    if (!glx) return;
    const XErrorScope errors(binding.display);
    glx->makeCurrent(binding.display, binding.drawSurface, binding.readSurface, binding.context);
}

void ReleaseHostGlxContext() {
    const GlxFunctions* const glx = LoadedGlx();
    if (glx && glx->currentContext()) glx->makeCurrent(glx->currentDisplay(), 0, 0, nullptr);
}

} // namespace KivoDrawingTools
