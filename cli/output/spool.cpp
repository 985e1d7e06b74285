#include "cli/output/spool.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kBytesAtATime = 65536;

}  // namespace

CSpool::CSpool() : m_file(std::tmpfile()) {
    // Without a buffer, what fwrite counts is on the disk.
    if (m_file) std::setvbuf(m_file.get(), nullptr, _IONBF, 0);
}

void CSpool::Put(std::string_view text) {
    std::size_t written = 0;
    if (m_file && m_rest.empty()) written = std::fwrite(text.data(), 1, text.size(), m_file.get());
    m_size += written;
    if (written < text.size()) m_rest.emplace_back(text.substr(written));
}

bool CSpool::HandOver(const TextSink& take) {
    std::array<char, kBytesAtATime> buffer{};
    if (m_size > 0 && std::fseek(m_file.get(), 0, SEEK_SET) != 0) return false;
    for (std::uint64_t left = m_size; left > 0;) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(left, buffer.size()));
        const std::size_t count = std::fread(buffer.data(), 1, wanted, m_file.get());
        if (count == 0) return false;
        take({buffer.data(), count});
        left -= count;
    }
    for (const std::string& text : m_rest) take(text);
    return true;
}
