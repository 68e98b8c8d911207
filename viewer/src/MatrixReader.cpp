// Matrices of values.
#include "GridFormats.h"
#include "Language.h"

namespace KivoViewer {

namespace {

std::vector<double> NumbersIn(const TextLines& lines, const std::vector<std::string_view>& fields,
                              std::size_t first, const TableLayout& layout) {
    std::vector<double> numbers;
    for (std::size_t i = first; i < fields.size(); ++i) {
        numbers.push_back(TableNumberIn(lines, fields[i], layout));
        if (!IsLastInOrder(numbers))
            lines.Fail(Translate("Files", "the x values must rise or fall from column to column"));
    }
    return numbers;
}

std::vector<double> CountingFrom0(std::size_t count) {
    std::vector<double> numbers(count);
    for (std::size_t i = 0; i < count; ++i)
        numbers[i] = static_cast<double>(i);
    return numbers;
}

// A line of the matrix: its values, behind the y value where it has one.
class MatrixLine {
public:
    MatrixLine(const TableLayout& layout, std::size_t width)
        : m_layout(layout), m_width(width), m_first(layout.hasCorner ? 1 : 0) {}

    void Split(const TextLines& lines) {
        SplitRow(lines.Line(), m_layout, m_fields);
        if (m_fields.size() != m_width)
            lines.Fail(Filled(Translate("Files", "expected %1 values, found %2"), m_width - m_first,
                              m_fields.size() - m_first));
    }

    // Of the line that has been split, behind those of the lines before.
    void AddY(const TextLines& lines, std::vector<double>& y) const {
        y.push_back(m_first == 1 ? TableNumberIn(lines, m_fields[0], m_layout)
                                 : static_cast<double>(y.size()));
        if (!IsLastInOrder(y))
            lines.Fail(Translate("Files", "the y values must rise or fall from row to row"));
    }

    void AddValues(const TextLines& lines, const GridSpan& wanted, std::vector<double>& z) const {
        for (std::size_t i = 0; i < wanted.Size(); ++i)
            z.push_back(TableValueIn(lines, m_fields[m_first + wanted.At(i)], m_layout));
    }

private:
    const TableLayout& m_layout;
    std::size_t m_width;
    std::size_t m_first; // field of a value
    std::vector<std::string_view> m_fields;
};

std::vector<double> Wanted(const std::vector<double>& coordinates, const GridSpan& span) {
    std::vector<double> wanted;
    for (std::size_t i = 0; i < span.Size(); ++i)
        wanted.push_back(coordinates[span.At(i)]);
    return wanted;
}

// A region alone, or some of the rows and columns. Which these are, the y values of all lines tell.
// @param lines  at the first row
GridData ReadLargeMatrix(TextLines lines, MatrixLine& line, const std::vector<double>& x,
                         const ReadOptions& options) {
    TextLines ahead = lines;
    std::vector<double> y;
    do {
        line.Split(ahead);
        line.AddY(ahead, y);
    } while (ahead.Next());
    GridSpan columns = {0, x.size()}, rows = {0, y.size()};
    if (options.region) {
        columns = CoordinatesWithin(x, options.region->x0, options.region->x1);
        rows = CoordinatesWithin(y, options.region->y0, options.region->y1);
        CheckRegion(lines.Name(), columns.count, rows.count);
    }
    const GridWindow window = WindowOf(lines.Name(), columns, rows, options.mostPoints);
    std::vector<double> z;
    std::size_t row = 0;
    do {
        if (!window.rows.Has(row++)) continue;
        line.Split(lines);
        line.AddValues(lines, window.columns, z);
    } while (lines.Next());
    GridData grid = MakeGrid(lines.Name(), Wanted(x, window.columns), Wanted(y, window.rows), z);
    grid.note = window.Note();
    return grid;
}

} // namespace

GridData ReadMatrix(TextLines& lines, const TableLayout& layout, const ReadOptions& options) {
    lines.Next();
    CheckDecimalMark(lines, layout, options);
    std::vector<std::string_view> fields;
    SplitRow(lines.Line(), layout, fields);
    const std::size_t width = fields.size();
    const std::vector<double> x =
        layout.hasCorner ? NumbersIn(lines, fields, 1, layout) : CountingFrom0(width);
    if (layout.hasCorner && !lines.Next()) lines.Fail(Translate("Files", "no values after the x values"));
    const TextLines start = lines;
    MatrixLine line(layout, width);
    std::vector<double> y;
    std::vector<double> z;
    do {
        line.Split(lines);
        line.AddY(lines, y);
        line.AddValues(lines, {0, x.size()}, z);
        if (z.size() > options.mostPoints) return ReadLargeMatrix(start, line, x, options);
    } while (lines.Next());
    return MakeGrid(lines.Name(), x, y, z);
}

} // namespace KivoViewer
