// One control: a window, and the plot in it.
#pragma once

#include "KivoPlotControl.h"
#include "KivoPlotView.h"

#include <optional>
#include <vector>

namespace KivoDrawingTools {

class PlotControl {
public:
    /// @throws std::bad_alloc  without memory
    explicit PlotControl(HWND window);
    PlotControl(const PlotControl&) = delete;
    PlotControl& operator=(const PlotControl&) = delete;

    /// Answers a message of the control's window; nothing: the system does.
    std::optional<LRESULT> Answer(UINT message, WPARAM wParam, LPARAM lParam);

private:
    SKivoPlotViewEvents Events();
    bool HasStyle(DWORD style) const;
    double Density() const;
    void FollowSize();
    void FollowStyle();
    void Paint();
    void PaintWords(HDC dc);
    void PrintTo(HDC dc);
    LRESULT Copy();
    int SavePicture(const wchar_t* fileName);
    void AskForFile();

    std::optional<LRESULT> AnswerInput(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> AnswerOwn(UINT message, WPARAM wParam, LPARAM lParam);
    void Press(KivoMouseButton button, WPARAM flags, LPARAM place);
    void Release(KivoMouseButton button, WPARAM flags, LPARAM place);
    bool PressKey(WPARAM key);
    bool PressCharacter(WPARAM character);
    bool Pinch(LPARAM gesture);
    bool OpenMenu(LPARAM place);
    LRESULT SetGrid(const SKivoGrid* grid);
    void Notify(UINT code);
    void NotifyTraced(const float* point);

    HWND m_window;
    CKivoPlotView m_view;
    bool m_hasSystemColors = false;
    double m_pinch = 0.0; ///< distance of the fingers at the last report
    std::vector<unsigned char> m_picture;
};

} // namespace KivoDrawingTools
