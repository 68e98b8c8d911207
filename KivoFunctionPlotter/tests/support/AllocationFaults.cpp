#include "AllocationFaults.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <stdexcept>

namespace KivoTest {

namespace {

struct Faults {
    bool isActive = false;
    AllocationFault::Mode mode = AllocationFault::Mode::once;
    long first = 0;
    long count = 0;
    bool hasFailed = false;
};

// Plain data without constructors: the first allocations come before any of this program's.
thread_local Faults faults;
thread_local int sheltered = 0;
thread_local bool isCounting = false;
std::atomic<long> liveBlocks{0};
DeletionOrder* watching = nullptr;

// The thread that runs the tests.
[[maybe_unused]] const bool isMainCounting = isCounting = true;

// What stands before each block, as large as the strictest alignment.
struct alignas(alignof(std::max_align_t)) Header {
    bool isCounted;
};

bool IsToFail() {
    if (sheltered > 0 || !faults.isActive) return false;
    ++faults.count;
    const bool fails =
        faults.first != 0 && (faults.mode == AllocationFault::Mode::once ? faults.count == faults.first
                                                                         : faults.count >= faults.first);
    faults.hasFailed = faults.hasFailed || fails;
    return fails;
}

void* Allocate(std::size_t size) {
    if (IsToFail() || size > static_cast<std::size_t>(-1) - sizeof(Header)) return nullptr;
    auto* const header = static_cast<Header*>(std::malloc(size + sizeof(Header)));
    if (!header) return nullptr;
    header->isCounted = isCounting && sheltered == 0;
    if (header->isCounted) ++liveBlocks;
    return header + 1;
}

void* AllocateOrThrow(std::size_t size) {
    if (void* const block = Allocate(size)) return block;
    throw std::bad_alloc();
}

void Free(void* block) {
    if (!block) return;
    if (watching) watching->Note(block);
    Header* const header = static_cast<Header*>(block) - 1;
    if (header->isCounted) --liveBlocks;
    std::free(header);
}

} // namespace

AllocationFault::AllocationFault(long number, Mode mode) {
    if (faults.isActive) throw std::logic_error("two allocation faults at a time");
    faults = {true, mode, number, 0, false};
}

AllocationFault::~AllocationFault() {
    Stop();
}

void AllocationFault::Stop() {
    faults.isActive = false;
}

long AllocationFault::Count() const {
    return faults.count;
}

bool AllocationFault::HasFailed() const {
    return faults.hasFailed;
}

WithoutAllocationFaults::WithoutAllocationFaults() {
    ++sheltered;
}

WithoutAllocationFaults::~WithoutAllocationFaults() {
    --sheltered;
}

long LiveBlocks() {
    return liveBlocks;
}

DeletionOrder::DeletionOrder() {
    watching = this;
}

DeletionOrder::~DeletionOrder() {
    watching = nullptr;
}

void DeletionOrder::Watch(const void* object, const std::string& name) {
    m_watched.push_back({object, name});
}

void DeletionOrder::Note(const void* object) {
    for (Watched& watched : m_watched)
        if (watched.object == object) {
            watched.object = nullptr; // the address may be given out again
            m_deleted.push_back(watched.name);
        }
}

} // namespace KivoTest

// Not inlined: the compiler would take the pairs for mismatched allocations.
[[gnu::noinline]] void* operator new(std::size_t size) {
    return KivoTest::AllocateOrThrow(size);
}

[[gnu::noinline]] void* operator new[](std::size_t size) {
    return KivoTest::AllocateOrThrow(size);
}

[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return KivoTest::Allocate(size);
}

[[gnu::noinline]] void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return KivoTest::Allocate(size);
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    KivoTest::Free(block);
}

[[gnu::noinline]] void operator delete[](void* block) noexcept {
    KivoTest::Free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    KivoTest::Free(block);
}

[[gnu::noinline]] void operator delete[](void* block, std::size_t) noexcept {
    KivoTest::Free(block);
}

[[gnu::noinline]] void operator delete(void* block, const std::nothrow_t&) noexcept {
    KivoTest::Free(block);
}

[[gnu::noinline]] void operator delete[](void* block, const std::nothrow_t&) noexcept {
    KivoTest::Free(block);
}
