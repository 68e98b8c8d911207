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

/// What JoinSegments takes at most, so that a frame may wait for it.
constexpr std::uint64_t mostJoinedSegments = 1u << 20;

/// Joins segments that end where others do, but for the rounding of a float: what TraceLevelLines gives.
/// Where more than two end, they are joined in pairs. Segments without a length, and with a coordinate that
/// is no finite number, are left out. Of more than mostJoinedSegments there are no lines.
/// @param points      three floats each, of which x and y are used; a pair of points a segment
/// @param pointCount  even
/// @return open lines, then closed ones, whose last point is the first one once more; each in the order of
///         its first segment
LinePaths JoinSegments(const float* points, std::uint64_t pointCount);

} // namespace KivoDrawingTools
