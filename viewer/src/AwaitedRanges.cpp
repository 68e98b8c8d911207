#include "AwaitedRanges.h"

#include "PlotScene.h"

namespace KivoViewer {

bool AwaitedRanges::Take(int axis, const PlotSettings& wanted, const PlotScene& scene) {
    m_ranges[axis].reset();
    const AxisSettings& ends = wanted.axes[axis];
    if (scene.Rises(axis, ends)) return true;
    const PlotSettings present = scene.Effective();
    const AxisSettings& shown = present.axes[axis];
    m_ranges[axis] = Range{{ends.min, ends.max}, {shown.min, shown.max}};
    return false;
}

void AwaitedRanges::AddTo(int axis, PlotSettings& wanted) const {
    if (!m_ranges[axis]) return;
    wanted.axes[axis].min = m_ranges[axis]->wanted.min;
    wanted.axes[axis].max = m_ranges[axis]->wanted.max;
}

void AwaitedRanges::ShowIn(PlotSettings& shown) {
    for (int axis = 0; axis < 3; ++axis) {
        AxisSettings& ends = shown.axes[axis];
        std::optional<Range>& range = m_ranges[axis];
        if (range && (range->shown.min != ends.min || range->shown.max != ends.max)) range.reset();
        if (!range) continue;
        if (range->wanted.min) ends.min = range->wanted.min;
        if (range->wanted.max) ends.max = range->wanted.max;
    }
}

} // namespace KivoViewer
