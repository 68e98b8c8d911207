// The host of README.md and docs/quick-start.md for Linux: the shortest that shows a plot and turns it.
// Its lines are long so that there are few.
// clang-format off
// [docs: host]
#include <KivoFunctionPlotter.h>
#include <KivoWindow.h>
#include <X11/Xlib.h>
#include <cmath>
using namespace KivoDrawingTools;

int main() {
    Display* display = XOpenDisplay(nullptr);
    if (!display) return 1;
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 800, 600, 0, 0, 0);
    XSelectInput(display, window, ExposureMask | StructureNotifyMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask);
    XMapWindow(display, window), XSync(display, False); // the plotter looks for it on a connection of its own
    static float points[40 * 30 * 3]; // 40 columns, 30 rows, x y z each
    for (int i = 0; i < 40 * 30; ++i) {
        float x = float(i % 40) / 6, y = float(i / 40) / 6;
        points[3 * i] = x, points[3 * i + 1] = y, points[3 * i + 2] = std::sin(x) * std::cos(y);
    }
    CKivoFunctionPlotter plotter;
    int width = 800, height = 600;
    if (plotter.OnCreate(AttachX11Window(window), width, height, true) != 0) return 1;
    plotter.SetDataReference(points, 40, 30, 1, 40, 3);
    for (XEvent e; !XNextEvent(display, &e);) {
        if (e.type == Expose) plotter.OnDraw();
        if (e.type == ConfigureNotify && (e.xconfigure.width != width || e.xconfigure.height != height))
            plotter.OnSize(0, width = e.xconfigure.width, height = e.xconfigure.height); // not when only moved
        if (e.type == ButtonPress && e.xbutton.button == 3) plotter.OnRButtonDown(MK_RBUTTON, {e.xbutton.x, e.xbutton.y});
        if (e.type == ButtonRelease && e.xbutton.button == 3) plotter.OnRButtonUp(0, {e.xbutton.x, e.xbutton.y});
        if (e.type == MotionNotify) plotter.OnMouseMove(e.xmotion.state & Button3Mask ? MK_RBUTTON : 0, {e.xmotion.x, e.xmotion.y});
    }
}
// [docs: end]
