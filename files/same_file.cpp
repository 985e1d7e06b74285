#include "files/same_file.h"

#include "files/native_path.h"
#include "files/write_target.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace ks {
namespace {

namespace fs = std::filesystem;

/// Where a file at `path` is, or would be created; empty when that is unknown.
fs::path PlaceOf(const fs::path& path) {
    if (path.empty()) return {};
    std::error_code error;
    const fs::path whole = fs::absolute(EndOfLinks(path).value_or(path), error);
    if (error) return {};
    const fs::path place = fs::weakly_canonical(whole, error);
    if (error) return {};
    return place.has_filename() ? place : place.parent_path();  // "folder/" is "folder"
}

}  // namespace

bool IsSameFile(const std::string& a, const std::string& b) {
    const fs::path place = PlaceOf(NativePath(a));
    return WouldReplace(a, b) || (!place.empty() && place == PlaceOf(NativePath(b)));
}

bool WouldReplace(const std::string& target, const std::string& source) {
    std::error_code error;
    return fs::equivalent(NativePath(target), NativePath(source), error) && !error;
}

}  // namespace ks
