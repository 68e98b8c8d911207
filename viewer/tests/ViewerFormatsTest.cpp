// Grids from Surfer and GDAL, and reading with progress.
#include "Failure.h"
#include "GdalReader.h"
#include "GridReader.h"
#include "support/PrivateFolder.h"
#include "ViewerData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

template <typename T>
void Append(std::string& bytes, T value) {
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}

template <typename T>
void Append(std::string& bytes, std::initializer_list<T> values) {
    for (const T value : values)
        Append(bytes, value);
}

// Three columns from 10 to 12, two rows from -1 to 1; the second value is a hole.
std::string Surfer6() {
    std::string bytes = "DSBB";
    Append<std::uint16_t>(bytes, {3, 2});
    Append(bytes, {10.0, 12.0, -1.0, 1.0, 1.0, 6.0});
    Append(bytes, {1.0f, 1.70141e38f, 3.0f, 4.0f, 5.0f, 6.0f});
    return bytes;
}

void AppendSection(std::string& bytes, const std::string& mark, const std::string& content) {
    bytes += mark;
    Append(bytes, static_cast<std::uint32_t>(content.size()));
    bytes += content;
}

std::string Surfer7Grid() {
    std::string grid;
    Append<std::uint32_t>(grid, {2, 3});
    Append(grid, {10.0, -1.0, 1.0, 2.0, 1.0, 6.0, 0.0, -9999.0 * -1.0});
    return grid;
}

std::string Surfer7() {
    std::string bytes;
    std::string version;
    std::string data;
    Append<std::uint32_t>(version, 2);
    Append(data, {1.0, 9999.0, 3.0, 4.0, 5.0, 6.0});
    AppendSection(bytes, "DSRB", version);
    AppendSection(bytes, "NOTE", "unknown");
    AppendSection(bytes, "GRID", Surfer7Grid());
    AppendSection(bytes, "DATA", data);
    return bytes;
}

TEST(ViewerSurferTest, ReadsText) {
    const GridData grid = ReadGridFile(KIVO_TEST_DATA "/hill.grd");
    EXPECT_EQ(grid.title, "hill.grd");
    EXPECT_THAT(grid.x, ElementsAre(10, 11, 12, 13));
    EXPECT_THAT(grid.y, ElementsAre(-1, 0, 1));
    EXPECT_TRUE(AreSame(grid.z, {0, 1, 2, hole, 3, 4, 9, 4, 2, 3, 5, 3}));
}

TEST(ViewerSurferTest, ReadsBinary) {
    for (const std::string& bytes : {Surfer6(), Surfer7()}) {
        const GridData grid = ReadGrid(bytes, "hill.grd");
        EXPECT_THAT(grid.x, ElementsAre(10, 11, 12));
        EXPECT_THAT(grid.y, ElementsAre(-1, 1));
        EXPECT_TRUE(AreSame(grid.z, {1, hole, 3, 4, 5, 6}));
    }
}

TEST(ViewerSurferTest, RefusesBinaryThatIsCutOffAnywhere) {
    for (const std::string& bytes : {Surfer6(), Surfer7()})
        for (std::size_t size = 4; size < bytes.size(); ++size)
            EXPECT_EQ(MessageOf([&] { ReadGrid(bytes.substr(0, size), "a.grd"); }),
                      "a.grd: the file is cut off")
                << size << " bytes";
}

TEST(ViewerSurferTest, NamesWhatIsWrong) {
    const struct {
        const char* text;
        const char* message;
    } cases[] = {
        {"DSAA\n", "a.grd:1: the file ends before the number of columns"},
        {"DSAA\n3\n", "a.grd:2: the file ends before the number of rows"},
        {"DSAA\n3 -2\n", "a.grd:2: expected the number of rows, found \"-2\""},
        {"DSAA\n3 2\n0 1\n0 x\n", "a.grd:4: not a number: \"x\""},
        {"DSAA\n3 2\n0 1\n0 1\n0 1\n1 2 3\n4 5\n", "a.grd:7: the file ends before the last value"},
        {"DSAA\n3 2\n0 1\n0 1\n0 1\n1 2 3\n4 5 6 7\n", "a.grd:7: more than 6 values"},
        {"DSAA\n3 2\n0 1\n0 1\n0 1\n1 2 3\n4 y 6\n", "a.grd:7: not a number: \"y\""},
        {"DSAA\n3 1\n0 1\n0 1\n0 1\n", "a.grd: a surface needs at least 2 x 2 points, found 3 x 1"},
        {"DSAA\n3 2\n1 0\n0 1\n0 1\n", "a.grd: the ranges of x and y must rise"},
        {"DSAA\n9999999 2\n0 1\n0 1\n0 1\n", "a.grd: too many points; at most 16777216 can be shown"},
        {"DSAA\n99999 99999\n0 1\n0 1\n0 1\n", "a.grd:5: the file ends before the last value"},
        {"DSAA\n3 2\n1e17 100000000000000016\n0 1\n0 1\n1 2 3 4 5 6\n",
         "a.grd: the cells are too small for coordinates of this size"},
        {"DSAA\n2 2\n0 1\n0 1\n0 1\n1.70141e38 1.70141e38 1.70141e38 1.70141e38\n",
         "a.grd: every value is missing"},
    };
    for (const auto& bad : cases)
        EXPECT_EQ(MessageOf([&] { ReadGrid(bad.text, "a.grd"); }), bad.message);
    std::string early;
    AppendSection(early, "DSRB", "\2\0\0");
    AppendSection(early, "DATA", "");
    EXPECT_EQ(MessageOf([&] { ReadGrid(early, "a.grd"); }), "a.grd: values come before the size of the grid");
}

// A folder of this test's own with rasters in formats that GDAL alone reads.
class ViewerGdalTest : public testing::Test {
protected:
    void SetUp() override {
        if (!HasGdal()) GTEST_SKIP() << "built without GDAL";
        Write("raster.pgm", "P5\n3 2\n255\n\x04\x05\x06\x01\x02\x03");
        Write("raster.vrt", R"(<VRTDataset rasterXSize="3" rasterYSize="2">
            <GeoTransform>100, 10, 0, 60, 0, -20</GeoTransform>
            <VRTRasterBand dataType="Byte" band="1">
            <NoDataValue>2</NoDataValue><Scale>0.5</Scale><Offset>1</Offset>
            <SimpleSource><SourceFilename relativeToVRT="1">raster.pgm</SourceFilename></SimpleSource>
            </VRTRasterBand></VRTDataset>)");
    }

    std::string Path(const std::string& name) const { return m_folder.Path() + '/' + name; }
    void Write(const std::string& name, const std::string& content) const {
        std::ofstream(Path(name), std::ios::binary) << content;
    }

    PrivateFolder m_folder;
};

TEST_F(ViewerGdalTest, ReadsRastersWithoutPlace) {
    const GridData grid = ReadGridFile(Path("raster.pgm"));
    EXPECT_EQ(grid.title, "raster.pgm");
    EXPECT_THAT(grid.x, ElementsAre(0, 1, 2));
    EXPECT_THAT(grid.y, ElementsAre(-1, 0));
    EXPECT_TRUE(AreSame(grid.z, {1, 2, 3, 4, 5, 6}));
}

TEST_F(ViewerGdalTest, ReadsPlaceHolesAndScale) {
    const GridData grid = ReadGridFile(Path("raster.vrt"));
    EXPECT_THAT(grid.x, ElementsAre(105, 115, 125));
    EXPECT_THAT(grid.y, ElementsAre(30, 50));
    EXPECT_TRUE(AreSame(grid.z, {1.5f, hole, 2.5f, 3, 3.5f, 4}));
}

TEST_F(ViewerGdalTest, SaysWhatIsWrong) {
    Write("cut.pgm", "P5\n300 200\n255\nabc");
    EXPECT_THAT(MessageOf([this] { ReadGridFile(Path("cut.pgm")); }),
                testing::StartsWith(Path("cut.pgm") + ": "));
    Write("rotated.vrt", R"(<VRTDataset rasterXSize="3" rasterYSize="2">
        <GeoTransform>0, 1, 0.5, 0, 0, -1</GeoTransform>
        <VRTRasterBand dataType="Byte" band="1"/></VRTDataset>)");
    EXPECT_EQ(MessageOf([this] { ReadGridFile(Path("rotated.vrt")); }),
              Path("rotated.vrt") + ": the raster is rotated");
    Write("noise.bin", std::string("\1\0\2\3", 4));
    EXPECT_THAT(MessageOf([this] { ReadGridFile(Path("noise.bin")); }), HasSubstr("not a text file"));
}

class ViewerProgressTest : public ViewerGdalTest {};

TEST_F(ViewerProgressTest, TellsHowFarItIsAndEndsWhenAsked) {
    std::string text = "ncols 50\nnrows 1000\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    for (int r = 0; r < 1000; ++r) {
        for (int c = 0; c < 50; ++c)
            text += std::to_string(r * c % 97) + ' ';
        text += '\n';
    }
    Write("large.asc", text);
    Write("surfer7.grd", Surfer7());
    for (const char* const name : {"large.asc", "surfer7.grd", "raster.pgm"}) {
        SCOPED_TRACE(name);
        std::vector<double> shares;
        const auto note = [&](double share) {
            shares.push_back(share);
            return true;
        };
        const GridData grid = ReadGridFile(Path(name), note);
        EXPECT_TRUE(AreSame(grid.z, ReadGridFile(Path(name)).z));
        ASSERT_GE(shares.size(), 2U);
        EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
        EXPECT_TRUE(shares.front() >= 0.0 && shares.back() <= 1.0);
        for (std::size_t calls = 0; calls < shares.size(); ++calls) {
            std::size_t left = calls;
            EXPECT_THROW(ReadGridFile(Path(name), [&](double) { return left-- > 0; }), Cancelled);
        }
    }
}

} // namespace
