// The view of a plot as a record of its own: to be kept while the window is made anew or other data are read,
// shared by plots beside each other, and stored with the settings of a program.
#pragma once

#include "KivoFunctionPlotter.h"

namespace KivoDrawingTools {

/// How a plot is looked at, whatever it shows and however large its window is. As it is made: the 3-D plot
/// from above, X to the right and Y up, as it is fitted to its data. The light is not a part of it, nor are
/// the ranges of the axes and their lengths on the screen: where a picture is to be lit like another of the
/// same data, ResetView() goes before SetView().
struct SKivoView {
    /// 0 for the 3-D plot, 1 for XY, 2 for YZ, 3 for XZ.
    int plotType = 0;
    /// Where the axes point, three numbers each for X, Y and Z: to the right, up, towards the viewer. Those
    /// of a rotation: what inverse and mirrored say is done before it.
    double rotation[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    /// How far the middle of the data is shifted to the right of the place where it is fitted, as a share of
    /// the plot's width: that of the window without the legend.
    double panX = 0.0;
    /// The same upwards, as a share of the plot's height.
    double panY = 0.0;
    /// Above 0. With 1 the box of the axes is as large as it is fitted, along the plot's shorter side; with 2
    /// it is twice as large.
    double zoom = 1.0;
    /// X, Y and Z, as SetInverseXAxis was told. The 3-D plot shows these axes mirrored; a flat plot is as on
    /// entering it: unmirrored, unless the next field says something else.
    bool inverse[3] = {false, false, false};
    /// Whether the plot is a mirror image beyond that, with X mirrored before all else: a flat plot is after
    /// one axis, or all three, have been made inverse in it. With two the rotation has it.
    bool mirrored = false;
};

/// Tells the view that a plot is shown in, or would be in its window; after OnDestroy the last one. Calls no
/// OpenGL. What a derived class has made of the matrix counts as the nearest rotation, and a view volume
/// without finite numbers as fitted.
/// @return what SetView takes; only for a plot type of a derived class's own it does not
KIVO_API SKivoView GetView(const CKivoFunctionPlotter& plotter);

/// Shows a plot in a view: another size of the window, or other data, from the same side at the same share of
/// the window. What GetView tells afterwards differs at most in the last digits. Another plot type is fitted
/// first, as the switches between plots do it, and so is a flat plot; the 3-D plot keeps lengths and middle
/// of its axes. Nothing is drawn until the next frame.
///
/// The next OnSize, and new data, fit the plot as always: rotation and pan stay, as a length, and the zoom is
/// undone. To keep the view, ask for it before and set it afterwards.
///
/// Without a window or without data that can be fitted, as before OnCreate, between OnDestroy and the next
/// OnCreate and before SetData, the view waits: plot type, rotation and inverse axes are taken at once, and
/// OnCreate keeps them; pan and zoom are taken as soon as the window has a size and there are data. Until
/// then GetView tells the view as it was set. A switch between plots, and ResetView, forget it.
/// @param view  its rotation may differ from the nearest one by 0.001 in each number, which then counts
/// @return 0; -3 for a plot type other than 0 to 3, numbers that are not finite, a matrix that is no
///         rotation, a zoom of 0 or less, and for pan or zoom that single precision cannot hold for these
///         data, which ends the wheel, too; -1 when the plotter's context cannot be made current. But for 0
///         nothing changes
KIVO_API int SetView(CKivoFunctionPlotter& plotter, const SKivoView& view);

/// Shows the present plot as a new plotter shows it that has been given the same data and settings: in its
/// start view, fitted, without pan and lit as the first data are, whatever was shown before. Inverse axes
/// stay so: the 3-D plot shows them mirrored, a flat plot does not, as on entering it. Before OnCreate, which
/// does the rest, the pan is taken back.
/// @return 0; -1 when the plotter's context cannot be made current: nothing changes then
KIVO_API int ResetView(CKivoFunctionPlotter& plotter);

/// Turns the 3-D plot so that Z points up, and keeps pan and zoom. It is a view like any other: drags turn it
/// on. The start view has the azimuth 45 and the elevation 25.26. Inverse axes run the other way in the same
/// box.
/// @param azimuth    in degrees, any finite number: from which side the plot is seen. With 0 the viewer
///                   stands beyond the large end of X, so that Y runs to the right; with 90 beyond that of
///                   Y, so that X runs to the left
/// @param elevation  in degrees, -90 to 90: from how high. With 0 the viewer stands at the height of the
///                   data, with 90 above them, with -90 below
/// @return as SetView; -3, too, for an elevation beyond 90 and in a flat plot
KIVO_API int SetViewAngles(CKivoFunctionPlotter& plotter, double azimuth, double elevation);

/// From which side a plot is seen.
/// @param azimuth    receives what SetViewAngles takes, above -180 to 180
/// @param elevation  receives what SetViewAngles takes
/// @return 0 where SetViewAngles gives this view; 1 where it is leaning, too, or upside down: the angles are
///         then those of the upright view from the same side
KIVO_API int GetViewAngles(const CKivoFunctionPlotter& plotter, double& azimuth, double& elevation);

// Steps of a hand, for hosts with input of their own.

/// Turns the 3-D plot on the screen. Where Z points up it stays so: the plot is turned about Z and in height,
/// no further than to a view straight from above or below. Where it leans, it is turned about the screen's
/// own axes.
/// @param right  in degrees, any finite number: what is near moves to the right
/// @param down   in degrees, any finite number: what is near moves down, so that more is seen from above
/// @return as SetView; -3, too, in a flat plot
KIVO_API int TurnView(CKivoFunctionPlotter& plotter, double right, double down);

/// Shifts the plot along the way from one client point to the other, by its whole length.
/// @return as SetView
KIVO_API int ShiftView(CKivoFunctionPlotter& plotter, POINT from, POINT to);

/// Makes the plot larger or smaller; what is shown at a place stays there.
/// @param factor  above 0; above 1 the plot grows
/// @param place   in client coordinates
/// @return as SetView
KIVO_API int ZoomView(CKivoFunctionPlotter& plotter, double factor, POINT place);

} // namespace KivoDrawingTools
