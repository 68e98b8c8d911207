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

} // namespace

PointTable ReadPointTable(TextLines& lines, const ReadOptions& options, bool hasHoles, std::size_t most) {
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
            lines.Fail(Filled(Translate("Files", "too many points; at most %1 can be shown"), most));
    } while (lines.Next());
    return table;
}

} // namespace KivoViewer
