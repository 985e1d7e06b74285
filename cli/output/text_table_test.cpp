#include "cli/output/text_table.h"

#include <gmock/gmock.h>

#include <numeric>

namespace {

using testing::HasSubstr;
using testing::Not;

CSummaryRow RowOf(const std::string& path, const std::string& value, CVerdictColor verdict) {
    CSummaryRow row;
    row.texts.fill(value);
    row.texts[0] = path;
    row.texts[13] = "ref.uds";
    for (std::size_t column = 2; column <= 12; ++column) row.colors[column] = verdict;
    for (const std::size_t column : {0U, 1U, 13U, 14U, 15U}) row.colors[column] = CVerdictColor::White;
    return row;
}

CSummaryTable TableOf(std::vector<CSummaryRow> rows) {
    CSummaryTable table;
    table.rows = std::move(rows);
    table.order.resize(kSummaryColumnCount);
    std::iota(table.order.begin(), table.order.end(), 0);
    return table;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = text.find('\n', begin);
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

TEST(TextTable, IsEmptyWithoutSignals) {
    EXPECT_EQ(TextTable(TableOf({}), {}), "");
}

TEST(TextTable, StandsInLineWithWordsForVerdicts) {
    CSummaryTable table =
        TableOf({RowOf("a.uds", "1.5", CVerdictColor::Green), RowOf("long/b.uds", "-12.25", CVerdictColor::Red)});
    table.order = {0, 1, 5, 13};
    EXPECT_EQ(TextTable(table, {70, false}),
              "     Filename    Peak Value  Correlation Factor  Ref Filename\n"
              "     ----------  ----------  ------------------  ------------\n"
              "(1)  a.uds              1.5            1.5 good  ref.uds\n"
              "(2)  long/b.uds      -12.25         -12.25 BAD   ref.uds\n"
              "\n"
              "     Bad verdicts\n"
              "     ------------\n"
              "(1)       0 of 11\n"
              "(2)      11 of 11\n");
}

TEST(TextTable, HoldsAllSixteenColumnsAtEveryWidth) {
    const CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdictColor::Green)});
    for (const std::size_t width : {1U, 40U, 80U, 120U, 1000U}) {
        const std::string text = TextTable(table, {width, false});
        for (const std::string_view header : kSummaryHeaders) EXPECT_THAT(text, HasSubstr(std::string(header)));
    }
}

TEST(TextTable, KeepsToTheWidth) {
    const CSummaryTable table = TableOf({RowOf(std::string(200, 'p'), "123456.789012 (12.34 %)", CVerdictColor::Red)});
    for (const std::size_t width : {60U, 80U, 120U, 200U}) {
        for (const std::string& line : Lines(TextTable(table, {width, false}))) EXPECT_LE(line.size(), width);
    }
}

TEST(TextTable, IsOneBandWhereEverythingFits) {
    const CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdictColor::Green)});
    EXPECT_EQ(Lines(TextTable(table, {1000, false})).size(), 3U);
}

TEST(TextTable, CutsLongPathsAtTheFront) {
    const CSummaryTable table =
        TableOf({RowOf("folder/folder/folder/folder/folder/signal.uds", "1", CVerdictColor::Green)});
    EXPECT_THAT(TextTable(table, {}), HasSubstr("(1)  ...folder/folder/folder/signal.uds "));
}

TEST(TextTable, HasNoColoursUnlessAsked) {
    const CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdictColor::Red)});
    EXPECT_THAT(TextTable(table, {80, false}), Not(HasSubstr("\x1b")));
}

TEST(TextTable, ColoursVerdictsBesideTheirWords) {
    CSummaryTable table =
        TableOf({RowOf("a.uds", "1.5", CVerdictColor::Red), RowOf("b.uds", "2.5", CVerdictColor::Green)});
    const std::string text = TextTable(table, {80, true});
    EXPECT_THAT(text, HasSubstr("\x1b[1;31m1.5 BAD\x1b[0m"));
    EXPECT_THAT(text, HasSubstr("\x1b[32m2.5 good\x1b[0m"));
    EXPECT_THAT(text, HasSubstr("\x1b[1mPeak Value\x1b[0m"));
}

// The numbers once came out red: the zero of the verdict type is none of its three colours.
TEST(TextTable, LeavesWhatHasNoVerdictPlain) {
    const std::string text = TextTable(TableOf({RowOf("a.uds", "1.5", CVerdictColor::Red)}), {80, true});
    EXPECT_THAT(text, HasSubstr("\n(1)  a.uds "));
}

TEST(TextTable, StandsInLineWithColoursToo) {
    const CSummaryTable table =
        TableOf({RowOf("a.uds", "1.5", CVerdictColor::Red), RowOf("b.uds", "12.5", CVerdictColor::Green)});
    std::string painted = TextTable(table, {80, true});
    for (const std::string sequence : {"\x1b[1;31m", "\x1b[32m", "\x1b[1m", "\x1b[0m"}) {
        for (std::size_t at = painted.find(sequence); at != std::string::npos; at = painted.find(sequence)) {
            painted.erase(at, sequence.size());
        }
    }
    EXPECT_EQ(painted, TextTable(table, {80, false}));
}

TEST(TextTable, DisarmsTerminalCommandsInFileNames) {
    const CSummaryTable table = TableOf({RowOf("a\x1b[2J.uds", "1", CVerdictColor::Green)});
    EXPECT_THAT(TextTable(table, {}), HasSubstr("a?[2J.uds"));
}

}  // namespace
