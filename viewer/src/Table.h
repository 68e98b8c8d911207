// How the text of a table is read: found from its first lines, as a record that can be told and changed.
#pragma once

#include "ReadOptions.h"
#include "TextLines.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// What the first lines of a table say about all of them.
struct TableLayout {
    char separator = ' ';             ///< of fields; a space stands for any number of spaces and tabs
    char decimalMark = '.';           ///< or a comma
    std::size_t columnCount = 0;      ///< in the first line
    std::size_t lineCount = 0;        ///< of those that were looked at, without names
    std::vector<std::string> names;   ///< of the columns, in UTF-8, or none
    std::vector<std::size_t> numbers; ///< columns of numbers, some of which may be missing
    std::optional<std::size_t> label; ///< first column of words
    bool fits = false;                ///< whether each line has the same columns
    bool hasCorner = false;           ///< the first line has a number for each column but the first
    std::string doubtful;             ///< a number whose comma may part thousands as well, or empty
    std::vector<std::vector<double>>
        firstLines; ///< numbers of the first columns; missing ones are not numbers
};

/// Looks at the first lines. What the options say counts more.
TableLayout LayoutOf(TextLines lines, const ReadOptions& options);

/// The columns of x, y and z: those that the options name, or those named so, or the first three with
/// numbers. Throws a Failure where there are none, and where four and more without names leave it open.
std::array<std::size_t, 3> PointColumns(const TextLines& lines, const TableLayout& layout,
                                        const ReadOptions& options);

/// Cuts a line into its fields, without the quotation marks around them.
void SplitRow(std::string_view line, const TableLayout& layout, std::vector<std::string_view>& fields);

/// Throws an OpenQuestion where a number of the first lines may be meant in two ways.
/// @param options  the others of what the user says
void CheckDecimalMark(const TextLines& lines, const TableLayout& layout, ReadOptions options);

/// A field's number; nothing for any other text.
std::optional<double> TableNumber(std::string_view field, const TableLayout& layout);
/// A field's number; fails for anything else, infinities and numbers beyond single precision included.
double TableNumberIn(const TextLines& lines, std::string_view field, const TableLayout& layout);
/// The same for a value: what is missing, empty or infinite is a hole.
double TableValueIn(const TextLines& lines, std::string_view field, const TableLayout& layout);

/// Whether a field stands for a value that is missing: empty, NA, null and the like.
bool IsMissing(std::string_view field);

/// Text in UTF-8. What is not is taken for Latin-1.
std::string Utf8(std::string_view text);

} // namespace KivoViewer
