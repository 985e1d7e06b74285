#include "files/hit_list.h"

#include "files/replacing_file.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ParseHitList, ReadsBothLineEnds) {
    EXPECT_THAT(ParseHitList("a.uds\r\nb.uds\nc.uds\r\n"), ElementsAre("a.uds", "b.uds", "c.uds"));
}

TEST(ParseHitList, SkipsEmptyLines) {
    EXPECT_THAT(ParseHitList("\r\na.uds\r\n\r\n\n\nb.uds\r\n\r\n"), ElementsAre("a.uds", "b.uds"));
}

TEST(ParseHitList, CountsALastLineWithoutAnEnd) {
    EXPECT_THAT(ParseHitList("a\nb"), ElementsAre("a", "b"));
}

TEST(ParseHitList, TakesLinesWhole) {
    EXPECT_THAT(ParseHitList("  a b \r\n \n\t\r\n"), ElementsAre("  a b ", " ", "\t"));
}

TEST(ParseHitList, KeepsACarriageReturnThatEndsNoLine) {
    EXPECT_THAT(ParseHitList("a\rb\nc\r"), ElementsAre("a\rb", "c\r"));
}

TEST(ParseHitList, KeepsBytesAsTheyAre) {
    EXPECT_THAT(ParseHitList("gr\xC3\xB6\xC3\x9F"
                             "e\n\xFF\n"),
                ElementsAre("gr\xC3\xB6\xC3\x9F"
                            "e",
                            "\xFF"));
}

TEST(ParseHitList, OfNothingIsEmpty) {
    EXPECT_THAT(ParseHitList(""), IsEmpty());
}

TEST(HitListText, EndsEveryLineWithCrLf) {
    EXPECT_EQ(HitListText({"a", "b c"}), "a\r\nb c\r\n");
    EXPECT_EQ(HitListText({}), "");
}

TEST(HitListFile, SavingThenReadingReproducesTheOrder) {
    const CTempFolder folder;
    const std::string path = folder.Path("list.hit");
    const std::vector<std::string> files{"z.uds", "a.uds", " blank ", "a.uds", "C:\\runs\\b.uds"};

    EXPECT_EQ(WriteHitList(path, files), CWriteResult::Written);

    EXPECT_EQ(ReadAll(path), "z.uds\r\na.uds\r\n blank \r\na.uds\r\nC:\\runs\\b.uds\r\n");
    EXPECT_EQ(ReadHitList(path), files);
}

TEST(HitListFile, AnEmptyFileIsAnEmptyList) {
    const CTempFolder folder;
    EXPECT_EQ(ReadHitList(folder.Write("list.hit", "")), std::vector<std::string>{});
}

TEST(HitListFile, ThatIsMissingOrNoFileGivesNoValue) {
    const CTempFolder folder;
    EXPECT_EQ(ReadHitList(folder.Path("missing.hit")), std::nullopt);
    EXPECT_EQ(ReadHitList(folder.Path("")), std::nullopt);
    EXPECT_EQ(ReadHitList(""), std::nullopt);
    EXPECT_EQ(ReadHitList("/dev/zero"), std::nullopt);
}

TEST(HitListFile, LargerThanAnyListOfPathsGivesNoValue) {
    const CTempFolder folder;
    const std::string path = folder.Write("large.hit", "a.uds\n");
    std::filesystem::resize_file(path, (64U << 20U) + 1);
    EXPECT_EQ(ReadHitList(path), std::nullopt);
}

TEST(HitListFile, ThatCannotBeWrittenIsNotOpened) {
    const CTempFolder folder;
    EXPECT_EQ(WriteHitList(folder.Path("missing/list.hit"), {"a"}), CWriteResult::NotOpened);
}

}  // namespace
}  // namespace ks
