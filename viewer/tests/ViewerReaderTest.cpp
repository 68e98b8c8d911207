// The viewer's grid readers, formulas and command line.
#include "Failure.h"
#include "FormulaGrid.h"
#include "GridReader.h"
#include "Numbers.h"
#include "Options.h"
#include "PointFile.h"
#include "ViewerData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

Options Parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "kivo-viewer");
    return ParseOptions(static_cast<int>(arguments.size()), arguments.data());
}

struct GoodCase {
    const char* description;
    const char* name;
    std::string text;
    std::vector<float> x;
    std::vector<float> y;
    std::vector<float> z;
};

const std::vector<GoodCase>& GoodCases() {
    static const std::vector<GoodCase> cases = {
        {"ASCII grid by its corner",
         "a.asc",
         "ncols 3\nnrows 2\nxllcorner 10\nyllcorner 20\ncellsize 2\nNODATA_value -9999\n4 5 6\n1 -9999 3\n",
         {11, 13, 15},
         {21, 23},
         {1, hole, 3, 4, 5, 6}},
        {"ASCII grid by its centre, other order and case, no mark for missing values",
         "grid.txt",
         "NROWS 2\nNCOLS 2\nCELLSIZE 0.5\nXLLCENTER 1\nYLLCENTER 2\n3 4\n1 -9999\n",
         {1, 1.5},
         {2, 2.5},
         {1, hole, 3, 4}},
        {"ASCII grid whose mark has more digits in the header",
         "a.asc",
         "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n"
         "NODATA_value -3.4028234663852886e+38\n-3.40282347e+38 1\n2 3\n",
         {0.5, 1.5},
         {0.5, 1.5},
         {2, 3, hole, 1}},
        {"ASCII grid whose mark exceeds single precision",
         "a.asc",
         "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\nNODATA_value -1e300\n-1e300 1\n2 3\n",
         {0.5, 1.5},
         {0.5, 1.5},
         {2, 3, hole, 1}},
        {"ASCII grid whose cells are not square",
         "a.asc",
         "ncols 3\nnrows 2\nxllcorner 10\nyllcorner 20\ndx 2\ndy 0.5\n4 5 6\n1 2 3\n",
         {11, 13, 15},
         {20.25, 20.75},
         {1, 2, 3, 4, 5, 6}},
        {"points whose columns are named like an entry of a header",
         "a.xyz",
         "dx dy z\n0 0 1\n1 0 2\n0 1 3\n1 1 4\n",
         {0, 1},
         {0, 1},
         {1, 2, 3, 4}},
        {"points, x first",
         "p.xyz",
         "0 0 1\n1 0 2\n2 0 3\n0 5 4\n1 5 5\n2 5 6\n",
         {0, 1, 2},
         {0, 5},
         {1, 2, 3, 4, 5, 6}},
        {"points, y first",
         "p.xyz",
         "0 0 1\n0 5 4\n1 0 2\n1 5 5\n2 0 3\n2 5 6\n",
         {0, 1, 2},
         {0, 5},
         {1, 2, 3, 4, 5, 6}},
        {"points that fall", "p.xyz", "1 5 6\n0 5 5\n1 0 2\n0 0 1\n", {0, 1}, {0, 5}, {1, 2, 5, 6}},
        {"points with commas and names",
         "p.csv",
         "lon,lat,height\n0,0,1\n1,0,\n0,1,3\n1,1,nan\n",
         {0, 1},
         {0, 1},
         {1, hole, 3, hole}},
        {"points with tabs, comments, empty lines, CRLF and byte order mark",
         "p",
         "\xEF\xBB\xBF# made by hand\r\n\r\n0\t0\t1\r\n1\t0\t2\r\n  # half\r\n0\t1\t3\t\r\n1\t1\t4",
         {0, 1},
         {0, 1},
         {1, 2, 3, 4}},
        {"matrix", "m.csv", "1,2,3\n4,5,6\n", {0, 1, 2}, {0, 1}, {1, 2, 3, 4, 5, 6}},
        {"matrix with coordinates", "m.csv", ",10,20\n1,5,6\n2,,8\n", {10, 20}, {1, 2}, {5, 6, hole, 8}},
        {"matrix with falling coordinates",
         "m.csv",
         ";20;10\n2;5;6\n1;7;8\n",
         {10, 20},
         {1, 2},
         {8, 7, 6, 5}},
        {"matrix with tabs and coordinates",
         "m.tsv",
         "\t10\t20\n1\t5\t6\n2\t7\t8\n",
         {10, 20},
         {1, 2},
         {5, 6, 7, 8}},
        {"matrix with blanks", "m.txt", "  1  2\n 3 +4 \n", {0, 1}, {0, 1}, {1, 2, 3, 4}},
        {"exponents and infinities",
         "m.csv",
         "1e3,-2.5E-1\n.5,inf\n",
         {0, 1},
         {0, 1},
         {1000, -0.25, 0.5, hole}},
    };
    return cases;
}

TEST(ViewerReaderTest, ReadsGoodFiles) {
    for (const GoodCase& good : GoodCases()) {
        SCOPED_TRACE(good.description);
        GridData grid;
        EXPECT_EQ(MessageOf([&] { grid = ReadGrid(good.text, good.name); }), "");
        EXPECT_TRUE(AreSame(grid.x, good.x));
        EXPECT_TRUE(AreSame(grid.y, good.y));
        EXPECT_TRUE(AreSame(grid.z, good.z));
    }
}

struct BadCase {
    const char* name;
    std::string text;
    const char* message;
};

const std::string header = "ncols 3\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n";

const std::vector<BadCase>& BadCases() {
    static const std::vector<BadCase> cases = {
        {"e.asc", "", "e.asc: no data"},
        {"e.asc", "# nothing\n\n", "e.asc: no data"},
        {"b.asc", std::string("1 2\0\n", 5), "b.asc:1: this is not a text file in UTF-8 or ASCII"},
        {"t.asc", header + "1 2 3\n4 5\n", "t.asc:7: expected 3 values, found 2"},
        {"t.asc", header + "1 2 3\n4 5 6 7\n", "t.asc:7: expected 3 values, found 4"},
        {"t.asc", header + "1 2 3\n", "t.asc:6: expected 2 rows, found 1"},
        {"t.asc", header + "1 2 3\n4 5 6\n7 8 9\n", "t.asc:8: more than 2 rows"},
        {"t.asc", header + "1 2 3\n4 x 6\n", "t.asc:7: not a number: \"x\""},
        {"t.asc", header + "1 2 3\n4 1,5 6\n", "t.asc:7: not a number: \"1,5\""},
        {"t.asc", header + "1 2 3\n4 1e39 6\n", "t.asc:7: number beyond single precision: \"1e39\""},
        {"t.asc", header + "-9999 -9999 -9999\n-9999 -9999 -9999\n", "t.asc: every value is missing"},
        {"t.asc", header, "t.asc:5: no values after the header"},
        {"t.asc", "ncols 3\nnrows 2\nyllcorner 0\ncellsize 1\n1 2 3\n",
         "t.asc:5: the header lacks xllcorner"},
        {"t.asc", "ncols 3\nncols 3\n", "t.asc:2: a second entry \"ncols\""},
        {"t.asc", "xllcorner 3\nxllcenter 3\n", "t.asc:2: a second entry \"xllcenter\""},
        {"t.asc", "ncols 3\nrotation 3\n", "t.asc:2: unknown header entry \"rotation\""},
        {"t.asc", "ncols\n", "t.asc:1: expected one value after \"ncols\""},
        {"t.asc", "ncols 1\n", "t.asc:1: ncols must be a whole number of at least 2"},
        {"t.asc", "ncols 2.5\n", "t.asc:1: ncols must be a whole number of at least 2"},
        {"t.asc", "nrows -2\n", "t.asc:1: nrows must be a whole number of at least 2"},
        {"t.asc", "cellsize 0\n", "t.asc:1: cellsize must be positive"},
        {"t.asc", "dy -1\n", "t.asc:1: not a number: \"dy\""},
        {"t.asc", "ncols 2\ndy -1\n", "t.asc:2: dy must be positive"},
        {"t.asc", "ncols 3\nnrows 2\nxllcorner 0\nyllcorner 0\ndx 1\n1 2 3\n",
         "t.asc:6: the header lacks dy"},
        {"t.asc", "ncols 3\nnrows 2\nxllcorner 0\nyllcorner 0\n1 2 3\n",
         "t.asc:5: the header lacks cellsize"},
        {"t.asc", "nodata_value none\n", "t.asc:1: not a number: \"none\""},
        {"t.asc", "ncols 10000000\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n1\n",
         "t.asc:2: too many points; at most 16777216 can be shown"},
        {"t.asc", "ncols 10000000000\nnrows 9\nxllcorner 0\nyllcorner 0\ncellsize 1\n1\n",
         "t.asc:2: too many points; at most 16777216 can be shown"},
        {"t.asc", "ncols 100000\nnrows 100000\nxllcorner 0\nyllcorner 0\ncellsize 1\n1\n",
         "t.asc:6: expected 100000 rows, found 1"},
        {"t.asc", "ncols 2\nnrows 2\nxllcorner 5e17\nyllcorner 0\ncellsize 0.1\n1 2\n3 4\n",
         "t.asc:5: the cells are too small for coordinates of this size"},
        {"m.csv", ",0,1e9,1000000000.001\n0,1,2,3\n1,1,2,3\n",
         "m.csv: there are values of x that lie too close to each other for the distance between the first "
         "and the last"},
        {"t.asc", "ncols 4\nnrows 3\nxllcorner 0\nyllcorner 0\ncellsize 1e38\n1 2 3 4\n1 2 3 4\n1 2 3 4\n",
         "t.asc:5: the cells reach beyond single precision"},
        {"p.xyz", "0 0 1\n", "p.xyz: a surface needs at least 2 x 2 points, found 1 x 1"},
        {"p.xyz", "0 0 1\n1 0 2\n2 0 3\n", "p.xyz: a surface needs at least 2 x 2 points, found 3 x 1"},
        {"p.xyz", "0 0 1\n2 0 2\n1 0 3\n", "p.xyz: a surface needs at least 2 x 2 points, found 3 x 1"},
        {"p.xyz", "0 0 1\n1 0 2\n0 1 3\n1 1\n", "p.xyz:4: expected x, y and z, found 2 values"},
        {"p.xyz", "0 0 1\nnan 0 2\n", "p.xyz:2: a finite number is needed here: \"nan\""},
        {"p.xyz", "x y z\n", "p.xyz:1: no points after the column names"},
        {"m.csv", "1,2,3,4\n4,5,6\n", "m.csv:2: expected 4 values, found 3"},
        {"m.csv", ",2,3,4\n4,5,6\n", "m.csv:2: expected 3 values, found 2"},
        {"m.csv", ",1,2\n", "m.csv:1: no values after the x values"},
        {"m.csv", ",1,1\n0,1,2\n", "m.csv:1: the x values must rise or fall from column to column"},
        {"m.csv", ",1,2\n0,1,2\n1,1,2\n1,1,2\n", "m.csv:4: the y values must rise or fall from row to row"},
        {"m.csv", ",1,2\n,1,2\n", "m.csv:2: not a number: \"\""},
        {"m.csv", "1,2\n", "m.csv: a surface needs at least 2 x 2 points, found 2 x 1"},
        {"m.csv", "1\n2\n", "m.csv: a surface needs at least 2 x 2 points, found 1 x 2"},
        {"m.csv", "a,b\n", "m.csv:1: not a number: \"a\""},
        {"m.csv", "1,1\n2,3q\n", "m.csv:2: not a number: \"3q\""},
        {"m.csv", "x123456789012345678901234567890123456789012345,1\n",
         "m.csv:1: not a number: \"x123456789012345678901234567890123456789...\""},
    };
    return cases;
}

TEST(ViewerReaderTest, NamesFileLineAndReason) {
    for (const BadCase& bad : BadCases()) {
        SCOPED_TRACE(bad.text);
        EXPECT_EQ(MessageOf([&] { ReadGrid(bad.text, bad.name); }), bad.message);
    }
}

TEST(ViewerReaderTest, TitlesByFileAndColumnNames) {
    const GridData grid = ReadGrid("lon lat height\n0 0 1\n1 0 2\n0 1 3\n1 1 4\n", "/data/hill.xyz");
    EXPECT_EQ(grid.title, "hill.xyz");
    EXPECT_THAT(grid.axisTitles, ElementsAre("lon", "lat", "height"));
    EXPECT_THAT(ReadGrid("1 2\n3 4\n", "m").axisTitles, ElementsAre("X", "Y", "Z"));
}

TEST(ViewerReaderTest, ReadsFilesAndNamesThoseThatCannotBeRead) {
    const GridData grid = ReadGridFile(KIVO_TEST_DATA "/hill.csv");
    EXPECT_EQ(grid.ColumnCount(), 5U);
    EXPECT_EQ(grid.RowCount(), 4U);
    EXPECT_EQ(grid.title, "hill.csv");
    EXPECT_EQ(MessageOf([] { ReadGridFile("/nowhere/a.asc"); }),
              "/nowhere/a.asc: cannot open it: No such file or directory");
    EXPECT_EQ(MessageOf([] { ReadGridFile("/"); }), "/: cannot read it: Is a directory");
}

// Large ones are read in pieces, and those with anything unusual line by line, with the same values.
TEST(ViewerReaderTest, ReadsLargeGridsInPieces) {
    constexpr int columns = 300, rows = 1000;
    std::string values;
    std::vector<float> expected(std::size_t{columns} * rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            const bool isHole = (r * columns + c) % 1009 == 0;
            const auto value = static_cast<float>(r * 7 + c) / 8.0f;
            values += (isHole ? "-9999" : FormatNumber(value)) + (c + 1 < columns ? " " : " \r\n");
            expected[static_cast<std::size_t>((rows - 1 - r) * columns + c)] = isHole ? hole : value;
        }
    const std::string head = "ncols 300\nnrows 1000\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    ASSERT_GT(values.size(), std::size_t{3} << 19);
    EXPECT_TRUE(AreSame(ReadGrid(head + values, "a.asc").z, expected));
    EXPECT_TRUE(AreSame(ReadGrid(head + values + "# end\n", "a.asc").z, expected));
    const std::size_t place = values.find(' ', values.size() - 5000);
    std::string broken = values;
    broken[place + 1] = 'x';
    EXPECT_THAT(MessageOf([&] { ReadGrid(head + broken, "a.asc"); }), testing::StartsWith("a.asc:100"));
    EXPECT_EQ(MessageOf([&] { ReadGrid(head + values + "1\n", "a.asc"); }),
              "a.asc:1006: more than 1000 rows");
}

TEST(ViewerReaderTest, ReadsARegion) {
    const std::string text = "ncols 4\nnrows 3\nxllcenter 5000000\nyllcenter 0\ncellsize 0.5\n"
                             "9 10 11 12\n5 6 7 8\n1 2 3 4\n";
    const auto read = [&](const Region& region) {
        ReadOptions options;
        options.region = region;
        return ReadGrid(text, "r.asc", {}, options);
    };
    const GridData part = read({5000000.5, 5000001.2, 0.5, 9});
    EXPECT_EQ(part.origin[0] + part.x[0], 5000000.5);
    EXPECT_EQ(part.origin[0] + part.x[1], 5000001.0);
    EXPECT_THAT(part.y, ElementsAre(0.5, 1));
    EXPECT_THAT(part.z, ElementsAre(6, 7, 10, 11));
    EXPECT_EQ(MessageOf([&] {
                  read({5000001.2, 5000002, 0, 1});
              }),
              "r.asc: a surface needs at least 2 x 2 points, and of these 1 x 3 lie in the region");
}

TEST(ViewerPointsTest, ReadsPoints) {
    const char* const texts[] = {"1,2,3\n-4,5.5,6e1\n", "1;2;3\n-4;5.5;60",
                                 "# well\nx y z\n1 2 3\n\n -4\t5.5 60\n",
                                 "\xEF\xBB\xBF"
                                 "east,north,up\r\n1,2,3\r\n-4,5.5,60\r\n"};
    for (const char* const text : texts) {
        const PointFile file = ReadPoints(text, "/data/wells.csv");
        EXPECT_EQ(file.name, "wells.csv");
        EXPECT_EQ(file.Count(), 2U);
        EXPECT_THAT(file.points, ElementsAre(1, 2, 3, -4, 5.5f, 60)) << text;
    }
    EXPECT_EQ(ReadPointFile(KIVO_TEST_DATA "/wells.csv").Count(), 4U);
}

TEST(ViewerPointsTest, NamesFileLineAndReason) {
    const struct {
        const char* text;
        const char* message;
    } cases[] = {
        {"", "p.csv: no points"},
        {"# x\n", "p.csv: no points"},
        {"x,y,z\n", "p.csv:1: no points after the column names"},
        {"1,2,3\n1,2\n", "p.csv:2: expected x, y and z, found 2 values"},
        {"1\n", "p.csv:1: expected x, y and z, found 1 value"},
        {"1,2,3,4\n", "p.csv:1: expected x, y and z, found 4 values; --columns says which of them these are"},
        {"1,2,\n", "p.csv:1: not a number: \"\""},
        {"1,2,3\n1,b,3\n", "p.csv:2: not a number: \"b\""},
        {"1,2,nan\n", "p.csv:1: a finite number is needed here: \"nan\""},
        {"1,2,1e39\n", "p.csv:1: number beyond single precision: \"1e39\""},
    };
    for (const auto& bad : cases)
        EXPECT_EQ(MessageOf([&] { ReadPoints(bad.text, "p.csv"); }), bad.message);
    std::string many;
    for (int i = 0; i <= 100000; ++i)
        many += "1,2,3\n";
    EXPECT_EQ(MessageOf([&] { ReadPoints(many, "p.csv"); }),
              "p.csv:100001: too many points; at most 100000 can be shown");
    EXPECT_EQ(MessageOf([] { ReadPointFile("/nowhere/p.csv"); }),
              "/nowhere/p.csv: cannot open it: No such file or directory");
}

struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

// The decimal point stays one where the user's language has a comma.
TEST(ViewerReaderTest, TakesNumbersAloneOfTheLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    EXPECT_TRUE(AreSame(ReadGrid("1.5 2.5\n3 4\n", "m").z, {1.5, 2.5, 3, 4}));
    EXPECT_TRUE(AreSame(MakeFormulaGrid("x*0.5", {0, 1, 2}, {0, 1, 2}).z, {0, 0.5, 0, 0.5}));
    EXPECT_EQ(Parse({"--function", "x", "--x", "0.5:1000.5:3"}).x.to, 1000.5);
    std::locale::global(before);
}

TEST(ViewerNumbersTest, WritesWhatItReads) {
    for (const float number : {0.0f, -1.5f, 0.1f, 1e-7f, 123456789.0f, 3.4028235e38f})
        EXPECT_EQ(static_cast<float>(ParseNumber(FormatNumber(number)).value()), number);
    EXPECT_EQ(FormatNumber(0.1f), "0.1");
    EXPECT_EQ(FormatRounded(0.123456789f), "0.123457");
    EXPECT_EQ(FormatRounded(1234567.0f), "1.23457e+06");
}

// As the labels of the plot write them.
TEST(ViewerNumbersTest, WritesWhatIsNoNumberLikeThePlot) {
    using Limits = std::numeric_limits<float>;
    for (std::string (*const format)(float) : {FormatNumber, FormatRounded}) {
        EXPECT_EQ(format(Limits::quiet_NaN()), "NaN");
        EXPECT_EQ(format(-Limits::quiet_NaN()), "NaN");
        EXPECT_EQ(format(Limits::infinity()), "inf");
        EXPECT_EQ(format(-Limits::infinity()), "-inf");
    }
}

TEST(ViewerFormulaTest, EvaluatesOnTheGrid) {
    const GridData grid = MakeFormulaGrid("x + 10*y", {0, 2, 3}, {1, 2, 2});
    EXPECT_THAT(grid.x, ElementsAre(0, 1, 2));
    EXPECT_THAT(grid.y, ElementsAre(1, 2));
    EXPECT_THAT(grid.z, ElementsAre(10, 11, 12, 20, 21, 22));
    EXPECT_EQ(grid.title, "z = x + 10*y");
}

TEST(ViewerFormulaTest, TurnsRangesSoThatTheyRise) {
    const GridData grid = MakeFormulaGrid("x", {1, -1, 3}, {0, 1, 2});
    EXPECT_THAT(grid.x, ElementsAre(-1, 0, 1));
    EXPECT_THAT(grid.z, ElementsAre(-1, 0, 1, -1, 0, 1));
}

TEST(ViewerFormulaTest, MakesHolesOfValuesThatAreNotFinite) {
    EXPECT_TRUE(AreSame(MakeFormulaGrid("1/x", {-1, 1, 3}, {0, 1, 2}).z, {-1, hole, 1, -1, hole, 1}));
    EXPECT_TRUE(AreSame(MakeFormulaGrid("sqrt(x)", {-1, 1, 2}, {0, 1, 2}).z, {hole, 1, hole, 1}));
    EXPECT_TRUE(AreSame(MakeFormulaGrid("x*1e200", {0, 1, 2}, {0, 1, 2}).z, {0, hole, 0, hole}));
}

// An assignment to a variable lasts for one value only.
TEST(ViewerFormulaTest, KeepsVariablesThatTheFormulaAssigns) {
    EXPECT_THAT(MakeFormulaGrid("y + (x = 5)", {0, 1, 2}, {0, 1, 2}).x, ElementsAre(0, 1));
    EXPECT_THAT(MakeFormulaGrid("x*2 + (y = 0)", {0, 1, 2}, {0, 1, 2}).z, ElementsAre(0, 2, 0, 2));
}

TEST(ViewerFormulaTest, TellsWhatIsWrong) {
    const struct {
        const char* formula;
        const char* message;
    } cases[] = {
        {"sin(x", "formula: Missing parenthesis at position 6"},
        {"x + q", "formula: Unexpected token \"q\" at position 5"},
        {"x +", "formula: Unexpected end of expression at position 4"},
        {"x, y", "formula: one value is needed, not several parted by commas"},
        {"sqrt(0-1-x*x)", "formula: no finite value in this range"},
        {"sin(x, y)", "formula: Too many parameters for function \"sin\" at position 9"},
    };
    for (const auto& bad : cases)
        EXPECT_EQ(MessageOf([&] { MakeFormulaGrid(bad.formula, {0, 1, 2}, {0, 1, 2}); }), bad.message);
    EXPECT_EQ(MessageOf([] {
                  MakeFormulaGrid("x", {0, 1, 5000}, {0, 1, 5000});
              }),
              "too many points; at most 16777216 can be shown");
    EXPECT_EQ(MessageOf([] {
                  MakeFormulaGrid("x", {1e17, 1e17 + 32, 5}, {0, 1, 2});
              }),
              "the range is too narrow for 5 values");
}

TEST(ViewerOptionsTest, ReadsTheCommandLine) {
    const Options plain = Parse({});
    EXPECT_TRUE(plain.files.empty());
    EXPECT_EQ(plain.function + plain.picture + plain.information, "");
    EXPECT_EQ(plain.width, 1200);
    EXPECT_EQ(plain.height, 800);

    const Options formula = Parse({"--function", "-x*y", "--x", "-3:3:50", "--y=-2:2e0:40", "--picture",
                                   "a b.png", "--size", "640x480", "--mode", "2", "--dpi", "120", "--scale",
                                   "1.5", "--smoothing", "4", "--transparent"});
    EXPECT_EQ(formula.function, "-x*y");
    EXPECT_EQ(formula.x.from, -3.0);
    EXPECT_EQ(formula.x.to, 3.0);
    EXPECT_EQ(formula.x.count, 50U);
    EXPECT_EQ(formula.y.from, -2.0);
    EXPECT_EQ(formula.y.count, 40U);
    EXPECT_EQ(formula.picture, "a b.png");
    EXPECT_EQ(formula.width, 640);
    EXPECT_EQ(formula.height, 480);
    EXPECT_EQ(formula.settings.mode, 2);
    EXPECT_EQ(formula.format.dpi, 120);
    EXPECT_EQ(formula.format.scale, 1.5);
    EXPECT_EQ(formula.format.PixelScale(), 1.875);
    EXPECT_EQ(formula.format.smoothing, 4);
    EXPECT_TRUE(formula.format.isTransparent);
    EXPECT_EQ(plain.format.PixelScale(), 1.0);
    EXPECT_EQ(plain.format.smoothing, 2);
    EXPECT_FALSE(plain.format.isTransparent);
    EXPECT_THAT(Parse({"grid.asc"}).files, ElementsAre("grid.asc"));
    EXPECT_EQ(Parse({"--picture", "-"}).picture, "-");
}

TEST(ViewerOptionsTest, ReadsSettings) {
    const Options options = Parse({"--title", "A b", "--x-min=-5", "--z-max", "1e3", "--no-frame-lines",
                                   "--y-contours", "--no-trace", "--contour-count", "7"});
    EXPECT_EQ(options.settings.title, "A b");
    EXPECT_EQ(options.settings.axes[0].min, -5.0f);
    EXPECT_EQ(options.settings.axes[2].max, 1000.0f);
    EXPECT_FALSE(options.settings.showsFrameLines);
    EXPECT_TRUE(options.settings.axes[1].showsContours);
    EXPECT_FALSE(options.settings.traces);
    EXPECT_EQ(options.settings.contourCount, 7U);
    EXPECT_THAT(options.settingNames, testing::UnorderedElementsAre("title", "x-min", "z-max", "frame-lines",
                                                                    "y-contours", "trace", "contour-count"));
    EXPECT_TRUE(Parse({}).settingNames.empty());
    EXPECT_EQ(Parse({"--title", ""}).settings.title, "") << "no title";
}

TEST(ViewerOptionsTest, ReadsSurfaces) {
    const Options plain = Parse({"a.asc", "b.asc", "c.asc"});
    EXPECT_THAT(plain.files, ElementsAre("a.asc", "b.asc", "c.asc"));
    ASSERT_EQ(plain.looks.size(), 3U);
    EXPECT_EQ(plain.looks[0].opacity, 1.0);
    EXPECT_FALSE(plain.looks[0].color);
    EXPECT_EQ(plain.looks[1].opacity, 0.7);
    EXPECT_NE(plain.looks[1].color->Packed(), plain.looks[2].color->Packed());

    const Options own = Parse({"--opacity", "0.4", "a.asc", "--opacity", "1", "b.asc", "--surface-color",
                               "red", "--surface-color", "values", "c.asc"});
    EXPECT_THAT(own.files, ElementsAre("a.asc", "b.asc", "c.asc"));
    EXPECT_EQ(own.looks[0].opacity, 0.4);
    EXPECT_EQ(own.looks[0].color->Packed(), 255UL);
    EXPECT_EQ(own.looks[1].opacity, 1.0);
    EXPECT_FALSE(own.looks[1].color);
    EXPECT_EQ(own.looks[2].color->Packed(), plain.looks[2].color->Packed());
    EXPECT_EQ(Parse({}).looks.size(), 1U);
    EXPECT_EQ(Parse({"--function", "x", "--opacity", "0.5"}).looks[0].opacity, 0.5);
}

TEST(ViewerOptionsTest, ReadsFilesOfPoints) {
    const Options options = Parse({"--points", "a.csv", "grid.asc", "--points", "b.csv", "--curve", "c.csv",
                                   "--picture", "p.png", "--trace-at", "30,40"});
    EXPECT_THAT(options.files, ElementsAre("grid.asc"));
    EXPECT_THAT(options.pointFiles, ElementsAre("a.csv", "b.csv"));
    EXPECT_THAT(options.curveFiles, ElementsAre("c.csv"));
    ASSERT_TRUE(options.traceAt);
    EXPECT_EQ(options.traceAt->x, 30);
    EXPECT_EQ(options.traceAt->y, 40);
}

TEST(ViewerOptionsTest, AnswersHelpAndVersion) {
    EXPECT_THAT(Parse({"--help"}).information, HasSubstr("--picture"));
    EXPECT_THAT(Parse({"--version"}).information,
                testing::MatchesRegex("kivo-viewer [0-9]+\\.[0-9]+\\.[0-9]+"));
}

TEST(ViewerOptionsTest, RefusesWhatCannotBeFollowed) {
    const struct {
        std::vector<const char*> arguments;
        const char* message;
    } cases[] = {
        {{"--unknown"},
         "The following argument was not expected: --unknown; kivo-viewer --help lists the options"},
        {{"a.asc", ""}, "FILE: empty"},
        {{"--opacity", "1.5"}, "--opacity: expected a number from 0 to 1, found 1.5"},
        {{"--opacity", "nan"}, "--opacity: expected a number from 0 to 1, found nan"},
        {{"--opacity", "1", "--opacity", "1"}, "--opacity: given 2 times for 1 surface"},
        {{"a", "b", "--surface-color", "red", "--surface-color", "red", "--surface-color", "red"},
         "--surface-color: given 3 times for 2 surfaces"},
        {{"--surface-color", "pinkish"},
         "--surface-color: expected values, or a colour such as ff8000 or red, found \"pinkish\""},
        {{"a.asc", "--function", "x"}, "FILE excludes --function; kivo-viewer --help lists the options"},
        {{"--x", "0:1:2"}, "--x requires --function; kivo-viewer --help lists the options"},
        {{"--dpi", "96"}, "--dpi requires --picture; kivo-viewer --help lists the options"},
        {{"--smoothing", "2"}, "--smoothing requires --picture; kivo-viewer --help lists the options"},
        {{"--scale", "2"}, "--scale requires --picture; kivo-viewer --help lists the options"},
        {{"--transparent"}, "--transparent requires --picture; kivo-viewer --help lists the options"},
        {{"--picture", "p.png", "--scale", "0"}, "--scale: expected a number from 0.1 to 8, found 0"},
        {{"--picture", "p.png", "--scale", "8.1"}, "--scale: expected a number from 0.1 to 8, found 8.1"},
        {{"--picture", "p.png", "--scale", "nan"}, "--scale: expected a number from 0.1 to 8, found nan"},
        {{"--picture", "p.png", "--scale", "5.2", "--dpi", "600"},
         "--scale: at most 5.12 with 600 dots per inch, found 5.2"},
        {{"--function", "x", "--x", "0:1"}, "--x: expected from:to:count, found 0:1"},
        {{"--function", "x", "--x", "0:1:1"}, "--x: expected a count from 2 to 8388608 in 0:1:1"},
        {{"--function", "x", "--x", "0:1:2.5"}, "--x: expected a count from 2 to 8388608 in 0:1:2.5"},
        {{"--function", "x", "--y", "1:1:5"}, "--y: the range is empty: 1:1:5"},
        {{"--function", "x", "--y", "a:1:5"}, "--y: expected two numbers in a:1:5"},
        {{"--function", "x", "--y", "0:inf:5"}, "--y: expected two numbers in 0:inf:5"},
        {{"--region", "0:1:2"},
         "--region: expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and from y0 to y1, found "
         "0:1:2"},
        {{"--region", "0:1:2:2"},
         "--region: expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and from y0 to y1, found "
         "0:1:2:2"},
        {{"--region", "0:inf:2:3"},
         "--region: expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and from y0 to y1, found "
         "0:inf:2:3"},
        {{"--columns", "1,2"},
         "--columns: expected the columns of x, y and z, such as 1,2,4, or all for a matrix, found 1,2"},
        {{"--columns", "1,,2"},
         "--columns: expected the columns of x, y and z, such as 1,2,4, or all for a matrix, found 1,,2"},
        {{"--decimal", ","}, "--decimal: expected point or comma, found ,"},
        {{"--grid", "kriging"}, "--grid: expected linear, nearest or inverse, found kriging"},
        {{"--cell", "0"}, "--cell: expected a number above 0, found 0"},
        {{"--radius", "inf"}, "--radius: expected a number above 0, found inf"},
        {{"--size", "10"}, "--size: expected WIDTHxHEIGHT of 1 to 16384 each, found 10"},
        {{"--size", "0x10"}, "--size: expected WIDTHxHEIGHT of 1 to 16384 each, found 0x10"},
        {{"--size", "10x16385"}, "--size: expected WIDTHxHEIGHT of 1 to 16384 each, found 10x16385"},
        {{"--size", "-5x5"}, "--size: expected WIDTHxHEIGHT of 1 to 16384 each, found -5x5"},
        {{"--picture", "p.png", "--trace-at", "3"}, "--trace-at: expected X,Y in pixels, found 3"},
        {{"--picture", "p.png", "--trace-at", "3,-4"}, "--trace-at: expected X,Y in pixels, found 3,-4"},
        {{"--trace-at", "3,4"}, "--trace-at requires --picture; kivo-viewer --help lists the options"},
        {{"--trace", "--no-trace"}, "--trace and --no-trace exclude each other"},
        {{"--function", ""}, "--function: empty"},
        {{"--picture", ""}, "--picture: empty"},
        {{""}, "FILE: empty"},
    };
    for (const auto& bad : cases)
        EXPECT_EQ(MessageOf([&] { Parse(bad.arguments); }), bad.message);
    EXPECT_THAT(MessageOf([] { Parse({"--mode", "4"}); }), HasSubstr("--mode"));
    EXPECT_THAT(MessageOf([] { Parse({"--mode", "x"}); }), HasSubstr("--mode"));
    EXPECT_THAT(MessageOf([] { Parse({"--picture"}); }), HasSubstr("--picture"));
    for (const char* const smoothing : {"0", "5", "2.5"})
        EXPECT_THAT(MessageOf([&] {
                        Parse({"--picture", "p.png", "--smoothing", smoothing});
                    }),
                    HasSubstr("--smoothing"));
}

} // namespace
