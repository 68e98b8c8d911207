// A host in plain Xlib: it makes a window of whatever visual the display offers by default, hands the
// window's XID to the plotter and forwards its events. A drag with the right button turns the plot, with
// Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose the plot. `x11_host --frames
// N` ends after N frames.
#include "HillData.h"

#include <KivoFunctionPlotter.h>
#include <KivoWindow.h>

#include <X11/keysym.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

using namespace KivoDrawingTools;

namespace {

unsigned int KeyState(unsigned int state) {
    unsigned int flags = 0;
    if (state & Button3Mask) flags |= MK_RBUTTON;
    if (state & ShiftMask) flags |= MK_SHIFT;
    if (state & ControlMask) flags |= MK_CONTROL;
    return flags;
}

void OnButton(CKivoFunctionPlotter& plotter, const XButtonEvent& event) {
    const bool isPress = event.type == ButtonPress;
    const unsigned int flags = KeyState(event.state);
    const POINT client = {event.x, event.y};
    const POINT screen = {event.x_root, event.y_root};
    if (event.button == Button3 && isPress)
        plotter.OnRButtonDown(flags | MK_RBUTTON, client);
    else if (event.button == Button3)
        plotter.OnRButtonUp(flags, client);
    else if (isPress && event.button == Button4) // the wheel, away from the user
        plotter.OnMouseWheel(flags, 120, screen);
    else if (isPress && event.button == Button5)
        plotter.OnMouseWheel(flags, -120, screen);
}

void OnKey(CKivoFunctionPlotter& plotter, XKeyEvent& event) {
    switch (XLookupKeysym(&event, 0)) {
    case XK_0:
        plotter.SwitchToNormalPlot();
        break;
    case XK_1:
        plotter.SwitchToXYProjectPlot();
        break;
    case XK_2:
        plotter.SwitchToYZProjectPlot();
        break;
    case XK_3:
        plotter.SwitchToZXProjectPlot();
        break;
    default:
        return;
    }
    plotter.OnDraw();
}

} // namespace

int main(int argc, char** argv) {
    int framesLeft = argc == 3 && std::strcmp(argv[1], "--frames") == 0 ? std::atoi(argv[2]) : -1;
    Display* display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "x11_host: there is no display; set DISPLAY\n");
        return 1;
    }
    const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 900, 600, 0, 0,
                                              WhitePixel(display, 0));
    XSelectInput(display, window,
                 ExposureMask | StructureNotifyMask | ButtonPressMask | ButtonReleaseMask |
                     PointerMotionMask | KeyPressMask);
    XStoreName(display, window, "sin(x) cos(y)");
    Atom closeMessage = XInternAtom(display, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(display, window, &closeMessage, 1);
    XMapWindow(display, window);
    XSync(display, False); // the plotter has a connection of its own, which must find the window

    CKivoFunctionPlotter plotter;
    const HWND handle = AttachX11Window(window);
    if (plotter.OnCreate(handle, 900, 600, true) != 0) {
        std::fprintf(stderr, "x11_host: %s\n", LastWindowError());
        return 1;
    }
    std::vector<float> points = HillPoints();
    plotter.SetDataReference(points.data(), hillColumns, hillRows, 1, hillColumns, 3);

    for (bool isOpen = true; isOpen && framesLeft != 0;) {
        XEvent event;
        XNextEvent(display, &event);
        switch (event.type) {
        case Expose:
            if (event.xexpose.count == 0) plotter.OnDraw();
            if (framesLeft > 0 && --framesLeft > 0) XClearArea(display, window, 0, 0, 0, 0, True);
            break;
        case ConfigureNotify:
            plotter.OnSize(0, event.xconfigure.width, event.xconfigure.height);
            break;
        case ButtonPress:
        case ButtonRelease:
            OnButton(plotter, event.xbutton);
            break;
        case MotionNotify:
            plotter.OnMouseMove(KeyState(event.xmotion.state), {event.xmotion.x, event.xmotion.y});
            break;
        case KeyPress:
            OnKey(plotter, event.xkey);
            break;
        case ClientMessage:
            isOpen = static_cast<Atom>(event.xclient.data.l[0]) != closeMessage;
            break;
        default:
            break;
        }
    }
    plotter.OnDestroy();
    ReleaseWindow(handle);
    XDestroyWindow(display, window);
    XCloseDisplay(display);
    return 0;
}
