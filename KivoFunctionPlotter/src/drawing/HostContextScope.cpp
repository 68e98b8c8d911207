#include "HostContextScope.h"

#include "window_system/HostContext.h"

namespace KivoDrawingTools {

namespace {

/// The brackets that are open in a thread.
struct Brackets {
    int count = 0;
    std::optional<HostContextScope> host; // replaced by the outermost

    ~Brackets() {
        if (host) host->Forget(); // one of them has no end
    }
};

Brackets& OpenBrackets() {
    thread_local Brackets brackets;
    return brackets;
}

} // namespace

HostContextScope::HostContextScope(HDC dc) {
    if (IsHostContextCurrent() && !IsOnScreen(dc)) m_kept.emplace();
}

void HostContextScope::Forget() {
    if (m_kept) m_kept->Forget();
    m_kept.reset();
}

void BeginBracket(HDC dc, HGLRC context) {
    Brackets& open = OpenBrackets();
    if (IsHostContextCurrent()) { // none is open, whatever has been left without its end
        if (open.host) open.host->Forget();
        open.host.emplace(dc);
        open.count = 0;
    }
    ++open.count;
    wglMakeCurrent(dc, context);
}

void EndBracket(HDC dc) {
    Brackets& open = OpenBrackets();
    const HostContextScope within(dc); // what the host has made current in the bracket stays
    wglMakeCurrent(dc, nullptr);
    if (open.count > 0) --open.count;
    if (open.count == 0) open.host.reset();
}

} // namespace KivoDrawingTools
