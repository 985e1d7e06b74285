#pragma once

#include <string>

namespace ks {

/// Whether both paths (UTF-8) lead to one file, be it there already or not: the test for two outputs on one path.
///
/// Existing files are the same when the system says so, whatever their names: through "./", "..", symbolic links and
/// several names of one file. Where one does not exist yet, the places are compared at which the files would be made,
/// links followed. A text that cannot be a path, an empty one for example, is the same file as none.
bool IsSameFile(const std::string& a, const std::string& b);

/// Whether writing to `target` would replace the file at `source` (both UTF-8): the test for an output on an input. As
/// IsSameFile, but a source that does not exist, or exists no more, has nothing to lose.
bool WouldReplace(const std::string& target, const std::string& source);

}  // namespace ks
