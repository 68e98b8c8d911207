// What CKivoPlotView does: when what is drawn, and what a hand does to the plot.
#pragma once

#include "KivoPicture.h"
#include "KivoPlotView.h"
#include "ThreadedJob.h"

#include <array>
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

    CKivoFunctionPlotter& Plotter() const { return *m_plotter; }
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
    ~PlotViewCore();
    PlotViewCore(const PlotViewCore&) = delete;
    PlotViewCore& operator=(const PlotViewCore&) = delete;

    CKivoFunctionPlotter& Plotter() { return m_bound.Plotter(); }
    const std::string& Failure() const { return m_failure; }
    void ShowGrid(std::unique_ptr<float[]> points, unsigned int columns, unsigned int rows);
    void SetSize(int width, int height, double density);
    /// Takes size and density over where they are new.
    void Follow();
    void SetSmoothing(int factor);
    int SetColors(std::optional<unsigned long> ink, std::optional<unsigned long> ground);
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
    SKivoPlotImage DrawNow();
    void Wake();

    void SetThreaded(bool threaded);
    void DrawInThread() { m_job.Run(); } ///< in the other thread
    void TakeFrame();
    bool IsDrawingInThread() const { return !m_job.IsIdle(); }
    /// Has no other thread at the plotter any more.
    void Retrieve();
    void RetrieveForHost(); ///< the same, but lets frames end that would otherwise never
    void Lend();
    void TakeBack(bool isChanged);
    bool IsLent() const { return m_loans > 0; }

private:
    struct Drag {
        KivoMouseButton button;
        POINT start;
        POINT last;
        bool hasMoved;
    };
    /// What has been drawn, by whichever thread.
    struct Drawing {
        std::vector<unsigned char> pixels;
        SKivoPlotImage image; ///< of the pixels
        int result = 0;       ///< as of DrawPicture
        std::string failure;  ///< why nothing was drawn
        double milliseconds = 0.0;
    };
    /// What another thread does.
    enum class Job { frame, measurement };
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
    void Request(Due due);
    void RequestPaint();
    SKivoPlotImage LastImage() const;
    SKivoPlotImage DrawDue(bool mayUseThread);
    void DrawHere();
    void DrawWithThread();
    bool TryFor(double milliseconds, bool isMoving);
    void Present();
    void DrawImage(Drawing& drawing, bool isMoving, const SKivoStopRequest& stop) const;
    void TakeImage();
    void TakeShown(bool isComplete);
    void TakeCompleteTime(double milliseconds);
    bool IsThreaded() const;
    void ReleaseContext();
    void StartJob(Job purpose, ThreadedJob::Job job);
    void EndJob(bool isStopped);
    void TakeResult();
    void Measure();
    std::optional<unsigned int> MeasuredDetail(const SKivoStopRequest& stop) const;
    void TakeMeasured(std::optional<unsigned int> detail);

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
    int m_wheelRemainder = 0;
    bool m_isUpright = false;

    Due m_due = Due::everything;
    bool m_isAsked = false; ///< for a frame, by the event
    Awaited m_awaited = Awaited::nothing;
    int m_smoothing = 2;
    bool m_reduces = true;
    double m_completeTime = 0.0;         ///< of the last complete frame, in milliseconds
    double m_measuredTime = 0.0;         ///< of the one that the detail was measured for
    bool m_isStale = true;               ///< what the last frame shows has changed since
    SKivoPlotImage m_image;              ///< the last frame
    std::vector<unsigned char> m_pixels; ///< of it

    bool m_isThreaded = false;
    int m_loans = 0;
    bool m_isChanged = false;   ///< in one of them
    bool m_isDetailOld = false; ///< since it could not be set
    struct Colors {
        std::optional<unsigned long> ink;
        std::optional<unsigned long> ground;
    };
    std::optional<Colors> m_awaitedColors; ///< as above
    std::optional<std::array<float, 3>> m_toldPoint;
    Job m_purpose = Job::frame;
    Drawing m_next;                           ///< while a job goes on, its own
    std::optional<unsigned int> m_nextDetail; ///< as above
    int m_stopsByHost = 0;                    ///< of frames in a row
    ThreadedJob m_job;
};

} // namespace KivoDrawingTools
