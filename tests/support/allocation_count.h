#pragma once

#include <cstddef>

/// Number of allocations by operator new since the start of the program, of all threads.
///
/// Linking the library quorvel_allocation_count replaces the global operator new and delete of the whole executable,
/// so link it into executables that count.
std::size_t AllocationCount();

/// Largest single allocation in bytes since the last call of ResetLargestAllocation.
std::size_t LargestAllocation();
void ResetLargestAllocation();

/// While it lives, operator new fails for more than `bytes` at once, as it does when memory runs out; the first
/// `allowed` of such allocations are still made.
class CAllocationLimit {
public:
    explicit CAllocationLimit(std::size_t bytes, std::size_t allowed = 0);
    CAllocationLimit(const CAllocationLimit&) = delete;
    CAllocationLimit& operator=(const CAllocationLimit&) = delete;
    ~CAllocationLimit();
};
