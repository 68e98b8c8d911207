// The viewer's sessions: whatever a file holds, it is read as a session that is written and read again as the
// same, or gives a Failure.
#include "Failure.h"
#include "Session.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

const std::string path = "/nowhere/fuzz.kivo";

void Require(bool holds) {
    if (!holds) std::abort();
}

void Check(const KivoViewer::Session& session) {
    Require(!session.surfaces.empty());
    for (const KivoViewer::SurfaceEntry& surface : session.surfaces)
        Require(surface.looks.opacity >= 0.0 && surface.looks.opacity <= 1.0);
    Require(session.settings.mode >= 0 && session.settings.mode <= 3);
    if (!session.function.empty()) Require(session.x.count >= 2 && session.y.count >= 2);
    if (!session.view) return;
    Require(session.view->plotType >= 0 && session.view->plotType <= 3);
    for (const double number : session.view->rotation)
        Require(std::isfinite(number));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        const KivoViewer::Session session = KivoViewer::ReadSession(text, path);
        Check(session);
        const std::string written = KivoViewer::WriteSession(session, path);
        Require(KivoViewer::WriteSession(KivoViewer::ReadSession(written, path), path) == written);
    } catch (const KivoViewer::Failure& failure) {
        Require(!KivoViewer::OneLine(failure.what()).empty());
    }
    return 0;
}
