// wxWidgets in a test: one window on the display with a plot in it, what the screen shows of it, and input.
#pragma once

#include "KivoPlotView.h"
#include "support/Desktop.h"
#include "support/WaitFor.h"
#include "wxKivoPlot.h"

#include <wx/frame.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace KivoTest {

class WxControl : public testing::Test {
protected:
    static constexpr int width = 400, height = 300; ///< of the plot

    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
    void TearDown() override;

    static void SetHill(wxKivoPlot& shown);
    KivoDrawingTools::CKivoFunctionPlotter& Plotter() const { return plot->GetPlotter(); }

    /// Runs the toolkit until the condition holds. @return whether it came to that
    static bool Until(const std::function<bool()>& condition, std::chrono::milliseconds time = patience);
    void Run(int milliseconds = 40);

    // Input at places of the window.
    void MovePointer(int x, int y);
    void Drag(PointerButton button, int fromX, int fromY, int toX, int toY);

    /// Waits until the screen shows the plot as a plotter alone draws it, to the last bit.
    testing::AssertionResult ShowsBare(const std::string& name);

    // A view that is told the same as the control.
    static void MakeTwin(KivoDrawingTools::CKivoPlotView& view);
    bool IsSeenAs(KivoDrawingTools::CKivoPlotView& view);

    std::unique_ptr<Desktop> desktop;
    wxFrame* frame = nullptr;
    wxKivoPlot* plot = nullptr;
    xcb_window_t window = XCB_NONE;
};

} // namespace KivoTest
