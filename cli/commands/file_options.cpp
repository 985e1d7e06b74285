#include "cli/commands/file_options.h"

#include <optional>
#include <string_view>

#include "cli/arguments.h"
#include "cli/commands/file_declarations.h"
#include "cli/join.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"

namespace {

// `toDo` and `done` say what the command does, "export" and "exported".
std::string OnlyFile(const CArguments& given, std::string_view toDo, std::string_view done) {
    const std::vector<std::string>& files = given.Files();
    if (files.empty()) {
        throw CUsageError(Join({"A FILE to ", toDo, " is needed."}));
    }
    if (files.size() > 1) {
        throw CUsageError(Join({"Only one FILE can be ", done, " at a time, not also: ", files[1]}));
    }
    return files.front();
}

std::string NeededValue(const CArguments& given, const COptionDeclaration& option) {
    const std::optional<std::string> value = given.Value(option.name);
    if (!value) {
        throw CUsageError(Join({"Option ", option.name, " is needed, with ", option.argument, "."}));
    }
    return *value;
}

std::string NeededPath(const CArguments& given, const COptionDeclaration& option) {
    const std::string path = NeededValue(given, option);
    if (path.empty()) {
        throw CUsageError(Join({"Option ", option.name, " takes a path that is not empty."}));
    }
    return path;
}

ks::CAsciiForm ReadForm(const CArguments& given) {
    const bool both = given.Has("--xy");
    const bool one = given.Has("--x");
    if (both && one) {
        throw CUsageError("Options --xy and --x exclude each other.");
    }
    if (!both && !one) {
        throw CUsageError("One of the options --xy and --x is needed.");
    }
    return both ? ks::CAsciiForm::XY : ks::CAsciiForm::X;
}

CTargetFormat ReadTargetFormat(const CArguments& given) {
    const std::string name = NeededValue(given, kTo);
    if (name == "ieee") {
        return CTargetFormat::Ieee;
    }
    if (name == "sun") {
        return CTargetFormat::Sun;
    }
    throw CUsageError("Option --to takes the number format ieee or sun, not: " + name);
}

}  // namespace

CShowOptions ParseShowOptions(const std::vector<std::string>& arguments) {
    const CArguments given(kShowOptions, arguments);
    if (given.Files().empty()) {
        throw CUsageError("At least one FILE to show is needed.");
    }
    return {given.Files(), given.Has("--json")};
}

CExportOptions ParseExportOptions(const std::vector<std::string>& arguments) {
    const CArguments given(kExportOptions, arguments);
    return {OnlyFile(given, "export", "exported"), ReadForm(given), NeededPath(given, kOut)};
}

CConvertOptions ParseConvertOptions(const std::vector<std::string>& arguments) {
    const CArguments given(kConvertOptions, arguments);
    return {OnlyFile(given, "convert", "converted"), ReadTargetFormat(given), NeededPath(given, kOut)};
}

CReportOptions ParseReportOptions(const std::vector<std::string>& arguments) {
    const CArguments given(kReportOptions, arguments);
    CReportOptions options{OnlyFile(given, "report on", "reported on"), NeededPath(given, kPdf), given.Has("--full")};
    if (options.pdf == kStandardOutput) {
        throw CUsageError("Option --pdf takes the path of a file, not standard output (-).");
    }
    return options;
}
