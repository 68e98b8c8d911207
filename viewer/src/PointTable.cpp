#include "PointTable.h"

#include "Failure.h"
#include "GridFormats.h"
#include "Language.h"
#include "Table.h"

namespace KivoViewer {

namespace {

std::string NoteOn(const TableLayout& layout, const std::array<std::size_t, 3>& columns) {
    const std::size_t others = layout.columnCount - columns.size() - (layout.label ? 1 : 0);
    if (others == 0 || layout.columnCount <= columns.size()) return {};
    const auto name = [&](std::size_t axis) {
        return layout.names.empty() ? std::to_string(columns[axis] + 1) : layout.names[columns[axis]];
    };
    return Filled(Translate("Files", "x, y and z from the columns %1, %2 and %3 of %4"), name(0), name(1),
                  name(2), layout.columnCount);
}

void CheckWidth(const TextLines& lines, const TableLayout& layout, std::size_t found) {
    if (found == layout.columnCount) return;
    const int count = static_cast<int>(found);
    if (layout.columnCount == 3)
        lines.Fail(Translate("Files", "expected x, y and z, found %n value(s)", nullptr, count));
    lines.Fail(Filled(Translate("Files", "expected %1 values, found %n value(s)", nullptr, count),
                      layout.columnCount));
}

// Lines of points, of which some are chosen.
class PointLines {
public:
    PointLines(const TableLayout& layout, const std::array<std::size_t, 3>& columns, bool hasHoles,
               const PointChoice& choice)
        : m_layout(layout), m_columns(columns), m_hasHoles(hasHoles), m_choice(choice) {}

    // Takes the point of the current line, where it is chosen.
    void Take(const TextLines& lines, std::size_t most, PointTable& table) {
        const bool isKept = table.Count() < most;
        if (!m_choice.region && (!isKept || !IsInWindow(table.total))) {
            CountOf(lines, isKept, table);
            return;
        }
        SplitRow(lines.Line(), m_layout, m_fields);
        CheckWidth(lines, m_layout, m_fields.size());
        const double x = TableNumberIn(lines, m_fields[m_columns[0]], m_layout);
        const double y = TableNumberIn(lines, m_fields[m_columns[1]], m_layout);
        if (!IsInRegion(x, y)) return;
        const bool isWanted = IsInWindow(table.total);
        CountOf(lines, isKept, table);
        if (!isKept || !isWanted) return;
        const std::string_view value = m_fields[m_columns[2]];
        table.x.push_back(x);
        table.y.push_back(y);
        table.z.push_back(m_hasHoles ? TableValueIn(lines, value, m_layout)
                                     : TableNumberIn(lines, value, m_layout));
        if (m_layout.label) table.labels.push_back(Utf8(m_fields[*m_layout.label]));
    }

private:
    static void CountOf(const TextLines& lines, bool isKept, PointTable& table) {
        ++table.total;
        if (!isKept && table.lineBeyond == 0) table.lineBeyond = lines.Number();
    }

    bool IsInRegion(double x, double y) const {
        const auto& region = m_choice.region;
        return !region || (x >= region->x0 && x <= region->x1 && y >= region->y0 && y <= region->y1);
    }

    bool IsInWindow(std::size_t index) const {
        return !m_choice.window || (m_choice.window->rows.Has(index / m_choice.width) &&
                                    m_choice.window->columns.Has(index % m_choice.width));
    }

    const TableLayout& m_layout;
    const std::array<std::size_t, 3>& m_columns;
    bool m_hasHoles;
    const PointChoice& m_choice;
    std::vector<std::string_view> m_fields;
};

} // namespace

PointTable ReadPointTable(TextLines& lines, const ReadOptions& options, bool hasHoles, std::size_t most,
                          const PointChoice& choice) {
    const TableLayout layout = LayoutOf(lines, options);
    PointTable table;
    table.file = lines.Name();
    if (!lines.Next()) throw Failure(lines.Name() + ": " + Translate("Files", "no points"));
    CheckDecimalMark(lines, layout, options);
    const auto columns = PointColumns(lines, layout, options);
    table.note = NoteOn(layout, columns);
    if (!layout.names.empty()) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            table.titles[i] = layout.names[columns[i]];
        if (!lines.Next()) lines.Fail(Translate("Files", "no points after the column names"));
    }
    PointLines points(layout, columns, hasHoles, choice);
    do {
        points.Take(lines, most, table);
    } while (lines.Next());
    return table;
}

} // namespace KivoViewer
