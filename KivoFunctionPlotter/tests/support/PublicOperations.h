// What a host does with a plot, as a list, for what has to hold for each of it while calls or the memory
// fail.
#pragma once

#include "PublicMembers.h"
#include "RecordedPlot.h"

#include <functional>
#include <string>
#include <vector>

namespace KivoTest {

using KivoDrawingTools::ContextUse;
using KivoDrawingTools::Repetition;

struct PublicOperation {
    std::string name; ///< as in the table of the public members
    ContextUse context;
    Repetition repetition;
    /// Does it with plausible arguments. @return 0 where it has done what it is asked for
    std::function<int(CallProbe&)> run;
};

/// The members in the table of PublicMembers.h but those of the lifetime; then drags and tracing, which take
/// several. They work on a plot as RecordedPlot::Fill leaves it, in any order and repeatedly.
const std::vector<PublicOperation>& PublicOperations();

/// A grid of points from new[], made without regard to faults.
float* NewHill(unsigned int columns, unsigned int rows);

} // namespace KivoTest
