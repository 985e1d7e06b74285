#include "cli/commands/output_conflicts.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "cli/commands/compare_options.h"
#include "cli/messages.h"
#include "cli/output/outputs.h"
#include "cli/output/page_files.h"
#include "cli/usage_error.h"
#include "compare/plots/page_table.h"
#include "files/native_path.h"
#include "files/same_file.h"
#include "files/write_target.h"

namespace {

namespace fs = std::filesystem;

void Refuse(const std::string& a, const std::string& b) {
    throw CUsageError(cli_message::OutputsShareFile(a, b));
}

/// Where an output goes: standard output is a file too when it was redirected into one.
std::string FileOf(const std::string& output) {
    return output == kStandardOutput ? "/dev/stdout" : output;
}

/// Outputs do not overwrite each other on a terminal or on /dev/null.
bool KeepsNothing(const std::string& path) {
    std::error_code error;
    return fs::is_character_file(ks::NativePath(path), error);
}

/// The outputs whose paths are known before the run.
std::vector<std::string> KnownOutputs(const CCompareOptions& options) {
    std::vector<std::string> paths;
    for (const std::optional<std::string>& path : {options.html, options.json, options.csv}) {
        if (path) paths.push_back(*path);
    }
    if (options.asciiFolder) {
        for (const std::int32_t id : PageIds()) paths.push_back(AsciiPagePath(*options.asciiFolder, id));
    }
    return paths;
}

void RefuseEqual(const std::vector<std::string>& paths) {
    for (std::size_t i = 0; i < paths.size(); ++i) {
        for (std::size_t j = i + 1; j < paths.size(); ++j) {
            const std::string first = FileOf(paths[i]);
            if (ks::IsSameFile(first, FileOf(paths[j])) && !KeepsNothing(first)) Refuse(paths[i], paths[j]);
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

void RefuseUdsPages(const std::string& folder, const std::vector<std::string>& paths) {
    const std::vector<std::string> existing = UdsPagesIn(folder);
    for (const std::string& path : paths) {
        if (const std::optional<std::string> page = UdsPageAt(path, folder, existing)) Refuse(path, *page);
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
    const std::vector<std::string> paths = KnownOutputs(options);
    RefuseEqual(paths);
    if (options.udsFolder) RefuseUdsPages(*options.udsFolder, paths);
}
