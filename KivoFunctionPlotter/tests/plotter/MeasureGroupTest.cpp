// Measure groups: their members, their balls in pixels, and their legend.
#include "parts/KivoMeasurePointGroupManager.h"
#include "support/LayerAlone.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int refused = -3;
constexpr int badIndex = -2;
constexpr int notFound = -1;

// Red, green and blue of the ten groups that come first.
constexpr double palette[10][3] = {
    {0.8, 0.8, 0.8},   {0.5, 0.25, 0.25}, {0.25, 0.5, 0.25},  {0.8, 0.55, 0.18}, {0.24, 0.3, 0.54},
    {0.5, 0.27, 0.52}, {0.25, 0.0, 0.25}, {0.75, 0.75, 0.75}, {0.0, 0.0, 0.0},   {1.0, 1.0, 1.0}};

unsigned long PaletteColor(std::size_t row) {
    unsigned long color = 0;
    for (int channel = 0; channel < 3; ++channel)
        color |= static_cast<unsigned long>(palette[row][channel] * 255.0) << (8 * channel);
    return color;
}

class GroupProbe : public PlotterProbe {
public:
    using CKivoFunctionPlotter::RenderLegend;
    using CKivoFunctionPlotter::RenderMeasurePoints;

    const CKivoMeasurePointGroup& Group(std::size_t index) const {
        return *m_measureGroups->m_groups.at(index);
    }
};

/// What a host's derived class does to show the legend: the frame, then the legend over it.
class LegendPlotter : public GroupProbe {
public:
    void DrawSceneWithLegend() {
        DrawScene();
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        RenderLegend();
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_LIGHTING);
    }
};

/// Without a screen, for what needs no pixels.
class MeasureGroups : public testing::Test {
protected:
    MeasureGroups() {
        if (plotter.OnCreate(window.Handle(), 120, 80, true) != 0)
            throw std::runtime_error(LastWindowError());
    }
    int Add(const char* name, unsigned int count = 2) {
        return plotter.AddMeasurePoints(count, 3, points, name);
    }
    std::string Name(unsigned int index) {
        std::string name = "unchanged";
        EXPECT_EQ(plotter.GetMeasureGroupName(index, &name), 0);
        return name;
    }

    TestWindow window{WindowKind::offscreen, 120, 80};
    float points[6] = {1, 2, 3, 4, 5, 6}; // outlives the plotter, and freeing it would end the program
    GroupProbe plotter;
};

constexpr int width = 400, height = 300;

// The host's arrays, a base so that they outlive the plotter.
struct HostArrays {
    std::vector<std::vector<float>> arrays;
};

/// Groups over nothing, unlit.
class GroupsAlone : protected HostArrays, public LayerAlone<GroupProbe, width, height> {
protected:
    Image DrawPoints() {
        return Draw(false, [this] { plotter.RenderMeasurePoints(); });
    }
    Image DrawLegend() {
        return Draw(false, [this] {
            glDisable(GL_DEPTH_TEST);
            plotter.RenderLegend();
            glEnable(GL_DEPTH_TEST);
        });
    }

    void Add(std::vector<float> points, const char* name = "group", unsigned int floatsPerPoint = 3) {
        if (arrays.empty()) arrays.reserve(32);
        arrays.push_back(std::move(points));
        const auto count = static_cast<unsigned int>(arrays.back().size() / floatsPerPoint);
        EXPECT_EQ(plotter.AddMeasurePoints(count, floatsPerPoint, arrays.back().data(), name), 0);
    }
};

/// A hill from above, in whole frames.
class GroupsInAPlot : public WindowTest {
protected:
    GroupsInAPlot() {
        if (plotter.OnCreate(window.Handle(), 360, 240, true) != 0)
            throw std::runtime_error(LastWindowError());
        plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
        const CurrentContext context(plotter);
        plotter.ApplyTopView();
    }

    float point[3] = {1.0f, 0.5f, 3.0f};
    TestSurface surface = HillSurface(20, 15);
    TestWindow window{GetParam(), 360, 240};
    LegendPlotter plotter;
};

/// Where the legend's rows stand, in pixels from the upper left corner, computed from the images' sizes.
struct LegendLayout {
    explicit LegendLayout(const GroupProbe& plotter) {
        int maxWidth = 0;
        for (const CKivoMeasurePointGroup* group : plotter.m_measureGroups->m_groups) {
            maxWidth = std::max(maxWidth, group->m_nameImage.width);
            rowHeight = std::max(rowHeight, group->m_nameImage.height);
        }
        constexpr int margin = width / 100;
        nameX = width - margin - maxWidth;
        square = 0.8 * rowHeight;
        squareRight = nameX - 0.2 * square;
        squareLeft = squareRight - square;
        firstBottom = margin + rowHeight;
    }
    int Bottom(std::size_t row) const { return firstBottom + static_cast<int>(row) * rowHeight; }

    int rowHeight = 0, nameX = 0, firstBottom = 0;
    double square = 0, squareLeft = 0, squareRight = 0;
};

/// The text of a name image appears at its place, one image pixel on one screen pixel.
void ExpectName(const Image& picture, const SKivoTexImage& name, int left, int bottom) {
    int wrong = 0, ink = 0;
    for (int y = 0; y < name.height; ++y)
        for (int x = 0; x < name.width; ++x) {
            const unsigned char* texel = name.pixels + (y * name.width + x) * 4; // bottom row first
            const unsigned char expected = texel[3] == 255 ? 0 : 255;
            ink += expected == 0 ? 1 : 0;
            wrong += std::abs(picture.Pixel(left + x, bottom - 1 - y)[0] - expected) > 8 ? 1 : 0;
        }
    EXPECT_GT(ink, 10);
    EXPECT_LE(wrong, ink / 50);
}

void ExpectSquare(const Image& picture, const LegendLayout& layout, std::size_t row, unsigned long color) {
    const int rgb[3] = {static_cast<int>(color & 255), static_cast<int>((color >> 8) & 255),
                        static_cast<int>((color >> 16) & 255)};
    const int left = static_cast<int>(std::lround(layout.squareLeft));
    const int right = static_cast<int>(std::lround(layout.squareRight));
    const int bottom = layout.Bottom(row), top = bottom - static_cast<int>(std::lround(layout.square));
    for (int y = top + 1; y < bottom - 1; ++y)
        for (int x = left + 1; x < right - 1; ++x)
            ASSERT_TRUE(picture.IsNear(x, y, rgb)) << "row " << row << ", pixel " << x << ", " << y;
    for (int y = top; y < bottom; ++y) {
        EXPECT_TRUE(IsWhite(picture.Pixel(left - 2, y)));
        EXPECT_TRUE(IsWhite(picture.Pixel(right + 1, y)));
    }
    EXPECT_TRUE(IsWhite(picture.Pixel((left + right) / 2, top - 2))) << "row " << row;
}

} // namespace

// ---- Members

TEST_F(MeasureGroups, NoPointsAreRefused) {
    EXPECT_EQ(plotter.AddMeasurePoints(0, 3, points, "a"), refused);
    EXPECT_EQ(plotter.AddMeasurePoints(2, 0, points, "a"), refused);
    EXPECT_EQ(plotter.AddMeasurePoints(2, 3, nullptr, "a"), refused);
    EXPECT_EQ(plotter.AddReferenceMeasurePoints(0, 3, points, "a"), refused);
    EXPECT_EQ(plotter.AddReferenceMeasurePoints(2, 0, points, "a"), refused);
    EXPECT_EQ(plotter.AddReferenceMeasurePoints(2, 3, nullptr, "a"), refused);
    EXPECT_EQ(plotter.GetNumMeasureGroups(), 0u);
    EXPECT_EQ(plotter.m_measureGroups->m_nextColor, 0u);
}

TEST_F(MeasureGroups, GroupsAreCountedInTheOrderOfAdding) {
    EXPECT_EQ(plotter.GetNumMeasureGroups(), 0u);
    EXPECT_EQ(Add("first", 2), 0);
    EXPECT_EQ(plotter.AddReferenceMeasurePoints(1, 6, points, "second"), 0);
    EXPECT_EQ(plotter.GetNumMeasureGroups(), 2u);
    EXPECT_EQ(plotter.GetMeasureGroupSize(0), 2u);
    EXPECT_EQ(plotter.GetMeasureGroupSize(1), 1u);
    EXPECT_EQ(Name(0), "first");
    EXPECT_EQ(Name(1), "second");
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_F(MeasureGroups, BothAddingMembersKeepTheHostsArray) {
    Add("a");
    plotter.AddReferenceMeasurePoints(2, 3, points, "b");
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(plotter.Group(i).m_points, points);
        EXPECT_EQ(plotter.Group(i).m_floatsPerPoint, 3u);
        EXPECT_TRUE(plotter.Group(i).m_isReference);
        EXPECT_TRUE(plotter.Group(i).m_visible);
    }
}

TEST_F(MeasureGroups, IndicesThatNoGroupHasAreRefused) {
    for (const unsigned int groups : {0u, 1u, 2u}) {
        for (const unsigned int index : {groups, 3u, UINT_MAX}) {
            std::string name = "unchanged";
            EXPECT_EQ(plotter.GetMeasureGroupSize(index), 0u);
            EXPECT_EQ(plotter.ShowMeasureGroup(index, true), badIndex);
            EXPECT_FALSE(plotter.IsShowMeasureGroup(index));
            EXPECT_EQ(plotter.GetMeasureGroupColor(index), 0u);
            EXPECT_EQ(plotter.SetMeasureGroupColor(index, 0xFF), badIndex);
            EXPECT_EQ(plotter.GetMeasureGroupName(index, &name), badIndex);
            EXPECT_EQ(plotter.SetMeasureGroupName(index, "new"), badIndex);
            EXPECT_EQ(name, "unchanged");
        }
        Add("group");
    }
}

TEST_F(MeasureGroups, GroupsAreShownAndHiddenOneByOneAndTogether) {
    EXPECT_EQ(plotter.ShowAllMeasureGroups(true), 0);
    for (const char* name : {"a", "b", "c"})
        Add(name);
    EXPECT_TRUE(plotter.IsShowMeasureGroup(1));
    EXPECT_EQ(plotter.ShowMeasureGroup(1, false), 0);
    EXPECT_TRUE(plotter.IsShowMeasureGroup(0));
    EXPECT_FALSE(plotter.IsShowMeasureGroup(1));
    EXPECT_TRUE(plotter.IsShowMeasureGroup(2));
    for (const bool show : {true, false, true}) {
        EXPECT_EQ(plotter.ShowAllMeasureGroups(show), 0);
        for (unsigned int i = 0; i < 3; ++i)
            EXPECT_EQ(plotter.IsShowMeasureGroup(i), show);
    }
}

TEST_F(MeasureGroups, TenColoursAreTakenInTurn) {
    for (std::size_t i = 0; i < 23; ++i) {
        EXPECT_EQ(plotter.m_measureGroups->m_nextColor, i % 10);
        Add("group");
        EXPECT_EQ(plotter.GetMeasureGroupColor(static_cast<unsigned int>(i)), PaletteColor(i % 10)) << i;
        for (std::size_t channel = 0; channel < 3; ++channel)
            EXPECT_NEAR(plotter.Group(i).m_color[channel], palette[i % 10][channel], 1e-6);
        EXPECT_EQ(plotter.Group(i).m_color[3], 1.0f);
    }
    EXPECT_EQ(plotter.Group(10).m_color, plotter.Group(0).m_color) << "the palette is shared";
    EXPECT_EQ(plotter.GetMeasureGroupColor(1), 0x003F3F7Fu) << "truncated, not rounded";
}

TEST_F(MeasureGroups, AColourOfItsOwnReplacesThePalettes) {
    Add("a");
    Add("b");
    for (std::size_t i = 2; i < 11; ++i)
        Add("more");
    EXPECT_EQ(plotter.SetMeasureGroupColor(0, 0x000000FF), 0);
    EXPECT_EQ(plotter.GetMeasureGroupColor(0), 0x000000FFu);
    const float* color = plotter.Group(0).m_color;
    EXPECT_EQ(color, plotter.Group(0).m_ownColor);
    EXPECT_EQ(std::vector<float>(color, color + 4), (std::vector<float>{1, 0, 0, 1}));
    EXPECT_EQ(plotter.GetMeasureGroupColor(1), PaletteColor(1));
    EXPECT_EQ(plotter.GetMeasureGroupColor(10), PaletteColor(0)) << "another user of the same row";
    plotter.SetMeasureGroupColor(1, 0xCC00FF00);
    EXPECT_EQ(plotter.GetMeasureGroupColor(1), 0x0000FF00u);
}

// value = byte / 255.0, back by truncation of value * 255: at most one lower.
TEST_F(MeasureGroups, EveryColourComesBackWithinOneStep) {
    Add("a");
    for (unsigned long byte = 0; byte < 256; ++byte) {
        plotter.SetMeasureGroupColor(0, byte << 8);
        const unsigned long back = plotter.GetMeasureGroupColor(0);
        EXPECT_EQ(back & 0xFFFF00FFul, 0u);
        EXPECT_LE(back >> 8, byte);
        EXPECT_GE((back >> 8) + 1, byte);
    }
}

TEST_F(MeasureGroups, ChannelsBeyondAByteAreMaskedToIt) {
    Add("a");
    const float color[] = {2.0f, -0.5f, 1.01f, 0.5f}; // 510, -127, 257
    auto& group = *plotter.m_measureGroups->m_groups[0];
    group.m_color = color;
    EXPECT_EQ(plotter.GetMeasureGroupColor(0), 0x000181FEu);
}

TEST_F(MeasureGroups, NamesAreFoundByteForByteFromTheFirst) {
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("a"), notFound);
    for (const char* name : {"probe", "Probe", "probe", "", "probe 2", "Messung \xC3\xA4"})
        Add(name);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("probe"), 0);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("Probe"), 1);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName(""), 3);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("probe 2"), 4);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("Messung \xC3\xA4"), 5);
    for (const char* name : {"PROBE", "prob", "probe ", "probe 22", "Messung a"})
        EXPECT_EQ(plotter.GetMeasureGroupIndexByName(name), notFound) << name;
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName(std::string("probe\0", 6)), notFound) << "length counts";
}

TEST_F(MeasureGroups, NamesAreCopiedAndMadeIntoImages) {
    char name[] = "short";
    Add(name);
    std::string longer = "a name that is a good deal longer";
    Add(longer.c_str());
    name[0] = 'S';
    EXPECT_EQ(Name(0), "short");
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_NE(plotter.Group(i).m_nameImage.texture, 0u);
        EXPECT_NE(plotter.Group(i).m_nameImage.pixels, nullptr);
    }
    EXPECT_GT(plotter.Group(1).m_nameImage.width, 2 * plotter.Group(0).m_nameImage.width);
}

TEST_F(MeasureGroups, RenamingReplacesNameAndImage) {
    Add("a");
    Add("wide enough to tell");
    const int wide = plotter.Group(1).m_nameImage.width;
    EXPECT_EQ(plotter.SetMeasureGroupName(0, "wide enough to tell"), 0);
    EXPECT_EQ(Name(0), "wide enough to tell");
    EXPECT_EQ(plotter.Group(0).m_nameImage.width, wide);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("a"), notFound);
    EXPECT_EQ(plotter.GetMeasureGroupIndexByName("wide enough to tell"), 0);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    const CurrentContext context(plotter);
    EXPECT_TRUE(glIsTexture(plotter.Group(0).m_nameImage.texture));
    EXPECT_NE(plotter.Group(0).m_nameImage.texture, plotter.Group(1).m_nameImage.texture);
}

TEST_F(MeasureGroups, RenamingLeavesNoTextureBehind) {
    Add("a");
    const auto textures = [this] {
        const CurrentContext context(plotter);
        int count = 0;
        for (GLuint name = 1; name < 1000; ++name)
            count += glIsTexture(name) ? 1 : 0;
        return count;
    };
    const int before = textures();
    for (int i = 0; i < 20; ++i)
        plotter.SetMeasureGroupName(0, i % 2 ? "one" : "another");
    EXPECT_EQ(textures(), before);
}

TEST_F(MeasureGroups, ANameGivenWithoutAWindowHasNoPicture) {
    Add("a");
    EXPECT_EQ(plotter.OnDestroy(), 0);
    EXPECT_EQ(plotter.SetMeasureGroupName(0, "another"), 0);
    EXPECT_EQ(Name(0), "another");
    EXPECT_EQ(plotter.Group(0).m_nameImage.pixels, nullptr);
    EXPECT_EQ(plotter.Group(0).m_nameImage.width, 0);
}

TEST_F(MeasureGroups, AnEmptyNameIsAName) {
    EXPECT_EQ(Add(""), 0);
    EXPECT_EQ(Name(0), "");
    EXPECT_EQ(plotter.SetMeasureGroupName(0, "x"), 0);
    EXPECT_EQ(plotter.SetMeasureGroupName(0, ""), 0);
    EXPECT_EQ(Name(0), "");
}

TEST_F(MeasureGroups, NewDataLeaveTheGroups) {
    Add("a");
    const TestSurface surface = HillSurface(5, 4);
    plotter.SetData(surface.NewArray(), 5, 4, 1, 5, 3);
    EXPECT_EQ(plotter.GetNumMeasureGroups(), 1u);
    EXPECT_EQ(Name(0), "a");
}

TEST(MeasureGroupLifetime, TheHostsArrayOutlivesThePlotterUnfreed) {
    std::vector<float> points = {1, 2, 3, 4, 5, 6};
    const std::vector<float> before = points;
    {
        TestPlot plot(WindowKind::offscreen, 100, 60);
        plot.plotter.AddMeasurePoints(2, 3, points.data(), "a");
        plot.plotter.AddReferenceMeasurePoints(1, 6, points.data(), "b");
    }
    EXPECT_EQ(points, before);
}

// ---- Balls

TEST_P(GroupsAlone, BallsHaveThePointRadiusAtEveryZoomAndAxisScale) {
    Add({0, 0, 0});
    const double scales[][3] = {{1, 1, 1}, {2, 0.5, 3}, {0.01, 40, 0.2}};
    for (const double pixel : {1.0, 0.003, 250.0})
        for (const auto& scale : scales)
            for (const unsigned int size : {5u, 40u, 100u}) {
                SetCamera(pixel, scale[0], scale[1], scale[2]);
                plotter.SetPointRadiusPixelSize(size);
                const Image image = DrawPoints();
                const double radius = size;
                EXPECT_NEAR(CountInk(image), 2.0 * std::sqrt(2.0) * radius * radius, 2.5 * radius);
                const int reach = static_cast<int>(size);
                EXPECT_FALSE(IsWhite(image.Pixel(width / 2 + reach - 2, height / 2)));
                EXPECT_TRUE(IsWhite(image.Pixel(width / 2 + reach + 1, height / 2)));
                EXPECT_FALSE(IsWhite(image.Pixel(width / 2, height / 2 - reach + 2)));
                EXPECT_TRUE(IsWhite(image.Pixel(width / 2, height / 2 - reach - 2)));
            }
}

TEST_P(GroupsAlone, EachGroupHasItsColourAndEveryPointABall) {
    plotter.SetPointRadiusPixelSize(8);
    for (int group = 0; group < 11; ++group) {
        const auto x = static_cast<float>(-150 + 30 * group);
        Add({x, 100, 0, x, 0, 5, x, -100, -5});
    }
    plotter.SetMeasureGroupColor(4, 0x00FF00FF);
    const Image image = DrawPoints();
    for (std::size_t group = 0; group < 9; ++group)
        for (const int y : {-100, 0, 100}) {
            const double* rgb = palette[group];
            const int expected[3] = {static_cast<int>(std::lround(rgb[0] * 255)),
                                     static_cast<int>(std::lround(rgb[1] * 255)),
                                     static_cast<int>(std::lround(rgb[2] * 255))};
            const int x = width / 2 - 150 + 30 * static_cast<int>(group);
            if (group == 4)
                EXPECT_TRUE(image.IsNear(x, height / 2 - y, {255, 0, 255}));
            else
                EXPECT_TRUE(image.IsNear(x, height / 2 - y, expected)) << group;
        }
    EXPECT_TRUE(image.IsNear(width / 2 + 150, height / 2, {204, 204, 204})) << "the palette begins anew";
}

TEST_P(GroupsAlone, FloatsBeyondTheThirdAreNotRead) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    Add({-50, 20, 0, 60, -30, 0});
    const Image expected = DrawPoints();
    plotter.ShowMeasureGroup(0, false);
    Add({-50, 20, 0, none, 60, -30, 0, none}, "four", 4);
    plotter.SetMeasureGroupColor(1, 0x00CCCCCC);
    EXPECT_EQ(Compare(DrawPoints(), expected).max, 0);
    plotter.ShowMeasureGroup(1, false);
    Add({-50, 20, 0, none, none, 60, -30, 0, none, none}, "five", 5);
    plotter.SetMeasureGroupColor(2, 0x00CCCCCC);
    EXPECT_EQ(Compare(DrawPoints(), expected).max, 0);
}

TEST_P(GroupsAlone, ShorterPointsAreDrawnWithoutReadingBeyondThem) {
    Add({-50, 0, 50}, "one", 1);
    Add({-50, 0, 0, 0, 50, 0}, "two", 2);
    DrawPoints(); // a checked build finds a read beyond the arrays
    EXPECT_EQ(plotter.GetMeasureGroupSize(0), 3u);
    EXPECT_EQ(plotter.GetMeasureGroupSize(1), 3u);
}

TEST_P(GroupsAlone, HiddenGroupsAreNotDrawn) {
    Add({-50, 0, 0});
    const Image first = DrawPoints();
    Add({50, 0, 0});
    plotter.ShowMeasureGroup(1, false);
    EXPECT_EQ(Compare(DrawPoints(), first).max, 0);
    plotter.ShowMeasureGroup(1, true);
    EXPECT_GT(CountInk(DrawPoints()), CountInk(first));
    plotter.ShowAllMeasureGroups(false);
    EXPECT_EQ(CountInk(DrawPoints()), 0);
}

TEST_P(GroupsAlone, AChangedArrayShowsInTheNextFrame) {
    Add({-50, 0, 0});
    EXPECT_FALSE(IsWhite(DrawPoints().Pixel(width / 2 - 50, height / 2)));
    arrays[0][0] = 70;
    arrays[0][1] = -40;
    const Image image = DrawPoints();
    EXPECT_TRUE(IsWhite(image.Pixel(width / 2 - 50, height / 2)));
    EXPECT_FALSE(IsWhite(image.Pixel(width / 2 + 70, height / 2 + 40)));
}

TEST_P(GroupsAlone, BallsAreDrawnInTheCallersLightAndState) {
    Add({0, 0, 0});
    plotter.SetPointRadiusPixelSize(60);
    const CurrentContext context(plotter);
    plotter.ApplyViewVolume();
    plotter.ApplyModelViewMatrix();
    const Matrix modelView = LoadedMatrix(GL_MODELVIEW_MATRIX);
    for (const bool isLit : {true, false})
        for (const GLenum mode : {GL_MODELVIEW, GL_PROJECTION}) {
            (isLit ? glEnable : glDisable)(GL_LIGHTING);
            glMatrixMode(mode);
            plotter.RenderMeasurePoints();
            GLint modeAfter = 0;
            glGetIntegerv(GL_MATRIX_MODE, &modeAfter);
            EXPECT_EQ(modeAfter, static_cast<GLint>(mode));
            EXPECT_EQ(glIsEnabled(GL_LIGHTING), isLit ? GL_TRUE : GL_FALSE);
            EXPECT_EQ(LoadedMatrix(GL_MODELVIEW_MATRIX), modelView);
        }
    glMatrixMode(GL_MODELVIEW);
}

// ---- Balls in the frame

TEST_P(GroupsInAPlot, BallsHideAndAreHiddenByTheSurface) {
    const Image without = CaptureImage(plotter);
    plotter.AddMeasurePoints(1, 3, point, "a");
    const Image above = CaptureImage(plotter);
    EXPECT_GT(Compare(above, without).max, 20);
    point[2] = -3.0f;
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
}

TEST_P(GroupsInAPlot, FlatPlotsHaveNoGroups) {
    plotter.SwitchToXYProjectPlot();
    const Image without = CaptureImage(plotter);
    plotter.AddMeasurePoints(1, 3, point, "a");
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
}

TEST_P(GroupsInAPlot, TheFrameHasNoLegendUnlessADerivedClassDrawsIt) {
    point[2] = -3.0f; // behind the surface
    const Image without = CaptureImage(plotter);
    plotter.AddMeasurePoints(1, 3, point, "a name");
    EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
    Image with;
    {
        const CurrentContext context(plotter);
        plotter.DrawSceneWithLegend();
        with = ReadBuffer(GL_BACK, 360, 240);
    }
    int changed = 0, elsewhere = 0;
    for (int y = 0; y < 240; ++y)
        for (int x = 0; x < 360; ++x) {
            if (std::equal(with.Pixel(x, y), with.Pixel(x, y) + 3, without.Pixel(x, y))) continue;
            ++(x > 220 && y < 60 ? changed : elsewhere);
        }
    EXPECT_GT(changed, 50);
    EXPECT_EQ(elsewhere, 0) << "the legend stays in the upper right corner";
}

// A texture of the first life means nothing in the second, where its name may be that of another text.
TEST_P(GroupsInAPlot, NamesOfASecondLifeWriteOverNoOtherText) {
    point[2] = -3.0f; // behind the surface
    for (int i = 0; i < 3; ++i)
        plotter.AddMeasurePoints(1, 3, point, "group");
    EXPECT_EQ(plotter.OnDestroy(), 0);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(plotter.Group(i).m_nameImage.texture, 0u) << i;

    ASSERT_EQ(plotter.OnCreate(window.Handle(), 360, 240, true), 0) << LastWindowError();
    plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
    plotter.SetPlotTitle("plot");
    plotter.SetXAxisTitle("across");
    const Image before = CaptureImage(plotter);
    for (unsigned int i = 0; i < 3; ++i)
        plotter.SetMeasureGroupName(i, "a name of its own");
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), before, 0, 0, "second-life"));
}

// ---- Legend

TEST_P(GroupsAlone, LegendRowsStandOneBelowTheOtherAtTheRightMargin) {
    for (const char* name : {"short", "a rather longer name", "x", "Gypj"})
        Add({0, 0, 0}, name);
    plotter.SetMeasureGroupColor(2, 0x00FF0000);
    plotter.ShowMeasureGroup(1, false); // listed all the same
    const Image picture = DrawLegend();
    const LegendLayout layout(plotter);
    for (std::size_t row = 0; row < 4; ++row) {
        SCOPED_TRACE(row);
        ExpectName(picture, plotter.Group(row).m_nameImage, layout.nameX, layout.Bottom(row));
        ExpectSquare(picture, layout, row, row == 2 ? 0x00FF0000 : PaletteColor(row));
    }
}

TEST_P(GroupsAlone, TheWidestNameEndsAtTheRightMargin) {
    Add({0, 0, 0}, "M");
    Add({0, 0, 0}, "MMMMMMMMMM");
    const Image picture = DrawLegend();
    int right = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (!IsWhite(picture.Pixel(x, y))) right = std::max(right, x);
    EXPECT_LT(right, width - width / 100);
    EXPECT_GT(right, width - width / 100 - 10);
}

TEST_P(GroupsAlone, TheLegendHoldsNothingBesideItsRows) {
    for (std::size_t i = 0; i < 9; ++i) // the tenth is white on white
        Add({0, 0, 0}, "group");
    const Image picture = DrawLegend();
    const LegendLayout layout(plotter);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool isInside = x >= std::floor(layout.squareLeft) && x < width - width / 100 &&
                                  y >= width / 100 && y <= layout.Bottom(8);
            if (!isInside) {
                ASSERT_TRUE(IsWhite(picture.Pixel(x, y))) << x << ", " << y;
            }
        }
    for (std::size_t row = 0; row < 9; ++row)
        ExpectSquare(picture, layout, row, PaletteColor(row));
}

TEST_P(GroupsAlone, TheLegendStandsStillWhenTheViewTurnsOrZooms) {
    Add({0, 0, 0}, "first");
    Add({0, 0, 0}, "second");
    const Image before = DrawLegend();
    std::copy_n(Rotation(40.0, 0.6, 0.0, 0.8).data(), 16, plotter.m_rotationMatrix);
    plotter.m_panFractionX = 0.2;
    SetCamera(0.125, 2.0, 3.0, 4.0);
    EXPECT_EQ(Compare(DrawLegend(), before).max, 0);
}

TEST_P(GroupsAlone, TheLegendLeavesLightDepthTestAndMatricesAsTheyAre) {
    for (int groups = 0; groups < 2; ++groups) {
        const auto draw = [this](bool isLit, bool isDeep, GLenum mode) {
            const CurrentContext context(plotter);
            plotter.ApplyViewVolume();
            plotter.ApplyModelViewMatrix();
            const Matrix modelView = LoadedMatrix(GL_MODELVIEW_MATRIX);
            (isLit ? glEnable : glDisable)(GL_LIGHTING);
            (isDeep ? glEnable : glDisable)(GL_DEPTH_TEST);
            glMatrixMode(mode);
            plotter.RenderLegend();
            GLint modeAfter = 0, depth = 0;
            glGetIntegerv(GL_MATRIX_MODE, &modeAfter);
            glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
            EXPECT_EQ(modeAfter, static_cast<GLint>(mode));
            EXPECT_EQ(depth, 1);
            EXPECT_EQ(glIsEnabled(GL_LIGHTING), isLit ? GL_TRUE : GL_FALSE);
            EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), isDeep ? GL_TRUE : GL_FALSE);
            EXPECT_EQ(LoadedMatrix(GL_MODELVIEW_MATRIX), modelView);
            glMatrixMode(GL_MODELVIEW);
            glEnable(GL_DEPTH_TEST);
        };
        for (const bool isLit : {true, false})
            for (const bool isDeep : {true, false})
                for (const GLenum mode : {GL_MODELVIEW, GL_PROJECTION, GL_TEXTURE})
                    draw(isLit, isDeep, mode);
        Add({0, 0, 0}, "group");
    }
}

TEST_P(GroupsAlone, WithoutGroupsTheLegendIsEmpty) {
    EXPECT_EQ(CountInk(DrawLegend()), 0);
    EXPECT_EQ(CountInk(DrawPoints()), 0);
}

KIVO_IN_ONE_WINDOW(GroupsAlone);
KIVO_IN_EVERY_WINDOW(GroupsInAPlot);
