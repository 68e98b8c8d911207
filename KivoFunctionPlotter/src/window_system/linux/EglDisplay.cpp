#include "EglDisplay.h"

#include "LastError.h"

#include <cstring>

namespace KivoDrawingTools {

namespace {

const char* EglErrorName(EGLint error) {
    switch (error) {
    case EGL_NOT_INITIALIZED:
        return "the display is not initialised";
    case EGL_BAD_ACCESS:
        return "it is in use by another thread";
    case EGL_BAD_ALLOC:
        return "there is not enough memory";
    case EGL_BAD_CONFIG:
        return "the configuration does not exist";
    case EGL_BAD_MATCH:
        return "configuration, surface and context do not match";
    case EGL_BAD_NATIVE_WINDOW:
        return "the native window does not exist";
    case EGL_BAD_SURFACE:
        return "the surface does not exist or is not current";
    case EGL_CONTEXT_LOST:
        return "the graphics card was reset";
    default:
        return "the driver refused";
    }
}

/// Initialises a display and makes sure that it draws desktop OpenGL.
bool Initialise(EGLDisplay display) {
    if (display == EGL_NO_DISPLAY || !eglInitialize(display, nullptr, nullptr)) return false;
    const char* const apis = eglQueryString(display, EGL_CLIENT_APIS);
    return apis && std::strstr(apis, "OpenGL");
}

EGLDisplay FirstDeviceDisplay() {
    const auto queryDevices =
        reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
    EGLDeviceEXT device = nullptr;
    EGLint count = 0;
    if (!queryDevices || !queryDevices(1, &device, &count) || count < 1) return EGL_NO_DISPLAY;
    return eglGetPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, device, nullptr);
}

} // namespace

EglDisplay::EglDisplay(EGLDisplay handle, bool isTerminated)
    : m_handle(handle), m_isTerminated(isTerminated) {}

EglDisplay::~EglDisplay() {
    if (m_isTerminated) eglTerminate(m_handle);
}

std::unique_ptr<EglDisplay> EglDisplay::OfConnection(EGLenum platform, void* native,
                                                     const EGLAttrib* attributes) {
    const EGLDisplay display = eglGetPlatformDisplay(platform, native, attributes);
    auto result = std::make_unique<EglDisplay>(display, true);
    if (!Initialise(display)) {
        Fail(ERROR_NOT_SUPPORTED, EglFailure("cannot draw OpenGL on this display") +
                                      "; install an OpenGL driver (libgl1-mesa-dri, libegl1).");
        return nullptr;
    }
    return result;
}

std::shared_ptr<EglDisplay> EglDisplay::WithoutScreen() {
    EGLDisplay display = EGL_NO_DISPLAY;
    if (HasEglClientExtension("EGL_MESA_platform_surfaceless"))
        display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (!Initialise(display) && HasEglClientExtension("EGL_EXT_platform_device"))
        display = FirstDeviceDisplay();
    if (!Initialise(display)) display = eglGetDisplay(EGL_DEFAULT_DISPLAY);
    if (!Initialise(display)) {
        Fail(ERROR_NOT_SUPPORTED, EglFailure("cannot draw OpenGL without a screen") +
                                      "; install an OpenGL driver (libgl1-mesa-dri, libegl1).");
        return nullptr;
    }
    return std::make_shared<EglDisplay>(display, false);
}

std::vector<EGLConfig> EglDisplay::Configs(EGLint surfaceTypes) const {
    EGLint count = 0;
    if (!eglGetConfigs(m_handle, nullptr, 0, &count)) return {};
    std::vector<EGLConfig> all(static_cast<std::size_t>(count));
    if (!eglGetConfigs(m_handle, all.data(), count, &count)) return {};
    all.resize(static_cast<std::size_t>(count));
    std::vector<EGLConfig> fitting;
    for (const EGLConfig config : all) {
        if ((Attribute(config, EGL_SURFACE_TYPE) & surfaceTypes) == surfaceTypes &&
            (Attribute(config, EGL_RENDERABLE_TYPE) & EGL_OPENGL_BIT) != 0 &&
            Attribute(config, EGL_COLOR_BUFFER_TYPE) == EGL_RGB_BUFFER)
            fitting.push_back(config);
    }
    return fitting;
}

EGLint EglDisplay::Attribute(EGLConfig config, EGLint name) const {
    EGLint value = 0;
    return eglGetConfigAttrib(m_handle, config, name, &value) ? value : 0;
}

bool HasEglClientExtension(const char* name) {
    const char* const list = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!list) return false;
    return (" " + std::string(list) + " ").find(" " + std::string(name) + " ") != std::string::npos;
}

std::string EglFailure(const char* what) {
    return std::string("EGL: ") + what + ": " + EglErrorName(eglGetError());
}

EGLSurface MakePbuffer(const EglDisplay& display, EGLConfig config, const SIZE& size) {
    const EGLint attributes[] = {EGL_WIDTH, size.cx, EGL_HEIGHT, size.cy, EGL_NONE};
    const EGLSurface surface = eglCreatePbufferSurface(display.Handle(), config, attributes);
    if (surface == EGL_NO_SURFACE)
        Fail(ERROR_NOT_ENOUGH_MEMORY,
             EglFailure("cannot make a surface of this size") + "; ask for a smaller window.");
    return surface;
}

} // namespace KivoDrawingTools
