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
