// Sessions: what is written is read again, and shows the same.
#include "Content.h"
#include "Failure.h"
#include "Options.h"
#include "Profile.h"
#include "Session.h"
#include "support/PrivateFolder.h"
#include "ViewerData.h"
#include "ViewerScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace KivoTest;
using namespace KivoViewer;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;
using testing::HasSubstr;

namespace {

const std::string hill = KIVO_TEST_DATA "/hill.csv";
const std::string plane = KIVO_TEST_DATA "/plane.csv";
const std::string wells = KIVO_TEST_DATA "/wells.csv";
const std::string flight = KIVO_TEST_DATA "/flight.csv";

class ViewerSessionTest : public ViewerScene {
protected:
    void Show(const Options& options) { ShowContent(m_scene, LoadContent(options, Hill), options); }

    static Options Of(const std::vector<std::string>& words) {
        std::vector<const char*> arguments = {"kivo-viewer"};
        for (const std::string& word : words)
            arguments.push_back(word.c_str());
        return ParseOptions(static_cast<int>(arguments.size()), arguments.data());
    }

    std::string Path(const std::string& name) const { return m_folder.Path() + '/' + name; }

    PrivateFolder m_folder;
};

TEST_F(ViewerSessionTest, ShowsAgainWhatWasShown) {
    Show(Of({hill, plane, "--points", wells, "--curve", flight, "--z-max", "4.5", "--colors", "viridis",
             "--exaggeration", "0.5", "--no-legend"}));
    SurfaceEntry over = m_scene.Surfaces()[1];
    over.looks.opacity = 0.25;
    over.hasLines = true;
    over.name = "Ebene \"0\"";
    m_scene.ChangeSurface(over);
    PointSet group = m_scene.PointSets()[0];
    group.name = "Bohrungen";
    group.color = {0, 255, 255};
    m_scene.ChangePoints(group);
    PointSet curve = m_scene.PointSets()[1];
    curve.isShown = false;
    m_scene.ChangePoints(curve);
    m_scene.Plotter().Rotate({100, 100}, {160, 120});
    const Image before = Draw();
    WriteSessionFile(SessionOf(m_scene), Path("plot.kivo"));

    Show(Of({plane, "--mode", "1"}));
    EXPECT_GT(Compare(before, Draw()).max, 50);
    Show(WithSession(Of({}), ReadSessionFile(Path("plot.kivo"))));
    EXPECT_LE(Compare(before, Draw()).max, 2) << "angles are rounded at their last digits";
    EXPECT_EQ(m_scene.Surfaces()[1].name, "Ebene \"0\"");
    ASSERT_EQ(m_scene.PointSets().size(), 2U);
    EXPECT_EQ(m_scene.PointSets()[0].name, "Bohrungen");
    EXPECT_FALSE(m_scene.PointSets()[1].isShown);
    EXPECT_EQ(TextOf(FindSetting("exaggeration"), m_scene.Settings()), "0.5");
}

// An axis that cannot be leaves the rest, which would be gone for good when the file is right again.
TEST_F(ViewerSessionTest, ShowsTheRestOfWhatCannotBeShown) {
    EXPECT_THROW(Show(Of({hill, plane, "--points", wells, "--curve", flight, "--z-min", "1e6"})), Failure);
    EXPECT_EQ(m_scene.Surfaces().size(), 2U);
    EXPECT_EQ(m_scene.PointSets().size(), 2U);
}

TEST_F(ViewerSessionTest, GivesWayToTheCommandLine) {
    Show(Of({hill, "--title", "One", "--z-max", "4.5"}));
    WriteSessionFile(SessionOf(m_scene), Path("plot.kivo"));
    Show(WithSession(Of({"--title", "Two", "--mode", "2"}), ReadSessionFile(Path("plot.kivo"))));
    EXPECT_EQ(m_scene.Settings().title, "Two");
    EXPECT_EQ(m_scene.Settings().axes[2].max, 4.5);
    EXPECT_EQ(m_scene.Plotter().GetCurrentPlotType(), 2);
}

TEST_F(ViewerSessionTest, KeepsFormulasAndTheSample) {
    Session session = SessionOf(m_scene);
    session.function = "x*y";
    session.x = {0.0, 2.0, 5};
    const Options options = WithSession(Of({}), ReadSession(WriteSession(session, "a.kivo"), "a.kivo"));
    EXPECT_EQ(options.function, "x*y");
    EXPECT_EQ(options.x.count, 5U);
    Show(options);
    EXPECT_GE(m_scene.Plotter().GetXAxisMin(), -1.0f) << "from 0 on, the sample from -2";
    session.function.clear();
    Show(WithSession(Of({}), ReadSession(WriteSession(session, "a.kivo"), "a.kivo")));
    EXPECT_EQ(m_scene.Surfaces()[0].name, "Hill") << "the sample";
}

TEST_F(ViewerSessionTest, KeepsTheLineOfAProfile) {
    const ProfileLine line = {2600000.1, -1.0 / 3.0, 5e-324, 1200000.0000000002};
    Session session = SessionOf(m_scene);
    EXPECT_THAT(WriteSession(session, "a.kivo"), testing::Not(HasSubstr("profile")));
    EXPECT_FALSE(ReadSession(WriteSession(session, "a.kivo"), "a.kivo").profile);
    session.profile = line;
    const std::string text = WriteSession(session, "a.kivo");
    EXPECT_THAT(text, HasSubstr("\"2600000.1:-0.3333333333333333:5e-324:1200000.0000000002\""));
    const Options options = WithSession(Of({}), ReadSession(text, "a.kivo"));
    ASSERT_TRUE(options.profile);
    EXPECT_EQ(options.profile->x0, line.x0);
    EXPECT_EQ(options.profile->y0, line.y0);
    EXPECT_EQ(options.profile->x1, line.x1);
    EXPECT_EQ(options.profile->y1, line.y1);
    const Options given = WithSession(Of({"--profile", "0:0:1:1"}), ReadSession(text, "a.kivo"));
    EXPECT_EQ(given.profile->x0, 0.0) << "the command line counts more";
}

// A folder with data and session may be moved.
TEST_F(ViewerSessionTest, NamesFilesFromItsFolder) {
    std::filesystem::create_directory(Path("data"));
    std::filesystem::copy_file(hill, Path("data/hill.csv"));
    Show(Of({Path("data/hill.csv")}));
    WriteSessionFile(SessionOf(m_scene), Path("plot.kivo"));
    std::filesystem::create_directory(Path("moved"));
    for (const char* const name : {"data", "plot.kivo"})
        std::filesystem::rename(Path(name), Path(std::string("moved/") + name));
    const Session session = ReadSessionFile(Path("moved/plot.kivo"));
    EXPECT_EQ(session.surfaces[0].path, Path("moved/data/hill.csv"));
    EXPECT_THAT(WriteSession(session, Path("elsewhere/plot.kivo")), HasSubstr(Path("moved/data/hill.csv")));
}

// File names are bytes: disks that were written in another encoding have such ones.
TEST_F(ViewerSessionTest, NamesFilesByTheirBytes) {
    const std::string folder = Path("H\xF6hen"), grid = folder + "/caf\xE9 50%.csv",
                      points = Path("\xFF.csv");
    const std::string minus = folder + "/\xEF\xBB\xBFmark.csv", over = folder + "/Gel\xC3\xA4nde 50%41.csv";
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(hill, grid);
    std::filesystem::copy_file(wells, points);
    std::filesystem::copy_file(plane, minus);
    std::filesystem::copy_file(plane, over);
    const std::string path = folder + "/plot.kivo";
    Show(Of({grid, over, "--points", points, "--curve", points, "--minus", minus}));
    Session saved = SessionOf(m_scene);
    saved.minus = minus;
    const std::string text = WriteSession(saved, path);
    EXPECT_THAT(text, HasSubstr(R"("bytes": "caf%E9 50%25.csv")")) << "from the session's folder on";
    EXPECT_THAT(text, HasSubstr("\"Gel\xC3\xA4nde 50%41.csv\"")) << "an ordinary name stays as it is";
    EXPECT_THAT(text, HasSubstr("/%FF.csv\""));
    std::ofstream(path) << text;

    const Session read = ReadSessionFile(path);
    EXPECT_EQ(read.surfaces[0].path, grid);
    EXPECT_EQ(read.surfaces[1].path, over);
    EXPECT_EQ(read.points[0].path, points);
    EXPECT_EQ(read.points[1].path, points);
    EXPECT_EQ(read.minus, minus);
    Show(WithSession(Of({}), read));
    EXPECT_EQ(m_scene.Surfaces()[0].path, grid);
    EXPECT_EQ(m_scene.PointSets().size(), 2U);

    std::filesystem::rename(folder, Path("moved")); // all of it but the points
    EXPECT_EQ(ReadSessionFile(Path("moved/plot.kivo")).surfaces[0].path, Path("moved/caf\xE9 50%.csv"));
    EXPECT_EQ(ReadSessionFile(Path("moved/plot.kivo")).points[0].path, points);
}

TEST_F(ViewerSessionTest, NamesWhatIsNoFileAsItIs) {
    for (const std::string& name :
         {std::string("NETCDF:\"sea.nc\":depth"), std::string("NETCDF:m\xE9r.nc:depth")}) {
        Session session = SessionOf(m_scene);
        session.surfaces[0].path = name;
        EXPECT_EQ(ReadSession(WriteSession(session, "a.kivo"), "a.kivo").surfaces[0].path, name);
    }
}

TEST_F(ViewerSessionTest, SaysWhatIsWrong) {
    const auto messageOf = [](const std::string& text) {
        return MessageOf([&] { ReadSession(text, "a.kivo"); });
    };
    EXPECT_THAT(messageOf("x,y,z"), HasSubstr("a.kivo: no session: "));
    EXPECT_EQ(messageOf("{}"), "a.kivo: no session");
    EXPECT_EQ(messageOf("[1]"), "a.kivo: no session");
    EXPECT_EQ(messageOf(R"({"kivo-session": 99})"), "a.kivo: a session of a later version");
    EXPECT_EQ(messageOf(R"({"kivo-session": 1})"), "a.kivo: it names no surface");
    const std::string surface = R"("kivo-session": 1, "surfaces": [{"color": "values"}])";
    EXPECT_EQ(messageOf("{" + surface + "}"), "");
    EXPECT_EQ(messageOf("{" + surface + R"(, "settings": {"x-ticks": "1"}})"),
              "a.kivo: x-ticks: expected a whole number from 2 to 200, found \"1\"");
    EXPECT_EQ(messageOf("{" + surface + R"(, "settings": {"of a later version": "1", "title": 3}})"), "");
    EXPECT_EQ(messageOf("{" + surface + R"(, "profile": "1:2:3"})"),
              "a.kivo: profile: expected X0:Y0:X1:Y1, found \"1:2:3\"");
    EXPECT_EQ(messageOf("{" + surface + R"(, "profile": ["of a later version"]})"), "");
    EXPECT_THAT(messageOf("{" + surface + R"(, "points": [{}]})"), HasSubstr("a.kivo: expected a colour"));
    EXPECT_EQ(messageOf("{" + surface + R"(, "view": {"zoom": "large"}, "mode": 17})"), "");
    EXPECT_EQ(messageOf(R"({"kivo-session": 1, "surfaces": [{"file": "a\u0000b.asc", "color": "values"}]})"),
              "a.kivo: a name of a file ends before its text does");
    EXPECT_EQ(messageOf(R"({"kivo-session": 1, "surfaces": [{"file": {"bytes": "a%00b"}}]})"),
              "a.kivo: a name of a file ends before its text does");
}

TEST_F(ViewerSessionTest, TakesSettingsBackAsAWhole) {
    const Image before = Draw();
    const PlotSettings plain = m_scene.Settings();
    Set("z-max", "0.5");
    Set("background", "#203040");
    Set("z-contours", "on");
    const Image after = Draw();
    const PlotSettings changed = m_scene.Settings();
    m_scene.TakeSettings(plain);
    EXPECT_EQ(Compare(before, Draw()).max, 0);
    m_scene.TakeSettings(changed);
    EXPECT_EQ(Compare(after, Draw()).max, 0);
}

TEST_F(ViewerSessionTest, KnowsTheGroupsOfAFileApart) {
    const std::string named = Path("named.csv");
    std::ofstream(named) << "A,0,0,1\nB,1,0,1\nC,0,1,1\nB,1,1,1\n";
    Show(Of({hill, "--points", named, "--points", wells}));
    ASSERT_EQ(m_scene.PointSets().size(), 4U);
    m_scene.RemovePoints(PointSet::Kind::measureGroup, 0);
    PointSet b = m_scene.PointSets()[0];
    b.name = "renamed";
    b.color = {1, 2, 3};
    m_scene.ChangePoints(b);
    WriteSessionFile(SessionOf(m_scene), Path("plot.kivo"));

    std::ofstream(named) << "D,0,0,1\nC,0,1,1\nB,1,1,1\n";
    Show(WithSession(Of({"--points", flight}), ReadSessionFile(Path("plot.kivo"))));
    std::vector<std::string> names;
    for (const PointSet& set : m_scene.PointSets())
        names.push_back(set.name);
    EXPECT_THAT(names, testing::ElementsAre("C", "renamed", "wells.csv", "flight.csv"));
    EXPECT_EQ(m_scene.PointSets()[1].color.Packed(), b.color.Packed());
}

TEST_F(ViewerSessionTest, ReadsEachFileAsItWasRead) {
    const std::string table = Path("table.csv");
    std::ofstream(table) << "x;y;z;v\n0;0;1;5\n1;0;1;6,5\n0;1;1;7\n1;1;1;8\n";
    Show(Of({table, "--columns", "x,y,v", "--decimal", "comma", "--points", table, "--region", "0:1:0:1"}));
    const Image before = Draw();
    WriteSessionFile(SessionOf(m_scene), Path("plot.kivo"));

    Show(Of({plane}));
    EXPECT_GT(Compare(before, Draw()).max, 50);
    Show(WithSession(Of({"--columns", "all"}), ReadSessionFile(Path("plot.kivo"))));
    EXPECT_EQ(Compare(before, Draw()).max, 0);
    const ReadOptions reading = m_scene.Surfaces()[0].reading;
    EXPECT_EQ(reading.decimalMark, ',');
    EXPECT_THAT(reading.columns, testing::ElementsAre("x", "y", "v"));
    ASSERT_TRUE(reading.region);
    EXPECT_EQ(reading.region->x1, 1.0);
}

TEST_F(ViewerSessionTest, RemovesPointsAndCurves) {
    const Image before = Draw();
    for (const char* const name : {"a", "b", "c"}) {
        m_scene.AddPoints(PointSet::Kind::measureGroup, {name, {0, 0, 1.1}});
        m_scene.AddPoints(PointSet::Kind::curve, {name, {-2, -2, 1, 2, 2, 1}});
    }
    m_scene.RemovePoints(PointSet::Kind::measureGroup, 1);
    m_scene.RemovePoints(PointSet::Kind::curve, 0);
    std::string names;
    for (const PointSet& set : m_scene.PointSets())
        names += set.name + std::to_string(set.index);
    EXPECT_EQ(names, "a0c1b0c1");
    m_scene.RemoveAllPoints();
    EXPECT_TRUE(m_scene.PointSets().empty());
    EXPECT_EQ(Compare(before, Draw()).max, 0);
}

TEST(ViewerSessionOptionsTest, TakesASessionAsAFile) {
    const char* const arguments[] = {"kivo-viewer", "plot.kivo", "--watch"};
    const Options options = ParseOptions(3, arguments);
    EXPECT_EQ(options.sessionFile, "plot.kivo");
    EXPECT_TRUE(options.files.empty());
    EXPECT_TRUE(options.watches);
    const char* const both[] = {"kivo-viewer", "--session", "plot.kivo", "heights.asc"};
    EXPECT_THAT(MessageOf([&] { ParseOptions(4, both); }), HasSubstr("session"));
}

} // namespace
