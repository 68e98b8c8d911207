#include "ValueBlock.h"

#include "Numbers.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <chrono>
#include <cmath>
#include <future>
#include <limits>
#include <system_error>
#include <thread>
#include <utility>

namespace KivoViewer {

namespace {

constexpr unsigned int mostThreads = 8;
constexpr auto eitherWay = std::launch::async | std::launch::deferred; // where there are no more threads
constexpr std::chrono::milliseconds betweenReports(20);

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

const char* SkipBlanks(const char* place, const char* end) {
    while (place != end && IsBlank(*place))
        ++place;
    return place;
}

// What is to be known of a number.
class Marks {
public:
    explicit Marks(double noData) : m_noData(noData), m_isRounded(FitsSinglePrecision(noData)) {}

    bool IsHole(double number) const {
        return number == m_noData || !std::isfinite(number) ||
               (m_isRounded && FitsSinglePrecision(number) &&
                static_cast<float>(number) == static_cast<float>(m_noData));
    }

private:
    double m_noData;
    bool m_isRounded; // the mark compares in single precision, too
};

// Some lines of the block.
struct Piece {
    std::string_view text;
    std::size_t firstRow;
};

// The lines that begin in the first part of a text; they are taken from it.
std::string_view TakePiece(std::string_view& text, std::size_t pieceSize) {
    const std::size_t lineEnd = text.find('\n', std::min(pieceSize, text.size()));
    const std::size_t size = lineEnd == std::string_view::npos ? text.size() : lineEnd + 1;
    const std::string_view piece = text.substr(0, size);
    text.remove_prefix(size);
    return piece;
}

std::size_t LineEnds(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n', end + 1))
        ++count;
    return count;
}

// @return none where the text has another number of lines than rows
std::vector<Piece> PiecesOf(const ValueBlock& block, std::size_t pieceSize) {
    std::string_view text = block.text;
    while (!text.empty() && (IsBlank(text.back()) || text.back() == '\n'))
        text.remove_suffix(1);
    std::vector<Piece> pieces;
    std::size_t row = 0;
    while (!text.empty()) {
        pieces.push_back({TakePiece(text, pieceSize), row});
        row += LineEnds(pieces.back().text);
    }
    if (row + 1 != block.rows) pieces.clear(); // the last line has no end
    return pieces;
}

// Reads pieces on several threads, each of which takes the next one.
class PieceReader {
public:
    PieceReader(const ValueBlock& block, const GridWindow& window, std::vector<Piece> pieces)
        : m_block(block), m_window(window), m_marks(block.noData), m_pieces(std::move(pieces)),
          m_values(window.Size()) {}

    void ReadPieces() noexcept {
        for (std::size_t i = m_next++; i < m_pieces.size() && !m_ends; i = m_next++) {
            if (!ReadPiece(m_pieces[i])) m_ends = true;
            ++m_done;
        }
    }

    // Waits for them, telling how far they are.
    void Await(std::vector<std::future<void>>& threads, const Progress& progress) {
        try {
            for (std::future<void>& thread : threads) {
                while (thread.wait_for(betweenReports) == std::future_status::timeout)
                    Report(progress, static_cast<double>(m_done) / static_cast<double>(m_pieces.size()));
                thread.get();
            }
            Report(progress, 1.0);
        } catch (...) {
            m_ends = true;
            throw;
        }
    }

    std::optional<std::vector<double>> TakeValues() {
        if (m_ends) return std::nullopt;
        return std::move(m_values);
    }

private:
    bool ReadPiece(const Piece& piece) {
        const char* place = piece.text.data();
        const char* const end = place + piece.text.size();
        for (std::size_t row = piece.firstRow; place && place != end; ++row) {
            const std::size_t index = m_window.rows.Find(row);
            place = index < m_window.rows.Size()
                        ? TakeRow(place, end, m_values.data() + index * m_window.columns.Size())
                        : SkipRow(place, end);
        }
        return place != nullptr;
    }

    // A line that is empty, or a comment, is no row.
    static const char* SkipRow(const char* place, const char* end) {
        const char* const content = SkipBlanks(place, end);
        if (content == end || *content == '\n' || *content == '#') return nullptr;
        const char* const lineEnd = std::find(content, end, '\n');
        return lineEnd == end ? end : lineEnd + 1;
    }

    // Takes the numbers of a line. @return what follows them, or null where there is anything else
    const char* TakeRow(const char* place, const char* end, double* values) {
        const GridSpan& wanted = m_window.columns;
        std::size_t taken = 0;
        for (std::size_t column = 0; column < m_block.columns; ++column) {
            place = SkipBlanks(place, end);
            double number = 0.0;
            const auto [stop, error] = std::from_chars(place, end, number);
            if (error != std::errc() || (stop != end && !IsBlank(*stop) && *stop != '\n')) return nullptr;
            const bool isHole = m_marks.IsHole(number);
            if (!isHole && !FitsSinglePrecision(number)) return nullptr;
            place = stop;
            if (taken == wanted.Size() || column != wanted.At(taken)) continue;
            values[taken++] = isHole ? std::numeric_limits<double>::quiet_NaN() : number;
        }
        place = SkipBlanks(place, end);
        if (place == end) return place;
        return *place == '\n' ? place + 1 : nullptr;
    }

    const ValueBlock& m_block;
    const GridWindow& m_window;
    const Marks m_marks;
    const std::vector<Piece> m_pieces;
    std::vector<double> m_values;
    std::atomic<std::size_t> m_next{0};
    std::atomic<std::size_t> m_done{0};
    std::atomic<bool> m_ends{false}; // before the last piece
};

} // namespace

std::optional<std::vector<double>> ReadValueBlock(const ValueBlock& block, const GridWindow& window,
                                                  const Progress& progress, std::size_t pieceSize) {
    std::vector<Piece> pieces = PiecesOf(block, pieceSize);
    const std::size_t mostValues = block.text.size() / 2 + 1; // each with what parts it from the next
    if (pieces.empty() || block.columns * block.rows > mostValues) return std::nullopt;
    const std::size_t cores = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
    const std::size_t count = std::min(cores, pieces.size());
    PieceReader reading(block, window, std::move(pieces));
    std::vector<std::future<void>> threads; // joined before what they read into is gone
    for (std::size_t i = 0; i < count; ++i)
        threads.push_back(
            std::async(count > 1 ? eitherWay : std::launch::deferred, [&reading] { reading.ReadPieces(); }));
    reading.Await(threads, progress);
    return reading.TakeValues();
}

} // namespace KivoViewer
