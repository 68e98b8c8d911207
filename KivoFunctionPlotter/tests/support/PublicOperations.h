// All public members of the plotter as a list, for what has to hold for each of them.
#pragma once

#include "RecordedPlot.h"

#include <functional>
#include <string>
#include <vector>

namespace KivoTest {

/// What a member does with the OpenGL context.
enum class ContextUse {
    none,        ///< calls neither OpenGL nor wglMakeCurrent
    callers,     ///< draws in the caller's bracket
    bracketed,   ///< makes the context current for its work and none afterwards
    staysCurrent ///< makes it current and leaves it so
};

struct PublicOperation {
    std::string name;
    ContextUse context;
    /// Calls the member with plausible arguments. @return its int result; 0 where it has another one or none
    std::function<int(CallProbe&)> run;
};

/// Every public member but construction, OnCreate and OnDestroy, in the order of the header; then
/// CapturePicture. They work on a plot as RecordedPlot::Fill leaves it, in any order and repeatedly.
const std::vector<PublicOperation>& PublicOperations();

/// A grid of points from new[], made without regard to faults.
float* NewHill(unsigned int columns, unsigned int rows);

} // namespace KivoTest
