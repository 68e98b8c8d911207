#include "KivoGridBox.h"

#include "computing/NiceScale.h"
#include "TextRenderer.h"

#include <new>
#include <utility>

namespace KivoDrawingTools {

namespace {

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
        m_axisMin[axis] = dataMin[axis];
        m_axisMax[axis] = dataMax[axis];
        ChooseNiceScale(m_axisMin[axis], m_axisMax[axis], m_tickStep[axis], m_tickIntervals[axis]);
        m_precision[axis] = LabelPrecision(m_tickStep[axis]);
    }
    for (int axis = 0; axis < 3; ++axis)
        UpdateBox(axis, NewTickPositions(m_tickIntervals[axis]));
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
    ReleaseTickLabels(axis);
    const unsigned int count = m_tickIntervals[axis] + 1;
    m_tickLabels[axis] = new (std::nothrow) SKivoTexImage[count];
    if (!m_tickLabels[axis] || !m_tickPositions[axis]) return;
    const std::size_t stride = LeastLabelStride(count);
    for (unsigned int i = 0; i < count; ++i) {
        if (i % stride == 0) CreateTextImage(m_textMaker, LabelText(axis, i).c_str(), &m_tickLabels[axis][i]);
        m_tickPositions[axis][i] = static_cast<float>(i) * m_tickStep[axis] + m_tickOffset[axis];
    }
}

std::string CKivoGridBox::LabelText(int axis, unsigned int tick) const {
    const float value = m_tickPositions[axis][tick] + m_axisMin[axis] - m_tickOffset[axis];
    return FormatNumber(value, m_precision[axis]);
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
