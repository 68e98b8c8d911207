#include "HeapMeter.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>

// The names under which glibc keeps its own functions reachable for a program that replaces malloc.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace KivoBenchmark {

namespace {

std::atomic<std::size_t> heldBytes{0};
std::atomic<std::size_t> peakBytes{0};
std::atomic<std::size_t> allocationCount{0};

void* Taken(void* block) {
    if (!block) return block;
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    const std::size_t size = malloc_usable_size(block);
    const std::size_t held = heldBytes.fetch_add(size, std::memory_order_relaxed) + size;
    std::size_t peak = peakBytes.load(std::memory_order_relaxed);
    while (held > peak && !peakBytes.compare_exchange_weak(peak, held, std::memory_order_relaxed)) {
    }
    return block;
}

void GiveBack(std::size_t size) {
    heldBytes.fetch_sub(size, std::memory_order_relaxed);
}

} // namespace

HeapUse CurrentHeapUse() {
    return {heldBytes.load(), peakBytes.load(), allocationCount.load()};
}

void ResetHeapPeak() {
    peakBytes.store(heldBytes.load());
}

} // namespace KivoBenchmark

// Visible to every library of the process.
#pragma GCC visibility push(default)
extern "C" {

void* malloc(std::size_t size) {
    return KivoBenchmark::Taken(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
    return KivoBenchmark::Taken(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) {
    const std::size_t before = malloc_usable_size(block);
    void* const moved = __libc_realloc(block, size);
    if (moved || size == 0) KivoBenchmark::GiveBack(before);
    return KivoBenchmark::Taken(moved);
}

void* memalign(std::size_t alignment, std::size_t size) {
    return KivoBenchmark::Taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    void* const taken = memalign(alignment, size);
    if (!taken) return ENOMEM;
    *block = taken;
    return 0;
}

void free(void* block) {
    KivoBenchmark::GiveBack(malloc_usable_size(block));
    __libc_free(block);
}

} // extern "C"
#pragma GCC visibility pop
