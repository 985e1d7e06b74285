#include "files/byte_source.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace ks {

std::size_t CMemorySource::Read(std::span<std::byte> target) {
    const std::size_t count = std::min(target.size(), m_left.size());
    std::ranges::copy(m_left.first(count), target.begin());
    m_left = m_left.subspan(count);
    return count;
}

}  // namespace ks
