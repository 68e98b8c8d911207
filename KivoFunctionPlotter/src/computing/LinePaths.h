// Segments joined to lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace KivoDrawingTools {

/// A point of a line on a plane.
struct LinePoint {
    float x;
    float y;
};

/// Lines of any number of points, one after the other.
struct LinePaths {
    std::vector<LinePoint> points;
    std::vector<std::size_t> ends; ///< of each line: the index after its last point
};

/// Joins segments that end where others do, but for the rounding of a float: what TraceLevelLines gives.
/// Where more than two end, they are joined in pairs. Segments without a length, and with a coordinate that
/// is no finite number, are left out.
/// @param points      three floats each, of which x and y are used; a pair of points a segment
/// @param pointCount  even
/// @param segmentsLeft  how many may be joined still; of more there are no lines, and otherwise they are
/// taken
///                      off
/// @return open lines, then closed ones, whose last point is the first one once more; each in the order of
///         its first segment
LinePaths JoinSegments(const float* points, std::uint64_t pointCount, std::uint64_t& segmentsLeft);
LinePaths JoinSegments(const float* points, std::uint64_t pointCount); ///< all

} // namespace KivoDrawingTools
