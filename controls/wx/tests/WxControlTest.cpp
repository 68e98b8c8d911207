// The control for wxWidgets in windows of a real display: what it shows is read from the screen and compared
// with what a plotter alone draws; input comes from the X server.
#include "KivoPlotView.h"
#include "KivoStyle.h"
#include "KivoView.h"
#include "SampleGrids.h"
#include "support/BarePlot.h"
#include "support/ChildProcess.h"
#include "support/Desktop.h"
#include "support/OpenFiles.h"
#include "support/PngImage.h"
#include "support/PrivateFolder.h"
#include "support/TestSurfaces.h"
#include "support/WaitFor.h"
#include "support/X11TestWindow.h"
#include "wxKivoPlot.h"

#include <wx/apptrait.h>
#include <wx/evtloop.h>
#include <wx/wx.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr int width = 400, height = 300;
constexpr unsigned int columns = 41, rows = 33;
constexpr char title[] = "the control's window";

class WxControl : public testing::Test {
protected:
    static void SetUpTestSuite() {
        if (!HasDisplay()) return;
        setenv("GDK_BACKEND", "x11", 1);
        setenv("NO_AT_BRIDGE", "1", 1);
        wxApp::SetInstance(new wxApp);
        static int count = 1;
        static char name[] = "test";
        static char* words[] = {name, nullptr};
        ASSERT_TRUE(wxEntryStart(count, words));
        wxTheApp->CallOnInit();
        wxTheApp->SetExitOnFrameDelete(false);
    }
    static void TearDownTestSuite() {
        if (wxTheApp) wxEntryCleanup();
    }

    void SetUp() override {
        if (!HasDisplay()) GTEST_SKIP() << "no display";
        desktop = std::make_unique<Desktop>();
        ASSERT_TRUE(desktop->Ok());
        desktop->MovePointer(1200, 1000); // out of the way
        frame = new wxFrame(nullptr, wxID_ANY, title, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
        plot = new wxKivoPlot(frame);
        SetHill(*plot);
        frame->SetClientSize(width, height);
        frame->Show();
        ASSERT_TRUE(Until([this] { return (window = desktop->FindWindow(title)) != XCB_NONE; }));
        desktop->Focus(window);
        ASSERT_TRUE(Until([this] { return desktop->AreaOf(window).width == width; }));
        Run();
    }
    void TearDown() override {
        if (frame) frame->Destroy();
        if (desktop) Until([this] { return desktop->FindWindow(title) == XCB_NONE; });
    }

    static void SetHill(wxKivoPlot& shown) {
        const TestSurface hill = HillSurface(columns, rows);
        EXPECT_TRUE(shown.SetGrid(hill.points.data(), columns, rows));
    }

    // Runs the toolkit until the condition holds.
    static bool Until(const std::function<bool()>& condition, std::chrono::milliseconds time = patience) {
        const auto loop = std::unique_ptr<wxEventLoopBase>(wxTheApp->GetTraits()->CreateEventLoop());
        const wxEventLoopActivator activator(loop.get());
        return WaitFor(
            [&] {
                while (loop->Pending())
                    loop->Dispatch();
                wxTheApp->ProcessPendingEvents();
                loop->ProcessIdle();
                return condition();
            },
            time);
    }
    void Run(int milliseconds = 40) {
        desktop->Sync();
        Until([] { return false; }, std::chrono::milliseconds(milliseconds));
    }

    void MovePointer(int x, int y) {
        const ScreenArea area = desktop->AreaOf(window);
        desktop->MovePointer(area.x + x, area.y + y);
        Run();
    }
    void Drag(PointerButton button, int fromX, int fromY, int toX, int toY) {
        MovePointer(fromX, fromY);
        desktop->Button(button, true);
        Run();
        MovePointer(toX, toY);
        desktop->Button(button, false);
        Run();
    }

    CKivoFunctionPlotter& Plotter() const { return plot->GetPlotter(); }

    testing::AssertionResult ShowsBare(const std::string& name, int left = 0) {
        BarePlot bare(width, height);
        const TestSurface hill = HillSurface(columns, rows);
        bare.plotter.SetPlotTitle(Plotter().GetPlotTitle());
        bare.plotter.SetData(hill.NewArray(), columns, rows, 1, columns, 3);
        SetView(bare.plotter, GetView(Plotter()));
        const Image expected = bare.Smooth();
        Image shown;
        const auto isSame = [&] {
            const ScreenArea area = desktop->AreaOf(window);
            shown = desktop->Grab(ScreenArea{area.x + left, area.y, width, height});
            return shown.rgba.size() == expected.rgba.size() && Compare(shown, expected).max == 0;
        };
        Until(isSame, std::chrono::seconds(10));
        return ImagesAgree(shown, expected, 0, 0.0, name);
    }

    bool IsSeenAs(CKivoPlotView& view) {
        const SKivoView mine = GetView(view.Plotter()), other = GetView(Plotter());
        const auto isNear = [](double a, double b) { return std::abs(a - b) < 1e-4; };
        return std::equal(mine.rotation, mine.rotation + 9, other.rotation, isNear) &&
               isNear(mine.panX, other.panX) && isNear(mine.panY, other.panY) &&
               isNear(mine.zoom, other.zoom) && mine.plotType == other.plotType;
    }
    static void MakeTwin(CKivoPlotView& view) {
        view.SetSize(width, height);
        const TestSurface hill = HillSurface(columns, rows);
        view.SetGrid(hill.points.data(), columns, rows);
        view.Draw();
    }

    std::unique_ptr<Desktop> desktop;
    wxFrame* frame = nullptr;
    wxKivoPlot* plot = nullptr;
    xcb_window_t window = XCB_NONE;
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
