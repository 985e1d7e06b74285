#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace ks {

/// How a write ended.
enum class WriteResult {
    Written,       ///< the file holds exactly the given bytes
    NotOpened,     ///< the target cannot be opened for writing; nothing was touched
    NotCompleted,  ///< writing failed on the way, for example on a full disk; the old file is as it was
};

/// Whether the file at `path` (UTF-8) can be opened for writing, or created where there is none. Touches nothing.
[[nodiscard]] bool CanWrite(const std::string& path);

/// Puts `bytes` into the file at `path` (UTF-8), replacing an old file only when the new one is complete: the bytes
/// go to a temporary file beside it, which then takes its place. Links are followed and permissions kept; a target
/// that is not a regular file, a device or a pipe, is written directly.
[[nodiscard]] WriteResult WriteFile(const std::string& path, std::span<const std::byte> bytes);
[[nodiscard]] WriteResult WriteFile(const std::string& path, std::string_view text);

}  // namespace ks
