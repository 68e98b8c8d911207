// Where a wxKivoPlot may be: pages of a notebook, below other windows, beside OpenGL of the host's.
#include "KivoView.h"
#include "support/Image.h"
#include "WxSession.h"

#include <wx/glcanvas.h>
#include <wx/wx.h>

#include <wx/notebook.h>

#include <GL/gl.h>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr int neighborWidth = 100;

// Clears itself with OpenGL at each frame that it is asked for: from the hundredth on to (51, 153, 102).
// Nobody else is to touch which context is current.
class OpenGlNeighbor : public wxGLCanvas {
public:
    explicit OpenGlNeighbor(wxWindow* parent) : wxGLCanvas(parent, MakeAttributes()), m_context(this) {
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            const wxPaintDC dc(this);
            if (frames == 0 && !SetCurrent(m_context)) return; // it stays so
            glClearColor(frames < 99 ? 0.9f : 0.2f, 0.6f, 0.4f, 1.0f);
            glClear(GL_COLOR_BUFFER_BIT);
            SwapBuffers();
            hasErrors = hasErrors || glGetError() != GL_NO_ERROR;
            ++frames;
        });
    }
    int frames = 0;
    bool hasErrors = false;

private:
    static wxGLAttributes MakeAttributes() {
        wxGLAttributes attributes;
        attributes.PlatformDefaults().RGBA().DoubleBuffer().EndList();
        return attributes;
    }

    wxGLContext m_context;
};

} // namespace

TEST_F(WxControl, KeepsViewAndDataInPagesOfANotebook) {
    plot->Destroy();
    auto* const book = new wxNotebook(frame, wxID_ANY, wxPoint(0, 0));
    plot = new wxKivoPlot(book);
    SetHill(*plot);
    SetViewAngles(Plotter(), 70, 20);
    book->AddPage(plot, "Plot", true);
    book->AddPage(new wxPanel(book), "Another");
    frame->SetClientSize(width + 100, height + 100);
    book->SetSize(0, 0, width + 100, height + 100);
    Run();
    frame->SetClientSize(frame->GetClientSize() + wxSize(width, height) - plot->GetClientSize());
    book->SetSize(frame->GetClientSize());
    ASSERT_TRUE(Until([&] { return plot->GetClientSize() == wxSize(width, height); }));
    EXPECT_TRUE(ShowsBare("wx-page"));
    for (const bool isHidden : {false, true}) {
        book->SetSelection(1);
        Run();
        if (isHidden) book->Hide();
        Plotter().SetPlotTitle(isHidden ? "Set while hidden" : "Set on another page");
        plot->RefreshPlot();
        Run();
        if (isHidden) book->Show();
        book->SetSelection(0);
        EXPECT_TRUE(ShowsBare("wx-page-again"));
    }
}

TEST_F(WxControl, LeavesWhatLiesOverItWhole) {
    auto* const block = new wxPanel(plot, wxID_ANY, wxPoint(170, 130), wxSize(60, 40));
    block->SetBackgroundColour(wxColour(255, 0, 0));
    const auto isBlock = [](const unsigned char* rgb) { return rgb[0] == 255 && rgb[1] == 0 && rgb[2] == 0; };
    for (int i = 0; i < 10; ++i) {
        SetViewAngles(Plotter(), 10 * i, 30);
        plot->RefreshPlot();
        Run();
        EXPECT_TRUE(Until([&] { return desktop->Grab(window).Count(isBlock) == 60 * 40; })) << i;
    }
    block->Destroy();
    EXPECT_TRUE(ShowsBare("wx-was-covered"));
}

TEST_F(WxControl, LeavesTheOpenGlOfItsNeighborAlone) {
    auto* const neighbor = new OpenGlNeighbor(frame);
    frame->SetClientSize(width + neighborWidth, height);
    neighbor->SetSize(0, 0, neighborWidth, height);
    plot->SetSize(neighborWidth, 0, width, height);
    ASSERT_TRUE(Until([&] { return neighbor->frames > 0; })) << "the neighbour draws nothing";
    for (int i = 0; i < 100; ++i) {
        const int before = neighbor->frames;
        SetViewAngles(Plotter(), 3 * i, 30);
        plot->RefreshPlot();
        neighbor->Refresh();
        ASSERT_TRUE(Until([&] { return neighbor->frames > before; })) << i;
    }
    EXPECT_TRUE(ShowsBare("wx-beside-opengl"));
    EXPECT_TRUE(desktop->Grab(window).IsNear(neighborWidth / 2, height / 2, {51, 153, 102}))
        << "as the neighbour cleared it";
    EXPECT_FALSE(neighbor->hasErrors);
}
