#include "KivoGridBox.h"

#include "computing/AbsoluteScale.h"
#include "computing/NiceScale.h"
#include "TextRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>
#include <optional>
#include <utility>

namespace KivoDrawingTools {

namespace {

// Of the distance between ticks: about what can be told apart on a screen.
constexpr double readOutShare = 0.01;

// Room for the positions of one tick more than there are intervals; for none where that count has wrapped.
std::unique_ptr<float[]> NewTickPositions(unsigned int intervals) {
    return std::unique_ptr<float[]>(new float[intervals + 1]);
}

} // namespace

CKivoGridBox::CKivoGridBox(const bool* inverseX, const bool* inverseY, const bool* inverseZ)
    : m_inverseAxis{inverseX, inverseY, inverseZ} {}

CKivoGridBox::~CKivoGridBox() {
    for (int axis = 0; axis < 3; ++axis) {
        delete[] m_tickPositions[axis];
        m_tickPositions[axis] = nullptr;
        ReleaseTickLabels(axis);
        // The texture went with the plotter's context; the pixels go right before their record.
        delete[] m_axisTitleImage[axis].pixels;
    }
}

void CKivoGridBox::FitToData(const float* dataMin, const float* dataMax) {
    m_dataMin = dataMin;
    m_dataMax = dataMax;
    // Labels and positions go first: they are counted by the intervals that are about to change.
    for (int axis = 0; axis < 3; ++axis) {
        ReleaseTickLabels(axis);
        delete[] m_tickPositions[axis];
        m_tickPositions[axis] = nullptr;
        ChooseScale(axis);
    }
    for (int axis = 0; axis < 3; ++axis)
        UpdateBox(axis, NewTickPositions(m_tickIntervals[axis]));
}

void CKivoGridBox::FitAxis(int axis) {
    ReleaseTickLabels(axis);
    delete[] m_tickPositions[axis];
    m_tickPositions[axis] = nullptr;
    ChooseScale(axis);
    UpdateBox(axis, NewTickPositions(m_tickIntervals[axis]));
}

void CKivoGridBox::ChooseScale(int axis) {
    float& min = m_axisMin[axis];
    float& max = m_axisMax[axis];
    min = m_dataMin[axis];
    max = m_dataMax[axis];
    if (IsAbsolute(axis)) {
        ChooseAbsoluteScale(Origin(axis), min, max, m_tickStep[axis], m_tickIntervals[axis]);
        m_precision[axis] = DigitsOfTicks(axis);
    } else {
        ChooseNiceScale(min, max, m_tickStep[axis], m_tickIntervals[axis]);
        m_precision[axis] = LabelPrecision(m_tickStep[axis]);
    }
}

void CKivoGridBox::SetAxisMin(int axis, float value) {
    std::unique_ptr<float[]> positions = NewTickPositions(m_tickIntervals[axis]);
    m_axisMin[axis] = value;
    m_tickStep[axis] = (m_axisMax[axis] - m_axisMin[axis]) / static_cast<float>(m_tickIntervals[axis]);
    UpdateBox(axis, std::move(positions));
}

void CKivoGridBox::SetAxisMax(int axis, float value) {
    std::unique_ptr<float[]> positions = NewTickPositions(m_tickIntervals[axis]);
    m_axisMax[axis] = value;
    m_tickStep[axis] = (m_axisMax[axis] - m_axisMin[axis]) / static_cast<float>(m_tickIntervals[axis]);
    UpdateBox(axis, std::move(positions));
}

void CKivoGridBox::SetTickMarkNumber(int axis, unsigned int count) {
    std::unique_ptr<float[]> positions = NewTickPositions(count - 1);
    ReleaseTickLabels(axis);
    m_tickIntervals[axis] = count - 1;
    m_tickStep[axis] = (m_axisMax[axis] - m_axisMin[axis]) / static_cast<float>(count - 1);
    UpdateBox(axis, std::move(positions));
}

// Box corners, tick positions and labels of an axis whose range, step or interval count has changed.
void CKivoGridBox::UpdateBox(int axis, std::unique_ptr<float[]> tickPositions) {
    const float margin = (m_axisMax[axis] - m_axisMin[axis]) * m_marginRatio;
    m_boxMin[axis] = m_axisMin[axis] - margin;
    m_boxMax[axis] = m_axisMax[axis] + margin;
    m_tickOffset[axis] = margin;
    m_margin[axis] = margin;
    PlaceTicks(axis, std::move(tickPositions));
    BuildTickLabels(axis);
}

void CKivoGridBox::BuildTickPositions(int axis) {
    PlaceTicks(axis, NewTickPositions(m_tickIntervals[axis]));
}

void CKivoGridBox::PlaceTicks(int axis, std::unique_ptr<float[]> tickPositions) {
    delete[] m_tickPositions[axis];
    m_tickPositions[axis] = tickPositions.release();
    const unsigned int count = m_tickIntervals[axis] + 1;
    for (unsigned int i = 0; i < count; ++i)
        m_tickPositions[axis][i] = static_cast<float>(i) * m_tickStep[axis] + m_tickOffset[axis];
}

void CKivoGridBox::BuildTickLabels(int axis) {
    if (!m_textMaker) return;
    AskForTickWords(axis); // first: a host may do anything then, if it wants
    ReleaseTickLabels(axis);
    const unsigned int count = m_tickIntervals[axis] + 1;
    m_tickLabels[axis] = new (std::nothrow) SKivoTexImage[count];
    if (!m_tickLabels[axis] || !m_tickPositions[axis]) return;
    const std::size_t stride = LeastLabelStride(count);
    for (unsigned int i = 0; i < count; ++i) {
        if (i % stride == 0) CreateLabelImage(m_textMaker, LabelText(axis, i), &m_tickLabels[axis][i]);
        m_tickPositions[axis][i] = static_cast<float>(i) * m_tickStep[axis] + m_tickOffset[axis];
    }
}

std::string CKivoGridBox::LabelText(int axis, unsigned int tick) const {
    const std::size_t stride = LeastLabelStride(m_tickIntervals[axis] + 1);
    const std::vector<std::string>& words = m_tickWords[axis];
    const bool hasWords = tick % stride == 0 && tick / stride < words.size();
    return hasWords ? words[tick / stride] : PlainLabelText(axis, tick);
}

std::string CKivoGridBox::PlainLabelText(int axis, unsigned int tick) const {
    if (IsAbsolute(axis))
        return FormatAbsolute(TickValue(axis, tick), std::max(m_precision[axis], DigitsOfTicks(axis)));
    const float value = m_tickPositions[axis][tick] + m_axisMin[axis] - m_tickOffset[axis];
    return FormatNumber(value, m_precision[axis]);
}

std::string CKivoGridBox::ReadOut(int axis, float number, bool asksFormat) const {
    constexpr unsigned int leastDigits = 3;
    const std::shared_ptr<const AxisNumbers> numbers = m_numbers[axis]; // stays while the host is asked
    if (!numbers) return FormatNumber(number, leastDigits);
    const double value = numbers->origin + static_cast<double>(number);
    const double step = TickDistance(axis) * readOutShare;
    if (asksFormat)
        if (std::optional<std::string> words = numbers->Words(value, step)) return *std::move(words);
    if (numbers->origin == 0.0) return FormatNumber(number, leastDigits);
    return FormatAbsolute(value, std::max(leastDigits, DigitsApart(step, value)));
}

// Above 0, or 0 where it is no number.
double CKivoGridBox::TickDistance(int axis) const {
    const double step = std::abs(static_cast<double>(m_tickStep[axis]));
    return std::isfinite(step) ? MeantNumber(0.0, step, step, step) : 0.0;
}

double CKivoGridBox::TickValue(int axis, unsigned int tick) const {
    const double min = static_cast<double>(m_axisMin[axis]), max = static_cast<double>(m_axisMax[axis]);
    const double offset = static_cast<double>(m_tickOffset[axis]);
    const double difference = static_cast<double>(m_tickPositions[axis][tick]) + min - offset;
    return MeantNumber(Origin(axis), difference, std::max(std::abs(min), std::abs(max)), TickDistance(axis));
}

unsigned int CKivoGridBox::DigitsOfTicks(int axis) const {
    const double origin = Origin(axis);
    return DigitsApart(TickDistance(axis), std::max(std::abs(origin + static_cast<double>(m_axisMin[axis])),
                                                    std::abs(origin + static_cast<double>(m_axisMax[axis]))));
}

// A host may do anything to the plot while it is asked: its words are kept where the ticks have stayed.
void CKivoGridBox::AskForTickWords(int axis) {
    m_tickWords[axis].clear();
    const std::shared_ptr<const AxisNumbers> numbers = m_numbers[axis];
    if (!numbers || !numbers->format) return;
    const float min = m_axisMin[axis], max = m_axisMax[axis];
    const unsigned int intervals = m_tickIntervals[axis];
    const auto haveTicksStayed = [&] {
        return m_tickPositions[axis] && m_axisMin[axis] == min && m_axisMax[axis] == max &&
               m_tickIntervals[axis] == intervals && m_numbers[axis] == numbers;
    };
    std::vector<std::string> words;
    const unsigned int count = intervals + 1;
    const std::size_t stride = LeastLabelStride(count);
    for (std::size_t i = 0; i < count && haveTicksStayed(); i += stride) {
        const auto tick = static_cast<unsigned int>(i);
        const std::string plain = PlainLabelText(axis, tick);
        words.push_back(numbers->Words(TickValue(axis, tick), TickDistance(axis)).value_or(plain));
    }
    if (haveTicksStayed()) m_tickWords[axis].swap(words);
}

void CKivoGridBox::ReleaseTickLabels(int axis) {
    SKivoTexImage* labels = m_tickLabels[axis];
    if (!labels) return;
    const unsigned int count = m_tickIntervals[axis] + 1;
    for (unsigned int i = 0; i < count; ++i)
        ReleaseTextImage(&labels[i]);
    delete[] labels;
    m_tickLabels[axis] = nullptr;
}

void CKivoGridBox::ChooseBackPlanes(const double* rotation) {
    // In eye space, the face whose outward side is turned away is at the back: the low one, as it is seen, of
    // an axis that points towards the viewer.
    for (int axis = 0; axis < 3; ++axis) {
        const bool isLow = m_autoSwitchFramePlanes ? rotation[4 * axis + 2] >= 0.0 : !*m_inverseAxis[axis];
        m_backPlane[planeAcross[axis]] = isLow != m_isMirrored[axis];
    }
}

} // namespace KivoDrawingTools
