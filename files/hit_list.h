#pragma once

#include "files/replacing_file.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ks {

/// The paths of a hit list's text: one per line, ended by LF or CR LF; a last line without an end counts. Empty lines
/// are skipped, every other line is taken whole, blanks included, in order. Bytes are taken as UTF-8 as they are.
std::vector<std::string> ParseHitList(std::string_view text);

/// Every path followed by CR LF.
std::string HitListText(const std::vector<std::string>& files);

/// Reads the hit list at `path` (UTF-8).
/// @return no value when the file cannot be opened or read, or is larger than 64 MiB, which no list of paths is
std::optional<std::vector<std::string>> ReadHitList(const std::string& path);

/// Writes every path followed by CR LF.
[[nodiscard]] CWriteResult WriteHitList(const std::string& path, const std::vector<std::string>& files);

}  // namespace ks
