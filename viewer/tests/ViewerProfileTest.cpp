// Heights along a line: against triangles computed one by one, as text, and of what a scene shows.
#include "Content.h"
#include "Failure.h"
#include "Numbers.h"
#include "Options.h"
#include "Profile.h"
#include "ProfileMode.h"
#include "support/PrivateFolder.h"
#include "ViewerData.h"
#include "ViewerProcess.h"
#include "ViewerScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// Uneven columns and rows, uneven heights, far from 0.
GridData RoughGrid(unsigned int seed, double holes) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> step(0.2f, 3.0f), height(-50.0f, 50.0f), chance(0.0f, 1.0f);
    GridData grid;
    grid.title = "Rough";
    grid.origin[0] = 2600000.0;
    grid.origin[1] = 1200000.0;
    grid.origin[2] = 400.0;
    for (float x = 0.0f; grid.x.size() < 14; x += step(random))
        grid.x.push_back(x);
    for (float y = -5.0f; grid.y.size() < 11; y += step(random))
        grid.y.push_back(y);
    for (std::size_t i = 0; i < grid.x.size() * grid.y.size(); ++i)
        grid.z.push_back(static_cast<double>(chance(random)) < holes ? hole : height(random));
    return grid;
}

struct Corner {
    double x, y, z;
};

// By areas: inside, all three parts have the sign of the whole. Nothing outside.
bool InTriangle(const Corner& a, const Corner& b, const Corner& c, double x, double y, double* z) {
    const auto area = [](double ax, double ay, double bx, double by, double cx, double cy) {
        return (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
    };
    const double whole = area(a.x, a.y, b.x, b.y, c.x, c.y);
    const double u = area(x, y, b.x, b.y, c.x, c.y) / whole;
    const double v = area(a.x, a.y, x, y, c.x, c.y) / whole;
    const double w = 1.0 - u - v;
    if (u < 0.0 || v < 0.0 || w < 0.0) return false;
    *z = u * a.z + v * b.z + w * c.z;
    return true;
}

// Every triangle that is drawn is looked at.
double HeightByTriangles(const GridData& grid, double x, double y) {
    const auto corner = [&grid](std::size_t c, std::size_t r) {
        const float z = grid.z[r * grid.x.size() + c];
        return Corner{AbsoluteNumber(grid.origin[0], grid.x[c]), AbsoluteNumber(grid.origin[1], grid.y[r]),
                      std::isfinite(z) ? AbsoluteNumber(grid.origin[2], z) : std::nan("")};
    };
    double z = 0.0, found = std::nan("");
    for (std::size_t r = 0; r + 1 < grid.y.size(); ++r)
        for (std::size_t c = 0; c + 1 < grid.x.size(); ++c) {
            const Corner low = corner(c, r), right = corner(c + 1, r);
            const Corner high = corner(c + 1, r + 1), left = corner(c, r + 1);
            if (InTriangle(low, right, high, x, y, &z) && std::isfinite(z)) found = z;
            if (InTriangle(low, high, left, x, y, &z) && std::isfinite(z)) found = z;
        }
    return found;
}

void ExpectTriangles(const GridData& grid, const ProfileLine& line) {
    const std::vector<ProfilePoint> profile = FollowLine({HeightsOf(grid)}, line);
    ASSERT_GE(profile.size(), 2U);
    EXPECT_EQ(profile.front().x, line.x0);
    EXPECT_EQ(profile.back().y, line.y1);
    EXPECT_DOUBLE_EQ(profile.back().distance, line.Length());
    for (std::size_t i = 1; i < profile.size(); ++i)
        ASSERT_GT(profile[i].distance, profile[i - 1].distance);
    for (int i = 0; i < 997; ++i) {
        const double share = (i + 0.37) / 997.0; // on no edge
        const double x = line.x0 + share * (line.x1 - line.x0), y = line.y0 + share * (line.y1 - line.y0);
        const double expected = HeightByTriangles(grid, x, y);
        const double height = HeightAt(profile, 0, share * line.Length());
        ASSERT_EQ(std::isnan(height), std::isnan(expected)) << TextOf(line) << " at " << share;
        if (std::isnan(expected)) continue;
        ASSERT_NEAR(height, expected, 1e-6) << TextOf(line) << " at " << share;
    }
}

GridData Plane() {
    GridData grid;
    grid.title = "Plane";
    grid.x = {0, 1, 2};
    grid.y = {0, 1};
    grid.z = {0, 10, 20, 1, 11, 21};
    return grid;
}

} // namespace

TEST(ViewerProfileTest, HasTheHeightsOfTheTriangles) {
    std::mt19937 random(7);
    for (unsigned int seed = 0; seed < 6; ++seed) {
        const GridData grid = RoughGrid(seed, seed % 2 == 0 ? 0.0 : 0.15);
        std::uniform_real_distribution<double> x(grid.origin[0] - 4.0, grid.origin[0] + 26.0);
        std::uniform_real_distribution<double> y(grid.origin[1] - 9.0, grid.origin[1] + 16.0);
        for (int i = 0; i < 12; ++i)
            ExpectTriangles(grid, {x(random), y(random), x(random), y(random)});
        const double left = grid.origin[0] + 0.1, right = grid.origin[0] + 9.0;
        ExpectTriangles(grid, {left, grid.origin[1] + 0.123, right, grid.origin[1] + 0.123});
        ExpectTriangles(grid, {right, grid.origin[1] + 4.0, right, grid.origin[1] - 4.0});
    }
}

TEST(ViewerProfileTest, FollowsEdgesAndDiagonals) {
    GridData grid = Plane();
    for (float& z : grid.z)
        z = z * z; // bent at every edge
    const auto heights = [&grid](const ProfileLine& line) {
        std::vector<double> z;
        for (const ProfilePoint& point : FollowLine({HeightsOf(grid)}, line))
            z.push_back(point.z[0]);
        return z;
    };
    EXPECT_EQ(heights({0, 0, 2, 0}), (std::vector<double>{0, 100, 400})) << "the lower border";
    EXPECT_EQ(heights({0, 1, 2, 1}), (std::vector<double>{1, 121, 441})) << "the upper one";
    EXPECT_EQ(heights({1, 0, 1, 1}), (std::vector<double>{100, 121}));
    EXPECT_EQ(heights({0, 0, 1, 1}), (std::vector<double>{0, 121})) << "the edge of both triangles";
    const std::vector<double> across = heights({0, 1, 1, 0});
    ASSERT_EQ(across.size(), 3U);
    EXPECT_NEAR(across[1], 60.5, 1e-12) << "the diagonal from the smallest x and y, not the other one";
}

TEST(ViewerProfileTest, LeavesGapsOpen) {
    GridData grid;
    grid.x = {0, 1, 2, 3, 4, 5};
    grid.y = {0, 1, 2};
    grid.z.assign(18, 5.0f);
    grid.z[8] = hole; // in the middle row, at 2
    const std::vector<ProfilePoint> profile = FollowLine({HeightsOf(grid)}, {-1, 1, 5, 1});
    EXPECT_TRUE(std::isnan(HeightAt(profile, 0, 0.5))) << "before the grid";
    EXPECT_EQ(HeightAt(profile, 0, 1.5), 5.0);
    EXPECT_TRUE(std::isnan(HeightAt(profile, 0, 2.5)));
    EXPECT_TRUE(std::isnan(HeightAt(profile, 0, 3.5)));
    EXPECT_EQ(HeightAt(profile, 0, 4.5), 5.0);
    EXPECT_TRUE(std::isnan(HeightAt(profile, 0, 7.0)));
    // A gap from one corner to the next has a place without a height, too.
    grid.z.assign(18, 5.0f);
    grid.z[1] = grid.z[14] = hole; // below and above the edge from 1 to 2
    const std::vector<ProfilePoint> narrow = FollowLine({HeightsOf(grid)}, {0.2, 1, 2.8, 1});
    EXPECT_EQ(HeightAt(narrow, 0, 0.7), 5.0);
    EXPECT_TRUE(std::isnan(HeightAt(narrow, 0, 1.1)));
    EXPECT_TRUE(std::isnan(HeightAt(narrow, 0, 1.6)));
    EXPECT_EQ(HeightAt(narrow, 0, 1.9), 5.0);
    // An edge is there where one side of it is.
    grid.z[14] = 5.0f;
    EXPECT_EQ(HeightAt(FollowLine({HeightsOf(grid)}, {0.2, 1, 2.8, 1}), 0, 1.1), 5.0);
    grid.z[1] = 5.0f;
    grid.z[14] = hole;
    EXPECT_EQ(HeightAt(FollowLine({HeightsOf(grid)}, {0.2, 1, 2.8, 1}), 0, 1.1), 5.0);
}

TEST(ViewerProfileTest, HasNothingWithoutALine) {
    const GridData grid = Plane();
    EXPECT_TRUE(FollowLine({HeightsOf(grid)}, {1, 1, 1, 1}).empty());
    EXPECT_TRUE(FollowLine({HeightsOf(grid)}, {0, 0, std::nan(""), 1}).empty());
    EXPECT_TRUE(FollowLine({HeightsOf(grid)}, {0, 0, std::numeric_limits<double>::infinity(), 1}).empty());
    GridData one;
    one.x = {1};
    one.y = {1};
    one.z = {1};
    for (const ProfilePoint& point : FollowLine({HeightsOf(one)}, {0, 0, 2, 2}))
        EXPECT_TRUE(std::isnan(point.z[0]));
    EXPECT_TRUE(std::isnan(HeightAt({}, 0, 1.0)));
}

// Tenths are none in single precision: the first column lies a little beyond the number that is meant.
TEST(ViewerProfileTest, ReachesTheEdgesAsTheyAreMeant) {
    GridData grid;
    for (int i = 1; i < 10; ++i) {
        grid.x.push_back(0.1f * static_cast<float>(i));
        grid.y.push_back(0.1f * static_cast<float>(i));
    }
    grid.z.assign(grid.x.size() * grid.y.size(), 0.7f);
    for (const char* const line : {"0.1:0.1:0.9:0.1", "0.1:0.9:0.9:0.9", "0.1:0.35:0.9:0.35"}) {
        const std::vector<ProfilePoint> profile = FollowLine({HeightsOf(grid)}, ParseProfileLine(line));
        ASSERT_GE(profile.size(), 9U) << line;
        for (const ProfilePoint& point : profile)
            EXPECT_EQ(point.z[0], 0.7) << line << " at " << point.x;
        EXPECT_THAT(ProfileTable(profile), HasSubstr(",0.2,0.")) << line;
    }
}

TEST(ViewerProfileTest, IsATable) {
    const GridData grid = Plane();
    GridData other = Plane();
    other.x = {1, 2, 3};
    EXPECT_EQ(ProfileTable(FollowLine({HeightsOf(grid), HeightsOf(other)}, {0.5, 0, 2.5, 0})),
              "distance,x,y,z,z2\n"
              "0,0.5,0,5,\n"
              "0.5,1,0,10,0\n"
              "1.5,2,0,20,10\n"
              "2,2.5,0,,15\n");
    EXPECT_EQ(ProfileTable({}), "distance,x,y,z\n");
}

TEST(ViewerProfileTest, ReadsLines) {
    const ProfileLine line = ParseProfileLine("2600000.5:-2:1e3:0.25");
    EXPECT_EQ(line.x0, 2600000.5);
    EXPECT_EQ(line.y0, -2.0);
    EXPECT_EQ(line.x1, 1000.0);
    EXPECT_EQ(line.y1, 0.25);
    EXPECT_EQ(TextOf(ParseProfileLine(TextOf(line))), TextOf(line));
    for (const char* const text : {"", "1:2:3", "1:2:3:", "1:2:3:4:5", "a:2:3:4", "1:2:3:nan", "1:2:inf:4"})
        EXPECT_EQ(MessageOf([text] { ParseProfileLine(text); }),
                  std::string("expected X0:Y0:X1:Y1, found \"") + text + '"');
    EXPECT_EQ(MessageOf([] { ParseProfileLine("1:2:1:2"); }),
              "expected two different points X0:Y0:X1:Y1, found \"1:2:1:2\"");
}

// ---- The command line -----------------------------------------------------------------------------------

TEST(ViewerProfileCommandTest, WritesATable) {
    const std::vector<std::string> formula = {"--function", "x+10*y", "--x", "0:2:3", "--y", "0:1:2"};
    const auto run = [&formula](std::vector<std::string> more) {
        more.insert(more.begin(), formula.begin(), formula.end());
        return RunViewer(more);
    };
    const std::string expected = "distance,x,y,z\n0,0,1,10\n1,1,1,11\n2,2,1,12\n";
    const ViewerResult output = run({"--profile", "0:1:2:1", "--profile-csv", "-"});
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    EXPECT_EQ(output.output, expected);
    const PrivateFolder folder;
    const std::string path = folder.Path() + "/profile.csv";
    EXPECT_EQ(run({"--profile", "0:1:2:1", "--profile-csv", path}).exitCode, 0);
    std::ifstream file(path);
    std::ostringstream written;
    written << file.rdbuf();
    EXPECT_EQ(written.str(), expected);
    EXPECT_THAT(run({"--profile", "0:1:2:1", "--profile-csv", folder.Path() + "/none/profile.csv"}).errors,
                HasSubstr("cannot write it"));
    EXPECT_EQ(run({"--profile-csv", "-"}).exitCode, 2);
    EXPECT_EQ(run({"--profile-csv", "-"}).errors, "kivo-viewer: --profile-csv requires --profile\n");
    EXPECT_THAT(run({"--profile", "0:1:2", "--profile-csv", "-"}).errors,
                StartsWith("kivo-viewer: --profile: expected X0:Y0:X1:Y1, found"));
    EXPECT_THAT(run({"--profile", "0:1:2:1", "--profile-csv", "-", "--opacity", "0"}).errors,
                HasSubstr("--profile: there is no surface"));
}

TEST(ViewerProfileCommandTest, FollowsTheLineOfASession) {
    const PrivateFolder folder;
    const std::string path = folder.Path() + "/plot.kivo", plain = folder.Path() + "/plain.kivo";
    const std::string session = R"({"kivo-session": 1, "surfaces": [{"color": "values"}], )"
                                R"("function": "x+10*y", "x": "0:2:3", "y": "0:1:2")";
    std::ofstream(path) << session << R"(, "profile": "0:1:2:1"})";
    std::ofstream(plain) << session << "}";
    const ViewerResult output = RunViewer({path, "--profile-csv", "-"});
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    EXPECT_EQ(output.output, "distance,x,y,z\n0,0,1,10\n1,1,1,11\n2,2,1,12\n");
    EXPECT_EQ(RunViewer({path, "--profile", "0:0:1:0", "--profile-csv", "-"}).output,
              "distance,x,y,z\n0,0,0,0\n1,1,0,1\n")
        << "the command line counts more";
    EXPECT_EQ(RunViewer({plain, "--profile-csv", "-"}).exitCode, 2);
}

// ---- Scenes ---------------------------------------------------------------------------------------------

class ViewerProfileScene : public ViewerScene {};

TEST_F(ViewerProfileScene, FollowsWhatIsShown) {
    const ProfileLine line = {-1.9, -0.7, 1.8, 1.3};
    const auto text = [&] { return ProfileTable(m_scene.ProfileAlong(line).points); };
    const GridData hill = Hill(), over = Shifted(Hill(), 3.0f);
    EXPECT_EQ(text(), ProfileTable(FollowLine({HeightsOf(hill)}, line)));
    m_scene.AddSurface(over, UsualLooks(1));
    EXPECT_EQ(text(), ProfileTable(FollowLine({HeightsOf(hill), HeightsOf(over)}, line)));
    EXPECT_EQ(m_scene.ProfileAlong(line).names, (std::vector<std::string>{"Hill", "Shifted"}));
    SurfaceEntry first = m_scene.Surfaces()[0];
    first.isShown = false;
    m_scene.ChangeSurface(first);
    EXPECT_EQ(text(), ProfileTable(FollowLine({HeightsOf(over)}, line)));
    m_scene.RemoveSurface(m_scene.Surfaces()[1].number);
    EXPECT_TRUE(m_scene.ProfileAlong(line).points.empty());
}

TEST_F(ViewerProfileScene, HasAbsoluteNumbersAndHoles) {
    GridData grid = RoughGrid(3, 0.2);
    grid.z[0] = hole; // before which the plotter gets a row of its own
    m_scene.ShowGrid(grid);
    const ProfileLine line = {2600000.3, 1199996.0, 2600011.0, 1200007.0};
    EXPECT_EQ(ProfileTable(m_scene.ProfileAlong(line).points),
              ProfileTable(FollowLine({HeightsOf(grid)}, line)));
}

// A point of a colour of its own is where the scene says that its place is.
TEST_F(ViewerProfileScene, KnowsWherePlacesAreSeen) {
    EXPECT_FALSE(m_scene.PixelOf(0.0, 0.0)) << "the 3-D plot has no such place";
    EXPECT_FALSE(m_scene.PlaceOf(100.0, 100.0));
    m_scene.AddPoints(PointSet::Kind::measureGroup, {"point", {1.2, -0.6, 1.0}});
    PointSet set = m_scene.PointSets()[0];
    set.color = Color{255, 0, 255};
    m_scene.ChangePoints(set);
    m_scene.Settings().mode = 1;
    m_scene.ApplyView();
    for (int i = 0; i < 3; ++i) {
        const KivoDrawingTools::Image image = Draw();
        const auto pixel = m_scene.PixelOf(1.2, -0.6);
        ASSERT_TRUE(pixel);
        double sum[3] = {};
        for (int y = 0; y < image.height; ++y)
            for (int x = 0; x < image.width; ++x) {
                const unsigned char* const rgb = image.Pixel(x, y);
                if (rgb[1] > 60 || rgb[0] < 100 || rgb[2] < 100) continue;
                sum[0] += x + 0.5;
                sum[1] += y + 0.5;
                sum[2] += 1.0;
            }
        ASSERT_GT(sum[2], 10.0);
        EXPECT_NEAR(pixel->x, sum[0] / sum[2], 1.0);
        EXPECT_NEAR(pixel->y, sum[1] / sum[2], 1.0);
        const auto place = m_scene.PlaceOf(pixel->x, pixel->y);
        ASSERT_TRUE(place);
        EXPECT_NEAR(place->x, 1.2, 1e-9);
        EXPECT_NEAR(place->y, -0.6, 1e-9);
        m_scene.Plotter().Translate({0, 0}, {23, 11});
        m_scene.Plotter().Zoom(0.8f);
        if (i == 1) Set("exaggeration", "3");
    }
}

// ---- Names and figures ----------------------------------------------------------------------------------

TEST_F(ViewerProfileScene, NamesPointsAsTheirFileDoes) {
    const auto names = [this](const PointFile& file) {
        m_scene.RemoveAllPoints();
        for (const PointFile& group : GroupsOf(file))
            m_scene.AddPoints(PointSet::Kind::measureGroup, group);
        Set("point-labels", "off");
        const KivoDrawingTools::Image without = Draw();
        Set("point-labels", "on");
        return Compare(without, Draw()).max > 100;
    };
    EXPECT_TRUE(names({"wells", {0, 0, 1.2, 1, 1, 1}, {"A 7", "B"}})) << "groups of one point each";
    PointFile many = {"wells", {}, {}};
    for (int i = 0; i < 30; ++i) {
        many.points.insert(many.points.end(), {0.1 * i - 1.5, 0.05 * i, 1.2});
        many.labels.push_back("W" + std::to_string(i));
    }
    EXPECT_TRUE(names(many)) << "one group of all";
    EXPECT_FALSE(names({"wells", {0, 0, 1.2, 1, 1, 1}}));
    Set("point-labels", "on");
    m_scene.RemoveAllPoints();
    const KivoDrawingTools::Image empty = Draw();
    m_scene.AddPoints(PointSet::Kind::measureGroup, {"wells", {0, 0, 1.2}, {"A 7"}});
    const KivoDrawingTools::Image later = Draw();
    m_scene.RemoveAllPoints();
    m_scene.AddPoints(PointSet::Kind::measureGroup, {"wells", {0, 0, 1.2}});
    EXPECT_GT(Compare(later, Draw()).max, 100) << "points that come later have names, too";
    EXPECT_GT(Compare(later, empty).max, 100);
}

TEST_F(ViewerProfileScene, TellsTheExaggerationInTheTitle) {
    Set("exaggeration", "5");
    Set("show-exaggeration", "on");
    const KivoDrawingTools::Image told = Draw();
    Set("show-exaggeration", "off");
    Set("title", "Hill (vertical exaggeration 5x)");
    EXPECT_EQ(Compare(told, Draw()).max, 0);
    Unset("title");
    Set("show-exaggeration", "on");
    Set("exaggeration", "2.5"); // followed at once
    const KivoDrawingTools::Image other = Draw();
    Set("show-exaggeration", "off");
    Set("title", "Hill (vertical exaggeration 2.5x)");
    EXPECT_EQ(Compare(other, Draw()).max, 0);
    Set("show-exaggeration", "on");
    Set("title", "");
    const KivoDrawingTools::Image alone = Draw();
    Set("show-exaggeration", "off");
    Set("title", "vertical exaggeration 2.5x");
    EXPECT_EQ(Compare(alone, Draw()).max, 0);
}
