// The host of docs/quick-start.md for Windows: the shortest that shows a plot and turns it.
// Its lines are long so that there are few.
// clang-format off
// [docs: host]
#include <KivoFunctionPlotter.h>
#include <cmath>
#include <windowsx.h>
using KivoDrawingTools::CKivoFunctionPlotter;

CKivoFunctionPlotter plotter;

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    const unsigned int keys = GET_KEYSTATE_WPARAM(wParam);
    switch (message) {
    case WM_PAINT: plotter.OnDraw(); ValidateRect(window, nullptr); return 0;
    case WM_SIZE: if (wParam != SIZE_MINIMIZED) plotter.OnSize(0, LOWORD(lParam), HIWORD(lParam)); return 0;
    case WM_RBUTTONDOWN: SetCapture(window); plotter.OnRButtonDown(keys, point); return 0;
    case WM_RBUTTONUP: ReleaseCapture(); plotter.OnRButtonUp(keys, point); return 0;
    case WM_MOUSEMOVE: plotter.OnMouseMove(keys, point); return 0;
    case WM_MOUSEWHEEL: plotter.OnMouseWheel(keys, GET_WHEEL_DELTA_WPARAM(wParam), point); return 0;
    case WM_DESTROY: plotter.OnDestroy(); PostQuitMessage(0); return 0;
    default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

int main() {
    WNDCLASSA windowClass = {};
    windowClass.style = CS_OWNDC;
    windowClass.lpfnWndProc = DefWindowProcA; // until there is a plot
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.lpszClassName = "Plot";
    RegisterClassA(&windowClass);
    HWND window = CreateWindowA("Plot", "sin(x) cos(y)", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 800, 600,
                                nullptr, nullptr, nullptr, nullptr);
    RECT client;
    GetClientRect(window, &client);
    static float points[40 * 30 * 3]; // 40 columns, 30 rows, x y z each
    for (int i = 0; i < 40 * 30; ++i) {
        float x = float(i % 40) / 6, y = float(i / 40) / 6;
        points[3 * i] = x, points[3 * i + 1] = y, points[3 * i + 2] = std::sin(x) * std::cos(y);
    }
    if (plotter.OnCreate(window, client.right, client.bottom, true) != 0) return 1;
    plotter.SetDataReference(points, 40, 30, 1, 40, 3);
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OnMessage));
    ShowWindow(window, SW_SHOW);
    for (MSG message; GetMessageA(&message, nullptr, 0, 0) > 0;) DispatchMessageA(&message);
}
// [docs: end]
