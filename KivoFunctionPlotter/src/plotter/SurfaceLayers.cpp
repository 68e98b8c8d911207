#include "SurfaceLayers.h"

#include "computing/MeshArrays.h"
#include "parts/KivoGradientColor.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace KivoDrawingTools {

SurfaceLayer::SurfaceLayer(std::vector<float> points, unsigned int columns, unsigned int rows,
                           std::vector<unsigned char> holes, const SKivoSurface& looks,
                           const unsigned int (&step)[2])
    : m_columns(columns), m_rows(rows), m_step{step[0], step[1]}, m_points(std::move(points)),
      m_holes(std::move(holes)), m_strips(Grid(), m_holes) {
    FindBounds();
    SetLooks(looks);
}

void SurfaceLayer::FindBounds() {
    for (std::size_t i = 0; i + 2 < m_points.size(); i += 3) {
        const float* const point = &m_points[i];
        if (!std::isfinite(point[0]) || !std::isfinite(point[1]) || !std::isfinite(point[2])) continue;
        for (int k = 0; k < 3; ++k) {
            m_min[k] = m_hasNumbers ? std::min(m_min[k], point[k]) : point[k];
            m_max[k] = m_hasNumbers ? std::max(m_max[k], point[k]) : point[k];
        }
        m_hasNumbers = true;
    }
}

void SurfaceLayer::SetLooks(const SKivoSurface& looks) {
    std::vector<unsigned int> lines = FrameLineIndices(looks);
    std::vector<float> colors;
    if (looks.isColoredByZ) {
        if (m_looks.isColoredByZ) colors.swap(m_colors);
        try {
            colors.resize(m_points.size() / 3 * 4);
        } catch (...) {
            if (m_looks.isColoredByZ) colors.swap(m_colors);
            throw;
        }
    }
    m_lines.swap(lines);
    m_colors.swap(colors);
    m_areColorsOld = true;
    m_looks = looks;
    m_reduced.reset();
}

std::vector<unsigned int> SurfaceLayer::FrameLineIndices(const SKivoSurface& looks) const {
    if (m_columns < 2 || m_rows < 2) return {};
    const ReducedGrid all = {{m_columns, 1}, {m_rows, 1}};
    unsigned int step[2];
    for (const int side : {0, 1}) // of a part, the nearest to that of the whole
        step[side] = looks.frameLineStep[side] == 0
                         ? 0
                         : std::max(1U, (looks.frameLineStep[side] + m_step[side] / 2) / m_step[side]);
    return ReducedFrameLines(all, step[0], step[1], m_holes);
}

void SurfaceLayer::UpdateColors(const CKivoGradientColor& gradient) {
    if (!m_areColorsOld || m_colors.empty()) return;
    gradient.EvaluateAll(m_points.data() + 2, 3, m_points.size() / 3, m_colors.data());
    m_areColorsOld = false;
}

SurfaceLayer& SurfaceLayer::Reduced(unsigned int pointsPerSide) {
    if (m_columns < 2 || m_rows < 2) return *this;
    const ReducedGrid kept = {KeepAtMost(m_columns, pointsPerSide), KeepAtMost(m_rows, pointsPerSide)};
    if (kept.IsWhole()) return *this;
    if (m_reduced && m_reducedTo == pointsPerSide) return *m_reduced;
    m_reduced.reset();
    try {
        std::vector<float> points(kept.Count() * 3);
        CopyKept(kept, m_points.data(), 3, 3, points.data());
        std::vector<unsigned char> holes;
        if (!m_holes.empty()) holes = MarkHoles(kept, m_points.data(), 3);
        const unsigned int step[] = {kept.columns.step, kept.rows.step};
        m_reduced = std::make_shared<SurfaceLayer>(std::move(points), kept.columns.Count(), kept.rows.Count(),
                                                   std::move(holes), m_looks, step);
    } catch (const std::bad_alloc&) {
        return *this;
    }
    m_reducedTo = pointsPerSide;
    return *m_reduced;
}

SurfaceLayer* SurfaceLayers::Find(int number) {
    const auto found = std::find_if(over.begin(), over.end(),
                                    [number](const SurfaceLayer& layer) { return layer.number == number; });
    return found != over.end() ? &*found : nullptr;
}

} // namespace KivoDrawingTools
