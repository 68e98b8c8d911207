// Pictures of a control in the forms that Windows has for them.
#pragma once

#include "KivoPlotView.h"

#include <vector>

namespace KivoDrawingTools {

/// Draws an image over a rectangle of a device context, scaled where it has another size.
void PutImage(HDC dc, const RECT& place, const SKivoPlotImage& image);

/// A picture as the clipboard takes it (CF_DIB), from GlobalAlloc; null without memory.
HGLOBAL MakeDib(const SKivoPlotImage& image);

/// Writes a picture as PNG.
bool SavePng(const wchar_t* fileName, const SKivoPlotImage& image);

/// Draws what a plotter shows, smooth, into the pixels.
/// @return an image of them; without pixels where it cannot be drawn
SKivoPlotImage DrawSmoothImage(CKivoFunctionPlotter& plotter, std::vector<unsigned char>& pixels);

} // namespace KivoDrawingTools
