// CKivoFunctionPlotter: an interactive 3-D plot of a surface z = f(x, y) in a window that the host owns.
//
// Contents of the class, in the order of the sources that hold it:
//   Core           lifetime, window hooks, frame driver, plot modes       PlotterCore.cpp
//   View geometry  vector helpers, view volume, camera, screen mapping    PlotterViewGeometry.cpp
//   Surface        data, mesh arrays, frame lines, iso-contours           PlotterSurface.cpp
//   Colour         gradient colours, colour legend                        PlotterColor.cpp
//   Annotation     text, titles, axis settings                            PlotterAnnotation.cpp
//   Overlays       curves, point markers, measure groups                  PlotterOverlays.cpp
// followed by the fields.
//
// Conventions of all members:
// - Every member is called on the thread of the host's window; where that has no screen, by one thread at a
//   time, and by any on Linux. Different plotters are independent.
// - No OpenGL context is current between calls, except where a member says so. A host's own that is current
//   when a member is called is current again afterwards where the window is off-screen or there is none; for
//   a window on the screen none is, and CKeepContext of KivoHost.h keeps it.
// - `int` results: 0 for success; all others, most of them negative codes, are named at the member.
// - Setters store and return; none of them redraws. Call OnDraw() to see their effect.
// - Numbers are taken as they are: a degenerate one yields infinities or not-a-number values, which
//   are passed on.
// - Points and vectors are three floats x, y, z. Matrices are sixteen doubles in OpenGL's column-major order.
// - Colours are four floats red, green, blue, alpha from 0 to 1, or an unsigned long 0x00BBGGRR with
//   red in the low byte, each byte divided by 255 and alpha 1.
// - Nothing is thrown but std::bad_alloc where memory ends, and std::length_error for counts that no memory
//   can hold; the latter changes nothing.
#pragma once

#include "KivoPlatform.h"
#include "KivoTypes.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace KivoDrawingTools {

class CKivoGradientColor;
class CKivoGradientColorRuler;
class CKivoGridBox;
class CKivoMeasurePointGroup;
class CKivoMeasurePointGroupManager;
class ReducedSurface;
struct ContourLabels;
struct GridView;
struct PlacedImage;
struct STextRenderer;
struct SurfaceArrays;
struct SurfaceLayers;

/// The plot. A host makes one object for each plot window, calls OnCreate with the window, hands over its
/// data with SetData or SetDataReference and forwards its messages to the On... members.
class KIVO_API CKivoFunctionPlotter {
public:
    /// A point or vector.
    struct SPoint3f {
        float x; ///< along the X axis
        float y; ///< along the Y axis
        float z; ///< along the Z axis
    };

    // ---------------------------------------------------------------------------------------------------------
    // Core
    // ---------------------------------------------------------------------------------------------------------

    /// Makes a plot without window and data. Touches neither the window system nor OpenGL.
    CKivoFunctionPlotter();

    /// Copies every field as it stands: the copy is a second view of the same window, context, data and
    /// helper objects. Only one of the two may be destroyed or released. What pictures of KivoPicture.h are
    /// drawn with is each one's own.
    CKivoFunctionPlotter(const CKivoFunctionPlotter& other);

    /// Assigns every field as it stands, with the consequences of the copy constructor. What this object
    /// owned before is not freed.
    /// @return this object
    CKivoFunctionPlotter& operator=(const CKivoFunctionPlotter& other);

    /// Releases everything as OnDestroy does, then frees the helper objects.
    virtual ~CKivoFunctionPlotter();

    /// Binds the plot to a window: pixel format, OpenGL context, lights, fonts. It shows the 3-D plot in its
    /// start view, or the one that waits for a window (KivoView.h), out of trace mode, on the background that
    /// ResetBackgroundColor() gives; a pan and mirrored axes of before stay. Text is 10 points high. A plot
    /// that is bound already is released first, as OnDestroy does it, data included, even when binding it to
    /// the new window then fails.
    /// @param hWnd         the host's window, which must live until OnDestroy
    /// @param accelerated  on Windows, true asks for the graphics processor and false for drawing in
    ///                     software; elsewhere the driver decides
    /// @return 0; -1 for a null window, which changes nothing, or when a step of the window system fails.
    ///         Nothing is rolled back then: OnDestroy or the destructor cleans up, and where the bitmap font
    ///         is what failed, the new context is left current. Where KivoWindow.h applies,
    ///         LastWindowError() has the reason, and keeps it when the host draws all the same.
    int OnCreate(HWND hWnd, bool accelerated);

    /// The same, then lays the plot out for a client area of cx x cy pixels, even when the first step failed;
    /// no context is current afterwards.
    int OnCreate(HWND hWnd, int cx, int cy, bool accelerated);

    /// The same with a text size of its own.
    /// @param fontSize  height of titles and labels in points; below 0 that of their lines
    int OnCreate(HWND hWnd, int cx, int cy, int fontSize, bool accelerated);

    /// Gives back the data, the fonts and the OpenGL context, and forgets the traced point. Afterwards the
    /// object may be destroyed or bound to a window again, where titles show once they have been set anew;
    /// measure groups stay, with the names that KivoLegend.h lists and those of KivoPoints.h. Calling it
    /// twice does no harm.
    /// @return 0, or -1 when the OpenGL context could not be deleted; everything else is freed all the same
    int OnDestroy();

    /// Draws a frame: the answer to the host's paint message. The result of Renderscene() is dropped.
    void OnDraw();

    /// Lays the plot out for a new size of the client area and fits the view to it, so that zoom is undone
    /// while rotation and pan stay. The left 16 % of the width become the legend, the rest the plot.
    /// @param type  ignored
    /// @param cx    width of the client area in pixels; sizes of 0 and less make degenerate view volumes and
    ///              draw nothing, and leave no error in OpenGL's queue
    /// @param cy    height of the client area in pixels
    void OnSize(unsigned int type, int cx, int cy);

    /// Selects the text font into its device context again and reads its metrics.
    /// @param font  ignored: the font cannot be changed
    /// @return 0
    int SetFont(void* font);

    /// Draws one frame and presents it.
    /// @return a KivoFrameResult: frameShown, which is 0, or why the frame could not be presented: the
    ///         platform's last error code, or frameUnexplained where it has none
    int Renderscene();

    /// Shows the rotatable 3-D plot in its start view. @return 0
    int SwitchToNormalPlot();
    // In the flat plots texts read from left to right and from bottom to top, whatever is mirrored or
    // reversed. Of tick labels that would touch, every second, fifth, tenth, ... remains.

    /// Shows the flat plot of X to the right and Y up. @return 0
    int SwitchToXYProjectPlot();
    /// Shows the flat plot of Y to the right and Z up. @return 0
    int SwitchToYZProjectPlot();
    /// Shows the flat plot of X to the right and Z up. @return 0
    int SwitchToZXProjectPlot();
    /// @return 0 for the 3-D plot, 1 for XY, 2 for YZ, 3 for XZ
    int GetCurrentPlotType() const;

    /// Mirrors an axis in the present view, or takes the mirroring back; setting the present state does
    /// nothing. The flat plots show it only while they keep the matrix it was set in: entering one starts
    /// unmirrored, so that switching off there what was switched on before mirrors the axis.
    /// @return 0
    int SetInverseXAxis(bool inverse);
    int SetInverseYAxis(bool inverse); ///< as SetInverseXAxis
    int SetInverseZAxis(bool inverse); ///< as SetInverseXAxis

    /// @param autoSwitch  true, at first: the planes behind the surface carry the grid and switch as the view
    ///                    turns; false: they stay at the minimum of each axis, or at the maximum of an
    ///                    inverted one, whatever the view, and the surface hides labels and titles that stand
    ///                    behind it
    void SetAutoSwitchFramePlanes(bool autoSwitch);

    /// Sets the background from the next frame on.
    /// @param r  red, 0 to 1; all are stored unchecked
    /// @param g  green, 0 to 1
    /// @param b  blue, 0 to 1
    /// @param a  alpha, 0 to 1; windows and pictures are opaque whatever it is
    void SetBackgroundColor(float r, float g, float b, float a);
    /// @param color  0x00BBGGRR
    void SetBackgroundColor(unsigned long color);
    /// Goes back to the light cream that the plot starts with: (1, 253/255, 233/255, 1).
    void ResetBackgroundColor();

    /// Shows or hides the frame lines on the surface; shown at first.
    void ShowFrameLines(bool show);
    /// @return whether frame lines are shown
    bool IsShowFrameLines() const;

    /// Shows or hides the iso-contours of an axis in the 3-D plot; hidden at first. A flat plot shows those
    /// of the axis it looks along whatever is set here. @return 0
    int ShowXIsoContours(bool show);
    int ShowYIsoContours(bool show); ///< as ShowXIsoContours
    int ShowZIsoContours(bool show); ///< as ShowXIsoContours
    bool IsShowXIsoContours() const; ///< @return whether the 3-D plot shows contours of equal x
    bool IsShowYIsoContours() const; ///< @return whether the 3-D plot shows contours of equal y
    bool IsShowZIsoContours() const; ///< @return whether the 3-D plot shows contours of equal z

    /// Shows or hides the grid lines on the back planes and in the flat plots; shown at first.
    void ShowGridLines(bool show);
    /// @return whether grid lines are shown
    bool IsShowGridLines() const;

    // ---------------------------------------------------------------------------------------------------------
    // View geometry
    // ---------------------------------------------------------------------------------------------------------

    /// Makes both horizontal axes 1.2 times as long as the Z axis on the screen, whatever their ranges, and
    /// fits the view of the 3-D plot to the grid box. To be called after axis ranges were changed.
    void AutoAdjustAxisLengthRatio();

    /// Does nothing; the left button has no function.
    void OnLButtonDown(unsigned int flags, POINT pt);
    /// Does nothing.
    void OnLButtonUp(unsigned int flags, POINT pt);
    /// Begins a drag when pt lies in the viewport box: 0 to viewport width and height, both ends included.
    /// @param flags  key-state bits MK_... of the mouse message; the same for all mouse members
    /// @param pt     client coordinates in pixels, y downwards
    void OnRButtonDown(unsigned int flags, POINT pt);
    /// Ends the drag when pt lies in the viewport box.
    void OnRButtonUp(unsigned int flags, POINT pt);
    /// Goes on with a drag and draws a frame: MK_CONTROL zooms (before all others), MK_SHIFT pans, without
    /// both the 3-D plot is turned. Without a drag, trace mode traces pt over the 3-D plot and draws a frame.
    /// In all other cases nothing is drawn: outside the viewport box, during a drag without MK_RBUTTON in the
    /// flags, and during one without MK_CONTROL and MK_SHIFT over a flat plot.
    void OnMouseMove(unsigned int flags, POINT pt);
    /// One zoom step for each message, whatever the size of delta, and a frame; nothing outside the viewport.
    /// @param delta  negative: towards the user, the picture shrinks by Zoom(1.04f); otherwise it grows by
    ///               Zoom(0.96f)
    /// @param pt     screen coordinates in pixels, as wheel messages have them
    void OnMouseWheel(unsigned int flags, short delta, POINT pt);

    /// Turns the plot about the screen axis across the way from one client point to the other, by 160 degrees
    /// for the width of the viewport. Without a width it does nothing, nor where the pan, which turns with
    /// the plot, would pass single precision.
    void Rotate(POINT from, POINT to);
    /// Shifts the plot along the way from one client point to the other, at 0.8 of its length. While the
    /// viewport has no width or the view volume no finite one, it does nothing, nor where the pan would pass
    /// single precision. The pan is a length in units of the Z axis, which nothing but another shift undoes:
    /// not OnSize, new data or OnCreate; ResetView of KivoView.h does.
    void Translate(POINT from, POINT to);
    /// Scales the view volume.
    /// @param factor  above 0; below 1 it enlarges the picture. A negative one also turns the picture by 180
    ///                degrees. 0, infinities and not-a-number values leave no usable view: OnSize and the
    ///                switches between plots fit it anew.
    void Zoom(float factor);

    // Trace: the point of the surface under the pointer, in the 3-D plot.

    /// Goes into trace mode or out of it, forgetting the point. In it each mouse move over the 3-D plot
    /// traces and draws a frame. @return 0
    int Trace(bool enable);
    /// @return whether trace mode is on
    bool IsTracing() const;
    /// @param out  receives x, y, z of the traced point in data coordinates
    /// @return whether there is one; without, out is left alone. New data and OnDestroy forget it
    bool GetTracePoint(float* const out);
    /// Finds the nearest point of the surface under a client point; every cell is accounted for.
    /// @return 0, or 1 when there is none; the point is forgotten then
    int Trace(POINT pt);
    /// Forgets the traced point and finds none. @return 1
    int Trace_New(POINT pt);

    // ---------------------------------------------------------------------------------------------------------
    // Surface
    // ---------------------------------------------------------------------------------------------------------

    /// Takes a grid of points over: bounding box, colours, axis ranges and the fitted view follow from it.
    /// Whatever lay over the previous data is released, curves included, and the traced point is forgotten.
    /// Rotation and pan stay, so that a pan over data of a large z range can leave those of a small one
    /// outside the picture. The light is placed anew: for the first data as if nothing turned or moved them,
    /// for others in the view that the plot was last drawn or laid out in; from there it follows neither plot
    /// nor data.
    ///
    /// The point at column c and row r begins at float (c * columnStride + r * rowStride) * components.
    /// Drawing takes the array as packed row by row, so the expected layout is columnStride 1 and rowStride =
    /// columns; with other strides bounds and colours follow the strides, and the surface is drawn from the
    /// packed points. Strides that address fewer floats than the packed points have, so that drawing would
    /// read beyond them, draw no surface. A grid one point wide or high has bounds and colours but no
    /// triangles.
    /// @param points        not null unless columns * rows is 0; from new[], freed with delete[] by the
    ///                      plotter. An array that the plotter owns already may be handed over again,
    ///                      changed, with other counts, and from a later point on: it is kept and read again.
    ///                      One that SetDataReference has lent becomes the plotter's
    /// @param columns       points in a row
    /// @param rows          number of rows
    /// @param columnStride  points from one column to the next
    /// @param rowStride     points from one row to the next
    /// @param components    floats of a point: x, y, z first; a fourth is taken as the homogeneous w. With
    ///                      fewer than three nothing is read or drawn
    /// @return 0
    /// @throws std::length_error  for more than 2^32 - 1 points, or for so many floats from a point to the
    ///                            next: nothing has changed then, and the array is the host's
    /// @throws std::bad_alloc     without memory: the array is the plotter's all the same, and what could not
    ///                            be made of it is left out
    int SetData(float* points, unsigned int columns, unsigned int rows, unsigned int columnStride,
                unsigned int rowStride, unsigned int components);

    /// The same, but the array stays the host's: it must live unchanged until the next data or OnDestroy. One
    /// that the plotter owns already, or a part of it, is kept and read again, and stays the plotter's.
    int SetDataReference(float* points, unsigned int columns, unsigned int rows, unsigned int columnStride,
                         unsigned int rowStride, unsigned int components);

    /// Sets how many cells lie between inner frame lines; the four borders are always drawn. Steps beyond the
    /// grid leave the borders alone; a line next to the far border is left out when it would make a strip
    /// thinner than half a step, rounded down. A step of 0 draws no lines. New data go back to steps of 1.
    /// Without memory for new lines (std::bad_alloc) the old ones stay.
    void SetFrameLineStep(unsigned int columnStep, unsigned int rowStep);
    /// @param color  0x00BBGGRR; black at first
    void SetFrameLineColor(unsigned long color);

    /// Sets the number of contour levels of each axis, 20 at first, and traces the contours anew. A count of
    /// 1 leaves the z contours without a level.
    /// @return 0; -3 for a count of 0, which changes nothing
    /// @throws std::bad_alloc, std::length_error  without memory for the contours: count and contours are as
    ///                                            before
    int SetIsoContourCount(unsigned int count);

    // ---------------------------------------------------------------------------------------------------------
    // Colour
    // ---------------------------------------------------------------------------------------------------------

    // A gradient runs from its start colour at the data's smallest value to its end colour at the largest,
    // through hue, saturation and value. The Z gradient colours the surface, the z contours and their legend,
    // the X and Y gradients colour the x and y contours and the legends of the flat plots. Array arguments
    // are four floats RGBA, null is not allowed; the alpha is not shown: surface, contours and legends are
    // opaque. Replacing one end re-encodes the other, so that its hue can
    // drift by about one degree each time. The X and Y setters leave the plotter's OpenGL context current
    // when they return, unless they put a host's own back.

    /// Sets both ends of all three gradients.
    void SetGradientColor(float const* startRgba, float const* endRgba);
    void SetGradientStartColor(float const* rgba);                           ///< start of all three gradients
    void SetGradientEndColor(float const* rgba);                             ///< end of all three gradients
    void SetGradientColor(unsigned long startColor, unsigned long endColor); ///< both ends, 0x00BBGGRR
    void SetGradientStartColor(unsigned long color);                         ///< start, 0x00BBGGRR
    void SetGradientEndColor(unsigned long color);                           ///< end, 0x00BBGGRR

    /// Sets both ends of the X gradient. The context stays current.
    void SetXGradientColor(float const* startRgba, float const* endRgba);
    void SetXGradientStartColor(float const* rgba);                           ///< the context stays current
    void SetXGradientEndColor(float const* rgba);                             ///< the context stays current
    void SetXGradientColor(unsigned long startColor, unsigned long endColor); ///< the context stays current
    void SetXGradientStartColor(unsigned long color);                         ///< the context stays current
    void SetXGradientEndColor(unsigned long color);                           ///< the context stays current

    /// Sets both ends of the Y gradient. The context stays current.
    void SetYGradientColor(float const* startRgba, float const* endRgba);
    void SetYGradientStartColor(float const* rgba);                           ///< the context stays current
    void SetYGradientEndColor(float const* rgba);                             ///< the context stays current
    void SetYGradientColor(unsigned long startColor, unsigned long endColor); ///< the context stays current
    void SetYGradientStartColor(unsigned long color);                         ///< the context stays current
    void SetYGradientEndColor(unsigned long color);                           ///< the context stays current

    /// Sets both ends of the Z gradient and colours the surface anew.
    void SetZGradientColor(float const* startRgba, float const* endRgba);
    void SetZGradientStartColor(float const* rgba);                           ///< start, and the surface anew
    void SetZGradientEndColor(float const* rgba);                             ///< end, and the surface anew
    void SetZGradientColor(unsigned long startColor, unsigned long endColor); ///< both ends, 0x00BBGGRR
    void SetZGradientStartColor(unsigned long color);                         ///< start, 0x00BBGGRR
    void SetZGradientEndColor(unsigned long color);                           ///< end, 0x00BBGGRR

    /// Sets the digits after the decimal point in the labels of all colour legends, 3 at first.
    /// Numbers wider than the legend's strip are drawn smaller, at 0.6 of their images instead of 0.9 at the
    /// least; what still does not fit reaches into the plot.
    /// @param precision  of use up to the seven significant digits of a float. No limit is applied, but
    /// labels
    ///                   have at most 1000 digits after the point, and those wider than 512 pixels take two
    ///                   lines and are cut off.
    /// @return 0
    int SetGradientColorRuleFloatingPointPrecision(unsigned int precision);
    /// @return the digits after the decimal point in the legends' labels
    unsigned int GetGradientColorRuleFloatingPointPrecision() const;

    // ---------------------------------------------------------------------------------------------------------
    // Annotation
    // ---------------------------------------------------------------------------------------------------------

    // Titles are images of their texts, made when they are set: set them after OnCreate. One set before, be
    // it before OnDestroy and another OnCreate, has its text but is not drawn. Texts are UTF-8 (on Windows:
    // the process's code page), and an ampersand is a character like others; null is not allowed. In a small
    // window an axis title looks for a place beside its own, over lines of the box if need be, and is left
    // out where it would meet another text everywhere.

    /// @return the text, valid until the title changes; empty at first
    const char* GetPlotTitle() const;
    const char* GetXAxisTitle() const; ///< as GetPlotTitle
    const char* GetYAxisTitle() const; ///< as GetPlotTitle
    const char* GetZAxisTitle() const; ///< as GetPlotTitle
    /// Sets the title at the top of the plot. Wider than 512 pixels it takes two lines.
    void SetPlotTitle(const char* title);
    void SetXAxisTitle(const char* title); ///< sets the title along the X axis
    void SetYAxisTitle(const char* title); ///< sets the title along the Y axis
    void SetZAxisTitle(const char* title); ///< sets the title along the Z axis

    /// Makes a text image; the OpenGL context must be current, as it is between BeginGLOperation and
    /// EndGLOperation. What the image held before is freed. Free the image with ReleaseTex.
    /// @param renderer  m_textRenderer
    /// @param text      UTF-8; wider than 512 pixels it takes two lines
    /// @param image     a new image or one made before
    /// @return 0, or -1 when the renderer is null or not initialised, or without memory for the picture
    static int CreateTextImage(STextRenderer* renderer, const char* text, SKivoTexImage* image);

    // Bitmap text, in the plot's 10-point font, one glyph for each byte. The OpenGL context must be current:
    // for derived classes, between BeginGLOperation and EndGLOperation. The position goes through the
    // matrices now loaded.

    /// @param count  bytes of text; the forms without it take the text's length
    void RenderText(float x, float y, float z, const char* text, std::size_t count);
    void RenderText(float x, float y, float z, const char* text);              ///< the whole text
    void RenderFarText(float x, float y, const char* text, std::size_t count); ///< at z = 0.99
    void RenderFarText(float x, float y, const char* text); ///< at z = 0.99, the whole text
    void RenderNearText(float x, float y, const char* text, std::size_t count); ///< at z = 0
    void RenderNearText(float x, float y, const char* text);                    ///< at z = 0, the whole text

    // Axis settings. New data choose range, tick count and precision anew. The view is not fitted again by
    // these: AutoAdjustAxisLengthRatio does that. Precisions have the limits of the legends' precision.

    float GetXAxisMin() const; ///< @return the first tick value of the X axis
    float GetYAxisMin() const; ///< @return the first tick value of the Y axis
    float GetZAxisMin() const; ///< @return the first tick value of the Z axis
    float GetXAxisMax() const; ///< @return the last tick value of the X axis
    float GetYAxisMax() const; ///< @return the last tick value of the Y axis
    float GetZAxisMax() const; ///< @return the last tick value of the Z axis

    /// Sets the first tick value; the number of ticks and the precision are kept. It may exceed the last one:
    /// from the next fit on that axis then runs the other way, or, for the Z axis, both others do.
    /// @return 0
    int SetXAxisMin(float value);
    int SetYAxisMin(float value); ///< as SetXAxisMin
    int SetZAxisMin(float value); ///< as SetXAxisMin
    int SetXAxisMax(float value); ///< sets the last tick value, as SetXAxisMin
    int SetYAxisMax(float value); ///< sets the last tick value, as SetXAxisMin
    int SetZAxisMax(float value); ///< sets the last tick value, as SetXAxisMin

    unsigned int GetXAxisTickMarkNumber() const; ///< @return the number of ticks of the X axis
    unsigned int GetYAxisTickMarkNumber() const; ///< @return the number of ticks of the Y axis
    unsigned int GetZAxisTickMarkNumber() const; ///< @return the number of ticks of the Z axis

    /// Divides the axis range evenly. Counts below 2 make no axis: with 1 the step is infinite, 0 takes all
    /// ticks away. Of more than 1000 ticks only every second, fifth, tenth, ... has a label.
    /// @param count  at least 2
    /// @return 0
    int SetXAxisTickMarkNumber(unsigned int count);
    int SetYAxisTickMarkNumber(unsigned int count); ///< as SetXAxisTickMarkNumber
    int SetZAxisTickMarkNumber(unsigned int count); ///< as SetXAxisTickMarkNumber

    unsigned int GetXAxisFloatingPointPrecision() const; ///< @return digits after the point in X labels
    unsigned int GetYAxisFloatingPointPrecision() const; ///< @return digits after the point in Y labels
    unsigned int GetZAxisFloatingPointPrecision() const; ///< @return digits after the point in Z labels
    int SetXAxisFloatingPointPrecision(unsigned int precision); ///< sets the digits of X labels @return 0
    int SetYAxisFloatingPointPrecision(unsigned int precision); ///< sets the digits of Y labels @return 0
    int SetZAxisFloatingPointPrecision(unsigned int precision); ///< sets the digits of Z labels @return 0

    // ---------------------------------------------------------------------------------------------------------
    // Overlays
    // ---------------------------------------------------------------------------------------------------------

    // Curves lie over one data set: new data remove them.

    /// Adds a polyline with a ball at every point: red, one pixel wide, visible. The points are copied.
    /// @param points          pointCount * floatsPerPoint floats
    /// @param floatsPerPoint  the first three are x, y, z; those that are missing are 0
    /// @return the curve's index, from 0; -3 for a null pointer or a count of 0
    /// @throws std::bad_alloc, std::length_error  without memory for the points: there is no such curve then
    int AddCurveData(float* points, unsigned int pointCount, unsigned int floatsPerPoint);
    int SetCurveColor(int index, unsigned long color); ///< 0x00BBGGRR @return 0; -2 for a bad index
    int SetCurveVisibility(int index, bool visible);   ///< line and balls @return 0; -2 for a bad index
    /// @param width  of the line in pixels, above 0; with 0 and less, or no number, the line has the width 1
    /// @return 0; -2 for a bad index
    int SetCurveWidth(int index, float width);

    /// @return the radius of point markers in whole pixels
    unsigned int GetPointRadiusPixelSize() const;
    /// Sets the radius of point markers, 4 pixels at first; curves have balls of 0.7 of it. @return 0
    int SetPointRadiusPixelSize(unsigned int pixels);

    // Measure groups: named, coloured sets of points, drawn as balls in the 3-D plot. An index is the order
    // of adding.

    /// Adds a group in the next of ten colours. The array stays the host's: it is neither copied nor freed,
    /// and it must live as long as the plotter. A changed array shows in the next frame.
    /// @param points          pointCount * floatsPerPoint floats
    /// @param floatsPerPoint  the first three are x, y, z; those that are missing are 0
    /// @param name            UTF-8, not null; its image is made now, or without a window, as soon as there
    ///                        is one where names are listed (KivoLegend.h)
    /// @return 0; -3 for a null pointer or a count of 0
    /// @throws std::length_error  for more floats than memory has addresses for: there is no such group then
    int AddMeasurePoints(unsigned int pointCount, unsigned int floatsPerPoint, float* points,
                         const char* name);
    /// The same as AddMeasurePoints.
    int AddReferenceMeasurePoints(unsigned int pointCount, unsigned int floatsPerPoint, float* points,
                                  const char* name);
    unsigned int GetNumMeasureGroups();                   ///< @return the number of groups
    unsigned int GetMeasureGroupSize(unsigned int index); ///< @return the number of points; 0 for a bad index
    int ShowMeasureGroup(unsigned int index, bool show);  ///< @return 0; -2 for a bad index
    bool IsShowMeasureGroup(unsigned int index); ///< @return whether it is shown; false for a bad index
    int ShowAllMeasureGroups(bool show);         ///< @return 0
    /// @return 0x00BBGGRR, each channel's 255ths truncated; 0 for a bad index
    unsigned long GetMeasureGroupColor(unsigned int index);
    /// @param color  0x00BBGGRR @return 0; -2 for a bad index
    int SetMeasureGroupColor(unsigned int index, unsigned long color);
    /// @param name  receives the name; not null @return 0; -2 for a bad index
    int GetMeasureGroupName(unsigned int index, std::string* name);
    /// @param name  as in AddMeasurePoints @return 0; -2 for a bad index
    int SetMeasureGroupName(unsigned int index, const char* name);
    /// @return the index of the first group of exactly this name; -1 when there is none
    int GetMeasureGroupIndexByName(std::string name);

protected:
    // ---------------------------------------------------------------------------------------------------------
    // Core
    // ---------------------------------------------------------------------------------------------------------

    /// A hook for derived classes, second in the virtual table. The plotter never calls it.
    /// @return 0
    virtual int InitCustomized();

    /// Sets material and lights with the context current; Init calls it through the virtual table, so that a
    /// derived class can light the surface in its own way.
    /// @return 0
    virtual int InitLighting();

    /// What OnCreate does.
    /// @return 0 or -1. When the font lists fail, the context stays current.
    int Init(HWND hWnd, int fontSize, bool accelerated);

    /// Chooses and sets the pixel format: 32-bit RGBA, double-buffered, 32-bit depth, 8-bit stencil, 64-bit
    /// accumulation, or the nearest that the system has.
    /// @return 0 or -1
    int SetDCPixelFormat(HDC hdc, bool accelerated);

    /// Builds the 256 display lists of the bitmap font. The context must be current.
    /// @return 0, or -1 without device context or context, or when the window system could not fill the lists
    int InitFont();

    /// Makes the plotter's context current for OpenGL calls of a derived class; EndGLOperation unbinds it.
    void BeginGLOperation();
    /// Ends what BeginGLOperation began: no context is current afterwards, or off-screen a host's own again
    /// that the outermost of nested pairs has replaced.
    void EndGLOperation();

    /// What OnSize does.
    void Reshape(int cx, int cy);

    /// Sets both viewports to shares of a rectangle in window pixels: 16 % legend on the left, 84 % plot,
    /// truncated; the plot begins at most at the largest int. The plotter itself does not call it.
    void UpdateViewport(int x, int y, int width, int height);

    /// Places both lights around the data box and keeps the second one off. Where the view has no finite
    /// numbers, as before the first data, they are placed as if nothing turned or moved it.
    void UpdateLightsPosition();

    /// Draws the frame of the active plot type into the back buffer; the context must be current.
    void DrawScene();
    /// Draws the 3-D plot.
    void DrawNormalPlot();
    /// Draws the flat plot of the active plot type.
    void DrawProjectionPlot();
    /// Draws the six lines that cross at the traced point's projections onto the back planes.
    void RenderTraceGuideLines();

    /// Frees an image's texture and pixels and sets its width to 0. The context must be current.
    /// @return 0
    static int ReleaseTex(SKivoTexImage* image);
    /// Frees the contours and the contour texture.
    /// @return 0
    int ReleaseIsoContour();
    /// Frees everything that depends on the data: arrays, labels, contours, curves, and the points unless
    /// they are the host's. The traced point is forgotten.
    /// @return 0
    int ReleaseDataRelativeResource();
    /// What OnDestroy does.
    /// @return 0, or -1 when the OpenGL context could not be deleted
    int Release();

    // ---------------------------------------------------------------------------------------------------------
    // View geometry
    // ---------------------------------------------------------------------------------------------------------

    // Vector and matrix routines. Outputs must not share storage with inputs unless said. Nothing is checked:
    // a division by a zero length gives infinities or not-a-number values.

    /// out[4i + j] = sum over k of a[4i + k] * b[4k + j]: in OpenGL's reading, a applied first, then b.
    static void MatrixMultiply(double* out, const double* a, const double* b);
    /// Copies sixteen elements.
    static void MatrixCopy(double* dst, const double* src);
    /// out[j] = sum over k of v[k] * m[4k + j]: four elements transformed, translation included.
    static void VectorMatrixMultiply(double* out, const double* v, const double* m);
    /// Three elements transformed by the upper left 3 x 3 block: no translation, no w.
    static void VectorMatrixMultiply3(double* out, const double* v, const double* m);
    /// out = s * v
    static void ScalarVectorMultiply3(float* out, float s, const float* v);
    /// dst = src
    static void VectorAssign3(float* dst, const float* src);
    /// out = a + b
    static void VectorOffset3(float* out, const float* a, const float* b);
    /// a += b
    static void VectorOffset3(float* a, const float* b);
    /// Length of a - b, in single precision.
    static float Distance(const float* a, const float* b);
    /// Length of a - b, in double precision.
    static double Distance(const double* a, const double* b);
    /// out = the unit direction from one point to the other.
    static void NormalVector(const float* from, const float* to, float* out);
    /// The value at x of the line through (x0, y0) and (x1, y1).
    static float Interpolate(float x, float x0, float x1, float y0, float y1);
    /// The same in double precision.
    static double Interpolate(double x, double x0, double x1, double y0, double y1);
    /// out = the unit vector of (p1 - p0) x (p2 - p0).
    static void CalNormal(const float* p0, const float* p1, const float* p2, float* out);
    /// Intersects a line with the plane through three points.
    /// @param dir  direction of the line, of any length
    /// @param hit  receives origin + t * dir
    /// @return t, in units of dir
    static float IntersectPlane(const float* origin, const float* dir, const float* p0, const float* p1,
                                const float* p2, float* hit);
    /// The same, and whether the hit lies in the triangle, edges and corners included. An edge test without a
    /// number (a hit right on a corner, a degenerate triangle) does not reject.
    static float IntersectPlane(const float* origin, const float* dir, const float* p0, const float* p1,
                                const float* p2, float* hit, bool* inside);
    /// a . b, each component widened to double first.
    static double DotProduct(const float* a, const float* b);

    // Camera: an orthographic view volume, and the model-view matrix pan * rotation * axis scale *
    // translation. The context must be current for those that load a matrix.

    /// Loads viewport and projection.
    void ApplyViewVolume();
    /// Loads the model-view matrix: a data point p comes to pan + R * (S * (p + t)).
    void ApplyModelViewMatrix();
    /// Negates the columns of the rotation that belong to inverted axes; loads nothing.
    void _ApplyInverseAxisToModelViewMatrix();
    /// Puts a data point at the centre of the view.
    void SetVolumeCenter(float x, float y, float z);
    /// Shifts the picture by view-volume units: dx to the right, dy + dz up.
    void IncreaseTranslation(float dx, float dy, float dz);
    /// Turns the picture about a screen axis through the origin, after all turns so far. The axis is divided
    /// by sqrt(x^2 + y^2 + z^2 + 1), so that short axes turn by slightly less and shrink the picture a
    /// little.
    /// @param angle  in degrees
    void IncreaseRotation(float angle, float x, float y, float z);
    /// Multiplies left, right, bottom and top of the view volume by 1 / factor and loads it.
    void IncreaseZooming(float factor);
    /// Moves left, right, bottom and top of the view volume inwards by d; loads nothing.
    void IncreaseScale(float d);
    /// Fits axis scale, view volume and centre to the grid box for the 3-D plot, and loads the view volume.
    void UpdateBoundingBoxToViewVolume();
    /// Fits view volume and centre for a flat plot, keeping the axis scale, and loads the view volume.
    void UpdateXYBoundingBoxToViewVolume();
    void UpdateYZBoundingBoxToViewVolume(); ///< as UpdateXYBoundingBoxToViewVolume
    void UpdateXZBoundingBoxToViewVolume(); ///< as UpdateXYBoundingBoxToViewVolume
    /// Takes a new data box: gradients, legends, lights, grid box and view volumes follow. Tracing relies on
    /// it to hold all points.
    /// @param min  smallest x, y, z
    /// @param max  largest x, y, z
    void UpdateBoundingBoxToViewVolume(float* const min, float* const max);
    /// Fits the legend's view volume to its viewport.
    void UpdateLegendViewVolume();

    // Fixed orientations. Each writes the 3 x 3 block of the rotation, applies inverted axes and loads the
    // model-view matrix; the pan in elements 12 and 13 stays.
    void ApplyFrontView();  ///< Y to the right, Z up
    void ApplyBackView();   ///< Y to the left, Z up
    void ApplyTopView();    ///< Y to the right, X down
    void ApplyBottomView(); ///< Y to the right, X up
    void ApplyLeftView();   ///< X to the left, Z up
    void ApplyRightView();  ///< X to the right, Z up
    void ApplyIsoView();    ///< X to the lower left, Y to the lower right, Z up

    // Start views of the plot types: fit, orient, load. Only the 3-D plot applies inverted axes.
    void ApplyNormalPlotView(); ///< the iso view, its top tilted away from the viewer by 10 degrees
    void ApplyXYPlotView();     ///< X to the right, Y up
    void ApplyYZPlotView();     ///< Y to the right, Z up
    void ApplyXZPlotView();     ///< X to the right, Z up

    /// Zooms by a vertical drag: down enlarges, up shrinks; a full viewport height up makes the bounds
    /// infinite.
    void Zoom(POINT from, POINT to);

    /// Window coordinates of a data point under the matrices now loaded.
    /// @param out  receives x, y (pixels, y upwards) and depth
    void Project(float x, float y, float z, float* const out);
    /// The same for many points; out is resized to the size of in.
    void Project(const std::vector<SPoint3f>& in, std::vector<SPoint3f>& out);
    /// The line of sight through a client point, as two points in data coordinates: at window depth -1,
    /// before the near plane, and at 1, the far plane. Loads the camera first.
    void UnProject(POINT pt, float* const nearPt, float* const farPt);
    /// Client coordinates to pixels from the viewport's lower edge, y upwards.
    void WindowToViewport(POINT pt, double* x, double* y);
    float PixelToWorld(int n);            ///< a length in pixels as a length in view-volume units
    float PixelToWorld(float n);          ///< a length in pixels as a length in view-volume units
    double PixelToWorld(double n);        ///< a length in pixels as a length in view-volume units
    float PixelToUnscaledWorldX(float n); ///< a length in pixels as a length in units of the X axis
    float PixelToUnscaledWorldY(float n); ///< a length in pixels as a length in units of the Y axis
    float PixelToUnscaledWorldZ(float n); ///< a length in pixels as a length in units of the Z axis

    // Point tests, all bounds included. The viewport tests measure from the window's left edge, and screen
    // points from its bottom edge, without regard to the viewport's own offset.
    bool IsScreenPointInWindow(POINT pt);   ///< pt in screen coordinates, against the window's rectangle
    bool IsClientPointInWindow(POINT pt);   ///< pt in client coordinates, against the client rectangle
    bool IsScreenPointInViewport(POINT pt); ///< pt in screen coordinates
    bool IsClientPointInViewport(POINT pt); ///< pt in client coordinates

    /// Forgets the traced point.
    /// @return whether the infinite line through two points meets the data box
    bool IsIntersectWithBoundingBox(const float* const nearPt, const float* const farPt);
    /// Does nothing. @return false
    bool SelectTriangle(POINT pt, float* a, float* b, float* c);
    /// Draws the marker of the traced point.
    void RenderTracePoints();
    /// Writes the coordinates of the traced point into the lower left corner of the plot; the image is made
    /// anew at each call.
    void RenderTraceLegend();

    // ---------------------------------------------------------------------------------------------------------
    // Surface
    // ---------------------------------------------------------------------------------------------------------

    /// Colours of all points from the Z gradient, row by row, into m_colorArray.
    void AssignColorData();
    /// Texture coordinates (c / (columns - 1), r / (rows - 1)) of all points into m_texcoordArray.
    void AssignTexcoordData();
    /// Two triangles for each cell, split from (c, r) to (c + 1, r + 1), into m_indexArray.
    void AssignIndexData();
    /// Averaged normals, (0, 0, 1) on the border, into m_normalArray, addressed like the points. Not used for
    /// drawing.
    void AssignNormalData();
    /// Does nothing.
    void AssignPositionData();
    /// Draws frame lines and surface; the context must be current and lighting on.
    void RenderSurface();

    /// Frame lines at every grid line.
    void AssignFramelineIndexData();
    /// Rebuilds the list of frame lines; a step of 0, or a grid without cells, leaves it empty.
    void AssignFramelineIndexData(unsigned int columnStep, unsigned int rowStep);
    /// Draws a 20 x 20 grid of 400 x 400 pixels into the back buffer, over what it holds, and reads it back
    /// into m_framelineTexels. Viewport and clear colour are as before afterwards, lighting is on; the
    /// context must be current.
    void CreateFramelineSKivoTexImage();

    /// Traces the contours of all axes; nothing without data. The context must be current.
    void CreateIsoContourData();
    void AssignFlatZIsoContourData(); ///< traces contours of z and lays them on the plane z = 0
    void AssignFlatXIsoContourData(); ///< traces contours of x and lays them on the plane x = 0
    void AssignFlatYIsoContourData(); ///< traces contours of y and lays them on the plane y = 0
    void RenderFlatXIsoContour();     ///< draws them on the YZ back plane, in the X gradient's colours
    void RenderFlatYIsoContour();     ///< draws them on the XZ back plane, in the Y gradient's colours
    void RenderFlatZIsoContour();     ///< draws them on the XY back plane, in the Z gradient's colours
    /// Draws contours of the last coordinate on the surface itself, in the current colour, traced at each
    /// call; lighting is on afterwards. The plotter itself does not call it.
    void RenderIsoContour();
    /// Draws the contours of the last coordinate as a picture of 400 x 400 pixels, seen from above, into the
    /// back buffer, over what it holds, and reads it back into m_isoContourTexels. Viewport and clear colour
    /// are as before afterwards, lighting is on and lines are one pixel wide; the context must be current.
    void CreateIsoContourSKivoTexImage();

    // ---------------------------------------------------------------------------------------------------------
    // Annotation
    // ---------------------------------------------------------------------------------------------------------

    /// Draws an image on the quad p0 (lower left), p1, p2, p3, three floats each. The image is uploaded at
    /// each call; lighting is on afterwards, blending and texturing off. An image without texture or pixels
    /// draws nothing.
    void RenderTextTex(const float* p0, const float* p1, const float* p2, const float* p3,
                       const SKivoTexImage* image);
    /// Draws the plot title at the top edge of the plot, an image pixel for a screen pixel.
    void RenderPlotName();
    /// Bitmap text in model space; it stands at the current raster position.
    void Render3DText(float x, float y, float z, const char* text, std::size_t count);

    // ---------------------------------------------------------------------------------------------------------
    // Overlays
    // ---------------------------------------------------------------------------------------------------------

    /// Draws the visible curves; lighting is on afterwards.
    void RenderCurves();
    /// Draws the points of the visible groups, lit as the caller has it.
    void RenderMeasurePoints();
    /// Lists the groups' names and colours in the upper right corner of the plot. For derived classes: the
    /// plotter itself does not call it. Lighting is as the caller has it afterwards.
    void RenderLegend();

    // ---------------------------------------------------------------------------------------------------------
    // Fields
    // ---------------------------------------------------------------------------------------------------------

    // Window and OpenGL context
    HWND m_hWnd = nullptr;   ///< the host's window; stays after OnDestroy
    HDC m_hDC = nullptr;     ///< what the window is drawn through
    HGLRC m_hGLRC = nullptr; ///< the plotter's OpenGL context, owned

    // Mouse state
    bool m_mouseButtonDown = false; ///< whether a drag goes on
    int m_lastMouseX = 0;           ///< client pixels
    int m_lastMouseY = 0;           ///< client pixels, y downwards

    int m_plotType = 0; ///< 0 normal, 1 XY, 2 YZ, 3 XZ

    // Viewports in window pixels: x, y, width, height
    int m_clientHeight = 0; ///< of the window in pixels: turns client positions, y downwards, upside down
    int m_plotViewport[4] = {0, 0, 0, 1}; ///< of the plot

    // Plot view volume, from the centre of the view, in data units times m_axisScale: units of the Z axis
    double m_viewLeft = 0.0;   ///< left bound
    double m_viewRight = 0.0;  ///< right bound
    double m_viewBottom = 0.0; ///< lower bound
    double m_viewTop = 0.0;    ///< upper bound
    double m_viewNear = 0.0;   ///< distance of the near plane
    double m_viewFar = 0.0;    ///< distance of the far plane

    // Legend viewport, and its volume: left, right, bottom, top, near, far
    int m_legendViewport[4] = {0, 0, 0, 1}; ///< x, y, width, height in window pixels
    double m_legendViewVolume[6] = {};      ///< left, right, bottom, top, near, far

    // Model-view
    double m_panFractionX = 0.055;  ///< of the view volume's width
    double m_panFractionY = -0.025; ///< of its height
    double m_rotationMatrix[16] = {1, 0, 0, 0, 0, 1, 0, 0,
                                   0, 0, 1, 0, 0, 0, 0, 1}; ///< 12 and 13: the user's pan
    double m_volumeTranslate[3] = {0, 0, 0};                ///< minus the point at the centre of the view
    double m_axisScale[3] = {1, 1, 1};                      ///< view-volume units in a data unit of X, Y, Z

    // Colour maps and legends, owned
    CKivoGradientColor* m_zGradientColor = nullptr;   ///< of the surface
    CKivoGradientColor* m_xGradientColor = nullptr;   ///< of the contours of equal x
    CKivoGradientColor* m_yGradientColor = nullptr;   ///< of the contours of equal y
    CKivoGradientColorRuler* m_zColorRuler = nullptr; ///< legend of the 3-D and the XY plot
    CKivoGradientColorRuler* m_xColorRuler = nullptr; ///< legend of the YZ plot
    CKivoGradientColorRuler* m_yColorRuler = nullptr; ///< legend of the XZ plot

    // Background, RGBA
    /// What ResetBackgroundColor() gives.
    float m_defaultBackgroundColor[4] = {1.0f, 253.0f / 255.0f, 233.0f / 255.0f, 1.0f};
    float m_backgroundColor[4] = {}; ///< of the next frame

    // Data bounds
    float m_boundingBoxMin[3] = {}; ///< smallest x, y, z
    float m_boundingBoxMax[3] = {}; ///< largest x, y, z

    /// Fitted half sizes: width, height, depth.
    float m_viewVolumeFactor[3] = {1.01f, 1.01f, viewDepthFactor};

    CKivoGridBox* m_gridBox = nullptr; ///< owned

    // Vertex arrays, from new[]
    float* m_colorArray = nullptr;                 ///< 4 a point, row by row
    float* m_normalArray = nullptr;                ///< 3 a point, addressed like the points
    float* m_texcoordArray = nullptr;              ///< 2 a point, row by row
    unsigned int* m_indexArray = nullptr;          ///< 3 a triangle: m_indexCount numbers of points
    unsigned int* m_framelineIndexArray = nullptr; ///< 2 a segment: m_framelineIndexCount numbers of points

    unsigned int m_fontListBase = 0; ///< first of 256 display lists

    STextRenderer* m_textRenderer = nullptr; ///< owned

    // Titles
    std::string m_plotTitle;                   ///< as SetPlotTitle was given it
    std::string m_xAxisTitle;                  ///< as SetXAxisTitle was given it
    std::string m_yAxisTitle;                  ///< as SetYAxisTitle was given it
    std::string m_zAxisTitle;                  ///< as SetZAxisTitle was given it
    SKivoTexImage* m_plotTitleImage = nullptr; ///< owned

    // Iso-contour texture
    unsigned int m_isoContourTexId = 0;          ///< OpenGL texture name
    int m_isoContourTexWidth = 0;                ///< in pixels: 400 once it has been made
    int m_isoContourTexHeight = 0;               ///< in pixels: 400 once it has been made
    unsigned char* m_isoContourTexels = nullptr; ///< RGBA bytes, bottom row first; from new[]

    // Iso-contour settings
    bool m_useIsoContourTexture = false; ///< contours of equal z as a picture, not as lines
    unsigned int m_isoContourCount = 20; ///< levels an axis

    // Contours laid flat on a coordinate plane, a record for each level that has any
    std::vector<SKivoIsoContour> m_flatZIsoContours; ///< on the plane z = 0
    std::vector<SKivoIsoContour> m_flatXIsoContours; ///< on the plane x = 0
    std::vector<SKivoIsoContour> m_flatYIsoContours; ///< on the plane y = 0

    // Frame-line texture
    unsigned int m_framelineTexId = 0;          ///< OpenGL texture name
    int m_framelineTexWidth = 0;                ///< in pixels: 400 once it has been made
    int m_framelineTexHeight = 0;               ///< in pixels: 400 once it has been made
    unsigned char* m_framelineTexels = nullptr; ///< RGBA bytes, bottom row first; from new[]

    // Drawing flags
    bool m_useFramelineTexture = false; ///< frame lines as a picture, not as lines
    bool m_showFrameLines = true;       ///< as ShowFrameLines was told
    bool m_showXIsoContours = false;    ///< in the 3-D plot
    bool m_showYIsoContours = false;    ///< in the 3-D plot
    bool m_showZIsoContours = false;    ///< in the 3-D plot

    // Surface data
    float* m_points = nullptr;         ///< m_componentCount floats a point; null without data
    bool m_isDataReference = false;    ///< the points are the host's
    unsigned int m_columnCount = 0;    ///< points in a row
    unsigned int m_rowCount = 0;       ///< rows of points
    unsigned int m_vertexCount = 0;    ///< points in all
    unsigned int m_indexCount = 0;     ///< entries of m_indexArray, of more than 32 bits the lower ones
    unsigned int m_columnStride = 0;   ///< in floats
    unsigned int m_rowStride = 0;      ///< in floats
    unsigned int m_componentCount = 0; ///< floats of a point

    // Curves, one entry of each for a curve
    std::list<std::vector<float>> m_curveData;    ///< points, as many floats each as were given
    std::vector<unsigned int> m_curvePointCounts; ///< number of points
    std::vector<bool> m_curveVisible;             ///< whether it is drawn
    std::vector<SKivoColor> m_curveColors;        ///< RGBA
    std::vector<float> m_curveWidths;             ///< of the line in pixels

    // Frame lines
    int m_framelineIndexCount = 0; ///< entries of m_framelineIndexArray, of more than 32 bits the lower ones
    float m_framelineColor[4] = {0, 0, 0, 1}; ///< RGBA

    // Trace
    bool m_traceEnabled = false; ///< whether mouse moves trace
    int m_hasTracePoint = 0;     ///< 1 when m_tracePoint holds a hit
    float m_tracePoint[3] = {};  ///< in data coordinates

    float m_pointRadiusPixelSize = 4.0f; ///< radius of point markers in pixels

    CKivoMeasurePointGroupManager* m_measureGroups = nullptr; ///< owned

    // Inverse axes; the grid box reads them through pointers
    bool m_inverseXAxis = false; ///< whether x is mirrored
    bool m_inverseYAxis = false; ///< whether y is mirrored
    bool m_inverseZAxis = false; ///< whether z is mirrored

private:
    friend struct AxisAccess;    // box and legends, for KivoAxis.h
    friend struct MotionAccess;  // the fields of KivoMotion.h, and frames of less detail
    friend struct PictureAccess; // draws without presenting, for KivoPicture.h
    friend struct StyleAccess;   // the context, for KivoStyle.h
    friend struct SurfaceAccess; // the surfaces of KivoSurfaces.h, and how all are drawn
    friend class TextSet;        // the style, and the fonts and images that are made for it
    friend struct ViewAccess;    // saves and restores what a view consists of

    friend struct ContourAccess; // levels, and what fills between them, for KivoContours.h
    friend struct PointAccess;   // curves and groups, for KivoPoints.h
    friend struct ScreenTexts;   // how data lie on the screen, for texts at places of them

    friend struct ColorMapAccess; // the gradients and what shows them, for KivoColorMap.h
    friend struct LegendAccess;   // the legends, and the fields of KivoLegend.h

    struct SOwnedArray {
        float* start;        // from new[]
        std::size_t floats;  // that it has at least
        const float* points; // m_points when this was noted
    };

    std::size_t m_colorArraySize = 0;     // floats that m_colorArray had room for when it was made
    std::size_t m_indexArraySize = 0;     // of which m_indexCount has the lower bits
    std::size_t m_framelineArraySize = 0; // of which m_framelineIndexCount has the lower bits
    SOwnedArray m_ownedArray = {};        // what the points lie in, unless a derived class has replaced them

    // Of KivoStyle.h
    float m_pixelScale = 1.0f;
    unsigned long m_inkColor = 0;
    std::string m_textFace;
    bool m_boldText = true;

    // Of KivoPicture.h
    struct SOwnPictureStore { // owned: what pictures are drawn with. Copies of a plotter have their own.
        SOwnPictureStore() = default;
        SOwnPictureStore(const SOwnPictureStore&) {}
        SOwnPictureStore& operator=(const SOwnPictureStore&) { return *this; }

        struct SPictureStore* store = nullptr;
    };
    SOwnPictureStore m_pictures;
    const float* m_pictureGround = nullptr; // RGBA that the present picture has behind it
    // Of KivoMotion.h
    unsigned int m_motionDetail = 0;                  // most points a side of frames that move; 0: all
    unsigned int m_detailOfDrag = 0;                  // what it was when the drag began
    unsigned int m_detailOfFrame = 0;                 // of the one being drawn
    bool m_isFrameReduced = false;                    // the one drawn last
    bool m_isDetailReduced = false;                   // of the one presented last
    std::shared_ptr<ReducedSurface> m_reducedSurface; // for these data; null before it is needed
    bool m_hasReducedValues = false;                  // it holds what the arrays held at the last full frame
    unsigned int m_requestedDetail = 0;               // of the frame that has been asked for
    void (*m_redrawRequest)(void*) = nullptr;         // called instead of drawing; null: drawn
    void* m_redrawContext = nullptr;                  // what it is called with
    unsigned int m_frameLineStep[2] = {0, 0};         // of m_framelineIndexArray
    const float* m_pointsWithoutHoles = nullptr;      // m_points where no number is missing among them
    // Of KivoSurfaces.h
    class SOwnSurfaceLayers { // copies of a plotter have their own
    public:
        SOwnSurfaceLayers();
        SOwnSurfaceLayers(const SOwnSurfaceLayers& other);
        SOwnSurfaceLayers& operator=(const SOwnSurfaceLayers& other);
        ~SOwnSurfaceLayers();

        std::unique_ptr<SurfaceLayers> layers; // null before something is asked for
    };
    SOwnSurfaceLayers m_surfaces;
    bool m_areLayersReduced = false; // in the frame drawn last
    bool m_isCutToAxis[3] = {};      // what lies beyond the range of an axis is left out

    // Of KivoAxis.h; what numbers stand for is with box and legends
    std::shared_ptr<const struct STraceWords> m_traceWords; // the read-out in the host's words; null without

    // Of KivoLegend.h
    bool m_hasGroupNames = false;    // whether frames list the groups that are shown
    bool m_hasFittedReadOut = false; // whether the traced point has the digits of its axes' ranges
    // Of KivoView.h: what waits for a window and data
    double m_awaitedPan[2] = {};
    double m_awaitedZoom = 0.0; // 0: nothing does

    // Of KivoContours.h
    double m_contourInterval[3] = {}; // between levels; 0: as many levels as are set
    double m_contourBase[3] = {};     // one of the levels
    bool m_areContoursFilled = false; // in the XY plot
    class SOwnContourLabels {         // copies of a plotter have their own
    public:
        SOwnContourLabels();
        SOwnContourLabels(const SOwnContourLabels& other);
        SOwnContourLabels& operator=(const SOwnContourLabels& other);
        ~SOwnContourLabels();

        std::unique_ptr<ContourLabels> labels; // null while they are not asked for
    };
    SOwnContourLabels m_contourLabels;

    // Of KivoPoints.h
    bool m_arePointsFlat = false; // they are shown in flat plots

    void InitTexts(int fontSize);
    static void DeleteFontLists(unsigned int base);
    void ShadeOfInk(float groundShare, float* rgba) const;
    void StyleGridBox() const;
    void InitRuler(CKivoGradientColorRuler* ruler, CKivoGradientColor* gradient);
    void ForgetNameTextures();
    void ApplyStartView();
    bool DrawSmoothFrame();
    void ClearFrame();
    int SetInverseAxis(int axis, bool& current, bool inverse);
    void FitView(int plotType);
    void ScaleView(double scale);
    void TurnMatrix(float angle, float x, float y, float z, double* turned) const;
    void SetRotationBlock(const double* x, const double* y, const double* z);
    void ApplyOrientation(const double* x, const double* y, const double* z);
    int TakeData(float* points, bool isReference, const unsigned int* counts, const unsigned int* strides,
                 unsigned int components);
    void ReleaseWhatFollowsFromData();
    SOwnedArray OwnedArray() const;
    static bool IsInside(const SOwnedArray& array, const float* points);
    void ReleasePoints();
    std::uint64_t AddressedFloats() const;
    bool HasReadablePoints() const;
    bool HasDrawablePoints() const;
    bool ArePointsPacked() const;
    void UploadFramelineTexture(const float* texcoords) const;
    SurfaceArrays WholeSurface() const;
    bool ReduceSurface();
    void DrawSurface(const SurfaceArrays& surface);
    void ShowMoved(unsigned int detail);
    struct SContourPicture;
    SContourPicture TraceContourPicture(unsigned int count) const;
    void DrawContourPicture(SContourPicture& picture);
    std::vector<float> FlatContourLevels(int axis, unsigned int count) const;
    void AssignFlatContours(std::vector<SKivoIsoContour>& contours, int axis, unsigned int count);
    void RenderFlatPoints();
    void RenderCurveLines();
    void RenderCurveMarkers();
    void RenderFlatContours(const std::vector<SKivoIsoContour>& contours, const CKivoGradientColor* gradient,
                            int axis);
    GridView Grid() const;
    struct PointBox CutBox() const;
    class ClipScope CutScope(unsigned int axes) const;
    bool IsCutAway(const float* point) const;
    int ContouredAxis() const;
    std::vector<float> EvenHeights(unsigned int count) const;
    void SetAxisTitle(int axis, const char* title, std::string& stored);
    void CallFontLists(const char* text, std::size_t count);
    template <typename Change>
    int ChangeGridBox(Change change);
    int SetAxisPrecision(int axis, unsigned int precision);
    void FindLineOfSight(POINT pt, float* nearPt, float* farPt);
    std::string ReadOut(int axis, float value, bool asksFormats) const;
    std::string PointText(const float* point, bool asksFormats) const;
    float MarkerSize(double factor) const;
    void AskForTraceWords();
    std::string TraceText() const;
    template <typename Draw>
    void ForEachVisibleCurve(Draw draw);
    CKivoMeasurePointGroup* FindMeasureGroup(unsigned int index) const;
    struct SNameList; // rows, and the size of the largest text
    SNameList MeasureGroupNames(bool areHiddenListed) const;
    void RenderGroupNames(bool areHiddenListed);
    void AddGroupNamesPlace(std::vector<PlacedImage>* places) const;
    void RenderListGround(const float (*corners)[3]) const;
    void RenderListedText(const float (*corners)[3], const SKivoTexImage& image);
    static void RenderListSquare(const CKivoMeasurePointGroup& group, float y, float z, float left,
                                 float right);
    void RebuildRuler(CKivoGradientColorRuler* ruler, CKivoGradientColor* gradient);
    template <typename Change>
    void ChangeAllGradients(Change change);
    template <typename Change>
    void ChangeFlatPlotGradient(CKivoGradientColor* gradient, CKivoGradientColorRuler* ruler, Change change);
    template <typename Change>
    void ChangeSurfaceGradient(Change change);
};

} // namespace KivoDrawingTools
