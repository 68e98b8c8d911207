// Contours that no plotter has taken yet.
#pragma once

#include "KivoTypes.h"

#include <vector>

namespace KivoDrawingTools {

struct NewContours {
    NewContours() = default;
    ~NewContours() {
        for (const SKivoIsoContour& contour : records)
            delete[] contour.points;
    }
    NewContours(const NewContours&) = delete;
    NewContours& operator=(const NewContours&) = delete;

    std::vector<SKivoIsoContour> records;
};

} // namespace KivoDrawingTools
