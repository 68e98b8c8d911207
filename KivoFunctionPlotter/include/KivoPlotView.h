// A plot for a control: an off-screen window, a plotter that is bound to it from the start, and what a hand
// does to it. A toolkit's control hands input in and shows the images that come out; it has no part in when
// and how what is drawn. Works beside any OpenGL of the toolkit's, which stays current.
#pragma once

#include "KivoFunctionPlotter.h"
#include "KivoHost.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace KivoDrawingTools {

/// What a view asks of its control, each within a call of the view's members. They may ask the view in turn,
/// but not destroy it; those that are empty are left out.
struct SKivoPlotViewEvents {
    /// A frame is due: Draw() is to be called when the toolkit paints next. Asked once until then.
    std::function<void()> redraw;
    /// Wake() is to be called after so many milliseconds, instead of at the time that was given before; below
    /// 0 not at all.
    std::function<void(int milliseconds)> wake;
    /// The point under the pointer in trace mode, x, y, z in data coordinates; null when it is there no more.
    /// Called while drawing.
    std::function<void(const float* point)> traced;
    /// The hand has turned, shifted or zoomed the plot, or switched to another one.
    std::function<void()> viewChanged;
    /// The plot cannot be drawn any more, or not at all: Failure() has the words. Not called within the
    /// constructor.
    std::function<void()> failed;
    /// Lays the plotter out for another size, instead of the view, which calls OnSize and keeps how the plot
    /// is looked at: for plotters of derived classes that fit the plot in their own way.
    std::function<void(int width, int height)> layOut;
    /// A frame takes long, and frames that do are drawn in threads: see SetThreaded. DrawInThread() is to be
    /// called in another thread, once for each time that this is.
    std::function<void()> drawInThread;
};

/// A frame: rows from top to bottom, four bytes a pixel, blue, green, red, and 255.
struct SKivoPlotImage {
    const unsigned char* pixels = nullptr; ///< null where nothing could be drawn
    int width = 0;                         ///< in pixels
    int height = 0;                        ///< in pixels
    std::size_t rowBytes = 0;              ///< from the start of a row to that of the next
};

/// Buttons of a mouse; a touch or a pen is the left one.
enum class KivoMouseButton { left, middle, right };

/// Keys that a view understands.
enum class KivoViewKey {
    left,   ///< turns the plot by five degrees; with Shift, and in a flat plot, it shifts it
    right,  ///< as left
    up,     ///< as left
    down,   ///< as left
    plus,   ///< zooms in
    minus,  ///< zooms out
    home,   ///< ResetView of KivoView.h
    normal, ///< the 3-D plot, where another one is shown
    xy,     ///< the flat plot of X and Y
    yz,     ///< the flat plot of Y and Z
    xz      ///< the flat plot of X and Z
};

/// All positions and sizes are in pixels of the device, positions from the upper left corner of the control;
/// ToPixels of KivoHost.h makes them of a toolkit's units. To be used in the thread that makes it, but for
/// DrawInThread().
///
/// Frames are complete and smooth while nothing moves, and plain and reduced as SetMotionDetail of
/// KivoMotion.h says while the hand moves the plot; a complete one follows when it rests.
class KIVO_API CKivoPlotView {
public:
    /// Makes window and plotter. Where nothing can be drawn, as without an OpenGL driver, Failure() says why,
    /// and all members are harmless.
    /// @param events   what it asks of its control
    /// @param plotter  one of a derived class, not bound to a window; null: a CKivoFunctionPlotter
    /// @throws std::bad_alloc  without memory
    explicit CKivoPlotView(SKivoPlotViewEvents events,
                           std::unique_ptr<CKivoFunctionPlotter> plotter = nullptr);
    /// The same in a window on the screen, for hosts that want every millisecond: Draw() presents frames in
    /// it and gives no image.
    /// @param window  as OnCreate takes it; it stays the host's, which sets its size before SetSize, and
    ///                outlives the view
    CKivoPlotView(SKivoPlotViewEvents events, HWND window,
                  std::unique_ptr<CKivoFunctionPlotter> plotter = nullptr);
    ~CKivoPlotView();
    CKivoPlotView(const CKivoPlotView&) = delete;
    CKivoPlotView& operator=(const CKivoPlotView&) = delete;

    /// The plotter, laid out for the present size, for everything that is shown; Update() shows it. Window,
    /// size, pixel scale and what is drawn when are the view's, that is OnCreate, OnSize and OnDestroy,
    /// SetRedrawRequest and the pixel scale of SetStyle. Mouse members that a host calls itself ask for a
    /// frame.
    CKivoFunctionPlotter& Plotter();
    /// Why nothing is drawn, in one sentence; empty where it is.
    const std::string& Failure() const;

    // ---- What is shown

    /// Takes a copy of a grid of points, which the plotter's SetData is handed, and asks for a frame.
    /// @param points  x, y, z of the first row's points from one column to the next, then of the second row
    /// @return 0; -3 for null, counts of 0 and counts whose product passes 32 bits, -1 while it is lent:
    ///         nothing changes then
    /// @throws std::bad_alloc  without memory: as SetData
    int SetGrid(const float* points, unsigned int columns, unsigned int rows);
    /// The same for heights at evenly spaced places.
    /// @param heights  z, row by row
    /// @param xMin  of the first column
    /// @param xMax  of the last column; it may be the smaller one
    /// @param yMin  of the first row
    /// @param yMax  of the last row
    /// @return as above; -3, too, for places that are not finite
    int SetHeights(const float* heights, unsigned int columns, unsigned int rows, double xMin, double xMax,
                   double yMin, double yMax);

    /// Takes colours of a toolkit's palette, and asks for a frame: for dark desktops.
    /// @param ink     inkColor of KivoStyle.h, 0x00BBGGRR; none: that of a new plot
    /// @param ground  what is behind the plot, as the ink
    /// @return 0; -1 where SetStyle cannot draw the texts anew: nothing changes then
    /// @throws std::bad_alloc  without memory: nothing changes either
    int SetColors(std::optional<unsigned long> ink, std::optional<unsigned long> ground);

    /// Asks for a complete frame, after anything that was set of the plotter.
    void Update();

    /// Follows the control. The view stays, and so does everything else.
    /// @param width    in pixels of the device; up to 16384, beyond which the image is smaller than the
    ///                 control. Of 0 and less nothing is drawn
    /// @param height   as the width
    /// @param density  pixels of the device in the toolkit's unit, above 0 up to 8: lines and texts are so
    ///                 many times as large
    /// @return 0; -3 for another density: nothing changes then
    int SetSize(int width, int height, double density = 1.0);

    /// @param factor  by how many pixels each of a frame at rest is averaged along both sides, 1 to 4; 2 at
    ///                first @return 0, or -3
    int SetSmoothing(int factor);
    /// Whether frames show less while the hand moves; at first they do, with as many points as this machine
    /// draws in time, which is measured when it has rested. Else SetMotionDetail is the host's.
    void ReduceWhileMoving(bool reduce);
    /// Whether drags and arrows keep Z upright; at first they do not.
    void KeepUpright(bool upright);

    // ---- Threads

    /// Whether frames that take long are drawn in a thread of the control's, so that this one goes on: then
    /// Draw() tries for some hundredths of a second; after that it asks for a thread, by the event, and gives
    /// the image that there is, drawn as in a movement where something has changed since. At first, and
    /// without the event, Draw() draws every frame, however long it takes.
    ///
    /// As long as a thread draws, members that reach the plotter stop it first, which takes some hundredths
    /// of a second; the frame is due again then. So a host gets the plotter from Plotter() each time that it
    /// comes back from its event loop, and before it changes an array that the plotter reads or lets it go.
    /// Where that has stopped a frame several times in a row and nothing was asked for, it waits until the
    /// frame is drawn. What is drawn by the thread must not call the view. In a host's window nothing
    /// changes, nor on Windows, whose windows belong to threads.
    void SetThreaded(bool threaded);
    /// Draws the frame that the event was about. To be called in any other thread; it returns when the frame
    /// is drawn, or not wanted any more. TakeFrame() is to be called in the view's own thread after that. It
    /// must have returned, or not be called any more, before the view goes.
    void DrawInThread();
    /// Takes the frame that a thread has drawn, where there is one, and asks for the control to be painted.
    void TakeFrame();
    /// Whether a thread draws, or is to.
    bool IsDrawingInThread() const;

    /// Gives the plotter away, for another thread to do with it what takes long, until TakeBack(). Meanwhile
    /// Draw() gives the image that there is and DrawNow() none, Plotter() just names the plotter; sizes,
    /// colours and requests for frames are remembered, and what a hand does has no effect; SetGrid and
    /// SetHeights return -1, and change nothing. One thread at a time may be at the plotter, none when the
    /// view goes, and no context of its may be current in it after that. Not for pictures on Windows, whose
    /// windows belong to threads.
    void Lend();
    /// Ends that, and asks for a frame.
    /// @param isChanged  false: the other thread has only looked, and what is shown is not drawn again
    void TakeBack(bool isChanged = true);
    bool IsLent() const; ///< @return whether it is

    // ---- The hand

    /// Begins a drag: with the left or the right button one that turns the plot, with Ctrl zooms, with Shift
    /// shifts it; with the middle one it shifts it. Flat plots are shifted instead of turned. A drag goes on
    /// outside the control, and another button does not disturb it.
    /// @param flags  MK_SHIFT and MK_CONTROL of KeyState; what else it has is ignored
    void Press(KivoMouseButton button, unsigned int flags, POINT place);
    /// Goes on with a drag; without one, the point under the pointer is traced in trace mode, with the next
    /// frame. Any number of moves between two frames takes one.
    void Move(unsigned int flags, POINT place);
    /// Ends the drag that this button began.
    /// @return whether the pointer has stayed where it was pressed: then a menu of the control's may open
    bool Release(KivoMouseButton button);
    /// Ends a drag without its release: the pointer, or the keyboard, has been taken away.
    void Cancel();
    /// Zooms at a place by a wheel or touchpad, which reports parts of a step, too.
    /// @param delta  turned away from the user, 120 a step
    void Wheel(int delta, POINT place);
    /// Zooms at a place by any factor: a pinch's since its last report.
    /// @param factor  above 0; above 1 the plot grows. Others, and what is no number, do nothing
    void Pinch(double factor, POINT place);
    /// @return whether it did anything
    bool PressKey(KivoViewKey key, unsigned int flags = 0);

    // ---- Drawing

    /// The present frame, drawn if one is due; in a window on the screen it is drawn anew in any case. The
    /// pixels are valid until the next call of a member.
    SKivoPlotImage Draw();
    /// A complete frame of what is shown now, however long it takes; none while the plotter is lent.
    SKivoPlotImage DrawNow();
    /// Whether Draw would draw one.
    bool IsFrameDue() const;
    /// What was asked for by the wake event. At any other time it does no harm. Once for a plot that is slow
    /// to draw it takes up to half a second, while the hand rests, to find out how much to show while it
    /// moves.
    void Wake();

private:
    std::unique_ptr<class PlotViewCore> m_core;
};

} // namespace KivoDrawingTools
