// wxKivoPlot: a control of wxWidgets that shows a surface z = f(x, y) in three dimensions.
//
// A drag with the left or the right button turns the plot, with the middle one, or with Shift, it shifts it,
// with Ctrl it zooms, as wheel and pinch do. The arrow keys turn, plus and minus zoom, Home resets the view,
// 0 to 3 choose the plot. A click with the right button is a wxEVT_CONTEXT_MENU, which opens a menu unless
// the host handles it.
#pragma once

#include "KivoFunctionPlotter.h"

#include <wx/bitmap.h>
#include <wx/control.h>
#include <wx/event.h>

#include <functional>
#include <memory>

#if defined(KIVO_STATIC)
#define KIVO_WX_API
#elif defined(_WIN32) && defined(KIVO_BUILDING_WX)
#define KIVO_WX_API __declspec(dllexport)
#elif defined(_WIN32)
#define KIVO_WX_API __declspec(dllimport)
#else
#define KIVO_WX_API __attribute__((visibility("default")))
#endif

/// What a plot tells. Events are queued: a handler may do anything, also end the plot.
class KIVO_WX_API wxKivoPlotEvent : public wxCommandEvent {
public:
    /// @param type  one of the four below
    explicit wxKivoPlotEvent(wxEventType type = wxEVT_NULL, int id = 0) : wxCommandEvent(type, id) {}
    wxEvent* Clone() const override { return new wxKivoPlotEvent(*this); }

    float x = 0.0f; ///< of the traced point, in data coordinates; 0 in other events
    float y = 0.0f; ///< as x
    float z = 0.0f; ///< as x
};

/// The point of the surface under the pointer, while the plotter traces.
KIVO_WX_API extern const wxEventTypeTag<wxKivoPlotEvent> wxEVT_KIVO_TRACED;
/// There is none any more.
KIVO_WX_API extern const wxEventTypeTag<wxKivoPlotEvent> wxEVT_KIVO_TRACE_LOST;
/// The hand has turned, shifted or zoomed the plot, or switched to another one.
KIVO_WX_API extern const wxEventTypeTag<wxKivoPlotEvent> wxEVT_KIVO_VIEW_CHANGED;
/// Nothing can be drawn any more; GetFailure() has the words.
KIVO_WX_API extern const wxEventTypeTag<wxKivoPlotEvent> wxEVT_KIVO_FAILED;

using wxKivoPlotEventFunction = void (wxEvtHandler::*)(wxKivoPlotEvent&);

// For event tables.
#define wxKivoPlotEventHandler(function) wxEVENT_HANDLER_CAST(wxKivoPlotEventFunction, function)
#define EVT_KIVO_TRACED(id, function)                                                                        \
    wx__DECLARE_EVT1(wxEVT_KIVO_TRACED, id, wxKivoPlotEventHandler(function))
#define EVT_KIVO_TRACE_LOST(id, function)                                                                    \
    wx__DECLARE_EVT1(wxEVT_KIVO_TRACE_LOST, id, wxKivoPlotEventHandler(function))
#define EVT_KIVO_VIEW_CHANGED(id, function)                                                                  \
    wx__DECLARE_EVT1(wxEVT_KIVO_VIEW_CHANGED, id, wxKivoPlotEventHandler(function))
#define EVT_KIVO_FAILED(id, function)                                                                        \
    wx__DECLARE_EVT1(wxEVT_KIVO_FAILED, id, wxKivoPlotEventHandler(function))

/// A plot. All members may be called from the constructor on, before Create(), too.
class KIVO_WX_API wxKivoPlot : public wxControl {
public:
    /// To be followed by Create().
    wxKivoPlot();
    /// The same with a plotter of a derived class, not bound to a window.
    /// @param plotter  null: as above
    /// @param layOut   as in SKivoPlotViewEvents of KivoPlotView.h; empty: the control lays the plot out
    explicit wxKivoPlot(std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter> plotter,
                        std::function<void(int width, int height)> layOut = {});
    /// As every control's. An empty plot, which is black on its own light ground.
    explicit wxKivoPlot(wxWindow* parent, wxWindowID id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                        const wxSize& size = wxDefaultSize, long style = wxBORDER_NONE,
                        const wxString& name = "kivoplot");
    ~wxKivoPlot() override;

    /// @return whether the window was made
    bool Create(wxWindow* parent, wxWindowID id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                const wxSize& size = wxDefaultSize, long style = wxBORDER_NONE,
                const wxString& name = "kivoplot");

    /// The plotter, for everything that is shown; RefreshPlot() shows it. CKivoPlotView::Plotter of
    /// KivoPlotView.h says what of it is the control's.
    KivoDrawingTools::CKivoFunctionPlotter& GetPlotter();
    /// Shows what has been set of the plotter. Its title is what readers of the screen say, as far as
    /// wxWidgets lets them: with GTK 3.
    void RefreshPlot();

    /// Shows a grid of points, which are copied.
    /// @param points  x, y, z of the first row's points from one column to the next, then of the second row
    /// @return whether they are shown: not null, counts of 0, counts beyond 32 bits, or without memory
    bool SetGrid(const float* points, unsigned int columns, unsigned int rows);
    /// The same for heights at evenly spaced places.
    /// @param heights  z, row by row
    /// @param xMin  of the first column
    /// @param xMax  of the last column
    /// @param yMin  of the first row
    /// @param yMax  of the last row
    /// @return as above; not places that are not finite, either
    bool SetHeights(const float* heights, unsigned int columns, unsigned int rows, double xMin, double xMax,
                    double yMin, double yMax);

    /// @param factor  by how many pixels each of a plot at rest is averaged along both sides, 1 to 4; 2 at
    ///                first @return whether it is one of these
    bool SetSmoothing(int factor);
    /// Whether a large surface shows fewer points while it is moved; at first it does.
    void ReduceWhileMoving(bool reduce);
    /// Whether drags and arrow keys keep Z upright; at first they do not.
    void KeepUpright(bool upright);
    /// Whether ink and ground are the system's colours for text and windows; at first they are not.
    void FollowSystemColours(bool follow);
    /// Whether a wxEVT_CONTEXT_MENU that the host leaves opens a menu; at first it does.
    void EnableMenu(bool enable);

    /// @return the plot at rest in pixels of the device; not IsOk() where nothing can be drawn
    wxBitmap GetPicture();
    /// Puts the picture on the clipboard. @return whether it is there
    bool CopyPicture();
    /// @param path  of a PNG file @return whether it was written
    bool SavePicture(const wxString& path);
    /// @return why nothing is drawn, in one sentence, which the control shows, too; empty where it is
    wxString GetFailure() const;

    bool AcceptsFocus() const override { return true; }

protected:
    wxSize DoGetBestClientSize() const override;

private:
    std::unique_ptr<class PlotPanel> m_panel;
};
