#include "KivoStyle.h"

#include "drawing/GLScopes.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "parts/TextRenderer.h"
#include "window_system/WindowSystem.h"

#include <string>
#include <utility>
#include <vector>

namespace KivoDrawingTools {

namespace {

constexpr float largestScale = 8.0f;

bool IsFace(const std::string& face) {
    return face.size() < LF_FACESIZE && face.find('\0') == std::string::npos;
}

bool IsStyle(const SKivoStyle& style) {
    const bool isScale = style.pixelScale > 0.0f && style.pixelScale <= largestScale; // no number is none
    return isScale && IsFace(style.textFace);
}

bool AreEqual(const SKivoStyle& a, const SKivoStyle& b) {
    return a.pixelScale == b.pixelScale && a.inkColor == b.inkColor && a.textFace == b.textFace &&
           a.boldText == b.boldText;
}

} // namespace

// A plotter's style, and what is made for it: fonts and text images.
struct StyleAccess {
    static SKivoStyle Get(const CKivoFunctionPlotter& plotter) {
        return {plotter.m_pixelScale, plotter.m_inkColor, plotter.m_textFace, plotter.m_boldText};
    }
    static void Take(CKivoFunctionPlotter& plotter, SKivoStyle& style) noexcept {
        std::swap(plotter.m_pixelScale, style.pixelScale);
        std::swap(plotter.m_inkColor, style.inkColor);
        plotter.m_textFace.swap(style.textFace);
        std::swap(plotter.m_boldText, style.boldText);
    }
    static int Set(CKivoFunctionPlotter& plotter, const SKivoStyle& style);

    class Texts;
    class Fonts;
};

// The text images that a plotter shows, drawn once more beside them. What is not shown then is released with
// the object; the context must be current.
class StyleAccess::Texts {
public:
    explicit Texts(const CKivoFunctionPlotter& plotter);
    ~Texts() {
        for (Entry& entry : m_entries)
            ReleaseTextImage(&entry.image);
    }
    Texts(const Texts&) = delete;
    Texts& operator=(const Texts&) = delete;

    // Whether all could be drawn that show now: some texts cannot be drawn at any time.
    bool Draw(STextRenderer* renderer) {
        bool areDrawn = true;
        for (Entry& entry : m_entries)
            areDrawn &=
                CreateTextImage(renderer, entry.text.c_str(), &entry.image) == 0 || !entry.shown->pixels;
        return areDrawn;
    }

    void Show() noexcept {
        for (Entry& entry : m_entries)
            std::swap(*entry.shown, entry.image);
    }

private:
    struct Entry {
        SKivoTexImage* shown;
        std::string text;
        SKivoTexImage image;
    };

    // What has no texture name does not show: titles and names of before OnCreate.
    void Add(SKivoTexImage& shown, const std::string& text) {
        if (shown.texture != 0) m_entries.push_back({&shown, text, {}});
    }
    void AddLabels(const CKivoGridBox& box, int axis);
    void AddLabels(const CKivoGradientColorRuler& ruler);

    std::vector<Entry> m_entries;
};

StyleAccess::Texts::Texts(const CKivoFunctionPlotter& plotter) {
    if (plotter.m_plotTitleImage) Add(*plotter.m_plotTitleImage, plotter.m_plotTitle);
    const std::string* const axisTitles[] = {&plotter.m_xAxisTitle, &plotter.m_yAxisTitle,
                                             &plotter.m_zAxisTitle};
    for (int axis = 0; plotter.m_gridBox && axis < 3; ++axis) {
        Add(plotter.m_gridBox->m_axisTitleImage[axis], *axisTitles[axis]);
        AddLabels(*plotter.m_gridBox, axis);
    }
    for (const CKivoGradientColorRuler* ruler :
         {plotter.m_zColorRuler, plotter.m_xColorRuler, plotter.m_yColorRuler})
        if (ruler) AddLabels(*ruler);
    if (!plotter.m_measureGroups) return;
    for (CKivoMeasurePointGroup* group : plotter.m_measureGroups->m_groups)
        Add(group->m_nameImage, group->m_name);
}

void StyleAccess::Texts::AddLabels(const CKivoGridBox& box, int axis) {
    SKivoTexImage* const labels = box.m_tickLabels[axis];
    const unsigned int count = labels ? box.m_tickIntervals[axis] + 1 : 0;
    for (unsigned int i = 0; i < count; ++i)
        if (labels[i].texture != 0) Add(labels[i], box.LabelText(axis, i));
}

void StyleAccess::Texts::AddLabels(const CKivoGradientColorRuler& ruler) {
    for (unsigned int i = 0; ruler.m_labels && i <= ruler.m_divisionCount; ++i)
        Add(ruler.m_labels[i], ruler.LabelText(i));
}

// Fonts of a style in the place of the plotter's. Those of before come back with the end of the object,
// unless the new ones are kept; the context must be current.
class StyleAccess::Fonts {
public:
    Fonts(CKivoFunctionPlotter& plotter, const SKivoStyle& style);
    ~Fonts();
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

    bool Make();
    void Keep() { m_areKept = true; }

private:
    bool HasRenderer() const { return m_plotter.m_textRenderer && m_plotter.m_textRenderer->m_windowDC; }

    CKivoFunctionPlotter& m_plotter;
    SKivoStyle m_otherStyle;       // which is not the plotter's at present
    STextRenderer m_otherRenderer; // likewise
    unsigned int m_listsBefore;
    bool m_areKept = false;
};

StyleAccess::Fonts::Fonts(CKivoFunctionPlotter& plotter, const SKivoStyle& style)
    : m_plotter(plotter), m_otherStyle(style), m_listsBefore(plotter.m_fontListBase) {
    Take(m_plotter, m_otherStyle);
}

StyleAccess::Fonts::~Fonts() {
    unsigned int unused = m_listsBefore;
    if (!m_areKept) {
        Take(m_plotter, m_otherStyle);
        std::swap(m_plotter.m_fontListBase, unused);
        if (m_otherRenderer.m_windowDC) std::swap(*m_plotter.m_textRenderer, m_otherRenderer);
    }
    if (unused != m_plotter.m_fontListBase) m_plotter.DeleteFontLists(unused);
    ReleaseTextRenderer(&m_otherRenderer);
}

bool StyleAccess::Fonts::Make() {
    if (HasRenderer()) {
        STextRenderer* const renderer = m_plotter.m_textRenderer;
        std::swap(*renderer, m_otherRenderer);
        m_plotter.InitTexts(m_otherRenderer.m_fontSize);
        if (!renderer->m_savedFont) return false; // there is none, or it is not selected
        if (m_plotter.m_pixelScale != 1.0f && !renderer->m_plainFont) return false;
    }
    return m_plotter.InitFont() == 0;
}

int StyleAccess::Set(CKivoFunctionPlotter& plotter, const SKivoStyle& style) {
    if (!IsStyle(style)) return -3;
    if (AreEqual(style, Get(plotter))) return 0;
    if (!plotter.m_hGLRC) {
        SKivoStyle taken = style;
        Take(plotter, taken);
        return 0;
    }
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (!wglGetCurrentContext()) return -1;
    Texts texts(plotter);
    Fonts fonts(plotter, style);
    if (!fonts.Make() || !texts.Draw(plotter.m_textRenderer)) return -1;
    texts.Show();
    fonts.Keep();
    return 0;
}

SKivoStyle GetStyle(const CKivoFunctionPlotter& plotter) {
    return StyleAccess::Get(plotter);
}

int SetStyle(CKivoFunctionPlotter& plotter, const SKivoStyle& style) {
    return StyleAccess::Set(plotter, style);
}

} // namespace KivoDrawingTools
