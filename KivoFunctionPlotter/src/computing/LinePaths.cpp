#include "LinePaths.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace KivoDrawingTools {

namespace {

constexpr std::size_t noEnd = static_cast<std::size_t>(-1);

// Ends of segments, numbered as their points; those of one segment differ by the last bit. Neighbours among
// cells compute a crossing from both ends of their common edge, so that it may differ in its last bits, which
// are the coarser the farther the coordinates are from zero. Squares of 8 to 16 times that size tell the
// crossings apart. Segments without a length, as at a grid point that lies on a line, are left out.
class SegmentEnds {
public:
    SegmentEnds(const float* points, std::size_t count) : m_points(points), m_partners(count, noEnd) {
        float largest[2] = {0.0f, 0.0f};
        for (std::size_t i = 0; i < count; ++i)
            for (int k = 0; k < 2; ++k)
                if (IsFinite(i)) largest[k] = std::max(largest[k], std::fabs(points[3 * i + k]));
        for (int k = 0; k < 2; ++k)
            m_perUnit[k] = largest[k] > 0.0f ? squares / static_cast<double>(largest[k]) : 0.0;
        for (std::size_t i = 0; i < count; ++i)
            if (IsUsed(i)) Join(i);
    }

    /// Whether the segment of this end has finite coordinates, and a length.
    bool IsUsed(std::size_t end) const {
        if (!IsFinite(end)) return false;
        return Distance(Scaled(end), Scaled(end ^ 1)) > leastLength;
    }
    /// The end of another segment at the same place, or noEnd.
    std::size_t PartnerOf(std::size_t end) const { return m_partners[end]; }
    LinePoint At(std::size_t end) const { return {m_points[3 * end], m_points[3 * end + 1]}; }

private:
    static constexpr double squares = 1048576.0; // from 0 to the largest coordinate
    static constexpr double slack = 0.3;         // of a square: two crossings are one
    static constexpr double leastLength = 0.15;  // of a square: what is left out parts no ends

    struct ScaledPoint {
        double x;
        double y;
    };
    using Waiting = std::unordered_multimap<std::uint64_t, std::size_t>;

    bool IsFinite(std::size_t end) const {
        const float* const a = m_points + 3 * (end & ~std::size_t{1});
        return std::isfinite(a[0]) && std::isfinite(a[1]) && std::isfinite(a[3]) && std::isfinite(a[4]);
    }

    ScaledPoint Scaled(std::size_t end) const {
        return {static_cast<double>(m_points[3 * end]) * m_perUnit[0],
                static_cast<double>(m_points[3 * end + 1]) * m_perUnit[1]};
    }

    // Segments follow each other row by row, and few ends wait for their partner.
    void Join(std::size_t end) {
        const ScaledPoint at = Scaled(end);
        auto nearest = m_waiting.end();
        double least = slack;
        for (const double dx : {-slack, slack})
            for (const double dy : {-slack, slack}) {
                const auto [first, last] = m_waiting.equal_range(Square(at.x + dx, at.y + dy));
                for (auto other = first; other != last; ++other) {
                    const double distance = Distance(at, Scaled(other->second));
                    if (distance > least || other->second == (end ^ 1)) continue;
                    least = distance;
                    nearest = other;
                }
            }
        if (nearest == m_waiting.end()) {
            m_waiting.emplace(Square(at.x, at.y), end);
            return;
        }
        m_partners[end] = nearest->second;
        m_partners[nearest->second] = end;
        m_waiting.erase(nearest);
    }

    static double Distance(ScaledPoint a, ScaledPoint b) {
        return std::max(std::fabs(a.x - b.x), std::fabs(a.y - b.y));
    }

    static std::uint64_t Square(double x, double y) {
        const auto column = static_cast<std::int64_t>(std::floor(x));
        const auto row = static_cast<std::int64_t>(std::floor(y));
        return (static_cast<std::uint64_t>(column) << 32) ^ (static_cast<std::uint64_t>(row) & 0xFFFFFFFFu);
    }

    const float* m_points;
    double m_perUnit[2];
    std::vector<std::size_t> m_partners;
    Waiting m_waiting; // at its square
};

} // namespace

LinePaths JoinSegments(const float* points, std::uint64_t pointCount) {
    LinePaths paths;
    const auto count = static_cast<std::size_t>(pointCount);
    const SegmentEnds ends(points, count);
    std::vector<bool> isTaken(count / 2, false);
    const auto follow = [&](std::size_t end) {
        paths.points.push_back(ends.At(end));
        while (end != noEnd && !isTaken[end / 2]) {
            isTaken[end / 2] = true;
            paths.points.push_back(ends.At(end ^ 1));
            end = ends.PartnerOf(end ^ 1);
        }
        paths.ends.push_back(paths.points.size());
    };
    for (std::size_t end = 0; end < count; ++end)
        if (ends.IsUsed(end) && ends.PartnerOf(end) == noEnd && !isTaken[end / 2]) follow(end);
    for (std::size_t end = 0; end < count; end += 2)
        if (ends.IsUsed(end) && !isTaken[end / 2]) follow(end);
    return paths;
}

LinePaths JoinSegments(const float* points, std::uint64_t pointCount, std::uint64_t& segmentsLeft) {
    if (pointCount / 2 > segmentsLeft) return {};
    segmentsLeft -= pointCount / 2;
    return JoinSegments(points, pointCount);
}

} // namespace KivoDrawingTools
