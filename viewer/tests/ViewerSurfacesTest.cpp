// Several surfaces in the viewer's scene.
#include "Numbers.h"
#include "support/Image.h"
#include "ViewerData.h"
#include "ViewerScene.h"

#include <KivoSurfaces.h>

#include <gtest/gtest.h>

#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;

namespace {

class ViewerSurfacesTest : public ViewerScene {
protected:
    ViewerSurfacesTest() {
        Set("gradient-start", "red"); // nothing else is cyan
        Set("gradient-end", "yellow");
        m_alone = Draw();
    }

    static SurfaceLooks InCyan(double opacity = 1.0) {
        SurfaceLooks looks;
        looks.color = Color{0, 255, 255};
        looks.opacity = opacity;
        return looks;
    }

    int CyanPixels() {
        return Draw().Count(
            [](const unsigned char* rgb) { return rgb[0] < 40 && rgb[1] > 60 && rgb[1] == rgb[2]; });
    }

    double BoxTop() { return m_scene.Plotter().GetZAxisMax(); }

    Image m_alone;
};

TEST_F(ViewerSurfacesTest, AreListed) {
    m_scene.AddSurface(Shifted(Hill(), 0.5f), InCyan(0.5));
    const std::vector<SurfaceEntry> surfaces = m_scene.Surfaces();
    ASSERT_EQ(surfaces.size(), 2U);
    EXPECT_EQ(surfaces[0].name, "Hill");
    EXPECT_EQ(surfaces[0].number, 0);
    EXPECT_FALSE(surfaces[0].looks.color);
    EXPECT_TRUE(surfaces[0].hasLines);
    EXPECT_EQ(surfaces[1].name, "Shifted");
    EXPECT_EQ(surfaces[1].looks.opacity, 0.5);
    EXPECT_FALSE(surfaces[1].hasLines);
    Set("frame-lines", "off");
    EXPECT_FALSE(m_scene.Surfaces()[0].hasLines);
}

TEST_F(ViewerSurfacesTest, AreShownHiddenAndRemoved) {
    m_scene.AddSurface(Shifted(Hill(), 0.5f), InCyan());
    m_scene.AddSurface(Shifted(Hill(), 0.8f), UsualLooks(2));
    EXPECT_GT(CyanPixels(), 500);
    SurfaceEntry second = m_scene.Surfaces()[1];
    second.isShown = false;
    m_scene.ChangeSurface(second);
    EXPECT_EQ(CyanPixels(), 0);
    second.isShown = true;
    m_scene.ChangeSurface(second);
    EXPECT_GT(CyanPixels(), 500);
    m_scene.RemoveSurface(second.number);
    EXPECT_EQ(CyanPixels(), 0);
    ASSERT_EQ(m_scene.Surfaces().size(), 2U);
    m_scene.RemoveSurface(m_scene.Surfaces()[1].number);
    m_scene.RemoveSurface(0);
    EXPECT_EQ(m_scene.Surfaces().size(), 1U);
    EXPECT_LE(Compare(Draw(), m_alone).mean, 0.05);
}

TEST_F(ViewerSurfacesTest, TakeColourOpacityAndLines) {
    m_scene.AddSurface(Shifted(Hill(), 0.5f), {});
    SurfaceEntry surface = m_scene.Surfaces()[1];
    const auto drawChanged = [&] {
        const Image before = Draw();
        m_scene.ChangeSurface(surface);
        const Image after = Draw();
        EXPECT_GT(Compare(before, after).mean, 0.5);
        return after;
    };
    surface.looks.color = Color{0, 255, 255};
    drawChanged();
    EXPECT_GT(CyanPixels(), 500);
    surface.looks.opacity = 0.4;
    drawChanged();
    surface.looks.opacity = 1.0;
    drawChanged();
    surface.hasLines = true;
    drawChanged();
    EXPECT_TRUE(m_scene.Surfaces()[1].hasLines);
}

TEST_F(ViewerSurfacesTest, HaveTheFirstWithLooksOfItsOwn) {
    SurfaceEntry first = m_scene.Surfaces()[0];
    Set("x-line-step", "7");
    const Image wide = Draw();
    m_scene.ChangeSurface(first);
    EXPECT_EQ(Compare(wide, Draw()).max, 0) << "lines are as they are set";
    first.looks = InCyan(0.5);
    m_scene.ChangeSurface(first);
    const Image changed = Draw();
    EXPECT_GT(Compare(changed, m_alone).mean, 1.0);
    Set("frame-lines", "off");
    const Image plain = Draw();
    EXPECT_GT(Compare(changed, plain).mean, 0.5);
    m_scene.ChangeSurface(m_scene.Surfaces()[0]);
    EXPECT_EQ(Compare(plain, Draw()).max, 0) << "lines are a setting";
    Set("frame-lines", "on");
    Unset("x-line-step");
    m_scene.ShowGrid(Hill());
    EXPECT_EQ(Compare(m_alone, Draw()).max, 0) << "looks go with the surface";
}

// The axes reach as far as all of them unless they are told to be the first one's.
TEST_F(ViewerSurfacesTest, GetAxesThatFit) {
    const double first = BoxTop();
    m_scene.AddSurface(Shifted(Hill(), 5.0f), InCyan());
    EXPECT_GT(BoxTop(), 5.9);
    EXPECT_EQ(static_cast<float>(*m_scene.Effective().axes[2].max), BoxTop());
    EXPECT_EQ(m_scene.Effective().colorRange->to, 6.0);
    Set("fit-surfaces", "off");
    EXPECT_EQ(BoxTop(), first);
    EXPECT_EQ(static_cast<float>(*m_scene.Effective().axes[2].max), first);
    EXPECT_EQ(m_scene.Effective().colorRange->to, 1.0);
    m_scene.AddSurface(Shifted(Hill(), 9.0f), InCyan());
    EXPECT_EQ(BoxTop(), first);
    Set("fit-surfaces", "on");
    EXPECT_GT(BoxTop(), 9.9);
    m_scene.RemoveSurface(m_scene.Surfaces()[2].number);
    EXPECT_LT(BoxTop(), 9.0);
}

// Settings outlast the new axes, and so does the view.
TEST_F(ViewerSurfacesTest, KeepSettingsAndView) {
    Set("x-min", "-7.5");
    Set("z-ticks", "4");
    m_scene.Plotter().Rotate({100, 100}, {260, 130});
    m_scene.Plotter().Zoom(0.5f);
    const KivoDrawingTools::SKivoView before = m_scene.View();
    m_scene.AddSurface(Shifted(Hill(), 5.0f), InCyan());
    EXPECT_EQ(m_scene.Plotter().GetXAxisMin(), -7.5f);
    EXPECT_EQ(m_scene.Plotter().GetZAxisTickMarkNumber(), 4U);
    EXPECT_NEAR(m_scene.View().zoom, before.zoom, 1e-5);
    EXPECT_NEAR(m_scene.View().rotation[0], before.rotation[0], 1e-5);
    Unset("x-min");
    EXPECT_EQ(m_scene.Plotter().GetXAxisMin(), *m_scene.Effective().axes[0].min);
    EXPECT_GT(m_scene.Plotter().GetXAxisMin(), -7.0f);
}

// In absolute numbers, whatever each grid's are differences to.
TEST_F(ViewerSurfacesTest, LieWhereTheirNumbersSay) {
    GridData other = Hill();
    for (float& x : other.x)
        x -= 100.0f;
    for (float& z : other.z)
        z += 7.5f;
    other.origin[0] = 100.0;
    other.origin[2] = -7.0;
    m_scene.AddSurface(other, InCyan());
    EXPECT_GT(CyanPixels(), 500);
    EXPECT_LT(BoxTop(), 2.1);
    EXPECT_LT(m_scene.Plotter().GetXAxisMax(), 4.0f);
    EXPECT_EQ(m_scene.Effective().colorRange->to, 1.5);
}

TEST_F(ViewerSurfacesTest, AreRefusedWhereTheyCannotBeShownTogether) {
    GridData far = Hill();
    far.title = "far.asc";
    far.origin[0] = 1e12;
    EXPECT_EQ(MessageOf([&] { m_scene.AddSurface(far, InCyan()); }),
              "far.asc: it lies too far from the first surface to be shown with it");
    EXPECT_EQ(m_scene.Surfaces().size(), 1U);
    EXPECT_EQ(Compare(Draw(), m_alone).max, 0);
}

// The status bar tells which one is traced.
TEST_F(ViewerSurfacesTest, AreNamedByTheTrace) {
    float point[3] = {};
    const auto traced = [&] {
        m_scene.TraceAt(278, 200);
        EXPECT_EQ(m_scene.Plotter().GetTracePoint(point), 1);
        return m_scene.ReadOut(point);
    };
    EXPECT_EQ(traced().find("Hill"), std::string::npos) << "there is no other";
    m_scene.AddSurface(Shifted(Hill(), 0.5f), InCyan());
    EXPECT_NE(traced().find("   Shifted"), std::string::npos);
    SurfaceEntry second = m_scene.Surfaces()[1];
    second.isShown = false;
    m_scene.ChangeSurface(second);
    EXPECT_NE(traced().find("   Hill"), std::string::npos);
}

} // namespace
