// A host in GLFW, whose window has no OpenGL of its own: the plotter brings it. It hands the window's XID to
// the plotter and forwards the callbacks in pixels of the device. A drag with the right button turns the
// plot, with Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose the plot.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#define GLFW_EXPOSE_NATIVE_X11
#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>
#include <GLFW/glfw3native.h>

#include <cstdio>
#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

struct Plot {
    CKivoFunctionPlotter plotter;
    std::vector<float> points = HillPoints();
    POINT pointer = {};    // where the last event saw it; glfwGetCursorPos says where it is by now
    int wheel = 0;         // turned beyond whole steps
    bool hasMoved = false; // a move waits to be shown
    unsigned int moveState = 0;
};

Plot& PlotOf(GLFWwindow* window) {
    return *static_cast<Plot*>(glfwGetWindowUserPointer(window));
}

bool IsDown(GLFWwindow* window, int button) {
    return glfwGetMouseButton(window, button) == GLFW_PRESS;
}

bool IsKeyDown(GLFWwindow* window, int left, int right) {
    return glfwGetKey(window, left) == GLFW_PRESS || glfwGetKey(window, right) == GLFW_PRESS;
}

unsigned int State(GLFWwindow* window) {
    return KeyState(IsDown(window, GLFW_MOUSE_BUTTON_LEFT), IsDown(window, GLFW_MOUSE_BUTTON_MIDDLE),
                    IsDown(window, GLFW_MOUSE_BUTTON_RIGHT),
                    IsKeyDown(window, GLFW_KEY_LEFT_SHIFT, GLFW_KEY_RIGHT_SHIFT),
                    IsKeyDown(window, GLFW_KEY_LEFT_CONTROL, GLFW_KEY_RIGHT_CONTROL));
}

// Pixels of the framebuffer in one unit of positions.
double Scale(GLFWwindow* window) {
    int width = 0, pixels = 0;
    glfwGetWindowSize(window, &width, nullptr);
    glfwGetFramebufferSize(window, &pixels, nullptr);
    return width > 0 ? static_cast<double>(pixels) / width : 1.0;
}

void OnSize(GLFWwindow* window, int width, int height) {
    PlotOf(window).plotter.OnSize(0, width, height);
}

void OnRefresh(GLFWwindow* window) {
    PlotOf(window).plotter.OnDraw();
}

// [docs: motion]
// GLFW reports each move. They are shown at once when all events that wait have come, or anything else comes
// after them.
void ShowMoves(Plot& plot) {
    if (plot.hasMoved) plot.plotter.OnMouseMove(plot.moveState, plot.pointer);
    plot.hasMoved = false;
}

void OnMove(GLFWwindow* window, double x, double y) {
    Plot& plot = PlotOf(window);
    if (plot.moveState != State(window)) ShowMoves(plot);
    plot.moveState = State(window);
    plot.pointer = ToPixels(x, y, Scale(window));
    plot.hasMoved = true;
}

// At most until the hand has rested: then the plot is drawn whole.
void WaitForEvents(Plot& plot) {
    const double begin = glfwGetTime();
    IsDetailReduced(plot.plotter) ? glfwWaitEventsTimeout(restTime / 1000.0) : glfwWaitEvents();
    const bool rests = !plot.hasMoved && glfwGetTime() - begin >= restTime / 1000.0;
    ShowMoves(plot);
    if (rests && IsDetailReduced(plot.plotter)) plot.plotter.OnDraw();
}
// [docs: end]

// The window keeps the pointer while a button is down.
void OnButton(GLFWwindow* window, int button, int action, int) {
    ShowMoves(PlotOf(window));
    CKivoFunctionPlotter& plotter = PlotOf(window).plotter;
    const POINT client = PlotOf(window).pointer;
    const bool isPress = action == GLFW_PRESS;
    const bool isLeft = button == GLFW_MOUSE_BUTTON_LEFT;
    const bool isRight = button == GLFW_MOUSE_BUTTON_RIGHT;
    if (isLeft && isPress) plotter.OnLButtonDown(State(window), client);
    if (isLeft && !isPress) plotter.OnLButtonUp(State(window), client);
    if (isRight && isPress) plotter.OnRButtonDown(State(window), client);
    if (isRight && !isPress) plotter.OnRButtonUp(State(window), client);
    if (isRight && !isPress && IsDetailReduced(plotter)) plotter.OnDraw();
}

// Touchpads turn parts of a step in one event, fast wheels several.
void OnScroll(GLFWwindow* window, double, double offset) {
    ShowMoves(PlotOf(window));
    const POINT client = PlotOf(window).pointer;
    int left = 0, top = 0;
    glfwGetWindowPos(window, &left, &top);
    const POINT screen = {left + client.x, top + client.y};
    const int steps = WheelSteps(PlotOf(window).wheel, ToPixels(offset, 120));
    for (int i = 0; i < std::abs(steps); ++i)
        PlotOf(window).plotter.OnMouseWheel(State(window), steps > 0 ? 120 : -120, screen);
}

void OnKey(GLFWwindow* window, int key, int, int action, int) {
    ShowMoves(PlotOf(window));
    // A key's constant is the ASCII code of its character.
    if (action == GLFW_PRESS && ChoosePlot(PlotOf(window).plotter, key)) PlotOf(window).plotter.OnDraw();
}

} // namespace

int main() {
    if (!glfwInit()) {
        std::fprintf(stderr, "glfw_host: %s\n", noDisplay);
        return 1;
    }
    // [docs: attach]
    glfwWindowHint(GLFW_CLIENT_API, GLFW_NO_API);
    GLFWwindow* const window = glfwCreateWindow(900, 600, hillTitle, nullptr, nullptr);
    if (!window) return 1;
    XSync(glfwGetX11Display(), False); // the plotter has a connection of its own, which must find the window
    const HWND handle = AttachX11Window(glfwGetX11Window(window));
    int width = 0, height = 0;
    glfwGetFramebufferSize(window, &width, &height);
    Plot plot;
    if (plot.plotter.OnCreate(handle, width, height, true) != 0) {
        std::fprintf(stderr, "glfw_host: %s\n", LastWindowError());
        return 1;
    }
    plot.plotter.SetDataReference(plot.points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    SetMotionDetail(plot.plotter, movingPoints);
    // [docs: end]

    glfwSetWindowUserPointer(window, &plot);
    glfwSetFramebufferSizeCallback(window, OnSize);
    glfwSetWindowRefreshCallback(window, OnRefresh);
    glfwSetMouseButtonCallback(window, OnButton);
    glfwSetCursorPosCallback(window, OnMove);
    glfwSetScrollCallback(window, OnScroll);
    glfwSetKeyCallback(window, OnKey);
    plot.plotter.OnDraw();
    while (!glfwWindowShouldClose(window))
        WaitForEvents(plot);

    plot.plotter.OnDestroy();
    ReleaseWindow(handle);
    glfwTerminate();
    return 0;
}
