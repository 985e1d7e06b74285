#include "cli/commands/compare_options.h"

#include "cli/arguments.h"
#include "cli/commands/compare_declarations.h"
#include "cli/commands/compare_help.h"
#include "cli/help_text.h"
#include "cli/usage_error.h"
#include "compare/critical_values.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

CCompareOptions Parsed(Texts arguments) {
    arguments.emplace_back("a.uds");
    return ParseCompareOptions(arguments);
}

TEST(CompareOptions, HaveTheirDefaults) {
    const CCompareOptions options = Parsed({});
    EXPECT_THAT(options.files, ElementsAre("a.uds"));
    EXPECT_EQ(options.reference, std::nullopt);
    EXPECT_EQ(options.cfc, std::nullopt);
    EXPECT_FALSE(options.FiltersReference());
    EXPECT_FALSE(options.window.has_value());
    EXPECT_EQ(options.corridor, 4.0);
    EXPECT_EQ(options.critical.averageResidual, 5.0);
    EXPECT_EQ(options.critical.standardDeviation, 20.0);
    EXPECT_EQ(options.critical.corridor, 0.1);
    EXPECT_EQ(options.critical.correlation, 0.05);
    EXPECT_EQ(options.critical.tStatistic, 2.58);
    EXPECT_EQ(options.critical.moment, 0.2);
    EXPECT_FALSE(options.UsesStandardOutput());
    EXPECT_FALSE(options.shouldWritePages);
    EXPECT_TRUE(options.failOnBad.empty());
    EXPECT_EQ(options.verbosity, CVerbosity::Usual);
}

TEST(CompareOptions, FilterTheReferenceOnlyWithAClassAndUnlessForbidden) {
    EXPECT_TRUE(Parsed({"--cfc", "180"}).FiltersReference());
    EXPECT_EQ(Parsed({"--cfc", "180"}).cfc, 180);
    EXPECT_FALSE(Parsed({"--cfc", "180", "--no-filter-reference"}).FiltersReference());
    EXPECT_FALSE(Parsed({"--no-filter-reference"}).FiltersReference());
}

TEST(CompareOptions, ReadTheWindow) {
    const CCompareOptions options = Parsed({"--window", "-0.01", "0.15"});
    ASSERT_TRUE(options.window.has_value());
    EXPECT_EQ(options.window->min, -0.01);
    EXPECT_EQ(options.window->max, 0.15);
}

TEST(CompareOptions, SetEachCriticalValueByItsNameAndTheLastOneWins) {
    const CCriticalValues values =
        Parsed({"--critical", "residual=1", "--critical", "stddev=2", "--critical", "corridor=0.3", "--critical",
                "correlation=-4", "--critical", "t=9", "--critical", "moment=6e-1", "--critical", "t=5"})
            .critical;
    EXPECT_EQ(values.averageResidual, 1.0);
    EXPECT_EQ(values.standardDeviation, 2.0);
    EXPECT_EQ(values.corridor, 0.3);
    EXPECT_EQ(values.correlation, -4.0);
    EXPECT_EQ(values.tStatistic, 5.0);
    EXPECT_EQ(values.moment, 0.6);
}

Texts NamesOf(const std::vector<const CCriterion*>& criteria) {
    Texts names;
    for (const CCriterion* const criterion : criteria) names.emplace_back(criterion->name);
    return names;
}

TEST(CompareOptions, FailOnEveryBadVerdictOrOnTheNamedOnes) {
    EXPECT_THAT(NamesOf(Parsed({"--fail-on-bad"}).failOnBad),
                ElementsAre("residual", "stddev", "corridor", "correlation", "t", "moment"));
    EXPECT_THAT(NamesOf(Parsed({"--fail-on-bad=moment,t", "--fail-on-bad=stddev"}).failOnBad),
                ElementsAre("moment", "t", "stddev"));
}

TEST(CompareOptions, NameOneStandardOutput) {
    EXPECT_TRUE(Parsed({"--json", "-", "--csv", "c"}).UsesStandardOutput());
    EXPECT_TRUE(Parsed({"--csv", "-"}).UsesStandardOutput());
    EXPECT_TRUE(Parsed({"--html", "-"}).UsesStandardOutput());
    EXPECT_FALSE(Parsed({"--json", "./-"}).UsesStandardOutput());
}

TEST(CompareOptions, TakeAHitListInPlaceOfFiles) {
    const CCompareOptions options = ParseCompareOptions({"--hit-list", "a.hit", "--hit-list", "b.hit"});
    EXPECT_THAT(options.hitLists, ElementsAre("a.hit", "b.hit"));
    EXPECT_TRUE(options.files.empty());
}

struct Row {
    std::string name;
    Texts arguments;
    std::string sentence;
};

class RefusedOptions : public testing::TestWithParam<Row> {};

TEST_P(RefusedOptions, GetTheirSentence) {
    try {
        ParseCompareOptions(GetParam().arguments);
        FAIL() << "accepted";
    } catch (const CUsageError& error) {
        EXPECT_EQ(error.what(), GetParam().sentence);
    }
}

constexpr const char* kCriticalNames =
    "knows the names residual, stddev, corridor, correlation, t, moment, iso, sprague-geers, anova-mean and "
    "anova-deviation, not: ";
constexpr const char* kNames =
    "knows the names residual, stddev, corridor, correlation, t, moment, iso, roadside, sprague-geers, anova-mean and "
    "anova-deviation, not: ";

const Row kRows[] = {
    {"NoFile", {}, "At least one FILE to compare is needed."},
    {"NoFileWithOptions", {"--pages"}, "At least one FILE to compare is needed."},
    {"UnknownClass", {"--cfc", "61", "a"}, "Option --cfc takes the channel class 60, 180, 600 or 1000, not: 61"},
    {"ClassAsReal", {"--cfc", "60.0", "a"}, "Option --cfc takes the channel class 60, 180, 600 or 1000, not: 60.0"},
    {"EqualWindow", {"--window", "1", "1", "a"}, "Option --window takes MIN smaller than MAX, not: 1 1"},
    {"CrossedWindow", {"--window", "2", "1", "a"}, "Option --window takes MIN smaller than MAX, not: 2 1"},
    {"InfiniteWindow", {"--window", "0", "inf", "a"}, "Option --window takes finite decimal numbers, not: inf"},
    {"HugeWindow", {"--window", "0", "1e999", "a"}, "Option --window takes finite decimal numbers, not: 1e999"},
    {"WindowOfWords", {"--window", "x", "1", "a"}, "Option --window takes finite decimal numbers, not: x"},
    {"NoJobs", {"--jobs", "0", "a"}, "Option --jobs takes a whole number from 1 to 1024, not: 0"},
    {"TooManyJobs", {"--jobs", "1025", "a"}, "Option --jobs takes a whole number from 1 to 1024, not: 1025"},
    {"HalfAJob", {"--jobs", "1.5", "a"}, "Option --jobs takes a whole number from 1 to 1024, not: 1.5"},
    {"NegativeJobs", {"--jobs", "-1", "a"}, "Option --jobs takes a whole number from 1 to 1024, not: -1"},
    {"HugeJobs", {"--jobs", "99999999999", "a"}, "Option --jobs takes a whole number from 1 to 1024, not: 99999999999"},
    {"ZeroCorridor", {"--corridor", "0", "a"}, "Option --corridor takes a size greater than 0, not: 0"},
    {"NegativeCorridor", {"--corridor", "-1", "a"}, "Option --corridor takes a size greater than 0, not: -1"},
    {"CorridorNotANumber", {"--corridor", "nan", "a"}, "Option --corridor takes finite decimal numbers, not: nan"},
    {"UnknownCriticalValue",
     {"--critical", "peak=1", "a"},
     std::string("Option --critical ") + kCriticalNames + "peak"},
    {"CriticalWithoutValue",
     {"--critical", "t", "a"},
     "Option --critical takes NAME=VALUE, for example moment=0.3, not: t"},
    {"CriticalWithEmptyValue", {"--critical", "t=", "a"}, "Option --critical takes finite decimal numbers, not: "},
    {"InfiniteCriticalValue", {"--critical", "t=inf", "a"}, "Option --critical takes finite decimal numbers, not: inf"},
    {"UnknownFailure", {"--fail-on-bad=peak", "a"}, std::string("Option --fail-on-bad ") + kNames + "peak"},
    {"EmptyFailureName", {"--fail-on-bad=t,", "a"}, std::string("Option --fail-on-bad ") + kNames},
    {"UpperCaseFailureName", {"--fail-on-bad=T", "a"}, std::string("Option --fail-on-bad ") + kNames + "T"},
    {"TwoOnStandardOutput", {"--json", "-", "--csv", "-", "a"}, "Only one output can go to standard output (-)."},
    {"ReportToo", {"--html", "-", "--csv", "-", "a"}, "Only one output can go to standard output (-)."},
    {"QuietAndVerbose", {"--quiet", "--verbose", "a"}, "Options --quiet and --verbose exclude each other."},
    {"EmptyPath", {"--html", "", "a"}, "Option --html takes a path that is not empty."},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedOptions, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

// "--window MIN MAX" explains --window.
Texts OptionsInHelp() {
    Texts names;
    for (const CHelpSection& section : CompareHelp().sections) {
        for (const CHelpEntry& entry : section.entries) {
            if (entry.term.starts_with("--")) {
                names.push_back(entry.term.substr(0, entry.term.find_first_of(" [")));
            }
        }
    }
    return names;
}

TEST(CompareHelp, ExplainsEveryOptionAndNoOther) {
    Texts names{"--help", "--version"};
    for (const COptionDeclaration& option : kCompareOptions) names.emplace_back(option.name);
    EXPECT_THAT(OptionsInHelp(), testing::UnorderedElementsAreArray(names));
}

}  // namespace
