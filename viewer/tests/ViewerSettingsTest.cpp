// The table of settings: texts and values, and that each setting reaches the picture.
#include "CommandTable.h"
#include "Failure.h"
#include "Options.h"
#include "Picture.h"
#include "PlotScene.h"
#include "PointBox.h"
#include "SettingTable.h"
#include "support/Image.h"
#include "support/PlotterProbe.h"
#include "ViewerData.h"
#include "ViewerScene.h"

#include <KivoMotion.h>
#include <KivoStyle.h>
#include <KivoWindow.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using KivoDrawingTools::CaptureImage;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;
using testing::HasSubstr;

namespace {

// A value that nothing has by itself.
std::string UnusualText(const Setting& setting) {
    if (IsToggle(setting)) return TextOf(setting, PlotSettings()) == "on" ? "off" : "on";
    if (std::holds_alternative<Setting::Count>(setting.field)) return std::to_string(setting.least + 6);
    if (std::holds_alternative<Setting::Tint>(setting.field)) return "#12ab90";
    if (std::holds_alternative<Setting::Text>(setting.field)) return "Höhe 高さ";
    if (std::holds_alternative<Setting::Values>(setting.field)) return "0.25:0.75";
    if (!setting.choices.empty()) return setting.choices.back();
    return setting.name.find("min") != std::string::npos ? "-7.5" : "7.5";
}

class ViewerSceneTest : public ViewerScene {
protected:
    // What has to be shown for a setting to matter.
    void Prepare(const std::string& name) {
        if (name == "contour-count") Set("z-contours", "on");
        if (name == "auto-aspect" || name == "colors-follow-range") Set("z-max", "6");
        if (name == "contour-interval" || name == "contour-base") Set("z-contours", "on");
        if (name == "contour-base") Set("contour-interval", "0.13");
        if (name == "fill-contours" || name == "label-contours") m_scene.Settings().mode = 1;
        if (name == "point-labels" || name == "list-points")
            m_scene.AddPoints(PointSet::Kind::measureGroup, {"wells", {0, 0, 1.2, 1, 1, 1}, {"A 7", "B"}});
        if (name == "switch-planes") m_scene.Plotter().Rotate({100, 100}, {460, 100});
        if (name.find("x-gradient") == 0) m_scene.Settings().mode = 2;
        if (name.find("y-gradient") == 0) m_scene.Settings().mode = 3;
        if (m_scene.Settings().mode != 0) m_scene.ApplyView();
        if (name == "point-size" || name == "group-names")
            m_scene.AddPoints(PointSet::Kind::measureGroup, {"points", {0, 0, 1.2, 1, 1, 1}});
        if (name == "fit-surfaces") m_scene.AddSurface(Shifted(Hill(), 3.0f), {});
        if (name == "fit-digits") TraceTheTop();
    }
    // The place depends on what is shown.
    void TraceTheTop() {
        Set("trace", "on");
        m_scene.TraceAt(278, 190);
    }
};

TEST(ViewerSettingsTest, HasOneNameForEachSetting) {
    std::set<std::string> names;
    for (const Setting& setting : AllSettings()) {
        EXPECT_TRUE(names.insert(setting.name).second) << setting.name;
        EXPECT_EQ(&FindSetting(setting.name), &setting);
        EXPECT_FALSE(setting.label.empty() || setting.help.empty() || setting.section.empty());
    }
}

// Beside each other in the panel, nobody must guess which axes they are for.
TEST(ViewerSettingsTest, NamesTheAxesOfGradients) {
    for (const std::string end : {"start", "end"}) {
        const std::string value = end == "start" ? "lowest value" : "highest value";
        EXPECT_EQ(FindSetting("gradient-" + end).label, "All axes: " + value);
        EXPECT_EQ(FindSetting("y-gradient-" + end).label, "Y axis: " + value);
    }
    std::set<std::string> labels;
    for (const Setting& setting : AllSettings())
        EXPECT_TRUE(labels.insert(setting.section + ": " + setting.label).second) << setting.name;
}

TEST(ViewerSettingsTest, KeepsValuesAsText) {
    for (const Setting& setting : AllSettings()) {
        PlotSettings settings;
        const std::string before = TextOf(setting, settings);
        const std::string text = UnusualText(setting);
        SetFromText(setting, text, settings);
        EXPECT_TRUE(IsSet(setting, settings));
        for (const Setting& other : AllSettings()) {
            const std::string expected = &other == &setting ? text : TextOf(other, PlotSettings());
            EXPECT_EQ(TextOf(other, settings), expected) << setting.name << " changes " << other.name;
        }
        Copy(setting, PlotSettings(), settings);
        EXPECT_EQ(TextOf(setting, settings), before) << setting.name;
    }
}

TEST(ViewerSettingsTest, TakesColoursInSeveralForms) {
    const Setting& background = FindSetting("background");
    PlotSettings settings;
    for (const char* const text : {"#ff8000", "ff8000", "FF8000", "orange"}) {
        SetFromText(background, text, settings);
        EXPECT_EQ(TextOf(background, settings), std::string(text) == "orange" ? "#ffa500" : "#ff8000");
    }
    EXPECT_EQ(settings.background->Packed(), 0x00A5FFUL);
    EXPECT_EQ(FormatColor(UnpackColor(0x00A5FF)), "#ffa500");
}

TEST(ViewerSettingsTest, SaysWhatIsWrongWithAText) {
    const struct {
        const char* name;
        const char* text;
        const char* message;
    } cases[] = {
        {"background", "pinkish", "expected a colour such as ff8000 or red, found \"pinkish\""},
        {"background", "#12345", "expected a colour such as ff8000 or red, found \"#12345\""},
        {"background", "-12345", "expected a colour such as ff8000 or red, found \"-12345\""},
        {"background", "", "expected a colour such as ff8000 or red, found \"\""},
        {"x-ticks", "1", "expected a whole number from 2 to 200, found \"1\""},
        {"x-ticks", "201", "expected a whole number from 2 to 200, found \"201\""},
        {"x-ticks", "2.5", "expected a whole number from 2 to 200, found \"2.5\""},
        {"contour-count", "0", "expected a whole number from 1 to 500, found \"0\""},
        {"z-precision", "-1", "expected a whole number from 0 to 9, found \"-1\""},
        {"x-min", "a", "expected a number, found \"a\""},
        {"x-min", "nan", "expected a number, found \"nan\""},
        {"x-min", "1e40", "expected a number, found \"1e40\""},
        {"grid-lines", "yes", "expected on or off, found \"yes\""},
        {"colors", "rainbow",
         "expected gradient, viridis, cividis, turbo, grey, terrain or coolwarm, found \"rainbow\""},
        {"legend-numbers", "", "expected set, fitted or round, found \"\""},
        {"x-labels", "Plain", "expected plain, engineering, powers or date, found \"Plain\""},
        {"color-range", "1", "expected MIN:MAX, two different numbers, found \"1\""},
        {"color-range", "1:1", "expected MIN:MAX, two different numbers, found \"1:1\""},
        {"color-range", "0:1e39", "expected MIN:MAX, two different numbers, found \"0:1e39\""},
        {"color-range", "0:1:2", "expected MIN:MAX, two different numbers, found \"0:1:2\""},
    };
    for (const auto& bad : cases) {
        PlotSettings settings;
        EXPECT_EQ(MessageOf([&] { SetFromText(FindSetting(bad.name), bad.text, settings); }), bad.message);
        EXPECT_EQ(TextOf(FindSetting(bad.name), settings), TextOf(FindSetting(bad.name), PlotSettings()));
    }
}

TEST(ViewerSettingsTest, ForgetsWhatSpeaksOfOneDataSet) {
    PlotSettings settings;
    for (const Setting& setting : AllSettings())
        SetFromText(setting, UnusualText(setting), settings);
    const PlotSettings kept = WithoutDataSettings(settings);
    for (const char* const name : {"title", "x-title", "y-min", "z-max", "x-ticks", "y-precision",
                                   "x-line-step", "color-range", "legend-title", "z-labels"})
        EXPECT_FALSE(IsSet(FindSetting(name), kept)) << name;
    for (const char* const name :
         {"background", "gradient-end", "contour-count", "point-size", "colors", "legend-numbers"})
        EXPECT_TRUE(IsSet(FindSetting(name), kept)) << name;
}

TEST(ViewerCommandTableTest, HasOneUseForEachKey) {
    std::set<std::string> keys;
    for (const InputUse& use : KeyUses())
        EXPECT_TRUE(keys.insert(use.input).second) << use.input;
    EXPECT_GT(keys.size(), 20U);
}

// Whatever has a key or is switched by itself in the 3-D plot is in a menu.
TEST(ViewerCommandTableTest, HasTogglesInMenus) {
    for (const Setting& setting : AllSettings()) {
        if (!IsToggle(setting)) continue;
        int entries = 0;
        for (const MenuEntry& entry : AllMenuEntries())
            entries += entry.setting == setting.name;
        EXPECT_EQ(entries, 1) << setting.name;
    }
}

// A setting has a key, or its section in the panel has one.
TEST(ViewerCommandTableTest, HasAKeyToEachSetting) {
    for (const Setting& setting : AllSettings()) {
        bool hasKey = false;
        for (const MenuEntry& entry : AllMenuEntries()) {
            const bool opensSection =
                entry.command == Command::settingsSection && entry.setting == setting.section;
            hasKey |=
                !entry.key.empty() && (IsToggle(setting) ? entry.setting == setting.name : opensSection);
        }
        EXPECT_TRUE(hasKey) << setting.name;
    }
    const auto hasKey = [](Command command) {
        const std::vector<MenuEntry>& all = AllMenuEntries();
        return std::any_of(all.begin(), all.end(), [command](const MenuEntry& entry) {
            return entry.command == command && !entry.key.empty();
        });
    };
    EXPECT_TRUE(hasKey(Command::resetView) && hasKey(Command::resetSettings));
}

// Man reads a plain dash as a hyphen and a line that begins with a point as a request.
TEST(ViewerManualPageTest, TellsOptionsKeysAndMouse) {
    const char* const arguments[] = {"kivo-viewer", "--manual-page"};
    const std::string page = ParseOptions(2, arguments).information;
    const auto escaped = [](std::string text) {
        for (std::size_t i = text.find('-'); i != std::string::npos; i = text.find('-', i + 2))
            text.insert(i, 1, '\\');
        return text;
    };
    for (const Setting& setting : AllSettings()) {
        const bool isOn = TextOf(setting, PlotSettings()) == "on";
        EXPECT_THAT(page, HasSubstr(".B " + escaped((isOn ? "--no-" : "--") + setting.name)));
        EXPECT_THAT(page, HasSubstr(escaped(setting.help).substr(1)));
    }
    for (const char* const option :
         {"--function", "--picture", "--points", "--curve", "--trace-at", "--size"})
        EXPECT_THAT(page, HasSubstr(".B " + escaped(option)));
    for (const std::vector<InputUse>& uses : {KeyUses(), MouseUses()})
        for (const InputUse& use : uses)
            EXPECT_THAT(page, HasSubstr(".B " + escaped(use.input) + '\n' + escaped(use.effect)));
    for (const char* const section : {"NAME", "SYNOPSIS", "EXIT STATUS", "EXAMPLES"})
        EXPECT_THAT(page, HasSubstr(std::string(".SH ") + section + '\n'));
    EXPECT_EQ(page.find("manual-page"), std::string::npos);
}

TEST_F(ViewerSceneTest, TracesNothingWherePointsAreAlone) {
    m_scene.Settings().traces = true;
    m_scene.ShowGrid(BoxAround({{"wells", {0, 0, 1, 10, 10, 2}}}));
    for (int x = 20; x < 400; x += 20)
        m_scene.TraceAt(x, 150);
    float point[3];
    EXPECT_FALSE(m_scene.Plotter().IsTracing());
    EXPECT_FALSE(m_scene.Plotter().GetTracePoint(point));
    m_scene.AddSurface(Hill(), {});
    EXPECT_TRUE(m_scene.Plotter().IsTracing());
}

// Every setting is seen, and taking it back gives the picture from before.
TEST_F(ViewerSceneTest, ShowsEverySetting) {
    for (const Setting& setting : AllSettings()) {
        SCOPED_TRACE(setting.name);
        // Of a movement alone.
        if (setting.name == "reduce-while-moving" || setting.name == "keep-upright") continue;
        m_scene.Settings() = PlotSettings();
        m_scene.ShowGrid(Hill());
        Prepare(setting.name);
        const Image before = Draw();
        Set(setting.name, UnusualText(setting));
        if (setting.name == "trace") TraceTheTop();
        const Image after = Draw();
        EXPECT_GT(Compare(before, after).max, 50);
        EXPECT_EQ(TextOf(setting, m_scene.Effective()), UnusualText(setting));
        Unset(setting.name);
        // A view that is kept while the axes are made anew may differ in its last digits.
        EXPECT_LE(Compare(before, Draw()).max, setting.name == "fit-surfaces" ? 2 : 0) << "not as before";
    }
}

TEST_F(ViewerSceneTest, PicturesShowAllWhileALargePlotMoves) {
    GridData large;
    for (int i = 0; i < 400; ++i) {
        large.x.push_back(static_cast<float>(i));
        large.y.push_back(static_cast<float>(i));
    }
    for (const float y : large.y)
        for (const float x : large.x)
            large.z.push_back(x * y);
    m_scene.ShowGrid(large);
    SetMotionDetail(m_plotter, 150);
    m_plotter.OnRButtonDown(KivoDrawingTools::MK_RBUTTON, {100, 100});
    m_plotter.OnMouseMove(KivoDrawingTools::MK_RBUTTON, {101, 100});
    EXPECT_TRUE(IsDetailReduced(m_plotter));
    const Image moving = Draw();
    m_plotter.OnRButtonUp(0, {101, 100});
    m_plotter.OnDraw();
    EXPECT_FALSE(IsDetailReduced(m_plotter));
    EXPECT_EQ(Compare(moving, Draw()).max, 0);
}

// The grid's picture does not depend on what was there before.
TEST_F(ViewerSceneTest, ShowsTheSameGridAlike) {
    const Image first = Draw();
    GridData other = Hill();
    for (float& x : other.x)
        x *= 50.0f;
    m_scene.ShowGrid(other);
    m_scene.Plotter().Rotate({100, 100}, {300, 200});
    m_scene.Plotter().Translate({100, 100}, {150, 80});
    Draw();
    m_scene.ShowGrid(Hill());
    EXPECT_EQ(Compare(first, Draw()).max, 0);
}

TEST_F(ViewerSceneTest, TellsWhatHoldsByItself) {
    const PlotSettings effective = m_scene.Effective();
    for (const Setting& setting : AllSettings())
        EXPECT_TRUE(IsSet(setting, effective)) << setting.name;
    EXPECT_EQ(effective.title, "Hill");
    EXPECT_EQ(*effective.axes[0].min, m_scene.Plotter().GetXAxisMin());
    EXPECT_EQ(*effective.axes[2].tickCount, m_scene.Plotter().GetZAxisTickMarkNumber());
    EXPECT_EQ(TextOf(FindSetting("x-gradient-start"), effective), "#0000ff");
}

TEST_F(ViewerSceneTest, RefusesAxesThatDoNotRise) {
    const Image before = Draw();
    m_scene.Settings().axes[1].min = 5.0f;
    EXPECT_EQ(MessageOf([this] { m_scene.ApplyAxes(); }), "the Y axis must rise, not go from 5 to 3.5");
    EXPECT_EQ(Compare(before, Draw()).max, 0);
}

TEST_F(ViewerSceneTest, PutsColoursWhereTheyBelong) {
    Set("background", "#203040");
    Set("gradient-start", "#ff00ff");
    const Image image = Draw();
    const int background[] = {0x20, 0x30, 0x40};
    EXPECT_TRUE(image.IsNear(2, 2, background));
    EXPECT_TRUE(image.IsNear(image.width - 3, image.height - 3, background));
    const auto isMagenta = [](const unsigned char* rgb) {
        return rgb[0] > 240 && rgb[1] < 20 && rgb[2] > 240;
    };
    EXPECT_GT(image.Count(isMagenta), 20) << "the legend's lower end";
}

// What the user has not set can be read with what is set, and else is as the desktop has it.
TEST_F(ViewerSceneTest, HasInkThatFitsTheBackground) {
    const auto colors = [this] {
        const PlotSettings effective = m_scene.Effective();
        EXPECT_EQ(GetStyle(m_scene.Plotter()).inkColor, effective.ink->Packed());
        return FormatColor(*effective.background) + ' ' + FormatColor(*effective.ink);
    };
    EXPECT_EQ(colors(), "#fffde9 #000000");
    Set("background", "#203040");
    EXPECT_EQ(colors(), "#203040 #dedede");
    Set("ink", "yellow");
    EXPECT_EQ(colors(), "#203040 #ffff00");
    Unset("background");
    EXPECT_EQ(colors(), "#1e2024 #ffff00");
    Set("ink", "#600000");
    EXPECT_EQ(colors(), "#fffde9 #600000");
    m_scene.SetDark(true);
    EXPECT_EQ(colors(), "#fffde9 #600000") << "the user has set it";
    Unset("ink");
    EXPECT_EQ(colors(), "#1e2024 #dedede");
    Set("background", "white");
    EXPECT_EQ(colors(), "#ffffff #000000");
    Unset("background");
    m_scene.SetDark(false);
    EXPECT_EQ(colors(), "#fffde9 #000000");
}

TEST_F(ViewerSceneTest, HasCurvesThatAreSeenOnEveryBackground) {
    for (const char* const name : {"first", "second"})
        m_scene.AddPoints(PointSet::Kind::curve, {name, {-2, -2, 1.1f, 2, 2, 1.1f}});
    m_scene.SetDark(true);
    EXPECT_EQ(FormatColor(m_scene.PointSets()[0].color), "#ff0000");
    EXPECT_EQ(FormatColor(m_scene.PointSets()[1].color), "#dedede");
    m_scene.SetDark(false);
    EXPECT_EQ(FormatColor(m_scene.PointSets()[1].color), "#000000");
}

// ---- The axes' lengths ------------------------------------------------------------------------------------

class ViewerAspectTest : public ViewerSceneTest {
protected:
    // What makes the X axis 1.2 times as long as the Z axis.
    double ScaleOfX() {
        const ViewerPlotter& plotter = m_scene.Plotter();
        return 1.2 * (plotter.GetZAxisMax() - plotter.GetZAxisMin()) /
               (plotter.GetXAxisMax() - plotter.GetXAxisMin());
    }
};

TEST_F(ViewerAspectTest, FollowsNewRangesByItself) {
    const ViewerPlotter::AxisScale ofData = m_scene.Plotter().Scale();
    Set("z-max", "6");
    EXPECT_NEAR(m_scene.Plotter().Scale()[0], ScaleOfX(), 1e-6);
    EXPECT_GT(ScaleOfX(), 4.0 * ofData[0]);
    EXPECT_EQ(m_scene.Plotter().Scale()[2], ofData[2]);
}

TEST_F(ViewerAspectTest, KeepsTheScaleOfTheData) {
    const ViewerPlotter::AxisScale ofData = m_scene.Plotter().Scale();
    Set("auto-aspect", "off");
    const Image before = Draw();
    Set("z-max", "6");
    EXPECT_EQ(m_scene.Plotter().Scale(), ofData);
    const Image changed = Draw();
    m_scene.Plotter().Rotate({100, 100}, {300, 200});
    m_scene.Resize(300, 200);
    EXPECT_EQ(m_scene.Plotter().Scale(), ofData) << "after another size";
    m_scene.Resize(480, 360);
    for (const int mode : {1, 2, 3, 0}) {
        m_scene.Settings().mode = mode;
        m_scene.ApplyView();
        EXPECT_EQ(m_scene.Plotter().Scale(), ofData) << "in mode " << mode;
    }
    m_scene.ResetView();
    EXPECT_EQ(Compare(changed, Draw()).max, 0);
    Unset("z-max");
    EXPECT_EQ(Compare(before, Draw()).max, 0);
    Set("z-max", "6");
    m_scene.Settings().mode = 1;
    m_scene.ApplyView();
    Unset("auto-aspect");
    EXPECT_NEAR(m_scene.Plotter().Scale()[0], ScaleOfX(), 1e-6);
}

// Nothing of a plate of a box is cut off in depth, in pictures of other sizes neither: seen from a height of
// 30 degrees it is half as high on the screen as wide.
TEST_F(ViewerAspectTest, IsDeepEnoughForFlatBoxes) {
    const auto isColorful = [](const unsigned char* rgb) {
        return std::max({rgb[0], rgb[1], rgb[2]}) - std::min({rgb[0], rgb[1], rgb[2]}) > 60;
    };
    Set("frame-lines", "off");
    Set("legend", "off");
    Set("exaggeration", "0.01");
    Viewpoint side;
    side.azimuth = 0.0;
    side.elevation = 30.0;
    m_scene.ShowFrom(side);
    for (const Image& image : {Draw(), CaptureImage(m_scene.Plotter(), 960, 720)}) {
        int left = image.width, right = 0, top = image.height, bottom = 0;
        for (int y = 0; y < image.height; ++y)
            for (int x = 0; x < image.width; ++x) {
                if (!isColorful(image.Pixel(x, y))) continue;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        EXPECT_NEAR((bottom - top) / (right - left + 1e-3), 0.5, 0.05);
    }
}

// What a window shows as a picture of another size and resolution, in the view that the user has turned it
// to.
class ViewerScenePictureTest : public ViewerSceneTest {
protected:
    Image Capture(const PictureFormat& format) {
        Image image(format.width, format.height);
        image.rgba = CaptureScene(m_scene, format);
        return image;
    }

    static PictureFormat Plain(int width, int height, int dpi) {
        PictureFormat format;
        format.width = width;
        format.height = height;
        format.dpi = dpi;
        format.smoothing = 1;
        return format;
    }

    // As a picture without a window.
    static Image DrawAlone(const PictureFormat& format) {
        Image image(format.width, format.height);
        image.rgba = DrawPicture(format, [](PlotScene& scene) { scene.ShowGrid(Hill()); });
        return image;
    }
};

TEST_F(ViewerScenePictureTest, IsWhatTheWindowShows) {
    m_scene.Plotter().Rotate({100, 100}, {260, 130});
    m_scene.Plotter().Translate({100, 100}, {125, 80});
    m_scene.Plotter().Zoom(0.8f);
    EXPECT_EQ(Compare(Draw(), Capture(Plain(480, 360, 96))).max, 0);
    KivoDrawingTools::SKivoStyle style = GetStyle(m_plotter);
    style.pixelScale = 1.5f; // as on a screen of 144 dots per inch
    SetStyle(m_plotter, style);
    EXPECT_EQ(Compare(Draw(), Capture(Plain(480, 360, 144))).max, 0);
}

// Also where the resolution is more than eight times the window's.
TEST_F(ViewerScenePictureTest, HasSizesOfItsResolution) {
    for (const int dpi : {48, 96, 300, 1200}) {
        const Image before = Draw();
        EXPECT_EQ(Compare(DrawAlone(Plain(960, 720, dpi)), Capture(Plain(960, 720, dpi))).max, 0) << dpi;
        EXPECT_EQ(Compare(before, Draw()).max, 0) << "the scene itself is no longer as it was";
    }
    EXPECT_GT(Compare(Capture(Plain(960, 720, 300)), Capture(Plain(960, 720, 1200))).mean, 1.0);
    PictureFormat scaled = Plain(960, 720, 150);
    scaled.scale = 2.0;
    EXPECT_EQ(Compare(Capture(scaled), Capture(Plain(960, 720, 300))).max, 0);
}

TEST_F(ViewerScenePictureTest, IsSmoothByItselfAndTransparentWhereWanted) {
    PictureFormat format;
    format.width = 480;
    format.height = 360;
    const Image smooth = Capture(format);
    EXPECT_GT(Compare(smooth, Draw()).mean, 0.1);
    EXPECT_EQ(smooth.Pixel(2, 2)[3], 255);
    format.isTransparent = true;
    EXPECT_EQ(Capture(format).Pixel(2, 2)[3], 0);
}

// Each kind of point set as the list handles it.
class ViewerPointSetTest : public ViewerSceneTest, public testing::WithParamInterface<PointSet::Kind> {
protected:
    ViewerPointSetTest() {
        m_scene.AddPoints(GetParam(), {"a.csv", {-1, 0, 0.9f, 1, 0, 0.9f}});
        m_scene.AddPoints(GetParam(), {"b.csv", {0, -1, 1.1f, 0, 1, 1.1f}});
    }

    static bool IsCyan(const unsigned char* rgb) { return rgb[0] < 60 && rgb[1] > 150 && rgb[2] > 150; }
};

INSTANTIATE_TEST_SUITE_P(Kinds, ViewerPointSetTest,
                         testing::Values(PointSet::Kind::measureGroup, PointSet::Kind::curve));

TEST_P(ViewerPointSetTest, IsListed) {
    const std::vector<PointSet> sets = m_scene.PointSets();
    ASSERT_EQ(sets.size(), 2U);
    EXPECT_EQ(sets[0].name, "a.csv");
    EXPECT_EQ(sets[1].name, "b.csv");
    EXPECT_TRUE(sets[0].isShown && sets[1].isShown);
    EXPECT_NE(sets[0].color.Packed(), sets[1].color.Packed());
}

TEST_P(ViewerPointSetTest, IsShownAndHidden) {
    const Image both = Draw();
    std::vector<PointSet> sets = m_scene.PointSets();
    for (PointSet& set : sets)
        set.isShown = false;
    m_scene.ChangePoints(sets[0]);
    const Image one = Draw();
    EXPECT_GT(Compare(both, one).max, 50);
    m_scene.ChangePoints(sets[1]);
    const Image none = Draw();
    EXPECT_GT(Compare(one, none).max, 50);
    EXPECT_FALSE(m_scene.PointSets()[0].isShown);
    for (PointSet& set : sets) {
        set.isShown = true;
        m_scene.ChangePoints(set);
    }
    EXPECT_EQ(Compare(both, Draw()).max, 0);
}

TEST_P(ViewerPointSetTest, TakesColourAndName) {
    Set("gradient-start", "red"); // nothing else is cyan
    Set("gradient-end", "red");
    EXPECT_EQ(Draw().Count(IsCyan), 0);
    PointSet set = m_scene.PointSets()[1];
    set.color = {0, 255, 255};
    set.name = "Brunnen ü";
    m_scene.ChangePoints(set);
    EXPECT_GT(Draw().Count(IsCyan), 20);
    const PointSet changed = m_scene.PointSets()[1];
    EXPECT_EQ(changed.name, set.name);
    EXPECT_EQ(changed.color.Packed(), set.color.Packed());
}

// Groups outlive the grid, curves lie over one.
TEST_P(ViewerPointSetTest, FollowsTheGrid) {
    m_scene.ShowGrid(Hill());
    const bool isCurve = GetParam() == PointSet::Kind::curve;
    EXPECT_EQ(m_scene.PointSets().size(), isCurve ? 0U : 2U);
    m_scene.AddPoints(GetParam(), {"c.csv", {0, 0, 2, 1, 1, 2}});
    EXPECT_EQ(m_scene.PointSets().back().index, isCurve ? 0U : 2U);
    Draw();
}

} // namespace
