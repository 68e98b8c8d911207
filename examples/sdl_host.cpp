// A host in SDL 2, whose window has neither OpenGL nor a renderer of SDL's: the plotter draws in it. It hands
// the window's XID to the plotter and forwards the events in pixels of the device. A drag with the right
// button turns the plot, with Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose
// the plot.
#define SDL_MAIN_HANDLED
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#include <SDL.h>
#include <SDL_syswm.h>
#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

// [docs: attach]
HWND Attach(SDL_Window* window) {
    SDL_SysWMinfo info = {};
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11) return nullptr;
    XSync(info.info.x11.display, False); // the plotter has a connection of its own, which must find it
    return AttachX11Window(info.info.x11.window);
}
// [docs: end]

unsigned int State() {
    const Uint32 buttons = SDL_GetMouseState(nullptr, nullptr);
    const SDL_Keymod keys = SDL_GetModState();
    return KeyState(buttons & SDL_BUTTON_LMASK, buttons & SDL_BUTTON_MMASK, buttons & SDL_BUTTON_RMASK,
                    keys & KMOD_SHIFT, keys & KMOD_CTRL);
}

// Pixels of the window in one unit of positions.
double Scale(SDL_Window* window) {
    int width = 0, pixels = 0;
    SDL_GetWindowSize(window, &width, nullptr);
    SDL_GetWindowSizeInPixels(window, &pixels, nullptr);
    return width > 0 ? static_cast<double>(pixels) / width : 1.0;
}

void OnWindow(CKivoFunctionPlotter& plotter, SDL_Window* window, const SDL_WindowEvent& event) {
    int width = 0, height = 0;
    SDL_GetWindowSizeInPixels(window, &width, &height);
    if (event.event == SDL_WINDOWEVENT_SIZE_CHANGED) plotter.OnSize(0, width, height);
    // Where the plotter has covered the window with one of its own, SDL is not told that it is exposed.
    if (event.event == SDL_WINDOWEVENT_EXPOSED || event.event == SDL_WINDOWEVENT_SHOWN) plotter.OnDraw();
}

// SDL captures the pointer while a button is down.
void OnButton(CKivoFunctionPlotter& plotter, SDL_Window* window, const SDL_MouseButtonEvent& event) {
    const POINT client = ToPixels(event.x, event.y, Scale(window));
    const bool isPress = event.type == SDL_MOUSEBUTTONDOWN;
    if (event.button == SDL_BUTTON_LEFT && isPress) plotter.OnLButtonDown(State() | MK_LBUTTON, client);
    if (event.button == SDL_BUTTON_LEFT && !isPress) plotter.OnLButtonUp(State() & ~MK_LBUTTON, client);
    if (event.button == SDL_BUTTON_RIGHT && isPress) plotter.OnRButtonDown(State() | MK_RBUTTON, client);
    if (event.button == SDL_BUTTON_RIGHT && !isPress) plotter.OnRButtonUp(State() & ~MK_RBUTTON, client);
    if (event.button == SDL_BUTTON_RIGHT && !isPress && IsDetailReduced(plotter)) plotter.OnDraw();
}

void OnMotion(CKivoFunctionPlotter& plotter, SDL_Window* window, const SDL_MouseMotionEvent& event) {
    const unsigned int keys = State() & (MK_SHIFT | MK_CONTROL);
    const unsigned int buttons = KeyState(event.state & SDL_BUTTON_LMASK, event.state & SDL_BUTTON_MMASK,
                                          event.state & SDL_BUTTON_RMASK, false, false);
    plotter.OnMouseMove(buttons | keys, ToPixels(event.x, event.y, Scale(window)));
}

// Wheels and touchpads of a high resolution turn parts of a step in one event, fast ones several steps.
void OnWheel(CKivoFunctionPlotter& plotter, SDL_Window* window, const SDL_MouseWheelEvent& event) {
    int left = 0, top = 0;
    SDL_GetWindowPosition(window, &left, &top);
    const POINT screen = ToPixels(left + event.mouseX, top + event.mouseY, Scale(window));
    static int remainder = 0; // turned beyond whole steps
    const int direction = event.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
    const int steps = WheelSteps(remainder, ToPixels(event.preciseY, 120.0 * direction));
    for (int i = 0; i < std::abs(steps); ++i)
        plotter.OnMouseWheel(State(), steps > 0 ? 120 : -120, screen);
}

// [docs: motion]
// Whether a move is followed by another one: of those that wait, the last is enough.
bool IsOvertaken(const SDL_Event& event) {
    SDL_Event next;
    return event.type == SDL_MOUSEMOTION &&
           SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1 &&
           next.type == SDL_MOUSEMOTION && next.motion.state == event.motion.state;
}
// [docs: end]

// @return whether the host goes on
bool OnEvent(CKivoFunctionPlotter& plotter, SDL_Window* window, const SDL_Event& event) {
    if (event.type == SDL_WINDOWEVENT) OnWindow(plotter, window, event.window);
    if (event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP)
        OnButton(plotter, window, event.button);
    if (event.type == SDL_MOUSEMOTION) OnMotion(plotter, window, event.motion);
    if (event.type == SDL_MOUSEWHEEL) OnWheel(plotter, window, event.wheel);
    if (event.type == SDL_KEYDOWN && ChoosePlot(plotter, event.key.keysym.sym)) plotter.OnDraw();
    return event.type != SDL_QUIT;
}

} // namespace

int main() {
    // On Wayland, too: the plotter draws in X11 windows.
    SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "x11", SDL_HINT_OVERRIDE);
    // SDL prefers a DirectColor visual, in which the plotter would show its picture by a window of its own;
    // SDL then loses the pointer in drags.
    SDL_setenv("SDL_VIDEO_X11_NODIRECTCOLOR", "1", 1);
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        std::fprintf(stderr, "sdl_host: %s\n", noDisplay);
        return 1;
    }
    SDL_Window* const window = SDL_CreateWindow(hillTitle, SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                                                900, 600, SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    int width = 0, height = 0;
    SDL_GetWindowSizeInPixels(window, &width, &height);
    CKivoFunctionPlotter plotter;
    const HWND handle = Attach(window);
    if (plotter.OnCreate(handle, width, height, true) != 0) {
        std::fprintf(stderr, "sdl_host: %s\n", LastWindowError());
        return 1;
    }
    std::vector<float> points = HillPoints();
    plotter.SetDataReference(points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    SetMotionDetail(plotter, movingPoints);

    // Not SDL_WaitEvent: it wakes itself by messages to the window, of which one can come when that is gone.
    bool isOpen = true;
    Uint64 lastEvent = 0;
    for (SDL_Event event; isOpen; SDL_Delay(5)) {
        while (isOpen && SDL_PollEvent(&event)) {
            if (!IsOvertaken(event)) isOpen = OnEvent(plotter, window, event);
            lastEvent = SDL_GetTicks64();
        }
        if (IsDetailReduced(plotter) && SDL_GetTicks64() - lastEvent >= restTime) plotter.OnDraw();
    }

    plotter.OnDestroy();
    ReleaseWindow(handle);
    SDL_DestroyWindow(window);
    SDL_Quit();
    return 0;
}
