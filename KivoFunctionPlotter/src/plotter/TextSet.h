// Fonts and text images of a plotter in a style that is not the one it shows.
#pragma once

#include "KivoStyle.h"
#include "parts/TextRenderer.h"

#include <cstdint>
#include <vector>

namespace KivoDrawingTools {

bool AreEqual(const SKivoStyle& a, const SKivoStyle& b);

/// What a plotter draws texts with, once more for another style. Made beside the plotter's own and exchanged
/// with it, so that a failure changes nothing. The plotter's context must be current.
class TextSet {
public:
    TextSet() = default;
    ~TextSet() { Release(); }
    TextSet(const TextSet&) = delete;
    TextSet& operator=(const TextSet&) = delete;

    /// Makes fonts and images for a style; where this has been done for it before, only the images whose
    /// texts are others now.
    /// @return false when the system does not make a font, or the image of a text that the plotter has one of
    bool Make(CKivoFunctionPlotter& plotter, const SKivoStyle& style);
    /// The same for the plotter's own style at another scale, for frames that are drawn now: without the
    /// names of points that they do not show, and without allocating where that is made already.
    bool MakeScaled(CKivoFunctionPlotter& plotter, float factor);

    /// After Make: its style, fonts and images become the plotter's, and the plotter's become the set's.
    void Exchange(CKivoFunctionPlotter& plotter) noexcept;

    /// Gives back what there is.
    void Release() noexcept;
    /// Forgets textures and lists, which went with their context: it need not be current then.
    void ForgetContext() noexcept;

    static SKivoStyle StyleOf(const CKivoFunctionPlotter& plotter);
    static void ExchangeStyle(CKivoFunctionPlotter& plotter, SKivoStyle& style) noexcept;

private:
    struct Entry {
        SKivoTexImage image;
        std::uint64_t of = 0; ///< number of the plotter's drawing that it stands for; 0: of none
    };
    class FontsInPlace;

    template <typename Visit>
    void ForEachText(const CKivoFunctionPlotter& plotter, Visit visit) const;
    bool MakeFonts(CKivoFunctionPlotter& plotter);
    bool MakeImages(CKivoFunctionPlotter& plotter);
    void ExchangeFonts(CKivoFunctionPlotter& plotter) noexcept;
    void KeepEntries(std::size_t count);

    SKivoStyle m_style;
    STextRenderer m_renderer;
    unsigned int m_fontLists = 0;
    bool m_hasFonts = false;
    bool m_isForFrames = false;                     ///< of all names of points only those that are drawn
    std::vector<const SKivoTexImage*> m_drawnNames; ///< the plotter's, in their order
    std::vector<Entry> m_entries; ///< in the order in which the plotter's texts are gone through
};

} // namespace KivoDrawingTools
