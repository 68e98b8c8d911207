#include "KivoMotion.h"

#include "computing/DetailSearch.h"
#include "drawing/GLScopes.h"
#include "PictureDrawing.h"
#include "PlotType.h"
#include "ReducedSurface.h"
#include "SurfaceLayers.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <chrono>
#include <new>

namespace KivoDrawingTools {

// ---- Frames of a surface that moves ---------------------------------------------------------------------

// Nothing of the plotter is reached after the request, in which a host may even destroy it.
void CKivoFunctionPlotter::ShowMoved(unsigned int detail) {
    if (m_redrawRequest) {
        m_requestedDetail = detail;
        m_redrawRequest(m_redrawContext);
        return;
    }
    const DetailScope scope(m_detailOfFrame, detail);
    Renderscene();
}

// Makes a copy that is drawn in place of the whole surface, unless that has no more points than are wanted,
// or there is no memory.
bool CKivoFunctionPlotter::ReduceSurface() {
    if (!HasDrawablePoints() || !m_colorArray || !m_indexArray) return false;
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
    if (!m_hasReducedValues) m_reducedSurface->TakeValues(WholeSurface());
    m_hasReducedValues = true;
    return true;
}

// ---- The host's side ------------------------------------------------------------------------------------

struct MotionAccess {
    static void SetDetail(CKivoFunctionPlotter& plotter, unsigned int pointsPerSide) {
        if (pointsPerSide != plotter.m_motionDetail) plotter.m_reducedSurface.reset();
        plotter.m_motionDetail = pointsPerSide;
    }

    static void SetRequest(CKivoFunctionPlotter& plotter, void (*request)(void*), void* context) {
        plotter.m_redrawRequest = request;
        plotter.m_redrawContext = context;
        plotter.m_requestedDetail = 0;
    }

    static int Render(CKivoFunctionPlotter& plotter) {
        const DetailScope scope(plotter.m_detailOfFrame,
                                plotter.m_mouseButtonDown ? plotter.m_detailOfDrag : plotter.m_motionDetail);
        return plotter.Renderscene();
    }

    static bool IsReduced(const CKivoFunctionPlotter& plotter) { return plotter.m_isDetailReduced; }

    static bool HasSurface(const CKivoFunctionPlotter& plotter) {
        return plotter.m_plotType == normalPlot && plotter.HasDrawablePoints() && plotter.m_colorArray &&
               plotter.m_indexArray;
    }

    static unsigned int DetailFor(CKivoFunctionPlotter& plotter, double milliseconds,
                                  const SKivoStopRequest& stop);

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

// A frame that is stopped has taken all the time there is.
unsigned int MotionAccess::DetailFor(CKivoFunctionPlotter& plotter, double milliseconds,
                                     const SKivoStopRequest& request) {
    if (!(milliseconds > 0.0) || !HasSurface(plotter)) return 0;
    const HostContextScope host(nullptr); // in windows on a screen, too: nothing is presented
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (!wglGetCurrentContext()) return 0;
    const StopScope stop(plotter, request);
    const auto measure = [&](unsigned int pointsPerSide) {
        if (IsStopped(PictureAccess::Stop(plotter))) return MeasuredFrame{2.0 * milliseconds, false};
        const double time = DrawingTime(plotter, pointsPerSide);
        return MeasuredFrame{time, !plotter.m_isFrameReduced && !plotter.m_areLayersReduced};
    };
    const unsigned int detail =
        DetailWithin(milliseconds, std::max(plotter.m_columnCount, plotter.m_rowCount), measure);
    plotter.m_reducedSurface.reset();
    return stop.WasStopped() ? 0 : detail;
}

int SetMotionDetail(CKivoFunctionPlotter& plotter, unsigned int pointsPerSide) {
    if (pointsPerSide == 1) return -3;
    MotionAccess::SetDetail(plotter, pointsPerSide);
    return 0;
}

int SetRedrawRequest(CKivoFunctionPlotter& plotter, void (*request)(void*), void* context) {
    MotionAccess::SetRequest(plotter, request, context);
    return 0;
}

int RenderMovedScene(CKivoFunctionPlotter& plotter) {
    return MotionAccess::Render(plotter);
}

int CullSmallTriangles(CKivoFunctionPlotter& plotter, bool cull) {
    SurfaceAccess::Cull(plotter, cull);
    return 0;
}

bool IsDetailReduced(const CKivoFunctionPlotter& plotter) {
    return MotionAccess::IsReduced(plotter);
}

unsigned int MotionDetailFor(CKivoFunctionPlotter& plotter, double milliseconds) {
    return MotionAccess::DetailFor(plotter, milliseconds, {});
}

unsigned int MotionDetailFor(CKivoFunctionPlotter& plotter, double milliseconds,
                             const SKivoStopRequest& stop) {
    return MotionAccess::DetailFor(plotter, milliseconds, stop);
}

} // namespace KivoDrawingTools
