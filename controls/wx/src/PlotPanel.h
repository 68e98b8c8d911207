// What a wxKivoPlot is made of: the view, and the events of the window that shows it.
#pragma once

#include "Guarded.h"
#include "KivoPlotView.h"
#include "wxKivoPlot.h"

#include <wx/timer.h>

#include <functional>
#include <memory>

class PlotPanel {
public:
    PlotPanel(wxKivoPlot& window, std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter> plotter,
              std::function<void(int width, int height)> layOut);
    PlotPanel(const PlotPanel&) = delete;
    PlotPanel& operator=(const PlotPanel&) = delete;

    KivoDrawingTools::CKivoPlotView& View() { return m_view; }
    const KivoDrawingTools::CKivoPlotView& View() const { return m_view; }
    /// The window is there.
    void Connect();
    /// What the plot is called, where that is new.
    void TellReaders();
    /// A complete frame.
    wxImage Picture();
    void FollowSystemColours(bool follow);

    bool hasMenu = true;

private:
    KivoDrawingTools::SKivoPlotViewEvents ViewEvents(std::function<void(int width, int height)> layOut);
    void Tell(const wxEventTypeTag<wxKivoPlotEvent>& type, const float* point = nullptr);
    KivoDrawingTools::POINT Pixel(const wxPoint& place) const;

    void OnPaint(wxPaintEvent& event);
    void PaintFailure(wxDC& dc) const;
    void OnFocus(wxFocusEvent& event);
    void OnPress(wxMouseEvent& event);
    void OnMove(wxMouseEvent& event);
    void OnRelease(wxMouseEvent& event);
    void OnWheel(wxMouseEvent& event);
    void OnPinch(wxZoomGestureEvent& event);
    void OnCaptureLost(wxMouseCaptureLostEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnColours(wxSysColourChangedEvent& event);
    void TakeColours();
    void Save();

    wxKivoPlot& m_window;
    wxTimer m_wake;
    bool m_isPainting = false;
    bool m_followsColours = false;
    bool m_showsFocus = false;
    double m_pinched = 1.0;
    wxString m_name;                        // as readers know it
    KivoDrawingTools::CKivoPlotView m_view; // last: it tells when it is made
};
