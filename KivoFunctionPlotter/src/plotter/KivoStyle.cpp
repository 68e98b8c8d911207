#include "KivoStyle.h"

#include "drawing/GLScopes.h"
#include "PictureDrawing.h"
#include "TextSet.h"
#include "window_system/WindowSystem.h"

#include <string>

namespace KivoDrawingTools {

namespace {

constexpr float largestPixelScale = 8.0f;

bool IsFace(const std::string& face) {
    return face.size() < LF_FACESIZE && face.find('\0') == std::string::npos;
}

bool IsStyle(const SKivoStyle& style) {
    const bool isScale =
        style.pixelScale > 0.0f && style.pixelScale <= largestPixelScale; // no number is none
    return isScale && IsFace(style.textFace);
}

} // namespace

// Reaches the context in which a plotter's fonts and images are made.
struct StyleAccess {
    static int Set(CKivoFunctionPlotter& plotter, const SKivoStyle& style);
    static int MakeTextsAnew(CKivoFunctionPlotter& plotter, const SKivoStyle& style);
};

int StyleAccess::Set(CKivoFunctionPlotter& plotter, const SKivoStyle& style) {
    if (!IsStyle(style)) return -3;
    if (AreEqual(style, GetStyle(plotter))) return 0;
    if (!plotter.m_hGLRC) {
        SKivoStyle taken = style;
        TextSet::ExchangeStyle(plotter, taken);
        return 0;
    }
    return MakeTextsAnew(plotter, style);
}

int StyleAccess::MakeTextsAnew(CKivoFunctionPlotter& plotter, const SKivoStyle& style) {
    if (!plotter.m_hGLRC) return 0; // they are made with the window
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (!wglGetCurrentContext()) return -1;
    TextSet texts;
    if (!texts.Make(plotter, style)) return -1;
    texts.Exchange(plotter);
    PictureAccess::ForgetTexts(plotter); // they may be of another resolution
    return 0;
}

SKivoStyle GetStyle(const CKivoFunctionPlotter& plotter) {
    return TextSet::StyleOf(plotter);
}

int OnDensityChanged(CKivoFunctionPlotter& plotter) {
    return StyleAccess::MakeTextsAnew(plotter, GetStyle(plotter));
}

int SetStyle(CKivoFunctionPlotter& plotter, const SKivoStyle& style) {
    return StyleAccess::Set(plotter, style);
}

} // namespace KivoDrawingTools
