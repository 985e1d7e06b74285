#include "tests/support/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocationCount{0};
std::atomic<std::size_t> largestAllocation{0};

void NoteSize(std::size_t size) {
    std::size_t largest = largestAllocation.load();
    while (largest < size && !largestAllocation.compare_exchange_weak(largest, size)) {
    }
}

}  // namespace

std::size_t AllocationCount() {
    return allocationCount;
}

std::size_t LargestAllocation() {
    return largestAllocation;
}

void ResetLargestAllocation() {
    largestAllocation = 0;
}

void* operator new(std::size_t size) {
    ++allocationCount;
    NoteSize(size);
    void* const memory = std::malloc(size > 0 ? size : 1);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
