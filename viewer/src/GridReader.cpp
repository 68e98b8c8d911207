#include "GridReader.h"

#include "Failure.h"
#include "FileText.h"
#include "GdalReader.h"
#include "GridFormats.h"
#include "Language.h"
#include "Numbers.h"
#include "PointGrid.h"
#include "PointTable.h"
#include "Table.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace KivoViewer {

namespace {

constexpr std::size_t startSize = 4096; // what tells the formats apart

bool EndsInCsv(const std::string& name) {
    if (name.size() < 4) return false;
    const std::string ending = name.substr(name.size() - 4);
    return ending == ".csv" || ending == ".CSV";
}

// Whether a file begins like none of our formats: binary, or without a line of numbers.
bool IsForeign(std::string_view start) {
    if (IsSurferGrid(start)) return false;
    if (start.find('\0') != std::string_view::npos) return true;
    if (start.size() == startSize) start = start.substr(0, start.find_last_of('\n')); // whole lines
    TextLines lines(start, "");
    const TableLayout layout = LayoutOf(lines, {});
    if (!lines.Next() || IsAsciiGridHeader(lines.Line()) || layout.fits || layout.hasCorner) return false;
    std::vector<std::string_view> fields;
    SplitRow(lines.Line(), layout, fields);
    if (!layout.names.empty() && lines.Next()) SplitRow(lines.Line(), layout, fields);
    return !fields[0].empty() && !TableNumber(fields[0], layout);
}

// Whether two points can be neighbours of a grid in grid order: one of x and y stays.
bool AreNeighbours(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() >= 3 && b.size() >= 3 && (a[0] == b[0]) != (a[1] == b[1]);
}

// Whether the first lines begin with a row of a grid's points: one coordinate stays, the other rises or
// falls.
bool BeginsWithRow(const std::vector<std::vector<double>>& rows) {
    constexpr std::size_t fewest = 3;
    for (const std::size_t fast : {0U, 1U}) {
        std::size_t length = 1;
        while (length < rows.size() && rows[length][1 - fast] == rows[0][1 - fast] &&
               (rows[length][fast] > rows[length - 1][fast]) == (rows[1][fast] > rows[0][fast]) &&
               rows[length][fast] != rows[length - 1][fast])
            ++length;
        if (length >= fewest) return true;
    }
    return false;
}

[[noreturn]] void AskWhatColumnsAre(const std::string& name, const TableLayout& layout, ReadOptions options) {
    options.columns = {"1", "2", "3"};
    const Reading points = {Translate("Files", "Points: x, y and z are the first three columns"), name,
                            options};
    options.columns = {"all"};
    const Reading matrix = {Translate("Files", "A matrix of values"), name, options};
    throw OpenQuestion(
        name + ": " +
            Filled(Translate("Files",
                             "%1 numbers in each line are points, or a matrix of values; --columns 1,2,3 "
                             "or --columns all says it"),
                   layout.columnCount),
        {points, matrix});
}

// Larger files than we take into memory GDAL reads row by row, where it knows the format.
bool IsTooLarge(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return !error && size > maxFileSize;
}

// Of a pipe the start is not there a second time. What is no file may be a name that GDAL gives to a part of
// one.
bool IsForGdal(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) return path.find(':') != std::string::npos;
    return std::filesystem::is_regular_file(status) &&
           (IsTooLarge(path) || IsForeign(ReadFileStart(path, startSize)));
}

// Too many points to be kept: of a grid in order some rows and columns.
std::optional<GridData> ReadLargePointGrid(const TextLines& start, const ReadOptions& options,
                                           PointTable& table, PointChoice choice) {
    choice.width = RowLength(table);
    if (choice.width == 0 || table.total % choice.width != 0) return std::nullopt;
    choice.window =
        WindowOf(table.file, {0, choice.width}, {0, table.total / choice.width}, options.mostPoints);
    TextLines lines = start;
    table = ReadPointTable(lines, options, true, options.mostPoints, choice);
    std::optional<GridData> grid = OrderedGrid(table);
    if (grid) grid->note = choice.window->Note();
    return grid;
}

GridData ReadPointGrid(TextLines& lines, const ReadOptions& options, const Progress& progress) {
    const TextLines start = lines;
    PointChoice choice;
    PointTable table = ReadPointTable(lines, options, true, options.mostPoints);
    if (table.total > table.Count() && options.region) {
        choice.region = options.region;
        lines = start;
        table = ReadPointTable(lines, options, true, options.mostPoints, choice);
        if (table.Count() == 0) CheckRegion(table.file, 0, 0);
    }
    std::optional<GridData> grid;
    if (table.total > table.Count()) {
        const std::size_t lineBeyond = table.lineBeyond;
        if (!options.method) grid = ReadLargePointGrid(start, options, table, choice);
        if (!grid) lines.FailAt(lineBeyond, TooManyPoints(options.mostPoints));
    }
    if (!grid && !options.method) grid = FindGrid(table);
    if (!grid) grid = GridScattered(table, options, progress);
    if (!table.titles[0].empty()) std::copy(table.titles.begin(), table.titles.end(), grid->axisTitles);
    if (!table.note.empty()) grid->note = table.note + (grid->note.empty() ? "" : "; ") + grid->note;
    return std::move(*grid);
}

GridData ReadWhole(std::string_view text, const std::string& name, const Progress& progress,
                   const ReadOptions& options) {
    if (IsSurferGrid(text)) return ReadSurferGrid(text, name, progress, options);
    TextLines lines(text, name, progress);
    TextLines first(text, name);
    if (!first.Next()) throw Failure(name + ": " + Translate("Files", "no data"));
    if (IsAsciiGridHeader(first.Line())) return ReadAsciiGrid(lines, options);
    const TableLayout layout = LayoutOf(TextLines(text, name), options);
    return HoldsPoints(name, layout, options) ? ReadPointGrid(lines, options, progress)
                                              : ReadMatrix(lines, layout, options);
}

// The indices of the coordinates in a range, as first and behind the last.
std::pair<std::size_t, std::size_t> Within(const std::vector<float>& coordinates, double origin, double from,
                                           double to) {
    std::pair<std::size_t, std::size_t> indices;
    while (indices.first < coordinates.size() && AbsoluteNumber(origin, coordinates[indices.first]) < from)
        ++indices.first;
    indices.second = indices.first;
    while (indices.second < coordinates.size() && AbsoluteNumber(origin, coordinates[indices.second]) <= to)
        ++indices.second;
    return indices;
}

GridData PartOf(const GridData& grid, const Region& region, const std::string& name) {
    const auto [x0, x1] = Within(grid.x, grid.origin[0], region.x0, region.x1);
    const auto [y0, y1] = Within(grid.y, grid.origin[1], region.y0, region.y1);
    CheckRegion(name, x1 - x0, y1 - y0);
    const auto absolute = [&grid](const std::vector<float>& differences, int axis, std::size_t from,
                                  std::size_t to) {
        std::vector<double> numbers;
        for (std::size_t i = from; i < to; ++i)
            numbers.push_back(AbsoluteNumber(grid.origin[axis], differences[i]));
        return numbers;
    };
    std::vector<double> z;
    for (std::size_t row = y0; row < y1; ++row) {
        const std::vector<double> values =
            absolute(grid.z, 2, row * grid.ColumnCount() + x0, row * grid.ColumnCount() + x1);
        z.insert(z.end(), values.begin(), values.end());
    }
    GridData part = MakeGrid(name, absolute(grid.x, 0, x0, x1), absolute(grid.y, 1, y0, y1), z);
    std::copy(std::begin(grid.axisTitles), std::end(grid.axisTitles), part.axisTitles);
    part.note = grid.note;
    return part;
}

} // namespace

// Without names both look alike: few columns of many lines, or of a row of a grid, are not taken for either.
bool HoldsPoints(const std::string& name, const TableLayout& layout, const ReadOptions& options) {
    constexpr std::size_t mostColumns = 6, fewLines = 10, manyLines = 20;
    if (options.IsMatrix()) return false;
    if (!options.columns.empty() || options.method) return true;
    if (layout.hasCorner || layout.columnCount < 3) return false;
    if (!layout.names.empty() || (layout.fits && layout.label)) return true;
    const auto& rows = layout.firstLines;
    if (layout.columnCount == 3)
        return !EndsInCsv(name) || rows.size() >= fewLines || rows.size() < 2 ||
               AreNeighbours(rows[0], rows[1]);
    if (layout.columnCount <= mostColumns && layout.fits && (rows.size() >= manyLines || BeginsWithRow(rows)))
        AskWhatColumnsAre(name, layout, options);
    return false;
}

GridData ReadGrid(std::string_view text, const std::string& name, const Progress& progress,
                  const ReadOptions& options) {
    GridData grid = ReadWhole(text, name, progress, options);
    return options.region ? PartOf(grid, *options.region, name) : grid;
}

GridData ReadGridFile(const std::string& path, const Progress& progress, const ReadOptions& options) {
    if (IsForGdal(path))
        if (auto grid = ReadWithGdal(path, options, progress)) return std::move(*grid);
    const auto half = [&](double from) -> Progress {
        return [&progress, from](double share) { return !progress || progress(from + share / 2.0); };
    };
    const std::string name = path == standardInput ? "standard input" : path;
    return ReadGrid(ReadFileText(path, half(0.0)), name, half(0.5), options);
}

} // namespace KivoViewer
