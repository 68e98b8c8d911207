// Loaded into a program before everything else: each frame that it presents by EGL, or reads back as an
// image, makes the file longer that KIVO_FRAME_COUNT names, by a byte, and takes KIVO_FRAME_TIME milliseconds
// more, where that is set.
#include <EGL/egl.h>
#include <GL/gl.h>

#include <chrono>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace {

void Count() {
    const char* const milliseconds = std::getenv("KIVO_FRAME_TIME");
    if (milliseconds) std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(milliseconds)));
    const char* const path = std::getenv("KIVO_FRAME_COUNT");
    const int file = path ? open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600) : -1;
    if (file >= 0 && write(file, "", 1) != 1) std::abort();
    if (file >= 0) close(file);
}

} // namespace

extern "C" __attribute__((visibility("default"))) EGLBoolean eglSwapBuffers(EGLDisplay display,
                                                                            EGLSurface surface) {
    using Function = decltype(&eglSwapBuffers);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "eglSwapBuffers"));
    const EGLBoolean result = original(display, surface);
    Count();
    return result;
}

// An image is read in strips, of which the first begins in the corner; what is no wider than a symbol's
// texture is no frame.
extern "C" __attribute__((visibility("default"))) void
glReadPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type, void* pixels) {
    using Function = decltype(&glReadPixels);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glReadPixels"));
    original(x, y, width, height, format, type, pixels);
    constexpr GLsizei leastFrame = 257;
    if (x == 0 && y == 0 && width >= leastFrame) Count();
}
