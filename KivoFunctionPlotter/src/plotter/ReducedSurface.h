// The surface as it is drawn while something moves: a copy of some of its points.
#pragma once

#include "computing/CellStrips.h"
#include "computing/MarchingSquares.h"
#include "computing/ReducedGrid.h"
#include "KivoTypes.h"

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// What a surface is drawn from: client arrays of others.
struct SurfaceArrays {
    const float* points;
    unsigned int components; ///< floats from a point to the next
    std::size_t pointCount;
    const float* colors;    ///< 4 a point
    const float* texcoords; ///< 2 a point
    const unsigned int* triangles;
    std::size_t triangleIndexCount;
    const unsigned int* lines; ///< null without frame lines
    std::size_t lineIndexCount;

    void SetVertexPointer() const;
};

/// What such a copy is made for.
struct SurfaceOutline {
    const float* points; ///< packed, row by row
    unsigned int columns;
    unsigned int rows;
    unsigned int components;
    unsigned int frameLineStep[2]; ///< of columns and rows; 0 without frame lines
    bool hasTexcoords;             ///< whether they are copied, too
    bool hasNoHoles;               ///< known for sure

    bool operator==(const SurfaceOutline& other) const;
};

class ReducedSurface {
public:
    /// Makes room for the points, and the lists of triangles and frame lines.
    /// @param outline  at least two points a side
    ReducedSurface(const SurfaceOutline& outline, const ReducedGrid& grid);

    bool IsFor(const SurfaceOutline& outline, const ReducedGrid& grid) const;
    /// Copies what the arrays hold now. It takes no memory.
    void TakeValues(const SurfaceArrays& whole);
    SurfaceArrays Arrays() const;
    /// Its cells in order. They are made when they are asked for first, or that throws.
    CellStrips& Strips();
    /// Contours at the levels of those of the whole surface, flat as they are, through the points that remain
    /// but those around holes. They are traced when they are asked for first.
    /// @param axis  the coordinate: 0 = x, 1 = y, 2 = z
    /// @return as many as there are of the whole, null points where a level meets nothing; null where there
    ///         is no memory, or the levels don't ascend
    const std::vector<LevelLines>* Contours(int axis, const std::vector<SKivoIsoContour>& whole);

private:
    struct FlatContours {
        std::vector<float> levels;
        std::vector<LevelLines> lines;

        bool AreOf(const std::vector<SKivoIsoContour>& whole) const;
    };

    FlatContours Trace(int axis, const std::vector<SKivoIsoContour>& whole) const;
    std::vector<float> PointsBesideHoles() const;

    SurfaceOutline m_outline;
    ReducedGrid m_grid;
    std::size_t m_floatsPerPoint; // that OpenGL takes
    std::vector<float> m_points;
    std::vector<float> m_colors;
    std::vector<float> m_texcoords;
    std::vector<unsigned int> m_triangles;
    std::vector<unsigned int> m_lines;
    std::vector<unsigned char> m_holes; // a cell each; empty without any
    FlatContours m_contours[3];
    CellStrips m_strips;
    bool m_hasStrips = false;
};

/// How much of the surface frames show for the life of the object.
class DetailScope {
public:
    DetailScope(unsigned int& detail, unsigned int value) : m_detail(detail), m_before(detail) {
        m_detail = value;
    }
    ~DetailScope() { m_detail = m_before; }
    DetailScope(const DetailScope&) = delete;
    DetailScope& operator=(const DetailScope&) = delete;

private:
    unsigned int& m_detail;
    const unsigned int m_before;
};

} // namespace KivoDrawingTools
