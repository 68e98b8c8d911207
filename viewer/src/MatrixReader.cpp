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

} // namespace

GridData ReadMatrix(TextLines& lines, const TableLayout& layout, const ReadOptions& options) {
    lines.Next();
    CheckDecimalMark(lines, layout, options);
    std::vector<std::string_view> fields;
    SplitRow(lines.Line(), layout, fields);
    const std::size_t width = fields.size();
    const bool hasCoordinates = layout.hasCorner;
    const std::size_t first = hasCoordinates ? 1 : 0; // field of the first value
    const std::vector<double> x = hasCoordinates ? NumbersIn(lines, fields, 1, layout) : CountingFrom0(width);
    std::vector<double> y;
    std::vector<double> z;
    if (hasCoordinates && !lines.Next()) lines.Fail(Translate("Files", "no values after the x values"));
    do {
        SplitRow(lines.Line(), layout, fields);
        if (fields.size() != width)
            lines.Fail(Filled(Translate("Files", "expected %1 values, found %2"), width - first,
                              fields.size() - first));
        y.push_back(hasCoordinates ? TableNumberIn(lines, fields[0], layout) : static_cast<double>(y.size()));
        if (!IsLastInOrder(y))
            lines.Fail(Translate("Files", "the y values must rise or fall from row to row"));
        for (std::size_t i = first; i < width; ++i)
            z.push_back(TableValueIn(lines, fields[i], layout));
        if (z.size() > maxPointCount)
            lines.Fail(Filled(Translate("Files", "too many points; at most %1 can be shown"), maxPointCount));
    } while (lines.Next());
    return MakeGrid(lines.Name(), x, y, z);
}

} // namespace KivoViewer
