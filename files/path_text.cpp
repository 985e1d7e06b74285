#include "files/path_text.h"

#include <cstddef>
#include <string_view>

namespace ks {
namespace {

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::size_t DrivePrefixLength(std::string_view path) {
    return path.size() >= 2 && IsLetter(path[0]) && path[1] == ':' ? 2 : 0;
}

std::size_t NameStart(std::string_view path) {
    const std::size_t separator = path.find_last_of("/\\");
    return separator == std::string_view::npos ? DrivePrefixLength(path) : separator + 1;
}

}  // namespace

std::string_view FileNameOf(std::string_view path) {
    return path.substr(NameStart(path));
}

std::string_view FolderOf(std::string_view path) {
    return path.substr(0, NameStart(path));
}

}  // namespace ks
