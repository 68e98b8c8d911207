// Tables as engineers have them: separators, decimal marks, names, missing values, and the columns that are
// taken.
#include "GridReader.h"
#include "PointBox.h"
#include "PointFile.h"
#include "Table.h"
#include "ViewerData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

TableLayout Layout(const std::string& text) {
    return LayoutOf(TextLines(text, "t"), {});
}

ReadOptions With(const std::string& columns, char decimalMark = 0) {
    ReadOptions options;
    if (!columns.empty()) options.columns = ParseColumns(columns);
    options.decimalMark = decimalMark;
    return options;
}

TEST(ViewerTableTest, TellsHowATableIsRead) {
    const struct {
        const char* text;
        char separator;
        char decimalMark;
        std::size_t columns;
        std::vector<std::string> names;
    } cases[] = {
        {"1.5 2 3\n4 5 6\n", ' ', '.', 3, {}},
        {"1,5 2 3\n4 5 6\n", ' ', ',', 3, {}},
        {"1.5,2,3\n4,5,6\n", ',', '.', 3, {}},
        {"1, 2, 3\n4, 5, 6\n", ',', '.', 3, {}},
        {"1,5;2;3\n4;5;6\n", ';', ',', 3, {}},
        {"1.5;2;3\n4;;NA\n", ';', '.', 3, {}},
        {"1;2;3;\n4;5;6;\n", ';', '.', 3, {}},
        {"1,5\t2,5\t3\n4\t5\t6\n", '\t', ',', 3, {}},
        {"Well A\t2\t3\nB\t5\t6\n", '\t', '.', 3, {}},
        {"x;y;z\n1,5;2;3\n4;5;6\n", ';', ',', 3, {"x", "y", "z"}},
        {"name,x,y\n\"A, old\",1,2\nB,3,4\n", ',', '.', 3, {"name", "x", "y"}},
        {"H\xF6he \xB0,y,z\n1,2,3\n", ',', '.', 3, {"Höhe °", "y", "z"}},
        {"Höhe,y,z\n1,2,3\n", ',', '.', 3, {"Höhe", "y", "z"}},
    };
    for (const auto& good : cases) {
        const TableLayout layout = Layout(good.text);
        EXPECT_TRUE(layout.fits) << good.text;
        EXPECT_EQ(layout.separator, good.separator) << good.text;
        EXPECT_EQ(layout.decimalMark, good.decimalMark) << good.text;
        EXPECT_EQ(layout.columnCount, good.columns) << good.text;
        EXPECT_EQ(layout.names, good.names);
    }
    EXPECT_EQ(Layout("A;1;2\nB;3;4\n").label, 0U);
    EXPECT_FALSE(Layout("1,2\n3,x\n").fits);
}

TEST(ViewerTableTest, ReadsWhatSpreadsheetsWrite) {
    const char* const texts[] = {
        "x;y;z\n0;0;1,5\n1;0;2,5\n0;1;NA\n1;1;4,5\n",
        "x;y;z;\r\n0;0;1,5;\r\n1;0;2,5;\r\n0;1;;\r\n1;1;4,5;\r\n",
        "x\ty\tz\n0\t0\t1,5\n1\t0\t2,5\n0\t1\t\n1\t1\t4,5\n",
        "\"x\",\"y\",\"z\"\n0,0,1.5\n1,0,2.5\n0,1,n/a\n1,1,4.5\n",
        "z,x,y\n1.5,0,0\n2.5,1,0\nnull,0,1\n4.5,1,1\n",
        "x y z v\n0 0 1.5 7\n1 0 2.5 8\n0 1 NaN 9\n1 1 4.5 3\n",
        "name;X [m];Y [m];Z [m]\nA;0;0;1,5\nB;1;0;2,5\nC;0;1;--\nD;1;1;4,5\n",
    };
    for (const char* const text : texts) {
        SCOPED_TRACE(text);
        GridData grid;
        EXPECT_EQ(MessageOf([&] { grid = ReadGrid(text, "t.csv"); }), "");
        EXPECT_THAT(grid.x, ElementsAre(0, 1));
        EXPECT_THAT(grid.y, ElementsAre(0, 1));
        EXPECT_TRUE(AreSame(grid.z, {1.5, 2.5, hole, 4.5}));
    }
    EXPECT_TRUE(AreSame(ReadGrid("y\\x;10;20\n1;5,5;6\n2;7;-\n", "m.csv").z, {5.5, 6, 7, hole}));
    EXPECT_THAT(ReadGrid("y\\x;10;20\n1;5,5;6\n2;7;-\n", "m.csv").x, ElementsAre(10, 20));
}

TEST(ViewerTableTest, TakesTheColumnsThatAreAskedFor) {
    const std::string named = "id,east,north,top,base\n1,0,0,5,1\n2,1,0,6,2\n3,0,1,7,3\n4,1,1,8,4\n";
    const GridData base = ReadGrid(named, "t.csv", {}, With("East,north,base"));
    EXPECT_THAT(base.z, ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(base.axisTitles, ElementsAre("east", "north", "base"));
    EXPECT_EQ(base.note, "x, y and z from the columns east, north and base of 5");
    EXPECT_THAT(ReadGrid(named, "t.csv", {}, With("2,3,4")).z, ElementsAre(5, 6, 7, 8));
    EXPECT_EQ(MessageOf([&] { ReadGrid(named, "t.csv", {}, With("1,2,depth")); }),
              "t.csv: there is no column \"depth\"; its columns are id, east, north, top, base");
    EXPECT_EQ(MessageOf([&] { ReadGrid("1 2 3\n4 5 6\n", "t", {}, With("1,2,4")); }),
              "t: there is no column \"4\"; its columns are 3 without names");
    EXPECT_EQ(ReadGrid("0 0 1\n1 0 2\n0 1 3\n1 1 4\n", "t", {}, With("all")).ColumnCount(), 3U);
}

// Points with a fourth column, or a matrix: neither is taken for the other.
TEST(ViewerTableTest, AsksWhatFourColumnsAre) {
    std::string scattered;
    for (int i = 0; i < 25; ++i)
        scattered += std::to_string(i * 37 % 100) + ' ' + std::to_string(i * 71 % 100) + " 3 4\n";
    const std::string question =
        "t.xyz: 4 numbers in each line are points, or a matrix of values; --columns 1,2,3 or "
        "--columns all says it";
    EXPECT_EQ(MessageOf([&] { ReadGrid(scattered, "t.xyz"); }), question);
    const std::string row = "0 0 1 9\n1 0 2 9\n2 0 3 9\n0 1 4 9\n1 1 5 9\n2 1 6 9\n";
    EXPECT_EQ(MessageOf([&] { ReadGrid(row, "t.xyz"); }), question);
    EXPECT_THAT(ReadGrid(row, "t.xyz", {}, With("1,2,3")).z, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(ReadGrid(row, "t.xyz", {}, With("all")).RowCount(), 6U);
    EXPECT_EQ(ReadGrid("1 2 3 4\n5 6 7 9\n", "m").ColumnCount(), 4U) << "a matrix";
}

TEST(ViewerTableTest, RefusesWhatMayBeMeantInTwoWays) {
    EXPECT_EQ(
        MessageOf([] { ReadGrid("1,000;2,000;3,500\n4,000;5,000;6,000\n", "t.csv"); }),
        "t.csv: the comma of \"1,000\" may be a decimal mark or part thousands; --decimal comma or --decimal "
        "point says it");
    EXPECT_TRUE(
        AreSame(ReadGrid("1,000;2,500\n4,000;5,000\n", "t.csv", {}, With("", ',')).z, {1, 2.5, 4, 5}));
    EXPECT_EQ(MessageOf([] { ReadGrid("1,000;2,500\n4,000;5,000\n", "t.csv", {}, With("", '.')); }),
              "t.csv:1: not a number: \"1,000\"");
    EXPECT_EQ(MessageOf([] { ReadGrid("1.5;2,5\n3;4\n", "t.csv"); }), "t.csv:1: not a number: \"2,5\"");
    EXPECT_EQ(MessageOf([] { ReadGrid("1.234,5;2\n3;4\n", "t.csv"); }), "t.csv:1: not a number: \"1.234,5\"");
    EXPECT_EQ(MessageOf([] { ReadGrid("x,y,z\nm,m,m\n1,2,3\n", "t.csv"); }), "t.csv:2: not a number: \"m\"");
}

TEST(ViewerTableTest, ReadsNamesOfPoints) {
    const char* const texts[] = {"name,x,y,z\nA 1,1,2,3\nB,4,5,6\n", "1;2;3;A 1\n4;5;6;B\n",
                                 "id\tname\tx\ty\tz\n7\tA 1\t1\t2\t3\n8\tB\t4\t5\t6\n"};
    for (const char* const text : texts) {
        const PointFile file = ReadPoints(text, "wells.csv");
        EXPECT_THAT(file.points, ElementsAre(1, 2, 3, 4, 5, 6)) << text;
        EXPECT_THAT(file.labels, ElementsAre("A 1", "B")) << text;
    }
    EXPECT_EQ(MessageOf([] { ReadPoints("1,2,3,4\n5,6,7,8\n", "p.csv"); }),
              "p.csv:1: expected x, y and z, found 4 values; --columns says which of them these are");
}

TEST(ViewerTableTest, GroupsPointsByTheirNames) {
    const std::vector<PointFile> groups = GroupsOf(ReadPoints("A,1,2,3\nB,4,5,6\nA,7,8,9\n", "wells.csv"));
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].name, "A");
    EXPECT_THAT(groups[0].points, ElementsAre(1, 2, 3, 7, 8, 9));
    EXPECT_EQ(groups[1].name, "B");
    EXPECT_THAT(groups[1].points, ElementsAre(4, 5, 6));
    const std::vector<PointFile> unnamed = GroupsOf(ReadPoints("1,2,3\n", "wells.csv"));
    ASSERT_EQ(unnamed.size(), 1U);
    EXPECT_EQ(unnamed[0].name, "wells.csv");
    std::string many;
    for (int i = 0; i < 25; ++i)
        many += "W" + std::to_string(i) + ",1,2,3\n";
    EXPECT_EQ(GroupsOf(ReadPoints(many, "wells.csv")).size(), 1U) << "more than a list shows";
}

TEST(ViewerTableTest, MakesABoxAroundPoints) {
    const GridData box =
        BoxAround({ReadPoints("0 440000 5\n10 440020 5\n", "a"), ReadPoints("20 440000 5\n", "b")});
    EXPECT_EQ(box.title, "a");
    EXPECT_THAT(box.x, ElementsAre(-1, 10, 21));
    EXPECT_EQ(box.origin[1] + static_cast<double>(box.y[0]), 439999.0);
    EXPECT_EQ(box.origin[1] + static_cast<double>(box.y[2]), 440021.0);
    EXPECT_NEAR(box.origin[2] + static_cast<double>(box.z[0]), 4.995, 1e-5);
    EXPECT_NEAR(box.origin[2] + static_cast<double>(box.z[2]), 5.005, 1e-5);
}

} // namespace
