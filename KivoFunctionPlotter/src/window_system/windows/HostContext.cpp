// Keeping a host's own OpenGL context, of WGL.
#include "window_system/HostContext.h"

#include "KivoHost.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <vector>

namespace KivoDrawingTools {

namespace {

// Drawing and reading through different device contexts is an extension.
using CurrentReadDc = HDC(WINAPI*)();
using MakeContextCurrent = BOOL(WINAPI*)(HDC draw, HDC read, HGLRC context);

/// A function of the context that is current, or null.
template <typename Function>
Function Extension(const char* name) {
    // Casting by way of a pointer without arguments keeps the compiler from comparing the two.
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(wglGetProcAddress(name)));
}

HDC ReadDc() {
    const auto currentReadDc = Extension<CurrentReadDc>("wglGetCurrentReadDCARB");
    return currentReadDc ? currentReadDc() : wglGetCurrentDC();
}

std::uintptr_t Number(HDC dc) {
    return reinterpret_cast<std::uintptr_t>(dc);
}

HDC Dc(std::uintptr_t number) {
    return reinterpret_cast<HDC>(number);
}

void Bind(HGLRC context, HDC draw, HDC read) {
    if (!wglMakeCurrent(draw, context)) {
        wglMakeCurrent(nullptr, nullptr);
        return;
    }
    const auto makeContextCurrent = Extension<MakeContextCurrent>("wglMakeContextCurrentARB");
    if (read != draw && makeContextCurrent && !makeContextCurrent(draw, read, context))
        wglMakeCurrent(nullptr, nullptr);
}

/// The contexts of all plotters, of all threads.
class ContextList {
public:
    void Add(HGLRC context) {
        const std::lock_guard<std::mutex> guard(m_mutex);
        try {
            m_contexts.push_back(context);
        } catch (const std::bad_alloc&) { // it is then taken for a host's, and put back
        }
    }
    void Remove(HGLRC context) {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_contexts.erase(std::remove(m_contexts.begin(), m_contexts.end(), context), m_contexts.end());
    }
    bool Contains(HGLRC context) {
        const std::lock_guard<std::mutex> guard(m_mutex);
        return std::find(m_contexts.begin(), m_contexts.end(), context) != m_contexts.end();
    }

private:
    std::mutex m_mutex;
    std::vector<HGLRC> m_contexts;
};

/// Never destroyed: a host's static plotters may go late.
ContextList& PlottersContexts() {
    static auto* const list = new ContextList;
    return *list;
}

} // namespace

bool IsHostContextCurrent() {
    const HGLRC current = wglGetCurrentContext();
    return current && !PlottersContexts().Contains(current);
}

void AddPlotterContext(HGLRC context) {
    PlottersContexts().Add(context);
}

void RemovePlotterContext(HGLRC context) {
    PlottersContexts().Remove(context);
}

CKeepContext::CKeepContext() {
    const HGLRC context = wglGetCurrentContext();
    if (!context) return;
    m_owner = Owner::wgl;
    m_context = context;
    m_drawSurface = Number(wglGetCurrentDC());
    m_readSurface = Number(ReadDc());
}

CKeepContext::~CKeepContext() {
    if (m_owner == Owner::forgotten) return;
    const auto context = static_cast<HGLRC>(m_context);
    const HDC draw = Dc(m_drawSurface), read = Dc(m_readSurface);
    const HGLRC current = wglGetCurrentContext();
    if (current == context && (!current || (wglGetCurrentDC() == draw && ReadDc() == read))) return;
    const DWORD error = GetLastError(); // the host's to read
    if (context)
        Bind(context, draw, read);
    else
        wglMakeCurrent(nullptr, nullptr);
    SetLastError(error);
}

} // namespace KivoDrawingTools
