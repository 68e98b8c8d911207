// A plot as fast as the hand, whatever its size: while something moves, less of the surface is drawn. The
// setting belongs to the plotter: it may be made before OnCreate and after it, with data or without, and
// stays until it is made again, through OnDestroy and OnCreate too.
#pragma once

#include "KivoFunctionPlotter.h"
#include "KivoPicture.h"

namespace KivoDrawingTools {

/// Sets with how many points a side, at most, the surface is shown in the frames that OnMouseMove draws of a
/// drag, and OnMouseWheel. All other frames, and pictures, show everything. With 0, as at first, these do,
/// too.
///
/// Such a frame has every k-th column and row of the points and the last ones, with the smallest steps k
/// that leave no more, each with the values and the colour that it has. A cell between them is a hole where
/// any point inside it or on its sides is no number, so that no hole is lost.
/// Frame lines have the steps that come nearest to their own, at least a cell. Contours have their levels and
/// run between the points that are kept, none through a hole or past its corners. In the XY plot, where it is
/// filled between its contours, bands and contours are those of the points that are kept. Everything else is
/// drawn as always; and so are grids that are small enough, and one for whose copy there is no memory.
///
/// A drag keeps what it began with; another setting counts from the next one. What is shown is copied at the
/// first such frame, which reads no other points, and the copy goes with the data. Where numbers are missing
/// among them, which reading the data has told, it looks at all points once for their holes. Colours
/// that are set, and what a derived class writes into the arrays of points, colours and texture coordinates
/// before a frame that shows everything, are taken over; its own lists of triangles and frame lines are not.
/// @param pointsPerSide  at least 2; 0 for all
/// @return 0; -3 for 1, since a side has two ends: nothing changes then
KIVO_API int SetMotionDetail(CKivoFunctionPlotter& plotter, unsigned int pointsPerSide);

/// Leaves out of surfaces, before they are handed to OpenGL, the triangles that colour no pixel, since they
/// cover the middle of none: most of those of a grid that has more points than the window has pixels. What is
/// shown stays what it is, pixel for pixel, in frames and pictures of any size. It takes some 10 nanoseconds
/// a triangle; software OpenGL takes several times as long for each that it gets.
///
/// Drawn as always is a surface with fewer triangles than half the pixels, one of points with four floats,
/// what shows through, and a frame that SetMotionDetail bounds, which is to take the same time in all views;
/// a part of one where coordinates have no digits left for parts of a pixel, or where corners stand far apart
/// in the array; and everything where OpenGL does more with a triangle than to colour the pixels whose
/// middles it covers, as with several samples a pixel, or would draw it later, from a list. A derived class
/// may load matrices of its own, with perspective too, and put in its own lists of triangles, but no program
/// of shaders, which would move the points: with one, this is to be off.
///
/// It stays through new data, OnDestroy and OnCreate, and takes 4 MB; a copy of the plotter has it, too.
/// @param cull  false, at first: OpenGL gets all triangles
/// @return 0
/// @throws std::bad_alloc  nothing has changed
KIVO_API int CullSmallTriangles(CKivoFunctionPlotter& plotter, bool cull);

/// Draws a frame and presents it, as OnMouseMove draws those of a drag: for hosts that turn, shift and zoom
/// the plot in steps of their own, by TurnView, ShiftView and ZoomView of KivoView.h.
/// @return as Renderscene
KIVO_API int RenderMovedScene(CKivoFunctionPlotter& plotter);

/// @return whether the frame that was presented last shows less than everything, so that one that does is due
///         as soon as the hand rests: OnDraw() draws it. Pictures are not presented; not after OnDestroy
KIVO_API bool IsDetailReduced(const CKivoFunctionPlotter& plotter);

/// Has a host draw instead of the members that draw by themselves, OnMouseMove and OnMouseWheel: where they
/// would, they call the request, and whatever they do to the view is done by then. The host's next OnDraw or
/// Renderscene draws the frame that the last of them would have drawn, reduced as SetMotionDetail says, so
/// that any number of moves between two of the host's paint messages takes one frame. The frames after it
/// show everything, as always: one is due when the hand rests, which IsDetailReduced tells.
/// @param request  called in the member that moves the plot; it may draw, and destroy the plotter. Null, as
///                 at first: the members draw
/// @param context  what it is called with
/// @return 0
KIVO_API int SetRedrawRequest(CKivoFunctionPlotter& plotter, void (*request)(void*), void* context);

/// Measures with how many points a side the 3-D plot, as it is now, is drawn within a time. Frames of 10, 20,
/// 40 ... points a side are drawn, twice each and without presenting them, until one takes longer or shows
/// everything; all of them take about ten times the time given. Presenting comes on top of it, and other
/// processes' work is measured with it. Another size of the window, and more to draw beside the surface, take
/// another time. Nothing is set; the window goes on showing what it shows, but an off-screen one, whose
/// buffer the frames are drawn into, needs a new frame.
/// @param milliseconds  for a frame, above 0
/// @return what SetMotionDetail takes: 0 where everything is drawn within the time, else at least 10, even if
///         that takes longer; 0, too, where nothing can be measured: no context, no surface, a flat plot, or
///         a time that is not above 0
/// @throws std::bad_alloc  as drawing a frame does
KIVO_API unsigned int MotionDetailFor(CKivoFunctionPlotter& plotter, double milliseconds);

/// The same, as long as it is wanted.
/// @param stop  whether to leave the rest
/// @return as above; 0 where it was stopped
KIVO_API unsigned int MotionDetailFor(CKivoFunctionPlotter& plotter, double milliseconds,
                                      const SKivoStopRequest& stop);

} // namespace KivoDrawingTools
