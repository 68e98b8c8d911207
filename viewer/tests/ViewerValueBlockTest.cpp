// Blocks of numbers: in whatever pieces they are read, the values are the same.
#include "Numbers.h"
#include "ValueBlock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <thread>
#include <vector>

using namespace KivoViewer;

namespace {

constexpr std::size_t columns = 7, rows = 41;
constexpr double mark = -9999.0;
constexpr std::size_t pieceSizes[] = {1, 2, 3, 5, 8, 13, 40, 41, 100, 1000, 1 << 20};

// Numbers of all lengths; one of eleven is missing.
double Value(std::size_t column, std::size_t row) {
    const double number = static_cast<double>(row * columns + column);
    return std::fmod(number, 11.0) == 4.0 ? mark : number * number / 8.0 - 100.0;
}

std::string Text(const std::string& blank, const std::string& lineEnd) {
    std::string text;
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < columns; ++column)
            text += FormatNumber(Value(column, row)) + (column + 1 < columns ? blank : lineEnd);
    return text;
}

GridWindow Whole() {
    return {{0, columns}, {0, rows}};
}

std::optional<std::vector<double>> Read(const std::string& text, std::size_t pieceSize,
                                        const GridWindow& window = Whole()) {
    return ReadValueBlock({text, columns, rows, mark}, window, {}, pieceSize);
}

void ExpectValues(const std::string& text, const GridWindow& window) {
    for (const std::size_t pieceSize : pieceSizes) {
        const auto values = Read(text, pieceSize, window);
        ASSERT_TRUE(values) << pieceSize;
        ASSERT_EQ(values->size(), window.Size());
        for (std::size_t i = 0; i < values->size(); ++i) {
            const double expected = Value(window.columns.At(i % window.columns.Size()),
                                          window.rows.At(i / window.columns.Size()));
            if (expected == mark)
                EXPECT_TRUE(std::isnan((*values)[i])) << pieceSize;
            else
                EXPECT_EQ((*values)[i], expected) << pieceSize;
        }
    }
}

TEST(ViewerValueBlockTest, IsTheSameInAnyPieces) {
    for (const GridWindow& window :
         {Whole(), GridWindow{{0, columns, 3}, {0, rows, 3}}, GridWindow{{2, 4}, {40, 1}}}) {
        ExpectValues(Text(" ", "\n"), window);
        ExpectValues(" " + Text("\t ", " \r\n"), window);
        ExpectValues(Text(" ", "\n") + " \n\r\n\n", window);
        const std::string text = Text(" ", "\n");
        ExpectValues(text.substr(0, text.size() - 1), window);
    }
}

// Whoever reads it line by line says what is wrong.
TEST(ViewerValueBlockTest, IsNoneWhereAnythingIsUnusual) {
    const std::string text = Text(" ", "\n");
    const std::size_t second = text.find('\n') + 1, late = text.rfind('\n', text.size() - 60) + 1;
    const auto with = [&text](std::size_t place, std::size_t length, const std::string& other) {
        std::string changed = text;
        return changed.replace(place, length, other);
    };
    const std::string unusual[] = {"",
                                   "\n",
                                   with(second, 1, "x"),
                                   with(late, 0, "1e39 "),
                                   with(late, 0, "1 "),
                                   with(late, text.find(' ', late) + 1 - late, ""),
                                   with(late, 0, "\n"),
                                   with(late, 0, " \r\n"),
                                   with(second, 0, "# comment\n"),
                                   with(text.size(), 0, "1 2 3 4 5 6 7\n"),
                                   text.substr(0, late),
                                   with(late - 1, 1, " "),
                                   with(text.find(' ', late), 1, "\n"),
                                   with(text.find(' ', late), 1, "\0")};
    for (const std::string& other : unusual)
        for (const std::size_t pieceSize : pieceSizes)
            EXPECT_FALSE(Read(other, pieceSize)) << pieceSize << ": " << other;
}

// Lines that are not wanted are passed over, but they are lines of values.
TEST(ViewerValueBlockTest, CountsTheLinesThatItPassesOver) {
    const GridWindow window = {{0, columns, 3}, {0, rows, 3}};
    const std::string text = Text(" ", "\n");
    for (const char* const line : {"\n", " \r\n", "# 1 2 3 4 5 6 7\n"}) {
        const std::size_t end = text.rfind('\n', text.size() - 2);
        EXPECT_FALSE(Read(line + text.substr(0, end + 1), 100, window)) << "the last one is missing instead";
    }
}

TEST(ViewerValueBlockTest, TellsItsProgressOnTheThreadThatCalls) {
    const std::string text = Text(" ", "\n");
    const auto caller = std::this_thread::get_id();
    for (const std::size_t pieceSize : pieceSizes) {
        double last = 0.0;
        const auto tell = [&](double share) {
            EXPECT_EQ(std::this_thread::get_id(), caller);
            EXPECT_GE(share, last);
            last = share;
            return true;
        };
        ReadValueBlock({text, columns, rows, mark}, Whole(), tell, pieceSize);
        EXPECT_EQ(last, 1.0);
        EXPECT_THROW(ReadValueBlock(
                         {text, columns, rows, mark}, Whole(), [](double) { return false; }, pieceSize),
                     Cancelled);
    }
}

// A header can promise what no memory holds.
TEST(ViewerValueBlockTest, TakesNoMemoryForWhatIsNotThere) {
    const std::string text = "1\n2\n3\n";
    constexpr std::size_t many = std::size_t{1} << 40U;
    EXPECT_FALSE(ReadValueBlock({text, many, 3, mark}, {{0, many}, {0, 3}}, {}));
}

} // namespace
