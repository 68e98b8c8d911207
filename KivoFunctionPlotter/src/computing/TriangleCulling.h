// The triangles of large surfaces that no pixel shows.
#pragma once

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// How points come into the pixels of a viewport, along parallel lines.
struct PixelMapping {
    double along[2][4]; ///< of x, y, z and 1, across and up, from the middle of the viewport's first pixel
    double reach[2][4]; ///< what these were summed up from, without signs: their rounding goes by it
    int size[2];        ///< pixels across and up
    double snap;        ///< by how much of a pixel OpenGL moves a corner, at most, along each side

    /// @param modelView, projection  sixteen numbers each, as OpenGL keeps them
    /// @param viewport               x, y, width, height
    /// @param subpixelBits           of the positions that OpenGL tells apart
    /// @return false where the lines are not parallel, there is no pixel, or there are more than can be
    ///         counted here
    bool Find(const double* modelView, const double* projection, const int* viewport, int subpixelBits);

    /// How far from its place here OpenGL, computing in single precision, may draw a corner.
    /// @param side  0 across, 1 up
    /// @param most  the greatest x, y and z of the corners, without signs
    double Uncertainty(int side, const float* most) const;
};

/// Finds the triangles of an array that can colour a pixel: those that may cover the middle of one. Where
/// that is in doubt, since OpenGL counts with fewer digits, a triangle is kept. Room is taken when it is
/// made.
class TriangleCulling {
public:
    /// The most indices of one call. Those of a large surface then lead to points that a cache holds.
    static constexpr std::size_t mostIndices = 6 * 32768;

    /// What is to be drawn.
    struct Kept {
        const unsigned int* indices; ///< until the next call
        std::size_t count;
    };

    TriangleCulling();

    void SetMapping(const PixelMapping& mapping) { m_mapping = mapping; }

    /// @param points       corners, of which the first three floats are looked at
    /// @param components   floats from a corner to the next, at least 3
    /// @param pointCount   corners that there are
    /// @param indices      three to a triangle
    /// @param count        of them, a multiple of 3
    /// @return those of the triangles that are kept, in their order; all as they were handed in where there
    ///         are too many, their corners lie too far apart in the array, or places are too uncertain
    Kept Cull(const float* points, std::size_t components, std::size_t pointCount,
              const unsigned int* indices, std::size_t count);

private:
    // From the first to the last pixel whose middle may lie within, a side each; the last ones negative, so
    // that the least of all numbers bounds several corners.
    struct Pixels {
        short first[2];
        short minusLast[2];
    };
    struct Corner {
        float place[2]; // no number where OpenGL may draw it anywhere
        Pixels pixels;
    };

    bool FindUncertainty(const float* points, std::size_t components, std::size_t count);
    void PlaceCorners(const float* points, std::size_t components, std::size_t count);
    void Place(int side, const float* point, Corner& corner) const;
    bool MayShow(const Corner& a, const Corner& b, const Corner& c) const;
    bool MayCoverOneOf(const Corner& a, const Corner& b, const Corner& c, const Pixels& pixels) const;

    PixelMapping m_mapping = {};
    double m_uncertainty[2] = {}; // of the corners' places, a side each
    std::vector<Corner> m_corners;
    std::vector<unsigned int> m_kept;
};

} // namespace KivoDrawingTools
