#include "cli/output/page_files.h"

#include "cli/output/outputs.h"
#include "compare/plots/page_table.h"
#include "files/native_path.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kStem = "page-";
constexpr std::string_view kUdsExtension = ".uds";

std::string PageStem(std::int32_t pageId) {
    return std::string(kStem) + std::to_string(pageId);
}

/// A whole number from 1, as std::to_string writes it: only digits, without leading zeros.
std::optional<std::int64_t> ReadCount(std::string_view text) {
    std::int64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isWhole && value >= 1 && text.front() != '0' ? std::optional(value) : std::nullopt;
}

bool IsPage(std::int64_t id) {
    return std::ranges::any_of(PageTable(), [id](const CPage& row) { return row.id == id; });
}

}  // namespace

std::string AsciiPagePath(const std::string& folder, std::int32_t pageId) {
    return PathIn(folder, PageStem(pageId) + ".txt");
}

std::string UdsPagePath(const std::string& folder, std::int32_t pageId, std::size_t number) {
    return PathIn(folder, PageStem(pageId) + "-" + std::to_string(number) + std::string(kUdsExtension));
}

bool IsUdsPageName(std::string_view name) {
    if (!name.starts_with(kStem) || !name.ends_with(kUdsExtension)) return false;
    name.remove_prefix(kStem.size());
    name.remove_suffix(kUdsExtension.size());
    const std::size_t hyphen = name.find('-');
    if (hyphen == std::string_view::npos) return false;
    const std::optional<std::int64_t> id = ReadCount(name.substr(0, hyphen));
    return id.has_value() && IsPage(*id) && ReadCount(name.substr(hyphen + 1)).has_value();
}

std::vector<std::string> UdsPagesIn(const std::string& folder) {
    std::vector<std::string> paths;
    std::error_code error;
    for (fs::directory_iterator entry(ks::NativePath(folder), error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = ks::Utf8Path(entry->path().filename());
        const bool isFile = fs::is_symlink(entry->symlink_status(error)) || fs::is_regular_file(entry->status(error));
        if (IsUdsPageName(name) && isFile) paths.push_back(PathIn(folder, name));
    }
    std::ranges::sort(paths);
    return paths;
}
