// A host in FLTK: the plot is a sub-window below a box with a text. FLTK makes the X window of a sub-window
// when it is shown and removes it when it is hidden; the plotter comes and goes with it. A drag with the
// right button turns the plot, with Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to 3
// choose the plot, and H hides and shows it.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Window.H>
#include <FL/x.H>

#include <cstdio>
#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

constexpr int helpHeight = 25;

// FLTK 1.3 counts in pixels on every X11 screen, so that there is no scale factor.
class PlotWindow : public Fl_Window {
public:
    PlotWindow(int left, int top, int width, int height) : Fl_Window(left, top, width, height) {
        end();
        SetMotionDetail(m_plotter, movingPoints);
    }
    ~PlotWindow() override { Detach(); }

    // [docs: attach]
    void show() override {
        Fl_Window::show();
        if (m_window || !shown()) return;
        XSync(fl_display, False); // the plotter has a connection of its own, which must find the window
        m_window = AttachX11Window(fl_xid(this));
        m_size = {w(), h()};
        if (m_plotter.OnCreate(m_window, w(), h(), true) != 0) {
            std::fprintf(stderr, "fltk_host: %s\n", LastWindowError());
            std::exit(1);
        }
        m_plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    }

    void hide() override {
        Detach();
        Fl_Window::hide();
    }

    void Detach() {
        m_plotter.OnDestroy();
        ReleaseWindow(m_window);
        m_window = nullptr;
    }

    // FLTK draws after every change of size. The plotter's connection must not overtake FLTK's.
    void draw() override {
        XSync(fl_display, False);
        if (m_size.x != w() || m_size.y != h()) m_plotter.OnSize(0, w(), h());
        m_size = {w(), h()};
        m_plotter.OnDraw();
    }
    // [docs: end]

    // The window that took the press gets the drag, wherever the pointer goes.
    int handle(int event) override {
        const POINT client = {Fl::event_x(), Fl::event_y()};
        const POINT screen = {Fl::event_x_root(), Fl::event_y_root()};
        const bool isLeft = Fl::event_button() == FL_LEFT_MOUSE;
        const bool isRight = Fl::event_button() == FL_RIGHT_MOUSE;
        switch (event) {
        case FL_PUSH:
            if (isLeft) m_plotter.OnLButtonDown(State() | MK_LBUTTON, client);
            if (isRight) m_plotter.OnRButtonDown(State() | MK_RBUTTON, client);
            return 1;
        case FL_RELEASE:
            if (isLeft) m_plotter.OnLButtonUp(State() & ~MK_LBUTTON, client);
            // FLTK leaves out moves that wait for the release: the drag ends where the button went up.
            if (isRight) m_plotter.OnMouseMove(State() | MK_RBUTTON, client);
            if (isRight) m_plotter.OnRButtonUp(State() & ~MK_RBUTTON, client);
            if (IsReduced()) redraw();
            return 1;
        case FL_ENTER: // who takes this is told of moves
            return 1;
        case FL_MOVE:
        case FL_DRAG: // one of moves that wait
            m_plotter.OnMouseMove(State(), client);
            return 1;
        case FL_MOUSEWHEEL:
            for (int step = 0; step < std::abs(Fl::event_dy()); ++step)
                m_plotter.OnMouseWheel(State(), Fl::event_dy() < 0 ? 120 : -120, screen);
            return 1;
        default:
            return Fl_Window::handle(event);
        }
    }

    bool IsReduced() const { return IsDetailReduced(m_plotter); }

    static unsigned int State() {
        return KeyState(Fl::event_button1() != 0, Fl::event_button2() != 0, Fl::event_button3() != 0,
                        Fl::event_shift() != 0, Fl::event_ctrl() != 0);
    }

    void OnKey(int key) {
        if (key == 'h' && visible()) {
            hide();
        } else if (key == 'h') {
            show();
        } else if (ChoosePlot(m_plotter, key)) {
            redraw();
        }
    }

private:
    HWND m_window = nullptr;
    CKivoFunctionPlotter m_plotter;
    std::vector<float> m_points = HillPoints();
    POINT m_size = {};
};

class HostWindow : public Fl_Window {
public:
    HostWindow() : Fl_Window(900, 600, hillTitle) {
        new Fl_Box(0, 0, w(), helpHeight, hillHelp);
        m_plot = new PlotWindow(0, helpHeight, w(), h() - helpHeight);
        resizable(m_plot);
        end();
    }

    int handle(int event) override {
        if (event == FL_KEYDOWN) m_plot->OnKey(Fl::event_key());
        return event == FL_KEYDOWN || event == FL_FOCUS || Fl_Window::handle(event);
    }

    PlotWindow& Plot() { return *m_plot; }

private:
    PlotWindow* m_plot;
};

// What FLTK calls where it cannot open the display.
void EndWithoutDisplay(const char*, ...) {
    std::fprintf(stderr, "fltk_host: %s\n", noDisplay);
    std::exit(1);
}

} // namespace

int main() {
    Fl::fatal = EndWithoutDisplay;
    fl_open_display();
    HostWindow window;
    window.show();
    while (window.shown()) {
        const double longest = window.Plot().IsReduced() ? restTime / 1000.0 : 1e20;
        if (Fl::wait(longest) == 0 && window.Plot().IsReduced()) window.Plot().redraw(); // the hand rests
    }
    return 0;
}
