// A host in wxWidgets on GTK: the plot is a window below a text, painted by the plotter alone, to which its
// events go in pixels of the device. A drag with the right button turns the plot, with Shift it pans, with
// Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose the plot, and H hides and shows it.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/wx.h>

#include <cstdio>
#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

class PlotWindow : public wxWindow {
public:
    explicit PlotWindow(wxWindow* parent) : wxWindow(parent, wxID_ANY) {
        SetBackgroundStyle(wxBG_STYLE_PAINT); // these two keep GTK from painting over the plot
        SetDoubleBuffered(false);
        // Where the plotter covers the window with one of its own, nobody tells that it shows again.
        gtk_widget_add_events(GetHandle(), GDK_VISIBILITY_NOTIFY_MASK);
        g_signal_connect(GetHandle(), "visibility-notify-event", G_CALLBACK(gtk_widget_queue_draw), nullptr);
        Bind(wxEVT_PAINT, &PlotWindow::OnPaint, this);
        Bind(wxEVT_SIZE, [this](wxSizeEvent&) { Refresh(); });
        Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
        Bind(wxEVT_MOUSEWHEEL, &PlotWindow::OnWheel, this);
        Bind(wxEVT_TIMER, [this](wxTimerEvent&) { DrawWhole(); });
        SetMotionDetail(m_plotter, movingPoints);
        for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP, wxEVT_RIGHT_DOWN,
                                 wxEVT_RIGHT_DCLICK, wxEVT_RIGHT_UP, wxEVT_MOTION})
            Bind(type, &PlotWindow::OnMouse, this);
    }
    ~PlotWindow() override {
        if (HasCapture()) ReleaseMouse();
        Detach();
    }

    bool AcceptsFocus() const override { return false; } // the keys go to the panel, which is never hidden
    void OnKey(int key) {
        if (key == 'H') Show(!IsShown());
        if (ChoosePlot(m_plotter, key)) Refresh();
    }

private:
    // [docs: attach]
    // GTK makes the X window late, and anew when it moves to another parent. The plotter has a connection of
    // its own to the server, which must not overtake GTK's.
    void OnPaint(wxPaintEvent&) {
        const wxPaintDC paint(this);
        gdk_display_sync(gtk_widget_get_display(GetHandle()));
        const unsigned long id = GDK_WINDOW_XID(gtk_widget_get_window(GetHandle()));
        const POINT size = Pixels({GetClientSize().x, GetClientSize().y});
        if (m_id != id) Attach(id, size);
        if (m_size.x != size.x || m_size.y != size.y) m_plotter.OnSize(0, size.x, size.y);
        m_size = size;
        m_plotter.OnDraw();
    }

    void Attach(unsigned long id, const POINT& size) {
        Detach(); // from the window before
        m_id = id;
        m_window = AttachX11Window(id);
        m_size = size;
        if (m_plotter.OnCreate(m_window, size.x, size.y, true) != 0) {
            std::fprintf(stderr, "wx_native_host: %s\n", LastWindowError());
            std::exit(1);
        }
        m_plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    }

    void Detach() {
        m_plotter.OnDestroy();
        ReleaseWindow(m_window);
    }
    // [docs: end]

    POINT Pixels(const wxPoint& position) const {
        return ToPixels(position.x, position.y, GetContentScaleFactor());
    }

    static unsigned int State(const wxMouseState& mouse) {
        return KeyState(mouse.LeftIsDown(), mouse.MiddleIsDown(), mouse.RightIsDown(), mouse.ShiftDown(),
                        mouse.ControlDown());
    }

    void OnMouse(wxMouseEvent& event) {
        const POINT client = Pixels(event.GetPosition());
        const bool isPress = event.ButtonDown() || event.ButtonDClick();
        if (isPress && !HasCapture()) CaptureMouse();
        if (event.ButtonUp() && HasCapture()) ReleaseMouse();
        if (event.Moving() || event.Dragging()) m_plotter.OnMouseMove(State(event), client);
        if (isPress && event.GetButton() == wxMOUSE_BTN_LEFT) m_plotter.OnLButtonDown(State(event), client);
        if (isPress && event.GetButton() == wxMOUSE_BTN_RIGHT) m_plotter.OnRButtonDown(State(event), client);
        if (event.LeftUp()) m_plotter.OnLButtonUp(State(event), client);
        // Of moves that wait wxGTK is told of one, not the last: the drag ends where the button went up.
        if (event.RightUp()) m_plotter.OnMouseMove(State(event) | MK_RBUTTON, client);
        if (event.RightUp()) m_plotter.OnRButtonUp(State(event), client);
        if (event.RightUp()) DrawWhole();
        if (event.Dragging()) m_rest.StartOnce(restTime); // anew with each
    }

    void DrawWhole() {
        if (IsDetailReduced(m_plotter)) Refresh();
    }

    // Wheels and touchpads of a high resolution turn a step in many small events, fast ones several in one.
    void OnWheel(wxMouseEvent& event) {
        const POINT screen = Pixels(ClientToScreen(event.GetPosition()));
        const int steps =
            WheelSteps(m_wheel, ToPixels(event.GetWheelRotation(), 120.0 / event.GetWheelDelta()));
        for (int i = 0; i < std::abs(steps); ++i)
            m_plotter.OnMouseWheel(State(event), steps > 0 ? 120 : -120, screen);
        m_rest.StartOnce(restTime);
    }

    unsigned long m_id = 0;
    HWND m_window = nullptr;
    CKivoFunctionPlotter m_plotter;
    std::vector<float> m_points = HillPoints();
    POINT m_size = {};
    wxTimer m_rest{this}; // runs from the last movement on
    int m_wheel = 0;      // turned beyond whole steps
};

class HostApp : public wxApp {
public:
    bool Initialize(int& count, wxChar** words) override {
        const wxLogNull quiet;
        if (wxApp::Initialize(count, words)) return true;
        std::fprintf(stderr, "wx_native_host: %s\n", noDisplay);
        return false;
    }

    bool OnInit() override {
        auto* const frame = new wxFrame(nullptr, wxID_ANY, hillTitle);
        auto* const panel = new wxPanel(frame);
        auto* const plot = new PlotWindow(panel);
        panel->SetSizer(new wxBoxSizer(wxVERTICAL));
        panel->GetSizer()->Add(new wxStaticText(panel, wxID_ANY, hillHelp));
        panel->GetSizer()->Add(plot, 1, wxEXPAND);
        frame->SetClientSize(900, 600);
        frame->Bind(wxEVT_CHAR_HOOK, [plot](wxKeyEvent& event) { plot->OnKey(event.GetKeyCode()); });
        return frame->Show();
    }
};

} // namespace

int main(int argc, char** argv) {
    g_setenv("GDK_BACKEND", "x11", TRUE); // on Wayland, too: the plotter draws in X11 windows
    wxApp::SetInstance(new HostApp);
    return wxEntry(argc, argv) == 0 ? 0 : 1;
}
