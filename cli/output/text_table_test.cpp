#include "cli/output/text_table.h"

#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::HasSubstr;
using testing::Not;

const std::vector<CSummaryColumn> kColumns = FixedColumns();

// `value` in every column of numbers, `verdict` in every judged one.
CSummaryRow RowOf(const std::string& path, const std::string& value, CVerdict verdict) {
    CSummaryRow row;
    for (const CSummaryColumn& column : kColumns) {
        row.push_back({column.isName ? "ref.uds" : value, column.judgment ? verdict : CVerdict::None});
    }
    row[At(kFilenameColumn)].text = path;
    return row;
}

CSummaryTable TableOf(std::vector<CSummaryRow> rows) {
    CSummaryTable table = MakeSummaryTable({}, kColumns);
    table.rows = std::move(rows);
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

TEST(TextTable, IsAlignedAndHasWordsForVerdicts) {
    CSummaryTable table =
        TableOf({RowOf("a.uds", "1.5", CVerdict::Good), RowOf("long/b.uds", "-12.25", CVerdict::Bad)});
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

TEST(TextTable, HoldsAllColumnsAtEveryWidth) {
    const CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdict::Good)});
    for (const std::size_t width : {1U, 40U, 80U, 120U, 1000U}) {
        const std::string text = TextTable(table, {width, false});
        for (const CSummaryColumn& column : kColumns) EXPECT_THAT(text, HasSubstr(std::string(column.header)));
    }
}

TEST(TextTable, ShowsColumnsThatAreNotFixedToo) {
    const std::vector<CSummaryColumn> columns = ColumnsWithExtra();
    const int extra = static_cast<int>(columns.size()) - 2, minimum = ColumnOf("Min Time");
    CSummaryTable table = MakeSummaryTable({}, columns);
    CSummaryRow row = PlainRow("x", columns.size());
    row[At(extra)] = {"0 points", CVerdict::Bad};
    row[At(minimum)] = {"0.0000", CVerdict::None};
    row[At(kResidualColumn)].verdict = row[At(kFirstMomentColumn)].verdict = CVerdict::Good;
    table.rows = {row};
    table.order = {extra, minimum};
    EXPECT_EQ(TextTable(table, {60, false}),
              "             Extra  Min Time  Bad verdicts\n"
              "     -------------  --------  ------------\n"
              "(1)  0 points BAD     0.0000        1 of 3\n");
}

TEST(TextTable, ShowsNotesBelowTheHeaders) {
    const CTextColumn score{"Score", "1 is best", {{"0.5", CVerdict::Good}, {"n/a"}}};
    const CTextColumn word{"Word", "", {{"pass", CVerdict::Good, false}, {"fail", CVerdict::Bad, false}}};
    EXPECT_EQ(TextTable({score, word}, {80, false}),
              "         Score  Word\n"
              "     1 is best\n"
              "     ---------  ----\n"
              "(1)   0.5 good  pass\n"
              "(2)   n/a       fail\n");
    EXPECT_EQ(BalanceOf({score, word}).cells[0].value, "0 of 2");
    EXPECT_EQ(BalanceOf({score, word}).cells[1].value, "1 of 1");
}

TEST(TextTable, ColorsVerdictsWithoutAWord) {
    const CTextColumn word{"Word", "", {{"fail", CVerdict::Bad, false}}};
    EXPECT_THAT(TextTable({word}, {80, true}), HasSubstr("\x1b[1;31mfail\x1b[0m\n"));
}

TEST(TextTable, KeepsToTheWidth) {
    const CSummaryTable table = TableOf({RowOf(std::string(200, 'p'), "123456.789012 (12.34 %)", CVerdict::Bad)});
    for (const std::size_t width : {60U, 80U, 120U, 200U}) {
        for (const std::string& line : Lines(TextTable(table, {width, false}))) EXPECT_LE(line.size(), width);
    }
}

TEST(TextTable, IsOneBandWhereEverythingFits) {
    const CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdict::Good)});
    EXPECT_EQ(Lines(TextTable(table, {1000, false})).size(), 3U);
}

TEST(TextTable, CutsLongPathsAtTheFront) {
    const CSummaryTable table = TableOf({RowOf("folder/folder/folder/folder/folder/signal.uds", "1", CVerdict::Good)});
    EXPECT_THAT(TextTable(table, {}), HasSubstr("(1)  ...folder/folder/folder/signal.uds "));
}

// Large numbers once lost their first digits and looked like different numbers.
TEST(TextTable, NeverCutsNumbers) {
    const std::string number = "1" + std::string(100, '0') + ".0";
    EXPECT_THAT(TextTable(TableOf({RowOf("a.uds", number, CVerdict::Bad)}), {}), HasSubstr(" " + number + "\n"));
}

TEST(TextTable, HasNoColorsUnlessAsked) {
    const CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdict::Bad)});
    EXPECT_THAT(TextTable(table, {80, false}), Not(HasSubstr("\x1b")));
}

TEST(TextTable, ColorsVerdictsAndTheirWords) {
    CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdict::Bad), RowOf("b.uds", "2.5", CVerdict::Good)});
    const std::string text = TextTable(table, {80, true});
    EXPECT_THAT(text, HasSubstr("\x1b[1;31m1.5 BAD\x1b[0m"));
    EXPECT_THAT(text, HasSubstr("\x1b[32m2.5 good\x1b[0m"));
    EXPECT_THAT(text, HasSubstr("\x1b[1mPeak Value\x1b[0m"));
}

// The numbers were once printed red: the zero of the verdict type is none of its three colors.
TEST(TextTable, LeavesWhatHasNoVerdictPlain) {
    const std::string text = TextTable(TableOf({RowOf("a.uds", "1.5", CVerdict::Bad)}), {80, true});
    EXPECT_THAT(text, HasSubstr("\n(1)  a.uds "));
}

TEST(TextTable, StaysAlignedWithColors) {
    const CSummaryTable table = TableOf({RowOf("a.uds", "1.5", CVerdict::Bad), RowOf("b.uds", "12.5", CVerdict::Good)});
    std::string painted = TextTable(table, {80, true});
    for (const std::string sequence : {"\x1b[1;31m", "\x1b[32m", "\x1b[1m", "\x1b[0m"}) {
        for (std::size_t at = painted.find(sequence); at != std::string::npos; at = painted.find(sequence)) {
            painted.erase(at, sequence.size());
        }
    }
    EXPECT_EQ(painted, TextTable(table, {80, false}));
}

TEST(TextTable, DisarmsTerminalCommandsInFileNames) {
    const CSummaryTable table = TableOf({RowOf("a\x1b[2J.uds", "1", CVerdict::Good)});
    EXPECT_THAT(TextTable(table, {}), HasSubstr("a?[2J.uds"));
}

}  // namespace
