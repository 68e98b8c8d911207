// The colour legend: a gradient as a bar with labelled values.
#pragma once

#include "AxisNumbers.h"
#include "computing/AxisLabelLayout.h"
#include "computing/FittedNumbers.h"
#include "KivoTypes.h"

#include <memory>
#include <string>
#include <vector>

namespace KivoDrawingTools {

class CKivoGradientColor;
struct STextRenderer;

/// Shows one gradient. Labels are textures: members that build or release them want the OpenGL context
/// current.
class CKivoGradientColorRuler {
public:
    CKivoGradientColorRuler() = default;
    CKivoGradientColorRuler(const CKivoGradientColorRuler&) = delete;
    CKivoGradientColorRuler& operator=(const CKivoGradientColorRuler&) = delete;
    virtual ~CKivoGradientColorRuler();

    /// Takes the gradient and its colours at 0, 1/4, 1/2, 3/4 and 1 of its range.
    void SetGradient(CKivoGradientColor* gradient);
    /// Makes the labels from range, division count and precision. They stay as they are with 0 divisions, and
    /// where they show these numbers already. Where they are to be round, they decide on the divisions.
    void BuildLabels();
    void ReleaseLabels();
    /// Makes the title's image; there is none of an empty one.
    void BuildTitle();
    void ReleaseTitle();
    /// Whether the title has been made, if there is one, and the labels, unless another ruler lacks them.
    bool HasTextsOf(const CKivoGradientColorRuler& other) const;
    /// Makes the texts that another ruler would show with another gradient and another look. They are this
    /// one's until they are exchanged.
    void MakeLike(const CKivoGradientColorRuler& other, CKivoGradientColor* gradient,
                  const SKivoLegend& legend);
    /// Exchanges look and texts with another ruler; each keeps its gradient.
    void ExchangeTexts(CKivoGradientColorRuler& other) noexcept;
    /// The text of a label, the lowest being number 0.
    std::string LabelText(unsigned int label) const;
    /// Draws bar and labels.
    /// @param viewport  x, y, width, height in window pixels
    /// @param volume    left, right, bottom, top, near, far
    void Render(const int* viewport, const double* volume) const;
    /// Adds the places of the labels that reach beyond the strip, in pixels of the plot.
    /// @param viewport, volume  as in Render
    /// @param plotViewport      x, y, width, height in window pixels
    void AddLabelsBeyond(const int* viewport, const double* volume, const int* plotViewport,
                         std::vector<PlacedImage>* places) const;

    float m_colors[5][4] = {};                    ///< RGBA
    CKivoGradientColor* m_gradient = nullptr;     ///< not owned
    unsigned int m_precision = 3;                 ///< digits after the decimal point
    unsigned int m_divisionCount = 0;             ///< intervals; there is one label more
    STextRenderer* m_textRenderer = nullptr;      ///< not owned
    SKivoTexImage* m_labels = nullptr;            ///< m_divisionCount + 1 images, bottom to top; from new[]
    std::shared_ptr<const AxisNumbers> m_numbers; ///< what the values stand for; null: for themselves
    std::vector<std::string> m_words;             ///< the host's for the labels; empty where it has none
    SKivoLegend m_legend;                         ///< how it looks
    SKivoTexImage m_titleImage;                   ///< of its title
    bool m_isRound = false; ///< the labels stand at round values, as many as m_divisionCount says

private:
    // What the labels were made from.
    struct LabelSource {
        const STextRenderer* renderer = nullptr; // null: not all could be made
        float min = 0.0f;
        float max = 0.0f;
        unsigned int divisionCount = 0;
        unsigned int precision = 0;
        KivoLegendNumbers style = KivoLegendNumbers::asSet;
        std::shared_ptr<const AxisNumbers> numbers;

        bool operator==(const LabelSource& other) const;
    };
    LabelSource m_labelSource;

    LabelSource Source() const;
    double LabelDistance() const;
    double Value(unsigned int label) const;
    std::string PlainLabelText(unsigned int label) const;
    void AskForWords();
    bool HasLabels() const;
    double First() const;
    double Last() const;
    NumberSteps RoundValues() const;
    NumberSteps Values() const;
    void ChooseDivisions();
    double LabelPlace(unsigned int label) const;
    double BarShare(int stripHeight) const;
    double TitleCenter(double titleScale) const;
    double TitleScale(int stripWidth) const;
    int WidestLabel() const;
    double LabelScale(double barRight, int stripWidth) const;
    int LabelOverhang(double barRight, int stripWidth) const;
    void RenderLabels(double barRight, double bottom, double barTall, double worldPerPixel,
                      double scale) const;
    void RenderTitle(double left, double barTop, double worldPerPixel, int stripWidth) const;
    void RenderBar(double left, double right, double bottom, double height) const;
};

} // namespace KivoDrawingTools
