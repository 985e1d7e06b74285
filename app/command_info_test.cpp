#include "app/command_info.h"

#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CMyCommandInfo Parsed(const std::vector<std::string>& arguments, CSlashRule rule = CSlashRule::SwitchIfKnown) {
    CMyCommandInfo info(rule);
    info.Parse(arguments);
    return info;
}

/// Every option in one text, which shows that a switch changes what it names and nothing else.
std::string Summary(const CMyCommandInfo& info) {
    std::string text;
    const auto add = [&](const std::string& name, const std::string& value) { text += name + "=" + value + " "; };
    add("sae", std::to_string(info.isSaeFilterOn));
    add("components", std::to_string(info.hasComponents));
    add("list", std::to_string(info.isListFileExpected));
    add("output", std::to_string(info.isOutputRequested));
    add("left", std::to_string(info.isLeftSide));
    add("window", std::to_string(static_cast<int>(info.windowLength)));
    add("axis", std::to_string(info.axisMode));
    add("class", std::to_string(info.channelClass));
    add("v", std::to_string(info.vNumber));
    add("reserved", std::to_string(info.isReserved));
    for (const std::string& entry : info.texts) add("text", entry);
    add("reservedList", std::to_string(info.reservedList.size()));
    add("files", std::to_string(info.files.size()));
    return text;
}

constexpr const char* kDefaults =
    "sae=1 components=1 list=0 output=0 left=1 window=36 axis=0 class=1000 v=10 reserved=0 text= text= text= text= "
    "text= reservedList=0 files=0 ";

TEST(CommandInfo, StartsWithTheDefaults) {
    const CMyCommandInfo info;
    EXPECT_EQ(Summary(info), kDefaults);
    EXPECT_EQ(info.criticalValue, 0.0);
    EXPECT_EQ(info.windowLength, 36.0F);
}

struct Row {
    std::string name;
    std::vector<std::string> before;  // switches that move the option away from the value under test
    std::string word;
    std::string from, to;  // the part of the summary of `before` that changes, and what it becomes
};

class Switch : public testing::TestWithParam<Row> {};

std::string LowerText(std::string text) {
    for (char& letter : text) letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    return text;
}

TEST_P(Switch, ChangesWhatItNamesAndNothingElse) {
    const Row& row = GetParam();
    std::string expected = Summary(Parsed(row.before));
    const std::size_t place = expected.find(row.from + " ");
    ASSERT_NE(place, std::string::npos) << expected;
    expected.replace(place, row.from.size(), row.to);

    for (const std::string& spelling : {std::string("-").append(row.word), std::string("/").append(row.word),
                                        std::string("-").append(LowerText(row.word))}) {
        std::vector<std::string> arguments = row.before;
        arguments.push_back(spelling);
        EXPECT_EQ(Summary(Parsed(arguments)), expected) << spelling;
        EXPECT_EQ(Summary(Parsed(arguments, CSlashRule::AlwaysSwitch)), expected) << spelling;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Words, Switch,
    testing::Values(
        Row{"L", {}, "L", "list=0", "list=1"}, Row{"O", {}, "O", "output=0", "output=1"},
        Row{"CFC600", {}, "CFC600", "class=1000", "class=600"}, Row{"CFC60", {}, "CFC60", "class=1000", "class=60"},
        Row{"CFC180", {}, "CFC180", "class=1000", "class=180"},
        Row{"CFC1K", {"-CFC60"}, "CFC1K", "class=60", "class=1000"},
        Row{"CFC1000", {"-CFC60"}, "CFC1000", "class=60", "class=1000"}, Row{"NOSAE", {}, "NOSAE", "sae=1", "sae=0"},
        Row{"XYZ",
            {"-RESULTANT"},
            "XYZ",
            "components=0 list=0 output=0 left=1 window=36 axis=0",
            "components=1 list=0 output=0 left=1 window=36 axis=2"},
        Row{"RESULTANT", {}, "RESULTANT", "components=1", "components=0"},
        Row{"WIN15", {}, "WIN15", "window=36", "window=15"},
        Row{"WIN36", {"-WIN15"}, "WIN36", "window=15", "window=36"}, Row{"NOWIN", {}, "NOWIN", "window=36", "window=0"},
        Row{"SFC", {}, "SFC", "axis=0", "axis=3"}, Row{"ThreeD", {}, "3D", "axis=0", "axis=1"},
        Row{"RES", {"-SFC"}, "RES", "axis=3", "axis=0"}, Row{"V10", {"-V6"}, "V10", "v=6", "v=10"},
        Row{"V9", {}, "V9", "v=10", "v=9"}, Row{"V8", {}, "V8", "v=10", "v=8"}, Row{"V7", {}, "V7", "v=10", "v=7"},
        Row{"V6", {}, "V6", "v=10", "v=6"}, Row{"RIGHTSIDE", {}, "RIGHTSIDE", "left=1", "left=0"},
        Row{"AHIC", {}, "A_HIC", "text= text= text= text= text=", "text= text= text= text= text=HIC"}),
    [](const auto& row) { return row.param.name; });

TEST(CommandInfo, MatchesWholeWordsOnly) {
    for (const char* word : {"CFC60X", "CFC", "XCFC60", "V11", "V1", "RESULT", "WIN", "A_HIC ", "NOSAE1", ""}) {
        EXPECT_EQ(Summary(Parsed({std::string("-").append(word)})), kDefaults) << word;
        EXPECT_EQ(Summary(Parsed({std::string("/").append(word)}, CSlashRule::AlwaysSwitch)), kDefaults) << word;
    }
}

TEST(CommandInfo, StripsOneDashOnly) {
    EXPECT_EQ(Summary(Parsed({"--CFC60"})), kDefaults);
}

TEST(CommandInfo, TakesTheClassInLowerCaseAndTwoFiles) {
    const CMyCommandInfo info = Parsed({"-cfc180", "a.001", "b.001"});
    EXPECT_EQ(info.channelClass, 180);
    EXPECT_THAT(info.files, ElementsAre("a.001", "b.001"));
}

TEST(CommandInfo, TakesSwitchesAndFilesInAnyOrder) {
    const CMyCommandInfo info = Parsed({"a.001", "-CFC60", "b.001", "-CFC600", "c d.001"});
    EXPECT_EQ(info.channelClass, 600);
    EXPECT_THAT(info.files, ElementsAre("a.001", "b.001", "c d.001"));
}

TEST(CommandInfo, SetsTheOutputFlagForEveryWordThatBeginsWithO) {
    EXPECT_TRUE(Parsed({"-O"}).isOutputRequested);
    EXPECT_TRUE(Parsed({"-o"}).isOutputRequested);
    EXPECT_TRUE(Parsed({"-Other"}).isOutputRequested);
    EXPECT_TRUE(Parsed({"/Other"}, CSlashRule::AlwaysSwitch).isOutputRequested);
    EXPECT_FALSE(Parsed({"-NOSAE"}).isOutputRequested);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct NumberRow {
    std::string name, argument;
    double expected;
};

class CriticalValue : public testing::TestWithParam<NumberRow> {};

TEST_P(CriticalValue, IsTheLongestNumberAtTheStartOfTheRest) {
    EXPECT_EQ(Parsed({"-CRITICAL_VALUE7", GetParam().argument}).criticalValue, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rests, CriticalValue,
    testing::Values(
        NumberRow{"Plain", "-CRITICAL_VALUE2.5", 2.5}, NumberRow{"LowerCase", "-critical_value2.5", 2.5},
        NumberRow{"Blanks", "-CRITICAL_VALUE \t 0.25", 0.25}, NumberRow{"Negative", "-CRITICAL_VALUE-3", -3.0},
        NumberRow{"Plus", "-CRITICAL_VALUE+3", 3.0}, NumberRow{"TwoSigns", "-CRITICAL_VALUE+-3", 0.0},
        NumberRow{"Exponent", "-CRITICAL_VALUE1e2", 100.0}, NumberRow{"UpperExponent", "-CRITICAL_VALUE1E2", 100.0},
        NumberRow{"OpenExponent", "-CRITICAL_VALUE4e", 4.0}, NumberRow{"TextBehind", "-CRITICAL_VALUE1.5mm", 1.5},
        NumberRow{"CommaEndsTheNumber", "-CRITICAL_VALUE1,5", 1.0}, NumberRow{"EqualsSign", "-CRITICAL_VALUE=5", 0.0},
        NumberRow{"Nothing", "-CRITICAL_VALUE", 0.0}, NumberRow{"NoNumber", "-CRITICAL_VALUES", 0.0},
        NumberRow{"NotANumber", "-CRITICAL_VALUEnan", 0.0}, NumberRow{"Infinity", "-CRITICAL_VALUEinf", 0.0},
        NumberRow{"TooLarge", "-CRITICAL_VALUE1e400", kInfinity},
        NumberRow{"TooLargeNegative", "-CRITICAL_VALUE-1e400", -kInfinity},
        NumberRow{"TooLargeInDigits", "-CRITICAL_VALUE" + std::string(400, '9') + "x", kInfinity},
        NumberRow{"LargestNumber", "-CRITICAL_VALUE1.7976931348623157e308", std::numeric_limits<double>::max()},
        NumberRow{"TooSmall", "-CRITICAL_VALUE1e-400", 0.0},
        NumberRow{"SmallestNumber", "-CRITICAL_VALUE5e-324", std::numeric_limits<double>::denorm_min()},
        NumberRow{"MinusInfinity", "-CRITICAL_VALUE-infinity", 0.0}, NumberRow{"Slash", "/CRITICAL_VALUE2", 2.0},
        NumberRow{"OtherWord", "-CRITICAL_VALU3", 7.0}),
    [](const auto& row) { return row.param.name; });

TEST(ListFile, FillsTheFileListFromTheNextArgument) {
    const CTempFolder folder;
    const std::string list = folder.Write("list.hit", "one.001\r\n\r\ntwo.001\r\n");
    for (const char* spelling : {"-L", "-l", "/L"}) {
        const CMyCommandInfo info = Parsed({"first.001", spelling, list, "last.001"});
        EXPECT_THAT(info.files, ElementsAre("first.001", "one.001", "two.001", "last.001")) << spelling;
        EXPECT_FALSE(info.isListFileExpected);
    }
}

TEST(ListFile, IsStillExpectedAfterOtherSwitches) {
    const CTempFolder folder;
    const std::string list = folder.Write("list.hit", "one.001\n");
    const CMyCommandInfo info = Parsed({"-L", "-CFC60", "-O", list, "b.001"});
    EXPECT_EQ(info.channelClass, 60);
    EXPECT_THAT(info.files, ElementsAre("one.001", "b.001"));
}

TEST(ListFile, ThatCannotBeReadAddsNothingAndIsNoLongerExpected) {
    const CTempFolder folder;
    const CMyCommandInfo info = Parsed({"-L", folder.Path("missing.hit"), "b.001"});
    EXPECT_THAT(info.files, ElementsAre("b.001"));
    EXPECT_FALSE(info.isListFileExpected);
}

/// Runs the rest of the test in its own folder: names after the switch are relative to the current folder.
class AttachedListFile : public testing::Test {
protected:
    AttachedListFile() { std::filesystem::current_path(std::filesystem::path(m_folder.Path("."))); }
    ~AttachedListFile() override { std::filesystem::current_path(m_before); }

    std::filesystem::path m_before = std::filesystem::current_path();
    CTempFolder m_folder;
};

TEST_F(AttachedListFile, IsTakenWithoutTheLetterWhenTheWholeTextNamesNoFile) {
    m_folder.Write("ist.hit", "wrong.001\n");
    m_folder.Write("list.hit", "right.001\n");
    EXPECT_THAT(Parsed({"-Llist.hit"}).files, ElementsAre("right.001"));
    EXPECT_THAT(Parsed({"-llist.hit"}).files, ElementsAre("right.001"));
}

TEST_F(AttachedListFile, IsTheWholeTextWhenThatNamesAFile) {
    m_folder.Write("Llist.hit", "whole.001\n");
    m_folder.Write("list.hit", "rest.001\n");
    EXPECT_THAT(Parsed({"-Llist.hit"}).files, ElementsAre("whole.001"));
}

TEST_F(AttachedListFile, DoesNotClearTheExpectationOfABareL) {
    m_folder.Write("one.hit", "one.001\n");
    m_folder.Write("two.hit", "two.001\n");
    const CMyCommandInfo info = Parsed({"-L", "-Lone.hit", "two.hit"});
    EXPECT_THAT(info.files, ElementsAre("one.001", "two.001"));
}

TEST_F(AttachedListFile, ThatCannotBeReadAddsNothing) {
    EXPECT_THAT(Parsed({"-Lmissing.hit"}).files, IsEmpty());
    EXPECT_FALSE(Parsed({"-Lmissing.hit"}).isListFileExpected);
}

TEST_F(AttachedListFile, IsWhatLeftSideIsTakenFor) {
    m_folder.Write("LEFTSIDE", "left.001\n");
    const CMyCommandInfo info = Parsed({"-RIGHTSIDE", "-LEFTSIDE"});
    EXPECT_FALSE(info.isLeftSide);
    EXPECT_THAT(info.files, ElementsAre("left.001"));
}

TEST(LeftSide, ChangesNothingWithoutAListOfThatName) {
    EXPECT_EQ(Summary(Parsed({"-LEFTSIDE"})), kDefaults);
}

TEST(Slash, BeginsAPathUnlessAKnownWordFollows) {
    EXPECT_THAT(Parsed({"/CFC60X"}).files, ElementsAre("/CFC60X"));
    EXPECT_THAT(Parsed({"/home/cfc60"}).files, ElementsAre("/home/cfc60"));
    EXPECT_THAT(Parsed({"/cfc60/"}).files, ElementsAre("/cfc60/"));
    EXPECT_THAT(Parsed({"/"}).files, ElementsAre("/"));
    EXPECT_THAT(Parsed({"/Llist.hit"}).files, ElementsAre("/Llist.hit"));
    EXPECT_THAT(Parsed({"/Other"}).files, ElementsAre("/Other"));
    const CMyCommandInfo known = Parsed({"/cfc60"});
    EXPECT_THAT(known.files, IsEmpty());
    EXPECT_EQ(known.channelClass, 60);
}

TEST(Slash, AlwaysBeginsASwitchWhereUsersExpectThat) {
    EXPECT_THAT(Parsed({"/CFC60X", "/home/a.001", "/"}, CSlashRule::AlwaysSwitch).files, IsEmpty());
    EXPECT_EQ(Parsed({"/CFC60X"}, CSlashRule::AlwaysSwitch).channelClass, 1000);
}

}  // namespace
