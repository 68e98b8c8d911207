// The failure that GetLastError() and LastWindowError() report, one per thread.
#pragma once

#include "Win32Names.h"

#include <string>

namespace KivoDrawingTools {

/// Records a failure of the calling thread.
/// @param words  one sentence: what is wrong and what to do about it
/// @return false, so that an operation can end with it
bool Fail(DWORD code, std::string words);

/// Puts the calling thread's failure back as it was: for what may fail without the operation failing.
class KeepLastError {
public:
    KeepLastError();
    ~KeepLastError();
    KeepLastError(const KeepLastError&) = delete;
    KeepLastError& operator=(const KeepLastError&) = delete;

private:
    const DWORD m_code;
    std::string m_words;
};

/// A number as it is written in messages, for example 0x21.
std::string Hex(unsigned long value);

} // namespace KivoDrawingTools
