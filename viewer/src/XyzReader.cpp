// Points x y z in grid order.
#include "GridFormats.h"
#include "Numbers.h"

#include <algorithm>

namespace KivoViewer {

namespace {

// Takes the points as runs along the coordinate that changes from point to point.
class PointRuns {
public:
    explicit PointRuns(const TextLines& lines) : m_lines(lines) {}

    void Add(double fast, double slow, double z) {
        if (m_slow.empty() || slow != m_slow.back()) BeginRun(slow);
        if (m_slow.size() == 1)
            Append(m_fast, fast);
        else
            CheckPlace(fast);
        ++m_count;
        m_z.push_back(z);
        if (m_z.size() > maxPointCount)
            m_lines.Fail("too many points; at most " + std::to_string(maxPointCount) + " can be shown");
    }

    void End() { CheckRunIsFull(m_lines.Number()); }

    const std::vector<double>& Fast() const { return m_fast; }
    const std::vector<double>& Slow() const { return m_slow; }
    const std::vector<double>& Values() const { return m_z; }

private:
    void BeginRun(double slow) {
        if (m_slow.size() > 1) CheckRunIsFull(m_lines.Number());
        Append(m_slow, slow);
        m_count = 0;
    }

    void CheckRunIsFull(std::size_t line) const {
        if (m_count != m_fast.size())
            m_lines.FailAt(line, "not a rectangular grid: expected rows of " + std::to_string(m_fast.size()) +
                                     " points, found one of " + std::to_string(m_count));
    }

    void CheckPlace(double fast) const {
        if (m_count == m_fast.size())
            m_lines.Fail("not a rectangular grid: more than " + std::to_string(m_fast.size()) +
                         " points in this row");
        if (fast != m_fast[m_count])
            m_lines.Fail("not a rectangular grid: the coordinates differ from those of the first row");
    }

    void Append(std::vector<double>& coordinates, double coordinate) {
        coordinates.push_back(coordinate);
        if (!IsLastInOrder(coordinates))
            m_lines.Fail("the coordinates must rise or fall from row to row and from point to point");
    }

    const TextLines& m_lines;
    std::vector<double> m_fast;
    std::vector<double> m_slow;
    std::vector<double> m_z;
    std::size_t m_count = 0; // points of the present run
};

struct Point {
    double x;
    double y;
    double z;
};

Point PointIn(const TextLines& lines, std::vector<std::string_view>& fields) {
    SplitPoint(lines.Line(), fields);
    if (fields.size() != 3) lines.Fail("expected 3 values, found " + std::to_string(fields.size()));
    return {NumberIn(lines, fields[0]), NumberIn(lines, fields[1]), ValueIn(lines, fields[2])};
}

std::vector<double> Transposed(const std::vector<double>& values, std::size_t columns, std::size_t rows) {
    std::vector<double> result(values.size());
    for (std::size_t c = 0; c < columns; ++c)
        for (std::size_t r = 0; r < rows; ++r)
            result[r * columns + c] = values[c * rows + r];
    return result;
}

GridData MakeRows(const TextLines& lines, const PointRuns& runs, bool xIsFast) {
    if (xIsFast) return MakeGrid(lines.Name(), runs.Fast(), runs.Slow(), runs.Values());
    return MakeGrid(lines.Name(), runs.Slow(), runs.Fast(),
                    Transposed(runs.Values(), runs.Slow().size(), runs.Fast().size()));
}

} // namespace

void SplitPoint(std::string_view line, std::vector<std::string_view>& fields) {
    const char separator = FieldSeparator(line);
    SplitFields(line, separator == '\t' ? ' ' : separator, fields);
}

bool AreColumnNames(const std::vector<std::string_view>& fields) {
    if (fields.size() != 3) return false;
    for (const std::string_view field : fields)
        if (field.empty() || ParseNumber(field)) return false;
    return true;
}

GridData ReadXyz(TextLines& lines) {
    std::vector<std::string_view> fields;
    lines.Next();
    SplitPoint(lines.Line(), fields);
    const bool hasNames = AreColumnNames(fields);
    const std::vector<std::string> names(fields.begin(), fields.end());
    if (hasNames && !lines.Next()) lines.Fail("no points after the column names");
    const Point first = PointIn(lines, fields);
    if (!lines.Next()) lines.Fail("a surface needs at least 2 x 2 points, found one");
    const Point second = PointIn(lines, fields);
    const bool xIsFast = first.x != second.x;
    if (xIsFast == (first.y != second.y))
        lines.Fail("the points are not in grid order: from one to the next, either x or y must stay");

    PointRuns runs(lines);
    const auto add = [&](const Point& point) {
        runs.Add(xIsFast ? point.x : point.y, xIsFast ? point.y : point.x, point.z);
    };
    add(first);
    add(second);
    while (lines.Next())
        add(PointIn(lines, fields));
    runs.End();
    GridData grid = MakeRows(lines, runs, xIsFast);
    if (hasNames) std::copy(names.begin(), names.end(), grid.axisTitles);
    return grid;
}

} // namespace KivoViewer
