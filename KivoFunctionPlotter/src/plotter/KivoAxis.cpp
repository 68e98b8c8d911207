#include "KivoAxis.h"

#include "Arguments.h"
#include "ContourAccess.h"
#include "drawing/GLScopes.h"
#include "parts/AxisNumbers.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KivoDrawingTools {

namespace {

using Numbers = std::shared_ptr<const AxisNumbers>;

void ReleaseImages(SKivoTexImage* images, unsigned int count) {
    for (unsigned int i = 0; images && i < count; ++i)
        ReleaseTextImage(&images[i]);
    delete[] images;
}

// Takes the scale and the labels of an axis out of its box, and puts them back unless the new ones are kept.
class ScaleKeeper {
public:
    ScaleKeeper(CKivoGridBox& box, int axis)
        : m_box(box), m_axis(axis),
          m_numbers(box.m_numbers[axis]), m_scale{box.m_axisMin[axis], box.m_axisMax[axis],
                                                  box.m_boxMin[axis],  box.m_boxMax[axis],
                                                  box.m_margin[axis],  box.m_tickOffset[axis],
                                                  box.m_tickStep[axis]},
          m_intervals(box.m_tickIntervals[axis]), m_precision(box.m_precision[axis]),
          m_positions(std::exchange(box.m_tickPositions[axis], nullptr)),
          m_labels(std::exchange(box.m_tickLabels[axis], nullptr)) {
        m_words.swap(box.m_tickWords[axis]);
    }
    ~ScaleKeeper() {
        if (!m_isReplaced) PutBack();
        delete[] m_positions;
        ReleaseImages(m_labels, m_intervals + 1); // none where that has wrapped
    }
    ScaleKeeper(const ScaleKeeper&) = delete;
    ScaleKeeper& operator=(const ScaleKeeper&) = delete;

    bool HadTicks() const { return m_positions != nullptr; }
    void KeepNew() { m_isReplaced = true; }

private:
    void PutBack() {
        m_box.m_numbers[m_axis].swap(m_numbers);
        float* const fields[] = {m_box.m_axisMin, m_box.m_axisMax,    m_box.m_boxMin,  m_box.m_boxMax,
                                 m_box.m_margin,  m_box.m_tickOffset, m_box.m_tickStep};
        for (std::size_t i = 0; i < std::size(fields); ++i)
            fields[i][m_axis] = m_scale[i];
        std::swap(m_box.m_tickIntervals[m_axis], m_intervals);
        m_box.m_precision[m_axis] = m_precision;
        std::swap(m_box.m_tickPositions[m_axis], m_positions);
        std::swap(m_box.m_tickLabels[m_axis], m_labels);
        m_box.m_tickWords[m_axis].swap(m_words);
    }

    CKivoGridBox& m_box;
    int m_axis;
    Numbers m_numbers;
    float m_scale[7];
    unsigned int m_intervals;
    unsigned int m_precision;
    float* m_positions;
    SKivoTexImage* m_labels;
    std::vector<std::string> m_words;
    bool m_isReplaced = false;
};

// The same for the labels of a legend.
class LegendKeeper {
public:
    explicit LegendKeeper(CKivoGradientColorRuler& ruler)
        : m_ruler(ruler), m_numbers(ruler.m_numbers), m_count(ruler.m_divisionCount + 1),
          m_isRound(ruler.m_isRound), m_labels(std::exchange(ruler.m_labels, nullptr)) {
        m_words.swap(ruler.m_words);
    }
    ~LegendKeeper() {
        if (!m_isReplaced) {
            const unsigned int count = m_ruler.m_divisionCount + 1;
            m_ruler.m_numbers.swap(m_numbers);
            m_ruler.m_divisionCount = m_count - 1;
            m_ruler.m_isRound = m_isRound;
            std::swap(m_ruler.m_labels, m_labels);
            m_ruler.m_words.swap(m_words);
            m_count = count;
        }
        ReleaseImages(m_labels, m_count);
    }
    LegendKeeper(const LegendKeeper&) = delete;
    LegendKeeper& operator=(const LegendKeeper&) = delete;

    void KeepNew() { m_isReplaced = true; }

private:
    CKivoGradientColorRuler& m_ruler;
    Numbers m_numbers;
    unsigned int m_count;
    bool m_isRound;
    SKivoTexImage* m_labels;
    std::vector<std::string> m_words;
    bool m_isReplaced = false;
};

} // namespace

// ---- The read-out ---------------------------------------------------------------------------------------

// What the host says of a traced point.
struct STraceWords {
    float point[3];
    std::string text;
};

namespace {

bool HasFormats(const CKivoGridBox* box) {
    return box && std::any_of(std::begin(box->m_numbers), std::end(box->m_numbers),
                              [](const Numbers& numbers) { return numbers && numbers->format; });
}

} // namespace

std::string CKivoFunctionPlotter::PointText(const float* point, bool asksFormats) const {
    std::string text = "(";
    for (int axis = 0; axis < 3; ++axis)
        text += ReadOut(axis, point[axis], asksFormats) + (axis < 2 ? ", " : ")");
    return text;
}

// Ahead of the frames, since a host may do anything while it is asked.
void CKivoFunctionPlotter::AskForTraceWords() {
    std::shared_ptr<STraceWords> words;
    if (m_hasTracePoint != 0 && HasFormats(m_gridBox)) {
        words = std::make_shared<STraceWords>();
        std::copy(m_tracePoint, m_tracePoint + 3, words->point);
        words->text = PointText(words->point, true);
    }
    m_traceWords = std::move(words);
}

std::string CKivoFunctionPlotter::TraceText() const {
    const bool hasWords = m_traceWords && std::equal(m_tracePoint, m_tracePoint + 3, m_traceWords->point);
    return hasWords ? m_traceWords->text : PointText(m_tracePoint, false);
}

// ---- The host's side ------------------------------------------------------------------------------------

struct AxisAccess {
    static const AxisNumbers* NumbersOf(const CKivoFunctionPlotter& plotter, int axis);
    static int Change(CKivoFunctionPlotter& plotter, int axis, const AxisNumbers& wanted);
    static std::string ReadOut(const CKivoFunctionPlotter& plotter, int axis, float number) {
        return plotter.ReadOut(axis, number, true);
    }

private:
    static CKivoGradientColorRuler* RulerOf(const CKivoFunctionPlotter& plotter, int axis);
    static void Apply(CKivoFunctionPlotter& plotter, int axis, const Numbers& numbers, bool hadTicks);
    static bool AreLabelsMade(const CKivoFunctionPlotter& plotter, int axis);
};

// Null: the data's own.
const AxisNumbers* AxisAccess::NumbersOf(const CKivoFunctionPlotter& plotter, int axis) {
    return plotter.m_gridBox ? plotter.m_gridBox->m_numbers[axis].get() : nullptr;
}

CKivoGradientColorRuler* AxisAccess::RulerOf(const CKivoFunctionPlotter& plotter, int axis) {
    CKivoGradientColorRuler* const rulers[] = {plotter.m_xColorRuler, plotter.m_yColorRuler,
                                               plotter.m_zColorRuler};
    return rulers[axis];
}

// Scale and labels of the axis, and those of its legend.
void AxisAccess::Apply(CKivoFunctionPlotter& plotter, int axis, const Numbers& numbers, bool hadTicks) {
    CKivoGridBox& box = *plotter.m_gridBox;
    const auto origin = [](const Numbers& n) { return n ? n->origin : 0.0; };
    const bool isScaleOther = origin(numbers) != origin(box.m_numbers[axis]);
    box.m_numbers[axis] = numbers;
    if (hadTicks && isScaleOther && plotter.m_points && box.m_dataMin) {
        box.FitAxis(axis);
    } else if (hadTicks) {
        box.BuildTickPositions(axis);
        box.BuildTickLabels(axis);
    }
    if (CKivoGradientColorRuler* const ruler = RulerOf(plotter, axis)) {
        ruler->m_numbers = numbers;
        ruler->BuildLabels();
    }
}

// Those that say something. One that was made without the context has no texture, one that the system could
// not draw no pixels.
bool AxisAccess::AreLabelsMade(const CKivoFunctionPlotter& plotter, int axis) {
    const CKivoGridBox& box = *plotter.m_gridBox;
    const SKivoTexImage* const labels = box.m_tickLabels[axis];
    const bool wantsLabels = box.m_textMaker && box.m_tickPositions[axis];
    if (wantsLabels && !labels) return false; // without the memory for their records
    const unsigned int count = wantsLabels ? box.m_tickIntervals[axis] + 1 : 0;
    const std::size_t stride = LeastLabelStride(count);
    const auto isMade = [](const SKivoTexImage& image, const std::string& text) {
        return text.empty() || (image.texture != 0 && image.pixels);
    };
    for (std::size_t i = 0; i < count; i += stride)
        if (!isMade(labels[i], box.LabelText(axis, static_cast<unsigned int>(i)))) return false;
    const CKivoGradientColorRuler* const ruler = RulerOf(plotter, axis);
    for (unsigned int i = 0; ruler && ruler->m_labels && i <= ruler->m_divisionCount; ++i)
        if (!isMade(ruler->m_labels[i], ruler->LabelText(i))) return false;
    return true;
}

int AxisAccess::Change(CKivoFunctionPlotter& plotter, int axis, const AxisNumbers& wanted) {
    CKivoGridBox* const box = plotter.m_gridBox;
    if (!box) return -1;
    const bool isPlain = wanted.origin == 0.0 && !wanted.format; // the plot as if nothing had been set
    const Numbers numbers = isPlain ? nullptr : std::make_shared<AxisNumbers>(wanted);
    const bool isBound = plotter.m_hGLRC != nullptr;
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (isBound && !wglGetCurrentContext()) return -1;
    ScaleKeeper scale(*box, axis);
    std::optional<LegendKeeper> legend;
    if (CKivoGradientColorRuler* const ruler = RulerOf(plotter, axis)) legend.emplace(*ruler);
    Apply(plotter, axis, numbers, scale.HadTicks());
    // A format that draws or ends the plot unbinds the context. The old labels may have gone with it.
    const bool hasStayed = plotter.m_hGLRC && wglGetCurrentContext() == plotter.m_hGLRC;
    if (isBound && hasStayed && !AreLabelsMade(plotter, axis)) return -1;
    plotter.AskForTraceWords();
    scale.KeepNew();
    if (legend) legend->KeepNew();
    if (axis == 2) ContourAccess::FollowLevels(plotter);
    return isBound && !hasStayed ? -1 : 0;
}

int SetAxisOrigin(CKivoFunctionPlotter& plotter, int axis, double origin) {
    if (!IsAxis(axis) || !std::isfinite(origin)) return refusedArgument;
    const AxisNumbers* const present = AxisAccess::NumbersOf(plotter, axis);
    if (origin == (present ? present->origin : 0.0)) return 0;
    return AxisAccess::Change(plotter, axis, {origin, present ? present->format : nullptr});
}

double GetAxisOrigin(const CKivoFunctionPlotter& plotter, int axis) {
    const AxisNumbers* const present = IsAxis(axis) ? AxisAccess::NumbersOf(plotter, axis) : nullptr;
    return present ? present->origin : 0.0;
}

int SetAxisLabelFormat(CKivoFunctionPlotter& plotter, int axis,
                       std::function<std::string(double value, double step)> format) {
    if (!IsAxis(axis)) return refusedArgument;
    const AxisNumbers* const present = AxisAccess::NumbersOf(plotter, axis);
    if (!format && !(present && present->format)) return 0;
    AxisNumbers wanted = {present ? present->origin : 0.0, nullptr};
    if (format) wanted.format = std::make_shared<const AxisNumbers::Format>(std::move(format));
    return AxisAccess::Change(plotter, axis, wanted);
}

std::string ReadOutNumber(const CKivoFunctionPlotter& plotter, int axis, float number) {
    return IsAxis(axis) ? AxisAccess::ReadOut(plotter, axis, number) : std::string();
}

} // namespace KivoDrawingTools
