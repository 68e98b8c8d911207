// Arguments of the plotter's members, made of the bytes of a fuzzer's input.
#pragma once

#include "FuzzInput.h"
#include "support/Arguments.h"

namespace KivoDrawingTools {

/// Numbers that stand for memory that is really taken (ticks, contours, points) are kept small.
class FuzzArguments : public Arguments {
public:
    /// @param window, width, height  an off-screen window and its size in pixels
    FuzzArguments(KivoTest::FuzzInput& input, HWND window, int width, int height)
        : m_input(input), m_window(window), m_width(width), m_height(height) {}

    HWND Window() override { return m_input.Below(8) == 0 ? nullptr : m_window; }
    bool Flag(bool) override { return m_input.Flag(); }
    float Float(float) override { return m_input.Float(); }
    int Int(int) override { return m_input.Int(); }
    unsigned int Unsigned(unsigned int) override { return m_input.Unsigned(); }
    unsigned int GroupIndex() override { return m_input.Below(12); }
    int Of(Amount amount, int plausible) override;
    unsigned int KeyState(unsigned int) override { return m_input.Byte(); }
    POINT Point(POINT) override;
    unsigned long Color(unsigned long) override { return m_input.Bits(); }
    const float* Rgba(const float*) override { return Keep(Numbers(4)); }
    const char* Text(const char*) override { return Keep(m_input.Text()); }
    GridArguments GridToTakeOver() override;
    GridArguments GridToRefer() override;
    PointArguments Points() override;

private:
    std::vector<float> Numbers(std::size_t count);
    std::size_t Shape(GridArguments& grid);
    std::vector<float> Surface(const GridArguments& grid, std::size_t count);

    KivoTest::FuzzInput& m_input;
    const HWND m_window;
    const int m_width, m_height;
};

} // namespace KivoDrawingTools
