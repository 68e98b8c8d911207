// Rasters in the formats of GDAL: bands, variables, regions, and those that are too large to be shown whole.
#include "GdalReader.h"
#include "GridReader.h"
#include "support/PrivateFolder.h"
#include "ViewerData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#ifdef KIVO_HAS_GDAL

#include "RasterFiles.h"

using namespace KivoTest;
using namespace KivoViewer;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class ViewerRasterTest : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return m_folder.Path() + '/' + name; }

    static GridData Read(const std::string& path, int band = 0) {
        ReadOptions options;
        options.band = band;
        return ReadGridFile(path, {}, options);
    }

    static GridData ReadRegion(const std::string& path, const Region& region) {
        ReadOptions options;
        options.region = region;
        return ReadGridFile(path, {}, options);
    }

    // A raster of this size with the values of small.tif.
    void WriteEnlarged(const std::string& name, int columns, int rows) const {
        const std::string size =
            "xSize=\"" + std::to_string(columns) + "\" ySize=\"" + std::to_string(rows) + '"';
        std::ofstream(Path(name)) << "<VRTDataset rasterXSize=\"" << columns << "\" rasterYSize=\"" << rows
                                  << "\"><VRTRasterBand dataType=\"Float32\" band=\"1\"><SimpleSource>"
                                  << "<SourceFilename relativeToVRT=\"1\">small.tif</SourceFilename>"
                                  << R"(<SrcRect xOff="0" yOff="0" xSize="50" ySize="34"/>)"
                                  << "<DstRect xOff=\"0\" yOff=\"0\" " << size
                                  << "/></SimpleSource></VRTRasterBand></VRTDataset>";
    }

    PrivateFolder m_folder;
};

float Tens(int column, int row, int band) {
    return static_cast<float>(100 * band + 10 * row + column);
}

TEST_F(ViewerRasterTest, ReadsTheBandThatIsAskedFor) {
    WriteGeoTiff(Path("bands.tif"), 3, 2, 2, Tens);
    const GridData first = Read(Path("bands.tif"));
    EXPECT_EQ(first.title, "bands.tif");
    EXPECT_EQ(first.note, "band 1 of 2");
    EXPECT_THAT(first.x, ElementsAre(1005, 1015, 1025));
    EXPECT_THAT(first.y, ElementsAre(4985, 4995));
    EXPECT_THAT(first.z, ElementsAre(110, 111, 112, 100, 101, 102));
    const GridData second = Read(Path("bands.tif"), 2);
    EXPECT_EQ(second.note, "");
    EXPECT_THAT(second.z, ElementsAre(210, 211, 212, 200, 201, 202));
    EXPECT_EQ(MessageOf([&] { Read(Path("bands.tif"), 3); }),
              Path("bands.tif") + ": there is no band 3; the last one is 2");
}

TEST_F(ViewerRasterTest, AsksForTheBandWhereSomebodyIsThere) {
    WriteGeoTiff(Path("bands.tif"), 3, 2, 2, Tens);
    ReadOptions options;
    options.asks = true;
    options.region = Region{1000, 1020, 4980, 5000};
    try {
        ReadGridFile(Path("bands.tif"), {}, options);
        FAIL() << "nothing is asked";
    } catch (const OpenQuestion& question) {
        ASSERT_EQ(question.Readings().size(), 2U);
        const Reading& second = question.Readings()[1];
        EXPECT_EQ(second.words, "Band 2");
        EXPECT_THAT(ReadGridFile(second.path, {}, second.options).z, ElementsAre(210, 211, 200, 201));
    }
    WriteGeoTiff(Path("one.tif"), 3, 2, 1, Tens);
    EXPECT_EQ(ReadGridFile(Path("one.tif"), {}, options).ColumnCount(), 2U);
}

TEST_F(ViewerRasterTest, ReadsTheVariableThatIsNamed) {
    WriteNetCdf(Path("two.nc"), {"depth", "salt"});
    const std::string depth = "NETCDF:\"" + Path("two.nc") + "\":depth";
    const std::string salt = "NETCDF:\"" + Path("two.nc") + "\":salt";
    EXPECT_EQ(MessageOf([&] { Read(Path("two.nc")); }),
              Path("two.nc") + ": several variables; open one of them by its whole name: " + depth + ", " +
                  salt);
    const GridData grid = Read("NETCDF:" + Path("two.nc") + ":salt");
    EXPECT_EQ(grid.title, "two.nc:salt");
    EXPECT_EQ(grid.ColumnCount(), 4U);
    EXPECT_TRUE(AreSame(Read(salt).z, grid.z));
    EXPECT_THAT(grid.z, testing::Contains(111.0f));
    EXPECT_THAT(Read(depth).z, testing::Contains(11.0f));
    WriteNetCdf(Path("one.nc"), {"depth"});
    EXPECT_TRUE(AreSame(Read(Path("one.nc")).z, Read(depth).z));
}

TEST_F(ViewerRasterTest, ReadsARegion) {
    WriteGeoTiff(Path("a.tif"), 6, 5, 1, Tens);
    const GridData part = ReadRegion(Path("a.tif"), {1010, 1035, 4975, 4990});
    EXPECT_THAT(part.x, ElementsAre(1015, 1025, 1035));
    EXPECT_THAT(part.y, ElementsAre(4975, 4985));
    EXPECT_THAT(part.z, ElementsAre(121, 122, 123, 111, 112, 113));
    EXPECT_THAT(MessageOf([&] {
                    ReadRegion(Path("a.tif"), {1010, 1035, 6000, 7000});
                }),
                HasSubstr("and of these 3 x 0 lie in the region"));
}

// Every k-th row and column, each where it is: cells of 100 x 100 have the values of a raster's cells.
TEST_F(ViewerRasterTest, ReducesWhatIsTooLarge) {
    WriteGeoTiff(Path("small.tif"), 50, 34, 1, Tens);
    WriteEnlarged("large.vrt", 5000, 3400);
    const GridData grid = Read(Path("large.vrt"));
    EXPECT_EQ(grid.note, "every 3rd of 5000 x 3400 points");
    ASSERT_EQ(grid.ColumnCount(), 1666U);
    ASSERT_EQ(grid.RowCount(), 1133U);
    EXPECT_EQ(grid.origin[0] + grid.x[0], 1);
    EXPECT_EQ(grid.origin[0] + grid.x[1665], 1 + 1665 * 3);
    EXPECT_EQ(grid.origin[1] + grid.y[1132], -1);
    EXPECT_EQ(grid.origin[1] + grid.y[0], -1 - 1132 * 3);
    for (const int r : {0, 32, 33, 34, 1132})
        for (const int c : {0, 32, 33, 66, 1665}) {
            const auto index = static_cast<std::size_t>((1132 - r) * 1666 + c);
            EXPECT_EQ(grid.z[index], Tens((3 * c + 1) / 100, (3 * r + 1) / 100, 1)) << r << ", " << c;
        }
    const GridData part = ReadRegion(Path("large.vrt"), {2000, 2010, -3000, -1000});
    EXPECT_EQ(part.note, "");
    EXPECT_EQ(part.ColumnCount(), 11U);
    EXPECT_EQ(part.RowCount(), 2001U);
}

TEST_F(ViewerRasterTest, ReducesByOddSteps) {
    WriteGeoTiff(Path("small.tif"), 50, 34, 1, Tens);
    WriteEnlarged("huge.vrt", 20000, 20000);
    const GridData grid = Read(Path("huge.vrt"));
    EXPECT_EQ(grid.note, "every 11th of 20000 x 20000 points");
    EXPECT_EQ(grid.ColumnCount(), 1818U);
}

// Packed blocks are read in another way, and give the same.
TEST_F(ViewerRasterTest, ReducesPackedBlocksAlike) {
    const auto hills = [](int column, int row, int band) {
        return column % 7 == 0 ? -1.0f
                               : static_cast<float>(band) + 0.1f * static_cast<float>(row * 131 + column);
    };
    WriteGeoTiff(Path("plain.tif"), 130, 99, 2, hills);
    WriteGeoTiff(Path("packed.tif"), 130, 99, 2, hills,
                 {"TILED=YES", "BLOCKXSIZE=32", "BLOCKYSIZE=16", "COMPRESS=DEFLATE"});
    for (const std::optional<Region>& region :
         {std::optional<Region>(), std::optional<Region>(Region{1100, 2000, 4100, 4900})}) {
        ReadOptions options;
        options.band = 2;
        options.region = region;
        options.mostPoints = 600;
        const GridData plain = ReadGridFile(Path("plain.tif"), {}, options);
        EXPECT_EQ(plain.note, region ? "every 7th of 90 x 80 points" : "every 11th of 130 x 99 points");
        const GridData packed = ReadGridFile(Path("packed.tif"), {}, options);
        EXPECT_EQ(packed.note, plain.note);
        EXPECT_TRUE(AreSame(packed.z, plain.z));
        EXPECT_TRUE(AreSame(packed.x, plain.x));
        EXPECT_EQ(packed.z[0], hills(region ? 13 : 5, region ? 83 : 93, 2));
        const auto stop = [](double share) { return share == 0.0; };
        EXPECT_THROW(ReadGridFile(Path("packed.tif"), stop, options), Cancelled);
    }
}

// A Surfer grid of 1.2 GB, of which the disk holds nothing but the beginning.
TEST_F(ViewerRasterTest, ReadsWhatExceedsTheMemoryByGdal) {
    constexpr std::uint32_t side = 12500;
    std::ofstream file(Path("huge.grd"), std::ios::binary);
    const auto write = [&file](auto number) {
        file.write(reinterpret_cast<const char*>(&number), sizeof number);
    };
    file << "DSRB";
    for (const std::uint32_t number : {4U, 2U})
        write(number);
    file << "GRID";
    for (const std::uint32_t number : {72U, side, side})
        write(number);
    for (const double number : {10.0, 20.0, 1.0, 1.0, 0.0, 9.0, 0.0, 1e38})
        write(number);
    file << "DATA";
    write(side * side * 8U);
    for (std::uint32_t i = 0; i < 10; ++i)
        write(static_cast<double>(i));
    file.close();
    std::filesystem::resize_file(Path("huge.grd"), 112U + std::size_t{side} * side * 8U);
    const GridData part = ReadRegion(Path("huge.grd"), {12, 15, 20, 21});
    EXPECT_THAT(part.x, ElementsAre(12, 13, 14, 15));
    EXPECT_THAT(part.z, ElementsAre(2, 3, 4, 5, 0, 0, 0, 0));
}

} // namespace

#endif
