// Heights along a line over surfaces.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace KivoViewer {

/// A straight line on the plane of x and y, in absolute numbers.
struct ProfileLine {
    double x0 = 0.0;
    double y0 = 0.0;
    double x1 = 0.0;
    double y1 = 0.0;

    double Length() const;
};

/// The line that a text x0:y0:x1:y1 stands for. Throws a Failure that says what is wrong with it.
ProfileLine ParseProfileLine(const std::string& text);
/// The text for a line.
std::string TextOf(const ProfileLine& line);

/// A grid's heights as they are drawn: each cell is two triangles, divided from its corner of the smallest x
/// and y to that of the largest. Triangles with a corner that is a hole are none.
struct SurfaceHeights {
    std::vector<double> x; ///< of the columns, rising, in absolute numbers
    std::vector<double> y; ///< of the rows; one that equals the next is left out
    const float* z;        ///< of the first point of the first row
    std::size_t stride;    ///< floats from one point to the next
    double zOrigin;        ///< what is added to z

    /// In absolute numbers, as they are meant; not a number in a hole.
    double Height(std::size_t column, std::size_t row) const;
};

/// A place of the line. Between two of them that follow each other a surface is straight, where it has a
/// height at both.
struct ProfilePoint {
    double distance; ///< from the line's beginning, in units of x and y
    double x;
    double y;
    std::vector<double> z; ///< of each surface; not a number where it has none
};

/// Follows a line over surfaces: all places where it enters another triangle of one of them, both ends, and a
/// place within each gap. Of a line without length, and one that is not finite, nothing.
std::vector<ProfilePoint> FollowLine(const std::vector<SurfaceHeights>& surfaces, const ProfileLine& line);

/// The height of a surface at a distance; not a number where it has none.
double HeightAt(const std::vector<ProfilePoint>& profile, std::size_t surface, double distance);

/// The profile as a table: distance, x, y, z, z2 and so on, with a line of these names first. A height that
/// is missing is an empty field.
std::string ProfileTable(const std::vector<ProfilePoint>& profile);

} // namespace KivoViewer
