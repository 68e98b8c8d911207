#include "TextSet.h"

#include "ContourLabels.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "PointAccess.h"

#include <cstddef>
#include <string>
#include <utility>

namespace KivoDrawingTools {

namespace {

// ---- visit(image, text) for each of an object's text images, where text() is what it shows

template <typename Visit>
void VisitLabels(CKivoGridBox& box, int axis, Visit visit) {
    SKivoTexImage* const labels = box.m_tickLabels[axis];
    const unsigned int count = labels ? box.m_tickIntervals[axis] + 1 : 0;
    for (unsigned int i = 0; i < count; ++i)
        visit(labels[i], [&] { return box.LabelText(axis, i); });
}

template <typename Visit>
void VisitLabels(CKivoGradientColorRuler& ruler, Visit visit) {
    for (unsigned int i = 0; ruler.m_labels && i <= ruler.m_divisionCount; ++i)
        visit(ruler.m_labels[i], [&] { return ruler.LabelText(i); });
    if (!ruler.m_legend.title.empty()) visit(ruler.m_titleImage, [&] { return ruler.m_legend.title; });
}

// Of points: all, or only some, which come in the same order.
template <typename Visit>
void VisitNames(CKivoMeasurePointGroupManager& groups, const std::vector<const SKivoTexImage*>* only,
                Visit visit) {
    std::size_t next = 0;
    for (CKivoMeasurePointGroup* const group : groups.m_groups)
        for (std::size_t i = 0; i < group->m_pointNameImages.size(); ++i) {
            SKivoTexImage& image = group->m_pointNameImages[i];
            if (only && (next == only->size() || (*only)[next] != &image)) continue;
            ++next;
            visit(image, [&] { return group->m_pointNames[i]; });
        }
}

bool HasRenderer(const STextRenderer* renderer) {
    return renderer && renderer->m_windowDC;
}

} // namespace

bool AreEqual(const SKivoStyle& a, const SKivoStyle& b) {
    return a.pixelScale == b.pixelScale && a.inkColor == b.inkColor && a.textFace == b.textFace &&
           a.boldText == b.boldText;
}

template <typename Visit>
void TextSet::ForEachText(const CKivoFunctionPlotter& plotter, Visit visit) const {
    if (plotter.m_plotTitleImage) visit(*plotter.m_plotTitleImage, [&] { return plotter.m_plotTitle; });
    const std::string* const axisTitles[] = {&plotter.m_xAxisTitle, &plotter.m_yAxisTitle,
                                             &plotter.m_zAxisTitle};
    for (int axis = 0; plotter.m_gridBox && axis < 3; ++axis) {
        visit(plotter.m_gridBox->m_axisTitleImage[axis], [&] { return *axisTitles[axis]; });
        VisitLabels(*plotter.m_gridBox, axis, visit);
    }
    for (CKivoGradientColorRuler* ruler :
         {plotter.m_zColorRuler, plotter.m_xColorRuler, plotter.m_yColorRuler})
        if (ruler) VisitLabels(*ruler, visit);
    if (plotter.m_contourLabels.labels)
        for (ContourLabel& label : plotter.m_contourLabels.labels->ofLevel)
            visit(label.image, [&] { return label.text; });
    if (!plotter.m_measureGroups) return;
    for (CKivoMeasurePointGroup* const group : plotter.m_measureGroups->m_groups) {
        visit(group->m_nameImage, [&] { return group->m_name; });
        for (std::size_t i = 0; i < group->m_listedImages.size(); ++i)
            visit(group->m_listedImages[i], [&] { return group->m_listedTexts[i]; });
    }
    VisitNames(*plotter.m_measureGroups, m_isForFrames ? &m_drawnNames : nullptr, visit);
}

SKivoStyle TextSet::StyleOf(const CKivoFunctionPlotter& plotter) {
    return {plotter.m_pixelScale, plotter.m_inkColor, plotter.m_textFace, plotter.m_boldText};
}

void TextSet::ExchangeStyle(CKivoFunctionPlotter& plotter, SKivoStyle& style) noexcept {
    std::swap(plotter.m_pixelScale, style.pixelScale);
    std::swap(plotter.m_inkColor, style.inkColor);
    plotter.m_textFace.swap(style.textFace);
    std::swap(plotter.m_boldText, style.boldText);
}

void TextSet::ExchangeFonts(CKivoFunctionPlotter& plotter) noexcept {
    ExchangeStyle(plotter, m_style);
    if (plotter.m_textRenderer) std::swap(*plotter.m_textRenderer, m_renderer);
    std::swap(plotter.m_fontListBase, m_fontLists);
}

// The plotter's own members make the set's fonts, which stand in the place of the plotter's meanwhile.
class TextSet::FontsInPlace {
public:
    FontsInPlace(TextSet& set, CKivoFunctionPlotter& plotter) : m_set(set), m_plotter(plotter) {
        m_set.ExchangeFonts(m_plotter);
    }
    ~FontsInPlace() { m_set.ExchangeFonts(m_plotter); }
    FontsInPlace(const FontsInPlace&) = delete;
    FontsInPlace& operator=(const FontsInPlace&) = delete;

private:
    TextSet& m_set;
    CKivoFunctionPlotter& m_plotter;
};

bool TextSet::MakeFonts(CKivoFunctionPlotter& plotter) {
    const bool hasRenderer = HasRenderer(plotter.m_textRenderer);
    const int fontSize = hasRenderer ? plotter.m_textRenderer->m_fontSize : 0;
    const FontsInPlace inPlace(*this, plotter);
    if (hasRenderer) {
        plotter.InitTexts(fontSize);
        const STextRenderer& made = *plotter.m_textRenderer;
        if (!made.m_savedFont) return false; // there is no font, or it is not selected
        if (plotter.m_pixelScale != 1.0f && !made.m_plainFont) return false;
    }
    return plotter.InitFont() == 0;
}

// Some texts cannot be drawn at any time; those the plotter shows without.
bool TextSet::MakeImages(CKivoFunctionPlotter& plotter) {
    bool areMade = true;
    std::size_t count = 0;
    ForEachText(plotter, [&](SKivoTexImage& shown, auto text) {
        if (++count > m_entries.size()) m_entries.emplace_back();
        Entry& entry = m_entries[count - 1];
        const std::uint64_t wanted =
            shown.texture != 0 ? shown.drawing : 0; // without a name it does not show
        if (entry.of == wanted) return;
        entry.of = 0;
        if (wanted == 0) return;
        const bool isMade = CreateTextImage(&m_renderer, text().c_str(), &entry.image) == 0;
        if (isMade || !shown.pixels)
            entry.of = entry.image.drawing != 0 ? wanted : 0;
        else
            areMade = false;
    });
    KeepEntries(count);
    return areMade;
}

bool TextSet::Make(CKivoFunctionPlotter& plotter, const SKivoStyle& style) {
    if (!m_hasFonts || !AreEqual(style, m_style)) {
        Release();
        m_style = style;
        m_hasFonts = MakeFonts(plotter);
        if (!m_hasFonts) return false;
    }
    return MakeImages(plotter);
}

bool TextSet::MakeScaled(CKivoFunctionPlotter& plotter, float factor) {
    m_isForFrames = true;
    PointAccess::CollectDrawnNames(plotter, &m_drawnNames);
    const float scale = plotter.m_pixelScale * factor;
    const bool isMade = m_hasFonts && m_style.pixelScale == scale && m_style.inkColor == plotter.m_inkColor &&
                        m_style.textFace == plotter.m_textFace && m_style.boldText == plotter.m_boldText;
    if (isMade) return MakeImages(plotter);
    SKivoStyle style = StyleOf(plotter);
    style.pixelScale = scale;
    return Make(plotter, style);
}

void TextSet::Exchange(CKivoFunctionPlotter& plotter) noexcept {
    ExchangeFonts(plotter);
    std::size_t count = 0;
    ForEachText(plotter, [&](SKivoTexImage& shown, auto) {
        if (++count > m_entries.size()) return;
        Entry& entry = m_entries[count - 1];
        if (entry.of == 0 || entry.of != shown.drawing) return;
        std::swap(shown, entry.image);
        entry.of = shown.drawing;
    });
}

void TextSet::KeepEntries(std::size_t count) {
    while (m_entries.size() > count) {
        ReleaseTextImage(&m_entries.back().image);
        m_entries.pop_back();
    }
}

void TextSet::Release() noexcept {
    KeepEntries(0);
    ReleaseTextRenderer(&m_renderer);
    if (m_fontLists != 0) CKivoFunctionPlotter::DeleteFontLists(m_fontLists);
    m_fontLists = 0;
    m_hasFonts = false;
}

void TextSet::ForgetContext() noexcept {
    for (Entry& entry : m_entries)
        entry.image.texture = 0;
    m_fontLists = 0;
}

} // namespace KivoDrawingTools
