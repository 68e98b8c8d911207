// A host's own OpenGL context beside the plotters'. KivoHost.h has the scope that keeps it.
#pragma once

#include "KivoPlatform.h"

namespace KivoDrawingTools {

/// Whether a context is current in this thread that is no plotter's.
bool IsHostContextCurrent();

/// Says that a plotter has made the context, and that it is deleted. Elsewhere than on Windows all contexts
/// of this layer are plotters'.
void AddPlotterContext(HGLRC context);
void RemovePlotterContext(HGLRC context);

/// Whether what is drawn through a device context is meant for a screen; not for null or a dead one.
bool IsOnScreen(HDC dc);

} // namespace KivoDrawingTools
