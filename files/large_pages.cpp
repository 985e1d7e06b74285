#include "files/large_pages.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace ks {
namespace {

#if defined(__linux__)
/// Before the first use of the memory. A hint also for the neighbors that share the first or the last large page.
void PreferLargePages(const double* values, std::size_t count) {
    constexpr std::uintptr_t kLargePage = std::uintptr_t{1} << 21U;
    const auto first = reinterpret_cast<std::uintptr_t>(values);
    const std::uintptr_t last = first + count * sizeof(double);
    if (last - first < kLargePage) return;
    const std::uintptr_t begin = first / kLargePage * kLargePage;
    const std::uintptr_t end = (last + kLargePage - 1) / kLargePage * kLargePage;
    // The system leaves out what is not mapped.
    static_cast<void>(madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE));
}
#else
void PreferLargePages(const double* /*values*/, std::size_t /*count*/) {}
#endif

}  // namespace

void ReserveInLargePages(std::vector<double>& values, std::size_t count) {
    if (values.capacity() >= count) return;
    values.reserve(count);
    PreferLargePages(values.data(), values.capacity());
}

}  // namespace ks
