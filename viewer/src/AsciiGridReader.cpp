// ESRI ASCII grids.
#include "GridFormats.h"
#include "Language.h"
#include "Numbers.h"
#include "ValueBlock.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace KivoViewer {

namespace {

// An entry of the header, with the line that it stands in.
struct Entry {
    const char* name;
    bool corner = false; // gives the corner of the first cell, not its centre
    std::optional<double> value = std::nullopt;
    std::size_t line = 0;
};

struct Header {
    Entry columns{"ncols"};
    Entry rows{"nrows"};
    Entry x{"xllcorner"};
    Entry y{"yllcorner"};
    Entry cell{"cellsize"};
    Entry cellX{"dx"};
    Entry cellY{"dy"};
    Entry noData{"nodata_value", false, -9999.0};
};

std::string LowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

Entry* FindEntry(Header& header, const std::string& name) {
    for (Entry* entry : {&header.x, &header.y}) {
        const std::string axis(entry->name, 3); // xll or yll
        if (name != axis + "corner" && name != axis + "center") continue;
        entry->corner = name == axis + "corner";
        return entry;
    }
    for (Entry* entry :
         {&header.columns, &header.rows, &header.cell, &header.cellX, &header.cellY, &header.noData})
        if (name == entry->name) return entry;
    return nullptr;
}

void ReadEntry(const TextLines& lines, const std::vector<std::string_view>& fields, Header& header) {
    Entry* const entry = FindEntry(header, LowerCase(fields[0]));
    if (!entry) lines.Fail(Filled(Translate("Files", "unknown header entry %1"), Quoted(fields[0])));
    if (entry->line != 0) lines.Fail(Filled(Translate("Files", "a second entry %1"), Quoted(fields[0])));
    if (fields.size() != 2)
        lines.Fail(Filled(Translate("Files", "expected one value after %1"), Quoted(fields[0])));
    // The mark of missing values need not fit single precision, nor be a number that compares.
    entry->value = entry == &header.noData ? ParseNumber(fields[1]) : NumberIn(lines, fields[1]);
    if (!entry->value) lines.Fail(Filled(Translate("Files", "not a number: %1"), Quoted(fields[1])));
    entry->line = lines.Number();
    const bool isCount = entry == &header.columns || entry == &header.rows;
    if (isCount && ParseCount(fields[1]).value_or(0) < 2)
        lines.Fail(Filled(Translate("Files", "%1 must be a whole number of at least 2"), entry->name));
    const bool isCell = entry == &header.cell || entry == &header.cellX || entry == &header.cellY;
    if (isCell && !(*entry->value > 0.0))
        lines.Fail(Filled(Translate("Files", "%1 must be positive"), entry->name));
}

// Leaves the first line of values as the current one.
Header ReadHeader(TextLines& lines, std::vector<std::string_view>& fields) {
    Header header;
    while (true) {
        if (!lines.Next()) lines.Fail(Translate("Files", "no values after the header"));
        SplitFields(lines.Line(), ' ', fields);
        if (ParseNumber(fields[0])) break;
        ReadEntry(lines, fields, header);
    }
    if (!header.cellX.value && !header.cellY.value) header.cellX = header.cellY = header.cell;
    if (!header.cellX.value && !header.cellY.value)
        lines.Fail(Filled(Translate("Files", "the header lacks %1"), "cellsize"));
    for (const Entry* entry :
         {&header.columns, &header.rows, &header.x, &header.y, &header.cellX, &header.cellY})
        if (!entry->value) lines.Fail(Filled(Translate("Files", "the header lacks %1"), entry->name));
    return header;
}

// The mark is often written with more digits in the header than among the values.
bool IsSame(double number, double noData) {
    if (number == noData) return true;
    return FitsSinglePrecision(number) && FitsSinglePrecision(noData) &&
           static_cast<float>(number) == static_cast<float>(noData);
}

void ReadRow(const TextLines& lines, const std::vector<std::string_view>& fields, double noData,
             const GridSpan& wanted, std::vector<double>& z) {
    constexpr double hole = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t i = 0; i < wanted.Size(); ++i) {
        const std::string_view field = fields[wanted.At(i)];
        const std::optional<double> number = ParseNumber(field);
        z.push_back(number && IsSame(*number, noData) ? hole : ValueIn(lines, field));
    }
}

// The cells of an axis that are wanted. Rows are counted from the north, and have places from the south.
GridSpan CellsOf(const Entry& start, const Entry& cell, std::size_t count,
                 const std::optional<std::pair<double, double>>& range, bool isReversed) {
    if (!range) return {0, count};
    const double corner = *start.value - (start.corner ? 0.0 : 0.5 * *cell.value);
    GridSpan span = CellsWithin(corner, *cell.value, count, range->first, range->second);
    if (isReversed) span.first = count - span.first - span.count;
    return span;
}

// The rows and columns that are read: of a grid with too many points a region alone, or some of them.
GridWindow WindowOfHeader(const TextLines& lines, const Header& header, const ReadOptions& options) {
    const auto columns = static_cast<std::size_t>(*header.columns.value);
    const auto rows = static_cast<std::size_t>(*header.rows.value);
    const bool isTooLarge =
        *header.columns.value * *header.rows.value > static_cast<double>(options.mostPoints);
    std::optional<std::pair<double, double>> rangeX, rangeY;
    if (isTooLarge && options.region) {
        rangeX = {options.region->x0, options.region->x1};
        rangeY = {options.region->y0, options.region->y1};
    }
    const GridSpan spanX = CellsOf(header.x, header.cellX, columns, rangeX, false);
    const GridSpan spanY = CellsOf(header.y, header.cellY, rows, rangeY, true);
    if (rangeX) CheckRegion(lines.Name(), spanX.count, spanY.count);
    return WindowOf(lines.Name() + ":" + std::to_string(header.rows.line), spanX, spanY, options.mostPoints);
}

// Centres of the cells along an axis.
// @param indexOf  the i-th cell that is wanted, counted from the corner
template <typename IndexOf>
std::vector<double> Centers(const TextLines& lines, const Entry& start, const Entry& cell, std::size_t count,
                            IndexOf indexOf) {
    std::vector<double> centers;
    for (std::size_t i = 0; i < count; ++i) {
        const double index = static_cast<double>(indexOf(i));
        centers.push_back(*start.value + (index + (start.corner ? 0.5 : 0.0)) * *cell.value);
        if (!FitsSinglePrecision(centers.back()))
            lines.FailAt(cell.line, Translate("Files", "the cells reach beyond single precision"));
        if (!IsLastInOrder(centers))
            lines.FailAt(cell.line,
                         Translate("Files", "the cells are too small for coordinates of this size"));
    }
    return centers;
}

// Line by line, for what is not as it should be.
std::vector<double> ReadRows(TextLines& lines, std::size_t columns, std::size_t rows, double noData,
                             const GridWindow& window) {
    std::vector<std::string_view> fields;
    std::vector<double> z;
    std::size_t row = 0;
    do {
        if (row == rows) lines.Fail(Filled(Translate("Files", "more than %1 rows"), rows));
        if (!window.rows.Has(row++)) continue;
        SplitFields(lines.Line(), ' ', fields);
        if (fields.size() != columns)
            lines.Fail(Filled(Translate("Files", "expected %1 values, found %2"), columns, fields.size()));
        ReadRow(lines, fields, noData, window.columns, z);
    } while (lines.Next());
    if (row != rows) lines.Fail(Filled(Translate("Files", "expected %1 rows, found %2"), rows, row));
    return z;
}

} // namespace

bool IsAsciiGridHeader(std::string_view line) {
    std::vector<std::string_view> fields;
    SplitFields(line, ' ', fields);
    Header header;
    if (fields.empty()) return false;
    const Entry* const entry = FindEntry(header, LowerCase(fields[0]));
    return entry && entry != &header.cellX && entry != &header.cellY; // which name columns, too
}

GridData ReadAsciiGrid(TextLines& lines, const ReadOptions& options) {
    std::vector<std::string_view> fields;
    const Header header = ReadHeader(lines, fields);
    const auto columns = static_cast<std::size_t>(*header.columns.value);
    const auto rows = static_cast<std::size_t>(*header.rows.value);
    const GridWindow window = WindowOfHeader(lines, header, options);
    const std::vector<double> x = Centers(lines, header.x, header.cellX, window.columns.Size(),
                                          [&](std::size_t i) { return window.columns.At(i); });
    const std::vector<double> y =
        Centers(lines, header.y, header.cellY, window.rows.Size(), [&](std::size_t i) {
            return rows - 1 - window.rows.At(i);
        }); // the northernmost row comes first

    const ValueBlock block = {lines.FromHere(), columns, rows, *header.noData.value};
    auto z = ReadValueBlock(block, window, lines.Reporting());
    if (!z) z = ReadRows(lines, columns, rows, *header.noData.value, window);
    GridData grid = MakeGrid(lines.Name(), x, y, *z);
    grid.note = window.Note();
    return grid;
}

} // namespace KivoViewer
