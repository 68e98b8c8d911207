// Text grids of more points than can be shown: some rows and columns of them, or a part. The limit is low
// here.
#include "GridReader.h"
#include "GridWindow.h"
#include "Numbers.h"
#include "ViewerData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::ElementsAre;

namespace {

// A grid of 32 x 23 points from x = 1000.5 and y = 20 on, 2 and 3 apart.
constexpr int columns = 32, rows = 23;
constexpr std::size_t lowLimit = 400;

double X(int column) {
    return 1000.5 + 2.0 * column;
}

double Y(int row) {
    return 20.0 + 3.0 * row;
}

double Z(int column, int row) {
    return 100.0 * row + column + 0.25;
}

std::string Table(const std::function<std::string(int, int)>& field, int lineCount, int fieldCount) {
    std::string text;
    for (int line = 0; line < lineCount; ++line)
        for (int i = 0; i < fieldCount; ++i)
            text += field(line, i) + (i + 1 < fieldCount ? " " : "\n");
    return text;
}

std::string Values(bool fromNorth) {
    return Table([=](int line, int i) { return FormatNumber(Z(i, fromNorth ? rows - 1 - line : line)); },
                 rows, columns);
}

std::string AsciiGrid() {
    return "ncols 32\nnrows 23\nxllcenter 1000.5\nyllcorner 18.5\ndx 2\ndy 3\n" + Values(true);
}

std::string SurferText() {
    return "DSAA\n32 23\n1000.5 1062.5\n20 86\n0 1\n" + Values(false);
}

template <typename T>
void Append(std::string& bytes, T value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

std::string Surfer6() {
    std::string bytes = "DSBB";
    for (const int count : {columns, rows})
        Append(bytes, static_cast<std::uint16_t>(count));
    for (const double number : {1000.5, 1062.5, 20.0, 86.0, 0.0, 1.0})
        Append(bytes, number);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            Append(bytes, static_cast<float>(Z(c, r)));
    return bytes;
}

std::string Surfer7() {
    std::string bytes = "DSRB";
    for (const std::uint32_t number : {4U, 2U})
        Append(bytes, number);
    bytes += "GRID";
    for (const int number : {72, rows, columns})
        Append(bytes, static_cast<std::uint32_t>(number));
    for (const double number : {1000.5, 20.0, 2.0, 3.0, 0.0, 1.0, 0.0, 1e38})
        Append(bytes, number);
    bytes += "DATA";
    Append(bytes, static_cast<std::uint32_t>(rows * columns * 8));
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            Append(bytes, Z(c, r));
    return bytes;
}

std::string Point(int column, int row) {
    return FormatNumber(X(column)) + ' ' + FormatNumber(Y(row)) + ' ' + FormatNumber(Z(column, row));
}

std::string PointsAlongX() {
    return "x y z\n" + Table([](int i, int) { return Point(i % columns, i / columns); }, rows * columns, 1);
}

std::string PointsAlongY() {
    return Table([](int i, int) { return Point(i / rows, rows - 1 - i % rows); }, rows * columns, 1);
}

std::string Matrix() {
    std::string text = "y";
    for (int c = 0; c < columns; ++c)
        text += ' ' + FormatNumber(X(c));
    text += '\n';
    for (int r = rows - 1; r >= 0; --r) {
        text += FormatNumber(Y(r));
        for (int c = 0; c < columns; ++c)
            text += ' ' + FormatNumber(Z(c, r));
        text += '\n';
    }
    return text;
}

struct Format {
    const char* name;
    std::string text;
};

const std::vector<Format>& Formats() {
    static const std::vector<Format> formats = {
        {"ASCII grid", AsciiGrid()},
        {"ASCII grid that is read line by line", AsciiGrid() + "# end\n"},
        {"Surfer text", SurferText()},
        {"Surfer 6", Surfer6()},
        {"Surfer 7", Surfer7()},
        {"points along x", PointsAlongX()},
        {"points along y", PointsAlongY()},
        {"matrix", Matrix()},
    };
    return formats;
}

GridData Read(const std::string& text, std::size_t mostPoints, const std::optional<Region>& region = {}) {
    ReadOptions options;
    options.mostPoints = mostPoints;
    options.region = region;
    return ReadGrid(text, "large", {}, options);
}

// @param column0, row0  of the first point, from the lower left one on
void ExpectPart(const GridData& grid, int column0, int row0, int columnCount, int rowCount, int step) {
    ASSERT_EQ(grid.ColumnCount(), static_cast<std::size_t>(columnCount));
    ASSERT_EQ(grid.RowCount(), static_cast<std::size_t>(rowCount));
    for (int c = 0; c < columnCount; ++c)
        EXPECT_EQ(AbsoluteNumber(grid.origin[0], grid.x[static_cast<std::size_t>(c)]), X(column0 + c * step));
    for (int r = 0; r < rowCount; ++r) {
        EXPECT_EQ(AbsoluteNumber(grid.origin[1], grid.y[static_cast<std::size_t>(r)]), Y(row0 + r * step));
        for (int c = 0; c < columnCount; ++c)
            ASSERT_EQ(AbsoluteNumber(grid.origin[2], grid.z[static_cast<std::size_t>(r * columnCount + c)]),
                      Z(column0 + c * step, row0 + r * step));
    }
}

// Whole blocks of 3 x 3 are read by their middles; where they begin, each format says by its first row.
TEST(ViewerLargeGridTest, ReadsEveryThirdRowAndColumn) {
    for (const Format& format : Formats()) {
        SCOPED_TRACE(format.name);
        const GridData whole = Read(format.text, columns * rows);
        EXPECT_EQ(whole.note, "");
        ExpectPart(whole, 0, 0, columns, rows, 1);
        const GridData grid = Read(format.text, lowLimit);
        const std::string name = format.name;
        const bool isAlongY = name == "points along y";
        EXPECT_EQ(grid.note, isAlongY ? "every 3rd of 23 x 32 points" : "every 3rd of 32 x 23 points");
        const bool isFromNorth = name.find("ASCII") == 0 || name == "matrix" || isAlongY;
        ExpectPart(grid, 1, isFromNorth ? 3 : 1, 10, 7, 3);
    }
}

TEST(ViewerLargeGridTest, ReadsARegionInFullDetail) {
    for (const Format& format : Formats()) {
        SCOPED_TRACE(format.name);
        const GridData part = Read(format.text, lowLimit, Region{1004.5, 1015.9, 26, 44.5});
        EXPECT_EQ(part.note, "");
        ExpectPart(part, 2, 2, 6, 7, 1);
        EXPECT_EQ(MessageOf([&] {
                      Read(format.text, lowLimit, Region{1004.5, 1015.9, 27, 28});
                  }).substr(0, 5),
                  "large");
    }
}

TEST(ViewerLargeGridTest, ReadsALargeRegionReduced) {
    for (const Format& format : Formats()) {
        SCOPED_TRACE(format.name);
        const GridData part = Read(format.text, lowLimit, Region{1002, 1061, 22, 86});
        const bool isAlongY = std::string(format.name) == "points along y";
        EXPECT_EQ(part.note, isAlongY ? "every 3rd of 22 x 30 points" : "every 3rd of 30 x 22 points");
        EXPECT_EQ(part.ColumnCount(), 10U);
        EXPECT_EQ(part.RowCount(), 7U);
        EXPECT_EQ(AbsoluteNumber(part.origin[0], part.x[0]), X(2));
    }
}

TEST(ViewerLargeGridTest, TakesTheCentresUpToTheEndsOfARegion) {
    for (std::size_t last = 1; last < 400; ++last) {
        const double end = (static_cast<double>(last) + 0.5) / 10.0;
        EXPECT_EQ(CellsWithin(0.0, 0.1, 1000, 0.05, end).count, last + 1) << end;
        EXPECT_EQ(CellsWithin(0.0, 0.1, 1000, end, 99.95).first, last) << end;
    }
    EXPECT_EQ(CellsWithin(1.0, 0.0, 5, 1.0, 2.0).count, 0U);
    const double huge = std::numeric_limits<double>::infinity();
    EXPECT_EQ(CellsWithin(-huge, huge, 5, 1.0, 2.0).count, 0U);
}

TEST(ViewerLargeGridTest, RefusesWhatCannotBeReduced) {
    const std::string tooMany = "too many points; at most 400 can be shown";
    std::string shuffled = "x y z\n" + Point(3, 5) + '\n' + PointsAlongX().substr(6);
    EXPECT_EQ(MessageOf([&] { Read(shuffled, lowLimit); }), "large:402: " + tooMany);
    std::string thin;
    for (int i = 0; i < 300; ++i)
        thin += "1 2\n";
    EXPECT_EQ(MessageOf([&] { Read(thin, lowLimit); }), "large: " + tooMany);
    const std::string cut = PointsAlongX().substr(0, PointsAlongX().size() - 30);
    EXPECT_EQ(MessageOf([&] { Read(cut, lowLimit); }), "large:402: " + tooMany);
    EXPECT_EQ(MessageOf([&] { Read(AsciiGrid() + "1\n", lowLimit); }), "large:30: more than 23 rows");
}

} // namespace
