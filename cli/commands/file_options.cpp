#include "cli/commands/file_options.h"

#include "cli/arguments.h"
#include "cli/commands/file_declarations.h"
#include "cli/messages.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "signal/ascii_export.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

// `toDo` and `done` say what the command does, "export" and "exported".
std::string OnlyFile(const CArguments& given, std::string_view toDo, std::string_view done) {
    const std::vector<std::string>& files = given.Files();
    if (files.empty()) {
        throw CUsageError(cli_message::FileMissing(toDo));
    }
    if (files.size() > 1) {
        throw CUsageError(cli_message::OnlyOneFile(done, files[1]));
    }
    return files.front();
}

std::string NeededValue(const CArguments& given, const COptionDeclaration& option) {
    const std::optional<std::string> value = given.Value(option.name);
    if (!value) {
        throw CUsageError(cli_message::OptionMissing(option.name, option.argument));
    }
    return *value;
}

std::string NeededPath(const CArguments& given, const COptionDeclaration& option) {
    const std::string path = NeededValue(given, option);
    if (path.empty()) {
        throw CUsageError(cli_message::EmptyPath(option.name));
    }
    return path;
}

ks::CAsciiForm ReadForm(const CArguments& given) {
    const bool isBoth = given.Has("--xy");
    const bool isOne = given.Has("--x");
    if (isBoth && isOne) {
        throw CUsageError(cli_message::kBothForms);
    }
    if (!isBoth && !isOne) {
        throw CUsageError(cli_message::kNoForm);
    }
    return isBoth ? ks::CAsciiForm::XY : ks::CAsciiForm::X;
}

CTargetFormat ReadTargetFormat(const CArguments& given) {
    const std::string name = NeededValue(given, kTo);
    if (name == "ieee") {
        return CTargetFormat::Ieee;
    }
    if (name == "sun") {
        return CTargetFormat::Sun;
    }
    throw CUsageError(cli_message::TargetNotKnown(name));
}

}  // namespace

CShowOptions ParseShowOptions(const std::vector<std::string>& arguments) {
    const CArguments given(kShowOptions, arguments);
    if (given.Files().empty()) {
        throw CUsageError(cli_message::kNoFileToShow);
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
        throw CUsageError(cli_message::kReportNotPrinted);
    }
    return options;
}
