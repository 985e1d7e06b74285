#include "cli/output/csv_table.h"

#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "tests/support/summary_samples.h"

#include <gmock/gmock.h>

#include <utility>
#include <vector>

namespace {

CSummaryTable TableOf(std::vector<CSummaryRow> rows) {
    CSummaryTable table = MakeSummaryTable({});
    table.rows = std::move(rows);
    return table;
}

constexpr const char* kHeaderLine =
    "Filename,Peak Value,Avg Residual,Std Dev of Residual,% in Corridor,Correlation Factor,T Statistic,"
    "0 Moment Difference,1st Moment Difference,2nd Moment Difference,3rd Moment Difference,4th Moment Difference,"
    "5th Moment Difference,Ref Filename,Min Time,Max Time\r\n";

TEST(CsvField, IsUnchangedWithoutSpecialCharacters) {
    EXPECT_EQ(CsvField("1.0 (2.00 %)"), "1.0 (2.00 %)");
    EXPECT_EQ(CsvField(""), "");
    EXPECT_EQ(CsvField("'\t; \xFF"), "'\t; \xFF");
}

TEST(CsvField, IsQuotedWhereItHoldsACommaAQuoteOrALineEnd) {
    EXPECT_EQ(CsvField("a,b"), "\"a,b\"");
    EXPECT_EQ(CsvField("\"a\""), "\"\"\"a\"\"\"");
    EXPECT_EQ(CsvField("a\nb"), "\"a\nb\"");
    EXPECT_EQ(CsvField("a\rb"), "\"a\rb\"");
}

TEST(CsvTable, IsTheHeaderLineAloneWithoutSignals) {
    EXPECT_EQ(CsvTable(TableOf({})), kHeaderLine);
}

TEST(CsvTable, HasOneLinePerSignal) {
    const CSummaryRow row = PlainRow("x");
    CSummaryRow quoted = row;
    quoted[0].text = "a,b.uds";
    const std::string rest = "x.1,x.2,x.3,x.4,x.5,x.6,x.7,x.8,x.9,x.10,x.11,x.12,x.13,x.14,x.15\r\n";
    EXPECT_EQ(CsvTable(TableOf({row, quoted})), kHeaderLine + ("x.0," + rest) + "\"a,b.uds\"," + rest);
}

TEST(CsvTable, FollowsTheDisplayedOrder) {
    CSummaryTable table = TableOf({PlainRow("x")});
    table.order = {15, 0};
    EXPECT_EQ(CsvTable(table), "Max Time,Filename\r\nx.15,x.0\r\n");
}

TEST(CsvTable, EndsWithTheColumnsThatAreAdded) {
    CSummaryTable table = TableOf({PlainRow("x"), PlainRow("y")});
    table.order = {0};
    EXPECT_EQ(CsvTable(table, {{"One", "Two"}, {{"1", "a,b"}, {"2", ""}}}),
              "Filename,One,Two\r\nx.0,1,\"a,b\"\r\ny.0,2,\r\n");
}

TEST(CsvTable, LeavesOutColumnsThatAreNotFixed) {
    const std::vector<CSummaryColumn> columns = ColumnsWithExtra(), fixed = FixedColumns();
    const CSignal signal("a.uds");
    EXPECT_EQ(CsvTable(MakeSummaryTable({signal}, columns)), CsvTable(MakeSummaryTable({signal}, fixed)));
    EXPECT_THAT(CsvTable(MakeSummaryTable({signal}, columns)), testing::StartsWith(kHeaderLine));
}

}  // namespace
