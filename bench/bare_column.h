#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>

#if defined(__linux__)
#include <sys/mman.h>
#endif

/// Memory for numbers, not initialized. Long columns ask for large pages, which cost a fraction of the same memory in
/// small pages; so the bare loops show what memory need not cost.
class CBareColumn {
public:
    CBareColumn() = default;
    explicit CBareColumn(std::size_t count) : m_count(count) {
        const std::size_t size = count * sizeof(double);
        const std::size_t alignment = size < kLargePage ? kCacheLine : kLargePage;
        const std::size_t whole = (size / alignment + 1) * alignment;
        m_values.reset(static_cast<double*>(std::aligned_alloc(alignment, whole)));
#if defined(__linux__)
        if (alignment == kLargePage) madvise(m_values.get(), whole, MADV_HUGEPAGE);
#endif
    }

    /// Forgets the values from `count` on.
    void Shorten(std::size_t count) {
        m_count = count;
    }

    [[nodiscard]] std::span<double> Values() const {
        return {m_values.get(), m_count};
    }

private:
    static constexpr std::size_t kCacheLine = 64;
    static constexpr std::size_t kLargePage = std::size_t{1} << 21U;

    class CFree {
    public:
        void operator()(double* values) const { std::free(values); }
    };

    std::unique_ptr<double, CFree> m_values;
    std::size_t m_count = 0;
};
