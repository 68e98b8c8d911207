#include "GridReader.h"

#include "Failure.h"
#include "FileText.h"
#include "GdalReader.h"
#include "GridFormats.h"
#include "Numbers.h"

#include <filesystem>
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

} // namespace

GridData ReadGrid(std::string_view text, const std::string& name, const Progress& progress) {
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

GridData ReadGridFile(const std::string& path, const Progress& progress) {
    std::error_code error; // of a pipe the start is not there a second time
    if (std::filesystem::is_regular_file(path, error) && IsForeign(ReadFileStart(path, startSize)))
        if (auto grid = ReadWithGdal(path, progress)) return std::move(*grid);
    const auto half = [&](double from) -> Progress {
        return [&progress, from](double share) { return !progress || progress(from + share / 2.0); };
    };
    return ReadGrid(ReadFileText(path, half(0.0)), path, half(0.5));
}

} // namespace KivoViewer
