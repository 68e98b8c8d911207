// The thread's failure, which GetLastError() and LastWindowError() report, for the layers above.
#pragma once

#include "FailureWords.h"

namespace KivoDrawingTools {

/// Records a failure of the calling thread that is not the window system's.
/// @param code  one of GetLastError()'s
void RecordFailure(unsigned long code, const char* words);

/// Puts the calling thread's failure back as it was: for what may fail without the operation failing.
class KeepFailure {
public:
    KeepFailure();
    ~KeepFailure();
    KeepFailure(const KeepFailure&) = delete;
    KeepFailure& operator=(const KeepFailure&) = delete;

    /// Leaves what is recorded at the end.
    void Forget() { m_isForgotten = true; }

private:
    const unsigned long m_code;
    const FailureWords m_words;
    bool m_isForgotten = false;
};

} // namespace KivoDrawingTools
