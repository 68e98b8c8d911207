#include "KivoSurfaces.h"

#include "Arguments.h"
#include "computing/MeshArrays.h"
#include "computing/SurfacePicker.h"
#include "computing/VectorMath.h"
#include "drawing/GLScopes.h"
#include "ReducedSurface.h"
#include "SurfaceLayers.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr int badNumber = -2;

bool IsOpacity(float opacity) {
    return opacity >= 0.0f && opacity <= 1.0f; // no number is none
}

// Whether the floats of so many points lie within the address space.
bool AreAddressable(unsigned int columns, unsigned int rows, const std::uint64_t (&strides)[2]) {
    constexpr std::uint64_t most = std::numeric_limits<unsigned int>::max();
    constexpr std::uint64_t mostFloats = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(float);
    if (std::uint64_t{columns} * rows > most) return false;
    // A stride counts where there is a second point in its direction.
    const std::uint64_t across = columns > 1 ? strides[0] : 0, along = rows > 1 ? strides[1] : 0;
    if (across > most || along > most) return false;
    const std::uint64_t last = (columns - 1) * across;
    return last <= mostFloats && (rows - 1) * along <= mostFloats - last;
}

// x, y and z of all points, packed.
std::vector<float> PackedPoints(const GridView& grid) {
    std::vector<float> points;
    points.reserve(std::size_t{grid.columns} * grid.rows * 3);
    for (std::size_t r = 0; r < grid.rows; ++r)
        for (std::size_t c = 0; c < grid.columns; ++c)
            points.insert(points.end(), grid.At(c, r), grid.At(c, r) + 3);
    return points;
}

// A cell with a point of which a coordinate is no number; empty where there is none.
std::vector<unsigned char> HolesOf(const std::vector<float>& points, unsigned int columns,
                                   unsigned int rows) {
    if (columns < 2 || rows < 2) return {};
    std::vector<unsigned char> holes = MarkHoles({{columns, 1}, {rows, 1}}, points.data(), 3);
    if (std::find(holes.begin(), holes.end(), 1) == holes.end()) return {};
    return holes;
}

} // namespace

CKivoFunctionPlotter::SOwnSurfaceLayers::SOwnSurfaceLayers() = default;
CKivoFunctionPlotter::SOwnSurfaceLayers::~SOwnSurfaceLayers() = default;

CKivoFunctionPlotter::SOwnSurfaceLayers::SOwnSurfaceLayers(const SOwnSurfaceLayers& other) {
    *this = other;
}

CKivoFunctionPlotter::SOwnSurfaceLayers&
CKivoFunctionPlotter::SOwnSurfaceLayers::operator=(const SOwnSurfaceLayers& other) {
    if (this == &other) return *this;
    layers = other.layers ? std::make_unique<SurfaceLayers>(*other.layers) : nullptr;
    if (layers)
        for (SurfaceLayer& layer : layers->over)
            layer.ForgetReduced();
    return *this;
}

// ---- With the data --------------------------------------------------------------------------------------

void SurfaceAccess::ForgetData(CKivoFunctionPlotter& plotter) {
    if (!plotter.m_surfaces.layers) return;
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    layers.over.clear();
    layers.lastNumber = 0;
    layers.firstStrips = CellStrips();
    layers.stripPoints = nullptr;
}

void SurfaceAccess::ForgetColors(CKivoFunctionPlotter& plotter) {
    if (!plotter.m_surfaces.layers) return;
    for (SurfaceLayer& layer : plotter.m_surfaces.layers->over) {
        layer.ForgetColors();
        layer.ForgetReduced();
    }
}

// Box, gradients and contours anew, as for new data.
void SurfaceAccess::FitToData(CKivoFunctionPlotter& plotter) {
    if (!plotter.HasReadablePoints()) return;
    const SurfaceLayers& layers = *plotter.m_surfaces.layers;
    float min[3], max[3];
    FindBounds(plotter.Grid(), min, max);
    if (layers.areAxesFitted)
        for (const SurfaceLayer& layer : layers.over)
            for (int i = 0; i < 3 && layer.HasNumbers(); ++i) {
                min[i] = std::min(min[i], layer.Min()[i]);
                max[i] = std::max(max[i], layer.Max()[i]);
            }
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    plotter.UpdateBoundingBoxToViewVolume(min, max);
    if (plotter.m_plotType != 0) plotter.FitView(plotter.m_plotType);
    plotter.AssignColorData();
    plotter.ReleaseIsoContour();
    plotter.CreateIsoContourData();
}

// ---- Trace ----------------------------------------------------------------------------------------------

// The nearest of all. With hits beyond the limit alone there is a trace point, and it is the one from before.
int SurfaceAccess::Trace(CKivoFunctionPlotter& plotter, const float* nearPt, const float* farPt) {
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    plotter.m_hasTracePoint = 0;
    const float length = plotter.Distance(nearPt, farPt);
    float dir[3];
    plotter.NormalVector(nearPt, farPt, dir);
    float nearest = std::numeric_limits<float>::infinity();
    const PointBox range = plotter.CutBox();
    const auto pick = [&](const GridView& grid, const float* min, const float* max, int number) {
        float hit[3];
        if (!MeetsBox(nearPt, dir, min, max)) return;
        const PickResult result = PickSurface(grid, min, max, nearPt, dir, length, hit, nullptr, &range);
        if (result == PickResult::nothing) return;
        plotter.m_hasTracePoint = 1;
        if (result == PickResult::beyond) return;
        float distance = 0.0f;
        for (int i = 0; i < 3; ++i)
            distance += (hit[i] - nearPt[i]) * dir[i];
        if (!(distance < nearest)) return;
        nearest = distance;
        std::copy_n(hit, 3, plotter.m_tracePoint);
        layers.traced = number;
    };
    const bool isFirstSeen = layers.first.isVisible && layers.first.opacity > 0.0f;
    if (isFirstSeen && plotter.HasReadablePoints())
        pick(plotter.Grid(), plotter.m_boundingBoxMin, plotter.m_boundingBoxMax, 0);
    for (const SurfaceLayer& layer : layers.over)
        if (layer.IsDrawn()) pick(layer.Grid(), layer.Min(), layer.Max(), layer.number);
    if (plotter.m_hasTracePoint == 0) return 1;
    plotter.AskForTraceWords();
    return 0;
}

int SurfaceAccess::Traced(const CKivoFunctionPlotter& plotter) {
    if (plotter.m_hasTracePoint == 0) return -1;
    return plotter.m_surfaces.layers ? plotter.m_surfaces.layers->traced : 0;
}

// ---- The host's side ------------------------------------------------------------------------------------

bool SurfaceAccess::HasData(const CKivoFunctionPlotter& plotter) {
    return plotter.HasReadablePoints();
}

namespace {

// Room for a frame of so many surfaces over the first.
void MakeRoom(SurfaceLayers& layers, std::size_t count) {
    layers.parts.reserve(count + 1);
    layers.strips.reserve(count + 1);
}

} // namespace

int SurfaceAccess::Add(CKivoFunctionPlotter& plotter, const GridView& grid, const SKivoSurface& looks) {
    std::vector<float> points = PackedPoints(grid);
    std::vector<unsigned char> holes = HolesOf(points, grid.columns, grid.rows);
    constexpr unsigned int step[] = {1, 1};
    SurfaceLayer layer(std::move(points), grid.columns, grid.rows, std::move(holes), looks, step);
    if (!plotter.m_surfaces.layers) plotter.m_surfaces.layers = std::make_unique<SurfaceLayers>();
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    MakeRoom(layers, layers.over.size() + 1);
    layer.number = layers.lastNumber + 1;
    layers.over.push_back(std::move(layer));
    try {
        if (layers.areAxesFitted) FitToData(plotter);
    } catch (...) {
        layers.over.pop_back();
        throw;
    }
    return ++layers.lastNumber;
}

unsigned int SurfaceAccess::Count(const CKivoFunctionPlotter& plotter) {
    return plotter.m_surfaces.layers ? static_cast<unsigned int>(plotter.m_surfaces.layers->over.size()) : 0;
}

int SurfaceAccess::Remove(CKivoFunctionPlotter& plotter, int number) {
    SurfaceLayer* const layer = plotter.m_surfaces.layers ? plotter.m_surfaces.layers->Find(number) : nullptr;
    if (!layer) return badNumber;
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    if (layers.traced == number) plotter.m_hasTracePoint = 0;
    layers.over.erase(layers.over.begin() + (layer - layers.over.data()));
    if (layers.areAxesFitted) FitToData(plotter);
    return 0;
}

int SurfaceAccess::Get(const CKivoFunctionPlotter& plotter, int number, SKivoSurface& looks) {
    SurfaceLayers* const layers = plotter.m_surfaces.layers.get();
    if (number == 0) {
        looks = layers ? layers->first : SKivoSurface();
        for (const int side : {0, 1})
            looks.frameLineStep[side] = plotter.m_showFrameLines ? plotter.m_frameLineStep[side] : 0;
        return 0;
    }
    const SurfaceLayer* const layer = layers ? layers->Find(number) : nullptr;
    if (!layer) return badNumber;
    looks = layer->Looks();
    return 0;
}

int SurfaceAccess::Set(CKivoFunctionPlotter& plotter, int number, const SKivoSurface& looks) {
    if (!plotter.m_surfaces.layers && number == 0)
        plotter.m_surfaces.layers = std::make_unique<SurfaceLayers>();
    SurfaceLayers* const layers = plotter.m_surfaces.layers.get();
    SurfaceLayer* const layer = layers && number != 0 ? layers->Find(number) : nullptr;
    if (number != 0 && !layer) return badNumber;
    if (layer) {
        layer->SetLooks(looks);
    } else {
        MakeRoom(*layers, layers->over.size());
        const bool hasLines = looks.frameLineStep[0] != 0 && looks.frameLineStep[1] != 0;
        if (hasLines && !std::equal(looks.frameLineStep, looks.frameLineStep + 2, plotter.m_frameLineStep))
            plotter.SetFrameLineStep(looks.frameLineStep[0], looks.frameLineStep[1]);
        plotter.ShowFrameLines(hasLines);
        layers->first = looks;
    }
    const bool isSeen = looks.isVisible && looks.opacity > 0.0f;
    if (!isSeen && layers->traced == number) plotter.m_hasTracePoint = 0;
    return 0;
}

void SurfaceAccess::FitAxes(CKivoFunctionPlotter& plotter, bool all) {
    if (!plotter.m_surfaces.layers) plotter.m_surfaces.layers = std::make_unique<SurfaceLayers>();
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    if (layers.areAxesFitted == all) return;
    layers.areAxesFitted = all;
    FitToData(plotter);
}

bool SurfaceAccess::AreAxesFitted(const CKivoFunctionPlotter& plotter) {
    return plotter.m_surfaces.layers && plotter.m_surfaces.layers->areAxesFitted;
}

void SurfaceAccess::KeepStep(CKivoFunctionPlotter& plotter, unsigned int columnStep, unsigned int rowStep) {
    if (!plotter.m_surfaces.layers) plotter.m_surfaces.layers = std::make_unique<SurfaceLayers>();
    const bool areGiven = columnStep != 0 && rowStep != 0;
    plotter.m_surfaces.layers->keptStep[0] = areGiven ? columnStep : 1;
    plotter.m_surfaces.layers->keptStep[1] = areGiven ? rowStep : 1;
}

unsigned int SurfaceAccess::KeptStep(const CKivoFunctionPlotter& plotter, int side) {
    return plotter.m_surfaces.layers ? plotter.m_surfaces.layers->keptStep[side] : 1;
}

void SurfaceAccess::Cull(CKivoFunctionPlotter& plotter, bool isOn) {
    std::unique_ptr<SurfaceLayers>& layers = plotter.m_surfaces.layers;
    if (!isOn) {
        if (layers) layers->culled.reset();
        return;
    }
    if (!layers) layers = std::make_unique<SurfaceLayers>();
    if (!layers->culled) layers->culled.emplace();
}

void SurfaceAccess::Cut(CKivoFunctionPlotter& plotter, int axis, bool cut) {
    plotter.m_isCutToAxis[axis] = cut;
    if (!plotter.CutBox().Holds(plotter.m_tracePoint)) plotter.m_hasTracePoint = 0;
}

bool SurfaceAccess::IsCut(const CKivoFunctionPlotter& plotter, int axis) {
    return plotter.m_isCutToAxis[axis];
}

int AddSurface(CKivoFunctionPlotter& plotter, const float* points, unsigned int columns, unsigned int rows,
               unsigned int columnStride, unsigned int rowStride, unsigned int components,
               const SKivoSurface& surface) {
    const std::uint64_t strides[] = {std::uint64_t{columnStride} * components,
                                     std::uint64_t{rowStride} * components};
    if (!points || columns == 0 || rows == 0 || components < 3 || !IsOpacity(surface.opacity))
        return refusedArgument;
    if (!AreAddressable(columns, rows, strides) || !SurfaceAccess::HasData(plotter)) return refusedArgument;
    return SurfaceAccess::Add(
        plotter,
        {points, columns, rows, static_cast<unsigned int>(strides[0]), static_cast<unsigned int>(strides[1])},
        surface);
}

int RemoveSurface(CKivoFunctionPlotter& plotter, int surface) {
    return SurfaceAccess::Remove(plotter, surface);
}

unsigned int GetSurfaceCount(const CKivoFunctionPlotter& plotter) {
    return SurfaceAccess::Count(plotter);
}

int GetSurface(const CKivoFunctionPlotter& plotter, int surface, SKivoSurface* values) {
    if (!values) return refusedArgument;
    return SurfaceAccess::Get(plotter, surface, *values);
}

int SetSurface(CKivoFunctionPlotter& plotter, int surface, const SKivoSurface& values) {
    if (!IsOpacity(values.opacity)) return refusedArgument;
    return SurfaceAccess::Set(plotter, surface, values);
}

int KeepFrameLineStep(CKivoFunctionPlotter& plotter, unsigned int columnStep, unsigned int rowStep) {
    SurfaceAccess::KeepStep(plotter, columnStep, rowStep);
    return 0;
}

int FitAxesToSurfaces(CKivoFunctionPlotter& plotter, bool all) {
    SurfaceAccess::FitAxes(plotter, all);
    return 0;
}

bool AxesFitSurfaces(const CKivoFunctionPlotter& plotter) {
    return SurfaceAccess::AreAxesFitted(plotter);
}

int CutToAxis(CKivoFunctionPlotter& plotter, int axis, bool cut) {
    if (!IsAxis(axis)) return refusedArgument;
    SurfaceAccess::Cut(plotter, axis, cut);
    return 0;
}

bool IsCutToAxis(const CKivoFunctionPlotter& plotter, int axis) {
    return IsAxis(axis) && SurfaceAccess::IsCut(plotter, axis);
}

int TracedSurface(const CKivoFunctionPlotter& plotter) {
    return SurfaceAccess::Traced(plotter);
}

} // namespace KivoDrawingTools
