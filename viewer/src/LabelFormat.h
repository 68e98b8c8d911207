// Other words for the numbers of an axis than the plot's own.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace KivoViewer {

/// Writes a number so that those which lie a step above and below read differently. A step of 0 is none.
using LabelFormat = std::function<std::string(double value, double step)>;

/// plain: the plot's own words. engineering: 12.5k, as far as there are prefixes. powers: 1.25·10⁴. date: a
/// number of days since 1970-01-01, with the time of day where steps are shorter than days.
std::vector<std::string> LabelFormatNames();

/// What a name stands for; empty for plain, and for what is no name.
LabelFormat LabelFormatOf(const std::string& name);

} // namespace KivoViewer
