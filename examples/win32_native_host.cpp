// A host in plain Win32: its window procedure forwards the messages to the plotter as they come. A drag with
// the right button turns the plot, with Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to
// 3 choose the plot.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>

#include <windowsx.h>

#include <cstdio>
#include <cstdlib>

using KivoDrawingTools::CKivoFunctionPlotter;

namespace {

struct Host {
    SIZE size = {};
    CKivoFunctionPlotter plotter;
    std::vector<float> points = HillPoints();
    int wheel = 0; // turned beyond whole steps
};

// [docs: forward]
void OnPaint(CKivoFunctionPlotter& plotter, HWND window) {
    PAINTSTRUCT paint;
    BeginPaint(window, &paint);
    plotter.OnDraw();
    EndPaint(window, &paint);
}

// A minimised window has no size, and the same one again afterwards, but only a new size may fit the view
// anew.
void OnSize(Host& host, WPARAM type, SIZE size) {
    if (type == SIZE_MINIMIZED || (size.cx == host.size.cx && size.cy == host.size.cy)) return;
    host.size = size;
    host.plotter.OnSize(static_cast<unsigned int>(type), size.cx, size.cy);
}

// A moment after the last movement, and at the end of a drag, the plot is drawn whole. Windows makes one
// message of moves that wait.
void DrawWhole(CKivoFunctionPlotter& plotter, HWND window) {
    KillTimer(window, 1);
    if (IsDetailReduced(plotter)) InvalidateRect(window, nullptr, FALSE);
}

// The window keeps the messages of a drag coming while the pointer is outside, until the last button is up.
void OnButton(CKivoFunctionPlotter& plotter, HWND window, UINT message, unsigned int state, POINT client) {
    if (message == WM_LBUTTONDOWN) plotter.OnLButtonDown(state, client);
    if (message == WM_LBUTTONUP) plotter.OnLButtonUp(state, client);
    if (message == WM_RBUTTONDOWN) plotter.OnRButtonDown(state, client);
    if (message == WM_RBUTTONUP) plotter.OnRButtonUp(state, client);
    if (message == WM_RBUTTONUP) DrawWhole(plotter, window);
    if (message == WM_RBUTTONDOWN || message == WM_LBUTTONDOWN) SetCapture(window);
    if ((state & (MK_LBUTTON | MK_RBUTTON)) == 0 && GetCapture() == window) ReleaseCapture();
}

// Wheels and touchpads of a high resolution turn a step in many small messages, fast ones several in one.
void OnWheel(Host& host, unsigned int state, int delta, POINT screen) {
    const int steps = KivoDrawingTools::WheelSteps(host.wheel, delta);
    for (int i = 0; i < std::abs(steps); ++i)
        host.plotter.OnMouseWheel(state, steps > 0 ? 120 : -120, screen);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const host = reinterpret_cast<Host*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!host) return DefWindowProcA(window, message, wParam, lParam);

    const unsigned int state = GET_KEYSTATE_WPARAM(wParam);
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; // the wheel's is on the screen
    switch (message) {
    case WM_SIZE:
        OnSize(*host, wParam, {LOWORD(lParam), HIWORD(lParam)});
        return 0;
    case WM_PAINT:
        OnPaint(host->plotter, window);
        return 0;
    case WM_ERASEBKGND:
        return 1; // the plot covers the whole client area
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
        OnButton(host->plotter, window, message, state, point);
        return 0;
    case WM_MOUSEMOVE:
        host->plotter.OnMouseMove(state, point);
        SetTimer(window, 1, restTime, nullptr); // anew with each
        return 0;
    case WM_MOUSEWHEEL:
        OnWheel(*host, state, GET_WHEEL_DELTA_WPARAM(wParam), point);
        SetTimer(window, 1, restTime, nullptr);
        return 0;
    case WM_TIMER:
        DrawWhole(host->plotter, window);
        return 0;
    case WM_KEYDOWN:
        if (ChoosePlot(host->plotter, static_cast<int>(wParam))) InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_DESTROY:
        SetWindowLongPtrA(window, GWLP_USERDATA, 0);
        host->plotter.OnDestroy();
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}
// [docs: end]

HWND MakeWindow(HINSTANCE instance) {
    WNDCLASSA description = {};
    description.style = CS_OWNDC;
    description.lpfnWndProc = WindowProcedure;
    description.hInstance = instance;
    description.hCursor = LoadCursor(nullptr, IDC_ARROW);
    description.lpszClassName = "HillPlot";
    RegisterClassA(&description);
    RECT frame = {0, 0, 900, 600};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
    return CreateWindowA("HillPlot", hillTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                         frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr, instance,
                         nullptr);
}

// [docs: attach]
bool Attach(Host& host, HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    host.size = {client.right, client.bottom};
    if (host.plotter.OnCreate(window, client.right, client.bottom, true) != 0) return false;
    host.plotter.SetDataReference(host.points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    SetMotionDetail(host.plotter, movingPoints);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&host));
    return true;
}
// [docs: end]

} // namespace

int main() {
    SetProcessDPIAware(); // pixels are the screen's own, and text is sized for its density
    Host host;
    const HWND window = MakeWindow(GetModuleHandleA(nullptr));
    if (!Attach(host, window)) {
        std::fprintf(stderr, "win32_native_host: the window cannot draw OpenGL; install a graphics driver\n");
        return 1;
    }
    ShowWindow(window, SW_SHOW);

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
