// Shows a plot in a window of wxWidgets, and looks whether it is there.
#include <KivoVersion.h>
#include <wx/wx.h>
#include <wxKivoPlot.h>

#include <cstdio>

class App : public wxApp {
public:
    bool OnInit() override {
        const float heights[] = {0, 1, 1, 0};
        auto* const frame = new wxFrame(nullptr, wxID_ANY, "plot");
        auto* const plot = new wxKivoPlot(frame);
        plot->SetHeights(heights, 2, 2, 0, 1, 0, 1);
        plot->Bind(wxEVT_PAINT, [this, plot, frame](wxPaintEvent& event) {
            event.Skip();
            plot->CallAfter([this, plot, frame] {
                m_isDrawn = m_isDrawn || plot->GetPicture().IsOk();
                if (m_isDrawn) frame->Close();
            });
        });
        return frame->Show();
    }
    int OnExit() override {
        if (m_isDrawn) std::printf("%s\n", KIVO_VERSION);
        return wxApp::OnExit();
    }

private:
    bool m_isDrawn = false;
};

wxIMPLEMENT_APP(App);
