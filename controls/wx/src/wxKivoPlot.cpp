#include "wxKivoPlot.h"

#include "PlotPanel.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/image.h>
#include <wx/log.h>

#include <utility>

wxDEFINE_EVENT(wxEVT_KIVO_TRACED, wxKivoPlotEvent);
wxDEFINE_EVENT(wxEVT_KIVO_TRACE_LOST, wxKivoPlotEvent);
wxDEFINE_EVENT(wxEVT_KIVO_VIEW_CHANGED, wxKivoPlotEvent);
wxDEFINE_EVENT(wxEVT_KIVO_FAILED, wxKivoPlotEvent);

wxKivoPlot::wxKivoPlot() : wxKivoPlot(std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter>()) {}

wxKivoPlot::wxKivoPlot(std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter> plotter,
                       std::function<void(int width, int height)> layOut)
    : m_panel(std::make_unique<PlotPanel>(*this, std::move(plotter), std::move(layOut))) {}

wxKivoPlot::wxKivoPlot(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size, long style,
                       const wxString& name)
    : wxKivoPlot() {
    Create(parent, id, pos, size, style, name);
}

wxKivoPlot::~wxKivoPlot() {
    if (HasCapture()) ReleaseMouse();
    SetEvtHandlerEnabled(false); // what the window hears while it goes must not reach the panel
}

bool wxKivoPlot::Create(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size, long style,
                        const wxString& name) {
    const long all = style | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE; // arrows are the plot's
    if (!wxControl::Create(parent, id, pos, size, all, wxDefaultValidator, name)) return false;
    m_panel->Connect();
    SetInitialSize(size);
    return true;
}

KivoDrawingTools::CKivoFunctionPlotter& wxKivoPlot::GetPlotter() {
    return m_panel->View().Plotter();
}

void wxKivoPlot::RefreshPlot() {
    m_panel->View().Update();
    m_panel->TellReaders();
}

bool wxKivoPlot::SetGrid(const float* points, unsigned int columns, unsigned int rows) {
    return Guarded([&] { return m_panel->View().SetGrid(points, columns, rows) == 0; }, false);
}

bool wxKivoPlot::SetHeights(const float* heights, unsigned int columns, unsigned int rows, double xMin,
                            double xMax, double yMin, double yMax) {
    return Guarded(
        [&] { return m_panel->View().SetHeights(heights, columns, rows, xMin, xMax, yMin, yMax) == 0; },
        false);
}

bool wxKivoPlot::SetSmoothing(int factor) {
    return m_panel->View().SetSmoothing(factor) == 0;
}

void wxKivoPlot::ReduceWhileMoving(bool reduce) {
    m_panel->View().ReduceWhileMoving(reduce);
}

void wxKivoPlot::KeepUpright(bool upright) {
    m_panel->View().KeepUpright(upright);
}

void wxKivoPlot::FollowSystemColours(bool follow) {
    Guarded([&] { m_panel->FollowSystemColours(follow); });
}

void wxKivoPlot::EnableMenu(bool enable) {
    m_panel->hasMenu = enable;
}

wxBitmap wxKivoPlot::GetPicture() {
    const wxImage image = Guarded([this] { return m_panel->Picture(); }, wxImage());
    return image.IsOk() ? wxBitmap(image) : wxBitmap();
}

bool wxKivoPlot::CopyPicture() {
    const wxBitmap picture = GetPicture();
    if (!picture.IsOk()) return false;
    const wxClipboardLocker lock;
    return !!lock && wxTheClipboard->SetData(new wxBitmapDataObject(picture));
}

bool wxKivoPlot::SavePicture(const wxString& path) {
    const wxLogNull quiet; // the result says it, not a dialog
    if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxImage::AddHandler(new wxPNGHandler);
    const wxBitmap picture = GetPicture();
    return picture.IsOk() && picture.ConvertToImage().SaveFile(path, wxBITMAP_TYPE_PNG);
}

wxString wxKivoPlot::GetFailure() const {
    return wxString::FromUTF8(m_panel->View().Failure().c_str());
}

wxSize wxKivoPlot::DoGetBestClientSize() const {
    return FromDIP(wxSize(400, 300));
}
