#pragma once

#include "files/byte_source.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <span>
#include <string>

namespace ks {

/// A file opened for reading; the one place where files/ opens its input.
class CInputFile : public CByteSource {
public:
    /// Opens the file at `path` (UTF-8) in binary mode. Only regular files are opened: a directory has no bytes,
    /// and a pipe or a device could keep the program waiting.
    /// @return false when there is no such file or it cannot be read
    [[nodiscard]] bool Open(const std::string& path);

    /// Finds out the size.
    /// @return false when the system does not report it
    [[nodiscard]] bool FindSize();

    std::uint64_t Size() const override { return m_size; }
    std::size_t Read(std::span<std::byte> target) override;

private:
    std::ifstream m_stream;
    std::uint64_t m_size = 0;
};

}  // namespace ks
