#include "cli/commands/file_options.h"

#include "cli/arguments.h"
#include "cli/commands/file_declarations.h"
#include "cli/commands/file_help.h"
#include "cli/help_text.h"
#include "cli/usage_error.h"
#include "signal/ascii_export.h"

#include <gmock/gmock.h>

#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

TEST(ShowOptions, TakeAnyNumberOfFiles) {
    EXPECT_THAT(ParseShowOptions({"a", "b"}).files, ElementsAre("a", "b"));
    EXPECT_FALSE(ParseShowOptions({"a"}).isJson);
    EXPECT_TRUE(ParseShowOptions({"a", "--json"}).isJson);
    EXPECT_THAT(ParseShowOptions({"--", "--json"}).files, ElementsAre("--json"));
}

TEST(ExportOptions, SayWhatEachLineHolds) {
    const CExportOptions both = ParseExportOptions({"a", "--xy", "--out", "b"});
    EXPECT_EQ(both.file, "a");
    EXPECT_EQ(both.form, ks::CAsciiForm::XY);
    EXPECT_EQ(both.out, "b");
    EXPECT_EQ(ParseExportOptions({"--out=-", "--x", "a"}).form, ks::CAsciiForm::X);
}

TEST(ConvertOptions, NameTheFormat) {
    const CConvertOptions sun = ParseConvertOptions({"a", "--to", "sun", "--out", "b"});
    EXPECT_EQ(sun.file, "a");
    EXPECT_EQ(sun.to, CTargetFormat::Sun);
    EXPECT_EQ(sun.out, "b");
    EXPECT_EQ(ParseConvertOptions({"a", "--to=ieee", "--out", "b"}).to, CTargetFormat::Ieee);
}

TEST(ReportOptions, NameThePdfAndTheMode) {
    const CReportOptions options = ParseReportOptions({"a", "--pdf", "b"});
    EXPECT_EQ(options.file, "a");
    EXPECT_EQ(options.pdf, "b");
    EXPECT_FALSE(options.isFull);
    EXPECT_TRUE(ParseReportOptions({"--full", "a", "--pdf", "b"}).isFull);
}

struct Row {
    std::string name;
    std::function<void(const Texts&)> parse;
    Texts arguments;
    std::string sentence;
};

const auto kShow = [](const Texts& arguments) { ParseShowOptions(arguments); };
const auto kExport = [](const Texts& arguments) { ParseExportOptions(arguments); };
const auto kConvert = [](const Texts& arguments) { ParseConvertOptions(arguments); };
const auto kReport = [](const Texts& arguments) { ParseReportOptions(arguments); };

class RefusedFileOptions : public testing::TestWithParam<Row> {};

TEST_P(RefusedFileOptions, GetTheirSentence) {
    try {
        GetParam().parse(GetParam().arguments);
        FAIL() << "accepted";
    } catch (const CUsageError& error) {
        EXPECT_EQ(error.what(), GetParam().sentence);
    }
}

constexpr const char* kNoOut = "Option --out is needed, with a PATH to write to, or - for standard output.";

const Row kRows[] = {
    {"ShowWithoutFile", kShow, {}, "At least one FILE to show is needed."},
    {"ShowOnlyJson", kShow, {"--json"}, "At least one FILE to show is needed."},
    {"ShowJsonWithPath", kShow, {"--json=a", "b"}, "Option --json takes no value."},
    {"ShowUnknown", kShow, {"--xml", "a"}, "Unknown option: --xml\nTo use a file with that name, put it after --."},
    {"ExportWithoutFile", kExport, {"--xy", "--out", "b"}, "A FILE to export is needed."},
    {"ExportOfTwo",
     kExport,
     {"--xy", "--out", "b", "a", "c", "d"},
     "Only one FILE can be exported at a time, not also: c"},
    {"ExportWithoutForm", kExport, {"a", "--out", "b"}, "One of the options --xy and --x is needed."},
    {"ExportOfBothForms", kExport, {"a", "--x", "--xy", "--out", "b"}, "Options --xy and --x exclude each other."},
    {"ExportWithoutOut", kExport, {"a", "--x"}, kNoOut},
    {"ExportOutWithoutPath",
     kExport,
     {"a", "--x", "--out"},
     "Option --out needs a PATH to write to, or - for standard output."},
    {"ExportEmptyOut", kExport, {"a", "--x", "--out", ""}, "Option --out takes a path that is not empty."},
    {"ExportTwoOuts", kExport, {"a", "--x", "--out", "b", "--out", "c"}, "Option --out can be given only once."},
    {"ConvertWithoutFile", kConvert, {"--to", "sun", "--out", "b"}, "A FILE to convert is needed."},
    {"ConvertOfTwo",
     kConvert,
     {"a", "c", "--to", "sun", "--out", "b"},
     "Only one FILE can be converted at a time, not also: c"},
    {"ConvertWithoutTo", kConvert, {"a", "--out", "b"}, "Option --to is needed, with the number format ieee or sun."},
    {"ConvertToVax",
     kConvert,
     {"a", "--to", "vax", "--out", "b"},
     "Option --to takes the number format ieee or sun, not: vax"},
    {"ConvertToUpperCase",
     kConvert,
     {"a", "--to", "IEEE", "--out", "b"},
     "Option --to takes the number format ieee or sun, not: IEEE"},
    {"ConvertToNothing", kConvert, {"a", "--to", "--out", "b"}, "Option --to needs the number format ieee or sun."},
    {"ConvertWithoutOut", kConvert, {"a", "--to", "sun"}, kNoOut},
    {"ConvertEmptyOut", kConvert, {"a", "--to", "sun", "--out", ""}, "Option --out takes a path that is not empty."},
    {"ReportWithoutFile", kReport, {"--pdf", "b"}, "A FILE to report on is needed."},
    {"ReportOfTwo", kReport, {"a", "c", "--pdf", "b"}, "Only one FILE can be reported on at a time, not also: c"},
    {"ReportWithoutPdf", kReport, {"a"}, "Option --pdf is needed, with a PATH to write to."},
    {"ReportEmptyPdf", kReport, {"a", "--pdf", ""}, "Option --pdf takes a path that is not empty."},
    {"ReportToStandardOutput",
     kReport,
     {"a", "--pdf", "-"},
     "Option --pdf takes the path of a file, not standard output (-)."},
    {"ReportFullWithValue", kReport, {"a", "--pdf", "b", "--full=1"}, "Option --full takes no value."},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedFileOptions, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

// "--out PATH" explains --out.
Texts OptionsIn(const CHelpPage& page) {
    Texts names;
    for (const CHelpEntry& entry : page.sections.front().entries) {
        if (entry.term.starts_with("--")) names.push_back(entry.term.substr(0, entry.term.find(' ')));
    }
    return names;
}

TEST(FileHelp, ExplainsEveryOptionAndNoOther) {
    const std::pair<CHelpPage, std::span<const COptionDeclaration>> commands[] = {{ShowHelp(), kShowOptions},
                                                                                  {ExportHelp(), kExportOptions},
                                                                                  {ConvertHelp(), kConvertOptions},
                                                                                  {ReportHelp(), kReportOptions}};
    for (const auto& [page, options] : commands) {
        Texts names{"--help", "--version"};
        for (const COptionDeclaration& option : options) names.emplace_back(option.name);
        EXPECT_THAT(OptionsIn(page), testing::UnorderedElementsAreArray(names)) << page.name;
    }
}

}  // namespace
