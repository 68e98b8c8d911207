#include "Table.h"

#include "Failure.h"
#include "GridFormats.h"
#include "Language.h"
#include "Numbers.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <utility>

namespace KivoViewer {

namespace {

using Row = std::vector<std::string_view>;

constexpr std::size_t sampleSize = 200; // lines
constexpr std::size_t sampleWidth = 8;  // columns whose numbers are kept

std::string LowerCased(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

std::vector<std::string_view> Sample(TextLines& lines) {
    std::vector<std::string_view> sample;
    while (sample.size() < sampleSize && lines.Next())
        sample.push_back(lines.Line());
    return sample;
}

bool IsNumberOrMissing(std::string_view field, const TableLayout& layout) {
    return IsMissing(field) || TableNumber(field, layout);
}

bool IsWord(std::string_view field, const TableLayout& layout) {
    return !IsNumberOrMissing(field, layout);
}

// Digits with marks that are not understood: neither a number nor a word.
bool IsStrangeNumber(std::string_view field, const TableLayout& layout) {
    if (!field.empty() && (field[0] == '-' || field[0] == '+')) field.remove_prefix(1);
    return !field.empty() && field.find_first_not_of("0123456789.,'") == std::string_view::npos &&
           IsWord(field, layout);
}

// A line of names has a word for each column of numbers.
bool HasNames(const std::vector<Row>& rows, const TableLayout& layout) {
    const auto isWord = [&](std::string_view field) { return IsWord(field, layout); };
    if (rows[0].size() >= 3 && std::all_of(rows[0].begin(), rows[0].end(), isWord)) return true;
    return layout.fits && rows.size() > 1 && !layout.numbers.empty() &&
           std::all_of(layout.numbers.begin(), layout.numbers.end(),
                       [&](std::size_t column) { return isWord(rows[0][column]); });
}

bool HasCorner(const std::vector<Row>& rows, const TableLayout& layout) {
    const Row& first = rows[0];
    const bool isBlank = first[0].empty() || (layout.fits && rows.size() > 1 && IsWord(first[0], layout));
    return first.size() > 1 && isBlank &&
           std::all_of(first.begin() + 1, first.end(),
                       [&](std::string_view field) { return TableNumber(field, layout).has_value(); });
}

// The columns of all lines but the first, which may be names: each of numbers, or each of words.
bool FindColumns(const std::vector<Row>& rows, TableLayout& layout) {
    const std::size_t first = rows.size() > 1 ? 1 : 0;
    const auto isStrange = [&layout](std::string_view field) { return IsStrangeNumber(field, layout); };
    for (const Row& row : rows)
        if (row.size() != rows[0].size() || std::any_of(row.begin(), row.end(), isStrange)) return false;
    for (std::size_t column = 0; column < rows[0].size(); ++column) {
        std::size_t words = 0, numbers = 0;
        for (std::size_t r = first; r < rows.size(); ++r) {
            words += IsWord(rows[r][column], layout);
            numbers += TableNumber(rows[r][column], layout).has_value();
        }
        if (words > 0 && numbers > 0) return false;
        if (words == 0)
            layout.numbers.push_back(column);
        else if (!layout.label)
            layout.label = column;
    }
    return layout.numbers.size() >= 2;
}

// Commas before three digits, and no others: thousands are written like that, too.
std::string DoubtfulNumber(const std::vector<Row>& rows, const TableLayout& layout) {
    std::string doubtful;
    for (const Row& row : rows)
        for (const std::string_view field : row) {
            const std::size_t comma = field.find(',');
            if (comma == std::string_view::npos || !TableNumber(field, layout)) continue;
            const std::string_view whole = field.substr(field.find_first_not_of("+-"));
            const std::size_t digits = whole.find(',');
            if (field.size() - comma != 4 || digits == 0 || digits > 3 || whole[0] == '0') return {};
            if (doubtful.empty()) doubtful = field;
        }
    return doubtful;
}

std::vector<Row> RowsOf(const std::vector<std::string_view>& sample, const TableLayout& layout) {
    std::vector<Row> rows(sample.size());
    for (std::size_t i = 0; i < sample.size(); ++i)
        SplitRow(sample[i], layout, rows[i]);
    const bool endsEmpty = std::all_of(rows.begin(), rows.end(),
                                       [](const Row& row) { return row.size() > 3 && row.back().empty(); });
    for (Row& row : rows)
        if (endsEmpty && layout.separator != ' ') row.pop_back(); // each line ends with a separator
    return rows;
}

void KeepFirstLines(const std::vector<Row>& rows, TableLayout& layout) {
    for (std::size_t r = layout.names.empty() ? 0 : 1; r < rows.size(); ++r) {
        layout.firstLines.emplace_back();
        for (std::size_t c = 0; c < std::min(rows[r].size(), sampleWidth); ++c)
            layout.firstLines.back().push_back(
                TableNumber(rows[r][c], layout).value_or(std::numeric_limits<double>::quiet_NaN()));
    }
}

TableLayout LayoutWith(const std::vector<std::string_view>& sample, char separator, char decimalMark) {
    TableLayout layout;
    layout.separator = separator;
    layout.decimalMark = decimalMark;
    const std::vector<Row> rows = RowsOf(sample, layout);
    layout.columnCount = rows[0].size();
    layout.fits = FindColumns(rows, layout);
    if (HasNames(rows, layout))
        std::transform(rows[0].begin(), rows[0].end(), std::back_inserter(layout.names), Utf8);
    layout.hasCorner = layout.names.empty() && HasCorner(rows, layout);
    layout.lineCount = rows.size() - (layout.names.empty() ? 0 : 1);
    if (decimalMark == ',') layout.doubtful = DoubtfulNumber(rows, layout);
    KeepFirstLines(rows, layout);
    return layout;
}

bool HaveAll(const std::vector<std::string_view>& sample, char letter) {
    return std::all_of(sample.begin(), sample.end(), [letter](std::string_view line) {
        return line.find(letter) != std::string_view::npos;
    });
}

std::string ListOfColumns(const TableLayout& layout) {
    if (layout.names.empty()) return Filled(Translate("Files", "%1 without names"), layout.columnCount);
    std::string list;
    for (const std::string& name : layout.names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

std::optional<std::size_t> ColumnNamed(const TableLayout& layout, const std::string& name) {
    for (std::size_t i = 0; i < layout.names.size(); ++i)
        if (LowerCased(layout.names[i]) == LowerCased(name)) return i;
    const auto number = ParseCount(name);
    if (number && *number >= 1 && *number <= layout.columnCount) return *number - 1;
    return std::nullopt;
}

// Columns that are called x, y and z, whatever follows, such as a unit.
std::optional<std::array<std::size_t, 3>> ColumnsCalledSo(const TableLayout& layout) {
    std::array<std::size_t, 3> columns;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto isIt = [&](const std::string& name) {
            return !name.empty() && LowerCased(name)[0] == "xyz"[axis] &&
                   (name.size() == 1 || !std::isalnum(static_cast<unsigned char>(name[1])));
        };
        const auto found = std::find_if(layout.names.begin(), layout.names.end(), isIt);
        if (found == layout.names.end()) return std::nullopt;
        columns[axis] = static_cast<std::size_t>(found - layout.names.begin());
    }
    return columns;
}

} // namespace

bool IsMissing(std::string_view field) {
    if (field.size() > 7) return false;
    constexpr std::string_view words[] = {"",     "na",   "n/a",     "#n/a", "nan", "null",
                                          "none", "void", "missing", "-",    "--",  "#value!"};
    const std::string lower = LowerCased(field);
    return std::find(std::begin(words), std::end(words), lower) != std::end(words);
}

std::optional<double> TableNumber(std::string_view field, const TableLayout& layout) {
    if (layout.decimalMark == '.') return ParseNumber(field);
    constexpr std::size_t longest = 64;
    const std::size_t mark = field.find(layout.decimalMark);
    if (field.find('.') != std::string_view::npos) return std::nullopt;
    if (mark == std::string_view::npos || field.size() > longest) return ParseNumber(field);
    char text[longest];
    std::copy(field.begin(), field.end(), text);
    text[mark] = '.';
    return ParseNumber({text, field.size()});
}

double TableNumberIn(const TextLines& lines, std::string_view field, const TableLayout& layout) {
    const std::optional<double> number = TableNumber(field, layout);
    if (!number) lines.Fail(Filled(Translate("Files", "not a number: %1"), Quoted(field)));
    return CheckedNumber(lines, field, *number);
}

double TableValueIn(const TextLines& lines, std::string_view field, const TableLayout& layout) {
    constexpr double hole = std::numeric_limits<double>::quiet_NaN();
    const std::optional<double> number = TableNumber(field, layout);
    if (!number && IsMissing(field)) return hole;
    if (number && !std::isfinite(*number)) return hole;
    return TableNumberIn(lines, field, layout);
}

void SplitRow(std::string_view line, const TableLayout& layout, std::vector<std::string_view>& fields) {
    if (line.find('"') == std::string_view::npos) {
        SplitFields(line, layout.separator, fields);
    } else {
        fields.clear();
        const bool isBlank = layout.separator == ' ';
        bool isQuoted = false;
        std::size_t begin = 0;
        for (std::size_t i = 0; i <= line.size(); ++i) {
            if (i < line.size() && line[i] == '"') isQuoted = !isQuoted;
            const bool ends = i == line.size() ||
                              (!isQuoted && (line[i] == layout.separator || (isBlank && line[i] == '\t')));
            if (!ends) continue;
            std::string_view field = Trimmed(line.substr(begin, i - begin));
            begin = i + 1;
            if (isBlank && field.empty()) continue;
            if (field.size() > 1 && field.front() == '"' && field.back() == '"')
                field = Trimmed(field.substr(1, field.size() - 2));
            fields.push_back(field);
        }
    }
    if (layout.columnCount > 0 && fields.size() == layout.columnCount + 1 && fields.back().empty())
        fields.pop_back();
}

void CheckDecimalMark(const TextLines& lines, const TableLayout& layout, ReadOptions options) {
    if (layout.doubtful.empty()) return;
    options.decimalMark = ',';
    throw OpenQuestion(
        lines.Name() + ": " +
            Filled(Translate("Files",
                             "the comma of %1 may be a decimal mark or part thousands; --decimal comma "
                             "or --decimal point says it"),
                   Quoted(layout.doubtful)),
        {{Translate("Files", "Commas are decimal marks"), lines.Name(), options}});
}

TableLayout LayoutOf(TextLines lines, const ReadOptions& options) {
    const std::vector<std::string_view> sample = Sample(lines);
    if (sample.empty()) return {};
    const bool hasSemicolons = HaveAll(sample, ';');
    for (const char separator : {';', '\t', ',', ' '})
        for (const char mark : {'.', ','}) {
            if (options.decimalMark != 0 && mark != options.decimalMark) continue;
            if (separator == mark || (hasSemicolons && separator != ';')) continue;
            if (separator != ' ' && !HaveAll(sample, separator)) continue;
            TableLayout layout = LayoutWith(sample, separator, mark);
            if (options.decimalMark != 0) layout.doubtful.clear();
            if (layout.fits) return layout;
        }
    const char separator = FieldSeparator(sample[0]);
    const bool usesBlanks = separator == '\t' && !sample[0].empty() && sample[0][0] != '\t';
    return LayoutWith(sample, usesBlanks ? ' ' : separator, options.decimalMark == ',' ? ',' : '.');
}

std::array<std::size_t, 3> PointColumns(const TextLines& lines, const TableLayout& layout,
                                        const ReadOptions& options) {
    std::array<std::size_t, 3> columns = {0, 1, 2};
    if (options.columns.size() == 3) {
        for (std::size_t i = 0; i < 3; ++i) {
            const auto column = ColumnNamed(layout, options.columns[i]);
            if (!column)
                throw Failure(lines.Name() + ": " +
                              Filled(Translate("Files", "there is no column %1; its columns are %2"),
                                     Quoted(options.columns[i]), ListOfColumns(layout)));
            columns[i] = *column;
        }
        return columns;
    }
    if (const auto called = ColumnsCalledSo(layout)) return *called;
    const bool isOpen = layout.names.empty() && layout.numbers.size() > 3 && !options.method;
    if (layout.fits && layout.numbers.size() >= 3 && !isOpen) {
        std::copy_n(layout.numbers.begin(), 3, columns.begin());
    } else if (layout.columnCount != 3) {
        const int found = static_cast<int>(layout.columnCount);
        lines.FailAt(lines.Number(),
                     isOpen ? Translate("Files",
                                        "expected x, y and z, found %n value(s); --columns says which of "
                                        "them these are",
                                        nullptr, found)
                            : Translate("Files", "expected x, y and z, found %n value(s)", nullptr, found));
    }
    return columns;
}

std::string Utf8(std::string_view text) {
    std::string converted;
    int following = 0; // bytes of the present character that are still to come
    bool isUtf8 = true;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (following > 0 && (byte & 0xC0U) != 0x80U) isUtf8 = false;
        following = following > 0         ? following - 1
                    : byte < 0x80U        ? 0
                    : (byte >> 5U) == 6U  ? 1
                    : (byte >> 4U) == 14U ? 2
                    : (byte >> 3U) == 30U ? 3
                                          : (isUtf8 = false, 0);
        if (byte >= 0x80U) converted += static_cast<char>(0xC0U | byte >> 6U);
        converted += static_cast<char>(byte >= 0x80U ? 0x80U | (byte & 0x3FU) : byte);
    }
    return isUtf8 && following == 0 ? std::string(text) : converted;
}

} // namespace KivoViewer
