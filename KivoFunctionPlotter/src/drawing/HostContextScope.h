// A host's own OpenGL context around the plotter's work.
#pragma once

#include "KivoHost.h"
#include "window_system/WindowSystem.h"

#include <optional>

namespace KivoDrawingTools {

/// Puts a host's own context back at the end of the scope, where the plotter does not draw on a screen. A
/// plotter's context is not put back: none is current between calls.
class HostContextScope {
public:
    /// @param dc  what the plotter draws through; with null the context comes back in any case
    explicit HostContextScope(HDC dc);

    /// Whether there is one to be put back.
    bool HasContext() const { return m_kept.has_value(); }
    /// Leaves at the end of the scope what is current then.
    void Forget();

private:
    std::optional<CKeepContext> m_kept;
};

/// Makes a plotter's context current until EndBracket, by which none is, or a host's again. Brackets may be
/// nested, as scopes may.
void BeginBracket(HDC dc, HGLRC context);
void EndBracket(HDC dc);

} // namespace KivoDrawingTools
