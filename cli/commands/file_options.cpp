#include "cli/commands/file_options.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/messages.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "signal/ascii_export.h"

namespace {

constexpr COptionDeclaration kOut{"--out", COptionKind::Single, "a PATH to write to, or - for standard output"};

constexpr std::array<COptionDeclaration, 1> kShowOptions = {{{"--json", COptionKind::Flag, ""}}};

constexpr std::array<COptionDeclaration, 3> kExportOptions = {{
    {"--xy", COptionKind::Flag, ""},
    {"--x", COptionKind::Flag, ""},
    kOut,
}};

constexpr COptionDeclaration kTo{"--to", COptionKind::Single, "the number format ieee or sun"};

constexpr std::array<COptionDeclaration, 2> kConvertOptions = {{kTo, kOut}};

constexpr COptionDeclaration kPdf{"--pdf", COptionKind::Single, "a PATH to write to"};

constexpr std::array<COptionDeclaration, 2> kReportOptions = {{kPdf, {"--full", COptionKind::Flag, ""}}};

std::vector<std::string> NamesOf(std::span<const COptionDeclaration> declarations) {
    std::vector<std::string> names;
    names.reserve(declarations.size());
    for (const COptionDeclaration& declaration : declarations) names.emplace_back(declaration.name);
    return names;
}

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

std::vector<std::string> ShowOptionNames() {
    return NamesOf(kShowOptions);
}

std::vector<std::string> ExportOptionNames() {
    return NamesOf(kExportOptions);
}

std::vector<std::string> ConvertOptionNames() {
    return NamesOf(kConvertOptions);
}

std::vector<std::string> ReportOptionNames() {
    return NamesOf(kReportOptions);
}
