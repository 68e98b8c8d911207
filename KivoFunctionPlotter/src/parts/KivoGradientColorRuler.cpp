#include "KivoGradientColorRuler.h"

#include "computing/AbsoluteScale.h"
#include "computing/ColorTable.h"
#include "drawing/Camera.h"
#include "drawing/GLScopes.h"
#include "drawing/TexturedQuad.h"
#include "KivoGradientColor.h"
#include "TextRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr double barPlace = 0.10; // of the strip's width
constexpr double barWidth = 0.12;
constexpr double barBottom = 0.14; // of its height
constexpr double barHeight = 0.8;
constexpr double labelScale = 0.9;  // of the label's size in pixels
constexpr double labelCenter = 0.6; // from the bar at that scale, in widths of the label
constexpr double leastLabelScale = 0.6;
constexpr double titleGap = 0.15;       // below and above the title, in its height
constexpr double leastBarShare = 0.1;   // of the strip's height, under a title
constexpr std::size_t mostBands = 1024; // of the bar: more than it is high in pixels
constexpr unsigned int standardDivisions = 10;

// How far a label reaches to the right of the bar, in its own widths.
double LabelReach(double scale) {
    return labelCenter * (scale / labelScale) + scale / 2.0;
}

} // namespace

CKivoGradientColorRuler::~CKivoGradientColorRuler() {
    ReleaseLabels();
    ReleaseTitle();
}

void CKivoGradientColorRuler::SetGradient(CKivoGradientColor* gradient) {
    m_gradient = gradient;
    const float quarter = (gradient->m_max - gradient->m_min) / 4.0f; // four times a large range is infinite
    for (int i = 0; i < 5; ++i) {
        const float value = gradient->m_min + static_cast<float>(i) * quarter;
        gradient->Evaluate(value, m_colors[i]);
        m_colors[i][3] = 1.0f;
    }
}

void CKivoGradientColorRuler::BuildLabels() {
    if (m_divisionCount == 0 || !m_gradient) return;
    if (m_textRenderer && Source() == m_labelSource && HasLabels()) return;
    ReleaseLabels();
    ChooseDivisions();
    AskForWords();   // a host may do anything then, if it wants,
    ReleaseLabels(); // and have had labels made
    const LabelSource source = Source();
    m_labels = new SKivoTexImage[std::size_t{m_divisionCount} + 1];
    bool areMade = true;
    for (unsigned int i = 0; i <= m_divisionCount; ++i)
        areMade &= CreateLabelImage(m_textRenderer, LabelText(i), &m_labels[i]) == 0;
    if (areMade) m_labelSource = source;
}

// Round values divide the range as they will, others as the plotter says.
void CKivoGradientColorRuler::ChooseDivisions() {
    const NumberSteps round = m_legend.numbers == KivoLegendNumbers::round ? RoundValues() : NumberSteps();
    if (m_isRound) m_divisionCount = standardDivisions;
    m_isRound = round.count != 0;
    if (m_isRound) m_divisionCount = round.count - 1;
}

// What the least value of the range stands for.
double CKivoGradientColorRuler::First() const {
    return (m_numbers ? m_numbers->origin : 0.0) + static_cast<double>(m_gradient->m_min);
}

double CKivoGradientColorRuler::Last() const {
    return (m_numbers ? m_numbers->origin : 0.0) + static_cast<double>(m_gradient->m_max);
}

NumberSteps CKivoGradientColorRuler::RoundValues() const {
    return RoundSteps(First(), Last(), standardDivisions + 1);
}

// Of the labels, in double precision: what they stand for.
NumberSteps CKivoGradientColorRuler::Values() const {
    if (m_isRound) return RoundValues();
    return {First(), (Last() - First()) / m_divisionCount, m_divisionCount + 1};
}

CKivoGradientColorRuler::LabelSource CKivoGradientColorRuler::Source() const {
    return {m_textRenderer, m_gradient->m_min, m_gradient->m_max, m_divisionCount,
            m_precision,    m_legend.numbers,  m_numbers};
}

// Above 0, or 0 where it is no number.
double CKivoGradientColorRuler::LabelDistance() const {
    const double distance = std::abs(Values().step);
    return std::isfinite(distance) ? distance : 0.0;
}

double CKivoGradientColorRuler::Value(unsigned int label) const {
    if (m_isRound) return Values().Value(label);
    const double min = static_cast<double>(m_gradient->m_min), max = static_cast<double>(m_gradient->m_max);
    const double value = min + (max - min) * label / m_divisionCount;
    return MeantNumber(m_numbers ? m_numbers->origin : 0.0, value, std::max(std::abs(min), std::abs(max)),
                       LabelDistance());
}

// A host may do anything to the plot while it is asked: its words are kept where the values have stayed.
void CKivoGradientColorRuler::AskForWords() {
    m_words.clear();
    const LabelSource source = Source();
    if (!source.numbers || !source.numbers->format) return;
    std::vector<std::string> words;
    for (unsigned int i = 0; i <= source.divisionCount; ++i) {
        const std::string plain = PlainLabelText(i);
        words.push_back(source.numbers->Words(Value(i), LabelDistance()).value_or(plain));
    }
    if (Source() == source) m_words.swap(words);
}

std::string CKivoGradientColorRuler::LabelText(unsigned int label) const {
    return label < m_words.size() ? m_words[label] : PlainLabelText(label);
}

std::string CKivoGradientColorRuler::PlainLabelText(unsigned int label) const {
    const bool isAsSet = m_legend.numbers == KivoLegendNumbers::asSet;
    if (m_numbers && m_numbers->origin != 0.0) {
        const double value = Value(label);
        const unsigned int apart = DigitsApart(LabelDistance(), value);
        const unsigned int needed = m_isRound ? apart : apart + 1;
        return FormatAbsolute(value, isAsSet ? std::max(m_precision, needed) : needed);
    }
    if (!isAsSet) {
        const NumberSteps values = Values();
        return FittedNumbers(values).Text(values.Value(label));
    }
    const float step = (m_gradient->m_max - m_gradient->m_min) / static_cast<float>(m_divisionCount);
    return FormatNumber(m_gradient->m_min + static_cast<float>(label) * step, m_precision);
}

// Where a round value stands, in shares of the bar.
double CKivoGradientColorRuler::LabelPlace(unsigned int label) const {
    return (Values().Value(label) - First()) / (Last() - First());
}

void CKivoGradientColorRuler::BuildTitle() {
    ReleaseTitle();
    if (!m_legend.title.empty()) CreateTextImage(m_textRenderer, m_legend.title.c_str(), &m_titleImage);
}

void CKivoGradientColorRuler::ReleaseTitle() {
    if (m_titleImage.texture != 0 || m_titleImage.pixels) ReleaseTextImage(&m_titleImage);
}

bool CKivoGradientColorRuler::HasTextsOf(const CKivoGradientColorRuler& other) const {
    const auto hasTitle = [](const CKivoGradientColorRuler& ruler) {
        return ruler.m_legend.title.empty() || ruler.m_titleImage.pixels;
    };
    const auto hasLabels = [](const CKivoGradientColorRuler& ruler) {
        return ruler.m_labelSource.renderer && ruler.HasLabels();
    };
    const bool isTitleAsGood =
        hasTitle(*this) || (m_legend.title == other.m_legend.title && !hasTitle(other));
    return isTitleAsGood && (hasLabels(*this) || !hasLabels(other));
}

// A label that was made while no context was current has no texture.
bool CKivoGradientColorRuler::HasLabels() const {
    return m_labels && std::all_of(m_labels, m_labels + m_divisionCount + 1,
                                   [](const SKivoTexImage& label) { return label.texture != 0; });
}

bool CKivoGradientColorRuler::LabelSource::operator==(const LabelSource& other) const {
    return renderer == other.renderer && min == other.min && max == other.max &&
           divisionCount == other.divisionCount && precision == other.precision && style == other.style &&
           numbers == other.numbers;
}

void CKivoGradientColorRuler::MakeLike(const CKivoGradientColorRuler& other, CKivoGradientColor* gradient,
                                       const SKivoLegend& legend) {
    m_legend = legend;
    m_precision = other.m_precision;
    m_divisionCount = other.m_isRound ? standardDivisions : other.m_divisionCount;
    m_textRenderer = other.m_textRenderer;
    m_numbers = other.m_numbers;
    if (gradient) SetGradient(gradient);
    BuildLabels();
    BuildTitle();
}

void CKivoGradientColorRuler::ExchangeTexts(CKivoGradientColorRuler& other) noexcept {
    std::swap(m_labels, other.m_labels);
    std::swap(m_labelSource, other.m_labelSource);
    std::swap(m_divisionCount, other.m_divisionCount);
    std::swap(m_isRound, other.m_isRound);
    std::swap(m_words, other.m_words);
    std::swap(m_legend, other.m_legend);
    std::swap(m_titleImage, other.m_titleImage);
}

void CKivoGradientColorRuler::ReleaseLabels() {
    m_labelSource = {};
    if (!m_labels) return;
    for (unsigned int i = 0; i <= m_divisionCount; ++i)
        ReleaseTextImage(&m_labels[i]);
    delete[] m_labels;
    m_labels = nullptr;
}

void CKivoGradientColorRuler::Render(const int* viewport, const double* volume) const {
    if (!m_legend.isShown) return;
    const double width = volume[1] - volume[0];
    const double height = volume[3] - volume[2];
    const double worldPerPixel = width / viewport[2];
    const double left = volume[0] + barPlace * width;
    const double right = left + barWidth * width;
    const double bottom = volume[2] + barBottom * height;

    // In a narrow strip the labels are drawn smaller; what does not fit then reaches beyond it.
    const double barRight = (right - volume[0]) / worldPerPixel;
    const int overhang = LabelOverhang(barRight, viewport[2]);
    glPushAttrib(GL_VIEWPORT_BIT);
    const int widened[] = {viewport[0], viewport[1], viewport[2] + overhang, viewport[3]};
    SetViewport(widened);
    const MatrixModeScope projection(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    const double widenedVolume[] = {
        volume[0], volume[1] + overhang * worldPerPixel, volume[2], volume[3], volume[4], volume[5]};
    MultiplyOrtho(widenedVolume);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();

    const double barTall = BarShare(viewport[3]) * height;
    RenderBar(left, right, bottom, barTall);
    RenderLabels(right, bottom, barTall, worldPerPixel, LabelScale(barRight, viewport[2]));
    RenderTitle(left, bottom + barTall, worldPerPixel, viewport[2]);

    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopAttrib();
}

void CKivoGradientColorRuler::AddLabelsBeyond(const int* viewport, const double* volume,
                                              const int* plotViewport,
                                              std::vector<PlacedImage>* places) const {
    const double barRight = (barPlace + barWidth) * viewport[2];
    if (!m_legend.isShown || volume[1] == volume[0] || LabelOverhang(barRight, viewport[2]) == 0) return;
    const double scale = LabelScale(barRight, viewport[2]);
    const double share = BarShare(viewport[3]);
    const auto add = [&](const SKivoTexImage& image, double imageScale, double x, double y) {
        PlacedImage place;
        place.center.x = viewport[0] + x - plotViewport[0];
        place.center.y = viewport[1] + y - plotViewport[1];
        place.halfWidth = 0.5 * imageScale * image.width;
        place.halfHeight = 0.5 * imageScale * image.height;
        place.isShown = true;
        places->push_back(place);
    };
    for (unsigned int i = 0; m_labels && i <= m_divisionCount; ++i) {
        const SKivoTexImage& label = m_labels[i];
        if (barRight + label.width * LabelReach(scale) <= viewport[2]) continue;
        const double height = m_isRound ? LabelPlace(i) * share : i * share / m_divisionCount;
        add(label, scale, barRight + label.width * labelCenter * (scale / labelScale),
            viewport[3] * (barBottom + height));
    }
    const double titleScale = TitleScale(viewport[2]);
    const double titleLeft = barPlace * viewport[2];
    if (m_titleImage.texture != 0 && titleLeft + m_titleImage.width * titleScale > viewport[2])
        add(m_titleImage, titleScale, titleLeft + 0.5 * m_titleImage.width * titleScale,
            viewport[3] * (barBottom + share) + TitleCenter(titleScale));
}

// The bar makes room for a title.
double CKivoGradientColorRuler::BarShare(int stripHeight) const {
    if (m_titleImage.texture == 0 || stripHeight <= 0) return barHeight;
    const double title = labelScale * m_titleImage.height;
    const double room = TitleCenter(labelScale) + (0.5 + titleGap) * title;
    return std::clamp(1.0 - barBottom - room / stripHeight, leastBarShare, barHeight);
}

// From the bar's top to the middle of a title, over the label that stands there. In pixels.
double CKivoGradientColorRuler::TitleCenter(double titleScale) const {
    const double label = m_labels ? labelScale * m_labels[0].height : 0.0;
    return 0.5 * label + (titleGap + 0.5) * titleScale * m_titleImage.height;
}

// As labels: as large as fits, within limits.
double CKivoGradientColorRuler::TitleScale(int stripWidth) const {
    const double room = (1.0 - barPlace) * stripWidth;
    if (!(m_titleImage.width * labelScale > room)) return labelScale;
    return std::clamp(room / m_titleImage.width, leastLabelScale, labelScale);
}

void CKivoGradientColorRuler::RenderTitle(double left, double barTop, double worldPerPixel,
                                          int stripWidth) const {
    if (m_titleImage.texture == 0) return;
    constexpr float toTheRight[] = {1, 0, 0};
    constexpr float upwards[] = {0, 1, 0};
    const double titleScale = TitleScale(stripWidth);
    const double scale = titleScale * worldPerPixel;
    const float center[] = {static_cast<float>(left + 0.5 * m_titleImage.width * scale),
                            static_cast<float>(barTop + TitleCenter(titleScale) * worldPerPixel), 0.0f};
    DrawTexturedQuad(center, toTheRight, upwards, scale, scale, m_titleImage);
}

int CKivoGradientColorRuler::WidestLabel() const {
    int widest = 0;
    for (unsigned int i = 0; m_labels && i <= m_divisionCount; ++i)
        widest = std::max(widest, m_labels[i].width);
    return widest;
}

// As large as fits between bar and strip's right side, within limits. In pixels.
double CKivoGradientColorRuler::LabelScale(double barRight, int stripWidth) const {
    const double needed = WidestLabel() * LabelReach(labelScale);
    const double room = stripWidth - barRight;
    if (!(needed > room)) return labelScale;
    return std::clamp(labelScale * room / needed, leastLabelScale, labelScale);
}

// Pixels by which the widest text passes the strip's right side.
int CKivoGradientColorRuler::LabelOverhang(double barRight, int stripWidth) const {
    constexpr double rounding = 1e-6; // a label scaled to fit may seem a hair too wide
    const double labels = barRight + WidestLabel() * LabelReach(LabelScale(barRight, stripWidth));
    const double title = m_titleImage.texture == 0
                             ? labels
                             : barPlace * stripWidth + m_titleImage.width * TitleScale(stripWidth);
    const double overhang = std::max(labels, title) - stripWidth - rounding;
    return overhang > 0.0 && overhang < 1e6 ? static_cast<int>(std::ceil(overhang)) : 0;
}

void CKivoGradientColorRuler::RenderLabels(double barRight, double bottom, double barTall,
                                           double worldPerPixel, double labelSize) const {
    constexpr float toTheRight[] = {1, 0, 0};
    constexpr float upwards[] = {0, 1, 0};
    const double scale = worldPerPixel * labelSize;
    const double toCenter = labelCenter * (labelSize / labelScale);
    const double spacing = barTall / m_divisionCount;
    for (unsigned int i = 0; m_labels && i <= m_divisionCount; ++i) {
        const double height = m_isRound ? LabelPlace(i) * barTall : i * spacing;
        const float center[] = {static_cast<float>(barRight + m_labels[i].width * worldPerPixel * toCenter),
                                static_cast<float>(bottom + height), 0.0f};
        DrawTexturedQuad(center, toTheRight, upwards, scale, scale, m_labels[i]);
    }
}

// Four bands between the five colours of a gradient, or as many as a table has.
void CKivoGradientColorRuler::RenderBar(double left, double right, double bottom, double height) const {
    const ColorTable* const table = m_gradient ? m_gradient->Table() : nullptr;
    const std::size_t bandCount = table ? std::min(table->Count() - 1, mostBands) : 4;
    const double bandHeight = height / static_cast<double>(bandCount);
    const auto setColor = [&](std::size_t end) {
        if (!table) return glColor4fv(m_colors[end]);
        float color[4] = {0, 0, 0, 1};
        table->At(static_cast<float>(end) / static_cast<float>(bandCount), color);
        glColor4fv(color);
    };
    glBegin(GL_QUADS);
    for (std::size_t band = 0; band < bandCount; ++band) {
        const double low = bottom + static_cast<double>(band) * bandHeight;
        const double high = low + bandHeight;
        setColor(band);
        glVertex3d(left, low, 0.0);
        glVertex3d(right, low, 0.0);
        setColor(band + 1);
        glVertex3d(right, high, 0.0);
        glVertex3d(left, high, 0.0);
    }
    glEnd();
}

} // namespace KivoDrawingTools
