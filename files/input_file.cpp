#include "files/input_file.h"

#include "files/native_path.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <ios>
#include <span>
#include <string>
#include <system_error>

namespace ks {

bool CInputFile::Open(const std::string& path) {
    const std::filesystem::path native = NativePath(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(native, error)) return false;
    m_stream.open(native, std::ios::binary);
    return m_stream.is_open();
}

bool CInputFile::FindSize() {
    m_stream.seekg(0, std::ios::end);
    const std::streamoff size = m_stream.tellg();
    m_stream.seekg(0, std::ios::beg);
    if (!m_stream || size < 0) return false;
    m_size = static_cast<std::uint64_t>(size);
    return true;
}

std::size_t CInputFile::Read(std::span<std::byte> target) {
    m_stream.read(reinterpret_cast<char*>(target.data()), static_cast<std::streamsize>(target.size()));
    return static_cast<std::size_t>(m_stream.gcount());
}

}  // namespace ks
