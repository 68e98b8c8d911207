#include "ValueBlock.h"

#include "Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <future>
#include <limits>
#include <system_error>
#include <thread>

namespace KivoViewer {

namespace {

using Values = std::optional<std::vector<double>>;

constexpr std::size_t pieceSize = std::size_t{1} << 20;
constexpr unsigned int mostThreads = 8;
constexpr auto eitherWay = std::launch::async | std::launch::deferred; // where there are no more threads

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

const char* SkipBlanks(const char* place, const char* end) {
    while (place != end && IsBlank(*place))
        ++place;
    return place;
}

// What of a piece's numbers is the same for all.
struct RowPattern {
    std::size_t columns;
    double noData;
    bool isMarkRounded; // the mark compares in single precision, too

    bool IsHole(double number) const {
        return number == noData || !std::isfinite(number) ||
               (isMarkRounded && FitsSinglePrecision(number) &&
                static_cast<float>(number) == static_cast<float>(noData));
    }
};

// Takes the numbers of a line. @return what follows them, or null where there is anything else
const char* TakeRow(const char* place, const char* end, const RowPattern& row, std::vector<double>& values) {
    for (std::size_t column = 0; column < row.columns; ++column) {
        place = SkipBlanks(place, end);
        double number = 0.0;
        const auto [stop, error] = std::from_chars(place, end, number);
        if (error != std::errc() || (stop != end && !IsBlank(*stop) && *stop != '\n')) return nullptr;
        const bool isHole = row.IsHole(number);
        if (!isHole && !FitsSinglePrecision(number)) return nullptr;
        values.push_back(isHole ? std::numeric_limits<double>::quiet_NaN() : number);
        place = stop;
    }
    place = SkipBlanks(place, end);
    if (place == end) return place;
    return *place == '\n' ? place + 1 : nullptr;
}

Values ReadPiece(std::string_view text, const RowPattern& row) {
    std::vector<double> values;
    const char* place = text.data();
    const char* const end = place + text.size();
    while (place && place != end)
        place = TakeRow(place, end, row, values);
    if (!place) return std::nullopt;
    return values;
}

// The lines that begin in the first part of a text; they are taken from it.
std::string_view TakePiece(std::string_view& text) {
    const std::size_t lineEnd = text.find('\n', std::min(pieceSize, text.size()));
    const std::size_t size = lineEnd == std::string_view::npos ? text.size() : lineEnd + 1;
    const std::string_view piece = text.substr(0, size);
    text.remove_prefix(size);
    return piece;
}

} // namespace

Values ReadValueBlock(std::string_view text, std::size_t columns, std::size_t rows, double noData,
                      const Progress& progress) {
    const unsigned int threads = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
    const RowPattern row = {columns, noData, FitsSinglePrecision(noData)};
    const auto size = static_cast<double>(text.size());
    while (!text.empty() && (IsBlank(text.back()) || text.back() == '\n'))
        text.remove_suffix(1);
    std::vector<double> values;
    while (!text.empty()) {
        std::vector<std::future<Values>> pieces;
        while (pieces.size() < threads && !text.empty())
            pieces.push_back(std::async(eitherWay, ReadPiece, TakePiece(text), row));
        for (std::future<Values>& piece : pieces) {
            const Values part = piece.get();
            if (!part || values.size() + part->size() > columns * rows) return std::nullopt;
            values.insert(values.end(), part->begin(), part->end());
        }
        Report(progress, 1.0 - static_cast<double>(text.size()) / size);
    }
    if (values.size() != columns * rows) return std::nullopt;
    return values;
}

} // namespace KivoViewer
