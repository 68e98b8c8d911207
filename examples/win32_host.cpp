// A window with a plot in it, by the plot's own window class.
#include "Hill.h"

#include <KivoPlotControl.h>

int main() {
    SetProcessDPIAware(); // pixels are the screen's own
    const HINSTANCE instance = GetModuleHandleA(nullptr);
    // [docs: control]
    KivoDrawingTools::RegisterKivoPlotClass(instance);
    const HWND plot =
        CreateWindowA(KivoDrawingTools::kivoPlotClassName, hillTitle, WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                      CW_USEDEFAULT, CW_USEDEFAULT, 900, 600, nullptr, nullptr, instance, nullptr);
    const std::vector<float> points = HillPoints();
    const KivoDrawingTools::SKivoGrid grid = {points.data(), hillColumns, hillRows};
    SendMessageA(plot, KivoDrawingTools::KPM_SETGRID, 0, reinterpret_cast<LPARAM>(&grid));
    // [docs: end]
    MSG message;
    while (IsWindow(plot) && GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}
