#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/replacing_file.h"

namespace ks {

/// Reads a hit list: one path per line, ended by LF or CR LF; a last line without an end counts. Empty lines are
/// skipped, every other line is taken whole, blanks included, in file order. Bytes are taken as UTF-8 as they are.
/// @return no value when the file at `path` cannot be opened
std::optional<std::vector<std::string>> ReadHitList(const std::string& path);

/// Writes every path followed by CR LF.
[[nodiscard]] WriteResult WriteHitList(const std::string& path, const std::vector<std::string>& files);

}  // namespace ks
