#include "Preview.h"

#include "Failure.h"
#include "FileText.h"
#include "GridFormats.h"
#include "Language.h"
#include "Table.h"
#include "TextLines.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace KivoViewer {

namespace {

constexpr std::size_t previewSize = 65536; // bytes
constexpr std::size_t mostRows = 30;
constexpr std::size_t mostColumns = 30;
constexpr std::size_t longestField = 60; // bytes

// Cut between characters.
std::string Shown(std::string_view field) {
    std::string text = Utf8(field);
    if (text.size() <= longestField) return text;
    std::size_t end = longestField;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    return text.substr(0, end);
}

void KeepLines(TextLines lines, Preview& preview) {
    while (preview.rows.size() < mostRows && lines.Next())
        preview.rows.push_back({Shown(lines.Line())});
}

void KeepFields(TextLines lines, const TableLayout& layout, Preview& preview) {
    std::vector<std::string_view> fields;
    if (!layout.names.empty()) lines.Next();
    while (preview.rows.size() < mostRows && lines.Next()) {
        SplitRow(lines.Line(), layout, fields);
        preview.rows.emplace_back();
        for (std::size_t i = 0; i < std::min(fields.size(), mostColumns); ++i)
            preview.rows.back().push_back(Shown(fields[i]));
    }
    preview.names = layout.names;
    for (std::size_t i = preview.names.size(); i < layout.columnCount; ++i)
        preview.names.push_back(std::to_string(i + 1));
}

std::string WordsOf(const TableLayout& layout, bool isMatrix) {
    const std::string separator = layout.separator == ';'    ? Translate("Preview", "semicolons")
                                  : layout.separator == ','  ? Translate("Preview", "commas")
                                  : layout.separator == '\t' ? Translate("Preview", "tabs")
                                                             : Translate("Preview", "blanks");
    const std::string marks = layout.decimalMark == ',' ? Translate("Preview", "decimal commas")
                                                        : Translate("Preview", "decimal points");
    if (isMatrix)
        return Filled(Translate("Preview", "A matrix of values: fields between %1, %2"), separator, marks);
    return layout.names.empty()
               ? Filled(Translate("Preview", "Points: fields between %1, %2"), separator, marks)
               : Filled(Translate("Preview", "Points: fields between %1, %2, names of columns first"),
                        separator, marks);
}

// What is refused, or open, is said as the reader says it.
void FindColumns(TextLines lines, const TableLayout& layout, const ReadOptions& options, bool isGrid,
                 Preview& preview) {
    try {
        lines.Next();
        CheckDecimalMark(lines, layout, options);
        if (!isGrid || HoldsPoints(lines.Name(), layout, options)) {
            const auto columns = PointColumns(lines, layout, options);
            for (std::size_t i = 0; i < columns.size(); ++i)
                preview.columns[i] = static_cast<int>(columns[i]);
            preview.words = WordsOf(layout, false);
        } else {
            preview.words = WordsOf(layout, true);
        }
    } catch (const Failure& failure) {
        preview.words = failure.what();
    }
}

bool IsPlainFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

} // namespace

Preview PreviewOf(const std::string& path, const ReadOptions& options, bool isGrid) {
    Preview preview;
    if (!IsPlainFile(path)) return preview;
    std::string start = ReadFileStart(path, previewSize);
    if (start.size() == previewSize) start.resize(start.find_last_of('\n') + 1); // whole lines
    const bool isText = start.find('\0') == std::string::npos;
    TextLines lines(start, path);
    TextLines first = lines;
    if (!isText || !first.Next()) {
        preview.words = Translate("Preview", "No text of whole lines");
    } else if (isGrid && (IsSurferGrid(start) || IsAsciiGridHeader(first.Line()))) {
        KeepLines(lines, preview);
        preview.words = Translate("Preview", "A grid whose header says how it is read");
    } else {
        const TableLayout layout = LayoutOf(lines, options);
        preview.isTable = true;
        KeepFields(lines, layout, preview);
        FindColumns(lines, layout, options, isGrid, preview);
    }
    return preview;
}

} // namespace KivoViewer
