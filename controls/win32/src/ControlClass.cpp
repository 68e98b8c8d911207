// The window class: which window has which control, and how long.
#include "PlotControl.h"

#include <new>

namespace KivoDrawingTools {

namespace {

constexpr wchar_t className[] = L"KivoFunctionPlotter";

/// What a window keeps: its control, which outlasts the messages that it is answering. In one of them a host
/// may destroy the window.
struct Kept {
    explicit Kept(HWND window) : control(window) {}

    PlotControl control;
    int answering = 0;
    bool isGone = false;
};

Kept* KeptOf(HWND window) {
    return reinterpret_cast<Kept*>(GetWindowLongPtrW(window, 0));
}

bool Create(HWND window) {
    try {
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(new Kept(window)));
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void Leave(Kept* kept) {
    if (--kept->answering == 0 && kept->isGone) delete kept;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) return Create(window) ? 0 : -1;
    Kept* const kept = KeptOf(window);
    if (!kept) return DefWindowProcW(window, message, wParam, lParam);
    ++kept->answering;
    std::optional<LRESULT> answer;
    if (message == WM_DESTROY) {
        SetWindowLongPtrW(window, 0, 0);
        kept->isGone = true;
        answer = 0;
    } else {
        answer = kept->control.Answer(message, wParam, lParam);
    }
    Leave(kept);
    return answer ? *answer : DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

int RegisterKivoPlotClass(HINSTANCE instance) {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof(description);
    description.style = CS_OWNDC | CS_GLOBALCLASS;
    description.lpfnWndProc = Procedure;
    description.cbWndExtra = sizeof(LONG_PTR);
    description.hInstance = instance;
    description.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    description.lpszClassName = className;
    const bool isRegistered =
        RegisterClassExW(&description) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
    return isRegistered ? 0 : -1;
}

} // namespace KivoDrawingTools
