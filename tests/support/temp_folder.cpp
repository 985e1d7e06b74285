#include "tests/support/temp_folder.h"

#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
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
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
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
    if (!file.is_open()) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}
