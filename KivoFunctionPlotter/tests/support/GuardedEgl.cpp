// EGL, forwarded: allocations inside a driver are not made to fail, and contexts and surfaces are entered in
// the ledger. The linker leads calls of a function f to __wrap_f, and __real_f to the function itself. The
// build reads the names from this file.
#include "AllocationFaults.h"
#include "EglFault.h"
#include "ResourceLedger.h"

#include <EGL/egl.h>

#include <cstdint>

namespace {

using KivoTest::WithoutAllocationFaults;

unsigned long long Number(const void* handle) {
    return static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(handle));
}

template <typename Handle>
Handle Taken(const char* kind, Handle handle) {
    if (handle) KivoTest::Take(kind, nullptr, Number(handle));
    return handle;
}

constexpr long anyNumber = -1;
bool makesContexts = true;
long mostPixelsOfSurface = anyNumber;

long PixelsOf(const EGLint* attributes) {
    long pixels = 1;
    for (; attributes && *attributes != EGL_NONE; attributes += 2)
        if (attributes[0] == EGL_WIDTH || attributes[0] == EGL_HEIGHT) pixels *= attributes[1];
    return pixels;
}

} // namespace

namespace KivoTest {

EglFault::EglFault() {
    makesContexts = false;
}

EglFault::EglFault(long mostPixels) {
    mostPixelsOfSurface = mostPixels;
}

EglFault::~EglFault() {
    makesContexts = true;
    mostPixelsOfSurface = anyNumber;
}

} // namespace KivoTest

#define GUARD_OWN(result, name, parameters)                                                                  \
    extern "C" result __real_##name parameters;                                                              \
    extern "C" [[gnu::visibility("default")]] result __wrap_##name parameters;                               \
    extern "C" result __wrap_##name parameters
#define GUARD(result, name, parameters, arguments)                                                           \
    GUARD_OWN(result, name, parameters) {                                                                    \
        const WithoutAllocationFaults reliable;                                                              \
        return __real_##name arguments;                                                                      \
    }

// ---- Displays and configurations

GUARD(EGLDisplay, eglGetDisplay, (EGLNativeDisplayType native), (native))
GUARD(EGLDisplay, eglGetPlatformDisplay, (EGLenum platform, void* native, const EGLAttrib* attributes),
      (platform, native, attributes))
GUARD(EGLBoolean, eglInitialize, (EGLDisplay display, EGLint* major, EGLint* minor), (display, major, minor))
GUARD(EGLBoolean, eglTerminate, (EGLDisplay display), (display))
GUARD(const char*, eglQueryString, (EGLDisplay display, EGLint name), (display, name))
GUARD(EGLBoolean, eglGetConfigs, (EGLDisplay display, EGLConfig* configs, EGLint size, EGLint* count),
      (display, configs, size, count))
GUARD(EGLBoolean, eglGetConfigAttrib, (EGLDisplay display, EGLConfig config, EGLint name, EGLint* value),
      (display, config, name, value))

// ---- Questions about the thread

GUARD(EGLint, eglGetError, (), ())
GUARD(EGLContext, eglGetCurrentContext, (), ())
GUARD(EGLDisplay, eglGetCurrentDisplay, (), ())
GUARD(EGLSurface, eglGetCurrentSurface, (EGLint which), (which))
GUARD(__eglMustCastToProperFunctionPointerType, eglGetProcAddress, (const char* name), (name))

// ---- Binding and presenting

GUARD(EGLBoolean, eglBindAPI, (EGLenum api), (api))
GUARD(EGLenum, eglQueryAPI, (), ())
GUARD(EGLBoolean, eglMakeCurrent, (EGLDisplay display, EGLSurface draw, EGLSurface read, EGLContext context),
      (display, draw, read, context))
GUARD(EGLBoolean, eglSwapInterval, (EGLDisplay display, EGLint interval), (display, interval))
GUARD(EGLBoolean, eglSwapBuffers, (EGLDisplay display, EGLSurface surface), (display, surface))

// ---- Contexts and surfaces

GUARD_OWN(EGLContext, eglCreateContext,
          (EGLDisplay display, EGLConfig config, EGLContext shared, const EGLint* attributes)) {
    const WithoutAllocationFaults reliable;
    if (!makesContexts) return EGL_NO_CONTEXT;
    return Taken("EGL context", __real_eglCreateContext(display, config, shared, attributes));
}

GUARD_OWN(EGLBoolean, eglDestroyContext, (EGLDisplay display, EGLContext context)) {
    const WithoutAllocationFaults reliable;
    KivoTest::GiveBack("EGL context", nullptr, Number(context));
    return __real_eglDestroyContext(display, context);
}

GUARD_OWN(EGLSurface, eglCreatePbufferSurface,
          (EGLDisplay display, EGLConfig config, const EGLint* attributes)) {
    const WithoutAllocationFaults reliable;
    if (mostPixelsOfSurface != anyNumber && PixelsOf(attributes) > mostPixelsOfSurface) return EGL_NO_SURFACE;
    return Taken("EGL surface", __real_eglCreatePbufferSurface(display, config, attributes));
}

GUARD_OWN(EGLSurface, eglCreatePlatformWindowSurface,
          (EGLDisplay display, EGLConfig config, void* window, const EGLAttrib* attributes)) {
    const WithoutAllocationFaults reliable;
    return Taken("EGL surface", __real_eglCreatePlatformWindowSurface(display, config, window, attributes));
}

GUARD_OWN(EGLBoolean, eglDestroySurface, (EGLDisplay display, EGLSurface surface)) {
    const WithoutAllocationFaults reliable;
    KivoTest::GiveBack("EGL surface", nullptr, Number(surface));
    return __real_eglDestroySurface(display, surface);
}
