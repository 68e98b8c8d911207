#include "PlotViewCore.h"

#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "KivoView.h"
#include "KivoWindow.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <new>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr int largestSide = 16384;

// Milliseconds. A pause ends a movement; one between two grabs, or two steps of a slow wheel, is longer, and
// a frame that keeps the hand waiting must not come within it.
constexpr int pause = 120, pauseBeforeSlowFrame = 400, pauseBeforeMeasuring = 500;
constexpr double slowFrame = 100.0, fastFrame = 33.0;
constexpr double movedFrame = 22.0;             // of a frame while the plot moves; showing it takes the rest
constexpr unsigned int usualMotionDetail = 150; // points a side, with which most machines keep up
constexpr unsigned int leastMotionDetail = 120; // with fewer, other things take the time
// A frame that may be drawn at once is tried so long; movements, which all else waits for, a little longer.
constexpr double trialOfFrame = 20.0, trialOfMovement = 50.0, forever = 1e9;
constexpr double longFrame = 1000.0; // of one that was not drawn in that time: until it is
constexpr int mostStopsByHost = 3;
constexpr int stoppedPicture = -4; // as DrawPicture says it
constexpr const char* outOfMemory =
    "The plot: there is not enough memory; free some, or make the control smaller.";
constexpr double otherFrame = 1.5; // times as long, or as short: another plot than the measured one

constexpr double turnAcross = 160.0; // degrees of a drag across the control, as the plotter turns
constexpr double keyTurn = 5.0;      // degrees
constexpr double keyShift = 0.05;    // of the control's size
constexpr double keyZoom = 1.1, wheelZoom = 1.04;
constexpr double clickReach = 3.0; // units of the toolkit that a hand moves while it clicks

double MillisecondsSince(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// A time that something may take.
class Trial {
public:
    explicit Trial(double milliseconds)
        : m_end(std::chrono::steady_clock::now() +
                std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                    std::chrono::duration<double, std::milli>(milliseconds))) {}

    SKivoStopRequest Stop() {
        const auto isOver = [](void* self) {
            return std::chrono::steady_clock::now() >= static_cast<Trial*>(self)->m_end;
        };
        return {isOver, this};
    }

private:
    std::chrono::steady_clock::time_point m_end;
};

int Rounded(double pixels) {
    return static_cast<int>(std::lround(pixels));
}

template <typename Event, typename... Arguments>
void Tell(const Event& event, Arguments... arguments) {
    if (event) event(arguments...);
}

// A display's own dots per inch have texts grow, as the density does: the points for those of usual ones.
int TextPoints(HWND window) {
    constexpr int points = 10, usualResolution = 96;
    const int dotsPerInch = std::max(GetWindowDpi(window), 1);
    return std::max(Rounded(1.0 * points * usualResolution / dotsPerInch), 1);
}

} // namespace

BoundPlotter::BoundPlotter(HWND hostWindow, std::unique_ptr<CKivoFunctionPlotter> plotter)
    : m_plotter(plotter ? std::move(plotter) : std::make_unique<CKivoFunctionPlotter>()),
      m_isHosts(hostWindow != nullptr),
      m_window(hostWindow ? hostWindow : CreateOffscreenWindow(firstWidth, firstHeight)) {
    m_isUsable =
        m_window && m_plotter->OnCreate(m_window, firstWidth, firstHeight, TextPoints(m_window), true) == 0;
}

BoundPlotter::~BoundPlotter() {
    m_plotter->OnDestroy();
    if (m_isHosts)
        SetWindowSmoothing(m_window, 1);
    else
        ReleaseWindow(m_window);
}

PlotViewCore::PlotViewCore(SKivoPlotViewEvents events, HWND hostWindow,
                           std::unique_ptr<CKivoFunctionPlotter> plotter)
    : m_events(std::move(events)), m_bound(hostWindow, std::move(plotter)) {
    if (!m_bound.IsUsable()) m_failure = LastWindowError();
    ReduceWhileMoving(true);
    // Mouse members that a host calls itself.
    SetRedrawRequest(
        Plotter(), [](void* self) { static_cast<PlotViewCore*>(self)->Moved(); }, this);
}

PlotViewCore::~PlotViewCore() {
    m_job.End(true);
}

// ---- What is shown

void PlotViewCore::ShowGrid(std::unique_ptr<float[]> points, unsigned int columns, unsigned int rows) {
    Retrieve();
    Plotter().SetData(points.release(), columns, rows, 1, columns, 3);
    Ask(Due::everything);
}

void PlotViewCore::SetSize(int width, int height, double density) {
    const int wantedWidth = std::min(width, largestSide), wantedHeight = std::min(height, largestSide);
    if (wantedWidth == m_width && wantedHeight == m_height && density == m_density) return;
    m_width = wantedWidth;
    m_height = wantedHeight;
    m_density = density;
    Ask(Due::everything);
}

void PlotViewCore::SetSmoothing(int factor) {
    Retrieve(); // who draws reads it
    m_smoothing = factor;
    Ask(Due::everything);
}

int PlotViewCore::SetColors(std::optional<unsigned long> ink, std::optional<unsigned long> ground) {
    m_awaitedColors.reset();
    if (IsLent()) {
        m_awaitedColors = Colors{ink, ground};
        return 0;
    }
    Retrieve();
    Follow();
    SKivoStyle style = GetStyle(Plotter());
    style.inkColor = ink.value_or(SKivoStyle().inkColor);
    if (const int result = SetStyle(Plotter(), style); result != 0) return result;
    if (ground)
        Plotter().SetBackgroundColor(*ground);
    else
        Plotter().ResetBackgroundColor();
    Ask(Due::everything);
    return 0;
}

void PlotViewCore::ReduceWhileMoving(bool reduce) {
    m_reduces = reduce;
    m_measuredTime = 0.0;
    m_isDetailOld = IsLent();
    if (IsLent()) return;
    Retrieve();
    SetMotionDetail(Plotter(), reduce ? usualMotionDetail : 0);
}

// The window takes the control's size when something is drawn or pointed at: of a hundred sizes in a row one.
void PlotViewCore::Follow() {
    if (IsLent() || !HasSize()) return;
    FollowDensity();
    if (m_width == m_windowWidth && m_height == m_windowHeight) return;
    const bool isSized =
        m_bound.IsOnScreen() || ResizeOffscreenWindow(m_bound.Window(), m_width, m_height) == 0;
    if (!isSized) return; // the image is scaled
    m_windowWidth = m_width;
    m_windowHeight = m_height;
    m_measuredTime = 0.0;
    LayOut(m_width, m_height);
}

void PlotViewCore::FollowDensity() {
    SKivoStyle style = GetStyle(Plotter());
    const float scale = static_cast<float>(m_density);
    if (style.pixelScale == scale) return;
    style.pixelScale = scale;
    SetStyle(Plotter(), style); // without memory for larger texts the plot has smaller ones
}

// Only a view that is not as fitted is set: the fitted one is that of any plotter, to the last digit.
void PlotViewCore::LayOut(int width, int height) {
    if (m_events.layOut) {
        m_events.layOut(width, height);
        return;
    }
    const SKivoView view = GetView(Plotter());
    Plotter().OnSize(0, width, height);
    const bool isFitted = view.panX == 0.0 && view.panY == 0.0 && std::abs(view.zoom - 1.0) < 1e-6;
    if (!isFitted) SetView(Plotter(), view);
}

// ---- The hand

void PlotViewCore::Press(KivoMouseButton button, POINT place) {
    if (m_drag || IsLent()) return;
    Retrieve();
    Follow();
    m_drag = Drag{button, place, place, false};
    if (m_awaited == Awaited::measure) Await(Awaited::nothing, -1); // a movement may follow
    if (m_awaited == Awaited::rest && IsCompleteSlow()) AwaitRest();
}

void PlotViewCore::Move(unsigned int flags, POINT place) {
    if (IsLent()) return;
    if (m_drag) {
        const Drag before = *m_drag;
        const double reach = clickReach * m_density;
        m_drag->hasMoved |= std::abs(static_cast<double>(place.x) - before.start.x) > reach ||
                            std::abs(static_cast<double>(place.y) - before.start.y) > reach;
        m_drag->last = place;
        const bool isMoved = place.x != before.last.x || place.y != before.last.y;
        if (!isMoved) return;
        Retrieve();
        Drop(before, flags, place);
    } else if (Plotter().IsTracing()) {
        m_pointer = place;
        Ask(m_completeTime > fastFrame ? Due::movement : Due::everything);
    }
}

// What the plot is dragged by.
void PlotViewCore::Drop(const Drag& drag, unsigned int flags, POINT place) {
    const bool isFlat = Plotter().GetCurrentPlotType() != 0;
    const bool isShifted = drag.button == KivoMouseButton::middle || (flags & MK_SHIFT) != 0;
    if (!isShifted && (flags & MK_CONTROL) != 0)
        ZoomView(Plotter(), std::exp((static_cast<double>(place.y) - drag.last.y) / std::max(m_height, 1)),
                 drag.start);
    else if (isShifted || isFlat)
        ShiftView(Plotter(), drag.last, place);
    else
        Turn(drag.last, place);
    Moved();
}

void PlotViewCore::Turn(POINT from, POINT to) {
    if (!m_isUpright) {
        Plotter().Rotate(from, to);
        return;
    }
    const double degrees = turnAcross / std::max(m_width, 1);
    double azimuth = 0.0, elevation = 0.0;
    if (GetViewAngles(Plotter(), azimuth, elevation) != 0) SetViewAngles(Plotter(), azimuth, elevation);
    TurnView(Plotter(), (static_cast<double>(to.x) - from.x) * degrees,
             (static_cast<double>(to.y) - from.y) * degrees);
}

bool PlotViewCore::Release(KivoMouseButton button) {
    if (!m_drag || m_drag->button != button) return false;
    const bool isClick = !m_drag->hasMoved;
    Cancel();
    return isClick;
}

void PlotViewCore::Cancel() {
    if (!m_drag || IsLent()) return;
    m_drag.reset();
    if (m_awaited != Awaited::rest) return;
    if (IsCompleteSlow())
        AwaitRest();
    else
        Request(Due::everything);
}

void PlotViewCore::Zoom(double factor, POINT place) {
    if (!(factor > 0.0) || !std::isfinite(factor) || IsLent()) return;
    Retrieve();
    Follow();
    if (ZoomView(Plotter(), factor, place) == 0) Moved();
}

void PlotViewCore::Wheel(int delta, POINT place) {
    const int steps = std::clamp(WheelSteps(m_wheelRemainder, delta), -100, 100);
    if (steps != 0) Zoom(std::pow(wheelZoom, steps), place);
}

bool PlotViewCore::TurnByKey(double right, double down, unsigned int flags) {
    const bool isFlat = Plotter().GetCurrentPlotType() != 0;
    if (isFlat || (flags & MK_SHIFT) != 0)
        return ShiftView(Plotter(), {0, 0},
                         {Rounded(right * keyShift * m_width), Rounded(down * keyShift * m_height)}) == 0;
    return TurnView(Plotter(), right * keyTurn, down * keyTurn) == 0;
}

bool PlotViewCore::PressKey(KivoViewKey key, unsigned int flags) {
    if (IsLent()) return false;
    Retrieve();
    Follow();
    const auto switchTo = [this](int type, int (CKivoFunctionPlotter::*show)()) {
        if (Plotter().GetCurrentPlotType() != type) (Plotter().*show)();
        return true;
    };
    const auto zoom = [this](double factor) {
        Plotter().Zoom(static_cast<float>(1.0 / factor));
        return true;
    };
    const auto press = [&] {
        switch (key) {
        case KivoViewKey::left:
            return TurnByKey(-1.0, 0.0, flags);
        case KivoViewKey::right:
            return TurnByKey(1.0, 0.0, flags);
        case KivoViewKey::up:
            return TurnByKey(0.0, -1.0, flags);
        case KivoViewKey::down:
            return TurnByKey(0.0, 1.0, flags);
        case KivoViewKey::plus:
            return zoom(keyZoom);
        case KivoViewKey::minus:
            return zoom(1.0 / keyZoom);
        case KivoViewKey::home:
            return ResetView(Plotter()) == 0;
        case KivoViewKey::normal:
            return switchTo(0, &CKivoFunctionPlotter::SwitchToNormalPlot);
        case KivoViewKey::xy:
            return switchTo(1, &CKivoFunctionPlotter::SwitchToXYProjectPlot);
        case KivoViewKey::yz:
            return switchTo(2, &CKivoFunctionPlotter::SwitchToYZProjectPlot);
        case KivoViewKey::xz:
            return switchTo(3, &CKivoFunctionPlotter::SwitchToZXProjectPlot);
        }
        return false; // what is no key
    };
    if (!press()) return false;
    Moved();
    return true;
}

// ---- When what is drawn

void PlotViewCore::Moved() {
    Ask(Due::movement);
    AwaitRest();
    Tell(m_events.viewChanged);
}

// What another thread draws is not wanted any more.
void PlotViewCore::Ask(Due due) {
    Retrieve();
    m_isStale = true;
    m_stopsByHost = 0; // it does not just look
    Request(due);
}

// A complete frame that is due stays due until the hand moves on.
void PlotViewCore::Request(Due due) {
    m_due = due;
    if (due == Due::everything && m_awaited == Awaited::rest) Await(Awaited::nothing, -1);
    RequestPaint();
}

void PlotViewCore::RequestPaint() {
    if (std::exchange(m_isAsked, true)) return;
    Tell(m_events.redraw);
}

void PlotViewCore::Await(Awaited awaited, int milliseconds) {
    m_awaited = awaited;
    Tell(m_events.wake, milliseconds);
}

bool PlotViewCore::IsCompleteSlow() const {
    return m_completeTime > slowFrame && !IsThreaded();
}

void PlotViewCore::AwaitRest() {
    Await(Awaited::rest, IsCompleteSlow() ? pauseBeforeSlowFrame : pause);
}

void PlotViewCore::Wake() {
    const Awaited awaited = std::exchange(m_awaited, Awaited::nothing);
    if (awaited == Awaited::rest) Request(Due::everything);
    if (awaited == Awaited::measure) Measure();
}

// ---- Drawing

SKivoPlotImage PlotViewCore::LastImage() const {
    return HasSize() ? m_image : SKivoPlotImage{};
}

SKivoPlotImage PlotViewCore::Draw() {
    m_isAsked = false;
    if (m_job.TakeDone()) TakeResult();
    if (IsLent() || IsDrawingInThread()) return LastImage();
    if (m_bound.IsOnScreen() && m_due == Due::nothing)
        m_due = Due::everything; // others may have drawn over it
    return DrawDue(true);
}

SKivoPlotImage PlotViewCore::DrawNow() {
    if (IsLent()) return {};
    Retrieve();
    m_isAsked = false;
    m_due = Due::everything;
    return DrawDue(false);
}

SKivoPlotImage PlotViewCore::DrawDue(bool mayUseThread) {
    if (!IsFrameDue()) return LastImage();
    Follow();
    m_failure.clear();
    try {
        TracePointer();
        if (mayUseThread && m_due == Due::everything && IsThreaded())
            DrawWithThread();
        else
            DrawHere();
    } catch (const std::bad_alloc&) {
        m_failure = outOfMemory;
    }
    if (m_failure.empty()) return m_image;
    m_due = Due::nothing; // until the next change: it may be there is memory then
    m_image = {};
    Tell(m_events.failed);
    return {};
}

void PlotViewCore::DrawHere() {
    const bool isComplete = m_due == Due::everything;
    const auto begin = std::chrono::steady_clock::now();
    if (m_bound.IsOnScreen()) {
        Present();
    } else {
        m_next.pixels.swap(m_pixels); // one buffer is enough
        DrawImage(m_next, !isComplete, {});
        TakeImage();
    }
    if (!m_failure.empty()) return;
    TakeShown(isComplete);
    if (isComplete)
        TakeCompleteTime(MillisecondsSince(begin));
    else if (m_awaited != Awaited::rest)
        AwaitRest(); // whatever has asked for less, a complete frame follows
}

// A complete frame, at once where it is quick.
void PlotViewCore::DrawWithThread() {
    if (m_completeTime <= fastFrame && TryFor(trialOfFrame, false)) {
        if (m_failure.empty()) TakeCompleteTime(m_next.milliseconds);
        return;
    }
    m_completeTime = std::max(m_completeTime, longFrame);
    const double trial = m_image.pixels ? trialOfMovement : forever; // rather than none
    if (m_isStale && m_reduces) TryFor(trial, true);
    if (!m_failure.empty()) return;
    m_due = Due::nothing;
    StartJob(Job::frame, [this](const SKivoStopRequest& stop) {
        try {
            DrawImage(m_next, false, stop);
        } catch (...) { // a derived plotter's, which nobody can be told
            m_next.result = -1;
            m_next.failure = "The plot: it cannot be drawn.";
        }
    });
}

// @return whether it has been drawn, or cannot be
bool PlotViewCore::TryFor(double milliseconds, bool isMoving) {
    Trial trial(milliseconds);
    DrawImage(m_next, isMoving, trial.Stop());
    if (m_next.result == stoppedPicture) return false;
    TakeImage();
    TakeShown(!isMoving);
    return true;
}

// The image has all that was asked for, or as much as a movement shows.
void PlotViewCore::TakeShown(bool isComplete) {
    m_due = Due::nothing;
    m_isStale = false;
    if (isComplete) m_stopsByHost = 0;
}

void PlotViewCore::TracePointer() {
    const std::optional<POINT> pointer = std::exchange(m_pointer, std::nullopt);
    const bool isTracing = Plotter().IsTracing();
    if (isTracing && pointer) Plotter().Trace(*pointer);
    std::array<float, 3> point = {};
    const bool isTraced = isTracing && Plotter().GetTracePoint(point.data());
    // Who hears it asks the plotter, and would stop the thread that draws what was told before.
    const bool isNews = isTraced ? !IsThreaded() || m_toldPoint != point : m_toldPoint.has_value();
    m_toldPoint.reset();
    if (isTraced) m_toldPoint = point;
    if (isNews) Tell(m_events.traced, isTraced ? point.data() : nullptr);
}

void PlotViewCore::Present() {
    const bool isMoving = m_due == Due::movement;
    SetWindowSmoothing(m_bound.Window(), isMoving ? 1 : m_smoothing);
    const int result = isMoving ? RenderMovedScene(Plotter()) : Plotter().Renderscene();
    if (result != frameShown) m_failure = LastWindowError();
    if (result != frameShown && m_failure.empty()) m_failure = "The plot could not be shown in its window.";
    m_image = {};
    m_image.width = m_windowWidth;
    m_image.height = m_windowHeight;
}

// It may be another thread that draws.
void PlotViewCore::DrawImage(Drawing& drawing, bool isMoving, const SKivoStopRequest& stop) const {
    const auto begin = std::chrono::steady_clock::now();
    CKivoFunctionPlotter& plotter = m_bound.Plotter();
    SKivoPictureOptions options;
    options.moving = isMoving;
    options.smoothing = isMoving ? 1 : m_smoothing;
    options.stop = stop;
    SKivoPlotImage& image = drawing.image;
    drawing.failure.clear();
    try {
        drawing.result = MeasurePicture(plotter, options, image.width, image.height);
        if (drawing.result == 0) {
            image.rowBytes = static_cast<std::size_t>(image.width) * 4;
            drawing.pixels.resize(image.rowBytes * static_cast<std::size_t>(image.height));
            image.pixels = drawing.pixels.data();
            drawing.result =
                DrawPicture(plotter, options, drawing.pixels.data(), image.rowBytes, KivoPixelOrder::bgra);
        }
        const bool isFailed = drawing.result != 0 && drawing.result != stoppedPicture;
        if (drawing.result == -1) drawing.failure = LastWindowError();
        if (isFailed && drawing.failure.empty())
            drawing.failure = "The plot: its window is gone, or its scale too large.";
    } catch (const std::bad_alloc&) {
        drawing.failure = outOfMemory;
        drawing.result = -1;
    }
    drawing.milliseconds = MillisecondsSince(begin);
}

void PlotViewCore::TakeImage() {
    m_failure = m_next.failure;
    if (m_next.result != 0) return;
    m_pixels.swap(m_next.pixels);
    m_image = m_next.image;
}

void PlotViewCore::TakeCompleteTime(double milliseconds) {
    m_completeTime = milliseconds;
    if (!m_reduces || m_completeTime <= fastFrame) return;
    const double ratio = m_completeTime / m_measuredTime; // infinite before the first
    const bool isMeasured = ratio < otherFrame && ratio > 1.0 / otherFrame;
    if (!isMeasured) Await(Awaited::measure, pauseBeforeMeasuring);
}

void PlotViewCore::Measure() {
    if (m_drag || m_due != Due::nothing || !m_reduces || IsLent() || IsDrawingInThread())
        return;                                      // after the next complete frame
    if (Plotter().GetCurrentPlotType() != 0) return; // where nothing can be measured: what was taken goes on
    m_measuredTime = m_completeTime;
    if (IsThreaded()) {
        StartJob(Job::measurement,
                 [this](const SKivoStopRequest& stop) { m_nextDetail = MeasuredDetail(stop); });
        return;
    }
    TakeMeasured(MeasuredDetail({}));
}

// @return none where there is no memory for it, or it was stopped
std::optional<unsigned int> PlotViewCore::MeasuredDetail(const SKivoStopRequest& stop) const {
    try {
        const unsigned int detail = MotionDetailFor(m_bound.Plotter(), movedFrame, stop);
        if (stop.isWanted && stop.isWanted(stop.context)) return std::nullopt;
        return detail;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

void PlotViewCore::TakeMeasured(std::optional<unsigned int> detail) {
    if (!detail) return; // what was taken before goes on
    SetMotionDetail(Plotter(), *detail == 0 ? 0 : std::max(*detail, leastMotionDetail));
}

// ---- Threads

void PlotViewCore::SetThreaded(bool threaded) {
    if (!threaded) Retrieve();
    m_isThreaded = threaded;
}

bool PlotViewCore::IsThreaded() const {
#if defined(_WIN32)
    return false; // what is drawn to belongs to the thread that makes it
#else
    return m_isThreaded && m_events.drawInThread && !m_bound.IsOnScreen();
#endif
}

// Setters of gradients leave the plotter's context current in the thread; this, a pan by nothing, does not.
void PlotViewCore::ReleaseContext() {
    Plotter().Translate({0, 0}, {0, 0});
}

void PlotViewCore::StartJob(Job purpose, ThreadedJob::Job job) {
    m_purpose = purpose;
    ReleaseContext();
    m_job.Start(std::move(job));
    Tell(m_events.drawInThread);
}

void PlotViewCore::EndJob(bool isStopped) {
    if (m_job.IsIdle()) return;
    if (m_job.End(isStopped)) {
        TakeResult();
        return;
    }
    m_next.result = stoppedPicture; // before it began
    m_nextDetail = std::nullopt;
    TakeResult();
}

void PlotViewCore::Retrieve() {
    EndJob(true);
}

// A host that looks at the plot all the time would never see it.
void PlotViewCore::RetrieveForHost() {
    if (IsLent() || m_job.IsIdle()) return;
    if (m_purpose == Job::measurement || ++m_stopsByHost <= mostStopsByHost) return EndJob(true);
    EndJob(false);
    if (m_due == Due::everything) { // it had not begun
        DrawNow();
        RequestPaint();
    }
}

void PlotViewCore::TakeFrame() {
    if (m_job.TakeDone()) TakeResult();
}

// What was stopped is due again, but for what follows a complete frame anyway.
void PlotViewCore::TakeResult() {
    if (m_purpose == Job::measurement) {
        if (m_nextDetail)
            TakeMeasured(m_nextDetail);
        else
            m_measuredTime = 0.0;
        return;
    }
    if (m_next.result == stoppedPicture) {
        if (m_due == Due::nothing) Request(Due::everything);
        return;
    }
    TakeImage();
    if (m_failure.empty()) {
        TakeShown(true);
        TakeCompleteTime(m_next.milliseconds);
    } else {
        m_image = {};
        Tell(m_events.failed);
    }
    RequestPaint();
}

void PlotViewCore::Lend() {
    Retrieve();
    m_drag.reset();
    ReleaseContext();
    ++m_loans;
}

// What was given away because it takes long takes long to draw, too.
void PlotViewCore::TakeBack(bool isChanged) {
    if (m_loans == 0) return;
    m_isChanged |= isChanged;
    if (--m_loans > 0) return;
    if (m_isDetailOld) ReduceWhileMoving(m_reduces);
    if (m_awaitedColors) SetColors(m_awaitedColors->ink, m_awaitedColors->ground);
    if (std::exchange(m_isChanged, false)) {
        m_completeTime = std::max(m_completeTime, longFrame);
        Ask(Due::everything);
    } else if (m_due != Due::nothing) {
        RequestPaint();
    }
}

} // namespace KivoDrawingTools
