// The viewer's command line: pictures, messages and exit codes, all without a display.
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/PrivateFolder.h"
#include "ViewerProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

const std::string dataFolder = KIVO_TEST_DATA "/";

// A folder of this test's own, removed afterwards.
class ViewerCommandTest : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return m_folder.Path() + '/' + name; }
    std::size_t FileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder.Path()), fs::directory_iterator()));
    }

    static ViewerResult Run(const std::vector<std::string>& arguments) {
        return RunViewer(arguments, WithoutDisplay());
    }

    // Runs the viewer for a picture that must come without a word.
    Image Draw(std::vector<std::string> arguments) {
        const std::string path = Path("picture.png");
        arguments.insert(arguments.end(), {"--picture", path});
        const ViewerResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output + result.errors, "");
        return ReadPng(path);
    }

    // Each command draws a picture of its own.
    void ExpectDifferentPictures(const std::vector<std::vector<std::string>>& commands) {
        std::vector<Image> images;
        for (std::vector<std::string> command : commands) {
            command.insert(command.end(), {"--size", "400x300"});
            images.push_back(Draw(command));
            for (std::size_t i = 0; i + 1 < images.size(); ++i)
                EXPECT_GT(Compare(images[i], images.back()).max, 50)
                    << "command " << images.size() << " draws what " << i + 1 << " draws";
        }
    }

    // Exactly one line on standard error, nothing else, and exit code 2.
    static void ExpectFailure(const std::vector<std::string>& arguments, const std::string& message) {
        const ViewerResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "kivo-viewer: " + message + "\n");
    }

    PrivateFolder m_folder;
};

// Different colours of a picture; the surface alone has hundreds.
std::size_t ColorCount(const Image& image) {
    std::set<int> colors;
    for (std::size_t i = 0; i + 3 < image.rgba.size(); i += 4)
        colors.insert(image.rgba[i] << 16 | image.rgba[i + 1] << 8 | image.rgba[i + 2]);
    return colors.size();
}

TEST_F(ViewerCommandTest, DrawsTheSampleWithoutDisplay) {
    const Image image = Draw({"--size", "640x480"});
    EXPECT_EQ(image.width, 640);
    EXPECT_EQ(image.height, 480);
    EXPECT_GT(ColorCount(image), 200U);
    EXPECT_EQ(FileCount(), 1U) << "only the picture stays";
}

TEST_F(ViewerCommandTest, RecordsTheResolution) {
    Draw({"--size", "80x60"});
    EXPECT_EQ(ReadPngResolution(Path("picture.png")), 96);
    Draw({"--size", "80x60", "--dpi", "300"});
    EXPECT_EQ(ReadPngResolution(Path("picture.png")), 300);
}

TEST_F(ViewerCommandTest, DrawsLargePicturesInTiles) {
    const Image image = Draw({"--size", "6000x300"});
    EXPECT_EQ(image.width, 6000);
    EXPECT_EQ(image.height, 300);
    EXPECT_GT(ColorCount(image), 200U);
}

TEST_F(ViewerCommandTest, DrawsFilesFormulasAndModes) {
    ExpectDifferentPictures({
        {dataFolder + "hill.csv"},
        {dataFolder + "hill-with-holes.xyz"},
        {"--function", "sin(x)*cos(y)", "--x", "-3:3:50", "--y", "-2:2:40"},
        {"--mode", "0"},
        {"--mode", "1"},
        {"--mode", "2"},
        {"--mode", "3"},
        {"--mode", "3", "--dpi", "192"},
    });
}

// A hole in the grid's first corner must not reach the range of the colours.
TEST_F(ViewerCommandTest, DrawsSurfacesWithHoles) {
    const Image whole = Draw({"--function", "x*x+y*y", "--size", "400x300"});
    const Image holed = Draw({"--function", "x*x+y*y + 0/(x+y>-5)", "--size", "400x300"});
    EXPECT_GT(ColorCount(holed), 100U);
    EXPECT_GT(Compare(whole, holed).max, 50);
    EXPECT_LT(Compare(whole, holed).mean, 10.0);
}

TEST_F(ViewerCommandTest, ReplacesAPictureAndFollowsLinks) {
    std::ofstream(Path("real.png")) << "old";
    fs::create_symlink("real.png", Path("link.png"));
    EXPECT_EQ(Run({"--picture", Path("link.png"), "--size", "80x60"}).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(Path("link.png")));
    EXPECT_EQ(ReadPng(Path("real.png")).width, 80);
    EXPECT_EQ(FileCount(), 2U);
}

TEST_F(ViewerCommandTest, LeavesNothingBehindWhereThePictureCannotBeWritten) {
    ExpectFailure({"--picture", Path("nowhere/a.png")},
                  Path("nowhere/a.png") + ": cannot write it: No such file or directory");
    fs::create_directory(Path("folder.png"));
    ExpectFailure({"--picture", Path("folder.png")},
                  Path("folder.png") + ": cannot write it: it is not a file");
    ExpectFailure({"--picture", "/dev/null"}, "/dev/null: cannot write it: it is not a file");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ViewerCommandTest, NamesWhatIsWrongWithData) {
    const std::string shortRow = dataFolder + "short-row.asc";
    ExpectFailure({shortRow}, shortRow + ":7: expected 4 values, found 3");
    ExpectFailure({shortRow, "--picture", Path("a.png")}, shortRow + ":7: expected 4 values, found 3");
    ExpectFailure({"/nowhere.asc"}, "/nowhere.asc: cannot open it: No such file or directory");
    ExpectFailure({"--function", "sin(x"}, "formula: Missing parenthesis at position 6");
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ViewerCommandTest, KeepsMessagesOnOneLine) {
    ExpectFailure({"no\nsuch\tfile"}, "no such file: cannot open it: No such file or directory");
}

TEST_F(ViewerCommandTest, RefusesUnknownOptions) {
    ExpectFailure({"--unknown"},
                  "The following argument was not expected: --unknown; kivo-viewer --help lists the options");
    ExpectFailure({"--x", "0:1:5"}, "--x requires --function; kivo-viewer --help lists the options");
}

// The settings themselves are tested in ViewerSettingsTest.
TEST_F(ViewerCommandTest, DrawsWithSettings) {
    ExpectDifferentPictures({
        {},
        {"--title", "Höhe über NN (m)"},
        {"--x-title", "高さ"},
        {"--z-contours"},
        {"--z-contours", "--contour-count", "3"},
        {"--no-grid-lines"},
        {"--z-precision", "4"},
        {"--gradient-start", "white", "--gradient-end", "#800000"},
        {"--z-min", "-1000"},
        {"--inverse-x"},
    });
}

TEST_F(ViewerCommandTest, DrawsPointsCurvesAndTheTracedPoint) {
    ExpectDifferentPictures({
        {},
        {"--points", dataFolder + "wells.csv"},
        {"--points", dataFolder + "wells.csv", "--point-size", "9"},
        {"--points", dataFolder + "wells.csv", "--points", dataFolder + "flight.csv"},
        {"--curve", dataFolder + "flight.csv"},
        {"--trace-at", "210,170"},
    });
}

TEST_F(ViewerCommandTest, NamesWhatIsWrongWithPoints) {
    const std::string hill = dataFolder + "hill.csv";
    ExpectFailure({"--points", hill}, hill + ":2: expected x, y and z, found 6 values");
    ExpectFailure({"--curve", "/nowhere.csv", "--picture", Path("a.png")},
                  "/nowhere.csv: cannot open it: No such file or directory");
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ViewerCommandTest, RefusesSettingsThatCannotBe) {
    ExpectFailure({"--background", "pinkish"},
                  "--background: expected a colour such as ff8000 or red, found \"pinkish\"");
    ExpectFailure({"--z-ticks", "1"}, "--z-ticks: expected a whole number from 2 to 200, found \"1\"");
    ExpectFailure({"--z-min", ""}, "--z-min: expected a number, found \"\"");
    ExpectFailure({"--z-min", "5000", "--picture", Path("a.png")},
                  "the Z axis must rise, not go from 5000 to 1200");
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ViewerCommandTest, AnswersHelpAndVersion) {
    const ViewerResult help = Run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    for (const char* const option : {"--function", "--x-title TEXT", "--no-grid-lines", "--z-contours"})
        EXPECT_THAT(help.output, HasSubstr(option));
    EXPECT_THAT(help.output, Not(HasSubstr("--no-z-contours")));
    EXPECT_EQ(help.errors, "");
    const ViewerResult version = Run({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_THAT(version.output, StartsWith("kivo-viewer "));
    EXPECT_EQ(version.errors, "");
}

// Each option that the guide names is one that the help lists.
TEST_F(ViewerCommandTest, HasTheOptionsOfTheGuide) {
    std::ifstream file(KIVO_VIEWER_GUIDE);
    const std::string guide{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::string help = Run({"--help"}).output;
    const std::regex option("--[a-z][a-z-]*");
    int count = 0;
    for (std::sregex_iterator it(guide.begin(), guide.end(), option), end; it != end; ++it, ++count)
        EXPECT_THAT(help, ContainsRegex(it->str() + "[ ,\n]")) << it->str();
    EXPECT_GT(count, 30);
}

TEST_F(ViewerCommandTest, SaysWhatToDoWithoutADisplay) {
    ExpectFailure({}, "no display; set DISPLAY or use --picture FILE.png");
    Environment unreachable = WithoutDisplay();
    unreachable["DISPLAY"] = ":4095";
    const ViewerResult result = RunViewer({}, unreachable);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors,
              "kivo-viewer: cannot open display :4095; set DISPLAY or use --picture FILE.png\n");
}

} // namespace
