// What colours of values look like, for a small picture of them.
#pragma once

#include "Color.h"

#include <string>
#include <vector>

namespace KivoViewer {

/// The colours of so many values from the smallest to the largest, 2 at least.
/// @param name        one of the setting's choices
/// @param start, end  of the gradient, which is no table
std::vector<Color> ColorSample(const std::string& name, const Color& start, const Color& end,
                               unsigned int count);

} // namespace KivoViewer
