#include "files/one_line.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace ks {

std::string OneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char byte) { return byte == '\t' || byte == '\r' || byte == '\n'; }, ' ');
    return line;
}

}  // namespace ks
