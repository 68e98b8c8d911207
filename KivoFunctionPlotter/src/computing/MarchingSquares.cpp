// Contours of many levels in one walk over a grid. The position of a value among evenly spaced levels,
// (value - base) * perLevel, never decreases with the value, however it is rounded. So where level k has a
// position within slack of k, every value at or above it has a position above k - slack, and every value
// below it one below k + slack. Rounding positions down and up by the slack bounds the number of levels that
// a point is not below; a cell whose four corners agree is crossed by none. The others are compared with each
// level in question exactly.
#include "MarchingSquares.h"

#include "CellMarks.h"
#include "VectorClones.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <type_traits>

namespace KivoDrawingTools {

namespace {

// Corners of a cell: 0 at (c, r), 1 at (c + 1, r), 2 at (c + 1, r + 1), 3 at (c, r + 1). Edge i runs from
// corner i to corner (i + 1) % 4. A case has bit i set when the level is greater than the value at corner i.
struct Case {
    int edgeCount; // two for each segment
    int edges[4];
};

constexpr Case cases[16] = {
    {0, {}},     {2, {0, 3}}, {2, {0, 1}}, {2, {1, 3}}, {2, {1, 2}},       {4, {0, 3, 1, 2}},
    {2, {0, 2}}, {2, {2, 3}}, {2, {2, 3}}, {2, {0, 2}}, {4, {0, 1, 2, 3}}, {2, {1, 2}},
    {2, {1, 3}}, {2, {0, 1}}, {2, {0, 3}}, {0, {}},
};

void Cross(const float* first, const float* second, int axis, float level, float* point) {
    const double from = static_cast<double>(first[axis]);
    const double t = (static_cast<double>(level) - from) / (static_cast<double>(second[axis]) - from);
    for (int i = 0; i < 3; ++i) {
        const double start = static_cast<double>(first[i]);
        point[i] =
            i == axis ? level : static_cast<float>(start + (static_cast<double>(second[i]) - start) * t);
    }
}

void AppendSegments(const float* const (&corners)[4], int axis, float level, std::vector<float>& points) {
    unsigned int index = 0;
    for (unsigned int i = 0; i < 4; ++i)
        if (level > corners[i][axis]) index |= 1u << i;
    const Case& crossed = cases[index];
    for (int i = 0; i < crossed.edgeCount; ++i) {
        const int edge = crossed.edges[i];
        float point[3];
        Cross(corners[edge], corners[(edge + 1) % 4], axis, level, point);
        points.insert(points.end(), point, point + 3);
    }
}

// The rank of a value: how many levels are not greater than it. A level with index k crosses a cell exactly
// when its least rank is at most k and its greatest rank above k. A value that is no number has the highest
// rank, since no level is greater.
using Rank = std::int16_t;
constexpr std::size_t mostRanks = 16384; // levels of one walk; a multiple, so that a Rank holds every sum

// Levels about evenly spaced: the position of level k is k within slack.
struct EvenLevels {
    float base;
    float perLevel;
    float slack;
    float count;
};

// False where the levels do not allow it.
bool SpaceEvenly(const float* levels, std::size_t count, EvenLevels& even) {
    even.base = levels[0];
    even.perLevel = count < 2 ? 1.0f : static_cast<float>(count - 1) / (levels[count - 1] - levels[0]);
    even.count = static_cast<float>(count);
    float deviation = 0.0f;
    for (std::size_t k = 0; k < count; ++k) {
        const float off = std::fabs((levels[k] - even.base) * even.perLevel - static_cast<float>(k));
        if (!(off < 0.25f)) return false;
        deviation = std::max(deviation, off);
    }
    even.slack = deviation + 0.01f; // more than the rounding of positions up to mostRanks
    return std::isfinite(even.perLevel) && even.perLevel > 0.0f;
}

template <typename Stride>
inline void BoundRanksEvenly(const float* values, Stride stride, std::size_t count, const EvenLevels& even,
                             Rank* least, Rank* most) {
    for (std::size_t i = 0; i < count; ++i) {
        float position = (values[i * stride] - even.base) * even.perLevel;
        position = position < even.count + 1.0f ? position : even.count + 1.0f; // no number: the highest
        position = position > -1.0f ? position : -1.0f;
        float low = position - even.slack + 1.0f;
        float high = position + even.slack + 1.0f;
        low = low > 0.0f ? low : 0.0f;
        low = low < even.count ? low : even.count;
        high = high < even.count ? high : even.count;
        least[i] = static_cast<Rank>(static_cast<int>(low));
        most[i] = static_cast<Rank>(static_cast<int>(high));
    }
}

// Bounds for the ranks of values that lie stride floats apart.
KIVO_VECTOR_CLONES void BoundRanks(const float* values, std::size_t stride, std::size_t count,
                                   const EvenLevels& even, Rank* least, Rank* most) {
    if (stride == 3) // known to the compiler, as vectors need it
        BoundRanksEvenly(values, std::integral_constant<std::size_t, 3>(), count, even, least, most);
    else
        BoundRanksEvenly(values, stride, count, even, least, most);
}

void FindRanks(const float* values, std::size_t stride, std::size_t count, const float* levels,
               std::size_t levelCount, Rank* least, Rank* most) {
    for (std::size_t i = 0; i < count; ++i) {
        const float value = values[i * stride];
        const float* above =
            std::isnan(value) ? levels + levelCount : std::upper_bound(levels, levels + levelCount, value);
        least[i] = most[i] = static_cast<Rank>(above - levels);
    }
}

// Bounds for the ranks along a row of points.
struct RowRanks {
    std::vector<Rank> least, most;
    explicit RowRanks(std::size_t columns) : least(columns), most(columns) {}
};

Rank LeastRank(const RowRanks& lower, const RowRanks& upper, std::size_t c) {
    return std::min(std::min(lower.least[c], lower.least[c + 1]),
                    std::min(upper.least[c], upper.least[c + 1]));
}

Rank GreatestRank(const RowRanks& lower, const RowRanks& upper, std::size_t c) {
    return std::max(std::max(lower.most[c], lower.most[c + 1]), std::max(upper.most[c], upper.most[c + 1]));
}

// Sets a byte for each cell between two rows that a level may cross.
KIVO_VECTOR_CLONES void MarkCrossedCells(const Rank* lowerLeast, const Rank* lowerMost,
                                         const Rank* upperLeast, const Rank* upperMost, std::size_t cells,
                                         unsigned char* marks) {
    for (std::size_t c = 0; c < cells; ++c) {
        const Rank a = lowerLeast[c] < lowerLeast[c + 1] ? lowerLeast[c] : lowerLeast[c + 1];
        const Rank b = upperLeast[c] < upperLeast[c + 1] ? upperLeast[c] : upperLeast[c + 1];
        const Rank d = lowerMost[c] > lowerMost[c + 1] ? lowerMost[c] : lowerMost[c + 1];
        const Rank e = upperMost[c] > upperMost[c + 1] ? upperMost[c] : upperMost[c + 1];
        marks[c] = (a < b ? a : b) < (d > e ? d : e) ? 1 : 0;
    }
}

// One walk over the grid. levels: ascending, different from each other, at most mostRanks of them.
void Walk(const GridView& grid, int axis, const float* levels, std::size_t levelCount,
          std::vector<float>* pointsOfLevel) {
    EvenLevels even = {};
    const bool isEven = SpaceEvenly(levels, levelCount, even);
    const auto rank = [&](std::size_t row, RowRanks& ranks) {
        const float* values = grid.At(0, row) + axis;
        if (isEven)
            BoundRanks(values, grid.columnStride, grid.columns, even, ranks.least.data(), ranks.most.data());
        else
            FindRanks(values, grid.columnStride, grid.columns, levels, levelCount, ranks.least.data(),
                      ranks.most.data());
    };
    const std::size_t cells = grid.columns - 1;
    RowRanks lower(grid.columns), upper(grid.columns);
    std::vector<unsigned char> marks(MarkRoom(cells), 0);
    rank(0, upper);
    for (std::size_t r = 0; r + 1 < grid.rows; ++r) {
        std::swap(lower, upper);
        rank(r + 1, upper);
        MarkCrossedCells(lower.least.data(), lower.most.data(), upper.least.data(), upper.most.data(), cells,
                         marks.data());
        ForEachMark(marks.data(), marks.size(), [&](std::size_t c) {
            const float* const corners[4] = {grid.At(c, r), grid.At(c + 1, r), grid.At(c + 1, r + 1),
                                             grid.At(c, r + 1)};
            const int end = GreatestRank(lower, upper, c);
            for (int k = LeastRank(lower, upper, c); k < end; ++k)
                AppendSegments(corners, axis, levels[k], pointsOfLevel[k]);
        });
    }
}

LevelLines ExactArray(const std::vector<float>& points) {
    LevelLines lines;
    if (points.empty()) return lines;
    lines.points.reset(new float[points.size()]);
    std::copy(points.begin(), points.end(), lines.points.get());
    lines.pointCount = points.size() / 3;
    return lines;
}

std::vector<float> LevelsFrom(float low, float step, unsigned int first, unsigned int count) {
    std::vector<float> levels;
    levels.reserve(count);
    for (unsigned int k = 0; k < count; ++k)
        levels.push_back(low + static_cast<float>(first + k) * step);
    return levels;
}

} // namespace

std::vector<LevelLines> TraceLevelLines(const GridView& grid, int axis, const std::vector<float>& levels) {
    std::vector<LevelLines> lines(levels.size());
    if (grid.columns < 2 || grid.rows < 2) return lines;

    std::vector<float> distinct = levels;
    distinct.erase(std::remove_if(distinct.begin(), distinct.end(), [](float l) { return std::isnan(l); }),
                   distinct.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    std::vector<std::vector<float>> points(distinct.size());
    for (std::size_t start = 0; start < distinct.size(); start += mostRanks)
        Walk(grid, axis, &distinct[start], std::min(mostRanks, distinct.size() - start), &points[start]);

    std::size_t index = 0;
    for (std::size_t k = 0; k < levels.size(); ++k) {
        if (std::isnan(levels[k])) continue;
        while (distinct[index] != levels[k])
            ++index;
        lines[k] = ExactArray(points[index]);
    }
    return lines;
}

std::vector<float> ContourLevelsOfHeight(float min, float max, unsigned int count) {
    const float intervals = static_cast<float>(count) - 1.0f;
    const float margin = 0.2f * ((max - min) / intervals);
    const float low = min + margin;
    const float step = ((max - margin) - low) / intervals;
    return LevelsFrom(low, step, 0, count);
}

LevelSteps LevelStepsOf(float min, float max, unsigned int count) {
    const double spacing = (static_cast<double>(max) - static_cast<double>(min)) / (count - 1.0);
    LevelSteps steps = {static_cast<double>(min) + 0.2 * spacing,
                        (spacing * (count - 1.0) - 0.4 * spacing) / (count - 1.0), count};
    return steps.step > 0.0 && std::isfinite(steps.step) ? steps : LevelSteps();
}

LevelSteps LevelStepsOf(float min, float max, double interval, double base) {
    constexpr double most = 1000.0;
    // Where the interval is less than what double precision tells apart there, this is no number.
    const double low = (static_cast<double>(min) - base) / interval;
    const double high = (static_cast<double>(max) - base) / interval;
    const double every = std::ceil((high - low) / most);
    if (!(interval > 0.0) || !(low < high) || !std::isfinite(every)) return {};
    const double first = std::floor(low / every) + 1.0;
    const double last = std::ceil(high / every) - 1.0;
    if (!(last >= first)) return {};
    return {base + first * every * interval, every * interval, static_cast<unsigned int>(last - first) + 1};
}

std::vector<float> LevelsAt(const LevelSteps& steps) {
    std::vector<float> levels;
    levels.reserve(steps.count);
    for (unsigned int i = 0; i < steps.count; ++i)
        levels.push_back(static_cast<float>(steps.first + i * steps.step));
    return levels;
}

std::vector<float> ContourLevelsInside(float min, float max, unsigned int count) {
    const float intervals = static_cast<float>(count) + 1.0f;
    const float margin = 0.2f * ((max - min) / intervals);
    const float low = min + margin;
    const float step = ((max - margin) - low) / intervals;
    return LevelsFrom(low, step, 1, count);
}

std::vector<float> ContourLevelsEven(float min, float max, unsigned int count) {
    const float step = (max - min) / (static_cast<float>(count) + 1.0f);
    return LevelsFrom(min, step, 1, count);
}

} // namespace KivoDrawingTools
