#include "cli/commands/compare_options.h"

#include "cli/arguments.h"
#include "cli/commands/compare_declarations.h"
#include "cli/commands/rating_options.h"
#include "cli/messages.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "signal/channel_class.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// More threads than any machine of today has processors.
constexpr unsigned kMostJobs = 1024;

std::optional<std::int32_t> ReadClass(const CArguments& arguments) {
    const std::optional<std::string> text = arguments.Value("--cfc");
    if (!text) {
        return std::nullopt;
    }
    for (const std::int32_t channelClass : ks::kChannelClasses) {
        if (std::to_string(channelClass) == *text) {
            return channelClass;
        }
    }
    throw CUsageError(cli_message::ClassNotKnown(kClassNames, *text));
}

std::optional<CWindow> ReadWindow(const CArguments& arguments) {
    const std::vector<std::string>& values = arguments.Values("--window");
    if (values.empty()) {
        return std::nullopt;
    }
    const CWindow window{ReadNumber("--window", values[0]), ReadNumber("--window", values[1])};
    if (!(window.min < window.max)) {
        throw CUsageError(cli_message::WindowNotAscending(values[0], values[1]));
    }
    return window;
}

double ReadCorridor(const CArguments& arguments, double fallback) {
    const std::optional<std::string> text = arguments.Value("--corridor");
    if (!text) {
        return fallback;
    }
    const double size = ReadNumber("--corridor", *text);
    if (!(size > 0.0)) {
        throw CUsageError(cli_message::CorridorNotPositive(*text));
    }
    return size;
}

unsigned ReadJobs(const CArguments& arguments) {
    const std::optional<std::string> text = arguments.Value("--jobs");
    if (!text) return std::max(std::thread::hardware_concurrency(), 1U);
    unsigned jobs = 0;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), jobs);
    if (error != std::errc() || end != text->data() + text->size() || jobs < 1 || jobs > kMostJobs) {
        throw CUsageError(cli_message::JobsNotKnown(kMostJobs, *text));
    }
    return jobs;
}

CVerbosity ReadVerbosity(const CArguments& arguments) {
    const bool isQuiet = arguments.Has("--quiet");
    if (isQuiet && arguments.Has("--verbose")) {
        throw CUsageError(cli_message::kQuietAndVerbose);
    }
    if (isQuiet) {
        return CVerbosity::Quiet;
    }
    return arguments.Has("--verbose") ? CVerbosity::Verbose : CVerbosity::Usual;
}

bool IsStandardOutput(const std::optional<std::string>& path) {
    return path == kStandardOutput;
}

std::ptrdiff_t StandardOutputCount(const CCompareOptions& options) {
    const std::array<bool, 3> uses = {IsStandardOutput(options.html), IsStandardOutput(options.json),
                                      IsStandardOutput(options.csv)};
    return std::count(uses.begin(), uses.end(), true);
}

void RefuseEmptyPaths(const CArguments& arguments) {
    for (const std::string_view option :
         {"--hit-list", "--reference", "--html", "--json", "--csv", "--ascii", "--uds"}) {
        for (const std::string& path : arguments.Values(option)) {
            if (path.empty()) {
                throw CUsageError(cli_message::EmptyPath(option));
            }
        }
    }
}

}  // namespace

bool CCompareOptions::UsesStandardOutput() const {
    return StandardOutputCount(*this) > 0;
}

CCompareOptions ParseCompareOptions(const std::vector<std::string>& arguments) {
    const CArguments given(kCompareOptions, arguments);
    RefuseEmptyPaths(given);
    CCompareOptions options;
    options.files = given.Files();
    options.hitLists = given.Values("--hit-list");
    options.reference = given.Value("--reference");
    options.cfc = ReadClass(given);
    options.shouldFilterReference = !given.Has("--no-filter-reference");
    options.window = ReadWindow(given);
    options.corridor = ReadCorridor(given, options.corridor);
    options.ratings = ReadRatings(given);
    CJudging judging = ReadJudging(given, options.ratings);
    options.critical = judging.critical;
    options.ratingLimits = judging.ratingLimits;
    options.failOnBad = std::move(judging.failOnBad);
    options.failOnBadRating = std::move(judging.failOnBadRating);
    options.html = given.Value("--html");
    options.json = given.Value("--json");
    options.csv = given.Value("--csv");
    options.shouldWritePages = given.Has("--pages");
    options.asciiFolder = given.Value("--ascii");
    options.udsFolder = given.Value("--uds");
    options.verbosity = ReadVerbosity(given);
    options.jobs = ReadJobs(given);
    if (options.files.empty() && options.hitLists.empty()) {
        throw CUsageError(cli_message::kNoFileToCompare);
    }
    if (StandardOutputCount(options) > 1) {
        throw CUsageError(cli_message::kSeveralOnStandardOutput);
    }
    return options;
}
