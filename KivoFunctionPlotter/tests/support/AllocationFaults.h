// The memory allocator of a test program: makes chosen allocations fail, counts what is not given back and
// notes the order in which watched objects go.
//
// A program that links this support has operator new and delete replaced.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace KivoTest {

/// Makes allocations of this thread fail for as long as it lives; one at a time. Allocations inside OpenGL
/// and EGL are left alone: a driver does not promise to survive that.
class AllocationFault {
public:
    enum class Mode {
        once,   ///< this one allocation
        onwards ///< this one and all that follow: the memory is exhausted
    };
    /// @param number  the first allocation to fail, from 1; 0: none, they are only counted
    explicit AllocationFault(long number, Mode mode = Mode::once);
    ~AllocationFault();
    AllocationFault(const AllocationFault&) = delete;
    AllocationFault& operator=(const AllocationFault&) = delete;

    /// Ends the failing and counting.
    void Stop();
    /// Allocations so far.
    long Count() const;
    /// Whether one has failed.
    bool HasFailed() const;
};

/// No allocation of this thread fails, or is counted, for as long as it lives.
class WithoutAllocationFaults {
public:
    WithoutAllocationFaults();
    ~WithoutAllocationFaults();
    WithoutAllocationFaults(const WithoutAllocationFaults&) = delete;
    WithoutAllocationFaults& operator=(const WithoutAllocationFaults&) = delete;
};

/// Blocks from operator new that are not given back, of this thread and outside OpenGL, EGL and this support.
long LiveBlocks();

/// Notes the names of watched objects in the order in which their memory is given back.
class DeletionOrder {
public:
    DeletionOrder();
    ~DeletionOrder();
    DeletionOrder(const DeletionOrder&) = delete;
    DeletionOrder& operator=(const DeletionOrder&) = delete;

    void Watch(const void* object, const std::string& name);
    const std::vector<std::string>& Deleted() const { return m_deleted; }

    void Note(const void* object); ///< for operator delete

private:
    struct Watched {
        const void* object;
        std::string name;
    };
    std::vector<Watched> m_watched;
    std::vector<std::string> m_deleted;
};

} // namespace KivoTest
