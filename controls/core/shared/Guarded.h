// For controls of toolkits that an exception must not pass: C's callers, and event loops.
#pragma once

/// Calls what may lack memory.
/// @return what it does, or the other where memory fails
template <typename Action, typename Result>
Result Guarded(Action action, Result otherwise) noexcept {
    try {
        return action();
    } catch (...) { // std::bad_alloc and std::length_error
        return otherwise;
    }
}

template <typename Action>
void Guarded(Action action) noexcept {
    try {
        action();
    } catch (...) { // as above
        return;
    }
}
