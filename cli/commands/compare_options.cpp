#include "cli/commands/compare_options.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "cli/arguments.h"
#include "cli/criteria.h"
#include "cli/messages.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "files/number_text.h"
#include "signal/channel_class.h"

namespace {

const std::string kClasses = ks::ChannelClassList(", ", " or ");
const std::string kClassArgument = "a channel class: " + kClasses;

const std::array<COptionDeclaration, 16> kOptions = {{
    {"--hit-list", COptionKind::Repeatable, "the PATH of a hit list"},
    {"--reference", COptionKind::Single, "the PATH of a signal file"},
    {"--cfc", COptionKind::Single, kClassArgument},
    {"--no-filter-reference", COptionKind::Flag, ""},
    {"--window", COptionKind::Pair, "two numbers, MIN and MAX"},
    {"--corridor", COptionKind::Single, "a SIZE greater than 0"},
    {"--critical", COptionKind::Repeatable, "NAME=VALUE, for example moment=0.3"},
    {"--html", COptionKind::Single, "a PATH to write to"},
    {"--json", COptionKind::Single, "a PATH to write to, or - for standard output"},
    {"--csv", COptionKind::Single, "a PATH to write to, or - for standard output"},
    {"--pages", COptionKind::Flag, ""},
    {"--ascii", COptionKind::Single, "a DIR to write to"},
    {"--uds", COptionKind::Single, "a DIR to write to"},
    {"--fail-on-bad", COptionKind::Names, "names after =, or no ="},
    {"--quiet", COptionKind::Flag, ""},
    {"--verbose", COptionKind::Flag, ""},
}};

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
    throw CUsageError(cli_message::ClassNotKnown(kClasses, *text));
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
    const CArguments given(kOptions, arguments);
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
    if (options.files.empty() && options.hitLists.empty()) {
        throw CUsageError(cli_message::kNoFileToCompare);
    }
    if (StandardOutputCount(options) > 1) {
        throw CUsageError(cli_message::kSeveralOnStandardOutput);
    }
    return options;
}

std::vector<std::string> CompareOptionNames() {
    std::vector<std::string> names;
    names.reserve(kOptions.size());
    for (const COptionDeclaration& declaration : kOptions) names.emplace_back(declaration.name);
    return names;
}
