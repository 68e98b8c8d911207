#include "WxSession.h"

#include "KivoView.h"
#include "support/BarePlot.h"
#include "support/TestSurfaces.h"
#include "support/X11TestWindow.h"

#include <wx/apptrait.h>
#include <wx/evtloop.h>
#include <wx/wx.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace KivoDrawingTools;

namespace KivoTest {

namespace {

constexpr unsigned int columns = 41, rows = 33;
constexpr char title[] = "the control's window";

} // namespace

void WxControl::SetUpTestSuite() {
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

void WxControl::TearDownTestSuite() {
    if (wxTheApp) wxEntryCleanup();
}

void WxControl::SetUp() {
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

void WxControl::TearDown() {
    if (frame) frame->Destroy();
    if (desktop) Until([this] { return desktop->FindWindow(title) == XCB_NONE; });
}

void WxControl::SetHill(wxKivoPlot& shown) {
    const TestSurface hill = HillSurface(columns, rows);
    EXPECT_TRUE(shown.SetGrid(hill.points.data(), columns, rows));
}

bool WxControl::Until(const std::function<bool()>& condition, std::chrono::milliseconds time) {
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

void WxControl::Run(int milliseconds) {
    desktop->Sync();
    Until([] { return false; }, std::chrono::milliseconds(milliseconds));
}

void WxControl::MovePointer(int x, int y) {
    const ScreenArea area = desktop->AreaOf(window);
    desktop->MovePointer(area.x + x, area.y + y);
    Run();
}

void WxControl::Drag(PointerButton button, int fromX, int fromY, int toX, int toY) {
    MovePointer(fromX, fromY);
    desktop->Button(button, true);
    Run();
    MovePointer(toX, toY);
    desktop->Button(button, false);
    Run();
}

testing::AssertionResult WxControl::ShowsBare(const std::string& name) {
    BarePlot bare(width, height);
    const TestSurface hill = HillSurface(columns, rows);
    bare.plotter.SetPlotTitle(Plotter().GetPlotTitle());
    bare.plotter.SetData(hill.NewArray(), columns, rows, 1, columns, 3);
    SetView(bare.plotter, GetView(Plotter()));
    const Image expected = bare.Smooth();
    Image shown;
    const auto isSame = [&] {
        const wxPoint place = plot->GetScreenPosition();
        shown = desktop->Grab(ScreenArea{place.x, place.y, width, height});
        return shown.rgba.size() == expected.rgba.size() && Compare(shown, expected).max == 0;
    };
    Until(isSame, std::chrono::seconds(10));
    return ImagesAgree(shown, expected, 0, 0.0, name);
}

void WxControl::MakeTwin(CKivoPlotView& view) {
    view.SetSize(width, height);
    const TestSurface hill = HillSurface(columns, rows);
    view.SetGrid(hill.points.data(), columns, rows);
    view.Draw();
}

bool WxControl::IsSeenAs(CKivoPlotView& view) {
    const SKivoView mine = GetView(view.Plotter()), other = GetView(Plotter());
    const auto isNear = [](double a, double b) { return std::abs(a - b) < 1e-4; };
    return std::equal(mine.rotation, mine.rotation + 9, other.rotation, isNear) &&
           isNear(mine.panX, other.panX) && isNear(mine.panY, other.panY) && isNear(mine.zoom, other.zoom) &&
           mine.plotType == other.plotType;
}

} // namespace KivoTest
