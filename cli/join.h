#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
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

/// "a, b and c"
inline std::string NameList(std::span<const std::string_view> names) {
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) list += i + 1 == names.size() ? " and " : ", ";
        list += names[i];
    }
    return list;
}
