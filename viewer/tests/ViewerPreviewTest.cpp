// The first lines of a file, and how they are read.
#include "Failure.h"
#include "Preview.h"
#include "support/PrivateFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

using namespace KivoViewer;
using testing::ElementsAre;

namespace {

class ViewerPreviewTest : public testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& text) const {
        const std::string path = m_folder.Path() + '/' + name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    KivoTest::PrivateFolder m_folder;
};

TEST_F(ViewerPreviewTest, TellsColumnsOfPoints) {
    const std::string path =
        Write("wells.csv", "name;east;north;depth\nB 1;1,5;2,25;-3\nB 2;4,5;5,5;-6,75\n");
    const Preview preview = PreviewOf(path, {}, false);
    EXPECT_TRUE(preview.isTable);
    EXPECT_THAT(preview.names, ElementsAre("name", "east", "north", "depth"));
    EXPECT_THAT(preview.columns, ElementsAre(1, 2, 3));
    ASSERT_EQ(preview.rows.size(), 2U);
    EXPECT_THAT(preview.rows[1], ElementsAre("B 2", "4,5", "5,5", "-6,75"));
    EXPECT_EQ(preview.words, "Points: fields between semicolons, decimal commas, names of columns first");
}

TEST_F(ViewerPreviewTest, FollowsWhatIsSaid) {
    const std::string path = Write("table.xyz", "0 0 1 9\n1 0 2 8\n2 0 3 7\n0 1 4 6\n1 1 5 5\n2 1 6 4\n");
    const Preview open = PreviewOf(path, {}, true);
    EXPECT_THAT(open.columns, ElementsAre(-1, -1, -1));
    EXPECT_THAT(open.words, testing::HasSubstr("4 numbers in each line are points, or a matrix of values"));
    ReadOptions options;
    options.columns = {"2", "1", "4"};
    EXPECT_THAT(PreviewOf(path, options, true).columns, ElementsAre(1, 0, 3));
    options.columns = {"all"};
    const Preview matrix = PreviewOf(path, options, true);
    EXPECT_THAT(matrix.names, ElementsAre("1", "2", "3", "4"));
    EXPECT_EQ(matrix.words, "A matrix of values: fields between blanks, decimal points");
    options.columns = {"1", "2", "7"};
    EXPECT_THAT(PreviewOf(path, options, true).words, testing::HasSubstr("there is no column \"7\""));
}

TEST_F(ViewerPreviewTest, TellsWhatACommaMayBe) {
    const std::string path = Write("a.txt", "0;0;1,234\n1;0;2,345\n0;1;3,456\n1;1;4,567\n");
    EXPECT_THAT(PreviewOf(path, {}, true).words,
                testing::HasSubstr("may be a decimal mark or part thousands"));
    ReadOptions options;
    options.decimalMark = ',';
    EXPECT_THAT(PreviewOf(path, options, true).words, testing::HasSubstr("decimal commas"));
}

TEST_F(ViewerPreviewTest, ShowsOtherTextsLineByLine) {
    const std::string path =
        Write("a.asc", "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n1 2\n3 4\n");
    const Preview grid = PreviewOf(path, {}, true);
    EXPECT_FALSE(grid.isTable);
    ASSERT_EQ(grid.rows.size(), 7U);
    EXPECT_THAT(grid.rows[5], ElementsAre("1 2"));
    EXPECT_EQ(grid.words, "A grid whose header says how it is read");
    EXPECT_THAT(PreviewOf(Write("b.bin", std::string("ab\0cd\n", 6)), {}, true).rows, ElementsAre());
    EXPECT_THAT(PreviewOf(Write("c.txt", ""), {}, true).rows, ElementsAre());
    EXPECT_FALSE(PreviewOf(m_folder.Path() + "/none", {}, true).isTable);
    EXPECT_FALSE(PreviewOf("/dev/zero", {}, true).isTable);
}

// Of a large file no more is read than the beginning, of its long lines no more is shown.
TEST_F(ViewerPreviewTest, KeepsLittleOfMuch) {
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += std::to_string(i) + " 1 2\n";
    EXPECT_EQ(PreviewOf(Write("long.xyz", text), {}, true).rows.size(), 30U);
    std::string wide = "x";
    for (int i = 0; i < 30; ++i)
        wide += "\xc3\xa4"; // the 60th byte begins a character
    const Preview preview = PreviewOf(Write("wide.csv", "name,x,y,z\n" + wide + ",1,2,3\n"), {}, false);
    EXPECT_EQ(preview.rows[0][0], wide.substr(0, 59));
    EXPECT_EQ(PreviewOf(Write("one.txt", std::string(100000, '1')), {}, true).words,
              "No text of whole lines");
}

} // namespace
