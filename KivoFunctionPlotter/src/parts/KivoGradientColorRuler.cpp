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
constexpr std::size_t mostBands = 1024; // of the bar: more than it is high in pixels

// How far a label reaches to the right of the bar, in its own widths.
double LabelReach(double scale) {
    return labelCenter * (scale / labelScale) + scale / 2.0;
}

} // namespace

CKivoGradientColorRuler::~CKivoGradientColorRuler() {
    ReleaseLabels();
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
    AskForWords(); // first: a host may do anything then, if it wants
    const LabelSource source = Source();
    ReleaseLabels();
    m_labels = new SKivoTexImage[std::size_t{m_divisionCount} + 1];
    bool areMade = true;
    for (unsigned int i = 0; i <= m_divisionCount; ++i)
        areMade &= CreateLabelImage(m_textRenderer, LabelText(i), &m_labels[i]) == 0;
    if (areMade) m_labelSource = source;
}

CKivoGradientColorRuler::LabelSource CKivoGradientColorRuler::Source() const {
    return {m_textRenderer, m_gradient->m_min, m_gradient->m_max, m_divisionCount, m_precision, m_numbers};
}

// Above 0, or 0 where it is no number.
double CKivoGradientColorRuler::LabelDistance() const {
    const double range = static_cast<double>(m_gradient->m_max) - static_cast<double>(m_gradient->m_min);
    const double distance = std::abs(range) / m_divisionCount;
    return std::isfinite(distance) ? distance : 0.0;
}

double CKivoGradientColorRuler::Value(unsigned int label) const {
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
    if (m_numbers && m_numbers->origin != 0.0) {
        const double value = Value(label);
        const unsigned int needed = DigitsApart(LabelDistance(), value) + 1; // the numbers are not round
        return FormatAbsolute(value, std::max(m_precision, needed));
    }
    const float step = (m_gradient->m_max - m_gradient->m_min) / static_cast<float>(m_divisionCount);
    return FormatNumber(m_gradient->m_min + static_cast<float>(label) * step, m_precision);
}

// A label that was made while no context was current has no texture.
bool CKivoGradientColorRuler::HasLabels() const {
    return m_labels && std::all_of(m_labels, m_labels + m_divisionCount + 1,
                                   [](const SKivoTexImage& label) { return label.texture != 0; });
}

bool CKivoGradientColorRuler::LabelSource::operator==(const LabelSource& other) const {
    return renderer == other.renderer && min == other.min && max == other.max &&
           divisionCount == other.divisionCount && precision == other.precision && numbers == other.numbers;
}

void CKivoGradientColorRuler::MakeLike(const CKivoGradientColorRuler& other, CKivoGradientColor* gradient) {
    m_precision = other.m_precision;
    m_divisionCount = other.m_divisionCount;
    m_textRenderer = other.m_textRenderer;
    m_numbers = other.m_numbers;
    SetGradient(gradient);
    BuildLabels();
}

void CKivoGradientColorRuler::ExchangeLabels(CKivoGradientColorRuler& other) noexcept {
    std::swap(m_labels, other.m_labels);
    std::swap(m_labelSource, other.m_labelSource);
    std::swap(m_divisionCount, other.m_divisionCount);
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

    RenderBar(left, right, bottom, barHeight * height);
    RenderLabels(right, bottom, barHeight * height / m_divisionCount, worldPerPixel,
                 LabelScale(barRight, viewport[2]));

    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopAttrib();
}

void CKivoGradientColorRuler::AddLabelsBeyond(const int* viewport, const double* volume,
                                              const int* plotViewport,
                                              std::vector<PlacedImage>* places) const {
    const double barRight = (barPlace + barWidth) * viewport[2];
    if (!m_labels || volume[1] == volume[0] || LabelOverhang(barRight, viewport[2]) == 0) return;
    const double scale = LabelScale(barRight, viewport[2]);
    for (unsigned int i = 0; i <= m_divisionCount; ++i) {
        const SKivoTexImage& label = m_labels[i];
        if (barRight + label.width * LabelReach(scale) <= viewport[2]) continue;
        PlacedImage place;
        place.center.x =
            viewport[0] + barRight + label.width * labelCenter * (scale / labelScale) - plotViewport[0];
        place.center.y =
            viewport[1] + viewport[3] * (barBottom + i * barHeight / m_divisionCount) - plotViewport[1];
        place.halfWidth = 0.5 * scale * label.width;
        place.halfHeight = 0.5 * scale * label.height;
        place.isShown = true;
        places->push_back(place);
    }
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

// Pixels by which the widest label passes the strip's right side.
int CKivoGradientColorRuler::LabelOverhang(double barRight, int stripWidth) const {
    constexpr double rounding = 1e-6; // a label scaled to fit may seem a hair too wide
    const double overhang =
        barRight + WidestLabel() * LabelReach(LabelScale(barRight, stripWidth)) - stripWidth - rounding;
    return overhang > 0.0 && overhang < 1e6 ? static_cast<int>(std::ceil(overhang)) : 0;
}

void CKivoGradientColorRuler::RenderLabels(double barRight, double bottom, double spacing,
                                           double worldPerPixel, double labelSize) const {
    constexpr float toTheRight[] = {1, 0, 0};
    constexpr float upwards[] = {0, 1, 0};
    const double scale = worldPerPixel * labelSize;
    const double toCenter = labelCenter * (labelSize / labelScale);
    for (unsigned int i = 0; m_labels && i <= m_divisionCount; ++i) {
        const float center[] = {static_cast<float>(barRight + m_labels[i].width * worldPerPixel * toCenter),
                                static_cast<float>(bottom + i * spacing), 0.0f};
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
