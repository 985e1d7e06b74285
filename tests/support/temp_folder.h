#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// A folder of a test's own, deleted with the object.
class CTempFolder {
public:
    CTempFolder();
    CTempFolder(const CTempFolder&) = delete;
    CTempFolder& operator=(const CTempFolder&) = delete;
    ~CTempFolder();

    /// UTF-8 path of `name` in the folder.
    [[nodiscard]] std::string Path(std::string_view name) const;
    /// Writes a file and gives its path; throws where it cannot, which fails the test in any framework.
    std::string Write(std::string_view name, std::string_view bytes) const;
    /// The names in the folder, sorted, one per line.
    [[nodiscard]] std::string Listing() const;

private:
    std::filesystem::path m_folder;
};

/// The whole file as bytes. Throws where there is none, which fails the test in any framework.
std::string ReadAll(const std::string& path);
