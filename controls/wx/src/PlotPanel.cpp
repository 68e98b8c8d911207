#include "PlotPanel.h"

#include "KivoHost.h"
#include "KivoView.h"
#include "PlotAccessibility.h"

#include <wx/dcbuffer.h>
#include <wx/filedlg.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/tokenzr.h>
#include <wx/utils.h>

#include <algorithm>
#include <optional>
#include <utility>

using namespace KivoDrawingTools;

namespace {

unsigned int FlagsOf(const wxKeyboardState& keys) {
    return KeyState(false, false, false, keys.ShiftDown(), keys.ControlDown());
}

std::optional<KivoMouseButton> ButtonOf(const wxMouseEvent& event) {
    switch (event.GetButton()) {
    case wxMOUSE_BTN_LEFT:
        return KivoMouseButton::left;
    case wxMOUSE_BTN_MIDDLE:
        return KivoMouseButton::middle;
    case wxMOUSE_BTN_RIGHT:
        return KivoMouseButton::right;
    default:
        return std::nullopt;
    }
}

std::optional<KivoViewKey> ViewKeyOf(int key) {
    constexpr std::pair<int, KivoViewKey> keys[] = {
        {WXK_LEFT, KivoViewKey::left},
        {WXK_NUMPAD_LEFT, KivoViewKey::left},
        {WXK_RIGHT, KivoViewKey::right},
        {WXK_NUMPAD_RIGHT, KivoViewKey::right},
        {WXK_UP, KivoViewKey::up},
        {WXK_NUMPAD_UP, KivoViewKey::up},
        {WXK_DOWN, KivoViewKey::down},
        {WXK_NUMPAD_DOWN, KivoViewKey::down},
        {'+', KivoViewKey::plus},
        {WXK_NUMPAD_ADD, KivoViewKey::plus},
        {'=', KivoViewKey::plus},
        {'-', KivoViewKey::minus},
        {WXK_NUMPAD_SUBTRACT, KivoViewKey::minus},
        {WXK_HOME, KivoViewKey::home},
        {WXK_NUMPAD_HOME, KivoViewKey::home},
        {'0', KivoViewKey::normal},
        {WXK_NUMPAD0, KivoViewKey::normal},
        {'1', KivoViewKey::xy},
        {WXK_NUMPAD1, KivoViewKey::xy},
        {'2', KivoViewKey::yz},
        {WXK_NUMPAD2, KivoViewKey::yz},
        {'3', KivoViewKey::xz},
        {WXK_NUMPAD3, KivoViewKey::xz},
    };
    for (const auto& [number, meant] : keys)
        if (number == key) return meant;
    return std::nullopt;
}

wxImage ImageOf(const SKivoPlotImage& shown) {
    if (!shown.pixels) return {};
    wxImage image(shown.width, shown.height, false);
    unsigned char* rgb = image.GetData();
    for (int y = 0; y < shown.height; ++y) {
        const unsigned char* bgr = shown.pixels + static_cast<std::size_t>(y) * shown.rowBytes;
        for (int x = 0; x < shown.width; ++x, bgr += 4, rgb += 3) {
            rgb[0] = bgr[2];
            rgb[1] = bgr[1];
            rgb[2] = bgr[0];
        }
    }
    return image;
}

unsigned long ColorRef(const wxColour& color) {
    return static_cast<unsigned long>(color.Red()) | static_cast<unsigned long>(color.Green()) << 8 |
           static_cast<unsigned long>(color.Blue()) << 16;
}

} // namespace

PlotPanel::PlotPanel(wxKivoPlot& window, std::unique_ptr<CKivoFunctionPlotter> plotter,
                     std::function<void(int width, int height)> layOut)
    : m_window(window), m_view(ViewEvents(std::move(layOut)), std::move(plotter)) {
    m_wake.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Guarded([this] { m_view.Wake(); }); });
}

void PlotPanel::Connect() {
    m_window.SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_window.EnableTouchEvents(wxTOUCH_ZOOM_GESTURE);
    m_window.Bind(wxEVT_PAINT, &PlotPanel::OnPaint, this);
    m_window.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        m_window.Refresh();
        event.Skip();
    });
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_MIDDLE_DOWN, wxEVT_MIDDLE_DCLICK,
                             wxEVT_RIGHT_DOWN, wxEVT_RIGHT_DCLICK})
        m_window.Bind(type, &PlotPanel::OnPress, this);
    for (const auto& type : {wxEVT_LEFT_UP, wxEVT_MIDDLE_UP, wxEVT_RIGHT_UP})
        m_window.Bind(type, &PlotPanel::OnRelease, this);
    m_window.Bind(wxEVT_MOTION, &PlotPanel::OnMove, this);
    m_window.Bind(wxEVT_MOUSEWHEEL, &PlotPanel::OnWheel, this);
    m_window.Bind(wxEVT_GESTURE_ZOOM, &PlotPanel::OnPinch, this);
    m_window.Bind(wxEVT_MOUSE_CAPTURE_LOST, &PlotPanel::OnCaptureLost, this);
    m_window.Bind(wxEVT_CHAR, &PlotPanel::OnKey, this);
    m_window.Bind(wxEVT_CONTEXT_MENU, &PlotPanel::OnContextMenu, this);
    m_window.Bind(wxEVT_SYS_COLOUR_CHANGED, &PlotPanel::OnColours, this);
    m_window.Bind(wxEVT_SET_FOCUS, &PlotPanel::OnFocus, this);
    m_window.Bind(wxEVT_KILL_FOCUS, &PlotPanel::OnFocus, this);
    TellReaders();
}

void PlotPanel::TellReaders() {
    const char* const title = m_view.Plotter().GetPlotTitle();
    const wxString name = *title ? wxString::FromUTF8(title) : wxString("Plot");
    if (!m_window.GetHandle() || name == m_name) return;
    m_name = name;
    NameForReaders(m_window, name);
}

// ---- What the view asks for

SKivoPlotViewEvents PlotPanel::ViewEvents(std::function<void(int width, int height)> layOut) {
    SKivoPlotViewEvents events;
    events.layOut = std::move(layOut);
    events.redraw = [this] {
        if (!m_isPainting && m_window.GetHandle()) m_window.Refresh();
    };
    events.wake = [this](int milliseconds) {
        if (milliseconds < 0)
            m_wake.Stop();
        else
            m_wake.StartOnce(std::max(milliseconds, 1));
    };
    events.traced = [this](const float* point) {
        Tell(point ? wxEVT_KIVO_TRACED : wxEVT_KIVO_TRACE_LOST, point);
    };
    events.viewChanged = [this] { Tell(wxEVT_KIVO_VIEW_CHANGED); };
    events.failed = [this] { Tell(wxEVT_KIVO_FAILED); };
    return events;
}

// Later: a host may do anything when it is told, even end the plot.
void PlotPanel::Tell(const wxEventTypeTag<wxKivoPlotEvent>& type, const float* point) {
    auto* const event = new wxKivoPlotEvent(type, m_window.GetId());
    event->SetEventObject(&m_window);
    if (point) {
        event->x = point[0];
        event->y = point[1];
        event->z = point[2];
    }
    wxQueueEvent(&m_window, event);
}

// ---- Drawing

POINT PlotPanel::Pixel(const wxPoint& place) const {
    return ToPixels(place.x, place.y, m_window.GetContentScaleFactor());
}

void PlotPanel::OnPaint(wxPaintEvent&) {
    wxPaintDC dc(&m_window);
    const double scale = m_window.GetContentScaleFactor();
    const POINT size = Pixel({m_window.GetClientSize().x, m_window.GetClientSize().y});
    wxImage image;
    m_isPainting = true;
    Guarded([&] {
        m_view.SetSize(size.x, size.y, std::clamp(scale, 0.1, 8.0));
        image = ImageOf(m_view.Draw());
    });
    m_isPainting = false;
    if (image.IsOk())
        dc.DrawBitmap(wxBitmap(image, wxBITMAP_SCREEN_DEPTH, scale), 0, 0);
    else
        PaintFailure(dc);
    if (!m_window.HasFocus() || !m_showsFocus) return;
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)));
    dc.DrawRectangle(m_window.GetClientRect());
}

void PlotPanel::PaintFailure(wxDC& dc) const {
    constexpr int margin = 12;
    dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)));
    dc.Clear();
    dc.SetFont(m_window.GetFont());
    dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    wxString lines, line;
    for (const wxString& word : wxStringTokenize(wxString::FromUTF8(m_view.Failure().c_str()), " ")) {
        const wxString longer = line.empty() ? word : line + " " + word;
        const bool fits = dc.GetTextExtent(longer).x <= m_window.GetClientSize().x - 2 * margin;
        if (!fits && !line.empty()) lines += line + "\n";
        line = fits || line.empty() ? longer : word;
    }
    dc.DrawText(lines + line, margin, margin);
}

wxImage PlotPanel::Picture() {
    m_view.Update();
    wxImage image = ImageOf(m_view.Draw());
    if (m_window.GetHandle()) m_window.Refresh();
    return image;
}

// ---- The hand

// Who uses the keys wants to know where they go.
void PlotPanel::OnFocus(wxFocusEvent& event) {
    m_showsFocus = wxGetKeyState(WXK_TAB);
    m_window.Refresh();
    event.Skip();
}

void PlotPanel::OnPress(wxMouseEvent& event) {
    const std::optional<KivoMouseButton> button = ButtonOf(event);
    if (!button) return;
    m_window.SetFocus();
    m_showsFocus = false;
    if (!m_window.HasCapture()) m_window.CaptureMouse();
    Guarded([&] { m_view.Press(*button, FlagsOf(event), Pixel(event.GetPosition())); });
}

void PlotPanel::OnMove(wxMouseEvent& event) {
    Guarded([&] { m_view.Move(FlagsOf(event), Pixel(event.GetPosition())); });
}

// Of moves that wait the toolkit tells one, and not the last: the drag ends where the button went up.
void PlotPanel::OnRelease(wxMouseEvent& event) {
    const std::optional<KivoMouseButton> button = ButtonOf(event);
    if (!button) return;
    const bool isDown = event.LeftIsDown() || event.MiddleIsDown() || event.RightIsDown();
    if (!isDown && m_window.HasCapture()) m_window.ReleaseMouse();
    OnMove(event);
    const bool isClick = Guarded([&] { return m_view.Release(*button); }, false);
    if (!isClick || *button != KivoMouseButton::right) return;
    wxContextMenuEvent menu(wxEVT_CONTEXT_MENU, m_window.GetId(),
                            m_window.ClientToScreen(event.GetPosition()));
    menu.SetEventObject(&m_window);
    m_window.ProcessWindowEvent(menu); // the last: the host may end the plot
}

void PlotPanel::OnWheel(wxMouseEvent& event) {
    if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelDelta() <= 0) return;
    const int turned = ToPixels(event.GetWheelRotation(), 120.0 / event.GetWheelDelta());
    Guarded([&] { m_view.Wheel(turned, Pixel(event.GetPosition())); });
}

void PlotPanel::OnPinch(wxZoomGestureEvent& event) {
    if (event.IsGestureStart()) m_pinched = 1.0;
    const double factor = event.GetZoomFactor() / std::exchange(m_pinched, event.GetZoomFactor());
    Guarded([&] { m_view.Pinch(factor, Pixel(event.GetPosition())); });
}

void PlotPanel::OnCaptureLost(wxMouseCaptureLostEvent&) {
    Guarded([this] { m_view.Cancel(); });
}

void PlotPanel::OnKey(wxKeyEvent& event) {
    if (m_window.HandleAsNavigationKey(event)) return;
    const std::optional<KivoViewKey> meant = ViewKeyOf(event.GetKeyCode());
    const bool isShortcut = event.ControlDown() || event.AltDown();
    const bool isDone =
        meant && !isShortcut && Guarded([&] { return m_view.PressKey(*meant, FlagsOf(event)); }, false);
    if (!isDone) event.Skip();
}

// ---- Menu

void PlotPanel::OnContextMenu(wxContextMenuEvent& event) {
    if (!hasMenu) {
        event.Skip();
        return;
    }
    wxMenu menu;
    menu.Append(wxID_COPY, "&Copy Picture");
    menu.Append(wxID_SAVE, "&Save Picture...");
    menu.Append(wxID_RESET, "&Reset View");
    const int chosen = m_window.GetPopupMenuSelectionFromUser(menu);
    if (chosen == wxID_COPY) m_window.CopyPicture();
    if (chosen == wxID_SAVE) Save();
    if (chosen == wxID_RESET && ResetView(m_view.Plotter()) == 0) m_window.RefreshPlot();
}

void PlotPanel::Save() {
    wxFileDialog dialog(&m_window, "Save picture", "", "plot.png", "PNG (*.png)|*.png",
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() == wxID_OK && !m_window.SavePicture(dialog.GetPath()))
        wxMessageBox("The picture could not be written to " + dialog.GetPath(), "Save picture",
                     wxOK | wxICON_ERROR, &m_window);
}

// ---- Colours

void PlotPanel::FollowSystemColours(bool follow) {
    if (std::exchange(m_followsColours, follow) == follow) return;
    if (follow)
        TakeColours();
    else
        m_view.SetColors({}, {});
}

void PlotPanel::TakeColours() {
    m_view.SetColors(ColorRef(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT)),
                     ColorRef(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)));
}

void PlotPanel::OnColours(wxSysColourChangedEvent& event) {
    if (m_followsColours) Guarded([this] { TakeColours(); });
    event.Skip();
}
