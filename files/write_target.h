#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace ks {

/// The file that opening `path` for writing would create or open, also at the end of links that lead nowhere yet. No
/// value for a link that cannot be read, and for a chain of more than 40.
std::optional<std::filesystem::path> EndOfLinks(std::filesystem::path path);

/// Where the bytes of a file go.
class CWriteTarget {
public:
    /// The file at `path` (UTF-8), links followed; also one that does not exist yet, at the end of links that lead
    /// nowhere. No value when there can be no file.
    static std::optional<CWriteTarget> Find(const std::string& path);

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }
    [[nodiscard]] std::filesystem::path Folder() const;
    [[nodiscard]] std::filesystem::perms Permissions() const { return m_status.permissions(); }

    [[nodiscard]] bool IsNew() const { return m_status.type() == std::filesystem::file_type::not_found; }
    [[nodiscard]] bool IsRegular() const { return m_status.type() == std::filesystem::file_type::regular; }
    /// Whether a file made next to it and renamed would leave other names with the old content.
    [[nodiscard]] bool HasSeveralNames() const;

    /// Whether this user may write it, or create it where it is new. Touches nothing.
    [[nodiscard]] bool CanBeWritten() const;

private:
    CWriteTarget(std::filesystem::path path, std::filesystem::file_status status)
        : m_path(std::move(path)), m_status(status) {}

    std::filesystem::path m_path;
    std::filesystem::file_status m_status;
};

}  // namespace ks
