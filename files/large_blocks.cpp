// The allocation of memory for our programs, to be linked into an executable: blocks of several megabytes begin at a
// large page and are asked for in large pages. For a long signal, memory in small pages costs the system more time than
// reading the file costs us. Where the system has no such pages, this is the usual allocation. Libraries of ours do not
// contain it: how a program allocates is the program's choice.

#include <cstddef>
#include <cstdlib>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace {

#if defined(__linux__)
constexpr std::size_t kLargePage = std::size_t{1} << 21U;

/// Null where there is too little memory for the alignment as well. The last page is a large one only when at least
/// half of it is needed.
void* AllocateLarge(std::size_t size) {
    constexpr std::size_t kLargestSize = static_cast<std::size_t>(-1) / 2;
    if (size > kLargestSize) return nullptr;
    const std::size_t whole = (size + kLargePage - 1) / kLargePage * kLargePage;
    void* const memory = std::aligned_alloc(kLargePage, whole);
    if (memory == nullptr) return nullptr;
    static_cast<void>(madvise(memory, (size + kLargePage / 2) / kLargePage * kLargePage, MADV_HUGEPAGE));
    return memory;
}
#else
constexpr std::size_t kLargePage = static_cast<std::size_t>(-1) / 2;

void* AllocateLarge(std::size_t /*size*/) {
    return nullptr;
}
#endif

void* Allocate(std::size_t size) {
    if (size >= 2 * kLargePage) {
        void* const memory = AllocateLarge(size);
        if (memory != nullptr) return memory;
    }
    return std::malloc(size > 0 ? size : 1);
}

}  // namespace

void* operator new(std::size_t size) {
    while (true) {
        void* const memory = Allocate(size);
        if (memory != nullptr) return memory;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) throw std::bad_alloc();
        handler();
    }
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
