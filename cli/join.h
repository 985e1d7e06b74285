#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

/// The texts in order, joined with one allocation.
inline std::string Join(std::initializer_list<std::string_view> texts) {
    std::size_t size = 0;
    for (const std::string_view text : texts) size += text.size();
    std::string joined;
    joined.reserve(size);
    for (const std::string_view text : texts) joined += text;
    return joined;
}
