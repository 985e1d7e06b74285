#pragma once

#include <string_view>

namespace ks {

/// The part of `path` after the last '/' or '\' and after a drive prefix such as "C:"; both separators count on every
/// platform. A path that ends in a separator gives an empty text.
std::string_view FileNameOf(std::string_view path);

/// The part of `path` before FileNameOf(path), including the separator.
std::string_view FolderOf(std::string_view path);

}  // namespace ks
