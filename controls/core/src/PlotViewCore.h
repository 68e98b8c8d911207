// What CKivoPlotView does: when what is drawn, and what a hand does to the plot.
#pragma once

#include "KivoPlotView.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace KivoDrawingTools {

/// The plotter in its window: one without a screen that goes with it, or the host's.
class BoundPlotter {
public:
    static constexpr int firstWidth = 400, firstHeight = 300; ///< until the control has a size

    BoundPlotter(HWND hostWindow, std::unique_ptr<CKivoFunctionPlotter> plotter);
    ~BoundPlotter();
    BoundPlotter(const BoundPlotter&) = delete;
    BoundPlotter& operator=(const BoundPlotter&) = delete;

    CKivoFunctionPlotter& Plotter() { return *m_plotter; }
    HWND Window() const { return m_window; }
    bool IsUsable() const { return m_isUsable; }
    /// Whether frames are presented in it.
    bool IsOnScreen() const { return m_isHosts; }

private:
    std::unique_ptr<CKivoFunctionPlotter> m_plotter;
    bool m_isHosts;
    HWND m_window;
    bool m_isUsable;
};

class PlotViewCore {
public:
    /// In a host's window, or with null in one without a screen.
    PlotViewCore(SKivoPlotViewEvents events, HWND hostWindow, std::unique_ptr<CKivoFunctionPlotter> plotter);

    CKivoFunctionPlotter& Plotter() { return m_bound.Plotter(); }
    const std::string& Failure() const { return m_failure; }
    void ShowGrid(std::unique_ptr<float[]> points, unsigned int columns, unsigned int rows);
    void SetSize(int width, int height, double density);
    /// Takes size and density over where they are new.
    void Follow();
    void SetSmoothing(int factor);
    void ReduceWhileMoving(bool reduce);
    void KeepUpright(bool upright) { m_isUpright = upright; }

    void Press(KivoMouseButton button, POINT place);
    void Move(unsigned int flags, POINT place);
    bool Release(KivoMouseButton button);
    void Cancel();
    void Zoom(double factor, POINT place);
    void Wheel(int delta, POINT place);
    bool PressKey(KivoViewKey key, unsigned int flags);

    /// What the next frame shows.
    enum class Due { nothing, movement, everything };
    void Ask(Due due);
    bool IsFrameDue() const { return m_due != Due::nothing && HasSize(); }
    SKivoPlotImage Draw();
    void Wake();

private:
    struct Drag {
        KivoMouseButton button;
        POINT start;
        POINT last;
        bool hasMoved;
    };
    /// What wakes the view.
    enum class Awaited { nothing, rest, measure };

    bool HasSize() const { return m_width > 0 && m_height > 0 && m_bound.IsUsable(); }
    void FollowDensity();
    void LayOut(int width, int height);
    void Drop(const Drag& drag, unsigned int flags, POINT place);
    void Turn(POINT from, POINT to);
    bool TurnByKey(double right, double down, unsigned int flags);
    void Moved();
    void AwaitRest();
    void Await(Awaited awaited, int milliseconds);
    bool IsCompleteSlow() const;
    void TracePointer();
    void Present();
    void DrawImage();
    void TakeCompleteTime(double milliseconds);
    void Measure();

    SKivoPlotViewEvents m_events;
    BoundPlotter m_bound;
    std::string m_failure;

    int m_width = 0; ///< as the control has them
    int m_height = 0;
    double m_density = 1.0;
    int m_windowWidth = BoundPlotter::firstWidth; ///< as the window follows them
    int m_windowHeight = BoundPlotter::firstHeight;

    std::optional<Drag> m_drag;
    std::optional<POINT> m_pointer; ///< to be traced with the next frame
    bool m_isTraced = false;        ///< as it was told
    int m_wheelRemainder = 0;
    bool m_isUpright = false;

    Due m_due = Due::everything;
    bool m_isAsked = false; ///< for a frame, by the event
    Awaited m_awaited = Awaited::nothing;
    int m_smoothing = 2;
    bool m_reduces = true;
    double m_completeTime = 0.0; ///< of the last complete frame, in milliseconds
    double m_measuredTime = 0.0; ///< of the one that the detail was measured for
    std::vector<unsigned char> m_pixels;
    SKivoPlotImage m_image;
};

} // namespace KivoDrawingTools
