// The surfaces over the first one, and what is needed to draw what shows through.
#pragma once

#include "computing/CellStrips.h"
#include "computing/GridView.h"
#include "computing/ReducedGrid.h"
#include "drawing/CulledTriangles.h"
#include "KivoSurfaces.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace KivoDrawingTools {

class CKivoGradientColor;

/// A grid of points with what it is drawn from. Memory is taken when it is made, and by SetLooks and Reduced.
class SurfaceLayer {
public:
    /// @param points  packed, three floats each
    /// @param step    of the columns and rows of the whole grid, of which this one has a part
    SurfaceLayer(std::vector<float> points, unsigned int columns, unsigned int rows,
                 std::vector<unsigned char> holes, const SKivoSurface& looks, const unsigned int (&step)[2]);

    int number = 0;

    const SKivoSurface& Looks() const { return m_looks; }
    void SetLooks(const SKivoSurface& looks); ///< or throws, and nothing has changed
    bool IsDrawn() const { return m_looks.isVisible && m_looks.opacity > 0.0f; }

    GridView Grid() const { return {m_points.data(), m_columns, m_rows, 3, m_columns * 3}; }
    std::size_t PointCount() const { return std::size_t{m_columns} * m_rows; }
    bool HasNumbers() const { return m_hasNumbers; } ///< whether any point is made of them
    const float* Min() const { return m_min; }       ///< of those points
    const float* Max() const { return m_max; }

    void ForgetColors() { m_areColorsOld = true; } ///< the gradient has changed
    void UpdateColors(const CKivoGradientColor& gradient);
    const float* Colors() const { return m_colors.empty() ? nullptr : m_colors.data(); }
    const std::vector<unsigned int>& Lines() const { return m_lines; }
    CellStrips& Strips() { return m_strips; }

    /// The layer as it is drawn while something moves; itself where that has no fewer points, or there is no
    /// memory.
    SurfaceLayer& Reduced(unsigned int pointsPerSide);
    void ForgetReduced() { m_reduced.reset(); }

private:
    void FindBounds();
    std::vector<unsigned int> FrameLineIndices(const SKivoSurface& looks) const;

    unsigned int m_columns;
    unsigned int m_rows;
    unsigned int m_step[2];
    std::vector<float> m_points;
    std::vector<unsigned char> m_holes; // a cell each; empty without any
    bool m_hasNumbers = false;
    float m_min[3] = {};
    float m_max[3] = {};
    CellStrips m_strips;
    SKivoSurface m_looks;
    std::vector<float> m_colors; // four a point; empty with one colour
    std::vector<unsigned int> m_lines;
    bool m_areColorsOld = true;
    std::shared_ptr<SurfaceLayer> m_reduced;
    unsigned int m_reducedTo = 0;
};

/// What is drawn of a surface in one frame.
struct SurfacePart {
    const float* points;
    unsigned int components; // floats from a point to the next
    std::size_t pointCount;
    const float* colors; // four a point; null with one colour
    CellStrips* strips;
    const unsigned int* lines;
    std::size_t lineIndexCount;
    const SKivoSurface* looks;
};

/// All surfaces of a plotter.
struct SurfaceLayers {
    SKivoSurface first;                ///< looks of the first one, but for its frame lines
    bool areAxesFitted = false;        ///< to all
    unsigned int keptStep[2] = {1, 1}; ///< of the frame lines of new data
    std::vector<SurfaceLayer> over;    ///< as they were added
    int lastNumber = 0;
    int traced = 0; ///< on which the traced point lies

    CellStrips firstStrips;             ///< of the first one, where it is not drawn as at first
    const float* stripPoints = nullptr; ///< which these are of; null before they are needed

    std::optional<CulledTriangles> culled; ///< draws large surfaces; without it OpenGL gets all triangles

    // Of the frame, with room for all.
    std::vector<SurfacePart> parts;
    std::vector<CellStrips*> strips;
    StripMerge merge;

    SurfaceLayer* Find(int number);
};

/// Reaches what a plotter draws its surfaces from.
struct SurfaceAccess {
    // For the frame and the data.
    static bool IsFirstPlain(const CKivoFunctionPlotter& plotter); ///< as it is without KivoSurfaces.h
    static void DrawOpaque(CKivoFunctionPlotter& plotter);
    static void DrawSeeThrough(CKivoFunctionPlotter& plotter);
    static void ForgetData(CKivoFunctionPlotter& plotter);
    static void ForgetColors(CKivoFunctionPlotter& plotter);
    static int Trace(CKivoFunctionPlotter& plotter, const float* nearPt, const float* farPt);

    // For the host.
    static int Add(CKivoFunctionPlotter& plotter, const GridView& grid, const SKivoSurface& looks);
    static int Remove(CKivoFunctionPlotter& plotter, int number);
    static int Get(const CKivoFunctionPlotter& plotter, int number, SKivoSurface& looks);
    static int Set(CKivoFunctionPlotter& plotter, int number, const SKivoSurface& looks);
    static void FitAxes(CKivoFunctionPlotter& plotter, bool all);
    static bool AreAxesFitted(const CKivoFunctionPlotter& plotter);
    static void KeepStep(CKivoFunctionPlotter& plotter, unsigned int columnStep, unsigned int rowStep);
    /// Of the frame lines of new data, along a side.
    static unsigned int KeptStep(const CKivoFunctionPlotter& plotter, int side);
    static void Cull(CKivoFunctionPlotter& plotter, bool isOn);
    /// Draws triangles from the arrays that are set, those that no pixel shows left out where that is wanted.
    static void DrawTriangles(const CKivoFunctionPlotter& plotter, const TriangleCorners& corners,
                              const unsigned int* indices, std::size_t count);
    static void Cut(CKivoFunctionPlotter& plotter, int axis, bool cut);
    static bool IsCut(const CKivoFunctionPlotter& plotter, int axis);
    static int Traced(const CKivoFunctionPlotter& plotter);
    static bool HasData(const CKivoFunctionPlotter& plotter);
    static unsigned int Count(const CKivoFunctionPlotter& plotter);

private:
    static bool AddFirst(CKivoFunctionPlotter& plotter, SurfacePart& part);
    static void Collect(CKivoFunctionPlotter& plotter, bool isOpaque);
    static void FitToData(CKivoFunctionPlotter& plotter);
};

} // namespace KivoDrawingTools
