// The list of measure points in the plot: what it says, and when.
#include "parts/KivoMeasurePointGroupManager.h"
#include "PointFile.h"
#include "ViewerScene.h"

#include <KivoLegend.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Reaches a plotter's groups.
struct PlotterAccess : ViewerPlotter {
    static const KivoDrawingTools::CKivoMeasurePointGroup& Group(const ViewerPlotter& plotter,
                                                                 std::size_t index) {
        return *(plotter.*(&PlotterAccess::m_measureGroups))->m_groups[index];
    }
};

class ViewerPointListTest : public ViewerScene {
protected:
    void Add(const std::string& table) {
        for (const PointFile& group : GroupsOf(ReadPoints(table, "wells.csv")))
            m_scene.AddPoints(PointSet::Kind::measureGroup, group);
    }
    const std::vector<std::string>& Listed(std::size_t group) {
        return PlotterAccess::Group(m_scene.Plotter(), group).m_listedTexts;
    }
};

std::string ManyWells(int count) {
    std::string table = "name,x,y,z\n";
    for (int i = 0; i < count; ++i)
        table += "W" + std::to_string(i) + ",0.5,0,1\n";
    return table;
}

TEST_F(ViewerPointListTest, HasNamesAndCoordinatesInColumns) {
    Add("name,x,y,z\nB 12,0.5,-1.25,1\nHöhe,1,0,0.75\n");
    EXPECT_THAT(Listed(0), IsEmpty());
    Set("list-points", "on");
    EXPECT_THAT(Listed(0), ElementsAre("B 12  0.500  -1.250  1.0000"));
    EXPECT_THAT(Listed(1), ElementsAre("Höhe  1.000   0.000  0.7500"));
    EXPECT_TRUE(IsShowMeasureGroupNames(m_scene.Plotter()));
    Set("list-points", "off");
    EXPECT_THAT(Listed(0), IsEmpty());
    EXPECT_FALSE(IsShowMeasureGroupNames(m_scene.Plotter()));
}

TEST_F(ViewerPointListTest, FollowsPointsAndHowNumbersAreWritten) {
    Set("list-points", "on");
    Add("A,0.5,0,1\nB,1,0,1\n");
    EXPECT_THAT(Listed(1), ElementsAre("B  1.000  0.000  1.0000"));
    PointSet set = m_scene.PointSets()[0];
    set.name = "Longer";
    m_scene.ChangePoints(set);
    EXPECT_THAT(Listed(0), ElementsAre("Longer  0.500  0.000  1.0000"));
    EXPECT_THAT(Listed(1), ElementsAre("B       1.000  0.000  1.0000"));
    set.isShown = false;
    m_scene.ChangePoints(set);
    EXPECT_THAT(Listed(1), ElementsAre("B  1.000  0.000  1.0000"));
    Set("fit-digits", "off");
    EXPECT_THAT(Listed(1), ElementsAre("B  1.000  0.000  1.000"));
    Set("x-labels", "date");
    EXPECT_THAT(Listed(1), ElementsAre(testing::StartsWith("B  1970-01-02")));
    m_scene.RemovePoints(PointSet::Kind::measureGroup, 0);
    EXPECT_THAT(Listed(0), ElementsAre(testing::StartsWith("B  1970-01-02")));
    Unset("x-labels");
    GridData wide = Hill();
    for (float& x : wide.x)
        x *= 1000.0f;
    Set("fit-digits", "on");
    m_scene.ShowGrid(wide);
    EXPECT_THAT(Listed(0), ElementsAre("B  1  0.000  1.0000"));
}

// More names than there may be groups: they are one group, in whose list its name comes first.
TEST_F(ViewerPointListTest, SaysHowManyHaveNoRoom) {
    Set("list-points", "on");
    Add(ManyWells(30));
    ASSERT_EQ(m_scene.PointSets().size(), 1U);
    ASSERT_EQ(Listed(0).size(), 26U);
    EXPECT_EQ(Listed(0)[0], "wells.csv");
    EXPECT_EQ(Listed(0)[1], "  W0   0.500  0.000  1.0000");
    EXPECT_EQ(Listed(0)[24], "  W23  0.500  0.000  1.0000");
    EXPECT_EQ(Listed(0)[25], "and 6 more");
    Add("x,y,z\n0,0,1\n");
    EXPECT_THAT(Listed(1), IsEmpty()) << "without names it is listed by its own";
}

} // namespace
