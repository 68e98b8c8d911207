// How far a long operation is, and its end before the time.
#pragma once

#include <functional>

namespace KivoViewer {

/// Told how much has been done, from 0 to 1. Returns whether to go on. May be empty.
using Progress = std::function<bool(double)>;

/// Thrown where the user wants an operation to end. Nothing has changed then.
class Cancelled {};

/// Tells how much has been done. Throws Cancelled.
inline void Report(const Progress& progress, double share) {
    if (progress && !progress(share)) throw Cancelled();
}

} // namespace KivoViewer
