#include "cli/commands/verify_options.h"

#include "cli/arguments.h"
#include "cli/commands/verify_help.h"
#include "cli/help_text.h"
#include "cli/usage_error.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

TEST(VerifyOptions, NothingIsNeeded) {
    const CVerifyOptions options = ParseVerifyOptions({});
    EXPECT_FALSE(options.isJson);
    EXPECT_FALSE(options.annex);
}

TEST(VerifyOptions, NameTheFolderAndTheForm) {
    const CVerifyOptions options = ParseVerifyOptions({"--annex", "folder", "--json"});
    EXPECT_TRUE(options.isJson);
    EXPECT_EQ(options.annex, "folder");
}

struct Row {
    std::string name;
    Texts arguments;
    std::string sentence;
};

class RefusedVerifyOptions : public testing::TestWithParam<Row> {};

TEST_P(RefusedVerifyOptions, GetTheirSentence) {
    try {
        ParseVerifyOptions(GetParam().arguments);
        FAIL() << "accepted";
    } catch (const CUsageError& error) {
        EXPECT_EQ(error.what(), GetParam().sentence);
    }
}

const Row kRows[] = {
    {"File", {"a.uds"}, "verify takes no FILE, only options, not: a.uds"},
    {"FileAfterHyphens", {"--", "--json"}, "verify takes no FILE, only options, not: --json"},
    {"JsonWithPath", {"--json=a"}, "Option --json takes no value."},
    {"AnnexWithoutFolder", {"--annex"}, "Option --annex needs a DIR with the files of the annex."},
    {"EmptyAnnex", {"--annex", ""}, "Option --annex takes a path that is not empty."},
    {"TwoAnnexes", {"--annex", "a", "--annex", "b"}, "Option --annex can be given only once."},
    {"Unknown", {"--xml"}, "Unknown option: --xml\nTo use a file with that name, put it after --."},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedVerifyOptions, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(VerifyHelp, ExplainsEveryOptionAndNoOther) {
    Texts expected{"--help", "--version"}, explained;
    for (const COptionDeclaration& option : kVerifyOptions) expected.emplace_back(option.name);
    const CHelpPage page = VerifyHelp();
    for (const CHelpEntry& entry : page.sections.front().entries) {
        explained.push_back(entry.term.substr(0, entry.term.find(' ')));
    }
    EXPECT_THAT(explained, testing::UnorderedElementsAreArray(expected));
}

}  // namespace
