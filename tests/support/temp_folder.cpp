#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <system_error>

CTempFolder::CTempFolder() {
    std::random_device random;
    do {
        m_folder = std::filesystem::temp_directory_path() / ("quorvel-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(m_folder));
}

CTempFolder::~CTempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string CTempFolder::Path(std::string_view name) const {
    return (m_folder / name).string();
}

std::string CTempFolder::Write(std::string_view name, std::string_view bytes) const {
    const std::string path = Path(name);
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

std::string CTempFolder::Listing() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder))
        names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& name : names) text += name + "\n";
    return text;
}

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}
