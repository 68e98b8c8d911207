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
    const double points = *header.columns.value * *header.rows.value;
    if (points > static_cast<double>(maxPointCount))
        lines.FailAt(header.rows.line,
                     Filled(Translate("Files", "too many points; at most %1 can be shown"), maxPointCount));
    return header;
}

// The mark is often written with more digits in the header than among the values.
bool IsSame(double number, double noData) {
    if (number == noData) return true;
    return FitsSinglePrecision(number) && FitsSinglePrecision(noData) &&
           static_cast<float>(number) == static_cast<float>(noData);
}

void ReadRow(const TextLines& lines, const std::vector<std::string_view>& fields, double noData,
             std::vector<double>& z) {
    constexpr double hole = std::numeric_limits<double>::quiet_NaN();
    for (const std::string_view field : fields) {
        const std::optional<double> number = ParseNumber(field);
        z.push_back(number && IsSame(*number, noData) ? hole : ValueIn(lines, field));
    }
}

// Centres of the cells along an axis.
std::vector<double> Centers(const TextLines& lines, const Entry& start, const Entry& cell,
                            std::size_t count) {
    std::vector<double> centers;
    for (std::size_t i = 0; i < count; ++i) {
        centers.push_back(*start.value + (static_cast<double>(i) + (start.corner ? 0.5 : 0.0)) * *cell.value);
        if (!FitsSinglePrecision(centers.back()))
            lines.FailAt(cell.line, Translate("Files", "the cells reach beyond single precision"));
        if (!IsLastInOrder(centers))
            lines.FailAt(cell.line,
                         Translate("Files", "the cells are too small for coordinates of this size"));
    }
    return centers;
}

// Line by line, for what is not as it should be.
std::vector<double> ReadRows(TextLines& lines, std::size_t columns, std::size_t rows, double noData) {
    std::vector<std::string_view> fields;
    std::vector<double> z;
    std::size_t row = 0;
    do {
        if (row == rows) lines.Fail(Filled(Translate("Files", "more than %1 rows"), rows));
        SplitFields(lines.Line(), ' ', fields);
        if (fields.size() != columns)
            lines.Fail(Filled(Translate("Files", "expected %1 values, found %2"), columns, fields.size()));
        ReadRow(lines, fields, noData, z);
        ++row;
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

GridData ReadAsciiGrid(TextLines& lines) {
    std::vector<std::string_view> fields;
    const Header header = ReadHeader(lines, fields);
    const auto columns = static_cast<std::size_t>(*header.columns.value);
    const auto rows = static_cast<std::size_t>(*header.rows.value);
    const std::vector<double> x = Centers(lines, header.x, header.cellX, columns);
    std::vector<double> y = Centers(lines, header.y, header.cellY, rows);
    std::reverse(y.begin(), y.end()); // the northernmost row comes first

    if (const auto z =
            ReadValueBlock(lines.FromHere(), columns, rows, *header.noData.value, lines.Reporting()))
        return MakeGrid(lines.Name(), x, y, *z);
    return MakeGrid(lines.Name(), x, y, ReadRows(lines, columns, rows, *header.noData.value));
}

} // namespace KivoViewer
