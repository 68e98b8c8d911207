// The control for wxWidgets in windows of a real display: what it shows is read from the screen and compared
// with what a plotter alone draws; input comes from the X server.
#include "KivoPlotView.h"
#include "KivoView.h"
#include "SampleGrids.h"
#include "support/BarePlot.h"
#include "support/ChildProcess.h"
#include "support/OpenFiles.h"
#include "support/PngImage.h"
#include "support/PrivateFolder.h"
#include "support/X11TestWindow.h"
#include "WxSession.h"

#include <wx/wx.h>

#if defined(KIVO_WX_HAS_ATK)
#include <gtk/gtk.h>
#endif

#include <cmath>
#include <memory>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr int derivedWidth = 500;

class Derived : public CKivoFunctionPlotter {
public:
    int laidOut = 0;
};

} // namespace

// ---- What is shown

TEST_F(WxControl, ShowsWhatAPlotterDraws) {
    Plotter().SetPlotTitle("Set at once");
    plot->RefreshPlot();
    EXPECT_TRUE(ShowsBare("wx-bare"));
}

// The toolkit takes the scale from the environment when it starts.
TEST_F(WxControl, IsDrawnInThePixelsOfADenseScreen) {
    if (std::string(KIVO_WX_HOST).empty()) GTEST_SKIP() << "no host";
    frame->Hide();
    const ChildProcess host(KIVO_WX_HOST, {}, {{"GDK_SCALE", "2"}, {"NO_AT_BRIDGE", "1"}});
    xcb_window_t hosts = XCB_NONE;
    ASSERT_TRUE(WaitFor([&] { return (hosts = desktop->FindWindow("sin(x) cos(y)")) != XCB_NONE; }));
    desktop->ResizeWindow(hosts, 2 * width, 2 * height);
    BarePlot bare(2 * width, 2 * height, 2.0f);
    std::vector<float> points = KivoSamples::HillPoints();
    bare.plotter.SetDataReference(points.data(), KivoSamples::hillColumns, KivoSamples::hillRows, 1,
                                  KivoSamples::hillColumns, 3);
    const Image expected = bare.Smooth();
    Image shown;
    WaitFor(
        [&] {
            shown = desktop->Grab(hosts);
            return shown.rgba.size() == expected.rgba.size() && Compare(shown, expected).max == 0;
        },
        std::chrono::seconds(10));
    EXPECT_TRUE(ImagesAgree(shown, expected, 0, 0.0, "wx-dense"));
}

TEST_F(WxControl, KeepsTheViewWhereverItGoes) {
    SetViewAngles(Plotter(), 70, 20);
    plot->RefreshPlot();
    ASSERT_TRUE(ShowsBare("wx-before"));
    plot->Hide();
    Run();
    plot->Show();
    EXPECT_TRUE(ShowsBare("wx-hidden-and-shown"));
    auto* const panel = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(width, height));
    plot->Reparent(panel);
    plot->SetSize(0, 0, width, height);
    EXPECT_TRUE(ShowsBare("wx-in-another-parent"));
}

TEST_F(WxControl, SaysWhyNothingIsDrawn) {
    if (std::string(KIVO_WX_HOST).empty()) GTEST_SKIP() << "no host";
    frame->Hide();
    const ChildProcess host(KIVO_WX_HOST, {},
                            {{"__EGL_VENDOR_LIBRARY_FILENAMES", "/nowhere"}, {"NO_AT_BRIDGE", "1"}});
    Image shown;
    const auto isInk = [](const unsigned char* rgb) { return rgb[0] < 130 && rgb[1] < 130 && rgb[2] < 130; };
    EXPECT_TRUE(WaitFor(
        [&] {
            const xcb_window_t hosts = desktop->FindWindow("sin(x) cos(y)");
            if (hosts != XCB_NONE) shown = desktop->Grab(hosts);
            const int ink = shown.Count(isInk);
            return ink > 100 && ink < 20000;
        },
        std::chrono::seconds(20)))
        << host.Errors();
    KeepPng(shown, "wx-failure");
}

TEST_F(WxControl, FollowsTheSystemsColoursWhenItIsToldTo) {
    plot->FollowSystemColours(true);
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    const int rgb[] = {ground.Red(), ground.Green(), ground.Blue()};
    EXPECT_TRUE(Until([&] { return desktop->Grab(window).IsNear(1, 1, rgb); }));
    plot->FollowSystemColours(false);
    EXPECT_TRUE(ShowsBare("wx-own-colours"));
}

// ---- The hand

TEST_F(WxControl, ButtonsTurnAndShift) {
    CKivoPlotView twin({});
    MakeTwin(twin);
    for (const auto& [button, meant] :
         {std::pair(leftButton, KivoMouseButton::left), std::pair(middleButton, KivoMouseButton::middle),
          std::pair(rightButton, KivoMouseButton::right)}) {
        Drag(button, 150, 120, 210, 160);
        twin.Press(meant, 0, {150, 120});
        twin.Move(0, {210, 160});
        twin.Release(meant);
        EXPECT_TRUE(Until([&] { return IsSeenAs(twin); })) << button;
    }
}

TEST_F(WxControl, WheelAndKeysZoomAndTurn) {
    CKivoPlotView twin({});
    MakeTwin(twin);
    MovePointer(90, 70);
    desktop->Click(wheelUp);
    twin.Wheel(120, {90, 70});
    EXPECT_TRUE(Until([&] { return IsSeenAs(twin); })) << "wheel";
    desktop->Click(leftButton);
    EXPECT_TRUE(Until([&] { return plot->HasFocus(); }));
    const std::pair<xcb_keysym_t, KivoViewKey> keys[] = {
        {rightKey, KivoViewKey::right}, {upKey, KivoViewKey::up},   {'-', KivoViewKey::minus},
        {'1', KivoViewKey::xy},         {'0', KivoViewKey::normal}, {homeKey, KivoViewKey::home}};
    for (const auto& [key, meant] : keys) {
        desktop->Press(key);
        twin.PressKey(meant);
        EXPECT_TRUE(Until([&] { return IsSeenAs(twin); }, std::chrono::seconds(10))) << key;
    }
}

TEST_F(WxControl, AThousandMovesTakeOneFrame) {
    ASSERT_TRUE(ShowsBare("wx-still"));
    int paints = 0;
    plot->Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
        ++paints;
        event.Skip();
    });
    wxMouseEvent press(wxEVT_LEFT_DOWN), move(wxEVT_MOTION);
    press.SetPosition({150, 120});
    plot->ProcessWindowEvent(press);
    for (int i = 1; i <= 1000; ++i) {
        move.SetPosition({150 + i % 100, 120});
        plot->ProcessWindowEvent(move);
    }
    Run(300);
    EXPECT_GE(paints, 1);
    EXPECT_LE(paints, 3) << "and one at rest";
}

TEST_F(WxControl, AClickAsksForTheMenu) {
    int asked = 0;
    plot->Bind(wxEVT_CONTEXT_MENU, [&](wxContextMenuEvent&) { ++asked; });
    Drag(rightButton, 150, 120, 210, 160);
    EXPECT_EQ(asked, 0) << "it was a drag";
    desktop->Click(rightButton);
    EXPECT_TRUE(Until([&] { return asked == 1; }));
}

TEST_F(WxControl, TellsWhatIsTracedAndThatTheViewChanges) {
    std::vector<float> point;
    int lost = 0, changes = 0;
    plot->Bind(wxEVT_KIVO_TRACED, [&](wxKivoPlotEvent& event) { point = {event.x, event.y, event.z}; });
    plot->Bind(wxEVT_KIVO_TRACE_LOST, [&](wxKivoPlotEvent&) { ++lost; });
    plot->Bind(wxEVT_KIVO_VIEW_CHANGED, [&](wxKivoPlotEvent&) { ++changes; });
    Plotter().Trace(true);
    plot->RefreshPlot();
    Run();
    MovePointer(230, 150);
    ASSERT_TRUE(Until([&] { return !point.empty(); }));
    EXPECT_NEAR(point[2], 2 * std::sin(point[0]) * std::cos(point[1]), 0.05);
    MovePointer(2, 2);
    EXPECT_TRUE(Until([&] { return lost > 0; }));
    EXPECT_EQ(changes, 0);
    desktop->Click(wheelUp);
    EXPECT_TRUE(Until([&] { return changes > 0; }));
}

// A host may end the plot in answer to what it is told.
TEST_F(WxControl, MayBeEndedByItsOwnEvent) {
    plot->Bind(wxEVT_KIVO_VIEW_CHANGED, [&](wxKivoPlotEvent&) { plot->CallAfter([&] { plot->Destroy(); }); });
    bool isGone = false;
    plot->Bind(wxEVT_DESTROY, [&](wxWindowDestroyEvent&) { isGone = true; });
    MovePointer(150, 120);
    desktop->Button(leftButton, true);
    MovePointer(200, 150);
    EXPECT_TRUE(Until([&] { return isGone || frame->GetChildren().empty(); }));
    desktop->Button(leftButton, false);
    Run();
}

// ---- Functions

TEST_F(WxControl, RefusesWhatIsNoGrid) {
    const float z[4] = {};
    EXPECT_FALSE(plot->SetGrid(nullptr, 2, 2));
    EXPECT_FALSE(plot->SetGrid(z, 0, 2));
    EXPECT_FALSE(plot->SetHeights(z, 2, 2, 0, std::nan(""), 0, 1));
    EXPECT_FALSE(plot->SetSmoothing(0));
    EXPECT_TRUE(ShowsBare("wx-refused"));
}

TEST_F(WxControl, SavesAndCopiesWhatItShows) {
    ASSERT_TRUE(ShowsBare("wx-shown"));
    const PrivateFolder folder;
    const std::string path = folder.Path() + "/plot.png";
    ASSERT_TRUE(plot->SavePicture(path));
    EXPECT_TRUE(ImagesAgree(ReadPng(path), desktop->Grab(window), 0, 0.0, "wx-saved"));
    EXPECT_FALSE(plot->SavePicture("/nowhere/plot.png"));
    EXPECT_TRUE(plot->CopyPicture());
    EXPECT_TRUE(plot->GetFailure().empty());
}

TEST_F(WxControl, IsHarmlessBeforeItIsCreated) {
    wxKivoPlot bare;
    SetHill(bare);
    bare.RefreshPlot();
    bare.FollowSystemColours(true);
    EXPECT_FALSE(bare.GetPicture().IsOk()) << "it has no size yet";
}

TEST_F(WxControl, ShowsAPlotterOfADerivedClass) {
    auto own = std::make_unique<Derived>();
    Derived& derived = *own;
    const auto layOut = [&](int w, int h) {
        derived.OnSize(0, w, h);
        ++derived.laidOut;
    };
    plot->Destroy();
    plot = new wxKivoPlot(std::move(own), layOut);
    EXPECT_EQ(&plot->GetPlotter(), &derived);
    ASSERT_TRUE(plot->Create(frame));
    SetHill(*plot);
    plot->SetSize(0, 0, width, height);
    EXPECT_TRUE(ShowsBare("wx-derived"));
    frame->SetClientSize(derivedWidth, height);
    plot->SetSize(0, 0, derivedWidth, height);
    derived.laidOut = 0;
    EXPECT_TRUE(Until([&] { return derived.laidOut == 1; }));
    plot->Destroy();
    plot = nullptr;
    Run();

    auto* const usual = new wxKivoPlot(std::unique_ptr<CKivoFunctionPlotter>());
    EXPECT_TRUE(usual->Create(frame) && usual->GetFailure().empty());
}

TEST_F(WxControl, SaysWhatItIsToThoseWhoCannotSee) {
#if defined(KIVO_WX_HAS_ATK)
    AtkObject* const accessible = gtk_widget_get_accessible(plot->GetHandle());
    EXPECT_EQ(atk_object_get_role(accessible), ATK_ROLE_CHART);
    EXPECT_STREQ(atk_object_get_name(accessible), "Plot");
    EXPECT_NE(std::string(atk_object_get_description(accessible)).find("arrow keys"), std::string::npos);
    Plotter().SetPlotTitle("Wind");
    plot->RefreshPlot();
    EXPECT_STREQ(atk_object_get_name(accessible), "Wind");
#else
    GTEST_SKIP() << "without GTK 3 nobody is told";
#endif
}

// ---- Many

TEST_F(WxControl, AHundredLeaveNothing) {
    const auto showOne = [this] {
        auto* const one = new wxKivoPlot(frame, wxID_ANY, wxPoint(0, 0), wxSize(120, 90));
        SetHill(*one);
        one->Raise();
        Until([&] { return one->GetPicture().IsOk(); }, std::chrono::seconds(5));
        EXPECT_TRUE(one->GetPicture().IsOk());
        one->Destroy();
    };
    for (int i = 0; i < 10; ++i)
        showOne(); // caches of the toolkit's
    const OpenFiles before;
    for (int i = 0; i < 100; ++i)
        showOne();
    const OpenFiles after;
    EXPECT_LE(after.files, before.files);
    EXPECT_LE(after.threads, before.threads);
    EXPECT_LT(after.megabytes - before.megabytes, 8.0) << "a plot has more than one";
}
