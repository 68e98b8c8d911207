#include "GridReader.h"

#include "Failure.h"
#include "FileText.h"
#include "GdalReader.h"
#include "GridFormats.h"
#include "Numbers.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>
#include <vector>

namespace KivoViewer {

namespace {

constexpr std::size_t startSize = 4096; // what tells the formats apart

enum class Format { asciiGrid, xyz, matrix };

bool EndsInCsv(const std::string& name) {
    if (name.size() < 4) return false;
    const std::string ending = name.substr(name.size() - 4);
    return ending == ".csv" || ending == ".CSV";
}

// Whether two points can be neighbours of a grid in grid order: one of x and y stays.
bool AreNeighbours(const std::vector<std::string_view>& a, const std::vector<std::string_view>& b) {
    return b.size() == 3 &&
           (ParseNumber(a[0]) == ParseNumber(b[0])) != (ParseNumber(a[1]) == ParseNumber(b[1]));
}

// Whether a file begins like none of our formats: binary, or with a word that is no header of a grid.
bool IsForeign(std::string_view start) {
    if (IsSurferGrid(start)) return false;
    if (start.find('\0') != std::string_view::npos) return true;
    TextLines lines(start, "");
    if (!lines.Next() || IsAsciiGridHeader(lines.Line())) return false;
    std::vector<std::string_view> fields;
    SplitPoint(lines.Line(), fields);
    if (AreColumnNames(fields) && lines.Next()) SplitPoint(lines.Line(), fields);
    return !fields[0].empty() && !ParseNumber(fields[0]);
}

Format DetectFormat(TextLines lines) {
    if (!lines.Next()) throw Failure(lines.Name() + ": no data");
    if (IsAsciiGridHeader(lines.Line())) return Format::asciiGrid;
    std::vector<std::string_view> first;
    SplitPoint(lines.Line(), first);
    if (first.size() != 3 || first[0].empty()) return Format::matrix;
    if (AreColumnNames(first) || !EndsInCsv(lines.Name()) || !lines.Next()) return Format::xyz;
    std::vector<std::string_view> second;
    SplitPoint(lines.Line(), second);
    return AreNeighbours(first, second) ? Format::xyz : Format::matrix;
}

// Of a pipe the start is not there a second time. What is no file may be a name that GDAL gives to a part of
// one.
bool IsForGdal(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) return path.find(':') != std::string::npos;
    return std::filesystem::is_regular_file(status) && IsForeign(ReadFileStart(path, startSize));
}

GridData ReadWhole(std::string_view text, const std::string& name, const Progress& progress) {
    if (IsSurferGrid(text)) return ReadSurferGrid(text, name, progress);
    TextLines lines(text, name, progress);
    switch (DetectFormat(TextLines(text, name))) {
    case Format::asciiGrid:
        return ReadAsciiGrid(lines);
    case Format::xyz:
        return ReadXyz(lines);
    default:
        return ReadMatrix(lines);
    }
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

GridData ReadGrid(std::string_view text, const std::string& name, const Progress& progress,
                  const ReadOptions& options) {
    GridData grid = ReadWhole(text, name, progress);
    return options.region ? PartOf(grid, *options.region, name) : grid;
}

GridData ReadGridFile(const std::string& path, const Progress& progress, const ReadOptions& options) {
    if (IsForGdal(path))
        if (auto grid = ReadWithGdal(path, options, progress)) return std::move(*grid);
    const auto half = [&](double from) -> Progress {
        return [&progress, from](double share) { return !progress || progress(from + share / 2.0); };
    };
    return ReadGrid(ReadFileText(path, half(0.0)), path, half(0.5), options);
}

} // namespace KivoViewer
