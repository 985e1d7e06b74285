#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ks {

/// A UTF-8 path in the platform's form. Empty, which names no file, for a text that cannot be a path: one with a zero
/// byte, or on Windows one that is not UTF-8.
std::filesystem::path NativePath(std::string_view utf8);

/// The path as UTF-8 text. Outside Windows its bytes as they are.
std::string Utf8Path(const std::filesystem::path& path);

}  // namespace ks
