// A host in wxWidgets by the control: a window with a plot. A drag turns it; wxKivoPlot.h tells the rest.
#include "Hill.h"

#include <wx/wx.h>
#include <wxKivoPlot.h>

class HostApp : public wxApp {
public:
    bool OnInit() override {
        // [docs: control]
        const std::vector<float> points = HillPoints();
        auto* const frame = new wxFrame(nullptr, wxID_ANY, hillTitle);
        auto* const plot = new wxKivoPlot(frame);
        plot->SetGrid(points.data(), hillColumns, hillRows);
        frame->SetClientSize(900, 600);
        frame->Show();
        // [docs: end]
        return true;
    }
};

wxIMPLEMENT_APP(HostApp);
