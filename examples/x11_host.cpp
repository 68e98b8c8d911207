// A host in plain Xlib: it makes a window of whatever visual the display offers by default, hands the
// window's XID to the plotter and forwards its events. A drag with the right button turns the plot, with
// Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose the plot.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#include <poll.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>

using namespace KivoDrawingTools;

namespace {

// X counts events in pixels on every screen, so that there is no scale factor.
class Host {
public:
    explicit Host(Display* display) : m_display(display) {
        m_window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, m_width, m_height, 0, 0,
                                       WhitePixel(display, DefaultScreen(display)));
        XSelectInput(display, m_window,
                     ExposureMask | StructureNotifyMask | ButtonPressMask | ButtonReleaseMask |
                         PointerMotionMask | KeyPressMask);
        XStoreName(display, m_window, hillTitle);
        m_close = XInternAtom(display, "WM_DELETE_WINDOW", False);
        XSetWMProtocols(display, m_window, &m_close, 1);
        XMapWindow(display, m_window);
    }

    ~Host() {
        m_plotter.OnDestroy();
        ReleaseWindow(m_handle);
    }

    // [docs: attach]
    bool Attach() {
        XSync(m_display, False); // the plotter has a connection of its own, which must find the window
        m_handle = AttachX11Window(m_window);
        if (m_plotter.OnCreate(m_handle, m_width, m_height, true) != 0) return false;
        m_plotter.SetDataReference(m_points.data(), hillColumns, hillRows, 1, hillColumns, 3);
        SetMotionDetail(m_plotter, movingPoints);
        return true;
    }
    // [docs: end]

    // [docs: motion]
    // Waits for an event, at most until the hand has rested: then the plot is drawn whole. Of moves that wait
    // one after the other the last is enough, and costs one frame.
    void Next(XEvent& event) {
        pollfd input = {ConnectionNumber(m_display), POLLIN, 0};
        while (IsDetailReduced(m_plotter) && XPending(m_display) == 0)
            if (poll(&input, 1, restTime) == 0) m_plotter.OnDraw();
        XNextEvent(m_display, &event);
        for (XEvent next; event.type == MotionNotify && XPending(m_display) > 0; event = next) {
            XPeekEvent(m_display, &next);
            if (next.type != MotionNotify || next.xmotion.state != event.xmotion.state) return;
            XNextEvent(m_display, &next);
        }
    }
    // [docs: end]

    // [docs: forward]
    // @return whether the host goes on
    bool OnEvent(XEvent& event) {
        switch (event.type) {
        case Expose:
            if (event.xexpose.count == 0) m_plotter.OnDraw();
            break;
        case ConfigureNotify:
            OnConfigure(event.xconfigure);
            break;
        case ButtonPress:
        case ButtonRelease:
            OnButton(event.xbutton);
            break;
        case MotionNotify:
            m_plotter.OnMouseMove(State(event.xmotion.state), {event.xmotion.x, event.xmotion.y});
            break;
        case KeyPress:
            if (ChoosePlot(m_plotter, static_cast<int>(XLookupKeysym(&event.xkey, 0)))) m_plotter.OnDraw();
            break;
        case ClientMessage:
            return static_cast<Atom>(event.xclient.data.l[0]) != m_close;
        case DestroyNotify:
            return false;
        default:
            break;
        }
        return true;
    }
    // [docs: end]

private:
    // The buttons and keys as they were before the event.
    static unsigned int State(unsigned int state) {
        return KeyState(state & Button1Mask, state & Button2Mask, state & Button3Mask, state & ShiftMask,
                        state & ControlMask);
    }

    // Windows are configured when they move, too, but only a new size may fit the view anew.
    void OnConfigure(const XConfigureEvent& event) {
        if (event.width == m_width && event.height == m_height) return;
        m_width = event.width;
        m_height = event.height;
        m_plotter.OnSize(0, m_width, m_height);
    }

    // The server sends all motion to the window while a button is down: the drag is captured by itself.
    void OnButton(const XButtonEvent& event) {
        const bool isPress = event.type == ButtonPress;
        const unsigned int state = State(event.state);
        const POINT client = {event.x, event.y};
        const POINT screen = {event.x_root, event.y_root};
        if (event.button == Button1 && isPress) m_plotter.OnLButtonDown(state | MK_LBUTTON, client);
        if (event.button == Button1 && !isPress) m_plotter.OnLButtonUp(state & ~MK_LBUTTON, client);
        if (event.button == Button3 && isPress) m_plotter.OnRButtonDown(state | MK_RBUTTON, client);
        if (event.button == Button3 && !isPress) m_plotter.OnRButtonUp(state & ~MK_RBUTTON, client);
        if (event.button == Button3 && !isPress && IsDetailReduced(m_plotter)) m_plotter.OnDraw();
        // The wheel is two buttons: 4 away from the user, 5 towards the user.
        if (event.button == Button4 && isPress) m_plotter.OnMouseWheel(state, 120, screen);
        if (event.button == Button5 && isPress) m_plotter.OnMouseWheel(state, -120, screen);
    }

    Display* m_display;
    Window m_window = 0;
    Atom m_close = 0;
    int m_width = 900;
    int m_height = 600;
    HWND m_handle = nullptr;
    CKivoFunctionPlotter m_plotter;
    std::vector<float> m_points = HillPoints();
};

} // namespace

int main() {
    Display* const display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "x11_host: %s\n", noDisplay);
        return 1;
    }
    bool isOpen = true;
    {
        Host host(display);
        if (!host.Attach()) {
            std::fprintf(stderr, "x11_host: %s\n", LastWindowError());
            return 1;
        }
        for (XEvent event; isOpen; isOpen = host.OnEvent(event))
            host.Next(event);
    }
    XCloseDisplay(display);
    return 0;
}
