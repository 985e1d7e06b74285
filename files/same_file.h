#pragma once

#include <string>

namespace ks {

/// Whether both paths (UTF-8) lead to the same file, existing or not: the test for two outputs on one path.
///
/// Existing files are the same when the system says so, whatever their names: through "./", "..", symbolic links and
/// several names of one file. If one does not exist yet, the places where the files would be created are compared,
/// links followed. A text that cannot be a path, for example an empty one, is never the same file as another.
bool IsSameFile(const std::string& a, const std::string& b);

/// Whether writing to `target` would replace the file at `source` (both UTF-8): the test for an output on an input. As
/// IsSameFile, but a source that does not exist, or no longer exists, has nothing to lose.
bool WouldReplace(const std::string& target, const std::string& source);

}  // namespace ks
