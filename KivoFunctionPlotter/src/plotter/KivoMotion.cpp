#include "KivoMotion.h"

#include "drawing/GLScopes.h"
#include "PlotType.h"
#include "ReducedSurface.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <new>

namespace KivoDrawingTools {

namespace {

// How much of the surface frames show for the life of the object.
class DetailScope {
public:
    DetailScope(unsigned int& detail, unsigned int value) : m_detail(detail) { m_detail = value; }
    ~DetailScope() { m_detail = 0; }
    DetailScope(const DetailScope&) = delete;
    DetailScope& operator=(const DetailScope&) = delete;

private:
    unsigned int& m_detail;
};

// What a frame of so many points a side has taken.
struct MeasuredFrame {
    double detail;
    double milliseconds;
};

// Between two frames, one within the time and one beyond it; the time grows with the number of points.
unsigned int DetailBetween(const MeasuredFrame& within, const MeasuredFrame& beyond, double milliseconds) {
    const double share = (milliseconds - within.milliseconds) / (beyond.milliseconds - within.milliseconds);
    const double least = within.detail * within.detail;
    const double points = least + share * (beyond.detail * beyond.detail - least);
    return static_cast<unsigned int>(std::sqrt(points));
}

} // namespace

// ---- Frames of a surface that moves ---------------------------------------------------------------------

void CKivoFunctionPlotter::RenderMoved(unsigned int detail) {
    const DetailScope scope(m_detailOfFrame, detail);
    Renderscene();
}

// Puts the arrays of a copy in the place of the whole surface's, unless that has no more points than are
// wanted, or there is no memory.
bool CKivoFunctionPlotter::ReduceSurface(SurfaceArrays& surface) {
    if (m_columnCount < 2 || m_rowCount < 2) return false;
    const ReducedGrid grid = {KeepAtMost(m_columnCount, m_detailOfFrame),
                              KeepAtMost(m_rowCount, m_detailOfFrame)};
    if (grid.IsWhole()) return false;
    const bool hasLines = m_framelineIndexArray != nullptr;
    const SurfaceOutline outline = {m_points,
                                    m_columnCount,
                                    m_rowCount,
                                    m_componentCount,
                                    {hasLines ? m_frameLineStep[0] : 0, hasLines ? m_frameLineStep[1] : 0},
                                    m_useFramelineTexture && m_texcoordArray,
                                    m_points == m_pointsWithoutHoles};
    if (!m_reducedSurface || !m_reducedSurface->IsFor(outline, grid)) {
        m_reducedSurface.reset(); // before there is another one
        try {
            m_reducedSurface = std::make_shared<ReducedSurface>(outline, grid);
        } catch (const std::bad_alloc&) {
            return false;
        }
        m_hasReducedValues = false;
    }
    if (!m_hasReducedValues) m_reducedSurface->TakeValues(surface);
    m_hasReducedValues = true;
    surface = m_reducedSurface->Arrays();
    return true;
}

// ---- The host's side ------------------------------------------------------------------------------------

struct MotionAccess {
    static void SetDetail(CKivoFunctionPlotter& plotter, unsigned int pointsPerSide) {
        if (pointsPerSide != plotter.m_motionDetail) plotter.m_reducedSurface.reset();
        plotter.m_motionDetail = pointsPerSide;
    }

    static bool IsReduced(const CKivoFunctionPlotter& plotter) { return plotter.m_isDetailReduced; }

    static bool HasSurface(const CKivoFunctionPlotter& plotter) {
        return plotter.m_plotType == normalPlot && plotter.HasDrawablePoints() && plotter.m_colorArray &&
               plotter.m_indexArray;
    }

    static unsigned int DetailFor(CKivoFunctionPlotter& plotter, double milliseconds);

private:
    static double DrawingTime(CKivoFunctionPlotter& plotter, unsigned int detail);
};

// The lesser of two: the first may make the copy, and others work meanwhile.
double MotionAccess::DrawingTime(CKivoFunctionPlotter& plotter, unsigned int detail) {
    using Clock = std::chrono::steady_clock;
    const DetailScope scope(plotter.m_detailOfFrame, detail);
    double least = 0.0;
    for (const bool isFirst : {true, false}) {
        glFinish();
        const Clock::time_point begin = Clock::now();
        plotter.DrawScene();
        glFinish();
        const double time = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
        least = isFirst ? time : std::min(least, time);
    }
    return least;
}

unsigned int MotionAccess::DetailFor(CKivoFunctionPlotter& plotter, double milliseconds) {
    constexpr unsigned int coarsest = 10;
    if (!(milliseconds > 0.0) || !HasSurface(plotter)) return 0;
    const HostContextScope host(nullptr); // in windows on a screen, too: nothing is presented
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (!wglGetCurrentContext()) return 0;
    const std::uint64_t longest = std::max(plotter.m_columnCount, plotter.m_rowCount);
    MeasuredFrame within = {coarsest, 0.0};
    for (std::uint64_t detail = coarsest;; detail *= 2) {
        const auto most = static_cast<unsigned int>(std::min(detail, longest));
        const MeasuredFrame frame = {static_cast<double>(most), DrawingTime(plotter, most)};
        const bool isWhole = !plotter.m_isFrameReduced;
        if (isWhole || frame.milliseconds > milliseconds) {
            plotter.m_reducedSurface.reset();
            if (frame.milliseconds <= milliseconds) return 0;
            return detail == coarsest ? coarsest : DetailBetween(within, frame, milliseconds);
        }
        within = frame;
    }
}

int SetMotionDetail(CKivoFunctionPlotter& plotter, unsigned int pointsPerSide) {
    if (pointsPerSide == 1) return -3;
    MotionAccess::SetDetail(plotter, pointsPerSide);
    return 0;
}

bool IsDetailReduced(const CKivoFunctionPlotter& plotter) {
    return MotionAccess::IsReduced(plotter);
}

unsigned int MotionDetailFor(CKivoFunctionPlotter& plotter, double milliseconds) {
    return MotionAccess::DetailFor(plotter, milliseconds);
}

} // namespace KivoDrawingTools
