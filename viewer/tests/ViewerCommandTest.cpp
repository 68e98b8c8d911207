// The viewer's command line: pictures, messages and exit codes, all without a display.
#include "GdalReader.h"
#include "PictureFile.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "support/PrivateFolder.h"
#include "ViewerProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
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

    static std::string BytesOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
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

TEST_F(ViewerCommandTest, DrawsSeveralSurfaces) {
    const std::string hill = dataFolder + "hill.csv", plane = dataFolder + "plane.csv";
    ExpectDifferentPictures({
        {hill},
        {hill, plane},
        {hill, plane, "--opacity", "0.5"},
        {hill, plane, "--opacity", "1", "--opacity", "1"},
        {hill, plane, "--surface-color", "red"},
        {hill, plane, "--surface-color", "values", "--surface-color", "values"},
        {plane, hill},
        {plane, hill, "--no-fit-surfaces"},
        {hill, plane, hill},
    });
    const std::string shortRow = dataFolder + "short-row.asc";
    ExpectFailure({hill, shortRow, "--picture", Path("a.png")}, shortRow + ":7: expected 4 values, found 3");
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
    fs::create_symlink("/dev/null", Path("device.png"));
    ExpectFailure({"--picture", Path("device.png")},
                  Path("device.png") + ": cannot write it: it is not a file");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(FileCount(), 2U);
}

// The bytes that files of a format begin with.
const std::map<std::string, std::string> beginnings = {
    {".png", "\x89PNG"}, {".jpg", "\xff\xd8\xff"}, {".jpeg", "\xff\xd8\xff"}, {".tif", "II*"},
    {".tiff", "II*"},    {".webp", "RIFF"},        {".pdf", "%PDF"},
};

TEST_F(ViewerCommandTest, WritesTheFormatThatTheNameEndsIn) {
    const std::vector<std::string> endings = KivoViewer::PictureEndings();
    EXPECT_THAT(endings, testing::IsSupersetOf({".png", ".jpg", ".jpeg", ".pdf"}));
    for (std::string ending : endings) {
        const std::string beginning = beginnings.at(ending);
        for (char& letter : ending) // the case does not matter
            letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
        const std::string path = Path("picture" + ending);
        const ViewerResult result = Run({"--picture", path, "--size", "80x60"});
        EXPECT_EQ(result.exitCode, 0) << ending;
        EXPECT_EQ(result.output + result.errors, "") << ending;
        EXPECT_THAT(BytesOf(path), StartsWith(beginning)) << ending;
    }
    EXPECT_EQ(FileCount(), endings.size());
}

TEST_F(ViewerCommandTest, RefusesFormatsBeforeAnythingElse) {
    for (const std::string name : {"picture.xyz", "picture", "png", "picture.png.gz"}) {
        const ViewerResult result = Run({"/nowhere.asc", "--picture", Path(name)});
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_THAT(result.errors, StartsWith("kivo-viewer: " + Path(name) +
                                              ": a picture's name must end in .png, .jpg, .jpeg"));
        EXPECT_THAT(result.errors, testing::EndsWith(" or .pdf\n"));
    }
    ExpectFailure({"/nowhere.asc", "--picture", Path("a.jpg"), "--transparent"},
                  Path("a.jpg") + ": JPEG has no transparency; take another format");
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ViewerCommandTest, WritesToTheStandardOutput) {
    const Image file = Draw({"--size", "80x60"});
    const ViewerResult result = Run({"--picture", "-", "--size", "80x60"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, BytesOf(Path("picture.png")));
    EXPECT_EQ(file.width, 80);
}

// One page as large as the picture at its resolution, with the picture's own pixels.
TEST_F(ViewerCommandTest, WritesPdfWithoutLoss) {
    const std::string path = Path("picture.pdf");
    ASSERT_EQ(Run({"--picture", path, "--size", "900x600", "--dpi", "300"}).exitCode, 0);
    const std::string pdf = BytesOf(path);
    EXPECT_THAT(pdf, HasSubstr("/MediaBox [0 0 216.000000 144.000000]"));
    EXPECT_THAT(pdf, HasSubstr("/Width 900\n/Height 600"));
    EXPECT_THAT(pdf, HasSubstr("/FlateDecode"));
    EXPECT_THAT(pdf, Not(HasSubstr("/DCTDecode")));
}

TEST_F(ViewerCommandTest, LeavesTheBackgroundOut) {
    const Image opaque = Draw({"--size", "240x180"});
    const Image clear = Draw({"--size", "240x180", "--transparent"});
    EXPECT_EQ(opaque.Pixel(2, 2)[3], 255);
    EXPECT_EQ(clear.Pixel(2, 2)[3], 0);
    int surface = 0;
    for (int y = 0; y < clear.height; ++y)
        for (int x = 0; x < clear.width; ++x)
            surface += clear.Pixel(x, y)[3] == 255;
    EXPECT_GT(surface, 240 * 180 / 10);
}

TEST_F(ViewerCommandTest, SmoothsByItself) {
    const Image usual = Draw({"--size", "240x180"});
    EXPECT_EQ(Compare(usual, Draw({"--size", "240x180", "--smoothing", "2"})).max, 0);
    EXPECT_GT(Compare(usual, Draw({"--size", "240x180", "--smoothing", "1"})).max, 50);
    EXPECT_GT(Compare(usual, Draw({"--size", "240x180", "--smoothing", "4"})).max, 20);
}

// The part of the columns between two shares of the width that is black, where grey counts as a part of it.
double BlackShare(const Image& image, double from, double to) {
    double sum = 0.0;
    int count = 0;
    for (int y = 0; y < image.height; ++y)
        for (int x = static_cast<int>(from * image.width); x < static_cast<int>(to * image.width);
             ++x, ++count) {
            const unsigned char* const rgb = image.Pixel(x, y);
            sum += 1.0 - std::max({rgb[0], rgb[1], rgb[2]}) / 255.0;
        }
    return sum / count;
}

// Texts and lines take the same part of a page whatever its resolution is, and texts not twice as much.
TEST_F(ViewerCommandTest, DrawsTheSamePageAtEveryResolution) {
    const Image screen = Draw({"--size", "480x320"});
    const double texts = BlackShare(screen, 0.05, 0.18); // the legend's
    const double lines = BlackShare(screen, 0.3, 1.0);
    const std::vector<std::vector<std::string>> finer = {
        {"--dpi", "300", "--size", "1500x1000"},
        {"--scale", "2", "--size", "960x640"},
        {"--dpi", "192", "--scale", "1.5", "--size", "1440x960"}};
    for (const std::vector<std::string>& arguments : finer) {
        const Image fine = Draw(arguments);
        EXPECT_NEAR(BlackShare(fine, 0.05, 0.18), texts, 0.12 * texts) << arguments[0];
        EXPECT_NEAR(BlackShare(fine, 0.3, 1.0), lines, 0.05 * lines) << arguments[0];
    }
    const Image thin = Draw({"--size", "1440x960"});
    EXPECT_LT(BlackShare(thin, 0.05, 0.18), 0.2 * texts);
    EXPECT_LT(BlackShare(thin, 0.3, 1.0), 0.6 * lines);
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
        {"--colors", "viridis"},
        {"--colors", "coolwarm", "--color-range", "400:800"},
        {"--color-range", "800:400"},
        {"--no-legend"},
        {"--legend-title", "m"},
        {"--legend-numbers", "round"},
        {"--legend-numbers", "fitted"},
        {"--z-labels", "engineering"},
        {"--x-labels", "date"},
        {"--points", dataFolder + "wells.csv"},
        {"--points", dataFolder + "wells.csv", "--group-names"},
    });
}

TEST_F(ViewerCommandTest, DrawsFromWhereItIsTold) {
    ExpectDifferentPictures({
        {},
        {"--azimuth", "-60"},
        {"--elevation", "80"},
        {"--azimuth", "-60", "--elevation", "80"},
        {"--zoom", "1.5"},
        {"--mode", "1", "--zoom", "0.5"},
    });
    const Image start = Draw({"--size", "400x300"});
    EXPECT_LE(Compare(Draw({"--size", "400x300", "--azimuth", "-315", "--zoom", "1"}), start).mean, 0.2);
}

TEST_F(ViewerCommandTest, RefusesViewsThatCannotBe) {
    ExpectFailure({"--azimuth", "north"}, "--azimuth: expected a number from -360 to 360, found north");
    ExpectFailure({"--elevation", "90.5"}, "--elevation: expected a number from -90 to 90, found 90.5");
    ExpectFailure({"--zoom", "0"}, "--zoom: expected a number from 0.01 to 1000, found 0");
    ExpectFailure({"--zoom", "nan"}, "--zoom: expected a number from 0.01 to 1000, found nan");
    ExpectFailure({"--mode", "2", "--azimuth", "10"}, "--azimuth: only the 3-D plot is turned");
    ExpectFailure({"--elevation", "10", "--mode", "1"}, "--elevation: only the 3-D plot is turned");
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

TEST_F(ViewerCommandTest, ReadsTheStandardInput) {
    const auto run = [](const std::string& input, const std::string& arguments) {
        ChildProcess shell("sh",
                           {"-c", std::string("exec ") + KIVO_VIEWER_PATH + ' ' + arguments + " <" + input},
                           WithoutDisplay());
        const int exitCode = shell.WaitForExit().value_or(-1);
        EXPECT_EQ(exitCode, shell.Errors().empty() ? 0 : 2);
        return shell.Errors();
    };
    const std::string size = " --title t --size 400x300 --picture " + Path("input.png");
    EXPECT_EQ(run(dataFolder + "hill.csv", "-" + size), "");
    EXPECT_EQ(Compare(ReadPng(Path("input.png")),
                      Draw({dataFolder + "hill.csv", "--title", "t", "--size", "400x300"}))
                  .max,
              0);
    EXPECT_EQ(run(dataFolder + "wells.csv", dataFolder + "hill.csv --points -" + size), "");
    EXPECT_EQ(run(dataFolder + "short-row.asc", "-" + size),
              "kivo-viewer: standard input:7: expected 4 values, found 3\n");
}

// Without a surface, and with axes of their own.
TEST_F(ViewerCommandTest, DrawsPointsAlone) {
    const auto draw = [this](const std::string& text) {
        std::ofstream(Path("wells.csv")) << text;
        return Draw({"--points", Path("wells.csv"), "--size", "400x300", "--no-legend", "--title", ""});
    };
    const Image few = draw("Jasmund,0,0,0\nArkona,10,10,1\n");
    const auto isRed = [](const unsigned char* rgb) { return rgb[0] > 100 && rgb[1] < 90 && rgb[2] < 90; };
    const auto count = [](const Image& image, const auto& is) {
        int pixels = 0;
        for (std::size_t i = 0; i + 3 < image.rgba.size(); i += 4)
            pixels += is(&image.rgba[i]);
        return pixels;
    };
    EXPECT_LT(ColorCount(few), 2000U);
    EXPECT_GT(count(few, isRed), 20) << "a point";
    EXPECT_GT(Compare(few, draw("Jasmund,0,0,0\nArkona,10,10,1\nHiddensee,5,5,0.5\n")).max, 50);
    EXPECT_GT(Compare(few, draw("Jasmund,0,0,0\nArkona,10,10,1000\n")).max, 50) << "the axes follow";
}

TEST_F(ViewerCommandTest, NamesWhatIsWrongWithPoints) {
    const std::string hill = dataFolder + "hill.csv";
    ExpectFailure({"--points", hill},
                  hill + ":2: expected x, y and z, found 6 values; --columns says which of them these are");
    ExpectFailure({"--curve", "/nowhere.csv", "--picture", Path("a.png")},
                  "/nowhere.csv: cannot open it: No such file or directory");
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ViewerCommandTest, RefusesSettingsThatCannotBe) {
    ExpectFailure({"--background", "pinkish"},
                  "--background: expected a colour such as ff8000 or red, found \"pinkish\"");
    ExpectFailure({"--z-ticks", "1"}, "--z-ticks: expected a whole number from 2 to 200, found \"1\"");
    ExpectFailure({"--z-min", ""}, "--z-min: expected a number, found \"\"");
    ExpectFailure({"--colors", "rainbow"},
                  "--colors: expected gradient, viridis, cividis, turbo, grey, terrain or coolwarm, found "
                  "\"rainbow\"");
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

TEST_F(ViewerCommandTest, ListsFormats) {
    const ViewerResult result = Run({"--list-formats"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(result.output, HasSubstr("ESRI ASCII grid\n"));
    EXPECT_THAT(result.output, HasSubstr("Pictures written:\n  .png\n"));
    for (const std::string& ending : KivoViewer::PictureEndings())
        EXPECT_THAT(result.output, HasSubstr("\n  " + ending + '\n'));
    EXPECT_EQ(result.output.find("\n  GTiff ") != std::string::npos, KivoViewer::HasGdal());
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
    unreachable["WAYLAND_DISPLAY"] = "nowhere";
    unreachable["DISPLAY"] = std::nullopt;
    EXPECT_NE(RunViewer({}, unreachable).errors.find("cannot open display nowhere"), std::string::npos);
    unreachable["QT_QPA_PLATFORM"] = "unknown";
    EXPECT_EQ(RunViewer({}, unreachable).errors,
              "kivo-viewer: Qt has no plugin for QT_QPA_PLATFORM=unknown; unset it\n");
}

} // namespace
