// A host in plain Win32: its window procedure forwards the messages to the plotter as they come. A drag with
// the right button turns the plot, with Shift it pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to
// 3 choose the plot. `win32_host --frames N` ends after N frames.
#include "HillData.h"

#include <KivoFunctionPlotter.h>

#include <windowsx.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

using KivoDrawingTools::CKivoFunctionPlotter;

namespace {

int framesLeft = -1;

void OnPaint(CKivoFunctionPlotter& plotter, HWND window) {
    PAINTSTRUCT paint;
    BeginPaint(window, &paint);
    plotter.OnDraw();
    EndPaint(window, &paint);
    if (framesLeft > 0 && --framesLeft == 0) DestroyWindow(window);
    if (framesLeft > 0) InvalidateRect(window, nullptr, FALSE);
}

void OnKey(CKivoFunctionPlotter& plotter, HWND window, WPARAM key) {
    switch (key) {
    case '0':
        plotter.SwitchToNormalPlot();
        break;
    case '1':
        plotter.SwitchToXYProjectPlot();
        break;
    case '2':
        plotter.SwitchToYZProjectPlot();
        break;
    case '3':
        plotter.SwitchToZXProjectPlot();
        break;
    default:
        return;
    }
    InvalidateRect(window, nullptr, FALSE);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* plotter = reinterpret_cast<CKivoFunctionPlotter*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!plotter) return DefWindowProcA(window, message, wParam, lParam);

    const unsigned int flags = GET_KEYSTATE_WPARAM(wParam);
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
    case WM_SIZE:
        plotter->OnSize(static_cast<unsigned int>(wParam), LOWORD(lParam), HIWORD(lParam));
        return 0;
    case WM_PAINT:
        OnPaint(*plotter, window);
        return 0;
    case WM_ERASEBKGND:
        return 1; // the plot covers the whole client area
    case WM_RBUTTONDOWN:
        SetCapture(window);
        plotter->OnRButtonDown(flags, point);
        return 0;
    case WM_RBUTTONUP:
        ReleaseCapture();
        plotter->OnRButtonUp(flags, point);
        return 0;
    case WM_MOUSEMOVE:
        plotter->OnMouseMove(flags, point);
        return 0;
    case WM_MOUSEWHEEL:
        plotter->OnMouseWheel(flags, GET_WHEEL_DELTA_WPARAM(wParam), point);
        return 0;
    case WM_KEYDOWN:
        OnKey(*plotter, window, wParam);
        return 0;
    case WM_DESTROY:
        SetWindowLongPtrA(window, GWLP_USERDATA, 0);
        plotter->OnDestroy();
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND MakeWindow(HINSTANCE instance) {
    WNDCLASSA description = {};
    description.style = CS_OWNDC;
    description.lpfnWndProc = WindowProcedure;
    description.hInstance = instance;
    description.hCursor = LoadCursor(nullptr, IDC_ARROW);
    description.lpszClassName = "HillPlot";
    RegisterClassA(&description);
    return CreateWindowA("HillPlot", "sin(x) cos(y)", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 900,
                         600, nullptr, nullptr, instance, nullptr);
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--frames") == 0) framesLeft = std::atoi(argv[2]);
    std::vector<float> points = HillPoints();
    CKivoFunctionPlotter plotter;
    const HWND window = MakeWindow(GetModuleHandleA(nullptr));
    RECT client = {};
    GetClientRect(window, &client);
    if (plotter.OnCreate(window, client.right, client.bottom, true) != 0) {
        std::fprintf(stderr, "win32_host: the window cannot draw OpenGL; install a graphics driver\n");
        return 1;
    }
    plotter.SetDataReference(points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&plotter));
    ShowWindow(window, SW_SHOW);

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
