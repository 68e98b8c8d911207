// Every public member of the plotter, each once, for what has to hold for each of them.
#pragma once

#include "Arguments.h"
#include "PlotterProbe.h"

#include <functional>
#include <string>
#include <vector>

namespace KivoDrawingTools {

/// What a member does with the OpenGL context when it is called with plausible arguments.
enum class ContextUse {
    none,         ///< calls neither OpenGL nor wglMakeCurrent
    callers,      ///< draws in the caller's bracket
    bracketed,    ///< makes the context current for its work and none afterwards
    staysCurrent, ///< makes it current and leaves it so
    lifetime      ///< makes the context or gives it back
};

/// What it does when it is called once more with the same arguments.
enum class Repetition {
    same,   ///< no more than to begin with
    adds,   ///< adds another one
    changes ///< turns, moves or mirrors the picture further
};

/// A member, and how to call it.
struct PublicMember {
    PublicMember& Adds();
    PublicMember& Changes();
    PublicMember& Refuses(int result); ///< documents a result
    PublicMember& GivesSystemCodes();

    /// Whether the member says that it may give this result of run.
    bool IsDocumented(int result) const;

    /// The member's name alone, as the header has it.
    std::string MemberName() const;

    std::string name; ///< with the kinds of its arguments, which tell overloads apart: "Zoom(float)"
    ContextUse context;
    /// Calls the member, with the context current where it is the caller's.
    /// @return 0 where it has done what it is asked for, else its result; contradiction where that can't be
    std::function<int(PlotterProbe& plotter, Arguments& arguments)> run;
    Repetition repetition = Repetition::same;
    std::vector<int> refusals = {}; ///< results other than 0
    bool hasSystemCodes = false;    ///< any other result is a code of the system's
};

/// No member may give this.
constexpr int contradiction = -1000;

/// Every public member but those that construct, copy, assign and destroy the object, in the order of the
/// header; then what the headers beside it add. With plausible arguments those that do not concern the
/// lifetime work, and give 0, on a plot of 400 x 300 pixels with data, a curve and a measure group, in any
/// order and repeatedly.
const std::vector<PublicMember>& PublicMembers();

} // namespace KivoDrawingTools
