// Other grids over the first: top and base of a layer, measured and computed. They are shown in the 3-D plot,
// with the axes and within the box of the first surface unless the box is fitted to all.
#pragma once

#include "KivoFunctionPlotter.h"

namespace KivoDrawingTools {

/// How a surface is drawn. As it is made, it is how the first one is drawn at first, but for the frame lines.
struct SKivoSurface {
    bool isVisible = true; ///< a hidden surface is not traced
    /// From 0 to 1. What is below 1 is drawn after everything else in the box, from far to near, so that all
    /// that lies behind shows through; 0 is as good as hidden.
    float opacity = 1.0f;
    /// Whether each point has the colour of its z, as the points of the first surface have at first: that of
    /// the z gradient, whose ends are those of the first data or of the box. Else the surface has one colour.
    bool isColoredByZ = true;
    unsigned long color = 0x00C08040; ///< 0x00BBGGRR, where isColoredByZ is false
    /// Cells from one frame line to the next across columns and rows, in the colour of SetFrameLineColor; 0
    /// for either one: no lines. Of the first surface they are what ShowFrameLines and SetFrameLineStep set.
    unsigned int frameLineStep[2] = {0, 0};
};

/// Lays a surface over the others. Its points are copied: 12 bytes each, 16 more where they are coloured by
/// z, up to 24 for triangles and 16 for frame lines. New data of SetData and SetDataReference take it away,
/// as OnDestroy does. A point with a coordinate that is no number makes a hole of the cells around it.
/// Surfaces of fewer than two columns or rows have nothing to draw.
/// @param points        x, y, z first in each, not changed and not kept
/// @param columnStride  points from one to the next in its row
/// @param rowStride     points from a row to the next
/// @param components    floats of a point, at least 3
/// @return its number, above 0 and not given again before there are new data; -3 for null points, counts of
///         0, counts or strides that pass 32 bits or the address space, fewer than 3 components, an opacity
///         outside 0 to 1, and where there is no first surface: nothing changes then
/// @throws std::bad_alloc  nothing is added
KIVO_API int AddSurface(CKivoFunctionPlotter& plotter, const float* points, unsigned int columns,
                        unsigned int rows, unsigned int columnStride, unsigned int rowStride,
                        unsigned int components, const SKivoSurface& surface = {});

/// Takes a surface away that AddSurface has laid over the others.
/// @return 0; -2 for a number that none has, or 0
KIVO_API int RemoveSurface(CKivoFunctionPlotter& plotter, int surface);

/// @return how many there are over the first
KIVO_API unsigned int GetSurfaceCount(const CKivoFunctionPlotter& plotter);

/// @param surface  0 for the first, whose looks stay when its data change; else what AddSurface gave
/// @param values   receives how it is drawn
/// @return 0; -2 for a number that none has, -3 for null values
KIVO_API int GetSurface(const CKivoFunctionPlotter& plotter, int surface, SKivoSurface* values);

/// Draws a surface in another way from the next frame on.
/// @return 0; -2 for a number that none has, -3 for an opacity outside 0 to 1: nothing changes then
/// @throws std::bad_alloc  nothing has changed
KIVO_API int SetSurface(CKivoFunctionPlotter& plotter, int surface, const SKivoSurface& values);

/// Has the frame lines of data that SetData and SetDataReference are handed from now on stand so many cells
/// apart, across columns and rows, instead of at each, as at first: lines at each cell take 16 bytes a point,
/// also where SetFrameLineStep makes others at once. Lines that are there stay. It stays through OnDestroy
/// and OnCreate.
/// @param columnStep  as of SetFrameLineStep; with 0 in either, lines are at each cell
/// @return 0
/// @throws std::bad_alloc  nothing has changed
KIVO_API int KeepFrameLineStep(CKivoFunctionPlotter& plotter, unsigned int columnStep, unsigned int rowStep);

/// Fits box, axes, gradients and contour levels to the points of all surfaces, hidden ones too, or, as at
/// first, to those of the first one alone; then and whenever a surface comes or goes. As with new data,
/// ranges that were set are forgotten with that, and the view is fitted, but turned as it is.
/// @return 0
/// @throws std::bad_alloc  as SetData does
KIVO_API int FitAxesToSurfaces(CKivoFunctionPlotter& plotter, bool all);

/// @return whether box, axes, gradients and contour levels are fitted to all surfaces, as FitAxesToSurfaces
/// was
///         told last
KIVO_API bool AxesFitSurfaces(const CKivoFunctionPlotter& plotter);

/// Shows of surfaces, frame lines, contours and curves what lies within the range of an axis, cut exactly
/// along it, and no markers of points beyond; nothing of that is traced. A range that is set anew counts from
/// the next frame on. It stays through new data, OnDestroy and OnCreate.
/// @param axis  0 for X, 1 for Y, 2 for Z
/// @param cut   false, at first: what leaves the box is shown, too
/// @return 0; -3 for another axis
KIVO_API int CutToAxis(CKivoFunctionPlotter& plotter, int axis, bool cut);
/// @return whether it is cut; false for a number that is no axis
KIVO_API bool IsCutToAxis(const CKivoFunctionPlotter& plotter, int axis);

/// @return the number of the surface on which the traced point lies, 0 for the first; -1 without a traced
///         point. The nearest of all visible surfaces is traced
KIVO_API int TracedSurface(const CKivoFunctionPlotter& plotter);

} // namespace KivoDrawingTools
