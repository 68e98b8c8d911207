// Makes operations of the window system fail.
#pragma once

#include "window_system/WindowSystem.h"

#include <functional>
#include <string>
#include <vector>

namespace KivoTest {

/// Makes one window-system operation that the plotter calls fail: it does nothing, returns its failure result
/// and sets the last error. One fault at a time.
class OperationFault {
public:
    /// @param number  which operation, from 1 for the next one; 0: none, they are only listed
    /// @param error  the last error that it leaves; 0: a failure without a reason
    explicit OperationFault(long number, KivoDrawingTools::DWORD error = KivoDrawingTools::ERROR_GEN_FAILURE);
    /// Gives back for real what an operation has been made to refuse to delete.
    ~OperationFault();
    OperationFault(const OperationFault&) = delete;
    OperationFault& operator=(const OperationFault&) = delete;

    /// Ends failing and listing.
    void Stop();
    /// The names of the operations so far, each of which can be made to fail.
    const std::vector<std::string>& Operations() const { return m_operations; }
    /// The name of the one that has failed; empty while none has.
    const std::string& Failed() const { return m_failed; }

    // For the wrappers.

    /// Lists an operation. @return whether it is to fail
    static bool IsToFail(const char* name);
    /// Hands over what the operation that fails would have done.
    static void Owe(std::function<void()> deletion);

private:
    const long m_number;
    const KivoDrawingTools::DWORD m_error;
    std::vector<std::string> m_operations;
    std::string m_failed;
    std::function<void()> m_owed;
};

} // namespace KivoTest
