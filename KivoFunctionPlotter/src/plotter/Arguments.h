// What members check of their arguments, and what they say of those that they refuse.
#pragma once

namespace KivoDrawingTools {

constexpr int refusedArgument = -3;

inline bool IsAxis(int axis) {
    return axis >= 0 && axis < 3;
}

} // namespace KivoDrawingTools
