// Text images as quads in model space.
#pragma once

#include "KivoTypes.h"

namespace KivoDrawingTools {

/// Draws an image centred on a point, blended and unlit, with the used part of its texture. An image without
/// texture or pixels draws nothing. Enables and blending are as before afterwards; the current colour is
/// white.
/// @param center               three floats
/// @param right, up            unit vectors of three floats: where the image's sides point
/// @param scaleRight, scaleUp  length of one image pixel along either
void DrawTexturedQuad(const float* center, const float* right, const float* up, double scaleRight,
                      double scaleUp, const SKivoTexImage& image);

} // namespace KivoDrawingTools
