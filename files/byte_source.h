#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

/// Bytes that are read once, front to back: a file or a piece of memory.
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

/// Bytes in memory, which must outlive the source.
class CMemorySource : public CByteSource {
public:
    explicit CMemorySource(std::span<const std::byte> bytes) : m_size(bytes.size()), m_left(bytes) {}

    [[nodiscard]] std::uint64_t Size() const override { return m_size; }
    std::size_t Read(std::span<std::byte> target) override;

private:
    std::uint64_t m_size;
    std::span<const std::byte> m_left;
};

}  // namespace ks
