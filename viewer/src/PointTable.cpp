#include "PointTable.h"

#include "Failure.h"
#include "GridFormats.h"
#include "Table.h"

namespace KivoViewer {

namespace {

std::string NoteOn(const TableLayout& layout, const std::array<std::size_t, 3>& columns) {
    const std::size_t others = layout.columnCount - columns.size() - (layout.label ? 1 : 0);
    if (others == 0 || layout.columnCount <= columns.size()) return {};
    std::string note = "x, y and z from the columns";
    for (std::size_t i = 0; i < columns.size(); ++i)
        note += (i == 0   ? " "
                 : i == 1 ? ", "
                          : " and ") +
                (layout.names.empty() ? std::to_string(columns[i] + 1) : layout.names[columns[i]]);
    return note + " of " + std::to_string(layout.columnCount);
}

void CheckWidth(const TextLines& lines, const TableLayout& layout, std::size_t found) {
    if (found == layout.columnCount) return;
    const std::string expected = std::to_string(layout.columnCount) + " values";
    lines.Fail("expected " + (layout.columnCount == 3 ? "x, y and z" : expected) + ", found " +
               std::to_string(found) + (found == 1 ? " value" : " values"));
}

} // namespace

PointTable ReadPointTable(TextLines& lines, const ReadOptions& options, bool hasHoles, std::size_t most) {
    const TableLayout layout = LayoutOf(lines, options);
    PointTable table;
    table.file = lines.Name();
    if (!lines.Next()) throw Failure(lines.Name() + ": no points");
    CheckDecimalMark(lines, layout, options);
    const auto columns = PointColumns(lines, layout, options);
    table.note = NoteOn(layout, columns);
    if (!layout.names.empty()) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            table.titles[i] = layout.names[columns[i]];
        if (!lines.Next()) lines.Fail("no points after the column names");
    }
    std::vector<std::string_view> fields;
    do {
        SplitRow(lines.Line(), layout, fields);
        CheckWidth(lines, layout, fields.size());
        table.x.push_back(TableNumberIn(lines, fields[columns[0]], layout));
        table.y.push_back(TableNumberIn(lines, fields[columns[1]], layout));
        table.z.push_back(hasHoles ? TableValueIn(lines, fields[columns[2]], layout)
                                   : TableNumberIn(lines, fields[columns[2]], layout));
        if (layout.label) table.labels.push_back(Utf8(fields[*layout.label]));
        if (table.Count() > most)
            lines.Fail("too many points; at most " + std::to_string(most) + " can be shown");
    } while (lines.Next());
    return table;
}

} // namespace KivoViewer
