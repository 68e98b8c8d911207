#include "PlotControl.h"

#include "ControlPicture.h"

#include <windowsx.h>

#include <commdlg.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <new>
#include <string>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr UINT_PTR wakeTimer = 1;
constexpr UINT dpiChangedAfterParent = 0x02E3; // of newer systems than the oldest one that is served
enum MenuItem : UINT { copyItem = 1, saveItem, startViewItem };

POINT PlaceOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

RECT ClientOf(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return client;
}

// Of newer systems; older ones have one resolution for all screens.
int ScreenResolution(HWND window) {
    using GetDpiForWindowType = UINT(WINAPI*)(HWND);
    const HMODULE user = GetModuleHandleA("user32.dll");
    const FARPROC found = user ? GetProcAddress(user, "GetDpiForWindow") : nullptr;
    GetDpiForWindowType getDpi = nullptr;
    std::memcpy(&getDpi, &found, sizeof(getDpi));
    if (getDpi)
        if (const UINT dpi = getDpi(window)) return static_cast<int>(dpi);
    const HDC dc = GetDC(window);
    const int dpi = GetDeviceCaps(dc, LOGPIXELSY);
    ReleaseDC(window, dc);
    return dpi;
}

} // namespace

PlotControl::PlotControl(HWND window)
    : m_window(window),
      m_view(Events(),
             (static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)) & KPS_IMAGE) != 0 ? nullptr : window) {
    if (GetWindowTextLengthW(window) == 0) SetWindowTextW(window, L"Surface plot");
    FollowStyle();
    FollowSize();
}

SKivoPlotViewEvents PlotControl::Events() {
    SKivoPlotViewEvents events;
    events.redraw = [this] { InvalidateRect(m_window, nullptr, FALSE); };
    events.wake = [this](int milliseconds) {
        if (milliseconds < 0)
            KillTimer(m_window, wakeTimer);
        else
            SetTimer(m_window, wakeTimer, static_cast<UINT>(milliseconds), nullptr);
    };
    events.traced = [this](const float* point) { NotifyTraced(point); };
    events.viewChanged = [this] { Notify(KPN_VIEWCHANGED); };
    events.failed = [this] { Notify(KPN_FAILED); };
    return events;
}

bool PlotControl::HasStyle(DWORD style) const {
    return (static_cast<DWORD>(GetWindowLongPtrW(m_window, GWL_STYLE)) & style) != 0;
}

double PlotControl::Density() const {
    return std::clamp(ScreenResolution(m_window) / 96.0, 0.25, 8.0);
}

void PlotControl::FollowSize() {
    const RECT client = ClientOf(m_window);
    m_view.SetSize(static_cast<int>(client.right), static_cast<int>(client.bottom), Density());
}

void PlotControl::FollowStyle() {
    m_view.KeepUpright(HasStyle(KPS_UPRIGHT));
    const bool hadSystemColors = std::exchange(m_hasSystemColors, HasStyle(KPS_SYSTEMCOLORS));
    if (m_hasSystemColors)
        m_view.SetColors(GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW));
    else if (hadSystemColors)
        m_view.SetColors({}, {});
}

// ---- Pictures

void PlotControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(m_window, &paint);
    const SKivoPlotImage image = m_view.Draw();
    if (!m_view.Failure().empty())
        PaintWords(dc);
    else if (image.pixels)
        PutImage(dc, ClientOf(m_window), image);
    EndPaint(m_window, &paint);
}

void PlotControl::PaintWords(HDC dc) {
    RECT client = ClientOf(m_window);
    FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkMode(dc, TRANSPARENT);
    SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    InflateRect(&client, -8, -8);
    DrawTextA(dc, m_view.Failure().c_str(), -1, &client, DT_WORDBREAK | DT_NOPREFIX);
}

void PlotControl::PrintTo(HDC dc) {
    const SKivoPlotImage image = DrawSmoothImage(m_view.Plotter(), m_picture);
    if (image.pixels)
        PutImage(dc, ClientOf(m_window), image);
    else
        PaintWords(dc);
}

LRESULT PlotControl::Copy() {
    const SKivoPlotImage image = DrawSmoothImage(m_view.Plotter(), m_picture);
    const HGLOBAL dib = image.pixels ? MakeDib(image) : nullptr;
    if (!dib) return FALSE;
    bool isTaken = false;
    if (OpenClipboard(m_window)) {
        EmptyClipboard();
        isTaken = SetClipboardData(CF_DIB, dib) != nullptr; // the clipboard's from then on
        CloseClipboard();
    }
    if (!isTaken) GlobalFree(dib);
    return isTaken ? TRUE : FALSE;
}

int PlotControl::SavePicture(const wchar_t* fileName) {
    if (!fileName) return -3;
    const SKivoPlotImage image = DrawSmoothImage(m_view.Plotter(), m_picture);
    return image.pixels && SavePng(fileName, image) ? 0 : -1;
}

void PlotControl::AskForFile() {
    wchar_t name[32768] = L"plot.png";
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = m_window;
    dialog.lpstrFilter = L"PNG pictures\0*.png\0";
    dialog.lpstrFile = name;
    dialog.nMaxFile = static_cast<DWORD>(std::size(name));
    dialog.lpstrDefExt = L"png";
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR;
    if (GetSaveFileNameW(&dialog) && SavePicture(name) != 0)
        MessageBoxW(m_window, L"The picture could not be written; choose another place or free memory.",
                    L"Save picture", MB_OK | MB_ICONWARNING);
}

// ---- Messages

std::optional<LRESULT> PlotControl::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
    case dpiChangedAfterParent:
        FollowSize();
        return 0;
    case WM_PAINT:
        Paint();
        return 0;
    case WM_PRINTCLIENT:
        PrintTo(reinterpret_cast<HDC>(wParam));
        return 0;
    case WM_ERASEBKGND:
        return 1; // the plot covers the whole control
    case WM_TIMER:
        KillTimer(m_window, wakeTimer);
        m_view.Wake();
        return 0;
    case WM_STYLECHANGED:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        FollowStyle();
        return 0;
    case WM_COPY:
        return Copy();
    case WM_CONTEXTMENU:
        return OpenMenu(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
    default:
        break;
    }
    const std::optional<LRESULT> answer = AnswerInput(message, wParam, lParam);
    return answer ? answer : AnswerOwn(message, wParam, lParam);
}

std::optional<LRESULT> PlotControl::AnswerInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
        Press(KivoMouseButton::left, wParam, lParam);
        return 0;
    case WM_MBUTTONDOWN:
        Press(KivoMouseButton::middle, wParam, lParam);
        return 0;
    case WM_RBUTTONDOWN:
        Press(KivoMouseButton::right, wParam, lParam);
        return 0;
    case WM_LBUTTONUP:
        Release(KivoMouseButton::left, wParam, lParam);
        return 0;
    case WM_MBUTTONUP:
        Release(KivoMouseButton::middle, wParam, lParam);
        return 0;
    case WM_RBUTTONUP:
        Release(KivoMouseButton::right, wParam, lParam);
        return 0;
    case WM_MOUSEMOVE:
        m_view.Move(static_cast<unsigned int>(wParam), PlaceOf(lParam));
        return 0;
    case WM_CAPTURECHANGED:
        m_view.Cancel();
        return 0;
    case WM_MOUSEWHEEL: {
        POINT place = PlaceOf(lParam);
        ScreenToClient(m_window, &place);
        m_view.Wheel(GET_WHEEL_DELTA_WPARAM(wParam), place);
        return 0;
    }
    case WM_GESTURE:
        return Pinch(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
        return PressKey(wParam) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_CHAR:
        return PressCharacter(wParam) ? std::optional<LRESULT>(0) : std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<LRESULT> PlotControl::AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case KPM_GETPLOTTER:
        return reinterpret_cast<LRESULT>(&m_view.Plotter());
    case KPM_SETGRID:
        return SetGrid(reinterpret_cast<const SKivoGrid*>(lParam));
    case KPM_UPDATE:
        m_view.Update();
        return 0;
    case KPM_GETFAILURE: {
        const std::string words = m_view.Failure();
        if (wParam != 0 && lParam != 0)
            lstrcpynA(reinterpret_cast<char*>(lParam), words.c_str(),
                      static_cast<int>(std::min<WPARAM>(wParam, 0x7FFFFFFF)));
        return static_cast<LRESULT>(words.size());
    }
    case KPM_SAVEPICTURE:
        return SavePicture(reinterpret_cast<const wchar_t*>(lParam));
    default:
        return std::nullopt;
    }
}

LRESULT PlotControl::SetGrid(const SKivoGrid* grid) {
    if (!grid) return -3;
    try {
        return m_view.SetGrid(grid->points, grid->columns, grid->rows);
    } catch (const std::bad_alloc&) {
        return -1; // no exception crosses the window system
    }
}

// ---- The hand

void PlotControl::Press(KivoMouseButton button, WPARAM flags, LPARAM place) {
    SetFocus(m_window);
    SetCapture(m_window); // a drag goes on outside
    m_view.Press(button, static_cast<unsigned int>(flags), PlaceOf(place));
}

void PlotControl::Release(KivoMouseButton button, WPARAM flags, LPARAM place) {
    const bool isClick = m_view.Release(button);
    const bool isAnyPressed = (flags & (MK_LBUTTON | MK_MBUTTON | MK_RBUTTON)) != 0;
    if (!isAnyPressed && GetCapture() == m_window) ReleaseCapture();
    if (!isClick || button != KivoMouseButton::right) return;
    POINT screen = PlaceOf(place);
    ClientToScreen(m_window, &screen);
    SendMessageW(m_window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_window),
                 MAKELPARAM(screen.x, screen.y));
}

bool PlotControl::PressKey(WPARAM key) {
    const bool isShifted = GetKeyState(VK_SHIFT) < 0;
    const auto press = [&](KivoViewKey meant) { return m_view.PressKey(meant, isShifted ? MK_SHIFT : 0); };
    switch (key) {
    case VK_LEFT:
        return press(KivoViewKey::left);
    case VK_RIGHT:
        return press(KivoViewKey::right);
    case VK_UP:
        return press(KivoViewKey::up);
    case VK_DOWN:
        return press(KivoViewKey::down);
    case VK_HOME:
        return press(KivoViewKey::home);
    default:
        return false;
    }
}

bool PlotControl::PressCharacter(WPARAM character) {
    constexpr WPARAM controlC = 3;
    switch (character) {
    case '+':
        return m_view.PressKey(KivoViewKey::plus);
    case '-':
        return m_view.PressKey(KivoViewKey::minus);
    case '0':
        return m_view.PressKey(KivoViewKey::normal);
    case '1':
        return m_view.PressKey(KivoViewKey::xy);
    case '2':
        return m_view.PressKey(KivoViewKey::yz);
    case '3':
        return m_view.PressKey(KivoViewKey::xz);
    case controlC:
        Copy();
        return true;
    default:
        return false;
    }
}

bool PlotControl::Pinch(LPARAM gesture) {
    GESTUREINFO info = {};
    info.cbSize = sizeof(info);
    const HGESTUREINFO handle = reinterpret_cast<HGESTUREINFO>(gesture);
    if (!GetGestureInfo(handle, &info) || info.dwID != GID_ZOOM) return false;
    const auto distance = static_cast<double>(info.ullArguments);
    POINT place = {info.ptsLocation.x, info.ptsLocation.y};
    ScreenToClient(m_window, &place);
    if ((info.dwFlags & GF_BEGIN) == 0 && m_pinch > 0.0) m_view.Pinch(distance / m_pinch, place);
    m_pinch = distance;
    CloseGestureInfoHandle(handle);
    return true;
}

bool PlotControl::OpenMenu(LPARAM place) {
    if (HasStyle(KPS_NOMENU)) return false;
    POINT screen = PlaceOf(place);
    if (place == -1) { // by the keyboard
        const RECT client = ClientOf(m_window);
        screen = {client.right / 2, client.bottom / 2};
        ClientToScreen(m_window, &screen);
    }
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, copyItem, L"&Copy picture\tCtrl+C");
    AppendMenuW(menu, MF_STRING, saveItem, L"&Save picture...");
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, startViewItem, L"Start &view\tHome");
    const int chosen =
        static_cast<int>(TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, static_cast<int>(screen.x),
                                        static_cast<int>(screen.y), 0, m_window, nullptr));
    DestroyMenu(menu);
    if (chosen == copyItem) Copy();
    if (chosen == saveItem) AskForFile();
    if (chosen == startViewItem) m_view.PressKey(KivoViewKey::home);
    return true;
}

// ---- Notifications

void PlotControl::Notify(UINT code) {
    NMHDR header = {m_window, static_cast<UINT_PTR>(GetDlgCtrlID(m_window)), code};
    SendMessageW(GetParent(m_window), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void PlotControl::NotifyTraced(const float* point) {
    SKivoTraced traced = {
        {m_window, static_cast<UINT_PTR>(GetDlgCtrlID(m_window)), KPN_TRACED}, point != nullptr, {}};
    if (point) std::copy(point, point + 3, traced.point);
    SendMessageW(GetParent(m_window), WM_NOTIFY, traced.header.idFrom, reinterpret_cast<LPARAM>(&traced));
}

} // namespace KivoDrawingTools
