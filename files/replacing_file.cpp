#include "files/replacing_file.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <random>
#include <system_error>

#include "files/native_path.h"

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
constexpr int kTemporaryNameTries = 100;

class CCloseStream {
public:
    void operator()(std::FILE* stream) const { static_cast<void>(std::fclose(stream)); }
};
using CStream = std::unique_ptr<std::FILE, CCloseStream>;

// What the platforms do differently.

#ifdef _WIN32
bool MayWrite(const fs::path& path) {
    return _waccess(path.c_str(), 2) == 0;
}
CStream CreateNew(const fs::path& path) {
    return CStream(_wfopen(path.c_str(), L"wbx"));
}
CStream OpenSpecial(const fs::path& path) {
    return CStream(_wfopen(path.c_str(), L"wb"));
}
bool ReachesTheDisk(std::FILE* stream) {
    return _commit(_fileno(stream)) == 0;
}
#else
bool MayWrite(const fs::path& path) {
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

CStream CreateNew(const fs::path& path) {
    return CStream(std::fopen(path.c_str(), "wbx"));
}

/// Without O_NONBLOCK the opening of a pipe that nobody reads would never return.
CStream OpenSpecial(const fs::path& path) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) return nullptr;
    const int flags = ::fcntl(descriptor, F_GETFL);
    if (flags >= 0) ::fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK);
    CStream stream(::fdopen(descriptor, "wb"));
    if (stream == nullptr) ::close(descriptor);
    return stream;
}

bool ReachesTheDisk(std::FILE* stream) {
    return ::fsync(::fileno(stream)) == 0;
}
#endif

/// Where the bytes go.
class CTarget {
public:
    fs::path path;  ///< links followed
    fs::file_status status;

    bool IsNew() const { return status.type() == fs::file_type::not_found; }
    bool IsRegular() const { return status.type() == fs::file_type::regular; }
    bool IsFolder() const { return status.type() == fs::file_type::directory; }
};

/// The file that a chain of links whose end does not exist yet would create.
std::optional<fs::path> EndOfLinks(fs::path path) {
    std::error_code error;
    for (int i = 0; i < kLongestLinkChain; ++i) {
        if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
        path = path.parent_path() / fs::read_symlink(path, error);
        if (error) return std::nullopt;
    }
    return std::nullopt;
}

fs::path FolderOfTarget(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

std::optional<CTarget> FindTarget(const std::string& path) {
    CTarget target{NativePath(path), {}};
    if (target.path.empty()) return std::nullopt;
    std::error_code error;
    target.status = fs::status(target.path, error);

    if (target.IsNew()) {
        const std::optional<fs::path> end = EndOfLinks(target.path);
        if (!end.has_value() || !end->has_filename()) return std::nullopt;
        target.path = *end;
    } else if (target.IsRegular()) {
        target.path = fs::canonical(target.path, error);
        if (error) return std::nullopt;
    }
    return target;
}

bool TargetCanBeWritten(const CTarget& target) {
    if (target.IsFolder() || target.status.type() == fs::file_type::none) return false;
    if (!target.IsNew() && !MayWrite(target.path)) return false;
    if (!target.IsNew() && !target.IsRegular()) return true;
    // The new file is made in the folder, whether or not an old one is there.
    std::error_code error;
    const fs::path folder = FolderOfTarget(target.path);
    return fs::is_directory(folder, error) && MayWrite(folder);
}

/// A new file beside the target, removed again unless it was put in the target's place.
class CTemporaryFile {
public:
    explicit CTemporaryFile(const CTarget& target) : m_target(target) {}
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;
    ~CTemporaryFile() {
        m_stream.reset();
        if (m_path.empty()) return;
        std::error_code ignored;
        fs::remove(m_path, ignored);
    }

    bool Create();
    bool KeepPermissions();
    bool Fill(std::span<const std::byte> bytes);
    bool TakeThePlace();

private:
    const CTarget& m_target;
    fs::path m_path;
    CStream m_stream;
};

bool CTemporaryFile::Create() {
    std::random_device random;
    for (int i = 0; i < kTemporaryNameTries; ++i) {
        // A short name of its own: the target's may already be as long as the system allows.
        const fs::path path = FolderOfTarget(m_target.path) / (".quorvel-" + std::to_string(random()) + ".tmp");
        m_stream = CreateNew(path);
        if (m_stream != nullptr) {
            m_path = path;
            return true;
        }
        std::error_code error;
        if (!fs::exists(path, error)) return false;
    }
    return false;
}

bool CTemporaryFile::KeepPermissions() {
    if (m_target.IsNew()) return true;
    std::error_code error;
    fs::permissions(m_path, m_target.status.permissions(), error);
    return !error;
}

bool CTemporaryFile::Fill(std::span<const std::byte> bytes) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), m_stream.get()) == bytes.size() &&
                         std::fflush(m_stream.get()) == 0 && ReachesTheDisk(m_stream.get());
    return std::fclose(m_stream.release()) == 0 && written;
}

bool CTemporaryFile::TakeThePlace() {
    std::error_code error;
    fs::rename(m_path, m_target.path, error);
    if (!error) m_path.clear();
    return !error;
}

WriteResult WriteDirectly(const fs::path& path, std::span<const std::byte> bytes) {
    CStream stream = OpenSpecial(path);
    if (stream == nullptr) return WriteResult::NotOpened;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size();
    const bool closed = std::fclose(stream.release()) == 0;
    return written && closed ? WriteResult::Written : WriteResult::NotCompleted;
}

}  // namespace

bool CanWrite(const std::string& path) {
    const std::optional<CTarget> target = FindTarget(path);
    return target.has_value() && TargetCanBeWritten(*target);
}

WriteResult WriteFile(const std::string& path, std::span<const std::byte> bytes) {
    const std::optional<CTarget> target = FindTarget(path);
    if (!target.has_value() || !TargetCanBeWritten(*target)) return WriteResult::NotOpened;
    if (!target->IsNew() && !target->IsRegular()) return WriteDirectly(target->path, bytes);

    CTemporaryFile file(*target);
    if (!file.Create()) return WriteResult::NotOpened;
    const bool complete = file.KeepPermissions() && file.Fill(bytes) && file.TakeThePlace();
    return complete ? WriteResult::Written : WriteResult::NotCompleted;
}

WriteResult WriteFile(const std::string& path, std::string_view text) {
    return WriteFile(path, std::as_bytes(std::span(text)));
}

}  // namespace ks
