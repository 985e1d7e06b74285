#include "cli/arguments.h"

#include "cli/usage_error.h"

#include <gmock/gmock.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr std::array<COptionDeclaration, 5> kDeclarations = {{
    {"--list", COptionKind::Repeatable, "the PATH of a list"},
    {"--out", COptionKind::Single, "a PATH"},
    {"--window", COptionKind::Pair, "two numbers"},
    {"--flag", COptionKind::Flag, ""},
    {"--names", COptionKind::Names, "names after ="},
}};

CArguments Parsed(const Texts& arguments) {
    return {kDeclarations, arguments};
}

TEST(Arguments, TellsOptionsValuesAndFilesApart) {
    const CArguments arguments = Parsed({"a", "--out", "o", "b", "--flag", "c", "--list=l", "--list", "m", "d"});
    EXPECT_EQ(arguments.Value("--out"), "o");
    EXPECT_TRUE(arguments.Has("--flag"));
    EXPECT_FALSE(arguments.Has("--names"));
    EXPECT_THAT(arguments.Values("--list"), ElementsAre("l", "m"));
    EXPECT_THAT(arguments.Files(), ElementsAre("a", "b", "c", "d"));
}

TEST(Arguments, TakesNegativeNumbersAsValues) {
    EXPECT_THAT(Parsed({"--window", "-0.01", "0.15", "a"}).Values("--window"), ElementsAre("-0.01", "0.15"));
    EXPECT_THAT(Parsed({"--window", "-.5", "-inf"}).Values("--window"), ElementsAre("-.5", "-inf"));
    EXPECT_THAT(Parsed({"--window=-1", "2", "a"}).Values("--window"), ElementsAre("-1", "2"));
}

TEST(Arguments, TakesEverythingAfterTheSeparatorAsFiles) {
    EXPECT_THAT(Parsed({"a", "--", "-b", "--flag", "--"}).Files(), ElementsAre("a", "-b", "--flag", "--"));
    EXPECT_FALSE(Parsed({"--", "--flag"}).Has("--flag"));
}

TEST(Arguments, KeepsFileNamesThatLookLikeLists) {
    EXPECT_THAT(Parsed({"[a,b]", "{}", "-", "a b"}).Files(), ElementsAre("[a,b]", "{}", "-", "a b"));
    EXPECT_EQ(Parsed({"--out", "[a,b]"}).Value("--out"), "[a,b]");
}

TEST(Arguments, TakesNamesOnlyAfterAnEqualsSign) {
    const CArguments arguments = Parsed({"--names", "a", "--names=x,y"});
    EXPECT_THAT(arguments.Values("--names"), ElementsAre("", "x,y"));
    EXPECT_THAT(arguments.Files(), ElementsAre("a"));
}

TEST(Arguments, TakesAFlagTwice) {
    EXPECT_TRUE(Parsed({"--flag", "--flag"}).Has("--flag"));
}

TEST(Arguments, AreEmptyForNone) {
    EXPECT_THAT(Parsed({}).Files(), IsEmpty());
    EXPECT_EQ(Parsed({}).Value("--out"), std::nullopt);
}

struct Row {
    std::string name;
    Texts arguments;
    std::string sentence;
};

class RefusedArguments : public testing::TestWithParam<Row> {};

TEST_P(RefusedArguments, GetTheirSentence) {
    try {
        Parsed(GetParam().arguments);
        FAIL() << "accepted";
    } catch (const CUsageError& error) {
        EXPECT_EQ(error.what(), GetParam().sentence);
    }
}

const Row kRows[] = {
    {"ValueMissingAtTheEnd", {"a", "--out"}, "Option --out needs a PATH."},
    {"SecondValueMissing", {"--window", "0"}, "Option --window needs two numbers."},
    {"BothValuesMissing", {"--window"}, "Option --window needs two numbers."},
    {"EmptyValue", {"--out=", "a"}, "Option --out needs a PATH."},
    {"EmptyNames", {"--names=", "a"}, "Option --names needs names after =."},
    {"OptionInPlaceOfAValue", {"--out", "--flag", "a"}, "Option --out needs a PATH."},
    {"MarkInPlaceOfAValue", {"--window", "--", "1"}, "Option --window needs two numbers."},
    {"GivenTwice", {"--out", "a", "--out", "b"}, "Option --out can be given only once."},
    {"PairGivenTwice", {"--window", "0", "1", "--window", "0", "1"}, "Option --window can be given only once."},
    {"FlagWithValue", {"--flag=no"}, "Option --flag takes no value."},
    {"UnknownOption", {"--other"}, "Unknown option: --other\nTo use a file with that name, put it after --."},
    {"UnknownShortOption", {"-x"}, "Unknown option: -x\nTo use a file with that name, put it after --."},
    {"ShortenedOption", {"--ou", "a"}, "Unknown option: --ou\nTo use a file with that name, put it after --."},
    {"UpperCase", {"--OUT", "a"}, "Unknown option: --OUT\nTo use a file with that name, put it after --."},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedArguments, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
