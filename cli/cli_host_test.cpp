#include "cli/cli_host.h"

#include "cli/commands/compare_options.h"
#include "cli/output/console.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

class CliHost : public testing::Test {
protected:
    CFileSelection Selection(const CCompareOptions& options) {
        CCliHost host(options, {"a", "b"}, console);
        return host.SelectFiles({}).value();
    }
    std::string StandardError() {
        std::string text(1000, '\0');
        std::rewind(err.get());
        text.resize(std::fread(text.data(), 1, text.size(), err.get()));
        return text;
    }

    std::unique_ptr<std::FILE, CloseFile> out{std::tmpfile()}, err{std::tmpfile()};
    CConsole console{out.get(), err.get()};
};

TEST_F(CliHost, SelectsTheFilesWithoutFilterWindowOrReference) {
    const CFileSelection selection = Selection({});
    EXPECT_THAT(selection.files, ElementsAre("a", "b"));
    EXPECT_TRUE(selection.isReferenceAverage);
    EXPECT_EQ(selection.referencePath, "");
    EXPECT_FALSE(selection.shouldFilter);
    EXPECT_FALSE(selection.shouldFilterReference);
    EXPECT_FALSE(selection.shouldTruncate);
}

TEST_F(CliHost, AnswersFromTheOptions) {
    CCompareOptions options;
    options.reference = "r";
    options.cfc = 600;
    options.window = CWindow{-1.0, 2.0};
    options.corridor = 2.5;
    options.critical.moment = 7.0;
    const CFileSelection selection = Selection(options);
    EXPECT_FALSE(selection.isReferenceAverage);
    EXPECT_EQ(selection.referencePath, "r");
    EXPECT_TRUE(selection.shouldFilter);
    EXPECT_TRUE(selection.shouldFilterReference);
    EXPECT_EQ(selection.channelClass, 600);
    EXPECT_TRUE(selection.shouldTruncate);
    EXPECT_EQ(selection.windowStart, -1.0);
    EXPECT_EQ(selection.windowEnd, 2.0);
    CCliHost host(options, {}, console);
    EXPECT_EQ(host.EditCorridorSize(4.0), 2.5);
    EXPECT_EQ(host.EditCriticalValues({}).value().moment, 7.0);
}

TEST_F(CliHost, LeavesTheReferenceUnfilteredWhenAsked) {
    CCompareOptions options;
    options.cfc = 60;
    options.shouldFilterReference = false;
    EXPECT_TRUE(Selection(options).shouldFilter);
    EXPECT_FALSE(Selection(options).shouldFilterReference);
}

TEST_F(CliHost, ShowsMessagesOnStandardErrorAndRemembersThem) {
    const CCompareOptions options;
    CCliHost host(options, {}, console);
    host.ShowErrorList({{"", "One"}, {"a.uds", "Two"}, {"a.uds", "Two"}, {"b.uds", "One"}});
    EXPECT_EQ(StandardError(), "quorvel-cli: One (2 times)\nquorvel-cli: Two (2 times)\n");
    EXPECT_THAT(host.TakeShownMessages(), ElementsAre("One", "Two", "Two", "One"));
    EXPECT_THAT(host.TakeShownMessages(), IsEmpty());
}

TEST_F(CliHost, NamesTheSourceOfMessagesOnStandardErrorOnly) {
    const CCompareOptions options;
    CCliHost host(options, {}, console);
    host.NameSource("Page 8");
    host.ShowSentences({"One"});
    host.NameSource({});
    host.ShowErrorList({{"", "Two"}});
    EXPECT_EQ(StandardError(), "quorvel-cli: Page 8: One\nquorvel-cli: Two\n");
    EXPECT_THAT(host.TakeShownMessages(), ElementsAre("One", "Two"));
}

TEST_F(CliHost, TellsMoreOnlyWhenAsked) {
    CCompareOptions options;
    CCliHost(options, {}, console).TellMore("One");
    options.verbosity = CVerbosity::Quiet;
    CCliHost(options, {}, console).TellMore("Two");
    options.verbosity = CVerbosity::Verbose;
    CCliHost(options, {}, console).TellMore("Three");
    EXPECT_EQ(StandardError(), "Three\n");
}

TEST_F(CliHost, KeepsNoSettingsAndNamesNoFiles) {
    const CCompareOptions options;
    CCliHost host(options, {}, console);
    host.StoreSetting(setting::kInputDir, "x");
    EXPECT_EQ(host.ReadSetting(setting::kInputDir), "Q:\\uds\\vehdb");
    EXPECT_EQ(host.AskSavePath({}), std::nullopt);
}

TEST_F(CliHost, ShowsNoProgressInAFile) {
    const CCompareOptions options;
    CCliHost host(options, {}, console);
    host.Progress(1, 2, "a");
    host.Progress(2, 2, "");
    EXPECT_EQ(StandardError(), "");
}

}  // namespace
