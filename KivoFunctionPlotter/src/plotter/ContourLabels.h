// The values of contours as texts, and the lines that they stand at.
#pragma once

#include "computing/ContourLabelLayout.h"
#include "computing/LinePaths.h"
#include "KivoTypes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace KivoDrawingTools {

struct ContourLabel {
    float level;
    std::string text;
    SKivoTexImage image; ///< its texture belongs to the plotter's context
};

/// What LabelContours asks for. Texts are made when contours are traced or numbers change, lines when a frame
/// needs them first.
struct ContourLabels {
    ContourLabels() = default;
    ~ContourLabels();
    ContourLabels(const ContourLabels&) = delete;
    ContourLabels& operator=(const ContourLabels&) = delete;

    /// Number of the latest request for texts, among those of all plotters: a host that is asked for words
    /// may ask for others meanwhile.
    std::uint64_t request = 0;
    /// None are shown before newer texts: the context could not be made current for these, or there was no
    /// memory for their lines.
    bool isGivenUp = false;
    std::vector<ContourLabel> ofLevel;
    std::vector<LinePaths> lines;    ///< of the levels; empty before a frame needs them
    std::vector<PlacedLabel> placed; ///< in the present frame
};

} // namespace KivoDrawingTools
