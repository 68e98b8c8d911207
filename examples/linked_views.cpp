// Two plots in windows of their own, in plain Xlib, that are looked at from the same side: what is turned,
// moved or zoomed in one is followed by the other, with its own data and in its own size. A drag with the
// right button turns, with Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose the
// plot.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoView.h>
#include <KivoWindow.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cmath>
#include <cstdio>

using namespace KivoDrawingTools;

namespace {

constexpr int firstWidth = 600;
constexpr int firstHeight = 450;

struct Plot {
    Window window = 0;
    int width = firstWidth;
    int height = firstHeight;
    HWND handle = nullptr;
    std::vector<float> points = HillPoints();
    CKivoFunctionPlotter plotter;
};

// What is seen from the side of the other plot.
void Follow(Plot& follower, const Plot& leader) {
    SetView(follower.plotter, GetView(leader.plotter));
    follower.plotter.OnDraw();
}

Window OpenWindow(Display* display, const char* title, int left) {
    const unsigned long white = WhitePixel(display, DefaultScreen(display));
    const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), left, 0, firstWidth,
                                              firstHeight, 0, 0, white);
    XSelectInput(display, window,
                 ExposureMask | StructureNotifyMask | ButtonPressMask | ButtonReleaseMask |
                     PointerMotionMask | KeyPressMask);
    XStoreName(display, window, title);
    Atom close = XInternAtom(display, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(display, window, &close, 1);
    XMapWindow(display, window);
    return window;
}

bool Attach(Display* display, Plot& plot) {
    XSync(display, False); // the plotter has a connection of its own, which must find the window
    plot.handle = AttachX11Window(plot.window);
    if (plot.plotter.OnCreate(plot.handle, plot.width, plot.height, true) != 0) return false;
    plot.plotter.SetDataReference(plot.points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    return true;
}

void Detach(Plot& plot) {
    plot.plotter.OnDestroy();
    ReleaseWindow(plot.handle);
}

unsigned int State(unsigned int state) {
    return KeyState(state & Button1Mask, state & Button2Mask, state & Button3Mask, state & ShiftMask,
                    state & ControlMask);
}

void OnButton(Plot& plot, const XButtonEvent& event) {
    const bool isPress = event.type == ButtonPress;
    const unsigned int state = State(event.state);
    if (event.button == Button3 && isPress)
        plot.plotter.OnRButtonDown(state | MK_RBUTTON, {event.x, event.y});
    if (event.button == Button3 && !isPress)
        plot.plotter.OnRButtonUp(state & ~MK_RBUTTON, {event.x, event.y});
    const short delta = event.button == Button4 ? 120 : event.button == Button5 ? -120 : 0;
    if (delta != 0 && isPress) plot.plotter.OnMouseWheel(state, delta, {event.x_root, event.y_root});
}

// Another size fits the plot anew: what it showed before is what the other one shows.
void OnConfigure(Plot& plot, const Plot& other, const XConfigureEvent& event) {
    if (event.width == plot.width && event.height == plot.height) return;
    plot.width = event.width;
    plot.height = event.height;
    plot.plotter.OnSize(0, plot.width, plot.height);
    SetView(plot.plotter, GetView(other.plotter));
}

// @return whether the program goes on
bool OnEvent(Plot& plot, Plot& other, XEvent& event) {
    switch (event.type) {
    case Expose:
        if (event.xexpose.count == 0) plot.plotter.OnDraw();
        break;
    case ConfigureNotify:
        OnConfigure(plot, other, event.xconfigure);
        break;
    case ButtonPress:
    case ButtonRelease:
        OnButton(plot, event.xbutton);
        Follow(other, plot);
        break;
    case MotionNotify:
        plot.plotter.OnMouseMove(State(event.xmotion.state), {event.xmotion.x, event.xmotion.y});
        if (event.xmotion.state & Button3Mask) Follow(other, plot);
        break;
    case KeyPress:
        if (!ChoosePlot(plot.plotter, static_cast<int>(XLookupKeysym(&event.xkey, 0)))) break;
        plot.plotter.OnDraw();
        Follow(other, plot);
        break;
    case ClientMessage: // the only one is the frame's, to close the window
    case DestroyNotify:
        return false;
    default:
        break;
    }
    return true;
}

// Of moves that wait one after the other in a window the last is enough, and costs one frame of each plot.
void Next(Display* display, XEvent& event) {
    XNextEvent(display, &event);
    for (XEvent next; event.type == MotionNotify && XPending(display) > 0; event = next) {
        XPeekEvent(display, &next);
        const bool follows = next.type == MotionNotify && next.xmotion.window == event.xmotion.window &&
                             next.xmotion.state == event.xmotion.state;
        if (!follows) return;
        XNextEvent(display, &next);
    }
}

} // namespace

int main() {
    Display* const display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "linked_views: %s\n", noDisplay);
        return 1;
    }
    int result = 0;
    {
        Plot plots[2];
        for (std::size_t i = 0; i < plots[1].points.size(); i += 3)
            plots[1].points[i + 2] = std::cos(plots[1].points[i]) * std::sin(plots[1].points[i + 1]);
        plots[0].window = OpenWindow(display, hillTitle, 0);
        plots[1].window = OpenWindow(display, "cos(x) sin(y)", firstWidth + 10);
        if (!Attach(display, plots[0]) || !Attach(display, plots[1])) {
            std::fprintf(stderr, "linked_views: %s\n", LastWindowError());
            result = 1;
        }
        XEvent event;
        for (bool isOpen = result == 0; isOpen;) {
            Next(display, event);
            const int index = event.xany.window == plots[1].window ? 1 : 0;
            isOpen = OnEvent(plots[index], plots[1 - index], event);
        }
        for (Plot& plot : plots)
            Detach(plot);
    }
    XCloseDisplay(display);
    return result;
}
