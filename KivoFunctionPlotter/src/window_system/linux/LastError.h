// The failure that GetLastError() and LastWindowError() report, one per thread.
#pragma once

#include "Win32Names.h"
#include "window_system/Failure.h"
#include "window_system/FailureWords.h"

#include <string>
#include <string_view>

namespace KivoDrawingTools {

/// A failure: its code, and one sentence that says what is wrong and what to do about it.
struct Failure {
    DWORD code;
    FailureWords words;
};

/// Records a failure of the calling thread.
/// @return false, so that an operation can end with it
bool Fail(DWORD code, std::string_view words);

/// Records a failure that follows from one before, as that of an operation on a null handle does: what is
/// recorded already has the reason, and stays. These are code and words where nothing has failed before.
/// @return false
bool FailFurther(DWORD code, std::string_view words);

/// A number as it is written in messages, for example 0x21.
std::string Hex(unsigned long value);

} // namespace KivoDrawingTools
