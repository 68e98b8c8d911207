#include "ReadOptions.h"

#include "Failure.h"
#include "Numbers.h"
#include "TextLines.h"

#include <cmath>

namespace KivoViewer {

Region ParseRegion(const std::string& text) {
    std::vector<std::string_view> fields;
    SplitFields(text, ':', fields);
    Region region;
    double* const ends[] = {&region.x0, &region.x1, &region.y0, &region.y1};
    bool isRegion = fields.size() == std::size(ends);
    for (std::size_t i = 0; isRegion && i < fields.size(); ++i) {
        *ends[i] = ParseNumber(fields[i]).value_or(std::nan(""));
        isRegion = std::isfinite(*ends[i]);
    }
    if (!isRegion || !(region.x0 < region.x1) || !(region.y0 < region.y1))
        throw Failure("expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and from y0 to y1, found " +
                      text);
    return region;
}

} // namespace KivoViewer
