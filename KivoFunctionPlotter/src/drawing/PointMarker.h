// The ball that marks a point: of curves, of measure groups, and the traced one.
#pragma once

namespace KivoDrawingTools {

/// Draws a unit sphere of 18 vertices and 32 triangles, each vertex being its own normal.
void DrawUnitSphere();

/// Draws it at a point, with the same radius along all axes on the screen. The model-view matrix is as before
/// afterwards.
/// @param size       radius in view-volume units
/// @param axisScale  three scale factors of the axes
void DrawPointMarker(float x, float y, float z, float size, const double* axisScale);

} // namespace KivoDrawingTools
