#pragma once

#include "files/byte_source.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

/// Bytes in memory, which must outlive the source.
class CMemorySource : public ks::CByteSource {
public:
    explicit CMemorySource(std::span<const std::byte> bytes) : m_size(bytes.size()), m_left(bytes) {}

    [[nodiscard]] std::uint64_t Size() const override { return m_size; }
    std::size_t Read(std::span<std::byte> target) override {
        const std::size_t count = std::min(target.size(), m_left.size());
        std::ranges::copy(m_left.first(count), target.begin());
        m_left = m_left.subspan(count);
        return count;
    }

private:
    std::uint64_t m_size;
    std::span<const std::byte> m_left;
};
