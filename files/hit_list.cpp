#include "files/hit_list.h"

#include "files/input_file.h"
#include "files/replacing_file.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ks {
namespace {

constexpr std::uint64_t kLargestHitList = std::uint64_t{64} << 20U;

std::string_view WithoutCarriageReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

}  // namespace

std::vector<std::string> ParseHitList(std::string_view text) {
    std::vector<std::string> files;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const bool hasEnd = end != std::string_view::npos;
        const std::string_view line = hasEnd ? WithoutCarriageReturn(text.substr(0, end)) : text;
        if (!line.empty()) files.emplace_back(line);
        text.remove_prefix(hasEnd ? end + 1 : text.size());
    }
    return files;
}

std::string HitListText(const std::vector<std::string>& files) {
    std::string text;
    for (const std::string& file : files) text.append(file).append("\r\n");
    return text;
}

std::optional<std::vector<std::string>> ReadHitList(const std::string& path) {
    CInputFile file;
    if (!file.Open(path) || !file.FindSize() || file.Size() > kLargestHitList) return std::nullopt;
    std::string text(static_cast<std::size_t>(file.Size()), '\0');
    if (file.Read(std::as_writable_bytes(std::span(text))) < text.size()) return std::nullopt;
    return ParseHitList(text);
}

CWriteResult WriteHitList(const std::string& path, const std::vector<std::string>& files) {
    return WriteFile(path, HitListText(files));
}

}  // namespace ks
