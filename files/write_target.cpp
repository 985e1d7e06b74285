#include "files/write_target.h"

#include "files/native_path.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ks {
namespace {

namespace fs = std::filesystem;

constexpr int kLongestLinkChain = 40;

#ifdef _WIN32
bool MayWrite(const fs::path& path) {
    return _waccess(path.c_str(), 2) == 0;
}
#else
bool MayWrite(const fs::path& path) {
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}
#endif

}  // namespace

std::optional<fs::path> EndOfLinks(fs::path path) {
    std::error_code error;
    for (int i = 0; i < kLongestLinkChain; ++i) {
        if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
        path = path.parent_path() / fs::read_symlink(path, error);
        if (error) return std::nullopt;
    }
    return std::nullopt;
}

std::optional<CWriteTarget> CWriteTarget::Find(const std::string& path) {
    const fs::path given = NativePath(path);
    if (given.empty()) return std::nullopt;
    std::error_code error;
    CWriteTarget target(given, fs::status(given, error));

    if (target.IsNew()) {
        std::optional<fs::path> end = EndOfLinks(given);
        if (!end.has_value() || !end->has_filename()) return std::nullopt;
        target.m_path = std::move(*end);
    } else if (target.IsRegular()) {
        target.m_path = fs::canonical(given, error);
        if (error) return std::nullopt;
    }
    return target;
}

fs::path CWriteTarget::Folder() const {
    return m_path.has_parent_path() ? m_path.parent_path() : fs::path(".");
}

bool CWriteTarget::HasSeveralNames() const {
    std::error_code error;
    return IsRegular() && fs::hard_link_count(m_path, error) > 1 && !error;
}

bool CWriteTarget::CanBeWritten() const {
    if (m_status.type() == fs::file_type::directory || m_status.type() == fs::file_type::none) return false;
    if (!IsNew()) return MayWrite(m_path);
    std::error_code error;
    return fs::is_directory(Folder(), error) && MayWrite(Folder());
}

}  // namespace ks
