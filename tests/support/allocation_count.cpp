#include "tests/support/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

std::atomic<std::size_t> allocationCount{0};
std::atomic<std::size_t> largestAllocation{0};
std::atomic<std::size_t> allowedAllocations{0};
std::atomic<std::size_t> allocationLimit{std::numeric_limits<std::size_t>::max()};

/// Takes one of the large allocations that are still allowed.
bool IsAllowed() {
    std::size_t left = allowedAllocations.load();
    while (left > 0 && !allowedAllocations.compare_exchange_weak(left, left - 1)) {
    }
    return left > 0;
}

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

CAllocationLimit::CAllocationLimit(std::size_t bytes, std::size_t allowed) {
    allowedAllocations = allowed;
    allocationLimit = bytes;
}

CAllocationLimit::~CAllocationLimit() {
    allocationLimit = std::numeric_limits<std::size_t>::max();
}

void* operator new(std::size_t size) {
    ++allocationCount;
    NoteSize(size);
    if (size > allocationLimit && !IsAllowed()) throw std::bad_alloc();
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

// The sanitizers' own forms for arrays do not call the ones above.
void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete[](void* memory) noexcept {
    operator delete(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}
