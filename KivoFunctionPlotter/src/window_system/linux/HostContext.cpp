// Keeping a host's own OpenGL context, of EGL or GLX.
#include "window_system/HostContext.h"

#include "KivoHost.h"

#include "DeviceContext.h"
#include "HostGlx.h"
#include "LiveHandles.h"
#include "NativeWindow.h"
#include "RenderingContext.h"

#include <EGL/egl.h>

namespace KivoDrawingTools {

namespace {

struct EglBinding {
    EGLContext context = EGL_NO_CONTEXT;
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLSurface drawSurface = EGL_NO_SURFACE;
    EGLSurface readSurface = EGL_NO_SURFACE;

    bool operator==(const EglBinding& other) const {
        return context == other.context && display == other.display && drawSurface == other.drawSurface &&
               readSurface == other.readSurface;
    }
};

EglBinding CurrentEgl() {
    return {eglGetCurrentContext(), eglGetCurrentDisplay(), eglGetCurrentSurface(EGL_DRAW),
            eglGetCurrentSurface(EGL_READ)};
}

// Nothing is reported: a host that has destroyed its context expects none.
void BindEgl(const EglBinding& binding) {
    if (!eglMakeCurrent(binding.display, binding.drawSurface, binding.readSurface, binding.context))
        eglGetError();
}

std::uintptr_t Number(const void* handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

void* Handle(std::uintptr_t number) {
    return reinterpret_cast<void*>(number);
}

bool IsAlive(HGLRC context, HDC dc) {
    return Live<RenderingContext>().Contains(context) && Live<DeviceContext>().Contains(dc);
}

} // namespace

bool IsHostContextCurrent() {
    if (CurrentPlotterBinding().context) return false;
    return eglGetCurrentContext() != EGL_NO_CONTEXT || CurrentGlx().context;
}

void AddPlotterContext(HGLRC) {}

void RemovePlotterContext(HGLRC) {}

bool IsOnScreen(HDC dc) {
    return Live<DeviceContext>().Contains(dc) && dc->window && dc->window->IsOnScreen();
}

CKeepContext::CKeepContext() : m_clientApi(eglQueryAPI()) {
    if (const PlotterBinding ours = CurrentPlotterBinding(); ours.context) {
        m_owner = Owner::plotter;
        m_context = ours.context;
        m_drawSurface = Number(ours.dc);
    } else if (const GlxBinding glx = CurrentGlx(); glx.context) {
        m_owner = Owner::glx;
        m_context = glx.context;
        m_display = glx.display;
        m_drawSurface = glx.drawSurface;
        m_readSurface = glx.readSurface;
    } else if (const EglBinding egl = CurrentEgl(); egl.context != EGL_NO_CONTEXT) {
        m_owner = Owner::egl;
        m_context = egl.context;
        m_display = egl.display;
        m_drawSurface = Number(egl.drawSurface);
        m_readSurface = Number(egl.readSurface);
    }
}

CKeepContext::~CKeepContext() {
    if (m_owner == Owner::forgotten) return;
    if (eglQueryAPI() != m_clientApi) eglBindAPI(m_clientApi);
    const PlotterBinding ours{static_cast<HGLRC>(m_context), static_cast<HDC>(Handle(m_drawSurface))};
    const GlxBinding glx{m_context, m_display, m_drawSurface, m_readSurface};
    const EglBinding egl{m_context, m_display, Handle(m_drawSurface), Handle(m_readSurface)};
    // What is current already is not bound again: that would have the driver finish what is being drawn.
    if (m_owner == Owner::glx && CurrentGlx() == glx) return;
    if (m_owner == Owner::egl && !CurrentPlotterBinding().context && CurrentEgl() == egl) return;
    const PlotterBinding current = CurrentPlotterBinding();
    if (m_owner == Owner::plotter && current.context == ours.context && current.dc == ours.dc) return;

    UnbindThread();
    if (m_owner == Owner::glx) BindGlx(glx);
    if (m_owner == Owner::egl) BindEgl(egl);
    if (m_owner == Owner::plotter && IsAlive(ours.context, ours.dc)) wglMakeCurrent(ours.dc, ours.context);
}

} // namespace KivoDrawingTools
