#include "files/native_path.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace ks {

std::filesystem::path NativePath(std::string_view utf8) {
    if (utf8.find('\0') != std::string_view::npos) return {};
    try {
        return {std::u8string(utf8.begin(), utf8.end())};
    } catch (const std::system_error&) {
        return {};
    }
}

std::string Utf8Path(const std::filesystem::path& path) {
#ifdef _WIN32
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
#else
    return path.string();
#endif
}

}  // namespace ks
