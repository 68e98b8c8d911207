// What the user says of files where these leave something open.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace KivoViewer {

/// A part of the plane.
struct Region {
    double x0 = 0.0;
    double x1 = 0.0;
    double y0 = 0.0;
    double y1 = 0.0;
};

/// The region that "x0:x1:y0:y1" stands for. Throws a Failure that says what is wrong with the text.
Region ParseRegion(const std::string& text);

/// How files are read.
struct ReadOptions {
    int band = 0;                 ///< of a raster, from 1; 0 for the first
    std::optional<Region> region; ///< of which alone the points are read
};

} // namespace KivoViewer
