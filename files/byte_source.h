#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

/// Bytes that are read once, front to back.
class CByteSource {
public:
    CByteSource() = default;
    CByteSource(const CByteSource&) = delete;
    CByteSource& operator=(const CByteSource&) = delete;
    virtual ~CByteSource() = default;

    /// Total size in bytes at the time the source was opened.
    [[nodiscard]] virtual std::uint64_t Size() const = 0;

    /// Fills `target` from the front with the next bytes.
    /// @return how many there were; fewer than `target` holds only at the end
    virtual std::size_t Read(std::span<std::byte> target) = 0;
};

}  // namespace ks
