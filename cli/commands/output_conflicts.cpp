#include "cli/commands/output_conflicts.h"

#include "cli/commands/compare_options.h"
#include "cli/messages.h"
#include "cli/output/outputs.h"
#include "cli/output/page_files.h"
#include "cli/usage_error.h"
#include "compare/plots/page_table.h"
#include "files/native_path.h"
#include "files/same_file.h"
#include "files/write_target.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

void Refuse(const std::string& a, const std::string& b) {
    throw CUsageError(cli_message::OutputsShareFile(a, b));
}

/// An output with a path that is known before the run.
struct COutput {
    std::string name;  ///< for sentences
    std::string path;
};

/// Standard output is a file too when it was redirected into one.
COutput StandardOutput(std::string name) {
    return {std::move(name), "/dev/stdout"};
}

/// Outputs do not overwrite each other on a terminal or on /dev/null.
bool KeepsNothing(const std::string& path) {
    std::error_code error;
    return fs::is_character_file(ks::NativePath(path), error);
}

std::vector<COutput> KnownOutputs(const CCompareOptions& options) {
    std::vector<COutput> outputs;
    for (const std::optional<std::string>& path : {options.html, options.json, options.csv}) {
        if (path) outputs.push_back(*path == kStandardOutput ? StandardOutput(*path) : COutput{*path, *path});
    }
    if (options.asciiFolder) {
        for (const std::int32_t id : PageIds()) {
            const std::string path = AsciiPagePath(*options.asciiFolder, id);
            outputs.push_back({path, path});
        }
    }
    if (options.PrintsTable()) outputs.push_back(StandardOutput(std::string(cli_message::kTable)));
    return outputs;
}

void RefuseEqual(const std::vector<COutput>& outputs) {
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        for (std::size_t j = i + 1; j < outputs.size(); ++j) {
            const auto& [name, path] = outputs[i];
            if (ks::IsSameFile(path, outputs[j].path) && !KeepsNothing(path)) Refuse(name, outputs[j].name);
        }
    }
}

/// The file in `folder` that has the name of a page's series and is the file at `path`, whether it exists or not.
std::optional<std::string> UdsPageAt(const std::string& path, const std::string& folder,
                                     const std::vector<std::string>& existing) {
    for (const std::string& page : existing) {
        if (ks::IsSameFile(path, page)) return page;
    }
    const std::optional<ks::CWriteTarget> target = ks::CWriteTarget::Find(path);
    if (!target) return std::nullopt;
    const std::string name = ks::Utf8Path(target->Path().filename());
    const std::string page = PathIn(folder, name);
    return IsUdsPageName(name) && ks::IsSameFile(path, page) ? std::optional(page) : std::nullopt;
}

bool HasOtherNames(const std::string& path) {
    std::error_code error;
    const fs::path native = ks::NativePath(path);
    return fs::is_symlink(fs::symlink_status(native, error)) || fs::hard_link_count(native, error) > 1;
}

void RefuseUdsPages(const std::string& folder, const std::vector<COutput>& outputs) {
    const std::vector<std::string> existing = UdsPagesIn(folder);
    for (const auto& [name, path] : outputs) {
        if (const std::optional<std::string> page = UdsPageAt(path, folder, existing)) Refuse(name, *page);
    }
    for (const std::string& page : existing) {
        if (!HasOtherNames(page)) continue;
        for (const std::string& other : existing) {
            if (page != other && ks::IsSameFile(page, other)) Refuse(page, other);
        }
    }
}

}  // namespace

void RefuseSharedOutputs(const CCompareOptions& options) {
    const std::vector<COutput> outputs = KnownOutputs(options);
    RefuseEqual(outputs);
    if (options.udsFolder) RefuseUdsPages(*options.udsFolder, outputs);
}
