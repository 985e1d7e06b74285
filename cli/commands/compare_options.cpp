#include "cli/commands/compare_options.h"

#include "cli/arguments.h"
#include "cli/commands/compare_declarations.h"
#include "cli/criteria.h"
#include "cli/messages.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "compare/critical_values.h"
#include "files/number_text.h"
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

double ReadNumber(std::string_view option, const std::string& text) {
    const std::optional<double> value = ks::ReadWholeNumber(text);
    if (!value) {
        throw CUsageError(cli_message::NumberNotRead(option, text));
    }
    return *value;
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

const CCriterion& ReadCriterion(std::string_view option, std::string_view name) {
    const CCriterion* const criterion = FindCriterion(name);
    if (criterion == nullptr) {
        throw CUsageError(cli_message::CriterionNotKnown(option, CriterionNames(), name));
    }
    return *criterion;
}

CCriticalValues ReadCriticalValues(const CArguments& arguments) {
    CCriticalValues values;
    for (const std::string& text : arguments.Values("--critical")) {
        const std::size_t equals = text.find('=');
        if (equals == std::string::npos) {
            throw CUsageError(cli_message::CriticalWithoutName(text));
        }
        const CCriterion& criterion = ReadCriterion("--critical", std::string_view(text).substr(0, equals));
        values.*criterion.limit = ReadNumber("--critical", text.substr(equals + 1));
    }
    return values;
}

std::vector<const CCriterion*> ReadFailOnBad(const CArguments& arguments) {
    std::vector<const CCriterion*> criteria;
    for (std::string_view names : arguments.Values("--fail-on-bad")) {
        if (names.empty()) {
            for (const CCriterion& criterion : Criteria()) criteria.push_back(&criterion);
            continue;
        }
        while (true) {
            const std::size_t comma = std::min(names.find(','), names.size());
            criteria.push_back(&ReadCriterion("--fail-on-bad", names.substr(0, comma)));
            if (comma == names.size()) break;
            names.remove_prefix(comma + 1);
        }
    }
    return criteria;
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
    options.critical = ReadCriticalValues(given);
    options.html = given.Value("--html");
    options.json = given.Value("--json");
    options.csv = given.Value("--csv");
    options.shouldWritePages = given.Has("--pages");
    options.asciiFolder = given.Value("--ascii");
    options.udsFolder = given.Value("--uds");
    options.failOnBad = ReadFailOnBad(given);
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
