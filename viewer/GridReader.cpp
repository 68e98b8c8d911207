#include "GridReader.h"

#include "Failure.h"
#include "GridFormats.h"
#include "Numbers.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace KivoViewer {

namespace {

enum class Format { asciiGrid, xyz, matrix };

constexpr std::size_t maxFileSize = std::size_t{1} << 30;

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

std::string ReadText(const std::string& path) {
    const auto close = [](std::FILE* file) { std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(path.c_str(), "rb"), close);
    if (!file) throw Failure(path + ": cannot open it: " + std::strerror(errno));
    std::string text;
    std::vector<char> block(std::size_t{1} << 16);
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        text.append(block.data(), count);
        if (text.size() > maxFileSize) throw Failure(path + ": larger than 1 GiB");
    }
    if (std::ferror(file.get())) throw Failure(path + ": cannot read it: " + std::strerror(errno));
    return text;
}

} // namespace

GridData ReadGrid(std::string_view text, const std::string& name) {
    TextLines lines(text, name);
    switch (DetectFormat(lines)) {
    case Format::asciiGrid:
        return ReadAsciiGrid(lines);
    case Format::xyz:
        return ReadXyz(lines);
    default:
        return ReadMatrix(lines);
    }
}

GridData ReadGridFile(const std::string& path) {
    return ReadGrid(ReadText(path), path);
}

} // namespace KivoViewer
