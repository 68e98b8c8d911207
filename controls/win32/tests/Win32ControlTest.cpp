// The plot as a Windows control, in windows and dialogs of the system.
#include "KivoPicture.h"
#include "KivoPlotControl.h"
#include "KivoStyle.h"
#include "KivoView.h"
#include "KivoWindow.h"
#include "support/Image.h"
#include "support/TestHostContext.h"
#include "support/TestSurfaces.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 320, height = 240;

// A parent that writes down what its control says.
class Parent {
public:
    Parent() {
        WNDCLASSA description = {};
        description.lpfnWndProc = Procedure;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "KivoTestParent";
        RegisterClassA(&description);
        EXPECT_EQ(RegisterKivoPlotClass(GetModuleHandleA(nullptr)), 0);
        m_window = CreateWindowA("KivoTestParent", "", WS_OVERLAPPEDWINDOW, 10, 10, 500, 400, nullptr,
                                 nullptr, GetModuleHandleA(nullptr), nullptr);
        SetWindowLongPtrA(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ShowWindow(m_window, SW_SHOWNOACTIVATE);
    }
    ~Parent() { DestroyWindow(m_window); }
    Parent(const Parent&) = delete;
    Parent& operator=(const Parent&) = delete;

    HWND Window() const { return m_window; }
    std::vector<UINT> codes;
    bool isTraced = false;
    bool destroysControls = false;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* const self = reinterpret_cast<Parent*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (!self || message != WM_NOTIFY) return DefWindowProcA(window, message, wParam, lParam);
        const auto* const header = reinterpret_cast<const NMHDR*>(lParam);
        self->codes.push_back(header->code);
        if (header->code == KPN_TRACED)
            self->isTraced = reinterpret_cast<const SKivoTraced*>(lParam)->isTraced != FALSE;
        if (self->destroysControls) DestroyWindow(header->hwndFrom);
        return 0;
    }

    HWND m_window;
};

HWND MakeControl(HWND parent, DWORD style) {
    return CreateWindowA(kivoPlotClassName, "", WS_CHILD | WS_VISIBLE | style, 0, 0, width, height, parent,
                         reinterpret_cast<HMENU>(INT_PTR{7}), GetModuleHandleA(nullptr), nullptr);
}

CKivoFunctionPlotter& PlotterOf(HWND control) {
    return *reinterpret_cast<CKivoFunctionPlotter*>(SendMessageA(control, KPM_GETPLOTTER, 0, 0));
}

void ShowHill(HWND control) {
    const TestSurface hill = HillSurface(31, 27);
    const SKivoGrid grid = {hill.points.data(), 31, 27};
    EXPECT_EQ(SendMessageA(control, KPM_SETGRID, 0, reinterpret_cast<LPARAM>(&grid)), 0);
}

// Handles what waits. How often the control was painted.
int Pump(HWND control) {
    int paints = 0;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        paints += message.message == WM_PAINT && message.hwnd == control ? 1 : 0;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return paints;
}

// What a drawing of the control's has put into a bitmap.
template <typename Draw>
Image Drawn(Draw draw) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    draw(dc);
    GdiFlush();
    Image image(width, height);
    const auto* const bgra = static_cast<const unsigned char*>(bits);
    for (int i = 0; i < width * height; ++i) {
        const unsigned char rgba[] = {bgra[4 * i + 2], bgra[4 * i + 1], bgra[4 * i], 255};
        std::copy(rgba, rgba + 4, image.rgba.begin() + std::ptrdiff_t{4} * i);
    }
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return image;
}

Image Printed(HWND control) {
    return Drawn(
        [&](HDC dc) { SendMessageA(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT); });
}

Image OnScreen(HWND control) {
    return Drawn([&](HDC dc) {
        const HDC own = GetDC(control);
        BitBlt(dc, 0, 0, width, height, own, 0, 0, SRCCOPY);
        ReleaseDC(control, own);
    });
}

double DensityOf(HWND control) {
    return static_cast<double>(GetStyle(PlotterOf(control)).pixelScale);
}

Image Bare(double density) {
    const HWND window = CreateOffscreenWindow(width, height);
    Image image;
    {
        CKivoFunctionPlotter plotter;
        EXPECT_EQ(plotter.OnCreate(window, width, height, true), 0);
        SKivoStyle style;
        style.pixelScale = static_cast<float>(density);
        EXPECT_EQ(SetStyle(plotter, style), 0);
        const TestSurface hill = HillSurface(31, 27);
        plotter.SetData(hill.NewArray(), 31, 27, 1, 31, 3);
        SKivoPictureOptions options;
        options.smoothing = 2;
        EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0);
        plotter.OnDestroy();
    }
    ReleaseWindow(window);
    return image;
}

void Send(HWND control, UINT message, WPARAM flags, int x, int y) {
    SendMessageA(control, message, flags, MAKELPARAM(x, y));
}

void Drag(HWND control, int right) {
    Send(control, WM_LBUTTONDOWN, MK_LBUTTON, 150, 120);
    Send(control, WM_MOUSEMOVE, MK_LBUTTON, 150 + right, 120);
    Send(control, WM_LBUTTONUP, 0, 150 + right, 120);
}

class Win32Control : public testing::TestWithParam<DWORD> {
protected:
    Win32Control() { ShowHill(control); }

    Parent parent;
    const HWND control = MakeControl(parent.Window(), GetParam());
    CKivoFunctionPlotter& plotter = PlotterOf(control);
};

} // namespace

TEST_P(Win32Control, ShowsWhatABarePlotterDraws) {
    Pump(control);
    const Image bare = Bare(DensityOf(control));
    EXPECT_TRUE(ImagesAgree(Printed(control), bare, 0, 0.0, "win32-printed"));
    if (GetParam() != KPS_IMAGE) return; // of OpenGL's windows not every system tells the pixels
    EXPECT_TRUE(ImagesAgree(OnScreen(control), bare, 0, 0.0, "win32-shown"));
}

TEST_P(Win32Control, PaintsOnceForAnyNumberOfMoves) {
    Pump(control);
    const SKivoView before = GetView(plotter);
    parent.codes.clear();
    Send(control, WM_LBUTTONDOWN, MK_LBUTTON, 150, 120);
    for (int i = 1; i <= 1000; ++i)
        Send(control, WM_MOUSEMOVE, MK_LBUTTON, 150 + i % 40, 120);
    EXPECT_EQ(Pump(control), 1);
    Send(control, WM_LBUTTONUP, 0, 160, 120);
    EXPECT_LE(Pump(control), 1) << "at once, or where frames are slow after a rest";
    EXPECT_NE(GetView(plotter).rotation[0], before.rotation[0]);
    ASSERT_FALSE(parent.codes.empty());
    EXPECT_EQ(parent.codes.front(), KPN_VIEWCHANGED);
}

TEST_P(Win32Control, KeepsViewAndDataOverParentsAndHiding) {
    Drag(control, 40);
    const SKivoView before = GetView(plotter);
    Pump(control);
    const Image shown = Printed(control);
    Parent other;
    SetParent(control, other.Window());
    Pump(control);
    ShowWindow(control, SW_HIDE);
    Pump(control);
    ShowWindow(control, SW_SHOW);
    SetWindowPos(control, nullptr, 0, 0, 0, 0, SWP_NOZORDER);
    Pump(control);
    SetWindowPos(control, nullptr, 0, 0, width, height, SWP_NOZORDER);
    Pump(control);
    EXPECT_NEAR(GetView(plotter).rotation[0], before.rotation[0], 1e-9);
    EXPECT_TRUE(ImagesAgree(Printed(control), shown, 0, 0.0, "win32-kept"));
}

TEST_P(Win32Control, UnderstandsWheelKeysAndCharacters) {
    SendMessageA(control, WM_MOUSEWHEEL, MAKEWPARAM(0, 240), 0);
    EXPECT_NEAR(GetView(plotter).zoom, 1.04 * 1.04, 1e-4);
    SendMessageA(control, WM_KEYDOWN, VK_HOME, 0);
    EXPECT_NEAR(GetView(plotter).zoom, 1.0, 1e-6);
    SendMessageA(control, WM_CHAR, '+', 0);
    EXPECT_NEAR(GetView(plotter).zoom, 1.1, 1e-4);
    double azimuth = 0.0, elevation = 0.0, turned = 0.0;
    GetViewAngles(plotter, azimuth, elevation);
    SendMessageA(control, WM_KEYDOWN, VK_RIGHT, 0);
    GetViewAngles(plotter, turned, elevation);
    EXPECT_NEAR(turned, azimuth - 5.0, 1e-4);
    SendMessageA(control, WM_CHAR, '2', 0);
    EXPECT_EQ(plotter.GetCurrentPlotType(), 2);
    EXPECT_TRUE((SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS) != 0);
}

TEST_P(Win32Control, TellsWhatIsTraced) {
    plotter.Trace(true);
    Pump(control);
    Send(control, WM_MOUSEMOVE, 0, 190, 120);
    Pump(control);
    EXPECT_TRUE(parent.isTraced);
    Send(control, WM_MOUSEMOVE, 0, 1, 1);
    Pump(control);
    EXPECT_FALSE(parent.isTraced);
}

TEST_P(Win32Control, CopiesAndSavesItsPicture) {
    ASSERT_TRUE(SendMessageA(control, WM_COPY, 0, 0));
    ASSERT_TRUE(OpenClipboard(parent.Window()));
    const HANDLE dib = GetClipboardData(CF_DIB);
    ASSERT_NE(dib, nullptr);
    const auto* const header = static_cast<const BITMAPINFOHEADER*>(GlobalLock(dib));
    EXPECT_EQ(header->biWidth, width);
    EXPECT_EQ(header->biHeight, height);
    // The lower left pixel comes first, and has the ground's colour.
    const auto* const first = reinterpret_cast<const unsigned char*>(header + 1);
    EXPECT_EQ(first[0], 233);
    EXPECT_EQ(first[2], 255);
    GlobalUnlock(dib);
    CloseClipboard();

    wchar_t folder[MAX_PATH] = {}, name[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"kpl", 0, name);
    EXPECT_EQ(SendMessageW(control, KPM_SAVEPICTURE, 0, reinterpret_cast<LPARAM>(name)), 0);
    std::FILE* const file = _wfopen(name, L"rb");
    ASSERT_NE(file, nullptr);
    unsigned char start[24] = {};
    EXPECT_EQ(std::fread(start, 1, sizeof(start), file), sizeof(start));
    std::fclose(file);
    DeleteFileW(name);
    EXPECT_EQ(std::memcmp(start, "\x89PNG\r\n\x1a\n", 8), 0);
    EXPECT_EQ(start[18] * 256 + start[19], width);
    EXPECT_EQ(start[22] * 256 + start[23], height);
    EXPECT_EQ(SendMessageW(control, KPM_SAVEPICTURE, 0, reinterpret_cast<LPARAM>(L"Q:\\no\\such\\place.png")),
              -1);
    EXPECT_EQ(SendMessageW(control, KPM_SAVEPICTURE, 0, 0), -3);
}

TEST_P(Win32Control, RefusesWhatItCannotTake) {
    EXPECT_EQ(SendMessageA(control, KPM_SETGRID, 0, 0), -3);
    const float points[3] = {};
    const SKivoGrid empty = {points, 0, 1}, nothing = {nullptr, 2, 2};
    EXPECT_EQ(SendMessageA(control, KPM_SETGRID, 0, reinterpret_cast<LPARAM>(&empty)), -3);
    EXPECT_EQ(SendMessageA(control, KPM_SETGRID, 0, reinterpret_cast<LPARAM>(&nothing)), -3);
    char words[200] = "before";
    EXPECT_EQ(SendMessageA(control, KPM_GETFAILURE, sizeof(words), reinterpret_cast<LPARAM>(words)), 0);
    EXPECT_STREQ(words, "");
    EXPECT_EQ(SendMessageA(control, KPM_GETFAILURE, 0, 0), 0);
}

TEST_P(Win32Control, MayBeDestroyedByItsParentInANotification) {
    Pump(control);
    parent.destroysControls = true;
    Send(control, WM_LBUTTONDOWN, MK_LBUTTON, 150, 120);
    Send(control, WM_MOUSEMOVE, MK_LBUTTON, 170, 120);
    EXPECT_FALSE(IsWindow(control));
}

TEST_P(Win32Control, ItsNotificationsWhileItPaintsMayDestroyIt) {
    plotter.Trace(true);
    Pump(control);
    parent.destroysControls = true;
    Send(control, WM_MOUSEMOVE, 0, 190, 120);
    Pump(control);
    EXPECT_FALSE(IsWindow(control));
}

TEST_P(Win32Control, FollowsTheSystemsColorsOnDemand) {
    EXPECT_EQ(GetStyle(plotter).inkColor, 0UL);
    const HWND second = MakeControl(parent.Window(), GetParam() | KPS_SYSTEMCOLORS);
    ShowHill(second);
    EXPECT_EQ(GetStyle(PlotterOf(second)).inkColor, GetSysColor(COLOR_WINDOWTEXT));
    const Image printed = Printed(second);
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    EXPECT_TRUE(printed.IsNear(1, 1, {GetRValue(ground), GetGValue(ground), GetBValue(ground)}));
    SetWindowLongPtrA(second, GWL_STYLE, WS_CHILD | WS_VISIBLE | static_cast<LONG_PTR>(GetParam()));
    EXPECT_EQ(Printed(second).rgba, Printed(control).rgba) << "its own again";
    DestroyWindow(second);
}

TEST_P(Win32Control, KeepsAHostsContextCurrent) {
    KivoTest::TestHostContext host;
    ASSERT_TRUE(host.MakeCurrent());
    Drag(control, 20);
    Pump(control);
    SendMessageA(control, WM_COPY, 0, 0);
    EXPECT_TRUE(host.IsCurrent() || GetParam() != KPS_IMAGE)
        << "in windows on the screen it is the host's to keep";
}

INSTANTIATE_TEST_SUITE_P(Styles, Win32Control, testing::Values(DWORD{0}, KPS_IMAGE),
                         [](const auto& tested) { return tested.param == KPS_IMAGE ? "Image" : "Direct"; });

TEST(Win32ControlClass, IsRegisteredTwiceWithoutHarm) {
    EXPECT_EQ(RegisterKivoPlotClass(GetModuleHandleA(nullptr)), 0);
    EXPECT_EQ(RegisterKivoPlotClass(GetModuleHandleA(nullptr)), 0);
}

// A dialog's resource, as a compiler of resources would make it, with the class as its only control.
TEST(Win32ControlClass, StandsInDialogResources) {
    ASSERT_EQ(RegisterKivoPlotClass(GetModuleHandleA(nullptr)), 0);
    std::vector<WORD> words(64);
    auto* const dialog = reinterpret_cast<DLGTEMPLATE*>(words.data());
    dialog->style = WS_POPUP | WS_CAPTION;
    dialog->cdit = 1;
    dialog->cx = 200;
    dialog->cy = 150;
    std::size_t end = sizeof(DLGTEMPLATE) / sizeof(WORD) + 3; // no menu, class or title
    end += end % 2;                                           // items stand at multiples of four bytes
    DLGITEMTEMPLATE item = {};
    item.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | KPS_IMAGE;
    item.cx = 180;
    item.cy = 130;
    item.id = 42;
    std::memcpy(words.data() + end, &item, sizeof(item));
    end += sizeof(item) / sizeof(WORD);
    for (const char* letter = kivoPlotClassName; *letter; ++letter)
        words[end++] = static_cast<WORD>(*letter);
    const HWND window = CreateDialogIndirectParamA(
        GetModuleHandleA(nullptr), dialog, nullptr,
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    ASSERT_NE(window, nullptr);
    const HWND control = GetDlgItem(window, 42);
    ASSERT_NE(control, nullptr);
    ShowHill(control);
    EXPECT_EQ(PlotterOf(control).GetCurrentPlotType(), 0);
    char name[40] = {};
    GetWindowTextA(control, name, sizeof(name));
    EXPECT_STREQ(name, "Surface plot");
    DestroyWindow(window);
}

TEST(Win32ControlClass, AHundredLeaveNothing) {
    Parent parent;
    const auto makeSome = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const HWND control = MakeControl(parent.Window(), i % 2 == 0 ? 0 : KPS_IMAGE);
            ShowHill(control);
            Pump(control);
            DestroyWindow(control);
        }
    };
    makeSome(10);
    DWORD before = 0, after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &before);
    const DWORD objects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    makeSome(100);
    GetProcessHandleCount(GetCurrentProcess(), &after);
    EXPECT_LE(after, before + 10);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), objects + 10);
}
